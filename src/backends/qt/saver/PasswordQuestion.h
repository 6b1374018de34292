#pragma once

#include <QDialog>
#include <QTimer>
#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "backends/linux/PipedProgram.h"

class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QSocketNotifier;

namespace tavrix::qt {

/// Asks for the password of the account that runs the program, above its active window. A program of ours checks it; the
/// window stays alive meanwhile. A wrong one is told. Nobody is waited for: without an entry the question closes itself.
class PasswordQuestion final : public QDialog {
  public:
    struct Limits {
        std::chrono::milliseconds entry{30'000};  ///< without a change of what is entered
        std::chrono::milliseconds check{30'000};
        std::chrono::milliseconds notice{5'000};  ///< for which a wrong password is told
    };

    /// `checker` is the path of the program that checks, see tavrix-password.
    PasswordQuestion(std::string checker, Limits limits);
    explicit PasswordQuestion(std::string checker) : PasswordQuestion(std::move(checker), Limits()) {}
    ~PasswordQuestion() override;

    /// Whether the right password was entered. Messages run meanwhile. A question that was closed, whose time was over and
    /// whose check failed, was not answered right.
    [[nodiscard]] bool Ask();

  private:
    void Check();
    void TakeStatus();
    void Tell(const QString& text);
    void reject() override;
    void paintEvent(QPaintEvent* event) override;

    std::string checker_;
    Limits limits_;
    QLabel* text_;
    QLineEdit* field_;
    QDialogButtonBox* buttons_;
    QTimer time_;
    std::optional<PipedProgram> check_;
    std::unique_ptr<QSocketNotifier> checked_;
    bool right_ = false;
};

}  // namespace tavrix::qt
