#include "backends/qt/desktop/FileManagerWallpaper.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>
#include <map>

#include "backends/qt/desktop/DesktopTool.h"
#include "backends/qt/desktop/WallpaperAddress.h"

namespace tavrix::qt {

namespace {

constexpr QLatin1String NoPicture("color");

/// What the settings say of the wallpaper.
struct Background {
    QString picture;
    QString mode;
};

QString SettingsFile(const char* path) {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QLatin1Char('/') +
           QLatin1String(path);
}

std::optional<Background> LxqtBackground() {
    const QString file = SettingsFile("pcmanfm-qt/lxqt/settings.conf");
    if (!QFile::exists(file)) return std::nullopt;
    const QSettings settings(file, QSettings::IniFormat);
    return Background{settings.value(QStringLiteral("Desktop/Wallpaper")).toString(),
                      settings.value(QStringLiteral("Desktop/WallpaperMode")).toString()};
}

/// Those of the first display; its lines are plain text, without any escapes.
std::optional<Background> LxdeBackground() {
    QFile file(SettingsFile("pcmanfm/LXDE/desktop-items-0.conf"));
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    constexpr qint64 MostBytes = 1 << 20;
    std::map<QByteArray, QByteArray> values;
    for (const QByteArray& line : file.read(MostBytes).split('\n')) {
        const qsizetype equals = line.indexOf('=');
        if (equals > 0) values.emplace(line.first(equals).trimmed(), line.sliced(equals + 1).trimmed());
    }
    return Background{QFile::decodeName(values["wallpaper"]), QString::fromLatin1(values["wallpaper_mode"])};
}

}  // namespace

bool FileManagerWallpaper::Tell(const QString& mode, const QString& file) const {
    const QString program = kind_ == Kind::Lxqt ? QStringLiteral("pcmanfm-qt") : QStringLiteral("pcmanfm");
    QStringList arguments{QStringLiteral("--wallpaper-mode=") + mode};
    if (!file.isEmpty()) arguments << QStringLiteral("--set-wallpaper=") + file;
    return RunDesktopTool(program, arguments).has_value();
}

bool FileManagerWallpaper::Show(const std::string& file, bool tiled) {
    // A path that stays the same is no news to the desktop, whatever is in the file by now; another mode is.
    return Tell(NoPicture) &&
           Tell(tiled ? QStringLiteral("tile") : QStringLiteral("center"), QFile::decodeName(file.c_str()));
}

bool FileManagerWallpaper::Clear() {
    return Tell(NoPicture);
}

std::optional<std::string> FileManagerWallpaper::Current() {
    const std::optional<Background> background = kind_ == Kind::Lxqt ? LxqtBackground() : LxdeBackground();
    if (!background) return std::nullopt;
    const bool none = background->mode == NoPicture || background->mode == QLatin1String("none");
    return none ? std::string() : FileOfAddress(background->picture);
}

}  // namespace tavrix::qt
