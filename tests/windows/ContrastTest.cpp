#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPalette>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "app/PaintedTexts.h"
#include "backends/qt/desktop/DesktopLook.h"
#include "backends/qt/desktop/Look.h"
#include "backends/qt/peers/Contrast.h"
#include "backends/qt/peers/QtControl.h"
#include "backends/qt/peers/Scale.h"
#include "backends/qt/peers/Style.h"
#include "platform/forms/ListBox.h"
#include "viewer/MainViewFrm.h"
#include "windows/ControlFacts.h"
#include "windows/EveryWindow.h"

namespace tavrix::windows {
namespace {

void ExpectReadable(QWidget& window) {
    for (const PaintedText& text : PaintedTextsOf(window)) {
        EXPECT_GE(text.contrast, text.least)
            << text.text.toStdString() << " in " << text.colour.name().toStdString() << " at "
            << text.place.x() << "," << text.place.y();
    }
}

QWidget& NativeWindowOf(const forms::Control& control) {
    return *qt::NativeOf(*control.Peer()).Native()->window();
}

/// Contrast is measured by pixels: letters without smooth edges, and no scale that blurs lines.
class HardEdges {
  public:
    HardEdges() {
        QFont font = font_;
        font.setStyleStrategy(QFont::NoAntialias);
        QApplication::setFont(font);
    }
    HardEdges(const HardEdges&) = delete;
    HardEdges& operator=(const HardEdges&) = delete;
    ~HardEdges() { QApplication::setFont(font_); }

    [[nodiscard]] static bool Possible() { return qt::DeviceRatio() == std::floor(qt::DeviceRatio()); }

  private:
    QFont font_ = QApplication::font();
};

class ContrastTest : public testing::TestWithParam<Window> {
  protected:
    void SetUp() override {
        if (!HardEdges::Possible()) GTEST_SKIP() << "lines are blurred at this scale";
    }
    HardEdges edges_;
};

class ContrastOfPiecesTest : public testing::Test {
  protected:
    void SetUp() override {
        if (!HardEdges::Possible()) GTEST_SKIP() << "lines are blurred at this scale";
    }
    HardEdges edges_;
};

TEST_P(ContrastTest, TextsAreReadAndControlsSeen) {
    const auto toolkit = MakeToolkit();
    Program program(*toolkit);
    forms::Form& form = GetParam().load(program);
    form.Show();
    for (int rounds = 0; rounds < 5; ++rounds)
        program.app.DoEvents();
    const auto controls = ControlsOf(form);
    ASSERT_FALSE(controls.empty());
    QWidget& window = NativeWindowOf(*controls.front());
    ExpectReadable(window);
    for (const PaintedOutline& outline : PaintedOutlinesOf(window)) {
        EXPECT_GE(outline.contrast, qt::OutlineContrast) << outline.widget->metaObject()->className() << " "
                                                         << outline.widget->accessibleName().toStdString();
    }
    // Nothing of this may hold because nothing was seen.
    for (const forms::Control* control : controls) {
        const std::string caption = CaptionOf(*control);
        const auto letters = [](char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; };
        if (!control->Visible || !control->Enabled || std::ranges::count_if(caption, letters) < 3) continue;
        EXPECT_FALSE(PaintedTextsOf(window).empty()) << caption;
        break;
    }
    if (&form != &program.View()) program.app.Unload(form);
}

INSTANTIATE_TEST_SUITE_P(Windows, ContrastTest, testing::ValuesIn(EveryWindow()),
                         [](const auto& instance) { return NameOf(instance); });

TEST_F(ContrastOfPiecesTest, MenusAreReadWithAnEntryUnderThePointer) {
    const auto toolkit = MakeToolkit();
    Program program(*toolkit);
    for (int rounds = 0; rounds < 5; ++rounds)
        program.app.DoEvents();
    QWidget& window = NativeWindowOf(*ControlsOf(program.View()).front());
    int seen = 0;
    for (QMenu* menu : window.findChildren<QMenu*>()) {
        menu->ensurePolished();
        menu->adjustSize();
        for (QAction* action : menu->actions()) {
            if (action->isEnabled() && !action->isSeparator() && action->isVisible()) {
                menu->setActiveAction(action);
                break;
            }
        }
        seen += static_cast<int>(PaintedTextsOf(*menu).size());
        ExpectReadable(*menu);
    }
    EXPECT_GT(seen, 50);
}

TEST_F(ContrastOfPiecesTest, SelectedRowsAreRead) {
    const auto toolkit = MakeToolkit();
    forms::Application app(*toolkit);
    class Rows final : public forms::Form {
      public:
        explicit Rows(forms::Application& application) : Form(application, {.name = "Rows"}) {
            List.AddItems({"The first", "The second", "The third"});
            SetLayout(forms::Column({List}));
        }
        forms::ListBox List{*this, "List"};
    };
    auto& form = app.Load<Rows>();
    form.Show();
    const std::size_t plain = PaintedTextsOf(NativeWindowOf(form.List)).size();
    form.List.ListIndex = 1;
    for (int rounds = 0; rounds < 5; ++rounds)
        app.DoEvents();
    const auto texts = PaintedTextsOf(NativeWindowOf(form.List));
    ASSERT_EQ(texts.size(), 3U);
    EXPECT_EQ(plain, 3U);
    const QImage image = NativeWindowOf(form.List).grab().toImage();
    const auto behind = [&](int row) {
        return image.pixelColor(texts[static_cast<std::size_t>(row)].place.topRight() + QPoint(3, 3));
    };
    EXPECT_NE(behind(1), behind(0)) << "it is seen which one is selected";
    ExpectReadable(NativeWindowOf(form.List));
    app.Unload(form);
}

TEST_F(ContrastOfPiecesTest, WhatIsTooFaintIsFound) {
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    const auto add = [&](const char* text, const QColor& colour, const QColor& below) {
        auto* label = new QLabel(QLatin1String(text));
        QPalette palette;
        palette.setColor(QPalette::WindowText, colour);
        palette.setColor(QPalette::Window, below);
        label->setPalette(palette);
        label->setAutoFillBackground(true);
        column->addWidget(label);
        return label;
    };
    add("faint", QColor(0x88, 0x88, 0x88), Qt::white);
    add("clear", QColor(0x60, 0x60, 0x60), Qt::white);
    add("hidden", QColor(1, 2, 3), QColor(1, 2, 3));
    add("disabled", QColor(0x88, 0x88, 0x88), Qt::white)->setEnabled(false);
    const auto texts = PaintedTextsOf(window);
    ASSERT_EQ(texts.size(), 3U);
    EXPECT_EQ(texts[0].text, QStringLiteral("faint"));
    EXPECT_NEAR(texts[0].contrast, 3.54, 0.02);
    EXPECT_EQ(texts[0].least, 4.5);
    EXPECT_NEAR(texts[1].contrast, 6.29, 0.02);
    EXPECT_EQ(texts[2].contrast, 1);
}

TEST_F(ContrastOfPiecesTest, ColoursAreMeasuredAsTheyAreDefined) {
    EXPECT_NEAR(qt::ContrastOf(Qt::black, Qt::white), 21, 1e-6);
    EXPECT_NEAR(qt::ContrastOf(Qt::white, QColor(0x76, 0x76, 0x76)), 4.54, 0.01);
    for (int level = 0; level < 256; ++level) {
        const QColor grey(level, level, level);
        EXPECT_GE(qt::ContrastOf(qt::TextColourOn(grey), grey), qt::TextContrast) << level;
        EXPECT_GE(qt::ContrastOf(qt::ReadableOn(grey, grey, qt::OutlineContrast), grey), 3) << level;
    }
}

TEST(LookTest, EachAccentIsReadInEachScheme) {
    QPalette light;
    light.setColor(QPalette::Window, QColor(0xEF, 0xEF, 0xEF));
    light.setColor(QPalette::WindowText, Qt::black);
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::Text, Qt::black);
    for (const auto scheme : {qt::Look::Scheme::Any, qt::Look::Scheme::Dark, qt::Look::Scheme::Light}) {
        for (int hue = 0; hue < 360; hue += 20) {
            for (const int lightness : {0, 60, 128, 200, 255}) {
                qt::Look look;
                look.scheme = scheme;
                look.accent = QColor::fromHsl(hue, 200, lightness);
                const QPalette palette = qt::PaletteOf(look, light).resolve(light);
                const auto contrast = [&](QPalette::ColorRole text, QPalette::ColorRole below) {
                    return qt::ContrastOf(palette.color(text), palette.color(below));
                };
                EXPECT_GE(contrast(QPalette::HighlightedText, QPalette::Highlight), 4.5);
                EXPECT_GE(contrast(QPalette::PlaceholderText, QPalette::Base), 4.5);
                EXPECT_GE(contrast(QPalette::WindowText, QPalette::Window), 4.5);
                EXPECT_GE(contrast(QPalette::Text, QPalette::Base), 4.5);
                const bool dark = palette.color(QPalette::Window).lightness() < 128;
                EXPECT_EQ(dark, scheme == qt::Look::Scheme::Dark);
            }
        }
    }
}

TEST(LookTest, ChangesAreFollowedThereAndBack) {
    auto* style = dynamic_cast<qt::Style*>(QApplication::style());
    ASSERT_NE(style, nullptr);
    qt::DesktopLook look(*style);
    const auto behind = [] { return QApplication::palette().color(QPalette::Window); };
    QWidget window;
    QMenuBar inherits(&window);
    QLabel coloured(&window);
    QPalette own;
    own.setColor(QPalette::Window, Qt::red);
    coloured.setPalette(own);
    window.show();
    qt::Look wish;
    wish.scheme = qt::Look::Scheme::Light;
    look.Follow(wish);
    const QColor light = behind();
    for (int round = 0; round < 2; ++round) {
        wish.scheme = qt::Look::Scheme::Dark;
        wish.moves = false;
        look.Follow(wish);
        EXPECT_LT(behind().lightness(), 80);
        EXPECT_EQ(inherits.palette().color(QPalette::Window), behind());
        EXPECT_EQ(coloured.palette().color(QPalette::Window), QColor(Qt::red)) << "its own colour";
        EXPECT_GT(coloured.palette().color(QPalette::WindowText).lightness(), 180);
        EXPECT_EQ(style->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, nullptr, nullptr), 0);
        wish.scheme = qt::Look::Scheme::Light;
        wish.moves = true;
        look.Follow(wish);
        EXPECT_EQ(behind(), light);
        EXPECT_EQ(inherits.palette().color(QPalette::Window), light);
        EXPECT_GT(style->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, nullptr, nullptr), 0);
    }
    EXPECT_EQ(QApplication::palette().resolveMask(), 0U) << "each widget would have a copy";
}

TEST(LookTest, AThemeThatIsDarkByItselfKeepsItsColours) {
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(0x20, 0x22, 0x24));
    dark.setColor(QPalette::WindowText, Qt::white);
    qt::Look look;
    look.scheme = qt::Look::Scheme::Dark;
    EXPECT_EQ(qt::PaletteOf(look, dark).resolve(dark).color(QPalette::Window), QColor(0x20, 0x22, 0x24));
}

TEST(LookTest, SettingsOfThePortalAreTaken) {
    qt::Look look;
    const auto take = [&look](const char* space, const char* key, const QVariant& value) {
        qt::TakeSetting(look, QLatin1String(space), QLatin1String(key), value);
    };
    take("org.freedesktop.appearance", "color-scheme", QVariant(1U));
    EXPECT_EQ(look.scheme, qt::Look::Scheme::Dark);
    take("org.freedesktop.appearance", "color-scheme", QVariant(QStringLiteral("dark")));
    take("org.freedesktop.other", "color-scheme", QVariant(2U));
    EXPECT_EQ(look.scheme, qt::Look::Scheme::Dark) << "neither is known";
    take("org.freedesktop.appearance", "color-scheme", QVariant(2U));
    EXPECT_EQ(look.scheme, qt::Look::Scheme::Light);
    take("org.freedesktop.appearance", "color-scheme", QVariant(77U));
    EXPECT_EQ(look.scheme, qt::Look::Scheme::Any);
    take("org.gnome.desktop.interface", "enable-animations", QVariant(false));
    EXPECT_FALSE(look.moves);
    take("org.gnome.desktop.interface", "enable-animations", QVariant(true));
    EXPECT_TRUE(look.moves);
    take("org.freedesktop.appearance", "reduced-motion", QVariant(1U));
    EXPECT_FALSE(look.moves);
    take("org.kde.kdeglobals.KDE", "AnimationDurationFactor", QVariant(QStringLiteral("0.5")));
    EXPECT_TRUE(look.moves);
    take("org.kde.kdeglobals.KDE", "AnimationDurationFactor", QVariant(QStringLiteral("0")));
    EXPECT_FALSE(look.moves);
    take("org.kde.kdeglobals.KDE", "AnimationDurationFactor", QVariant(QStringLiteral("fast")));
    EXPECT_FALSE(look.moves);
    take("org.gnome.desktop.interface", "text-scaling-factor", QVariant(1.5));
    EXPECT_EQ(look.textScale, 1.5);
    take("org.gnome.desktop.interface", "text-scaling-factor", QVariant(0.0));
    take("org.gnome.desktop.interface", "text-scaling-factor", QVariant(90.0));
    EXPECT_EQ(look.textScale, 1.5) << "no text could be read so";
}

}  // namespace
}  // namespace tavrix::windows
