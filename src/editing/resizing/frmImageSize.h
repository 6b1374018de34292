#pragma once

#include <cstdint>
#include <string>

#include "platform/forms/Application.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
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
    forms::Frame Frame1{*this, "Frame1"};
    forms::Label lblWidthMsg{Frame1, "lblWidthMsg"};
    forms::Label lblCurrentWidth{Frame1, "lblCurrentWidth"};
    forms::Label lblHeightMsg{Frame1, "lblHeightMsg"};
    forms::Label lblCurrentHeight{Frame1, "lblCurrentHeight"};
    forms::Label lblFileSizeMsg{Frame1, "lblFileSizeMsg"};
    forms::Label lblFileSize{Frame1, "lblFileSize"};
    forms::Label lblBytes{Frame1, "lblBytes"};
    forms::Frame Frame2{*this, "Frame2"};
    forms::Label lblWidth{Frame2, "lblWidth"};
    forms::TextBox txtWidth{Frame2, "txtWidth"};
    forms::Label lblWidthUnit{Frame2, "lblWidthUnit"};
    forms::Label lblHeight{Frame2, "lblHeight"};
    forms::TextBox txtHeight{Frame2, "txtHeight"};
    forms::Label lblHeightUnit{Frame2, "lblHeightUnit"};
    forms::CheckBox CheckAspect{Frame2, "CheckAspect"};
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
