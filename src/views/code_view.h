// The code on the screen: coloured, with the lines of its file, read only, and as good by keyboard as by mouse. It
// shows a text and emits where the user points; the window decides what follows.
//
// All positions that come in or go out are bytes of the text shown, from 0.
#pragma once

#include <QPlainTextEdit>
#include <functional>
#include <vector>

#include "display/code_colours.h"
#include "display/command_table.h"
#include "views/decoded_text.h"

struct Settings;

class CodeView final : public QPlainTextEdit {
    Q_OBJECT

public:
    /// `settings` must outlive the view.
    explicit CodeView(const Settings& settings, QWidget* parent = nullptr);

    /// Shows a text from its top, with nothing selected and no place marked.
    void Show(const CodeText& code);
    void Clear() { Show({}); }
    /// Selects a stretch and scrolls so that it can be seen.
    void Select(CodeRange range);
    /// Marks places and scrolls to the current one, counted from 1. An empty list removes the marks.
    void MarkPlaces(std::vector<CodeSpan> places, int current = 1);

    [[nodiscard]] int Zoom() const { return zoom_; }
    [[nodiscard]] Pos SelStart() const;
    [[nodiscard]] Pos SelLength() const;
    [[nodiscard]] int PlaceCount() const { return static_cast<int>(places_.size()); }

    /// Applies font, colours and tab size of the settings to the text shown.
    void ApplySettings();
    /// All texts of the widget in the language of the program.
    void Texte();
    /// Gives the tool tip of a position; without one, or with an empty answer, there is none.
    void SetToolTipSource(std::function<QString(Pos)> source) { toolTipSource_ = std::move(source); }

    /// Where the code leads to objects.
    struct Ways {
        std::function<bool(Pos start, Pos length)> leadsOn;  // from a selection
        std::function<bool(Pos)> isLink;                     // whether a name there leads on
    };
    void SetWays(Ways ways) { ways_ = std::move(ways); }

public Q_SLOTS:
    /// Goes to the next or previous marked place, and from one end to the other.
    void NextPlace() { StepToPlace(+1); }
    void PreviousPlace() { StepToPlace(-1); }
    void ZoomIn() { SetZoom(zoom_ + 1); }
    void ZoomOut() { SetZoom(zoom_ - 1); }
    void ZoomReset() { SetZoom(0); }
    /// Points added to the font size of the settings.
    void SetZoom(int zoom);

Q_SIGNALS:
    /// Right click, Ctrl+click or Enter: lead from here to the object.
    void PositionClicked(int selStart, int selLength);
    /// Menu: about the object that this place leads to, or the current one.
    void CommandAsked(Command command);
    /// A place became the current one, from 1; 0 of 0 after the marks were removed.
    void PlaceChanged(int index, int count);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;

private:
    class Gutter;
    friend class Gutter;

    void ApplySpans();
    void ApplyGround();
    void ApplyPlaces();
    void ApplyFont();
    void LayOutGutter();
    void PaintGutter(QPaintEvent* event);
    void StepToPlace(int step);
    void ScrollTo(int from, int to);
    /// Byte of the character under a point of the viewport, or -1 beside all text.
    [[nodiscard]] Pos ByteAt(QPoint point) const;
    /// Moves the cursor to the text under a point, unless that is part of the selection.
    void PointTo(QPoint point);
    [[nodiscard]] bool LeadsOn() const;
    [[nodiscard]] QColor Ground() const;

    const Settings& settings_;
    DecodedText text_;
    std::vector<CodeSpan> spans_;
    std::vector<CodeSpan> places_;
    int currentPlace_ = 0;
    int firstLine_ = 0;
    Shade shade_ = Shade::Plain;
    int zoom_ = 0;
    QWidget* gutter_ = nullptr;
    QString emptyText_;
    std::function<QString(Pos)> toolTipSource_;
    Ways ways_;
    Pos pointedAt_ = -1;      // the byte under the pointer
    bool hasJumped_ = false;  // by the right click in progress, which then opens no menu
};
