#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "support/MainViewFixture.h"

namespace tavrix::test {

/// A main view with a user who drags its frame, uses the mouse and the menu. The window does not size itself,
/// unless a test says so.
class ViewerTest : public MainViewFixture {
  protected:
    ViewerTest() {
        Setting("AutosizeWindow", "False");
        lives.ShowMainView = [this] {
            auto& window = LoadMainView(module, lives);
            if (beforeShow) beforeShow(window);
            window.Show();
        };
    }

    static constexpr const char* ImagePath = "C:\\p\\x.jpg";

    /// Puts a picture on the disk; sizes in pixels.
    void PutPicture(const std::string& path, int width, int height) {
        platform.pictures.SetPicture(path, PlainPicture(width, height));
    }
    /// Starts the program with a picture of this size.
    void StartWithPicture(int width, int height) {
        PutPicture(ImagePath, width, height);
        ASSERT_TRUE(Start(ImagePath));
    }

    /// Gives an entry a handler that counts; the count so far is Runs().
    void Count(forms::Menu& entry) {
        runs_[&entry] = 0;
        entry.Install([this, &entry] { ++runs_[&entry]; });
    }
    [[nodiscard]] int Runs(const forms::Menu& entry) const { return runs_.at(&entry); }

    /// The entry of a name, wherever it is in the menu.
    forms::Menu* Entry(const std::string& name) { return Find(View().MenuBar(), name); }

    /// The window manager gives the window an outer rectangle, in pixels.
    void Place(const PixelRect& outer, forms::WindowState state = forms::WindowState::Normal) {
        View().Deliver(forms::PlacementEvent{outer, state});
    }
    /// The user drags the frame until the inner size is this, in pixels.
    void DragToInner(int width, int height) { Place({0, 0, width + 8, height + 47}); }

    template <class Control>
    bool Mouse(Control& control, forms::MouseAction action, int button, int shift = 0, int x = 0, int y = 0) {
        return Ends([&] { control.Deliver(forms::MouseEvent{action, button, shift, x, y}); });
    }

    headless::HeadlessWindowPeer& Window() { return *toolkit.VisibleWindow("MainViewFrm"); }

    /// The picture that the view has without an image.
    bool ShowsDefaultPicture() { return View().MainImage.Picture.Get() == View().ImageDefault.Picture.Get(); }
    /// All that makes the view the one without an image.
    void ExpectEmptyView() {
        EXPECT_TRUE(ShowsDefaultPicture());
        EXPECT_EQ(module.CurrentImage, "");
        EXPECT_EQ(View().Caption.Get(), "Tavrix");
        EXPECT_FALSE(View().menu.mnuEdit.Visible);
        EXPECT_FALSE(View().CmdFullScreen.Visible);
        EXPECT_FALSE(View().menu.mnuSaveCopy.Enabled);
        EXPECT_EQ(View().hsbPict.Value.Get(), 0);
        EXPECT_EQ(View().vsbPict.Value.Get(), 0);
    }
    void ExpectIdle() {
        EXPECT_FALSE(module.Busy());
        EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Default);
        EXPECT_TRUE(View().picFrame.Visible);
    }

    std::function<void(MainViewFrm&)> beforeShow;

  private:
    static forms::Menu* Find(const std::vector<forms::Menu*>& entries, const std::string& name) {
        for (forms::Menu* entry : entries) {
            if (entry->Name() == name) return entry;
            if (forms::Menu* found = Find(entry->Entries(), name)) return found;
        }
        return nullptr;
    }

    std::map<const forms::Menu*, int> runs_;
};

}  // namespace tavrix::test
