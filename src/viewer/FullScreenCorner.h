#pragma once

#include "platform/forms/Mouse.h"
#include "platform/forms/Timer.h"
#include "platform/forms/Toolkit.h"

namespace tavrix {

class MainViewFrm;

/// Says when the Full Screen button of the main view is on show. It stands there while an image is open; but where the
/// image itself fills the button's corner and no scroll bar is near, only while the pointer is over that corner or Tab has
/// brought the keyboard to it, so that no part of the image is covered for good.
class FullScreenCorner {
  public:
    explicit FullScreenCorner(MainViewFrm& view);

    /// Whether there is an image that could be viewed.
    void SetWanted(bool wanted);
    /// The layout has changed.
    void Update();
    /// The pointer has moved to a place of the window's inside.
    void PointAt(const forms::MouseArguments& mouse);
    /// Brings the keyboard to a button that is not always there, or away from it again. False: Tab is as everywhere.
    bool StepByTab();

  private:
    [[nodiscard]] bool CoversImage() const;
    [[nodiscard]] bool HasKeyboard() const;
    [[nodiscard]] bool IsInCorner(float x, float y) const;
    /// Whether the pointer is still there.
    void Look();

    MainViewFrm& view_;
    bool wanted_ = false;
    bool pointed_ = false;       ///< the pointer was over the corner when it was seen last
    forms::ScreenPoint seenAt_;  ///< where it was on the screen then
    float seenX_ = 0;            ///< and in the window, in twips
    float seenY_ = 0;
    forms::Timer watch_;  ///< nothing tells that the pointer has left the window
};

}  // namespace tavrix
