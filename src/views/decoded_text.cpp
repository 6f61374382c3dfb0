#include "views/decoded_text.h"

#include <algorithm>
#include <array>

#include "platform/code_page.h"
#include "platform/unicode.h"

namespace {

QString Decoded(const CodePage& page, std::string_view bytes) {
    return QString::fromStdString(page.ToUtf8(bytes));
}

// Replaces characters that the text widget would treat as line ends or control characters.
QChar Displayable(QChar c) {
    switch (c.unicode()) {
        case 0:
        case 0x2028:
        case 0x2029:
        case 0xFDD0:
        case 0xFDD1:
            return QChar(QChar::ReplacementCharacter);
        default:
            return c;
    }
}

// The character of each byte of a page; in multi-byte pages only of the first 128.
std::array<QChar, 256> SingleBytes(const CodePage& page) {
    std::array<QChar, 256> characters;
    for (unsigned i = 0; i < 256; ++i) {
        const char byte = static_cast<char>(i);
        const QString decoded = Decoded(page, {&byte, 1});
        characters[i] = Displayable(decoded.size() == 1 ? decoded[0] : QChar(QChar::ReplacementCharacter));
    }
    return characters;
}

}  // namespace

void DecodedText::Append(std::string_view bytes, const QString& characters) {
    for (const QChar c : characters)
        text_.append(Displayable(c));
    byteCount_ += static_cast<Pos>(bytes.size());
    if (static_cast<qsizetype>(bytes.size()) != characters.size())
        steps_.push_back({byteCount_, static_cast<int>(text_.size())});
}

void DecodedText::AppendMark() {
    marks_.push_back(static_cast<int>(text_.size()));
    text_.append(QChar(0x200E));
    steps_.push_back({byteCount_, static_cast<int>(text_.size())});
}

QString DecodedText::WithoutMarks(int from, int to) const {
    QString part = text_.mid(from, to - from);
    for (auto mark = marks_.rbegin(); mark != marks_.rend(); ++mark)
        if (*mark >= from && *mark < to)
            part.remove(*mark - from, 1);
    return part;
}

bool DecodedText::HasRightToLeft() const {
    constexpr char16_t kFirst = 0x0590;  // no script before it is written from right to left
    return std::any_of(text_.begin(), text_.end(), [](QChar c) {
        return c.unicode() >= kFirst && (c.direction() == QChar::DirR || c.direction() == QChar::DirAL);
    });
}

DecodedText::DecodedText(std::string_view bytes, const CodePage& page, std::span<const Pos> bounds) {
    const bool isUtf8 = page.Setting() == "65001";
    const std::array<QChar, 256> single = SingleBytes(page);
    text_.reserve(static_cast<qsizetype>(bytes.size()));
    auto bound = bounds.begin();
    for (std::size_t at = 0; at < bytes.size();) {
        for (; bound != bounds.end() && static_cast<std::size_t>(*bound) <= at; ++bound)
            AppendMark();
        const auto byte = static_cast<unsigned char>(bytes[at]);
        std::size_t end = at + 1;
        if (byte == '\r' || byte == '\n') {
            if (byte == '\r' && end < bytes.size() && bytes[end] == '\n')
                ++end;
            Append(bytes.substr(at, end - at), QStringLiteral("\n"));
        } else if (isUtf8 && byte >= 0x80) {
            (void)TakeUtf8(bytes, end = at);
            Append(bytes.substr(at, end - at), Decoded(page, bytes.substr(at, end - at)));
        } else if (page.IsLeadByte(byte) && end < bytes.size() && bytes[end] != '\r' && bytes[end] != '\n') {
            ++end;
            Append(bytes.substr(at, end - at), Decoded(page, bytes.substr(at, end - at)));
        } else {
            text_.append(single[byte]);
            ++byteCount_;
        }
        at = end;
    }
}

int DecodedText::WholeCharacter(int utf16) const {
    return utf16 > 0 && utf16 < text_.size() && text_[utf16].isLowSurrogate() ? utf16 - 1 : utf16;
}

int DecodedText::ToUtf16(Pos byte) const {
    byte = std::clamp(byte, Pos{0}, byteCount_);
    const auto next = std::upper_bound(steps_.begin(), steps_.end(), byte,
                                       [](Pos sought, const Step& step) { return sought < step.byte; });
    const Step& step = *std::prev(next);
    const int place = step.utf16 + (byte - step.byte);
    // Inside a multi-byte character or a line end: its own place, which is the last one before the next step.
    const int limit = next == steps_.end() ? static_cast<int>(text_.size()) : next->utf16 - 1;
    return WholeCharacter(std::min(place, limit));
}

Pos DecodedText::ToByte(int utf16) const {
    utf16 = WholeCharacter(std::clamp(utf16, 0, static_cast<int>(text_.size())));
    const auto next = std::upper_bound(steps_.begin(), steps_.end(), utf16,
                                       [](int sought, const Step& step) { return sought < step.utf16; });
    const Step& step = *std::prev(next);
    return step.byte + (utf16 - step.utf16);
}
