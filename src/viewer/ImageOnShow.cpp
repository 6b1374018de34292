#include "viewer/ImageOnShow.h"

#include <algorithm>

#include "base/Text.h"
#include "core/KeptWorkingFiles.h"
#include "core/RecentLists.h"
#include "core/UnsavedImage.h"
#include "viewer/MainViewFrm.h"
#include "viewer/MenuState.h"

namespace tavrix {
namespace {

/// Whether a path is that of a file that has gone from another one. Where names differ in case alone, both may be files:
/// then the one that is still there is not meant.
bool WasFile(const MainModule& module, const std::string& path, const std::string& gone) {
    if (path == gone) return true;
    return EqualIgnoringCase(path, gone) && !module.platform.files.FileExists(path);
}

}  // namespace

void ImageOnShow::LayOut() {
    view_.Form_Resize();
    view_.ScrollHome();
}

void ImageOnShow::Load(const std::string& path) {
    view_.MainImage.Picture = view_.Module().platform.pictures.Load(path);
    LayOut();
}

void ImageOnShow::Lose() {
    view_.MainImage.Picture = view_.ImageDefault.Picture;
    Forget();
    LayOut();
}

void ImageOnShow::Clear() {
    const forms::BusyGuard busy(view_.Module().Screen());
    view_.picFrame.Refresh();
    view_.PictureTemp.Picture = view_.ImageDefault.Picture;
    Lose();
    view_.picFrame.Visible = true;
}

void ImageOnShow::Become(const std::string& path) {
    view_.Module().CurrentImage = path;
    ShowTitleOf(path);
}

void ImageOnShow::Opened(const std::string& path) {
    Saved(path);
    SetImageLoadedMenus(view_);
}

void ImageOnShow::Saved(const std::string& path) {
    MainModule& module = view_.Module();
    Become(path);
    AddRecentFile(module, module.CurrentImage);
}

void ImageOnShow::Renamed(const std::string& from, const std::string& to) {
    MainModule& module = view_.Module();
    const std::string before = module.CurrentImage;
    const std::string gone = from;  // perhaps CurrentImage itself
    // Nobody has been asked whether the edit may go.
    if (IsUnsavedImage(module) && !WasFile(module, before, gone)) KeepWorkingFile(module, before);
    std::string path = to;
    ShowTitleOf(path);
    RemoveRecentFile(module, gone);
    ReplaceFavorite(gone, path);
    AddRecentFile(module, path);
    module.CurrentImage = path;
}

void ImageOnShow::Moved(const std::string& from, const std::string& to) {
    MainModule& module = view_.Module();
    const std::string gone = from;  // perhaps CurrentImage itself
    if (WasFile(module, module.CurrentImage, gone)) Become(to);
    RemoveRecentFile(module, gone);
    ReplaceFavorite(gone, to);
}

void ImageOnShow::Deleted() {
    const forms::BusyGuard busy(view_.Module().Screen());
    view_.picFrame.Visible = false;
    Lose();
    view_.picFrame.Visible = true;
}

void ImageOnShow::Forget() {
    view_.Module().CurrentImage.clear();
    ResetEmptyView(view_);
}

void ImageOnShow::ShowTitleOf(const std::string& path) {
    view_.Caption = std::string(ProductName) + " - [" + path + "]";
}

void ImageOnShow::ReplaceFavorite(const std::string& from, const std::string& to) {
    AppConfig& config = view_.Module().config;
    const auto entry = std::ranges::find_if(
        config.FavoriteFiles, [&](const std::string& path) { return WasFile(view_.Module(), path, from); });
    if (entry == config.FavoriteFiles.end()) return;
    *entry = to;
    RefreshFavoritesMenu(view_.menu, config);
}

}  // namespace tavrix
