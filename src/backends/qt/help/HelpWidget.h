#pragma once

#include <QWidget>
#include <vector>

#include "backends/qt/help/AlwaysUsable.h"
#include "backends/qt/help/PageView.h"
#include "backends/shared/help/HelpBook.h"
#include "backends/shared/help/HelpIndex.h"

class QHBoxLayout;
class QKeySequence;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace tavrix::qt {

/// The widgets of the help window: beside the page that is turned up stand the contents, or what a search found.
class HelpWidget final : public QWidget {
  public:
    /// The book must outlive this.
    explicit HelpWidget(const HelpBook& book);

    /// Turns to a page, or to the contents when there is none of this number.
    void ShowPage(unsigned context);
    void ComeToFront(bool topmost);
    /// What is typed next is searched for.
    void BeginSearch();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QPushButton* AddButton(const QString& text, const QList<QKeySequence>& keys,
                           void (HelpWidget::*action)());
    [[nodiscard]] QWidget* MakeSide();
    void FillContents();
    QTreeWidgetItem* AddEntry(QTreeWidgetItem* chapter, const HelpPage& page);
    void TurnTo(const HelpPage& page);
    /// Shows a page; where it came from is the caller's business.
    void Display(const HelpPage& page);
    void FollowLink(const QUrl& address);
    void ShowContents() { ShowPage(0); }
    void GoBack() { Step(-1); }
    void GoForward() { Step(1); }
    void Step(int direction);
    void EnlargeText() { Zoom(1); }
    void ReduceText() { Zoom(-1); }
    void RestoreText() { Zoom(-zoom_); }
    /// Escape ends the search first.
    void CloseWindow();
    void Zoom(int points);
    void Search(const QString& text);
    /// Marks the words that are searched for.
    void MarkWords();

    const HelpBook& book_;
    AlwaysUsable usable_{*this};
    QHBoxLayout* buttons_;
    QPushButton* back_;
    QPushButton* forward_;
    QLineEdit* search_;
    QStackedWidget* side_;  ///< contents_ or found_
    QTreeWidget* contents_;
    QListWidget* found_;
    PageView* text_;
    HelpIndex index_;
    std::vector<const HelpPage*> hits_;     ///< the rows of found_
    std::vector<const HelpPage*> history_;  ///< the pages that were seen, in order
    std::size_t seen_ = 0;                  ///< how many of them up to the page that is turned up
    int zoom_ = 0;                          ///< points added to the size of the text
};

}  // namespace tavrix::qt
