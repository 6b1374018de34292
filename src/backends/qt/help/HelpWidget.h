#pragma once

#include <QTextBrowser>
#include <QWidget>
#include <vector>

#include "backends/qt/help/AlwaysUsable.h"
#include "backends/shared/help/HelpBook.h"

class QHBoxLayout;
class QKeySequence;
class QListWidget;
class QPushButton;

namespace tavrix::qt {

/// A page of text that loads nothing from anywhere: pictures are a transparent pixel.
class PageView final : public QTextBrowser {
  public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl& address) override;
};

/// The widgets of the help window.
class HelpWidget final : public QWidget {
  public:
    /// The book must outlive this.
    explicit HelpWidget(const HelpBook& book);

    /// Turns to a page, or to the contents when there is none of this number.
    void ShowPage(unsigned context);
    void ComeToFront(bool topmost);

  private:
    QPushButton* AddButton(const QString& text, const QList<QKeySequence>& keys,
                           void (HelpWidget::*action)());
    void FillList();
    void TurnTo(const HelpPage& page);
    void FollowLink(const QUrl& address);
    void ShowContents() { ShowPage(0); }
    void GoBack();
    void EnlargeText() { Zoom(1); }
    void ReduceText() { Zoom(-1); }
    void RestoreText() { Zoom(-zoom_); }
    void CloseWindow() { close(); }
    void Zoom(int points);

    const HelpBook& book_;
    AlwaysUsable usable_{*this};
    QHBoxLayout* buttons_;
    QPushButton* back_;
    QListWidget* list_;
    PageView* text_;
    const HelpPage* page_ = nullptr;
    std::vector<const HelpPage*> history_;  ///< the pages before this one, the latest last
    int zoom_ = 0;                          ///< points added to the size of the text
};

}  // namespace tavrix::qt
