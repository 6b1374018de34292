#include "lists/FavoriteFiles.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/HelpContexts.h"
#include "editing/Accelerators.h"
#include "lists/frmFavorites.h"
#include "shows/library/SaveSlideFile.h"
#include "shows/stage/FullViewFrm.h"
#include "support/FaultSweep.h"
#include "viewer/OneProcess.h"
#include "viewer/ViewerTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::BoxButtons;
using forms::BoxIcon;
using headless::Service;
using Texts = std::vector<std::string>;

constexpr const char* NothingToView =
    "You don't have any files in your favorites list.\r\n\r\n"
    "Nothing to view, add files to your favorite files list and then try again...";
constexpr const char* NothingToSave =
    "You don't have any files in your favorites list.\r\n\r\n"
    "Nothing to save, add files to your favorite files list and then try again...";
constexpr const char* WorkingPath = "C:\\Temp\\Untitled.BMP";

/// A main view whose favorite files are set as tests want them.
class FavoriteFilesTest : public ViewerTest {
  protected:
    static std::string PathOf(int number) { return "C:\\f\\" + std::to_string(number) + ".bmp"; }

    /// Starts with these favorite files; an empty text is a free slot.
    void StartWith(const Texts& files, const std::string& commandLine = "") {
        for (std::size_t i = 0; i < files.size(); ++i)
            Setting("FavoriteFile" + std::to_string(i + 1), files[i]);
        ASSERT_TRUE(Start(commandLine));
    }
    [[nodiscard]] Texts Slots(std::size_t count) const {
        const auto begin = module.config.FavoriteFiles.begin();
        return {begin, begin + static_cast<std::ptrdiff_t>(count)};
    }
    /// The captions of the menu's visible entries.
    [[nodiscard]] Texts InMenu() {
        Texts captions;
        for (int i = 0; i < 20; ++i) {
            const forms::Menu& entry = View().menu.mnuFavoritesList[i];
            if (entry.Visible) captions.push_back(entry.Caption);
        }
        return captions;
    }
    void Open(int slot) { EXPECT_FALSE(Choose(View().menu.mnuFavoritesList[slot])); }
    void ExpectFailure(const std::string& path, const std::string& why) {
        Expect({.text = "Unable to open file from your favorites list:\r\n\r\n" + path + "\r\n\r\n" + why,
                .icon = BoxIcon::Stop});
    }
    void ExpectDiscard(Answer reply) {
        Expect({.text = "The current file has not been saved.\r\n\r\nDiscard changes and continue?",
                .icon = BoxIcon::Question,
                .buttons = BoxButtons::YesNo,
                .reply = reply});
    }
    void ExpectClear(Answer reply) {
        Expect({.text = "Remove all of the images from your favorite files list?",
                .icon = BoxIcon::Question,
                .buttons = BoxButtons::YesNo,
                .reply = reply,
                .title = "Tavrix - [Clear Favorite Files List]"});
    }
    static headless::ExpectedBox InsertDisk(Answer reply) {
        return {.text =
                    "Insert the disk that contains the file:\r\n\r\nSub\\z.bmp\r\n\r\n"
                    "...into Floppy Drive A:\\\r\n\r\nPress the \"OK\" button to continue.",
                .buttons = BoxButtons::OkCancel,
                .reply = reply};
    }
    [[nodiscard]] FullViewFrm* Stage() const { return app.Loaded<FullViewFrm>(); }
};

TEST_F(FavoriteFilesTest, TheImageOnShowIsAdded) {
    PutPicture(ImagePath, 10, 10);
    StartWith({}, ImagePath);
    EXPECT_EQ(InMenu(), Texts{});
    EXPECT_FALSE(View().menu.mnuFavoritesRemove.Enabled);
    EXPECT_FALSE(Choose(View().menu.mnuFavoritesAdd));
    EXPECT_EQ(Slots(2), (Texts{ImagePath, ""}));
    EXPECT_EQ(InMenu(), (Texts{ImagePath}));
    EXPECT_TRUE(View().menu.mnuFavoritesRemove.Enabled);
}

TEST_F(FavoriteFilesTest, AnAmpersandInANameIsShown) {
    StartWith({"C:\\f\\you & me.bmp"});
    EXPECT_TRUE(View().menu.mnuFavoritesList[0].Literal);
}

TEST_F(FavoriteFilesTest, AFileIsListedOnceWhateverItsCase) {
    PutPicture(ImagePath, 10, 10);
    StartWith({PathOf(1), "c:\\P\\X.JPG"}, ImagePath);
    Expect({.text = "This file is already in your favorites list..."});
    EXPECT_FALSE(Choose(View().menu.mnuFavoritesAdd));
    EXPECT_EQ(Slots(3), (Texts{PathOf(1), "c:\\P\\X.JPG", ""}));
}

TEST_F(FavoriteFilesTest, AFullListTakesNoMore) {
    Texts full;
    for (int i = 1; i <= 20; ++i)
        full.push_back(PathOf(i));
    PutPicture(ImagePath, 10, 10);
    StartWith(full, ImagePath);
    Expect({.text = "Your favorites list is full, only 20 items may be added at one time.\r\n\r\n"
                    "Remove an item or clear the list and try again..."});
    EXPECT_FALSE(Choose(View().menu.mnuFavoritesAdd));
    EXPECT_EQ(Slots(20), full);
    EXPECT_EQ(InMenu(), full);
}

TEST_F(FavoriteFilesTest, TheWorkingFileIsNotAdded) {
    PutPicture(ImagePath, 10, 10);
    StartWith({}, ImagePath);
    for (const std::string& path : {std::string(WorkingPath), module.AppPath + "Untitled.BMP"}) {
        module.CurrentImage = path;
        Expect({.text = "You may not add " + path + " (a temporary image) to your favorites list...",
                .title = "Tavrix - [Add To Favorite Files List]",
                .help = true,
                .helpContext = HelpContext::FavoriteFiles});
        EXPECT_FALSE(Choose(View().menu.mnuFavoritesAdd));
        EXPECT_EQ(Slots(1), Texts{""});
    }
}

TEST_F(FavoriteFilesTest, AnotherFileTakesTheSlotOfOneThatWasRemoved) {
    PutPicture(ImagePath, 10, 10);
    StartWith({PathOf(1), PathOf(2), PathOf(3)}, ImagePath);
    toolkit.OnModal("frmFavorites", [this] {
        auto& dialog = *app.Loaded<frmFavorites>();
        dialog.ListRemove.Select(1);
        Expect({.text = "Remove the selected file(s) from your favorites list?",
                .icon = BoxIcon::Question,
                .buttons = BoxButtons::YesNo,
                .reply = Answer::Yes});
        dialog.CmdRemove.Deliver(forms::ClickEvent{});
    });
    EXPECT_FALSE(Choose(View().menu.mnuFavoritesRemove));
    EXPECT_EQ(app.Loaded<frmFavorites>(), nullptr);
    EXPECT_EQ(InMenu(), (Texts{PathOf(1), PathOf(3)}));
    EXPECT_EQ(Slots(4), (Texts{PathOf(1), "", PathOf(3), ""}));
    EXPECT_FALSE(Choose(View().menu.mnuFavoritesAdd));
    EXPECT_EQ(InMenu(), (Texts{PathOf(1), ImagePath, PathOf(3)}));
}

TEST_F(FavoriteFilesTest, ClearAsksFirst) {
    StartWith({PathOf(1), "", PathOf(3)});
    ExpectClear(Answer::No);
    EXPECT_FALSE(Choose(View().menu.mnuFavoritesClear));
    EXPECT_EQ(Slots(3), (Texts{PathOf(1), "", PathOf(3)}));
    ExpectClear(Answer::Yes);
    EXPECT_FALSE(Choose(View().menu.mnuFavoritesClear));
    EXPECT_EQ(Slots(3), (Texts{"", "", ""}));
    EXPECT_EQ(InMenu(), Texts{});
    EXPECT_FALSE(View().menu.mnuFavoritesLine1.Visible);
    EXPECT_FALSE(View().menu.mnuFavoritesRemove.Enabled);
}

TEST_F(FavoriteFilesTest, EachEntryOpensTheFileOfItsSlot) {
    Texts files(20);
    for (const int slot : {0, 7, 19}) {
        files[static_cast<std::size_t>(slot)] = PathOf(slot);
        PutPicture(PathOf(slot), 10 + slot, 10);
    }
    StartWith(files);
    const auto recent = module.config.Recent;
    for (const int slot : {7, 19, 0}) {
        Open(slot);
        EXPECT_EQ(module.CurrentImage, PathOf(slot));
        EXPECT_EQ(View().Caption.Get(), "Tavrix - [" + PathOf(slot) + "]");
        EXPECT_FLOAT_EQ(View().MainImage.Width, 15.0F * static_cast<float>(10 + slot));
        EXPECT_TRUE(View().menu.mnuEdit.Visible);
        EXPECT_EQ(platform.shell.recent.back(), PathOf(slot)) << "the desktop is told";
        ExpectIdle();
    }
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\f");
    EXPECT_EQ(module.config.Recent, recent) << "and nobody else";
    EXPECT_EQ(platform.shell.recent.size(), 3U);
}

TEST_F(FavoriteFilesTest, TheDesktopIsNotToldWhereItShallNotBe) {
    Setting("UseRecentDocuments", "False");
    PutPicture(PathOf(1), 10, 10);
    StartWith({PathOf(1)});
    Open(0);
    EXPECT_EQ(module.CurrentImage, PathOf(1));
    EXPECT_EQ(platform.shell.recent, Texts{});
}

TEST_F(FavoriteFilesTest, AFailureLeavesTheEmptyViewAndTheSlot) {
    PutPicture(ImagePath, 300, 300);
    StartWith({PathOf(1)}, ImagePath);
    ExpectFailure(PathOf(1), "Path not found...");
    Open(0);
    ExpectEmptyView();
    ExpectIdle();
    EXPECT_EQ(Slots(1), Texts{PathOf(1)});
}

TEST_F(FavoriteFilesTest, AnUnsavedImageIsAskedAbout) {
    PutPicture(PathOf(1), 10, 10);
    StartWith({PathOf(1)});
    PutPicture(WorkingPath, 60, 50);
    module.CurrentImage = WorkingPath;
    ExpectDiscard(Answer::No);
    Open(0);
    EXPECT_EQ(module.CurrentImage, WorkingPath);
    EXPECT_EQ(platform.faults.Calls(Service::Pictures), 0);
    ExpectIdle();
    ExpectDiscard(Answer::Yes);
    Open(0);
    EXPECT_EQ(module.CurrentImage, PathOf(1));
}

TEST_F(FavoriteFilesTest, AFloppyIsAskedForEvenIfTheDiskIsThere) {
    platform.disks.InsertDisk('A');
    PutPicture("A:\\Sub\\z.bmp", 70, 50);
    Setting("TopMostWindow", "True");
    StartWith({"a:\\Sub\\z.bmp"});
    platform.faults.Clear();
    bool topmost = true;
    headless::ExpectedBox box = InsertDisk(Answer::Cancel);
    box.whileOpen = [&] { topmost = Window().topmost; };
    Expect(box);
    Open(0);
    EXPECT_EQ(module.CurrentImage, "");
    EXPECT_EQ(platform.faults.Calls(Service::Pictures), 0);
    EXPECT_FALSE(topmost);
    EXPECT_TRUE(Window().topmost);
    Expect(InsertDisk(Answer::Ok));
    Open(0);
    EXPECT_EQ(module.CurrentImage, "a:\\Sub\\z.bmp");
}

TEST_F(FavoriteFilesTest, TheFullScreenViewFollowsWhereItIsWanted) {
    Setting("ViewFullScreen", "True");
    PutPicture(PathOf(1), 20, 20);
    StartWith({PathOf(1)});
    Count(View().menu.mnuFullScreen);
    Open(0);
    EXPECT_EQ(Runs(View().menu.mnuFullScreen), 1);
}

TEST_F(FavoriteFilesTest, ABusyProgramDoesNothing) {
    PutPicture(ImagePath, 10, 10);
    StartWith({PathOf(1)}, ImagePath);
    {
        const forms::BusyGuard busy(module.Screen());
        EXPECT_FALSE(Choose(View().menu.mnuFavoritesAdd));
        EXPECT_FALSE(Choose(View().menu.mnuFavoritesRemove));
        EXPECT_FALSE(Choose(View().menu.mnuFavoritesClear));
        EXPECT_FALSE(Press(forms::KeyCode::Digit0 + 1, forms::ShiftMask::Shift));
        EXPECT_FALSE(Press(forms::KeyCode::Digit0 + 2, forms::ShiftMask::Shift));
        Open(0);
    }
    EXPECT_EQ(Slots(2), (Texts{PathOf(1), ""}));
    EXPECT_EQ(module.CurrentImage, ImagePath);
    EXPECT_EQ(app.FormCount(), 1);
    EXPECT_TRUE(module.show.Empty());
}

TEST_F(FavoriteFilesTest, WithoutFavoritesThereIsNoShow) {
    StartWith({});
    const Texts slides{"C:\\s\\1.bmp"};
    module.show.InsertSlides(0, slides);
    Expect({.text = NothingToView});
    EXPECT_FALSE(Choose(View().menu.mnuViewFavorites));
    Expect({.text = NothingToSave});
    EXPECT_FALSE(Choose(View().menu.mnuSaveFavoritesAsShow));
    EXPECT_EQ(module.show.Count(), 1) << "what was there";
    EXPECT_FALSE(module.SlideShowActive);
    EXPECT_EQ(app.FormCount(), 1);
}

TEST_F(FavoriteFilesTest, TheyArePlayedAsAShowWithoutTheGaps) {
    Setting("TopMostWindow", "True");
    PutPicture(PathOf(1), 20, 20);
    PutPicture(PathOf(2), 20, 20);
    StartWith({"", PathOf(1), "", PathOf(2)});
    const Texts slides{"C:\\s\\1.bmp", "C:\\s\\2.bmp", "C:\\s\\3.bmp"};
    module.show.InsertSlides(0, slides);
    module.show.SlideDescriptions.Set(0, "of another one");
    EXPECT_FALSE(Press(forms::KeyCode::Digit0 + 1, forms::ShiftMask::Shift));
    ASSERT_NE(Stage(), nullptr);
    EXPECT_EQ(module.show.SlideFiles[0], PathOf(1));
    EXPECT_EQ(module.show.SlideFiles[1], PathOf(2));
    EXPECT_EQ(module.show.Count(), 2);
    EXPECT_EQ(module.show.SlideDescriptions[0], "");
    EXPECT_TRUE(module.SlideShowActive);
    EXPECT_TRUE(module.StartedAsShow);
    EXPECT_FALSE(Window().topmost) << "it would stand above the stage";
    EXPECT_FALSE(Ends([this] { app.Unload(*Stage()); }));
    EXPECT_FALSE(module.StartedAsShow);
    EXPECT_TRUE(Window().topmost);
    ExpectIdle();
}

TEST_F(FavoriteFilesTest, TheStageThatIsThereEndsFirst) {
    PutPicture(PathOf(1), 20, 20);
    StartWith({PathOf(1)});
    EXPECT_FALSE(Choose(View().menu.mnuViewFavorites));
    ASSERT_NE(Stage(), nullptr);
    EXPECT_FALSE(Choose(View().menu.mnuViewFavorites));
    ASSERT_NE(Stage(), nullptr);
    EXPECT_EQ(app.FormCount(), 2);
    EXPECT_TRUE(module.StartedAsShow);
}

class SavedFavoritesTest : public FavoriteFilesTest {
  protected:
    /// Chooses the command; the user saves in the dialog, with copies of the images.
    void Save(const std::function<void()>& inDialog) {
        toolkit.OnModal("SaveSlideFile", [this, inDialog] {
            EXPECT_TRUE(module.show.SaveFromArrays);
            inDialog();
            if (auto* dialog = app.Loaded<SaveSlideFile>()) app.Unload(*dialog);
        });
        EXPECT_FALSE(Press(forms::KeyCode::Digit0 + 2, forms::ShiftMask::Shift));
        EXPECT_FALSE(module.show.SaveFromArrays);
        ExpectIdle();
    }
    SaveSlideFile& Dialog() { return *app.Loaded<SaveSlideFile>(); }
    void ExpectQuestion(const std::string& text, Answer reply) {
        Expect({.text = text, .icon = BoxIcon::Question, .buttons = BoxButtons::YesNo, .reply = reply});
    }
};

TEST_F(SavedFavoritesTest, TheyAreSavedAsAShow) {
    platform.disks.PutFolder("C:\\Tavrix\\SLIDES");
    Setting("TopMostWindow", "True");
    StartWith({"", PathOf(1), "", PathOf(2)});
    Save([this] {
        EXPECT_FALSE(Window().topmost);
        EXPECT_EQ(module.show.SlideCount, 2);
        EXPECT_EQ(Dialog().txtFilename.Text.Get(), "Untitled.tvs");
        EXPECT_EQ(Dialog().Chooser.Dir1.Path.Get(), "C:\\Tavrix\\SLIDES");
        ExpectQuestion(
            "About to save the slide show as:\r\n\r\nC:\\Tavrix\\SLIDES\\Untitled.tvs\r\n\r\n"
            "Is this filename OK?",
            Answer::Yes);
        Dialog().CmdOK.Deliver(forms::ClickEvent{});
    });
    EXPECT_TRUE(Window().topmost);
    const std::string saved = platform.disks.Content("C:\\Tavrix\\SLIDES\\Untitled.tvs").value_or("");
    EXPECT_NE(saved.find(PathOf(1)), std::string::npos);
    EXPECT_NE(saved.find(PathOf(2)), std::string::npos);
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(SavedFavoritesTest, FilesOfOneNameDoNotReplaceEachOtherOrOthers) {
    platform.disks.PutFile("C:\\a\\x.bmp", "the first");
    platform.disks.PutFile("C:\\b\\X.BMP", "the second");
    platform.disks.PutFile("C:\\Tavrix\\SLIDES\\x.bmp", "was here");
    StartWith({"C:\\a\\x.bmp", "C:\\b\\X.BMP"});
    module.config.SaveSlides = true;
    Save([this] {
        ExpectQuestion(
            "About to save the slide show as:\r\n\r\nC:\\Tavrix\\SLIDES\\Untitled.tvs\r\n\r\n"
            "Is this filename OK?",
            Answer::Yes);
        ExpectQuestion("Save a copy of all images in the slide show directory?", Answer::Yes);
        Dialog().CmdOK.Deliver(forms::ClickEvent{});
    });
    int copies = 0;
    bool wasHere = std::ranges::any_of(platform.shell.trash,
                                       [](const auto& file) { return file.content == "was here"; });
    for (const auto& [path, content] : platform.disks.AllFiles()) {
        if (!path.starts_with("C:\\Tavrix\\SLIDES\\")) continue;
        if (content == "the first" || content == "the second") ++copies;
        if (content == "was here") wasHere = true;
    }
    EXPECT_EQ(copies, 2);
    EXPECT_TRUE(wasHere);
    EXPECT_EQ(platform.disks.Content("C:\\a\\x.bmp"), "the first");
}

TEST_F(SavedFavoritesTest, ADriveThatIsNotReadyIsPassedOver) {
    StartWith({PathOf(1)});
    platform.disks.InsertDisk('A');
    platform.files.ChangeDrive("A");
    platform.disks.PullDisk('A');
    bool shown = false;
    platform.faults.Clear();
    Save([&] { shown = true; });
    EXPECT_TRUE(shown);
    EXPECT_EQ(std::ranges::count(platform.faults.Log(), "Files.Look A:\\ *"), 1);
}

class frmFavoritesTest : public FavoriteFilesTest {
  protected:
    void Show(std::function<void(frmFavorites&)> user) {
        int shown = 0;
        toolkit.OnModal("frmFavorites", [&, this] {
            ++shown;
            EXPECT_FALSE(module.Busy());
            user(*app.Loaded<frmFavorites>());
            if (auto* dialog = app.Loaded<frmFavorites>()) dialog->CmdCancel.Deliver(forms::ClickEvent{});
        });
        EXPECT_FALSE(Choose(View().menu.mnuFavoritesRemove));
        EXPECT_EQ(shown, 1);
        EXPECT_EQ(app.Loaded<frmFavorites>(), nullptr);
        ExpectIdle();
    }
    static void Remove(frmFavorites& dialog) { dialog.CmdRemove.Deliver(forms::ClickEvent{}); }
    void ExpectRemove(Answer reply) {
        Expect({.text = "Remove the selected file(s) from your favorites list?",
                .icon = BoxIcon::Question,
                .buttons = BoxButtons::YesNo,
                .reply = reply});
    }
};

TEST_F(frmFavoritesTest, ListsWhatThereIsAndSelectsTheImageOnShow) {
    PutPicture(ImagePath, 10, 10);
    StartWith({"", PathOf(1), "", "c:\\P\\X.jpg", PathOf(2)}, ImagePath);
    Show([this](frmFavorites& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Remove Favorite File(s)");
        EXPECT_EQ(dialog.lblMsg.Caption.Get(), "Double-click list to display entire path of filename.");
        EXPECT_EQ(dialog.CmdRemove.Caption.Get(), "&Remove");
        EXPECT_EQ(dialog.CmdCancel.Caption.Get(), "&Cancel");
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        EXPECT_EQ(dialog.HelpContext, HelpContext::FavoriteFiles);
        ExpectOwnLetters(dialog, 3);
        EXPECT_EQ(dialog.ListRemove.Texts(), (Texts{PathOf(1), "c:\\P\\X.jpg", PathOf(2)}));
        EXPECT_EQ(dialog.ListRemove.ListIndex.Get(), 1);
        EXPECT_EQ(dialog.ListRemove.SelectedCount(), 1);
        EXPECT_TRUE(dialog.ListRemove.Selected(1));
        Expect({.text = "Complete path to selected file:\r\n\r\nc:\\P\\X.jpg"});
        dialog.ListRemove.Deliver(forms::DoubleClickEvent{});
    });
}

TEST_F(frmFavoritesTest, AnImageThatIsNotListedSelectsNothing) {
    PutPicture(ImagePath, 10, 10);
    StartWith({PathOf(1)}, ImagePath);
    Show([this](frmFavorites& dialog) {
        EXPECT_EQ(dialog.ListRemove.ListIndex.Get(), -1);
        EXPECT_EQ(dialog.ListRemove.SelectedCount(), 0);
        dialog.ListRemove.OnDblClick();
        Expect({.text = "Select a file to remove from the list and then try again..."});
        Remove(dialog);
        EXPECT_FALSE(dialog.Unloaded());
    });
    EXPECT_EQ(Slots(1), Texts{PathOf(1)});
}

TEST_F(frmFavoritesTest, RemovesTheSelectedSlotsIfTheUserAgrees) {
    StartWith({PathOf(1), "", PathOf(3), PathOf(4), PathOf(3)});
    Show([this](frmFavorites& dialog) {
        dialog.ListRemove.Select(0);
        dialog.ListRemove.Select(1);
        ExpectRemove(Answer::No);
        Remove(dialog);
        EXPECT_FALSE(dialog.Unloaded());
        EXPECT_EQ(Slots(5), (Texts{PathOf(1), "", PathOf(3), PathOf(4), PathOf(3)}));
        ExpectRemove(Answer::Yes);
        Remove(dialog);
        EXPECT_TRUE(dialog.Unloaded());
    });
    EXPECT_EQ(Slots(5), (Texts{"", "", "", PathOf(4), PathOf(3)}));
    EXPECT_EQ(InMenu(), (Texts{PathOf(4), PathOf(3)}));
    Show([this](frmFavorites& dialog) {
        dialog.ListRemove.SelectAll();
        ExpectRemove(Answer::Yes);
        Remove(dialog);
    });
    EXPECT_EQ(InMenu(), Texts{});
    EXPECT_FALSE(View().menu.mnuFavoritesRemove.Enabled);
}

TEST_F(frmFavoritesTest, ATopmostWindowMakesRoom) {
    Setting("TopMostWindow", "True");
    StartWith({PathOf(1)});
    Show([this](frmFavorites&) { EXPECT_FALSE(Window().topmost); });
    EXPECT_TRUE(Window().topmost);
}

/// A user who goes through the favorites with a call of a service failing.
class FavoritesFault : public ::testing::TestWithParam<Service> {
  protected:
    static bool RunWithFault(Service service, int call) {
        headless::HeadlessServices machine;
        machine.store.Set("EXEPath", "C:\\Tavrix\\");
        machine.store.Set("ProgramRun", "1");
        machine.store.Set("Show Tips at Startup", "0");
        for (const char* path : {"C:\\f\\1.bmp", "C:\\f\\2.bmp"})
            machine.pictures.SetPicture(path, PlainPicture(20, 10));
        machine.disks.PutFile("C:\\Tavrix\\tavrix.ini",
                              "[Viewer]\r\nStartupDialog=0\r\nTopMostWindow=True\r\n"
                              "FavoriteFile1=C:\\f\\1.bmp\r\nFavoriteFile3=C:\\f\\2.bmp\r\n");
        const auto before = machine.disks.AllFiles();
        OneProcess program(machine);
        EXPECT_TRUE(program.Start());
        machine.faults.Clear();
        machine.faults.FailNth(service, call, ErrorNumber::DiskNotReady);
        program.toolkit.OnModal("frmFavorites", [&] {
            auto& dialog = *program.app.Loaded<frmFavorites>();
            dialog.CmdHelp.Deliver(forms::ClickEvent{});
            dialog.CmdCancel.Deliver(forms::ClickEvent{});
        });
        program.toolkit.OnModal("SaveSlideFile", [&] {
            auto& dialog = *program.app.Loaded<SaveSlideFile>();
            dialog.CmdCancel.Deliver(forms::ClickEvent{});
        });
        auto& menu = program.View().menu;
        EXPECT_NO_THROW({
            for (forms::Menu* entry :
                 {&menu.mnuFavoritesList[0], &menu.mnuFavoritesList[2], &menu.mnuFavoritesAdd,
                  &menu.mnuFavoritesRemove, &menu.mnuViewFavorites, &menu.mnuSaveFavoritesAsShow})
                entry->Click();
        });
        const bool fired = machine.faults.Fired();
        machine.faults.Clear();
        EXPECT_EQ(program.app.FormCount(), 1);
        EXPECT_FALSE(program.module.Busy());
        EXPECT_TRUE(program.View().picFrame.Visible);
        EXPECT_EQ(program.module.config.FavoriteFiles[0], "C:\\f\\1.bmp");
        EXPECT_EQ(program.module.config.FavoriteFiles[2], "C:\\f\\2.bmp");
        EXPECT_EQ(machine.disks.AllFiles(), before);
        menu.mnuFavoritesList[0].Click();
        EXPECT_EQ(program.module.CurrentImage, "C:\\f\\1.bmp") << "all goes on";
        return fired;
    }
};

TEST_P(FavoritesFault, NothingIsLostAndNothingCrosses) {
    EXPECT_GT(SweepFaults([&](int call) { return RunWithFault(GetParam(), call); }), 0);
}

INSTANTIATE_TEST_SUITE_P(Services, FavoritesFault,
                         ::testing::Values(Service::Files, Service::Pictures, Service::Shell, Service::Help));

}  // namespace
}  // namespace tavrix::test
