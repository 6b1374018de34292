#pragma once

#include <optional>
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
    /// The same for one of many texts: those that nobody could read are left out, since painting takes longer than copying
    /// a small file.
    void Progress(const std::string& text);
    /// Takes the window from the screen while a question is open.
    void Hide();
    void Show();
    void Close();

  private:
    MainModule& module_;
    std::optional<forms::Milliseconds> painted_;  ///< when a text was last put on the label
    bool open_ = true;
};

}  // namespace tavrix
