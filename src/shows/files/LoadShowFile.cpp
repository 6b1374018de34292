#include "shows/files/LoadShowFile.h"

#include <utility>

#include "core/RecentLists.h"
#include "platform/services/DrivePath.h"
#include "shows/SlideEditor.h"
#include "shows/files/ReadShow.h"

namespace tavrix {
namespace {

ReadShowResult ReadInOurWords(MainModule& module, const std::string& path, ShowRecord& record) {
    const std::string showKindName = module.ScreenSaverMode ? "Screen Saver" : "Slide Show";
    const ReadShowWords words{
        .kind = showKindName,
        .openFailed = "Unable to open " + showKindName + " file.",
        .dataFailed = "An error occurred while reading " + showKindName + " data.",
        .notValid = "This may not be a valid " + showKindName + " file...",
        .whenIsSaved = "When the file is saved",
    };
    return ReadShow(module, path, words, record, [&] { RemoveRecentShow(module, path); });
}

}  // namespace

ReadShowResult LoadSharedShow(MainModule& module, const std::string& path) {
    std::string normal = NormalPath(path);
    ShowRecord record{.slides = {}, .options = module.config};
    module.show.EraseSlides();
    ReadShowResult result = ReadInOurWords(module, normal, record);
    module.config.SetShowOptions(record.options);
    module.show.TakeSlides(std::move(record.slides));
    if (SlideEditor* editor = LoadedEditor(module.app)) editor->NoteReading(normal, result.whole);
    if (result.end == ShowFileEnd::Complete) {
        module.config.LastSlideShow = normal;
        AddRecentShow(module, normal);
        module.show.ShowChanged = result.upgradeNoteShown;
    }
    return result;
}

bool LoadShowFile(MainModule& module, const std::string& path) {
    static_cast<void>(LoadSharedShow(module, path));
    return !module.show.Empty();
}

ShowFileEnd LoadShowRecord(MainModule& module, const std::string& path, ShowRecord& record) {
    return ReadInOurWords(module, NormalPath(path), record).end;
}

}  // namespace tavrix
