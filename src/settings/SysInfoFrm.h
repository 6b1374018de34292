#pragma once

#include <string>

#include "core/MainModule.h"
#include "platform/forms/Application.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"

namespace tavrix {

/// What Tavrix knows of the computer: display, memory, sound, and where its temporary files are.
class SysInfoFrm final : public forms::Form {
  public:
    SysInfoFrm(forms::Application& application, MainModule& module);

  private:
    MainModule& module_;

  public:
    forms::Frame FrameDisplay{*this, "FrameDisplay"};
    forms::Label lblWidthName{FrameDisplay, "lblWidthName"};
    forms::Label lblWidth{FrameDisplay, "lblWidth"};
    forms::Label lblHeightName{FrameDisplay, "lblHeightName"};
    forms::Label lblHeight{FrameDisplay, "lblHeight"};
    forms::Label lblColorsName{FrameDisplay, "lblColorsName"};
    forms::Label lblColors{FrameDisplay, "lblColors"};
    forms::Label lblNote{FrameDisplay, "lblNote"};
    forms::Label lblNoteMsg{FrameDisplay, "lblNoteMsg"};
    forms::Frame FrameMemory{*this, "FrameMemory"};
    forms::Label lblTPName{FrameMemory, "lblTPName"};
    forms::Label lblTP{FrameMemory, "lblTP"};
    forms::Label lblAPName{FrameMemory, "lblAPName"};
    forms::Label lblAP{FrameMemory, "lblAP"};
    forms::Label lblTVName{FrameMemory, "lblTVName"};
    forms::Label lblTV{FrameMemory, "lblTV"};
    forms::Label lblAVName{FrameMemory, "lblAVName"};
    forms::Label lblAV{FrameMemory, "lblAV"};
    forms::Frame FrameMultimedia{*this, "FrameMultimedia"};
    forms::Label lblWaveAudioName{FrameMultimedia, "lblWaveAudioName"};
    forms::Label lblWaveAudio{FrameMultimedia, "lblWaveAudio"};
    forms::Label lblMIDIName{FrameMultimedia, "lblMIDIName"};
    forms::Label lblMIDI{FrameMultimedia, "lblMIDI"};
    forms::Label lblCDAudioName{FrameMultimedia, "lblCDAudioName"};
    forms::Label lblCDAudio{FrameMultimedia, "lblCDAudio"};
    forms::Frame FrameTemp{*this, "FrameTemp"};
    forms::Label lblTempDir{FrameTemp, "lblTempDir"};
    forms::CommandButton CmdSettings{*this, "CmdSettings"};
    forms::CommandButton CmdMultimedia{*this, "CmdMultimedia"};
    forms::CommandButton CmdOK{*this, "CmdOK"};

    void Form_Load() override;

  private:
    void lblTempDir_Click();

    void BuildLayout();
    void ShowMemory();
    [[nodiscard]] bool Has256Colors() const;
};

}  // namespace tavrix
