#pragma once

#include <string>

#include "dialogs/FileChooser.h"
#include "platform/forms/Application.h"
#include "shows/stage/MediaControl.h"

namespace tavrix {

class SlideOptionsFrm;

/// The dialog that chooses the sound file for the options of a show, and lets the user hear it. OK puts its path into
/// their field. A sound that plays stops with the dialog.
class BrowseWavFrm final : public forms::Form {
  public:
    BrowseWavFrm(forms::Application& application, MainModule& module, SlideOptionsFrm& options);

  private:
    MainModule& module_;
    SlideOptionsFrm& options_;

  public:
    FileChooser Chooser{*this, module_, "*.wav;*.mid"};
    forms::CommandButton CmdPlay{*this, "CmdPlay"};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};

    void Form_Load() override;
    void Form_QueryUnload(bool& cancel) override;

  private:
    void CmdPlay_Click();
    void CmdOK_Click();
    void File1_KeyUp(int keyCode);

    void Play(const std::string& path);
    void PlayMidi(const std::string& path);
    void Stop();

    SoundFileKind playing_ = SoundFileKind::None;
};

}  // namespace tavrix
