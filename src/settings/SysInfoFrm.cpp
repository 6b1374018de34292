#include "settings/SysInfoFrm.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "core/HelpContexts.h"
#include "core/NumberText.h"
#include "core/SystemDialogs.h"

namespace tavrix {
namespace {

constexpr const char* Unknown = "Unknown";

std::string ColorsText(int bitsPerPixel) {
    switch (bitsPerPixel) {
        case 8:
            return "256 (8 bit color)";
        case 16:
            return "64,000 (16 bit, High Color)";
        case 24:
            return "16 million (24 bit, True Color)";
        default:
            return bitsPerPixel > 24 ? "> 16 million (32 bit or higher)" : Unknown;
    }
}

std::string YesOrNo(bool present) {
    return present ? "Yes" : "No";
}

}  // namespace

SysInfoFrm::SysInfoFrm(forms::Application& application, MainModule& module)
    : Form(application, {.name = "SysInfoFrm"}), module_(module) {
    Caption = "System Information";
    HelpContext = HelpContext::SystemInformation;
    FrameDisplay.Caption = "Display Settings:";
    lblWidthName.Caption = "Width:";
    lblHeightName.Caption = "Height:";
    lblColorsName.Caption = "Colors:";
    lblNote.Caption = "NOTE:";
    lblNoteMsg.Caption =
        "You should set your current display mode to more than 256 colors -- this program will look and "
        "perform "
        "better as a result...";
    lblNoteMsg.WordWrap = true;
    lblNote.Visible = lblNoteMsg.Visible = Has256Colors();
    FrameMemory.Caption = "Memory Status:";
    lblTPName.Caption = "Total Physical:";
    lblAPName.Caption = "Available Physical:";
    lblTVName.Caption = "Total Virtual:";
    lblAVName.Caption = "Available Virtual:";
    FrameMultimedia.Caption = "Multimedia Devices:";
    lblWaveAudioName.Caption = "Digital Audio:";
    lblMIDIName.Caption = "MIDI Synthesizer:";
    lblCDAudioName.Caption = "CD Audio:";
    FrameTemp.Caption = "Temporary Files Folder:";
    lblTempDir.Literal = true;
    lblTempDir.ToolTip = "Click here to view the full path of the folder.";
    lblTempDir.OnClick = [this] { lblTempDir_Click(); };
    CmdSettings.Caption = "&Display...";
    CmdSettings.OnClick = [this] { OpenDisplayProperties(module_); };
    CmdMultimedia.Caption = "&Multimedia...";
    CmdMultimedia.OnClick = [this] { OpenMultimediaProperties(module_); };
    CmdOK.Caption = "&OK";
    CmdOK.Default = true;
    CmdOK.Cancel = true;
    CmdOK.OnClick = [this] { App().Unload(*this); };
    BuildLayout();
}

void SysInfoFrm::BuildLayout() {
    using namespace forms;
    constexpr float noteWidth = 3000;
    constexpr float pathWidth = 3000;
    const Layout figures =
        Grid(2, {lblWidthName, lblWidth, lblHeightName, lblHeight, lblColorsName, lblColors});
    const Layout display =
        Has256Colors()
            ? Group(FrameDisplay, {figures, Row({lblNote, Growing(AtLeast(noteWidth, 0, lblNoteMsg))})})
            : Group(FrameDisplay, {figures});
    const Layout memory = Group(
        FrameMemory, {Grid(2, {lblTPName, lblTP, lblAPName, lblAP, lblTVName, lblTV, lblAVName, lblAV})});
    const Layout sound =
        Group(FrameMultimedia,
              {Grid(2, {lblWaveAudioName, lblWaveAudio, lblMIDIName, lblMIDI, lblCDAudioName, lblCDAudio})});
    SetLayout(Column({display, Row({Growing(memory), Growing(sound)}),
                      Group(FrameTemp, {AtLeast(pathWidth, 0, lblTempDir)}),
                      Row({CmdSettings, CmdMultimedia, Stretch(), CmdOK})}));
}

bool SysInfoFrm::Has256Colors() const {
    return module_.Screen().BitsPerPixel() == 8;
}

void SysInfoFrm::Form_Load() {
    const forms::ScreenInfo screen = module_.Screen().Info();
    lblWidth.Caption = std::to_string(screen.width) + " pixels";
    lblHeight.Caption = std::to_string(screen.height) + " pixels";
    lblColors.Caption = ColorsText(screen.bitsPerPixel);
    ShowMemory();
    lblWaveAudio.Caption = YesOrNo(module_.WaveDevicePresent);
    lblMIDI.Caption = YesOrNo(module_.MidiDevicePresent);
    lblCDAudio.Caption = YesOrNo(module_.CdDevicePresent);
    lblTempDir.Caption = GetTempFolder(module_);
}

void SysInfoFrm::ShowMemory() {
    MemoryFigures memory;
    NumberFormat format;
    SkipFailure([&] { memory = module_.platform.system.Memory(); });
    SkipFailure([&] { format = module_.platform.system.Numbers(); });
    const auto text = [&](std::int64_t bytes) {
        constexpr std::int64_t kilobyte = 1024;
        return memory.total > 0 ? GroupedNumber(bytes / kilobyte, format) + " KB" : Unknown;
    };
    lblTP.Caption = text(memory.total);
    lblAP.Caption = text(memory.available);
    lblTV.Caption = text(memory.virtualTotal);
    lblAV.Caption = text(memory.virtualAvailable);
}

void SysInfoFrm::lblTempDir_Click() {
    App().MessageBox({.text = "Complete path to your temporary files folder:" + std::string(NewLine2) +
                              GetTempFolder(module_)});
}

}  // namespace tavrix
