#include "finding/FindImageFrm.h"

#include "editing/SavingTest.h"
#include "finding/FindingTest.h"
#include "viewer/EndOfSession.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::BoxIcon;
using headless::Service;

constexpr const char* Title = "Tavrix - [Find Image(s)]";
constexpr const char* Hint = "Enter part of a filename and press the \"Find\" button...";
constexpr const char* None = "Unable to find filenames matching the specified file pattern...";
constexpr const char* NoFiles =
    "No valid image files were found, select a drive and press the \"Find\" button to search for files...";
constexpr const char* IsOpenText = "Unable to delete this file, image is currently open...";

class FindImageFrmTest : public FindingTest<FindImageFrm> {
  protected:
    FindImageFrmTest() : FindingTest("FindImageFrm", &MainMenu::mnuFindImage) {}

    void InFind(const std::function<void(FindFiles&)>& user) {
        Show([user](FindImageFrm& form) { user(form.Find); });
    }
    static void Find(FindFiles& find, const std::string& text) {
        find.txtSearch.Deliver(forms::TextEvent{text});
        Press(find.CmdFind);
    }
    static Texts Listed(const FindFiles& find) { return find.ListFiles.Texts(); }
    void ExpectTold(const std::string& text) { Expect({.text = text, .title = Title}); }
    /// Finds the file of this name and opens it.
    void FindAndOpen(const std::string& name) {
        InFind([&, this](FindFiles& find) {
            Find(find, name);
            ASSERT_EQ(find.ListFiles.ListCount(), 1);
            Press(find.CmdOpen);
            EXPECT_EQ(app.Loaded<FindImageFrm>(), nullptr);
        });
    }
};

TEST_F(FindImageFrmTest, TextsAreAsTold) {
    InFind([](FindFiles& find) {
        const forms::Form& form = find.CmdFind.OwnerForm();
        EXPECT_EQ(form.Caption.Get(), "Find Image(s)");
        EXPECT_EQ(form.HelpContext, 570U);
        const Texts texts{find.lblDrives.Caption, find.Drive1.ToolTip,    find.lblSearch.Caption,
                          find.txtSearch.ToolTip, find.lblFound.Caption,  find.CmdFind.Caption,
                          find.CmdFind.ToolTip,   find.CmdOpen.Caption,   find.CmdOpen.ToolTip,
                          find.CmdCancel.Caption, find.CmdCancel.ToolTip, find.CmdHelp.Caption};
        EXPECT_EQ(
            texts,
            (Texts{"Select drive to search:", "Click to select drive.",
                   "Enter filename pattern to search for or enter * to find ALL image files:",
                   "Enter * or part of a filename and press the \"Find\" button to search for images...",
                   "File(s) Found:", "&Find File(s)",
                   "Click here to find images matching the specified pattern.", "&Open",
                   "Click here to open the selected file.", "&Cancel", "Don't open file.", "Help"}));
        EXPECT_EQ(Printed(find.PicFound), Hint);
    });
}

TEST_F(FindImageFrmTest, FindsImagesOfAllKindsAndNothingElse) {
    Texts wanted;
    for (const char* ending : {"bmp", "CUR", "dib", "emf", "gif", "ico", "jif", "jpe", "jpeg", "jpg", "pcx",
                               "rle", "tga", "wmf"}) {
        wanted.push_back(std::string("D:\\a.") + ending);
        Put(wanted.back());
    }
    for (const char* other : {"D:\\a.tvs", "D:\\a.txt", "D:\\a.png", "D:\\bmp"})
        Put(other);
    InFind([&](FindFiles& find) {
        find.Drive1.Drive = "D:";
        for (const char* text : {"*", "?"}) {
            Find(find, text);
            EXPECT_EQ(Listed(find), wanted) << text;
            EXPECT_EQ(find.txtSearch.Text.Get(), "*");
            EXPECT_EQ(find.txtSearch.SelLength.Get(), 1);
            EXPECT_EQ(Printed(find.PicFound), "Found a total of: 14 images on D:");
        }
    });
}

TEST_F(FindImageFrmTest, TheCaseOfTheNameCounts) {
    Put("C:\\p\\CAT.JPG");
    InFind([this](FindFiles& find) {
        ExpectTold(None);
        Find(find, "cat");
        EXPECT_EQ(Printed(find.PicFound), None);
        Find(find, "CA?T*");
        EXPECT_EQ(Listed(find), Texts{"C:\\p\\CAT.JPG"});
        EXPECT_EQ(Printed(find.PicFound), "Found a total of: 1 images on C:");
    });
}

TEST_F(FindImageFrmTest, SubfoldersComeBeforeTheFilesOfTheirFolder) {
    for (const char* path : {"D:\\z.bmp", "D:\\b\\1.bmp", "D:\\b\\x\\2.bmp", "D:\\a\\3.bmp", "D:\\a.bmp"})
        Put(path);
    InFind([](FindFiles& find) {
        find.Drive1.Drive = "D:";
        Find(find, "*");
        EXPECT_EQ(Listed(find),
                  (Texts{"D:\\a\\3.bmp", "D:\\b\\x\\2.bmp", "D:\\b\\1.bmp", "D:\\a.bmp", "D:\\z.bmp"}));
    });
}

TEST_F(FindImageFrmTest, NothingEnteredIsAskedAbout) {
    Put("C:\\p\\a.bmp");
    InFind([this](FindFiles& find) {
        Expect({.text = "Nothing was entered...\r\n\r\nFind ALL image files on C:?",
                .icon = BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = Answer::Yes,
                .title = Title});
        Find(find, "");
        EXPECT_EQ(Listed(find), Texts{"C:\\p\\a.bmp"});
    });
}

TEST_F(FindImageFrmTest, TheStatusTellsHowFarItIs) {
    Put("D:\\1\\a.bmp");
    Put("D:\\2\\a.bmp");
    InFind([this](FindFiles& find) {
        find.Drive1.Drive = "D:";
        int seen = 0;
        WhileReading("D:\\1\\", [&] { seen += Printed(find.PicFound) == "Searching for images..." ? 1 : 0; });
        WhileReading("D:\\2\\", [&] { seen += Printed(find.PicFound) == "Found: 1 images..." ? 1 : 0; });
        Find(find, "*");
        EXPECT_GE(seen, 1);
    });
}

TEST_F(FindImageFrmTest, CancelKeepsWhatWasFound) {
    Put("D:\\1\\a.bmp");
    Put("D:\\2\\a.bmp");
    InFind([this](FindFiles& find) {
        find.Drive1.Drive = "D:";
        WhileReading("D:\\2\\", [&] { Press(find.CmdCancel); });
        Find(find, "*");
        EXPECT_EQ(Listed(find), Texts{"D:\\1\\a.bmp"});
        EXPECT_EQ(Printed(find.PicFound), "Find Image(s) was canceled...");
        WhileReading("D:\\1\\", [&] { Press(find.CmdCancel); });
        ExpectTold(None);
        Find(find, "*");
        EXPECT_EQ(Printed(find.PicFound), None);
    });
}

TEST_F(FindImageFrmTest, AnUnsavedImageIsAskedAboutFirst) {
    ASSERT_TRUE(Start());
    PutPicture(WorkingPath, 60, 50);
    module.CurrentImage = WorkingPath;
    ExpectDiscard(Answer::No);
    ExpectNotShown();
    EXPECT_EQ(module.CurrentImage, WorkingPath);
    ExpectDiscard(Answer::Yes);
    InFind([this](FindFiles&) { EXPECT_EQ(module.CurrentImage, WorkingPath); });
}

TEST_F(FindImageFrmTest, ABusyProgramDoesNotFind) {
    ASSERT_TRUE(Start());
    const forms::BusyGuard busy(module.Screen());
    ExpectNotShown();
}

TEST_F(FindImageFrmTest, ATopmostWindowMakesRoom) {
    Setting("TopMostWindow", "True");
    InFind([this](FindFiles&) { EXPECT_FALSE(Window().topmost); });
    EXPECT_TRUE(Window().topmost);
}

TEST_F(FindImageFrmTest, OpensTheSelectedFile) {
    PutPicture("D:\\p\\a.bmp", 70, 50);
    PutPicture("D:\\p\\b.bmp", 80, 50);
    InFind([this](FindFiles& find) {
        find.Drive1.Drive = "D:";
        Find(find, "*");
        find.ListFiles.ListIndex = 1;
        EXPECT_EQ(find.ListFiles.ToolTip.Get(), "D:\\p\\b.bmp");
        toolkit.AtYield(1, [&] {
            EXPECT_FALSE(View().picFrame.Visible);
            EXPECT_FALSE(find.CmdOpen.OwnerForm().Visible());
            EXPECT_TRUE(module.Busy());
        });
        find.ListFiles.Deliver(forms::DoubleClickEvent{});
    });
    EXPECT_EQ(module.CurrentImage, "D:\\p\\b.bmp");
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [D:\\p\\b.bmp]");
    EXPECT_FLOAT_EQ(View().MainImage.Width, 80 * 15.0F);
    EXPECT_EQ(platform.files.CurrentFolder(), "D:\\p");
    EXPECT_EQ(module.config.Recent[0], "D:\\p\\b.bmp");
    EXPECT_TRUE(View().menu.mnuEdit.Visible);
}

TEST_F(FindImageFrmTest, TheFullScreenViewFollowsBeforeTheImageIsShown) {
    Setting("ViewFullScreen", "True");
    PutPicture("C:\\p\\a.bmp", 70, 50);
    ASSERT_TRUE(Start());
    int full = 0;
    View().menu.mnuFullScreen.Install([&, this] {
        ++full;
        EXPECT_FALSE(module.Busy());
        EXPECT_FALSE(View().picFrame.Visible);
    });
    FindAndOpen("a.bmp");
    EXPECT_EQ(full, 1);
}

TEST_F(FindImageFrmTest, WithoutAFileNothingOpens) {
    Put("C:\\p\\a.bmp");
    InFind([this](FindFiles& find) {
        ExpectTold(NoFiles);
        Press(find.CmdOpen);
        Find(find, "*");
        find.ListFiles.ListIndex = -1;
        ExpectTold("Select a file to open and then try again...");
        Press(find.CmdOpen);
    });
}

TEST_F(FindImageFrmTest, AFailedOpenLeavesTheEmptyView) {
    Put("C:\\p\\broken.bmp", "no picture");
    PutPicture(ImagePath, 300, 300);
    ASSERT_TRUE(Start(ImagePath));
    Expect({.text = "Unable to open the selected file.\r\n\r\nInvalid picture...",
            .icon = BoxIcon::Stop,
            .title = Title});
    FindAndOpen("broken.bmp");
    ExpectEmptyView();
}

TEST_F(FindImageFrmTest, ImportsWhatCannotBeOpened) {
    const Pixel white = OpaquePixel(255, 255, 255);
    Put("D:\\p\\t.TGA", PlainTga(5, 4, white, white));
    ASSERT_TRUE(Start());
    platform.files.ChangeDrive("D");
    FindAndOpen("t.TGA");
    EXPECT_EQ(module.CurrentImage, WorkingPath);
    EXPECT_EQ(View().Caption.Get(), std::string("Tavrix - [") + WorkingPath + "]");
    EXPECT_EQ(View().MainImage.Image().Width(), 5);
    EXPECT_EQ(platform.pictures.Load(WorkingPath).Width(), 5);
    EXPECT_EQ(platform.files.CurrentFolder(), "D:\\p");
    EXPECT_TRUE(View().menu.mnuEdit.Visible);
    EXPECT_EQ(module.config.Recent[0], WorkingPath);
    // It has not been saved.
    ExpectDiscard(Answer::No);
    ExpectNotShown();
}

TEST_F(FindImageFrmTest, AReadOnlyWorkingFileHasAnotherInItsPlace) {
    Put("C:\\p\\x.tga", PlainTga(5, 4, 0, 0));
    Put(WorkingPath, "kept");
    platform.disks.SetReadOnly(WorkingPath, true);
    FindAndOpen("x.tga");
    EXPECT_EQ(module.CurrentImage, "C:\\Tavrix\\Untitled.BMP");
    EXPECT_EQ(platform.disks.Content(WorkingPath), "kept");
}

TEST_F(FindImageFrmTest, AFailedImportWritesNoWorkingFile) {
    Put("C:\\p\\broken.tga", "no picture");
    PutPicture(ImagePath, 300, 300);
    ASSERT_TRUE(Start(ImagePath));
    Expect({.text = "Unable to open the selected file.\r\n\r\nInvalid picture...",
            .icon = BoxIcon::Stop,
            .title = Title});
    FindAndOpen("broken.tga");
    ExpectEmptyView();
    EXPECT_FALSE(platform.disks.Exists(WorkingPath)) << "the former picture is not what was imported";
}

TEST_F(FindImageFrmTest, AnImportThatCannotBeWrittenLeavesTheEmptyView) {
    Put("C:\\p\\x.tga", PlainTga(5, 4, 0, 0));
    ASSERT_TRUE(Start());
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    Expect({.text = "Unable to write imported image to a temporary file.\r\n\r\nDisk full...",
            .icon = BoxIcon::Stop});
    FindAndOpen("x.tga");
    ExpectEmptyView();
}

TEST_F(FindImageFrmTest, TheDeleteKeyDeletesTheSelectedFile) {
    for (const char* path : {"D:\\a.bmp", "D:\\b.bmp", "D:\\c.bmp"})
        PutPicture(path, 10, 10);
    ASSERT_TRUE(Start());
    for (const char* path : {"D:\\b.bmp", "D:\\c.bmp"})
        View().Deliver(forms::DropEvent{{path}});
    InFind([this](FindFiles& find) {
        Expect({.text = "Unable to delete file by pressing the delete key, nothing is selected in the file "
                        "list..."});
        PressDelete(find.ListFiles);
        find.Drive1.Drive = "D:";
        Find(find, "*");
        find.ListFiles.ListIndex = 1;
        ExpectRecycle("D:\\b.bmp", Answer::Yes);
        PressDelete(find.ListFiles);
        EXPECT_EQ(Listed(find), (Texts{"D:\\a.bmp", "D:\\c.bmp"}));
        EXPECT_EQ(find.ListFiles.ListIndex.Get(), 1);
        EXPECT_EQ(find.ListFiles.ToolTip.Get(), "D:\\c.bmp");
        EXPECT_EQ(Printed(find.PicFound), "Found a total of: 2 images on D:");
        EXPECT_EQ(module.config.Recent[0], "D:\\c.bmp");
        EXPECT_EQ(module.config.Recent[1], "");
        Expect({.text = IsOpenText});
        PressDelete(find.ListFiles);
        EXPECT_EQ(find.ListFiles.ListCount(), 2);
        EXPECT_FALSE(module.Busy());
        find.ListFiles.ListIndex = 0;
        ExpectRecycle("D:\\a.bmp", Answer::No);
        PressDelete(find.ListFiles);
        EXPECT_EQ(Listed(find), Texts{"D:\\c.bmp"}) << "the row goes";
        EXPECT_TRUE(platform.disks.Exists("D:\\a.bmp")) << "and the file stays";
    });
    EXPECT_FALSE(platform.disks.Exists("D:\\b.bmp"));
}

TEST_F(FindImageFrmTest, TheOpenImageIsMeantWhateverTheCase) {
    PutPicture("D:\\p\\a.bmp", 10, 10);
    ASSERT_TRUE(Start("d:\\P\\A.BMP"));
    InFind([this](FindFiles& find) {
        Find(find, "*");
        Expect({.text = IsOpenText});
        PressDelete(find.ListFiles);
    });
    EXPECT_TRUE(platform.disks.Exists("D:\\p\\a.bmp"));
}

TEST_F(FindImageFrmTest, WithoutItsOnlyRowThereIsNothingToOpen) {
    Put("D:\\a.bmp");
    InFind([this](FindFiles& find) {
        find.Drive1.Drive = "D:";
        Find(find, "*");
        ExpectRecycle("D:\\a.bmp", Answer::Yes);
        PressDelete(find.ListFiles);
        EXPECT_EQ(Listed(find), Texts{});
        EXPECT_EQ(find.FoundCount, 0);
        ExpectTold(NoFiles);
        Press(find.CmdOpen);
    });
}

TEST_F(FindImageFrmTest, AFileThatWasNotDeletedKeepsItsRow) {
    Put("D:\\X.BMP");
    Put("D:\\y.bmp");
    InFind([this](FindFiles& find) {
        find.Drive1.Drive = "D:";
        Find(find, "*");
        // It has vanished, and another file stands beside where it was.
        platform.disks.Remove("D:\\X.BMP");
        Put("D:\\x.bmp", "another one");
        Expect({.text = "Unable to delete the selected file.\r\n\r\nFile not found...",
                .icon = BoxIcon::Exclamation});
        PressDelete(find.ListFiles);
        EXPECT_EQ(Listed(find), (Texts{"D:\\X.BMP", "D:\\y.bmp"}));
        find.ListFiles.ListIndex = 1;
        platform.faults.FailAlways(Service::Shell, "Trash", ErrorNumber::PermissionDenied);
        ExpectRecycle("D:\\y.bmp", Answer::Yes);
        Expect({.text = "Unable to delete the selected file.\r\n\r\nPermission denied...",
                .icon = BoxIcon::Exclamation});
        PressDelete(find.ListFiles);
        EXPECT_EQ(find.ListFiles.ListCount(), 2);
        EXPECT_EQ(find.FoundCount, 2);
    });
    EXPECT_EQ(platform.disks.Content("D:\\x.bmp"), "another one");
    EXPECT_TRUE(platform.disks.Exists("D:\\y.bmp"));
}

TEST_F(FindImageFrmTest, TheEndOfTheSessionInASearchSaves) {
    Put("D:\\1\\a.bmp");
    InFind([this](FindFiles& find) {
        find.Drive1.Drive = "D:";
        bool saved = false;
        WhileReading("D:\\1\\", [&, this] {
            module.config.QualityJPG = 3;
            SaveForEndOfSession(module);
            saved = Saved("QualityJPG") == "3";
        });
        Find(find, "*");
        EXPECT_TRUE(saved);
        EXPECT_EQ(Listed(find), Texts{"D:\\1\\a.bmp"});
    });
}

}  // namespace
}  // namespace tavrix::test
