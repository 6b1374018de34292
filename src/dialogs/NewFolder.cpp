#include "dialogs/NewFolder.h"

#include <optional>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"

namespace tavrix {
namespace {

void Refuse(const MainModule& module, const char* text) {
    module.app.MessageBox({.text = text, .icon = forms::BoxIcon::Exclamation});
}

/// A usable name; nothing when the user gave up.
std::optional<std::string> AskForName(const MainModule& module, const NewFolderWords& words) {
    std::string offered = words.name;
    for (;;) {
        const std::string answer = module.app
                                       .InputBox({.prompt = "Enter the name of the folder to create:",
                                                  .title = words.title,
                                                  .text = offered})
                                       .value_or("");
        if (answer.empty()) return std::nullopt;
        if (words.offersAnswer) offered = answer;
        std::string name = Trim(answer);
        if (name.starts_with('\\')) name.erase(0, 1);
        if (name.ends_with('\\')) name.pop_back();
        if (name.empty()) {
            Refuse(module, "A folder name was not entered, try again...");
        } else if (name.find('\\') != std::string::npos) {
            Refuse(module, "You may not use the \\ character in a folder name, enter folder name again...");
        } else if (name.find('/') != std::string::npos) {
            Refuse(module, "You may not use the / character in a folder name, enter folder name again...");
        } else if (name.find(':') != std::string::npos) {
            Refuse(module, "You may not use the : character in a folder name, enter folder name again...");
        } else {
            return name;
        }
    }
}

}  // namespace

void CmdNewFolder_Click(const MainModule& module, FolderLists& lists, const NewFolderWords& words) {
    if (module.Busy()) return;  // a second press while the folder of the first is being made
    const std::optional<std::string> name = AskForName(module, words);
    if (!name) return;
    const auto tell = [&module](const RuntimeError& error) {
        TellFailure(module, "Unable to create folder.", error);
    };
    std::optional<RuntimeError> failure;
    {
        const forms::BusyGuard busy(module.Screen());
        module.DoEvents();
        try {
            const std::string folder = lists.Folder() + *name;
            module.platform.files.MakeFolder(folder);
            lists.Show(folder, tell);
        } catch (const RuntimeError& error) {
            failure = error;
        }
    }
    if (failure) tell(*failure);
}

}  // namespace tavrix
