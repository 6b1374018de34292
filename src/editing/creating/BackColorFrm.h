#pragma once

#include "core/MainModule.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/ScrollBar.h"

namespace tavrix {

/// The dialog that chooses the one background colour of the settings.
class BackColorFrm final : public forms::Form {
  public:
    /// `BackColorCaller` is the swatch of the window that opened this one; it takes the colour that is chosen.
    BackColorFrm(forms::Application& application, MainModule& module, forms::PictureBox& BackColorCaller);

  private:
    MainModule& module_;
    forms::PictureBox& caller_;

  public:
    forms::Label lblRed{*this, "lblRed"};
    forms::ScrollBar HScrollR{*this, "HScrollR", false};
    forms::Label lblValueR{*this, "lblValueR"};
    forms::Label lblGreen{*this, "lblGreen"};
    forms::ScrollBar HScrollG{*this, "HScrollG", false};
    forms::Label lblValueG{*this, "lblValueG"};
    forms::Label lblBlue{*this, "lblBlue"};
    forms::ScrollBar HScrollB{*this, "HScrollB", false};
    forms::Label lblValueB{*this, "lblValueB"};
    forms::PictureBox Picture1{*this, "Picture1"};
    forms::CommandButton CmdBlack{*this, "CmdBlack"};
    forms::CommandButton CmdWhite{*this, "CmdWhite"};
    forms::CommandButton CmdSystem{*this, "CmdSystem"};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};

    void Form_Load() override;

  private:
    void HScrollR_Change();
    void HScrollG_Change();
    void HScrollB_Change();
    void CmdBlack_Click();
    void CmdWhite_Click();
    void CmdSystem_Click();
    void CmdOK_Click();
    void CmdCancel_Click();

    [[nodiscard]] Colour Chosen() const;
    void SetAll(int value);
    void ShowColour();
};

}  // namespace tavrix
