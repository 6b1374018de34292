#pragma once

#include <memory>
#include <string>

class QApplication;

namespace tavrix::qt {

class DesktopLook;
struct Look;

/// The window system's side of the process: made once, before any toolkit, and outliving all of them. The program's
/// own arguments are not shown to Qt, which would take some of them for its own.
class QtProcess {
  public:
    explicit QtProcess(std::string program);
    ~QtProcess();
    QtProcess(const QtProcess&) = delete;
    QtProcess& operator=(const QtProcess&) = delete;

    /// What the desktop's user wishes, in place of what the desktop has told.
    void Follow(const Look& look);

  private:
    std::string program_;
    int argumentCount_ = 1;
    char* arguments_[2] = {};
    std::unique_ptr<QApplication> application_;
    std::unique_ptr<DesktopLook> look_;
};

}  // namespace tavrix::qt
