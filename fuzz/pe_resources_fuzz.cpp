// The input is a program with type libraries among its resources.

#include "library_promises.h"
#include "platform/pe_resources.h"
#include "platform/picture_resource.h"
#include "platform/type_library_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    for (const PeResourceKey& type : {PeResourceKey("TYPELIB"), PeResourceKey(std::uint32_t{3})}) {
        const PeResources found = ReadPeResources(file, type);
        Require(found.resources.size() <= size / 8, "each resource has an entry in the file");
        for (const PeResource& resource : found.resources)
            Require(resource.bytes.data() >= file.data() &&
                        resource.bytes.data() + resource.bytes.size() <= file.data() + file.size(),
                    "a resource is a part of the file");
    }
    const MemoryFiles files{{"a", std::string(file)}};
    const std::string part = ReadForResources(files, "a", size).bytes;
    Require(part.size() <= size * 2, "the part of a program is no larger than its headers and a section");
    RequireSound(ReadTypeLibrary(part), part.size());
    for (const std::uint32_t number : {1U, 2U})
        Require(PictureFileOf(file, number).size() <= (std::size_t{1} << 20) + 1024, "a picture has a bound");
    RequireSound(ReadTypeLibrary(file, 2), size);
    return 0;
}
