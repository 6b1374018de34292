// What only a window system has of lists: what is painted, scrolling while the mouse is held, screen readers.

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <QWindow>

#include "backends/qt/peers/QtList.h"
#include "forms_conformance/QtDriver.h"
#include "forms_conformance/RowsForm.h"

namespace tavrix::conformance {
namespace {

using namespace forms;
using std::chrono_literals::operator""ms;

class QtListTest : public RowsTest {
  protected:
    qt::ListWidget& View(const ListControl& list) { return dynamic_cast<qt::ListWidget&>(WidgetOf(list)); }
    qt::ListWidget& View() { return View(form.list); }
    QAccessibleInterface& Seen() { return *QAccessible::queryAccessibleInterface(&View()); }
    /// The colour of a row at its right end, where there is no text.
    QColor ColourOf(const ListControl& list, int row) {
        const QImage shown = View(list).viewport()->grab().toImage();
        const QRect place = View(list).PlaceOfRow(row);
        const double ratio = qt::DeviceRatio();
        return shown.pixelColor(qt::ToDevice(place.right() - 4, ratio),
                                qt::ToDevice(place.center().y(), ratio));
    }
    QPoint InWindow(QPoint place) { return View().viewport()->mapTo(View().window(), place); }
    void Mouse(QEvent::Type type, QPoint place, Qt::MouseButtons held) {
        QWindow* window = View().window()->windowHandle();
        const QPoint there = InWindow(place);
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        qt_handleMouseEvent(window, there, window->mapToGlobal(there), held, button, type, {},
                            QTest::lastMouseTimestamp);
        driver->Settle();
    }
};

TEST_F(QtListTest, SelectedRowsArePaintedSo) {
    Open(6, MultiSelect::Toggling);
    form.list.Select(1);
    form.list.Select(4);
    form.list.ListIndex = 2;
    driver->Settle();
    const QColor highlight = View().palette().color(QPalette::Highlight);
    for (int row = 0; row < 6; ++row)
        EXPECT_EQ(ColourOf(form.list, row) == highlight, row == 1 || row == 4) << row;
    form.list.Select(1, false);
    driver->Settle();
    EXPECT_NE(ColourOf(form.list, 1), highlight);
}

TEST_F(QtListTest, TheCurrentRowCanBeSeenAmongSelectedOnes) {
    Open(6, MultiSelect::Toggling);
    form.list.SelectAll();
    form.list.ListIndex = 2;
    driver->Settle();
    const auto picture = [this](int row) {
        return View().viewport()->grab(View().PlaceOfRow(row).adjusted(60, 0, 0, 0)).toImage();
    };
    EXPECT_NE(picture(2), picture(3));
    EXPECT_EQ(picture(3), picture(4));
}

TEST_F(QtListTest, TheInsertionMarkIsPainted) {
    form.list.ShowsInsertionMark = true;
    form.list.OnOLEDragDrop = [](const std::vector<std::string>&) {};
    Open(6, MultiSelect::Extended);
    const QImage before = View().viewport()->grab().toImage();
    driver->UserDragsFilesOver(form.list, 2);
    driver->Settle();
    const QImage marked = View().viewport()->grab().toImage();
    EXPECT_NE(marked, before);
    driver->UserDragsFilesAway(form.list);
    driver->Settle();
    EXPECT_EQ(View().viewport()->grab().toImage(), before);
}

TEST_F(QtListTest, HoldingTheMouseBeyondTheEndScrollsAndSelects) {
    Open(300, MultiSelect::Extended);
    Mouse(QEvent::MouseButtonPress, View().PlaceOfRow(0).center(), Qt::LeftButton);
    Mouse(QEvent::MouseMove, QPoint(5, View().viewport()->height() + 20), Qt::LeftButton);
    const int top = driver->ShownTop(form.list);
    driver->Pass(400ms);
    EXPECT_GT(driver->ShownTop(form.list), top + 2);
    Mouse(QEvent::MouseButtonRelease, QPoint(5, View().viewport()->height() + 20), Qt::NoButton);
    EXPECT_GT(form.list.SelectedCount(), 10);
    EXPECT_EQ(form.list.SelectedCount(), form.list.ListIndex + 1);
    const int selected = form.list.SelectedCount();
    driver->Pass(200ms);
    EXPECT_EQ(form.list.SelectedCount(), selected);
}

TEST_F(QtListTest, ADragThatRestsAtTheEndOfAListScrollsIt) {
    form.list.OnDragStart = [this](const MouseArguments&) { form.list.Drag(); };
    form.target.OnDragDrop = [this](const DragArguments& drag) { log.push_back(std::to_string(drag.row)); };
    form.target.AddItems(Numbered(100));
    Open(9, MultiSelect::Extended);
    Press(1);
    driver->UserDragsOver(form.target, 1);
    EXPECT_EQ(driver->ShownTop(form.target), 0);
    driver->UserDragsOver(form.target, -1);
    driver->Pass(600ms);
    const int top = driver->ShownTop(form.target);
    EXPECT_GT(top, 3);
    driver->UserLetsGo();
    driver->Settle();
    EXPECT_GT(std::stoi(log.back()), top);
}

TEST_F(QtListTest, ADragShowsItsPictureAtThePointer) {
    form.list.OnDragStart = [this](const MouseArguments&) { form.list.Drag(); };
    form.target.OnDragDrop = [](const DragArguments&) {};
    Open(9, MultiSelect::Extended);
    const auto pointer = [this] { return View().viewport()->cursor(); };
    Press(1);
    driver->UserDragsOver(form.target, 0);
    EXPECT_EQ(pointer().shape(), Qt::DragMoveCursor);
    driver->UserDragsOver(form.button);
    EXPECT_EQ(pointer().shape(), Qt::ForbiddenCursor);
    driver->UserLetsGo();
    driver->Settle();
    EXPECT_EQ(pointer().shape(), Qt::ArrowCursor);
    Surface icon(16, 16);
    icon.Fill(OpaquePixel(255, 0, 0));
    form.list.DragIcon = PictureOf(std::move(icon));
    Press(1);
    driver->UserDragsOver(form.target, 0);
    ASSERT_EQ(pointer().shape(), Qt::BitmapCursor);
    EXPECT_EQ(pointer().pixmap().toImage().pixelColor(3, 3), QColor(255, 0, 0));
    driver->UserGivesUpDrag();
    driver->Settle();
    EXPECT_EQ(pointer().shape(), Qt::ArrowCursor);
}

TEST_F(QtListTest, AControlThatGoesEndsItsDrag) {
    form.list.OnDragStart = [this](const MouseArguments&) { form.list.Drag(); };
    auto& other = app.Load<RowsForm>(log);
    other.target.OnDragDrop = [this](const DragArguments&) { log.emplace_back("dropped"); };
    other.Show();
    Open(9);
    Press(1);
    driver->UserDragsOver(other.target, 0);
    app.Unload(form);
    driver->Settle();
    QTest::mouseRelease(WidgetOf(other).windowHandle(), Qt::LeftButton, {}, {5, 5});
    driver->Settle();
    EXPECT_EQ(Count(log, "dropped"), 0);
}

TEST_F(QtListTest, ManyRowsAreAskedForOnlyWhenTheyAreSeen) {
    class Many final : public ListControl {
      public:
        explicit Many(Container& container) : ListControl(container, "many") {
            MultiSelect = MultiSelect::Extended;
        }
        void Halve() {
            RowRanges odd;
            for (int row = 1; row < count; row += 2)
                odd.Add(row);
            count /= 2;
            RowsRemoved(odd);
        }
        void Grow() {
            count += 1000;
            RowsInserted(10, 1000);
        }
        mutable int asked = 0;
        int count = 200'000;

      private:
        [[nodiscard]] int RowCount() const override { return count; }
        [[nodiscard]] ListRow Row(int row) const override {
            ++asked;
            return {"Row " + std::to_string(row)};
        }
    };
    class ManyForm : public Form {
      public:
        explicit ManyForm(Application& application) : Form(application, {.name = "ManyForm"}) {}
        Many list{*this};
        void Form_Load() override {
            Move(0, 0, 6000, 6000);
            list.Move(0, 0, 3000, 4500);
        }
    };
    auto& many = app.Load<ManyForm>();
    QElapsedTimer clock;
    clock.start();
    many.Show();
    driver->Settle();
    for (int round = 0; round < 5; ++round) {
        many.list.SelectAll();
        driver->Settle();
        driver->UserScrollsTo(many.list, 30'000 * round);
        driver->Settle();
        many.list.InvertSelection();
        driver->Settle();
    }
    many.list.Grow();
    driver->Settle();
    many.list.Halve();
    driver->Settle();
    RecordProperty("milliseconds", static_cast<int>(clock.elapsed()));
    EXPECT_LT(many.list.asked, 3000);
    EXPECT_EQ(many.list.ListIndex, -1);
}

// Screen readers.

TEST_F(QtListTest, AScreenReaderSeesTheRows) {
    form.list.AccessibleName = "Files:";
    Open(300, MultiSelect::Extended);
    form.list.Select(2);
    form.list.ListIndex = 3;
    EXPECT_EQ(Seen().role(), QAccessible::List);
    EXPECT_EQ(Seen().text(QAccessible::Name), QStringLiteral("Files:"));
    EXPECT_TRUE(Seen().state().multiSelectable);
    EXPECT_EQ(Seen().childCount(), 300);
    QAccessibleInterface& row = *Seen().child(2);
    EXPECT_EQ(row.role(), QAccessible::ListItem);
    EXPECT_EQ(row.text(QAccessible::Name), QStringLiteral("row 2"));
    EXPECT_TRUE(row.state().selected);
    EXPECT_FALSE(row.state().focused);
    EXPECT_FALSE(row.state().invisible);
    EXPECT_TRUE(Seen().child(250)->state().invisible);
    EXPECT_TRUE(Seen().child(3)->state().focused);
    EXPECT_EQ(Seen().focusChild(), Seen().child(3));
    EXPECT_EQ(Seen().indexOfChild(&row), 2);
    EXPECT_EQ(row.parent(), &Seen());
    EXPECT_EQ(Seen().childAt(row.rect().center().x(), row.rect().center().y()), &row);
    form.list.RemoveItem(0);
    EXPECT_EQ(row.text(QAccessible::Name), QStringLiteral("row 3"));
    form.list.SetItems({"only"});
    EXPECT_FALSE(row.isValid());
    EXPECT_EQ(Seen().child(2), nullptr);
}

TEST_F(QtListTest, AScreenReaderSelectsRows) {
    Open(9, MultiSelect::Toggling);
    QAccessibleTableInterface& table = *Seen().tableInterface();
    EXPECT_TRUE(table.selectRow(2));
    EXPECT_TRUE(table.selectRow(5));
    EXPECT_FALSE(table.selectRow(9));
    driver->Settle();
    EXPECT_EQ(Selected(), (Rows{2, 5}));
    EXPECT_EQ(table.selectedRows(), (QList<int>{2, 5}));
    EXPECT_EQ(form.list.ListIndex, -1);
    EXPECT_TRUE(table.unselectRow(2));
    driver->Settle();
    EXPECT_EQ(Selected(), Rows{5});
    Seen().child(7)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(log, std::vector<std::string>{});  // whoever asked is free before a handler runs
    driver->Settle();
    EXPECT_EQ(Selected(), (Rows{5, 7}));
    EXPECT_EQ(log, (std::vector<std::string>{"click 7"}));
    EXPECT_EQ(form.ActiveControl(), &form.list);
}

TEST_F(QtListTest, ARowThatIsTooLongIsToldWholeByAToolTip) {
    Open(1);
    form.list.AddItem(std::string(200, 'm'));
    form.list.ToolTip = "the list's own";
    const auto tipAt = [this](int row) {
        const QPoint place = View().PlaceOfRow(row).center();
        QHelpEvent help(QEvent::ToolTip, place, View().viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(View().viewport(), &help);
        return QToolTip::text();
    };
    EXPECT_EQ(tipAt(0), QStringLiteral("the list's own"));
    EXPECT_EQ(tipAt(1), QString(200, QLatin1Char('m')));
}

}  // namespace
}  // namespace tavrix::conformance
