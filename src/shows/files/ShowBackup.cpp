#include "shows/files/ShowBackup.h"

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {
namespace {

/// A name in a folder that no file has; empty when there are too many already.
std::string FreeBackupName(Files& files, const std::string& folder, const std::string& name) {
    constexpr int mostBackups = 99;
    for (int number = 1; number <= mostBackups; ++number) {
        const std::string which = number == 1 ? "" : "(" + std::to_string(number) + ") ";
        std::string path = folder + "Backup " + which + "of " + name;
        if (!files.FileExists(path)) return path;
    }
    return {};
}

}  // namespace

ShowBackup::ShowBackup(const MainModule& module, const std::string& path) : module_(module) {
    SkipFailure([&] {
        Files& files = module_.platform.files;
        if (!files.FileExists(path) || files.Info(path).length == 0) return;
        const std::string copy = FreeBackupName(files, module_.AppPath, FileNameOf(path));
        if (copy.empty()) return;
        files.Copy(path, copy);
        copy_ = copy;
    });
}

void ShowBackup::Discard() {
    if (!copy_.empty()) SkipFailure([&] { module_.platform.files.Delete(copy_); });
    copy_.clear();
}

}  // namespace tavrix
