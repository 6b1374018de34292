#include "backends/qt/saver/LockSetting.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>
#include <array>

#include "backends/qt/desktop/DesktopTool.h"
#include "base/Text.h"

namespace tavrix::qt {
namespace {

struct Question {
    const char* desktop;  ///< a name in XDG_CURRENT_DESKTOP
    const char* program;
    std::array<const char*, 4> arguments;
};

constexpr std::array<Question, 5> Questions{{
    {"GNOME", "gsettings", {"get", "org.gnome.desktop.screensaver", "lock-enabled", nullptr}},
    {"Unity", "gsettings", {"get", "org.gnome.desktop.screensaver", "lock-enabled", nullptr}},
    {"X-Cinnamon", "gsettings", {"get", "org.cinnamon.desktop.screensaver", "lock-enabled", nullptr}},
    {"MATE", "gsettings", {"get", "org.mate.screensaver", "lock-enabled", nullptr}},
    {"XFCE", "xfconf-query", {"--channel=xfce4-screensaver", "--property=/lock/enabled", nullptr, nullptr}},
}};

std::optional<bool> AskPlasma() {
    const QString file =
        QStandardPaths::locate(QStandardPaths::GenericConfigLocation, QStringLiteral("kscreenlockerrc"));
    if (file.isEmpty()) return std::nullopt;
    const QSettings settings(file, QSettings::IniFormat);
    return settings.value(QStringLiteral("Daemon/Autolock"), true).toBool();
}

}  // namespace

std::optional<bool> DesktopLockSetting() {
    const QStringList desktops =
        qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'), Qt::SkipEmptyParts);
    for (const Question& question : Questions) {
        if (!desktops.contains(QLatin1String(question.desktop), Qt::CaseInsensitive)) continue;
        QStringList arguments;
        for (const char* argument : question.arguments)
            if (argument != nullptr) arguments << QLatin1String(argument);
        const auto answer = RunDesktopTool(QLatin1String(question.program), arguments);
        if (answer == QLatin1String("true")) return true;
        if (answer == QLatin1String("false")) return false;
    }
    return desktops.contains(QLatin1String("KDE"), Qt::CaseInsensitive) ? AskPlasma() : std::nullopt;
}

std::optional<RegistryValue> LockRegistry::Read(const std::string& key, const std::string& name) {
    if (!EqualIgnoringCase(key, Key) || !EqualIgnoringCase(name, Name)) return stored_.Read(key, name);
    constexpr int TextType = 1;
    if (const auto locks = DesktopLockSetting()) return RegistryValue{TextType, *locks ? "1" : "0"};
    const auto stored = stored_.Read(key, name);
    return stored && stored->type == TextType ? stored : RegistryValue{TextType, "0"};
}

}  // namespace tavrix::qt
