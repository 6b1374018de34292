#include "core/FloppyPrompt.h"

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {

bool IsOnFloppy(const std::string& path) {
    const std::string drive = UpperCase(Left(path, 3));
    return drive == "A:\\" || drive == "B:\\";
}

bool PassesFloppyGuard(const MainModule& module, const std::string& path, const FloppyWording& wording) {
    constexpr std::size_t longestNonFile = 7;
    if (CharacterCount(path) <= longestNonFile) {
        module.app.MessageBox(
            {.text = path + " is not a valid filename...", .systemModal = wording.systemModal});
        return false;
    }
    std::string anyFile;
    const std::string drive = UpperCase(Left(path, 3));
    SkipFailure([&] { anyFile = module.platform.files.First(drive + "*.*"); });
    return !anyFile.empty() || AsksForDisk(module, path, wording);
}

bool AsksForDisk(const MainModule& module, const std::string& path, const FloppyWording& wording) {
    const std::string blank(NewLine2);
    const std::string drive = UpperCase(Left(path, 3));
    const std::string file = wording.wholePath ? path : From(path, 3);
    const forms::Answer answer =
        module.app.MessageBox({.text = wording.request + blank + file + blank + wording.drive + drive +
                                       blank + "Press the \"OK\" button to continue.",
                               .buttons = forms::BoxButtons::OkCancel,
                               .systemModal = wording.systemModal});
    return answer == forms::Answer::Ok;
}

}  // namespace tavrix
