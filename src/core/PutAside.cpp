#include "core/PutAside.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"

namespace tavrix {
namespace {

std::string FreeBackupPath(const MainModule& module, const std::string& path) {
    constexpr std::size_t charactersThatFit = 50;  // into a name of 255 bytes
    const std::string start = module.AppPath + "Backup of " + Left(FileNameOf(path), charactersThatFit) + " ";
    for (int number = 1;; ++number) {
        const std::string free = start + std::to_string(number) + ".bak";
        if (!IsThere(module.platform.files, free)) return free;
    }
}

/// Fills the part as far as the file goes; the bytes that came.
std::span<const std::byte> ReadPart(FileReader& file, std::span<std::byte> part) {
    std::size_t filled = 0;
    while (filled < part.size()) {
        const std::size_t count = file.Read(part.subspan(filled));
        if (count == 0) break;
        filled += count;
    }
    return part.first(filled);
}

}  // namespace

void PutAside(const MainModule& module, const std::string& path) {
    Files& files = module.platform.files;
    const std::string full = FullPath(module, path);
    static_cast<void>(files.Create(full));
    try {
        module.platform.shell.Trash(full);
    } catch (const RuntimeError&) {
        files.Copy(full, FreeBackupPath(module, full));
    }
}

bool IsThere(Files& files, const std::string& path) {
    try {
        static_cast<void>(files.Info(path));
        return true;
    } catch (const RuntimeError& error) {
        if (error.Number() == ErrorNumber::FileNotFound || error.Number() == ErrorNumber::PathNotFound)
            return false;
        throw;
    }
}

bool SameContent(Files& files, const std::string& first, const std::string& second, const GoOn& goOn) {
    constexpr std::size_t Part = std::size_t{256} << 10U;
    const std::unique_ptr<FileReader> a = files.Open(first);
    std::unique_ptr<FileReader> b;
    std::vector<std::byte> partOfA(Part);
    std::vector<std::byte> partOfB(Part);
    bool readable = false;
    SkipFailure([&] {
        b = files.Open(second);
        readable = files.Info(first).length == files.Info(second).length;
    });
    while (readable) {
        const auto readA = ReadPart(*a, partOfA);
        readable = false;
        bool same = false;
        SkipFailure([&] { same = std::ranges::equal(readA, ReadPart(*b, partOfB)); });
        if (!same) return false;
        if (readA.size() < Part) return true;
        readable = !goOn || goOn();
    }
    return false;
}

}  // namespace tavrix
