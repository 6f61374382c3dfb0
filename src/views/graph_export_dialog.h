// Asks where to export the diagram to: the suffix of the file is its format. What a picture has besides the diagram is
// chosen in the same dialog.
#pragma once

#include <QFileDialog>

class QCheckBox;
class QLabel;
class QSpinBox;

/// What was chosen last, as the settings keep it.
struct ExportChoice {
    QString directory;
    QString suffix = QStringLiteral("bmp");
    bool hasLegend = false;
    bool hasCaption = false;
    bool hasClearGround = false;
    int scale = 2;  // of PNG
    bool operator==(const ExportChoice&) const = default;
};

class GraphExportDialog final : public QFileDialog {
    Q_OBJECT

public:
    /// @param name  that it proposes, without a suffix
    GraphExportDialog(const ExportChoice& last, const QString& name, QWidget* parent);
    [[nodiscard]] ExportChoice Choice() const;
    /// The file chosen. A name with no suffix of a format has got that of the kind of file.
    [[nodiscard]] QString Path() const;

private:
    void AddOptions(const ExportChoice& last);
    void EnableOptions();

    QCheckBox *legend_, *caption_, *clearGround_;
    QLabel* scaleLabel_;
    QSpinBox* scale_;
};
