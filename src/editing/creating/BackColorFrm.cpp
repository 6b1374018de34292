#include "editing/creating/BackColorFrm.h"

#include <cstdint>
#include <string>

#include "core/HelpContexts.h"
#include "editing/creating/BackColor.h"
#include "platform/forms/Application.h"

namespace tavrix {
namespace {

void SetUp(forms::Label& label, const char* caption, forms::ScrollBar& bar, forms::Label& value) {
    constexpr int Most = 255;
    constexpr int Page = 16;
    label.Caption = caption;
    label.SetBuddy(bar);
    bar.Max = Most;
    bar.LargeChange = Page;
    value.Caption = "0";
}

}  // namespace

BackColorFrm::BackColorFrm(forms::Application& application, MainModule& module,
                           forms::PictureBox& BackColorCaller)
    : Form(application, {.name = "BackColorFrm"}), module_(module), caller_(BackColorCaller) {
    HelpContext = HelpContext::BackgroundColor;
    SetUp(lblRed, "&Red:", HScrollR, lblValueR);
    SetUp(lblGreen, "&Green:", HScrollG, lblValueG);
    SetUp(lblBlue, "B&lue:", HScrollB, lblValueB);
    HScrollR.OnChange = HScrollR.OnScroll = [this] { HScrollR_Change(); };
    HScrollG.OnChange = HScrollG.OnScroll = [this] { HScrollG_Change(); };
    HScrollB.OnChange = HScrollB.OnScroll = [this] { HScrollB_Change(); };
    Picture1.Move(0, 0, 1440, 960);
    Picture1.AccessibleName = "Selected background color";
    CmdBlack.Caption = "&Black";
    CmdBlack.OnClick = [this] { CmdBlack_Click(); };
    CmdWhite.Caption = "&White";
    CmdWhite.OnClick = [this] { CmdWhite_Click(); };
    CmdSystem.Caption = "&System";
    CmdSystem.OnClick = [this] { CmdSystem_Click(); };
    CmdOK.Caption = "&OK";
    CmdOK.ToolTip = "Click here to change background color.";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Don't change background color.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { CmdCancel_Click(); };

    const auto bar = [](forms::ScrollBar& scroll) {
        return forms::Growing(forms::AtLeast(3000, 270, scroll), 6);
    };
    // Wide enough for three digits of a large font, so that nothing moves as they change.
    const auto value = [](forms::Label& label) { return forms::Growing(forms::AtLeast(720, 0, label)); };
    SetLayout(forms::Column(
        {forms::Row(
             {forms::Growing(forms::Grid(3, {lblRed, bar(HScrollR), value(lblValueR), lblGreen, bar(HScrollG),
                                             value(lblValueG), lblBlue, bar(HScrollB), value(lblValueB)})),
              Picture1}),
         forms::Row({CmdBlack, CmdWhite, CmdSystem, forms::Stretch(), CmdOK, CmdCancel})}));
}

void BackColorFrm::Form_Load() {
    ShowSwatch(Picture1, caller_.BackColor);
    HScrollR.Value = module_.config.BackColorR;
    HScrollG.Value = module_.config.BackColorG;
    HScrollB.Value = module_.config.BackColorB;
    Caption = "Background Color";
}

Colour BackColorFrm::Chosen() const {
    return ColourOf(HScrollR.Value, HScrollG.Value, HScrollB.Value);
}

void BackColorFrm::ShowColour() {
    ShowSwatch(Picture1, Chosen());
}

void BackColorFrm::HScrollR_Change() {
    ShowColour();
    lblValueR.Caption = std::to_string(HScrollR.Value);
}

void BackColorFrm::HScrollG_Change() {
    ShowColour();
    lblValueG.Caption = std::to_string(HScrollG.Value);
}

void BackColorFrm::HScrollB_Change() {
    ShowColour();
    lblValueB.Caption = std::to_string(HScrollB.Value);
}

void BackColorFrm::SetAll(int value) {
    for (forms::ScrollBar* bar : {&HScrollR, &HScrollG, &HScrollB})
        bar->Value = value;
}

void BackColorFrm::CmdBlack_Click() {
    SetAll(0);
}

void BackColorFrm::CmdWhite_Click() {
    SetAll(255);
}

void BackColorFrm::CmdSystem_Click() {
    SetAll(192);
}

void BackColorFrm::CmdOK_Click() {
    ShowSwatch(caller_, Chosen());
    module_.config.BackColorR = static_cast<std::int16_t>(HScrollR.Value.Get());
    module_.config.BackColorG = static_cast<std::int16_t>(HScrollG.Value.Get());
    module_.config.BackColorB = static_cast<std::int16_t>(HScrollB.Value.Get());
    App().Unload(*this);
}

void BackColorFrm::CmdCancel_Click() {
    App().Unload(*this);
}

}  // namespace tavrix
