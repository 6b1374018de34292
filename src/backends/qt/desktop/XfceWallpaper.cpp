#include "backends/qt/desktop/XfceWallpaper.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

#include "backends/qt/bus/BusCall.h"
#include "backends/qt/desktop/WallpaperAddress.h"

namespace tavrix::qt {

namespace {

constexpr const char* Channel = "xfce4-desktop";
constexpr QLatin1String Root("/backdrop");
constexpr QLatin1String Image("last-image");
constexpr QLatin1String Style("image-style");

// The values of image-style.
constexpr int NoImage = 0;
constexpr int Centred = 1;
constexpr int Tiled = 2;

constexpr BusMethod Method(const char* name) {
    return {"org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf", name};
}

/// Where the settings of a display are that has none yet: those of its first workspace, which stand for all of them.
std::vector<QString> PlacesOfDisplays() {
    std::vector<QString> places;
    for (const QScreen* display : QGuiApplication::screens())
        places.push_back(Root + QStringLiteral("/screen0/monitor") + display->name() +
                         QStringLiteral("/workspace0/"));
    return places;
}

}  // namespace

std::optional<std::vector<XfceWallpaper::Backdrop>> XfceWallpaper::Backdrops() {
    const auto answer =
        CallOnBus(Method("GetAllProperties"), {QString(QLatin1String(Channel)), QString(Root)});
    if (!answer || answer->isEmpty()) return std::nullopt;
    const auto properties = qdbus_cast<QVariantMap>(answer->first());
    std::vector<Backdrop> backdrops;
    for (const auto& [path, value] : properties.asKeyValueRange()) {
        if (!path.endsWith(QLatin1Char('/') + Image)) continue;
        const QString place = path.chopped(Image.size());
        const QVariant style = properties.value(place + Style);
        backdrops.push_back({place, value.toString(), !style.isValid() || style.toInt() != NoImage});
    }
    return backdrops;
}

bool XfceWallpaper::Set(const QString& property, const QVariant& value) {
    return CallOnBus(Method("SetProperty"),
                     {QString(QLatin1String(Channel)), property, QVariant::fromValue(QDBusVariant(value))})
        .has_value();
}

bool XfceWallpaper::Show(const std::string& file, bool tiled) {
    const auto backdrops = Backdrops();
    if (!backdrops) return false;
    std::vector<QString> places;
    for (const Backdrop& backdrop : *backdrops)
        places.push_back(backdrop.place);
    if (places.empty()) places = PlacesOfDisplays();
    const QString path = QFile::decodeName(file.c_str());
    return std::ranges::all_of(places, [&](const QString& place) {
        // A path that stays the same is no news to the desktop, whatever is in the file by now.
        return Set(place + Style, tiled ? Tiled : Centred) && Set(place + Image, QString()) &&
               Set(place + Image, path);
    });
}

bool XfceWallpaper::Clear() {
    const auto backdrops = Backdrops();
    return backdrops && std::ranges::all_of(*backdrops, [](const Backdrop& backdrop) {
               return Set(backdrop.place + Style, NoImage) && Set(backdrop.place + Image, QString());
           });
}

std::optional<std::string> XfceWallpaper::Current() {
    const auto backdrops = Backdrops();
    if (!backdrops) return std::nullopt;
    const auto found = std::ranges::find_if(
        *backdrops, [](const Backdrop& backdrop) { return backdrop.shown && !backdrop.image.isEmpty(); });
    return found == backdrops->end() ? std::string() : FileOfAddress(found->image);
}

}  // namespace tavrix::qt
