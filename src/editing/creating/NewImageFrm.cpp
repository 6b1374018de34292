#include "editing/creating/NewImageFrm.h"

#include <cstdint>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/HelpContexts.h"
#include "core/NumberText.h"
#include "core/UnsavedImage.h"
#include "dialogs/DialogWork.h"
#include "dialogs/EntryField.h"
#include "editing/creating/BackColor.h"
#include "editing/creating/BackColorFrm.h"
#include "editing/creating/CentreCopy.h"
#include "editing/creating/NewImagePicture.h"
#include "editing/frame/EditFrame.h"
#include "editing/frame/WorkingFile.h"
#include "imaging/graphics/Draw.h"
#include "platform/forms/Twips.h"
#include "viewer/MainViewFrm.h"
#include "viewer/MenuState.h"

namespace tavrix {

using forms::MousePointer;

namespace {

constexpr int SmallestSide = 4;
constexpr int LargestSide = 10000;

/// What is proposed for a side: the setting, with bounds that are tighter by one than those of what is entered.
int ProposedSide(int setting, int otherwise) {
    return setting > SmallestSide && setting < LargestSide ? setting : otherwise;
}

const char* ColoursOf(int bitsPerPixel) {
    if (bitsPerPixel <= 8) return "256 colors - (8 bit color)";
    if (bitsPerPixel == 16) return "64,000 colors - (16 bit, High Color)";
    if (bitsPerPixel == 24) return "16 million colors - (24 bit, True Color)";
    return "> 16 million colors - (32 bit or higher)";
}

/// Lets a picture box keep its size whatever its picture.
class FixedSize {
  public:
    explicit FixedSize(forms::PictureBox& box) : box_(box) { box_.AutoSize = false; }
    ~FixedSize() { box_.AutoSize = true; }
    FixedSize(const FixedSize&) = delete;
    FixedSize& operator=(const FixedSize&) = delete;

  private:
    forms::PictureBox& box_;
};

}  // namespace

NewImageFrm::NewImageFrm(forms::Application& application, MainViewFrm& view)
    : Form(application, {.name = "NewImageFrm"}), view_(view), module_(view.Module()) {
    Caption = "New Image";
    HelpContext = HelpContext::NewImage;
    Image1.AccessibleName = "New image";
    Image1.Picture = NewImagePicture(module_.Screen().TwipsPerPixelX());
    lblWidth.Caption = "&Width:";
    lblWidth.SetBuddy(txtWidth);
    txtWidth.ToolTip = "Enter width in pixels.";
    lblHeight.Caption = "&Height:";
    lblHeight.SetBuddy(txtHeight);
    txtHeight.ToolTip = "Enter height in pixels.";
    txtWidth.OnKeyPress = txtHeight.OnKeyPress = KeepDigits;
    lblWidthUnit.Caption = "pixels";
    lblHeightUnit.Caption = "pixels";
    CheckPaste.Caption = "&Get image from clipboard.";
    CheckPaste.OnMouseUp = [this](const forms::MouseArguments&) { CheckPaste_MouseUp(); };
    Picture1.Move(0, 0, SwatchWidth, SwatchHeight);
    Picture1.ToolTip = "Current background color.";
    Picture1.AccessibleName = "Current background color";
    Picture1.OnClick = [this] { Picture1_Click(); };
    CmdBackground.Caption = "&Background";
    CmdBackground.ToolTip = "Click here to select a background color.";
    CmdBackground.OnClick = [this] { CmdBackground_Click(); };
    lblColors.ToolTip = "Current number of colors.";
    CmdOK.Caption = "&OK";
    CmdOK.ToolTip = "Click here to create a new image file.";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Don't create a new file.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { CmdCancel_Click(); };
    ImageHold.AutoSize = true;
    ImageHold.Visible = false;
    SetLayout(forms::Row(
        {forms::Column({Image1, forms::Growing(forms::Stretch())}),
         forms::Column({forms::Grid(3, {lblWidth, forms::AtLeast(900, 0, txtWidth), lblWidthUnit, lblHeight,
                                        forms::AtLeast(900, 0, txtHeight), lblHeightUnit}),
                        CheckPaste, forms::Row({Picture1, CmdBackground, forms::Growing(forms::Stretch())}),
                        lblColors}),
         forms::Column({CmdOK, CmdCancel, forms::Growing(forms::Stretch())})}));
}

void NewImageFrm::Form_Load() {
    const AppConfig& config = module_.config;
    txtWidth.Text = std::to_string(ProposedSide(config.NewImageX, 640));
    txtWidth.SelectAll();
    txtHeight.Text = std::to_string(ProposedSide(config.NewImageY, 480));
    txtHeight.SelectAll();
    ShowSwatch(Picture1, BackColorOf(config));
    lblColors.Caption = ColoursOf(module_.Screen().BitsPerPixel());
    if (HoldsPicture(module_.platform.clipboard)) {
        TakeClipboardPicture();
    } else {
        OfferNoPaste();
        Image1.ToolTip = "Nothing is currently in the clipboard to paste.";
    }
    module_.DoEvents();
    module_.Screen().MousePointer = MousePointer::Default;
}

void NewImageFrm::OfferNoPaste() {
    CheckPaste.Value = false;
    CheckPaste.Enabled = false;
}

void NewImageFrm::TakeClipboardPicture() {
    try {
        ImageHold.Picture = module_.platform.clipboard.Get();
        module_.DoEvents();
        txtWidth.Text = SingleText(ImageHold.Width / module_.Screen().TwipsPerPixelX());
        txtHeight.Text = SingleText(ImageHold.Height / module_.Screen().TwipsPerPixelY());
        txtWidth.SelectAll();
        txtHeight.SelectAll();
        if (module_.config.NewGetsClipboard) CheckPaste.Value = true;
    } catch (const RuntimeError&) {
        OfferNoPaste();
    }
}

void NewImageFrm::Form_Unload(bool& /*cancel*/) {
    module_.Screen().MousePointer = MousePointer::Default;
    ImageHold.Picture = Picture();
}

void NewImageFrm::CheckPaste_MouseUp() {
    SelectToReplace(txtWidth);
}

void NewImageFrm::CmdBackground_Click() {
    App().Load<BackColorFrm>(module_, Picture1).ShowModal();
    SelectToReplace(txtWidth);
}

void NewImageFrm::Picture1_Click() {
    CmdBackground_Click();
}

void NewImageFrm::CmdCancel_Click() {
    App().Unload(*this);
}

void NewImageFrm::CmdOK_Click() {
    if (module_.Busy()) return;
    txtWidth.Text = Trim(txtWidth.Text.Get());
    txtHeight.Text = Trim(txtHeight.Text.Get());
    if (txtWidth.Text.Get().empty()) {
        App().MessageBox({.text = "You need to specify the WIDTH of the new image to create."});
        txtWidth.SetFocus();
        return;
    }
    if (txtHeight.Text.Get().empty()) {
        App().MessageBox({.text = "You need to specify the HEIGHT of the new image to create."});
        txtHeight.SetFocus();
        return;
    }
    if (const auto size = WantedSize()) Create(*size);
}

std::optional<NewImageFrm::ImageSize> NewImageFrm::Offer(const std::string& problem, forms::TextBox& field) {
    const forms::Answer answer = App().MessageBox(
        {.text = problem + std::string(NewLine2) + "Use the default resolution of 640 x 480 pixels?",
         .icon = forms::BoxIcon::Question,
         .buttons = forms::BoxButtons::YesNo});
    if (answer == forms::Answer::Yes) return ImageSize{640, 480};
    SelectToReplace(field);
    return std::nullopt;
}

std::optional<NewImageFrm::ImageSize> NewImageFrm::WantedSize() {
    if (!ParseNumber(txtWidth.Text.Get())) return Offer("The specified WIDTH is invalid...", txtWidth);
    if (!ParseNumber(txtHeight.Text.Get())) return Offer("The specified HEIGHT is invalid...", txtHeight);
    const auto width = ParseInteger(txtWidth.Text.Get());
    const auto height = ParseInteger(txtHeight.Text.Get());
    if (!width || !height) {
        const auto size =
            Offer("An invalid size was entered for the width and/or height of the new image to create...",
                  txtWidth);
        if (!size) txtHeight.SelectAll();
        return size;
    }
    if (*width < SmallestSide) return Offer("The specified WIDTH is too small...", txtWidth);
    if (*width > LargestSide) return Offer("The specified WIDTH is too large...", txtWidth);
    if (*height < SmallestSide) return Offer("The specified HEIGHT is too small...", txtHeight);
    if (*height > LargestSide) return Offer("The specified HEIGHT is too large...", txtHeight);
    return ImageSize{*width, *height};
}

void NewImageFrm::Create(const ImageSize& size) {
    DialogWork work(*this, module_);
    if (!work) return;
    try {
        MakeImage(size);
    } catch (const RuntimeError& error) {
        App().MessageBox({.text = "Error, unable to create an image with the specified attributes." +
                                  std::string(NewLine2) + error.Description() + "...",
                          .icon = forms::BoxIcon::Exclamation});
        work.Release();
        view_.imageOnShow.Clear();
        App().Unload(*this);
        return;
    }
    module_.config.NewImageX = static_cast<std::int16_t>(size.width);
    module_.config.NewImageY = static_cast<std::int16_t>(size.height);
    view_.picFrame.Visible = true;
    SetImageLoadedMenus(view_);
    work.Release();
    App().Unload(*this);
}

void NewImageFrm::MakeImage(const ImageSize& size) {
    view_.picFrame.Visible = false;
    view_.MainImage.Picture = Picture();
    {
        const FixedSize fixed(view_.MainImage);
        const forms::Screen& screen = module_.Screen();
        SizeMainImage(view_, forms::ToTwips(size.width, screen.TwipsPerPixelX()),
                      forms::ToTwips(size.height, screen.TwipsPerPixelY()));
        Surface& bitmap = view_.MainImage.Bitmap();
        FillBox(bitmap, {0, 0, bitmap.Width(), bitmap.Height()}, ToPixel(Picture1.BackColor));
    }
    CommitWorkingFile(view_);
    view_.imageOnShow.LayOut();
    if (CheckPaste.Value) PasteCentred();
    module_.config.NewGetsClipboard = CheckPaste.Value;
    module_.DoEvents();
    WriteMainImage(view_);
}

void NewImageFrm::PasteCentred() {
    const Picture held = ImageHold.Image();
    if (held.Empty()) return;
    CopyToCentre(view_.MainImage, held.pixels->Whole(), App().Screen().Info());
}

void mnuNewImage_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::BusyGuard busy(module.Screen());
    if (!ConfirmDiscard(module)) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    module.app.Load<NewImageFrm>(view).ShowModal();
}

}  // namespace tavrix
