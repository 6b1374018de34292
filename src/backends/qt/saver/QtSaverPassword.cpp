#include "backends/qt/saver/QtSaverPassword.h"

#include <QSocketNotifier>
#include <charconv>
#include <chrono>
#include <utility>

#include "backends/qt/saver/GuardProtocol.h"
#include "backends/qt/saver/LockSetting.h"
#include "backends/qt/saver/PasswordQuestion.h"
#include "backends/qt/saver/ScreenHold.h"
#include "base/Text.h"

namespace tavrix::qt {

using namespace std::chrono_literals;

QtSaverPassword::QtSaverPassword(GuardPrograms programs, Registry& registry, Ask ask)
    : programs_(std::move(programs)), registry_(registry), ask_(std::move(ask)) {}

QtSaverPassword::~QtSaverPassword() = default;

bool QtSaverPassword::Verify() {
    return PasswordQuestion(programs_.checker).Ask();
}

void QtSaverPassword::Change() {
    const auto answer = ask_(
        "The password of the screen saver is the one of your account. It is changed in the settings of your "
        "account, or in a terminal by the command \"passwd\"." +
        std::string(NewLine2) + "Is the screen saver to ask for it before it ends?");
    if (answer) registry_.Write(LockRegistry::Key, LockRegistry::Name, *answer ? "1" : "0");
}

bool QtSaverPassword::SetRunning(bool running) {
    if (running) return hold_ != nullptr || Begin();
    if (guard_) static_cast<void>(guard_->Write({&GuardProtocol::Released, 1}));
    guardEnd_.reset();
    guard_.reset();
    hold_.reset();
    return true;
}

bool QtSaverPassword::Begin() {
    auto hold = std::make_unique<ScreenHold>();
    if (!hold->Take(2s)) return false;
    hold_ = std::move(hold);
    if (StartGuard()) return true;
    hold_.reset();
    return false;
}

bool QtSaverPassword::StartGuard() {
    auto guard = PipedProgram::Start(programs_.guard, {programs_.checker});
    if (!guard) return false;
    const std::string word = guard->ReadLine(20s).value_or("");
    std::uint32_t cover = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), cover);
    if (error != std::errc() || cover == 0) {
        guard->Kill();
        return false;
    }
    guard_ = std::move(guard);
    guardEnd_ = std::make_unique<QSocketNotifier>(guard_->Descriptor(), QSocketNotifier::Read);
    QObject::connect(guardEnd_.get(), &QSocketNotifier::activated, guardEnd_.get(),
                     [this] { GuardIsGone(); });
    hold_->SetCover(cover);
    return true;
}

/// It has nothing more to say, so it has ended; another one takes its place.
void QtSaverPassword::GuardIsGone() {
    guardEnd_->setEnabled(false);
    hold_->SetCover(0);
    QTimer::singleShot(1s, hold_.get(), [this] {
        if (!StartGuard()) GuardIsGone();
    });
}

}  // namespace tavrix::qt
