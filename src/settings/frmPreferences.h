#pragma once

#include <array>

#include "core/MainModule.h"
#include "platform/forms/Application.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/OptionButton.h"

namespace tavrix {

class MainViewFrm;

/// The dialog of the preferences. Nothing changes before OK, but what its buttons clear.
class frmPreferences final : public forms::Form {
  public:
    frmPreferences(forms::Application& application, MainViewFrm& view);

  private:
    MainViewFrm& view_;
    MainModule& module_;
    forms::OptionGroup startups_;
    forms::OptionGroup colours_;

  public:
    forms::Frame FrameExit{*this, "FrameExit"};
    forms::CheckBox CheckSaveSize{FrameExit, "CheckSaveSize"};
    forms::CheckBox CheckDelUntitled{FrameExit, "CheckDelUntitled"};
    forms::CheckBox CheckClipboard{FrameExit, "CheckClipboard"};
    forms::Frame FrameRecent{*this, "FrameRecent"};
    forms::CheckBox CheckRecent{FrameRecent, "CheckRecent"};
    forms::CommandButton CmdClearList{FrameRecent, "CmdClearList"};
    forms::CommandButton CmdClearRecentShow{FrameRecent, "CmdClearRecentShow"};
    forms::CommandButton CmdRecentDocs{FrameRecent, "CmdRecentDocs"};
    forms::Frame FrameOpen{*this, "FrameOpen"};
    forms::CheckBox CheckStretch{FrameOpen, "CheckStretch"};
    forms::CheckBox CheckEnlarge{FrameOpen, "CheckEnlarge"};
    forms::CheckBox CheckResizeForm{FrameOpen, "CheckResizeForm"};
    forms::CheckBox CheckClickOpen{FrameOpen, "CheckClickOpen"};
    forms::CheckBox CheckViewFull{FrameOpen, "CheckViewFull"};
    forms::Frame FrameStartup{*this, "FrameStartup"};
    forms::CheckBox CheckDisplayLast{FrameStartup, "CheckDisplayLast"};
    forms::CheckBox CheckMaximize{FrameStartup, "CheckMaximize"};
    std::array<forms::OptionButton, 5> OptionStartup{{{FrameStartup, "OptionStartup0", startups_},
                                                      {FrameStartup, "OptionStartup1", startups_},
                                                      {FrameStartup, "OptionStartup2", startups_},
                                                      {FrameStartup, "OptionStartup3", startups_},
                                                      {FrameStartup, "OptionStartup4", startups_}}};
    forms::Frame FrameColor{*this, "FrameColor"};
    forms::OptionButton Option1{FrameColor, "Option1", colours_};
    forms::OptionButton Option2{FrameColor, "Option2", colours_};
    forms::OptionButton Option3{FrameColor, "Option3", colours_};
    forms::OptionButton Option4{FrameColor, "Option4", colours_};
    forms::OptionButton Option5{FrameColor, "Option5", colours_};
    forms::OptionButton Option6{FrameColor, "Option6", colours_};
    forms::Label lblColor{FrameColor, "lblColor"};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    /// The options of the background, in the order of the values of BackgroundColor.
    const std::array<forms::OptionButton*, 6> OptionsOfColor{&Option1, &Option2, &Option3,
                                                             &Option4, &Option5, &Option6};

    void Form_Load() override;

  private:
    void CmdOK_Click();
    void CheckRecent_Click();
    void CmdClearList_Click();
    void CmdClearRecentShow_Click();
    void CmdRecentDocs_Click();

    void NameControls();
    void BuildLayout();
    /// Whether the user says yes to a question.
    bool Agrees(const std::string& question);

    /// A box to tick and the setting that it shows.
    struct Tick {
        forms::CheckBox& box;
        bool AppConfig::*setting;
    };
    /// Those whose only effect is on the settings.
    const std::array<Tick, 8> plainTicks_{{{CheckDelUntitled, &AppConfig::DeleteUntitled},
                                           {CheckClipboard, &AppConfig::ClearClipboard},
                                           {CheckEnlarge, &AppConfig::EnlargeImages},
                                           {CheckResizeForm, &AppConfig::AutosizeWindow},
                                           {CheckStretch, &AppConfig::StretchImages},
                                           {CheckClickOpen, &AppConfig::ClickScreenOpen},
                                           {CheckViewFull, &AppConfig::ViewFullScreen},
                                           {CheckDisplayLast, &AppConfig::DisplayLastOpened}}};
};

}  // namespace tavrix
