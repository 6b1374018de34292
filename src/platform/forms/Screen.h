#pragma once

#include "platform/forms/Property.h"
#include "platform/forms/Toolkit.h"

namespace tavrix::forms {

/// A rectangle on the screen in twips.
struct TwipRect {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;

    friend bool operator==(const TwipRect&, const TwipRect&) = default;
};

/// The screen, and with its mouse pointer the program's only lock: while it is not the default one, handlers that
/// start work return at once.
class Screen final : public FormObject {
  public:
    explicit Screen(Toolkit& toolkit) : toolkit_(toolkit) {}

    /// The pointer over all windows of the program.
    Property<forms::MousePointer> MousePointer{this, &Screen::AssignMousePointer};

    /// All figures of the screen, as they are now.
    [[nodiscard]] ScreenInfo Info() const { return toolkit_.Screen(); }
    /// Size in twips, as it is now.
    [[nodiscard]] float Width() const;
    [[nodiscard]] float Height() const;
    /// The part of the screen that is for windows: without the desktop's panels.
    [[nodiscard]] TwipRect UsableArea() const;
    [[nodiscard]] float TwipsPerPixelX() const { return Info().twipsPerPixelX; }
    [[nodiscard]] float TwipsPerPixelY() const { return Info().twipsPerPixelY; }
    /// Where the pointer is, in device pixels.
    [[nodiscard]] ScreenPoint PointerPlace() const { return toolkit_.PointerPlace(); }
    [[nodiscard]] int BitsPerPixel() const { return Info().bitsPerPixel; }
    [[nodiscard]] int Metric(SystemMetric metric) const { return toolkit_.Metric(metric); }

  private:
    void AssignMousePointer(const forms::MousePointer& value) {
        if (MousePointer.Store(value)) toolkit_.SetScreenPointer(value);
    }

    Toolkit& toolkit_;
};

/// Long work: the hourglass from here on, the default pointer on every way out (never "the one before", since a
/// pointer left on the hourglass locks the program).
class BusyGuard {
  public:
    explicit BusyGuard(Screen& screen) : screen_(&screen) { screen.MousePointer = MousePointer::Hourglass; }
    ~BusyGuard() { Release(); }
    BusyGuard(const BusyGuard&) = delete;
    BusyGuard& operator=(const BusyGuard&) = delete;

    /// Ends the guard early, before a handler is called that is guarded itself.
    void Release() {
        if (screen_ != nullptr) screen_->MousePointer = MousePointer::Default;
        screen_ = nullptr;
    }

  private:
    Screen* screen_;
};

}  // namespace tavrix::forms
