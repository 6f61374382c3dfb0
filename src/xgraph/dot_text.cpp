#include "xgraph/dot_text.h"

std::string DotQuoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char character : text)
        switch (character) {
            case '"':
            case '\\':
                quoted += '\\';
                quoted += character;
                break;
            case '&':
                quoted += "&amp;";
                break;
            case '\n':
                quoted += "\\n";
                break;
            default:
                quoted += static_cast<unsigned char>(character) < ' ' ? ' ' : character;
        }
    quoted += '"';
    return quoted;
}
