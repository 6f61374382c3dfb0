// A symbol on the screen. It keeps what it paints and no reference to the graph, so that it may stay for a moment when
// its symbol has gone.
#pragma once

#include <QGraphicsItem>
#include <string_view>

#include "xgraph/symbol.h"

struct GraphColours;

class SymbolItem final : public QGraphicsItem {
public:
    struct Content {
        QString modul, name;
        std::string_view image;
        SymbolLayout layout;
        bool isSelected = false;
        bool isMarked = false;  // the current object, or the one that has the focus
        bool operator==(const Content&) const = default;
    };
    /// @param colours  must outlive the item
    SymbolItem(int index, const GraphColours& colours) : index_(index), colours_(colours) {}

    /// Index of the symbol in the graph.
    [[nodiscard]] int Index() const { return index_; }
    void Show(const ctlGraphObj& symbol, bool isMarked);
    [[nodiscard]] const Content& Shown() const { return content_; }
    /// The frame of the symbol in the scene, without the ring around a marked one.
    [[nodiscard]] QRectF Frame() const;

    [[nodiscard]] QRectF boundingRect() const override;
    [[nodiscard]] QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    void PaintImage(QPainter& painter, double pixels) const;

    int index_;
    const GraphColours& colours_;
    Content content_;
};

/// What the item of a symbol shows.
[[nodiscard]] SymbolItem::Content ContentOf(const ctlGraphObj& symbol, bool isMarked);
/// Paints the captions in the pixels that they are measured in. They hide what is below them; on clear ground they
/// remove it.
void PaintCaptions(QPainter& painter, const SymbolItem::Content& content, const GraphColours& colours);
/// Removes what is below, in the colour of the ground, which can be clear.
void PaintGround(QPainter& painter, const QRectF& place, const GraphColours& colours);

/// Forgets the pictures of symbols: after a change of the palette.
void ForgetSymbolPictures();
