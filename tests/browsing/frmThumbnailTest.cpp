#include "browsing/frmThumbnail.h"

#include <cmath>

#include "BrowsingTest.h"

namespace tavrix::test {
namespace {

class frmThumbnailTest : public BrowsingTest {};

TEST_F(frmThumbnailTest, NineFilesShowNoPagingButtons) {
    Browse(9);
    ExpectPage(1, 9);
    for (forms::CommandButton* button :
         {&Browser().CmdNext, &Browser().CmdPrevious, &Browser().CmdFwd1, &Browser().CmdBack1}) {
        EXPECT_FALSE(button->Visible) << button->Name();
        ExpectTold("There are no more thumbnail files to show...");
        Press(*button);
    }
    ExpectPage(1, 9);
}

TEST_F(frmThumbnailTest, TenFilesShowPagingButtons) {
    Browse(10);
    for (const forms::CommandButton* button :
         {&Browser().CmdNext, &Browser().CmdPrevious, &Browser().CmdFwd1, &Browser().CmdBack1})
        EXPECT_TRUE(button->Visible) << button->Name();
}

TEST_F(frmThumbnailTest, OneFileTellsOneNumber) {
    Browse(1);
    ExpectPage(1, 1);
}

TEST_F(frmThumbnailTest, TheListIsTold) {
    PutNumbered(2);
    platform.disks.PutFile("C:\\p\\big.gif", std::string(1'500'000, 'x'));
    platform.pictures.SetFailure("C:\\p\\big.gif", RuntimeError(ErrorNumber::InvalidPicture));
    ExpectFailedThumbnail("C:\\p\\big.gif", "Invalid picture", Answer::Ok);
    BrowseAsItIs();
    EXPECT_EQ(Browser().Caption.Get(), "Tavrix - [Thumbnail Browser]");
    EXPECT_EQ(Browser().lblNumFiles.Caption.Get(), "3");
    EXPECT_EQ(Browser().lblTotalSize.Caption.Get(), "1,500,058");
    EXPECT_EQ(Browser().lblInfo.Caption.Get(), "C:\\p\\");
    EXPECT_EQ(Browser().lblInfo.ToolTip.Get(), "Click here to show full path.");
    EXPECT_EQ(Browser().lblInfo.MousePointer.Get(), forms::MousePointer::Hand);
    EXPECT_TRUE(Browser().lblHotspotMsg.Visible);
    ExpectTold("Tavrix is browsing thumbnails in the folder:\r\n\r\nC:\\p\\");
    Mouse(Browser().lblInfo, MouseAction::Down, MouseButton::Left);
    Browser().lblInfo.OnClick();
}

TEST_F(frmThumbnailTest, AFileThatIsGoneAddsNothingToTheTotal) {
    PutNumbered(2);
    ASSERT_TRUE(Start());
    InDialog<frmThumbFolder>("frmThumbFolder", [this](auto& dialog) {
        Press(dialog.CmdOK);
        platform.disks.Remove(PathOf(2));
    });
    ExpectFailedThumbnail(PathOf(2), "File not found", Answer::Ok);
    Choose(View().menu.mnuThumbnailBrowse);
    EXPECT_EQ(Browser().lblTotalSize.Caption.Get(), std::to_string(platform.files.Info(PathOf(1)).length));
    EXPECT_EQ(Browser().lblNumFiles.Caption.Get(), "2");
}

TEST_F(frmThumbnailTest, TenFilesPageAsFarAsTheyDo) {
    Browse(10);
    ExpectPage(1, 9);
    Press(Browser().CmdNext);  // just the last one is left
    ExpectPage(1, 9);
    Press(Browser().CmdPrevious);
    ExpectPage(2, 10);
    Press(Browser().CmdNext);
    ExpectPage(1, 9);
    Press(Browser().CmdFwd1);
    ExpectPage(2, 10);
    Press(Browser().CmdFwd1);
    ExpectPage(1, 9);
}

TEST_F(frmThumbnailTest, PagesGoOnAndWrap) {
    Browse(20);
    Press(Browser().CmdNext);
    ExpectPage(10, 18);
    Press(Browser().CmdNext);
    ExpectPage(19, 20);
    Press(Browser().CmdNext);
    ExpectPage(1, 9);
    Press(Browser().CmdPrevious);
    ExpectPage(12, 20);
    Press(Browser().CmdPrevious);
    ExpectPage(3, 11);
    Press(Browser().CmdPrevious);
    ExpectPage(1, 9);
    Press(Browser().CmdBack1);
    ExpectPage(12, 20);
    Press(Browser().CmdBack1);
    ExpectPage(11, 19);
    Press(Browser().CmdNext);  // the last one is skipped
    ExpectPage(1, 9);
}

TEST_F(frmThumbnailTest, ALastPageOfOneImageIsReachedAndLeft) {
    Browse(28);
    Press(Browser().CmdNext);
    Press(Browser().CmdNext);
    ExpectPage(19, 27);
    Press(Browser().CmdFwd1);
    ExpectPage(20, 28);
    Press(Browser().CmdFwd1);
    ExpectPage(1, 9);
}

TEST_F(frmThumbnailTest, ThumbnailsFitTheirCells) {
    struct Case {
        int width, height, shownWidth, shownHeight;
    };
    const std::vector<Case> cases{{161, 121, 160, 120}, {100, 300, 40, 120}, {32, 32, 32, 32},
                                  {160, 120, 160, 120}, {320, 100, 160, 50}, {400, 400, 120, 120},
                                  {1, 1, 1, 1},         {3000, 2, 160, 1}};
    for (std::size_t i = 0; i < cases.size(); ++i)
        PutPicture(PathOf(static_cast<int>(i) + 1), cases[i].width, cases[i].height);
    BrowseAsItIs();
    for (std::size_t slot = 0; slot < cases.size(); ++slot) {
        const forms::Image& preview = Browser().picPreview[slot];
        const Case& wanted = cases[slot];
        EXPECT_EQ(preview.Width, static_cast<float>(wanted.shownWidth * 15)) << slot;
        EXPECT_EQ(preview.Height, static_cast<float>(wanted.shownHeight * 15)) << slot;
        EXPECT_EQ(preview.Left, static_cast<float>((165 - wanted.shownWidth) / 2 * 15)) << slot;
        EXPECT_EQ(preview.Top, static_cast<float>((125 - wanted.shownHeight) / 2 * 15)) << slot;
        EXPECT_EQ(Browser().ThumbWidths[slot], wanted.width);
        EXPECT_EQ(Browser().ThumbHeights[slot], wanted.height);
    }
    EXPECT_FALSE(Browser().picPreview[8].Visible);
    EXPECT_EQ(Browser().ThumbWidths[8], 0);
}

TEST_F(frmThumbnailTest, TheLastColumnAndRowAreNoPartOfAThumbnail) {
    Surface surface(32, 32);
    surface.Fill(OpaquePixel(10, 20, 30));
    for (int i = 0; i < 32; ++i) {
        surface.Row(i)[31] = OpaquePixel(250, 0, 0);
        surface.Row(31)[static_cast<std::size_t>(i)] = OpaquePixel(250, 0, 0);
    }
    platform.pictures.SetPicture(PathOf(1), PictureOf(std::move(surface)));
    BrowseAsItIs();
    const Picture shown = Browser().picPreview[0].Picture;
    ASSERT_EQ(shown.Width(), 32);
    for (const Pixel pixel : shown.pixels->Whole().Pixels())
        ASSERT_EQ(pixel, OpaquePixel(10, 20, 30));
}

TEST_F(frmThumbnailTest, TheGridIsAsLargeAtEveryScale) {
    for (const float twipsPerPixel : {15.0F, 7.5F, 10.0F}) {
        headless::HeadlessServices machine;
        headless::HeadlessToolkit screen;
        screen.screen.twipsPerPixelX = screen.screen.twipsPerPixelY = twipsPerPixel;
        screen.screen.width = screen.screen.height = 4000;
        forms::Application other(screen);
        MainModule state(other, machine.services);
        Lives itsLives;
        auto& view = other.Load<MainViewFrm>(state, itsLives);
        machine.pictures.SetPicture("C:\\x.bmp", PlainPicture(3200, 1600));
        ThumbnailList list{{"C:\\x.bmp"}, "C:\\", false};
        auto& browser = other.Load<frmThumbnail>(view, list, [] {});
        browser.Show();
        const auto near = [](float value, int units) {  // sizes are rounded to pixels
            return std::abs(value - static_cast<float>(units * 15)) <= 30;
        };
        EXPECT_TRUE(near(browser.picHoldPreview[8].Width, 165)) << browser.picHoldPreview[8].Width;
        EXPECT_TRUE(near(browser.picHoldPreview[8].Height, 125));
        EXPECT_TRUE(near(browser.picHoldPreview[8].Left - browser.picHoldPreview[0].Left, 2 * 168));
        EXPECT_TRUE(near(browser.picHoldPreview[8].Top - browser.picHoldPreview[0].Top, 2 * 128));
        EXPECT_TRUE(near(browser.picPreview[0].Width, 160)) << browser.picPreview[0].Width;
        EXPECT_TRUE(near(browser.picPreview[0].Height, 80));
        EXPECT_EQ(browser.picPreview[0].Picture.Get().Width(), std::lround(160 * 15 / twipsPerPixel));
        EXPECT_GE(browser.ScaleWidth(), 625 * 15 - 15);
        EXPECT_GE(browser.ScaleHeight(), 449 * 15 - 15);
        EXPECT_EQ(screen.Failures(), std::vector<std::string>());
    }
}

TEST_F(frmThumbnailTest, StopBeforeTheFirstThumbnailCountsOneAsShown) {
    Browse(20);
    StopAtSlot(0);
    Press(Browser().CmdNext);
    EXPECT_EQ(Page(), std::vector<int>());
    EXPECT_EQ(Browser().lblShowing.Caption.Get(), "10");
    EXPECT_EQ(Browser().lblShow.Caption.Get(), "Showing Image:");
    EXPECT_EQ(Browser().Pages.ThumbLastShown, 10);
    ExpectReady();
}

TEST_F(frmThumbnailTest, StopLeavesTheThumbnailsThatStand) {
    Browse(20);
    StopAtSlot(3);
    Press(Browser().CmdNext);
    EXPECT_EQ(Page(), FromTo(10, 12));
    EXPECT_EQ(Browser().lblShowing.Caption.Get(), "10 to 13");
    EXPECT_EQ(Browser().VisibleThumbnails(), 3);
    ExpectReady();
    // The formula leads one too far then.
    Click(0);
    EXPECT_EQ(module.CurrentImage, PathOf(11));
}

TEST_F(frmThumbnailTest, StopWhileAThumbnailIsShownCountsIt) {
    Browse(20);
    StopAtYield(3 + 2 * 2);
    Press(Browser().CmdNext);
    EXPECT_EQ(Page(), FromTo(10, 11));
    EXPECT_EQ(Browser().lblShowing.Caption.Get(), "10 to 11");
    Click(0);
    EXPECT_EQ(module.CurrentImage, PathOf(10));
}

TEST_F(frmThumbnailTest, OneForwardAfterAnEarlyStopChangesNothing) {
    Browse(20);
    Press(Browser().CmdNext);
    Press(Browser().CmdNext);
    ExpectPage(19, 20);
    StopAtSlot(2);
    Press(Browser().CmdNext);
    EXPECT_EQ(Page(), FromTo(1, 2));
    EXPECT_EQ(Browser().Pages.ThumbLastShown, 3);
    const long decoded = Decoded();
    Press(Browser().CmdFwd1);
    EXPECT_EQ(Page(), FromTo(1, 2));
    EXPECT_EQ(Browser().lblShowing.Caption.Get(), "1 to 3");
    EXPECT_EQ(Decoded(), decoded);
    ExpectReady();
}

TEST_F(frmThumbnailTest, NothingElseStartsWhileAPageIsMade) {
    Browse(30);
    toolkit.AtYield(6, [this] {
        EXPECT_EQ(module.Screen().MousePointer.Get(), forms::MousePointer::ArrowHourglass);
        EXPECT_TRUE(Browser().CmdStop.Visible);
        EXPECT_EQ(Browser().lblShowing.Caption.Get(), "Please wait...");
        for (forms::CommandButton* button :
             {&Browser().CmdBack1, &Browser().CmdFwd1, &Browser().CmdNext, &Browser().CmdPrevious,
              &Browser().CmdSelect, &Browser().CmdBrowse, &Browser().CmdClose}) {
            EXPECT_FALSE(button->Enabled) << button->Name();
            if (button != &Browser().CmdClose) button->OnClick();
        }
        Click(0);
        Popup(0);
        Drop({PathOf(20)});
        Browser().Form_Activate();
        Browser().Deliver(forms::CloseEvent{});
        EXPECT_EQ(module.Screen().MousePointer.Get(), forms::MousePointer::ArrowHourglass);
    });
    Press(Browser().CmdNext);
    EXPECT_EQ(toolkit.Popups().size(), 0U);
    ASSERT_NE(app.Loaded<frmThumbnail>(), nullptr);
    ExpectPage(10, 18);
    EXPECT_EQ(module.CurrentImage, "");
}

TEST_F(frmThumbnailTest, NothingElseStartsWhileALargeListIsLookedThrough) {
    PutNumbered(1'000);
    ASSERT_TRUE(Start());
    TakeFolder();
    int tried = 0;
    for (int yield = 1; yield < 25; ++yield) {
        toolkit.AtYield(yield, [this, &tried] {
            auto* browser = app.Loaded<frmThumbnail>();
            if (browser == nullptr || browser->CmdStop.Visible ||
                browser->lblNumFiles.Caption.Get() != "1000")
                return;
            ++tried;
            EXPECT_EQ(module.Screen().MousePointer.Get(), forms::MousePointer::ArrowHourglass);
            Drop({PathOf(20)});
            Press(browser->CmdNext);
            Press(browser->CmdBrowse);
            browser->Form_Activate();
            browser->Deliver(forms::CloseEvent{});
            ASSERT_NE(app.Loaded<frmThumbnail>(), nullptr);
        });
    }
    Choose(View().menu.mnuThumbnailBrowse);
    EXPECT_GE(tried, 10);
    ExpectPage(1, 9);
    EXPECT_EQ(Browser().lblTotalSize.Caption.Get(), "29,000");
}

TEST_F(frmThumbnailTest, ThePageIsMadeImageByImage) {
    PutNumbered(9);
    std::vector<std::size_t> seen;
    ASSERT_TRUE(Start());
    TakeFolder();
    for (int yield = 1; yield < 60; ++yield) {
        toolkit.AtYield(yield, [this, &seen] {
            if (app.Loaded<frmThumbnail>() != nullptr) seen.push_back(Page().size());
        });
    }
    Choose(View().menu.mnuThumbnailBrowse);
    for (std::size_t size = 0; size <= 9; ++size)
        EXPECT_TRUE(std::ranges::find(seen, size) != seen.end()) << size;
    EXPECT_TRUE(std::ranges::is_sorted(seen));
}

TEST_F(frmThumbnailTest, TheKeyboardStaysOnTheButtonThatPages) {
    Browse(30);
    Browser().CmdNext.SetFocus();
    toolkit.AtYield(4, [this] { Browser().CmdStop.Deliver(forms::FocusEvent{}); });
    Press(Browser().CmdNext);
    EXPECT_EQ(Browser().ActiveControl(), &Browser().CmdNext);
}

TEST_F(frmThumbnailTest, AFailedThumbnailIsABlankSlot) {
    PutNumbered(12);
    platform.pictures.SetFailure(PathOf(3), RuntimeError(ErrorNumber::InvalidPicture));
    ExpectFailedThumbnail(PathOf(3), "Invalid picture", Answer::Ok);
    BrowseAsItIs();
    EXPECT_EQ(Page(), FromTo(1, 9));
    const forms::Image& blank = Browser().picPreview[2];
    EXPECT_TRUE(blank.Picture.Get().Empty());
    EXPECT_EQ(blank.Width, 160 * 15);
    EXPECT_EQ(blank.Height, 120 * 15);
    EXPECT_EQ(blank.Left, 2 * 15);
    EXPECT_EQ(blank.Top, 2 * 15);
    EXPECT_EQ(Browser().ThumbWidths[2], 0);
    EXPECT_EQ(Browser().ThumbHeights[2], 0);
    ExpectPage(1, 9);
    // The next picture in this slot is one again.
    Press(Browser().CmdNext);
    EXPECT_EQ(Browser().picPreview[2].Width, 20 * 15);
}

TEST_F(frmThumbnailTest, CancelEndsThePageAndLeavesTheNumbers) {
    PutNumbered(4);
    platform.pictures.SetFailure(PathOf(3), RuntimeError(ErrorNumber::InvalidPicture));
    ExpectFailedThumbnail(PathOf(3), "Invalid picture", Answer::Cancel);
    BrowseAsItIs();
    EXPECT_EQ(Page(), FromTo(1, 2));
    EXPECT_EQ(Browser().lblShowing.Caption.Get(), "Canceled...");
    EXPECT_EQ(Browser().lblShow.Caption.Get(), "Showing Images:");
    EXPECT_EQ(Browser().Pages.ThumbLastShown, 9);
    ExpectReady();
    // Slot 0 leads to index 7, which is no image of the list.
    Click(0);
    Popup(0);
    MoveOver(Browser().picPreview[0]);
    EXPECT_EQ(module.CurrentImage, "");
    EXPECT_EQ(toolkit.Popups().size(), 0U);
    EXPECT_EQ(Browser().lblHotspotMsg.Caption.Get(),
              "Left-click an image to open file, right-click an image for popup menu...");
    ExpectReady();
}

TEST_F(frmThumbnailTest, HintsFollowTheMouse) {
    Browse(10);
    const std::string usual = "Left-click an image to open file, right-click an image for popup menu...";
    frmThumbnail& b = Browser();
    const std::vector<std::pair<forms::Control*, std::string>> hints{
        {&b.CmdBrowse, "Select a folder to browse..."},
        {&b.lblInfo, usual},
        {&b.CmdClose, "Close the Thumbnail Browser..."},
        {&b.lblNumFiles, usual},
        {&b.CmdNext, "Show the next image thumbnails..."},
        {&b.lblNumMsg, usual},
        {&b.CmdPrevious, "Show the previous image thumbnails..."},
        {&b.lblShow, usual},
        {&b.CmdSelect, "Show thumbnails of the selected files..."},
        {&b.lblShowing, usual},
        {&b.CmdStop, "Stop showing thumbnails..."},
        {&b.lblSizeMsg, usual},
        {&b.CmdBrowse, "Select a folder to browse..."},
        {&b.lblTotalSize, usual},
        {&b.CmdClose, "Close the Thumbnail Browser..."},
        {&b.picHoldPreview[8], usual},
        {&b.CmdClose, "Close the Thumbnail Browser..."},
        {&b.lblHotspotMsg, usual}};
    for (const auto& [control, text] : hints) {
        MoveOver(*control);
        EXPECT_EQ(b.lblHotspotMsg.Caption.Get(), text) << control->Name();
    }
    MoveOver(b.CmdClose);
    b.Deliver(forms::MouseEvent{MouseAction::Move, 0, 0, 1, 1});
    EXPECT_EQ(b.lblHotspotMsg.Caption.Get(), usual);
}

TEST_F(frmThumbnailTest, TheHintExplainsItself) {
    Browse(1);
    ExpectTold(
        "NOTE:\r\n\r\nYou can right-click an image to show information about the file, if all of it does not "
        "fit "
        "here.");
    Browser().lblHotspotMsg.OnClick();
    InDialog<frmThumbFolder>("frmThumbFolder", [](auto& dialog) { Press(dialog.CmdCancel); });
    Press(Browser().CmdBrowse);
    ExpectTold("Nothing is shown, click the Select or Browse button to choose thumbnail images...");
    Browser().lblHotspotMsg.OnClick();
}

TEST_F(frmThumbnailTest, TextsAreAsTold) {
    Browse(10);
    frmThumbnail& b = Browser();
    const std::vector<std::pair<forms::CommandButton*, std::pair<std::string, std::string>>> buttons{
        {&b.CmdNext, {"&Next 9", "Show the next 9 images."}},
        {&b.CmdPrevious, {"&Previous 9", "Show the previous 9 images."}},
        {&b.CmdFwd1, {"->", "Go forward one image."}},
        {&b.CmdBack1, {"<-", "Go back one image."}},
        {&b.CmdStop, {"&Stop", "Stop loading thumbnail images."}},
        {&b.CmdSelect, {"S&elect", "Click here to select the files to show."}},
        {&b.CmdBrowse, {"&Browse", "Click here to select another folder to browse."}},
        {&b.CmdClose, {"&Close", "Click here to close the Thumbnail Browser."}}};
    for (const auto& [button, texts] : buttons) {
        EXPECT_EQ(button->Caption.Get(), texts.first);
        EXPECT_EQ(button->ToolTip.Get(), texts.second);
    }
    EXPECT_EQ(b.lblNumMsg.Caption.Get(), "Number of files:");
    EXPECT_EQ(b.lblSizeMsg.Caption.Get(), "Total size (Bytes)");
    EXPECT_EQ(b.lblHotspotMsg.ToolTip.Get(),
              "Right-click an image and select \"Show Image Information\" for a detailed file description.");
    EXPECT_TRUE(b.lblInfo.Literal);
    EXPECT_TRUE(b.lblHotspotMsg.Literal);
    EXPECT_EQ(b.HelpContext, HelpContext::Thumbnails);
    EXPECT_TRUE(b.CmdClose.Cancel);
}

TEST_F(frmThumbnailTest, BrowseBringsAnotherFolder) {
    Browse(30);
    platform.disks.PutFolder("C:\\q");
    PutPicture("C:\\q\\n0100.bmp", 5, 5);
    InDialog<frmThumbFolder>("frmThumbFolder", [this](auto& dialog) {
        EXPECT_EQ(Page(), std::vector<int>());
        EXPECT_EQ(Browser().lblNumFiles.Caption.Get(), "0");
        EXPECT_EQ(Browser().lblShowing.Caption.Get(), "None");
        EXPECT_EQ(Browser().lblTotalSize.Caption.Get(), "0");
        EXPECT_FALSE(Browser().lblHotspotMsg.Visible);
        EXPECT_EQ(Browser().lblInfo.Caption.Get(), "No images are selected...");
        EXPECT_EQ(Browser().lblInfo.ToolTip.Get(), "");
        EXPECT_EQ(Browser().lblInfo.MousePointer.Get(), forms::MousePointer::Default);
        EXPECT_FALSE(Browser().CmdNext.Visible);
        EXPECT_FALSE(Browser().CmdPrevious.Visible);
        EXPECT_FALSE(Browser().CmdFwd1.Visible);
        EXPECT_FALSE(Browser().CmdBack1.Visible);
        Browser().lblInfo.OnClick();  // there is no folder to tell
        dialog.Chooser.Dir1.Path = "C:\\q";
        Press(dialog.CmdOK);
    });
    Press(Browser().CmdBrowse);
    EXPECT_EQ(Page(), std::vector<int>{100});
    EXPECT_EQ(Browser().lblInfo.Caption.Get(), "C:\\q\\");
    EXPECT_EQ(Browser().lblNumFiles.Caption.Get(), "1");
    EXPECT_TRUE(Browser().lblHotspotMsg.Visible);
    EXPECT_EQ(Decoded(), 10);
    ExpectReady();
}

TEST_F(frmThumbnailTest, SelectBringsFilesOfNoFolder) {
    Browse(30);
    TakeFiles({4, 2, 19});
    Press(Browser().CmdSelect);
    EXPECT_EQ(Page(), (std::vector<int>{3, 5, 20}));
    EXPECT_EQ(Browser().lblInfo.Caption.Get(), "Tavrix is showing thumbnails of selected files...");
    EXPECT_EQ(Browser().lblInfo.ToolTip.Get(), "");
    EXPECT_EQ(Browser().lblInfo.MousePointer.Get(), forms::MousePointer::Default);
    Browser().lblInfo.OnClick();  // there is no folder to tell
    MoveOver(Browser().picPreview[1]);
    EXPECT_TRUE(Browser().lblHotspotMsg.Caption.Get().starts_with(PathOf(5) + " ("));
    EXPECT_EQ(Decoded(), 9 + 3);
    ExpectReady();
}

TEST_F(frmThumbnailTest, ACanceledChoiceLeavesTheGridEmpty) {
    Browse(30);
    InDialog<frmThumbSelect>("frmThumbSelect", [](auto& dialog) { Press(dialog.CmdCancel); });
    Press(Browser().CmdSelect);
    EXPECT_EQ(Page(), std::vector<int>());
    EXPECT_EQ(Browser().lblShowing.Caption.Get(), "None");
    Mouse(Browser().picHoldPreview[0], MouseAction::Down, MouseButton::Left);
    EXPECT_EQ(module.CurrentImage, "");
    ExpectReady();
    Drop({PathOf(7)});
    EXPECT_EQ(Page(), std::vector<int>{7});
    ExpectReady();
}

TEST_F(frmThumbnailTest, ClosingBringsTheMainViewBack) {
    module.config.TopMostWindow = true;
    Browse(3);
    EXPECT_EQ(Visible("MainViewFrm"), nullptr);
    ASSERT_NE(Visible("frmThumbnail"), nullptr);
    EXPECT_FALSE(Visible("frmThumbnail")->modal);
    module.config.TopMostWindow = true;
    View().SetTopmost(false);
    Press(Browser().CmdClose);
    EXPECT_EQ(app.Loaded<frmThumbnail>(), nullptr);
    ASSERT_NE(Visible("MainViewFrm"), nullptr);
    EXPECT_TRUE(Window().topmost);
    ExpectIdle();
}

TEST_F(frmThumbnailTest, ClosingLeavesAMainViewThatIsNotTopmost) {
    Browse(3);
    Browser().Deliver(forms::CloseEvent{});
    EXPECT_EQ(app.Loaded<frmThumbnail>(), nullptr);
    ASSERT_NE(Visible("MainViewFrm"), nullptr);
    EXPECT_FALSE(Window().topmost);
    ExpectIdle();
}

}  // namespace
}  // namespace tavrix::test
