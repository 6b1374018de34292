#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/ImageKinds.h"
#include "dialogs/FileChooser.h"
#include "filing/FileSelection.h"
#include "platform/forms/Application.h"
#include "platform/forms/Image.h"

namespace tavrix {

/// The dialog that deletes images, and folders that are empty then.
class DeleteImgFrm final : public forms::Form {
  public:
    DeleteImgFrm(forms::Application& application, MainModule& module);

  private:
    MainModule& module_;

  public:
    FileChooser Chooser{*this, module_, PatternOf(ImagesShown::All), BadDrive::Program};
    forms::CommandButton CmdDelete{*this, "CmdDelete"};
    FileSelection Selection{*this,
                            module_,
                            Chooser.File1,
                            {.allName = "CmdSelectAll",
                             .noneName = "CmdSelectNone",
                             .noneCaption = "&Select &None",
                             .allToolTip = "Select all of the files in the file list.",
                             .noneToolTip = "Deselect all files in the file list.",
                             .noFiles = "There are no image files in the current directory to select..."}};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};
    forms::Image Image1{*this, "Image1"};

    void Form_Load() override;

  private:
    void CmdDelete_Click();
    void File1_KeyUp(int keyCode);
    void Dir1_KeyUp(int keyCode);

    /// Whether anything was deleted, or was to be.
    [[nodiscard]] bool DeleteSelected(const std::vector<std::string>& names);
    void DeleteAll(const std::vector<std::string>& names);
    void Refresh();
    /// Whether neither files nor folders are to be seen in the folder of the list; nothing where the user has left it
    /// meanwhile.
    [[nodiscard]] std::optional<bool> FolderIsEmpty() const;
    void OfferToRemoveFolder();
    void Tell(const std::string& text);
};

}  // namespace tavrix
