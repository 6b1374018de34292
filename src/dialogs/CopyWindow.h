#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// The wait window with its Cancel button beside work on files. It is loaded and shown for the life of this object, or
/// until Close; the user may have closed it before.
class CopyWindow {
  public:
    explicit CopyWindow(MainModule& module);
    ~CopyWindow() { Close(); }
    CopyWindow(const CopyWindow&) = delete;
    CopyWindow& operator=(const CopyWindow&) = delete;

    /// Puts a text on the label and lets messages run.
    void Tell(const std::string& text);
    void Close();

  private:
    MainModule& module_;
    bool open_ = true;
};

}  // namespace tavrix
