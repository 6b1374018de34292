#pragma once

#include <QLineEdit>
#include <QValidator>

#include "backends/qt/peers/QtControl.h"
#include "backends/qt/peers/SinkWidget.h"

namespace tavrix::qt {

/// Cuts what the user enters beyond the most characters, at the end of what was entered.
class LengthValidator final : public QValidator {
  public:
    using QValidator::QValidator;
    State validate(QString& text, int& caret) const override;

    int most = 0;  ///< 0: any number
};

class TextWidget final : public SinkWidget<QLineEdit> {
  public:
    TextWidget(QWidget& parent, const SinkPort& port);

    void PushText(const QString& text);
    void PushSelection(int start, int length);
    void PushMaxLength(int characters) { length_.most = characters; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

  private:
    struct Content {
        QString text;
        int start = 0;
        int length = 0;
        friend bool operator==(const Content&, const Content&) = default;
    };

    [[nodiscard]] Content Now() const;
    void TellNews();
    /// What of typed characters the handlers leave.
    [[nodiscard]] QString Kept(const QString& typed);

    LengthValidator length_;
    Content known_;  ///< as forms have it
    bool pushing_ = false;
};

class QtTextBox final : public QtControl<forms::TextPeer, TextWidget> {
  public:
    QtTextBox(const SinkPort& port, const NativePeer& container)
        : QtControl(new TextWidget(*container.ControlParent(), port)) {}

    void SetText(const std::string& text) override { Get().PushText(QString::fromStdString(text)); }
    void SetSelection(int start, int length) override { Get().PushSelection(start, length); }
    void SetMaxLength(int characters) override { Get().PushMaxLength(characters); }
};

}  // namespace tavrix::qt
