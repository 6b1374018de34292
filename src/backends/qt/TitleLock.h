#pragma once

#include <string>

namespace tavrix::qt {

/// Tells other processes of the user that a window with this title is open, where the window system does not let
/// them see it. A locked file in the user's runtime folder; where that cannot be had nothing is told.
class TitleLock {
  public:
    explicit TitleLock(const std::string& title);
    ~TitleLock();
    TitleLock(const TitleLock&) = delete;
    TitleLock& operator=(const TitleLock&) = delete;

    /// Whether any process holds the lock of this title.
    [[nodiscard]] static bool IsHeld(const std::string& title);

  private:
    std::string path_;
    int file_ = -1;
};

}  // namespace tavrix::qt
