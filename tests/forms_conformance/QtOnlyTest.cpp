// What only a window system has: keys in their native order, the wheel, windows that wait to be mapped.

#include <QAccessible>
#include <QApplication>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextDocument>
#include <QTimer>
#include <QUrl>
#include <QWheelEvent>
#include <QWindow>

#include "backends/qt/TitleLock.h"
#include "backends/qt/peers/InputMap.h"
#include "backends/qt/peers/QtMenuItem.h"
#include "backends/qt/peers/Style.h"
#include "backends/qt/x11/LatinKeys.h"
#include "forms_conformance/ConformanceTest.h"
#include "forms_conformance/QtDriver.h"

namespace tavrix::conformance {
namespace {

using namespace forms;
using std::chrono_literals::operator""ms;

class QtOnlyTest : public ConformanceTest {
  protected:
    static int CodeOf(int key, Qt::KeyboardModifiers modifiers = {}) {
        return qt::VirtualKeyCode(QKeyEvent(QEvent::KeyPress, key, modifiers));
    }
    static void TurnWheel(TestForm& form, QPoint angle, Qt::KeyboardModifiers modifiers = {}) {
        QWheelEvent wheel(QPointF(20, 60), QPointF(20, 60), QPoint(), angle, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(WidgetOf(form).windowHandle(), &wheel);
    }
    /// Waits for a window that comes later than it is shown.
    bool ComesUp(Form& form) {
        for (int i = 0; i < 500 && !driver->IsShown(form); ++i)
            driver->Pass(10ms);
        return driver->IsShown(form);
    }
};

TEST_F(QtOnlyTest, KeysHaveTheirClassicCodes) {
    EXPECT_EQ(CodeOf(Qt::Key_1), 49);
    EXPECT_EQ(CodeOf(Qt::Key_Exclam, Qt::ShiftModifier), 49);
    EXPECT_EQ(CodeOf(Qt::Key_ParenRight, Qt::ShiftModifier), 48);
    EXPECT_EQ(CodeOf(Qt::Key_1, Qt::KeypadModifier), 97);
    EXPECT_EQ(CodeOf(Qt::Key_0, Qt::KeypadModifier), 96);
    EXPECT_EQ(CodeOf(Qt::Key_Down, Qt::KeypadModifier), 40);
    EXPECT_EQ(CodeOf(Qt::Key_Plus, Qt::KeypadModifier), 107);
    EXPECT_EQ(CodeOf(Qt::Key_Plus), 187);
    EXPECT_EQ(CodeOf(Qt::Key_Delete), 46);
    EXPECT_EQ(CodeOf(Qt::Key_F12), 123);
    EXPECT_EQ(CodeOf(Qt::Key_AsciiTilde), 192);
    EXPECT_EQ(CodeOf(Qt::Key_Pause), 19);
    EXPECT_EQ(CodeOf(Qt::Key_BracketLeft), 219);
    EXPECT_EQ(CodeOf(Qt::Key_BraceRight, Qt::ShiftModifier), 221);
    EXPECT_EQ(CodeOf(Qt::Key_Super_L), 91);
    EXPECT_EQ(CodeOf(Qt::Key_Super_R), 92);
    EXPECT_EQ(CodeOf(Qt::Key_AltGr), 18);
}

TEST_F(QtOnlyTest, EveryKeyHasACode) {
    EXPECT_EQ(CodeOf(Qt::Key_Adiaeresis), 255);
    EXPECT_EQ(CodeOf(Qt::Key_ssharp), 255);
    EXPECT_EQ(CodeOf(Qt::Key_Dead_Circumflex), 255);
    EXPECT_EQ(CodeOf(Qt::Key_VolumeUp), 255);
    EXPECT_EQ(CodeOf(Qt::Key_unknown), 255);
    EXPECT_EQ(CodeOf(0), 255);
}

TEST_F(QtOnlyTest, KeysOfOtherScriptsAreFoundByTheirPlaces) {
    const auto code = [](char32_t letter, quint32 place) {
        return qt::VirtualKeyCode(
            QKeyEvent(QEvent::KeyPress, static_cast<int>(letter), Qt::NoModifier, place, 0, 0));
    };
    EXPECT_EQ(code(U'\u0417', 33), 'P');
    EXPECT_EQ(code(U'\u0419', 24), 'Q');
    EXPECT_EQ(code(U'\u042F', 52), 'Z');
    EXPECT_EQ(code(U'\u0425', 34), 219);
    EXPECT_EQ(code(U'\u0401', 49), 192);
    EXPECT_EQ(code(U'\u042E', 60), 190);
    EXPECT_EQ(code(U'\u03A0', 33), 'P');
    EXPECT_EQ(code(U'\u05E4', 33), 'P');
    EXPECT_EQ(code(U'\u0417', 0), 255);
    // Letters of a Latin layout are what they are.
    EXPECT_EQ(code(U'\u00DC', 34), 255);
    EXPECT_EQ(code(U'\u00DF', 20), 255);
    EXPECT_EQ(code(U'Y', 52), 'Y');
    // So are its signs: this one stands where others have the backslash, and Shift and 3.
    EXPECT_EQ(code(U'#', 51), 255);
}

TEST_F(QtOnlyTest, TheLatinSymbolOfAKeyIsFoundInAnyLayout) {
    constexpr std::uint32_t Ze = 0x6DA;
    constexpr std::uint32_t CapitalZe = 0x6FA;
    const auto latin = [](const std::vector<std::uint32_t>& symbols) { return qt::x11::LatinOf(symbols); };
    EXPECT_EQ(latin({'p', 'P', Ze, CapitalZe}), 'p');
    EXPECT_EQ(latin({Ze, CapitalZe, 'p', 'P'}), 'p');
    EXPECT_EQ(latin({Ze, CapitalZe, Ze, CapitalZe, 0, 0, 0, 0, 'p', 'P'}), 'p');
    EXPECT_EQ(latin({Ze, CapitalZe, '[', '{'}), '[');
    EXPECT_EQ(latin({Ze, '1', Ze, '2', '@'}), 0);
    EXPECT_EQ(latin({Ze, CapitalZe}), 0);
    EXPECT_EQ(latin({}), 0);
}

TEST_F(QtOnlyTest, ABoxThatIsSeenThroughShowsWhatItLiesOn) {
    auto& form = app.Load<TestForm>(log);
    form.frame.BackColor = Colour{0x0000FF};
    form.picture.BackColor = Colour{0xFF0000};
    form.Show();
    driver->Settle();
    const Pixel own = driver->ShownPixel(form.picture, 5, 5);
    form.picture.SeeThrough = true;
    driver->Settle();
    const Pixel below = driver->ShownPixel(form.picture, 5, 5);
    EXPECT_NE(own, below);
    EXPECT_EQ(below, ToPixel(Colour{0x0000FF}));
    form.picture.SeeThrough = false;
    driver->Settle();
    EXPECT_EQ(driver->ShownPixel(form.picture, 5, 5), own);
}

TEST_F(QtOnlyTest, ALineOfAMenuHasNoText) {
    auto& form = app.Load<TestForm>(log);
    form.Show();
    driver->Settle();
    const auto& line = dynamic_cast<qt::QtMenuItem&>(*form.mnuLine.Peer());
    EXPECT_TRUE(line.Action()->isSeparator());
    EXPECT_EQ(line.Action()->text(), QString());
}

TEST_F(QtOnlyTest, WhatHasNoNameIsNotListed) {
    auto& form = app.Load<TestForm>(log);
    form.Show();
    driver->Settle();
    const QMenu& menu = *dynamic_cast<qt::QtMenuItem&>(*form.mnuFile.Peer()).SubMenu();
    const auto names = [&menu] {
        std::string all;
        for (const QAction* action : menu.actions())
            all += action->text().toStdString() + "|";
        return all;
    };
    EXPECT_EQ(names(), "&Open Image||More|Nothing yet|");
    form.mnuLast[1].Caption = "b";
    form.mnuLast[1].Visible = true;
    form.mnuLast[0].Caption = "a";
    EXPECT_EQ(names(), "&Open Image||More|Nothing yet|a|b|") << "in the order in which they were made";
    form.mnuLast[2].Caption = "c";
    form.mnuLast[1].Visible = false;
    EXPECT_EQ(names(), "&Open Image||More|Nothing yet|a|b|c|");
}

TEST_F(QtOnlyTest, F10OpensTheMenuBar) {
    auto& form = app.Load<TestForm>(log);
    form.KeyPreview = true;
    form.Show();
    form.hidden.SetFocus();
    driver->Settle();
    QTest::keyClick(WidgetOf(form).windowHandle(), Qt::Key_F10);
    driver->Settle();
    EXPECT_EQ(QApplication::activePopupWidget(),
              dynamic_cast<qt::QtMenuItem&>(*form.mnuFile.Peer()).SubMenu());
    QTest::keyClick(WidgetOf(form).windowHandle(), Qt::Key_Escape);
    driver->Settle();
}

TEST_F(QtOnlyTest, WhatIsDroppedAndIsNoFileIsTold) {
    auto& form = app.Load<TestForm>(log);
    form.Show();
    driver->Settle();
    int drops = 0;
    form.picture.OnOLEDragDrop = [&drops](const std::vector<std::string>& files) {
        ++drops;
        EXPECT_TRUE(files.empty());
    };
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("https://example.org/picture.jpg"))});
    QWidget& widget = WidgetOf(form.picture);
    QWindow* window = widget.window()->windowHandle();
    const QPoint place = widget.mapTo(widget.window(), QPoint(3, 3));
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &enter);
    QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &move);
    EXPECT_TRUE(move.isAccepted());
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &drop);
    driver->Settle();
    EXPECT_EQ(drops, 1);
}

TEST_F(QtOnlyTest, TheMarkOfALongMenuBarIsInTheColourOfTexts) {
    const QPalette before = QApplication::palette();
    const qt::Style style;
    const QIcon icon = style.standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton, nullptr, nullptr);
    for (const QColor text : {QColor(Qt::white), QColor(Qt::black), QColor(Qt::red)}) {
        QPalette palette = before;
        palette.setColor(QPalette::ButtonText, text);
        QApplication::setPalette(palette);
        const QImage image = icon.pixmap(QSize(16, 16), 1.0).toImage();
        int drawn = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (pixel.alpha() < 128) continue;
                EXPECT_NEAR(pixel.lightnessF(), text.lightnessF(), 0.05);
                ++drawn;
            }
        }
        EXPECT_GT(drawn, 5);
    }
    QApplication::setPalette(before);
}

TEST_F(QtOnlyTest, AToolTipIsShownLetterByLetter) {
    auto& form = app.Load<TestForm>(log);
    form.Show();
    for (const char* text :
         {"Click here", "a <b>bold</b> cat & a dog", "<img src=\"file:///a.png\">", "a < b"}) {
        form.button.ToolTip = text;
        QTextDocument shown;
        const QString given = QString::fromStdString(driver->ShownToolTip(form.button));
        Qt::mightBeRichText(given) ? shown.setHtml(given) : shown.setPlainText(given);
        EXPECT_EQ(shown.toPlainText().toStdString(), text);
    }
}

TEST_F(QtOnlyTest, AKeyThatTheFormHandledGoesNoFurther) {
    auto& form = app.Load<TestForm>(log);
    form.KeyPreview = true;
    form.button.Caption = "&Stop";
    form.button.OnClick = [this] { log.emplace_back("click"); };
    form.Show();
    form.button.SetFocus();
    driver->Settle();
    log.clear();
    driver->UserKey(form, KeyCode::Space, 0);
    driver->Settle();
    EXPECT_EQ(Count(log, "click"), 1);
    EXPECT_EQ(Count(log, "TestForm key 32/0"), 1);
    form.onKey = [](int& code) { code = 0; };
    driver->UserKey(form, KeyCode::Space, 0);
    driver->UserKey(form, 'S', ShiftMask::Alt);
    driver->Settle();
    EXPECT_EQ(Count(log, "click"), 1);
    EXPECT_EQ(Count(log, "TestForm key 83/4"), 1);
    form.onKey = nullptr;
    driver->UserKey(form, 'S', ShiftMask::Alt);
    driver->Settle();
    EXPECT_EQ(Count(log, "click"), 2);
    EXPECT_EQ(Count(log, "TestForm key 83/4"), 2);
}

TEST_F(QtOnlyTest, TheLetterOfAButtonPressesItAtOnce) {
    auto& form = app.Load<TestForm>(log);
    form.button.Caption = "&Stop";
    form.button.OnClick = [&] {
        log.emplace_back("click");
        form.button.Enabled = false;
    };
    form.Show();
    driver->Settle();
    driver->UserKey(form, 'S', ShiftMask::Alt);
    EXPECT_EQ(Count(log, "click"), 1);
    driver->UserKey(form, 'S', ShiftMask::Alt);
    EXPECT_EQ(Count(log, "click"), 1);
    form.button.Enabled = true;
    driver->UserKey(form, 'S', ShiftMask::Alt);
    EXPECT_EQ(Count(log, "click"), 2);
}

TEST_F(QtOnlyTest, TheLetterOfABoxAnswersItAtOnce) {
    const BoxRequest question{.text = "Delete?", .buttons = BoxButtons::YesNo};
    // The key that comes next would press the default button.
    for (const int shift : {0, int{ShiftMask::Alt}}) {
        driver->ScriptNextBox({.expected = question, .keys = {{'N', shift}, {KeyCode::Return, 0}}});
        EXPECT_EQ(app.MessageBox(question), Answer::No) << shift;
        driver->ScriptNextBox({.expected = question, .keys = {{'Y', shift}, {'N', shift}}});
        EXPECT_EQ(app.MessageBox(question), Answer::Yes) << shift;
    }
    // What is no letter of its own changes nothing.
    driver->ScriptNextBox(
        {.expected = question,
         .keys = {{'X', 0}, {'X', ShiftMask::Alt}, {'N', ShiftMask::Ctrl}, {KeyCode::Return, 0}}});
    EXPECT_EQ(app.MessageBox(question), Answer::Yes);
}

TEST_F(QtOnlyTest, EnterAndEscapePressTheButtonsOfADialog) {
    auto& form = app.Load<TestForm>(log, "Dialog", false);
    form.button.Cancel = true;
    form.button.OnClick = [this] { log.emplace_back("click"); };
    form.Show();
    form.hidden.SetFocus();
    driver->Settle();
    driver->UserKey(form, KeyCode::Escape, 0);
    EXPECT_EQ(Count(log, "click"), 1);
    driver->UserKey(form, KeyCode::Return, 0);
    EXPECT_EQ(Count(log, "click"), 1);
    form.button.Default = true;
    driver->UserKey(form, KeyCode::Return, 0);
    EXPECT_EQ(Count(log, "click"), 2);
}

TEST_F(QtOnlyTest, EscapeInAnOpenMenuOnlyClosesIt) {
    auto& form = app.Load<TestForm>(log);
    form.KeyPreview = true;
    form.Show();
    form.hidden.SetFocus();
    driver->Settle();
    log.clear();
    driver->UserKey(form, 'F', ShiftMask::Alt);
    driver->Settle();
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    driver->UserKey(form, KeyCode::Escape, 0);
    driver->Settle();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(Count(log, "TestForm key 27/0"), 0);
}

TEST_F(QtOnlyTest, AScrollBarHandsTheFocusBack) {
    auto& form = app.Load<TestForm>(log);
    form.KeyPreview = true;
    form.bar.Max = 1000;
    form.bar.OnGotFocus = [&] { form.hidden.SetFocus(); };
    form.Show();
    form.hidden.SetFocus();
    driver->Settle();
    WidgetOf(form.bar).setFocus(Qt::TabFocusReason);
    EXPECT_EQ(form.ActiveControl(), &form.hidden);
    EXPECT_FALSE(WidgetOf(form.bar).hasFocus());
    log.clear();
    driver->UserKey(form, KeyCode::Down, 0);
    EXPECT_EQ(Count(log, "TestForm key 40/0"), 1);
    EXPECT_EQ(form.bar.Value, 0);
}

TEST_F(QtOnlyTest, TheWheelTurnsTheBarByThreeSmallChanges) {
    auto& form = app.Load<TestForm>(log);
    form.bar.Max = 1000;
    form.bar.SmallChange = 20;
    form.bar.OnChange = [&] { log.push_back("change " + std::to_string(form.bar.Value)); };
    form.Show();
    driver->Settle();
    log.clear();
    TurnWheel(form, {0, -120});
    EXPECT_EQ(log, (std::vector<std::string>{"change 60"}));
    TurnWheel(form, {0, -120}, Qt::ShiftModifier);  // across, where there is no bar
    EXPECT_EQ(form.bar.Value, 60);
    TurnWheel(form, {0, 240});
    EXPECT_EQ(form.bar.Value, 0);
}

class WaitForm : public Form {
  public:
    explicit WaitForm(Application& application)
        : Form(application, {.name = "WaitForm", .waitWindow = true}) {}
};

TEST_F(QtOnlyTest, AWaitWindowDoesNotCoverABox) {
    auto& wait = app.Load<WaitForm>();
    driver->ScriptNextBox({.expected = {.text = "Read me"}, .openFor = 400ms});
    driver->Soon([&] { wait.Show(); });  // the box is there by then
    bool covered = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        const bool boxIsOpen = QApplication::activeModalWidget() != nullptr;
        covered = covered || (boxIsOpen && wait.Visible() && driver->IsShown(wait));
    });
    look.start(5ms);
    app.MessageBox({.text = "Read me"});
    EXPECT_FALSE(covered);
    EXPECT_TRUE(ComesUp(wait));
}

TEST_F(QtOnlyTest, TheSmallestSizeIsToldToTheWindowSystem) {
    class LimitedForm : public Form {
      public:
        explicit LimitedForm(Application& application)
            : Form(application, {.name = "LimitedForm",
                                 .resizable = true,
                                 .menuBar = true,
                                 .minimumWidth = 4500,
                                 .minimumHeight = 6000}) {}
    };
    auto& form = app.Load<LimitedForm>();
    form.Move(0, 0, 4500, 6000);
    form.Show();
    driver->Settle();
    const QWidget* window = QApplication::topLevelWidgets().last();
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == QLatin1String("LimitedForm")) window = widget;
    }
    EXPECT_EQ(window->minimumSize(), window->size());
}

TEST_F(QtOnlyTest, AWaitWindowThatGoesAtOnceIsNeverMapped) {
    auto& brief = app.Load<WaitForm>();
    brief.Show();
    EXPECT_TRUE(brief.Visible());
    EXPECT_FALSE(driver->IsShown(brief));
    brief.Hide();
    driver->Pass(200ms);
    EXPECT_FALSE(driver->IsShown(brief));

    auto& lasting = app.Load<WaitForm>();
    lasting.Show();
    EXPECT_FALSE(driver->IsShown(lasting));
    EXPECT_TRUE(ComesUp(lasting));
}

TEST_F(QtOnlyTest, AWaitWindowIsMeasuredWhenItComesUp) {
    class Texts final : public Form {
      public:
        explicit Texts(Application& application) : Form(application, {.name = "Texts", .waitWindow = true}) {
            Line.Caption = "A line of text";
            SetLayout(forms::Column({Line}));
        }
        Label Line{*this, "Line"};
    };
    auto& form = app.Load<Texts>();
    form.Show();
    EXPECT_EQ(form.Line.Width, 0) << "fonts would be loaded for what may never be seen";
    ASSERT_TRUE(ComesUp(form));
    const PixelSize natural = form.Line.Peer()->NaturalSize();
    EXPECT_GT(natural.width, 0);
    EXPECT_EQ(form.Line.PixelBounds().width, natural.width);
    const QWidget& widget = *qt::NativeOf(*form.Line.Peer()).Native();
    EXPECT_GE(widget.window()->width(), widget.geometry().right());
    EXPECT_GE(widget.window()->height(), widget.geometry().bottom());

    form.Hide();
    form.Line.Caption = "A longer line of text than the one before";
    form.Show();
    EXPECT_EQ(form.Line.PixelBounds().width, form.Line.Peer()->NaturalSize().width);
}

TEST_F(QtOnlyTest, TheScreenPointerIsShownOverAllWindows) {
    auto& form = app.Load<TestForm>(log);
    form.Show();
    driver->Settle();
    app.Screen().MousePointer = MousePointer::Hourglass;
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    driver->ScriptNextBox({.expected = {.text = "Usable"}, .openFor = 1ms});
    driver->Soon([] { EXPECT_EQ(QApplication::overrideCursor(), nullptr); });
    app.MessageBox({.text = "Usable"});
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    app.Screen().MousePointer = MousePointer::Default;
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(QtOnlyTest, ACanvasIsAPictureToAScreenReader) {
    auto& form = app.Load<TestForm>(log);
    form.picture.AccessibleName = "Picture";
    form.Show();
    driver->Settle();
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&WidgetOf(form.picture));
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::Graphic);
    EXPECT_EQ(seen->text(QAccessible::Name), QStringLiteral("Picture"));
}

TEST_F(QtOnlyTest, AWindowBelowAModalOneTakesNoInput) {
    auto& form = app.Load<TestForm>(log, "Main");
    auto& dialog = app.Load<TestForm>(log, "Dialog");
    form.button.OnClick = [this] { log.emplace_back("click"); };
    form.Show();
    driver->Settle();
    driver->Soon([&] {
        driver->UserClicks(form.button);
        dialog.Hide();
    });
    dialog.ShowModal();
    EXPECT_EQ(Count(log, "click"), 0);
    driver->UserClicks(form.button);
    EXPECT_EQ(Count(log, "click"), 1);
}

TEST_F(QtOnlyTest, ATitleLockIsSeenWhileItLasts) {
    qputenv("XDG_RUNTIME_DIR", testing::TempDir().c_str());
    const std::string title = "Tavrix conformance " + std::to_string(QCoreApplication::applicationPid());
    EXPECT_FALSE(qt::TitleLock::IsHeld(title));
    {
        const qt::TitleLock lock(title);
        EXPECT_TRUE(qt::TitleLock::IsHeld(title));
        EXPECT_FALSE(qt::TitleLock::IsHeld(title + "!"));
    }
    EXPECT_FALSE(qt::TitleLock::IsHeld(title));
}

TEST_F(QtOnlyTest, AWindowOnTheScreenHoldsTheLockOfItsTitle) {
    qputenv("XDG_RUNTIME_DIR", testing::TempDir().c_str());
    const std::string title = "Tavrix window " + std::to_string(QCoreApplication::applicationPid());
    auto& form = app.Load<TestForm>(log);
    form.Caption = title;
    EXPECT_FALSE(qt::TitleLock::IsHeld(title));
    form.Show();
    driver->Settle();
    EXPECT_TRUE(qt::TitleLock::IsHeld(title));
    form.Caption = title + "!";
    EXPECT_FALSE(qt::TitleLock::IsHeld(title));
    EXPECT_TRUE(qt::TitleLock::IsHeld(title + "!"));
    form.Hide();
    EXPECT_FALSE(qt::TitleLock::IsHeld(title + "!"));
}

TEST_F(QtOnlyTest, F10AloneOpensTheFirstMenuThatIsThere) {
    class Menus final : public Form {
      public:
        explicit Menus(Application& application)
            : Form(application, {.name = "Menus", .resizable = true, .menuBar = true}) {
            mnuNone.Visible = false;
            mnuOff.Enabled = false;
        }
        Menu mnuNone{*this, "mnuNone", "&None"};
        Menu mnuOne{mnuNone, "mnuOne", "&One"};
        Menu mnuOff{*this, "mnuOff", "&Off"};
        Menu mnuTwo{mnuOff, "mnuTwo", "&Two"};
        Menu mnuFile{*this, "mnuFile", "&File"};
        Menu mnuThree{mnuFile, "mnuThree", "T&hree"};
    };
    auto& form = app.Load<Menus>();
    form.Show();
    driver->Settle();
    QWindow* window = WidgetOf(form).windowHandle();
    for (const Qt::KeyboardModifier modifier : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
        QTest::keyClick(window, Qt::Key_F10, modifier);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }
    QTest::keyClick(window, Qt::Key_F10);
    const auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(open, nullptr);
    EXPECT_EQ(open->menuAction()->text(), QStringLiteral("&File"));
    QTest::keyClick(window, Qt::Key_Escape);
}

}  // namespace
}  // namespace tavrix::conformance
