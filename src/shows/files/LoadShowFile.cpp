#include "shows/files/LoadShowFile.h"

#include <utility>

#include "core/RecentLists.h"
#include "shows/files/ReadShow.h"

namespace tavrix {

bool LoadShowFile(MainModule& module, std::string path) {
    SlideShow& show = module.show;
    show.EraseSlides();
    const std::string showKindName = module.ScreenSaverMode ? "Screen Saver" : "Slide Show";
    const ReadShowWords words{
        .kind = showKindName,
        .openFailed = "Unable to open " + showKindName + " file.",
        .dataFailed = "An error occurred while reading " + showKindName + " data.",
        .notValid = "This may not be a valid " + showKindName + " file...",
        .whenIsSaved = "When the file is saved",
    };
    const ReadShowResult result = ReadShow(module, path, words, [&] { RemoveRecentShow(module, path); });
    if (result.end == ReadShowEnd::Complete) {
        module.config.LastSlideShow = path;
        AddRecentShow(module, path);
        show.ShowChanged = result.upgradeNoteShown;
    }
    return !show.Empty();
}

}  // namespace tavrix
