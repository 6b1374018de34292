#include "backends/qt/desktop/Settling.h"

#include <QEventLoop>
#include <QTimer>

namespace tavrix::qt {

void LetMessagesRun(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace tavrix::qt
