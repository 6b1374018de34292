#include "viewer/EndOfSession.h"

#include "core/Settings.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void SaveForEndOfSession(const MainModule& module) {
    if (const auto* view = module.app.Loaded<MainViewFrm>()) SaveSessionSettings(module, view->Placement());
}

}  // namespace tavrix
