#include "backends/qt/help/HelpWindow.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QWindow>
#include <memory>

#include "backends/qt/QtProcess.h"
#include "backends/qt/peers/Owner.h"

namespace tavrix::test {
namespace {

class HelpWindowTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { process_ = std::make_unique<qt::QtProcess>("help_window_tests"); }
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
    /// The entry of a row of the contents, chapters included; null beyond the last.
    static QTreeWidgetItem* Entry(int row) {
        QTreeWidgetItemIterator item(&Part<QTreeWidget>());
        for (; row > 0 && *item != nullptr; --row)
            ++item;
        return *item;
    }
    static QStringList Found() {
        QStringList titles;
        auto& list = Part<QListWidget>();
        for (int row = 0; row < list.count(); ++row)
            titles.append(list.item(row)->text());
        return titles;
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
        auto& tree = Part<QTreeWidget>();
        const QPoint inTree = tree.visualItemRect(Entry(row)).center();
        const QPoint point = tree.viewport()->mapTo(&Widget(), inTree);
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
    EXPECT_EQ(Entry(3), nullptr);
    EXPECT_EQ(Part<QTreeWidget>().currentItem(), Entry(2));
    EXPECT_EQ(Part<QTreeWidget>().accessibleName(), QLatin1String("Pages"));
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
    EXPECT_EQ(Part<QTreeWidget>().currentItem(), Entry(0));
}

TEST_F(HelpWindowTest, ForwardGoesWhereBackCameFrom) {
    Open(0);
    Open(5);
    Open(410);
    EXPECT_FALSE(Button("&Forward").isEnabled());
    Key(Qt::Key_Left, Qt::AltModifier);
    Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Page(), "Contents");
    Key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Page(), "Five");
    Button("&Forward").click();
    EXPECT_EQ(Page(), "Moved & more");
    EXPECT_FALSE(Button("&Forward").isEnabled());
    Key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Page(), "Moved & more");
    Button("&Back").click();
    EXPECT_TRUE(Button("&Forward").isEnabled());
    ClickRow(0);
    EXPECT_FALSE(Button("&Forward").isEnabled()) << "another way was taken";
    Button("&Back").click();
    EXPECT_EQ(Page(), "Five");
}

TEST_F(HelpWindowTest, ChaptersHoldTheirPages) {
    book = *HelpBook::Parse(
        "TAVRIX HELP 1\n@page 0 Contents\n**First**\n- [x](page:7)\n@page 7 Seven\nx\n@page 8 Eight\nx\n");
    Open(7);
    EXPECT_EQ(Entry(0)->text(0), QLatin1String("Contents"));
    EXPECT_EQ(Entry(1)->text(0), QLatin1String("First"));
    EXPECT_EQ(Entry(2)->parent(), Entry(1));
    EXPECT_EQ(Entry(3)->text(0), QLatin1String("Eight"));
    EXPECT_EQ(Part<QTreeWidget>().currentItem(), Entry(2));
    ClickRow(1);
    EXPECT_EQ(Page(), "Seven") << "a chapter is no page";
    Part<QTreeWidget>().setFocus();
    Key(Qt::Key_Down);
    EXPECT_EQ(Page(), "Seven");
    Key(Qt::Key_Down);
    EXPECT_EQ(Page(), "Eight");
}

TEST_F(HelpWindowTest, ASearchListsPagesWhileItIsTyped) {
    Open(0);
    Key(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(Part<QLineEdit>().hasFocus());
    Key(Qt::Key_M);
    Key(Qt::Key_O);
    EXPECT_TRUE(Part<QListWidget>().isVisible());
    EXPECT_FALSE(Part<QTreeWidget>().isVisible());
    EXPECT_EQ(Found(), QStringList{QStringLiteral("Moved & more")});
    EXPECT_EQ(Part<QListWidget>().accessibleName(), QLatin1String("One page found"));
    EXPECT_EQ(Page(), "Contents") << "nothing was chosen yet";
    Key(Qt::Key_Down);
    EXPECT_EQ(Page(), "Moved & more");
    EXPECT_TRUE(Part<QListWidget>().hasFocus());
    EXPECT_EQ(Part<QTextBrowser>().extraSelections().size(), 3) << "two in the heading, one in the text";
}

TEST_F(HelpWindowTest, EscapeEndsTheSearchBeforeItClosesTheWindow) {
    Open(5);
    Part<QLineEdit>().setText(QStringLiteral("moved"));
    EXPECT_EQ(Found().size(), 1);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(Widget().isVisible());
    EXPECT_EQ(Part<QLineEdit>().text(), QString());
    EXPECT_TRUE(Part<QTreeWidget>().isVisible());
    EXPECT_TRUE(Part<QTextBrowser>().extraSelections().isEmpty());
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Widget().isVisible());
}

TEST_F(HelpWindowTest, ASingleLetterIsNotMarked) {
    Open(410);
    Part<QLineEdit>().setText(QStringLiteral("m"));
    EXPECT_EQ(Found().size(), 1);
    EXPECT_TRUE(Part<QTextBrowser>().extraSelections().isEmpty());
    Part<QLineEdit>().setText(QStringLiteral("mo"));
    EXPECT_EQ(Part<QTextBrowser>().extraSelections().size(), 3);
}

TEST_F(HelpWindowTest, WhatNoPageHasIsSaid) {
    Open(5);
    Part<QLineEdit>().setText(QStringLiteral("zebra"));
    EXPECT_EQ(Found(), QStringList{QStringLiteral("No page has these words.")});
    EXPECT_EQ(Part<QListWidget>().accessibleName(), QLatin1String("0 pages found"));
    Part<QLineEdit>().setFocus();
    Key(Qt::Key_Down);
    EXPECT_EQ(Page(), "Five");
    Part<QLineEdit>().setText(QStringLiteral(" , "));
    EXPECT_TRUE(Part<QTreeWidget>().isVisible()) << "that is no word";
}

TEST_F(HelpWindowTest, ThePageOnSearchingBeginsASearch) {
    book = *HelpBook::Parse("TAVRIX HELP 1\n@page 0 Contents\nx\n@page 40 Searching\nx\n");
    Open(40);
    EXPECT_EQ(Page(), "Searching");
    EXPECT_TRUE(Part<QLineEdit>().hasFocus());
    Open(0);
    EXPECT_TRUE(Part<QTextBrowser>().hasFocus());
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

// Pictures

/// A picture for the help: at 100 % half as large as it is.
std::string LinesOf(const QImage& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return bytes.toHex().toStdString() + "\n";
}

/// A red one.
std::string PictureLines(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::red);
    return LinesOf(picture);
}

class HelpPageTest : public HelpWindowTest {
  protected:
    /// Opens a page of this text, with these pictures in the book.
    void OpenPage(const std::string& body, const std::string& pictures) {
        book = *HelpBook::Parse("TAVRIX HELP 1\n@page 0 Contents\n" + body + "\n" + pictures);
        Open(0);
        Settle();
    }
    static QImage Shown(const char* address) {
        return Part<QTextBrowser>()
            .document()
            ->resource(QTextDocument::ImageResource, QUrl(address))
            .value<QImage>();
    }
    /// The width that a picture takes, in pixels at 100 %.
    static double WidthOf(const char* address) { return Shown(address).deviceIndependentSize().width(); }
    static QColor ColourOf(const char* address) {
        const QImage shown = Shown(address);
        return shown.pixelColor(shown.width() / 2, shown.height() / 2);
    }
};

TEST_F(HelpPageTest, APictureStandsAtHalfItsSizeAboveWhatIsToBeSeen) {
    OpenPage("before\n\n![A red field](picture:red)\n\nbehind\n", "@picture red\n" + PictureLines(300, 200));
    EXPECT_DOUBLE_EQ(WidthOf("picture:red"), 150);
    EXPECT_DOUBLE_EQ(Shown("picture:red").deviceIndependentSize().height(), 100);
    EXPECT_DOUBLE_EQ(Shown("picture:red").devicePixelRatio(), Widget().devicePixelRatioF());
    EXPECT_EQ(ColourOf("picture:red"), QColor(Qt::red));
    const QString object(QChar::ObjectReplacementCharacter);
    EXPECT_EQ(Part<QTextBrowser>().toPlainText(),
              QStringLiteral("Contents\nbefore\n") + object + QStringLiteral("\nA red field\nbehind"));
}

TEST_F(HelpPageTest, APictureThatIsWiderThanTheTextIsMadeSmallerAsTheWindowIs) {
    OpenPage("![A red field](picture:red)\n", "@picture red\n" + PictureLines(2400, 1200));
    const auto& text = Part<QTextBrowser>();
    const double first = WidthOf("picture:red");
    EXPECT_LT(first, text.viewport()->width());
    EXPECT_GT(first, text.viewport()->width() * 0.8);
    EXPECT_EQ(text.horizontalScrollBar()->maximum(), 0);
    Widget().resize(Widget().width() + 200, Widget().height());
    Settle();
    EXPECT_NEAR(WidthOf("picture:red"), first + 200, 2);
    Widget().resize(600, Widget().height());
    Settle();
    EXPECT_LT(WidthOf("picture:red"), text.viewport()->width());
    EXPECT_EQ(text.horizontalScrollBar()->maximum(), 0);
    const QSizeF size = Shown("picture:red").deviceIndependentSize();
    EXPECT_NEAR(size.width() / size.height(), 2, 0.05);
    Widget().resize(2000, Widget().height());
    Settle();
    EXPECT_DOUBLE_EQ(WidthOf("picture:red"), 1200);
}

TEST_F(HelpPageTest, APictureWithAPaletteIsMadeSmallerWithoutPoints) {
    QImage picture(2400, 1200, QImage::Format_Indexed8);
    picture.setColorTable({qRgb(239, 240, 241), qRgb(0, 0, 0)});
    picture.fill(0);
    OpenPage("![Grey](picture:grey)\n", "@picture grey\n" + LinesOf(picture));
    const QImage shown = Shown("picture:grey").convertToFormat(QImage::Format_RGB32);
    ASSERT_LT(shown.width(), 2400);
    for (int x = 0; x < shown.width(); ++x)
        ASSERT_EQ(shown.pixelColor(x, shown.height() / 2), QColor(239, 240, 241)) << x;
}

TEST_F(HelpPageTest, EachOfSeveralPicturesHasItsText) {
    OpenPage("![One](picture:a) ![Two](picture:b)\n\n![Three](picture:a)\n",
             "@picture a\n" + PictureLines(20, 20) + "@picture b\n" + PictureLines(40, 40));
    const QString text = Part<QTextBrowser>().toPlainText();
    for (const char* words : {"One", "Two", "Three"})
        EXPECT_TRUE(text.contains(QLatin1String(words))) << text.toStdString();
    EXPECT_LT(text.indexOf(QLatin1String("One")), text.indexOf(QLatin1String("Two")));
    EXPECT_EQ(text.count(QChar(QChar::ObjectReplacementCharacter)), 3);
    EXPECT_DOUBLE_EQ(WidthOf("picture:b"), 20);
}

TEST_F(HelpPageTest, OfAPictureThatIsNoneTheTextIsThere) {
    OpenPage("![Gone](picture:gone)\n\n![Broken](picture:broken)\n\n![Huge](picture:huge)\n",
             "@picture broken\n89504e47\n@picture huge\n" + PictureLines(5000, 500));
    const QString text = Part<QTextBrowser>().toPlainText();
    for (const char* address : {"picture:gone", "picture:broken", "picture:huge"})
        EXPECT_EQ(Shown(address).size(), QSize(1, 1)) << address;
    for (const char* words : {"Gone", "Broken", "Huge"})
        EXPECT_TRUE(text.contains(QLatin1String(words))) << text.toStdString();
}

TEST_F(HelpPageTest, TheNextPageHasItsOwnPictures) {
    OpenPage("![Red](picture:red)\n",
             "@picture red\n" + PictureLines(300, 200) + "@page 5 Five\nno picture\n");
    Open(5);
    EXPECT_EQ(Part<QTextBrowser>().toPlainText(), QLatin1String("Five\nno picture"));
    Widget().resize(700, Widget().height());
    Settle();
    Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(ColourOf("picture:red"), QColor(Qt::red));
}

TEST_F(HelpPageTest, TheWordsBelowAPictureAreFoundAndMarked) {
    OpenPage("x\n\n@page 5 Five\n![A red field](picture:red)\n", "@picture red\n" + PictureLines(300, 200));
    Part<QLineEdit>().setText(QStringLiteral("field"));
    EXPECT_EQ(Found(), QStringList{QStringLiteral("Five")});
    Open(5);
    EXPECT_EQ(Part<QTextBrowser>().extraSelections().size(), 1);
}

TEST_F(HelpPageTest, FiftyWindowsLeaveNothing) {
    book = *HelpBook::Parse("TAVRIX HELP 1\n@page 0 Contents\n![Red](picture:red)\n@picture red\n" +
                            PictureLines(2400, 1200));
    constexpr std::size_t allowance = 128 * 1024;
    const auto settled = [] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Settle();
        return mallinfo2().uordblks;
    };
    qsizetype widgets = 0;
    qsizetype windows = 0;
    std::size_t bytes = 0;
    for (int round = 0; round < 50; ++round) {
        if (round == 5) {
            bytes = settled();
            widgets = QApplication::allWidgets().size();
            windows = QGuiApplication::allWindows().size();
        }
        Open(0);
        Part<QLineEdit>().setText(QStringLiteral("red"));
        window.Close();
    }
    EXPECT_LT(settled(), bytes + allowance);
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
    EXPECT_EQ(QGuiApplication::allWindows().size(), windows);
}

}  // namespace
}  // namespace tavrix::test
