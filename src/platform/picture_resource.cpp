#include "platform/picture_resource.h"

#include <algorithm>
#include <cstdlib>
#include <utility>
#include <vector>

#include "platform/byte_view.h"
#include "platform/pe_resources.h"

namespace {

constexpr std::uint32_t kBitmaps = 2;
constexpr std::uint32_t kIconImages = 3;
constexpr std::uint32_t kIcons = 14;
constexpr std::uint32_t kMostPixels = 256;  // a side
constexpr std::size_t kMostBytes = std::size_t{1} << 20;
constexpr std::size_t kMostImages = 16;  // of one icon

std::string Number(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(value >> 8 * i & 0xFF);
    return text;
}

const PeResource* WithNumber(const PeResources& found, std::uint32_t number) {
    const auto one = std::find_if(found.resources.begin(), found.resources.end(),
                                  [number](const PeResource& resource) { return resource.number == number; });
    return one == found.resources.end() ? nullptr : &*one;
}

// The resource lacks the header that says where the pixels begin.
std::string BitmapFile(std::string_view resource) {
    constexpr std::uint32_t kFileHeader = 14;
    constexpr std::uint32_t kOldHeader = 12;
    constexpr std::uint32_t kUsualHeader = 40;
    const ByteView bytes(resource);
    const std::uint32_t header = bytes.U32(0);
    const bool isOld = header == kOldHeader;
    if ((!isOld && header < kUsualHeader) || !bytes.Holds(0, header) || bytes.Size() > kMostBytes)
        return {};
    const std::int64_t width = isOld ? bytes.U16(4) : bytes.I32(4);
    const std::int64_t height = isOld ? bytes.U16(6) : bytes.I32(8);  // negative for lines from the top
    if (width <= 0 || width > kMostPixels || height == 0 || std::abs(height) > kMostPixels)
        return {};
    const std::uint32_t bits = bytes.U16(isOld ? 10 : 14);
    std::uint32_t colours = isOld ? 0 : bytes.U32(32);
    if (colours == 0 && bits <= 8)
        colours = 1U << bits;
    const bool hasMasks = header == kUsualHeader && bytes.U32(16) == 3;
    const std::uint32_t before = header + (hasMasks ? 12 : 0) + std::min(colours, 256U) * (isOld ? 3 : 4);
    return "BM" + Number(static_cast<std::uint32_t>(kFileHeader + bytes.Size()), 4) + Number(0, 4) +
           Number(kFileHeader + before, 4) + std::string(resource);
}

// The resource of an icon names its images, which are resources themselves; in a file they follow it.
std::string IconFile(std::string_view group, const PeResources& images) {
    constexpr std::size_t kHead = 6;
    constexpr std::size_t kEntry = 14;  // that of a file has 2 more
    const ByteView bytes(group);
    std::vector<std::pair<std::string_view, std::string_view>> parts;  // entry, image
    std::size_t sum = 0;
    for (std::size_t i = 0; i < std::min<std::size_t>(bytes.U16(4), kMostImages); ++i) {
        const auto entry = bytes.Cut(kHead + i * kEntry, kEntry);
        const PeResource* const image = entry ? WithNumber(images, entry->U16(12)) : nullptr;
        if (!image || sum + image->bytes.size() > kMostBytes)
            continue;
        sum += image->bytes.size();
        parts.emplace_back(entry->Text(), image->bytes);
    }
    if (parts.empty())
        return {};
    std::string file = Number(0, 2) + Number(1, 2) + Number(static_cast<std::uint32_t>(parts.size()), 2);
    std::size_t place = kHead + parts.size() * (kEntry + 2);
    for (const auto& [entry, image] : parts) {
        file += std::string(entry.substr(0, 8)) + Number(static_cast<std::uint32_t>(image.size()), 4) +
                Number(static_cast<std::uint32_t>(place), 4);
        place += image.size();
    }
    for (const auto& [entry, image] : parts)
        file += image;
    return file;
}

}  // namespace

std::string PictureFileOf(std::string_view program, std::uint32_t number) {
    if (!IsProgramFile(program) || number == 0)
        return {};
    const PeResources bitmaps = ReadPeResources(program, kBitmaps);
    if (const PeResource* const bitmap = WithNumber(bitmaps, number))
        return BitmapFile(bitmap->bytes);
    const PeResources icons = ReadPeResources(program, kIcons);
    const PeResource* icon = WithNumber(icons, number);
    if (!icon && number <= icons.resources.size())
        icon = &icons.resources[number - 1];
    return icon ? IconFile(icon->bytes, ReadPeResources(program, kIconImages)) : std::string();
}
