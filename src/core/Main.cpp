#include "core/Main.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/CommandWords.h"
#include "core/FileServices.h"
#include "core/FloppyPrompt.h"
#include "core/HelpCommands.h"
#include "core/Settings.h"
#include "core/StartupChecks.h"
#include "core/WaitFrm.h"
#include "platform/services/DesktopStart.h"
#include "platform/services/DrivePath.h"

namespace tavrix {
namespace {

using forms::BoxIcon;

constexpr std::string_view SaverWord = WordOf(Command::Saver);
constexpr const char* SaverTitle = "Screen Saver Main Form";
constexpr const char* SaverSettingsTitle = "Tavrix - [Screen Saver Settings]";

bool StartsSaver(const std::string& text) {
    return text.starts_with(SaverWord);
}

/// The start of one process. Each step reports its own failure and the next one follows.
class StartUp {
  public:
    StartUp(MainModule& module, const Lives& lives) : module_(module), lives_(lives) {}

    void Run() {
        module_.Screen().MousePointer = forms::MousePointer::Hourglass;
        module_.DoEvents();
        Announce();
        Step([&] { module_.AppPath = WithBackslash(module_.platform.process.Path()); }, false);
        Step([&] { LoadSettings(module_); });
        Step([&] { CheckDisplay(module_); });
        Step([&] { ProbeMultimedia(module_); });
        Step([&] { InitHelp(module_); });
        Step([&] { CloseHelp(module_); });  // a help window that an earlier process left
        Step([&] { CheckInstallPath(module_); });
        Step([&] { ReadOsVersion(module_); }, false);
        Step([&] { ReadCommandLine(); }, false);
        Step([&] { LeadALife(); }, false);
    }

  private:
    /// The wait window, or for a saver the test for one that runs already.
    void Announce() {
        if (StartsSaver(module_.platform.process.CommandLine())) {
            if (WindowExists(module_, SaverTitle)) module_.platform.process.End();
            ReadSaverPasswordFlag(module_);
            return;
        }
        auto& wait = module_.app.Load<WaitFrm>();
        wait.lblMsg.Caption = "Loading Tavrix, please wait...";
        wait.Show();
        module_.DoEvents();
    }

    template <class Statement>
    void Step(Statement statement, bool letMessagesRun = true) {
        try {
            statement();
        } catch (const RuntimeError& error) {
            module_.app.MessageBox(
                {.text = "An error occurred while starting Tavrix, will try to continue anyway." +
                         std::string(NewLine2) + error.Description() + "...",
                 .icon = BoxIcon::Stop,
                 .systemModal = true});
        }
        if (letMessagesRun) module_.DoEvents();
    }

    void ReadCommandLine() {
        std::string& text = module_.CommandText;
        text = module_.platform.process.CommandLine();
        if (text.starts_with('/')) text.erase(0, 1);
        module_.StartedAsShow = false;
        module_.ScreenSaverMode = false;
        if (StartsSaver(text)) {
            text = Trim(From(text, SaverWord.size()));
            module_.ScreenSaverMode = true;
        }
        if (text == OpenOption) text.clear();
    }

    void LeadALife() {
        const std::string& text = module_.CommandText;
        if (DesktopStartOf(text)) {  // also where the file is a show
            lives_.ShowMainView();
        } else if (EqualIgnoringCase(Trim(text), WordOf(Command::SaverSettings))) {
            LeadSaverSettings();
        } else if (EndsInIgnoringCase(text, ".TVS")) {
            LeadShow();
        } else if (module_.ScreenSaverMode) {
            EndWithoutWindow();
        } else {
            lives_.ShowMainView();
        }
    }

    void LeadSaverSettings() {
        if (WindowExists(module_, SaverTitle) || WindowExists(module_, SaverSettingsTitle))
            EndWithoutWindow();
        module_.ScreenSaverMode = true;
        UnloadWaitWindow(module_.app);
        Step([&] { lives_.ShowSaverSetup(); }, false);
        module_.platform.process.End();
    }

    void LeadShow() {
        const std::string path = NormalPath(module_.CommandText);
        if (IsOnFloppy(path) && !PassesFloppyGuard(module_, path, ShowOnFloppy)) EndWithoutWindow();
        bool holdsSlides = false;
        Step([&] { holdsSlides = lives_.LoadShowFile(path); }, false);
        if (!holdsSlides) {
            if (module_.ScreenSaverMode) {
                module_.app.MessageBox(
                    {.text = "There are no pictures in this screen saver to view...", .systemModal = true});
            } else {
                module_.app.MessageBox({.text = "There are no pictures in this slide show to view..."});
            }
            EndWithoutWindow();
        }
        Step([&] { module_.platform.files.ChangeDrive(Left(path, 2)); }, false);
        Step([&] { module_.platform.files.ChangeFolder(FolderOf(path)); }, false);
        module_.SlideShowActive = true;
        module_.StartedAsShow = true;
        UnloadWaitWindow(module_.app);
        lives_.ShowStage();
    }

    void EndWithoutWindow() {
        UnloadWaitWindow(module_.app);
        module_.platform.process.End();
    }

    MainModule& module_;
    const Lives& lives_;
};

}  // namespace

void Main(MainModule& module, const Lives& lives) {
    StartUp(module, lives).Run();
}

}  // namespace tavrix
