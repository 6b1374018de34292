#include <algorithm>
#include <cctype>
#include <functional>
#include <map>

#include "ViewerTest.h"
#include "viewer/MenuState.h"

namespace tavrix::test {
namespace {

class MenuTreeTest : public ViewerTest {};

struct Branch {
    std::string parent;  ///< empty: the menu bar
    std::vector<std::pair<std::string, std::string>> entries;
};

const std::vector<Branch> Tree{
    {"",
     {{"mnuFile", "&File"},
      {"mnuEdit", "&Edit"},
      {"mnuSlideShowMenu", "&Slide Show"},
      {"mnuFavorites", "&Favorites"},
      {"mnuOptions", "&Options"},
      {"mnuHelp", "&Help"}}},
    {"mnuFile",
     {{"mnuNewImage", "&New Image"},
      {"mnuOpen", "&Open Image"},
      {"mnuFind", "Find"},
      {"mnuThumbnail", "Thumbnails"},
      {"mnuImport", "Import"},
      {"mnuExport", "Export"},
      {"mnuFileCopy", "Copy"},
      {"mnuDeleteMenu", "Delete"},
      {"mnuExplore", "Explore"},
      {"mnuMove", "Move"},
      {"mnuRename", "Rename"},
      {"mnuSystem", "System"},
      {"mnuLast1", ""},
      {"mnuLast2", ""},
      {"mnuLast3", ""},
      {"mnuLast4", ""},
      {"mnuLast5", ""},
      {"mnuLast6", ""},
      {"mnuLast7", ""},
      {"mnuExit", "E&xit          [Escape Key]"}}},
    {"mnuFind", {{"mnuFindImage", "&Find Image(s)"}, {"mnuSearchDuplicate", "&Search For Duplicate Files"}}},
    {"mnuThumbnail", {{"mnuThumbnailBrowse", "&Browse Folder"}, {"mnuThumbnailSelect", "&Select Files"}}},
    {"mnuImport",
     {{"mnuLoadWallpaper", "Get Desktop &Wallpaper"},
      {"mnuGetDesktopPattern", "&Get Desktop Pattern"},
      {"mnuCaptureDesktop", "Capture Entire &Desktop"},
      {"mnuImportTGA", "Import TG&A"},
      {"mnuImportPCX", "Import PC&X"},
      {"mnuTempFile", "&Temporary File"},
      {"mnuImportPalette", "Color &Palette"}}},
    {"mnuExport",
     {{"mnuSetWallpaper", "&Set Desktop Wallpaper"},
      {"mnuClearWallpaper", "&Clear Desktop Wallpaper"},
      {"mnuExportBMP", "Export BM&P"},
      {"mnuExportJPG", "Export JP&G"}}},
    {"mnuFileCopy",
     {{"mnuSaveCopy", "C&urrent Image"},
      {"mnuFileCopyImages", "&Image(s)"},
      {"mnuCopyFromFloppy", "Images &From Floppy"},
      {"mnuCopyImgToFloppy", "Images &To Floppy"},
      {"mnuDiskcopyFloppy", "Fr&om Floppy To Floppy"}}},
    {"mnuDeleteMenu",
     {{"mnuDeleteCurrentImage", "&Current Image"},
      {"mnuDeleteImages", "&Image(s)"},
      {"mnuDelImgOnFloppy", "Images &On Floppy"},
      {"mnuDelEmptyFolder", "Empty &Folder"}}},
    {"mnuExplore",
     {{"mnuExploreFolder", "&Current Image Folder"},
      {"mnuExplorer", "&Drive(s)"},
      {"mnuExploreFloppy", "Floppy Dis&k"},
      {"mnuWinFolder", "&Windows Folder"},
      {"mnuExploreMyDocuments", "M&y Documents"},
      {"mnuExploreFavFolder", "&Favorite Folder"}}},
    {"mnuMove", {{"mnuMoveCurrentImg", "&Current Image"}, {"mnuMoveImages", "&Image(s)"}}},
    {"mnuRename", {{"mnuRenameCurrentImg", "Cu&rrent Image"}, {"mnuRenameImg", "I&mage(s)"}}},
    {"mnuSystem",
     {{"mnuSSaver", "Screen Saver"},
      {"mnuDisplayProperties", "Display &Properties"},
      {"mnuMultimediaProperties", "&Multimedia Properties"},
      {"mnuShellDiskcopy", "&Diskcopy"},
      {"mnuFormatFloppy", "&Format Floppy Disk"}}},
    {"mnuSSaver", {{"mnuSetScreenSaver", "&Properties"}, {"mnuSSaverSettings", "&Settings"}}},
    {"mnuEdit",
     {{"mnuUndo", "Can't Undo"},
      {"mnuCopy", "&Copy"},
      {"mnuPaste", "&Paste"},
      {"mnuFilp", "Flip"},
      {"mnuRotate", "Rotate"},
      {"mnuResize", "Resize"},
      {"mnuCrop", "Crop          [0 Key]"},
      {"mnuReloadImage", "Re&load Image"},
      {"mnuClear", "Clear &Screen"}}},
    {"mnuFilp", {{"mnuFlipHorizontal", "&Horizontally"}, {"mnuFlipVertically", "&Vertically"}}},
    {"mnuRotate",
     {{"mnu90CW", "90° CW          [Alt+Right Arrow]"},
      {"mnu90CCW", "90° CCW          [Alt+Left Arrow]"},
      {"mnu180Degrees", "180°          [Alt+Down Arrow]"},
      {"mnuArbitrary", "Arbitrary...          [Alt+Up Arrow]"}}},
    {"mnuResize",
     {{"mnu25Smaller", "25% Smaller          [1 Key]"},
      {"mnu25Larger", "25% Larger          [2 Key]"},
      {"mnu50Smaller", "50% Smaller          [3 Key]"},
      {"mnu50Larger", "50% Larger          [4 Key]"},
      {"mnuEditImageSize", "Arbitrary...          [5 Key]"}}},
    {"mnuSlideShowMenu",
     {{"mnuSlideShow", "Slide Show &Editor"},
      {"mnuOpenSlideShow", "&Load Slide Show"},
      {"mnuFindSlideShow", "&Find Slide Show(s)"},
      {"mnuViewFavorites", "&View Favorites As Slide Show          [! Key]"},
      {"mnuSaveFavoritesAsShow", "&Save Favorites As Slide Show          [@ Key]"},
      {"mnuRenameShow", "&Rename Slide Show"},
      {"mnuDeleteSlideShow", "&Delete Slide Show"},
      {"mnuPackageMenu", "Slide Show Package"}}},
    {"mnuPackageMenu", {{"mnuPackage", "&Save"}, {"mnuDeletePackage", "&Delete"}}},
    {"mnuFavorites",
     {{"mnuFavoritesAdd", "&Add To List"}, {"mnuOrganize", "Organize"}, {"mnuFolders", "Folders"}}},
    {"mnuOrganize", {{"mnuFavoritesRemove", "&Remove From List"}, {"mnuFavoritesClear", "&Clear List"}}},
    {"mnuFolders", {{"mnuFavoriteFolder", "Favorite &Folder"}, {"mnuQuickFolders", "Quick Folders"}}},
    {"mnuOptions",
     {{"mnuFullScreen", "&Full Screen View"},
      {"mnuAnimatedGIF", "&View Animated GIF"},
      {"mnuImageSize", "&Image Information"},
      {"mnuPref", "&Preferences"},
      {"mnuAdvancedSettings", "&Advanced Settings"},
      {"mnuTopmost", "&Topmost Window"}}},
    {"mnuHelp",
     {{"mnuAbout", "&About Tavrix"},
      {"mnuSysInfo", "System &Information"},
      {"mnuTipOfDay", "&Tip of the Day"},
      {"mnuInternet", "World Wide Web"},
      {"mnuHelpTopic", "Help Topic"},
      {"mnuHelpContents", "Help &Contents"}}},
    {"mnuInternet", {{"mnuWebSite", "&Tavrix Web Site"}, {"mnuCheckForUpgrade", "Check For &Upgrade"}}},
    {"mnuHelpTopic",
     {{"mnuHelpSearch", "&Search..."},
      {"mnuGettingStarted", "&Quick Start Guide"},
      {"mnuHelpCreateShow", "&How to Create a Slide Show"},
      {"mnuFaq", "&Frequently Asked Questions"}}},
};

std::string WithoutMnemonic(std::string caption) {
    std::erase(caption, '&');
    return caption;
}

TEST_F(MenuTreeTest, EveryEntryStandsUnderItsNameAndCaptionInOrder) {
    ASSERT_TRUE(Start());
    for (const Branch& branch : Tree) {
        const auto& shown = branch.parent.empty() ? View().MenuBar() : Entry(branch.parent)->Entries();
        std::vector<std::pair<std::string, std::string>> found;
        for (const forms::Menu* entry : shown) {
            // The array of the favorites and the open caption have tests of their own.
            if (entry->IsSeparator() || entry->Name() == "mnuFavoritesList" ||
                entry->Name() == "mnuMainWebSite") {
                continue;
            }
            // What heads a submenu may have its mnemonic where it likes.
            const bool heads = !entry->Entries().empty() && !branch.parent.empty();
            const std::string& caption = entry->Caption;
            found.emplace_back(entry->Name(), heads ? WithoutMnemonic(caption) : caption);
        }
        EXPECT_EQ(found, branch.entries) << "in " << branch.parent;
    }
    ASSERT_NE(Entry("mnuMainWebSite"), nullptr);
    EXPECT_FALSE(Entry("mnuMainWebSite")->Caption.Get().empty());
}

TEST_F(MenuTreeTest, TheFavoritesAreAnArrayOfTwentyHiddenEntriesOfData) {
    ASSERT_TRUE(Start());
    forms::MenuArray& list = View().menu.mnuFavoritesList;
    ASSERT_EQ(list.Count(), 20);
    const auto& entries = View().menu.mnuFavorites.Entries();
    ASSERT_GE(entries.size(), 20U);
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(list[i].Name(), "mnuFavoritesList");
        EXPECT_FALSE(list[i].Visible);
        EXPECT_TRUE(list[i].State().literal);
        EXPECT_EQ(entries[entries.size() - 20 + static_cast<std::size_t>(i)], &list[i]);
    }
}

TEST_F(MenuTreeTest, ALineStandsBeforeTheExit) {
    ASSERT_TRUE(Start());
    const auto& entries = View().menu.mnuFile.Entries();
    ASSERT_EQ(entries.back(), &View().menu.mnuExit);
    EXPECT_EQ(entries[entries.size() - 2], &View().menu.mnuFileLine3);
    EXPECT_TRUE(View().menu.mnuFileLine3.IsSeparator());
}

TEST_F(MenuTreeTest, AnEntryWithoutAHandlerIsShownDisabledButKeepsItsValue) {
    StartWithPicture(10, 10);
    // Nothing can be packed where the program's files are not known.
    forms::Menu& entry = View().menu.mnuPackage;
    EXPECT_TRUE(entry.Enabled);
    EXPECT_FALSE(entry.State().enabled);
    EXPECT_FALSE(Choose(entry));
    entry.Install([] {});
    EXPECT_TRUE(entry.State().enabled);
    entry.Enabled = false;
    EXPECT_FALSE(entry.State().enabled);
    for (const char* name : {"mnuReloadImage", "mnuClear", "mnuTopmost", "mnuExit"})
        EXPECT_TRUE(Entry(name)->State().enabled) << name;
}

/// The commands of a menu and of those below it that nothing answers to.
std::vector<std::string> DeadEntries(const std::vector<forms::Menu*>& entries) {
    std::vector<std::string> dead;
    for (const forms::Menu* entry : entries) {
        if (entry->Entries().empty() && !entry->IsSeparator() && !entry->Installed())
            dead.push_back(entry->Name());
        const std::vector<std::string> below = DeadEntries(entry->Entries());
        dead.insert(dead.end(), below.begin(), below.end());
    }
    return dead;
}

TEST_F(MenuTreeTest, EveryCommandHasAHandler) {
    platform.disks.PutFile("C:\\Tavrix\\TAVRIX.EXE", "");  // without it there is nothing to pack
    ASSERT_TRUE(Start());
    EXPECT_EQ(DeadEntries(View().MenuBar()), std::vector<std::string>());
}

std::string PathOf(std::size_t length) {
    const std::string start = "C:\\p\\";
    return start + std::string(length - start.size() - 4, 'n') + ".jpg";
}

TEST_F(MenuTreeTest, RecentFilesAreCaptionsWithTwoBlanks) {
    ASSERT_TRUE(Start());
    const std::string whole = PathOf(60);
    const std::string cut = PathOf(61);
    module.config.Recent = {whole, cut, "", "C:\\a & b\\c.bmp", "", "", ""};
    RefreshRecentMenu(View().menu, module.config);
    EXPECT_EQ(View().menu.mnuLast1.Caption.Get(), "  " + whole);
    EXPECT_EQ(View().menu.mnuLast2.Caption.Get(), "  ..." + cut.substr(4));
    EXPECT_EQ(View().menu.mnuLast4.Caption.Get(), "  C:\\a & b\\c.bmp");
    EXPECT_TRUE(View().menu.mnuLast1.Visible);
    EXPECT_TRUE(View().menu.mnuLast2.Visible);
    EXPECT_FALSE(View().menu.mnuLast3.Visible);
    EXPECT_TRUE(View().menu.mnuLast4.Visible);
    EXPECT_TRUE(View().menu.mnuFileLine3.Visible);
}

TEST_F(MenuTreeTest, AnAmpersandInARecentPathIsShownAsItIs) {
    ASSERT_TRUE(Start());
    for (const forms::Menu* entry : View().menu.mnuLast)
        EXPECT_TRUE(entry->State().literal) << entry->Name();
}

TEST_F(MenuTreeTest, LengthsCountCharactersAndNotBytes) {
    ASSERT_TRUE(Start());
    std::string path = "C:\\";
    for (int i = 0; i < 58; ++i)
        path += "é";
    module.config.Recent = {path, "", "", "", "", "", ""};
    RefreshRecentMenu(View().menu, module.config);
    EXPECT_EQ(View().menu.mnuLast1.Caption.Get(), "  ..." + Right(path, 57));
    EXPECT_EQ(CharacterCount(View().menu.mnuLast1.Caption.Get()), 62U);
}

/// The letter that an entry is shown with; 0 without one.
char ShownLetter(const forms::Menu& entry) {
    const forms::MenuItemState state = entry.State();
    const std::size_t mark = state.literal ? std::string::npos : state.caption.find('&');
    return mark != std::string::npos ? static_cast<char>(std::toupper(state.caption[mark + 1])) : '\0';
}

/// Goes through a menu and those below it: no two of its entries are shown with the same letter.
void ExpectOneEntryALetter(const std::vector<forms::Menu*>& entries, const std::string& where) {
    std::map<char, std::string> taken;
    for (const forms::Menu* entry : entries) {
        if (const char letter = ShownLetter(*entry); letter != '\0') {
            const auto [holder, free] = taken.emplace(letter, entry->Name());
            EXPECT_TRUE(free) << where << ": " << entry->Name() << " has the letter of " << holder->second;
        }
        ExpectOneEntryALetter(entry->Entries(), entry->Name());
    }
}

TEST_F(MenuTreeTest, ALetterLeadsToOneEntry) {
    StartWithPicture(10, 10);
    ExpectOneEntryALetter(View().MenuBar(), "the menu bar");
    // Of the menus that were given the same letter the first one has it.
    EXPECT_EQ(ShownLetter(View().menu.mnuFile), 'F');
    EXPECT_EQ(ShownLetter(View().menu.mnuFavorites), '\0');
    EXPECT_EQ(View().menu.mnuFavorites.State().caption, "Favorites");
    EXPECT_EQ(View().menu.mnuFavorites.Caption.Get(), "&Favorites");
}

TEST_F(MenuTreeTest, NoEntryTakesTheLetterOfAnother) {
    StartWithPicture(10, 10);
    // Every letter that a caption names is the one that is shown, but for the second "F" of the bar.
    const std::function<void(const std::vector<forms::Menu*>&)> look =
        [&](const std::vector<forms::Menu*>& entries) {
            for (const forms::Menu* entry : entries) {
                const bool named = !entry->Literal && entry->Caption.Get().find('&') != std::string::npos;
                if (entry != &View().menu.mnuFavorites) {
                    EXPECT_EQ(ShownLetter(*entry) != 0, named) << entry->Name();
                }
                look(entry->Entries());
            }
        };
    look(View().MenuBar());
    EXPECT_EQ(ShownLetter(View().menu.mnuExit), 'X');
    EXPECT_EQ(ShownLetter(View().menu.mnuClear), 'S');
}

TEST_F(MenuTreeTest, TopmostIsSomethingToCheckAlsoWhileItIsOff) {
    ASSERT_TRUE(Start());
    EXPECT_TRUE(View().menu.mnuTopmost.State().checkable);
    EXPECT_FALSE(View().menu.mnuTopmost.State().checked);
    EXPECT_FALSE(View().menu.mnuOpen.State().checkable);
}

TEST_F(MenuTreeTest, WithoutRecentFilesTheirLineIsHiddenToo) {
    ASSERT_TRUE(Start());
    EXPECT_FALSE(View().menu.mnuFileLine3.Visible);
    for (const forms::Menu* entry : View().menu.mnuLast)
        EXPECT_FALSE(entry->Visible) << entry->Name();
    module.config.Recent[6] = "C:\\last.bmp";
    RefreshRecentMenu(View().menu, module.config);
    EXPECT_TRUE(View().menu.mnuFileLine3.Visible);
    EXPECT_TRUE(View().menu.mnuLast7.Visible);
}

TEST_F(MenuTreeTest, FavoritesAreCaptionsWithoutBlanksAndGapsStay) {
    Setting("FavoriteFile2", PathOf(60));
    Setting("FavoriteFile20", PathOf(61));
    ASSERT_TRUE(Start());
    forms::MenuArray& list = View().menu.mnuFavoritesList;
    EXPECT_FALSE(list[0].Visible);
    EXPECT_TRUE(list[1].Visible);
    EXPECT_EQ(list[1].Caption.Get(), PathOf(60));
    EXPECT_TRUE(list[19].Visible);
    EXPECT_EQ(list[19].Caption.Get(), "..." + PathOf(61).substr(4));
    EXPECT_TRUE(View().menu.mnuFavoritesLine1.Visible);
    EXPECT_TRUE(View().menu.mnuFavoritesRemove.Enabled);

    module.config.FavoriteFiles.fill("");
    RefreshFavoritesMenu(View().menu, module.config);
    EXPECT_FALSE(list[1].Visible);
    EXPECT_FALSE(list[19].Visible);
    EXPECT_FALSE(View().menu.mnuFavoritesLine1.Visible);
    EXPECT_FALSE(View().menu.mnuFavoritesRemove.Enabled);
}

constexpr const char* ImageEntries[] = {"mnuSaveCopy",     "mnuExploreFolder",      "mnuImageSize",
                                        "mnuFullScreen",   "mnuExportBMP",          "mnuExportJPG",
                                        "mnuSetWallpaper", "mnuDeleteCurrentImage", "mnuImportPalette",
                                        "mnuFavoritesAdd", "mnuRenameCurrentImg",   "mnuMoveCurrentImg"};

TEST_F(MenuTreeTest, TheEmptyViewDisablesWhatNeedsAnImage) {
    StartWithPicture(10, 10);
    View().menu.mnuAnimatedGIF.Enabled = true;
    ResetEmptyView(View());
    for (const char* name : ImageEntries)
        EXPECT_FALSE(Entry(name)->Enabled) << name;
    EXPECT_FALSE(View().menu.mnuAnimatedGIF.Enabled);
    EXPECT_FALSE(View().menu.mnuEdit.Visible);
    EXPECT_FALSE(View().CmdFullScreen.Visible);
    EXPECT_EQ(View().Caption.Get(), "Tavrix");
    for (const char* name : {"mnuNewImage", "mnuOpen", "mnuFileCopyImages", "mnuMoveImages", "mnuPref"})
        EXPECT_TRUE(Entry(name)->Enabled) << name;
}

TEST_F(MenuTreeTest, ALoadedImageEnablesThemAndTakesTheUndoAway) {
    ASSERT_TRUE(Start());
    View().menu.mnuUndo.Enabled = true;
    View().menu.mnuUndo.Caption = "&Undo Crop";
    module.CurrentImage = "C:\\p\\x.gif";
    SetImageLoadedMenus(View());
    for (const char* name : ImageEntries)
        EXPECT_TRUE(Entry(name)->Enabled) << name;
    EXPECT_TRUE(View().menu.mnuAnimatedGIF.Enabled);
    EXPECT_TRUE(View().menu.mnuEdit.Visible);
    EXPECT_TRUE(View().CmdFullScreen.Visible);
    EXPECT_FALSE(View().menu.mnuUndo.Enabled);
    EXPECT_EQ(View().menu.mnuUndo.Caption.Get(), "Can't Undo");

    module.CurrentImage = "C:\\p\\x.jpg";
    SetImageLoadedMenus(View());
    EXPECT_FALSE(View().menu.mnuAnimatedGIF.Enabled);
}

TEST_F(MenuTreeTest, NothingCanBeUndoneAfterAStart) {
    ASSERT_TRUE(Start());
    EXPECT_FALSE(View().menu.mnuUndo.Enabled);
}

}  // namespace
}  // namespace tavrix::test
