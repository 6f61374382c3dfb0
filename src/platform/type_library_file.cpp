#include "platform/type_library_file.h"

#include <charconv>

#include "platform/library_reading.h"
#include "platform/msft_reader.h"
#include "platform/pe_resources.h"
#include "platform/sltg_reader.h"

namespace {

constexpr std::string_view kMsft = "MSFT";
constexpr std::string_view kSltg = "SLTG";

const PeResource* Chosen(const std::vector<PeResource>& resources, std::optional<std::uint32_t> number) {
    const PeResource* chosen = nullptr;
    for (const PeResource& resource : resources) {
        if (resource.number == number.value_or(1))
            return &resource;
        if (!number && (!chosen || resource.number < chosen->number))
            chosen = &resource;
    }
    return chosen;
}

std::string_view FromProgram(std::string_view file, std::optional<std::uint32_t> number, TypeLibrary& library) {
    const PeResources found = ReadPeResources(file, std::string("TYPELIB"));
    if (const PeResource* resource = Chosen(found.resources, number))
        return resource->bytes;
    if (!found.problem.empty())
        library.problems.push_back(found.problem);
    else if (found.resources.empty())
        library.problems.emplace_back("The file has no type library among its resources.");
    else
        library.problems.push_back("The file has no type library number " + std::to_string(number.value_or(1)) + ".");
    return {};
}

}  // namespace

TypeLibrary ReadTypeLibrary(std::string_view file, std::optional<std::uint32_t> resource) {
    TypeLibrary library;
    if (IsProgramFile(file)) {
        file = FromProgram(file, resource, library);
        if (file.empty())
            return library;
    }
    LibraryReading reading(library, file.size());
    if (file.starts_with(kMsft)) {
        library.format = typelib::Format::Msft;
        ReadMsft(ByteView(file), reading);
    } else if (file.starts_with(kSltg)) {
        library.format = typelib::Format::Sltg;
        ReadSltg(ByteView(file), reading);
    } else {
        library.problems.emplace_back("The file is no type library.");
    }
    return library;
}

LibraryPath SplitLibraryPath(std::string_view path) {
    const std::size_t separator = path.find_last_of("\\/");
    if (separator == std::string_view::npos || separator == 0)
        return {path, std::nullopt};
    const std::string_view last = path.substr(separator + 1);
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(last.data(), last.data() + last.size(), number);
    if (last.empty() || error != std::errc() || end != last.data() + last.size())
        return {path, std::nullopt};
    return {path.substr(0, separator), number};
}
