// Builds a text report of lines that end in CR LF.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "shell/vb_text.h"

class ReportText {
public:
    void BlankLines(int count) {
        while (count-- > 0)
            text_.append(vbCrLf);
    }
    template <class... Parts>
    void Line(const Parts&... parts) {
        (text_.append(std::string_view(parts)), ...);
        text_.append(vbCrLf);
    }
    [[nodiscard]] std::string Take() { return std::move(text_); }

private:
    std::string text_;
};
