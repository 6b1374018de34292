#include "editing/turning/frmRotateImg.h"

#include <string>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "dialogs/DialogWork.h"
#include "dialogs/EntryField.h"
#include "editing/creating/BackColor.h"
#include "editing/creating/BackColorFrm.h"
#include "editing/frame/EditFrame.h"
#include "editing/frame/EditingDialog.h"
#include "editing/turning/RotateMainImage.h"
#include "imaging/graphics/Draw.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

using forms::MousePointer;

frmRotateImg::frmRotateImg(forms::Application& application, MainViewFrm& view)
    : Form(application, {.name = "frmRotateImg"}), view_(view), module_(view.Module()) {
    Caption = "Rotate Image";
    HelpContext = HelpContext::RotateImage;
    Label1.Caption = "&Angle (Degrees):";
    Label1.SetBuddy(txtAngle);
    Label2.Caption = "(1 - 180)";
    txtAngle.ToolTip = "Enter a number between 1 and 180.";
    txtAngle.OnKeyPress = KeepDigits;
    Cmd45.Caption = "&45";
    Cmd45.ToolTip = "Rotate 45 degrees.";
    Cmd45.OnClick = [this] { Cmd45_Click(); };
    Cmd90.Caption = "&90";
    Cmd90.ToolTip = "Rotate 90 degrees.";
    Cmd90.OnClick = [this] { Cmd90_Click(); };
    Cmd135.Caption = "&135";
    Cmd135.ToolTip = "Rotate 135 degrees.";
    Cmd135.OnClick = [this] { Cmd135_Click(); };
    Cmd180.Caption = "1&80";
    Cmd180.ToolTip = "Rotate 180 degrees.";
    Cmd180.OnClick = [this] { Cmd180_Click(); };
    Frame2.Caption = "Direction:";
    OptionCCW.Caption = "C&ounter-clockwise";
    OptionCCW.OnClick = [this] { OptionCCW_Click(); };
    OptionCW.Caption = "Cloc&kwise";
    OptionCW.OnClick = [this] { OptionCW_Click(); };
    CheckPreserveSize.Caption = "&Preserve original image size.";
    Picture1.Move(0, 0, SwatchWidth, SwatchHeight);
    Picture1.ToolTip = "Current background color.";
    Picture1.AccessibleName = "Current background color";
    CmdBackground.Caption = "&Background";
    CmdBackground.ToolTip = "Click here to select a background color.";
    CmdBackground.OnClick = [this] { CmdBackground_Click(); };
    CmdRotate.Caption = "&Rotate";
    CmdRotate.Default = true;
    CmdRotate.OnClick = [this] { CmdRotate_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { CmdCancel_Click(); };
    CmdHelp.Caption = "Help";
    CmdHelp.OnClick = [this] { CmdHelp_Click(); };
    SetLayout(forms::Row(
        {forms::Column({forms::Row({Label1, forms::AtLeast(750, 0, txtAngle), Label2,
                                    forms::Growing(forms::Stretch())}),
                        forms::Row({Cmd45, Cmd90, Cmd135, Cmd180}),
                        forms::Group(Frame2, {forms::Row({OptionCCW, OptionCW})}), CheckPreserveSize,
                        forms::Row({Picture1, CmdBackground, forms::Growing(forms::Stretch())})}),
         forms::Column({CmdRotate, CmdCancel, CmdHelp, forms::Growing(forms::Stretch())})}));
}

void frmRotateImg::Form_Load() {
    const AppConfig& config = module_.config;
    txtAngle.Text = std::to_string(config.RotateAngle);
    txtAngle.SelectAll();
    (config.RotateDirection != 0 ? OptionCCW : OptionCW).Value = true;
    CheckPreserveSize.Value = config.RotatePreserve;
    ShowSwatch(Picture1, BackColorOf(config));
    module_.Screen().MousePointer = MousePointer::Default;
}

void frmRotateImg::Form_Unload(bool& /*cancel*/) {
    module_.Screen().MousePointer = MousePointer::Default;
}

void frmRotateImg::EnterAngle(const char* degrees) {
    txtAngle.Text = degrees;
    SelectToReplace(txtAngle);
}

void frmRotateImg::Cmd45_Click() {
    EnterAngle("45");
}
void frmRotateImg::Cmd90_Click() {
    EnterAngle("90");
}
void frmRotateImg::Cmd135_Click() {
    EnterAngle("135");
}
void frmRotateImg::Cmd180_Click() {
    EnterAngle("180");
}

void frmRotateImg::OptionCW_Click() {
    txtAngle.SetFocus();
}
void frmRotateImg::OptionCCW_Click() {
    txtAngle.SetFocus();
}

void frmRotateImg::CmdBackground_Click() {
    App().Load<BackColorFrm>(module_, Picture1).ShowModal();
    SelectToReplace(txtAngle);
}

void frmRotateImg::CmdCancel_Click() {
    App().Unload(*this);
}

void frmRotateImg::CmdHelp_Click() {
    ShowHelpPage(module_, HelpContext::RotateImage);
}

void frmRotateImg::Refuse(const std::string& why) {
    App().MessageBox({.text = why});
}

void frmRotateImg::CmdRotate_Click() {
    if (module_.Busy()) return;
    if (txtAngle.Text.Get().empty()) {
        Refuse("You need to enter the angle of rotation first...");
        txtAngle.SetFocus();
        return;
    }
    const auto degrees = ParseInteger(txtAngle.Text.Get());
    if (!degrees) {
        Refuse("The number that was entered is not valid." + std::string(NewLine2) +
               "Enter a number between 1 and 180 and then try again...");
        EnterAngle("180");
        return;
    }
    if (*degrees < 1 || *degrees > 180) {
        Refuse("You must enter a number between 1 and 180, unable to rotate image...");
        SelectToReplace(txtAngle);
        return;
    }
    const DialogWork work(*this, module_);
    if (!work) return;
    Rotate(*degrees);
    App().Unload(*this);
}

void frmRotateImg::Rotate(int degrees) {
    const EditFrame edit(view_, {.undo = "&Undo Rotate Arbitrary..."});
    edit.Run([&] {
        RotationPlan plan;
        return edit.Redraw(
            [&] {
                MakeRoomForTurn(view_, plan.width, plan.height);
                SkipFailure([&] {
                    Surface& bitmap = view_.MainImage.Bitmap();
                    FillBox(bitmap, {0, 0, bitmap.Width(), bitmap.Height()}, ToPixel(Picture1.BackColor));
                });
                module_.DoEvents();
                SkipFailure([&] { RotateMainImage(view_, plan.angle); });
            },
            [&] { plan = Plan(degrees); });
    });
}

RotationPlan frmRotateImg::Plan(int degrees) {
    module_.config.RotateAngle = static_cast<std::int16_t>(degrees);
    module_.config.RotateDirection = OptionCW.Value ? 0 : 1;
    module_.config.RotatePreserve = CheckPreserveSize.Value;
    return PlanRotation(
        {.degrees = degrees, .clockwise = OptionCW.Value, .preserveSize = CheckPreserveSize.Value},
        view_.PictureTemp.Width, view_.PictureTemp.Height, App().Screen().Info());
}

void mnuArbitrary_Click(MainViewFrm& view) {
    RunEditDialog<frmRotateImg>(view);
}

}  // namespace tavrix
