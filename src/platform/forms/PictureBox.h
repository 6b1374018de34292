#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "imaging/graphics/Picture.h"
#include "platform/forms/Control.h"
#include "platform/forms/Mouse.h"

namespace tavrix::forms {

/// A box with a picture, a persistent bitmap that is drawn on, and other controls inside.
///
/// The picture is the background of the bitmap. Drawing works on a bitmap of the box's own, of the box's size in
/// device pixels; as long as nothing is drawn the box shows the picture's pixels themselves.
class PictureBox final : public Control, public Container, public MouseHandlers, private CanvasContent {
  public:
    PictureBox(Container& container, std::string name);

    /// Assigning clears what was drawn. An empty picture leaves the background colour.
    Property<tavrix::Picture> Picture{this, &PictureBox::AssignPicture};
    /// The box takes the size of a picture that is assigned; clearing the picture leaves the size.
    Property<bool> AutoSize{this, &PictureBox::AssignAutoSize};
    Property<Colour> BackColor{this, &PictureBox::AssignBackColor, SurfaceBackground};

    /// The box shows nothing of its own, but what it lies on, and the controls in it.
    Property<bool> SeeThrough{this, &PictureBox::AssignSeeThrough};

    /// Inner size in twips.
    [[nodiscard]] float ScaleWidth() const { return Width; }
    [[nodiscard]] float ScaleHeight() const { return Height; }

    /// A snapshot of the bitmap: the picture and what was drawn on it, opaque. It costs nothing until something is
    /// drawn again. Throws RuntimeError 75 for a picture whose file could not be read to its end (Outcome::Unread): it
    /// may be shown, but nobody takes it for the whole.
    [[nodiscard]] tavrix::Picture Image() const;
    /// The bitmap to draw on, until the next snapshot or new size. Changes show after Refresh or at the next painting.
    [[nodiscard]] Surface& Bitmap();
    /// Wipes what was drawn and printed; the picture stays.
    void Cls();
    /// Shows what was drawn, at once.
    void Refresh();
    /// How often what was drawn has been wiped, by a picture (perhaps the same one) or by Cls: as long as this stays the
    /// same, what was drawn is still there.
    [[nodiscard]] unsigned TimesWiped() const { return timesWiped_; }

    std::function<void()> OnResize;
    std::function<void()> OnClick;

    /// Shows a line of text below those that were printed since the last Cls or picture, in the platform's font. It is
    /// text: no part of the bitmap, and read by screen readers.
    void Print(const std::string& line);
    [[nodiscard]] const std::vector<std::string>& Printed() const { return printed_; }

    [[nodiscard]] LayoutNeeds Needs() const override {
        return {AssignedSize(), Slack::Centred, Slack::Centred};
    }

    [[nodiscard]] Form& OwnerForm() override { return Control::OwnerForm(); }

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void RealizeContent(Toolkit& toolkit) override;
    void Handle(const Event& event) override;
    void Resized() override;
    [[nodiscard]] CanvasView View(int bottom) const override;

    void AssignPicture(const tavrix::Picture& value);
    void AssignAutoSize(const bool& value);
    void AssignBackColor(const Colour& value);
    void AssignSeeThrough(const bool& value);
    void ClearPrinted();
    void TakePictureSize();
    void InvalidateAll();
    /// A new bitmap of the box's size: background, picture, and the former bitmap where there was one.
    [[nodiscard]] Surface Compose() const;

    /// Shared with the snapshots since it was last drawn on; only ever drawn on while it is not.
    std::shared_ptr<ArrivingSurface> bitmap_;
    std::unique_ptr<CanvasPeer> canvasPeer_;
    std::vector<std::string> printed_;
    unsigned timesWiped_ = 0;
};

}  // namespace tavrix::forms
