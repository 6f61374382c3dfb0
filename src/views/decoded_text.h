// A text of bytes as the window shows it, and the way between both: where a byte stands in the shown text, and the
// reverse.
//
// In the shown text every line end is one "\n". Between two places where both ways of counting part (a line end, a
// character of several bytes) they run in step, so only those places are kept.
#pragma once

#include <QString>
#include <string_view>
#include <vector>

#include "shell/vb_text.h"

class CodePage;

class DecodedText {
public:
    DecodedText() = default;
    /// `page` must not be "auto": whoever knows the whole text has settled that.
    DecodedText(std::string_view bytes, const CodePage& page);

    [[nodiscard]] const QString& Text() const { return text_; }
    [[nodiscard]] Pos ByteCount() const { return byteCount_; }

    /// Place in the shown text of the character that the 0-based byte is part of. Behind the end it is the end.
    [[nodiscard]] int ToUtf16(Pos byte) const;
    /// The 0-based first byte of the character at a place of the shown text.
    [[nodiscard]] Pos ToByte(int utf16) const;

private:
    struct Step {
        Pos byte;   // from here on, a byte of the source ...
        int utf16;  // ... and the character here go on in step
    };
    void Append(std::string_view bytes, const QString& characters);
    /// The first half where the place is in the middle of a surrogate pair.
    [[nodiscard]] int WholeCharacter(int utf16) const;

    QString text_;
    Pos byteCount_ = 0;
    std::vector<Step> steps_{{0, 0}};
};
