// Writes one procedure of a generated project: comment, head, declarations, statements, end.
#pragma once

#include <string>
#include <string_view>

#include "generate_project_lines.h"
#include "generate_project_scope.h"

namespace generate {

class ProcedureWriter {
public:
    ProcedureWriter(Plan& plan, int module, Procedure& procedure, LineWriter& out);

    /// Writes the procedure in about `lines` lines, those above and below it included.
    void Write(int lines);

private:
    void Header();
    void Head();
    void Declarations();
    void Accessor(int lines);
    void Ending();
    void ErrorHandler();

    // Statements until the body has `lines` more lines, or a few more than that.
    void Statements(int lines, int nesting);
    void OneStatement(int space, int nesting);
    void SimpleStatement();
    void Remarks(int nesting);
    void RemarkLine(LineWriter& out);
    std::string Matter();

    void IfBlock(int space, int nesting);
    void ForBlock(int space, int nesting);
    void ForEachBlock(int space, int nesting);
    void LoopBlock(int space, int nesting);
    void SelectBlock(int space, int nesting);
    void WithBlock(int space, int nesting);
    void FileBlock();
    void RecordsetBlock(int space, int nesting);
    void QueryText();
    void TraceBlock();
    void LateBound();

    // Writes the statement behind the lines it needs before itself.
    void Say(std::string_view statement);
    void Inside(int lines, int nesting);
    [[nodiscard]] std::string_view Kind() const;

    Plan& plan_;
    Random& random_;
    int position_;
    Procedure& procedure_;
    LineWriter& out_;
    LineWriter body_;
    Scope scope_;
    int opened_ = 0;  // lines of the body when the last block began
    bool hasHandler_ = false;
    std::string handlerLabel_;
};

/// "ByVal strName As String, Optional lngMode As Long = 0".
std::string ParameterList(const Plan& plan, const Style& style, const std::vector<Parameter>& parameters);

}  // namespace generate
