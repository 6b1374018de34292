#include "backends/qt/help/HelpWidget.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QImage>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <QUrl>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

#include "backends/qt/x11/X11.h"

namespace tavrix::qt {

namespace {

/// Tables with thin lines and some air, which the text format has no words for.
void DressTables(QTextDocument& document) {
    constexpr qreal air = 4;
    const QList<QTextFrame*> frames = document.rootFrame()->childFrames();
    for (QTextFrame* frame : frames) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (table == nullptr) continue;
        QTextTableFormat format = table->format();
        format.setCellPadding(air);
        format.setCellSpacing(0);
        format.setBorderCollapse(true);
        format.setTopMargin(2 * air);
        format.setBottomMargin(2 * air);
        table->setFormat(format);
    }
}

}  // namespace

QVariant PageView::loadResource(int type, const QUrl&) {
    if (type != QTextDocument::ImageResource) return {};
    QImage pixel(1, 1, QImage::Format_ARGB32_Premultiplied);
    pixel.fill(Qt::transparent);
    return pixel;
}

HelpWidget::HelpWidget(const HelpBook& book)
    : QWidget(nullptr, Qt::Window),
      book_(book),
      buttons_(new QHBoxLayout),
      list_(new QListWidget),
      text_(new PageView) {
    constexpr int listWidth = 200;
    constexpr int textWidth = 540;
    constexpr int height = 560;
    constexpr qreal margin = 12;
    const QString name = QStringLiteral("HelpWindow");
    setObjectName(name);
    setWindowRole(name);
    setWindowTitle(QStringLiteral("Tavrix Help"));

    AddButton(QStringLiteral("&Contents"), {QKeySequence(Qt::ALT | Qt::Key_Home)}, &HelpWidget::ShowContents);
    back_ = AddButton(QStringLiteral("&Back"), {QKeySequence(Qt::ALT | Qt::Key_Left)}, &HelpWidget::GoBack);
    AddButton(QStringLiteral("&Larger Text"),
              {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
              &HelpWidget::EnlargeText);
    AddButton(QStringLiteral("&Smaller Text"), {QKeySequence(Qt::CTRL | Qt::Key_Minus)},
              &HelpWidget::ReduceText);
    buttons_->addStretch();
    AddButton(QStringLiteral("Close"), {QKeySequence(Qt::Key_Escape)}, &HelpWidget::CloseWindow);
    auto* restore = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_0), this);
    connect(restore, &QShortcut::activated, this, &HelpWidget::RestoreText);

    list_->setAccessibleName(QStringLiteral("Pages"));
    list_->setWordWrap(true);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    text_->setOpenLinks(false);
    text_->document()->setDocumentMargin(margin);
    auto* parts = new QSplitter;
    parts->addWidget(list_);
    parts->addWidget(text_);
    parts->setStretchFactor(1, 1);
    parts->setChildrenCollapsible(false);
    parts->setSizes({listWidth, textWidth});
    auto* all = new QVBoxLayout(this);
    all->addLayout(buttons_);
    all->addWidget(parts, 1);
    resize(listWidth + textWidth, height);

    FillList();
    connect(text_, &QTextBrowser::anchorClicked, this, [this](const QUrl& address) { FollowLink(address); });
    connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0) TurnTo(book_.Pages()[static_cast<std::size_t>(row)]);
    });
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

void HelpWidget::FillList() {
    for (const HelpPage& page : book_.Pages())
        list_->addItem(QString::fromStdString(page.title));
}

void HelpWidget::ShowPage(unsigned context) {
    TurnTo(book_.PageOrContents(context));
}

void HelpWidget::TurnTo(const HelpPage& page) {
    if (page_ == &page) return;
    if (page_ != nullptr) history_.push_back(page_);
    page_ = &page;
    back_->setEnabled(!history_.empty());
    list_->setCurrentRow(static_cast<int>(&page - book_.Pages().data()));

    const QString title = QString::fromStdString(page.title);
    QTextDocument& document = *text_->document();
    document.setMarkdown(
        QStringLiteral("# ") + title + QStringLiteral("\n\n") + QString::fromStdString(page.body),
        QTextDocument::MarkdownFeatures(QTextDocument::MarkdownDialectGitHub) |
            QTextDocument::MarkdownNoHTML);
    DressTables(document);
    text_->moveCursor(QTextCursor::Start);
    text_->setAccessibleName(title);
}

void HelpWidget::FollowLink(const QUrl& address) {
    if (const auto context = HelpBook::PageOfLink(address.toString().toStdString())) ShowPage(*context);
}

void HelpWidget::GoBack() {
    if (history_.empty()) return;
    const HelpPage* before = history_.back();
    history_.pop_back();
    page_ = nullptr;  // the page that is left does not become a page to go back to
    TurnTo(*before);
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
