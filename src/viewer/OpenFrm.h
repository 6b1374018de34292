#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "core/ImageKinds.h"
#include "dialogs/FolderButton.h"
#include "dialogs/FolderLists.h"
#include "dialogs/LookedFiles.h"
#include "platform/forms/Application.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Timer.h"
#include "viewer/ImageTypes.h"

namespace tavrix {

class MainViewFrm;

/// The dialog for opening an image: drive, folder and file lists, and a preview of the selected file.
class OpenFrm final : public forms::Form {
  public:
    OpenFrm(forms::Application& application, MainViewFrm& view);

  private:
    MainViewFrm& view_;
    MainModule& module_;

  public:
    LookedFiles Looked{*this, module_.platform.files, PatternOf(ImagesShown::Opening)};
    forms::Label lblFiles{*this, "lblFiles"};
    forms::FileListBox File1{*this, "File1", Looked, PatternOf(ImagesShown::Opening)};
    forms::Label lblFolders{*this, "lblFolders"};
    forms::DirListBox Dir1{*this, "Dir1", Looked};
    forms::Label lblDrives{*this, "lblDrives"};
    forms::DriveListBox Drive1{*this, "Drive1", module_.platform.files, module_.platform.drives};
    forms::CommandButton CmdOpen{*this, "CmdOpen"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdFF{*this, "CmdFF"};
    forms::Frame Frame1{*this, "Frame1"};
    forms::PictureBox picHoldPreview{Frame1, "picHoldPreview"};
    forms::Image picPreview{picHoldPreview, "picPreview"};
    forms::Label lblMsg{*this, "lblMsg"};
    forms::CommandButton CmdPreview{*this, "CmdPreview"};
    forms::CommandButton CmdPrevious{*this, "CmdPrevious"};
    forms::CommandButton CmdNext{*this, "CmdNext"};
    forms::CheckBox ChkPreview{*this, "ChkPreview"};
    forms::Timer TimerPreview{*this};

    FolderLists Lists{module_, Looked, Drive1, Dir1, &File1};
    FolderButton FavoriteButton{*this, module_, CmdFF, Lists, [this] { return QuickFoldersOf(module_); }};

    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload(bool& cancel) override;
    /// A drop anywhere on the dialog is one on the preview.
    void Form_OLEDragDrop(const std::vector<std::string>& files) override { picPreview_OLEDragDrop(files); }

  private:
    static constexpr const char* HolderToolTip =
        "Click the Preview button to view the currently selected image here.";

    void CmdOpen_Click();
    void CmdPreview_Click();
    void CmdNext_Click();
    void CmdPrevious_Click();
    void ChkPreview_Click();
    void TimerPreview_Timer();
    void File1_Click();
    void File1_PathChange();
    void File1_KeyUp(int keyCode);
    void picPreview_OLEDragDrop(const std::vector<std::string>& files);
    void picPreview_FirstRows();
    void picPreview_Arrived();

    void BuildLayout();
    /// The image on show is the current file, else the first one is.
    void SelectImageOnShow();
    void Tell(const std::string& text);
    [[nodiscard]] std::string SelectedPath() const;
    /// Makes the next file in this direction the selected one, the first when none is.
    void Step(int direction);
    void ClearPreview();
    /// Nothing is being previewed any more: the message and the hourglass go.
    void EndWaiting();
    void FitPreview();
    void TellPreviewFailure(const RuntimeError& error);
    /// Previews a file that was dropped, or tells that it is not in a list that it could be opened from.
    void ShowDropped(const std::string& path);
    void SelectDropped(const std::string& path);
    void PreviewDropped(int row);
    void TellNotDropped();

    std::optional<forms::BusyGuard> waiting_;  ///< from the wish for a preview until its first rows stand
    std::string
        previewed_;  ///< the file that the preview shows, or waits for; empty until it is being loaded
};

/// The Open Image command.
void mnuOpen_Click(MainViewFrm& view);

}  // namespace tavrix
