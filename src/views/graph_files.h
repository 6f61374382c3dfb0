// The file of the diagram: the dialogs and questions around opening and saving it.
#pragma once

#include <QObject>
#include <string>

class Files;
class GraphCanvas;
class SettingsFile;

/// What a file of the diagram could be called, without a suffix: as the diagram is, or else as its project.
[[nodiscard]] QString ProposedFileName(const GraphCanvas& canvas);

class GraphFiles final : public QObject {
    Q_OBJECT

public:
    /// All must outlive it.
    GraphFiles(GraphCanvas& canvas, Files& files, SettingsFile& settings, QWidget* window);

    /// Asks for a file and opens it.
    void GraphOpen();
    /// Opens a file, after a question if that removes a diagram.
    void Open(const std::string& path);
    /// Saves to the file of the diagram, or asks for one.
    bool GraphSave();
    bool SaveAs();
    /// Whether the diagram may go: asks what becomes of changes that are not saved.
    [[nodiscard]] bool MayGo();
    /// For the title of the window: its file, "X-Graph" without one, empty for no diagram.
    [[nodiscard]] QString Name() const;

Q_SIGNALS:
    void Message(const QString& text);

private:
    bool Save(const QString& path);

    GraphCanvas& canvas_;
    Files& files_;
    SettingsFile& settings_;
    QWidget* window_;
    QString gGraphDir_;  // of the last diagram opened or saved
};
