#include "filing/deleting/DeleteListedFile.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/FileServices.h"
#include "core/RecentLists.h"

namespace tavrix {

bool DeleteListedFile(MainModule& module, const std::string& path, forms::BoxIcon failureIcon) {
    if (EqualIgnoringCase(path, module.CurrentImage)) {
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

}  // namespace tavrix
