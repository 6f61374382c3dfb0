// A module's character map is needed while the module is read and when a person looks at it, so it is not kept in
// between.
#pragma once

class ModuleText;

/// Fills the blank map of a text that was read before: comments, strings, the stretches hidden then, and what the
/// tokeniser adds.
void MakeCharMapAgain(ModuleText& text);
