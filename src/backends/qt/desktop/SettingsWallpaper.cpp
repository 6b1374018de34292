#include "backends/qt/desktop/SettingsWallpaper.h"

#include <QFile>
#include <QStringList>

#include "backends/qt/desktop/DesktopTool.h"
#include "backends/qt/desktop/WallpaperAddress.h"

namespace tavrix::qt {

namespace {

constexpr const char* Options = "picture-options";

std::optional<QString> Settings(const QStringList& arguments) {
    return RunDesktopTool(QStringLiteral("gsettings"), arguments);
}

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

/// A text as the tool takes it.
QString Quoted(const QString& text) {
    QString quoted(QLatin1Char('"'));
    for (const QChar c : text) {
        if (c == QLatin1Char('"') || c == QLatin1Char('\\')) quoted += QLatin1Char('\\');
        quoted += c;
    }
    return quoted + QLatin1Char('"');
}

}  // namespace

std::optional<QString> SettingsWallpaper::Get(const char* schema, const char* key) {
    const auto printed = Settings({QStringLiteral("get"), QLatin1String(schema), QLatin1String(key)});
    if (!printed) return std::nullopt;
    return Unquoted(*printed);
}

bool SettingsWallpaper::Set(const char* key, const QString& text) const {
    return Settings({QStringLiteral("set"), QLatin1String(names_.schema), QLatin1String(key), Quoted(text)})
        .has_value();
}

bool SettingsWallpaper::SetPictures(const QString& picture) const {
    // GNOME before 42 has no dark one.
    if (names_.darkPicture != nullptr) static_cast<void>(Set(names_.darkPicture, picture));
    return Set(names_.picture, picture);
}

bool SettingsWallpaper::Show(const std::string& file, bool tiled) {
    const QString style = tiled ? QStringLiteral("wallpaper") : QStringLiteral("centered");
    if (!Set(Options, style)) return false;
    if (!names_.paths) return SetPictures(AddressOfFile(file));  // these desktops watch the file itself
    // A path that stays the same is no news to the desktop, whatever is in the file by now.
    return SetPictures({}) && SetPictures(QFile::decodeName(file.c_str()));
}

bool SettingsWallpaper::Clear() {
    // Where there is such an option, a desktop without it would look for a file of no name.
    if (names_.canBeNone && !Set(Options, QStringLiteral("none"))) return false;
    return SetPictures({});
}

std::optional<std::string> SettingsWallpaper::Current() {
    const std::optional<QString> options = Get(names_.schema, Options);
    if (!options) return std::nullopt;
    if (*options == QLatin1String("none")) return std::string();
    const bool isDark = names_.interfaceSchema != nullptr &&
                        Get(names_.interfaceSchema, "color-scheme") == QStringLiteral("prefer-dark");
    std::optional<QString> picture;
    if (isDark && names_.darkPicture != nullptr) picture = Get(names_.schema, names_.darkPicture);
    if (!picture) picture = Get(names_.schema, names_.picture);
    if (!picture) return std::nullopt;
    return FileOfAddress(*picture);
}

}  // namespace tavrix::qt
