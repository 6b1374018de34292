#include "backends/qt/help/HelpWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#include <QWindow>
#include <memory>

#include "backends/qt/QtProcess.h"
#include "backends/qt/peers/Owner.h"

namespace tavrix::test {
namespace {

class HelpWindowTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { process_ = std::make_unique<qt::QtProcess>("help_window_test"); }
    static void TearDownTestSuite() { process_.reset(); }

    static QWidget* Find() {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->windowTitle() == QLatin1String("Tavrix Help")) return widget;
        }
        return nullptr;
    }
    static QWidget& Widget() { return *Find(); }
    template <class Kind>
    static Kind& Part() {
        return *Widget().findChild<Kind*>();
    }
    static QPushButton& Button(const char* caption) {
        for (auto* button : Widget().findChildren<QPushButton*>()) {
            if (button->text() == QLatin1String(caption)) return *button;
        }
        throw std::runtime_error(caption);
    }
    static std::string Page() { return Part<QTextBrowser>().accessibleName().toStdString(); }
    static void Settle() { QTest::qWait(1); }
    static void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(Widget().windowHandle(), static_cast<Qt::Key>(key), modifiers);
        Settle();
    }
    void Open(unsigned context) {
        window.Open(book, context);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Widget()));
    }
    /// Clicks through the window system's door, where a blocked window hears nothing.
    static void ClickRow(int row) {
        auto& list = Part<QListWidget>();
        const QPoint inList = list.visualItemRect(list.item(row)).center();
        const QPoint point = list.viewport()->mapTo(&Widget(), inList);
        QTest::mouseClick(Widget().windowHandle(), Qt::LeftButton, {}, point);
        Settle();
    }

    HelpBook book = *HelpBook::Parse(
        "TAVRIX HELP 1\n@page 0 Contents\n[Five](page:5) and [bad](file:///etc/passwd)\n"
        "@page 5 Five\n<b>text</b> ![x](:/picture.png)\n\n| a | b |\n|---|---|\n| c | d |\n@page 410 "
        "Moved & more\nmoved\n");
    qt::HelpWindow window{[] { return false; }};

  private:
    static inline std::unique_ptr<qt::QtProcess> process_;
};

TEST_F(HelpWindowTest, ThereIsNothingOfItUntilItIsOpened) {
    EXPECT_EQ(Find(), nullptr);
    window.Close();
    EXPECT_EQ(Find(), nullptr);
    Open(410);
    EXPECT_TRUE(Widget().isVisible());
    EXPECT_EQ(Widget().windowModality(), Qt::NonModal);
    window.Close();
    EXPECT_EQ(Find(), nullptr);
}

TEST_F(HelpWindowTest, OpensOnItsPageWithTheListBesideIt) {
    Open(410);
    EXPECT_EQ(Page(), "Moved & more");
    EXPECT_FALSE(Button("&Back").isEnabled());
    EXPECT_EQ(Part<QListWidget>().count(), 3);
    EXPECT_EQ(Part<QListWidget>().currentRow(), 2);
    EXPECT_EQ(Part<QListWidget>().accessibleName(), QLatin1String("Pages"));
    EXPECT_EQ(Part<QTextBrowser>().toPlainText(), QLatin1String("Moved & more\nmoved"));
    Open(77);
    EXPECT_EQ(Page(), "Contents");
}

TEST_F(HelpWindowTest, APageOpensAtItsStart) {
    std::string pages = "TAVRIX HELP 1\n@page 0 Contents\n| a | b |\n|---|---|\n";
    for (int i = 0; i < 100; ++i)
        pages += "| c | d |\n";
    book = *HelpBook::Parse(pages + "\nend\n");
    Open(0);
    Settle();
    EXPECT_GT(Part<QTextBrowser>().verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(Part<QTextBrowser>().verticalScrollBar()->value(), 0);
}

TEST_F(HelpWindowTest, MarkdownIsShownAndHtmlAndFilesAreNot) {
    Open(5);
    const QString text = Part<QTextBrowser>().toPlainText();
    EXPECT_TRUE(text.contains(QLatin1String("<b>text</b>"))) << text.toStdString();
    EXPECT_FALSE(text.contains(QLatin1String("|---|")));
    const QVariant picture =
        Part<QTextBrowser>().document()->resource(QTextDocument::ImageResource, QUrl(":/picture.png"));
    EXPECT_EQ(picture.value<QImage>().size(), QSize(1, 1));
}

TEST_F(HelpWindowTest, LinksTurnToPagesAndTheKeyboardReachesThem) {
    Open(0);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Return);
    EXPECT_EQ(Page(), "Five");
    Open(0);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Return);
    EXPECT_EQ(Page(), "Contents") << "other links lead nowhere";
}

TEST_F(HelpWindowTest, BackGoesThroughThePagesThatWereSeen) {
    Open(0);
    EXPECT_FALSE(Button("&Back").isEnabled());
    Open(5);
    Open(5);
    ClickRow(2);
    EXPECT_EQ(Page(), "Moved & more");
    Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Page(), "Five");
    Button("&Back").click();
    EXPECT_EQ(Page(), "Contents");
    EXPECT_FALSE(Button("&Back").isEnabled());
    Open(5);
    Key(Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(Page(), "Contents");
    EXPECT_EQ(Part<QListWidget>().currentRow(), 0);
}

TEST_F(HelpWindowTest, TheTextGrowsAndShrinksWithinBounds) {
    Open(0);
    const auto size = [] { return Part<QTextBrowser>().font().pointSizeF(); };
    const double before = size();
    Key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(size(), before);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_LT(size(), before);
    Key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(size(), before);
    for (int i = 0; i < 100; ++i)
        Button("&Smaller Text").click();
    EXPECT_GT(size(), 3);
    for (int i = 0; i < 100; ++i)
        Button("&Larger Text").click();
    EXPECT_LT(size(), before + 30);
}

TEST_F(HelpWindowTest, EscapeClosesItAndItOpensAgain) {
    Open(5);
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Widget().isVisible());
    Open(410);
    EXPECT_TRUE(Widget().isVisible());
    EXPECT_EQ(Page(), "Moved & more");
}

TEST_F(HelpWindowTest, ItIsUsableWhenOpenedFromABox) {
    QMessageBox box;
    box.setWindowModality(Qt::ApplicationModal);
    box.show();
    Open(5);
    ClickRow(2);
    EXPECT_EQ(Page(), "Moved & more");
    EXPECT_TRUE(box.isVisible());
}

TEST_F(HelpWindowTest, ItStaysUsableWhenBoxesOpenAndCloseLater) {
    Open(5);
    auto first = std::make_unique<QMessageBox>();
    first->setWindowModality(Qt::ApplicationModal);
    first->show();
    Settle();
    ClickRow(2);
    EXPECT_EQ(Page(), "Moved & more") << "below a box";
    auto second = std::make_unique<QMessageBox>();
    second->setWindowModality(Qt::ApplicationModal);
    qt::SetOwner(*second, first.get());
    second->show();
    Settle();
    ClickRow(1);
    EXPECT_EQ(Page(), "Five") << "below a box of a box";
    second.reset();
    Settle();
    ClickRow(2);
    EXPECT_EQ(Page(), "Moved & more") << "below the first box again";
    first.reset();
    Settle();
    EXPECT_EQ(Widget().windowHandle()->transientParent(), nullptr);
    ClickRow(1);
    EXPECT_EQ(Page(), "Five") << "without a box";
    EXPECT_TRUE(Widget().isVisible());
}

TEST_F(HelpWindowTest, ItStaysUsableUnderAModalWindowThatDoesNotGetTheFocus) {
    Open(5);
    QWidget modal(nullptr, Qt::ToolTip);  // the kind to which this platform gives no focus
    modal.setWindowModality(Qt::ApplicationModal);
    modal.show();
    ASSERT_EQ(QGuiApplication::modalWindow(), modal.windowHandle());
    Settle();
    ClickRow(2);
    EXPECT_EQ(Page(), "Moved & more");
}

TEST_F(HelpWindowTest, ItOwnsNoOtherWindow) {
    Open(5);
    QWidget main;
    main.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&main));
    Widget().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Widget()));
    QMessageBox box;
    EXPECT_EQ(qt::OwnerOfModal(box), &main);
    main.hide();
    EXPECT_EQ(qt::OwnerOfModal(box), nullptr);
}

}  // namespace
}  // namespace tavrix::test
