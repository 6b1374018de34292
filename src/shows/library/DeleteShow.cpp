#include "shows/library/DeleteShow.h"

#include "core/FileServices.h"
#include "core/RecentLists.h"

namespace tavrix {

bool DeleteShowByKey(MainModule& module, const std::string& path) {
    if (path.empty()) {
        module.app.MessageBox({.text = "Unable to delete file(s) by pressing the delete key, nothing is "
                                       "selected in the file list..."});
        return false;
    }
    if (!DeleteAsUserAgrees(module, path)) return false;
    RemoveRecentShow(module, path);
    return true;
}

}  // namespace tavrix
