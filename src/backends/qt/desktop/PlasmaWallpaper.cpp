#include "backends/qt/desktop/PlasmaWallpaper.h"

#include <QString>

#include "backends/qt/bus/BusCall.h"
#include "backends/qt/desktop/WallpaperAddress.h"

namespace tavrix::qt {

namespace {

/// What the script prints; nothing where the shell does not run it.
std::optional<QString> Evaluate(const QString& script) {
    const auto answer = CallOnBus(
        {"org.kde.plasmashell", "/PlasmaShell", "org.kde.PlasmaShell", "evaluateScript"}, {script}, false);
    if (!answer) return std::nullopt;
    return answer->isEmpty() ? QString() : answer->first().toString();
}

}  // namespace

bool PlasmaWallpaper::Show(const std::string& file, bool tiled) {
    // An address that stays the same is no news to the shell, whatever is in the file by now.
    const QString script = QStringLiteral(
        "desktops().forEach(function (d) {"
        " d.wallpaperPlugin = 'org.kde.image';"
        " d.currentConfigGroup = ['Wallpaper', 'org.kde.image', 'General'];"
        " d.writeConfig('FillMode', %1);"
        " d.writeConfig('Image', '');"
        " d.writeConfig('Image', \"%2\");"
        " });");
    constexpr int Tile = 3;
    constexpr int Pad = 6;
    return Evaluate(script.arg(QString::number(tiled ? Tile : Pad), AddressOfFile(file))).has_value();
}

bool PlasmaWallpaper::Clear() {
    // The plug-in for pictures would show the theme's own in place of none.
    return Evaluate(
               QStringLiteral("desktops().forEach(function (d) { d.wallpaperPlugin = 'org.kde.color'; });"))
        .has_value();
}

std::optional<std::string> PlasmaWallpaper::Current() {
    const std::optional<QString> address = Evaluate(
        QStringLiteral("var d = desktops()[0];"
                       " d.currentConfigGroup = ['Wallpaper', 'org.kde.image', 'General'];"
                       " print(d.wallpaperPlugin == 'org.kde.image' ? d.readConfig('Image') : '');"));
    if (!address) return std::nullopt;
    return FileOfAddress(address->trimmed());
}

}  // namespace tavrix::qt
