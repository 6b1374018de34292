#pragma once

#include <cstdint>
#include <string>

#include "platform/forms/Application.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"
#include "platform/forms/TextBox.h"

namespace tavrix {

class MainViewFrm;
struct MainModule;

/// The dialog that gives the image any size in pixels.
class frmImageSize final : public forms::Form {
  public:
    frmImageSize(forms::Application& application, MainViewFrm& view);

  private:
    MainViewFrm& view_;
    MainModule& module_;

  public:
    forms::Label lblWidthMsg{*this, "lblWidthMsg"};
    forms::Label lblCurrentWidth{*this, "lblCurrentWidth"};
    forms::Label lblHeightMsg{*this, "lblHeightMsg"};
    forms::Label lblCurrentHeight{*this, "lblCurrentHeight"};
    forms::Label lblFileSizeMsg{*this, "lblFileSizeMsg"};
    forms::Label lblFileSize{*this, "lblFileSize"};
    forms::Label lblBytes{*this, "lblBytes"};
    forms::Label lblWidth{*this, "lblWidth"};
    forms::TextBox txtWidth{*this, "txtWidth"};
    forms::Label lblWidthUnit{*this, "lblWidthUnit"};
    forms::Label lblHeight{*this, "lblHeight"};
    forms::TextBox txtHeight{*this, "txtHeight"};
    forms::Label lblHeightUnit{*this, "lblHeightUnit"};
    forms::CheckBox CheckAspect{*this, "CheckAspect"};
    forms::CommandButton CmdSize{*this, "CmdSize"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

  private:
    void txtWidth_GotFocus();
    void txtHeight_GotFocus();
    void txtWidth_Change();
    void txtHeight_Change();
    void CheckAspect_Click();
    void CmdSize_Click();
    void CmdCancel_Click();
    void CmdHelp_Click();

    [[nodiscard]] int CurrentWidth() const;
    [[nodiscard]] int CurrentHeight() const;
    /// Tells why the size cannot be used, and lets the user enter another one.
    void Refuse(const std::string& why, const char* advice, forms::TextBox& field);
    /// The edit itself, with sizes in pixels.
    void Resize(int width, int height);

    double AspectRatio = 1;          ///< width over height
    std::int16_t EditingHeight = 0;  ///< 0: the width drives the height; 1: the height drives the width
};

/// The Resize, Arbitrary command.
void mnuEditImageSize_Click(MainViewFrm& view);

}  // namespace tavrix
