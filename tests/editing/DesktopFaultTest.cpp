// The desktop's commands on a machine where each call of a service in turn fails.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "EditingTest.h"
#include "core/UnsavedImage.h"
#include "editing/desktop/frmSetWallpaper.h"
#include "support/FaultSweep.h"
#include "support/QuietMachine.h"
#include "viewer/OneProcess.h"

namespace tavrix::test {
namespace {

using headless::Service;

constexpr const char* Opened = "C:\\p\\x.bmp";
constexpr const char* Wallpaper = "C:\\Windows\\w.bmp";

struct Doing {
    const char* name;
    forms::Menu MainMenu::*entry;
    std::vector<Service> asks;  ///< the services whose failures it can meet
};

void PrintTo(const Doing& doing, std::ostream* out) {
    *out << doing.name;
}

constexpr std::array<std::string_view, 11> KnownBoxes{
    "[Tavrix] Unable to capture desktop window...",
    "[Tavrix] Unable to create an image of the desktop window.\r\n\r\nPermission denied...",
    "[Tavrix] Unable to write image of desktop to a temporary file.\r\n\r\nPermission denied...",
    "[Tavrix] Nothing to display, desktop wallpaper is currently not in use...",
    "[Tavrix] Unable to read current desktop wallpaper file.\r\n\r\nPermission denied...",
    "[Tavrix] Unable to write wallpaper image to a temporary file.\r\n\r\nPermission denied...",
    "[Tavrix] Nothing to display, desktop pattern is currently not in use...",
    "[Tavrix] Sorry, this command has not been finished yet -- check ",
    "[Tavrix] Unable to write pattern image to a temporary file.\r\n\r\nPermission denied...",
    "[Tavrix] Nothing to clear, desktop wallpaper is currently not in use...",
    "[Tavrix] Stop displaying the following desktop wallpaper file?\r\n\r\nC:\\Windows\\w.bmp",
};

class DesktopFault : public ::testing::TestWithParam<std::tuple<Doing, Service>> {
  protected:
    static void SetUpMachine(headless::HeadlessServices& machine) {
        MakeQuiet(machine);
        machine.disks.PutFile("C:\\Tavrix\\tavrix.ini", "[Viewer]\r\nStartupDialog=0\r\n");
        machine.disks.PutFile(Opened, BitmapOf(Different(40, 30)));
        machine.disks.PutFile(Wallpaper, BitmapOf(Different(50, 40)));
        machine.disks.PutFile("C:\\Windows\\win.ini", "[Desktop]\r\nPattern=1 2 3 4 5 6 7 8\r\n");
        machine.registry.Put("Control Panel\\desktop", "Wallpaper", {1, Wallpaper});
        machine.desktop.screen = Different(1280, 1024);
    }

    static void ExpectKnownBoxes(const headless::HeadlessToolkit& toolkit) {
        for (const std::string& failure : toolkit.Failures()) {
            const std::string_view box = std::string_view(failure).substr(failure.find('['));
            const bool known = std::ranges::any_of(
                KnownBoxes, [box](std::string_view beginning) { return box.starts_with(beginning); });
            EXPECT_TRUE(known) << failure;
        }
        EXPECT_LE(toolkit.BoxesShown(), 2);
    }

    static void ExpectConsistent(headless::HeadlessServices& machine, OneProcess& program) {
        MainViewFrm& view = program.View();
        const std::string& current = program.module.CurrentImage;
        EXPECT_FALSE(program.module.Busy());
        EXPECT_EQ(program.toolkit.ScreenPointer(), forms::MousePointer::Default);
        EXPECT_EQ(program.app.FormCount(), 1);
        EXPECT_TRUE(view.Visible());
        EXPECT_TRUE(view.picFrame.Visible);
        EXPECT_EQ(current.empty(), !view.menu.mnuEdit.Visible.Get());
        EXPECT_EQ(view.Caption.Get(), current.empty() ? std::string("Tavrix") : "Tavrix - [" + current + "]");
        if (!current.empty()) {
            const auto written = Decoded(machine.disks.Content(current).value_or(""));
            EXPECT_TRUE(written && SamePixels(*written, view.MainImage.Image().pixels->Whole())) << current;
        }
        EXPECT_EQ(machine.disks.Content(Opened), BitmapOf(Different(40, 30)));
        EXPECT_EQ(machine.disks.Content(Wallpaper), BitmapOf(Different(50, 40)));
    }

    /// The opened image comes back and can be edited.
    static void ExpectUsable(headless::HeadlessServices& machine, OneProcess& program) {
        if (IsUnsavedImage(program.module)) {
            program.toolkit.Expect(
                {.text = "The current file has not been saved.\r\n\r\nDiscard changes and continue?",
                 .icon = forms::BoxIcon::Question,
                 .buttons = forms::BoxButtons::YesNo,
                 .reply = forms::Answer::Yes});
        }
        program.View().Deliver(forms::DropEvent{{Opened}});
        EXPECT_EQ(program.module.CurrentImage, Opened);
        program.View().menu.mnuFlipVertically.Deliver(forms::ClickEvent{});
        EXPECT_EQ(program.module.CurrentImage, "C:\\Temp\\Untitled.BMP");
        ExpectConsistent(machine, program);
    }

    /// Whether a fault came.
    static bool RunWithFault(const Doing& doing, Service service, int call) {
        headless::HeadlessServices machine;
        SetUpMachine(machine);
        OneProcess program(machine);
        EXPECT_TRUE(program.Start(Opened));
        program.toolkit.OnModal("frmSetWallpaper", [&] {
            auto& dialog = *program.app.Loaded<frmSetWallpaper>();
            dialog.CheckStretch.Value = dialog.CheckAspect.Value = true;
            dialog.CmdOK.Deliver(forms::ClickEvent{});
        });
        // Where the question might not come, the box is closed as it comes.
        if (service == Service::Desktop && doing.entry == &MainMenu::mnuClearWallpaper) {
            program.toolkit.Expect(
                {.text =
                     std::string("Stop displaying the following desktop wallpaper file?\r\n\r\n") + Wallpaper,
                 .icon = forms::BoxIcon::Question,
                 .buttons = forms::BoxButtons::YesNo,
                 .reply = forms::Answer::Yes});
        }
        machine.faults.FailNth(service, call, ErrorNumber::PermissionDenied);
        EXPECT_NO_THROW((program.View().menu.*doing.entry).Deliver(forms::ClickEvent{}));
        const bool fired = machine.faults.Fired();
        machine.faults.Clear();
        ExpectKnownBoxes(program.toolkit);
        ExpectConsistent(machine, program);
        ExpectUsable(machine, program);
        return fired;
    }
};

TEST_P(DesktopFault, TheUsersFilesStayAndTheNextCommandWorks) {
    const auto& [doing, service] = GetParam();
    const int faults = SweepFaults(
        [&](int call) { return RunWithFault(std::get<0>(GetParam()), std::get<1>(GetParam()), call); });
    const bool asked = std::ranges::find(doing.asks, service) != doing.asks.end();
    EXPECT_EQ(faults > 0, asked);
}

INSTANTIATE_TEST_SUITE_P(
    Doings, DesktopFault,
    ::testing::Combine(::testing::Values(Doing{"capture",
                                               &MainMenu::mnuCaptureDesktop,
                                               {Service::Files, Service::Pictures, Service::Desktop}},
                                         Doing{"load wallpaper",
                                               &MainMenu::mnuLoadWallpaper,
                                               {Service::Files, Service::Pictures, Service::Registry}},
                                         Doing{"pattern",
                                               &MainMenu::mnuGetDesktopPattern,
                                               {Service::Files, Service::Pictures, Service::Profile}},
                                         Doing{"set wallpaper",
                                               &MainMenu::mnuSetWallpaper,
                                               {Service::Files, Service::Pictures, Service::Registry,
                                                Service::Desktop}},
                                         Doing{"clear wallpaper",
                                               &MainMenu::mnuClearWallpaper,
                                               {Service::Registry, Service::Desktop}}),
                       ::testing::Values(Service::Files, Service::Pictures, Service::Registry,
                                         Service::Profile, Service::Desktop)));

}  // namespace
}  // namespace tavrix::test
