#include "backends/qt/help/HelpWidget.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>
#include <QTextCursor>
#include <QTextDocument>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QUrl>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

#include "backends/qt/x11/X11.h"

namespace tavrix::qt {

HelpWidget::HelpWidget(const HelpBook& book)
    : QWidget(nullptr, Qt::Window),
      book_(book),
      buttons_(new QHBoxLayout),
      search_(new QLineEdit),
      side_(new QStackedWidget),
      contents_(new QTreeWidget),
      found_(new QListWidget),
      text_(new PageView(book)),
      index_(book) {
    constexpr int sideWidth = 250;
    constexpr int textWidth = 560;
    constexpr int height = 560;
    const QString name = QStringLiteral("HelpWindow");
    setObjectName(name);
    setWindowRole(name);
    setWindowTitle(QStringLiteral("Tavrix Help"));

    AddButton(QStringLiteral("&Contents"), {QKeySequence(Qt::ALT | Qt::Key_Home)}, &HelpWidget::ShowContents);
    back_ = AddButton(QStringLiteral("&Back"), {QKeySequence(Qt::ALT | Qt::Key_Left)}, &HelpWidget::GoBack);
    forward_ = AddButton(QStringLiteral("&Forward"), {QKeySequence(Qt::ALT | Qt::Key_Right)},
                         &HelpWidget::GoForward);
    AddButton(QStringLiteral("&Larger Text"),
              {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
              &HelpWidget::EnlargeText);
    AddButton(QStringLiteral("&Smaller Text"), {QKeySequence(Qt::CTRL | Qt::Key_Minus)},
              &HelpWidget::ReduceText);
    buttons_->addStretch();
    AddButton(QStringLiteral("Close"), {QKeySequence(Qt::Key_Escape)}, &HelpWidget::CloseWindow);
    auto* restore = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_0), this);
    connect(restore, &QShortcut::activated, this, &HelpWidget::RestoreText);

    auto* parts = new QSplitter;
    parts->addWidget(MakeSide());
    parts->addWidget(text_);
    parts->setStretchFactor(1, 1);
    parts->setChildrenCollapsible(false);
    parts->setSizes({sideWidth, textWidth});
    auto* all = new QVBoxLayout(this);
    all->addLayout(buttons_);
    all->addWidget(parts, 1);
    resize(sideWidth + textWidth, height);

    FillContents();
    connect(text_, &QTextBrowser::anchorClicked, this, [this](const QUrl& address) { FollowLink(address); });
}

QWidget* HelpWidget::MakeSide() {
    auto* label = new QLabel(QStringLiteral("Se&arch:"));
    label->setBuddy(search_);
    search_->setAccessibleName(QStringLiteral("Search"));
    search_->setClearButtonEnabled(true);
    search_->setToolTip(QKeySequence(Qt::CTRL | Qt::Key_F).toString(QKeySequence::NativeText));
    search_->installEventFilter(this);
    connect(search_, &QLineEdit::textChanged, this, &HelpWidget::Search);
    auto* begin = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F), this);
    connect(begin, &QShortcut::activated, this, &HelpWidget::BeginSearch);

    contents_->setAccessibleName(QStringLiteral("Pages"));
    contents_->setHeaderHidden(true);
    contents_->setWordWrap(true);
    contents_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(contents_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        const QVariant number = item != nullptr ? item->data(0, Qt::UserRole) : QVariant();
        if (number.isValid()) ShowPage(number.toUInt());
    });
    found_->setWordWrap(true);
    found_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(found_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0 && static_cast<std::size_t>(row) < hits_.size())
            TurnTo(*hits_[static_cast<std::size_t>(row)]);
    });
    side_->addWidget(contents_);
    side_->addWidget(found_);

    auto* side = new QWidget;
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins(0, 0, 0, 0);
    auto* line = new QHBoxLayout;
    line->addWidget(label);
    line->addWidget(search_, 1);
    rows->addLayout(line);
    rows->addWidget(side_, 1);
    return side;
}

QPushButton* HelpWidget::AddButton(const QString& text, const QList<QKeySequence>& keys,
                                   void (HelpWidget::*action)()) {
    auto* button = new QPushButton(text, this);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, action);
    for (const QKeySequence& key : keys)
        connect(new QShortcut(key, this), &QShortcut::activated, this, action);
    if (!keys.isEmpty()) button->setToolTip(keys.first().toString(QKeySequence::NativeText));
    buttons_->addWidget(button);
    return button;
}

QTreeWidgetItem* HelpWidget::AddEntry(QTreeWidgetItem* chapter, const HelpPage& page) {
    auto* item = chapter != nullptr ? new QTreeWidgetItem(chapter) : new QTreeWidgetItem(contents_);
    item->setText(0, QString::fromStdString(page.title));
    item->setData(0, Qt::UserRole, page.context);
    return item;
}

void HelpWidget::FillContents() {
    if (const HelpPage* contents = book_.Find(0)) AddEntry(nullptr, *contents);
    for (const HelpChapter& chapter : ChaptersOf(book_)) {
        QTreeWidgetItem* heading = nullptr;
        if (!chapter.title.empty()) {
            heading = new QTreeWidgetItem(contents_);
            heading->setText(0, QString::fromStdString(chapter.title));
            heading->setFlags(Qt::ItemIsEnabled);
        }
        for (const HelpPage* page : chapter.pages)
            AddEntry(heading, *page);
    }
    contents_->expandAll();
}

void HelpWidget::ShowPage(unsigned context) {
    TurnTo(book_.PageOrContents(context));
}

void HelpWidget::TurnTo(const HelpPage& page) {
    if (seen_ > 0 && history_[seen_ - 1] == &page) return;
    history_.resize(seen_);
    history_.push_back(&page);
    ++seen_;
    Display(page);
}

void HelpWidget::Step(int direction) {
    const std::size_t wanted = seen_ + static_cast<std::size_t>(direction);
    if (wanted < 1 || wanted > history_.size()) return;
    seen_ = wanted;
    Display(*history_[seen_ - 1]);
}

void HelpWidget::Display(const HelpPage& page) {
    back_->setEnabled(seen_ > 1);
    forward_->setEnabled(seen_ < history_.size());
    for (QTreeWidgetItemIterator item(contents_); *item != nullptr; ++item) {
        const QVariant number = (*item)->data(0, Qt::UserRole);
        if (!number.isValid() || number.toUInt() != page.context) continue;
        const QSignalBlocker quiet(contents_);
        contents_->setCurrentItem(*item);
    }

    text_->ShowPage(page);
    MarkWords();
}

void HelpWidget::FollowLink(const QUrl& address) {
    if (const auto context = HelpBook::PageOfLink(address.toString().toStdString())) ShowPage(*context);
}

void HelpWidget::BeginSearch() {
    search_->setFocus(Qt::ShortcutFocusReason);
    search_->selectAll();
}

void HelpWidget::CloseWindow() {
    if (search_->text().isEmpty()) {
        close();
    } else {
        search_->clear();
        contents_->setFocus();
    }
}

void HelpWidget::Search(const QString& text) {
    hits_ = index_.Find(text.toStdString());
    const QSignalBlocker quiet(found_);
    found_->clear();
    for (const HelpPage* page : hits_)
        found_->addItem(QString::fromStdString(page->title));
    if (hits_.empty()) {
        found_->addItem(QStringLiteral("No page has these words."));
        found_->item(0)->setFlags(Qt::NoItemFlags);
    }
    const auto count = static_cast<int>(hits_.size());
    found_->setAccessibleName(count == 1 ? QStringLiteral("One page found")
                                         : QStringLiteral("%1 pages found").arg(count));
    side_->setCurrentWidget(WordsOf(text.toStdString()).empty() ? static_cast<QWidget*>(contents_) : found_);
    MarkWords();
}

void HelpWidget::MarkWords() {
    QList<QTextEdit::ExtraSelection> marks;
    for (const std::string& word : WordsOf(search_->text().toStdString())) {
        constexpr qsizetype fewest = 2;  // a single letter would mark half of the page
        const QString stem = QString::fromStdString(StemOf(word));
        if (stem.size() < fewest) continue;
        for (QTextCursor at = text_->document()->find(stem); !at.isNull();
             at = text_->document()->find(stem, at)) {
            const int before = at.selectionStart() - 1;
            if (before >= 0 && text_->document()->characterAt(before).isLetterOrNumber()) continue;
            QTextEdit::ExtraSelection mark;
            mark.cursor = at;
            mark.cursor.movePosition(QTextCursor::EndOfWord, QTextCursor::KeepAnchor);
            mark.format.setBackground(QColor(255, 232, 120));
            mark.format.setForeground(Qt::black);
            marks.append(mark);
        }
    }
    text_->setExtraSelections(marks);
}

bool HelpWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched == search_ && event->type() == QEvent::KeyPress && side_->currentWidget() == found_ &&
        !hits_.empty()) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter) {
            found_->setFocus();
            found_->setCurrentRow(0);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void HelpWidget::Zoom(int points) {
    constexpr int smallest = -4;
    constexpr int largest = 24;
    const int wanted = std::clamp(zoom_ + points, smallest, largest);
    text_->zoomIn(wanted - zoom_);
    zoom_ = wanted;
}

void HelpWidget::ComeToFront(bool topmost) {
    if (isMinimized()) showNormal();
    show();
    usable_.Attach();
    raise();
    activateWindow();
    text_->setFocus();
    const QWindow* modal = QGuiApplication::modalWindow();
    const bool belowTopmost = modal != nullptr && modal->flags().testFlag(Qt::WindowStaysOnTopHint);
    if (x11::Running()) x11::SetAbove(static_cast<std::uint32_t>(winId()), topmost || belowTopmost);
}

}  // namespace tavrix::qt
