// The input is a type library in either format.

#include "library_promises.h"
#include "platform/type_library_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    const TypeLibrary library = ReadTypeLibrary(file);
    RequireSound(library, size);
    RequireSoundContents(library);
    return 0;
}
