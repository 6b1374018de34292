#include "dialogs/FindWalk.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {

FindWalk::FindWalk(const MainModule& module, std::string patterns, const bool& cancelled)
    : module_(module), patterns_(std::move(patterns)), cancelled_(cancelled) {}

void FindWalk::Walk(const std::string& folder) {
    lastBreath_ = module_.app.GetToolkit().Now();
    // Not by recursion: how deep folders lie in each other is not ours to decide.
    std::vector<Level> levels;
    if (!cancelled_) levels.push_back(Read(folder));
    while (!levels.empty()) {
        Breathe();
        if (cancelled_) return;
        Level& level = levels.back();
        if (level.next < level.subfolders.size()) {
            levels.push_back(Read(WithBackslash(level.subfolders[level.next++])));
            continue;
        }
        if (!level.files.empty()) OnFiles(level.folder, level.files, level.numbers);
        levels.pop_back();
    }
}

void FindWalk::Require(const std::string& folder) {
    lastBreath_ = module_.app.GetToolkit().Now();
    static_cast<void>(Look(folder));
}

FindWalk::Level FindWalk::Look(const std::string& folder) {
    const std::unique_ptr<FolderLook> look = module_.platform.files.Look(folder, patterns_);
    while (!look->Wait(static_cast<int>(Breath.count()))) {
        Breathe();
        if (cancelled_) return {};
    }
    FolderContent content = look->Take();
    return {.folder = folder,
            .subfolders = std::move(content.folders),
            .files = std::move(content.files),
            .numbers = std::move(content.numbers)};
}

FindWalk::Level FindWalk::Read(const std::string& folder) {
    Level level{.folder = folder};
    SkipFailure([&] { level = Look(folder); });
    level.subfolders.resize(std::min(level.subfolders.size(), MostSubfolders));
    return level;
}

void FindWalk::Breathe() {
    const forms::Milliseconds now = module_.app.GetToolkit().Now();
    if (now - lastBreath_ < Breath) return;
    OnBreath();
    module_.DoEvents();
    lastBreath_ = module_.app.GetToolkit().Now();
}

}  // namespace tavrix
