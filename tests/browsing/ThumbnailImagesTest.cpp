#include "BrowsingTest.h"

namespace tavrix::test {
namespace {

const std::string ShowInfo = "Show &Image Information";
const std::string ViewImage = "»»  Vie&w Image  ««";
const std::string ViewGif = "»»  &View Animated GIF  ««";
const std::string Rule = "_____________________";

class ThumbnailImagesTest : public BrowsingTest {
  protected:
    /// The browser on files of these names, each a picture.
    void BrowseNames(const std::vector<std::string>& names) {
        for (const std::string& name : names)
            PutPicture("C:\\p\\" + name, 20, 10);
        BrowseAsItIs();
    }
    void DropFailing(const std::string& path, const std::string& error) {
        ExpectFailedThumbnail(path, error, Answer::Ok);
        Drop({path});
    }
    [[nodiscard]] bool PopupHas(const std::string& caption) const {
        for (const auto* entry : toolkit.Popups().back().menu->entries) {
            if (entry->state.caption == caption) return entry->state.visible;
        }
        return false;
    }
};

TEST_F(ThumbnailImagesTest, ALeftClickOpensTheImage) {
    platform.files.ChangeFolder("C:\\");
    PutNumbered(12);
    ASSERT_TRUE(Start());
    InDialog<frmThumbFolder>("frmThumbFolder", [](auto& dialog) {
        dialog.Chooser.Dir1.Path = "C:\\p";
        Press(dialog.CmdOK);
    });
    Choose(View().menu.mnuThumbnailBrowse);
    platform.files.ChangeFolder("C:\\");
    Press(Browser().CmdNext);
    Click(2);
    EXPECT_EQ(app.Loaded<frmThumbnail>(), nullptr);
    EXPECT_EQ(module.CurrentImage, PathOf(12));
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [" + PathOf(12) + "]");
    EXPECT_EQ(View().MainImage.Width, 20 * 15);
    EXPECT_EQ(module.config.Recent[0], PathOf(12));
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\p");
    EXPECT_TRUE(View().menu.mnuSaveCopy.Enabled);
    ASSERT_NE(Visible("MainViewFrm"), nullptr);
    ExpectIdle();
}

TEST_F(ThumbnailImagesTest, AClickBesideAThumbnailIsOneOnIt) {
    Browse(2);
    Mouse(Browser().picHoldPreview[5], MouseAction::Down, MouseButton::Left);
    EXPECT_EQ(module.CurrentImage, "");
    Mouse(Browser().picHoldPreview[1], MouseAction::Down, MouseButton::Middle);
    EXPECT_EQ(module.CurrentImage, PathOf(2));
}

TEST_F(ThumbnailImagesTest, NothingOpensWhileTheProgramIsBusy) {
    Browse(2);
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    Click(0);
    Popup(0);
    Browser().mnuShowInfo.Click();
    Browser().mnuPreviewImg.Click();
    Browser().mnuViewAnimatedGIF.Click();
    EXPECT_EQ(module.CurrentImage, "");
    EXPECT_EQ(module.Screen().MousePointer.Get(), forms::MousePointer::Hourglass);
    EXPECT_EQ(toolkit.Popups().size(), 0U);
    EXPECT_EQ(app.Loaded<FullViewFrm>(), nullptr);
    module.Screen().MousePointer = forms::MousePointer::Default;
}

TEST_F(ThumbnailImagesTest, AnUnsavedImageIsAskedAbout) {
    Browse(12);
    const std::string working = "C:\\Temp\\Untitled.BMP";
    platform.pictures.SetPicture(working, PlainPicture(7, 7));
    View().MainImage.Picture = PlainPicture(7, 7);
    View().imageOnShow.Become(working);
    ExpectDiscard(Answer::No);
    Click(1);
    ASSERT_NE(app.Loaded<frmThumbnail>(), nullptr);
    EXPECT_NE(Visible("frmThumbnail"), nullptr);
    EXPECT_EQ(Visible("MainViewFrm"), nullptr);
    ExpectPage(1, 9);
    EXPECT_EQ(module.CurrentImage, working);
    EXPECT_EQ(View().MainImage.Width, 7 * 15);
    ExpectIdle();
    ExpectDiscard(Answer::Yes);
    Click(1);
    EXPECT_EQ(module.CurrentImage, PathOf(2));
    EXPECT_EQ(app.Loaded<frmThumbnail>(), nullptr);
}

TEST_F(ThumbnailImagesTest, AFailedOpenEndsInAnEmptyView) {
    Browse(2);
    platform.pictures.SetFailure(PathOf(1), RuntimeError(ErrorNumber::InvalidPicture));
    Expect({.text = "Unable to open the selected image file.\r\n\r\nInvalid picture...",
            .icon = forms::BoxIcon::Stop});
    Click(0);
    EXPECT_EQ(app.Loaded<frmThumbnail>(), nullptr);
    ExpectEmptyView();
    ASSERT_NE(Visible("MainViewFrm"), nullptr);
    ExpectIdle();
}

TEST_F(ThumbnailImagesTest, TheFullScreenFollowsWhereItIsWanted) {
    Setting("ViewFullScreen", "True");
    Browse(2);
    int shown = 0;
    InDialog<FullViewFrm>("FullViewFrm", [&](FullViewFrm&) {
        ++shown;
        EXPECT_EQ(module.StageImage, PathOf(2));
    });
    Click(1);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(app.Loaded<frmThumbnail>(), nullptr);
    ExpectIdle();
}

TEST_F(ThumbnailImagesTest, AJpegWithFourLettersIsShownAndNotOpened) {
    BrowseNames({"a.jpeg", "b.jpe"});
    MoveOver(Browser().picPreview[0]);
    EXPECT_EQ(Browser().lblHotspotMsg.Caption.Get(),
              "a.jpeg (" + std::to_string(platform.files.Info("C:\\p\\a.jpeg").length) + " bytes)");
    for (const int button : {MouseButton::Left, MouseButton::Right}) {
        ExpectTold(
            "The selected file type (JPEG) is not supported by Tavrix, unable to show information and/or "
            "open:\r\n\r\nC:\\p\\a.jpeg");
        Click(0, button);
    }
    EXPECT_EQ(toolkit.Popups().size(), 0U);
    ExpectReady();
    Click(1);
    EXPECT_EQ(module.CurrentImage, "C:\\p\\b.jpe");
}

TEST_F(ThumbnailImagesTest, EveryKindThatIsOpenedIsOpened) {
    for (const char* ending : {"BMP", "dib", "Jpg", "jif", "jpe", "gif", "wmf", "emf", "ico", "rle", "cur"}) {
        const std::string path = std::string("C:\\p\\x.") + ending;
        PutPicture(path, 4, 4);
        if (app.Loaded<MainViewFrm>() == nullptr) {
            BrowseAsItIs();
        } else {
            Choose(View().menu.mnuThumbnailBrowse);
        }
        Drop({path});
        Click(0);
        EXPECT_EQ(module.CurrentImage, path);
    }
}

TEST_F(ThumbnailImagesTest, WhatIsDroppedIsCheckedOnAClick) {
    Browse(1);
    platform.disks.PutFolder("C:\\p\\sub");
    platform.disks.PutFile("C:\\p\\show.tvs", "x");
    platform.disks.PutFile("C:\\p\\a.Tga", "x");
    platform.disks.PutFile("C:\\p\\a.pcx", "x");
    platform.disks.PutFile("C:\\p\\a.txt", "x");
    platform.disks.PutFile("C:\\p\\b", "x");
    const std::vector<std::array<std::string, 3>> cases{
        {"C:\\p\\sub", "Path/File access error",
         "A folder was selected instead of an image file, unable to show information and/or view the "
         "folder:"},
        {"C:\\p\\show.tvs", "Invalid picture",
         "The Tavrix slide show file type (.TVS) is not an image file, unable to show information and/or "
         "open:"},
        {"C:\\p\\a.Tga", "Invalid picture",
         ".TGA files must be imported into Tavrix and then saved as a supported format first, unable to show "
         "information and/or open:"},
        {"C:\\p\\a.pcx", "Invalid picture",
         ".PCX files must be imported into Tavrix and then saved as a supported format first, unable to show "
         "information and/or open:"},
        {"C:\\p\\a.txt", "Invalid picture",
         "The selected file type (.TXT) is not supported by Tavrix, unable to show information and/or open:"},
        {"C:\\p\\b", "Invalid picture",
         "The selected file type (\\P\\B) is not supported by Tavrix, unable to show information and/or "
         "open:"}};
    for (const auto& [path, error, text] : cases) {
        DropFailing(path, error);
        EXPECT_TRUE(Browser().picPreview[0].Visible);
        ExpectTold(text + "\r\n\r\n" + path);
        Click(0);
        ExpectReady();
        ASSERT_NE(Visible("frmThumbnail"), nullptr);
    }
    EXPECT_EQ(module.CurrentImage, "");
}

TEST_F(ThumbnailImagesTest, AFolderWithTheNameOfAFileIsTakenForIt) {
    Browse(1);
    platform.disks.PutFolder("C:\\p\\a.tga");
    DropFailing("C:\\p\\a.tga", "Path/File access error");
    ExpectTold(
        "A folder was selected instead of an image file, unable to show information and/or view the "
        "folder:\r\n\r\nC:\\p\\a.tga");
    Click(0);
}

TEST_F(ThumbnailImagesTest, DropsTakeThePlaceOfTheList) {
    Browse(30);
    Drop({PathOf(20), PathOf(3)});
    EXPECT_EQ(Page(), (std::vector<int>{20, 3}));
    EXPECT_EQ(Browser().lblInfo.Caption.Get(), "Tavrix is showing thumbnails of selected files...");
    EXPECT_FALSE(Browser().CmdNext.Visible);
    EXPECT_EQ(Browser().lblNumFiles.Caption.Get(), "2");
    Browser().picPreview[0].Deliver(forms::DropEvent{{PathOf(4)}, 1, 1});
    EXPECT_EQ(Page(), std::vector<int>{4});
    Browser().Deliver(forms::DropEvent{{PathOf(5), "", PathOf(6)}, 1, 1});
    EXPECT_EQ(Page(), std::vector<int>{5});
    ExpectReady();
}

TEST_F(ThumbnailImagesTest, ADropWithoutAFileChangesNothing) {
    Browse(30);
    const long decoded = Decoded();
    Drop({});
    Drop({"", PathOf(2)});
    ExpectPage(1, 9);
    EXPECT_EQ(Browser().lblInfo.Caption.Get(), "C:\\p\\");
    EXPECT_EQ(Decoded(), decoded);
}

TEST_F(ThumbnailImagesTest, ADropWhileTheProgramIsBusyChangesNothing) {
    Browse(30);
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    Drop({PathOf(20)});
    module.Screen().MousePointer = forms::MousePointer::Default;
    ExpectPage(1, 9);
}

TEST_F(ThumbnailImagesTest, DroppedShortcutsAreFollowed) {
    Browse(30);
    platform.shell.links["C:\\p\\to seven.Lnk"] = PathOf(7);
    platform.disks.PutFile("C:\\p\\nowhere.lnk", "x");
    ExpectFailedThumbnail("C:\\p\\nowhere.lnk", "Invalid picture", Answer::Ok);
    Drop({"C:\\p\\to seven.Lnk", "C:\\p\\nowhere.lnk", PathOf(9)});
    EXPECT_EQ(Page(), (std::vector<int>{7, 0, 9}));
    EXPECT_EQ(Browser().picPreview[1].AccessibleName.Get(), "nowhere.lnk");
}

TEST_F(ThumbnailImagesTest, FiveThousandFilesAreTheMostOfADrop) {
    PutNumbered(9);
    BrowseAsItIs();
    std::vector<std::string> files;
    for (int i = 0; i < 5'000; ++i)
        files.push_back(PathOf(i % 9 + 1));
    Drop(files);
    EXPECT_EQ(Browser().lblNumFiles.Caption.Get(), "5000");
    for (int more = 0; more < 2; ++more)
        files.push_back(PathOf(1));
    Expect(
        {.text = "You may not select any more than 5,000 thumbnails at one time, maximum has been reached...",
         .icon = forms::BoxIcon::Exclamation});
    Drop(files);
    EXPECT_EQ(Browser().lblNumFiles.Caption.Get(), "5000");
    EXPECT_EQ(Page(), FromTo(1, 9));
    Press(Browser().CmdPrevious);
    EXPECT_EQ(Browser().lblShowing.Caption.Get(), "4992 to 5000");
}

TEST_F(ThumbnailImagesTest, ThePointerTellsOfTheImageUnderIt) {
    PutNumbered(10);
    platform.disks.PutFile("C:\\p\\a.gif", "GIF89a" + std::string(1228, ' '));
    platform.disks.PutFile("C:\\p\\b.gif", "");
    ExpectFailedThumbnail("C:\\p\\a.gif", "Invalid picture", Answer::Ok);
    ExpectFailedThumbnail("C:\\p\\b.gif", "Invalid picture", Answer::Ok);
    BrowseAsItIs();
    MoveOver(Browser().picPreview[0]);
    EXPECT_EQ(Browser().lblHotspotMsg.Caption.Get(), "a.gif (1,234 bytes)");
    MoveOver(Browser().picPreview[1]);
    EXPECT_EQ(Browser().lblHotspotMsg.Caption.Get(), "b.gif ( bytes)");
    platform.disks.Remove("C:\\p\\a.gif");
    MoveOver(Browser().picPreview[0]);
    EXPECT_EQ(Browser().lblHotspotMsg.Caption.Get(), "b.gif ( bytes)");
    Press(Browser().CmdNext);
    MoveOver(Browser().picPreview[0]);
    EXPECT_TRUE(Browser().lblHotspotMsg.Caption.Get().starts_with("n0008.bmp ("));
}

TEST_F(ThumbnailImagesTest, ThePopupNamesTheImage) {
    const std::string longName = "A & " + std::string(50, 'x') + "&y.bmp";
    BrowseNames({"a.bmp", longName, "c.GIF"});
    std::vector<std::string> captions;
    for (int slot = 0; slot < 3; ++slot) {
        Popup(slot);
        const auto& popup = toolkit.Popups().back();
        captions.push_back(popup.menu->entries[2]->state.caption);
        EXPECT_EQ(popup.defaultEntry->state.caption, ">>  Close Menu  <<          [Esc]");
        EXPECT_EQ(PopupHas(ViewGif), slot == 2) << slot;
        EXPECT_TRUE(PopupHas("S&elect Files          [Alt+E]"));
        EXPECT_TRUE(PopupHas("&Browse Folder          [Alt+B]"));
        EXPECT_TRUE(PopupHas(ShowInfo));
        EXPECT_TRUE(PopupHas(ViewImage));
        ExpectReady();
    }
    EXPECT_EQ(captions, (std::vector<std::string>{"&Open Image \"" + std::string(44, 'x') + "&&y.bmp\"...",
                                                  "&Open Image \"a.bmp\"...", "&Open Image \"c.GIF\"..."}));
}

TEST_F(ThumbnailImagesTest, ThePopupOpensTheImage) {
    Browse(12);
    Press(Browser().CmdNext);
    Popup(1, "&Open Image \"n0011.bmp\"...");
    EXPECT_EQ(module.CurrentImage, PathOf(11));
    EXPECT_EQ(app.Loaded<frmThumbnail>(), nullptr);
    ExpectIdle();
}

TEST_F(ThumbnailImagesTest, ThePopupLeadsToTheDialogs) {
    Browse(12);
    TakeFiles({5});
    Popup(0, "S&elect Files          [Alt+E]");
    EXPECT_EQ(Page(), std::vector<int>{6});
    Popup(0, "&Browse Folder          [Alt+B]");
    ExpectPage(1, 9);
    Popup(0, ">>  Close Menu  <<          [Esc]");
    ExpectPage(1, 9);
}

TEST_F(ThumbnailImagesTest, AnImageIsViewedWithoutAnotherFill) {
    Browse(12);
    Press(Browser().CmdNext);
    const long decoded = Decoded();
    int shown = 0;
    module.SlideShowActive = true;
    InDialog<FullViewFrm>("FullViewFrm", [&](FullViewFrm&) {
        ++shown;
        EXPECT_EQ(module.StageImage, PathOf(12));
        EXPECT_FALSE(module.SlideShowActive);
        EXPECT_FALSE(module.StageImageAnimated);
    });
    Popup(2, ViewImage);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(Decoded(), decoded);
    ExpectPage(10, 12);
    EXPECT_NE(Visible("frmThumbnail"), nullptr);
}

TEST_F(ThumbnailImagesTest, AnAnimatedGifIsPlayed) {
    PutNumbered(1);
    platform.disks.PutFile("C:\\p\\a.gif", "gif89A...");
    ExpectFailedThumbnail("C:\\p\\a.gif", "Invalid picture", Answer::Ok);
    BrowseAsItIs();
    int played = 0;
    InDialog<FullViewFrm>("FullViewFrm", [&](FullViewFrm&) { FAIL(); });
    // The stage cannot play it either, and says so; what it was asked for is what counts.
    Expect({.text = "Unable to view image:\r\n\r\nC:\\p\\a.gif\r\n\r\nInvalid picture...",
            .icon = forms::BoxIcon::Stop,
            .systemModal = true,
            .whileOpen = [&] {
                ++played;
                EXPECT_EQ(module.StageImage, "C:\\p\\a.gif");
                EXPECT_TRUE(module.StageImageAnimated);
                EXPECT_FALSE(module.SlideShowActive);
            }});
    const long decoded = Decoded();
    Popup(0, ViewGif);
    EXPECT_EQ(played, 1);
    EXPECT_FALSE(module.StageImageAnimated);
    EXPECT_EQ(Decoded(), decoded);
    ExpectReady();
}

TEST_F(ThumbnailImagesTest, AGifOfAnotherFormatIsNotPlayed) {
    PutNumbered(1);
    platform.disks.PutFile("C:\\p\\a.gif", "GIF87a...");
    ExpectFailedThumbnail("C:\\p\\a.gif", "Invalid picture", Answer::Ok);
    BrowseAsItIs();
    Expect({.text = "The current file is not in the GIF89a format, unable to animate...",
            .help = true,
            .helpContext = 1330,
            .whileOpen = [this] { EXPECT_FALSE(module.Busy()); }});
    Popup(0, ViewGif);
    EXPECT_EQ(app.Loaded<FullViewFrm>(), nullptr);
    EXPECT_EQ(module.StageImage, "C:\\p\\a.gif");
    ExpectReady();
}

TEST_F(ThumbnailImagesTest, AGifThatCannotBeReadIsPlayedAllTheSame) {
    PutPicture("C:\\p\\a.gif", 20, 10);
    BrowseAsItIs();
    platform.faults.FailAlways(headless::Service::Files, "Open", ErrorNumber::PermissionDenied);
    ExpectTold(
        "Unable to determine format of this GIF file, will attempt to animate anyway.\r\n\r\nPermission "
        "denied...");
    int played = 0;
    InDialog<FullViewFrm>("FullViewFrm", [&](FullViewFrm&) {
        ++played;
        EXPECT_TRUE(module.StageImageAnimated);
    });
    Popup(0, ViewGif);
    platform.faults.Clear();
    EXPECT_EQ(played, 1);
    EXPECT_FALSE(module.StageImageAnimated);
    ExpectReady();
}

TEST_F(ThumbnailImagesTest, WhatIsNoGifIsNotPlayed) {
    Browse(1);
    Popup(0);
    ExpectTold("The current image is not a .GIF file, unable to animate...");
    Browser().mnuViewAnimatedGIF.Click();
    EXPECT_EQ(app.Loaded<FullViewFrm>(), nullptr);
    ExpectReady();
}

TEST_F(ThumbnailImagesTest, InformationIsAboutTheImageInTheSlot) {
    const DateTime moment{2024, 2, 29, 13, 5, 9};
    PutNumbered(9);
    const std::string content = platform.pictures.SetPicture("C:\\p\\z.rle", PlainPicture(300, 200));
    platform.disks.PutFile("C:\\p\\z.rle", content, moment);
    BrowseAsItIs();
    Press(Browser().CmdFwd1);
    const auto report = [&](const std::string& size, const std::string& date) {
        return "Image Information:\r\n\r\nC:\\p\\z.rle\r\n" + Rule +
               "\r\n\r\nImage Size:  (pixels)\r\n\r\nWidth = 300\r\nHeight = 200\r\n" + Rule +
               "\r\n\r\nFile size = " + size + "\r\nFile date and time = " + date +
               "\r\nFile type = RLE4 or RLE8 Compressed Bitmap (.RLE)";
    };
    Expect({.text = report(std::to_string(content.size()) + " bytes", platform.system.ShortDateTime(moment)),
            .title = "Tavrix - [Image Information]"});
    Popup(8, ShowInfo);
    platform.disks.Remove("C:\\p\\z.rle");
    Expect({.text = report("Unknown...", "Unknown..."), .title = "Tavrix - [Image Information]"});
    Popup(8, ShowInfo);
    ExpectReady();
}

TEST_F(ThumbnailImagesTest, InformationTellsTheFormatOfAGif) {
    platform.disks.PutFile("C:\\p\\a.gif", "GIF87a...");
    ExpectFailedThumbnail("C:\\p\\a.gif", "Invalid picture", Answer::Ok);
    BrowseAsItIs();
    const auto expectType = [this](const std::string& size, const std::string& date,
                                   const std::string& type) {
        Expect({.text = "Image Information:\r\n\r\nC:\\p\\a.gif\r\n" + Rule +
                        "\r\n\r\nImage Size:  (pixels)\r\n\r\nWidth = 0\r\nHeight = 0\r\n" + Rule +
                        "\r\n\r\nFile size = " + size + "\r\nFile date and time = " + date +
                        "\r\nFile type = Graphics Interchange Format (" + type + ")",
                .title = "Tavrix - [Image Information]"});
    };
    expectType("9 bytes", platform.system.ShortDateTime(platform.files.Info("C:\\p\\a.gif").modified),
               "GIF87a");
    Popup(0, ShowInfo);
    platform.disks.Remove("C:\\p\\a.gif");
    expectType("Unknown...", "Unknown...", ".GIF");
    Popup(0, ShowInfo);
}

}  // namespace
}  // namespace tavrix::test
