#include "viewer/StartArguments.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/CommandWords.h"
#include "core/FloppyPrompt.h"
#include "core/Folders.h"
#include "core/ImageKinds.h"
#include "platform/services/DesktopStart.h"
#include "platform/services/DrivePath.h"
#include "viewer/DropFiles.h"
#include "viewer/ImageTypes.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

/// Whether a command line names an image, by its last four characters. An ending of five never matches, on purpose:
/// such a name is no command.
bool NamesImage(const std::string& command) {
    const std::string ending = UpperCase(Right(command, 4));
    return std::ranges::any_of(ImageKinds,
                               [&](const ImageKind& kind) { return kind.opens && kind.ending == ending; });
}

/// Whether the image is on show now.
bool ShowImage(MainViewFrm& view, const std::string& path) {
    try {
        view.MainImage.Picture = view.Module().platform.pictures.Load(path);
    } catch (const RuntimeError&) {
        // At the start a failure brings no message.
        view.MainImage.Picture = view.ImageDefault.Picture;
        view.imageOnShow.Forget();
        return false;
    }
    view.imageOnShow.Opened(path);
    return true;
}

/// Whether the file of a start from the desktop's menus is on show with the window's first look. What is not, and why, is
/// OpenFromDesktop's matter.
bool ShowDesktopFile(MainViewFrm& view, const DesktopStart& start) {
    MainModule& module = view.Module();
    if (start.file.empty()) return !module.CurrentImage.empty() && ShowImage(view, module.CurrentImage);
    const std::string path = FullPath(module, start.file);
    const bool isElse =
        IsImportOnly(path) || EndsInIgnoringCase(path, ".TVS") || EndsInIgnoringCase(path, ".LNK");
    return !isElse && ShowImage(view, path);
}

void ObeyCommandWord(MainViewFrm& view) {
    MainModule& module = view.Module();
    const auto* const word = CommandOf(module.CommandText);
    const auto command = word != nullptr ? std::optional(word->command) : std::nullopt;
    if (command == Command::Help) {
        module.app.MessageBox(
            {.text = "Start the program normally (don't pass command line parameters) and press the "
                     "F1 key to view help on this product..."});
        module.platform.process.End();
    } else if (command == Command::About) {
        view.StartAction = StartDialog::About;
    } else if (command == Command::SlideShowEditor) {
        view.StartAction = StartDialog::SlideShowEditor;
    } else if (command == Command::Open) {
        view.StartAction = StartDialog::Open;
    } else if (command == Command::ThumbnailBrowser) {
        view.StartAction = StartDialog::ThumbnailBrowser;
    } else {
        module.app.MessageBox(
            {.text = "An invalid command (" + module.CommandText + ") was passed at the command prompt...",
             .icon = forms::BoxIcon::Exclamation});
    }
}

}  // namespace

void ReadCommandText(MainViewFrm& view) {
    MainModule& module = view.Module();
    const std::string& command = module.CommandText;
    bool shown = false;

    if (const auto start = DesktopStartOf(command)) {
        shown = ShowDesktopFile(view, *start);
    } else if (NamesImage(command)) {
        const std::string image = FullPath(module, command);
        if (IsOnFloppy(image) && !PassesFloppyGuard(module, image, ImageOnFloppy))
            module.platform.process.End();
        shown = ShowImage(view, image);
    } else if (!command.empty()) {
        ObeyCommandWord(view);
    } else if (module.config.DisplayLastOpened && !module.CurrentImage.empty()) {
        shown = ShowImage(view, module.CurrentImage);
    }
    module.DoEvents();
    if (!module.CurrentImage.empty()) SkipFailure([&] { ChangeToFolderOf(module, module.CurrentImage); });
    // An image of the last time that was not asked for has served for its folder alone. It must not stay behind a word
    // either, even where it would be shown at a start without one: commands would work on a file that is not on show. A
    // later start without a word shows it.
    if (!shown) {
        module.LastOpenedStays = module.config.DisplayLastOpened && !module.CurrentImage.empty();
        view.imageOnShow.Forget();
    }
}

bool OpenFromDesktop(MainViewFrm& view) {
    MainModule& module = view.Module();
    const auto start = DesktopStartOf(module.CommandText);
    if (!start) return false;
    const bool shown = !module.CurrentImage.empty();
    if (!shown && !start->file.empty()) {
        // Alone, the option of the whole screen shows an image however the preferences are.
        MainImage_OLEDragDrop(view, {NormalPath(start->file)});
        if (start->option != FullScreenOption || module.config.ViewFullScreen || module.CurrentImage.empty())
            return true;
    }
    if (start->option == FullScreenOption || module.config.ViewFullScreen) view.menu.mnuFullScreen.Click();
    return true;
}

}  // namespace tavrix
