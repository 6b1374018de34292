#include "backends/qt/peers/QtBox.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QShortcut>
#include <algorithm>
#include <span>
#include <utility>

#include "backends/qt/peers/LetterPress.h"
#include "backends/qt/peers/Owner.h"

namespace tavrix::qt {

using forms::Answer;
using forms::BoxButtons;
using forms::BoxIcon;

namespace {

struct ButtonKind {
    QMessageBox::StandardButton standard;
    Answer answer;
    const char* text;
};
constexpr ButtonKind Ok{QMessageBox::Ok, Answer::Ok, "OK"};
constexpr ButtonKind Cancel{QMessageBox::Cancel, Answer::Cancel, "Cancel"};
constexpr ButtonKind Retry{QMessageBox::Retry, Answer::Retry, "&Retry"};
constexpr ButtonKind Yes{QMessageBox::Yes, Answer::Yes, "&Yes"};
constexpr ButtonKind No{QMessageBox::No, Answer::No, "&No"};

std::span<const ButtonKind> KindsOf(BoxButtons buttons) {
    static constexpr ButtonKind JustOk[] = {Ok};
    static constexpr ButtonKind OkCancel[] = {Ok, Cancel};
    static constexpr ButtonKind YesNoCancel[] = {Yes, No, Cancel};
    static constexpr ButtonKind YesNo[] = {Yes, No};
    static constexpr ButtonKind RetryCancel[] = {Retry, Cancel};
    switch (buttons) {
        case BoxButtons::Ok:
            return JustOk;
        case BoxButtons::OkCancel:
            return OkCancel;
        case BoxButtons::YesNoCancel:
            return YesNoCancel;
        case BoxButtons::YesNo:
            return YesNo;
        case BoxButtons::RetryCancel:
            return RetryCancel;
    }
    return JustOk;
}

QMessageBox::Icon IconOf(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::Information:
            return QMessageBox::Information;
        case BoxIcon::Exclamation:
            return QMessageBox::Warning;
        case BoxIcon::Question:
            return QMessageBox::Question;
        case BoxIcon::Stop:
            return QMessageBox::Critical;
        case BoxIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

/// A box whose letters, with Alt or without, answer it at once.
class Box final : public QMessageBox {
  public:
    QPushButton* Add(StandardButton kind, const char* text) {
        QPushButton* button = addButton(kind);
        button->setText(QString::fromLatin1(text));
        button->setIcon({});
        button->installEventFilter(this);
        return button;
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* button = qobject_cast<QAbstractButton*>(watched);
        if (button == nullptr || !IsLetterPress(*event)) return QMessageBox::eventFilter(watched, event);
        button->click();
        return true;
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (QAbstractButton* button = ButtonOf(*event)) {
            button->click();
        } else {
            QMessageBox::keyPressEvent(event);
        }
    }

  private:
    /// The button whose letter was typed.
    [[nodiscard]] QAbstractButton* ButtonOf(const QKeyEvent& event) const {
        if ((event.modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier)) != 0)
            return nullptr;
        const QList<QAbstractButton*> all = buttons();
        const auto found = std::ranges::find_if(all, [&event](const QAbstractButton* button) {
            const QKeySequence letter = button->shortcut();
            return !letter.isEmpty() && letter[0].key() == event.key();
        });
        return found != all.end() ? *found : nullptr;
    }
};

}  // namespace

QtBox::QtBox(const forms::BoxRequest& request, std::function<void(Answer)> answered,
             const std::function<void()>& help, ScreenPointer& pointer, LogicCalls& calls)
    : answered_(std::move(answered)), pointer_(pointer), calls_(calls) {
    auto* const box = new Box;
    box_ = box;
    box_->setTextFormat(Qt::PlainText);
    box_->setWindowTitle(QString::fromStdString(request.title));
    box_->setText(QString::fromStdString(request.text).remove(QLatin1Char('\r')));
    box_->setIcon(IconOf(request.icon));

    const Answer escape = EscapeAnswer(request.buttons);
    int number = 0;
    for (const ButtonKind& kind : KindsOf(request.buttons)) {
        QPushButton* button = box->Add(kind.standard, kind.text);
        if (++number == request.defaultButton) box_->setDefaultButton(button);
        if (kind.answer == escape) box_->setEscapeButton(button);
    }
    if (request.help) {
        QPushButton* button = box->Add(QMessageBox::Help, "Help");
        // It does not close the box, as all buttons of such a box do by themselves.
        QObject::disconnect(button, &QPushButton::clicked, nullptr, nullptr);
        QObject::connect(button, &QPushButton::clicked, box_, [this, help] {
            const LogicCalls::Scope scope(calls_);
            if (help) help();
        });
        QObject::connect(new QShortcut(QKeySequence(Qt::Key_F1), box_), &QShortcut::activated, button,
                         &QPushButton::click);
    }
    QObject::connect(box_, &QMessageBox::finished, box_, [this, buttons = request.buttons] {
        const QMessageBox::StandardButton pressed = box_->standardButton(box_->clickedButton());
        for (const ButtonKind& kind : KindsOf(buttons)) {
            if (kind.standard == pressed) {
                Tell(kind.answer);
                return;
            }
        }
        Tell(EscapeAnswer(buttons));
    });

    box_->setWindowModality(Qt::ApplicationModal);
    // Behind the modality, which resets the flags of a box.
    if (request.systemModal) box_->setWindowFlag(Qt::WindowStaysOnTopHint);
    SetOwner(*box_, OwnerOfModal(*box_));
    pointer_.BoxOpened();
    box_->show();
    box_->raise();
    box_->activateWindow();
}

QtBox::~QtBox() {
    pointer_.BoxClosed();
    if (!box_) return;
    // Only this signal: the accessibility bridge waits for the box's end, too.
    QObject::disconnect(box_, &QMessageBox::finished, nullptr, nullptr);
    box_->hide();
    box_->deleteLater();
}

void QtBox::Tell(Answer answer) {
    const LogicCalls::Scope scope(calls_);
    if (const auto answered = std::exchange(answered_, nullptr)) answered(answer);
}

}  // namespace tavrix::qt
