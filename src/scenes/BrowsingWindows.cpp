#include <array>
#include <utility>

#include "browsing/ThumbnailList.h"
#include "browsing/frmThumbFolder.h"
#include "browsing/frmThumbSelect.h"
#include "browsing/frmThumbnail.h"
#include "scenes/WindowScenes.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::scenes {
namespace {

/// A page of pictures of all shapes, and one more.
forms::Form& Thumbnails(Scenery& scenery) {
    constexpr std::array<std::pair<int, int>, 10> Sizes{{{640, 480},
                                                         {480, 640},
                                                         {32, 32},
                                                         {1000, 100},
                                                         {100, 1000},
                                                         {160, 120},
                                                         {161, 121},
                                                         {90, 60},
                                                         {1500, 1000},
                                                         {50, 50}}};
    auto& list = scenery.Keep<ThumbnailList>();
    list.ThumbnailFolder = "C:\\Pictures\\";
    for (const auto& [width, height] : Sizes) {
        list.ThumbnailFiles.push_back("C:\\Pictures\\" + std::to_string(width) + "x" +
                                      std::to_string(height) + ".bmp");
        PutCard(scenery, list.ThumbnailFiles.back(), width, height);
    }
    return scenery.app.Load<frmThumbnail>(scenery.View(), list, [] {});
}

forms::Form& Folder(Scenery& scenery) {
    return scenery.app.Load<frmThumbFolder>(scenery.module, scenery.Keep<ThumbnailList>());
}

forms::Form& Selected(Scenery& scenery) {
    auto& files = scenery.app.Load<frmThumbSelect>(scenery.module, scenery.Keep<ThumbnailList>());
    files.Chooser.Lists.GoTo("C:\\Pictures");
    files.Show();
    for (const int row : {1, 2, 5})
        files.Chooser.File1.Select(row);
    return files;
}

}  // namespace

std::vector<WindowScene> BrowsingWindows() {
    return {
        {"frmThumbnail", Thumbnails},
        {"frmThumbFolder", Folder},
        {"frmThumbSelect", Selected},
    };
}

}  // namespace tavrix::scenes
