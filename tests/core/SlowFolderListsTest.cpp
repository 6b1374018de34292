// The lists of a dialog, while folders are long in coming.

#include "core/FolderDialog.h"
#include "support/ErrorOfCall.h"
#include "support/SleepingDisk.h"
#include "support/WithFiles.h"

namespace tavrix::test {
namespace {

using forms::MousePointer;
using Texts = std::vector<std::string>;

constexpr int RowOfA = 0;
constexpr int RowOfC = 1;
constexpr int RowOfD = 2;
constexpr const char* Slow = "C:\\Pictures\\Slow";

/// The dialog in C:\Pictures. C:\Pictures\Slow and D:\ come after four ticks, which is as many as Tick() goes by default.
class SlowFolderListsTest : public ProgramFixture {
  protected:
    SlowFolderListsTest() {
        platform.disks.AddDrive('D', DriveType::Fixed);
        platform.disks.InsertDisk('D');
        platform.disks.PutFolder("C:\\Tavrix");
        for (const char* path :
             {"C:\\Pictures\\a.bmp", "C:\\Pictures\\Slow\\s.bmp", "C:\\Pictures\\Slow\\t.bmp",
              "C:\\Pictures\\Slow\\Sub\\u.bmp", "C:\\Pictures\\Quick\\q.bmp", "D:\\d.bmp"})
            platform.disks.PutFile(path, "x");
        platform.files.ChangeFolder("C:\\Pictures");
        disk.sleeping = Slow;
        disk.also = {"D:\\"};
        disk.waits = 5;
        sleeper.AppPath = "C:\\Tavrix\\";
    }
    ~SlowFolderListsTest() override {
        if (auto* form = app.Loaded<FolderDialog>()) app.Unload(*form);
    }

    FolderDialog& Show() {
        auto& form = app.Load<FolderDialog>(sleeper);
        form.Show();
        form.Lists.OnFolderChange = [this, &form] { moves.push_back(form.Dir1.Path); };
        form.Lists.OnContent = [this, &form] { contents.push_back(form.Lists.Pending()); };
        return form;
    }
    void Tick(int count = 5) {
        for (int i = 0; i < count; ++i) {
            toolkit.Advance(forms::Milliseconds(20));
            module.DoEvents();
        }
    }
    static Texts Files(const FolderDialog& form) {
        Texts rows;
        for (int i = 0; i < form.File1.ListCount(); ++i)
            rows.push_back(form.File1.List(i));
        return rows;
    }
    static void PickDrive(forms::DriveListBox& drives, int row) { drives.Deliver(forms::RowEvent{row}); }
    static void OpenRow(FolderDialog& form, int row) {
        form.Dir1.Deliver(forms::RowEvent{row});
        form.Dir1.Deliver(forms::DoubleClickEvent{});
    }
    static void ExpectPlace(const FolderDialog& form, const std::string& folder) {
        EXPECT_EQ(form.Drive1.Drive.Get(), folder.substr(0, 2));
        EXPECT_EQ(form.Dir1.Path.Get(), folder);
        EXPECT_EQ(form.File1.Path.Get(), folder);
    }
    void ExpectStop(const std::string& text) {
        Expect({.text = text + "\r\n\r\nPermission denied...", .icon = forms::BoxIcon::Stop});
    }

    SleepingDisk disk{platform.files, toolkit};
    Services services = test::WithFiles(platform.services, disk);
    MainModule sleeper{app, services};
    Texts moves;
    std::vector<bool> contents;
};

TEST_F(SlowFolderListsTest, AFolderThatIsOpenedComesToBothLists) {
    auto& form = Show();
    OpenRow(form, 3);  // C:\, Pictures, Quick, Slow
    ExpectPlace(form, Slow);
    EXPECT_EQ(Files(form), Texts{});
    EXPECT_EQ(form.Dir1.ListCount(), 0);
    EXPECT_TRUE(form.Lists.Pending());
    EXPECT_EQ(form.MousePointer, MousePointer::ArrowHourglass);
    EXPECT_EQ(moves, Texts{Slow});
    EXPECT_EQ(contents, std::vector{true});
    Tick();
    EXPECT_EQ(Files(form), (Texts{"s.bmp", "t.bmp"}));
    EXPECT_EQ(form.Dir1.ListCount(), 1);
    EXPECT_EQ(form.MousePointer, MousePointer::Default);
    EXPECT_EQ(moves, Texts{Slow});
    EXPECT_EQ(contents, (std::vector{true, false}));
}

TEST_F(SlowFolderListsTest, AQuickFolderIsThereAtOnce) {
    auto& form = Show();
    OpenRow(form, 2);
    EXPECT_EQ(Files(form), Texts{"q.bmp"});
    EXPECT_EQ(form.MousePointer, MousePointer::Default);
    EXPECT_EQ(contents, std::vector{false});
    EXPECT_EQ(toolkit.Now(), forms::Milliseconds(0));
}

TEST_F(SlowFolderListsTest, TheDialogIsThereBeforeTheFolderThatItBeginsIn) {
    platform.files.ChangeFolder(Slow);
    auto& form = Show();
    ExpectPlace(form, Slow);
    EXPECT_EQ(form.MousePointer, MousePointer::ArrowHourglass);
    Tick();
    EXPECT_EQ(Files(form), (Texts{"s.bmp", "t.bmp"}));
    EXPECT_EQ(form.MousePointer, MousePointer::Default);
}

TEST_F(SlowFolderListsTest, TheOneThatItBeginsInMayFailWithoutAWord) {
    platform.disks.SetUnreadable(Slow, true);
    platform.files.ChangeFolder(Slow);
    auto& form = Show();
    Tick();
    ExpectPlace(form, "C:\\Pictures");
    EXPECT_EQ(Files(form), Texts{"a.bmp"});
    EXPECT_EQ(form.MousePointer, MousePointer::Default);
    EXPECT_EQ(contents.back(), false);
}

TEST_F(SlowFolderListsTest, NothingLateFillsTheListsOfAnotherFolder) {
    auto& form = Show();
    form.Dir1.Path = Slow;
    Tick(2);
    form.Dir1.Path = "C:\\Pictures\\Quick";
    EXPECT_EQ(Files(form), Texts{"q.bmp"});
    EXPECT_EQ(form.MousePointer, MousePointer::Default);
    Tick();
    EXPECT_EQ(Files(form), Texts{"q.bmp"});
    EXPECT_EQ(form.Dir1.ListCount(), 0);
    ExpectPlace(form, "C:\\Pictures\\Quick");
}

TEST_F(SlowFolderListsTest, AFolderThatFailsLateIsToldAndTheListsAreBack) {
    auto& form = Show();
    platform.disks.SetUnreadable(Slow, true);
    OpenRow(form, 3);
    bool back = false;
    Expect({.text = "Unable to change directory to:\r\n\r\nC:\\Pictures\\Slow\r\n\r\nPermission denied...",
            .icon = forms::BoxIcon::Stop,
            .whileOpen = [&] { back = form.Dir1.Path.Get() == "C:\\Pictures"; }});
    Tick();
    EXPECT_TRUE(back);
    ExpectPlace(form, "C:\\Pictures");
    EXPECT_EQ(Files(form), Texts{"a.bmp"});
    EXPECT_EQ(form.Dir1.ListCount(), 2);
    EXPECT_EQ(form.MousePointer, MousePointer::Default);
    EXPECT_EQ(contents.back(), false);
}

TEST_F(SlowFolderListsTest, TheListsGoBackToWhereTheyWereAndNotAbove) {
    auto& form = Show();
    disk.also.insert("C:\\");
    platform.disks.SetUnreadable("C:\\", true);
    form.Dir1.Path = "C:\\Pictures\\Quick";
    OpenRow(form, 0);
    Expect({.text = "Unable to change directory to:\r\n\r\nC:\\\r\n\r\nPermission denied...",
            .icon = forms::BoxIcon::Stop});
    Tick();
    ExpectPlace(form, "C:\\Pictures\\Quick");
    EXPECT_EQ(Files(form), Texts{"q.bmp"});
}

TEST_F(SlowFolderListsTest, WhereTheyWereMayBeGoneByThen) {
    auto& form = Show();
    form.Dir1.Path = "C:\\Pictures\\Quick";
    platform.disks.SetUnreadable(Slow, true);
    form.Dir1.Path = Slow;
    platform.disks.Remove("C:\\Pictures\\Quick");
    Expect({.text = "Unable to change directory to:\r\n\r\nC:\\Pictures\\Slow\r\n\r\nPermission denied...",
            .icon = forms::BoxIcon::Stop});
    Tick();
    ExpectPlace(form, "C:\\Pictures");
    EXPECT_EQ(Files(form), Texts{"a.bmp"});
}

TEST_F(SlowFolderListsTest, ADriveThatFailsLateIsNotAvailable) {
    auto& form = Show();
    platform.disks.SetUnreadable("D:\\", true);
    PickDrive(form.Drive1, RowOfD);
    EXPECT_EQ(form.Dir1.Path.Get(), "D:\\");
    std::string drive;
    std::string folder;
    Expect({.text = "The selected drive is currently not available...", .whileOpen = [&] {
                drive = form.Drive1.Drive;
                folder = form.Dir1.Path;
            }});
    Tick();
    EXPECT_EQ(drive, "D:") << "as with a drive that fails at once";
    EXPECT_EQ(folder, "C:\\Pictures");
    ExpectPlace(form, "C:\\Pictures");
    EXPECT_EQ(Files(form), Texts{"a.bmp"});
}

TEST_F(SlowFolderListsTest, ADriveThatFailsLateMaySendTheListsToTheProgramsFolder) {
    auto& form = Show();
    platform.disks.SetUnreadable("D:\\", true);
    PickDrive(form.Drive2, RowOfD);
    EXPECT_FALSE(sleeper.Busy());
    EXPECT_EQ(form.MousePointer, MousePointer::ArrowHourglass);
    Expect({.text = "The selected drive is currently not available...", .icon = forms::BoxIcon::Exclamation});
    Tick();
    EXPECT_EQ(form.Drive2.Drive.Get(), "C:");
    EXPECT_EQ(form.Dir2.Path.Get(), "C:\\Tavrix");
    ExpectPlace(form, "C:\\Pictures");
    EXPECT_EQ(form.MousePointer, MousePointer::Default);
}

TEST_F(SlowFolderListsTest, ADriveThatComesIsStayedOn) {
    auto& form = Show();
    PickDrive(form.Drive1, RowOfD);
    Tick();
    ExpectPlace(form, "D:\\");
    EXPECT_EQ(Files(form), Texts{"d.bmp"});
    PickDrive(form.Drive1, RowOfC);
    ExpectPlace(form, "C:\\Pictures");
    ExpectPlace(form, "C:\\Pictures");
    Expect({.text = "The selected drive is currently not available..."});
    PickDrive(form.Drive1, RowOfA);
    ExpectPlace(form, "C:\\Pictures");
}

TEST_F(SlowFolderListsTest, ASlowDriveIsPassedOnTheWay) {
    platform.disks.PutFile("D:\\Photos\\p.bmp", "x");
    auto& form = Show();
    form.Lists.GoTo("D:\\Photos");
    ExpectPlace(form, "D:\\Photos");
    EXPECT_EQ(Files(form), Texts{"p.bmp"});
    EXPECT_EQ(form.MousePointer, MousePointer::Default);
    Tick();
    ExpectPlace(form, "D:\\Photos");
}

TEST_F(SlowFolderListsTest, WhoSentTheListsIsToldLate) {
    auto& form = Show();
    platform.disks.SetUnreadable("D:\\", true);
    std::vector<int> told;
    form.Lists.GoTo("D:\\", [&](const RuntimeError& error) {
        EXPECT_EQ(form.Dir1.Path.Get(), "C:\\Pictures");
        told.push_back(static_cast<int>(error.Number()));
    });
    // The drive's root is its current folder: that much of the way is a change of drive.
    Expect({.text = "The selected drive is currently not available..."});
    Tick();
    EXPECT_EQ(told, std::vector<int>{});
    ExpectPlace(form, "C:\\Pictures");

    platform.disks.SetUnreadable(Slow, true);
    form.Lists.GoTo(Slow, [&](const RuntimeError& error) {
        EXPECT_EQ(form.Dir1.Path.Get(), "C:\\Pictures");
        told.push_back(static_cast<int>(error.Number()));
    });
    Tick();
    EXPECT_EQ(told, std::vector<int>{70});
    form.Lists.GoTo(Slow);  // nobody wants to know
    Tick();
    ExpectPlace(form, "C:\\Pictures");
    EXPECT_EQ(ErrorOfCall([&] { form.Lists.GoTo("C:\\none", [&](const auto&) { told.push_back(0); }); }), 76);
    Tick();
    EXPECT_EQ(told, std::vector<int>{70});
}

TEST_F(SlowFolderListsTest, TheDriveListIsBackTooWhereItsDriveNeverCame) {
    platform.disks.PutFolder("D:\\Photos");
    platform.disks.SetUnreadable("D:\\Photos", true);
    disk.also.insert("D:\\Photos");
    auto& form = Show();
    form.Lists.GoTo("D:\\Photos");
    EXPECT_EQ(form.Drive1.Drive.Get(), "D:");
    Tick();
    ExpectPlace(form, "C:\\Pictures");
    EXPECT_EQ(Files(form), Texts{"a.bmp"});
}

TEST_F(SlowFolderListsTest, TheOneAboveMayFailLateAndWithoutAWordToo) {
    disk.also.insert("C:\\Pictures");
    platform.disks.SetUnreadable(Slow, true);
    platform.files.ChangeFolder(Slow);
    auto& form = Show();
    platform.disks.SetUnreadable("C:\\Pictures", true);
    Tick(10);
    ExpectPlace(form, "C:\\");
}

TEST_F(SlowFolderListsTest, ADriveThatGoesLeavesTheListsWhereTheyWere) {
    auto& form = Show();
    form.Dir1.Path = "D:\\";
    Tick();
    platform.disks.RemoveDrive('D');
    form.File1.Refresh();
    static_cast<void>(form.File1.ListCount());
    EXPECT_EQ(contents.back(), true);
    Tick();
    EXPECT_EQ(form.Dir1.Path.Get(), "D:\\");
    EXPECT_EQ(Files(form), Texts{});
    EXPECT_EQ(contents.back(), false);
    EXPECT_EQ(form.MousePointer, MousePointer::Default);
}

TEST_F(SlowFolderListsTest, AFailureAtOnceDoesNotSpeakForTheAwaitedFolder) {
    auto& form = Show();
    platform.disks.SetUnreadable(Slow, true);
    OpenRow(form, 3);
    EXPECT_EQ(ErrorOfCall([&] { form.Lists.GoTo("C:\\none"); }), 76);
    Expect({.text = "Unable to change directory to:\r\n\r\nC:\\Pictures\\Slow\r\n\r\nPermission denied...",
            .icon = forms::BoxIcon::Stop});
    Tick();
    ExpectPlace(form, "C:\\Pictures");
}

TEST_F(SlowFolderListsTest, ThePointerWaitsForBothSides) {
    auto& form = Show();
    disk.waits = 20;
    form.Dir1.Path = Slow;
    disk.waits = 40;
    form.Dir2.Path = Slow;
    while (form.Lists.Pending())
        Tick(1);
    EXPECT_TRUE(form.Lists2.Pending());
    EXPECT_EQ(form.MousePointer, MousePointer::ArrowHourglass);
    while (form.Lists2.Pending())
        Tick(1);
    EXPECT_EQ(form.MousePointer, MousePointer::Default);
    EXPECT_EQ(form.Dir2.ListCount(), 1);
}

TEST_F(SlowFolderListsTest, AListThatIsReadAgainKeepsItsRowsUntilTheyHaveCome) {
    auto& form = Show();
    form.File1.MultiSelect = forms::MultiSelect::Extended;
    form.Dir1.Path = Slow;
    Tick();
    form.File1.ListIndex = 1;
    form.File1.Select(1);
    platform.disks.PutFile("C:\\Pictures\\Slow\\a.bmp", "x");
    form.Lists.RefreshFiles();
    EXPECT_TRUE(form.Lists.Pending());
    EXPECT_EQ(Files(form), (Texts{"s.bmp", "t.bmp"}));
    EXPECT_EQ(form.File1.FileName(), "t.bmp");
    Tick();
    EXPECT_EQ(Files(form), (Texts{"a.bmp", "s.bmp", "t.bmp"}));
    EXPECT_EQ(form.File1.FileName(), "t.bmp");
    EXPECT_TRUE(form.File1.Selected(2));
    EXPECT_EQ(form.File1.SelectedCount(), 1);
    // One that is read afresh is not meant.
    form.File1.Refresh();
    EXPECT_EQ(Files(form), Texts{});
    Tick();
    EXPECT_EQ(form.File1.ListIndex, -1);
}

TEST_F(SlowFolderListsTest, WhoHasGoneOnInTheFolderListStaysThere) {
    auto& form = Show();
    form.Dir1.Path = Slow;
    Tick();
    form.Lists.RefreshFiles();
    form.Dir1.Deliver(forms::RowEvent{3});  // C:\, Pictures, Slow, Sub
    Tick();
    EXPECT_EQ(form.Dir1.ListIndex, 3);
    EXPECT_EQ(form.Dir1.ListCount(), 1);
    // One whose folders have yet to come is no such list.
    form.Dir1.Path = "C:\\Pictures";
    form.Dir1.Path = Slow;
    form.Lists.RefreshFiles();
    Tick();
    EXPECT_EQ(form.Dir1.ListCount(), 1);
    EXPECT_EQ(Files(form).size(), 2U);
}

TEST_F(SlowFolderListsTest, AnotherFolderDoesNotKeepThoseRows) {
    auto& form = Show();
    form.Dir1.Path = Slow;
    Tick();
    form.File1.ListIndex = 0;
    form.Lists.RefreshFiles();
    platform.disks.PutFile("C:\\Pictures\\Slow\\Sub\\s.bmp", "x");
    disk.also.insert("C:\\Pictures\\Slow\\Sub");
    form.Dir1.Path = "C:\\Pictures\\Slow\\Sub";
    EXPECT_EQ(Files(form), Texts{});
    Tick();
    EXPECT_EQ(Files(form), (Texts{"s.bmp", "u.bmp"}));
    EXPECT_EQ(form.File1.ListIndex, -1);
}

TEST_F(SlowFolderListsTest, AWorkLearnsWhetherTheListsAreStillThere) {
    auto& form = Show();
    EXPECT_TRUE(form.Lists.Wait());
    form.Dir1.Path = Slow;
    EXPECT_TRUE(form.Lists.Wait());
    EXPECT_EQ(Files(form).size(), 2U);
    form.File1.Refresh();
    static_cast<void>(form.File1.ListCount());
    toolkit.Post([&] { form.Dir1.Path = "C:\\Pictures"; });
    EXPECT_FALSE(form.Lists.Wait());
}

TEST_F(SlowFolderListsTest, TheFavoriteFolderFailsLateInItsOwnWords) {
    auto& form = Show();
    platform.disks.SetUnreadable(Slow, true);
    sleeper.config.FavoriteFolder = Slow;
    form.CmdFF.Deliver(forms::ClickEvent{});
    EXPECT_EQ(form.Dir1.Path.Get(), Slow);
    ExpectStop("Unable to change directory to your Favorite Folder.");
    Tick();
    ExpectPlace(form, "C:\\Pictures");
}

TEST_F(SlowFolderListsTest, ANewFolderMayComeLate) {
    auto& form = Show();
    disk.also.insert("C:\\Pictures\\New");
    toolkit.ExpectInput(
        {.prompt = "Enter the name of the folder to create:", .title = "New Folder", .reply = "New"});
    form.CmdNew.Deliver(forms::ClickEvent{});
    EXPECT_EQ(form.Dir1.Path.Get(), "C:\\Pictures\\New");
    EXPECT_FALSE(sleeper.Busy());
    Tick();
    ExpectPlace(form, "C:\\Pictures\\New");
    EXPECT_EQ(form.MousePointer, MousePointer::Default);
}

TEST_F(SlowFolderListsTest, ANewFolderThatFailsLateIsToldInItsOwnWords) {
    auto& form = Show();
    disk.also.insert("C:\\Pictures\\New");
    toolkit.ExpectInput(
        {.prompt = "Enter the name of the folder to create:", .title = "New Folder", .reply = "New"});
    platform.faults.FailAlways(headless::Service::Files, "Look", ErrorNumber::PermissionDenied);
    form.CmdNew.Deliver(forms::ClickEvent{});
    platform.faults.Clear();
    ExpectStop("Unable to create folder.");
    Tick();
    ExpectPlace(form, "C:\\Pictures");
}

TEST_F(SlowFolderListsTest, WhoDoesSomethingElseDoesNotWaitAnyMore) {
    auto& form = Show();
    int done = 0;
    sleeper.config.FavoriteFolder = "C:\\gone";
    const auto await = [&] {
        form.Dir1.Path = "C:\\Pictures";
        form.Dir1.Path = Slow;
        return form.Lists.Awaits([&done] { ++done; });
    };
    EXPECT_TRUE(await());
    Expect({.text = "Unable to change directory to your Favorite Folder.\r\n\r\nPath not found...",
            .icon = forms::BoxIcon::Stop,
            .whileOpen = [this] { Tick(10); }});
    form.CmdFF.Deliver(forms::ClickEvent{});
    EXPECT_TRUE(await());
    toolkit.ChooseFromPopup("");
    form.CmdFF.Deliver(forms::MouseEvent{forms::MouseAction::Down, forms::MouseButton::Right, 0, 1, 1});
    Tick(10);
    EXPECT_EQ(done, 0);
    EXPECT_TRUE(await());
    toolkit.ExpectInput(
        {.prompt = "Enter the name of the folder to create:", .title = "New Folder", .reply = std::nullopt});
    form.CmdNew.Deliver(forms::ClickEvent{});
    Tick(10);
    EXPECT_TRUE(await());
    Expect({.text = "The selected drive is currently not available...", .whileOpen = [this] { Tick(10); }});
    PickDrive(form.Drive1, RowOfA);
    Tick(10);
    EXPECT_EQ(done, 0);
    EXPECT_TRUE(await());
    Tick(10);
    EXPECT_EQ(done, 1);
}

TEST_F(SlowFolderListsTest, AFileListThatCouldNotFollowIsReadByItself) {
    auto& form = Show();
    disk.also.insert("C:\\Pictures");
    platform.faults.FailAlways(headless::Service::Files, "Info", ErrorNumber::PathNotFound);
    form.Dir1.Path = Slow;
    EXPECT_EQ(form.File1.Path.Get(), "C:\\Pictures");
    Tick();
    EXPECT_EQ(form.Dir1.ListCount(), 1);
    EXPECT_EQ(Files(form), Texts{"a.bmp"}) << "as it was";
    form.File1.Refresh();
    EXPECT_EQ(Files(form), Texts{});
    Tick();
    EXPECT_EQ(Files(form), Texts{"a.bmp"});
    EXPECT_EQ(form.Dir1.ListCount(), 1);
    Tick();
    EXPECT_FALSE(form.Lists.Pending()) << "the two do not take turns";
    form.Lists.RefreshFiles();
    Tick();
    EXPECT_EQ(Files(form), Texts{"a.bmp"});
}

TEST_F(SlowFolderListsTest, ADialogThatIsClosedWhenItsFolderComesForgetsTheRest) {
    auto& form = Show();
    const forms::Form::HandlerScope scope(form);
    form.Lists.OnContent = [&] {
        if (!form.Lists.Pending()) app.Unload(form);
    };
    form.Dir1.Path = Slow;
    static_cast<void>(form.Lists.Awaits([] { ADD_FAILURE() << "done all the same"; }));
    Tick(10);
    EXPECT_TRUE(form.Unloaded());
}

TEST_F(SlowFolderListsTest, AClosedDialogTellsOfNoFolder) {
    auto& form = Show();
    const forms::Form::HandlerScope scope(form);
    platform.disks.SetUnreadable(Slow, true);
    OpenRow(form, 3);
    app.Unload(form);
    Tick(10);
}

TEST_F(SlowFolderListsTest, AClosedDialogForgetsItsFolder) {
    auto& form = Show();
    form.Dir1.Path = Slow;
    static_cast<void>(form.Lists.Awaits([] { ADD_FAILURE() << "done all the same"; }));
    app.Unload(form);
    Tick(10);
}

}  // namespace
}  // namespace tavrix::test
