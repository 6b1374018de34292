// What the first picture does not wait for.

#include <QApplication>
#include <QBackingStore>
#include <QFont>
#include <QImage>
#include <QMenuBar>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <QScreen>
#include <QStyle>
#include <QTest>
#include <QWidget>
#include <cmath>
#include <optional>
#include <string>

#include "backends/qt/FirstPaint.h"
#include "backends/qt/ProgramIcon.h"
#include "backends/qt/QtToolkit.h"
#include "backends/qt/peers/Metrics.h"
#include "backends/qt/peers/PrepareToPaint.h"
#include "backends/qt/peers/Scale.h"
#include "forms_conformance/ConformanceTest.h"
#include "forms_conformance/QtDriver.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

/// A window without a menu bar.
class Bare final : public Form {
  public:
    explicit Bare(Application& application) : Form(application, {.name = "Bare"}) {}
};

/// A start after the other, which share a note.
class MenuBarNoteTest : public testing::Test {
  protected:
    [[nodiscard]] qt::Metrics Start() { return qt::Metrics(nullptr, Note()); }
    [[nodiscard]] qt::MenuBarNote Note() {
        return {.read =
                    [this] {
                        ++reads;
                        return note;
                    },
                .write =
                    [this](const std::string& text) {
                        ++writes;
                        note = text;
                    }};
    }
    [[nodiscard]] static int Found() {
        QMenuBar bar;
        bar.addAction(QStringLiteral("X"));
        return bar.sizeHint().height();
    }
    [[nodiscard]] static const QStyle& StyleBelow() {
        return *dynamic_cast<const QProxyStyle&>(*QApplication::style()).baseStyle();
    }
    /// The note with another height.
    [[nodiscard]] std::string Saying(int height) const {
        return std::to_string(height) + note.substr(note.find(';'));
    }

    std::string note;
    int reads = 0;
    int writes = 0;
};

TEST_F(MenuBarNoteTest, TheFirstStartFindsItOutAndNotesItAfterThePicture) {
    const qt::Metrics metrics = Start();
    EXPECT_EQ(metrics.MenuBarLogical(), Found());
    EXPECT_EQ(writes, 0);
    metrics.CheckNote();
    EXPECT_EQ(writes, 1);
    EXPECT_EQ(note.substr(0, note.find(';')), std::to_string(Found()));
    metrics.CheckNote();
    EXPECT_EQ(writes, 1);
}

TEST_F(MenuBarNoteTest, TheNextStartTakesTheNoteAndLeavesItAlone) {
    {
        const qt::Metrics first = Start();
        static_cast<void>(first.MenuBarLogical());
        first.CheckNote();
    }
    writes = 0;
    note = Saying(Found());
    const qt::Metrics metrics = Start();
    EXPECT_EQ(metrics.MenuBarLogical(), Found());
    metrics.CheckNote();
    EXPECT_EQ(writes, 0);
}

TEST_F(MenuBarNoteTest, ANoteThatIsNoLongerTrueHoldsForThisStartAndIsCorrectedForTheNext) {
    const qt::Metrics first = Start();
    static_cast<void>(first.MenuBarLogical());
    first.CheckNote();
    note = Saying(Found() + 7);
    const qt::Metrics metrics = Start();
    EXPECT_EQ(metrics.MenuBarLogical(), Found() + 7);
    EXPECT_EQ(metrics.Of(SystemMetric::MenuBarHeight),
              static_cast<int>(std::ceil((Found() + 7) * qt::DeviceRatio())));
    metrics.CheckNote();
    EXPECT_EQ(metrics.MenuBarLogical(), Found() + 7);  // sizes have been computed with it
    EXPECT_EQ(Start().MenuBarLogical(), Found());
}

TEST_F(MenuBarNoteTest, ANoteOfAnotherFontOrOfNoUseIsNotTaken) {
    const qt::Metrics first = Start();
    static_cast<void>(first.MenuBarLogical());
    first.CheckNote();
    const std::string right = Saying(Found() + 7);
    const std::string looks = note.substr(note.find(';'));
    for (const std::string& wrong : {std::string(), std::string("77"), "0" + looks, "-5" + looks,
                                     "1001" + looks, "x" + looks, right + "1"}) {
        note = wrong;
        EXPECT_EQ(Start().MenuBarLogical(), Found()) << wrong;
    }
    note = right;
    EXPECT_EQ(Start().MenuBarLogical(), Found() + 7);
    const QFont font = QApplication::font("QMenuBar");
    QFont larger = font;
    larger.setPointSizeF(font.pointSizeF() + 6);
    QApplication::setFont(larger, "QMenuBar");
    EXPECT_EQ(Start().MenuBarLogical(), Found());
    QApplication::setFont(font, "QMenuBar");
}

/// A desktop that tells the factor of its texts later than the start does so each time.
TEST_F(MenuBarNoteTest, AFontThatComesAfterTheStartIsNotedForTheNextOne) {
    const QFont font = QApplication::font("QMenuBar");
    QFont larger = font;
    larger.setPointSizeF(font.pointSizeF() + 6);
    const qt::Metrics first = Start();
    const int before = first.MenuBarLogical();
    QApplication::setFont(larger, "QMenuBar");
    const int after = Found();
    ASSERT_GT(after, before);
    first.CheckNote();
    QApplication::setFont(font, "QMenuBar");
    const qt::Metrics next = Start();
    EXPECT_EQ(next.MenuBarLogical(), after);
    writes = 0;
    QApplication::setFont(larger, "QMenuBar");
    next.CheckNote();
    EXPECT_EQ(writes, 0) << "and stays so";
    QApplication::setFont(font, "QMenuBar");
}

TEST_F(MenuBarNoteTest, ItTellsAllThatTheHeightComesFrom) {
    const qt::Metrics first = Start();
    static_cast<void>(first.MenuBarLogical());
    first.CheckNote();
    const std::string right = Saying(Found() + 7);
    const QScreen& screen = *QGuiApplication::primaryScreen();
    // What changes the looks of the program's own style is the one that it is laid over.
    for (const QString& piece :
         {QString::fromLatin1(qVersion()), StyleBelow().name(), QApplication::font("QMenuBar").toString(),
          QString::number(screen.logicalDotsPerInch()), QString::number(screen.devicePixelRatio())}) {
        ASSERT_FALSE(piece.isEmpty());
        const std::string told = ";" + piece.toStdString();
        const std::size_t at = right.rfind(told);
        ASSERT_NE(at, std::string::npos) << told << " in " << right;
        note = right.substr(0, at) + ";other" + right.substr(at + told.size());
        EXPECT_EQ(Start().MenuBarLogical(), Found()) << note;
    }
}

TEST_F(MenuBarNoteTest, NobodyWhoHasNoMenuBarReadsOrWritesIt) {
    Start().CheckNote();
    EXPECT_EQ(reads, 0);
    EXPECT_EQ(writes, 0);
    qt::QtToolkit toolkit([](const std::string& path) { return path; }, nullptr, Note());
    Application app(toolkit);
    auto& bare = app.Load<Bare>();
    bare.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(WidgetOf(bare).windowHandle()));
    toolkit.ProcessEvents();
    EXPECT_EQ(reads, 0);
    EXPECT_EQ(writes, 0);
}

class QtStartTest : public ConformanceTest {
  protected:
    static QMenuBar& BarOf(TestForm& form) { return *WidgetOf(form).findChild<QMenuBar*>(); }
};

TEST_F(QtStartTest, TheMenuBarIsEmptyUntilItsWindowHasBeenPainted) {
    auto& form = app.Load<TestForm>(log);
    form.Show();
    QMenuBar& bar = BarOf(form);
    EXPECT_TRUE(bar.actions().isEmpty());
    EXPECT_GT(bar.height(), 0);
    const int height = bar.height();
    driver->Settle();
    ASSERT_EQ(bar.actions().size(), 1);
    EXPECT_EQ(bar.actions().first()->text(), QStringLiteral("&File"));
    EXPECT_EQ(bar.height(), height);
}

TEST_F(QtStartTest, AKeyBeforeTheFirstPaintFindsTheMenus) {
    auto& form = app.Load<TestForm>(log);
    form.Show();
    ASSERT_TRUE(BarOf(form).actions().isEmpty());
    QTest::keyClick(WidgetOf(form).windowHandle(), Qt::Key_F, Qt::AltModifier);
    EXPECT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(WidgetOf(form).windowHandle(), Qt::Key_Escape);
    driver->Settle();
    EXPECT_EQ(BarOf(form).actions().size(), 1);
}

TEST_F(QtStartTest, AWindowThatIsGoneMakesNoMenus) {
    auto& form = app.Load<TestForm>(log);
    form.Show();
    const QPointer<QWidget> widget(&WidgetOf(form));
    const QMenuBar& bar = BarOf(form);
    app.Unload(form);
    ASSERT_TRUE(widget) << "it goes with the next messages";
    QKeyEvent key(QEvent::ShortcutOverride, Qt::Key_F, Qt::AltModifier);
    QCoreApplication::sendEvent(widget, &key);
    QPaintEvent paint(widget->rect());
    QCoreApplication::sendEvent(widget, &paint);
    EXPECT_TRUE(bar.actions().isEmpty());
    driver->Settle();
    EXPECT_FALSE(widget);
}

TEST_F(QtStartTest, ThePaintItselfDoesNotWaitForWhatComesAfterIt) {
    int done = 0;
    qt::AfterFirstPaint([&] { ++done; });
    auto& form = app.Load<TestForm>(log);
    form.Show();
    QPaintEvent paint(WidgetOf(form).rect());
    QCoreApplication::sendEvent(&WidgetOf(form), &paint);
    EXPECT_EQ(done, 0);
    EXPECT_TRUE(BarOf(form).actions().isEmpty());
    driver->Settle();
    EXPECT_EQ(done, 1);
    EXPECT_EQ(BarOf(form).actions().size(), 1);
}

TEST_F(QtStartTest, WorkForTheFirstPaintIsDoneOnceAndAfterIt) {
    int done = 0;
    qt::AfterFirstPaint([&] { ++done; });
    auto& form = app.Load<TestForm>(log);
    QEvent another(QEvent::User);
    QCoreApplication::sendEvent(QCoreApplication::instance(), &another);
    driver->Settle();
    EXPECT_EQ(done, 0);
    form.Show();
    driver->Settle();
    EXPECT_EQ(done, 1);
    WidgetOf(form).repaint();
    driver->Settle();
    EXPECT_EQ(done, 1);
}

/// A window that paints itself in a colour.
class ColouredWindow final : public QWidget {
  public:
    QColor colour = Qt::red;

  protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), colour); }
};

class PrepareToPaintTest : public testing::Test {
  protected:
    PrepareToPaintTest() { window.resize(120, 80); }

    /// Null where there are none yet.
    [[nodiscard]] const QImage* Pages() const {
        return dynamic_cast<const QImage*>(window.backingStore()->paintDevice());
    }
    /// Whether every pixel of the window has this colour.
    [[nodiscard]] bool IsAll(const QColor& colour) const {
        const QImage* const pages = Pages();
        if (pages == nullptr || pages->deviceIndependentSize().toSize() != window.size()) return false;
        QImage wanted(pages->size(), pages->format());
        wanted.fill(colour);
        wanted.setDevicePixelRatio(pages->devicePixelRatio());
        return *pages == wanted;
    }

    ColouredWindow window;
};

TEST_F(PrepareToPaintTest, WhatTheWindowIsPaintedInStandsBeforeItIs) {
    window.show();
    ASSERT_NE(window.backingStore()->size(), window.size());
    qt::PrepareToPaint(window);
    EXPECT_EQ(window.backingStore()->size(), window.size());
    ASSERT_TRUE(IsAll(window.palette().window().color()));
    const uchar* const bytes = Pages()->constBits();
    ASSERT_TRUE(QTest::qWaitFor([this] { return IsAll(Qt::red); }));
    EXPECT_EQ(Pages()->constBits(), bytes) << "and is not made again";
}

TEST_F(PrepareToPaintTest, WhatHasBeenPaintedStays) {
    window.show();
    ASSERT_TRUE(QTest::qWaitFor([this] { return IsAll(Qt::red); }));
    qt::PrepareToPaint(window);
    EXPECT_TRUE(IsAll(Qt::red));
}

TEST_F(PrepareToPaintTest, AWindowOfAnotherSizeIsPaintedWhole) {
    window.show();
    ASSERT_TRUE(QTest::qWaitFor([this] { return IsAll(Qt::red); }));
    for (const QSize& size : {QSize(200, 90), QSize(60, 200)}) {
        window.hide();
        window.resize(size);
        window.show();
        qt::PrepareToPaint(window);
        EXPECT_FALSE(IsAll(Qt::red));
        EXPECT_TRUE(QTest::qWaitFor([this] { return IsAll(Qt::red); })) << size.width();
        EXPECT_EQ(window.backingStore()->size(), size);
    }
    window.resize(300, 50);
    qt::PrepareToPaint(window);
    EXPECT_TRUE(QTest::qWaitFor([this] { return IsAll(Qt::red); })) << "one that is seen";
}

TEST_F(PrepareToPaintTest, AWindowThatWasNeverShownIsLeftAlone) {
    qt::PrepareToPaint(window);
    EXPECT_EQ(window.backingStore(), nullptr);
}

TEST_F(QtStartTest, TheIconComesWithTheFirstPaint) {
    app.Load<TestForm>(log).Show();
    driver->Settle();
    EXPECT_FALSE(QApplication::windowIcon().isNull());
}

TEST(ProgramIconTest, HasTheSizesThatDesktopsShow) {
    const QIcon icon = qt::ProgramIcon();
    for (const int side : {16, 24, 32, 48, 64})
        EXPECT_TRUE(icon.availableSizes().contains(QSize(side, side))) << side;
}

}  // namespace
}  // namespace tavrix::conformance
