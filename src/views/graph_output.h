// How the diagram leaves the program: as a file for others, on paper, by the clipboard.
#pragma once

#include <QObject>

#include "views/graph_export_dialog.h"

class Files;
class GraphCanvas;
class SettingsFile;
struct PictureOptions;
struct Settings;

class GraphOutput final : public QObject {
    Q_OBJECT

public:
    /// All must outlive it.
    GraphOutput(GraphCanvas& canvas, Files& files, SettingsFile& file, const Settings& settings, QWidget* window);

    /// Asks for a file and its format and writes it; an existing one is replaced as a whole after a question.
    void GraphExport();
    /// Shows the preview. Whoever closes it without printing hears nothing.
    void GraphPrint();

Q_SIGNALS:
    void Message(const QString& text);

private:
    [[nodiscard]] ExportChoice LastChoice() const;
    void Remember(const ExportChoice& choice);
    [[nodiscard]] bool Export(const QString& path, const ExportChoice& choice);

    GraphCanvas& canvas_;
    Files& files_;
    SettingsFile& file_;
    const Settings& settings_;
    QWidget* window_;
    QString gExportDir_;
};
