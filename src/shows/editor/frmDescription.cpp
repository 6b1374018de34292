#include "shows/editor/frmDescription.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "core/NumberText.h"
#include "core/Settings.h"
#include "shows/editor/DescriptionText.h"
#include "shows/files/ShowFileFormat.h"
#include "shows/stage/FullViewFrm.h"
#include "shows/stage/StageCommands.h"

namespace tavrix {

frmDescription::frmDescription(forms::Application& application, MainModule& module,
                               const std::string& showFile, int row)
    : Form(application, {.name = "frmDescription"}),
      module_(module),
      folder_(ShowFolder::Of(showFile)),
      current_(row) {
    Caption = "Edit Slide Descriptions";
    HelpContext = HelpContext::SlideDescriptions;
    FrameDesc.Caption = "Editing description for slide:";
    lblFilename.Literal = true;
    lblFilename.ToolTip = "Click here to view the full path of the slide.";
    lblFilename.OnClick = [this] { lblFilename_Click(); };
    lblText.Caption = "Current &Description:";
    lblText.SetBuddy(Text1);
    Text1.MaxLength = static_cast<int>(ShowFileFormat::LongestDescription);
    Text1.ToolTip = "Enter a description of the slide.  (200 characters max.)";
    Text1.OnKeyPress = [](std::string& character) {
        if (character == "\"") character.clear();
    };
    Text1.OnChange = [this] { Text1_Change(); };
    CmdPrevious.Caption = "&Previous";
    CmdPrevious.ToolTip = "Edit the description of the previous slide.";
    CmdPrevious.OnClick = [this] { Step(-1); };
    CmdNext.Caption = "&Next";
    CmdNext.ToolTip = "Edit the description of the next slide.";
    CmdNext.OnClick = [this] { Step(1); };
    CmdClear.Caption = "C&lear";
    CmdClear.ToolTip = "Clear the description of this slide.";
    CmdClear.OnClick = [this] { CmdClear_Click(); };
    CmdClearAll.Caption = "Clear &All";
    CmdClearAll.ToolTip = "Clear the descriptions of all slides.";
    CmdClearAll.OnClick = [this] { CmdClearAll_Click(); };
    CmdFileInfo.Caption = "&File Info";
    CmdFileInfo.ToolTip = "Add the date and the size of the file to the description.";
    CmdFileInfo.OnClick = [this] { CmdFileInfo_Click(); };
    CmdPreview.Caption = "Pre&view";
    CmdPreview.ToolTip = "Show this slide over the whole screen.";
    CmdPreview.OnClick = [this] { CmdPreview_Click(); };
    CheckDescriptions.Caption = "&Show descriptions during slide show.";
    CheckDescriptions.OnClick = [this] { module_.config.ShowDescription = CheckDescriptions.Value; };
    CmdOK.Caption = "&OK";
    CmdOK.ToolTip = "Keep the changes to the descriptions.";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Cancel all changes to the descriptions.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::SlideDescriptions); };
    using namespace forms;
    constexpr float textWidth = 7200;
    SetLayout(Column(
        {Group(FrameDesc, {AtLeast(textWidth, 0, lblFilename)}), lblText, AtLeast(textWidth, 0, Text1),
         Row({CmdPrevious, CmdNext, Stretch(), CmdClear, CmdClearAll, Stretch(), CmdFileInfo, CmdPreview}),
         CheckDescriptions, Row({Stretch(), CmdOK, CmdCancel, CmdHelp})}));
}

void frmDescription::Form_Load() {
    SlideShow& show = module_.show;
    former_ = show.SlideDescriptions;
    formerShowDescription_ = module_.config.ShowDescription;
    count_ = show.Count();
    if (current_ < 0 || current_ >= count_) current_ = 0;
    CheckDescriptions.Value = module_.config.ShowDescription;
    CmdPrevious.Enabled = CmdNext.Enabled = count_ > 1;
    ShowFormData();
}

void frmDescription::Form_Unload(bool&) {
    if (ok_) return;
    module_.show.SlideDescriptions = former_;
    module_.config.ShowDescription = formerShowDescription_;
}

void frmDescription::ShowFormData() {
    FrameDesc.Caption = "Editing description for slide " +
                        GroupedNumberOrEmpty(current_ + 1, module_.platform.system.Numbers()) + ":";
    lblFilename.Caption = SlidePath();
    Text1.Text = module_.show.SlideDescriptions[current_];
    FocusEndOfText();
}

void frmDescription::Store() {
    module_.show.SlideDescriptions.Set(current_, Text1.Text);
}

void frmDescription::Step(int direction) {
    if (module_.Busy()) return;
    Store();
    current_ = (current_ + direction + count_) % count_;
    ShowFormData();
}

void frmDescription::Text1_Change() {
    const std::string& text = Text1.Text;
    const std::string storable = StorableDescription(text);
    if (storable == text) return;
    const std::string before = tavrix::Left(text, static_cast<std::size_t>(Text1.SelStart.Get()));
    const auto caret = static_cast<int>(CharacterCount(StorableDescription(before)));
    Text1.Text = storable;
    Text1.SelStart = caret;
}

bool frmDescription::HasDescription() const {
    if (!Text1.Text.Get().empty()) return true;
    for (int i = 0; i < count_; ++i) {
        if (i != current_ && !module_.show.SlideDescriptions[i].empty()) return true;
    }
    return false;
}

void frmDescription::CmdClear_Click() {
    if (module_.Busy()) return;
    if (Text1.Text.Get().empty()) {
        Tell("This description is already blank...");
    } else {
        Text1.Text = "";
    }
    Text1.SetFocus();
}

void frmDescription::CmdClearAll_Click() {
    if (module_.Busy()) return;
    if (!HasDescription()) {
        Tell("There are no descriptions to clear...");
        return;
    }
    const forms::Answer answer = App().MessageBox(
        {.text = "You are about to clear ALL of the image descriptions for this slide show." +
                 std::string(NewLine2) + "Are you sure?",
         .icon = forms::BoxIcon::Question,
         .buttons = forms::BoxButtons::YesNo});
    if (answer != forms::Answer::Yes) return;
    module_.show.SlideDescriptions.Erase();
    Text1.Text = "";
    Text1.SetFocus();
}

void frmDescription::CmdFileInfo_Click() {
    if (module_.Busy()) return;
    const std::string path = SlidePath();
    if (!module_.platform.files.FileExists(path)) {
        Tell("Selected file could not be found, unable to get information...");
        return;
    }
    std::string text;
    SkipFailure([&] { text = Text1.Text.Get() + FileFacts(module_, path); });
    if (text.empty() || CharacterCount(text) > ShowFileFormat::LongestDescription) {
        Tell("Error getting file information...");
        return;
    }
    Text1.Text = text;
    FocusEndOfText();
}

void frmDescription::CmdPreview_Click() {
    if (module_.Busy()) return;
    forms::BusyGuard busy(module_.Screen());
    module_.DoEvents();
    if (Unloaded()) return;
    EndStage(module_);
    module_.StageImage = SlidePath();
    module_.SlideShowActive = false;
    auto& stage = module_.app.Load<FullViewFrm>(module_);
    busy.Release();
    stage.ShowModal();
    if (!Unloaded()) FocusEndOfText();
}

void frmDescription::FocusEndOfText() {
    Text1.SelStart = static_cast<int>(CharacterCount(Text1.Text.Get()));
    Text1.SetFocus();
}

std::string frmDescription::SlidePath() const {
    return folder_.SlidePath(module_.show.SlideFiles[current_]);
}

void frmDescription::lblFilename_Click() {
    Tell(SlidePath());
}

void frmDescription::CmdOK_Click() {
    if (module_.Busy()) return;
    Store();
    SaveSlideSettings(module_);
    module_.show.ShowChanged = true;
    ok_ = true;
    App().Unload(*this);
}

void frmDescription::Tell(const std::string& text) {
    App().MessageBox({.text = text});
}

}  // namespace tavrix
