#include "backends/qt/peers/QtInputBox.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "backends/qt/peers/Owner.h"

namespace tavrix::qt {

QtInputBox::QtInputBox(const forms::InputRequest& request, Answered answered, ScreenPointer& pointer,
                       LogicCalls& calls)
    : answered_(std::move(answered)), pointer_(pointer), calls_(calls), box_(new QDialog) {
    constexpr int FieldCharacters = 40;
    const QString promptText = QString::fromStdString(request.prompt).remove(QLatin1Char('\r'));
    box_->setWindowTitle(QString::fromStdString(request.title));

    auto* layout = new QVBoxLayout(box_);
    auto* prompt = new QLabel(box_);
    prompt->setTextFormat(Qt::PlainText);
    prompt->setText(promptText);
    auto* field = new QLineEdit(QString::fromStdString(request.text), box_);
    field->setAccessibleName(promptText);
    field->setMinimumWidth(FieldCharacters * field->fontMetrics().averageCharWidth());
    field->selectAll();
    auto* buttons = new QDialogButtonBox(box_);
    for (const auto& [kind, text] :
         {std::pair(QDialogButtonBox::Ok, "OK"), {QDialogButtonBox::Cancel, "Cancel"}}) {
        QPushButton* button = buttons->addButton(kind);
        button->setText(QString::fromLatin1(text));
        button->setIcon({});
        button->setDefault(kind == QDialogButtonBox::Ok);
    }
    layout->addWidget(prompt);
    layout->addWidget(field);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    QObject::connect(buttons, &QDialogButtonBox::accepted, box_, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, box_, &QDialog::reject);
    QObject::connect(box_, &QDialog::accepted, box_, [this, field] { Tell(field->text().toStdString()); });
    QObject::connect(box_, &QDialog::rejected, box_, [this] { Tell(std::nullopt); });

    box_->setWindowModality(Qt::ApplicationModal);
    SetOwner(*box_, OwnerOfModal(*box_));
    pointer_.BoxOpened();
    field->setFocus();
    box_->show();
    box_->raise();
    box_->activateWindow();
}

QtInputBox::~QtInputBox() {
    pointer_.BoxClosed();
    if (!box_) return;
    // Only these signals: the accessibility bridge waits for the box's end, too.
    QObject::disconnect(box_, &QDialog::accepted, nullptr, nullptr);
    QObject::disconnect(box_, &QDialog::rejected, nullptr, nullptr);
    box_->hide();
    box_->deleteLater();
}

void QtInputBox::Tell(const std::optional<std::string>& text) {
    const LogicCalls::Scope scope(calls_);
    if (const auto answered = std::exchange(answered_, nullptr)) answered(text);
}

}  // namespace tavrix::qt
