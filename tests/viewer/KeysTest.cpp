#include "ViewerTest.h"
#include "core/HelpContexts.h"

namespace tavrix::test {
namespace {

namespace KeyCode = forms::KeyCode;
namespace ShiftMask = forms::ShiftMask;

constexpr const char* Commands[] = {
    "mnuArbitrary", "mnu180Degrees", "mnu90CCW",     "mnu90CW",          "mnuViewFavorites",
    "mnu25Smaller", "mnu25Larger",   "mnu50Smaller", "mnu50Larger",      "mnuSaveFavoritesAsShow",
    "mnuCrop",      "mnuExit",       "mnuOpen",      "mnuEditImageSize", "mnuFullScreen"};

constexpr int Plain = ShiftMask::None;
constexpr int Shift = ShiftMask::Shift;
constexpr int Ctrl = ShiftMask::Ctrl;
constexpr int Alt = ShiftMask::Alt;

struct CommandKey {
    int key;
    int shift;
    std::string command;  ///< empty: none
};

class CommandKeyTest : public ViewerTest, public ::testing::WithParamInterface<CommandKey> {};

TEST_P(CommandKeyTest, RunsItsCommandAlone) {
    StartWithPicture(1000, 900);
    std::vector<std::string> run;
    for (const char* name : Commands)
        Entry(name)->Install([&run, name] { run.emplace_back(name); });
    bool handled = false;
    View().Deliver(forms::KeyEvent{true, GetParam().key, GetParam().shift, &handled});
    const std::vector<std::string> expected =
        GetParam().command.empty() ? std::vector<std::string>() : std::vector{GetParam().command};
    EXPECT_EQ(run, expected);
    EXPECT_EQ(handled, !GetParam().command.empty());
}

constexpr int Top(int digit) {
    return KeyCode::Digit0 + digit;
}
constexpr int Pad(int digit) {
    return KeyCode::Numpad0 + digit;
}

INSTANTIATE_TEST_SUITE_P(
    Map, CommandKeyTest,
    ::testing::Values(
        CommandKey{KeyCode::Up, Alt, "mnuArbitrary"}, CommandKey{KeyCode::Down, Alt, "mnu180Degrees"},
        CommandKey{KeyCode::Left, Alt, "mnu90CCW"}, CommandKey{KeyCode::Right, Alt, "mnu90CW"},
        CommandKey{KeyCode::Up, Alt | Shift, ""}, CommandKey{KeyCode::Right, Alt | Ctrl, ""},
        CommandKey{Top(1), Shift, "mnuViewFavorites"}, CommandKey{Top(1), Plain, "mnu25Smaller"},
        CommandKey{Top(1), Ctrl, "mnu25Smaller"}, CommandKey{Top(1), Ctrl | Shift, "mnu25Smaller"},
        CommandKey{Pad(1), Plain, "mnu25Smaller"}, CommandKey{Pad(1), Shift, "mnu25Smaller"},
        CommandKey{Top(2), Shift, "mnuSaveFavoritesAsShow"}, CommandKey{Top(2), Plain, "mnu25Larger"},
        CommandKey{Top(2), Alt, "mnu25Larger"}, CommandKey{Pad(2), Shift, "mnu25Larger"},
        CommandKey{Top(3), Plain, "mnu50Smaller"}, CommandKey{Top(3), Shift, "mnu50Smaller"},
        CommandKey{Pad(3), Ctrl, "mnu50Smaller"}, CommandKey{Top(4), Plain, "mnu50Larger"},
        CommandKey{Pad(4), Shift, "mnu50Larger"}, CommandKey{Top(5), Shift, "mnuEditImageSize"},
        CommandKey{Pad(5), Plain, "mnuEditImageSize"}, CommandKey{Top(0), Plain, "mnuCrop"},
        CommandKey{Top(0), Shift, "mnuCrop"}, CommandKey{Pad(0), Ctrl, "mnuCrop"},
        CommandKey{KeyCode::Escape, Plain, "mnuExit"},
        CommandKey{KeyCode::Escape, Shift | Ctrl | Alt, "mnuExit"}, CommandKey{Top(6), Plain, ""},
        CommandKey{Top(9), Plain, ""}, CommandKey{Pad(7), Plain, ""}, CommandKey{'A', Plain, ""},
        CommandKey{KeyCode::Return, Plain, ""}, CommandKey{KeyCode::Delete, Plain, ""},
        CommandKey{KeyCode::Shift, Shift, ""}));

class KeysTest : public ViewerTest {};

TEST_F(KeysTest, AKeyThatGoesUpDoesNothing) {
    ASSERT_TRUE(Start());
    Count(View().menu.mnuCrop);
    View().Deliver(forms::KeyEvent{false, Top(0), 0, nullptr});
    EXPECT_EQ(Runs(View().menu.mnuCrop), 0);
}

TEST_F(KeysTest, EscapeLeavesTheProgram) {
    ASSERT_TRUE(Start());
    EXPECT_TRUE(Press(KeyCode::Escape));
    EXPECT_TRUE(platform.process.ended);
}

TEST_F(KeysTest, EscapeDuringWorkDoesNothing) {
    ASSERT_TRUE(Start());
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    EXPECT_FALSE(Press(KeyCode::Escape));
}

TEST_F(KeysTest, F1ShowsTheHelpOfTheMainView) {
    ASSERT_TRUE(Start());
    const auto before = platform.help.calls.size();
    bool handled = false;
    View().Deliver(forms::KeyEvent{true, KeyCode::F1, Plain, &handled});
    EXPECT_TRUE(handled);
    ASSERT_EQ(platform.help.calls.size(), before + 1);
    EXPECT_EQ(platform.help.calls.back().data, HelpContext::MainView);
}

TEST_F(KeysTest, TheWindowSeesKeysBeforeItsControls) {
    ASSERT_TRUE(Start());
    Count(View().menu.mnuCrop);
    View().CmdFullScreen.Deliver(forms::KeyEvent{true, Top(0), 0, nullptr});
    EXPECT_EQ(Runs(View().menu.mnuCrop), 1);
}

TEST_F(KeysTest, KeysRunCommandsThatTheMenuHides) {
    // The handlers look for an image themselves.
    ASSERT_TRUE(Start());
    ASSERT_FALSE(View().menu.mnuEdit.Visible);
    Count(View().menu.mnu90CW);
    EXPECT_FALSE(Press(KeyCode::Right, Alt));
    EXPECT_EQ(Runs(View().menu.mnu90CW), 1);
}

}  // namespace
}  // namespace tavrix::test
