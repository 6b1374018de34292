#include "core/HelpContexts.h"
#include "core/WaitFrm.h"
#include "shows/EditorTest.h"

namespace tavrix::test {
namespace {

namespace KeyCode = forms::KeyCode;
namespace ShiftMask = forms::ShiftMask;

/// Nothing is open until a test opens it.
class SlideLoadOpeningTest : public EditorTest {
  protected:
    void SetUp() override {}
};

TEST_F(SlideLoadOpeningTest, TheMenuOpensItInThePlaceOfTheMainView) {
    ASSERT_TRUE(Start());
    Choose(View().menu.mnuSlideShow);
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(Editor().Caption.Get(), "Tavrix - [Slide Show Editor]");
    EXPECT_EQ(CountText(), "Zero slides (images) total...");
    EXPECT_EQ(Editor().lblFilename.Caption.Get(), "Untitled.tvs");
    EXPECT_FALSE(View().Visible());
    EXPECT_NE(toolkit.VisibleWindow("SlideLoadFrm"), nullptr);
    EXPECT_FALSE(toolkit.VisibleWindow("SlideLoadFrm")->modal);
    EXPECT_FALSE(module.Busy());
    EXPECT_EQ(app.Loaded<WaitFrm>(), nullptr);
    EXPECT_EQ(Editor().HelpContext, HelpContext::SlideShowEditor);
}

class SlideLoadWordTest : public SlideLoadOpeningTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(SlideLoadWordTest, OpensTheEditor) {
    ASSERT_TRUE(Start(GetParam()));
    EXPECT_TRUE(IsOpen());
    Press(Editor().CmdCancel);
    EXPECT_FALSE(IsOpen());
}

INSTANTIATE_TEST_SUITE_P(CommandWords, SlideLoadWordTest,
                         ::testing::Values("SHOW", "s", "Slide", "slide show", "SLIDES", "/S"));

TEST_F(SlideLoadOpeningTest, TheStartDialogOpensIt) {
    Setting("StartupDialog", "2");
    ASSERT_TRUE(Start());
    EXPECT_TRUE(IsOpen());
}

TEST_F(SlideLoadOpeningTest, AWaitBoxStandsMeanwhile) {
    ASSERT_TRUE(Start());
    bool seen = false;
    for (int n = 1; n < 4; ++n) {
        toolkit.AtYield(n, [&] {
            const auto* wait = app.Loaded<WaitFrm>();
            if (wait == nullptr) return;
            seen = true;
            EXPECT_EQ(wait->lblMsg.Caption.Get(), "Loading slide show editor, please wait...");
            EXPECT_TRUE(module.Busy());
        });
    }
    Choose(View().menu.mnuSlideShow);
    EXPECT_TRUE(seen);
}

TEST_F(SlideLoadOpeningTest, ItBeginsInTheFolderOfTheShows) {
    platform.disks.PutFile("C:\\Tavrix\\SLIDES\\a.bmp", "");
    ASSERT_TRUE(Start("SHOW"));
    EXPECT_EQ(Editor().Dir1.Path.Get(), "C:\\Tavrix\\SLIDES");
    EXPECT_EQ(Editor().Drive1.Drive.Get(), "C:");
    EXPECT_EQ(Editor().File1.ListCount(), 1);
}

TEST_F(SlideLoadOpeningTest, WithoutThatFolderItBeginsInTheProgramsOwn) {
    platform.disks.AddDrive('D', DriveType::Fixed);
    platform.disks.InsertDisk('D');
    platform.disks.PutFolder("D:\\x");
    platform.files.ChangeDrive("D");
    ASSERT_TRUE(Start());
    platform.disks.Remove("C:\\Tavrix\\SLIDES");
    Choose(View().menu.mnuSlideShow);
    EXPECT_EQ(Editor().Dir1.Path.Get(), "C:\\Tavrix");
}

TEST_F(SlideLoadOpeningTest, AShowThatPlaysEnds) {
    ASSERT_TRUE(Start());
    PutPicture("C:\\s\\1.bmp", 10, 10);
    platform.disks.PutFile(
        "C:\\s\\s.tvs",
        "\"Tavrix Slide Show\"\r\n\"Version 1.5\"\r\n0\r\n\"\"\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0"
        "\r\n0\r\n\"1.bmp\"\r\n\"\"\r\n");
    View().Deliver(forms::DropEvent{{"C:\\s\\s.tvs"}, 1, 1});
    ASSERT_NE(app.Loaded<FullViewFrm>(), nullptr);
    Choose(View().menu.mnuSlideShow);
    EXPECT_EQ(app.Loaded<FullViewFrm>(), nullptr);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Letters(), "");
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(SlideLoadOpeningTest, ATopmostMainViewStepsAsideForADroppedShow) {
    Setting("TopMostWindow", "True");
    ASSERT_TRUE(Start());
    PutPicture("C:\\s\\1.bmp", 20, 10);
    platform.disks.PutFile(
        "C:\\s\\s.tvs",
        "\"Tavrix Slide Show\"\r\n\"Version 1.5\"\r\n0\r\n\"\"\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0"
        "\r\n0\r\n\"1.bmp\"\r\n\"\"\r\n");
    headless::HeadlessWindowPeer& view = Window();
    ASSERT_TRUE(view.topmost);
    View().Deliver(forms::DropEvent{{"C:\\s\\s.tvs"}, 1, 1});
    ASSERT_NE(app.Loaded<FullViewFrm>(), nullptr);
    EXPECT_FALSE(view.topmost) << "the stage is not to lie below it";
    app.Unload(*app.Loaded<FullViewFrm>());
    EXPECT_TRUE(view.topmost);
    platform.disks.PutFile("C:\\s\\none.tvs", "no show");
    Expect({.text =
                "The selected file is not a valid Tavrix Slide Show file...\r\n\r\nFilenames with .TVS in "
                "the last 4 positions are normally associated with Tavrix files.",
            .icon = forms::BoxIcon::Exclamation,
            .systemModal = true,
            .whileOpen = [&] { EXPECT_FALSE(view.topmost); }});
    Expect({.text = "This slide show file does not contain any images, nothing to show...",
            .whileOpen = [&] { EXPECT_FALSE(view.topmost); }});
    View().Deliver(forms::DropEvent{{"C:\\s\\none.tvs"}, 1, 1});
    EXPECT_TRUE(view.topmost);
}

TEST_F(SlideLoadOpeningTest, ATopmostMainViewStepsAsideUntilTheEnd) {
    Setting("TopMostWindow", "True");
    ASSERT_TRUE(Start());
    headless::HeadlessWindowPeer& view = Window();
    ASSERT_TRUE(view.topmost);
    Choose(View().menu.mnuSlideShow);
    EXPECT_FALSE(view.topmost);
    Press(Editor().CmdCancel);
    EXPECT_TRUE(view.topmost);
    EXPECT_TRUE(view.visible);
}

TEST_F(SlideLoadOpeningTest, ThereIsOneEditor) {
    ASSERT_TRUE(Start("SHOW"));
    const SlideLoadFrm* const first = &Editor();
    Choose(View().menu.mnuSlideShow);
    int editors = 0;
    for (int i = 0; i < app.FormCount(); ++i)
        editors += app.FormAt(i).Name() == "SlideLoadFrm" ? 1 : 0;
    EXPECT_EQ(editors, 1);
    EXPECT_EQ(&Editor(), first);
}

TEST_F(SlideLoadOpeningTest, NothingOpensWhileAnotherOperationRuns) {
    ASSERT_TRUE(Start());
    const forms::BusyGuard busy(module.Screen());
    Choose(View().menu.mnuSlideShow);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(View().Visible());
}

class SlideLoadWindowTest : public EditorTest {
  protected:
    static std::string FunctionKeyName(int keyCode) {
        return "F" + std::to_string(keyCode - KeyCode::F1 + 1);
    }
    static std::string NameOf(int keyCode, int shift) {
        std::string name = shift == ShiftMask::Shift  ? "Shift+"
                           : shift == ShiftMask::Ctrl ? "Ctrl+"
                           : shift == ShiftMask::Alt  ? "Alt+"
                                                      : "";
        if (keyCode >= KeyCode::F1 && keyCode <= KeyCode::F12) return name + FunctionKeyName(keyCode);
        if (keyCode == KeyCode::Delete) return name + "Delete";
        if (keyCode == KeyCode::Insert) return name + "Insert";
        if (keyCode == KeyCode::Back) return name + "Backspace";
        return name + static_cast<char>(keyCode);
    }
    /// The entry of a menu whose caption ends with this key; null where there is none.
    static forms::Menu* EntryOf(const forms::Menu& menu, const std::string& key) {
        forms::Menu* found = nullptr;
        for (forms::Menu* entry : menu.Entries()) {
            if (!entry->Caption.Get().ends_with("[" + key + "]")) continue;
            EXPECT_EQ(found, nullptr) << key << " twice";
            found = entry;
        }
        return found;
    }
    /// All presses of function keys and some others in a list, with each shift key, run the entry that names them, and no
    /// other.
    void ExpectKeys(forms::Control& list, forms::Menu& menu) {
        std::string ran;
        for (forms::Menu* entry : menu.Entries())
            entry->Install([&ran, entry] { ran += entry->Name() + " "; });
        std::vector<int> codes{KeyCode::Delete, KeyCode::Insert, KeyCode::Back};
        for (int code = KeyCode::F1 + 1; code <= KeyCode::F12; ++code)
            codes.push_back(code);
        int keys = 0;
        for (const int code : codes) {
            for (const int shift : {ShiftMask::None, ShiftMask::Shift, ShiftMask::Ctrl, ShiftMask::Alt,
                                    ShiftMask::Shift | ShiftMask::Ctrl}) {
                ran.clear();
                Type(list, code, shift);
                const bool mixed = shift == (ShiftMask::Shift | ShiftMask::Ctrl);
                const forms::Menu* entry = mixed ? nullptr : EntryOf(menu, NameOf(code, shift));
                EXPECT_EQ(ran, entry != nullptr ? entry->Name() + " " : "") << NameOf(code, shift);
                keys += entry != nullptr ? 1 : 0;
            }
        }
        named_ = keys;
    }
    std::string RunsOf(forms::Control& list, forms::Menu& menu, int keyCode, int shift) {
        std::string ran;
        for (forms::Menu* entry : menu.Entries())
            entry->Install([&ran, entry] { ran += entry->Name(); });
        Type(list, keyCode, shift);
        return ran;
    }
    /// The same for a key that types a character.
    std::string Typing(forms::Control& list, forms::Menu& menu, int keyCode, int shift,
                       const std::string& character) {
        std::string ran;
        for (forms::Menu* entry : menu.Entries())
            entry->Install([&ran, entry] { ran += entry->Name(); });
        list.SetFocus();
        Key(list, true, keyCode, shift);
        list.Deliver(forms::CharacterEvent{character, nullptr});
        Key(list, false, keyCode, shift);
        return ran;
    }
    /// The minus key goes down, or repeats.
    void PressMinus(forms::Control& list) {
        Key(list, true, KeyCode::Minus);
        list.Deliver(forms::CharacterEvent{"-", nullptr});
    }

    int named_ = 0;
};

TEST_F(SlideLoadWindowTest, TextsAreAsTold) {
    const SlideLoadFrm& e = Editor();
    const std::vector<Texts> texts{{e.CmdAdd.ToolTip, e.CmdAddAll.ToolTip},
                                   {e.CmdRemove.ToolTip, e.CmdRemoveAll.ToolTip},
                                   {e.CmdAll.Caption, e.CmdNone.Caption, e.CmdPreview.Caption},
                                   {e.CmdOptions.Caption, e.CmdLoad.Caption, e.CmdSave.Caption},
                                   {e.CmdSaveAs.Caption, e.CmdOK.Caption, e.CmdCancel.Caption},
                                   {e.CmdFF.Caption, e.Label2.Caption}};
    const std::vector<Texts> expected{
        {"Add selected files to view list.", "Add all files to view list."},
        {"Remove selected files from view list.", "Remove all files from view list."},
        {"<- &All", "<- &None", "<- Vie&w..."},
        {"&Options...", "&Load...", "&Save"},
        {"Sa&ve As...", "View S&how", "&Close"},
        {"&FF", "[View List]  ---  Slide Show Images:"}};
    EXPECT_EQ(texts, expected);
    EXPECT_EQ(e.File1.Pattern.Get(), "*.dib;*.bmp;*.gif;*.jpg;*.jif;*.jpe;*.jpeg;*.ico;*.wmf;*.emf;*.rle");
    EXPECT_TRUE(e.CmdCancel.Cancel);
    EXPECT_TRUE(e.CmdOK.Default);
}

TEST_F(SlideLoadWindowTest, EachKeyOfTheSourceListRunsTheEntryThatNamesIt) {
    ExpectKeys(Editor().File1, Editor().Menu1.mnuMenu1);
    EXPECT_EQ(named_, 10);
}

TEST_F(SlideLoadWindowTest, EachKeyOfTheViewListRunsTheEntryThatNamesIt) {
    ExpectKeys(Editor().ListView, Editor().Menu2.mnuMenu2);
    EXPECT_EQ(named_, 21);
}

TEST_F(SlideLoadWindowTest, CharactersAreKeysOnAnyLayout) {
    SlideLoadFrm& e = Editor();
    // The keys that type them are others from layout to layout.
    for (const auto& [code, shift] : std::vector<std::pair<int, int>>{
             {KeyCode::Equals, 0}, {KeyCode::Digit0, ShiftMask::Shift}, {KeyCode::Other, 0}}) {
        EXPECT_EQ(Typing(e.File1, e.Menu1.mnuMenu1, code, shift, "="), "mnuAddAll");
        EXPECT_EQ(Typing(e.File1, e.Menu1.mnuMenu1, code, shift, "+"), "");
        EXPECT_EQ(Typing(e.File1, e.Menu1.mnuMenu1, code, shift, "-"), "");
        EXPECT_EQ(Typing(e.ListView, e.Menu2.mnuMenu2, code, shift, "-"), "mnuMoveFileUp");
        EXPECT_EQ(Typing(e.ListView, e.Menu2.mnuMenu2, code, shift, "+"), "mnuMoveFileDown");
        EXPECT_EQ(Typing(e.ListView, e.Menu2.mnuMenu2, code, shift, "~"), "mnuReverseOrder");
        EXPECT_EQ(Typing(e.ListView, e.Menu2.mnuMenu2, code, shift, "="), "");
    }
    EXPECT_EQ(RunsOf(e.File1, e.Menu1.mnuMenu1, KeyCode::Equals, 0), "");
}

TEST_F(SlideLoadWindowTest, CharactersThatAreKeysLookForNoRow) {
    platform.disks.PutFile("C:\\Odd\\=.bmp", "");
    platform.disks.PutFile("C:\\Odd\\-.bmp", "");
    Editor().Lists.GoTo("C:\\Odd");
    Editor().File1.Deliver(forms::CharacterEvent{"=", nullptr});
    EXPECT_EQ(Editor().File1.ListIndex.Get(), -1);
    module.show.SlideFiles.Set(0, "x.bmp");
    module.show.SlideFiles.Set(1, "-.bmp");
    module.show.SlideFiles.Set(2, "+.bmp");
    module.show.SlideFiles.Set(3, "~.bmp");
    Editor().ShowLoaded("C:\\Shows\\s.tvs");
    for (const char* character : {"-", "+", "~"}) {
        Editor().ListView.Deliver(forms::CharacterEvent{character, nullptr});
        EXPECT_EQ(Editor().ListView.ListIndex.Get(), -1) << character;
    }
}

TEST_F(SlideLoadWindowTest, AHeldKeyCountsOnce) {
    PutSlides("abcde");
    forms::ListBox& list = Editor().ListView;
    list.ListIndex = 4;
    list.SetFocus();
    for (int repeat = 0; repeat < 5; ++repeat)
        PressMinus(list);
    EXPECT_EQ(Letters(), "abcde");
    Key(list, false, KeyCode::Minus);
    EXPECT_EQ(Letters(), "abced");
    Key(list, false, KeyCode::Minus);
    EXPECT_EQ(Letters(), "abced");
}

TEST_F(SlideLoadWindowTest, AKeyThatWasPressedElsewhereIsNone) {
    PutSlides("abc");
    forms::ListBox& list = Editor().ListView;
    list.ListIndex = 2;
    list.SetFocus();
    Key(list, false, KeyCode::Minus);  // it went down in another window
    EXPECT_EQ(Letters(), "abc");
    Editor().File1.SetFocus();
    PressMinus(list);
    list.SetFocus();
    Key(list, false, KeyCode::Minus);
    EXPECT_EQ(Letters(), "abc");
    PressMinus(list);
    Editor().File1.SetFocus();
    list.SetFocus();
    Key(list, false, KeyCode::Minus);
    EXPECT_EQ(Letters(), "abc") << "the list was left between";
}

TEST_F(SlideLoadWindowTest, AKeyThatGoesUpAfterACommandIsNoMore) {
    PutSlides("abc");
    forms::ListBox& list = Editor().ListView;
    SelectSlides({0});
    list.SetFocus();
    Key(list, true, KeyCode::Delete);
    Key(list, true, KeyCode::F1 + 8);
    Key(list, false, KeyCode::F1 + 8);
    EXPECT_EQ(Selected(list), (Rows{1, 2}));
    Key(list, false, KeyCode::Delete);  // which belongs to whatever the command has opened
    EXPECT_EQ(Letters(), "abc");
}

TEST_F(SlideLoadWindowTest, TheShiftKeysOfThePressCount) {
    std::string ran;
    Editor().Menu2.mnuDeleteShow.Install([&] { ran += "show "; });
    Editor().Menu2.mnuRemoveSelected.Install([&] { ran += "selected "; });
    forms::ListBox& list = Editor().ListView;
    list.SetFocus();
    Key(list, true, KeyCode::Delete, ShiftMask::Shift);
    Key(list, false, KeyCode::Delete);
    EXPECT_EQ(ran, "show ");
    Key(list, true, KeyCode::Delete);
    Key(list, false, KeyCode::Delete, ShiftMask::Shift);
    EXPECT_EQ(ran, "show selected ");
}

TEST_F(SlideLoadWindowTest, BothMenusOpenByButtonMouseAndMenuKey) {
    SlideLoadFrm& e = Editor();
    const auto opened = [&](const forms::Menu& menu) {
        const auto& popups = toolkit.Popups();
        return !popups.empty() && popups.back().menu == menu.Peer();
    };
    std::size_t count = 0;
    Press(e.CmdMenu1);
    EXPECT_TRUE(opened(e.Menu1.mnuMenu1));
    EXPECT_EQ(toolkit.Popups().size(), ++count);
    Press(e.CmdMenu2);
    EXPECT_TRUE(opened(e.Menu2.mnuMenu2));
    EXPECT_EQ(toolkit.Popups().size(), ++count);
    PutSlides("abc");
    SelectSlides({0, 2});
    for (const auto& [list, menu] : {std::pair<forms::Control*, forms::Menu*>{&e.File1, &e.Menu1.mnuMenu1},
                                     {&e.ListView, &e.Menu2.mnuMenu2}}) {
        list->Deliver(forms::MouseEvent{forms::MouseAction::Down, forms::MouseButton::Right, 0, 5, 5, 1});
        EXPECT_EQ(toolkit.Popups().size(), count);
        list->Deliver(forms::MouseEvent{forms::MouseAction::Up, forms::MouseButton::Right, 0, 5, 5, 1});
        EXPECT_TRUE(opened(*menu));
        EXPECT_EQ(toolkit.Popups().size(), ++count);
        Type(*list, KeyCode::Apps);
        EXPECT_TRUE(opened(*menu));
        EXPECT_EQ(toolkit.Popups().size(), ++count);
        Type(*list, KeyCode::F10, ShiftMask::Shift);
        EXPECT_TRUE(opened(*menu));
        EXPECT_EQ(toolkit.Popups().size(), ++count);
        list->Deliver(forms::MouseEvent{forms::MouseAction::Up, forms::MouseButton::Left, 0, 5, 5, 1});
        EXPECT_EQ(toolkit.Popups().size(), count);
    }
    EXPECT_EQ(Selected(e.ListView), (Rows{0, 2})) << "the right button selects nothing";
}

TEST_F(SlideLoadWindowTest, AnEntryOfAPopupRuns) {
    toolkit.ChooseFromPopup("Add ALL Fil&es          [=]");
    Press(Editor().CmdMenu1);
    EXPECT_EQ(Letters(), "abcde");
}

TEST_F(SlideLoadWindowTest, TheFolderButtonLeadsToTheFavoriteFolder) {
    module.config.FavoriteFolder = "C:\\Temp";
    Press(Editor().CmdFF);
    EXPECT_EQ(Editor().Dir1.Path.Get(), "C:\\Temp");
    EXPECT_EQ(Editor().File1.ListCount(), 0);
}

}  // namespace
}  // namespace tavrix::test
