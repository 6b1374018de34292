#include "backends/qt/help/PageView.h"

#include <QBuffer>
#include <QImageReader>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <QUrl>
#include <algorithm>
#include <cmath>
#include <ranges>
#include <utility>
#include <vector>

namespace tavrix::qt {
namespace {

constexpr int PixelsAtFull = 2;       ///< pictures are made for 200 %
constexpr int LargestPicture = 4096;  ///< pixels on a side

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

QImage Decoded(std::string_view bytes) {
    QByteArray copy(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "png");
    const QSize size = reader.size();
    if (!size.isValid() || std::max(size.width(), size.height()) > LargestPicture) return {};
    // A palette would be kept when the picture is made smaller, and its colours be mixed of points.
    return reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage TransparentPixel() {
    QImage pixel(1, 1, QImage::Format_ARGB32_Premultiplied);
    pixel.fill(Qt::transparent);
    return pixel;
}

}  // namespace

PageView::PageView(const HelpBook& book) : book_(book) {
    constexpr qreal margin = 12;
    setOpenLinks(false);
    document()->setDocumentMargin(margin);
}

void PageView::ShowPage(const HelpPage& page) {
    const QString title = QString::fromStdString(page.title);
    column_ = 0;
    shown_.clear();
    document()->setMarkdown(
        QStringLiteral("# ") + title + QStringLiteral("\n\n") + QString::fromStdString(page.body),
        QTextDocument::MarkdownFeatures(QTextDocument::MarkdownDialectGitHub) |
            QTextDocument::MarkdownNoHTML);
    DressTables(*document());
    CaptionPictures();
    FitPictures();
    moveCursor(QTextCursor::Start);
    setAccessibleName(title);
}

QVariant PageView::loadResource(int type, const QUrl& address) {
    if (type != QTextDocument::ImageResource) return {};
    const QImage picture = Fitted(address.toString());
    return picture.isNull() ? TransparentPixel() : picture;
}

void PageView::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    FitPictures();
}

const QImage& PageView::Original(const QString& address) {
    auto known = originals_.find(address);
    if (known == originals_.end()) {
        known = originals_.insert(address, Decoded(book_.PictureAt(address.toStdString())));
    }
    return *known;
}

QImage PageView::Fitted(const QString& address) {
    const QImage& original = Original(address);
    if (original.isNull()) return {};
    const int column = std::max(1, Column());
    const int width = std::min(original.width() / PixelsAtFull, column);
    const qreal ratio = devicePixelRatioF();
    const int pixels = std::max(1, static_cast<int>(std::lround(width * ratio)));
    QImage fitted =
        pixels == original.width() ? original : original.scaledToWidth(pixels, Qt::SmoothTransformation);
    fitted.setDevicePixelRatio(ratio);
    return fitted;
}

void PageView::CaptionPictures() {
    struct Place {
        int end;
        QString text;
    };
    std::vector<Place> places;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            if (!format.isImageFormat()) continue;
            const QString address = format.toImageFormat().name();
            if (!shown_.contains(address)) shown_.append(address);
            places.push_back({part.fragment().position() + part.fragment().length(),
                              format.stringProperty(QTextFormat::ImageAltText)});
        }
    }
    QTextCharFormat caption;
    caption.setFontItalic(true);
    // From the last one on, since each text moves what follows.
    for (const Place& place : std::views::reverse(places)) {
        QTextCursor cursor(document());
        cursor.setPosition(place.end);
        cursor.insertText(QChar(QChar::LineSeparator) + place.text, caption);
    }
}

int PageView::Column() const {
    // As if the scroll bar was there always, so that no picture comes and goes with it.
    const int outside = 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
    return width() - outside - 2 * static_cast<int>(std::ceil(document()->documentMargin()));
}

void PageView::FitPictures() {
    if (shown_.isEmpty() || column_ == Column()) return;
    column_ = Column();
    for (const QString& address : std::as_const(shown_)) {
        const QUrl url(address);
        document()->addResource(QTextDocument::ImageResource, url,
                                loadResource(QTextDocument::ImageResource, url));
    }
    document()->markContentsDirty(0, document()->characterCount());
}

}  // namespace tavrix::qt
