#include "backends/qt/desktop/DesktopLook.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QFileInfo>
#include <QMap>
#include <QWidget>

#include "backends/qt/peers/Style.h"

namespace tavrix::qt {
namespace {

constexpr QLatin1String Service("org.freedesktop.portal.Desktop");
constexpr QLatin1String Path("/org/freedesktop/portal/desktop");
constexpr QLatin1String Interface("org.freedesktop.portal.Settings");

/// Asking for a bus that is not there would start one.
bool HasSessionBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

/// X servers tell the factor of all texts by their dots an inch, which the toolkit follows; Wayland tells nothing.
bool TakesTextScale() {
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

}  // namespace

DesktopLook::DesktopLook(Style& style) : style_(style), plainFont_(QApplication::font()) {
    Ask();
}

void DesktopLook::Ask() {
    if (!HasSessionBus()) return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    // A slot is found by the names of its types, and this one has none before its first use.
    qRegisterMetaType<QDBusVariant>("QDBusVariant");
    bus.connect(Service, Path, Interface, QStringLiteral("SettingChanged"), this,
                SLOT(OnSettingChanged(QString, QString, QDBusVariant)));
    QDBusMessage ask = QDBusMessage::createMethodCall(Service, Path, Interface, QStringLiteral("ReadAll"));
    ask << LookNamespaces();
    // Without a desktop, a portal that does not run has nothing to tell.
    ask.setAutoStartService(qEnvironmentVariableIsSet("XDG_CURRENT_DESKTOP"));
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(ask), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* answered) {
        answered->deleteLater();
        const QDBusMessage reply = answered->reply();
        if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != QLatin1String("a{sa{sv}}"))
            return;
        Look look = look_;
        const auto spaces =
            qdbus_cast<QMap<QString, QVariantMap>>(reply.arguments().first().value<QDBusArgument>());
        for (const auto& [space, values] : spaces.asKeyValueRange()) {
            for (const auto& [key, value] : values.asKeyValueRange())
                TakeSetting(look, space, key, value);
        }
        Follow(look);
    });
}

void DesktopLook::OnSettingChanged(const QString& space, const QString& key, const QDBusVariant& value) {
    Look look = look_;
    TakeSetting(look, space, key, value.variant());
    Follow(look);
}

void DesktopLook::Follow(const Look& look) {
    if (look == look_) return;
    look_ = look;
    style_.Follow(look);
    QApplication::setPalette(QPalette());  // has the style asked anew
    // The toolkit tells its widgets only of colours that are set.
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget* widget : widgets) {
        widget->setPalette(widget->testAttribute(Qt::WA_SetPalette) ? widget->palette() : QPalette());
        widget->update();
    }
    if (TakesTextScale()) ApplyTexts();
}

void DesktopLook::ApplyTexts() {
    QFont font = plainFont_;
    if (font.pointSizeF() > 0) font.setPointSizeF(font.pointSizeF() * look_.textScale);
    QApplication::setFont(font);
}

}  // namespace tavrix::qt
