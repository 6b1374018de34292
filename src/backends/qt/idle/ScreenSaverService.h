#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QDBusVirtualObject>
#include <functional>
#include <map>

namespace tavrix::idle {

/// org.freedesktop.ScreenSaver on a desktop that has none: there players and browsers, and our own slide shows, say that
/// the screen is to stay lit. Another program may take the name over.
class ScreenSaverService final : public QDBusVirtualObject {
  public:
    explicit ScreenSaverService(QDBusConnection bus);

    /// Takes the name, unless somebody has it.
    void Offer();
    /// Whether a program that is still there keeps the screen lit.
    [[nodiscard]] bool Held() const { return !holders_.empty(); }

    /// A program says that the user is there.
    std::function<void()> onActivity = [] {};
    std::function<bool()> isActive = [] { return false; };

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    [[nodiscard]] QString introspect(const QString& path) const override;

  private:
    [[nodiscard]] QDBusMessage AnswerTo(const QDBusMessage& message);
    [[nodiscard]] quint32 Hold(const QString& program);
    void Release(const QString& program, quint32 cookie);

    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    std::map<quint32, QString> holders_;  ///< the programs by their cookies
    quint32 lastCookie_ = 0;
};

}  // namespace tavrix::idle
