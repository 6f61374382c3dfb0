#include "display/text_change.h"

#include <algorithm>

TextChange::TextChange(std::string_view before, std::string_view after)
    : same_(static_cast<std::size_t>(std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first -
                                     before.begin())),
      endBefore_(before.size()),
      endAfter_(after.size()) {
    while (endBefore_ > same_ && endAfter_ > same_ && before[endBefore_ - 1] == after[endAfter_ - 1]) {
        --endBefore_;
        --endAfter_;
    }
}

std::size_t TextChange::Moved(std::size_t place) const {
    if (place <= same_)
        return place;
    return place >= endBefore_ ? place - endBefore_ + endAfter_ : std::min(place, endAfter_);
}

std::size_t LineBegin(std::string_view text, int line) {
    std::size_t begin = 0;
    for (; line > 0; --line) {
        const std::size_t end = text.find('\n', begin);
        if (end == std::string_view::npos)
            break;
        begin = end + 1;
    }
    return begin;
}

int LineAtPlace(std::string_view text, std::size_t place) {
    const std::string_view before = text.substr(0, place);
    return static_cast<int>(std::count(before.begin(), before.end(), '\n'));
}
