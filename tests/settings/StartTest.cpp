#include "settings/SettingsTest.h"
#include "settings/frmAbout.h"
#include "settings/frmTip.h"
#include "viewer/OpenFrm.h"

namespace tavrix::test {
namespace {

/// A dialog that is not modal, which its user closes after a second.
class Modeless final : public forms::Form {
  public:
    explicit Modeless(forms::Application& application) : Form(application, {.name = "Modeless"}) {
        patience.Interval = 1000;
        patience.OnTimer = [this] { App().Unload(*this); };
    }
    forms::Timer patience{*this};
};

/// What opens at the start with the windows themselves.
class StartDialogsTest : public SettingsTest {
  protected:
    StartDialogsTest() {
        for (const char* name : {"frmTip", "frmAbout", "OpenFrm"}) {
            toolkit.OnModal(name, [this, name] {
                shown.emplace_back(name);
                for (int i = app.FormCount() - 1; i >= 0; --i) {
                    if (app.FormAt(i).Name() == name) app.FormAt(i).Deliver(forms::CloseEvent{});
                }
            });
        }
    }
    std::vector<std::string> shown;
};

using Names = std::vector<std::string>;

TEST_F(StartDialogsTest, ADefaultStartShowsTheTipAndThenTheAboutBox) {
    platform.store.values.erase("Show Tips at Startup");
    platform.disks.Remove("C:\\Tavrix\\tavrix.ini");
    ASSERT_TRUE(Start());
    EXPECT_EQ(shown, (Names{"frmTip", "frmAbout"}));
}

TEST_F(StartDialogsTest, TheFirstRunShowsTheAboutBoxOnce) {
    platform.store.Set("ProgramRun", "0");
    ASSERT_TRUE(Start());
    EXPECT_EQ(shown, Names{"frmAbout"});
}

TEST_F(StartDialogsTest, TheNextOneWaitsUntilTheFormerHasGone) {
    Setting("StartupDialog", "2");
    beforeShow = [&](MainViewFrm& view) {
        view.menu.mnuSlideShow.Install([&] { app.Load<Modeless>().Show(); });
    };
    toolkit.OnModal("OpenFrm", [this] {
        EXPECT_EQ(app.Loaded<Modeless>(), nullptr);
        shown.emplace_back("OpenFrm");
        app.Loaded<OpenFrm>()->Deliver(forms::CloseEvent{});
    });
    ASSERT_TRUE(Start("OPEN"));
    EXPECT_EQ(shown, Names{"OpenFrm"});
}

TEST_F(StartDialogsTest, WithoutANextOneNobodyWaits) {
    Setting("StartupDialog", "2");
    beforeShow = [&](MainViewFrm& view) {
        view.menu.mnuSlideShow.Install([&] { app.Load<Modeless>().Show(); });
    };
    ASSERT_TRUE(Start());
    EXPECT_NE(app.Loaded<Modeless>(), nullptr);
}

}  // namespace
}  // namespace tavrix::test
