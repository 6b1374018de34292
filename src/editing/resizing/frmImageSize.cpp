#include "editing/resizing/frmImageSize.h"

#include "base/Rounding.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "core/NumberText.h"
#include "dialogs/DialogWork.h"
#include "dialogs/EntryField.h"
#include "editing/frame/EditFrame.h"
#include "editing/frame/EditingDialog.h"
#include "editing/frame/Sizes.h"
#include "editing/resizing/ResizeImage.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

using forms::MousePointer;

namespace {

constexpr int SmallestSide = 16;
constexpr int LargestSide = 10000;

constexpr const char* AnotherNumber = "Enter another number and then try again...";

/// The number that a field holds; throws where it holds none.
double NumberIn(const forms::TextBox& field) {
    const auto number = ParseNumber(field.Text.Get());
    if (!number) throw RuntimeError(ErrorNumber::TypeMismatch);
    return *number;
}

void SetUpField(forms::Label& label, const char* caption, forms::TextBox& field, const char* toolTip,
                forms::Label& unit) {
    label.Caption = caption;
    label.SetBuddy(field);
    field.ToolTip = toolTip;
    field.OnKeyPress = KeepDigits;
    unit.Caption = "pixels";
    unit.ToolTip = "Size needs to be entered in pixels.";
}

}  // namespace

frmImageSize::frmImageSize(forms::Application& application, MainViewFrm& view)
    : Form(application, {.name = "frmImageSize"}), view_(view), module_(view.Module()) {
    Caption = "Resize Image";
    HelpContext = HelpContext::ResizeImage;
    Frame1.Caption = "Current Size:";
    Frame2.Caption = "New Image Size:";
    lblWidthMsg.Caption = "Width:";
    lblHeightMsg.Caption = "Height:";
    lblFileSizeMsg.Caption = "File Size:";
    lblBytes.Caption = "(Bytes)";
    SetUpField(lblWidth, "&Width:", txtWidth, "Enter width in pixels.", lblWidthUnit);
    SetUpField(lblHeight, "&Height:", txtHeight, "Enter height in pixels.", lblHeightUnit);
    txtWidth.OnGotFocus = [this] { txtWidth_GotFocus(); };
    txtWidth.OnChange = [this] { txtWidth_Change(); };
    txtHeight.OnGotFocus = [this] { txtHeight_GotFocus(); };
    txtHeight.OnChange = [this] { txtHeight_Change(); };
    CheckAspect.Caption = "&Preserve aspect ratio.";
    CheckAspect.OnClick = [this] { CheckAspect_Click(); };
    CheckAspect.OnKeyUp = [this](int, int) { CheckAspect_Click(); };
    CmdSize.Caption = "&Resize";
    CmdSize.Default = true;
    CmdSize.OnClick = [this] { CmdSize_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { CmdCancel_Click(); };
    CmdHelp.Caption = "Help";
    CmdHelp.OnClick = [this] { CmdHelp_Click(); };
    SetLayout(forms::Row(
        {forms::Column(
             {forms::Group(
                  Frame1, {forms::Grid(2, {lblWidthMsg, lblCurrentWidth, lblHeightMsg, lblCurrentHeight,
                                           lblFileSizeMsg,
                                           forms::Growing(forms::Row({lblFileSize, lblBytes,
                                                                      forms::Growing(forms::Stretch())}))})}),
              forms::Group(Frame2,
                           {forms::Grid(3, {lblWidth, forms::AtLeast(900, 0, txtWidth), lblWidthUnit,
                                            lblHeight, forms::AtLeast(900, 0, txtHeight), lblHeightUnit}),
                            CheckAspect})}),
         forms::Column({CmdSize, CmdCancel, CmdHelp, forms::Growing(forms::Stretch())})}));
}

int frmImageSize::CurrentWidth() const {
    return WholePixels(view_.MainImage.Width, module_.Screen().TwipsPerPixelX());
}

int frmImageSize::CurrentHeight() const {
    return WholePixels(view_.MainImage.Height, module_.Screen().TwipsPerPixelY());
}

void frmImageSize::Form_Load() {
    const std::string width = std::to_string(CurrentWidth());
    const std::string height = std::to_string(CurrentHeight());
    lblCurrentWidth.Caption = width + " (pixels)";
    lblCurrentHeight.Caption = height + " (pixels)";
    txtWidth.Text = width;
    txtWidth.SelectAll();
    txtHeight.Text = height;
    txtHeight.SelectAll();
    SkipFailure([this] {
        const auto length = module_.platform.files.Info(module_.CurrentImage).length;
        lblFileSize.Caption = GroupedNumberOrEmpty(length, module_.platform.system.Numbers());
    });
    AspectRatio = static_cast<double>(view_.MainImage.Width) / static_cast<double>(view_.MainImage.Height);
    CheckAspect.Value = module_.config.ImageSizeAspect;
    module_.Screen().MousePointer = MousePointer::Default;
}

void frmImageSize::Form_Unload(bool& /*cancel*/) {
    module_.Screen().MousePointer = MousePointer::Default;
}

void frmImageSize::txtWidth_GotFocus() {
    EditingHeight = 0;
}

void frmImageSize::txtHeight_GotFocus() {
    EditingHeight = 1;
}

void frmImageSize::txtWidth_Change() {
    if (EditingHeight != 0 || !CheckAspect.Value || txtWidth.Text.Get().empty()) return;
    SkipFailure([this] { txtHeight.Text = std::to_string(RoundToLong(NumberIn(txtWidth) / AspectRatio)); });
}

void frmImageSize::txtHeight_Change() {
    if (EditingHeight != 1 || !CheckAspect.Value || txtHeight.Text.Get().empty()) return;
    SkipFailure([this] { txtWidth.Text = std::to_string(RoundToLong(NumberIn(txtHeight) * AspectRatio)); });
}

void frmImageSize::CheckAspect_Click() {
    EditingHeight = 0;
    txtWidth.SetFocus();
    txtWidth_Change();
}

void frmImageSize::CmdCancel_Click() {
    App().Unload(*this);
}

void frmImageSize::CmdHelp_Click() {
    ShowHelpPage(module_, HelpContext::ResizeImage);
}

void frmImageSize::Refuse(const std::string& why, const char* advice, forms::TextBox& field) {
    App().MessageBox({.text = why + std::string(NewLine2) + advice});
    txtWidth.SelectAll();
    txtHeight.SelectAll();
    field.SetFocus();
}

void frmImageSize::CmdSize_Click() {
    if (module_.Busy()) return;
    if (txtWidth.Text.Get().empty()) {
        App().MessageBox({.text = "You need to enter the new width first, unable to resize image..."});
        txtWidth.SetFocus();
        return;
    }
    if (txtHeight.Text.Get().empty()) {
        App().MessageBox({.text = "You need to enter the new height first, unable to resize image..."});
        txtHeight.SetFocus();
        return;
    }
    const auto width = ParseInteger(txtWidth.Text.Get());
    const auto height = ParseInteger(txtHeight.Text.Get());
    if (!width || !height)
        return Refuse("The width and/or height that was entered is not valid.",
                      "Enter another size and then try again...", txtWidth);
    if (*width > LargestSide)
        return Refuse("The width that was entered is too large.", AnotherNumber, txtWidth);
    if (*height > LargestSide)
        return Refuse("The height that was entered is too large.", AnotherNumber, txtHeight);
    if (*width < SmallestSide)
        return Refuse("The width that was entered is too small.", AnotherNumber, txtWidth);
    if (*height < SmallestSide)
        return Refuse("The height that was entered is too small.", AnotherNumber, txtHeight);
    if (*width == CurrentWidth() && *height == CurrentHeight())
        return Refuse("The new size is the same as the current size.", "Unable to resize image...", txtWidth);

    const DialogWork work(*this, module_);
    if (!work) return;
    Resize(*width, *height);
    module_.DoEvents();
    App().Unload(*this);
}

void frmImageSize::Resize(int width, int height) {
    const EditFrame edit(view_, {.undo = "&Undo Resize Arbitrary..."});
    edit.Run([&] {
        module_.config.ImageSizeAspect = CheckAspect.Value;
        const forms::Screen& screen = module_.Screen();
        EditResult result = EditResult::Refused;
        SkipFailure([&] {
            result = ResizeImage(view_, edit, RoundToLong(width * double{screen.TwipsPerPixelX()}),
                                 RoundToLong(height * double{screen.TwipsPerPixelY()}));
        });
        return result;
    });
}

void mnuEditImageSize_Click(MainViewFrm& view) {
    RunEditDialog<frmImageSize>(view);
}

}  // namespace tavrix
