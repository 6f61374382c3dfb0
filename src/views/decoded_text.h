// A text of bytes as the window shows it, with the mapping between byte positions and places in the shown text.
//
// In the shown text every line end is one "\n". Byte positions and places advance together except at line ends and
// multi-byte characters, so only those places are stored. Marks of direction may be between the characters; they
// belong to no byte.
#pragma once

#include <QString>
#include <span>
#include <string_view>
#include <vector>

#include "shell/vb_text.h"

class CodePage;

class DecodedText {
public:
    DecodedText() = default;
    /// `page` must not be "auto": the caller decides on a page from the whole text.
    /// @param bounds  sorted 0-based bytes, each of which gets an invisible left-to-right mark before it
    DecodedText(std::string_view bytes, const CodePage& page, std::span<const Pos> bounds = {});

    [[nodiscard]] const QString& Text() const { return text_; }
    /// A part of the shown text without the marks: what the source has there.
    [[nodiscard]] QString WithoutMarks(int from, int to) const;
    /// Whether any character is written from right to left.
    [[nodiscard]] bool HasRightToLeft() const;
    [[nodiscard]] Pos ByteCount() const { return byteCount_; }

    /// Place in the shown text of the character that contains the 0-based byte; the end for any byte after the end.
    [[nodiscard]] int ToUtf16(Pos byte) const;
    /// 0-based first byte of the character at a place of the shown text.
    [[nodiscard]] Pos ToByte(int utf16) const;

private:
    struct Step {
        Pos byte;   // from here on, a byte of the source ...
        int utf16;  // ... and this character advance together
    };
    void AppendMark();
    void Append(std::string_view bytes, const QString& characters);
    /// The first half of a surrogate pair if the place is in its middle.
    [[nodiscard]] int WholeCharacter(int utf16) const;

    QString text_;
    Pos byteCount_ = 0;
    std::vector<Step> steps_{{0, 0}};
    std::vector<int> marks_;  // their places in the shown text
};
