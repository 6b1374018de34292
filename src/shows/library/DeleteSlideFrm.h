#pragma once

#include <string>

#include "dialogs/FileChooser.h"
#include "platform/forms/Application.h"
#include "platform/forms/Image.h"
#include "shows/library/ShowsFolder.h"

namespace tavrix {

class MainViewFrm;

/// The dialog that deletes a show with its images and its sound, and the folder that is empty then.
class DeleteSlideFrm final : public forms::Form {
  public:
    DeleteSlideFrm(forms::Application& application, MainModule& module);

  private:
    MainModule& module_;

  public:
    FileChooser Chooser{*this, module_, ShowPattern};
    forms::CommandButton CmdDelete{*this, "CmdDelete"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};
    forms::Image Image1{*this, "Image1"};

    void Form_Load() override;
    void Form_QueryUnload(bool& cancel) override { cancel = cancel || deleting_; }

  private:
    void CmdDelete_Click();
    [[nodiscard]] bool UserAgrees(const std::string& path);
    /// Asks whether the folder is to go where the lists show nothing in it any more. False when it could not be removed.
    bool OfferFolder();
    void LeaveFolder(const std::string& folder);

    bool deleting_ = false;
};

/// The Delete Slide Show command.
void mnuDeleteSlideShow_Click(MainViewFrm& view);

}  // namespace tavrix
