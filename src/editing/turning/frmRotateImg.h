#pragma once

#include "editing/frame/Sizes.h"
#include "platform/forms/Application.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/OptionButton.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/TextBox.h"

namespace tavrix {

class MainViewFrm;
struct MainModule;

/// The dialog that turns the image by any whole number of degrees.
class frmRotateImg final : public forms::Form {
  public:
    frmRotateImg(forms::Application& application, MainViewFrm& view);

  private:
    MainViewFrm& view_;
    MainModule& module_;
    forms::OptionGroup direction_;

  public:
    forms::Label Label1{*this, "Label1"};
    forms::TextBox txtAngle{*this, "txtAngle"};
    forms::Label Label2{*this, "Label2"};
    forms::CommandButton Cmd45{*this, "Cmd45"};
    forms::CommandButton Cmd90{*this, "Cmd90"};
    forms::CommandButton Cmd135{*this, "Cmd135"};
    forms::CommandButton Cmd180{*this, "Cmd180"};
    forms::Frame Frame2{*this, "Frame2"};
    forms::OptionButton OptionCCW{Frame2, "OptionCCW", direction_};
    forms::OptionButton OptionCW{Frame2, "OptionCW", direction_};
    forms::CheckBox CheckPreserveSize{*this, "CheckPreserveSize"};
    forms::PictureBox Picture1{*this, "Picture1"};
    forms::CommandButton CmdBackground{*this, "CmdBackground"};
    forms::CommandButton CmdRotate{*this, "CmdRotate"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

  private:
    void Cmd45_Click();
    void Cmd90_Click();
    void Cmd135_Click();
    void Cmd180_Click();
    void OptionCW_Click();
    void OptionCCW_Click();
    void CmdBackground_Click();
    void CmdRotate_Click();
    void CmdCancel_Click();
    void CmdHelp_Click();

    void EnterAngle(const char* degrees);
    /// Tells why the angle cannot be used.
    void Refuse(const std::string& why);
    /// The edit itself, by 1 to 180 degrees.
    void Rotate(int degrees);
    /// Notes what the user has entered, and says what comes of it for the picture of PictureTemp.
    RotationPlan Plan(int degrees);
};

/// The Rotate, Arbitrary command.
void mnuArbitrary_Click(MainViewFrm& view);

}  // namespace tavrix
