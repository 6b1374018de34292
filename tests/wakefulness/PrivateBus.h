#pragma once

#include <QFile>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace tavrix {

/// A message bus of a test's own, which starts no services but those that are put there. It is the session bus for whoever joins one from now on.
class PrivateBus {
  public:
    PrivateBus() {
        QFile settings(folder_.filePath("bus.conf"));
        if (!settings.open(QIODevice::WriteOnly)) return;
        settings.write(
            QStringLiteral(
                "<busconfig><type>session</type><listen>unix:dir=%1</listen><servicedir>%1</servicedir>"
                "<auth>EXTERNAL</auth><policy context=\"default\">"
                "<allow send_destination=\"*\" eavesdrop=\"true\"/>"
                "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>")
                .arg(folder_.path())
                .toUtf8());
        settings.close();
        daemon_.start("dbus-daemon", {"--nofork", "--print-address", "--config-file=" + settings.fileName()});
        if (!daemon_.waitForReadyRead(20'000)) return;
        address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address_.toUtf8());
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus() {
        daemon_.kill();
        daemon_.waitForFinished();
    }

    /// Empty when the bus did not start.
    [[nodiscard]] const QString& Address() const { return address_; }
    /// The bus starts this, without words of its own, for whoever asks for a name that nobody has.
    void PutService(const QString& name, const QString& program) const {
        QFile file(folder_.filePath(name + ".service"));
        if (!file.open(QIODevice::WriteOnly)) return;
        file.write(QStringLiteral("[D-BUS Service]\nName=%1\nExec=%2\n").arg(name, program).toUtf8());
    }

  private:
    QTemporaryDir folder_;
    QProcess daemon_;
    QString address_;
};

}  // namespace tavrix
