#include "shows/library/LoadRecentFile.h"

#include "LibraryTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
namespace KeyCode = forms::KeyCode;

class LoadRecentFileTest : public LoadingTest {
  protected:
    LoadRecentFileTest() { module.config.RecentShows = {B, "", A}; }

    void ExpectDisk(const std::string& path, Answer reply) {
        Expect({.text = "Insert the disk that contains the file:\r\n\r\n" + path +
                        "\r\n\r\n...into Floppy Drive A:\\\r\n\r\nPress the \"OK\" button to continue.",
                .buttons = forms::BoxButtons::OkCancel,
                .reply = reply});
    }
};

TEST_F(LoadRecentFileTest, ListsTheRecentShows) {
    EXPECT_FALSE(InRecent([](LoadRecentFile& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Load Slide Show - [Recent Files]");
        EXPECT_EQ(dialog.ListRecent.Texts(), (Texts{B, A}));
        EXPECT_EQ(dialog.ListRecent.ListIndex.Get(), 0);
        EXPECT_EQ(dialog.ActiveControl(), &dialog.ListRecent);
        EXPECT_TRUE(dialog.CmdOK.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        EXPECT_EQ(dialog.HelpContext, HelpContext::LoadShow);
        Press(dialog.CmdCancel);
        EXPECT_TRUE(dialog.Unloaded());
    }));
    EXPECT_EQ(editor.loads, 0);
}

TEST_F(LoadRecentFileTest, OkLoadsTheSelectedShow) {
    EXPECT_TRUE(InRecent([this](LoadRecentFile& dialog) {
        dialog.ListRecent.ListIndex = 1;
        toolkit.AtYield(1, [this, &dialog] {
            EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
            dialog.ListRecent.ListIndex = 0;  // too late
            Press(dialog.CmdOK);
            Press(dialog.CmdBrowse);
            Key(dialog.ListRecent, KeyCode::Delete);
        });
        Press(dialog.CmdOK);
    }));
    EXPECT_EQ(editor.loads, 1);
    EXPECT_EQ(editor.filename, A);
    EXPECT_EQ(editor.rows, (Texts{"C:\\p\\a.bmp"}));
}

TEST_F(LoadRecentFileTest, SoDoesADoubleClick) {
    EXPECT_TRUE(
        InRecent([](LoadRecentFile& dialog) { dialog.ListRecent.Deliver(forms::DoubleClickEvent{}); }));
    EXPECT_EQ(editor.filename, B);
}

TEST_F(LoadRecentFileTest, WithoutASelectionNothingIsLoaded) {
    EXPECT_FALSE(InRecent([this](LoadRecentFile& dialog) {
        dialog.ListRecent.ListIndex = -1;
        ExpectTold("Select a slide show file to load first...");
        Press(dialog.CmdOK);
        ExpectTold(
            "Unable to delete file(s) by pressing the delete key, nothing is selected in the file list...");
        Key(dialog.ListRecent, KeyCode::Delete);
    }));
    module.config.RecentShows = {};
    EXPECT_FALSE(InRecent([this](LoadRecentFile& dialog) {
        EXPECT_EQ(dialog.ListRecent.ListIndex.Get(), -1);
        ExpectTold("There are no slide shows in the recent files list to load...");
        Press(dialog.CmdOK);
        EXPECT_FALSE(dialog.Unloaded());
    }));
    EXPECT_EQ(editor.loads, 0);
}

TEST_F(LoadRecentFileTest, AShowThatHasGoneIsToldOfAndLeavesTheList) {
    module.config.RecentShows[0] = "D:\\gone.tvs";
    ExpectStop("Unable to open Slide Show file.\r\n\r\nFile not found...", true);
    EXPECT_TRUE(InRecent([](LoadRecentFile& dialog) { Press(dialog.CmdOK); }));
    EXPECT_EQ(module.config.RecentShows[0], "");
    EXPECT_EQ(editor.rows, Texts());
    EXPECT_EQ(editor.filename, "D:\\gone.tvs");
}

TEST_F(LoadRecentFileTest, ADiskIsAskedForByTheWholePath) {
    module.config.RecentShows[0] = "a:\\s.tvs";
    EXPECT_FALSE(InRecent([this](LoadRecentFile& dialog) {
        ExpectDisk("a:\\s.tvs", Answer::Cancel);
        Press(dialog.CmdOK);
        EXPECT_FALSE(dialog.Unloaded());
        EXPECT_FALSE(module.Busy());
    }));
    platform.disks.InsertDisk('A');
    PutShow(ShowOf("x"), "A:\\s.tvs");
    EXPECT_TRUE(InRecent([this](LoadRecentFile& dialog) {
        ExpectDisk("a:\\s.tvs", Answer::Ok);
        Press(dialog.CmdOK);
    }));
    EXPECT_EQ(editor.rows, (Texts{"C:\\p\\x.bmp"}));
}

TEST_F(LoadRecentFileTest, DeleteTakesTheShowOutOfTheRecentOnesToo) {
    InRecent([this](LoadRecentFile& dialog) {
        Key(dialog.ListRecent, KeyCode::Insert);
        ExpectDelete(B, Answer::No);
        Key(dialog.ListRecent, KeyCode::Delete);
        EXPECT_EQ(dialog.ListRecent.ListCount(), 2);
        dialog.ListRecent.ListIndex = 1;
        ExpectDelete(A, Answer::Yes);
        Key(dialog.ListRecent, KeyCode::Delete);
        EXPECT_EQ(dialog.ListRecent.Texts(), (Texts{B}));
        EXPECT_EQ(dialog.ListRecent.ListIndex.Get(), 0);
        EXPECT_EQ(module.config.RecentShows[0], B);
        EXPECT_EQ(module.config.RecentShows[2], "");
        ExpectDelete(B, Answer::Yes);
        Key(dialog.ListRecent, KeyCode::Delete);
        EXPECT_EQ(dialog.ListRecent.ListIndex.Get(), -1);
    });
    EXPECT_EQ(Content(A), "none");
    EXPECT_EQ(platform.shell.trash.size(), 2U);
}

TEST_F(LoadRecentFileTest, TheRowThatFollowsADeletedOneIsCurrent) {
    module.config.RecentShows[3] = "C:\\Shows\\third.tvs";
    InRecent([this](LoadRecentFile& dialog) {
        ASSERT_EQ(dialog.ListRecent.ListCount(), 3);
        ExpectDelete(B, Answer::Yes);
        Key(dialog.ListRecent, KeyCode::Delete);
        EXPECT_EQ(dialog.ListRecent.Texts(), (Texts{A, "C:\\Shows\\third.tvs"}));
        EXPECT_EQ(dialog.ListRecent.ListIndex.Get(), 0);
    });
}

TEST_F(LoadRecentFileTest, AShowThatCouldNotBeDeletedStaysListed) {
    module.config.UseRecycleBin = false;
    platform.disks.SetReadOnly(B, true);
    InRecent([this](LoadRecentFile& dialog) {
        ExpectQuestion("Are you sure you want to delete the following file?\r\n\r\n" + std::string(B),
                       Answer::Yes);
        ExpectStop("Unable to delete the file:\r\n\r\n" + std::string(B) + "\r\n\r\nPermission denied...");
        Key(dialog.ListRecent, KeyCode::Delete);
        EXPECT_EQ(dialog.ListRecent.ListCount(), 2);
    });
    EXPECT_EQ(module.config.RecentShows[0], B);
}

TEST_F(LoadRecentFileTest, AWindowThatIsClosedInThatMomentLoadsNothing) {
    EXPECT_FALSE(InRecent([this](LoadRecentFile& dialog) {
        toolkit.AtYield(1, [&dialog] { Press(dialog.CmdCancel); });
        Press(dialog.CmdOK);
    }));
    EXPECT_EQ(editor.loads, 0);
}

}  // namespace
}  // namespace tavrix::test
