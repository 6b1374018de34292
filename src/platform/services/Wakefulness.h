#pragma once

namespace tavrix {

/// Keeps the desktop from blanking or locking the screen while nobody touches it.
class Wakefulness {
  public:
    virtual ~Wakefulness() = default;
    /// Asks for a screen that stays on, or takes that back. It is a switch and no count: the same value again changes
    /// nothing. Returns at once and never fails; a desktop that knows no such wish does as it always does. The end of
    /// the process, however it comes, takes the wish back.
    virtual void Inhibit(bool on) = 0;
};

}  // namespace tavrix
