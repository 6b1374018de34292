#include "shows/saver/SaverSetup.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "core/RecentLists.h"
#include "core/Settings.h"
#include "core/StartupChecks.h"
#include "core/Version.h"
#include "dialogs/DialogPictures.h"
#include "dialogs/DialogWork.h"
#include "platform/forms/Application.h"
#include "shows/files/SaverFile.h"
#include "shows/library/LoadShow.h"
#include "shows/saver/CurrentSaver.h"
#include "shows/stage/StageBackground.h"

namespace tavrix {
namespace {

constexpr int LongestInterval = 60;        ///< seconds
constexpr std::int16_t UsualInterval = 5;  ///< seconds
constexpr std::int16_t NoSound = 0;
constexpr std::int16_t SoundFromFile = 1;
constexpr std::int16_t SoundFromCd = 2;
constexpr int SelfGuardingPlatform = 2;
constexpr int LongestIdle = 60;  ///< minutes
constexpr int UsualIdle = 10;    ///< minutes

}  // namespace

SaverSetup::SaverSetup(forms::Application& application, MainModule& module, SaverSurroundings surroundings)
    : Form(application, {.name = "SaverSetup"}), module_(module), surroundings_(std::move(surroundings)) {
    Caption = "Tavrix - [Screen Saver Settings]";
    HelpContext = HelpContext::SaverSettings;
    BuildHeading();
    BuildShow();
    BuildColours();
    BuildPassword();
    BuildIdle();
    BuildButtons();
    Arrange();
}

void SaverSetup::BuildHeading() {
    const auto showAbout = [this] {
        if (!module_.Busy()) surroundings_.showAbout();
    };
    Image1.AccessibleName = "Screen saver";
    Image1.Picture = DialogPicture(DialogSign::Screen, module_.Screen().TwipsPerPixelX());
    Image1.OnClick = showAbout;
    Label5.Caption = std::string(ProductName) + " Screen Saver";
    lblFrame.Caption = "A slide show that plays while nobody works.";
    lblVersion.Caption = "Version " + std::string(VersionText);
    for (forms::Label* label : {&Label5, &lblFrame, &lblVersion})
        label->OnClick = showAbout;
}

void SaverSetup::BuildShow() {
    FileFrame.Caption = "Screen saver file";
    lblCurrentFile.Literal = true;
    lblCurrentFile.ToolTip = "Click here to view full name of screen saver file.";
    lblCurrentFile.OnClick = [this] { lblCurrentFile_Click(); };
    CmdSelectFile.Caption = "Select &File";
    CmdSelectFile.ToolTip = "Choose the slide show that is to be the screen saver.";
    CmdSelectFile.OnClick = [this] { CmdSelectFile_Click(); };
    SoundFrame.Caption = "Sound:";
    OptionNoSound.Caption = "&No sound.";
    OptionNoSound.Value = true;
    OptionYesSound.Caption = "Enable &Sound.";
    lblSoundFile.Literal = true;
    lblSoundFile.ToolTip = "Click here to view full name of sound file.";
    lblSoundFile.OnClick = [this] { lblSoundFile_Click(); };
    ImagesFrame.Caption = "Images";
    CheckStartLast.Caption = "Start at last image &displayed.";
    CheckRandom.Caption = "Choose &random image order.";
    lblInterval.Caption = "&Interval:";
    lblInterval.SetBuddy(ComboInterval);
}

void SaverSetup::BuildColours() {
    ColorFrame.Caption = "Background color";
    constexpr std::array captions{"&Black", "&White", "S&ystem", "Dark B&lue", "Dark R&ed", "Dark Bro&wn"};
    const auto options = Colours();
    for (std::size_t i = 0; i < options.size(); ++i) {
        options[i]->Caption = captions[i];
        options[i]->OnClick = [this, i] { lblColor.BackColor = StageBackground(static_cast<int>(i)); };
    }
    lblColor.ToolTip = "Click here for the next color.";
    lblColor.OnClick = [this] { lblColor_Click(); };
}

void SaverSetup::BuildPassword() {
    PasswordFrame.Caption = "Password";
    lblPassDelay.Caption = "&Password Delay:";
    lblPassDelay.SetBuddy(ComboPassDelay);
    ComboPassDelay.ToolTip = "How long the screen saver ends without the password.";
    CmdPassChange.Caption = "Ch&ange";
    CmdPassChange.ToolTip = "Where the password is changed, and whether it is asked for.";
    CmdPassChange.OnClick = [this] { CmdPassChange_Click(); };
    lblPassMsg.WordWrap = true;
}

void SaverSetup::BuildIdle() {
    IdleFrame.Caption = "Start";
    CheckIdle.Caption = "S&tart by itself when nobody has worked for";
    CheckIdle.ToolTip = "For a desktop that starts no screen savers.";
    CheckIdle.OnClick = [this] { CheckIdle_Click(); };
    ComboIdle.AccessibleName = "Time without work";
    ComboIdle.Enabled = false;
    for (int minutes = 1; minutes <= LongestIdle; ++minutes)
        ComboIdle.AddItem(std::to_string(minutes) + (minutes == 1 ? " minute" : " minutes"));
}

void SaverSetup::BuildButtons() {
    CmdOK.Caption = "&OK";
    CmdOK.ToolTip = "Save the settings.";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Close this window, don't change anything.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::SaverSettings); };
}

void SaverSetup::Arrange() {
    using namespace forms;
    constexpr float pathWidth = 4500;
    constexpr float soundWidth = 2400;
    constexpr float line = 285;
    constexpr float swatch = 750;
    const Layout heading = Row({Image1, Growing(Column({Label5, lblFrame, lblVersion}))});
    const Layout file =
        Group(FileFrame, {Row({Growing(AtLeast(pathWidth, line, lblCurrentFile)), CmdSelectFile})});
    const Layout sound = Group(
        SoundFrame, {OptionNoSound, OptionYesSound, AtLeast(soundWidth, line, lblSoundFile), Stretch()});
    const Layout images = Group(
        ImagesFrame, {CheckStartLast, CheckRandom, Row({lblInterval, ComboInterval, Stretch()}), Stretch()});
    const Layout colours =
        Group(ColorFrame, {Row({Grid(2, {Option1, Option4, Option2, Option5, Option3, Option6}),
                                Growing(AtLeast(swatch, swatch, lblColor))})});
    const Layout password =
        Group(PasswordFrame, {Row({lblPassDelay, ComboPassDelay, Stretch(), CmdPassChange}),
                              AtLeast(soundWidth, 2 * line, lblPassMsg)});
    const Layout idle = Group(IdleFrame, {Row({CheckIdle, ComboIdle, Stretch()})});
    SetLayout(Column({heading, file, Row({Growing(sound), Growing(images)}),
                      Row({Growing(colours), Growing(password)}), idle,
                      Row({Stretch(), CmdOK, CmdCancel, CmdHelp})}));
}

void SaverSetup::Form_Load() {
    std::string file;
    SkipFailure([&] { file = module_.platform.store.Get(CurrentSaver, ""); });
    SetCurrentFile(WithUpperFirst(file));
    for (const char* delay : {"None", "5 Sec.", "10 Sec.", "30 Sec.", "1 Min."})
        ComboPassDelay.AddItem(delay);
    ComboPassDelay.ListIndex = std::clamp<int>(module_.config.PasswordDelay, 0, 4);
    ShowPassword();
    ShowIdle();
    ComboInterval.AddItem("1 second");
    for (int seconds = 2; seconds <= LongestInterval; ++seconds)
        ComboInterval.AddItem(std::to_string(seconds) + " seconds");
    ShowInterval();
    const auto colour = static_cast<std::size_t>(std::clamp<int>(module_.config.BackgroundColor, 0, 5));
    Colours()[colour]->Value = true;
    if (!file.empty()) ReadCurrentFile();
    CheckStartLast.Value = module_.config.ResumeLastDisplayed;
    InitHelp(module_);
    module_.Screen().MousePointer = forms::MousePointer::Default;  // the start is over
}

void SaverSetup::Form_Unload(bool&) {
    CloseHelp(module_);
}

void SaverSetup::ReadCurrentFile() {
    const ReadShowResult read = ReadSaverFile(module_, lblCurrentFile.Caption);
    fileRead_ = read.toTheEnd;
    if (read.Refused()) return;
    ShowSound();
    ShowInterval();
    CheckRandom.Value = module_.config.RandomSlides;
}

void SaverSetup::ShowSound() {
    const AppConfig& config = module_.config;
    const bool disc = config.SoundMode == SoundFromCd;
    const bool named = !config.SoundFile.empty() || disc;
    OptionNoSound.Value = true;
    SoundFrame.Caption = "Sound:";
    if (!module_.WaveDevicePresent) {
        SoundFrame.Caption = "Sound: (disabled)";
    } else if (disc || config.SoundMode == SoundFromFile) {
        OptionYesSound.Value = true;
    }
    if (!named) {
        OptionNoSound.Value = true;
        SoundFrame.Caption = "Sound: (no file specified)";
    }
    for (forms::OptionButton* option : {&OptionNoSound, &OptionYesSound})
        option->Enabled = named && module_.WaveDevicePresent;
    lblSoundFile.Caption = config.SoundFile;
    if (!disc) return;
    lblSoundFile.Caption =
        config.CDTrack == 0 ? "Play All CD Tracks" : "Play CD Track " + std::to_string(config.CDTrack);
}

void SaverSetup::ShowInterval() {
    std::int16_t& interval = module_.config.SlideInterval;
    if (interval == 0) interval = UsualInterval;
    ComboInterval.ListIndex = std::clamp<int>(interval, 1, LongestInterval) - 1;
}

void SaverSetup::ShowPassword() {
    if (module_.OsPlatformId != SelfGuardingPlatform) {
        ReadSaverPasswordFlag(module_);
        lblPassMsg.Caption = module_.UsePassword ? "The password of your account is asked for."
                                                 : "No password is asked for: see Change.";
        return;
    }
    lblPassDelay.Enabled = false;
    ComboPassDelay.Enabled = false;
    CmdPassChange.Enabled = false;
    lblPassMsg.Caption = "Feature disabled: locking the screen is left to the desktop.";
}

void SaverSetup::ShowIdle() {
    std::optional<int> minutes;
    bool known = false;
    SkipFailure([&] {
        if (surroundings_.idleStart == nullptr) return;
        minutes = surroundings_.idleStart->Minutes();
        known = true;
    });
    ComboIdle.ListIndex = std::clamp(minutes.value_or(UsualIdle), 1, LongestIdle) - 1;
    CheckIdle.Value = minutes.has_value();
    CheckIdle.Enabled = known;
    shownIdle_ = ChosenIdle();
}

void SaverSetup::CheckIdle_Click() {
    ComboIdle.Enabled = CheckIdle.Value;
}

std::optional<int> SaverSetup::ChosenIdle() const {
    if (!CheckIdle.Value) return std::nullopt;
    return ComboIdle.ListIndex + 1;
}

void SaverSetup::lblCurrentFile_Click() {
    const std::string& file = lblCurrentFile.Caption;
    App().MessageBox(
        {.text = file.empty()
                     ? "A screen saver file has not been selected yet, unable to view name of file..."
                     : "Current screen saver file:" + std::string(NewLine2) + file});
}

void SaverSetup::lblSoundFile_Click() {
    const std::string& sound = lblSoundFile.Caption;
    std::string text = "Current sound file:" + std::string(NewLine2) + sound;
    if (lblCurrentFile.Caption.Get().empty()) {
        text = "A screen saver file has not been selected yet, unable to view name of sound file...";
    } else if (sound.empty()) {
        text = "The selected screen saver did not come with a sound file...";
    }
    App().MessageBox({.text = text});
}

int SaverSetup::ChosenColour() {
    const auto options = Colours();
    const auto chosen =
        std::ranges::find_if(options, [](const forms::OptionButton* option) { return option->Value.Get(); });
    return static_cast<int>(chosen - options.begin());
}

void SaverSetup::lblColor_Click() {
    const auto options = Colours();
    options[static_cast<std::size_t>(ChosenColour() + 1) % options.size()]->Value = true;
}

void SaverSetup::CmdSelectFile_Click() {
    if (module_.Busy()) return;
    SaverTarget target(module_, *this);
    LoadShow(module_, target);
}

void SaverSetup::CmdPassChange_Click() {
    if (module_.Busy()) return;
    SkipFailure([&] { module_.platform.saverPassword.Change(); });
    if (!Unloaded()) ShowPassword();
}

void SaverSetup::CmdOK_Click() {
    DialogWork work(*this, module_, DialogWork::Dialog::Stays);
    if (!work) return;
    std::string file = lblCurrentFile.Caption;
    if (file.empty()) {
        App().MessageBox(
            {.text = "A screen saver file has not been selected yet, unable to save changes..."});
        return;
    }
    try {
        module_.platform.store.Set(CurrentSaver, file);
    } catch (const RuntimeError& error) {
        TellFailure(module_, "Unable to save Screen Saver.", error);
        return;
    }
    module_.config.LastSlideShow = file;
    ListRecentShow(module_, file);
    TakeOptionsOfSaver();
    SaveSaverSettings(module_);
    TakeOptionsOfShow();
    SaveShow();
    SaveIdle();
    work.Release();
    App().Unload(*this);
}

void SaverSetup::TakeOptionsOfSaver() {
    AppConfig& config = module_.config;
    config.BackgroundColor = static_cast<std::int16_t>(ChosenColour());
    config.ResumeLastDisplayed = CheckStartLast.Value;
    config.PasswordDelay = static_cast<std::int16_t>(ComboPassDelay.ListIndex.Get());
}

void SaverSetup::TakeOptionsOfShow() {
    AppConfig& config = module_.config;
    // A sound that cannot be heard on this machine stays the show's.
    const bool unheard = !module_.WaveDevicePresent && !lblSoundFile.Caption.Get().empty();
    if (OptionNoSound.Value && !unheard) config.SoundMode = NoSound;
    config.SlideInterval = static_cast<std::int16_t>(ComboInterval.ListIndex + 1);
    config.RandomSlides = CheckRandom.Value;
}

void SaverSetup::SaveShow() {
    const std::string file = lblCurrentFile.Caption;
    if (fileRead_) {
        WriteSaverFile(module_, file);
    } else {  // the slides that the window has are not those of the file
        TellFailure(module_, "Unable to save Screen Saver.", RuntimeError(ErrorNumber::PathFileAccessError));
    }
}

void SaverSetup::SaveIdle() {
    // A time that the window cannot show stays as it is, unless another one is chosen.
    if (ChosenIdle() == shownIdle_) return;
    try {
        surroundings_.idleStart->Set(ChosenIdle());
    } catch (const RuntimeError& error) {
        TellFailure(module_, "Unable to change when the screen saver starts.", error);
    }
}

}  // namespace tavrix
