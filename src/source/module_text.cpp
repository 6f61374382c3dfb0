#include "source/module_text.h"

#include <cstring>

#include "platform/code_page.h"
#include "shell/errors.h"

ModuleText::ModuleText(std::string text) : original_(std::move(text)) {}

void ModuleText::BuildLower() const {
    lower_.resize(original_.size());
    ActiveCodePage().LowerCase(original_, lower_.data());
}

void ModuleText::ReleaseModulText() {
    std::string().swap(lower_);
    if (!map_.empty())
        Fold();
}

void ModuleText::Mark(Pos first, Pos last, CharFlag flag) {
    first = std::max(first, 1);
    last = std::min(last, CharCount());
    std::uint8_t* map = MapForPass();
    for (Pos pos = first; pos <= last; ++pos)
        map[pos] |= flag;
}

// The map is one byte a character while a module is being read and a short list of runs afterwards.
void ModuleText::Fold() {
    runs_.clear();
    const std::uint8_t* map = map_.data();
    const Pos count = CharCount();
    Pos pos = 0;
    while (pos <= count) {
        const std::uint8_t flags = map[pos];
        const std::uint64_t eight = flags * 0x0101010101010101U;
        Pos end = pos + 1;
        for (std::uint64_t next; end + 7 <= count; end += 8) {
            std::memcpy(&next, map + end, sizeof next);
            if (next != eight)
                break;
        }
        while (end <= count && map[end] == flags)
            ++end;
        runs_.push_back({end - 1, flags});
        pos = end;
    }
    runs_.shrink_to_fit();
    std::vector<std::uint8_t>().swap(map_);
}

void ModuleText::Unfold() const {
    map_.assign(original_.size() + 1, 0);
    std::size_t from = 0;
    for (const Run& run : runs_) {
        const auto next = static_cast<std::size_t>(run.end) + 1;
        if (run.flags)
            std::memset(map_.data() + from, run.flags, next - from);
        from = next;
    }
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

Pos ModuleText::Get_VBZeilenBeginn(Pos pos) const {
    return LineBegin(ModulText(), pos, false);
}

Pos ModuleText::Get_VBZeilenBeginn_Safe(Pos pos) const {
    return pos < 1 ? 0 : LineBegin(ModulText(), pos, true);
}

bool ModuleText::Line(std::string_view from, std::string_view tag, bool safe, Pos pos, Pos& start, Pos& length,
                      std::string_view& text) const {
    if (safe && pos < 1)
        start = 0;
    else
        start = LineBegin(from, pos, safe);
    length = LineEnd(from, pos) - start;
    return Attempt(tag, [&] { text = Mid(from, start, length); });
}

bool ModuleText::Get_VBZeile_Nach_Pos(Pos pos, Pos& start, Pos& length, std::string_view& text) const {
    return Line(ModulText(), "clsModul: Get_VBZeile_Nach_Pos", false, pos, start, length, text);
}

bool ModuleText::Get_VBZeile_Nach_Pos_Org(Pos pos, Pos& start, Pos& length, std::string_view& text) const {
    return Line(original_, "clsModul: Get_VBZeile_Nach_Pos_Org", false, pos, start, length, text);
}

bool ModuleText::Get_VBZeile_Nach_Pos_Safe(Pos pos, Pos& start, Pos& length, std::string_view& text) const {
    return Line(ModulText(), "clsModul: Get_VBZeile_Nach_Pos_Safe", true, pos, start, length, text);
}
