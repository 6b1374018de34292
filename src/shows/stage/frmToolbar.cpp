#include "shows/stage/frmToolbar.h"

#include "base/Rounding.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/forms/Application.h"
#include "shows/SlideEditor.h"
#include "shows/stage/FullViewFrm.h"
#include "shows/stage/ToolbarPictures.h"

namespace tavrix {
namespace {

namespace KeyCode = forms::KeyCode;
using forms::MousePointer;

// The inside of the window, in twips. The heights of the window are given, so that the lines are as close as a frame of
// 40 pixels demands; the texts take the font that fits.
constexpr float Margin = 60;
constexpr float CommandWidth = 600;
constexpr float CommandTop = 30;
constexpr float LineWidth = 6000;
constexpr float HintTop = 60;
constexpr float HintLeft = 3150;  ///< beside the buttons
constexpr float HintWidth = Margin + LineWidth - HintLeft;
constexpr float HintHeight = 330;
constexpr float RandomHintLeft = Margin;  ///< where buttons are hidden
constexpr float RandomHintWidth = 1170;
constexpr float StatusTop = 405;
constexpr float StatusHeight = 330;
constexpr float DescriptionTop = 750;

constexpr const char* NoDescription = ">> No Description Available <<";

}  // namespace

frmToolbar::frmToolbar(forms::Application& application, MainModule& module, FullViewFrm& stage)
    : Form(application, {.name = "frmToolbar"}), module_(module), stage_(stage) {
    Caption = "Tavrix - [Navigator]";
    KeyPreview = true;

    const std::array<Command, 5> commands = Commands();
    SetUp(commands[0], 0, "Show FIRST slide.", "First");
    SetUp(commands[1], 1, "Show PREVIOUS slide.", "Back");
    SetUp(commands[2], 2, "Show NEXT slide.", "Next");
    SetUp(commands[3], 3, "Show LAST slide.", "Last");
    SetUp(commands[4], 4, "STOP showing slides.", "Stop");
    ImageStart.OnClick = [this] { PressKey(KeyCode::Home); };
    ImagePrevious.OnClick = [this] { PressKey(KeyCode::Left); };
    ImageNext.OnClick = [this] { PressKey(KeyCode::Right); };
    ImageEnd.OnClick = [this] { PressKey(KeyCode::End); };
    ImageStop.OnClick = [this] { ImageStop_Click(); };

    lblMsg.Caption = "Showing random slide show.";
    lblMsg.Move(HintLeft, HintTop, HintWidth, HintHeight);
    lblStatus.Caption = "Unable to show path...";
    lblStatus.Literal = true;
    lblStatus.Move(Margin, StatusTop, LineWidth, StatusHeight);
    lblDescription.Caption = NoDescription;
    lblDescription.Literal = true;
    lblDescription.ToolTip = "Click here to edit descriptions.";
    lblDescription.MousePointer = MousePointer::Hand;
    lblDescription.OnClick = [this] { lblDescription_Click(); };
}

std::array<frmToolbar::Command, 5> frmToolbar::Commands() {
    return {Command{ImageStart, lblStart}, Command{ImagePrevious, lblPrevious}, Command{ImageNext, lblNext},
            Command{ImageEnd, lblEnd}, Command{ImageStop, lblStop}};
}

void frmToolbar::SetUp(const Command& command, int place, const char* toolTip, const char* hint) {
    const float left = Margin + CommandWidth * static_cast<float>(place);
    command.image.Picture =
        ToolbarPicture(static_cast<ToolbarSign>(place), module_.Screen().TwipsPerPixelX());
    command.image.Left = left + (CommandWidth - command.image.Width) / 2;
    command.image.Top = CommandTop;
    command.image.ToolTip = toolTip;
    command.image.AccessibleName = hint;
    command.image.OnMouseMove = [this, &label = command.hint](const forms::MouseArguments&) {
        ShowHint(label);
    };
    command.hint.Caption = hint;
    command.hint.Visible = false;
    command.hint.Move(HintLeft, HintTop, HintWidth, HintHeight);
}

void frmToolbar::Form_Load() {
    Move(static_cast<float>(module_.config.ToolbarX), static_cast<float>(module_.config.ToolbarY),
         DesignWidth, DesignHeight);
    lblDescription.Move(Margin, DescriptionTop, LineWidth, ScaleHeight() - DescriptionTop - Margin);
    SetTopmost(true);
    const bool random = module_.config.RandomSlides;
    lblMsg.Visible = random;
    if (random) {
        for (forms::Image* image : {&ImageStart, &ImageEnd, &ImagePrevious})
            image->Visible = false;
        for (forms::Label* hint : {&lblNext, &lblStop})
            hint->Move(RandomHintLeft, HintTop, RandomHintWidth, HintHeight);
    }
    if (!stage_.Editable()) {
        lblDescription.MousePointer = MousePointer::Arrow;
        lblDescription.ToolTip = "";
    }
}

void frmToolbar::Form_Unload(bool&) {
    SkipFailure([this] { module_.config.ToolbarX = RoundToLong(static_cast<double>(Left.Get())); });
    SkipFailure([this] { module_.config.ToolbarY = RoundToLong(static_cast<double>(Top.Get())); });
}

void frmToolbar::Form_KeyDown(int& keyCode, int shift) {
    stage_.Form_KeyDown(keyCode, shift);
}

void frmToolbar::PressKey(int keyCode) {
    stage_.Form_KeyDown(keyCode, forms::ShiftMask::None);
}

void frmToolbar::ImageStop_Click() {
    Hide();
    stage_.FormUnload();
}

void frmToolbar::SizeToContents() {
    const AppConfig& config = module_.config;
    lblStatus.Visible = config.ShowFilenames;
    lblDescription.Visible = config.ShowDescription;
    if (config.ShowFilenames && config.ShowDescription) return;
    if (config.ShowFilenames) {
        Height = FilenameHeight;
    } else if (config.ShowDescription) {
        Height = Height - DescriptionSaving;
        lblDescription.Move(Margin, StatusTop, LineWidth, DescriptionHeight);
    } else {
        Height = BareHeight;
    }
}

void frmToolbar::ShowSlide(const std::string& path, const std::string& description) {
    const bool fits = CharacterCount(path) <= StatusCharacters;
    lblStatus.Caption = fits ? path : "..." + Right(path, StatusCharacters);
    lblDescription.Caption = description.empty() ? NoDescription : description;
}

void frmToolbar::HideHints() {
    for (const Command& command : Commands())
        command.hint.Visible = false;
}

void frmToolbar::ShowHint(const forms::Label& hint) {
    for (const Command& command : Commands())
        command.hint.Visible = &command.hint == &hint;
    stage_.ShowPointer();
}

bool frmToolbar::HoldsPointer() const {
    const forms::ScreenPoint pointer = module_.Screen().PointerPlace();
    const float x = static_cast<float>(pointer.x) * module_.Screen().TwipsPerPixelX();
    const float y = static_cast<float>(pointer.y) * module_.Screen().TwipsPerPixelY();
    return x > Left && x < Left + Width && y > Top && y < Top + Height;
}

void frmToolbar::lblDescription_Click() {
    if (!stage_.Editable() || module_.Busy()) return;
    MainModule& module = module_;  // this window and the stage go
    stage_.SlideTimer.Enabled = false;
    {
        const forms::BusyGuard guard(module.Screen());
        module.DoEvents();
        if (Unloaded()) return;
        stage_.TimerMouse.Enabled = false;
        stage_.ShowPointer();
        stage_.Hide();
        module.DoEvents();
        Hide();
        module.DoEvents();
        if (Unloaded()) return;
    }
    // The hourglass would refuse both the end of the stage and what the user does in the editor.
    stage_.FormUnload();
    SlideEditor* editor = LoadedEditor(module.app);
    if (editor != nullptr) editor->EditDescriptions();
    module.DoEvents();
}

}  // namespace tavrix
