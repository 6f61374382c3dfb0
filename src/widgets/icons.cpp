#include "widgets/icons.h"

#include <QApplication>
#include <QCache>
#include <QFile>
#include <QIconEngine>
#include <QPaintEngine>
#include <QPainter>
#include <QPalette>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <unordered_map>

#include "widgets/window_style.h"

namespace {

struct Drawing {
    std::string_view key;
    const char* file;
};

// Several keys may share a drawing: a kind of object looks the same wherever it is named.
constexpr auto drawings = std::to_array<Drawing>({
    {"OrdnerZu", "folder-closed"},
    {"OrdnerAuf", "folder-open"},
    {"form", "form"},
    {"module", "module"},
    {"class", "class"},
    {"usercontrol", "usercontrol"},
    {"control", "control"},
    {"Library", "library"},
    {"Object", "object"},
    {"procedure", "procedure"},
    {"event", "event"},
    {"userevent", "userevent"},
    {"declare", "declare"},
    {"property", "property"},
    {"variable", "variable"},
    {"const", "const"},
    {"argument", "argument"},
    {"type", "type"},
    {"enum", "enum"},

    {"ProcedureDeath", "procedure-dead"},
    {"PropertyDeath", "property-dead"},
    {"DeclareDeath", "declare-dead"},
    {"UserEventDeath", "userevent-dead"},
    {"VariableDeath", "variable-dead"},
    {"ConstDeath", "const-dead"},
    {"TypeDeath", "type-dead"},
    {"EnumDeath", "enum-dead"},

    {"OpenProject", "open-project"},
    {"Structure", "structure"},
    {"Uses", "uses"},
    {"UsesShow", "uses-show"},
    {"Calls", "calls"},
    {"CallsRead", "calls-read"},
    {"CallsReadNot", "calls-read-not"},
    {"CallsModule", "calls-module"},
    {"Refresh", "refresh"},
    {"ContentCode", "content-code"},
    {"Overview", "overview"},
    {"WholeModule", "whole-module"},
    {"ContentGraph", "content-graph"},
    {"ContentChart", "content-chart"},
    {"SplitForContent", "split-for-content"},
    {"SplitForCalls", "split-for-calls"},
    {"Search", "search"},
    {"NavPrev", "nav-prev"},
    {"NavNext", "nav-next"},

    {"CheckBoxOn", "check-on"},
    {"CheckBoxOff", "check-off"},
    {"CheckBoxAll", "check-all"},
    {"CheckBoxNone", "check-none"},
    {"CollapseAll", "collapse-all"},
    {"CallsReally", "calls-really"},
    {"CallsMaybe", "calls-maybe"},
    {"CalledByReally", "called-by-really"},
    {"CalledByMaybe", "called-by-maybe"},
    {"SplitXHide", "split-x-hide"},
    {"SplitXShow", "split-x-show"},
    {"SplitYHide", "split-y-hide"},
    {"SplitYShow", "split-y-show"},

    {"Open", "open"},
    {"Save", "save"},
    {"Export", "export"},
    {"Print", "print"},
    {"SelectAll", "select-all"},
    {"Delete", "delete"},
    {"CalledByChain", "called-by-chain"},
    {"CalledByChainAll", "called-by-chain-all"},
    {"CallsChain", "calls-chain"},
    {"CallsChainAll", "calls-chain-all"},
    {"ObjectType", "object-type"},
    {"Module", "module"},
    {"Procedure", "procedure"},
    {"Variable", "variable"},
    {"Type", "type"},
    {"Enum", "enum"},
    {"AllObjTypes", "all-object-types"},
    {"ZoomPlus", "zoom-plus"},
    {"ZoomMinus", "zoom-minus"},
    {"ZoomNo", "zoom-no"},

    {"FetchSymbols", "fetch-symbols"},
    {"FitGraph", "fit-graph"},
    {"Legend", "legend"},
    {"Undo", "undo"},
    {"Redo", "redo"},
    {"Options", "options"},
    {"Reports", "reports"},
    {"Problems", "problems"},
    {"About", "about"},
    {"Question", "question"},
    {"Exit", "exit"},
    {"Close", "close"},
    {"Copy", "copy"},
    {"Ostrivane", "ostrivane"},
});

constexpr auto keys = [] {
    std::array<std::string_view, drawings.size()> result;
    std::ranges::transform(drawings, result.begin(), &Drawing::key);
    return result;
}();

enum class Colours {
    FollowPalette,
    Faint,    // of the palette, as disabled ones
    OnPaper,  // black on white
    AsDrawn,  // for the mark of the program, whose layers would become one blot
};

struct Look {
    QRgb ink = 0;
    bool allInk = false;  // else only what is drawn in the placeholder
    bool operator==(const Look&) const = default;
};

/// @param device  where the icon is painted; null when it is not known
Look LookFor(QIcon::Mode mode, const QPaintDevice* device) {
    const auto* widget = dynamic_cast<const QWidget*>(device);
    const QPalette palette = widget ? widget->palette() : QApplication::palette();
    switch (mode) {
        case QIcon::Disabled:
            return {palette.color(QPalette::Disabled, QPalette::ButtonText).rgb(), true};
        case QIcon::Selected: {
            return {
                palette
                    .color(HasPaleSelection(widget) ? QPalette::Inactive : QPalette::Active, QPalette::HighlightedText)
                    .rgb(),
                true};
        }
        default:
            return {palette.color(QPalette::Active, QPalette::ButtonText).rgb(), false};
    }
}

struct Rendered {
    QString name;
    int side = 0;  // device pixels
    Look look;
    bool operator==(const Rendered&) const = default;
};

size_t qHash(const Rendered& rendered, size_t seed) {
    return qHashMulti(seed, rendered.name, rendered.side, rendered.look.ink, rendered.look.allInk);
}

QCache<Rendered, QPixmap>& Cache() {
    static QCache<Rendered, QPixmap> cache(qsizetype{8} * 1024);  // KiB of pixels
    return cache;
}

// A picture on paper has the same few drawings again and again.
QCache<Rendered, QSvgRenderer>& PaperDrawings() {
    static QCache<Rendered, QSvgRenderer> cache(100);
    return cache;
}

class DrawnIcon final : public QIconEngine {
public:
    DrawnIcon(QString name, Colours colours) : name_(std::move(name)), colours_(colours) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
        QRectF square(0, 0, std::min(rect.width(), rect.height()), std::min(rect.width(), rect.height()));
        square.moveTopLeft(rect.topLeft() + QPoint((rect.width() - static_cast<int>(square.width())) / 2,
                                                   (rect.height() - static_cast<int>(square.height())) / 2));
        const Look look = LookOn(painter->device(), mode);
        const QTransform device = painter->deviceTransform();
        const int side = static_cast<int>(std::lround(square.width() * std::abs(device.m11())));
        // On paper, turned or enlarged beyond all icon sizes, lines are better than pixels.
        if (painter->paintEngine()->type() != QPaintEngine::Raster || device.type() > QTransform::TxScale ||
            side > 512) {
            PaperDrawing(side, look).render(painter, square);
            return;
        }
        const QPixmap pixels = Pixels(side, look);
        painter->drawPixmap(square, pixels, pixels.rect());
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override {
        return Pixels(std::min(size.width(), size.height()), LookOn(nullptr, mode));
    }

    QSize actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        const int side = std::min(size.width(), size.height());
        return {side, side};
    }

    [[nodiscard]] QIconEngine* clone() const override { return new DrawnIcon(*this); }
    [[nodiscard]] QString key() const override { return QStringLiteral("ostrivane-drawn"); }

private:
    [[nodiscard]] Look LookOn(const QPaintDevice* device, QIcon::Mode mode) const {
        if (colours_ == Colours::OnPaper)
            return {qRgb(0, 0, 0), false};
        return LookFor(colours_ == Colours::Faint && mode == QIcon::Normal ? QIcon::Disabled : mode, device);
    }

    /// The drawing for this size: the one whose grid falls on whole pixels, or nearly so.
    [[nodiscard]] QString File(int side) const {
        const auto offGrid = [side](int grid) {
            const double scale = static_cast<double>(side) / grid;
            return std::abs(scale - std::round(scale));
        };
        const QString onGrid16 = QStringLiteral(":/icons/%1.svg").arg(name_);
        const QString onGrid24 = QStringLiteral(":/icons/%1-24.svg").arg(name_);
        QString large = QStringLiteral(":/icons/%1-256.svg").arg(name_);
        if (side >= 48 && QFile::exists(large))
            return large;
        return side >= 24 && offGrid(24) <= offGrid(16) && QFile::exists(onGrid24) ? onGrid24 : onGrid16;
    }

    [[nodiscard]] QByteArray Source(int side, const Look& look) const {
        QFile file(File(side));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        QByteArray drawn = file.readAll();
        if (colours_ == Colours::AsDrawn)
            return drawn;
        const QString ink = QLatin1Char('"') + QColor(look.ink).name() + QLatin1Char('"');
        static const QRegularExpression anyColour(QStringLiteral("\"#[0-9a-fA-F]{3,6}\""));
        static const QRegularExpression placeholder(QStringLiteral("\"#444\""));
        return QString::fromUtf8(drawn).replace(look.allInk ? anyColour : placeholder, ink).toUtf8();
    }

    [[nodiscard]] QSvgRenderer& PaperDrawing(int side, const Look& look) const {
        const Rendered key{File(side), 0, look};
        if (QSvgRenderer* const known = PaperDrawings().object(key))
            return *known;
        auto* const drawing = new QSvgRenderer(Source(side, look));
        PaperDrawings().insert(key, drawing);
        return *drawing;
    }

    [[nodiscard]] QPixmap Pixels(int side, const Look& look) const {
        if (side <= 0)
            return {};
        const Rendered key{name_, side, look};
        if (const QPixmap* known = Cache().object(key))
            return *known;
        auto pixels = std::make_unique<QPixmap>(side, side);
        pixels->fill(Qt::transparent);
        QPainter painter(pixels.get());
        QSvgRenderer(Source(side, look)).render(&painter, QRectF(0, 0, side, side));
        painter.end();
        QPixmap result = *pixels;
        Cache().insert(key, pixels.release(), std::max(1, side * side * 4 / 1024));
        return result;
    }

    QString name_;
    Colours colours_;
};

QIcon IconInColours(std::string_view key, Colours colours) {
    const auto* const found = std::ranges::find(drawings, key, &Drawing::key);
    return found == std::end(drawings) ? QIcon() : QIcon(new DrawnIcon(QString::fromLatin1(found->file), colours));
}

}  // namespace

QIcon IconFor(std::string_view key) {
    static const auto icons = [] {
        Q_INIT_RESOURCE(icons);
        qAddPostRoutine(IconsPaletteChanged);  // no pixmap may outlive the application
        std::unordered_map<std::string_view, QIcon> result;
        for (const Drawing& drawing : drawings) {
            const Colours colours = drawing.key == "Ostrivane" ? Colours::AsDrawn : Colours::FollowPalette;
            result.emplace(drawing.key, QIcon(new DrawnIcon(QString::fromLatin1(drawing.file), colours)));
        }
        return result;
    }();
    const auto found = icons.find(key);
    return found == icons.end() ? QIcon() : found->second;
}

QIcon FaintIconFor(std::string_view key) {
    return IconInColours(key, Colours::Faint);
}

QIcon PaperIconFor(std::string_view key) {
    return IconInColours(key, Colours::OnPaper);
}

QIcon ApplicationIcon() {
    return IconFor("Ostrivane");
}

std::span<const std::string_view> AllIconKeys() {
    return keys;
}

void IconsPaletteChanged() {
    Cache().clear();
    PaperDrawings().clear();
}
