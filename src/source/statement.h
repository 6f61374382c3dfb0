// The statement around one position of a module as a flat list of splits: the parts between separating blanks outside
// brackets and strings. One object serves one position.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "source/module_text.h"

class clsStatement {
public:
    /// `module` must outlive this object.
    explicit clsStatement(const ModuleText& module) : module_(module) {}

    /// Extracts and splits the statement at `pos` of the module's text.
    void Initialisieren(Pos pos);

    [[nodiscard]] std::string_view Statement() const { return statement_; }
    [[nodiscard]] Pos StatementPos() const { return statementPos_; }  // position in the module
    [[nodiscard]] Pos StatementLen() const { return Len(statement_); }

    [[nodiscard]] int SplitCount() const { return static_cast<int>(splits_.size()); }
    /// Text of split `nr`, from 1. Throws VbError 9 if `nr` is out of range.
    [[nodiscard]] std::string_view SplitStr(int nr) const;
    /// Position of the split in the statement. It is one after the end of the previous split, even with several blanks
    /// between them.
    [[nodiscard]] Pos SplitPos(int nr) const;

private:
    struct Split {
        std::string str;
        Pos pos;
    };

    void Get_LineNoComment();
    void Set_Statement(Pos pos);
    void Split_Statement();
    /// Position of the next blank, or of the "=" of a ":=", at or after `from` outside strings; 0 if there is none.
    [[nodiscard]] Pos Get_NextTrenner_Rechts(Pos from) const;
    [[nodiscard]] Pos NextBlank(Pos from) const;
    [[nodiscard]] bool InString(Pos posInStatement) const;
    /// True if position `pos` of the statement is in round brackets.
    [[nodiscard]] bool PosInKlammer(Pos pos) const;
    [[nodiscard]] Pos FindInLine(std::string_view find, Pos from, bool toTheRight) const;
    void CountBrackets();

    const ModuleText& module_;
    std::string_view lineText_;
    std::string_view lineNoComment_;
    Pos linePos_ = 0;
    std::string statement_;
    Pos statementPos_ = 0;
    std::vector<Split> splits_;
    std::vector<int> bracketsBefore_;  // number of open brackets before each position of the statement
};
