// Images are renamed, that on show and others.

#include "FilingTest.h"
#include "filing/deleting/RenameImgFrm.h"

namespace tavrix::test {
namespace {

using forms::Answer;

class RenameTest : public FilingTest {
  protected:
    static constexpr const char* Title = "Tavrix - [Rename Image]";
    static constexpr const char* CurrentTitle = "Tavrix - [Rename Current Image]";

    void InDialog(const std::function<void(RenameImgFrm&)>& user) {
        In<RenameImgFrm>(View().menu.mnuRenameImg, "RenameImgFrm", user);
    }
    void ExpectName(const std::string& path, std::optional<std::string> reply,
                    const std::string& title = Title) {
        toolkit.ExpectInput({.prompt = path + "\r\n\r\nEnter a new name for the file:",
                             .title = title,
                             .text = FileNameOf(path),
                             .reply = std::move(reply)});
    }
    void ExpectAnother(Answer reply) {
        ExpectQuestion("Would you like to rename another file?", reply, Title);
    }
    /// The user renames a file of C:\p in the dialog, which closes then if the file was renamed.
    void Rename(const std::string& name, const std::string& answer, bool renamed = true,
                const std::string& refusal = "") {
        InDialog([&](RenameImgFrm& dialog) {
            dialog.Chooser.Lists.GoTo("C:\\p");
            dialog.Chooser.File1.Refresh();
            for (int row = 0; row < dialog.Chooser.File1.ListCount(); ++row) {
                if (dialog.Chooser.File1.List(row) == name) dialog.Chooser.File1.ListIndex = row;
            }
            ExpectName("C:\\p\\" + name, answer);
            if (renamed) ExpectAnother(Answer::No);
            if (!refusal.empty()) ExpectTold(refusal, Title);
            Press(dialog.CmdRename);
            EXPECT_EQ(dialog.Unloaded(), renamed);
        });
    }
    /// A file is renamed, and stands under the new name alone.
    void ExpectRenamed(const std::string& name, const std::string& answer, const std::string& result) {
        platform.disks.PutFile("C:\\p\\" + name, "content");
        Rename(name, answer);
        EXPECT_EQ(At("C:\\p\\" + result), "content") << result;
        EXPECT_NE(At("C:\\p\\" + name), "content");
        EXPECT_EQ(module.CurrentImage, "C:\\p\\" + result);
        View().imageOnShow.Become(ImagePath);
    }
    void RenameCurrent(std::optional<std::string> answer) {
        ExpectName(module.CurrentImage, std::move(answer), CurrentTitle);
        EXPECT_FALSE(Choose(View().menu.mnuRenameCurrentImg));
        ExpectIdle();
    }
};

TEST_F(RenameTest, SaysWhatItIs) {
    Begin();
    InDialog([this](RenameImgFrm& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Rename Image(s)");
        EXPECT_EQ(dialog.HelpContext, 780U);
        EXPECT_EQ(dialog.CmdRename.Caption.Get(), "&Rename");
        EXPECT_EQ(dialog.CmdRename.ToolTip.Get(), "Rename selected file.");
        EXPECT_TRUE(dialog.CmdRename.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        EXPECT_EQ(dialog.Chooser.File1.FileName(), "x.jpg");
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\p");
        EXPECT_EQ(dialog.Chooser.File1.Pattern.Get(),
                  "*.dib;*.bmp;*.gif;*.jpg;*.jif;*.jpe;*.jpeg;*.ico;*.wmf;*.emf;*.rle;*.pcx;*.tga;*.cur");
        Press(dialog.CmdHelp);
        EXPECT_EQ(platform.help.calls.back().data, 780U);
        ExpectWarning("The selected drive is currently not available...");
        dialog.Chooser.Drive1.Deliver(forms::RowEvent{0});
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\Tavrix");
        Press(dialog.CmdCancel);
        EXPECT_TRUE(dialog.Unloaded());
    });
}

TEST_F(RenameTest, TheFourLastCharactersStay) {
    Begin();
    ExpectRenamed("a.bmp", "b2", "b2.bmp");
    ExpectRenamed("a.bmp", "b3.jpg", "b3.jpg.bmp");
    ExpectRenamed("a.JPG", "b4.jpg", "b4.jpg.JPG");
    ExpectRenamed("photo.jpeg", "b", "bjpeg");
    ExpectRenamed("a.bmp", "it's my é picture.bmp", "it's my é picture.bmp");
}

TEST_F(RenameTest, OfTheImageOnShowTheirCaseDoesNotMatter) {
    Begin();
    RenameCurrent("y");
    EXPECT_EQ(At("C:\\p\\y.jpg"), image);
    platform.disks.PutFile("C:\\p\\z.JPG", "capital");
    View().imageOnShow.Become("C:\\p\\z.JPG");
    RenameCurrent("b.jpg");
    EXPECT_EQ(At("C:\\p\\b.jpg"), "capital");
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [C:\\p\\b.jpg]");
    RenameCurrent("b.png");
    EXPECT_EQ(At("C:\\p\\b.png.jpg"), "capital");
}

TEST_F(RenameTest, TheMainViewFollowsThoughItWasAnotherFile) {
    Setting("Recent2", "C:\\p\\a.bmp");
    Setting("FavoriteFile3", "C:\\P\\A.BMP");
    Begin();
    Rename("a.bmp", "new");
    EXPECT_EQ(module.CurrentImage, "C:\\p\\new.bmp");
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [C:\\p\\new.bmp]");
    EXPECT_EQ(Recent()[0], "C:\\p\\new.bmp");
    EXPECT_EQ(std::ranges::count(Recent(), "C:\\p\\a.bmp"), 0);
    EXPECT_EQ(Favorites()[2], "C:\\p\\new.bmp");
    EXPECT_EQ(At(ImagePath), image);
}

TEST_F(RenameTest, AnEditThatIsLeftSoOutlivesTheExit) {
    Setting("DeleteUntitled", "True");
    Begin();
    platform.pictures.SetPicture("C:\\Temp\\Untitled.BMP", PlainPicture(4, 4));
    const auto edit = At("C:\\Temp\\Untitled.BMP");
    module.CurrentImage = "C:\\Temp\\Untitled.BMP";
    Rename("a.bmp", "new");
    EXPECT_TRUE(Ends([this] { View().Deliver(forms::CloseEvent{}); }));
    EXPECT_EQ(At("C:\\Temp\\Untitled.BMP"), edit);
}

TEST_F(RenameTest, SaysWhatIsMissing) {
    Begin();
    InDialog([this](RenameImgFrm& dialog) {
        ExpectTold("Unable to rename selected file, image is currently open...", Title);
        Press(dialog.CmdRename);
        dialog.Chooser.File1.ListIndex = -1;
        ExpectTold("A file has not been selected, nothing to rename...", Title);
        Press(dialog.CmdRename);
        dialog.Chooser.Dir1.Path = "C:\\q";
        ExpectTold("There are no files in the selected directory to rename...", Title);
        Press(dialog.CmdRename);
    });
}

TEST_F(RenameTest, RefusesAName) {
    Begin();
    const auto before = platform.disks.AllFiles();
    for (const char* path : {"C:new", "..\\new", "sub/new"}) {
        Rename("a.bmp", path, false, "You may not include a path in the filename, unable to rename file...");
    }
    Rename("a.bmp", "A", false, "The new filename is the same as the current one, unable to rename file...");
    Rename("a.bmp", "B.bmp", false,
           "The filename that was specified already exists, unable to rename file...");
    platform.disks.PutFolder("C:\\p\\folder.bmp");
    Rename("a.bmp", "folder", false,
           "The filename that was specified already exists, unable to rename file...");
    Rename("a.bmp", "", false);
    EXPECT_EQ(platform.disks.AllFiles(), before);
}

TEST_F(RenameTest, RefusesANameForTheImageOnShow) {
    Begin();
    platform.disks.PutFile("C:\\p\\taken.jpg", "taken");
    const auto before = platform.disks.AllFiles();
    struct Case {
        const char* answer;
        const char* text;
    };
    for (const Case& one :
         {Case{"q\\y.jpg", "You may not include a path in the filename, unable to rename file..."},
          Case{"X.JPG", "The new filename is the same as the current one, unable to rename file..."},
          Case{"TAKEN", "The filename that was specified already exists, unable to rename file..."}}) {
        ExpectName(ImagePath, one.answer, CurrentTitle);
        ExpectTold(one.text, CurrentTitle);
        EXPECT_FALSE(Choose(View().menu.mnuRenameCurrentImg));
    }
    RenameCurrent("");
    RenameCurrent(std::nullopt);
    EXPECT_EQ(platform.disks.AllFiles(), before);
    EXPECT_EQ(module.CurrentImage, ImagePath);
}

TEST_F(RenameTest, AFailureUpdatesNothing) {
    Begin();
    platform.faults.FailAlways(headless::Service::Files, "Rename", ErrorNumber::PathFileAccessError);
    InDialog([this](RenameImgFrm& dialog) {
        dialog.Chooser.File1.ListIndex = 0;
        ExpectName("C:\\p\\a.bmp", "new");
        ExpectStop("Unable to rename selected file to: new.bmp\r\n\r\nPath/File access error...", Title);
        Press(dialog.CmdRename);
        EXPECT_FALSE(dialog.Unloaded());
        EXPECT_FALSE(module.Busy());
    });
    ExpectName(ImagePath, "new", CurrentTitle);
    ExpectStop("Unable to rename current file to: new.jpg\r\n\r\nPath/File access error...", CurrentTitle);
    EXPECT_FALSE(Choose(View().menu.mnuRenameCurrentImg));
    EXPECT_EQ(module.CurrentImage, ImagePath);
    EXPECT_EQ(At("C:\\p\\a.bmp"), "a.bmp");
    ExpectIdle();
}

TEST_F(RenameTest, ALookAlikeOfAVanishedFileIsAnotherFile) {
    Begin();
    InDialog([this](RenameImgFrm& dialog) {
        dialog.Chooser.File1.ListIndex = 0;
        platform.disks.Remove("C:\\p\\a.bmp");
        platform.disks.PutFile("C:\\p\\A.BMP", "other");
        ExpectName("C:\\p\\a.bmp", "new");
        ExpectStop("Unable to rename selected file to: new.bmp\r\n\r\nFile not found...", Title);
        Press(dialog.CmdRename);
    });
    EXPECT_EQ(At("C:\\p\\A.BMP"), "other");
}

TEST_F(RenameTest, OfLookAlikesTheSelectedOneIsRenamed) {
    Begin();
    PutLookAlike("C:\\p\\A.bmp", "capital");
    Rename("A.bmp", "new.bmp");
    EXPECT_EQ(At("C:\\p\\new.bmp"), "capital");
    EXPECT_EQ(At("C:\\p\\a.bmp"), "a.bmp");
}

TEST_F(RenameTest, AnotherFileCanBeRenamedAtOnce) {
    Begin();
    InDialog([this](RenameImgFrm& dialog) {
        dialog.Chooser.File1.ListIndex = 0;
        ExpectName("C:\\p\\a.bmp", "new");
        ExpectAnother(Answer::Yes);
        dialog.Chooser.File1.Deliver(forms::DoubleClickEvent{});
        EXPECT_FALSE(dialog.Unloaded());
        EXPECT_EQ(Listed(dialog.Chooser.File1), (Names{"b.bmp", "c.bmp", "new.bmp", "x.jpg"}));
        EXPECT_EQ(dialog.Chooser.File1.ListIndex.Get(), -1);
    });
}

TEST_F(RenameTest, OpensOnceAndOnlyWithAnImage) {
    Begin();
    ExpectGuarded<RenameImgFrm>(View().menu.mnuRenameImg, "RenameImgFrm");
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    EXPECT_FALSE(Choose(View().menu.mnuRenameCurrentImg));
    module.Screen().MousePointer = forms::MousePointer::Default;
    module.CurrentImage.clear();
    EXPECT_FALSE(Choose(View().menu.mnuRenameCurrentImg));
    InDialog([](RenameImgFrm& dialog) { EXPECT_EQ(dialog.Chooser.File1.ListIndex.Get(), -1); });
}

}  // namespace
}  // namespace tavrix::test
