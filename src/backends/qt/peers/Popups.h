#pragma once

#include <QObject>
#include <functional>

namespace tavrix::qt {

class LogicCalls;
class QtMenuItem;

/// The menu that is open as a popup, if there is one.
class Popups {
  public:
    explicit Popups(LogicCalls& calls) : calls_(calls) {}

    /// Opens a submenu at the pointer; `closed` as Toolkit::OpenPopup says.
    void Open(QtMenuItem& subMenu, const QtMenuItem* defaultEntry, std::function<void()> closed);
    /// An entry was chosen. True: it belongs to the popup, which delivers the click when it is gone.
    bool Note(QtMenuItem& entry);
    /// The entry goes.
    void Forget(const QtMenuItem& entry);

  private:
    void FinishSoon();
    void Finish();

    LogicCalls& calls_;
    QObject context_;  ///< what is still queued goes with it
    QtMenuItem* root_ = nullptr;
    QtMenuItem* chosen_ = nullptr;
    std::function<void()> closed_;
};

}  // namespace tavrix::qt
