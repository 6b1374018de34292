#include "viewer/OpenFrm.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FileServices.h"
#include "core/Folders.h"
#include "core/HelpContexts.h"
#include "core/RecentLists.h"
#include "core/UnsavedImage.h"
#include "dialogs/CurrentDrive.h"
#include "dialogs/DialogWork.h"
#include "viewer/MainViewFrm.h"
#include "viewer/Opening.h"

namespace tavrix {

OpenFrm::OpenFrm(forms::Application& application, MainViewFrm& view)
    : Form(application, {.name = "OpenFrm", .acceptsDrops = true}), view_(view), module_(view.Module()) {
    Caption = "Open Image";
    HelpContext = HelpContext::OpenImage;
    lblFiles.Caption = "F&iles:";
    lblFiles.SetBuddy(File1);
    lblFolders.Caption = "Fo&lder:";
    lblFolders.SetBuddy(Dir1);
    lblDrives.Caption = "&Drive:";
    lblDrives.SetBuddy(Drive1);
    File1.OnClick = [this] { File1_Click(); };
    File1.OnDblClick = [this] { CmdOpen_Click(); };
    File1.OnPathChange = [this] { File1_PathChange(); };
    File1.OnKeyUp = [this](int keyCode, int) { File1_KeyUp(keyCode); };
    CmdOpen.Caption = "&Open";
    CmdOpen.ToolTip = "Open the selected image.";
    CmdOpen.Default = true;
    CmdOpen.OnClick = [this] { CmdOpen_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Close this window, don't open an image.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };

    constexpr float holderWidth = 2520;  // the largest preview and a little air, in twips
    constexpr float holderHeight = 1920;
    picHoldPreview.Move(0, 0, holderWidth, holderHeight);
    Frame1.Caption = "Preview";
    picHoldPreview.SeeThrough = true;  // a frame has a shade of its own
    picHoldPreview.AccessibleName = "Preview";
    picHoldPreview.OnOLEDragDrop = [this](const auto& files) { picPreview_OLEDragDrop(files); };
    picPreview.AccessibleName = "Preview picture";
    picPreview.Visible = false;
    picPreview.OnOLEDragDrop = [this](const auto& files) { picPreview_OLEDragDrop(files); };
    picPreview.OnFirstRows = [this] { picPreview_FirstRows(); };
    picPreview.OnArrived = [this] { picPreview_Arrived(); };
    lblMsg.Caption = "Generating thumbnail...";
    lblMsg.Visible = false;
    CmdPreview.Caption = "&Preview";
    CmdPreview.ToolTip = "Show a preview of the selected image.";
    CmdPreview.OnClick = [this] { CmdPreview_Click(); };
    CmdPrevious.Caption = "P&revious";
    CmdPrevious.ToolTip = "Preview the previous image in the list.";
    CmdPrevious.Enabled = false;
    CmdPrevious.OnClick = [this] { CmdPrevious_Click(); };
    CmdNext.Caption = "&Next";
    CmdNext.ToolTip = "Preview the next image in the list.";
    CmdNext.Enabled = false;
    CmdNext.OnClick = [this] { CmdNext_Click(); };
    ChkPreview.Caption = "Always show preview.";
    ChkPreview.ToolTip = "Preview each image as soon as it is selected.";
    ChkPreview.OnClick = [this] { ChkPreview_Click(); };
    TimerPreview.Enabled = false;
    TimerPreview.OnTimer = [this] { TimerPreview_Timer(); };
    BuildLayout();
}

void OpenFrm::BuildLayout() {
    using namespace forms;
    constexpr float listWidth = 2700;
    constexpr float listHeight = 3900;
    SetLayout(Row({Growing(Column({lblFiles, Growing(AtLeast(listWidth, listHeight, File1))})),
                   Growing(Column({lblFolders, Growing(AtLeast(listWidth, 0, Dir1)), lblDrives, Drive1})),
                   Column({Row({CmdOpen, CmdCancel, CmdFF}), Stretch(), Group(Frame1, {picHoldPreview}),
                           lblMsg, Row({CmdPreview, CmdPrevious, CmdNext}), ChkPreview, Stretch()})}));
}

void OpenFrm::Form_Load() {
    TimerPreview.Interval = module_.config.OpenPreviewTimer;
    const std::string& current = module_.CurrentImage;
    if (!current.empty() && current != GetTempFolder(module_) + "Untitled.BMP") {
        SkipFailure([&] { Lists.GoTo(FolderOf(current)); });
    }
    Lists.WhenRead([this] { SelectImageOnShow(); });
}

void OpenFrm::SelectImageOnShow() {
    if (File1.ListCount() == 0) return;
    const std::string& current = module_.CurrentImage;
    const int row = current.empty() ? -1 : File1.IndexOf(FileNameOf(current));
    File1.ListIndex = row >= 0 ? row : 0;
}

void OpenFrm::Form_Activate() {
    picHoldPreview.ToolTip = HolderToolTip;
    {
        // Under the hourglass, which whoever opened the dialog left on, nothing is previewed: the box is ticked before
        // the user can close the dialog, since it is kept as a setting then, and the preview made once.
        const forms::BusyGuard busy(module_.Screen());
        if (module_.config.OpenShowPreview) ChkPreview.Value = true;
        module_.DoEvents();
    }
    if (module_.config.OpenShowPreview && !Unloaded()) ChkPreview_Click();
}

void OpenFrm::Form_Unload(bool&) {
    EndWaiting();
    SkipFailure([this] { module_.platform.files.ChangeDrive(Drive1.Drive); });
    SkipFailure([this] { module_.platform.files.ChangeFolder(Dir1.Path); });
    module_.config.OpenShowPreview = ChkPreview.Value;
}

void OpenFrm::Tell(const std::string& text) {
    App().MessageBox({.text = text});
}

std::string OpenFrm::SelectedPath() const {
    return Lists.Folder() + File1.FileName();
}

void OpenFrm::CmdOpen_Click() {
    if (module_.Busy() || Lists.Awaits([this] { CmdOpen_Click(); })) return;
    if (File1.ListCount() == 0) {
        Tell("There are no files in the selected directory to open...");
        return;
    }
    if (File1.ListIndex < 0) {
        Tell("Select a file to open first...");
        return;
    }
    const std::string path = SelectedPath();  // whatever the user selects while messages run
    DialogWork work(*this, module_, DialogWork::Dialog::Stays);
    if (!work) return;
    view_.picFrame.Visible = false;
    Hide();
    module_.DoEvents();
    if (EqualIgnoringCase(path, module_.CurrentImage)) {
        const forms::Answer again = App().MessageBox(
            {.text = "This image is already open." + std::string(NewLine2) + "Read selected file again?",
             .icon = forms::BoxIcon::Question,
             .buttons = forms::BoxButtons::YesNo});
        if (again == forms::Answer::No) {
            view_.picFrame.Visible = true;
            work.Release();  // the dialog is to be used again
            ShowModal();
            return;
        }
    }
    work.Release();
    LoadIntoMainView(view_, path, {"Unable to open the selected file."});
    App().Unload(*this);
}

void OpenFrm::File1_Click() {
    if (ChkPreview.Value) TimerPreview.Enabled = true;  // which restarts the wait
}

void OpenFrm::File1_PathChange() {
    TimerPreview.Enabled = false;  // the file that waits for its preview is not in the list any more
    if (!ChkPreview.Value) ClearPreview();
}

void OpenFrm::File1_KeyUp(int keyCode) {
    if (keyCode != forms::KeyCode::Delete) return;
    if (File1.ListIndex < 0) {
        Tell("Unable to delete file by pressing the delete key, nothing is selected in the file list...");
        return;
    }
    const std::string path = SelectedPath();
    if (EqualIgnoringCase(path, module_.CurrentImage)) {
        Tell("Unable to delete this file, image is currently open...");
        return;
    }
    DeleteAsUserAgrees(module_, path);
    RemoveRecentFile(module_, path);
    if (module_.platform.files.FileExists(path)) return;  // declined or refused: the selection stays
    // Nothing is selected then that a preview could belong to.
    TimerPreview.Enabled = false;
    ClearPreview();
    File1.Refresh();
}

void mnuOpen_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy()) return;
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    module.DoEvents();
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    if (!ConfirmDiscard(module)) return;
    TouchCurrentDrive(module);
    module.app.Load<OpenFrm>(view).ShowModal();
}

}  // namespace tavrix
