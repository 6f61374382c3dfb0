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

std::string TextNrWith(Text text, std::string_view first) {
    std::string filled = gText.TextNr(text);
    if (const auto place = filled.find("%1"); place != std::string::npos)
        filled.replace(place, 2, first);
    return filled;
}

std::string Utf8TextNr(Text text) {
    static const CodePage page("1252");
    return page.ToUtf8(gText.TextNr(text));
}
