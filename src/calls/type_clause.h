// Resolves a type after "as", such as `lib.Thing`, part by part: each part is looked up in the one before, and each
// part found makes a use edge.
#pragma once

#include "calls/edges.h"
#include "calls/resolve.h"
#include "model/clsModul.h"

class TypeClause {
public:
    /// @param caller  the procedure, or the module for its declarations section
    TypeClause(FoundCalls& found, clsModul& modul, CodeObject& caller, ModuleNames& names)
        : found_(found), modul_(modul), caller_(caller), names_(names) {}

    /// "as" at bracket depth `depth`: a type begins.
    void Begin(int depth) {
        asSeen_ = true;
        depth_ = depth;
        Empty();
    }
    /// The type has ended.
    void End() {
        asSeen_ = false;
        Empty();
    }
    [[nodiscard]] bool Active() const { return asSeen_; }
    [[nodiscard]] int Depth() const { return depth_; }
    /// For a "new" without "as": sets the depth at which a comma ends the type.
    void SetDepth(int depth) { depth_ = depth; }

    void Part(Name word, Pos pos) {
        const CodeObject* context = hasPart_ ? part_ : &modul_;
        part_ = word.Known() ? modMain::Get_Typ_AusName(context, word, names_) : nullptr;
        hasPart_ = true;
        if (part_)
            found_.CallUseCreate(*part_, caller_, pos);
    }

private:
    void Empty() {
        hasPart_ = false;
        part_ = nullptr;
    }
    FoundCalls& found_;
    clsModul& modul_;
    CodeObject& caller_;
    ModuleNames& names_;
    CodeObject* part_ = nullptr;
    bool hasPart_ = false;
    bool asSeen_ = false;
    int depth_ = 0;
};
