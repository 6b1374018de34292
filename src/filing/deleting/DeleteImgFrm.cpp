#include "filing/deleting/DeleteImgFrm.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/FileServices.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "core/RecentLists.h"
#include "dialogs/ContentOf.h"
#include "dialogs/DialogPictures.h"
#include "filing/CurrentImageFolder.h"
#include "filing/Questions.h"
#include "filing/deleting/DeleteListedFile.h"
#include "filing/deleting/RemoveListedFolder.h"

namespace tavrix {
namespace {

const std::string Paragraph(NewLine2);

}  // namespace

DeleteImgFrm::DeleteImgFrm(forms::Application& application, MainModule& module)
    : Form(application, {.name = "DeleteImgFrm"}), module_(module) {
    Caption = "Delete Image(s)";
    HelpContext = HelpContext::DeleteImages;
    Chooser.lblDrives.Caption = "Dri&ve:";
    Chooser.File1.OnKeyUp = [this](int keyCode, int) { File1_KeyUp(keyCode); };
    Chooser.Dir1.OnKeyUp = [this](int keyCode, int) { Dir1_KeyUp(keyCode); };
    CmdDelete.Caption = "&Delete";
    CmdDelete.ToolTip = "Delete the selected file(s).";
    CmdDelete.Default = true;
    CmdDelete.OnClick = [this] { CmdDelete_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "&Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::DeleteImages); };
    Image1.Picture = DialogPicture(DialogSign::Bin, module_.Screen().TwipsPerPixelX());
    Image1.ToolTip = "Deleted files will NOT be stored in recycle bin!";
    Image1.AccessibleName = "Deleted files will NOT be stored in recycle bin!";
    Image1.Visible = !module_.config.UseRecycleBin;
    Chooser.Lists.OnContent = [this] { Selection.SetEnabled(!Chooser.Lists.Pending()); };
    Chooser.Lists.OnContent();
    SetLayout(Chooser.Arrangement(forms::Column(
        {CmdDelete, Selection.CmdAll, Selection.CmdNone, Selection.CmdInverse, CmdCancel, CmdHelp, Image1})));
}

void DeleteImgFrm::Form_Load() {
    GoToFolderOfImage(module_, Chooser.Lists);
}

void DeleteImgFrm::Tell(const std::string& text) {
    App().MessageBox({.text = text});
}

std::optional<bool> DeleteImgFrm::FolderIsEmpty() const {
    if (Chooser.Dir1.ListCount() > 0) return false;
    const std::string folder = Chooser.Dir1.Path;
    bool empty = false;
    SkipFailure([&] {
        const auto content = ContentOf(module_, *this, folder);
        empty = content && content->files.empty();
    });
    if (Unloaded() || Chooser.Dir1.Path.Get() != folder) return std::nullopt;
    return empty;
}

void DeleteImgFrm::OfferToRemoveFolder() {
    const std::string path = Chooser.Dir1.Path;
    if (!UserSaysYes(module_, "This directory is empty:" + Paragraph + path + Paragraph +
                                  "Would you like to delete it?")) {
        return;
    }
    try {
        RemoveListedFolder(module_, path);
    } catch (const RuntimeError& error) {
        App().MessageBox({.text = error.Description(), .icon = forms::BoxIcon::Stop});
    }
    SkipFailure([&] { Chooser.Lists.GoTo(FolderOf(path)); });
}

void DeleteImgFrm::CmdDelete_Click() {
    if (module_.Busy() || Chooser.Lists.Awaits([this] { CmdDelete_Click(); })) return;
    const std::optional<bool> empty = FolderIsEmpty();
    if (!empty) return;
    if (*empty) {
        OfferToRemoveFolder();
        return;
    }
    if (Chooser.File1.ListCount() == 0) {
        Tell("There are no files in the selected directory to delete.");
        return;
    }
    const std::vector<std::string> names = Selection.Names();
    if (names.empty()) {
        Tell("Nothing was selected to delete." + Paragraph +
             "Select the file(s) that you want to delete and then try again...");
        return;
    }
    if (DeleteSelected(names)) Refresh();
}

bool DeleteImgFrm::DeleteSelected(const std::vector<std::string>& names) {
    const std::string folder = Chooser.Lists.Folder();
    if (names.size() == 1) return DeleteListedFile(module_, folder + names.front(), forms::BoxIcon::Stop);
    if (!UserSaysYes(module_, "You are about to delete " + std::to_string(names.size()) +
                                  " files from the directory:" + Paragraph + folder + Paragraph +
                                  "Are you sure?")) {
        return false;
    }
    DeleteAll(names);
    return true;
}

void DeleteImgFrm::DeleteAll(const std::vector<std::string>& names) {
    const std::string folder = Chooser.Lists.Folder();
    try {
        for (const std::string& name : names) {
            const std::string path = folder + name;
            if (IsImageOnShow(module_, path)) {
                Tell("Unable to delete:" + Paragraph + path + Paragraph + "Image is currently open...");
                continue;
            }
            const forms::BusyGuard busy(module_.Screen());
            RequireExactly(module_, path);
            DeleteToBin(module_, path, false);
            RemoveRecentFile(module_, path);
        }
    } catch (const RuntimeError& error) {
        TellFailure(module_, "Unable to delete all of the selected files.", error);
    }
}

void DeleteImgFrm::Refresh() {
    if (Unloaded()) return;
    Chooser.File1.Refresh();
    static_cast<void>(Chooser.File1.ListCount());
    const auto offer = [this] {
        if (!module_.Busy() && FolderIsEmpty().value_or(false)) OfferToRemoveFolder();
    };
    if (!Chooser.Lists.Awaits(offer)) offer();
}

void DeleteImgFrm::File1_KeyUp(int keyCode) {
    if (keyCode != forms::KeyCode::Delete || module_.Busy()) return;
    if (DeleteByKey(module_, Chooser.Lists.Folder(), Chooser.File1.FileName(), forms::BoxIcon::Stop))
        Refresh();
}

void DeleteImgFrm::Dir1_KeyUp(int keyCode) {
    if (keyCode != forms::KeyCode::Delete || module_.Busy()) return;
    if (Chooser.Lists.Awaits([this] { Dir1_KeyUp(forms::KeyCode::Delete); })) return;
    const std::optional<bool> empty = FolderIsEmpty();
    if (!empty) return;
    if (*empty) {
        OfferToRemoveFolder();
        return;
    }
    Tell("Unable to delete the directory:" + Paragraph + Chooser.Dir1.Path.Get() + Paragraph +
         "The selected path is not empty...");
}

}  // namespace tavrix
