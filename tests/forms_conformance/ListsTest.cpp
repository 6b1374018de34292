#include "base/RuntimeError.h"
#include "forms_conformance/FieldsForm.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

/// The chain of a drive, a folder and a file list.
class ListsTest : public FieldsFormTest {
  protected:
    ListsTest() {
        platform.disks.PutFile("C:\\Pictures\\b & b.bmp", "");
        platform.disks.PutFile("C:\\Pictures\\A.jpg", "");
        platform.disks.PutFile("C:\\Pictures\\notes.txt", "");
        platform.disks.PutFile("C:\\Pictures\\Sea\\wave.bmp", "");
        platform.disks.PutFile("D:\\cd.bmp", "");
        form.Drive1.OnChange = [this] {
            log.push_back("drive " + form.Drive1.Drive.Get());
            form.Dir1.Path = form.Drive1.Drive.Get();
        };
        form.Dir1.OnChange = [this] {
            log.push_back("dir " + form.Dir1.Path.Get());
            form.File1.Path = form.Dir1.Path.Get();
        };
        form.File1.OnPathChange = [this] { log.push_back("path " + form.File1.Path.Get()); };
        form.File1.OnClick = [this] { log.push_back("click " + form.File1.FileName()); };
        form.File1.OnDblClick = [this] { log.push_back("double " + form.File1.FileName()); };
        form.Dir1.OnOpenFailure = [this](const std::string& path, const RuntimeError&) {
            log.push_back("failed " + path);
        };
        form.File1.Pattern = "*.bmp;*.jpg";
        form.Dir1.Path = "C:\\Pictures";
    }
};

TEST_F(ListsTest, RowsAreShownAsTheyStand) {
    Open();
    EXPECT_EQ(driver->ShownRows(form.File1), (std::vector<std::string>{"A.jpg", "b & b.bmp"}));
    EXPECT_EQ(driver->ShownRows(form.Dir1), (std::vector<std::string>{"C:\\", "Pictures", "Sea"}));
    EXPECT_EQ(driver->ShownRows(form.Drive1), (std::vector<std::string>{"A:", "C:", "D:"}));
    EXPECT_EQ(driver->ShownCurrent(form.File1), -1);
    EXPECT_EQ(driver->ShownCurrent(form.Dir1), 1);
    EXPECT_EQ(driver->ShownCurrent(form.Drive1), 1);
}

TEST_F(ListsTest, TheUserChoosesARowWithOneClick) {
    Open();
    driver->UserChoosesRow(form.File1, 1);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"click b & b.bmp"}));
    EXPECT_EQ(form.File1.ListIndex, 1);
    EXPECT_EQ(driver->ShownCurrent(form.File1), 1);
    EXPECT_EQ(form.ActiveControl(), &form.File1);
    driver->UserChoosesRow(form.File1, 1);
    driver->Settle();
    EXPECT_EQ(Count(log, "click b & b.bmp"), 2);
}

TEST_F(ListsTest, ARightPressChoosesToo) {
    Open();
    driver->UserChoosesRow(form.File1, 1, MouseButton::Right);
    driver->Settle();
    driver->UserChoosesRow(form.File1, 1, MouseButton::Right);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"click b & b.bmp"}));
}

TEST_F(ListsTest, ADoubleClickComesBehindAClick) {
    Open();
    driver->UserDoubleClicks(form.File1, 0);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"click A.jpg", "double A.jpg"}));
}

TEST_F(ListsTest, SettingTheCurrentRowRaisesOneClickAndNoEcho) {
    Open();
    form.File1.ListIndex = 1;
    form.File1.ListIndex = 1;
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"click b & b.bmp"}));
    EXPECT_EQ(driver->ShownCurrent(form.File1), 1);
    form.File1.ListIndex = -1;
    driver->Settle();
    EXPECT_EQ(driver->ShownCurrent(form.File1), -1);
    EXPECT_EQ(log.size(), 1U);
    EXPECT_THROW(form.File1.ListIndex = 2, RuntimeError);
    EXPECT_THROW(form.File1.ListIndex = -2, RuntimeError);
}

TEST_F(ListsTest, ADriveIsChosenAndTheChainFollows) {
    Open();
    driver->UserChoosesRow(form.Drive1, 2);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"drive D:", "dir D:\\", "path D:\\"}));
    EXPECT_EQ(driver->ShownRows(form.Dir1), (std::vector<std::string>{"D:\\"}));
    EXPECT_EQ(driver->ShownRows(form.File1), (std::vector<std::string>{"cd.bmp"}));
    EXPECT_EQ(driver->ShownCurrent(form.Drive1), 2);
    log.clear();
    driver->UserChoosesRow(form.Drive1, 2);
    driver->Settle();
    EXPECT_EQ(log, std::vector<std::string>{});
}

TEST_F(ListsTest, AssigningADriveShowsIt) {
    Open();
    form.Drive1.Drive = "d:\\anything";
    form.Drive1.Drive = "D";
    EXPECT_EQ(Count(log, "drive D:"), 1);
    EXPECT_EQ(driver->ShownCurrent(form.Drive1), 2);
    EXPECT_THROW(form.Drive1.Drive = "Q:", RuntimeError);
    EXPECT_EQ(driver->ShownCurrent(form.Drive1), 2);
}

TEST_F(ListsTest, ADoubleClickOpensAFolder) {
    Open();
    driver->UserDoubleClicks(form.Dir1, 2);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"dir C:\\Pictures\\Sea", "path C:\\Pictures\\Sea"}));
    EXPECT_EQ(driver->ShownRows(form.Dir1), (std::vector<std::string>{"C:\\", "Pictures", "Sea"}));
    EXPECT_EQ(driver->ShownCurrent(form.Dir1), 2);
    EXPECT_EQ(driver->ShownRows(form.File1), (std::vector<std::string>{"wave.bmp"}));
    driver->UserDoubleClicks(form.Dir1, 0);
    driver->Settle();
    EXPECT_EQ(form.Dir1.Path, "C:\\");
}

TEST_F(ListsTest, EnterOpensTheFolderOfTheCurrentRow) {
    form.CmdOk.Default = true;
    form.CmdOk.OnClick = [this] { log.emplace_back("ok"); };
    Open();
    driver->UserChoosesRow(form.Dir1, 2);
    driver->Settle();
    driver->UserKey(form, KeyCode::Return, ShiftMask::None);
    driver->Settle();
    EXPECT_EQ(form.Dir1.Path, "C:\\Pictures\\Sea");
    EXPECT_EQ(Count(log, "ok"), 0);
}

TEST_F(ListsTest, AFolderThatCannotBeOpenedIsTold) {
    Open();
    platform.disks.Remove("C:\\Pictures\\Sea");
    driver->UserDoubleClicks(form.Dir1, 2);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"failed C:\\Pictures\\Sea"}));
    EXPECT_EQ(form.Dir1.Path, "C:\\Pictures");
    EXPECT_EQ(driver->ShownRows(form.Dir1).size(), 3U);
}

TEST_F(ListsTest, AFolderThatHasGoneGivesWayToTheOneAboveIt) {
    form.Dir1.Path = "C:\\Pictures\\Sea";
    Open();
    platform.disks.Remove("C:\\Pictures\\Sea");
    form.Dir1.Refresh();
    EXPECT_EQ(log, (std::vector<std::string>{"dir C:\\Pictures", "path C:\\Pictures"}));
    EXPECT_EQ(driver->ShownRows(form.Dir1), (std::vector<std::string>{"C:\\", "Pictures"}));
    EXPECT_EQ(driver->ShownRows(form.File1).size(), 2U);
}

TEST_F(ListsTest, ADriveThatHasGoneStillShowsWhereTheListWas) {
    form.Dir1.Path = "D:\\";
    Open();
    platform.disks.PullDisk('D');
    form.Dir1.Refresh();
    form.File1.Refresh();
    EXPECT_EQ(log, std::vector<std::string>{});
    EXPECT_EQ(driver->ShownRows(form.Dir1), (std::vector<std::string>{"D:\\"}));
    EXPECT_EQ(driver->ShownRows(form.File1), std::vector<std::string>{});
}

TEST_F(ListsTest, RefreshingTheFilesLeavesNoRowCurrent) {
    Open();
    driver->UserChoosesRow(form.File1, 0);
    driver->Settle();
    log.clear();
    platform.disks.PutFile("C:\\Pictures\\c.jpg", "");
    form.File1.Refresh();
    driver->Settle();
    EXPECT_EQ(driver->ShownRows(form.File1), (std::vector<std::string>{"A.jpg", "b & b.bmp", "c.jpg"}));
    EXPECT_EQ(driver->ShownCurrent(form.File1), -1);
    EXPECT_EQ(form.File1.ListIndex, -1);
    EXPECT_EQ(log, std::vector<std::string>{});
}

TEST_F(ListsTest, RefreshingCanKeepTheFilesThatAreCurrentAndSelected) {
    for (const char* name : {"b.bmp", "c.bmp", "d.bmp", "e.bmp"})
        platform.disks.PutFile("C:\\Toggled\\" + std::string(name), "");
    form.File1.MultiSelect = MultiSelect::Toggling;
    form.File1.Path = "C:\\Toggled";
    Open();
    const auto row = [this](const std::string& name) {
        int found = 0;
        while (form.File1.List(found) != name)
            ++found;
        return found;
    };
    const auto selected = [this] {
        std::vector<std::string> names;
        for (const int index : driver->ShownSelected(form.File1))
            names.push_back(form.File1.List(index));
        return names;
    };
    const int rows = form.File1.ListCount();
    for (const char* name : {"b.bmp", "d.bmp"}) {
        driver->UserChoosesRow(form.File1, row(name));
        driver->Settle();
    }
    log.clear();
    platform.disks.PutFile("C:\\Toggled\\a.bmp", "");
    platform.disks.Remove("C:\\Toggled\\c.bmp");
    form.File1.RefreshKeepingRows();
    driver->Settle();
    EXPECT_EQ(form.File1.ListCount(), rows);
    EXPECT_EQ(selected(), (std::vector<std::string>{"b.bmp", "d.bmp"}));
    EXPECT_EQ(form.File1.FileName(), "d.bmp");
    EXPECT_EQ(driver->ShownCurrent(form.File1), row("d.bmp"));
    platform.disks.Remove("C:\\Toggled\\d.bmp");
    form.File1.RefreshKeepingRows();
    EXPECT_EQ(selected(), (std::vector<std::string>{"b.bmp"}));
    EXPECT_EQ(form.File1.ListIndex, -1);
    EXPECT_EQ(log, std::vector<std::string>{});
    form.File1.Refresh();
    EXPECT_EQ(selected(), std::vector<std::string>{});
}

TEST_F(ListsTest, AnotherFolderLeavesNothingSelected) {
    form.File1.MultiSelect = MultiSelect::Extended;
    Open();
    form.File1.SelectAll();
    EXPECT_EQ(driver->ShownSelected(form.File1), (std::vector<int>{0, 1}));
    form.Dir1.Path = "C:\\Pictures\\Sea";
    EXPECT_EQ(form.File1.SelectedCount(), 0);
    EXPECT_EQ(driver->ShownSelected(form.File1), std::vector<int>{});
}

TEST_F(ListsTest, AFileListRefusesWhatIsNoFolder) {
    EXPECT_THROW(form.File1.Path = "C:\\Pictures\\A.jpg", RuntimeError);
    EXPECT_THROW(form.File1.Path = "C:\\Missing", RuntimeError);
    EXPECT_EQ(form.File1.Path, "C:\\Pictures");
    EXPECT_THROW(form.Dir1.Path = "C:\\Missing", RuntimeError);
    EXPECT_EQ(form.Dir1.Path, "C:\\Pictures");
}

TEST_F(ListsTest, AHandlerOfARowMayUnloadTheForm) {
    form.File1.OnClick = [this] {
        app.Unload(form);
        app.DoEvents();
        log.emplace_back("done");
    };
    Open();
    driver->Soon([this] { driver->UserDoubleClicks(form.File1, 0); });
    app.Run();
    EXPECT_EQ(log, (std::vector<std::string>{"done"}));
}

}  // namespace
}  // namespace tavrix::conformance
