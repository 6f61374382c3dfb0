#include "source/line_scan.h"

#include <cstdint>
#include <cstring>

LineScan ScanLines(std::string_view lowerText) {
    static constexpr std::string_view kAttribute = "attribute ";
    LineScan scan;
    const char* const begin = lowerText.data();
    const char* const end = begin + lowerText.size();
    for (const char* line = begin; line < end;) {
        const char* first = line;
        for (std::uint64_t eight; end - first >= 8; first += 8) {
            std::memcpy(&eight, first, sizeof eight);
            if (eight != 0x2020202020202020U)
                break;
        }
        while (first < end && *first == ' ')
            ++first;
        const bool empty = first == end || *first == '\r';
        if (empty) {
            ++scan.blank;
        } else {
            ++(*first == '\'' ? scan.comment : scan.code);
            if (*first == '#' || *first == 'a') {
                const bool continues = line - begin >= 4 && std::memcmp(line - 4, " _\r\n", 4) == 0;
                const Pos pos = static_cast<Pos>(first - begin) + 1;
                if (!continues && *first == '#')
                    scan.directives.push_back(pos);
                else if (!continues && std::string_view(first, end).starts_with(kAttribute))
                    scan.attributes.push_back(pos);
            }
        }
        const void* lineFeed = std::memchr(first, '\n', static_cast<std::size_t>(end - first));
        if (!lineFeed)
            break;
        ++scan.lineBreaks;
        line = static_cast<const char*>(lineFeed) + 1;
    }
    return scan;
}
