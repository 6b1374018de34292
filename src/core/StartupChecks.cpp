#include "core/StartupChecks.h"

#include <array>

#include "base/Rounding.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/DesktopSettings.h"
#include "core/Folders.h"
#include "core/HelpContexts.h"
#include "core/Settings.h"
#include "core/SettingsText.h"
#include "core/WaitFrm.h"

namespace tavrix {
namespace {

using forms::Answer;
using forms::BoxButtons;
using forms::BoxIcon;

constexpr int ColoursOf256 = 8;  ///< bits per pixel

void AskAboutColours(MainModule& module) {
    const std::string text =
        "This computer appears to be running in 256 color mode." + std::string(NewLine) +
        "( Press \"Cancel\" to stop showing this message in the future. )" + std::string(NewLine2) +
        "NOTE: " + ProductName +
        " performs best with more than 256 colors, you may need to adjust your current display "
        "settings to get photo-realistic image quality..." +
        std::string(NewLine2) +
        "Show the \"Display Properties\" dialog after the program starts, so you can make "
        "changes?";
    const Answer answer = module.app.MessageBox({.text = text,
                                                 .buttons = BoxButtons::YesNoCancel,
                                                 .help = true,
                                                 .helpContext = HelpContext::DisplayColours,
                                                 .helpFile = module.AppPath + "TAVRIX.HLP"});
    module.ShowDisplayDialog = answer == Answer::Yes;
    if (answer == Answer::Cancel) {
        // Only the file learns of it: in memory the setting stays for the rest of this run.
        const std::array<ProfileEntry, 1> entry{{{"Color256Msg", "False"}}};
        SkipFailure([&] { module.platform.profile.Write(ViewerSection, entry, SettingsFile(module)); });
    }
}

}  // namespace

void CheckDisplay(MainModule& module) {
    const forms::Screen& screen = module.Screen();
    const int bitsPerPixel = screen.BitsPerPixel();
    if (bitsPerPixel < ColoursOf256) {
        UnloadWaitWindow(module.app);
        module.app.MessageBox(
            {.text = std::string(ProductName) + " requires at least 256 colors, unable to start program...",
             .systemModal = true,
             .help = true,
             .helpContext = HelpContext::DisplayColours,
             .helpFile = module.AppPath + "TAVRIX.HLP"});
        module.platform.process.End();
    }
    if (bitsPerPixel == ColoursOf256 && module.config.Color256Msg) AskAboutColours(module);

    const auto borders = [](int pixels, float twipsPerPixel) {
        return RoundToLong(static_cast<float>(pixels) * twipsPerPixel * 2);
    };
    module.FrameWidth =
        borders(screen.Metric(forms::SystemMetric::SizingBorderWidth), screen.TwipsPerPixelX());
    module.FrameHeight =
        borders(screen.Metric(forms::SystemMetric::SizingBorderHeight), screen.TwipsPerPixelY());
}

void ProbeMultimedia(MainModule& module) {
    module.WaveDevicePresent = module.platform.sound.WaveDevices() >= 1;
    if (!module.WaveDevicePresent) module.config.SoundMode = 0;
    module.MidiDevicePresent = module.platform.sound.MidiDevices() >= 1;
    const std::string cdRoot = FindCdRomDrive(module);
    module.CdDevicePresent = !cdRoot.empty();
    if (module.config.CdRomDriveLetter.empty()) module.config.CdRomDriveLetter = cdRoot;
}

void CheckInstallPath(MainModule& module) {
    UserStore& store = module.platform.store;
    const std::string program = ProductName;
    std::string recorded = store.Get("EXEPath", "");
    if (!recorded.empty()) {
        recorded = WithBackslash(recorded);
        const std::string here = UpperCase(module.AppPath);
        if (UpperCase(recorded) != here && UpperCase(GetShortPath(module, recorded)) != here) {
            const Answer answer = module.app.MessageBox(
                {.text =
                     "The path to this program is not the same as the path found in the system registry, " +
                     program + " may have been re-installed and/or moved." + std::string(NewLine2) +
                     module.AppPath + "TAVRIX.EXE" + std::string(NewLine2) +
                     "Do you want to make this your default one?",
                 .icon = BoxIcon::Question,
                 .buttons = BoxButtons::YesNoCancel,
                 .help = true,
                 .helpContext = HelpContext::MovedProgram});
            if (answer == Answer::Yes) store.Set("EXEPath", module.AppPath);
            if (answer == Answer::Cancel) module.platform.process.End();
        }
    } else {
        module.app.MessageBox({.text = "The path to this program was not found in the system registry, " +
                                       program + " features may not have worked properly as a result." +
                                       std::string(NewLine2) + "Registry entries have been updated...",
                               .icon = BoxIcon::Exclamation,
                               .help = true,
                               .helpContext = HelpContext::MovedProgram});
        store.Set("EXEPath", module.AppPath);
    }
    module.FirstRun = store.Get("ProgramRun", "0") != "1";
    if (module.FirstRun) store.Set("ProgramRun", "1");
}

void ReadOsVersion(MainModule& module) {
    module.OsPlatformId = module.platform.system.PlatformId();
}

void ReadSaverPasswordFlag(MainModule& module) {
    constexpr int textType = 1;
    std::string text;
    SkipFailure([&] {
        const auto value = module.platform.registry.Read(DesktopKey, "ScreenSaveUsePassword");
        if (value && value->type == textType) text = value->text.substr(0, value->text.find('\0'));
    });
    module.UsePassword = text != "0";  // a missing value asks for the password, to be on the safe side
}

}  // namespace tavrix
