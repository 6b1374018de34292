#include "backends/qt/QtSystem.h"

#include <QDateTime>
#include <QFile>
#include <QLocale>

#include "backends/qt/TitleLock.h"
#include "backends/qt/x11/X11.h"
#include "backends/shared/MemoryInfo.h"

namespace tavrix::qt {

bool QtSystem::WindowExists(const std::string& title) {
    return x11::TitleExists(title) || TitleLock::IsHeld(title);
}

NumberFormat QtSystem::Numbers() {
    const QLocale locale = QLocale::system();
    return {locale.groupSeparator().toStdString(), locale.decimalPoint().toStdString()};
}

std::string QtSystem::ShortDateTime(const DateTime& moment) {
    const QDateTime local(QDate(moment.year, moment.month, moment.day),
                          QTime(moment.hour, moment.minute, moment.second));
    return QLocale::system().toString(local, QLocale::ShortFormat).toStdString();
}

MemoryFigures QtSystem::Memory() {
    QFile file(QStringLiteral("/proc/meminfo"));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return MemoryFiguresOf(file.readAll().toStdString());
}

}  // namespace tavrix::qt
