#pragma once

#include "browsing/ThumbChooser.h"
#include "platform/forms/Application.h"

namespace tavrix {

/// The dialog that chooses a folder, all of whose images become thumbnails.
class frmThumbFolder final : public forms::Form {
  public:
    frmThumbFolder(forms::Application& application, const MainModule& module, ThumbnailList& list);

    ThumbChooser Chooser;
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};
    forms::Label lblNumFiles{*this, "lblNumFiles"};

    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

  private:
    void File1_PathChange();
    void CmdOK_Click();

    [[nodiscard]] std::string Grouped(int number) const;

    const MainModule& module_;
};

}  // namespace tavrix
