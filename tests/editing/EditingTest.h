#pragma once

#include <array>
#include <cmath>
#include <functional>
#include <optional>
#include <string>

#include "ReferenceRotation.h"
#include "TestSurface.h"
#include "imaging/codecs/BmpWriter.h"
#include "imaging/codecs/ByteSource.h"
#include "imaging/loading/DecodePicture.h"
#include "viewer/ViewerTest.h"

namespace tavrix::test {

/// A white surface, as an edit finds it.
inline Surface Cleared(int width, int height) {
    Surface surface(width, height);
    surface.Fill(OpaquePixel(255, 255, 255));
    return surface;
}

/// The picture that lies mirrored, left to right or top to bottom.
inline Surface Mirrored(const Surface& surface, bool across) {
    Surface other = surface.Clone();
    for (int y = 0; y < surface.Height(); ++y) {
        for (int x = 0; x < surface.Width(); ++x) {
            const auto from =
                PixelAt(surface, across ? surface.Width() - 1 - x : x, across ? y : surface.Height() - 1 - y);
            PutPixel(other, x, y, from);
        }
    }
    return other;
}

/// The picture turned, point by point, in a surface of its own size or of its sides swapped.
inline Surface Turned(const Surface& surface, float angle, bool swapped) {
    Surface other =
        swapped ? Cleared(surface.Height(), surface.Width()) : Cleared(surface.Width(), surface.Height());
    constexpr int Twips = 15;
    const auto centre = [](int pixels) { return pixels * Twips / 2 / Twips; };
    ReferenceRotation(
        surface, other, angle,
        {centre(surface.Width()), centre(surface.Height()), centre(other.Width()), centre(other.Height())},
        [](int) {});
    return other;
}

/// The picture made larger by a part of itself, without any interpolation.
inline Surface Stretched(const Surface& surface, double part) {
    const auto stretched = [part](int pixels) {
        const double twips = std::nearbyint(pixels * 15 + part * pixels * 15);
        return static_cast<int>(std::nearbyint(twips / 15));
    };
    Surface other(stretched(surface.Width()), stretched(surface.Height()));
    for (int y = 0; y < other.Height(); ++y) {
        for (int x = 0; x < other.Width(); ++x) {
            PutPixel(other, x, y,
                     PixelAt(surface, std::int64_t{x} * surface.Width() / other.Width(),
                             std::int64_t{y} * surface.Height() / other.Height()));
        }
    }
    return other;
}

/// One of the edits that need no dialog.
struct FixedEdit {
    const char* name;
    forms::Menu MainMenu::*entry;
    const char* undoCaption;
    Surface (*expected)(const Surface& before);
};

inline void PrintTo(const FixedEdit& edit, std::ostream* out) {
    *out << edit.name;
}

inline constexpr auto QuarterAngle = static_cast<float>(3.14159265359 / 2);

inline const std::array<FixedEdit, 9> FixedEdits{{
    {"mnu90CW", &MainMenu::mnu90CW, "&Undo Rotate 90° CW",
     [](const Surface& before) { return Turned(before, -QuarterAngle, true); }},
    {"mnu90CCW", &MainMenu::mnu90CCW, "&Undo Rotate 90° CCW",
     [](const Surface& before) { return Turned(before, QuarterAngle, true); }},
    {"mnu180Degrees", &MainMenu::mnu180Degrees, "&Undo Rotate 180°",
     [](const Surface& before) { return Turned(before, 3.1415927F, false); }},
    {"mnuFlipHorizontal", &MainMenu::mnuFlipHorizontal, "&Undo Flip Horizontally",
     [](const Surface& before) { return Mirrored(before, true); }},
    {"mnuFlipVertically", &MainMenu::mnuFlipVertically, "&Undo Flip Vertically",
     [](const Surface& before) { return Mirrored(before, false); }},
    {"mnu25Smaller", &MainMenu::mnu25Smaller, "&Undo Resize 25% Smaller",
     [](const Surface& before) { return Stretched(before, -0.25); }},
    {"mnu25Larger", &MainMenu::mnu25Larger, "&Undo Resize 25% Larger",
     [](const Surface& before) { return Stretched(before, 0.25); }},
    {"mnu50Smaller", &MainMenu::mnu50Smaller, "&Undo Resize 50% Smaller",
     [](const Surface& before) { return Stretched(before, -0.5); }},
    {"mnu50Larger", &MainMenu::mnu50Larger, "&Undo Resize 50% Larger",
     [](const Surface& before) { return Stretched(before, 0.5); }},
}};

/// The bytes of a bitmap file.
inline std::string BitmapOf(const Surface& surface) {
    std::string bytes;
    WriteBmp(surface, [&bytes](std::span<const std::byte> part) {
        for (const std::byte value : part)
            bytes.push_back(static_cast<char>(value));
    });
    return bytes;
}

/// The pixels of a file's content; nothing when it is no picture.
inline std::optional<Surface> Decoded(const std::string& bytes) {
    MemorySource source(std::as_bytes(std::span(bytes)));
    const DecodedPicture decoded = DecodePicture(source);
    if (decoded.error) return std::nullopt;
    return decoded.picture.pixels->Whole().Clone();
}

/// A main view with a bitmap of pixels that are all different, decoded from a file in memory. What is written is
/// decoded again.
class EditingTest : public ViewerTest {
  protected:
    static constexpr const char* Opened = "C:\\p\\x.bmp";
    static constexpr const char* Working = "C:\\Temp\\Untitled.BMP";
    static constexpr const char* WorkingBeside = "C:\\Tavrix\\Untitled.BMP";
    static constexpr const char* Undoing = "C:\\Temp\\~undo.tmp";
    static constexpr const char* NotWritten = "Unable to write edited image to a temporary file.\r\n\r\n";
    static constexpr const char* NotUndone = "Unable to undo changes.\r\n\r\n";

    void StartWith(const Surface& surface) {
        platform.disks.PutFile(Opened, BitmapOf(surface));
        ASSERT_TRUE(Start(Opened));
        ASSERT_EQ(module.CurrentImage, Opened);
    }
    void StartWithImage(int width, int height) { StartWith(Different(width, height)); }

    MainMenu& Menus() { return View().menu; }
    forms::Menu& EntryOf(const FixedEdit& edit) { return Menus().*edit.entry; }

    std::string ContentOf(const std::string& path) { return platform.disks.Content(path).value_or(""); }
    Surface Shown() {
        const Picture image = View().MainImage.Image();
        return image.Empty() ? Surface() : image.pixels->Whole().Clone();
    }

    /// The image on show is this, and so is the working file.
    void ExpectEdited(const Surface& expected, const std::string& path = Working) {
        EXPECT_EQ(module.CurrentImage, path);
        EXPECT_EQ(View().Caption.Get(), "Tavrix - [" + path + "]");
        ExpectShown(expected);
        const auto written = Decoded(ContentOf(path));
        ASSERT_TRUE(written) << path;
        EXPECT_EQ(written->Width(), expected.Width());
        EXPECT_EQ(written->Height(), expected.Height());
        EXPECT_TRUE(SamePixels(*written, expected));
    }
    void ExpectShown(const Surface& expected) {
        EXPECT_EQ(View().MainImage.PixelBounds().width, expected.Width());
        EXPECT_EQ(View().MainImage.PixelBounds().height, expected.Height());
        EXPECT_TRUE(SamePixels(Shown(), expected));
    }
    void ExpectUndo(const std::string& caption, bool enabled) {
        EXPECT_EQ(Menus().mnuUndo.Caption.Get(), caption);
        EXPECT_EQ(Menus().mnuUndo.Enabled.Get(), enabled);
    }
    /// Outside an edit the scratch surface holds nothing.
    void ExpectNothingLeft() {
        ExpectIdle();
        EXPECT_TRUE(View().PictureTemp.Picture.Get().Empty());
        EXPECT_EQ(View().PictureTemp.Width.Get(), 0);
        EXPECT_EQ(View().PictureTemp.Height.Get(), 0);
    }
    void ExpectDiscard(const std::string& question, forms::Answer reply) {
        Expect({.text = "The current file has not been saved.\r\n\r\n" + question,
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply});
    }
    /// The user draws a selection, in pixels.
    void Select(int x1, int y1, int x2, int y2) {
        using forms::MouseAction;
        const int shift = forms::ShiftMask::Shift;
        const int left = forms::MouseButton::Left;
        Mouse(View().MainImage, MouseAction::Down, left, shift, x1, y1);
        Mouse(View().MainImage, MouseAction::Move, left, shift, x2, y2);
        Mouse(View().MainImage, MouseAction::Up, left, shift, x2, y2);
        ASSERT_TRUE(View().selection.SelectionShown);
    }
    /// Does something each time messages run, up to a number of times that no small edit reaches.
    void WhenMessagesRun(const std::function<void()>& action) {
        constexpr int Many = 400;
        for (int n = 1; n <= Many; ++n)
            toolkit.AtYield(n, action);
    }
    bool Close() {
        return Ends([this] { View().Deliver(forms::CloseEvent{}); });
    }
};

}  // namespace tavrix::test
