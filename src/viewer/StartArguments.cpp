#include "viewer/StartArguments.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FloppyPrompt.h"
#include "core/Folders.h"
#include "core/ImageKinds.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

using namespace std::string_view_literals;

constexpr std::array HelpWords{"?"sv, "HELP"sv, "H"sv};
constexpr std::array AboutWords{"ABOUT"sv, "A"sv};
constexpr std::array EditorWords{"SHOW"sv, "S"sv, "SLIDE"sv, "SLIDE SHOW"sv, "SLIDES"sv};
constexpr std::array OpenWords{"OPEN"sv, "O"sv};
constexpr std::array ThumbnailWords{"THUMBNAIL"sv, "T"sv};

/// Whether a command line names an image, by its last four characters. An ending of five never matches, on purpose:
/// such a name is no command.
bool NamesImage(const std::string& command) {
    const std::string ending = UpperCase(Right(command, 4));
    return std::ranges::any_of(ImageKinds,
                               [&](const ImageKind& kind) { return kind.opens && kind.ending == ending; });
}

bool IsOneOf(const std::string& word, std::span<const std::string_view> words) {
    return std::ranges::find(words, word) != words.end();
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

void ObeyCommandWord(MainViewFrm& view) {
    MainModule& module = view.Module();
    const std::string word = UpperCase(module.CommandText);
    if (IsOneOf(word, HelpWords)) {
        module.app.MessageBox(
            {.text = "Start the program normally (don't pass command line parameters) and press the "
                     "F1 key to view help on this product..."});
        module.platform.process.End();
    } else if (IsOneOf(word, AboutWords)) {
        view.StartAction = StartDialog::About;
    } else if (IsOneOf(word, EditorWords)) {
        view.StartAction = StartDialog::SlideShowEditor;
    } else if (IsOneOf(word, OpenWords)) {
        view.StartAction = StartDialog::Open;
    } else if (IsOneOf(word, ThumbnailWords)) {
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
    view.StartAction = StartDialog::None;
    bool shown = false;

    if (NamesImage(command)) {
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

}  // namespace tavrix
