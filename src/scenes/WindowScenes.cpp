#include "scenes/WindowScenes.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "viewer/MainViewFrm.h"

namespace tavrix::scenes {

std::vector<WindowScene> EveryWindow() {
    std::vector<WindowScene> all;
    for (const auto list : {ViewerWindows, ListWindows, EditingWindows, FilingWindows, FindingWindows,
                            BrowsingWindows, ShowWindows, SaverWindows, SettingsWindows}) {
        std::ranges::move(list(), std::back_inserter(all));
    }
    return all;
}

void Furnish(Scenery& scenery) {
    headless::HeadlessServices& platform = scenery.platform;
    platform.pictures.SetPicture("C:\\Pictures\\small.bmp", TestCard(640, 480));
    platform.files.MakeFolder("C:\\Pictures\\Holidays & more");
    platform.files.MakeFolder("C:\\Pictures\\Work");
    for (int number = 1; number <= 20; ++number)
        platform.disks.PutFile("C:\\Pictures\\picture number " + std::to_string(number) + ".bmp", "");
    platform.files.ChangeFolder("C:\\Pictures");
    scenery.Start().MainImage.Picture = TestCard(64, 48);
    // A path that does not fit its label.
    scenery.module.CurrentImage =
        "C:\\Pictures\\Holidays & more\\the second of the pictures of the beach.bmp";
    platform.pictures.SetPicture(scenery.module.CurrentImage, TestCard(64, 48));
}

void PutCard(Scenery& scenery, const std::string& path, int width, int height) {
    if (!scenery.platform.disks.Exists(path))
        scenery.platform.pictures.SetPicture(path, TestCard(width, height));
}

Picture TestCard(int width, int height) {
    Surface surface(width, height);
    for (int y = 0; y < height; ++y) {
        const auto row = surface.Row(y);
        for (int x = 0; x < width; ++x) {
            const bool line = x % 50 == 0 || y % 50 == 0 || x == width - 1 || y == height - 1;
            const auto across = static_cast<unsigned>(x * 255 / width);
            const auto down = static_cast<unsigned>(y * 255 / height);
            row[static_cast<std::size_t>(x)] =
                line ? OpaquePixel(255, 255, 255) : OpaquePixel(across, down, 128);
        }
    }
    return PictureOf(std::move(surface));
}

}  // namespace tavrix::scenes
