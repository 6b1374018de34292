#include "ViewerTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::BoxButtons;
using forms::BoxIcon;
using headless::Service;

class StartTest : public ViewerTest {
  protected:
    void ExpectInvalidCommand(const std::string& command) {
        Expect({.text = "An invalid command (" + command + ") was passed at the command prompt...",
                .icon = BoxIcon::Exclamation});
    }
};

TEST_F(StartTest, WithoutAnythingTheViewIsEmptyAndIdle) {
    ASSERT_TRUE(Start());
    ExpectEmptyView();
    ExpectIdle();
    EXPECT_EQ(Window().title, "Tavrix");
    EXPECT_EQ(View().ActiveControl(), &View().PictureTemp);
    EXPECT_EQ(module.HelpFile, "C:\\Tavrix\\TAVRIX.HLP");
    EXPECT_EQ(toolkit.VisibleWindow("WaitFrm"), nullptr);
}

struct PlacementCase {
    const char* save;
    const char* x;
    const char* y;
    const char* width;
    const char* height;
    bool taken;
};

class PlacementTest : public StartTest, public ::testing::WithParamInterface<PlacementCase> {};

TEST_P(PlacementTest, TheSavedPlaceIsTakenOnlyWhereItIsWhole) {
    const PlacementCase& c = GetParam();
    Setting("SaveWindowSize", c.save);
    Setting("MainPosX", c.x);
    Setting("MainPosY", c.y);
    Setting("MainSizeX", c.width);
    Setting("MainSizeY", c.height);
    ASSERT_TRUE(Start());
    EXPECT_FLOAT_EQ(View().Left, c.taken ? std::stof(c.x) : 0.0F);
    EXPECT_FLOAT_EQ(View().Top, c.taken ? std::stof(c.y) : 0.0F);
    EXPECT_FLOAT_EQ(View().Width, c.taken ? std::stof(c.width) : 9510.0F);
    EXPECT_FLOAT_EQ(View().Height, c.taken ? std::stof(c.height) : 7110.0F);
}

INSTANTIATE_TEST_SUITE_P(Cases, PlacementTest,
                         ::testing::Values(PlacementCase{"True", "600", "450", "6000", "5000", true},
                                           PlacementCase{"False", "600", "450", "6000", "5000", false},
                                           PlacementCase{"True", "0", "0", "4565", "4645", true},
                                           PlacementCase{"True", "600", "450", "4000", "5000", false},
                                           PlacementCase{"True", "600", "450", "4564", "5000", false},
                                           PlacementCase{"True", "600", "450", "6000", "4644", false},
                                           PlacementCase{"True", "-1", "450", "6000", "5000", false},
                                           PlacementCase{"True", "600", "-1", "6000", "5000", false},
                                           PlacementCase{"True", "13200", "10360", "6000", "5000", true},
                                           PlacementCase{"True", "13201", "450", "6000", "5000", false},
                                           PlacementCase{"True", "600", "10361", "6000", "5000", false}));

TEST_F(StartTest, AMaximisedStartIsMaximisedOverTheNormalPlace) {
    Setting("WindowMaximized", "True");
    Setting("AutosizeWindow", "True");
    StartWithPicture(640, 480);
    EXPECT_EQ(View().WindowState.Get(), forms::WindowState::Maximized);
    EXPECT_EQ(Window().state, forms::WindowState::Maximized);
    EXPECT_FLOAT_EQ(View().Width, 9510);
    EXPECT_FLOAT_EQ(View().Height, 7110);
}

TEST_F(StartTest, AnImageSizesTheWindowAfterItWasPlaced) {
    Setting("AutosizeWindow", "True");
    Setting("SaveWindowSize", "True");
    Setting("MainPosX", "600");
    Setting("MainPosY", "450");
    StartWithPicture(640, 480);
    EXPECT_FLOAT_EQ(View().Left, 0);
    EXPECT_FLOAT_EQ(View().Top, 0);
    EXPECT_FLOAT_EQ(View().Width, 9735);
    EXPECT_FLOAT_EQ(View().Height, 7920);
}

TEST_F(StartTest, TheBackgroundHasTheColourOfTheSettings) {
    const std::vector<std::pair<std::string, Colour>> colours{{"0", Colour{0}},    {"1", Colour{0xFFFFFF}},
                                                              {"2", ButtonFace},   {"3", Colour{0x400000}},
                                                              {"4", Colour{0x40}}, {"5", Colour{0x404040}}};
    ASSERT_TRUE(Start());
    for (const auto& [value, colour] : colours) {
        module.config.BackgroundColor = static_cast<std::int16_t>(std::stoi(value));
        View().ShowBackgroundColor();
        EXPECT_EQ(View().picFrame.BackColor.Get(), colour) << value;
    }
}

TEST_F(StartTest, TheColourOfTheFileIsShownFromTheStart) {
    Setting("BackgroundColor", "4");
    ASSERT_TRUE(Start());
    EXPECT_EQ(View().picFrame.BackColor.Get(), Colour{0x40});
}

TEST_F(StartTest, WithoutKeepRecentTheListIsEmptied) {
    Setting("Recent1", "C:\\p\\a.bmp");
    Setting("KeepRecent", "False");
    ASSERT_TRUE(Start());
    for (const std::string& path : module.config.Recent)
        EXPECT_EQ(path, "");
    EXPECT_FALSE(View().menu.mnuLast1.Visible);
    EXPECT_FALSE(View().menu.mnuFileLine3.Visible);
}

TEST_F(StartTest, RecentFilesAndFavoritesAreInTheMenuFromTheStart) {
    Setting("Recent1", "C:\\p\\a.bmp");
    Setting("FavoriteFile1", "C:\\p\\b.bmp");
    ASSERT_TRUE(Start());
    EXPECT_EQ(View().menu.mnuLast1.Caption.Get(), "  C:\\p\\a.bmp");
    EXPECT_EQ(View().menu.mnuFavoritesList[0].Caption.Get(), "C:\\p\\b.bmp");
}

TEST_F(StartTest, ATopmostWindowIsTopmostFromTheStart) {
    Setting("TopMostWindow", "True");
    ASSERT_TRUE(Start());
    EXPECT_TRUE(View().menu.mnuTopmost.Checked);
    EXPECT_TRUE(Window().topmost);
}

TEST_F(StartTest, AWindowIsNotTopmostOtherwise) {
    ASSERT_TRUE(Start());
    EXPECT_FALSE(View().menu.mnuTopmost.Checked);
    EXPECT_FALSE(Window().topmost);
}

TEST_F(StartTest, TheProgramIsBusyUntilTheImageIsThere) {
    bool busy = false;
    bool waiting = false;
    float widthThen = 0;
    platform.faults.AtNth(Service::Pictures, 1, [&] {
        busy = module.Busy();
        waiting = toolkit.VisibleWindow("WaitFrm") != nullptr;
        widthThen = View().Width;
    });
    StartWithPicture(20, 20);
    EXPECT_TRUE(busy);
    EXPECT_TRUE(waiting);
    EXPECT_FLOAT_EQ(widthThen, 9510) << "the window is placed before the image comes";
    ExpectIdle();
}

class AcceptedEndingTest : public StartTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(AcceptedEndingTest, NamesAnImage) {
    const std::string path = std::string("C:\\My Pictures\\photo") + GetParam();
    PutPicture(path, 30, 20);
    ASSERT_TRUE(Start(path));
    EXPECT_EQ(module.CurrentImage, path);
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [" + path + "]");
    EXPECT_EQ(module.config.Recent[0], path);
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\My Pictures");
    EXPECT_EQ(platform.shell.recent, std::vector<std::string>{path});
    EXPECT_TRUE(View().menu.mnuEdit.Visible);
    EXPECT_EQ(View().StartAction, StartDialog::None);
}

INSTANTIATE_TEST_SUITE_P(Endings, AcceptedEndingTest,
                         ::testing::Values(".bmp", ".DIB", ".jpg", ".jif", ".Jpe", ".gif", ".wmf", ".emf",
                                           ".ico", ".rle", ".CUR"));

class InvalidCommandTest : public StartTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(InvalidCommandTest, IsToldAndTheProgramGoesOnWithoutAnImage) {
    PutPicture("C:\\p\\photo.jpeg", 10, 10);
    PutPicture("C:\\p\\x.jpg", 10, 10);
    ExpectInvalidCommand(GetParam());
    ASSERT_TRUE(Start(GetParam()));
    ExpectEmptyView();
    ExpectIdle();
    EXPECT_EQ(View().StartAction, StartDialog::None);
}

INSTANTIATE_TEST_SUITE_P(Words, InvalidCommandTest,
                         ::testing::Values("C:\\p\\photo.jpeg", "\"C:\\p\\x.jpg\"", "C:\\p\\x.tga",
                                           "C:\\p\\x.jpg ", " A", "A ", "P", "x", "slides show",
                                           "C:\\p\\x.png"));

TEST_F(StartTest, ASlashIsTakenFromTheFrontOnce) {
    ExpectInvalidCommand("/A");
    ASSERT_TRUE(Start("//A"));
}

class HelpWordTest : public StartTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(HelpWordTest, TellsHowToGetHelpAndEnds) {
    Expect({.text = "Start the program normally (don't pass command line parameters) and press the F1 key to "
                    "view help on this product..."});
    EXPECT_FALSE(Start(GetParam()));
    EXPECT_TRUE(platform.process.ended);
}

INSTANTIATE_TEST_SUITE_P(Words, HelpWordTest,
                         ::testing::Values("?", "HELP", "help", "H", "h", "/?", "/Help"));

struct WordCase {
    const char* word;
    StartDialog dialog;
};

class StartWordTest : public StartTest, public ::testing::WithParamInterface<WordCase> {};

TEST_P(StartWordTest, AsksForADialogAndLeavesTheViewEmpty) {
    std::vector<std::string> opened;
    beforeShow = [&](MainViewFrm& view) {
        for (forms::Menu* entry : {&view.menu.mnuAbout, &view.menu.mnuSlideShow, &view.menu.mnuOpen,
                                   &view.menu.mnuThumbnailBrowse}) {
            entry->Install([&opened, entry] { opened.push_back(entry->Name()); });
        }
    };
    ASSERT_TRUE(Start(GetParam().word));
    EXPECT_EQ(View().StartAction, GetParam().dialog);
    ExpectEmptyView();
    const std::vector<std::string> names{"mnuAbout", "mnuSlideShow", "mnuOpen", "mnuThumbnailBrowse"};
    EXPECT_EQ(opened, std::vector{names[static_cast<std::size_t>(GetParam().dialog) - 1]});
}

INSTANTIATE_TEST_SUITE_P(
    Words, StartWordTest,
    ::testing::Values(WordCase{"ABOUT", StartDialog::About}, WordCase{"a", StartDialog::About},
                      WordCase{"SHOW", StartDialog::SlideShowEditor},
                      WordCase{"s", StartDialog::SlideShowEditor},
                      WordCase{"/S", StartDialog::SlideShowEditor},
                      WordCase{"Slide", StartDialog::SlideShowEditor},
                      WordCase{"slide show", StartDialog::SlideShowEditor},
                      WordCase{"SLIDES", StartDialog::SlideShowEditor}, WordCase{"OPEN", StartDialog::Open},
                      WordCase{"o", StartDialog::Open}, WordCase{"Thumbnail", StartDialog::ThumbnailBrowser},
                      WordCase{"/t", StartDialog::ThumbnailBrowser}));

TEST_F(StartTest, ALowerCaseDriveIsRaisedInTheListAndTheImageStays) {
    PutPicture("C:\\p\\x.jpg", 30, 20);
    ASSERT_TRUE(Start("c:\\p\\x.jpg"));
    EXPECT_EQ(module.CurrentImage, "C:\\p\\x.jpg");
    EXPECT_EQ(module.config.Recent[0], "C:\\p\\x.jpg");
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [c:\\p\\x.jpg]");
    EXPECT_FALSE(ShowsDefaultPicture());
}

TEST_F(StartTest, AnImageIsKnownByItsNormalPathHoweverItWasNamed) {
    PutPicture("C:\\other\\y.bmp", 80, 70);
    Setting("Recent1", "C:/other/y.bmp");
    ASSERT_TRUE(Start("C:/other/x/../y.bmp"));
    EXPECT_EQ(module.CurrentImage, "C:\\other\\y.bmp");
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [C:\\other\\y.bmp]");
    EXPECT_EQ(module.config.Recent[0], "C:\\other\\y.bmp");
    EXPECT_EQ(module.config.Recent[1], "");
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\other");
}

TEST_F(StartTest, AnImageThatIsListedAlreadyKeepsItsPlaceAndSpelling) {
    Setting("Recent1", "C:\\p\\other.bmp");
    Setting("Recent2", "C:\\P\\X.JPG");
    PutPicture("C:\\p\\x.jpg", 30, 20);
    ASSERT_TRUE(Start("c:\\p\\x.jpg"));
    EXPECT_EQ(module.CurrentImage, "c:\\p\\x.jpg");
    EXPECT_EQ(module.config.Recent[0], "C:\\p\\other.bmp");
    EXPECT_EQ(module.config.Recent[1], "C:\\P\\X.JPG");
}

TEST_F(StartTest, AnImageThatCannotBeLoadedLeavesTheEmptyViewWithoutAWord) {
    platform.disks.PutFile("C:\\p\\bad.bmp", "no picture");
    ASSERT_TRUE(Start("C:\\p\\bad.bmp"));
    ExpectEmptyView();
    ExpectIdle();
    EXPECT_EQ(module.config.Recent[0], "");
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(StartTest, AMissingFileIsNoDifferent) {
    ASSERT_TRUE(Start("C:\\nowhere\\bad.bmp"));
    ExpectEmptyView();
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(StartTest, AFailedImageDoesNotFallBackToTheLastOne) {
    PutPicture("C:\\p\\last.bmp", 30, 20);
    Setting("DisplayLastOpened", "True");
    Setting("LastOpenedFile", "C:\\p\\last.bmp");
    const std::string folder = platform.files.CurrentFolder();
    ASSERT_TRUE(Start("C:\\p\\bad.bmp"));
    ExpectEmptyView();
    EXPECT_EQ(platform.files.CurrentFolder(), folder);
    EXPECT_TRUE(Ends([this] { View().Deliver(forms::CloseEvent{}); }));
    EXPECT_EQ(Saved("LastOpenedFile"), "");
}

TEST_F(StartTest, TheLastImageIsShownWhereThatIsWanted) {
    PutPicture("C:\\p\\last.bmp", 30, 20);
    Setting("DisplayLastOpened", "True");
    Setting("LastOpenedFile", "C:\\p\\last.bmp");
    ASSERT_TRUE(Start());
    EXPECT_EQ(module.CurrentImage, "C:\\p\\last.bmp");
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [C:\\p\\last.bmp]");
    EXPECT_EQ(module.config.Recent[0], "C:\\p\\last.bmp");
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\p");
    EXPECT_FALSE(ShowsDefaultPicture());
}

TEST_F(StartTest, TheLastImageOtherwiseOnlySetsTheFolder) {
    PutPicture("C:\\p\\last.bmp", 30, 20);
    Setting("LastOpenedFile", "C:\\p\\last.bmp");
    ASSERT_TRUE(Start());
    ExpectEmptyView();
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\p");
    EXPECT_EQ(platform.faults.Calls(Service::Pictures), 0);
}

TEST_F(StartTest, ALastImageOnAFloppyBringsNoPrompt) {
    Setting("DisplayLastOpened", "True");
    Setting("LastOpenedFile", "A:\\last.bmp");
    ASSERT_TRUE(Start());
    ExpectEmptyView();
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(StartTest, ALastImageThatIsGoneLeavesTheEmptyView) {
    Setting("DisplayLastOpened", "True");
    Setting("LastOpenedFile", "C:\\p\\gone.bmp");
    platform.disks.PutFolder("C:\\p");
    const std::string folder = platform.files.CurrentFolder();
    ASSERT_TRUE(Start());
    ExpectEmptyView();
    EXPECT_EQ(platform.files.CurrentFolder(), folder);
    EXPECT_TRUE(Ends([this] { View().Deliver(forms::CloseEvent{}); }));
    EXPECT_EQ(Saved("LastOpenedFile"), "");
}

TEST_F(StartTest, ACommandLineWinsOverTheLastImage) {
    PutPicture("C:\\q\\last.bmp", 30, 20);
    PutPicture("C:\\p\\x.jpg", 50, 40);
    Setting("DisplayLastOpened", "True");
    Setting("LastOpenedFile", "C:\\q\\last.bmp");
    ASSERT_TRUE(Start("C:\\p\\x.jpg"));
    EXPECT_EQ(module.CurrentImage, "C:\\p\\x.jpg");
    EXPECT_FLOAT_EQ(View().MainImage.Width, 50 * 15);
}

TEST_F(StartTest, AWordOnTheCommandLineLeavesNoImageBehind) {
    PutPicture("C:\\p\\last.bmp", 30, 20);
    Setting("DisplayLastOpened", "True");
    Setting("LastOpenedFile", "C:\\p\\last.bmp");
    Expect({.text = "An invalid command (P) was passed at the command prompt...",
            .icon = forms::BoxIcon::Exclamation});
    ASSERT_TRUE(Start("P"));
    ExpectEmptyView();
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\p");
}

TEST_F(StartTest, AStartWithAWordKeepsTheLastImageForTheNextOne) {
    PutPicture("C:\\p\\last.bmp", 30, 20);
    PutPicture("C:\\p\\other.bmp", 30, 20);
    Setting("DisplayLastOpened", "True");
    Setting("LastOpenedFile", "C:\\p\\last.bmp");
    beforeShow = [](MainViewFrm& view) { view.menu.mnuAbout.Install([] {}); };
    ASSERT_TRUE(Start("ABOUT"));
    ExpectEmptyView();
    EXPECT_TRUE(Ends([this] { View().Deliver(forms::CloseEvent{}); }));
    EXPECT_EQ(Saved("LastOpenedFile"), "C:\\p\\last.bmp");
}

TEST_F(StartTest, AnImageThatIsOpenedAfterAStartWithAWordIsTheLastOne) {
    PutPicture("C:\\p\\last.bmp", 30, 20);
    PutPicture("C:\\p\\other.bmp", 30, 20);
    Setting("DisplayLastOpened", "True");
    Setting("LastOpenedFile", "C:\\p\\last.bmp");
    beforeShow = [](MainViewFrm& view) { view.menu.mnuAbout.Install([] {}); };
    ASSERT_TRUE(Start("ABOUT"));
    View().Deliver(forms::DropEvent{{"C:\\p\\other.bmp"}});
    ASSERT_EQ(module.CurrentImage, "C:\\p\\other.bmp");
    EXPECT_FALSE(Choose(View().menu.mnuClear));
    EXPECT_TRUE(Ends([this] { View().Deliver(forms::CloseEvent{}); }));
    EXPECT_EQ(Saved("LastOpenedFile"), "") << "nothing was on show at the end, as after any other start";
}

TEST_F(StartTest, AStartThatShowsNoLastImageForgetsIt) {
    PutPicture("C:\\p\\last.bmp", 30, 20);
    Setting("LastOpenedFile", "C:\\p\\last.bmp");
    ASSERT_TRUE(Start());
    EXPECT_TRUE(Ends([this] { View().Deliver(forms::CloseEvent{}); }));
    EXPECT_EQ(Saved("LastOpenedFile"), "");
}

headless::ExpectedBox InsertDisk(const std::string& file, Answer reply) {
    return {.text = "Insert the disk that contains the file:\r\n\r\n" + file +
                    "\r\n\r\n...into Floppy Drive A:\\\r\n\r\nPress the \"OK\" button to continue.",
            .buttons = BoxButtons::OkCancel,
            .reply = reply};
}

TEST_F(StartTest, AFloppyPathOfSevenCharactersIsNoFile) {
    Expect({.text = "A:\\.bmp is not a valid filename..."});
    EXPECT_FALSE(Start("A:\\.bmp"));
    EXPECT_TRUE(platform.process.ended);
}

TEST_F(StartTest, WithoutADiskTheUserIsAskedForItAndMayEndTheProgram) {
    Expect(InsertDisk("x.bmp", Answer::Cancel));
    EXPECT_FALSE(Start("a:\\x.bmp"));
    EXPECT_TRUE(platform.process.ended);
}

TEST_F(StartTest, TheDiskThatIsPutInIsRead) {
    headless::ExpectedBox box = InsertDisk("sub\\x.bmp", Answer::Ok);
    box.whileOpen = [this] {
        platform.disks.InsertDisk('A');
        PutPicture("A:\\sub\\x.bmp", 30, 20);
    };
    Expect(std::move(box));
    ASSERT_TRUE(Start("A:\\sub\\x.bmp"));
    EXPECT_EQ(module.CurrentImage, "A:\\sub\\x.bmp");
}

TEST_F(StartTest, ThePromptIsNotRepeated) {
    Expect(InsertDisk("x.bmp", Answer::Ok));
    ASSERT_TRUE(Start("A:\\x.bmp"));
    ExpectEmptyView();
}

TEST_F(StartTest, ADiskWithAnyFileOnItBringsNoPrompt) {
    platform.disks.InsertDisk('A');
    platform.disks.PutFile("A:\\readme", "text");
    ASSERT_TRUE(Start("A:\\x.bmp"));
    ExpectEmptyView();
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(StartTest, AFileOnAnAbsentDriveLeavesTheFolderAlone) {
    const std::string before = platform.files.CurrentFolder();
    Setting("LastOpenedFile", "Q:\\p\\x.bmp");
    ASSERT_TRUE(Start());
    EXPECT_EQ(platform.files.CurrentFolder(), before);
}

}  // namespace
}  // namespace tavrix::test
