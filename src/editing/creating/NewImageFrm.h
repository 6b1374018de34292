#pragma once

#include <optional>
#include <string>

#include "platform/forms/Application.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/TextBox.h"

namespace tavrix {

class MainViewFrm;
struct MainModule;

/// The dialog that makes a new image of one colour, perhaps with the clipboard's picture in its middle.
class NewImageFrm final : public forms::Form {
  public:
    NewImageFrm(forms::Application& application, MainViewFrm& view);

  private:
    MainViewFrm& view_;
    MainModule& module_;

  public:
    forms::Image Image1{*this, "Image1"};
    forms::Label lblWidth{*this, "lblWidth"};
    forms::TextBox txtWidth{*this, "txtWidth"};
    forms::Label lblWidthUnit{*this, "lblWidthUnit"};
    forms::Label lblHeight{*this, "lblHeight"};
    forms::TextBox txtHeight{*this, "txtHeight"};
    forms::Label lblHeightUnit{*this, "lblHeightUnit"};
    forms::CheckBox CheckPaste{*this, "CheckPaste"};
    forms::PictureBox Picture1{*this, "Picture1"};
    forms::CommandButton CmdBackground{*this, "CmdBackground"};
    forms::Label lblColors{*this, "lblColors"};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    /// The clipboard's picture, unseen.
    forms::PictureBox ImageHold{*this, "ImageHold"};

    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

  private:
    /// In pixels.
    struct ImageSize {
        int width = 0;
        int height = 0;
    };

    void CheckPaste_MouseUp();
    void CmdBackground_Click();
    void Picture1_Click();
    void CmdOK_Click();
    void CmdCancel_Click();

    void TakeClipboardPicture();
    void OfferNoPaste();
    /// The size that is entered, or the default one after an offer of it; nothing where the user is to enter another.
    std::optional<ImageSize> WantedSize();
    /// Tells what is wrong and offers the default size.
    std::optional<ImageSize> Offer(const std::string& problem, forms::TextBox& field);
    void Create(const ImageSize& size);
    void MakeImage(const ImageSize& size);
    void PasteCentred();
};

/// The New Image command.
void mnuNewImage_Click(MainViewFrm& view);

}  // namespace tavrix
