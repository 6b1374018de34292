#pragma once

#include <string>

#include "core/MainModule.h"
#include "core/ShowFolder.h"
#include "platform/forms/Application.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/TextBox.h"

namespace tavrix {

/// The dialog that edits the descriptions of the shared show, one slide at a time. What it does to them is undone by every
/// end but OK.
class frmDescription final : public forms::Form {
  public:
    /// `showFile` is where the show lies, or a name without a folder for one that has not been saved yet. It begins with
    /// the slide of `row`, with the first where there is no such slide. The show has one at least.
    frmDescription(forms::Application& application, MainModule& module, const std::string& showFile, int row);

    forms::Frame FrameDesc{*this, "FrameDesc"};
    forms::Label lblFilename{FrameDesc, "lblFilename"};
    forms::Label lblText{*this, "lblText"};
    forms::TextBox Text1{*this, "Text1"};
    forms::CommandButton CmdPrevious{*this, "CmdPrevious"};
    forms::CommandButton CmdNext{*this, "CmdNext"};
    forms::CommandButton CmdClear{*this, "CmdClear"};
    forms::CommandButton CmdClearAll{*this, "CmdClearAll"};
    forms::CommandButton CmdFileInfo{*this, "CmdFileInfo"};
    forms::CommandButton CmdPreview{*this, "CmdPreview"};
    forms::CheckBox CheckDescriptions{*this, "CheckDescriptions"};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

  private:
    void Text1_Change();
    void CmdClear_Click();
    void CmdClearAll_Click();
    void CmdFileInfo_Click();
    void CmdPreview_Click();
    void lblFilename_Click();
    void CmdOK_Click();

    void ShowFormData();
    /// Puts what is in the field into the slot of the slide.
    void Store();
    /// To the next slide or the one before, round the ends.
    void Step(int direction);
    [[nodiscard]] bool HasDescription() const;
    /// Where the slide is, as far as that is known.
    [[nodiscard]] std::string SlidePath() const;
    void FocusEndOfText();
    void Tell(const std::string& text);

    MainModule& module_;
    ShowFolder folder_;
    int current_;
    int count_ = 0;
    SlideTexts former_;
    bool formerShowDescription_ = false;
    bool ok_ = false;
};

}  // namespace tavrix
