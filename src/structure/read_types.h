// Reads whole Type and Enum blocks.
#pragma once

class ModuleReader;

/// Reads `Type ... End Type`: each "as" makes a member.
/// @param tokNr  in: the first token of the head; out: the closing "type", or the last token of the module if the block
///               has no end
void Analyse_ReadType(ModuleReader& reader, int& tokNr);

/// Reads `Enum ... End Enum`: the first token of each statement makes a member. Parameters as above.
void Analyse_ReadEnum(ModuleReader& reader, int& tokNr);
