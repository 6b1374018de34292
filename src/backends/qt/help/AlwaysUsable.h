#pragma once

#include <QObject>

class QWidget;

namespace tavrix::qt {

/// Keeps a window usable while boxes and modal windows of the program are open, those that open later too: it belongs
/// to whichever is the topmost of them. Such a window owns no other.
class AlwaysUsable final : public QObject {
  public:
    /// The window must outlive this.
    explicit AlwaysUsable(QWidget& window);

    /// To be called after the window was shown.
    void Attach();

    [[nodiscard]] static bool Is(const QWidget& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void AttachSoon();

    QWidget& window_;
};

}  // namespace tavrix::qt
