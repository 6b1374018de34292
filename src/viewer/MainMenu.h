#pragma once

#include <array>

#include "platform/forms/Menu.h"

namespace tavrix {

/// The menu of the main view: every entry under its name, with its caption. What the entries do is installed by the
/// subsystems that own the functions.
struct MainMenu {
    explicit MainMenu(forms::Form& form) : form_(form) {}
    MainMenu(const MainMenu&) = delete;
    MainMenu& operator=(const MainMenu&) = delete;

  private:
    forms::Form& form_;

  public:
    forms::Menu mnuFile{form_, "mnuFile", "&File"};
    forms::Menu mnuNewImage{mnuFile, "mnuNewImage", "&New Image"};
    forms::Menu mnuOpen{mnuFile, "mnuOpen", "&Open Image"};
    forms::Menu mnuFileLine1{mnuFile, "mnuFileLine1", "-"};

    forms::Menu mnuFind{mnuFile, "mnuFind", "F&ind"};
    forms::Menu mnuFindImage{mnuFind, "mnuFindImage", "&Find Image(s)"};
    forms::Menu mnuSearchDuplicate{mnuFind, "mnuSearchDuplicate", "&Search For Duplicate Files"};

    forms::Menu mnuThumbnail{mnuFile, "mnuThumbnail", "&Thumbnails"};
    forms::Menu mnuThumbnailBrowse{mnuThumbnail, "mnuThumbnailBrowse", "&Browse Folder"};
    forms::Menu mnuThumbnailSelect{mnuThumbnail, "mnuThumbnailSelect", "&Select Files"};

    forms::Menu mnuImport{mnuFile, "mnuImport", "I&mport"};
    forms::Menu mnuLoadWallpaper{mnuImport, "mnuLoadWallpaper", "Get Desktop &Wallpaper"};
    forms::Menu mnuGetDesktopPattern{mnuImport, "mnuGetDesktopPattern", "&Get Desktop Pattern"};
    forms::Menu mnuCaptureDesktop{mnuImport, "mnuCaptureDesktop", "Capture Entire &Desktop"};
    forms::Menu mnuImportTGA{mnuImport, "mnuImportTGA", "Import TG&A"};
    forms::Menu mnuImportPCX{mnuImport, "mnuImportPCX", "Import PC&X"};
    forms::Menu mnuTempFile{mnuImport, "mnuTempFile", "&Temporary File"};
    forms::Menu mnuImportPalette{mnuImport, "mnuImportPalette", "Color &Palette"};

    forms::Menu mnuExport{mnuFile, "mnuExport", "&Export"};
    forms::Menu mnuSetWallpaper{mnuExport, "mnuSetWallpaper", "&Set Desktop Wallpaper"};
    forms::Menu mnuClearWallpaper{mnuExport, "mnuClearWallpaper", "&Clear Desktop Wallpaper"};
    forms::Menu mnuExportBMP{mnuExport, "mnuExportBMP", "Export BM&P"};
    forms::Menu mnuExportJPG{mnuExport, "mnuExportJPG", "Export JP&G"};
    forms::Menu mnuFileLine2{mnuFile, "mnuFileLine2", "-"};

    forms::Menu mnuFileCopy{mnuFile, "mnuFileCopy", "&Copy"};
    forms::Menu mnuSaveCopy{mnuFileCopy, "mnuSaveCopy", "C&urrent Image"};
    forms::Menu mnuFileCopyImages{mnuFileCopy, "mnuFileCopyImages", "&Image(s)"};
    forms::Menu mnuCopyFromFloppy{mnuFileCopy, "mnuCopyFromFloppy", "Images &From Floppy"};
    forms::Menu mnuCopyImgToFloppy{mnuFileCopy, "mnuCopyImgToFloppy", "Images &To Floppy"};
    forms::Menu mnuDiskcopyFloppy{mnuFileCopy, "mnuDiskcopyFloppy", "Fr&om Floppy To Floppy"};

    forms::Menu mnuDeleteMenu{mnuFile, "mnuDeleteMenu", "&Delete"};
    forms::Menu mnuDeleteCurrentImage{mnuDeleteMenu, "mnuDeleteCurrentImage", "&Current Image"};
    forms::Menu mnuDeleteImages{mnuDeleteMenu, "mnuDeleteImages", "&Image(s)"};
    forms::Menu mnuDelImgOnFloppy{mnuDeleteMenu, "mnuDelImgOnFloppy", "Images &On Floppy"};
    forms::Menu mnuDelEmptyFolder{mnuDeleteMenu, "mnuDelEmptyFolder", "Empty &Folder"};

    forms::Menu mnuExplore{mnuFile, "mnuExplore", "Ex&plore"};
    forms::Menu mnuExploreFolder{mnuExplore, "mnuExploreFolder", "&Current Image Folder"};
    forms::Menu mnuExplorer{mnuExplore, "mnuExplorer", "&Drive(s)"};
    forms::Menu mnuExploreFloppy{mnuExplore, "mnuExploreFloppy", "Floppy Dis&k"};
    forms::Menu mnuWinFolder{mnuExplore, "mnuWinFolder", "&Windows Folder"};
    forms::Menu mnuExploreMyDocuments{mnuExplore, "mnuExploreMyDocuments", "M&y Documents"};
    forms::Menu mnuExploreFavFolder{mnuExplore, "mnuExploreFavFolder", "&Favorite Folder"};

    forms::Menu mnuMove{mnuFile, "mnuMove", "Mo&ve"};
    forms::Menu mnuMoveCurrentImg{mnuMove, "mnuMoveCurrentImg", "&Current Image"};
    forms::Menu mnuMoveImages{mnuMove, "mnuMoveImages", "&Image(s)"};

    forms::Menu mnuRename{mnuFile, "mnuRename", "&Rename"};
    forms::Menu mnuRenameCurrentImg{mnuRename, "mnuRenameCurrentImg", "Cu&rrent Image"};
    forms::Menu mnuRenameImg{mnuRename, "mnuRenameImg", "I&mage(s)"};

    forms::Menu mnuSystem{mnuFile, "mnuSystem", "&System"};
    forms::Menu mnuSSaver{mnuSystem, "mnuSSaver", "&Screen Saver"};
    forms::Menu mnuSetScreenSaver{mnuSSaver, "mnuSetScreenSaver", "&Properties"};
    forms::Menu mnuSSaverSettings{mnuSSaver, "mnuSSaverSettings", "&Settings"};
    forms::Menu mnuSystemLine1{mnuSystem, "mnuSystemLine1", "-"};
    forms::Menu mnuDisplayProperties{mnuSystem, "mnuDisplayProperties", "Display &Properties"};
    forms::Menu mnuMultimediaProperties{mnuSystem, "mnuMultimediaProperties", "&Multimedia Properties"};
    forms::Menu mnuSystemLine2{mnuSystem, "mnuSystemLine2", "-"};
    forms::Menu mnuShellDiskcopy{mnuSystem, "mnuShellDiskcopy", "&Diskcopy"};
    forms::Menu mnuFormatFloppy{mnuSystem, "mnuFormatFloppy", "&Format Floppy Disk"};

    /// Above the recent files; below them is the line before Exit, which is hidden with the last of them.
    forms::Menu mnuFileLine4{mnuFile, "mnuFileLine4", "-"};
    forms::Menu mnuLast1{mnuFile, "mnuLast1", ""};
    forms::Menu mnuLast2{mnuFile, "mnuLast2", ""};
    forms::Menu mnuLast3{mnuFile, "mnuLast3", ""};
    forms::Menu mnuLast4{mnuFile, "mnuLast4", ""};
    forms::Menu mnuLast5{mnuFile, "mnuLast5", ""};
    forms::Menu mnuLast6{mnuFile, "mnuLast6", ""};
    forms::Menu mnuLast7{mnuFile, "mnuLast7", ""};
    forms::Menu mnuFileLine3{mnuFile, "mnuFileLine3", "-"};
    forms::Menu mnuExit{mnuFile, "mnuExit", "E&xit          [Escape Key]"};

    forms::Menu mnuEdit{form_, "mnuEdit", "&Edit"};
    forms::Menu mnuUndo{mnuEdit, "mnuUndo", "Can't Undo"};
    forms::Menu mnuEditLine1{mnuEdit, "mnuEditLine1", "-"};
    forms::Menu mnuCopy{mnuEdit, "mnuCopy", "&Copy"};
    forms::Menu mnuPaste{mnuEdit, "mnuPaste", "&Paste"};
    forms::Menu mnuEditLine2{mnuEdit, "mnuEditLine2", "-"};
    forms::Menu mnuFilp{mnuEdit, "mnuFilp", "&Flip"};
    forms::Menu mnuFlipHorizontal{mnuFilp, "mnuFlipHorizontal", "&Horizontally"};
    forms::Menu mnuFlipVertically{mnuFilp, "mnuFlipVertically", "&Vertically"};
    forms::Menu mnuRotate{mnuEdit, "mnuRotate", "&Rotate"};
    forms::Menu mnu90CW{mnuRotate, "mnu90CW", "90° CW          [Alt+Right Arrow]"};
    forms::Menu mnu90CCW{mnuRotate, "mnu90CCW", "90° CCW          [Alt+Left Arrow]"};
    forms::Menu mnu180Degrees{mnuRotate, "mnu180Degrees", "180°          [Alt+Down Arrow]"};
    forms::Menu mnuArbitrary{mnuRotate, "mnuArbitrary", "Arbitrary...          [Alt+Up Arrow]"};
    forms::Menu mnuResize{mnuEdit, "mnuResize", "R&esize"};
    forms::Menu mnu25Smaller{mnuResize, "mnu25Smaller", "25% Smaller          [1 Key]"};
    forms::Menu mnu25Larger{mnuResize, "mnu25Larger", "25% Larger          [2 Key]"};
    forms::Menu mnu50Smaller{mnuResize, "mnu50Smaller", "50% Smaller          [3 Key]"};
    forms::Menu mnu50Larger{mnuResize, "mnu50Larger", "50% Larger          [4 Key]"};
    forms::Menu mnuEditImageSize{mnuResize, "mnuEditImageSize", "Arbitrary...          [5 Key]"};
    forms::Menu mnuCrop{mnuEdit, "mnuCrop", "Crop          [0 Key]"};
    forms::Menu mnuEditLine3{mnuEdit, "mnuEditLine3", "-"};
    forms::Menu mnuReloadImage{mnuEdit, "mnuReloadImage", "Re&load Image"};
    forms::Menu mnuClear{mnuEdit, "mnuClear", "Clear &Screen"};

    forms::Menu mnuSlideShowMenu{form_, "mnuSlideShowMenu", "&Slide Show"};
    forms::Menu mnuSlideShow{mnuSlideShowMenu, "mnuSlideShow", "Slide Show &Editor"};
    forms::Menu mnuOpenSlideShow{mnuSlideShowMenu, "mnuOpenSlideShow", "&Load Slide Show"};
    forms::Menu mnuFindSlideShow{mnuSlideShowMenu, "mnuFindSlideShow", "&Find Slide Show(s)"};
    forms::Menu mnuSlideShowLine1{mnuSlideShowMenu, "mnuSlideShowLine1", "-"};
    forms::Menu mnuViewFavorites{mnuSlideShowMenu, "mnuViewFavorites",
                                 "&View Favorites As Slide Show          [! Key]"};
    forms::Menu mnuSaveFavoritesAsShow{mnuSlideShowMenu, "mnuSaveFavoritesAsShow",
                                       "&Save Favorites As Slide Show          [@ Key]"};
    forms::Menu mnuSlideShowLine2{mnuSlideShowMenu, "mnuSlideShowLine2", "-"};
    forms::Menu mnuRenameShow{mnuSlideShowMenu, "mnuRenameShow", "&Rename Slide Show"};
    forms::Menu mnuDeleteSlideShow{mnuSlideShowMenu, "mnuDeleteSlideShow", "&Delete Slide Show"};
    forms::Menu mnuSlideShowLine3{mnuSlideShowMenu, "mnuSlideShowLine3", "-"};
    forms::Menu mnuPackageMenu{mnuSlideShowMenu, "mnuPackageMenu", "Slide Show &Package"};
    forms::Menu mnuPackage{mnuPackageMenu, "mnuPackage", "&Save"};
    forms::Menu mnuDeletePackage{mnuPackageMenu, "mnuDeletePackage", "&Delete"};

    forms::Menu mnuFavorites{form_, "mnuFavorites", "&Favorites"};
    forms::Menu mnuFavoritesAdd{mnuFavorites, "mnuFavoritesAdd", "&Add To List"};
    forms::Menu mnuOrganize{mnuFavorites, "mnuOrganize", "&Organize"};
    forms::Menu mnuFavoritesRemove{mnuOrganize, "mnuFavoritesRemove", "&Remove From List"};
    forms::Menu mnuFavoritesClear{mnuOrganize, "mnuFavoritesClear", "&Clear List"};
    forms::Menu mnuFolders{mnuFavorites, "mnuFolders", "&Folders"};
    forms::Menu mnuFavoriteFolder{mnuFolders, "mnuFavoriteFolder", "Favorite &Folder"};
    forms::Menu mnuQuickFolders{mnuFolders, "mnuQuickFolders", "Quick Folders"};
    forms::Menu mnuFavoritesLine1{mnuFavorites, "mnuFavoritesLine1", "-"};
    forms::MenuArray mnuFavoritesList{mnuFavorites, "mnuFavoritesList", 20};

    forms::Menu mnuOptions{form_, "mnuOptions", "&Options"};
    forms::Menu mnuFullScreen{mnuOptions, "mnuFullScreen", "&Full Screen View"};
    forms::Menu mnuAnimatedGIF{mnuOptions, "mnuAnimatedGIF", "&View Animated GIF"};
    forms::Menu mnuImageSize{mnuOptions, "mnuImageSize", "&Image Information"};
    forms::Menu mnuOptionsLine1{mnuOptions, "mnuOptionsLine1", "-"};
    forms::Menu mnuPref{mnuOptions, "mnuPref", "&Preferences"};
    forms::Menu mnuAdvancedSettings{mnuOptions, "mnuAdvancedSettings", "&Advanced Settings"};
    forms::Menu mnuTopmost{mnuOptions, "mnuTopmost", "&Topmost Window"};

    forms::Menu mnuHelp{form_, "mnuHelp", "&Help"};
    forms::Menu mnuAbout{mnuHelp, "mnuAbout", "&About Tavrix"};
    forms::Menu mnuSysInfo{mnuHelp, "mnuSysInfo", "System &Information"};
    forms::Menu mnuTipOfDay{mnuHelp, "mnuTipOfDay", "&Tip of the Day"};
    forms::Menu mnuHelpLine1{mnuHelp, "mnuHelpLine1", "-"};
    forms::Menu mnuInternet{mnuHelp, "mnuInternet", "&World Wide Web"};
    forms::Menu mnuWebSite{mnuInternet, "mnuWebSite", "&Tavrix Web Site"};
    forms::Menu mnuCheckForUpgrade{mnuInternet, "mnuCheckForUpgrade", "Check For &Upgrade"};
    forms::Menu mnuMainWebSite{mnuInternet, "mnuMainWebSite", "&Maker's Web Site"};
    forms::Menu mnuHelpTopic{mnuHelp, "mnuHelpTopic", "Help T&opic"};
    forms::Menu mnuHelpSearch{mnuHelpTopic, "mnuHelpSearch", "&Search..."};
    forms::Menu mnuGettingStarted{mnuHelpTopic, "mnuGettingStarted", "&Quick Start Guide"};
    forms::Menu mnuHelpCreateShow{mnuHelpTopic, "mnuHelpCreateShow", "&How to Create a Slide Show"};
    forms::Menu mnuFaq{mnuHelpTopic, "mnuFaq", "&Frequently Asked Questions"};
    forms::Menu mnuHelpContents{mnuHelp, "mnuHelpContents", "Help &Contents"};

    /// The entries of the recent files, the latest first.
    std::array<forms::Menu*, 7> mnuLast{&mnuLast1, &mnuLast2, &mnuLast3, &mnuLast4,
                                        &mnuLast5, &mnuLast6, &mnuLast7};
};

}  // namespace tavrix
