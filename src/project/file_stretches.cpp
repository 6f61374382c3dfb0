#include "project/file_stretches.h"

#include <algorithm>

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
}

/// Finds the byte of a file for rising positions of its text, in which every line end is CR LF.
class BytesOfText {
public:
    explicit BytesOfText(std::string_view bytes) : bytes_(bytes) {
        if (bytes.starts_with(kUtf8Mark))
            byte_ = static_cast<Pos>(kUtf8Mark.size());
    }
    [[nodiscard]] Pos ByteOf(Pos pos) {
        while (pos_ < pos && byte_ < Len(bytes_))
            Step();
        return byte_;
    }
    [[nodiscard]] Pos PosOf(Pos byte) {
        while (byte_ < byte && byte_ < Len(bytes_))
            Step();
        return pos_;
    }

private:
    void Step() {
        const auto at = static_cast<std::size_t>(byte_);
        const bool isPair = bytes_[at] == '\r' && at + 1 < bytes_.size() && bytes_[at + 1] == '\n';
        pos_ += IsLineEnd(bytes_[at]) ? 2 : 1;
        byte_ += isPair ? 2 : 1;
    }
    std::string_view bytes_;
    Pos pos_ = 1;
    Pos byte_ = 0;
};

/// Where a byte that is left was before.
Pos Before(const std::vector<Stretch>& gone, Pos byte) {
    for (const Stretch& stretch : gone) {
        if (stretch.start > byte)
            break;
        byte += stretch.length;
    }
    return byte;
}

/// What went before from the same line goes with the rest of it: alone it would come back into another line. It is
/// never cut in two.
Pos WithLineBefore(std::string_view bytes, const std::vector<Stretch>& gone, Pos start) {
    const bool beginsLine = start == 0 || IsLineEnd(bytes[static_cast<std::size_t>(start) - 1]);
    const auto before =
        std::find_if(gone.begin(), gone.end(), [start](const Stretch& stretch) { return stretch.End() == start; });
    return beginsLine || before == gone.end() ? start : before->start;
}

}  // namespace

std::vector<Stretch> Merged(std::vector<Stretch> stretches) {
    std::sort(stretches.begin(), stretches.end(), [](const Stretch& a, const Stretch& b) { return a.start < b.start; });
    std::vector<Stretch> merged;
    for (const Stretch& next : stretches) {
        if (!merged.empty() && merged.back().End() >= next.start)
            merged.back().length = std::max(merged.back().End(), next.End()) - merged.back().start;
        else
            merged.push_back(next);
    }
    return merged;
}

std::string Without(std::string_view bytes, const std::vector<Stretch>& gone) {
    std::string left;
    left.reserve(bytes.size());
    Pos from = 0;
    for (const Stretch& stretch : gone) {
        left.append(bytes.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(stretch.start - from)));
        from = stretch.End();
    }
    return left.append(bytes.substr(static_cast<std::size_t>(from)));
}

std::vector<Stretch> InFile(std::string_view bytes, const std::vector<Stretch>& gone,
                            const std::vector<Stretch>& inText) {
    const std::string left = Without(bytes, gone);
    BytesOfText bytesOfText(left);
    std::vector<Stretch> inFile;
    for (const Stretch& stretch : inText) {
        const Pos first = bytesOfText.ByteOf(stretch.start);
        const Pos end = bytesOfText.ByteOf(stretch.End());
        Pos start = Before(gone, first);
        if (first == 0 || IsLineEnd(left[static_cast<std::size_t>(first) - 1]))
            start = WithLineBefore(bytes, gone, start);
        inFile.push_back({start, Before(gone, end - 1) + 1 - start});
    }
    return inFile;
}

Pos InText(std::string_view bytes, const std::vector<Stretch>& gone, Pos byte) {
    Pos before = byte;
    for (const Stretch& stretch : gone)
        if (stretch.start < byte)
            before -= std::min(stretch.End(), byte) - stretch.start;
    return BytesOfText(Without(bytes, gone)).PosOf(before);
}
