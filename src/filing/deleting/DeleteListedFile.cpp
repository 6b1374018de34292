#include "filing/deleting/DeleteListedFile.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/FileServices.h"
#include "core/RecentLists.h"
#include "filing/CurrentImageFolder.h"

namespace tavrix {

bool DeleteListedFile(MainModule& module, const std::string& path, forms::BoxIcon failureIcon) {
    if (IsImageOnShow(module, path)) {
        module.app.MessageBox({.text = "Unable to delete this file, image is currently open..."});
        return false;
    }
    try {
        RequireExactly(module, path);
        DeleteToBin(module, path, true);
    } catch (const RuntimeError& error) {
        module.app.MessageBox(
            {.text = FailureText("Unable to delete the selected file.", error), .icon = failureIcon});
    }
    RemoveRecentFile(module, path);
    return true;
}

bool DeleteByKey(MainModule& module, const std::string& folder, const std::string& name,
                 forms::BoxIcon failureIcon) {
    if (!name.empty()) return DeleteListedFile(module, folder + name, failureIcon);
    module.app.MessageBox(
        {.text =
             "Unable to delete file by pressing the delete key, nothing is selected in the file list..."});
    return false;
}

bool DeletedByKey(MainModule& module, forms::FileListBox& files, const std::string& folder, int keyCode) {
    if (keyCode != forms::KeyCode::Delete || module.Busy()) return false;
    if (!DeleteByKey(module, folder, files.FileName(), forms::BoxIcon::Exclamation)) return false;
    files.Refresh();
    static_cast<void>(files.ListCount());
    return true;
}

}  // namespace tavrix
