#include "core/HelpContexts.h"
#include "editing/Accelerators.h"
#include "shows/FakeEditor.h"
#include "shows/ShowsTest.h"
#include "shows/library/frmRenameShow.h"
#include "support/FaultSweep.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;

constexpr const char* Title = "Tavrix - [Rename Slide Show]";

/// The dialog on C:\s with a.tvs, b.TVS and c.tvs; the second is selected.
class RenameShowTest : public ShowsTest {
  protected:
    RenameShowTest() {
        for (const char* name : {"a.tvs", "b.TVS", "c.tvs"})
            platform.disks.PutFile(std::string("C:\\s\\") + name, name);
        platform.disks.PutFile("C:\\t\\z.tvs", "z");
        platform.disks.PutFolder("C:\\empty");
        module.config.LastSlideShow = "C:\\s\\b.TVS";
    }

    frmRenameShow& Open() {
        auto& dialog = app.Load<frmRenameShow>(module);
        dialog.Show();
        return dialog;
    }
    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void Rename(frmRenameShow& dialog, const std::string& name) {
        dialog.txtFilename.Deliver(forms::TextEvent{name});
        Press(dialog.CmdRename);
    }
    void ExpectTold(const std::string& text) { Expect({.text = text, .title = Title}); }
    void ExpectQuestion(const std::string& from, const std::string& to, Answer reply = Answer::Yes) {
        Expect({.text = "You are about to rename:\r\n\r\n" + from + "\r\n\r\n   -- to --\r\n\r\n" + to +
                        "\r\n\r\nAre you sure?",
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply,
                .title = Title});
    }
    void ExpectFailure(const std::string& to, const std::string& why) {
        Expect({.text = "Unable to rename slide show to: " + to + "\r\n\r\n" + why + "...",
                .icon = forms::BoxIcon::Stop,
                .title = Title});
    }
    [[nodiscard]] std::string Content(const std::string& path) const {
        return platform.disks.Content(path).value_or("(none)");
    }
};

TEST_F(RenameShowTest, TextsAreAsTold) {
    frmRenameShow& dialog = Open();
    EXPECT_EQ(dialog.Caption.Get(), "Rename Slide Show");
    EXPECT_EQ(dialog.HelpContext, HelpContext::RenameSlideShow);
    EXPECT_EQ(dialog.lblFilename.Caption.Get(), "Enter New Filename for Slide Show:");
    EXPECT_EQ(dialog.CmdRename.Caption.Get(), "&Rename");
    EXPECT_EQ(dialog.CmdCancel.Caption.Get(), "&Cancel");
    EXPECT_EQ(dialog.CmdHelp.Caption.Get(), "Help");
    EXPECT_TRUE(dialog.CmdRename.Default);
    EXPECT_TRUE(dialog.CmdCancel.Cancel);
    ExpectOwnLetters(dialog, 6);
}

TEST_F(RenameShowTest, TheSelectedNameIsOfferedWithoutItsEnding) {
    frmRenameShow& dialog = Open();
    EXPECT_EQ(dialog.Chooser.File1.FileName(), "b.TVS");
    const auto offered = [&](const std::string& name) {
        EXPECT_EQ(dialog.txtFilename.Text.Get(), name);
        EXPECT_EQ(dialog.txtFilename.SelStart.Get(), 0);
        EXPECT_EQ(dialog.txtFilename.SelLength.Get(), static_cast<int>(CharacterCount(name)) - 4);
    };
    offered("b.TVS");
    dialog.Chooser.File1.Deliver(forms::RowEvent{2});
    offered("c.tvs");
    dialog.txtFilename.Deliver(forms::TextEvent{"typed"});
    dialog.Chooser.File1.Deliver(
        forms::MouseEvent{forms::MouseAction::Up, forms::MouseButton::Left, 0, 5, 5, 2});
    offered("c.tvs");
    dialog.Chooser.Lists.GoTo("C:\\t");
    EXPECT_EQ(dialog.Chooser.File1.ListIndex.Get(), 0);
    offered("z.tvs");
    dialog.Chooser.Lists.GoTo("C:\\empty");
    offered("z.tvs");
}

TEST_F(RenameShowTest, AShowIsRenamed) {
    module.config.RecentShows = {"C:\\x\\x.tvs", "C:\\s\\b.tvs"};
    frmRenameShow& dialog = Open();
    ExpectQuestion("b.TVS", "new.tvs");
    Rename(dialog, "new");
    EXPECT_EQ(Content("C:\\s\\new.tvs"), "b.TVS");
    EXPECT_FALSE(platform.disks.Exists("C:\\s\\b.TVS"));
    EXPECT_EQ(module.config.RecentShows[0], "C:\\s\\new.tvs");
    EXPECT_EQ(module.config.RecentShows[1], "C:\\x\\x.tvs");
    EXPECT_EQ(module.config.RecentShows[2], "");
    EXPECT_EQ(dialog.txtFilename.Text.Get(), "new");
    EXPECT_GE(dialog.Chooser.File1.IndexOf("new.tvs"), 0);
    EXPECT_EQ(dialog.Chooser.File1.ListCount(), 3);
    EXPECT_FALSE(dialog.Unloaded());
}

TEST_F(RenameShowTest, ADoubleClickRenames) {
    frmRenameShow& dialog = Open();
    dialog.txtFilename.Deliver(forms::TextEvent{"new.TvS"});
    ExpectQuestion("b.TVS", "new.TvS");
    dialog.Chooser.File1.Deliver(forms::DoubleClickEvent{});
    EXPECT_EQ(Content("C:\\s\\new.TvS"), "b.TVS");
}

TEST_F(RenameShowTest, NoLeavesTheShow) {
    frmRenameShow& dialog = Open();
    ExpectQuestion("b.TVS", "new.tvs", Answer::No);
    Rename(dialog, "new");
    EXPECT_EQ(Content("C:\\s\\b.TVS"), "b.TVS");
    EXPECT_EQ(module.config.RecentShows[0], "");
}

TEST_F(RenameShowTest, ThereMustBeAShow) {
    frmRenameShow& dialog = Open();
    dialog.Chooser.File1.ListIndex = -1;
    ExpectTold(
        "Select the slide show file that you would like to rename and then try again.\r\n\r\nUnable to "
        "rename "
        "slide show...");
    Rename(dialog, "new");
    dialog.Chooser.Lists.GoTo("C:\\empty");
    ExpectTold(
        "There are no slide show files in the selected directory.\r\n\r\nUnable to rename slide show...");
    Rename(dialog, "new");
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    Rename(dialog, "new");
}

TEST_F(RenameShowTest, NamesThatCannotBeGivenAreRefused) {
    frmRenameShow& dialog = Open();
    const auto before = platform.disks.AllFiles();
    const std::string path = "You may not include a path in the filename, unable to rename slide show...";
    struct Case {
        const char* name;
        std::string told;
    };
    for (const Case& c :
         {Case{"", "A new filename was not specified, unable to rename slide show..."},
          Case{".tvs", "A new filename was not specified, unable to rename slide show..."},
          Case{"a\\b", path}, Case{"C:new", path}, Case{"a/b", path}, Case{"..\\t\\y.tvs", path},
          Case{"B", "The new filename is the same as the current one, unable to rename slide show..."},
          Case{"b.tvs", "The new filename is the same as the current one, unable to rename slide show..."},
          Case{"C", "The filename that was specified already exists, unable to rename slide show..."},
          Case{"a.tvs", "The filename that was specified already exists, unable to rename slide show..."}}) {
        ExpectTold(c.told);
        Rename(dialog, c.name);
        if (c.told == path) {
            EXPECT_EQ(dialog.txtFilename.SelStart.Get(), 0);
            EXPECT_EQ(dialog.txtFilename.SelLength.Get(), static_cast<int>(std::string(c.name).size()));
        }
    }
    EXPECT_EQ(platform.disks.AllFiles(), before);
}

TEST_F(RenameShowTest, TheScreenSaversShowIsFollowed) {
    frmRenameShow& dialog = Open();
    platform.store.Set("CurrentSaver", "c:\\S\\B.tvs");
    ExpectQuestion("b.TVS", "new.tvs");
    Rename(dialog, "new");
    EXPECT_EQ(platform.store.Get("CurrentSaver", ""), "C:\\s\\new.tvs");
    dialog.Chooser.File1.ListIndex = dialog.Chooser.File1.IndexOf("a.tvs");
    ExpectQuestion("a.tvs", "other.tvs");
    Rename(dialog, "other");
    EXPECT_EQ(platform.store.Get("CurrentSaver", ""), "C:\\s\\new.tvs") << "another show";
}

TEST_F(RenameShowTest, AnEditorKeepsTheOldName) {
    auto& editor = app.Load<FakeEditor>(module);
    editor.filename = "C:\\s\\b.TVS";
    frmRenameShow& dialog = Open();
    ExpectQuestion("b.TVS", "new.tvs");
    Rename(dialog, "new");
    EXPECT_EQ(editor.filename, "C:\\s\\b.TVS");
}

TEST_F(RenameShowTest, AFailureIsTold) {
    module.config.RecentShows = {"C:\\s\\b.TVS"};
    platform.store.Set("CurrentSaver", "C:\\s\\b.TVS");
    frmRenameShow& dialog = Open();
    ExpectQuestion("b.TVS", "x?.tvs");
    ExpectFailure("x?.tvs", "Bad file name or number");
    Rename(dialog, "x?");
    // One that was made since.
    Expect(
        {.text =
             "You are about to rename:\r\n\r\nb.TVS\r\n\r\n   -- to --\r\n\r\nnew.tvs\r\n\r\nAre you sure?",
         .icon = forms::BoxIcon::Question,
         .buttons = forms::BoxButtons::YesNo,
         .reply = Answer::Yes,
         .title = Title,
         .whileOpen = [this] { platform.disks.PutFile("C:\\s\\new.tvs", "mine"); }});
    ExpectFailure("new.tvs", "File already exists");
    Rename(dialog, "new");
    EXPECT_EQ(Content("C:\\s\\new.tvs"), "mine");
    EXPECT_EQ(Content("C:\\s\\b.TVS"), "b.TVS");
    // One that has gone, beside which a look-alike stands.
    platform.disks.Remove("C:\\s\\b.TVS");
    platform.disks.PutFile("C:\\s\\B.tvs", "another");
    ExpectQuestion("b.TVS", "newer.tvs");
    ExpectFailure("newer.tvs", "File not found");
    Rename(dialog, "newer");
    EXPECT_EQ(Content("C:\\s\\B.tvs"), "another");
    EXPECT_EQ(module.config.RecentShows[0], "C:\\s\\b.TVS");
    EXPECT_EQ(platform.store.Get("CurrentSaver", ""), "C:\\s\\b.TVS");
}

TEST_F(RenameShowTest, AfterAnyFailureTheShowIsThereOnce) {
    for (const Service service : {Service::Files, Service::UserStore, Service::Shell}) {
        SweepFaults([&, this](int call) {
            platform.faults.Clear();
            if (!platform.disks.Exists("C:\\s\\b.TVS")) platform.disks.PutFile("C:\\s\\b.TVS", "b.TVS");
            if (platform.disks.Exists("C:\\s\\new.tvs")) platform.disks.Remove("C:\\s\\new.tvs");
            platform.store.values["CurrentSaver"] = "C:\\s\\b.TVS";
            auto& dialog = app.Load<frmRenameShow>(module);
            dialog.Show();
            dialog.txtFilename.Deliver(forms::TextEvent{"new"});
            EXPECT_EQ(dialog.Chooser.File1.FileName(), "b.TVS");
            ExpectQuestion("b.TVS", "new.tvs");
            // The first look does not find the name; the second asks for the file, the third renames it.
            const bool fails = service == Service::Files && (call == 2 || call == 3);
            if (fails) ExpectFailure("new.tvs", call == 2 ? "File not found" : "Disk full");
            platform.faults.FailNth(service, call, ErrorNumber::DiskFull);
            Press(dialog.CmdRename);
            const bool fired = platform.faults.Fired();
            platform.faults.Clear();
            EXPECT_EQ(platform.disks.Exists("C:\\s\\b.TVS"), fails);
            EXPECT_EQ(platform.disks.Exists("C:\\s\\new.tvs"), !fails);
            app.Unload(dialog);
            return fired;
        });
    }
}

}  // namespace
}  // namespace tavrix::test
