#include "backends/qt/desktop/PortalWallpaper.h"

#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QVariantMap>

#include "backends/qt/bus/BusCall.h"

namespace tavrix::qt {

bool PortalWallpaper::Show(const std::string& file, bool) {
    QFile picture(QFile::decodeName(file.c_str()));
    if (!picture.open(QIODevice::ReadOnly)) return false;
    const QVariantMap options{{QStringLiteral("show-preview"), false},
                              {QStringLiteral("set-on"), QStringLiteral("background")}};
    return CallOnBus({"org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                      "org.freedesktop.portal.Wallpaper", "SetWallpaperFile"},
                     {QString(), QVariant::fromValue(QDBusUnixFileDescriptor(picture.handle())), options})
        .has_value();
}

}  // namespace tavrix::qt
