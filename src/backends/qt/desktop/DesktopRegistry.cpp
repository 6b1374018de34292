#include "backends/qt/desktop/DesktopRegistry.h"

#include <QApplication>
#include <QStyle>

#include "base/Text.h"
#include "platform/services/MotionKey.h"

namespace tavrix::qt {

std::optional<RegistryValue> DesktopRegistry::Read(const std::string& key, const std::string& name) {
    constexpr int TextType = 1;
    if (EqualIgnoringCase(key, QtDesktop::Key) && EqualIgnoringCase(name, QtDesktop::WallpaperName)) {
        if (const auto path = desktop_.CurrentWallpaper()) return RegistryValue{TextType, *path};
    }
    if (EqualIgnoringCase(key, MotionKey) && EqualIgnoringCase(name, MotionName)) {
        const bool moves = QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) != 0;
        return RegistryValue{TextType, moves ? "1" : "0"};
    }
    return stored_.Read(key, name);
}

}  // namespace tavrix::qt
