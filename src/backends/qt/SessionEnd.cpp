#include "backends/qt/SessionEnd.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <cstdlib>
#include <utility>

namespace tavrix::qt {

SessionEnd::SessionEnd(int descriptor, Calls calls) : calls_(std::move(calls)) {
    if (descriptor >= 0) {
        notifier_ = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
            notifier_->setEnabled(false);
            calls_.end();
        });
    }
    // The next session starts with what the user starts: a command line of the session manager's is none of ours.
    QObject::connect(
        qGuiApp, &QGuiApplication::saveStateRequest, qGuiApp,
        [](QSessionManager& manager) { manager.setRestartHint(QSessionManager::RestartNever); },
        Qt::DirectConnection);
    QObject::connect(
        qGuiApp, &QGuiApplication::commitDataRequest, qGuiApp,
        [this](QSessionManager& manager) {
            manager.setRestartHint(QSessionManager::RestartNever);
            calls_.save();
        },
        Qt::DirectConnection);
    // When the display is gone, the toolkit ends the process by exit().
    ::on_exit([](int, void* self) { static_cast<SessionEnd*>(self)->calls_.save(); }, this);
}

SessionEnd::~SessionEnd() = default;

}  // namespace tavrix::qt
