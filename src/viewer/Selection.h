#pragma once

#include <memory>

#include "platform/forms/PictureBox.h"

namespace tavrix {

/// The rubber-band selection on the image: its outline is drawn inverted, straight on the surface, and drawing it
/// again is the only way to wipe it. Coordinates are twips of the image.
class Selection {
  public:
    explicit Selection(forms::PictureBox& image) : image_(image) {}

    bool SelectionShown = false;
    /// From a press of the left button with the Shift key until the next press.
    bool SelectionDragging = false;
    float SelectionStartX = 0;
    float SelectionStartY = 0;
    float SelectionEndX = 0;
    float SelectionEndY = 0;

    /// Inverts the outline of a rectangle on the image.
    void DrawLine(float x1, float y1, float x2, float y2);
    /// Wipes the selection where it is on show; SelectionShown stays.
    void Erase();
    /// Wipes the selection and forgets it.
    void Drop();
    /// The same for a picture that is scrolled. A selection that went with the picture it was drawn on, as that of a
    /// crop does, is no more to be seen and stays as it is.
    void DropWhereSeen();

    void Press(const forms::MouseArguments& mouse, bool imageOpen);
    void Drag(const forms::MouseArguments& mouse);

  private:
    forms::PictureBox& image_;
    std::weak_ptr<const ArrivingSurface> drawnOn_;  ///< the picture below the outline
};

}  // namespace tavrix
