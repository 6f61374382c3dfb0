// What undo and redo do to the diagram: they put back all its symbols and places, as they were before or after a
// change.
#pragma once

#include <QString>
#include <QUndoCommand>
#include <functional>
#include <vector>

#include "xgraph/graph.h"

/// A diagram that undo can come back to.
struct GraphState {
    std::vector<SymbolPlace> places;
    QString file;  // that it is in; empty for none
    bool operator==(const GraphState&) const = default;
};

class GraphChange final : public QUndoCommand {
public:
    using Restore = std::function<void(const std::vector<SymbolPlace>& places)>;
    /// A change that has already happened.
    /// @param file  name of the file of the diagram; changes only where the change is one of the file
    GraphChange(const QString& text, GraphState before, GraphState after, QString& file, Restore restore);

    /// Small steps of one move become one: those of a held key.
    void JoinSteps() { isStep_ = true; }
    [[nodiscard]] int id() const override { return isStep_ ? 1 : -1; }
    bool mergeWith(const QUndoCommand* next) override;
    void undo() override { Put(before_, after_); }
    void redo() override;

private:
    void Put(const GraphState& state, const GraphState& from);

    GraphState before_, after_;
    QString& file_;
    Restore restore_;
    bool isStep_ = false;
    bool isNew_ = true;
};
