// The statement around one position of a module, as a flat list of splits: the parts between blanks that
// stand outside brackets and strings and really separate two things. One object serves one position.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "source/module_text.h"

class clsStatement {
public:
    /// `module` must outlive this object.
    explicit clsStatement(const ModuleText& module) : module_(module) {}

    /// Cuts out and splits the statement at `pos` of the module's text.
    void Initialisieren(Pos pos);

    [[nodiscard]] std::string_view LineText() const { return lineText_; }  // the logical line
    [[nodiscard]] Pos LinePos() const { return linePos_; }
    [[nodiscard]] Pos LineLen() const { return lineLen_; }
    [[nodiscard]] std::string_view LineNoComment() const { return lineNoComment_; }
    [[nodiscard]] Pos CodeLen() const { return Len(lineNoComment_); }
    /// The line holds nothing but blanks or a comment; there are no splits then.
    [[nodiscard]] bool NoContent() const { return noContent_; }

    [[nodiscard]] std::string_view Statement() const { return statement_; }
    [[nodiscard]] Pos StatementPos() const { return statementPos_; }  // in the module
    [[nodiscard]] Pos StatementLen() const { return Len(statement_); }
    [[nodiscard]] Pos PosInStatement() const { return posInStatement_; }

    [[nodiscard]] int SplitCount() const { return static_cast<int>(splits_.size()); }
    /// Text of split `nr`, from 1. Throws VbError 9 out of range.
    [[nodiscard]] std::string_view SplitStr(int nr) const;
    /// Its position in the statement: one behind the end of the split before, however many blanks stand there.
    [[nodiscard]] Pos SplitPos(int nr) const;
    [[nodiscard]] Pos SplitLen(int nr) const;

    /// The split that holds the position, or 0, and its copies.
    [[nodiscard]] int SplitNr() const { return splitNr_; }
    [[nodiscard]] std::string_view Split_Str() const { return splitNr_ ? SplitStr(splitNr_) : std::string_view(); }
    [[nodiscard]] Pos PosInSplit() const { return posInSplit_; }

    /// First split that is exactly "=", or 0.
    [[nodiscard]] int Gleich_Ist_SplitNr() const;
    /// Whether `pos` of the statement lies in round brackets.
    [[nodiscard]] bool PosInKlammer(Pos pos) const;
    /// The ")" that closes the bracket opened before `pos` of the statement, or 0.
    [[nodiscard]] Pos Get_PosKlammerRechts(Pos pos) const;
    /// Whether the position stands in an expression or argument: neither the target of an assignment nor the
    /// name of the called procedure.
    [[nodiscard]] bool PosInArgumentListe() const;
    /// Whether the statement is a declaration.
    [[nodiscard]] bool PosInDeklaration() const;
    /// How often `find` stands in the current split outside strings.
    [[nodiscard]] int Get_AnzStr_InSplit(std::string_view find) const;

    /// The dotted expression up to the position, out of the brackets around it.
    /// @param wordLength  characters of the word that begins at the position and belongs to the expression
    [[nodiscard]] std::string Get_Prop_With_Parents(Pos wordLength = 1);
    /// Where the expression of the last Get_Prop_With_Parents starts in the module.
    [[nodiscard]] Pos ParentStartPos() const { return parentStartPos_; }

private:
    struct Split {
        std::string str;
        Pos pos;
        Pos len;
    };

    void Get_LineNoComment();
    void Set_Statement(Pos pos);
    void Split_Statement();
    /// Next blank or "=" of a ":=" at or behind `from` outside strings, or 0.
    [[nodiscard]] Pos Get_NextTrenner_Rechts(Pos from) const;
    [[nodiscard]] Pos NextBlank(Pos from) const;
    [[nodiscard]] bool InString(Pos posInStatement) const;
    [[nodiscard]] Pos FindInLine(std::string_view find, Pos from, bool toTheRight) const;
    void CountBrackets();

    const ModuleText& module_;
    std::string_view lineText_;
    std::string_view lineNoComment_;
    Pos linePos_ = 0;
    Pos lineLen_ = 0;
    bool noContent_ = false;
    std::string statement_;
    Pos statementPos_ = 0;
    Pos posInStatement_ = 0;
    Pos posInSplit_ = 0;
    int splitNr_ = 0;
    Pos parentStartPos_ = 0;
    std::vector<Split> splits_;
    std::vector<int> bracketsBefore_;  // open brackets before each position of the statement
};

/// True when the blank between two pieces separates nothing, as before a point or behind an open bracket.
[[nodiscard]] bool BlankNoBlank(std::string_view left, std::string_view right);
