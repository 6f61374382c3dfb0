#include "libraries/library_version.h"

#include <charconv>

namespace {

// The whole of `text` as a hexadecimal number.
std::optional<int> HexNumber(std::string_view text) {
    constexpr std::size_t kMostDigits = 4;
    int number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number, 16);
    if (text.empty() || text.size() > kMostDigits || text.front() == '-' || error != std::errc() ||
        stop != text.data() + text.size())
        return {};
    return number;
}

}  // namespace

std::optional<LibraryVersion> VersionOf(std::string_view text) {
    const std::size_t point = text.find('.');
    const std::optional<int> major = HexNumber(text.substr(0, point));
    const std::optional<int> minor =
        point == std::string_view::npos ? std::optional(0) : HexNumber(text.substr(point + 1));
    if (!major || !minor)
        return {};
    return LibraryVersion{*major, *minor};
}

std::string TextOf(const LibraryVersion& version) {
    char text[32];
    char* end = std::to_chars(text, text + 16, version.major, 16).ptr;
    *end++ = '.';
    end = std::to_chars(end, text + sizeof text, version.minor, 16).ptr;
    return {text, end};
}

VersionFit FitOf(const LibraryVersion& offered, const LibraryVersion& asked) {
    if (offered == asked)
        return VersionFit::Exact;
    return offered.major == asked.major && offered.minor > asked.minor ? VersionFit::Later : VersionFit::Other;
}

bool IsBetter(const LibraryVersion& a, const LibraryVersion& b, const LibraryVersion& asked) {
    const VersionFit fitOfA = FitOf(a, asked);
    const VersionFit fitOfB = FitOf(b, asked);
    if (fitOfA != fitOfB)
        return fitOfA < fitOfB;
    return fitOfA == VersionFit::Later ? a < b : b < a;
}
