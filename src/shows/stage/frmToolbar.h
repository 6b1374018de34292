#pragma once

#include <array>
#include <string>

#include "core/MainModule.h"
#include "platform/forms/Form.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"

namespace tavrix {

class FullViewFrm;

/// The navigator of a slide show: a small window that stays above the stage, with buttons that do what the stage's keys
/// do. The stage loads and unloads it; the user may close it before.
class frmToolbar final : public forms::Form {
  public:
    // Outer sizes in twips.
    static constexpr float DesignWidth = 6240;
    static constexpr float DesignHeight = 2400;
    static constexpr float FilenameHeight = 1335;    ///< with file names alone
    static constexpr float BareHeight = 1070;        ///< with neither file names nor descriptions
    static constexpr float DescriptionSaving = 270;  ///< with descriptions alone
    static constexpr float DescriptionHeight = 750;  ///< of lblDescription then
    static constexpr std::size_t StatusCharacters = 30;

    frmToolbar(forms::Application& application, MainModule& module, FullViewFrm& stage);

    forms::Image ImageStart{*this, "ImageStart"};
    forms::Image ImagePrevious{*this, "ImagePrevious"};
    forms::Image ImageNext{*this, "ImageNext"};
    forms::Image ImageEnd{*this, "ImageEnd"};
    forms::Image ImageStop{*this, "ImageStop"};
    forms::Label lblStart{*this, "lblStart"};
    forms::Label lblPrevious{*this, "lblPrevious"};
    forms::Label lblNext{*this, "lblNext"};
    forms::Label lblEnd{*this, "lblEnd"};
    forms::Label lblStop{*this, "lblStop"};
    forms::Label lblMsg{*this, "lblMsg"};
    forms::Label lblStatus{*this, "lblStatus"};
    forms::Label lblDescription{*this, "lblDescription"};

    void Form_Load() override;
    void Form_Unload(bool& cancel) override;
    void Form_KeyDown(int& keyCode, int shift) override;

    /// Gives the window the height that ShowFilenames and ShowDescription ask for.
    void SizeToContents();
    /// Tells of a slide.
    void ShowSlide(const std::string& path, const std::string& description);
    void HideHints();
    /// Whether the pointer is inside the window, frame and all.
    [[nodiscard]] bool HoldsPointer() const;

  private:
    /// A button with the label that tells what it does.
    struct Command {
        forms::Image& image;
        forms::Label& hint;
    };
    [[nodiscard]] std::array<Command, 5> Commands();
    void SetUp(const Command& command, int place, const char* toolTip, const char* hint);
    void PressKey(int keyCode);
    void ImageStop_Click();
    void lblDescription_Click();
    void ShowHint(const forms::Label& hint);

    MainModule& module_;
    FullViewFrm& stage_;
};

}  // namespace tavrix
