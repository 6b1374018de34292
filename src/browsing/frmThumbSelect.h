#pragma once

#include "browsing/ThumbChooser.h"
#include "platform/forms/Application.h"

namespace tavrix {

/// The dialog that chooses files of a folder that become thumbnails.
class frmThumbSelect final : public forms::Form {
  public:
    frmThumbSelect(forms::Application& application, const MainModule& module, ThumbnailList& list);

    ThumbChooser Chooser;
    forms::CommandButton CmdAll{*this, "CmdAll"};
    forms::CommandButton CmdNone{*this, "CmdNone"};
    forms::CommandButton CmdInverse{*this, "CmdInverse"};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

  private:
    void ShowPending();
    void CmdAll_Click();
    void CmdNone_Click();
    void CmdInverse_Click();
    void CmdOK_Click();

    void Tell(const std::string& text);
    /// Whether the file list is empty, which is told so.
    bool ListIsEmpty(const std::string& text);
    [[nodiscard]] std::string Grouped(int number) const;

    const MainModule& module_;
    ThumbnailList& list_;
};

}  // namespace tavrix
