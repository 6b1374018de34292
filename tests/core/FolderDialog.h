#pragma once

#include <string>
#include <vector>

#include "dialogs/FolderButton.h"
#include "dialogs/FolderLists.h"
#include "dialogs/NewFolder.h"
#include "support/ProgramFixture.h"

namespace tavrix::test {

/// A dialog with what the dialogs of the program have for choosing a folder.
class FolderDialog final : public forms::Form {
  public:
    FolderDialog(forms::Application& application, const MainModule& module)
        : Form(application, {.name = "FolderDialog"}), module_(module) {
        CmdNew.OnClick = [this] { CmdNewFolder_Click(module_, Lists); };
        CmdNew2.OnClick = [this] {
            CmdNewFolder_Click(module_, Lists2,
                               {.title = "Tavrix", .name = "New Folder", .offersAnswer = true});
        };
    }

  private:
    const MainModule& module_;

  public:
    LookedFiles Looked{*this, module_.platform.files, "*.*"};
    LookedFiles Looked2{*this, module_.platform.files, LookedFiles::NoNames, &Looked};
    forms::DriveListBox Drive1{*this, "Drive1", module_.platform.files, module_.platform.drives};
    forms::DirListBox Dir1{*this, "Dir1", Looked};
    forms::FileListBox File1{*this, "File1", Looked};
    forms::CommandButton CmdFF{*this, "CmdFF"};
    forms::CommandButton CmdNew{*this, "CmdNew"};
    FolderLists Lists{module_, Looked, Drive1, Dir1, &File1};
    FolderButton FavoriteButton{*this, module_, CmdFF, Lists, [this] { return QuickFoldersOf(module_); }};
    // The other side of a dialog with two.
    forms::DriveListBox Drive2{*this, "Drive2", module_.platform.files, module_.platform.drives};
    forms::DirListBox Dir2{*this, "Dir2", Looked2};
    forms::CommandButton CmdFF2{*this, "CmdFF2"};
    forms::CommandButton CmdNew2{*this, "CmdNew2"};
    FolderLists Lists2{module_, Looked2, Drive2, Dir2, nullptr, BadDrive::Program};
    FolderButton FavoriteButton2{*this,
                                 module_,
                                 CmdFF2,
                                 Lists2,
                                 [this] { return QuickFoldersOf(module_); },
                                 {.suffix = "2", .closeEntryIsDefault = true}};
};

/// The dialog on a machine with A: (no disk), C: and D:, on show in C:\Pictures.
class FolderDialogTest : public ProgramFixture {
  protected:
    FolderDialog& LoadDialog() {
        platform.disks.AddDrive('D', DriveType::Fixed);
        platform.disks.InsertDisk('D');
        platform.disks.PutFile("C:\\Pictures\\a.bmp", "a");
        platform.disks.PutFile("C:\\Pictures\\Old\\o.bmp", "o");
        platform.disks.PutFile("D:\\Photos\\b.bmp", "b");
        platform.files.ChangeFolder("C:\\Pictures");
        auto& form = app.Load<FolderDialog>(module);
        form.Show();
        return form;
    }

    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void MouseDown(forms::CommandButton& button, int mouseButton) {
        button.Deliver(forms::MouseEvent{forms::MouseAction::Down, mouseButton, 0, 1, 1});
    }
    /// The user picks a drive by its place in the list: A:, C:, D:.
    void PickDrive(int row) { dialog.Drive1.Deliver(forms::RowEvent{row}); }
    /// The user opens the row of the folder list.
    void OpenRow(int row) {
        dialog.Dir1.Deliver(forms::RowEvent{row});
        dialog.Dir1.Deliver(forms::DoubleClickEvent{});
    }
    void ExpectError(const std::string& text, ErrorNumber error) {
        Expect({.text = text + "\r\n\r\n" + DescriptionOf(error) + "...", .icon = forms::BoxIcon::Stop});
    }
    void ExpectUnavailable() { Expect({.text = "The selected drive is currently not available..."}); }

    /// Where the three lists stand.
    struct Place {
        std::string drive;
        std::string folder;
        std::string files;
        friend bool operator==(const Place&, const Place&) = default;
        friend void PrintTo(const Place& place, std::ostream* out) {
            *out << place.drive << " | " << place.folder << " | " << place.files;
        }
    };
    [[nodiscard]] Place Now() const { return {dialog.Drive1.Drive, dialog.Dir1.Path, dialog.File1.Path}; }
    static Place At(const std::string& folder) { return {folder.substr(0, 2), folder, folder}; }

    FolderDialog& dialog = LoadDialog();
};

}  // namespace tavrix::test
