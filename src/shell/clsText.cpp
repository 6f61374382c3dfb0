#include "shell/clsText.h"

#include "platform/code_page.h"
#include "shell/errors.h"

clsText gText;

void clsText::SetLanguage(const Files& files, const std::string& programDirectory) {
    if (Language.empty())
        Language = "english";
    const std::string path = programDirectory + "Languages\\" + Language + ".txt";
    if (!files.FileExists(path))
        return;
    const FileText file = files.ReadText(path);
    if (file.error != FileError::None) {
        ShowFileError("modMain: GetText", file.error);
        return;
    }
    std::size_t row = 0;
    for (std::size_t from = 0; from < file.text.size();) {
        auto end = file.text.find(vbCrLf, from);
        const auto next = end == std::string::npos ? file.text.size() : end + vbCrLf.size();
        if (end == std::string::npos)
            end = file.text.size();
        if (++row == lines_.size())
            lines_.emplace_back();
        lines_[row].assign(file.text, from, end - from);
        from = next;
    }
}

const std::string& clsText::TextNr(Text text) const {
    const auto nr = static_cast<std::size_t>(text);
    return lines_[nr < lines_.size() ? nr : 0];
}

std::string Utf8TextNr(Text text) {
    static const CodePage page("1252");
    return page.ToUtf8(gText.TextNr(text));
}

std::string Filled(std::string_view text, std::initializer_list<std::string_view> parts) {
    std::string filled;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::size_t nr = text[at] == '%' && at + 1 < text.size()
                                   ? static_cast<std::size_t>(static_cast<unsigned char>(text[at + 1])) - '1'
                                   : parts.size();
        if (nr < parts.size()) {
            filled += parts.begin()[nr];
            ++at;
        } else {
            filled += text[at];
        }
    }
    return filled;
}

std::string Filled(Text text, std::initializer_list<std::string_view> parts) {
    return Filled(Utf8TextNr(text), parts);
}
