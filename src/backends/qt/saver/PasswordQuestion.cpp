#include "backends/qt/saver/PasswordQuestion.h"

#include <pwd.h>
#include <unistd.h>

#include <QDialogButtonBox>
#include <QEventLoop>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QSocketNotifier>
#include <QVBoxLayout>
#include <cstring>
#include <utility>

#include "backends/qt/peers/Owner.h"

namespace tavrix::qt {
namespace {

constexpr int LongestPassword = 500;  ///< characters

QString AccountName() {
    const passwd* account = ::getpwuid(::getuid());
    return account != nullptr ? QString::fromLocal8Bit(account->pw_name) : QString();
}

/// Takes the text out of a field and leaves no copy of it there.
QByteArray TakeText(QLineEdit& field) {
    QString text = field.text();
    field.clear();
    QByteArray bytes = text.toUtf8();
    text.fill(QChar(0));
    return bytes;
}

}  // namespace

PasswordQuestion::PasswordQuestion(std::string checker, Limits limits)
    : checker_(std::move(checker)),
      limits_(limits),
      text_(new QLabel(this)),
      field_(new QLineEdit(this)),
      buttons_(new QDialogButtonBox(this)) {
    constexpr int FieldCharacters = 30;
    setWindowTitle(QStringLiteral("Tavrix"));
    setObjectName(QStringLiteral("PasswordQuestion"));
    const QString question =
        QStringLiteral("Enter the password of %1 to end the screen saver:").arg(AccountName());
    text_->setTextFormat(Qt::PlainText);
    text_->setText(question);
    text_->setMinimumWidth(text_->sizeHint().width());  // whatever it says later
    field_->setAccessibleName(question);
    field_->setEchoMode(QLineEdit::Password);
    field_->setContextMenuPolicy(Qt::NoContextMenu);  // a menu would take the keyboard and let go of it
    field_->setDragEnabled(false);
    field_->setAcceptDrops(false);
    field_->setMaxLength(LongestPassword);
    field_->setMinimumWidth(FieldCharacters * field_->fontMetrics().averageCharWidth());
    for (const auto& [kind, text] :
         {std::pair(QDialogButtonBox::Ok, "OK"), {QDialogButtonBox::Cancel, "Cancel"}}) {
        QPushButton* button = buttons_->addButton(kind);
        button->setText(QString::fromLatin1(text));
        button->setIcon({});
        button->setDefault(kind == QDialogButtonBox::Ok);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_);
    layout->addWidget(field_);
    layout->addWidget(buttons_);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    time_.setSingleShot(true);
    connect(&time_, &QTimer::timeout, this, &PasswordQuestion::reject);
    connect(field_, &QLineEdit::textEdited, this, [this] { time_.start(limits_.entry); });
    connect(buttons_, &QDialogButtonBox::accepted, this, [this] { Check(); });
    connect(buttons_, &QDialogButtonBox::rejected, this, &PasswordQuestion::reject);
}

PasswordQuestion::~PasswordQuestion() {
    if (check_) check_->Kill();
}

bool PasswordQuestion::Ask() {
    setWindowModality(Qt::ApplicationModal);
    SetOwner(*this, OwnerOfModal(*this));
    QEventLoop loop;
    connect(this, &QDialog::finished, &loop, &QEventLoop::quit);
    time_.start(limits_.entry);
    field_->setFocus();
    show();
    raise();
    activateWindow();
    loop.exec();
    time_.stop();
    return right_;
}

void PasswordQuestion::Check() {
    if (!field_->isVisible()) {
        QDialog::reject();  // what was told has been read
        return;
    }
    QByteArray password = TakeText(*field_);
    field_->setEnabled(false);
    buttons_->button(QDialogButtonBox::Ok)->setEnabled(false);
    text_->setText(QStringLiteral("Checking the password..."));
    check_ = PipedProgram::Start(checker_);
    const bool sent =
        check_ && check_->Write({password.constData(), static_cast<std::size_t>(password.size())});
    ::explicit_bzero(password.data(), static_cast<std::size_t>(password.size()));
    if (!sent) {
        Tell(QStringLiteral("The password could not be checked."));
        return;
    }
    check_->EndInput();
    checked_ = std::make_unique<QSocketNotifier>(check_->Descriptor(), QSocketNotifier::Read);
    connect(checked_.get(), &QSocketNotifier::activated, this, [this] { TakeStatus(); });
    time_.start(limits_.check);
}

void PasswordQuestion::TakeStatus() {
    constexpr std::chrono::milliseconds End(1000);  // its output has ended, and so does it
    checked_->setEnabled(false);
    const std::optional<int> status = check_->Status(End);
    if (status == 0) {
        right_ = true;
        accept();
    } else if (status == 1) {
        Tell(QStringLiteral("The password is wrong."));
    } else {
        Tell(QStringLiteral("The password could not be checked."));
    }
}

void PasswordQuestion::Tell(const QString& text) {
    if (check_) check_->Kill();
    check_.reset();
    text_->setText(text);
    field_->hide();
    buttons_->button(QDialogButtonBox::Cancel)->hide();
    QPushButton* ok = buttons_->button(QDialogButtonBox::Ok);
    ok->setEnabled(true);
    ok->setFocus();
    time_.start(limits_.notice);
}

/// No window manager puts a frame around it.
void PasswordQuestion::paintEvent(QPaintEvent* event) {
    QDialog::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void PasswordQuestion::reject() {
    field_->clear();
    QDialog::reject();
}

}  // namespace tavrix::qt
