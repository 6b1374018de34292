#pragma once

#include <algorithm>
#include <string>

#include "EditingTest.h"
#include "imaging/graphics/Draw.h"

namespace tavrix::test {

/// A rectangle that the user draws, in pixels of the image.
struct Drag {
    int x1;
    int y1;
    int x2;
    int y2;
};

/// Part of a picture.
inline Surface Part(const Surface& surface, int left, int top, int width, int height) {
    Surface part(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            PutPixel(part, x, y, PixelAt(surface, left + x, top + y));
    }
    return part;
}

/// Nearest neighbour: pixel i of n is pixel floor(i * m / n) of m.
inline Surface Scaled(const Surface& surface, int width, int height) {
    Surface scaled(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            PutPixel(scaled, x, y,
                     PixelAt(surface, std::int64_t{x} * surface.Width() / width,
                             std::int64_t{y} * surface.Height() / height));
    }
    return scaled;
}

/// The picture with another on it.
inline Surface With(const Surface& surface, const Surface& other, int left, int top) {
    Surface both = surface.Clone();
    for (int y = 0; y < other.Height(); ++y) {
        for (int x = 0; x < other.Width(); ++x)
            PutPixel(both, left + x, top + y, PixelAt(other, x, y));
    }
    return both;
}

/// The picture with the outline of a selection on it.
inline Surface Outlined(const Surface& surface, const Drag& drag) {
    Surface outlined = surface.Clone();
    InvertOutline(outlined, drag.x1, drag.y1, drag.x2, drag.y2);
    return outlined;
}

/// A main view with a picture of 40 by 30 and a user who selects parts of it.
class SelectionCommandTest : public EditingTest {
  protected:
    static constexpr int Width = 40;
    static constexpr int Height = 30;

    /// Starts the program with the picture, or opens it again.
    void StartWithImage() {
        if (app.Loaded<MainViewFrm>() == nullptr) return StartWith(Image());
        platform.disks.PutFile(Opened, BitmapOf(Image()));
        platform.disks.Remove(Working);
        module.CurrentImage.clear();
        View().selection.SelectionShown = false;
        View().Deliver(forms::DropEvent{{Opened}});
        ASSERT_EQ(module.CurrentImage, Opened);
    }
    static Surface Image() { return Different(Width, Height); }
    void Select(const Drag& drag) { EditingTest::Select(drag.x1, drag.y1, drag.x2, drag.y2); }
    /// A press and a release of the mouse.
    void Click(int shift = forms::ShiftMask::None) {
        Mouse(View().MainImage, forms::MouseAction::Down, forms::MouseButton::Left, shift, 1, 1);
        Mouse(View().MainImage, forms::MouseAction::Up, forms::MouseButton::Left, shift, 1, 1);
    }
    /// The image is the opened one still, as it was.
    void ExpectUntouched() {
        EXPECT_EQ(module.CurrentImage, Opened);
        EXPECT_FALSE(platform.disks.Exists(Working));
        ExpectShown(Image());
        ExpectUndo("Can't Undo", false);
        ExpectNothingLeft();
    }
    /// Another program has a picture on the clipboard.
    void PutOnClipboard(const Surface& surface, ClipboardFormat format = ClipboardFormat::Bitmap) {
        platform.clipboard.formats = {format};
        platform.clipboard.picture = PictureOf(surface.Clone());
    }
    Surface Copied() {
        const Picture& picture = platform.clipboard.picture;
        return picture.Empty() ? Surface() : picture.pixels->Whole().Clone();
    }
};

}  // namespace tavrix::test
