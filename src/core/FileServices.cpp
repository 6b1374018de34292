#include "core/FileServices.h"

#include <array>
#include <cstddef>
#include <span>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"

namespace tavrix {

std::string GifSignature(const MainModule& module, const std::string& path) {
    std::array<char, 6> start{};
    std::size_t read = 0;
    const auto reader = module.platform.files.Open(path);
    while (read < start.size()) {
        const std::size_t count = reader->Read(std::as_writable_bytes(std::span(start).subspan(read)));
        if (count == 0) break;
        read += count;
    }
    return {start.data(), read};
}

bool IsGif89File(const MainModule& module, const std::string& path) {
    if (!module.config.AnimateGIF89 || !EndsInIgnoringCase(path, ".GIF")) return false;
    std::string signature;
    SkipFailure([&] { signature = GifSignature(module, path); });
    return UpperCase(signature) == "GIF89A";
}

void RequireExactly(const MainModule& module, const std::string& path) {
    if (module.platform.files.HasExactly(path)) return;
    // A drive without a disk is told as that.
    static_cast<void>(module.platform.files.Info(path));
    throw RuntimeError(ErrorNumber::FileNotFound);
}

bool WindowExists(const MainModule& module, const std::string& title) {
    bool exists = false;
    SkipFailure([&] { exists = module.platform.system.WindowExists(title); });
    return exists;
}

std::string ResolveLink(const MainModule& module, const std::string& path) {
    std::string target;
    SkipFailure([&] { target = module.platform.shell.ResolveLink(path); });
    return target;
}

Deletion DeleteToBin(const MainModule& module, const std::string& path, bool confirm) {
    const bool toBin = module.config.UseRecycleBin;
    if (confirm) {
        const std::string question =
            toBin ? "Are you sure you want to send the following file to the Recycle Bin?"
                  : "Are you sure you want to delete the following file?";
        const forms::Answer answer = module.app.MessageBox({.text = question + std::string(NewLine2) + path,
                                                            .icon = forms::BoxIcon::Question,
                                                            .buttons = forms::BoxButtons::YesNo});
        if (answer != forms::Answer::Yes) return Deletion::Declined;
    }
    if (toBin) {
        module.platform.shell.Trash(path);
    } else {
        module.platform.files.Delete(path);
    }
    return Deletion::Done;
}

bool DeleteAsUserAgrees(const MainModule& module, const std::string& path) {
    try {
        RequireExactly(module, path);
        return DeleteToBin(module, path, true) == Deletion::Done;
    } catch (const RuntimeError& error) {
        const std::string what = module.config.UseRecycleBin
                                     ? "Unable to send the file to the Recycle Bin, it has not been deleted:"
                                     : "Unable to delete the file:";
        module.app.MessageBox({.text = FailureText(what, path, error), .icon = forms::BoxIcon::Stop});
        return false;
    }
}

}  // namespace tavrix
