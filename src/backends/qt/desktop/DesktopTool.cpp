#include "backends/qt/desktop/DesktopTool.h"

#include <QProcess>

namespace tavrix::qt {

std::optional<QString> RunDesktopTool(const QString& program, const QStringList& arguments) {
    constexpr int LimitInMilliseconds = 3000;
    QProcess tool;
    tool.start(program, arguments, QIODevice::ReadOnly);
    if (!tool.waitForFinished(LimitInMilliseconds)) {
        tool.kill();
        tool.waitForFinished(LimitInMilliseconds);
        return std::nullopt;
    }
    if (tool.exitStatus() != QProcess::NormalExit || tool.exitCode() != 0) return std::nullopt;
    return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
}

}  // namespace tavrix::qt
