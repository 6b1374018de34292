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

namespace {

/// How long a guard may take until its cover stands; much on a machine that does much else.
constexpr std::chrono::milliseconds GuardPatience = 20s;

}  // namespace

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
    End();
    return true;
}

bool QtSaverPassword::Begin() {
    auto hold = std::make_unique<ScreenHold>();
    if (!hold->Take(2s)) return false;
    hold_ = std::move(hold);
    // There is no window yet that would have to answer.
    if (StartGuard() && HearGuard(GuardPatience)) return true;
    End();
    return false;
}

void QtSaverPassword::End() {
    if (guard_) {
        static_cast<void>(guard_->Write({&GuardProtocol::Released, 1}));
        if (!guardStands_) guard_->Kill();  // it might never come to read that
    }
    guardEnd_.reset();
    guard_.reset();
    hold_.reset();
}

bool QtSaverPassword::StartGuard() {
    guardStands_ = false;
    guard_ = PipedProgram::Start(programs_.guard, {programs_.checker});
    if (!guard_) return false;
    guardEnd_ = std::make_unique<QSocketNotifier>(guard_->Descriptor(), QSocketNotifier::Read);
    QObject::connect(guardEnd_.get(), &QSocketNotifier::activated, guardEnd_.get(), [this] {
        // Once its cover stands it has nothing more to say, so it has ended.
        if (guardStands_ || !HearGuard(0ms)) GuardIsGone();
    });
    return true;
}

bool QtSaverPassword::HearGuard(std::chrono::milliseconds within) {
    const std::string word = guard_->ReadLine(within).value_or("");
    std::uint32_t cover = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), cover);
    guardStands_ = error == std::errc() && cover != 0;
    if (guardStands_) hold_->SetCover(cover);
    return guardStands_;
}

/// Another one takes its place. The saver goes on meanwhile: it still lets nobody out without the password.
void QtSaverPassword::GuardIsGone() {
    guardEnd_->setEnabled(false);
    guard_->Kill();
    hold_->SetCover(0);
    QTimer::singleShot(1s, hold_.get(), [this] { StartGuardAgain(); });
}

void QtSaverPassword::StartGuardAgain() {
    if (!StartGuard()) {
        QTimer::singleShot(1s, hold_.get(), [this] { StartGuardAgain(); });
        return;
    }
    QTimer::singleShot(GuardPatience, guardEnd_.get(), [this] {
        if (!guardStands_ && guardEnd_->isEnabled()) GuardIsGone();
    });
}

}  // namespace tavrix::qt
