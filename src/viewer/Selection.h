#pragma once

#include <optional>

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
    /// Draws the outline of the selection over itself, which wipes it; SelectionShown stays.
    void Erase();
    /// Erase, before a menu opens over the image: what is chosen there finds the selection, and does not draw the outline
    /// again by another Erase. Ends with Drop, or with a new selection.
    void WipeForMenu();
    /// Erase, and the selection is forgotten.
    void Drop();

    /// Whether the outline of the selection is on the image. One that went with the picture it was drawn on, as that of a
    /// crop does, is not, and Erase would draw it.
    [[nodiscard]] bool Seen() const { return SelectionShown && !wiped_ && drawnOn_ == image_.TimesWiped(); }
    void EraseWhereSeen() {
        if (Seen()) Erase();
    }
    void DropWhereSeen() {
        if (Seen()) Drop();
    }

    void Press(const forms::MouseArguments& mouse, bool imageOpen);
    void Drag(const forms::MouseArguments& mouse);

  private:
    forms::PictureBox& image_;
    bool wiped_ = false;               ///< by WipeForMenu
    std::optional<unsigned> drawnOn_;  ///< what TimesWiped said when the outline was drawn
};

}  // namespace tavrix
