#include "filing/SelectedFiles.h"

#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/ImageKinds.h"
#include "filing/deleting/DeleteListedFile.h"

namespace tavrix {
SelectedFiles::SelectedFiles(forms::Container& container, MainModule& module,
                             std::function<std::string()> folder, LookedFiles* looked)
    : module_(module),
      looked_(looked),
      lblFiles(container, "lblFiles"),
      File1(container, "File1", looked != nullptr ? *looked : module.platform.files,
            PatternOf(ImagesShown::All)),
      Selection(container, module, File1),
      folder_(std::move(folder)) {
    lblFiles.Caption = "Select File(s):";
    lblFiles.SetBuddy(File1);
    File1.OnKeyUp = [this](int keyCode, int) { File1_KeyUp(keyCode); };
}

void SelectedFiles::File1_KeyUp(int keyCode) {
    if (!DeletedByKey(module_, File1, folder_(), keyCode)) return;
    const auto selectFirst = [this] {
        if (File1.ListCount() > 0) File1.ListIndex = 0;
    };
    if (looked_ != nullptr) {
        looked_->WhenRead(selectFirst);
    } else {
        selectFirst();
    }
}

forms::Layout SelectedFiles::List() {
    constexpr float listWidth = 3300;
    constexpr float listHeight = 3300;
    return forms::Growing(
        forms::Column({lblFiles, forms::Growing(forms::AtLeast(listWidth, listHeight, File1))}));
}

void SelectedFiles::ReadFrom(const std::string& root) {
    try {
        if (EqualIgnoringCase(File1.Path.Get(), root)) {
            static_cast<void>(module_.platform.files.Info(root));
            File1.Refresh();
        } else {
            File1.Path = root;
        }
    } catch (const RuntimeError&) {
        // A list that could not come here yet is in another folder, of which nothing is to be seen.
        File1.Pattern = LookedFiles::NoNames;
        throw;
    }
    File1.Pattern = PatternOf(ImagesShown::All);
    // The names are those of the disk that is in the drive now.
    static_cast<void>(File1.ListCount());
}

}  // namespace tavrix
