#include "backends/qt/desktop/GnomeWallpaper.h"

#include <QProcess>

#include "backends/qt/desktop/WallpaperAddress.h"

namespace tavrix::qt {

namespace {

constexpr const char* Background = "org.gnome.desktop.background";
constexpr const char* Interface = "org.gnome.desktop.interface";
constexpr const char* Light = "picture-uri";
constexpr const char* Dark = "picture-uri-dark";
constexpr const char* Options = "picture-options";

/// A text as the tool prints it, out of its quotation marks.
QString Unquoted(const QString& printed) {
    if (printed.size() < 2) return printed;
    QString text;
    bool escaped = false;
    for (const QChar c : printed.mid(1, printed.size() - 2)) {
        escaped = !escaped && c == QLatin1Char('\\');
        if (!escaped) text += c;
    }
    return text;
}

}  // namespace

std::optional<QString> GnomeWallpaper::Settings(const QStringList& arguments) {
    constexpr int LimitInMilliseconds = 3000;
    QProcess tool;
    tool.start(QStringLiteral("gsettings"), arguments, QIODevice::ReadOnly);
    if (!tool.waitForFinished(LimitInMilliseconds)) {
        tool.kill();
        tool.waitForFinished(LimitInMilliseconds);
        return std::nullopt;
    }
    if (tool.exitStatus() != QProcess::NormalExit || tool.exitCode() != 0) return std::nullopt;
    return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
}

std::optional<QString> GnomeWallpaper::Get(const char* schema, const char* key) {
    const auto printed = Settings({QStringLiteral("get"), QLatin1String(schema), QLatin1String(key)});
    if (!printed) return std::nullopt;
    return Unquoted(*printed);
}

bool GnomeWallpaper::Set(const char* key, const QString& text) {
    // Addresses and words have neither quotation marks nor backslashes in them.
    return Settings({QStringLiteral("set"), QLatin1String(Background), QLatin1String(key),
                     QLatin1Char('"') + text + QLatin1Char('"')})
        .has_value();
}

bool GnomeWallpaper::SetPictures(const QString& address) {
    // Before GNOME 42 there is no dark one.
    static_cast<void>(Set(Dark, address));
    return Set(Light, address);
}

bool GnomeWallpaper::Show(const std::string& file, bool tiled) {
    return Set(Options, tiled ? QStringLiteral("wallpaper") : QStringLiteral("centered")) &&
           SetPictures(AddressOfFile(file));
}

bool GnomeWallpaper::Clear() {
    // Without a picture's address alone, the desktop would look for a file of no name.
    return Set(Options, QStringLiteral("none")) && SetPictures({});
}

std::optional<std::string> GnomeWallpaper::Current() {
    const std::optional<QString> options = Get(Background, Options);
    if (!options) return std::nullopt;
    if (*options == QLatin1String("none")) return std::string();
    const bool isDark = Get(Interface, "color-scheme") == QStringLiteral("prefer-dark");
    std::optional<QString> address;
    if (isDark) address = Get(Background, Dark);
    if (!address) address = Get(Background, Light);
    if (!address) return std::nullopt;
    return FileOfAddress(*address);
}

}  // namespace tavrix::qt
