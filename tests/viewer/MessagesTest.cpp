// When messages run while the main view starts and ends: each time is noted with what stands by then, so that none may
// be left out, be added or come at another step.

#include "ViewerTest.h"

namespace tavrix::test {
namespace {

using Notes = std::vector<std::string>;

class MessagesTest : public ViewerTest {
  protected:
    /// Notes what there is each time messages run from now on, while the main view is loaded.
    void NoteEachTime() {
        constexpr int many = 100;
        for (int n = 1; n <= many; ++n) {
            toolkit.AtYield(n, [this] {
                if (app.Loaded<MainViewFrm>() != nullptr) notes.push_back(Note());
            });
        }
    }
    std::string Note() {
        MainViewFrm& view = View();
        std::string note;
        const auto add = [&note](bool holds, const char* what) {
            if (holds) note += std::string(note.empty() ? "" : " ") + what;
        };
        add(view.menu.mnuLast1.Visible, "recent");
        add(view.menu.mnuFavoritesList[0].Visible, "favorites");
        add(view.Width.Get() != 0 && view.Left.Get() == 300, "placed");
        add(view.WindowState.Get() == forms::WindowState::Maximized, "maximised");
        add(view.WindowState.Get() == forms::WindowState::Minimized, "minimised");
        add(view.picFrame.BackColor.Get() == Colour{0x40}, "coloured");
        add(view.menu.mnuTopmost.Checked, "topmost");
        add(view.Visible(), "shown");
        add(toolkit.VisibleWindow("WaitFrm") != nullptr, "waiting");
        add(module.Busy(), "busy");
        return note;
    }

    Notes notes;
};

TEST_F(MessagesTest, RunInTheLoadAndTheFirstActivation) {
    Setting("Recent1", "C:\\p\\a.bmp");
    Setting("FavoriteFile1", "C:\\p\\b.bmp");
    Setting("SaveWindowSize", "True");
    Setting("MainPosX", "300");
    Setting("MainPosY", "300");
    Setting("WindowMaximized", "True");
    Setting("BackgroundColor", "4");
    Setting("TopMostWindow", "True");
    NoteEachTime();
    ASSERT_TRUE(Start());
    EXPECT_EQ(notes,
              (Notes{"recent waiting busy", "recent waiting busy", "recent favorites waiting busy",
                     // the layout of each new size runs them too
                     "recent favorites placed waiting busy", "recent favorites placed maximised waiting busy",
                     "recent favorites placed maximised waiting busy",
                     "recent favorites placed maximised coloured waiting busy",
                     "recent favorites placed maximised coloured topmost shown waiting",
                     "recent favorites placed maximised coloured topmost shown"}));
}

TEST_F(MessagesTest, RunAroundTheDisplaysProperties) {
    platform.shell.canRun = false;
    beforeShow = [this](MainViewFrm&) {
        module.ShowDisplayDialog = true;
        NoteEachTime();
    };
    Expect({.text = "An error occurred while trying to open the display properties dialog...",
            .whileOpen = [this] { notes.emplace_back("told"); }});
    ASSERT_TRUE(Start());
    EXPECT_EQ(notes,
              (Notes{"shown waiting", "shown", "minimised shown", "told", "minimised shown", "shown"}));
}

TEST_F(MessagesTest, RunUnderTheHourglassBeforeTheSettingsAreWritten) {
    ASSERT_TRUE(Start());
    platform.help.calls.clear();
    int times = 0;
    toolkit.AtYield(1, [&] {
        ++times;
        EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
        EXPECT_TRUE(platform.help.calls.empty());
        EXPECT_EQ(Saved("QualityJPG"), "");
        EXPECT_FALSE(platform.process.ended);
    });
    EXPECT_TRUE(Ends([this] { View().Deliver(forms::CloseEvent{}); }));
    EXPECT_EQ(times, 1);
    EXPECT_EQ(platform.help.calls.size(), 1U);
    EXPECT_EQ(Saved("QualityJPG"), "8");
}

}  // namespace
}  // namespace tavrix::test
