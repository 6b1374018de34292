#include "dialogs/FolderButton.h"

#include "core/FolderDialog.h"

namespace tavrix::test {
namespace {

using headless::Service;

constexpr const char* CloseEntry = ">>  Close Menu  <<          (Esc)";

class FolderButtonTest : public FolderDialogTest {
  protected:
    FolderButtonTest() {
        module.config.FavoriteFolder = "D:\\Photos";
        module.config.QuickFolder = {"Old ones", "", "Photos & more", "Root"};
        module.config.QuickFolderPath = {"C:\\Pictures\\Old\\", "", "D:\\Photos\\", "C:\\"};
    }
    /// The user opens the popup and chooses this entry of it.
    void Choose(const std::string& caption) {
        toolkit.ChooseFromPopup(caption);
        MouseDown(dialog.CmdFF, forms::MouseButton::Right);
    }
    /// The captions of the entries that the popup shows.
    std::vector<std::string> Offered() {
        const auto before = toolkit.Popups().size();
        MouseDown(dialog.CmdFF, forms::MouseButton::Right);
        EXPECT_EQ(toolkit.Popups().size(), before + 1);
        std::vector<std::string> captions;
        for (const auto* entry : toolkit.Popups().back().menu->entries) {
            if (entry->state.visible) captions.push_back(entry->state.caption);
        }
        return captions;
    }
};

TEST_F(FolderButtonTest, TextsAreAsTold) {
    EXPECT_EQ(dialog.CmdFF.Caption.Get(), "&FF");
    EXPECT_EQ(dialog.CmdFF.ToolTip.Get(), "Change directory to your Favorite Folder.");
    EXPECT_EQ(dialog.CmdFF.AccessibleName.Get(), "Favorite Folder");
    EXPECT_FALSE(dialog.FavoriteButton.mnuPopup.Visible);
    std::vector<std::string> names;
    for (const forms::Menu* entry : dialog.FavoriteButton.mnuPopup.Entries())
        names.push_back(entry->Name());
    EXPECT_EQ(names, (std::vector<std::string>{"mnuCloseMenu", "mnuLine1", "mnuFolder1", "mnuFolder2",
                                               "mnuFolder3", "mnuFolder4"}));
}

TEST_F(FolderButtonTest, AClickGoesToTheFavoriteFolder) {
    Press(dialog.CmdFF);
    EXPECT_EQ(Now(), At("D:\\Photos"));
    module.config.FavoriteFolder = "C:\\Pictures\\Old\\";
    Press(dialog.CmdFF);
    EXPECT_EQ(Now(), At("C:\\Pictures\\Old"));
}

TEST_F(FolderButtonTest, AFavoriteFolderThatCannotBeReachedIsTold) {
    constexpr const char* text = "Unable to change directory to your Favorite Folder.";
    module.config.FavoriteFolder = "C:\\gone";
    ExpectError(text, ErrorNumber::PathNotFound);
    Press(dialog.CmdFF);
    EXPECT_EQ(Now(), At("C:\\Pictures"));
    module.config.FavoriteFolder = "Q:\\gone";
    ExpectError(text, ErrorNumber::DeviceUnavailable);
    Press(dialog.CmdFF);
    module.config.FavoriteFolder = "";
    ExpectError(text, ErrorNumber::DeviceUnavailable);
    Press(dialog.CmdFF);
    EXPECT_EQ(Now(), At("C:\\Pictures"));
}

TEST_F(FolderButtonTest, AFavoriteFolderWithoutItsDiskLeavesTheLists) {
    module.config.FavoriteFolder = "A:\\Photos";
    ExpectUnavailable();
    ExpectError("Unable to change directory to your Favorite Folder.", ErrorNumber::DiskNotReady);
    Press(dialog.CmdFF);
    EXPECT_EQ(Now(), At("C:\\Pictures"));
}

TEST_F(FolderButtonTest, OnlyTheRightButtonOpensThePopup) {
    MouseDown(dialog.CmdFF, forms::MouseButton::Left);
    MouseDown(dialog.CmdFF, forms::MouseButton::Middle);
    EXPECT_TRUE(toolkit.Popups().empty());
    MouseDown(dialog.CmdFF, forms::MouseButton::Right);
    EXPECT_EQ(toolkit.Popups().size(), 1U);
    EXPECT_EQ(Now(), At("C:\\Pictures"));
}

TEST_F(FolderButtonTest, ThePopupOffersTheFoldersThatHaveANameAtThisMoment) {
    EXPECT_EQ(Offered(), (std::vector<std::string>{CloseEntry, "-", "Old ones", "Photos & more", "Root"}));
    module.config.QuickFolder = {"", "Two", "", ""};
    EXPECT_EQ(Offered(), (std::vector<std::string>{CloseEntry, "-", "Two"}));
    module.config.QuickFolder = {"One", "Two", "Three", "Four"};
    EXPECT_EQ(Offered(), (std::vector<std::string>{CloseEntry, "-", "One", "Two", "Three", "Four"}));
}

TEST_F(FolderButtonTest, WithoutQuickFoldersThePopupHoldsTheClosingEntryAndTheSeparator) {
    module.config.QuickFolder = {};
    EXPECT_EQ(Offered(), (std::vector<std::string>{CloseEntry, "-"}));
}

TEST_F(FolderButtonTest, NamesAreShownAsTheyAre) {
    static_cast<void>(Offered());
    EXPECT_TRUE(toolkit.Popups().back().menu->entries.at(4)->state.literal);
    EXPECT_FALSE(toolkit.Popups().back().menu->entries.at(0)->state.literal);
}

TEST_F(FolderButtonTest, AnEntryGoesToItsFolder) {
    Choose("Old ones");
    EXPECT_EQ(Now(), At("C:\\Pictures\\Old"));
    Choose("Photos & more");
    EXPECT_EQ(Now(), At("D:\\Photos"));
    Choose("Root");
    EXPECT_EQ(Now(), At("C:\\"));
    module.config.QuickFolder[1] = "Two";
    module.config.QuickFolderPath[1] = "D:\\";
    Choose("Two");
    EXPECT_EQ(Now(), At("D:\\"));
}

TEST_F(FolderButtonTest, TheClosingEntryAndNoEntryDoNothing) {
    Choose(CloseEntry);
    Choose("");
    EXPECT_EQ(Now(), At("C:\\Pictures"));
}

TEST_F(FolderButtonTest, TheFailureNamesTheEntry) {
    module.config.QuickFolder = {"One", "Two", "Three", "Four"};
    module.config.QuickFolderPath = {"C:\\gone", "Q:\\gone", "", "C:\\Pictures\\Old"};
    ExpectError("Unable to change directory to Quick Path 1.", ErrorNumber::PathNotFound);
    Choose("One");
    ExpectError("Unable to change directory to Quick Path 2.", ErrorNumber::DeviceUnavailable);
    Choose("Two");
    ExpectError("Unable to change directory to Quick Path 3.", ErrorNumber::DeviceUnavailable);
    Choose("Three");
    EXPECT_EQ(Now(), At("C:\\Pictures"));
    platform.faults.FailNth(Service::Files, 2, ErrorNumber::PermissionDenied);
    ExpectError("Unable to change directory to Quick Path 4.", ErrorNumber::PermissionDenied);
    Choose("Four");
    EXPECT_EQ(Now(), At("C:\\Pictures"));
}

TEST_F(FolderButtonTest, AQuickFolderWithoutItsDiskLeavesTheLists) {
    module.config.QuickFolder[0] = "Floppy";
    module.config.QuickFolderPath[0] = "A:\\Photos";
    ExpectUnavailable();
    ExpectError("Unable to change directory to Quick Path 1.", ErrorNumber::DiskNotReady);
    Choose("Floppy");
    EXPECT_EQ(Now(), At("C:\\Pictures"));
}

TEST_F(FolderButtonTest, TwoButtonsOfOneWindowHaveAPopupEach) {
    std::vector<std::string> names;
    for (const forms::Menu* entry : dialog.FavoriteButton2.mnuPopup.Entries())
        names.push_back(entry->Name());
    EXPECT_EQ(dialog.FavoriteButton2.mnuPopup.Name(), "mnuPopup2");
    EXPECT_EQ(names, (std::vector<std::string>{"mnuCloseMenu2", "mnuLine12", "mnuFolder12", "mnuFolder22",
                                               "mnuFolder32", "mnuFolder42"}));
    MouseDown(dialog.CmdFF, forms::MouseButton::Right);
    MouseDown(dialog.CmdFF2, forms::MouseButton::Right);
    ASSERT_EQ(toolkit.Popups().size(), 2U);
    EXPECT_EQ(toolkit.Popups()[0].defaultEntry, nullptr);
    EXPECT_NE(toolkit.Popups()[1].defaultEntry, nullptr);
    Press(dialog.CmdFF2);
    EXPECT_EQ(dialog.Dir2.Path.Get(), "D:\\Photos");
    EXPECT_EQ(Now(), At("C:\\Pictures"));
}

}  // namespace
}  // namespace tavrix::test
