#include "source/module_text.h"

#include "shell/errors.h"

ModuleText::ModuleText(std::string_view text, const CodePage& page, std::pmr::memory_resource* memory)
    : original_(text, memory), page_(&page), hidden_(memory) {}

void ModuleText::BuildLower() const {
    lower_ = std::make_unique_for_overwrite<char[]>(original_.size() + 1);
    page_->LowerCase(original_, lower_.get());
    lower_[original_.size()] = '\0';
}

void ModuleText::ReleaseModulText() {
    lower_.reset();
    if (mapSource_)
        std::vector<std::uint8_t>().swap(map_);
}

void ModuleText::Mark(Pos first, Pos last, CharFlag flag) {
    first = std::max(first, 1);
    last = std::min(last, CharCount());
    std::uint8_t* map = MapForPass();
    for (Pos pos = first; pos <= last; ++pos)
        map[pos] |= flag;
}

void ModuleText::Hide(Pos first, Pos last) {
    hidden_.emplace_back(first, last);
    Mark(first, last, NotCompile);
}

void ModuleText::HideAgain() {
    for (const auto& [first, last] : hidden_)
        Mark(first, last, NotCompile);
}

void ModuleText::BuildMap() const {
    map_.assign(original_.size() + 1, 0);
    if (!mapSource_)
        return;
    const MutedErrors again;
    mapSource_(const_cast<ModuleText&>(*this));
}

Pos ModuleText::LineEnd(std::string_view text, Pos pos) {
    if (pos < 1)
        return 0;
    for (Pos end = InStr(pos, text, vbCrLf); end != 0; end = InStr(end + 1, text, vbCrLf))
        if (end < 3 || text.substr(static_cast<std::size_t>(end) - 3, 2) != " _")
            return end;
    return 0;
}

Pos ModuleText::LineBegin(std::string_view text, Pos pos, bool safe) const {
    Pos lineBreak = InStrRev(text, vbCrLf, pos);
    if (lineBreak == 0 || (safe && lineBreak < 3))
        return 1;
    std::string_view before;
    while (lineBreak != 0) {
        Attempt("clsModul: Get_VBZeilenBeginn", [&] { before = Mid(text, lineBreak - 2, 2); });
        if (before != " _")
            return lineBreak + 2;
        lineBreak = InStrRev(text, vbCrLf, lineBreak - 1);
    }
    return 0;
}

Pos ModuleText::Get_VBZeilenBeginn_Safe(Pos pos) const {
    return pos < 1 ? 0 : LineBegin(ModulText(), pos, true);
}

bool ModuleText::Line(std::string_view from, std::string_view tag, Pos pos, Pos& start, Pos& length,
                      std::string_view& text) const {
    start = LineBegin(from, pos, false);
    length = LineEnd(from, pos) - start;
    return Attempt(tag, [&] { text = Mid(from, start, length); });
}

bool ModuleText::Get_VBZeile_Nach_Pos(Pos pos, Pos& start, Pos& length, std::string_view& text) const {
    return Line(ModulText(), "clsModul: Get_VBZeile_Nach_Pos", pos, start, length, text);
}

bool ModuleText::Get_VBZeile_Nach_Pos_Org(Pos pos, Pos& start, Pos& length, std::string_view& text) const {
    return Line(original_, "clsModul: Get_VBZeile_Nach_Pos_Org", pos, start, length, text);
}
