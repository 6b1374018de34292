#pragma once

#include <string>

#include "platform/forms/Menu.h"

namespace tavrix {

/// A caption with the key that does the same.
[[nodiscard]] inline std::string WithKey(const std::string& caption, const std::string& key) {
    return caption + "          [" + key + "]";
}

/// The popup menu of the source list.
struct SourceMenu {
    explicit SourceMenu(forms::Form& form) : mnuMenu1(form, "mnuMenu1", "") { mnuMenu1.Visible = false; }

    forms::Menu mnuMenu1;
    forms::Menu mnuSelectAll{mnuMenu1, "mnuSelectAll", WithKey("Select &ALL", "Alt+A")};
    forms::Menu mnuSelectNone{mnuMenu1, "mnuSelectNone", WithKey("Select &NONE", "Alt+N")};
    forms::Menu mnuInverse1{mnuMenu1, "mnuInverse1", WithKey("In&verse Selection", "F9")};
    forms::Menu mnuMenu1Line1{mnuMenu1, "mnuMenu1Line1", "-"};
    forms::Menu mnuAddAll{mnuMenu1, "mnuAddAll", WithKey("Add ALL Fil&es", "=")};
    forms::Menu mnuAddSelected{mnuMenu1, "mnuAddSelected", WithKey("Add &SELECTED File(s)", "Insert")};
    forms::Menu mnuMenu1Line2{mnuMenu1, "mnuMenu1Line2", "-"};
    forms::Menu mnuExploreFolder{mnuMenu1, "mnuExploreFolder",
                                 WithKey("&Explore Source File Folder", "Shift+F8")};
    forms::Menu mnuCopyFiles{mnuMenu1, "mnuCopyFiles", WithKey("&Copy File(s)", "Shift+F11")};
    forms::Menu mnuMoveFiles{mnuMenu1, "mnuMoveFiles", WithKey("&Move File(s)", "Ctrl+F11")};
    forms::Menu mnuRenameFile{mnuMenu1, "mnuRenameFile", WithKey("&Rename File", "Alt+F11")};
    forms::Menu mnuDeleteFile{mnuMenu1, "mnuDeleteFile", WithKey("&Delete File(s)", "Delete")};
    forms::Menu mnuMenu1Line3{mnuMenu1, "mnuMenu1Line3", "-"};
    forms::Menu mnuSourceInfo{mnuMenu1, "mnuSourceInfo", WithKey("Source Folder &Information", "Alt+F2")};
    forms::Menu mnuShowFileInfo{mnuMenu1, "mnuShowFileInfo", WithKey("Show &Image Information", "F11")};
    forms::Menu mnuViewAnimatedGIF1{mnuMenu1, "mnuViewAnimatedGIF1", WithKey("View Animated GIF", "Ctrl+F5")};
    forms::Menu mnuViewImage{mnuMenu1, "mnuViewImage", WithKey("Vie&w Image", "Alt+W")};
};

/// The popup menu of the View List.
struct ViewListMenu {
    explicit ViewListMenu(forms::Form& form) : mnuMenu2(form, "mnuMenu2", "") { mnuMenu2.Visible = false; }

    forms::Menu mnuMenu2;
    forms::Menu mnuListSelectAll{mnuMenu2, "mnuListSelectAll", WithKey("Select &ALL", "F5")};
    forms::Menu mnuListSelectNone{mnuMenu2, "mnuListSelectNone", WithKey("Select &NONE", "F6")};
    forms::Menu mnuInverse2{mnuMenu2, "mnuInverse2", WithKey("In&verse Selection", "F9")};
    forms::Menu mnuMenu2Line1{mnuMenu2, "mnuMenu2Line1", "-"};
    forms::Menu mnuRemoveAll{mnuMenu2, "mnuRemoveAll", WithKey("Remove ALL Slid&es", "Backspace")};
    forms::Menu mnuRemoveSelected{mnuMenu2, "mnuRemoveSelected",
                                  WithKey("Remove &SELECTED Slide(s)", "Delete")};
    forms::Menu mnuMenu2Line2{mnuMenu2, "mnuMenu2Line2", "-"};
    forms::Menu mnuEditDescription{mnuMenu2, "mnuEditDescription",
                                   WithKey("Slide Descriptions: &Edit", "F3")};
    forms::Menu mnuClearDescriptions{mnuMenu2, "mnuClearDescriptions",
                                     WithKey("Slide Descriptions: C&lear", "F4")};
    forms::Menu mnuMenu2Line3{mnuMenu2, "mnuMenu2Line3", "-"};
    forms::Menu mnuMoveFileUp{mnuMenu2, "mnuMoveFileUp", WithKey("Move Slide &UP", "-")};
    forms::Menu mnuMoveFileDown{mnuMenu2, "mnuMoveFileDown", WithKey("Move Slide &DOWN", "+")};
    forms::Menu mnuMoveToTop{mnuMenu2, "mnuMoveToTop", WithKey("Move Slide To &TOP", "F7")};
    forms::Menu mnuMoveToBottom{mnuMenu2, "mnuMoveToBottom", WithKey("Move Slide To &BOTTOM", "F8")};
    forms::Menu mnuReverseOrder{mnuMenu2, "mnuReverseOrder", WithKey("&REVERSE Slide Order", "~")};
    forms::Menu mnuRandomizeOrder{mnuMenu2, "mnuRandomizeOrder", WithKey("RANDOMIZE Slide &Order", "Insert")};
    forms::Menu mnuMenu2Line4{mnuMenu2, "mnuMenu2Line4", "-"};
    forms::Menu mnuExploreShowFolder{mnuMenu2, "mnuExploreShowFolder",
                                     WithKey("&Explore Slide Show Folder", "Shift+F8")};
    forms::Menu mnuExploreSlideFolder{mnuMenu2, "mnuExploreSlideFolder",
                                      WithKey("Explore Selected Image &Folder", "Ctrl+F8")};
    forms::Menu mnuCheckDuplicate{mnuMenu2, "mnuCheckDuplicate",
                                  WithKey("&Check For Duplicate Slides", "Shift+F2")};
    forms::Menu mnuSelectMissing{mnuMenu2, "mnuSelectMissing", WithKey("&Select Missing Slides", "Shift+F5")};
    forms::Menu mnuRemoveMissing{mnuMenu2, "mnuRemoveMissing", WithKey("Remove &Missing Slides", "Ctrl+F2")};
    forms::Menu mnuRenameShow{mnuMenu2, "mnuRenameShow", WithKey("&Rename Slide Show", "Shift+F3")};
    forms::Menu mnuDeleteShow{mnuMenu2, "mnuDeleteShow", WithKey("&Delete Slide Show", "Shift+Delete")};
    forms::Menu mnuMenu2Line5{mnuMenu2, "mnuMenu2Line5", "-"};
    forms::Menu mnuSlideShowInfo{mnuMenu2, "mnuSlideShowInfo", WithKey("Slide Show &Information", "Alt+F2")};
    forms::Menu mnuShowImagePath{mnuMenu2, "mnuShowImagePath", WithKey("Show &Image Information", "F11")};
    forms::Menu mnuViewAnimatedGIF2{mnuMenu2, "mnuViewAnimatedGIF2", WithKey("View Animated GIF", "Ctrl+F5")};
    forms::Menu mnuViewImage2{mnuMenu2, "mnuViewImage2", WithKey("Vie&w Image", "F12")};
};

}  // namespace tavrix
