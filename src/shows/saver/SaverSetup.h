#pragma once

#include <array>
#include <optional>
#include <string>

#include "core/MainModule.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"
#include "platform/forms/OptionButton.h"
#include "shows/library/ShowTarget.h"
#include "shows/saver/SaverSurroundings.h"

namespace tavrix {

/// The settings of the screen saver: which show it is, a few options of that show, and what belongs to the saver alone. OK
/// saves them in the show's file, in tavrix.ini and in the user's store. Apart from these, it switches the start of the saver
/// by Tavrix itself (IdleStart).
class SaverSetup final : public forms::Form, private SaverSettings {
  public:
    SaverSetup(forms::Application& application, MainModule& module, SaverSurroundings surroundings = {});

  private:
    MainModule& module_;
    SaverSurroundings surroundings_;
    forms::OptionGroup soundChoice_;
    forms::OptionGroup colours_;

  public:
    forms::Image Image1{*this, "Image1"};
    forms::Label Label5{*this, "Label5"};
    forms::Label lblFrame{*this, "lblFrame"};
    forms::Label lblVersion{*this, "lblVersion"};
    forms::Frame FileFrame{*this, "FileFrame"};
    forms::Label lblCurrentFile{FileFrame, "lblCurrentFile"};
    forms::CommandButton CmdSelectFile{FileFrame, "CmdSelectFile"};
    forms::Frame SoundFrame{*this, "SoundFrame"};
    forms::OptionButton OptionNoSound{SoundFrame, "OptionNoSound", soundChoice_};
    forms::OptionButton OptionYesSound{SoundFrame, "OptionYesSound", soundChoice_};
    forms::Label lblSoundFile{SoundFrame, "lblSoundFile"};
    forms::Frame ImagesFrame{*this, "ImagesFrame"};
    forms::CheckBox CheckStartLast{ImagesFrame, "CheckStartLast"};
    forms::CheckBox CheckRandom{ImagesFrame, "CheckRandom"};
    forms::Label lblInterval{ImagesFrame, "lblInterval"};
    forms::ComboBox ComboInterval{ImagesFrame, "ComboInterval"};
    forms::Frame ColorFrame{*this, "ColorFrame"};
    forms::OptionButton Option1{ColorFrame, "Option1", colours_};
    forms::OptionButton Option2{ColorFrame, "Option2", colours_};
    forms::OptionButton Option3{ColorFrame, "Option3", colours_};
    forms::OptionButton Option4{ColorFrame, "Option4", colours_};
    forms::OptionButton Option5{ColorFrame, "Option5", colours_};
    forms::OptionButton Option6{ColorFrame, "Option6", colours_};
    forms::Label lblColor{ColorFrame, "lblColor"};
    forms::Frame PasswordFrame{*this, "PasswordFrame"};
    forms::Label lblPassDelay{PasswordFrame, "lblPassDelay"};
    forms::ComboBox ComboPassDelay{PasswordFrame, "ComboPassDelay"};
    forms::CommandButton CmdPassChange{PasswordFrame, "CmdPassChange"};
    forms::Label lblPassMsg{PasswordFrame, "lblPassMsg"};
    forms::Frame IdleFrame{*this, "IdleFrame"};
    forms::CheckBox CheckIdle{IdleFrame, "CheckIdle"};
    forms::ComboBox ComboIdle{IdleFrame, "ComboIdle"};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

  private:
    void BuildHeading();
    void BuildShow();
    void BuildColours();
    void BuildPassword();
    void BuildIdle();
    void BuildButtons();
    void Arrange();

    void SetCurrentFile(const std::string& path) override { lblCurrentFile.Caption = path; }
    void ReadCurrentFile() override;

    void ShowSound();
    void ShowInterval();
    void ShowPassword();
    void ShowIdle();
    void CheckIdle_Click();
    void lblCurrentFile_Click();
    void lblSoundFile_Click();
    void lblColor_Click();
    void CmdSelectFile_Click();
    void CmdPassChange_Click();
    void CmdOK_Click();
    void TakeOptionsOfSaver();
    void TakeOptionsOfShow();
    void SaveShow();
    void SaveIdle();

    [[nodiscard]] std::array<forms::OptionButton*, 6> Colours() {
        return {&Option1, &Option2, &Option3, &Option4, &Option5, &Option6};
    }
    [[nodiscard]] int ChosenColour();
    /// The minutes of the idle start as the window has them; none while it is off.
    [[nodiscard]] std::optional<int> ChosenIdle() const;

    std::optional<int> shownIdle_;  ///< what the window showed at first
    bool fileRead_ = false;         ///< the shared record has all that the current file has
};

}  // namespace tavrix
