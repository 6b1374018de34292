#include "shows/library/LoadShow.h"

#include "shows/library/LoadRecentFile.h"
#include "shows/library/LoadSlideFile.h"

namespace tavrix {
namespace {

template <class Dialog>
LoadEnd Ask(MainModule& module, ShowTarget& target) {
    LoadEnd end = LoadEnd::GaveUp;
    forms::BusyGuard busy(module.Screen());
    auto& dialog = module.app.Load<Dialog>(module, target, end);
    busy.Release();
    dialog.ShowModal();
    return end;
}

}  // namespace

bool LoadShow(MainModule& module, ShowTarget& target) {
    for (;;) {
        LoadEnd end = Ask<LoadSlideFile>(module, target);
        if (end == LoadEnd::Other) end = Ask<LoadRecentFile>(module, target);
        if (end != LoadEnd::Other) return end == LoadEnd::Loaded;
    }
}

}  // namespace tavrix
