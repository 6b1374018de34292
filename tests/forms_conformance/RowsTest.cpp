// Rows that come, go and change, and what stays as it was.

#include "forms_conformance/RowsForm.h"

#include "base/RuntimeError.h"
#include "platform/forms/ComboBox.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

TEST_F(RowsTest, RowsAreAddedAnywhere) {
    Open(2);
    form.list.AddItem("last");
    form.list.AddItem("first", 0);
    form.list.AddItems({"a", "b"}, 2);
    form.list.AddItems({});
    EXPECT_EQ(driver->ShownRows(form.list),
              (std::vector<std::string>{"first", "row 0", "a", "b", "row 1", "last"}));
    EXPECT_THROW(form.list.AddItem("x", 7), RuntimeError);
    EXPECT_THROW(form.list.AddItem("x", -1), RuntimeError);
    EXPECT_EQ(form.list.ListCount(), 6);
    EXPECT_EQ(log, std::vector<std::string>{});
}

TEST_F(RowsTest, TheCurrentRowStaysTheSameRow) {
    Open(10);
    form.list.ListIndex = 5;
    log.clear();
    form.list.AddItem("above", 0);
    EXPECT_EQ(form.list.ListIndex, 6);
    EXPECT_EQ(driver->ShownCurrent(form.list), 6);
    form.list.AddItem("below", 7);
    form.list.RemoveItem(1);
    EXPECT_EQ(form.list.List(form.list.ListIndex), "row 5");
    EXPECT_EQ(driver->ShownCurrent(form.list), 5);
    form.list.RemoveItem(5);
    EXPECT_EQ(form.list.ListIndex, -1);
    EXPECT_EQ(driver->ShownCurrent(form.list), -1);
    EXPECT_EQ(log, std::vector<std::string>{});
    EXPECT_THROW(form.list.RemoveItem(form.list.ListCount()), RuntimeError);
    EXPECT_THROW(form.list.RemoveItem(-1), RuntimeError);
}

TEST_F(RowsTest, TheSelectionStaysWithItsRows) {
    Open(10, MultiSelect::Extended);
    form.list.SetSelection({3, 7});
    form.list.ListIndex = 4;
    form.list.AddItems({"x", "y"}, 5);
    EXPECT_EQ(Selected(), (Rows{3, 4, 7, 8}));
    form.list.RemoveItem(0);
    EXPECT_EQ(Selected(), (Rows{2, 3, 6, 7}));
    EXPECT_EQ(form.list.ListIndex, 3);
    RowRanges gone(0, 3);
    gone.Add(6);
    form.list.RemoveItems(gone);
    EXPECT_EQ(Selected(), (Rows{0, 3}));
    EXPECT_EQ(form.list.SelectedCount(), 2);
    EXPECT_EQ(form.list.List(0), "row 4");
    EXPECT_EQ(form.list.List(3), "row 6");
    EXPECT_EQ(form.list.ListIndex, 0);
    form.list.RemoveItems(form.list.Selection());
    EXPECT_EQ(driver->ShownRows(form.list), (std::vector<std::string>{"x", "y", "row 7", "row 8", "row 9"}));
    EXPECT_EQ(Selected(), Rows{});
    EXPECT_EQ(form.list.ListIndex, -1);
}

TEST_F(RowsTest, WhatCanBeSeenStaysWhereItIs) {
    Open(300, MultiSelect::Extended);
    driver->UserScrollsTo(form.list, 100);
    ASSERT_EQ(driver->ShownTop(form.list), 100);
    form.list.SetList(101, "another text");
    form.list.SelectAll();
    EXPECT_EQ(driver->ShownTop(form.list), 100);
    form.list.AddItems({"a", "b", "c"}, 50);
    EXPECT_EQ(driver->ShownTop(form.list), 103);
    form.list.RemoveItems({10, 30});
    EXPECT_EQ(driver->ShownTop(form.list), 83);
    form.list.AddItem("within", 85);
    form.list.RemoveItem(200);
    driver->Settle();
    EXPECT_EQ(driver->ShownTop(form.list), 83);
    EXPECT_EQ(form.list.List(84), "another text");
    form.list.SetItems(Numbered(300));
    EXPECT_EQ(driver->ShownTop(form.list), 0);
}

TEST_F(RowsTest, ANewCurrentRowIsScrolledIntoView) {
    Open(300);
    form.list.ListIndex = 250;
    EXPECT_GT(driver->ShownTop(form.list), 200);
    EXPECT_LE(driver->ShownTop(form.list), 250);
    form.list.ListIndex = 10;
    EXPECT_EQ(driver->ShownTop(form.list), 10);
}

TEST_F(RowsTest, ATextIsChangedInItsPlace) {
    Open(5, MultiSelect::Extended);
    form.list.Select(2);
    form.list.ListIndex = 2;
    log.clear();
    form.list.SetList(2, "other");
    EXPECT_EQ(form.list.List(2), "other");
    EXPECT_EQ(driver->ShownRows(form.list)[2], "other");
    EXPECT_EQ(driver->ShownCurrent(form.list), 2);
    EXPECT_EQ(Selected(), Rows{2});
    EXPECT_EQ(log, std::vector<std::string>{});
    EXPECT_THROW(form.list.SetList(5, "x"), RuntimeError);
}

TEST_F(RowsTest, OtherRowsLeaveNothingCurrentOrSelected) {
    Open(5, MultiSelect::Toggling);
    form.list.SelectAll();
    form.list.ListIndex = 3;
    log.clear();
    form.list.SetItems({"a", "b"});
    EXPECT_EQ(form.list.ListIndex, -1);
    EXPECT_EQ(Selected(), Rows{});
    form.list.Clear();
    EXPECT_EQ(driver->ShownRows(form.list), std::vector<std::string>{});
    EXPECT_EQ(log, std::vector<std::string>{});
}

TEST_F(RowsTest, RowsThatAreReadAgainKeepTheirStateByName) {
    Open(0, MultiSelect::Extended);
    form.list.SetItems({"a", "b", "twice", "twice", "e"});
    form.list.SetSelection({1, 4});
    form.list.ListIndex = 3;
    log.clear();
    form.list.RenewItems({"twice", "new", "B", "b", "twice"});
    EXPECT_EQ(Selected(), (Rows{0, 3, 4}));
    EXPECT_EQ(form.list.ListIndex, 4);
    EXPECT_EQ(driver->ShownCurrent(form.list), 4);
    form.list.RenewItems({"twice", "e"});
    EXPECT_EQ(Selected(), Rows{0});
    EXPECT_EQ(form.list.ListIndex, -1);
    EXPECT_EQ(log, std::vector<std::string>{});
}

TEST_F(RowsTest, AnotherOrderTakesStateAndPlaceAlong) {
    Open(5, MultiSelect::Extended);
    form.list.SetSelection({0, 2});
    form.list.ListIndex = 4;
    log.clear();
    form.list.Reorder(std::vector<int>{4, 3, 2, 1, 0});
    EXPECT_EQ(driver->ShownRows(form.list),
              (std::vector<std::string>{"row 4", "row 3", "row 2", "row 1", "row 0"}));
    EXPECT_EQ(Selected(), (Rows{3, 4}));
    EXPECT_EQ(driver->ShownCurrent(form.list), 0);
    form.list.MoveItem(4, 1);
    EXPECT_EQ(driver->ShownRows(form.list),
              (std::vector<std::string>{"row 4", "row 0", "row 3", "row 2", "row 1"}));
    EXPECT_EQ(Selected(), (Rows{1, 4}));
    form.list.MoveItem(0, 4);
    EXPECT_EQ(form.list.List(4), "row 4");
    EXPECT_EQ(form.list.ListIndex, 4);
    EXPECT_EQ(Selected(), (Rows{0, 3}));
    EXPECT_EQ(log, std::vector<std::string>{});
    EXPECT_THROW(form.list.Reorder(std::vector<int>{0, 0, 1, 2, 3}), RuntimeError);
    EXPECT_THROW(form.list.Reorder(std::vector<int>{0}), RuntimeError);
    EXPECT_THROW(form.list.MoveItem(0, 5), RuntimeError);
    EXPECT_EQ(form.list.List(4), "row 4");
}

TEST_F(RowsTest, SelectingByProgramRaisesNothingAndMovesNothing) {
    Open(6, MultiSelect::Toggling);
    form.list.ListIndex = 5;
    log.clear();
    form.list.Select(1);
    form.list.Select(3);
    EXPECT_TRUE(form.list.Selected(1));
    EXPECT_FALSE(form.list.Selected(5));
    EXPECT_EQ(Selected(), (Rows{1, 3}));
    form.list.InvertSelection();
    EXPECT_EQ(Selected(), (Rows{0, 2, 4, 5}));
    form.list.Select(4, false);
    EXPECT_EQ(form.list.SelectedCount(), 3);
    form.list.SelectAll();
    EXPECT_EQ(Selected(), (Rows{0, 1, 2, 3, 4, 5}));
    form.list.SelectNone();
    EXPECT_EQ(Selected(), Rows{});
    EXPECT_EQ(form.list.ListIndex, 5);
    EXPECT_EQ(driver->ShownCurrent(form.list), 5);
    EXPECT_EQ(log, std::vector<std::string>{});
    EXPECT_THROW(form.list.Select(6), RuntimeError);
    EXPECT_THROW((void)form.list.Selected(-1), RuntimeError);
    EXPECT_THROW(form.list.SetSelection({5, 7}), RuntimeError);
}

TEST_F(RowsTest, WithoutSeveralSelectedRowsTheCurrentOneIsTheSelectedOne) {
    Open(4);
    form.list.ListIndex = 2;
    EXPECT_TRUE(form.list.Selected(2));
    EXPECT_EQ(form.list.SelectedCount(), 1);
    form.list.Select(1);
    EXPECT_EQ(form.list.ListIndex, 1);
    form.list.SelectAll();
    form.list.InvertSelection();
    EXPECT_EQ(Selected(), Rows{1});
    form.list.Select(1, false);
    EXPECT_EQ(form.list.ListIndex, -1);
    EXPECT_EQ(log, (std::vector<std::string>{"click 2", "click 1"}));
}

TEST_F(RowsTest, ADropDownListIsOfTheSameRows) {
    class ComboForm : public Form {
      public:
        explicit ComboForm(Application& application) : Form(application, {.name = "ComboForm"}) {}
        ComboBox combo{*this, "combo"};
    };
    auto& other = app.Load<ComboForm>();
    other.combo.AddItem("a");
    other.combo.ListIndex = 0;
    other.Show();
    driver->Settle();
    other.combo.AddItem("b");
    EXPECT_EQ(driver->ShownRows(other.combo), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(driver->ShownCurrent(other.combo), 0);
    driver->UserChoosesRow(other.combo, 1);
    driver->Settle();
    EXPECT_EQ(other.combo.ListIndex, 1);
    other.combo.Clear();
    EXPECT_EQ(driver->ShownRows(other.combo), std::vector<std::string>{});
    EXPECT_EQ(driver->ShownCurrent(other.combo), -1);
}

TEST_F(RowsTest, RowsThatAreReplacedBeforeTheyAreShownAreNeverCounted) {
    // Counting them means reading a folder, and a chain of lists passes many.
    class Counted final : public ListControl {
      public:
        explicit Counted(Container& container) : ListControl(container, "counted") {}
        void Renew(int rows) {
            rows_ = rows;
            RowsReset(-1);
        }
        mutable int counted = 0;

      private:
        [[nodiscard]] int RowCount() const override {
            ++counted;
            return rows_;
        }
        [[nodiscard]] ListRow Row(int row) const override { return {std::to_string(row)}; }
        int rows_ = 3;
    };
    class CountedForm : public Form {
      public:
        explicit CountedForm(Application& application) : Form(application, {.name = "CountedForm"}) {}
        Counted list{*this};
        void Form_Load() override { list.Move(0, 0, 3000, 3000); }
    };
    auto& other = app.Load<CountedForm>();
    other.Show();
    driver->Settle();
    other.list.counted = 0;
    for (const int rows : {5, 1'000, 2})
        other.list.Renew(rows);
    EXPECT_EQ(other.list.counted, 0);
    driver->Settle();
    EXPECT_EQ(driver->ShownRows(other.list), (std::vector<std::string>{"0", "1"}));
    other.list.Visible = false;
    driver->Settle();
    other.list.counted = 0;
    other.list.Renew(300);
    driver->Settle();
    EXPECT_EQ(other.list.counted, 0) << "nobody sees them";
    other.list.Visible = true;
    driver->Settle();
    other.list.ListIndex = 299;
    EXPECT_GT(driver->ShownTop(other.list), 200);
}

TEST_F(RowsTest, StateFromBeforeTheFirstShowIsShown) {
    form.list.MultiSelect = MultiSelect::Extended;
    form.list.AddItems(Numbered(200));
    form.list.SetSelection({150, 153});
    form.list.ListIndex = 151;
    form.Show();
    driver->Settle();
    EXPECT_EQ(Selected(), (Rows{150, 151, 152}));
    EXPECT_EQ(driver->ShownCurrent(form.list), 151);
    EXPECT_GT(driver->ShownTop(form.list), 100);
}

}  // namespace
}  // namespace tavrix::conformance
