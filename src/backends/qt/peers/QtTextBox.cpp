#include "backends/qt/peers/QtTextBox.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <limits>

#include "backends/qt/peers/CodePoints.h"
#include "platform/forms/TextBox.h"

namespace tavrix::qt {

QValidator::State LengthValidator::validate(QString& text, int& caret) const {
    if (most == 0) return Acceptable;
    const int excess = ToCharacters(text, text.size()) - most;
    if (excess <= 0) return Acceptable;
    // What was entered ends at the caret.
    const int before = ToCharacters(text, caret);
    const int from = ToUnits(text, before - excess);
    text.remove(from, caret - from);
    caret = from;
    return Acceptable;
}

TextWidget::TextWidget(QWidget& parent, const SinkPort& port) : SinkWidget(port, &parent) {
    setMaxLength(std::numeric_limits<int>::max());  // Qt would cut characters in halves
    setValidator(&length_);
    connect(this, &QLineEdit::textChanged, this, [this] { TellNews(); });
    connect(this, &QLineEdit::selectionChanged, this, [this] { TellNews(); });
    connect(this, &QLineEdit::cursorPositionChanged, this, [this] { TellNews(); });
}

TextWidget::Content TextWidget::Now() const {
    Content now{text(), 0, 0};
    const int start = hasSelectedText() ? selectionStart() : cursorPosition();
    now.start = ToCharacters(now.text, start);
    now.length = ToCharacters(now.text, start + selectionLength()) - now.start;
    return now;
}

void TextWidget::TellNews() {
    if (pushing_) return;
    Content now = Now();
    if (now == known_) return;
    known_ = std::move(now);
    Port().Deliver(forms::TextEvent{known_.text.toStdString(), known_.start, known_.length});
}

QString TextWidget::Kept(const QString& typed) {
    QString kept;
    for (const char32_t code : typed.toUcs4()) {
        const QString character = QString::fromUcs4(&code, 1);
        bool discarded = false;
        Port().Deliver(forms::CharacterEvent{character.toStdString(), &discarded});
        if (!discarded) kept += character;
    }
    return kept;
}

void TextWidget::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    const auto shift = event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const bool enters =
        !text.isEmpty() && text.at(0).category() != QChar::Other_Control && shift != Qt::ControlModifier;
    const QString typed = event->key() == Qt::Key_Backspace
                              ? QString::fromUtf8(forms::TextBox::BackspaceCharacter)
                          : enters ? text
                                   : QString();
    if (Kept(typed) == typed) SinkWidget::keyPressEvent(event);
}

void TextWidget::inputMethodEvent(QInputMethodEvent* event) {
    const QString typed = event->commitString();
    const QString kept = Kept(typed);
    if (kept == typed) {
        SinkWidget::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent rest(event->preeditString(), event->attributes());
    rest.setCommitString(kept, event->replacementStart(), event->replacementLength());
    SinkWidget::inputMethodEvent(&rest);
}

void TextWidget::PushText(const QString& newText) {
    pushing_ = true;
    setText(newText);
    pushing_ = false;
    known_ = Now();
}

void TextWidget::PushSelection(int start, int length) {
    const QString all = text();
    const int from = ToUnits(all, start);
    const int end = ToUnits(all, start + length);
    pushing_ = true;
    if (length == 0) {
        deselect();
        setCursorPosition(from);
    } else {
        setSelection(from, end - from);
    }
    pushing_ = false;
    known_ = Now();
}

}  // namespace tavrix::qt
