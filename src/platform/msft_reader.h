// Reads a type library in the format MSFT, in which nearly all libraries are.
#pragma once

#include "platform/byte_view.h"
#include "platform/library_reading.h"

/// Adds to the library of `reading` what could be read.
void ReadMsft(ByteView file, LibraryReading& reading);
