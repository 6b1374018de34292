#include "platform/qt/QtSystem.h"

#include "platform/qt/TitleLock.h"
#include "platform/qt/X11.h"

namespace tavrix::qt {

bool QtSystem::WindowExists(const std::string& title) {
    return x11::TitleExists(title) || TitleLock::IsHeld(title);
}

}  // namespace tavrix::qt
