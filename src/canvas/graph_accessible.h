// The diagram for screen readers: a list of its symbols and connectors.
#pragma once

class GraphCanvas;

/// Makes Qt describe canvases in this way. May be called more than once.
void InstallGraphAccessible();
/// The list of a canvas is another one now.
void TellContentsChanged(GraphCanvas& canvas);
