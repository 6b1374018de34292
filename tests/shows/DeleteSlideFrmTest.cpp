#include "shows/library/DeleteSlideFrm.h"

#include "core/HelpContexts.h"
#include "editing/Accelerators.h"
#include "shows/ShowsTest.h"
#include "shows/library/LibraryCommands.h"
#include "support/FaultSweep.h"
#include "viewer/ViewerTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;
using Texts = std::vector<std::string>;

constexpr const char* Done = "The selected slide show has been deleted...";
constexpr const char* Partly =
    "The selected slide show has been deleted...\r\n\r\n(Some files were not removed due to error(s).)";
constexpr const char* AskImages =
    "Delete ALL of the images referenced in this slide show file?\r\n\r\n(You may want to open the slide "
    "show to "
    "check the images that it contains first.)";

/// The dialog on C:\s, where s.tvs lies with 1.bmp and 2.jpg; C:\p\3.gif is another image of it.
class DeleteSlideFrmTest : public ShowsTest {
  protected:
    DeleteSlideFrmTest() {
        module.config.LastSlideShow = Show;
        platform.disks.PutFolder("C:\\Tavrix\\SLIDES");
        for (const char* path : {"C:\\s\\1.bmp", "C:\\s\\2.jpg", "C:\\p\\3.gif", "C:\\m\\a.wav"})
            platform.disks.PutFile(path, path);
        Put({"1.bmp", "C:\\s\\2.jpg", "C:\\p\\3.gif"});
    }

    static constexpr const char* Show = "C:\\s\\s.tvs";

    /// The show with these slides, and with a sound of this mode.
    void Put(const Texts& slides, int mode = 0, const std::string& sound = "") {
        std::string text = Lines({Quoted("Tavrix Slide Show"), Quoted("Version 1.5"), std::to_string(mode),
                                  Quoted(sound), "0", "0", "0", "0", "0", "0", "-1", "0"});
        for (const std::string& slide : slides)
            text += Slides({slide, ""});
        PutShow(text, Show);
    }
    DeleteSlideFrm& Open() {
        auto& dialog = app.Load<DeleteSlideFrm>(module);
        dialog.Show();
        return dialog;
    }
    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    void Ask(const std::string& text, Answer reply, std::function<void()> whileOpen = {}) {
        Expect({.text = text,
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply,
                .whileOpen = std::move(whileOpen)});
    }
    void AskShow(Answer reply = Answer::Yes) {
        Ask("Delete the selected slide show file?\r\n\r\nC:\\s\\s.tvs", reply);
    }
    void AskFolder(const std::string& folder, Answer reply) {
        Ask("This slide show folder is now empty:\r\n\r\n" + folder + "\r\n\r\nRemove this directory?",
            reply);
    }
    void AskGoOn(const std::string& path, const std::string& why, Answer reply) {
        Ask("The following image could not be deleted:\r\n\r\n" + path + "\r\n\r\n" + why +
                "...\r\n\r\nAttempt to delete the remaining images?",
            reply);
    }
    void AskSound(const std::string& path, Answer reply) {
        Ask("Delete the slide show sound file also?\r\n\r\n" + path, reply);
    }
    void ExpectTold(const std::string& text) { Expect({.text = text}); }
    void ExpectTotal(const std::string& number) {
        ExpectTold("A total of " + number + " images were deleted...");
    }
    void ExpectPartly() { Expect({.text = Partly, .icon = forms::BoxIcon::Exclamation}); }
    [[nodiscard]] bool There(const std::string& path) const { return platform.disks.Exists(path); }
    [[nodiscard]] Texts Trash() const {
        Texts paths;
        for (const auto& trashed : platform.shell.trash)
            paths.push_back(trashed.path);
        return paths;
    }
    /// A file that keeps the folder of the show from being empty to the lists.
    void KeepFolder() { platform.disks.PutFile("C:\\s\\other.tvs", ""); }
};

TEST_F(DeleteSlideFrmTest, TextsAreAsTold) {
    DeleteSlideFrm& dialog = Open();
    EXPECT_EQ(dialog.Caption.Get(), "Delete Slide Show");
    EXPECT_EQ(dialog.HelpContext, HelpContext::DeleteSlideShow);
    EXPECT_EQ(dialog.CmdDelete.Caption.Get(), "&Delete");
    EXPECT_EQ(dialog.CmdCancel.Caption.Get(), "&Cancel");
    EXPECT_EQ(dialog.CmdHelp.Caption.Get(), "Help");
    EXPECT_EQ(dialog.Image1.ToolTip.Get(), "Deleted files will NOT be stored in recycle bin!");
    EXPECT_EQ(dialog.Chooser.File1.Pattern.Get(), "*.tvs");
    EXPECT_TRUE(dialog.CmdDelete.Default);
    EXPECT_TRUE(dialog.CmdCancel.Cancel);
    ExpectOwnLetters(dialog, 6);
}

TEST_F(DeleteSlideFrmTest, ThePictureWarnsWhereItIsTrue) {
    EXPECT_FALSE(Open().Image1.Visible);
    module.config.UseRecycleBin = false;
    EXPECT_TRUE(app.Load<DeleteSlideFrm>(module).Image1.Visible);
}

TEST_F(DeleteSlideFrmTest, BeginsAtTheLastShow) {
    platform.disks.PutFile("C:\\s\\a.tvs", "");
    platform.disks.PutFile("C:\\Tavrix\\SLIDES\\z.tvs", "");
    platform.disks.PutFile("C:\\Tavrix\\t.tvs", "");
    const auto begins = [this](const std::string& last) {
        module.config.LastSlideShow = last;
        auto& dialog = app.Load<DeleteSlideFrm>(module);
        std::string place = dialog.Chooser.Lists.Folder() + dialog.Chooser.File1.FileName();
        EXPECT_EQ(dialog.Chooser.File1.Path.Get(), dialog.Chooser.Dir1.Path.Get());
        app.Unload(dialog);
        return place;
    };
    EXPECT_EQ(begins("C:\\s\\s.tvs"), "C:\\s\\s.tvs");
    EXPECT_EQ(begins("C:\\s\\gone.tvs"), "C:\\s\\a.tvs");
    EXPECT_EQ(begins(""), "C:\\Tavrix\\SLIDES\\z.tvs");
    EXPECT_EQ(begins("C:\\gone\\s.tvs"), "C:\\Tavrix\\SLIDES\\z.tvs");
    EXPECT_EQ(begins("A:\\s.tvs"), "C:\\Tavrix\\SLIDES\\z.tvs") << "without a box about the disk";
    platform.disks.Remove("C:\\Tavrix\\SLIDES");
    EXPECT_EQ(begins(""), "C:\\Tavrix\\t.tvs");
    platform.disks.Remove("C:\\Tavrix\\t.tvs");
    EXPECT_EQ(begins(""), "C:\\Tavrix\\");
}

TEST_F(DeleteSlideFrmTest, ThereMustBeAShowToDelete) {
    DeleteSlideFrm& dialog = Open();
    dialog.Chooser.File1.ListIndex = -1;
    ExpectTold("Select a file to delete and then try again...");
    Press(dialog.CmdDelete);
    dialog.Chooser.Lists.GoTo("C:\\p");
    ExpectTold("There are no files in the selected directory to delete...");
    Press(dialog.CmdDelete);
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    Press(dialog.CmdDelete);
}

TEST_F(DeleteSlideFrmTest, NoStopsBeforeAnythingIsRead) {
    DeleteSlideFrm& dialog = Open();
    const auto before = platform.disks.AllFiles();
    AskShow(Answer::No);
    Press(dialog.CmdDelete);
    module.config.UseRecycleBin = false;
    Ask("Delete the selected slide show file?\r\n\r\nC:\\s\\s.tvs\r\n\r\n(Deleted file(s) will NOT be stored "
        "in the "
        "recycle bin!)",
        Answer::No);
    Press(dialog.CmdDelete);
    EXPECT_EQ(platform.disks.AllFiles(), before);
    EXPECT_FALSE(module.Busy());
}

TEST_F(DeleteSlideFrmTest, TheShowAloneIsDeleted) {
    KeepFolder();
    module.config.RecentShows = {"C:\\x.tvs", Show};
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::No);
    ExpectTold(Done);
    Press(dialog.CmdDelete);
    EXPECT_EQ(Trash(), (Texts{Show}));
    EXPECT_EQ(module.config.RecentShows[0], "C:\\x.tvs");
    EXPECT_EQ(module.config.RecentShows[1], "");
    EXPECT_EQ(dialog.Chooser.File1.ListCount(), 1);
    EXPECT_FALSE(dialog.Unloaded());
    EXPECT_FALSE(module.Busy());
}

TEST_F(DeleteSlideFrmTest, ItsImagesGoWhereverTheyLieAndTheirFoldersStay) {
    KeepFolder();
    module.config.Recent = {"C:\\p\\3.gif", "C:\\x.bmp", "C:\\s\\1.bmp"};
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::Yes);
    ExpectTotal("3");
    ExpectTold(Done);
    Press(dialog.CmdDelete);
    EXPECT_EQ(Trash(), (Texts{"C:\\s\\1.bmp", "C:\\s\\2.jpg", "C:\\p\\3.gif", Show}));
    EXPECT_TRUE(There("C:\\p"));
    EXPECT_EQ(module.config.Recent[0], "C:\\x.bmp");
    EXPECT_EQ(module.config.Recent[1], "");
}

TEST_F(DeleteSlideFrmTest, WithoutTheRecycleBinFilesGoForGood) {
    KeepFolder();
    module.config.UseRecycleBin = false;
    DeleteSlideFrm& dialog = Open();
    Ask("Delete the selected slide show file?\r\n\r\nC:\\s\\s.tvs\r\n\r\n(Deleted file(s) will NOT be stored "
        "in the "
        "recycle bin!)",
        Answer::Yes);
    Ask(AskImages, Answer::Yes);
    ExpectTotal("3");
    ExpectTold(Done);
    Press(dialog.CmdDelete);
    EXPECT_EQ(Trash(), Texts{});
    EXPECT_FALSE(There("C:\\p\\3.gif"));
    EXPECT_FALSE(There(Show));
}

TEST_F(DeleteSlideFrmTest, WhatIsLoadedStaysLoaded) {
    KeepFolder();
    module.show.SlideFiles.Set(0, "C:\\other\\x.bmp");
    module.show.SlideDescriptions.Set(0, "about x");
    module.show.ShowChanged = true;
    module.config.SoundFile = "C:\\mine.wav";
    const SlideShow show = module.show;
    const AppConfig config = module.config;
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::Yes);
    ExpectTotal("3");
    ExpectTold(Done);
    Press(dialog.CmdDelete);
    EXPECT_EQ(static_cast<const ShowSlides&>(module.show), static_cast<const ShowSlides&>(show));
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_TRUE(SameOptions(module.config, config));
    EXPECT_EQ(module.config.LastSlideShow, config.LastSlideShow);
}

TEST_F(DeleteSlideFrmTest, TheOpenImageIsKnownByWhereverItsPathLeads) {
    KeepFolder();
    platform.disks.PutLink("C:\\p\\3.gif", "C:\\p\\link.gif");
    Put({"1.BMP", "C:\\p\\link.gif", "C:\\s\\2.jpg"});
    const std::string refused = "\r\n\r\nImage is currently open...";
    const auto deletes = [&](const std::string& open, const Texts& gone) {
        module.CurrentImage = open;
        DeleteSlideFrm& dialog = Open();
        AskShow();
        Ask(AskImages, Answer::Yes);
        if (open == "C:\\p\\3.gif") {
            AskGoOn("C:\\s\\1.BMP", "File not found", Answer::Yes);
            ExpectTold("Unable to delete file:\r\n\r\nC:\\p\\link.gif" + refused);
        } else {
            ExpectTold("Unable to delete file:\r\n\r\nC:\\s\\1.BMP" + refused);
        }
        ExpectTotal(std::to_string(gone.size()));
        if (open == "C:\\p\\3.gif") {
            ExpectPartly();
        } else {
            ExpectTold(Done);
        }
        Press(dialog.CmdDelete);
        for (const std::string& path : gone)
            EXPECT_FALSE(There(path)) << path;
        EXPECT_TRUE(There(open));
        app.Unload(dialog);
    };
    deletes("c:\\s\\1.bmp", {"C:\\p\\link.gif", "C:\\s\\2.jpg"});
    EXPECT_TRUE(There("C:\\p\\3.gif"));
    platform.disks.PutLink("C:\\p\\3.gif", "C:\\p\\link.gif");
    platform.disks.PutFile("C:\\s\\2.jpg", "");
    Put({"1.BMP", "C:\\p\\link.gif", "C:\\s\\2.jpg"});
    deletes("C:\\p\\3.gif", {"C:\\s\\2.jpg"});
}

TEST_F(DeleteSlideFrmTest, OnlyNormalImageFilesAreDeleted) {
    KeepFolder();
    platform.disks.PutFile("C:\\s\\notes.txt", "");
    platform.disks.PutFile("C:\\s\\x.tga", "");
    platform.disks.PutFile("C:\\s\\album.bmp\\keep.bmp", "");
    Put({"notes.txt", "x.tga", "album.bmp", "other.tvs", "C:\\Tavrix\\tavrix.ini", "1.bmp"});
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::Yes);
    ExpectTotal("1");
    ExpectPartly();
    Press(dialog.CmdDelete);
    EXPECT_EQ(Trash(), (Texts{"C:\\s\\1.bmp", Show}));
    EXPECT_TRUE(There("C:\\s\\album.bmp\\keep.bmp"));
}

TEST_F(DeleteSlideFrmTest, EveryImageEndingCounts) {
    KeepFolder();
    Texts names;
    for (const char* ending :
         {"dib", "bmp", "gif", "jpg", "jif", "jpe", "jpeg", "ico", "wmf", "emf", "rle", "CUR"}) {
        names.push_back(std::string("x.") + ending);
        platform.disks.PutFile("C:\\s\\" + names.back(), "");
    }
    Put(names);
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::Yes);
    ExpectTotal("12");
    ExpectTold(Done);
    Press(dialog.CmdDelete);
}

TEST_F(DeleteSlideFrmTest, AVanishedImageNeverLeadsToALookAlike) {
    KeepFolder();
    platform.disks.Remove("C:\\s\\1.bmp");
    platform.disks.PutFile("C:\\s\\1.BMP", "another");
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::Yes);
    AskGoOn("C:\\s\\1.bmp", "File not found", Answer::Yes);
    ExpectTotal("2");
    ExpectPartly();
    Press(dialog.CmdDelete);
    EXPECT_TRUE(There("C:\\s\\1.BMP"));
}

TEST_F(DeleteSlideFrmTest, AnImageThatIsShownTwiceIsDeletedOnce) {
    KeepFolder();
    Put({"1.bmp", "2.jpg", "1.bmp", "C:\\s\\1.bmp"});
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::Yes);
    ExpectTotal("2");
    ExpectTold(Done);
    Press(dialog.CmdDelete);
}

TEST_F(DeleteSlideFrmTest, AFailureIsAskedAboutAndReported) {
    KeepFolder();
    platform.disks.Remove("C:\\s\\1.bmp");
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::Yes);
    AskGoOn("C:\\s\\1.bmp", "File not found", Answer::No);
    ExpectTotal("");
    ExpectPartly();
    Press(dialog.CmdDelete);
    EXPECT_EQ(Trash(), (Texts{Show})) << "what comes behind it stays";
}

TEST_F(DeleteSlideFrmTest, ADriveThatIsGoneIsAFailure) {
    KeepFolder();
    Put({"Q:\\x.bmp", "C:\\gone\\x.bmp", "1.bmp"});
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::Yes);
    AskGoOn("Q:\\x.bmp", "Device unavailable", Answer::Yes);
    AskGoOn("C:\\gone\\x.bmp", "Path not found", Answer::Yes);
    ExpectTotal("1");
    ExpectPartly();
    Press(dialog.CmdDelete);
}

TEST_F(DeleteSlideFrmTest, ThousandsAreGrouped) {
    KeepFolder();
    Texts names;
    for (int number = 0; number < 1234; ++number) {
        names.push_back(std::to_string(number) + ".bmp");
        platform.disks.PutFile("C:\\s\\" + names.back(), "");
    }
    Put(names);
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::Yes);
    ExpectTotal("1,234");
    ExpectTold(Done);
    Press(dialog.CmdDelete);
}

TEST_F(DeleteSlideFrmTest, TheSoundIsOffered) {
    KeepFolder();
    struct Case {
        int mode;
        const char* stored;
        const char* path;  ///< what is asked about; empty: nothing
        Answer reply = Answer::Yes;
        bool gone = true;
    };
    for (const Case& c :
         {Case{1, "C:\\m\\a.wav", "C:\\m\\a.wav"}, Case{1, "tune.MID", "C:\\s\\tune.MID"},
          Case{1, "C:\\m\\a.wav", "C:\\m\\a.wav", Answer::No, false}, Case{0, "C:\\m\\a.wav", "", {}, false},
          Case{2, "C:\\m\\a.wav", "", {}, false}, Case{1, "", "", {}, false}}) {
        platform.disks.PutFile("C:\\m\\a.wav", "");
        platform.disks.PutFile("C:\\s\\tune.MID", "");
        platform.shell.trash.clear();
        Put({}, c.mode, c.stored);
        DeleteSlideFrm& dialog = Open();
        AskShow();
        if (*c.path != '\0') AskSound(c.path, c.reply);
        ExpectTold(Done);
        Press(dialog.CmdDelete);
        EXPECT_EQ(Trash(), c.gone ? (Texts{c.path, Show}) : (Texts{Show}));
        app.Unload(dialog);
    }
}

TEST_F(DeleteSlideFrmTest, NothingButASoundGoesAsOne) {
    KeepFolder();
    platform.disks.PutFile("C:\\m\\a.mp3", "");
    platform.disks.PutFile("C:\\m\\folder.wav\\x.txt", "");
    for (const char* path : {"C:\\m\\a.mp3", "C:\\m\\folder.wav", "C:\\s\\1.bmp"}) {
        Put({}, 1, path);
        DeleteSlideFrm& dialog = Open();
        AskShow();
        AskSound(path, Answer::Yes);
        ExpectPartly();
        Press(dialog.CmdDelete);
        EXPECT_TRUE(There(path));
        app.Unload(dialog);
    }
}

TEST_F(DeleteSlideFrmTest, FailuresOfSoundAndShowAreTold) {
    KeepFolder();
    Put({}, 1, "C:\\m\\gone.wav");
    DeleteSlideFrm& dialog = Open();
    AskShow();
    AskSound("C:\\m\\gone.wav", Answer::Yes);
    ExpectStop(
        "The slide show sound file could not be deleted:\r\n\r\nC:\\m\\gone.wav\r\n\r\nFile not found...");
    ExpectPartly();
    Press(dialog.CmdDelete);
    Put({}, 1, "C:\\m\\a.wav");
    dialog.Chooser.File1.Refresh();
    dialog.Chooser.File1.ListIndex = dialog.Chooser.File1.IndexOf("s.tvs");
    module.config.RecentShows[0] = Show;
    platform.shell.trashRefusal = ErrorNumber::PermissionDenied;
    AskShow();
    AskSound("C:\\m\\a.wav", Answer::Yes);
    ExpectStop(
        "The slide show sound file could not be deleted:\r\n\r\nC:\\m\\a.wav\r\n\r\nPermission denied...");
    ExpectStop(
        "The slide show file (.TVS) could not be deleted:\r\n\r\nC:\\s\\s.tvs\r\n\r\nPermission denied...");
    ExpectPartly();
    Press(dialog.CmdDelete);
    EXPECT_TRUE(There(Show));
    EXPECT_EQ(module.config.RecentShows[0], Show);
}

TEST_F(DeleteSlideFrmTest, AShowThatVanishedIsNotItsLookAlike) {
    DeleteSlideFrm& dialog = Open();
    AskShow();
    platform.disks.Remove(Show);
    Put({});
    const std::string content = *platform.disks.Content(Show);
    platform.disks.Remove(Show);
    platform.disks.PutFile("C:\\s\\S.TVS", content);
    ExpectStop(
        "The slide show file (.TVS) could not be deleted:\r\n\r\nC:\\s\\s.tvs\r\n\r\nFile not found...");
    ExpectPartly();
    Press(dialog.CmdDelete);
    EXPECT_TRUE(There("C:\\s\\S.TVS"));
}

TEST_F(DeleteSlideFrmTest, AFileWithoutReadableOptionsGoesAlone) {
    KeepFolder();
    struct Case {
        std::string content;
        std::string told;
        forms::BoxIcon icon;
    };
    const std::string signature = Lines({Quoted("Tavrix Slide Show"), Quoted("Version 1.5")});
    for (const Case& c :
         {Case{"nothing like it\r\n",
               "The selected file is not a valid Tavrix Slide Show file...\r\n\r\nFilenames with .TVS in the "
               "last 4 "
               "positions are normally associated with Tavrix files.",
               forms::BoxIcon::Exclamation},
          Case{signature + "1\r\n\"C:\\m\\a.wav\"\r\n",
               "An error occurred while reading the Slide Show file header.\r\n\r\nInput past end of file...",
               forms::BoxIcon::Stop}}) {
        PutShow(c.content, Show);
        DeleteSlideFrm& dialog = Open();
        AskShow();
        Expect({.text = c.told, .icon = c.icon, .systemModal = true});
        ExpectTold(Done);
        Press(dialog.CmdDelete);
        EXPECT_FALSE(There(Show));
        EXPECT_TRUE(There("C:\\m\\a.wav"));
        app.Unload(dialog);
    }
}

TEST_F(DeleteSlideFrmTest, WhatADamagedShowHasUpToTheDamageIsOffered) {
    KeepFolder();
    PutShow(Header() + Slides({"1.bmp", "", "2.jpg"}), Show);
    DeleteSlideFrm& dialog = Open();
    AskShow();
    ExpectStop("An error occurred while reading Slide Show data.\r\n\r\nInput past end of file...", true);
    Ask(AskImages, Answer::Yes);
    ExpectTotal("2");
    AskSound("C:\\m\\a.wav", Answer::No);
    ExpectTold(Done);
    Press(dialog.CmdDelete);
}

TEST_F(DeleteSlideFrmTest, AFolderThatIsEmptyThenIsOffered) {
    Put({"1.bmp", "2.jpg"});
    platform.files.ChangeFolder("C:\\s");
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::Yes);
    ExpectTotal("2");
    AskFolder("C:\\s", Answer::Yes);
    ExpectTold(Done);
    Press(dialog.CmdDelete);
    EXPECT_FALSE(There("C:\\s"));
    EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\");
    EXPECT_EQ(dialog.Chooser.File1.Path.Get(), "C:\\");
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\");
}

TEST_F(DeleteSlideFrmTest, ACurrentFolderThatIsAnotherOneStays) {
    Put({"1.bmp", "2.jpg"});
    platform.files.ChangeFolder("C:\\p");
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::Yes);
    ExpectTotal("2");
    AskFolder("C:\\s", Answer::Yes);
    ExpectTold(Done);
    Press(dialog.CmdDelete);
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\p");
}

TEST_F(DeleteSlideFrmTest, TheFolderOfShowsIsOfferedToo) {
    PutShow(Header(), "C:\\Tavrix\\SLIDES\\s.tvs");
    module.config.LastSlideShow.clear();
    DeleteSlideFrm& dialog = Open();
    Ask("Delete the selected slide show file?\r\n\r\nC:\\Tavrix\\SLIDES\\s.tvs", Answer::Yes);
    AskSound("C:\\m\\a.wav", Answer::No);
    AskFolder("C:\\Tavrix\\SLIDES", Answer::No);
    ExpectTold(Done);
    Press(dialog.CmdDelete);
    EXPECT_TRUE(There("C:\\Tavrix\\SLIDES"));
}

TEST_F(DeleteSlideFrmTest, AFolderWithOtherFilesIsOfferedAndStays) {
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::No);
    AskFolder("C:\\s", Answer::Yes);
    ExpectStop("Unable to delete the slide show directory.\r\n\r\nPath/File access error...");
    ExpectPartly();
    Press(dialog.CmdDelete);
    EXPECT_TRUE(There("C:\\s\\1.bmp"));
    EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\s");
}

TEST_F(DeleteSlideFrmTest, AFolderWithSubfoldersIsNotOffered) {
    platform.disks.PutFolder("C:\\s\\sub");
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::No);
    ExpectTold(Done);
    Press(dialog.CmdDelete);
    EXPECT_TRUE(There("C:\\s\\sub"));
}

TEST_F(DeleteSlideFrmTest, AFolderThatGotSubfoldersMeanwhileIsNotOffered) {
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::No, [this] { platform.disks.PutFolder("C:\\s\\sub"); });
    ExpectTold(Done);
    Press(dialog.CmdDelete);
    EXPECT_EQ(dialog.Chooser.Dir1.ListCount(), 1);
}

TEST_F(DeleteSlideFrmTest, TheDialogStaysWhileItWorks) {
    KeepFolder();
    DeleteSlideFrm& dialog = Open();
    AskShow();
    Ask(AskImages, Answer::Yes, [&, this] {
        EXPECT_TRUE(module.Busy());
        Press(dialog.CmdDelete);
        Press(dialog.CmdCancel);
        EXPECT_FALSE(dialog.Unloaded());
    });
    ExpectTotal("3");
    ExpectTold(Done);
    Press(dialog.CmdDelete);
    Press(dialog.CmdCancel);
    EXPECT_EQ(app.Loaded<DeleteSlideFrm>(), nullptr);
}

TEST_F(DeleteSlideFrmTest, AnySingleFailureEndsInAReport) {
    const int faults = SweepFaults([this](int call) {
        platform.faults.Clear();
        platform.disks.PutFile("C:\\s\\1.bmp", "one");
        platform.disks.PutFile("C:\\m\\a.wav", "tune");
        Put({"1.bmp"}, 1, "C:\\m\\a.wav");
        platform.disks.PutFile("C:\\s\\other.bmp", "other");
        platform.shell.trash.clear();
        auto& dialog = app.Load<DeleteSlideFrm>(module);
        dialog.Show();
        EXPECT_EQ(dialog.Chooser.File1.FileName(), "s.tvs");
        platform.faults.FailNth(Service::Shell, call, ErrorNumber::DiskFull);
        const std::string full = "Disk full";
        AskShow();
        Ask(AskImages, Answer::Yes);
        if (call == 1) AskGoOn("C:\\s\\1.bmp", full, Answer::Yes);
        ExpectTotal(call == 1 ? "" : "1");
        AskSound("C:\\m\\a.wav", Answer::Yes);
        if (call == 2)
            ExpectStop(
                "The slide show sound file could not be deleted:\r\n\r\nC:\\m\\a.wav\r\n\r\nDisk full...");
        if (call == 3)
            ExpectStop(
                "The slide show file (.TVS) could not be deleted:\r\n\r\nC:\\s\\s.tvs\r\n\r\nDisk full...");
        if (call != 3) AskFolder("C:\\s", Answer::No);
        if (call <= 3) {
            ExpectPartly();
        } else {
            ExpectTold(Done);
        }
        Press(dialog.CmdDelete);
        const bool fired = platform.faults.Fired();
        platform.faults.Clear();
        EXPECT_EQ(There("C:\\s\\1.bmp"), call == 1);
        EXPECT_EQ(There("C:\\m\\a.wav"), call == 2);
        EXPECT_EQ(There(Show), call == 3);
        EXPECT_TRUE(There("C:\\s\\other.bmp"));
        EXPECT_FALSE(module.Busy());
        app.Unload(dialog);
        return fired;
    });
    EXPECT_EQ(faults, 3);
}

class LibraryCommandsTest : public ViewerTest {};

TEST_F(LibraryCommandsTest, TheMenuOpensTheDialogsAboveTheView) {
    ASSERT_TRUE(Start());
    module.config.TopMostWindow = true;
    View().SetTopmost(true);
    for (const auto& [entry, name] : {std::pair(&View().menu.mnuDeleteSlideShow, "DeleteSlideFrm"),
                                      std::pair(&View().menu.mnuRenameShow, "frmRenameShow")}) {
        int shown = 0;
        toolkit.OnModal(name, [&, this] {
            ++shown;
            EXPECT_FALSE(Window().topmost);
            EXPECT_FALSE(module.Busy());
            app.Unload(app.FormAt(app.FormCount() - 1));
        });
        EXPECT_FALSE(Choose(*entry));
        EXPECT_EQ(shown, 1) << name;
        EXPECT_TRUE(Window().topmost);
        module.Screen().MousePointer = forms::MousePointer::Hourglass;
        EXPECT_FALSE(Choose(*entry));
        EXPECT_EQ(shown, 1) << name;
        module.Screen().MousePointer = forms::MousePointer::Default;
    }
}

}  // namespace
}  // namespace tavrix::test
