#include "backends/qt/saver/ScreenGuard.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>
#include <cerrno>
#include <utility>

#include "backends/qt/saver/GuardProtocol.h"
#include "backends/qt/saver/PasswordQuestion.h"
#include "backends/qt/saver/SessionLock.h"

namespace tavrix::qt {

ScreenGuard::ScreenGuard(std::string checker)
    : checker_(std::move(checker)), hold_([this] { AskForPassword(); }) {
    hold_.onScreenChange = [this] { cover_.Fit(); };
    saver_ = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(saver_.get(), &QSocketNotifier::activated, saver_.get(), [this] { Listen(); });
    const std::string word = std::to_string(cover_.Window()) + "\n";
    // A saver that has ended by now is heard of by Listen.
    static_cast<void>(::send(STDOUT_FILENO, word.data(), word.size(), MSG_NOSIGNAL));
}

ScreenGuard::~ScreenGuard() = default;

void ScreenGuard::Listen() {
    char word = 0;
    const ssize_t count = ::read(STDIN_FILENO, &word, 1);
    if (count < 0 && errno == EINTR) return;
    if (count == 1 && word == GuardProtocol::Released) {
        QCoreApplication::exit(0);
        saver_->setEnabled(false);
    } else if (count <= 0) {
        saver_->setEnabled(false);
        TakeOver();
    }
}

void ScreenGuard::TakeOver() {
    alone_ = true;
    hold_.TakeWhenever();
    hold_.SetCover(cover_.Window());
    AskForSessionLock();
}

void ScreenGuard::AskForPassword() {
    if (!alone_ || std::exchange(asking_, true)) return;
    QTimer::singleShot(0, &hold_, [this] {
        const bool right = PasswordQuestion(checker_).Ask();
        asking_ = false;
        if (right) QCoreApplication::exit(0);
    });
}

}  // namespace tavrix::qt
