#include "shows/options/SlideOptionsFrm.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "base/Text.h"
#include "core/FileServices.h"
#include "core/Folders.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "core/Settings.h"
#include "dialogs/DialogPictures.h"
#include "platform/forms/Application.h"
#include "shows/options/BrowseWavFrm.h"
#include "shows/stage/MediaCommands.h"
#include "shows/stage/MediaControl.h"

namespace tavrix {
namespace {

constexpr int LongestInterval = 60;  ///< seconds
constexpr int LastTrack = 99;
constexpr std::int16_t NoSound = 0;
constexpr std::int16_t SoundFromFile = 1;
constexpr std::int16_t SoundFromCd = 2;

}  // namespace

SlideOptionsFrm::SlideOptionsFrm(forms::Application& application, MainModule& module, ShowFolder folder)
    : Form(application, {.name = "SlideOptionsFrm", .acceptsDrops = true}),
      module_(module),
      folder_(std::move(folder)) {
    Caption = "Slide Show Options";
    HelpContext = HelpContext::SlideOptions;
    BuildSlides();
    BuildSound();
    BuildButtons();

    using namespace forms;
    constexpr float fieldWidth = 3600;
    const Layout slides = Group(SlidesFrame, {Row({lblInterval, ComboInterval, Stretch()}), CheckRandom,
                                              CheckLoopShow, CheckShowFilenames, CheckDescriptions,
                                              CheckAnimateGIF, CheckToolbar, CheckCopy, Stretch()});
    const Layout sound = Group(
        SoundFrame, {Option1, Row({Option2, Stretch(), ImageSpeaker}),
                     Row({Growing(AtLeast(fieldWidth, 0, txtWavFile)), CmdBrowse}),
                     Row({Option3, ComboCD, Stretch(), ImageCDROM}),
                     Row({CmdPlay, CmdStop, CmdOpenCD, CmdCloseCD, Stretch()}), CheckLoopSound, Stretch()});
    SetLayout(Column({Row({slides, Growing(sound)}), Row({Stretch(), CmdOK, CmdCancel, CmdHelp})}));
}

void SlideOptionsFrm::BuildSlides() {
    SlidesFrame.Caption = "Slides";
    lblInterval.Caption = "&Interval:";
    lblInterval.SetBuddy(ComboInterval);
    CheckRandom.Caption = "Choose &random image order.";
    CheckLoopShow.Caption = "S&how images once, then exit.";
    CheckLoopShow.OnClick = [this] { CheckLoopShow_Click(); };
    CheckLoopShow.OnKeyUp = [this](int, int) { CheckLoopShow_Click(); };
    CheckShowFilenames.Caption = "Show &filenames.";
    CheckDescriptions.Caption = "Show image &descriptions.";
    CheckAnimateGIF.Caption = "Animate all &GIF89a files.";
    CheckToolbar.Caption = "Show navigation &toolbar.";
    CheckCopy.Caption = "Sa&ve images in slide show directory.";
}

void SlideOptionsFrm::BuildSound() {
    SoundFrame.Caption = "Sound";
    Option1.Caption = "&No sound.";
    Option2.Caption = "Play a &MIDI (.mid) or a Wave (.wav) file.";
    Option3.Caption = "Play a CD &Audio track.";
    for (forms::OptionButton* option : {&Option1, &Option2, &Option3})
        option->OnClick = [this] { Option_Click(); };
    const float twips = module_.Screen().TwipsPerPixelX();
    ImageSpeaker.AccessibleName = "Speaker";
    ImageSpeaker.Picture = DialogPicture(DialogSign::Speaker, twips);
    ImageCDROM.AccessibleName = "Disc";
    ImageCDROM.Picture = DialogPicture(DialogSign::Disc, twips);
    txtWavFile.AccessibleName = "Sound file";
    txtWavFile.OnOLEDragDrop = [this](const auto& files) { txtWavFile_OLEDragDrop(files); };
    CmdBrowse.Caption = "&Browse...";
    CmdBrowse.OnClick = [this] { CmdBrowse_Click(); };
    ComboCD.AccessibleName = "CD track";
    CheckLoopSound.Caption = "Loop so&und.";
    CmdPlay.Caption = "&Play";
    CmdPlay.OnClick = [this] { CmdPlay_Click(); };
    CmdStop.Caption = "&Stop";
    CmdStop.OnClick = [this] { CmdStop_Click(); };
    CmdOpenCD.Caption = "&Eject";
    CmdOpenCD.OnClick = [this] { CmdOpenCD_Click(); };
    CmdCloseCD.Caption = "C&lose";
    CmdCloseCD.OnClick = [this] { CmdCloseCD_Click(); };
}

void SlideOptionsFrm::BuildButtons() {
    CmdOK.Caption = "&OK";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::SlideOptions); };
}

void SlideOptionsFrm::Form_Load() {
    const AppConfig& config = module_.config;
    ComboInterval.AddItem("No Timer");
    ComboInterval.AddItem("1 second");
    for (int seconds = 2; seconds <= LongestInterval; ++seconds)
        ComboInterval.AddItem(std::to_string(seconds) + " seconds");
    ComboCD.AddItem("All Tracks");
    for (int track = 1; track <= LastTrack; ++track)
        ComboCD.AddItem("Track " + std::to_string(track));

    Option1.Value = true;
    if (config.SoundMode == SoundFromFile) Option2.Value = true;
    if (config.SoundMode == SoundFromCd) Option3.Value = true;
    if (!module_.WaveDevicePresent) {
        SoundFrame.Caption = "Sound: (disabled)";
        for (forms::OptionButton* option : {&Option1, &Option2, &Option3})
            option->Enabled = false;
    }
    txtWavFile.Text = FullSoundFile();
    ComboCD.ListIndex = std::clamp<int>(config.CDTrack, 0, LastTrack);
    CheckLoopSound.Value = config.SoundLoop;
    ComboInterval.ListIndex = std::clamp<int>(config.SlideInterval, 0, LongestInterval);
    CheckRandom.Value = config.RandomSlides;
    CheckLoopShow.Value = !config.LoopSlideShow;
    CheckShowFilenames.Value = config.ShowFilenames;
    CheckDescriptions.Value = config.ShowDescription;
    CheckAnimateGIF.Value = config.AnimateGIF89;
    CheckToolbar.Value = config.ShowToolbar;
    CheckCopy.Value = config.SaveSlides;
}

void SlideOptionsFrm::Form_Unload(bool&) {
    StopPlayingCd();
}

std::string SlideOptionsFrm::FullSoundFile() const {
    const std::string& file = module_.config.SoundFile;
    if (file.empty() || file.find(':') != std::string::npos) return file;
    const std::string besideShow = folder_.SlidePath(file);
    if (!folder_.Path().empty() && module_.platform.files.FileExists(besideShow)) return besideShow;
    std::string current;
    SkipFailure([&] { current = WithBackslash(module_.platform.files.CurrentFolder()); });
    return current + file;
}

void SlideOptionsFrm::CheckLoopShow_Click() {
    // A show that plays once has no random order.
    if (CheckLoopShow.Value) CheckRandom.Value = false;
    CheckRandom.Enabled = !CheckLoopShow.Value;
}

void SlideOptionsFrm::Option_Click() {
    StopPlayingCd();
    ShowSoundControls();
}

void SlideOptionsFrm::ShowSoundControls() {
    const bool file = Option2.Value;
    const bool cd = Option3.Value;
    for (forms::CommandButton* button : {&CmdPlay, &CmdStop, &CmdOpenCD, &CmdCloseCD})
        button->Visible = cd;
    txtWavFile.Visible = file;
    CmdBrowse.Visible = file;
    ComboCD.Enabled = cd;
    CheckLoopSound.Enabled = file || cd;
    ImageSpeaker.Visible = file;
    ImageCDROM.Visible = cd;
}

void SlideOptionsFrm::txtWavFile_OLEDragDrop(const std::vector<std::string>& files) {
    std::string path = files.empty() ? "" : files.front();
    if (EndsInIgnoringCase(path, ".LNK")) path = ResolveLink(module_, path);
    if (KindOfSoundFile(path) == SoundFileKind::None) {
        App().MessageBox({.text = "The file that was dropped into the text box is not a valid sound file."});
        return;
    }
    txtWavFile.Text = path;
}

void SlideOptionsFrm::CmdBrowse_Click() {
    if (module_.Busy()) return;
    App().Load<BrowseWavFrm>(module_, *this).ShowModal();
}

bool SlideOptionsFrm::CdAnswers() {
    if (module_.CdDevicePresent && CdDriveAnswers(module_)) return true;
    App().MessageBox({.text = "The CD-ROM drive is not ready, insert an audio disc and then try again...",
                      .icon = forms::BoxIcon::Exclamation});
    return false;
}

void SlideOptionsFrm::CmdPlay_Click() {
    StopPlayingCd();
    if (!CdAnswers() || !StartByCommand(module_, MediaCommands::OpenCd)) return;
    for (const std::string& command :
         {std::string(MediaCommands::SetCdFormat), MediaCommands::SeekCd(ComboCD.ListIndex)}) {
        if (StartByCommand(module_, command)) continue;
        StopByCommand(module_, MediaCommands::CloseCd);
        return;
    }
    (void)StartByCommand(module_, MediaCommands::PlayCd);
    cdPlaying_ = true;  // even if it does not: the device is to be released
}

void SlideOptionsFrm::CmdStop_Click() {
    if (!cdPlaying_) {
        App().MessageBox({.text = "A CD-ROM is not playing, nothing to stop..."});
        return;
    }
    CdAnswers();  // a disc that was taken out is told, and its device released all the same
    StopPlayingCd();
}

void SlideOptionsFrm::CmdOpenCD_Click() {
    StopPlayingCd();
    MoveDoor(MediaCommands::OpenCdDoor);
}

void SlideOptionsFrm::CmdCloseCD_Click() {
    if (module_.CdDevicePresent && CdDriveAnswers(module_)) {
        App().MessageBox({.text = "The CD-ROM door appears to be closed already..."});
        return;
    }
    StopPlayingCd();
    MoveDoor(MediaCommands::CloseCdDoor);
}

void SlideOptionsFrm::MoveDoor(const char* command) {
    if (!StartByCommand(module_, MediaCommands::OpenCd)) return;
    (void)StartByCommand(module_, command);
    StopByCommand(module_, MediaCommands::CloseCd);
}

void SlideOptionsFrm::StopPlayingCd() {
    if (!cdPlaying_) return;
    cdPlaying_ = false;
    StopByCommand(module_, MediaCommands::StopCd);
    StopByCommand(module_, MediaCommands::CloseCd);
}

void SlideOptionsFrm::CmdOK_Click() {
    AppConfig& config = module_.config;
    config.SoundMode = Option3.Value ? SoundFromCd : Option2.Value ? SoundFromFile : NoSound;
    config.SoundFile = txtWavFile.Text;
    // No path holds a quotation mark; a pasted one may stand between two, and the show's file ends a text with it.
    std::erase(config.SoundFile, '"');
    config.CDTrack = static_cast<std::int16_t>(ComboCD.ListIndex.Get());
    config.SoundLoop = CheckLoopSound.Value;
    config.SlideInterval = static_cast<std::int16_t>(ComboInterval.ListIndex.Get());
    config.RandomSlides = CheckRandom.Value;
    config.LoopSlideShow = !CheckLoopShow.Value;
    config.ShowFilenames = CheckShowFilenames.Value;
    config.ShowDescription = CheckDescriptions.Value;
    config.AnimateGIF89 = CheckAnimateGIF.Value;
    config.ShowToolbar = CheckToolbar.Value;
    config.SaveSlides = CheckCopy.Value;
    SaveSlideSettings(module_);
    if (module_.show.SlideCount > 0) module_.show.ShowChanged = true;
    App().Unload(*this);
}

}  // namespace tavrix
