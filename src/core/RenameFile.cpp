#include "core/RenameFile.h"

#include "base/RuntimeError.h"

namespace tavrix {

void RenameFile(Files& files, const std::string& from, const std::string& to) {
    if (files.FileExists(to) || files.FolderExists(to)) throw RuntimeError(ErrorNumber::FileAlreadyExists);
    files.Copy(from, to);
    try {
        files.Delete(from);
    } catch (const RuntimeError&) {
        // Whether the former one is gone all the same has to be known before the only copy is taken away.
        if (files.FileExists(from)) SkipFailure([&] { files.Delete(to); });
        throw;
    }
}

}  // namespace tavrix
