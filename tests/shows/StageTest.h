#pragma once

#include <string>
#include <vector>

#include "shows/AnimatedGif.h"
#include "shows/FakeEditor.h"
#include "shows/stage/FullViewFrm.h"
#include "shows/stage/frmToolbar.h"
#include "support/ProgramFixture.h"

namespace tavrix::test {

/// A stage of 800 by 600 pixels, with slides C:\s\1.bmp and so on, each a pixel wider than the one before.
class StageTest : public ProgramFixture {
  protected:
    using Texts = std::vector<std::string>;
    using Milliseconds = forms::Milliseconds;

    static constexpr int FirstWidth = 101;  ///< pixels
    static constexpr int Height = 80;       ///< pixels
    static constexpr float Twips = 15;

    StageTest() {
        toolkit.screen = {800, 600, Twips, Twips, 24};
        module.config.SlideInterval = 5;
        module.config.LoopSlideShow = true;
        platform.disks.PutFile("C:\\s\\s.tvs", "");
        platform.files.ChangeFolder("C:\\s");
    }

    static std::string PathOf(int slide) { return "C:\\s\\" + std::to_string(slide + 1) + ".bmp"; }

    void PutPicture(const std::string& path, int width, int height) {
        platform.pictures.SetPicture(path, PlainPicture(width, height));
    }
    void PutGif(const std::string& path) { platform.disks.PutFile(path, AnimatedGif()); }
    /// A show of so many slides.
    void PutSlides(int count) {
        for (int i = 0; i < count; ++i) {
            PutPicture(PathOf(i), FirstWidth + i, Height);
            module.show.SlideFiles.Set(i, PathOf(i));
        }
    }
    /// An editor whose rows are the slides of the show.
    FakeEditor& OpenEditor() { return app.Load<FakeEditor>(module); }

    /// Shows the stage in the role that the flags say; whether the process ended.
    bool Open() {
        return Ends([this] { app.Load<FullViewFrm>(module).Show(); });
    }
    /// Plays the show from the editor.
    void Play() {
        module.SlideShowActive = true;
        if (app.Loaded<FakeEditor>() == nullptr) OpenEditor();
        ASSERT_FALSE(Open());
    }
    /// Plays the show that the process was started for; whether the process ended.
    bool PlayStarted() {
        module.SlideShowActive = true;
        module.StartedAsShow = true;
        return Open();
    }

    [[nodiscard]] bool Playing() const { return app.Loaded<FullViewFrm>() != nullptr; }
    FullViewFrm& Stage() { return *app.Loaded<FullViewFrm>(); }
    frmToolbar& Toolbar() { return *app.Loaded<frmToolbar>(); }
    headless::HeadlessWindowPeer& Window() { return *toolkit.VisibleWindow("FullViewFrm"); }
    [[nodiscard]] bool PointerHidden() { return Window().pointer == forms::MousePointer::Hidden; }

    /// A press of a key in the stage's window; whether the process ended.
    bool Press(int keyCode) {
        return Ends([&] { Stage().Deliver(forms::KeyEvent{true, keyCode, 0, nullptr}); });
    }
    bool Advance(int milliseconds) {
        return Ends([&] { toolkit.Advance(Milliseconds(milliseconds)); });
    }
    /// The index of the slide whose picture stands; -1 for none.
    int Shown() {
        if (!Stage().Image1.Visible) return -1;
        return Stage().Image1.Picture.Get().Width() - FirstWidth;
    }
    /// What is loaded from here on, in order.
    Texts Loaded() const {
        Texts paths;
        const std::string mark = "Pictures.Load ";
        for (const std::string& call : platform.faults.Log()) {
            if (call.starts_with(mark)) paths.push_back(call.substr(mark.size()));
        }
        return paths;
    }

    void ExpectFailure(const std::string& path, const std::string& error) {
        Expect({.text = "Unable to view image:\r\n\r\n" + path + "\r\n\r\n" + error + "...",
                .icon = forms::BoxIcon::Stop,
                .systemModal = true});
    }
};

}  // namespace tavrix::test
