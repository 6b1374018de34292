#include "settings/frmTip.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>

#include "settings/SettingsTest.h"
#include "settings/TipFile.h"

namespace tavrix::test {
namespace {

constexpr const char* TipPath = "C:\\Tavrix\\TIPOFDAY.DAT";
constexpr const char* NotFound =
    "That the TIPOFDAY.DAT file was not found? \r\n\r\nTavrix may not have been properly installed or files "
    "could have "
    "since been damaged and/or deleted... ";
constexpr const char* Stored = "Show Tips at Startup";

using Tips = std::vector<std::string>;

class frmTipTest : public SettingsTest {
  protected:
    void Open(std::function<void(frmTip&)> user) {
        Show<frmTip>(View().menu.mnuTipOfDay, "frmTip", std::move(user));
    }
    void PutTips(const std::string& content) { platform.disks.PutFile(TipPath, content); }
    Tips Read(const std::string& content) {
        PutTips(content);
        return ReadTips(platform.files, TipPath);
    }
};

TEST_F(frmTipTest, EachLineIsATip) {
    EXPECT_EQ(Read("one\ntwo\n"), (Tips{"one", "two"}));
    EXPECT_EQ(Read("one\r\ntwo\r\n"), (Tips{"one", "two"}));
    EXPECT_EQ(Read("one\r\n\r\n  two\nthree"), (Tips{"one", "", "  two", "three"}));
    EXPECT_EQ(Read("one\n\n"), (Tips{"one", ""}));
    EXPECT_EQ(Read("\n"), (Tips{""}));
    EXPECT_EQ(Read("a\rb\r"), (Tips{"a\rb\r"}));
    EXPECT_EQ(Read(""), Tips{});
    EXPECT_EQ(Read("90\xB0\n"), (Tips{"90°"}));
    EXPECT_EQ(Read("90°\n"), (Tips{"90°"}));
}

TEST_F(frmTipTest, AFileOfTipsHasALargestSize) {
    const std::string largest(LargestTipFile - 1, 'x');
    EXPECT_EQ(Read(largest + "\n"), (Tips{largest}));
    EXPECT_THROW(Read(largest + "x\n"), RuntimeError);
    EXPECT_THROW(static_cast<void>(ReadTips(platform.files, "")), RuntimeError);
}

TEST_F(frmTipTest, ShowsATipByChanceAndGoesOnFromThereRoundTheEnd) {
    PutTips("one\ntwo & three\nfour\n");
    ASSERT_TRUE(Start());
    const Tips tips{"one", "two & three", "four"};
    std::set<std::string> first;
    for (int round = 0; round < 60; ++round) {
        toolkit.Advance(forms::Milliseconds(1237));
        Open([&](frmTip& dialog) {
            first.insert(dialog.lblTipText.Caption);
            ASSERT_GE(dialog.CurrentTip, 1);
            ASSERT_LE(dialog.CurrentTip, 3);
            for (int step = 0; step < 4; ++step) {
                const auto at = static_cast<std::size_t>(dialog.CurrentTip - 1);
                EXPECT_EQ(dialog.lblTipText.Caption.Get(), tips.at(at));
                Press(dialog.cmdNextTip);
                EXPECT_EQ(dialog.lblTipText.Caption.Get(), tips.at((at + 1) % 3));
            }
        });
    }
    EXPECT_EQ(first.size(), 3U) << "each of them comes first at times";
}

TEST_F(frmTipTest, TheSameMomentBringsTheSameTip) {
    std::string content;
    for (int i = 0; i < 200; ++i)
        content += std::to_string(i) + "\n";
    PutTips(content);
    ASSERT_TRUE(Start());
    const auto first = [this] {
        int tip = 0;
        Open([&](frmTip& dialog) { tip = dialog.CurrentTip; });
        return tip;
    };
    // The moment replaces all of the generator's state but its lowest byte, which stays as it is for this one.
    const int before = first();
    toolkit.Advance(forms::Milliseconds(1 << 12));
    EXPECT_NE(first(), before);
}

TEST_F(frmTipTest, WithOneTipNextShowsItAgain) {
    PutTips("the only one");
    ASSERT_TRUE(Start());
    Open([](frmTip& dialog) {
        Press(dialog.cmdNextTip);
        EXPECT_EQ(dialog.lblTipText.Caption.Get(), "the only one");
        EXPECT_EQ(dialog.CurrentTip, 1);
    });
}

TEST_F(frmTipTest, WithoutItsFileTheWindowSaysSoAndStaysUsable) {
    ASSERT_TRUE(Start());
    const auto expectNotFound = [this] {
        Open([](frmTip& dialog) {
            EXPECT_EQ(dialog.lblTipText.Caption.Get(), NotFound);
            Press(dialog.cmdNextTip);
            EXPECT_EQ(dialog.lblTipText.Caption.Get(), NotFound);
            Press(dialog.cmdOK);
            EXPECT_TRUE(dialog.Unloaded());
        });
    };
    expectNotFound();
    PutTips("");
    expectNotFound();
    PutTips(std::string(LargestTipFile + 1, 'x'));
    expectNotFound();
    PutTips("one\n");
    for (const char* operation : {"Open", "Read"}) {
        platform.faults.Clear();
        platform.faults.FailAlways(headless::Service::Files, operation, ErrorNumber::PermissionDenied);
        expectNotFound();
    }
}

TEST_F(frmTipTest, TextsAreAsTold) {
    PutTips("one\n");
    ASSERT_TRUE(Start());
    Open([](frmTip& d) {
        const Tips texts{d.Caption, d.chkLoadTipsAtStartup.Caption, d.cmdNextTip.Caption, d.cmdOK.Caption,
                         d.lblHeading.Caption};
        EXPECT_EQ(texts,
                  (Tips{"Tip of the Day", "&Show Tips at Startup", "&Next Tip", "&OK", "Did you know..."}));
        EXPECT_TRUE(d.cmdOK.Default && d.cmdOK.Cancel);
        EXPECT_EQ(d.HelpContext, HelpContext::TipOfTheDay);
    });
    ExpectDialogRules<frmTip>(View().menu.mnuTipOfDay, "frmTip");
}

TEST_F(frmTipTest, TheBoxShowsTheStoredValueAndStoresNothingByItself) {
    PutTips("one\n");
    ASSERT_TRUE(Start());
    for (const auto& [value, ticked] : std::vector<std::pair<std::string, bool>>{
             {"1", true}, {"0", false}, {"-1", true}, {"what", true}, {"", true}, {" 0 ", false}}) {
        platform.store.Set(Stored, value);
        Open([&](frmTip& dialog) { EXPECT_EQ(dialog.chkLoadTipsAtStartup.Value.Get(), ticked) << value; });
        EXPECT_EQ(platform.store.values.at(Stored), value);
    }
    platform.store.values.erase(Stored);
    Open([](frmTip& dialog) { EXPECT_TRUE(dialog.chkLoadTipsAtStartup.Value); });
    EXPECT_FALSE(platform.store.values.contains(Stored));
}

TEST_F(frmTipTest, AChangeOfTheBoxIsStoredAtOnce) {
    PutTips("one\n");
    ASSERT_TRUE(Start());
    Open([this](frmTip& dialog) {
        Tick(dialog.chkLoadTipsAtStartup, true);
        EXPECT_EQ(platform.store.values.at(Stored), "1");
        Tick(dialog.chkLoadTipsAtStartup, false);
        EXPECT_EQ(platform.store.values.at(Stored), "0");
    });
    // By then no tip comes at the start, and the menu still opens it.
    headless::HeadlessToolkit next;
    next.OnModal("frmTip", [] { ADD_FAILURE() << "the tip at the start"; });
    forms::Application nextApp(next);
    MainModule nextModule(nextApp, platform.services);
    Lives nextLives;
    WireProgram(nextModule, nextLives);
    Main(nextModule, nextLives);
    int shown = 0;
    next.OnModal("frmTip", [&] {
        ++shown;
        nextApp.Loaded<frmTip>()->Deliver(forms::CloseEvent{});
    });
    nextApp.Loaded<MainViewFrm>()->menu.mnuTipOfDay.Deliver(forms::ClickEvent{});
    EXPECT_EQ(shown, 1);
}

TEST_F(frmTipTest, AValueThatCannotBeStoredIsTold) {
    PutTips("one\n");
    ASSERT_TRUE(Start());
    platform.faults.FailAlways(headless::Service::UserStore, "Set", ErrorNumber::PermissionDenied);
    Open([this](frmTip& dialog) {
        Expect({.text = "Unable to save the setting.\r\n\r\nPermission denied...",
                .icon = forms::BoxIcon::Stop});
        Tick(dialog.chkLoadTipsAtStartup, true);
    });
}

TEST(OwnTipsTest, AreManyShortAndEachADifferentOne) {
    std::ifstream file(TIP_FILE, std::ios::binary);
    headless::HeadlessServices platform;
    platform.disks.PutFile(TipPath, {std::istreambuf_iterator<char>(file), {}});
    const Tips tips = ReadTips(platform.files, TipPath);
    EXPECT_GE(tips.size(), 40U);
    EXPECT_EQ(std::set<std::string>(tips.begin(), tips.end()).size(), tips.size());
    constexpr std::size_t longest = 180;  // what the window has room for
    for (const std::string& tip : tips) {
        EXPECT_TRUE(tip.starts_with("That ")) << tip;
        EXPECT_NE(tip.find('?'), std::string::npos) << tip;
        EXPECT_LE(CharacterCount(tip), longest) << tip;
    }
}

}  // namespace
}  // namespace tavrix::test
