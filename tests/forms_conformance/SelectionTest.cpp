// What mouse and keys do to the rows of a list.

#include "forms_conformance/RowsForm.h"

namespace tavrix::conformance {
namespace {

using namespace forms;
using Log = std::vector<std::string>;

class SelectionTest : public RowsTest {};

TEST_F(SelectionTest, APressMovesTheCurrentRowBeforeItIsTold) {
    Open(5);
    form.list.OnMouseDown = [this](const MouseArguments& mouse) {
        log.push_back("down " + std::to_string(mouse.row) + " current " +
                      std::to_string(form.list.ListIndex));
    };
    Click(3);
    EXPECT_EQ(log, (Log{"down 3 current 3", "click 3", "up 1 on 3"}));
    EXPECT_EQ(form.ActiveControl(), &form.list);
}

TEST_F(SelectionTest, MouseEventsTellShiftAndPlace) {
    Open(5);
    MouseArguments told;
    form.list.OnMouseUp = [&told](const MouseArguments& mouse) { told = mouse; };
    Click(2, ShiftMask::Ctrl);
    EXPECT_EQ(told.button, MouseButton::Left);
    EXPECT_EQ(told.shift, ShiftMask::Ctrl);
    EXPECT_EQ(told.row, 2);
    EXPECT_GT(told.x, 0);
    EXPECT_GT(told.y, 200);
    EXPECT_LT(told.y, 1200);
}

TEST_F(SelectionTest, APressBelowTheLastRowIsToldAndChangesNothing) {
    Open(2, MultiSelect::Extended);
    Click(1);
    log.clear();
    Click(15);
    EXPECT_EQ(log, (Log{"down 1 on -1", "up 1 on -1"}));
    EXPECT_EQ(form.list.ListIndex, 1);
    EXPECT_EQ(Selected(), Rows{1});
}

TEST_F(SelectionTest, TogglingSelectsWithThePressAndTakesOutWithTheRelease) {
    Open(5, MultiSelect::Toggling);
    Press(1);
    EXPECT_EQ(Selected(), Rows{1});
    Release(1);
    Click(3);
    EXPECT_EQ(Selected(), (Rows{1, 3}));
    EXPECT_EQ(form.list.ListIndex, 3);
    log.clear();
    Press(1);
    EXPECT_EQ(form.list.ListIndex, 1);
    EXPECT_EQ(Selected(), (Rows{1, 3}));
    EXPECT_EQ(log, (Log{"down 1 on 1"}));
    Release(1);
    EXPECT_EQ(Selected(), Rows{3});
    EXPECT_EQ(log, (Log{"down 1 on 1", "click 1", "up 1 on 1"}));
}

TEST_F(SelectionTest, DraggingOverATogglingListSelects) {
    Open(9, MultiSelect::Toggling);
    form.list.Select(2);
    form.list.Select(8);
    Press(2);
    MoveTo(5);
    EXPECT_EQ(Selected(), (Rows{2, 3, 4, 5, 8}));
    EXPECT_EQ(form.list.ListIndex, 5);
    MoveTo(1);
    EXPECT_EQ(form.list.ListIndex, 1);
    Release(1);
    EXPECT_EQ(Selected(), (Rows{1, 2, 3, 4, 5, 8}));
}

TEST_F(SelectionTest, AHandlerSeesTheRowUnderAMove) {
    Open(9, MultiSelect::Toggling);
    form.list.OnMouseMove = [this](const MouseArguments& mouse) {
        log.push_back("move " + std::to_string(mouse.button) + " over " + std::to_string(mouse.row) +
                      " current " + std::to_string(form.list.ListIndex));
    };
    Press(0);
    MoveTo(4);
    MoveTo(15);
    EXPECT_GE(Count(log, "move 1 over 4 current 4"), 1);
    EXPECT_GE(Count(log, "move 1 over 8 current 8"), 1);
    Release(15);
}

TEST_F(SelectionTest, ExtendedSelectsOneAndShiftUpToThere) {
    Open(9, MultiSelect::Extended);
    Click(3);
    EXPECT_EQ(Selected(), Rows{3});
    Click(6, ShiftMask::Shift);
    EXPECT_EQ(Selected(), (Rows{3, 4, 5, 6}));
    EXPECT_EQ(form.list.ListIndex, 6);
    Click(1, ShiftMask::Shift);
    EXPECT_EQ(Selected(), (Rows{1, 2, 3}));
    Click(7);
    EXPECT_EQ(Selected(), Rows{7});
}

TEST_F(SelectionTest, CtrlTakesOneMoreOrOneLess) {
    Open(9, MultiSelect::Extended);
    Click(3);
    Click(6, ShiftMask::Ctrl);
    EXPECT_EQ(Selected(), (Rows{3, 6}));
    Press(3, ShiftMask::Ctrl);
    EXPECT_EQ(Selected(), (Rows{3, 6}));
    Release(3, ShiftMask::Ctrl);
    EXPECT_EQ(Selected(), Rows{6});
    Click(0, ShiftMask::Ctrl);
    Click(2, ShiftMask::Ctrl | ShiftMask::Shift);
    EXPECT_EQ(Selected(), (Rows{0, 1, 2, 6}));
}

TEST_F(SelectionTest, APressOnASelectedRowIsDecidedAtTheRelease) {
    Open(9, MultiSelect::Extended);
    form.list.SetSelection({2, 6});
    Press(4);
    EXPECT_EQ(Selected(), (Rows{2, 3, 4, 5}));
    EXPECT_EQ(form.list.ListIndex, 4);
    Release(4);
    EXPECT_EQ(Selected(), Rows{4});
}

TEST_F(SelectionTest, DraggingOverAnExtendedListSelectsWhatItComesOver) {
    Open(9, MultiSelect::Extended);
    Click(8);
    Press(2);
    MoveTo(5);
    EXPECT_EQ(Selected(), (Rows{2, 3, 4, 5}));
    MoveTo(1);
    EXPECT_EQ(Selected(), (Rows{1, 2}));
    Release(1);
    Press(6, ShiftMask::Ctrl);
    MoveTo(7, ShiftMask::Ctrl);
    Release(7, ShiftMask::Ctrl);
    EXPECT_EQ(Selected(), (Rows{1, 2, 6, 7}));
}

TEST_F(SelectionTest, AMoveFromASelectedRowBeginsThere) {
    Open(9, MultiSelect::Extended);
    Click(0);
    form.list.SetSelection({3, 8});
    Press(4);
    MoveTo(6);
    Release(6);
    EXPECT_EQ(Selected(), (Rows{4, 5, 6}));
}

TEST_F(SelectionTest, ShiftSelectsFromTheRowThatWasClickedWhereverItIsNow) {
    Open(9, MultiSelect::Extended);
    Click(3);
    form.list.AddItem("above", 0);
    Click(6, ShiftMask::Shift);
    EXPECT_EQ(Selected(), (Rows{4, 5, 6}));
    form.list.RemoveItem(0);
    Click(1, ShiftMask::Shift);
    EXPECT_EQ(Selected(), (Rows{1, 2, 3}));
}

TEST_F(SelectionTest, ARightPressKeepsTheSelection) {
    Open(9, MultiSelect::Extended);
    form.list.SetSelection({2, 5});
    Press(3, ShiftMask::None, MouseButton::Right);
    Release(3, ShiftMask::None, MouseButton::Right);
    EXPECT_EQ(Selected(), (Rows{2, 3, 4}));
    EXPECT_EQ(form.list.ListIndex, 3);
    EXPECT_EQ(log, (Log{"down 2 on 3", "click 3", "up 2 on 3"}));
    Press(7, ShiftMask::None, MouseButton::Right);
    Release(7, ShiftMask::None, MouseButton::Right);
    EXPECT_EQ(Selected(), (Rows{2, 3, 4}));
    EXPECT_EQ(form.list.ListIndex, 7);
}

TEST_F(SelectionTest, ADoubleClickIsOnePressAndOneDouble) {
    Open(5, MultiSelect::Toggling);
    driver->UserDoubleClicks(form.list, 2);
    driver->Settle();
    EXPECT_EQ(log, (Log{"down 1 on 2", "click 2", "up 1 on 2", "double 2", "up 1 on 2"}));
    EXPECT_EQ(Selected(), Rows{2});
}

TEST_F(SelectionTest, ADisabledListHearsNothing) {
    Open(5, MultiSelect::Toggling);
    form.list.Enabled = false;
    driver->Settle();
    Click(2);
    EXPECT_EQ(Selected(), Rows{});
    EXPECT_EQ(log, Log{});
}

// Keys.

TEST_F(SelectionTest, KeysMoveTheCurrentRow) {
    Open(100);
    for (const int key :
         {KeyCode::Down, KeyCode::Down, KeyCode::Up, KeyCode::End, KeyCode::End, KeyCode::Home})
        Key(key);
    EXPECT_EQ(log, (Log{"click 0", "click 1", "click 0", "click 99", "click 0"}));
    log.clear();
    Key(KeyCode::PageDown);
    const int page = form.list.ListIndex;
    EXPECT_GT(page, 3);
    Key(KeyCode::PageDown);
    EXPECT_EQ(form.list.ListIndex, 2 * page);
    Key(KeyCode::PageUp);
    EXPECT_EQ(form.list.ListIndex, page);
    EXPECT_EQ(log.size(), 3U);
}

TEST_F(SelectionTest, HandlersSeeTheKeysOfAListFirst) {
    Open(5);
    form.list.OnKeyDown = [](int& keyCode, int) {
        if (keyCode == KeyCode::Down) keyCode = 0;
    };
    Key(KeyCode::Down);
    EXPECT_EQ(form.list.ListIndex, -1);
    Key(KeyCode::End);
    EXPECT_EQ(form.list.ListIndex, 4);
}

TEST_F(SelectionTest, KeysWithAltAreNotTheLists) {
    Open(5);
    Key(KeyCode::Down, ShiftMask::Alt);
    EXPECT_EQ(form.list.ListIndex, -1);
}

TEST_F(SelectionTest, InATogglingListKeysMoveAndTheSpaceBarSelects) {
    Open(5, MultiSelect::Toggling);
    Key(KeyCode::Down);
    Key(KeyCode::Down);
    EXPECT_EQ(Selected(), Rows{});
    EXPECT_EQ(driver->ShownCurrent(form.list), 1);
    log.clear();
    Key(KeyCode::Space);
    EXPECT_EQ(Selected(), Rows{1});
    Key(KeyCode::End);
    Key(KeyCode::Space);
    EXPECT_EQ(Selected(), (Rows{1, 4}));
    Key(KeyCode::Space);
    EXPECT_EQ(Selected(), Rows{1});
    EXPECT_EQ(log, (Log{"click 1", "click 4", "click 4", "click 4"}));
    Key('A', ShiftMask::Ctrl);
    EXPECT_EQ(Selected(), (Rows{0, 1, 2, 3, 4}));
}

TEST_F(SelectionTest, InAnExtendedListKeysSelect) {
    Open(9, MultiSelect::Extended);
    Key(KeyCode::Down);
    Key(KeyCode::Down);
    EXPECT_EQ(Selected(), Rows{1});
    Key(KeyCode::Down, ShiftMask::Shift);
    Key(KeyCode::Down, ShiftMask::Shift);
    EXPECT_EQ(Selected(), (Rows{1, 2, 3}));
    EXPECT_EQ(form.list.ListIndex, 3);
    Key(KeyCode::Up, ShiftMask::Shift);
    EXPECT_EQ(Selected(), (Rows{1, 2}));
    Key(KeyCode::End, ShiftMask::Ctrl);
    EXPECT_EQ(Selected(), (Rows{1, 2}));
    EXPECT_EQ(driver->ShownCurrent(form.list), 8);
    Key(KeyCode::Space, ShiftMask::Ctrl);
    EXPECT_EQ(Selected(), (Rows{1, 2, 8}));
    Key(KeyCode::Home);
    EXPECT_EQ(Selected(), Rows{0});
}

TEST_F(SelectionTest, TypedCharactersLookForARow) {
    Open(0);
    form.list.SetItems({"apple", "banana", "Berry one", "berry two", "cherry"});
    driver->UserTypesAhead(form.list, "b");
    driver->Settle();
    EXPECT_EQ(form.list.ListIndex, 1);
    driver->UserTypesAhead(form.list, "erry t");
    driver->Settle();
    EXPECT_EQ(form.list.ListIndex, 3);
    driver->Pass(std::chrono::milliseconds(1100));
    driver->UserTypesAhead(form.list, "bb");
    driver->Settle();
    EXPECT_EQ(form.list.ListIndex, 2);
    driver->Pass(std::chrono::milliseconds(1100));
    driver->UserTypesAhead(form.list, "x");
    driver->Settle();
    EXPECT_EQ(form.list.ListIndex, 2);
}

TEST_F(SelectionTest, TypingAheadCanBeLeftOut) {
    Open(0);
    form.list.SetItems({"zero", "-one", "+two", "three"});
    std::string typed;
    form.list.OnCharacter = [&](const std::string& character) {
        typed += character;
        return character == "-" || character == "+";
    };
    driver->UserTypesAhead(form.list, "-");
    driver->UserTypesAhead(form.list, "+");
    driver->Settle();
    EXPECT_EQ(form.list.ListIndex, -1);
    driver->UserTypesAhead(form.list, "t");
    driver->Settle();
    EXPECT_EQ(form.list.ListIndex, 3);
    EXPECT_EQ(typed, "-+t");
    driver->Pass(std::chrono::milliseconds(1100));
    form.list.TypeAhead = false;
    driver->UserTypesAhead(form.list, "z");
    driver->Settle();
    EXPECT_EQ(form.list.ListIndex, 3);
}

TEST_F(SelectionTest, TheMenuKeyIsARightPressOnTheCurrentRow) {
    Open(5, MultiSelect::Extended);
    form.list.SetSelection({1, 3});
    form.list.ListIndex = 4;
    log.clear();
    Key(KeyCode::Apps);
    EXPECT_EQ(log, (Log{"down 2 on 4", "up 2 on 4"}));
    log.clear();
    Key(KeyCode::F10, ShiftMask::Shift);
    EXPECT_EQ(log, (Log{"down 2 on 4", "up 2 on 4"}));
    EXPECT_EQ(Selected(), (Rows{1, 2}));
    form.list.Clear();
    log.clear();
    Key(KeyCode::Apps);
    EXPECT_EQ(log, (Log{"down 2 on -1", "up 2 on -1"}));
}

TEST_F(SelectionTest, AHandlerOfAPressMayTakeRowsAway) {
    Open(5, MultiSelect::Extended);
    form.list.SelectAll();
    form.list.OnMouseDown = [this](const MouseArguments&) { form.list.RemoveItems({1, 5}); };
    Press(3);
    MoveTo(4);
    Release(4);
    EXPECT_EQ(form.list.ListCount(), 1);
    EXPECT_EQ(Selected(), Rows{0});
    EXPECT_EQ(form.list.ListIndex, -1);
}

TEST_F(SelectionTest, AHandlerOfAPressMayUnloadTheForm) {
    Open(5);
    form.list.OnMouseDown = [this](const MouseArguments&) {
        app.Unload(form);
        log.emplace_back("unloaded");
    };
    driver->Soon([this] { driver->UserPressesRow(form.list, 1, MouseButton::Left, ShiftMask::None); });
    app.Run();
    EXPECT_EQ(log, (Log{"unloaded"}));
}

TEST_F(SelectionTest, TheToolTipOfAListFollowsWhatItIsTold) {
    Open(5);
    form.list.OnMouseDown = [this](const MouseArguments& mouse) {
        if (mouse.row >= 0) form.list.ToolTip = form.list.List(mouse.row);
    };
    Click(2);
    EXPECT_EQ(driver->ShownToolTip(form.list), "row 2");
    Click(4);
    EXPECT_EQ(driver->ShownToolTip(form.list), "row 4");
}

}  // namespace
}  // namespace tavrix::conformance
