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

    [[nodiscard]] std::string_view LineText() const { return lineText_; }  // the logical line
    [[nodiscard]] Pos LinePos() const { return linePos_; }
    [[nodiscard]] Pos LineLen() const { return lineLen_; }
    [[nodiscard]] std::string_view LineNoComment() const { return lineNoComment_; }
    [[nodiscard]] Pos CodeLen() const { return Len(lineNoComment_); }
    /// True if the line holds only blanks or a comment; then there are no splits.
    [[nodiscard]] bool NoContent() const { return noContent_; }

    [[nodiscard]] std::string_view Statement() const { return statement_; }
    [[nodiscard]] Pos StatementPos() const { return statementPos_; }  // position in the module
    [[nodiscard]] Pos StatementLen() const { return Len(statement_); }
    [[nodiscard]] Pos PosInStatement() const { return posInStatement_; }

    [[nodiscard]] int SplitCount() const { return static_cast<int>(splits_.size()); }
    /// Text of split `nr`, from 1. Throws VbError 9 if `nr` is out of range.
    [[nodiscard]] std::string_view SplitStr(int nr) const;
    /// Position of the split in the statement. It is one after the end of the previous split, even with several blanks
    /// between them.
    [[nodiscard]] Pos SplitPos(int nr) const;
    [[nodiscard]] Pos SplitLen(int nr) const;

    /// Number of the split that contains the position, or 0; the following functions return its text and place.
    [[nodiscard]] int SplitNr() const { return splitNr_; }
    [[nodiscard]] std::string_view Split_Str() const { return splitNr_ ? SplitStr(splitNr_) : std::string_view(); }
    [[nodiscard]] Pos PosInSplit() const { return posInSplit_; }

    /// Number of the first split that is exactly "=", or 0.
    [[nodiscard]] int Gleich_Ist_SplitNr() const;
    /// True if position `pos` of the statement is in round brackets.
    [[nodiscard]] bool PosInKlammer(Pos pos) const;
    /// Position of the ")" that closes the bracket opened before `pos` of the statement, or 0.
    [[nodiscard]] Pos Get_PosKlammerRechts(Pos pos) const;
    /// True if the position is in an expression or argument, that is, neither in the target of an assignment nor in the
    /// name of the called procedure.
    [[nodiscard]] bool PosInArgumentListe() const;
    /// True if the statement is a declaration.
    [[nodiscard]] bool PosInDeklaration() const;
    /// Number of `find` outside strings in the current split.
    [[nodiscard]] int Get_AnzStr_InSplit(std::string_view find) const;

    /// The dotted expression up to the position, without the brackets around it.
    /// @param wordLength  characters of the word that begins at the position and belongs to the expression
    [[nodiscard]] std::string Get_Prop_With_Parents(Pos wordLength = 1);
    /// Start in the module of the expression that the last Get_Prop_With_Parents returned.
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
    /// Position of the next blank, or of the "=" of a ":=", at or after `from` outside strings; 0 if there is none.
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
    std::vector<int> bracketsBefore_;  // number of open brackets before each position of the statement
};

/// True if the blank between two pieces does not separate them, as before a point or after an opening bracket.
[[nodiscard]] bool BlankNoBlank(std::string_view left, std::string_view right);
