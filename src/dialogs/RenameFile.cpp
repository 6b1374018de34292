#include "dialogs/RenameFile.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/FileServices.h"

namespace tavrix {
namespace {

/// The name with its ending; nothing when the user gave up.
std::optional<std::string> AskForName(const MainModule& module, const std::string& path,
                                      const RenameWords& words) {
    constexpr std::size_t EndingLength = 4;
    const std::string name = FileNameOf(path);
    const std::string ending = Right(name, EndingLength);
    std::optional<std::string> answer =
        module.app.InputBox({.prompt = path + std::string(NewLine2) + "Enter a new name for the file:",
                             .title = words.title,
                             .text = name});
    if (!answer || answer->empty()) return std::nullopt;
    const std::string entered = Right(*answer, EndingLength);
    const bool same = words.endingInAnyCase ? EqualIgnoringCase(entered, ending) : entered == ending;
    if (!same) *answer += ending;
    return answer;
}

/// Why a name cannot be taken; empty where it can.
std::string Refusal(const MainModule& module, const std::string& path, const std::string& name) {
    Files& files = module.platform.files;
    if (name.find_first_of(":\\/") != std::string::npos)
        return "You may not include a path in the filename, unable to rename file...";
    if (EqualIgnoringCase(name, FileNameOf(path)))
        return "The new filename is the same as the current one, unable to rename file...";
    if (files.FileExists(FolderOf(path) + name) || files.FolderExists(FolderOf(path) + name))
        return "The filename that was specified already exists, unable to rename file...";
    return {};
}

}  // namespace

std::optional<std::string> RenameFile(const MainModule& module, const std::string& path,
                                      const RenameWords& words) {
    const std::optional<std::string> name = AskForName(module, path, words);
    if (!name) return std::nullopt;
    if (const std::string refusal = Refusal(module, path, *name); !refusal.empty()) {
        module.app.MessageBox({.text = refusal, .title = words.title});
        return std::nullopt;
    }
    std::string renamed = FolderOf(path) + *name;
    try {
        const forms::BusyGuard busy(module.Screen());
        RequireExactly(module, path);
        module.platform.files.Rename(path, renamed);
    } catch (const RuntimeError& error) {
        module.app.MessageBox({.text = FailureText(words.failure + *name, error),
                               .title = words.title,
                               .icon = forms::BoxIcon::Stop});
        return std::nullopt;
    }
    return renamed;
}

}  // namespace tavrix
