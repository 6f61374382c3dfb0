#include "widgets/window_style.h"

#include "widgets/code_style.h"
#include "window_texts.h"

namespace {

// The palettes of a light and a dark desktop; each also with the placeholder and link colours of the other.
std::vector<QPalette> Palettes() {
    std::vector<QPalette> palettes;
    for (const bool dark : {false, true})
        for (const bool foreign : {false, true}) {
            QPalette palette(dark ? QColor(50, 50, 50) : QColor(239, 239, 239));
            palette.setColor(QPalette::Base, dark ? QColor(36, 36, 36) : QColor(Qt::white));
            palette.setColor(QPalette::Text, dark ? QColor(Qt::white) : QColor(Qt::black));
            palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
            palette.setColor(QPalette::HighlightedText, Qt::white);
            palette.setColor(QPalette::ToolTipBase, QColor(255, 255, 220));
            palette.setColor(QPalette::ToolTipText, Qt::black);
            palette.setColor(QPalette::PlaceholderText,
                             dark != foreign ? QColor(255, 255, 255, 128) : QColor(0, 0, 0, 128));
            palette.setColor(QPalette::Link, dark != foreign ? QColor(80, 160, 255) : QColor(0, 0, 255));
            WindowStyle().polish(palette);
            palettes.push_back(palette);
        }
    return palettes;
}

class Colours : public WindowTest {
protected:
    void ExpectReadable(const QColor& ink, const QColor& ground, const std::string& what) {
        EXPECT_EQ(ink.alpha(), 255) << what;
        EXPECT_GE(Contrast(ink, ground), 4.5 - 0.01)
            << what << ": " << ink.name().toStdString() << " on " << ground.name().toStdString();
    }
};

TEST_F(Colours, OfThePaletteAreReadableInLightAndDark) {
    for (const QPalette& palette : Palettes())
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
            const auto colour = [&](QPalette::ColorRole role) { return palette.color(group, role); };
            for (const QPalette::ColorRole ground : {QPalette::Base, QPalette::Window})
                for (const QPalette::ColorRole ink : {QPalette::PlaceholderText, QPalette::Link, QPalette::LinkVisited})
                    ExpectReadable(colour(ink), colour(ground), "role " + std::to_string(ink));
            ExpectReadable(colour(QPalette::ToolTipText), colour(QPalette::ToolTipBase), "remark");
            EXPECT_EQ(IsDark(colour(QPalette::ToolTipBase)), IsDark(colour(QPalette::Window)));
            EXPECT_GE(Contrast(IndicatorOutline(palette), colour(QPalette::Base)), kVisibleContrast - 0.01);
            ExpectReadable(colour(QPalette::HighlightedText), colour(QPalette::Highlight), "selection");
            EXPECT_NE(palette.color(QPalette::Active, QPalette::Highlight),
                      palette.color(QPalette::Inactive, QPalette::Highlight));
        }
}

TEST_F(Colours, APressedButtonDiffersInLightAndDark) {
    for (const QPalette& palette : Palettes()) {
        const QColor window = palette.color(QPalette::Window);
        EXPECT_GE(Contrast(PressedFrame(palette), window), 2.99);
        QImage image(20, 20, QImage::Format_RGB32);
        image.fill(window);
        QPainter painter(&image);
        QStyleOptionToolButton button;
        button.rect = image.rect();
        button.palette = palette;
        button.state = QStyle::State_Enabled | QStyle::State_On;
        WindowStyle().drawPrimitive(QStyle::PE_PanelButtonTool, &button, &painter, nullptr);
        EXPECT_EQ(image.pixel(0, 10), PressedFrame(palette).rgb());
    }
}

TEST_F(Colours, ThatViewsMixAreReadableInLightAndDark) {
    const Settings settings;
    for (const QPalette& palette : Palettes())
        for (const Shade shade : {Shade::Plain, Shade::Faint, Shade::Grey}) {
            const QColor ground = CodeGround(palette, shade);
            ExpectReadable(Dimmed(palette, ground), ground, "hints, line numbers, dead names");
            ExpectReadable(Dimmed(palette, Mixed(ground, palette.color(QPalette::Highlight), 0.28)),
                           Mixed(ground, palette.color(QPalette::Highlight), 0.28), "project pointed at");
            for (const std::int32_t bgr : {settings.ColPublics, settings.ColPrivates, 255, 0xff0000})
                ExpectReadable(Readable(ColourFromBgr(bgr), ground), ground, "groups, captions");
            for (int nr = 0; nr <= static_cast<int>(Colour::FunctionResult); ++nr) {
                const auto what = static_cast<Colour>(nr);
                const QColor shown = StyleOf(what, ground, settings).foreground().color();
                if (what != Colour::None)
                    ExpectReadable(shown, ground, "meaning " + std::to_string(nr));
                if (what != Colour::None && shown.saturation() > 20 && shown.lightness() < 240) {
                    EXPECT_NEAR(shown.hslHue(), ColourFromBgr(ColourOf(what, settings)).hslHue(), 4) << nr;
                }
                for (const bool isCurrent : {false, true}) {
                    const QTextCharFormat place = PlaceStyle(what, palette, ground, isCurrent, settings);
                    ExpectReadable(place.foreground().color(), place.background().color(),
                                   "place of meaning " + std::to_string(nr));
                }
            }
        }
}

TEST_F(Colours, SelectionIsStrongWhereTheFocusIs) {
    QWidget window;
    QListView focused(&window), other(&window), served(&window);
    served.setFocusPolicy(Qt::NoFocus);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    focused.setFocus();
    EXPECT_FALSE(HasPaleSelection(focused.viewport()));
    EXPECT_FALSE(HasPaleSelection(&focused));
    EXPECT_TRUE(HasPaleSelection(other.viewport()));
    EXPECT_FALSE(HasPaleSelection(served.viewport())) << "its selection is moved from elsewhere";
    EXPECT_FALSE(HasPaleSelection(&window));
    EXPECT_FALSE(HasPaleSelection(nullptr));
}

}  // namespace
