#include "platform/sltg_reader.h"

void ReadSltg(ByteView /*file*/, LibraryReading& reading) {
    reading.Broken("SLTG");
}
