#pragma once

#include <QHash>
#include <QImage>
#include <QString>
#include <QTextBrowser>

#include "backends/shared/help/HelpBook.h"

namespace tavrix::qt {

/// A page of text with the pictures of its book. It loads nothing from anywhere else: other pictures are a transparent pixel.
///
/// Below each picture stands what is to be seen on it, which is also what a screen reader reads.
class PageView final : public QTextBrowser {
  public:
    /// The book must outlive this.
    explicit PageView(const HelpBook& book);

    void ShowPage(const HelpPage& page);

    QVariant loadResource(int type, const QUrl& address) override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    /// The picture as it is in the book, with two pixels for each at 100 %; null when there is none.
    [[nodiscard]] const QImage& Original(const QString& address);
    /// The picture as large as the column of text allows, but no larger than it is meant to be.
    [[nodiscard]] QImage Fitted(const QString& address);
    /// The width that text and pictures have, in pixels at 100 %.
    [[nodiscard]] int Column() const;
    void CaptionPictures();
    void FitPictures();

    const HelpBook& book_;
    QHash<QString, QImage> originals_;
    QStringList shown_;  ///< the addresses of the pictures on the page
    int column_ = 0;     ///< the column that they were fitted to
};

}  // namespace tavrix::qt
