// How the diagram leaves the program: as a file for others, on paper, by the clipboard.
#pragma once

#include <optional>
#include <string>

#include "views/graph_export_dialog.h"
#include "views/graph_ports.h"

class Files;
class GraphCanvas;
class SettingsFile;
enum class PictureFormat : std::uint8_t;
struct Settings;

class GraphOutput final {
public:
    /// All must outlive it.
    GraphOutput(GraphCanvas& canvas, Files& files, SettingsFile& file, const Settings& settings,
                const GraphPorts& ports, QWidget* window);

    /// Asks for a file and its format and writes it; an existing one is replaced as a whole after a question.
    void GraphExport();
    /// Shows the preview. Whoever closes it without printing hears nothing.
    void GraphPrint();

private:
    [[nodiscard]] ExportChoice LastChoice() const;
    void Remember(const ExportChoice& choice);
    void Export(const QString& path, const ExportChoice& choice);
    /// Nothing after a cancel or a failure, of which the user knows then.
    [[nodiscard]] std::optional<std::string> MakePicture(PictureFormat format, const ExportChoice& choice);

    GraphCanvas& canvas_;
    Files& files_;
    SettingsFile& file_;
    const Settings& settings_;
    const GraphPorts& ports_;
    QWidget* window_;
    QString gExportDir_;
};
