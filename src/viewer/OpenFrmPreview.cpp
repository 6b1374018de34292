// The preview of the Open Image dialog.

#include <algorithm>
#include <optional>

#include "base/Rounding.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FileServices.h"
#include "viewer/OpenFrm.h"

namespace tavrix {
namespace {

// Sizes of the preview are in pixels of 15 twips, so that it does not shrink on a screen with finer ones.
constexpr float TwipsPerUnit = 15;
constexpr int MostWidth = 160;
constexpr int MostHeight = 120;

constexpr const char* NoFiles = "There are no files in the selected directory to preview...";

}  // namespace

void OpenFrm::ClearPreview() {
    EndWaiting();
    picPreview.Visible = false;
    picPreview.Picture = Picture();
    picPreview.ToolTip = "";
    CmdPrevious.Enabled = false;
    CmdNext.Enabled = false;
    picHoldPreview.ToolTip = HolderToolTip;
}

void OpenFrm::EndWaiting() {
    waiting_.reset();
    lblMsg.Visible = false;
}

void OpenFrm::ChkPreview_Click() {
    if (!ChkPreview.Value) {
        TimerPreview.Enabled = false;
        ClearPreview();
    } else if (File1.ListIndex >= 0) {
        CmdPreview_Click();
    }
}

void OpenFrm::TimerPreview_Timer() {
    TimerPreview.Enabled = false;
    // A hidden dialog is still there while the image that it opened is viewed full screen.
    if (!ChkPreview.Value || !Visible()) return;
    if (Lists.Wishes()) {  // the folder has come: what was pressed meanwhile comes first
        TimerPreview.Enabled = true;
        return;
    }
    EndWaiting();  // for another file
    CmdPreview_Click();
}

void OpenFrm::CmdPreview_Click() {
    if (module_.Busy() || Lists.Awaits([this] { CmdPreview_Click(); })) return;
    if (File1.ListCount() == 0) {
        Tell(NoFiles);
        return;
    }
    if (File1.ListIndex < 0) {
        Tell("Select a file to preview first...");
        return;
    }
    waiting_.emplace(module_.Screen());
    previewed_.clear();
    lblMsg.Visible = true;
    module_.DoEvents();
    if (Unloaded() || !waiting_) return;
    if (File1.ListIndex < 0) {  // the user has gone to another folder
        EndWaiting();
        return;
    }
    picPreview.Visible = false;
    picPreview.Picture = Picture();
    picPreview.Stretch = false;
    previewed_ = File1.FileName();
    std::optional<RuntimeError> failure;
    try {
        picPreview.Picture = module_.platform.pictures.LoadInBackground(SelectedPath());
        FitPreview();
    } catch (const RuntimeError& error) {
        failure = error;
    }
    if (failure) {
        TellPreviewFailure(*failure);
    } else if (picPreview.Picture.Get().pixels->RowsReady() > 0) {
        picPreview_FirstRows();
    }
}

void OpenFrm::picPreview_FirstRows() {
    EndWaiting();
    picPreview.ToolTip = previewed_;
    picHoldPreview.ToolTip = "";
    picPreview.Visible = true;
    CmdPrevious.Enabled = true;
    CmdNext.Enabled = true;
}

void OpenFrm::FitPreview() {
    const forms::Screen& screen = module_.Screen();
    const double pixelsWide = picPreview.Picture.Get().Width();
    const double pixelsHigh = picPreview.Picture.Get().Height();
    const double ratio = pixelsWide / pixelsHigh;
    int width = RoundToLong(pixelsWide * screen.TwipsPerPixelX() / TwipsPerUnit);
    int height = RoundToLong(pixelsHigh * screen.TwipsPerPixelY() / TwipsPerUnit);
    bool stretched = false;
    if (width > MostWidth) {
        width = MostWidth;
        height = RoundToLong(width / ratio);
        stretched = true;
    }
    if (height > MostHeight) {
        height = MostHeight;
        width = RoundToLong(height * ratio);
        stretched = true;
    }
    // A very long and thin picture still has to be seen.
    width = std::max(width, 1);
    height = std::max(height, 1);
    const int holderWidth = static_cast<int>(picHoldPreview.ScaleWidth() / TwipsPerUnit);
    const int holderHeight = static_cast<int>(picHoldPreview.ScaleHeight() / TwipsPerUnit);
    const auto twips = [](int units) { return static_cast<float>(units) * TwipsPerUnit; };
    const float left = twips((holderWidth - width) / 2);
    const float top = twips((holderHeight - height) / 2);
    picPreview.Stretch = stretched;
    if (stretched) {
        picPreview.Move(left, top, twips(width), twips(height));
    } else {
        picPreview.Move(left, top, picPreview.Width, picPreview.Height);
    }
}

void OpenFrm::TellPreviewFailure(const RuntimeError& error) {
    ClearPreview();
    Tell("Unable to preview the selected file." + std::string(NewLine2) + error.Description());
}

void OpenFrm::picPreview_Arrived() {
    if (picPreview.Picture.Get().Empty() || !picPreview.Picture.Get().pixels->Blank()) return;
    if (waiting_ && previewed_.empty()) {  // it is the former preview, and the next is about to be loaded
        picPreview.Picture = Picture();
        return;
    }
    EndWaiting();
    if (!Visible() || module_.Busy()) {
        ClearPreview();  // the next preview, or an image, is being loaded: nobody waits for this one
        return;
    }
    TellPreviewFailure(RuntimeError(ErrorNumber::InvalidPicture));
}

void OpenFrm::Step(int direction) {
    if (module_.Busy() || Lists.Awaits([this, direction] { Step(direction); })) return;
    const int count = File1.ListCount();
    if (count == 0) {
        Tell(NoFiles);
        return;
    }
    File1.ListIndex = File1.ListIndex < 0 ? 0 : (File1.ListIndex + direction + count) % count;
    if (!ChkPreview.Value) CmdPreview_Click();
}

void OpenFrm::CmdNext_Click() {
    Step(1);
}

void OpenFrm::CmdPrevious_Click() {
    Step(-1);
}

void OpenFrm::picPreview_OLEDragDrop(const std::vector<std::string>& files) {
    if (module_.Busy()) return;
    Lists.Forget();
    std::string path = files.empty() ? "" : files.front();
    if (EndsInIgnoringCase(path, ".LNK")) path = ResolveLink(module_, path);
    if (path.ends_with('\\')) path.pop_back();
    if (module_.platform.files.FolderExists(path)) {
        Tell("You may not drop a folder here, unable to show preview...");
    } else if (IsImportOnly(path)) {
        Tell(ImportFirstText(path));
    } else if (EndsInIgnoringCase(path, ".TVS")) {
        Tell("The Tavrix slide show file type (.TVS) is not an image file, unable to open:" +
             std::string(NewLine2) + path);
    } else {
        ShowDropped(path);
    }
}

void OpenFrm::TellNotDropped() {
    App().MessageBox({.text = "This file can't be opened by Tavrix, it may not be a valid image.",
                      .title = "Unable to show preview..."});
}

void OpenFrm::ShowDropped(const std::string& path) {
    File1.ListIndex = -1;  // ticking the box would preview what was selected
    TimerPreview.Enabled = false;
    ChkPreview.Value = true;
    try {
        Lists.GoTo(FolderOf(path), [this](const RuntimeError&) { TellNotDropped(); });
    } catch (const RuntimeError&) {
        TellNotDropped();
        return;
    }
    Lists.WhenRead([this, path] { SelectDropped(path); });
}

void OpenFrm::SelectDropped(const std::string& path) {
    const std::string name = FileNameOf(path);
    const int row = File1.IndexOf(name);
    if (row >= 0) {
        PreviewDropped(row);
        return;
    }
    TimerPreview.Enabled = false;  // what waited for its preview is selected no more
    File1.Refresh();               // the file may be newer than the list
    static_cast<void>(File1.ListCount());
    Lists.WhenRead([this, name] { PreviewDropped(File1.IndexOf(name)); });
}

void OpenFrm::PreviewDropped(int row) {
    if (row < 0) {
        TellNotDropped();
        return;
    }
    File1.ListIndex = row;
    TimerPreview.Enabled = false;  // not after a pause, but at once
    CmdPreview_Click();
}

}  // namespace tavrix
