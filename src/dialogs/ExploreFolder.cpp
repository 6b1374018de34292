#include "dialogs/ExploreFolder.h"

#include "base/RuntimeError.h"

namespace tavrix {

bool StartExplorer(const MainModule& module, const std::string& folder) {
    // Only a root keeps its backslash.
    constexpr std::size_t rootLength = 3;
    std::string shown = folder;
    if (shown.size() > rootLength && shown.ends_with('\\')) shown.pop_back();
    if (!shown.empty()) shown.insert(0, " ");
    bool started = false;
    SkipFailure([&] { started = module.platform.shell.Run("explorer.exe" + shown); });
    return started;
}

void ExploreFolder(const MainModule& module, const std::string& folder) {
    if (StartExplorer(module, folder)) return;
    module.app.MessageBox({.text = "Error, unable to start Windows Explorer to show selected directory.",
                           .icon = forms::BoxIcon::Stop});
}

}  // namespace tavrix
