#include "display/fixed_texts.h"

#include "platform/code_page.h"
#include "shell/clsText.h"

namespace {

constexpr std::string_view kNotFound = "File not found: ";
constexpr std::string_view kCancelLoading = "\r\n\r\nLaden abbrechen?";

}  // namespace

std::string ShownText(std::string_view bytes) {
    std::string whole = ActiveCodePage().ToUtf8(bytes);
    const std::string notFound = Utf8TextNr(Text::FileNotFound);
    const std::string question = Utf8TextNr(Text::AskCancelLoading);
    if (!bytes.starts_with(kNotFound) || notFound.empty() || question.empty())
        return whole;
    std::string_view path = bytes.substr(kNotFound.size());
    const bool asks = path.ends_with(kCancelLoading);
    if (asks)
        path.remove_suffix(kCancelLoading.size());
    return Filled(notFound, {ActiveCodePage().ToUtf8(path)}) + (asks ? "\n\n" + question : std::string());
}
