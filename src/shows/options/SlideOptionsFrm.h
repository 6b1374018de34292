#pragma once

#include <string>
#include <vector>

#include "core/MainModule.h"
#include "core/ShowFolder.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"
#include "platform/forms/OptionButton.h"
#include "platform/forms/TextBox.h"

namespace tavrix {

/// The dialog for the options of the show that is being edited. OK notes a change of the show where that has slides, by
/// `SlideCount`, which the opener has set. A disc that plays stops with the dialog.
class SlideOptionsFrm final : public forms::Form {
  public:
    /// `folder` is where the show lies: a sound file without a drive is looked for there, then in the current folder.
    SlideOptionsFrm(forms::Application& application, MainModule& module, ShowFolder folder);

  private:
    MainModule& module_;
    ShowFolder folder_;
    forms::OptionGroup sound_;

  public:
    forms::Frame SlidesFrame{*this, "SlidesFrame"};
    forms::Label lblInterval{SlidesFrame, "lblInterval"};
    forms::ComboBox ComboInterval{SlidesFrame, "ComboInterval"};
    forms::CheckBox CheckRandom{SlidesFrame, "CheckRandom"};
    forms::CheckBox CheckLoopShow{SlidesFrame, "CheckLoopShow"};
    forms::CheckBox CheckShowFilenames{SlidesFrame, "CheckShowFilenames"};
    forms::CheckBox CheckDescriptions{SlidesFrame, "CheckDescriptions"};
    forms::CheckBox CheckAnimateGIF{SlidesFrame, "CheckAnimateGIF"};
    forms::CheckBox CheckToolbar{SlidesFrame, "CheckToolbar"};
    forms::CheckBox CheckCopy{SlidesFrame, "CheckCopy"};
    forms::Frame SoundFrame{*this, "SoundFrame"};
    forms::OptionButton Option1{SoundFrame, "Option1", sound_};
    forms::OptionButton Option2{SoundFrame, "Option2", sound_};
    forms::Image ImageSpeaker{SoundFrame, "ImageSpeaker"};
    forms::TextBox txtWavFile{SoundFrame, "txtWavFile"};
    forms::CommandButton CmdBrowse{SoundFrame, "CmdBrowse"};
    forms::OptionButton Option3{SoundFrame, "Option3", sound_};
    forms::ComboBox ComboCD{SoundFrame, "ComboCD"};
    forms::Image ImageCDROM{SoundFrame, "ImageCDROM"};
    forms::CommandButton CmdPlay{SoundFrame, "CmdPlay"};
    forms::CommandButton CmdStop{SoundFrame, "CmdStop"};
    forms::CommandButton CmdOpenCD{SoundFrame, "CmdOpenCD"};
    forms::CommandButton CmdCloseCD{SoundFrame, "CmdCloseCD"};
    forms::CheckBox CheckLoopSound{SoundFrame, "CheckLoopSound"};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

  private:
    void BuildSlides();
    void BuildSound();
    void BuildButtons();

    void CheckLoopShow_Click();
    void Option_Click();
    void txtWavFile_OLEDragDrop(const std::vector<std::string>& files);
    void CmdBrowse_Click();
    void CmdPlay_Click();
    void CmdStop_Click();
    void CmdOpenCD_Click();
    void CmdCloseCD_Click();
    void CmdOK_Click();

    /// Where the sound of the show is.
    [[nodiscard]] std::string FullSoundFile() const;
    /// Shows what belongs to the kind of sound that is chosen, and nothing of the others.
    void ShowSoundControls();
    /// Whether the CD-ROM drive can be used; the user is told if not.
    bool CdAnswers();
    /// Opens the device, opens or closes its door, and releases it.
    void MoveDoor(const char* command);
    void StopPlayingCd();

    bool cdPlaying_ = false;
};

}  // namespace tavrix
