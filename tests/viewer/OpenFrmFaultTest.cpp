// The Open Image dialog on a machine where each call in turn fails.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "OneProcess.h"
#include "support/FaultSweep.h"
#include "support/ProgramFixture.h"
#include "support/QuietMachine.h"
#include "viewer/OpenFrm.h"

namespace tavrix::test {
namespace {

using headless::Service;

constexpr const char* Shown = "C:\\p\\a.bmp";

/// What the user does in the dialog.
struct Doing {
    const char* name;
    std::function<void(OneProcess&, OpenFrm&)> run;
};

void PrintTo(const Doing& doing, std::ostream* out) {
    *out << doing.name;
}

/// How the boxes begin that may come, as the headless toolkit notes them.
constexpr std::array<std::string_view, 11> KnownBoxes{
    "[Tavrix] This image is already open.\r\n\r\nRead selected file again?",
    "[Tavrix] The selected drive is currently not available...",
    "[Tavrix] Unable to preview the selected file.\r\n\r\n",
    "[Tavrix] Unable to open the selected file.\r\n\r\n",
    "[Tavrix] Select a file to ",
    "[Tavrix] There are no files in the selected directory to ",
    "[Tavrix] Unable to send the file to the Recycle Bin, it has not been deleted:\r\n\r\nC:\\p\\b.bmp",
    "[Tavrix] Unable to change directory to your Favorite Folder.\r\n\r\n",
    "[Tavrix] Unable to change directory to:\r\n\r\nC:\\\r\n\r\n",
    "[Tavrix] Unable to delete file by pressing the delete key, nothing is selected",
    "[Unable to show preview...] This file can't be opened by Tavrix, it may not be a valid image.",
};

class OpenFrmFault : public ::testing::TestWithParam<std::tuple<Doing, Service>> {
  protected:
    static void SetUpMachine(headless::HeadlessServices& machine) {
        MakeQuiet(machine);
        machine.disks.PutFile(
            "C:\\Tavrix\\tavrix.ini",
            "[Viewer]\r\nStartupDialog=0\r\nOpenShowPreview=True\r\nFavoriteFolder=D:\\f\\\r\n"
            "AutosizeWindow=False\r\n");
        machine.disks.AddDrive('D', DriveType::Fixed);
        machine.disks.InsertDisk('D');
        machine.pictures.SetPicture(Shown, PlainPicture(640, 480));
        machine.pictures.SetPicture("C:\\p\\b.bmp", PlainPicture(30, 20));
        machine.pictures.SetPicture("C:\\p\\c.bmp", PlainPicture(30, 20));
        machine.pictures.SetPicture("D:\\f\\y.bmp", PlainPicture(30, 20));
        machine.shell.links["C:\\p\\y.lnk"] = "D:\\f\\y.bmp";
    }

    /// Opens the dialog and does something there; the user presses Cancel at the end.
    static void OpenAndDo(OneProcess& program, const std::function<void(OneProcess&, OpenFrm&)>& run) {
        bool first = true;  // and not when it is shown again
        program.toolkit.OnModal("OpenFrm", [&] {
            auto& dialog = *program.app.Loaded<OpenFrm>();
            if (std::exchange(first, false)) run(program, dialog);
            program.toolkit.Advance(forms::Milliseconds(1000));
            EXPECT_FALSE(dialog.lblMsg.Visible);
            if (dialog.Unloaded()) return;
            dialog.CmdCancel.Deliver(forms::ClickEvent{});
            EXPECT_TRUE(dialog.Unloaded());
        });
        program.View().menu.mnuOpen.Deliver(forms::ClickEvent{});
        EXPECT_EQ(program.app.Loaded<OpenFrm>(), nullptr);
    }

    static void ExpectConsistent(OneProcess& program) {
        EXPECT_FALSE(program.module.Busy());
        EXPECT_EQ(program.toolkit.ScreenPointer(), forms::MousePointer::Default);
        EXPECT_TRUE(program.View().picFrame.Visible);
        const std::string& current = program.module.CurrentImage;
        EXPECT_EQ(program.View().menu.mnuEdit.Visible.Get(), !current.empty());
        EXPECT_EQ(program.View().Caption.Get(),
                  current.empty() ? std::string("Tavrix") : "Tavrix - [" + current + "]");
        EXPECT_EQ(program.View().MainImage.Picture.Get() == program.View().ImageDefault.Picture.Get(),
                  current.empty());
    }

    /// Boxes that nobody has heard of.
    static std::vector<std::string> StrangeBoxes(const headless::HeadlessToolkit& toolkit) {
        std::vector<std::string> strange;
        for (const std::string& failure : toolkit.Failures()) {
            const std::size_t from = failure.find('[');
            const std::string_view box = std::string_view(failure).substr(std::min(from, failure.size()));
            const bool known = std::ranges::any_of(
                KnownBoxes, [box](std::string_view beginning) { return box.starts_with(beginning); });
            const bool neverCame = failure.starts_with("a box never came");
            if (!known && !neverCame) strange.push_back(failure);
        }
        return strange;
    }

    /// Whether a fault came.
    static bool RunWithFault(const Doing& doing, Service service, int call) {
        headless::HeadlessServices machine;
        SetUpMachine(machine);
        OneProcess program(machine);
        EXPECT_TRUE(program.Start(Shown));
        machine.faults.FailNth(service, call, ErrorNumber::PermissionDenied);
        EXPECT_NO_THROW(OneProcess::Ends([&] { OpenAndDo(program, doing.run); }));
        const bool fired = machine.faults.Fired();
        machine.faults.Clear();

        ExpectConsistent(program);
        EXPECT_EQ(StrangeBoxes(program.toolkit), std::vector<std::string>{});

        // The dialog can be used again.
        OpenAndDo(program, [](OneProcess&, OpenFrm& dialog) {
            dialog.Deliver(forms::DropEvent{{"D:\\f\\y.bmp"}});
            EXPECT_TRUE(dialog.picPreview.Visible);
            dialog.CmdOpen.Deliver(forms::ClickEvent{});
        });
        EXPECT_EQ(program.module.CurrentImage, "D:\\f\\y.bmp");
        ExpectConsistent(program);
        EXPECT_TRUE(program.Close());
        return fired;
    }
};

TEST_P(OpenFrmFault, NothingCrossesAndTheDialogStaysUsable) {
    const auto& [doing, service] = GetParam();
    const int faults = SweepFaults(
        [&](int call) { return RunWithFault(std::get<0>(GetParam()), std::get<1>(GetParam()), call); });
    const bool asksTheShell =
        std::string_view(doing.name) == "delete" || std::string_view(doing.name) == "drop";
    if (service != Service::Shell || asksTheShell) {
        EXPECT_GT(faults, 0) << "the service was never asked";
    }
}

INSTANTIATE_TEST_SUITE_P(Doings, OpenFrmFault,
                         ::
                             testing::Combine(::testing::Values(Doing{"look", [](OneProcess&, OpenFrm&) {}},
                                                                Doing{"preview",
                                                                      [](OneProcess&, OpenFrm& dialog) {
                                                                          dialog.File1.Deliver(
                                                                              forms::RowEvent{1});
                                                                          dialog.CmdPreview.Deliver(
                                                                              forms::ClickEvent{});
                                                                      }},
                                                                Doing{"next",
                                                                      [](OneProcess&, OpenFrm& dialog) {
                                                                          dialog.ChkPreview.Deliver(
                                                                              forms::CheckEvent{false});
                                                                          dialog.CmdPreview.Deliver(
                                                                              forms::ClickEvent{});
                                                                          dialog.CmdNext.Deliver(
                                                                              forms::ClickEvent{});
                                                                          dialog.CmdPrevious.Deliver(
                                                                              forms::ClickEvent{});
                                                                      }},
                                                                Doing{"delete",
                                                                      [](OneProcess& program, OpenFrm& dialog) {
                                                                          dialog.File1.Deliver(
                                                                              forms::RowEvent{1});
                                                                          program.toolkit.Expect(
                                                                              {.text =
                                                                                   "Are you sure you want to "
                                                                                   "send the following file "
                                                                                   "to the Recycle "
                                                                                   "Bin?\r\n\r\nC:\\p\\b.bmp",
                                                                               .icon =
                                                                                   forms::BoxIcon::Question,
                                                                               .buttons =
                                                                                   forms::BoxButtons::YesNo,
                                                                               .reply = forms::Answer::Yes});
                                                                          dialog.File1.SetFocus();
                                                                          dialog.File1.Deliver(
                                                                              forms::KeyEvent{
                                                                                  false,
                                                                                  forms::KeyCode::Delete, 0,
                                                                                  nullptr});
                                                                      }},
                                                                Doing{"drop",
                                                                      [](OneProcess&, OpenFrm& dialog) {
                                                                          dialog.Deliver(forms::DropEvent{
                                                                              {"C:\\p\\y.lnk"}});
                                                                      }},
                                                                Doing{"favorite folder",
                                                                      [](OneProcess&, OpenFrm& dialog) {
                                                                          dialog.CmdFF.Deliver(
                                                                              forms::ClickEvent{});
                                                                      }},
                                                                Doing{"drive",
                                                                      [](OneProcess&, OpenFrm& dialog) {
                                                                          dialog.Drive1.Deliver(
                                                                              forms::RowEvent{2});
                                                                      }},
                                                                Doing{"folder",
                                                                      [](OneProcess&, OpenFrm& dialog) {
                                                                          dialog.Dir1.Deliver(
                                                                              forms::RowEvent{0});
                                                                          dialog.Dir1.Deliver(
                                                                              forms::DoubleClickEvent{});
                                                                      }},
                                                                Doing{"open",
                                                                      [](OneProcess&, OpenFrm& dialog) {
                                                                          dialog.File1.Deliver(
                                                                              forms::RowEvent{2});
                                                                          dialog.CmdOpen.Deliver(
                                                                              forms::ClickEvent{});
                                                                      }},
                                                                Doing{"not read again",
                                                                      [](OneProcess&, OpenFrm& dialog) {
                                                                          dialog.CmdOpen.Deliver(
                                                                              forms::ClickEvent{});
                                                                      }}),
                                              ::testing::Values(Service::Files, Service::Drives,
                                                                Service::Pictures, Service::Shell)));

}  // namespace
}  // namespace tavrix::test
