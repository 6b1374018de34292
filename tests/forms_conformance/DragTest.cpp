// Controls that are dragged over others, and files that come from other programs.

#include "forms_conformance/RowsForm.h"

namespace tavrix::conformance {
namespace {

using namespace forms;
using Log = std::vector<std::string>;

class DragTest : public RowsTest {
  protected:
    DragTest() {
        form.list.OnClick = nullptr;
        form.list.OnMouseUp = nullptr;
        form.list.OnMouseDown = nullptr;
        form.list.OnDragStart = [this](const MouseArguments& mouse) {
            log.push_back("start " + std::to_string(mouse.row));
            form.list.Drag();
        };
        const auto noted = [this](const std::string& name) {
            return [this, name](const DragArguments& drag) {
                log.push_back(name + " got " + drag.source.Name() + " at " + std::to_string(drag.row));
                place = {drag.x, drag.y};
            };
        };
        form.list.OnDragDrop = noted("list");
        form.target.OnDragDrop = noted("target");
        form.picture.OnDragDrop = noted("picture");
        form.target.AddItems(Numbered(3));
    }
    void Over(Control& control, int row = -1) {
        driver->UserDragsOver(control, row);
        driver->Settle();
    }
    void LetGo() {
        driver->UserLetsGo();
        driver->Settle();
    }

    std::pair<float, float> place;
};

TEST_F(DragTest, RowsAreDraggedToTheRowOfAnotherList) {
    Open(9, MultiSelect::Extended);
    form.list.SetSelection({2, 5});
    Press(3);
    Over(form.target, 1);
    EXPECT_EQ(log, (Log{"start 3"}));
    LetGo();
    EXPECT_EQ(log, (Log{"start 3", "target got list at 1"}));
    // What was selected still is: the press became a drag.
    EXPECT_EQ(Selected(), (Rows{2, 3, 4}));
    EXPECT_EQ(form.list.ListIndex, 3);
}

TEST_F(DragTest, BelowTheLastRowIsNoRow) {
    Open(3, MultiSelect::Extended);
    Press(1);
    Over(form.target, 7);
    LetGo();
    EXPECT_EQ(log.back(), "target got list at -1");
}

TEST_F(DragTest, ADropTellsThePlaceInTwips) {
    Open(3);
    Press(0);
    Over(form.picture);
    LetGo();
    EXPECT_EQ(log.back(), "picture got list at -1");
    EXPECT_GE(place.first, 0);
    EXPECT_LE(place.first, 1500);
    EXPECT_LE(place.second, 750);
}

TEST_F(DragTest, AFrameIsDroppedOn) {
    form.frame.OnDragDrop = [this](const DragArguments& drag) {
        log.push_back("frame got " + drag.source.Name());
    };
    form.frame.OnOLEDragDrop = [this](const std::vector<std::string>& files) {
        log.push_back("frame got " + std::to_string(files.size()) + " files");
    };
    Open(3);
    Press(0);
    Over(form.frame);
    LetGo();
    EXPECT_EQ(log.back(), "frame got list");
    driver->UserDrops(form.frame, {"/pictures/a.bmp", "/pictures/b.bmp"});
    driver->Settle();
    EXPECT_EQ(log.back(), "frame got 2 files");
}

TEST_F(DragTest, RowsAreDroppedOnTheirOwnList) {
    Open(9, MultiSelect::Extended);
    Press(1);
    Over(form.list, 6);
    LetGo();
    EXPECT_EQ(log, (Log{"start 1", "list got list at 6"}));
    EXPECT_EQ(Selected(), Rows{1});
    EXPECT_EQ(form.list.ListIndex, 1);
}

TEST_F(DragTest, OtherControlsOnlyEndTheDrag) {
    Open(9, MultiSelect::Extended);
    form.button.OnClick = [this] { log.emplace_back("button clicked"); };
    form.target.Enabled = false;
    driver->Settle();
    for (Control* control :
         std::initializer_list<Control*>{&form.button, &form.label, &form.field, &form.target}) {
        log.clear();
        Press(1);
        Over(*control);
        LetGo();
        EXPECT_EQ(log, (Log{"start 1"})) << control->Name();
    }
    // It has ended indeed: what is over another control now is the pointer alone.
    Over(form.picture);
    LetGo();
    EXPECT_EQ(log, (Log{"start 1"}));
}

TEST_F(DragTest, TheFormTakesWhatIsDroppedBesideItsControls) {
    Open(9);
    Press(1);
    driver->UserDragsOver(form);
    driver->Settle();
    LetGo();
    EXPECT_EQ(log, (Log{"start 1", "form got list"}));
}

TEST_F(DragTest, EscapeGivesADragUp) {
    Open(9, MultiSelect::Extended);
    Press(1);
    Over(form.target, 1);
    driver->UserGivesUpDrag();
    driver->Settle();
    EXPECT_EQ(log, (Log{"start 1"}));
    Press(2);
    Over(form.target, 1);
    LetGo();
    EXPECT_EQ(Count(log, "target got list at 1"), 1);
}

TEST_F(DragTest, AClickIsNoDrag) {
    Open(9, MultiSelect::Extended);
    form.list.SetSelection({2, 5});
    Click(3);
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(Selected(), Rows{3});
}

TEST_F(DragTest, AMoveThatNobodyMakesADragSelects) {
    Open(9, MultiSelect::Extended);
    form.list.OnDragStart = [this](const MouseArguments&) { log.emplace_back("start"); };
    Press(1);
    MoveTo(4);
    Release(4);
    EXPECT_EQ(log, (Log{"start"}));
    EXPECT_EQ(Selected(), (Rows{1, 2, 3, 4}));
}

TEST_F(DragTest, APressMayBeginTheDragAtOnce) {
    Open(9, MultiSelect::Toggling);
    form.list.Select(4);
    form.list.OnClick = [this] { log.emplace_back("click"); };
    form.list.OnMouseUp = [this](const MouseArguments&) { log.emplace_back("up"); };
    form.list.OnMouseDown = [this](const MouseArguments& mouse) {
        if (mouse.shift == ShiftMask::Ctrl) form.list.Drag();
    };
    Press(4, ShiftMask::Ctrl);
    Over(form.target, 0);
    LetGo();
    EXPECT_EQ(log, (Log{"target got list at 0"}));
    EXPECT_EQ(Selected(), Rows{4});
    Click(5);
    EXPECT_EQ(Count(log, "up"), 1);
}

TEST_F(DragTest, APressThatBeginsADragIsNoClick) {
    Open(9, MultiSelect::Toggling);
    form.list.OnClick = [this] { log.emplace_back("click"); };
    form.list.OnMouseDown = [this](const MouseArguments&) { form.list.Drag(); };
    Press(4);
    Over(form.target, 0);
    LetGo();
    EXPECT_EQ(log, (Log{"target got list at 0"}));
    EXPECT_EQ(form.list.ListIndex, 4);
}

TEST_F(DragTest, AnEndedDragLeavesTheListAsEver) {
    Open(9, MultiSelect::Extended);
    Press(1);
    Over(form.target, 1);
    LetGo();
    form.list.OnMouseUp = [this](const MouseArguments&) { log.emplace_back("up"); };
    Click(2);
    EXPECT_EQ(Selected(), Rows{2});
    EXPECT_EQ(log.back(), "up");
}

TEST_F(DragTest, TheDropMayUnloadTheForm) {
    Open(9);
    form.target.OnDragDrop = [this](const DragArguments&) {
        app.Unload(form);
        log.emplace_back("unloaded");
    };
    Press(1);
    Over(form.target, 1);
    driver->Soon([this] { driver->UserLetsGo(); });
    app.Run();
    EXPECT_EQ(log, (Log{"start 1", "unloaded"}));
}

TEST_F(DragTest, AMarkShowsWhereTheRowsWouldGo) {
    Open(9, MultiSelect::Extended);
    form.target.ShowsInsertionMark = true;
    EXPECT_EQ(driver->ShownInsertionMark(form.target), std::nullopt);
    Press(1);
    Over(form.target, 1);
    EXPECT_EQ(driver->ShownInsertionMark(form.target), 1);
    Over(form.target, 8);
    EXPECT_EQ(driver->ShownInsertionMark(form.target), 3);
    Over(form.button);
    EXPECT_EQ(driver->ShownInsertionMark(form.target), std::nullopt);
    Over(form.target, 2);
    LetGo();
    EXPECT_EQ(driver->ShownInsertionMark(form.target), std::nullopt);
    Press(1);
    Over(form.target, 2);
    driver->UserGivesUpDrag();
    driver->Settle();
    EXPECT_EQ(driver->ShownInsertionMark(form.target), std::nullopt);
}

TEST_F(DragTest, ThereIsNoMarkWhereNothingWouldBeTaken) {
    Open(9, MultiSelect::Extended);
    form.target.ShowsInsertionMark = true;
    form.target.OnDragDrop = nullptr;
    Press(1);
    Over(form.target, 1);
    EXPECT_EQ(driver->ShownInsertionMark(form.target), std::nullopt);
    LetGo();
}

TEST_F(DragTest, FilesMarkTheirPlaceToo) {
    Open(9);
    form.target.ShowsInsertionMark = true;
    form.target.OnOLEDragDrop = [this](const std::vector<std::string>& files) { log.push_back(files.at(0)); };
    EXPECT_TRUE(driver->UserDragsFilesOver(form.target, 1));
    EXPECT_EQ(driver->ShownInsertionMark(form.target), 1);
    driver->UserDragsFilesAway(form.target);
    EXPECT_EQ(driver->ShownInsertionMark(form.target), std::nullopt);
    driver->UserDrops(form.target, {"/a b.bmp"});
    driver->Settle();
    EXPECT_EQ(log, (Log{"C:/a b.bmp"}));
    EXPECT_EQ(driver->ShownInsertionMark(form.target), std::nullopt);
}

TEST_F(DragTest, FilesAreDroppedOnAnyControl) {
    Open(9);
    for (Control* control :
         std::initializer_list<Control*>{&form.list, &form.button, &form.label, &form.field, &form.picture}) {
        log.clear();
        driver->UserDrops(*control, {"/a.bmp", "/b.bmp"});
        driver->Settle();
        EXPECT_EQ(log, (Log{"form got 2 files"})) << control->Name();
        control->OnOLEDragDrop = [this, control](const std::vector<std::string>& files) {
            log.push_back(control->Name() + " got " + std::to_string(files.size()));
        };
        log.clear();
        driver->UserDrops(*control, {"/a.bmp", "/b.bmp"});
        driver->Settle();
        EXPECT_EQ(log, (Log{control->Name() + " got 2"}));
    }
}

}  // namespace
}  // namespace tavrix::conformance
