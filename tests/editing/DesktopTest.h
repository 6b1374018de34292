#pragma once

#include <string>

#include "EditingTest.h"

namespace tavrix::test {

/// A main view on a desktop with a wallpaper, C:\Windows\w.bmp of 50 by 40 pixels, and a pattern.
class DesktopTest : public EditingTest {
  protected:
    static constexpr const char* DesktopKey = "Control Panel\\desktop";
    static constexpr const char* Wallpaper = "C:\\Windows\\w.bmp";

    DesktopTest() {
        platform.disks.PutFile(Wallpaper, BitmapOf(Different(50, 40)));
        platform.disks.PutFile("C:\\Windows\\win.ini", "[Desktop]\r\nPattern=1 2 3 4 5 6 7 8\r\n");
        SetValue("Wallpaper", Wallpaper);
    }

    void SetValue(const std::string& name, const std::string& text) {
        platform.registry.Put(DesktopKey, name, {1, text});
    }
    std::string Value(const std::string& name) {
        const auto value = platform.registry.Read(DesktopKey, name);
        return value ? value->text : "(no value)";
    }
    void ExpectTold(const std::string& text, std::function<void()> whileOpen = {}) {
        Expect({.text = text, .whileOpen = std::move(whileOpen)});
    }
    void ExpectStop(const std::string& text, std::function<void()> whileOpen = {}) {
        Expect({.text = text, .icon = forms::BoxIcon::Stop, .whileOpen = std::move(whileOpen)});
    }
    /// An image that was brought in: unsaved, in the view's corner, and nothing to undo.
    void ExpectBroughtIn(const Surface& expected, const std::string& path = Working) {
        ExpectEdited(expected, path);
        ExpectUndo("Can't Undo", false);
        EXPECT_FALSE(Menus().mnuAnimatedGIF.Enabled);
        EXPECT_TRUE(Menus().mnuSetWallpaper.Enabled);
        EXPECT_TRUE(Menus().mnuEdit.Visible);
        EXPECT_EQ(View().hsbPict.Value.Get(), 0);
        EXPECT_EQ(View().vsbPict.Value.Get(), 0);
        EXPECT_TRUE(View().Visible());
        ExpectNothingLeft();
    }
    void MakeUnsaved() {
        ASSERT_FALSE(Choose(Menus().mnuFlipVertically));
        ASSERT_EQ(module.CurrentImage, Working);
    }
    /// The commands that bring in an image from the desktop.
    std::array<forms::Menu*, 3> BringingIn() {
        return {&Menus().mnuCaptureDesktop, &Menus().mnuLoadWallpaper, &Menus().mnuGetDesktopPattern};
    }
};

}  // namespace tavrix::test
