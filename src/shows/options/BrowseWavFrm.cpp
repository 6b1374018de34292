#include "shows/options/BrowseWavFrm.h"

#include <utility>

#include "base/Text.h"
#include "core/FileServices.h"
#include "core/HelpContexts.h"
#include "platform/services/Sound.h"
#include "shows/options/SlideOptionsFrm.h"
#include "shows/stage/MediaCommands.h"

namespace tavrix {
namespace {

constexpr const char* PlayCaption = "&Play...";
constexpr const char* StopCaption = "&Stop...";

}  // namespace

BrowseWavFrm::BrowseWavFrm(forms::Application& application, MainModule& module, SlideOptionsFrm& options)
    : Form(application, {.name = "BrowseWavFrm"}), module_(module), options_(options) {
    Caption = "Select Sound File";
    HelpContext = HelpContext::SlideOptions;
    Chooser.File1.OnDblClick = [this] { CmdOK_Click(); };
    Chooser.File1.OnKeyUp = [this](int keyCode, int) { File1_KeyUp(keyCode); };
    CmdPlay.Caption = PlayCaption;
    CmdPlay.ToolTip = "Play the selected sound file, or stop it.";
    CmdPlay.OnClick = [this] { CmdPlay_Click(); };
    CmdOK.Caption = "&OK";
    CmdOK.ToolTip = "Use the selected sound file.";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Close this window, don't change the sound file.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    SetLayout(Chooser.Arrangement(forms::Column({CmdPlay, CmdOK, CmdCancel})));
}

void BrowseWavFrm::Form_Load() {
    const std::string& file = options_.txtWavFile.Text;
    const std::string folder = FolderOf(file);
    if (folder.empty() || !module_.platform.files.FolderExists(folder)) return;
    SkipFailure([&] { Chooser.Lists.GoTo(folder); });
    Chooser.Lists.WhenRead(
        [this, name = FileNameOf(file)] { Chooser.File1.ListIndex = Chooser.File1.IndexOf(name); });
}

void BrowseWavFrm::Form_QueryUnload(bool&) {
    if (playing_ != SoundFileKind::None) CmdPlay_Click();
}

void BrowseWavFrm::CmdPlay_Click() {
    if (playing_ != SoundFileKind::None) {
        Stop();
        return;
    }
    if (Chooser.Lists.Awaits([this] { CmdPlay_Click(); })) return;
    const auto path = Chooser.Selected(
        "There are no Wave (.wav) files or MIDI (.mid) files in the selected directory, nothing to play...",
        "Select a Wave (.wav) file or a MIDI (.mid) file to play first...");
    if (path) Play(*path);
}

void BrowseWavFrm::Play(const std::string& path) {
    if (KindOfSoundFile(path) == SoundFileKind::Wave) {
        PlayWaveFile(module_, path, WaveFlags::Once);
        playing_ = SoundFileKind::Wave;
    } else if (!module_.MidiDevicePresent) {
        App().MessageBox(
            {.text = "This computer does not have a MIDI (.MID) capable sound card, unable to play file."});
    } else {
        PlayMidi(path);
    }
    if (playing_ != SoundFileKind::None) CmdPlay.Caption = StopCaption;
}

void BrowseWavFrm::PlayMidi(const std::string& path) {
    if (!StartByCommand(module_, MediaCommands::OpenMidi(path))) return;
    if (StartByCommand(module_, MediaCommands::PlayMidi)) {
        playing_ = SoundFileKind::Midi;
    } else {
        StopByCommand(module_, MediaCommands::CloseMidi);
    }
}

void BrowseWavFrm::Stop() {
    if (std::exchange(playing_, SoundFileKind::None) == SoundFileKind::Wave) {
        StopWaveFile(module_);
    } else if (StopByCommand(module_, MediaCommands::StopMidi)) {
        StopByCommand(module_, MediaCommands::CloseMidi);
    }
    CmdPlay.Caption = PlayCaption;
}

void BrowseWavFrm::CmdOK_Click() {
    if (Chooser.Lists.Awaits([this] { CmdOK_Click(); })) return;
    const auto path = Chooser.Selected(
        "There are no Wave (.wav) files or MIDI (.mid) files in the selected directory, select "
        "another location and try again...",
        "Select a Wave (.wav) file or a MIDI (.mid) file from the list or press the Cancel "
        "button...");
    if (!path) return;
    options_.txtWavFile.Text = *path;
    App().Unload(*this);
}

void BrowseWavFrm::File1_KeyUp(int keyCode) {
    if (keyCode != forms::KeyCode::Delete) return;
    forms::FileListBox& files = Chooser.File1;
    if (files.ListIndex < 0) {
        App().MessageBox({.text = "Unable to delete file by pressing the delete key, nothing is selected in "
                                  "the file list..."});
        return;
    }
    if (DeleteAsUserAgrees(module_, Chooser.Lists.Folder() + files.FileName())) Chooser.Lists.RefreshFiles();
}

}  // namespace tavrix
