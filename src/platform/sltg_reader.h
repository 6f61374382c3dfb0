// Reads a type library in the format SLTG, which tools of the early 1990s wrote.
#pragma once

#include "platform/byte_view.h"
#include "platform/library_reading.h"

/// Adds to the library of `reading` what could be read.
void ReadSltg(ByteView file, LibraryReading& reading);
