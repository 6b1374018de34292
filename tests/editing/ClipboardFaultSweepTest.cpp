#include <algorithm>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "SelectionCommandTest.h"
#include "support/FaultSweep.h"
#include "support/QuietMachine.h"
#include "viewer/OneProcess.h"

namespace tavrix::test {
namespace {

using headless::Service;

constexpr const char* ImageFile = "C:\\p\\x.bmp";

/// Something that the user does, repeated with the first, the second, the third call of a service failing.
struct Operation {
    const char* name;
    forms::Menu MainMenu::*entry;
    bool selected;
};

void PrintTo(const Operation& operation, std::ostream* out) {
    *out << operation.name;
}

class ClipboardFaultSweep : public ::testing::TestWithParam<std::tuple<Operation, Service>> {
  protected:
    static void Select(OneProcess& program) {
        const auto mouse = [&program](forms::MouseAction action, int x, int y) {
            program.View().MainImage.Deliver(
                forms::MouseEvent{action, forms::MouseButton::Left, forms::ShiftMask::Shift, x, y});
        };
        mouse(forms::MouseAction::Down, 5, 6);
        mouse(forms::MouseAction::Move, 30, 20);
        mouse(forms::MouseAction::Up, 30, 20);
    }

    /// The box that came, if any, is one that these commands may bring.
    static void ExpectKnownBoxes(const OneProcess& program) {
        static const std::vector<std::string> Known{
            "Unable to write new image data to a temporary file.\r\n\r\nPermission denied...",
            "Unable to copy current image to the clipboard.\r\n\r\nPermission denied...",
            "Unable to get image from the clipboard.\r\n\r\nPermission denied...",
            "Unable to write clipboard data to a temporary file.\r\n\r\nPermission denied...",
            "There is nothing to paste.\r\n\r\nAn image has not been copied to the clipboard yet..."};
        for (const std::string& failure : program.toolkit.Failures()) {
            if (failure.find("Stretch clipboard data") != std::string::npos) continue;
            EXPECT_TRUE(std::ranges::any_of(Known, [&failure](const std::string& text) {
                return failure == "unexpected box: [Tavrix] " + text;
            })) << failure;
        }
    }

    /// Whether a fault came.
    static bool RunWithFault(const Operation& operation, Service service, int call) {
        headless::HeadlessServices machine;
        MakeQuiet(machine);
        machine.disks.PutFile("C:\\Tavrix\\tavrix.ini", "[Viewer]\r\nStartupDialog=0\r\n");
        const std::string before = BitmapOf(Different(40, 30));
        machine.disks.PutFile(ImageFile, before);
        machine.clipboard.Set(PictureOf(Different(10, 8)));
        OneProcess program(machine);
        EXPECT_TRUE(program.Start(ImageFile));
        MainMenu& menu = program.View().menu;
        if (operation.selected) Select(program);
        if (operation.selected && operation.entry == &MainMenu::mnuPaste) {
            program.toolkit.Expect({.text = "Stretch clipboard data to fit the selected area?",
                                    .icon = forms::BoxIcon::Question,
                                    .buttons = forms::BoxButtons::YesNoCancel,
                                    .reply = forms::Answer::Yes});
        }

        machine.faults.FailNth(service, call, ErrorNumber::PermissionDenied);
        EXPECT_NO_THROW((menu.*operation.entry).Deliver(forms::ClickEvent{}));
        const bool fired = machine.faults.Fired();
        machine.faults.Clear();

        ExpectKnownBoxes(program);
        EXPECT_FALSE(program.module.Busy());
        EXPECT_EQ(program.toolkit.ScreenPointer(), forms::MousePointer::Default);
        EXPECT_TRUE(program.View().picFrame.Visible);
        EXPECT_EQ(machine.disks.Content(ImageFile), before);
        const std::string& current = program.module.CurrentImage;
        EXPECT_EQ(current.empty(), !menu.mnuEdit.Visible.Get());
        EXPECT_EQ(program.View().Caption.Get(),
                  current.empty() ? std::string("Tavrix") : "Tavrix - [" + current + "]");
        if (!current.empty() && current != ImageFile) {
            const auto written = Decoded(machine.disks.Content(current).value_or(""));
            const Picture shown = program.View().MainImage.Image();
            EXPECT_TRUE(written && SamePixels(*written, shown.pixels->Whole()));
        }

        // The next command works, on the picture that was opened where this one is lost.
        if (current.empty()) program.View().Deliver(forms::DropEvent{{ImageFile}});
        const int boxes = program.toolkit.BoxesShown();
        EXPECT_NO_THROW(menu.mnuFlipVertically.Deliver(forms::ClickEvent{}));
        EXPECT_EQ(program.toolkit.BoxesShown(), boxes);
        EXPECT_EQ(current, "C:\\Temp\\Untitled.BMP");
        EXPECT_EQ(machine.disks.Content(ImageFile), before);
        return fired;
    }
};

TEST_P(ClipboardFaultSweep, TheOpenedFileIsNeverTouchedAndTheNextEditWorks) {
    const auto& [operation, service] = GetParam();
    const int faults = SweepFaults(
        [&](int call) { return RunWithFault(std::get<0>(GetParam()), std::get<1>(GetParam()), call); });
    const bool copies = operation.entry == &MainMenu::mnuCopy;
    const bool crops = operation.entry == &MainMenu::mnuCrop;
    switch (service) {
        case Service::Files:
            if (copies) {
                EXPECT_EQ(faults, 0);
            } else {
                EXPECT_GT(faults, 3);
            }
            break;
        case Service::Pictures:
            EXPECT_EQ(faults, copies ? 0 : 1);
            break;
        default:
            // Copy: Clear and Set. Paste: Has, as often as it says no, and Get.
            EXPECT_EQ(crops, faults == 0);
            EXPECT_TRUE(crops || faults >= 2);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Operations, ClipboardFaultSweep,
    ::testing::Combine(::testing::Values(Operation{"crop", &MainMenu::mnuCrop, true},
                                         Operation{"copy", &MainMenu::mnuCopy, false},
                                         Operation{"copy a part", &MainMenu::mnuCopy, true},
                                         Operation{"paste", &MainMenu::mnuPaste, false},
                                         Operation{"paste into a part", &MainMenu::mnuPaste, true}),
                       ::testing::Values(Service::Files, Service::Pictures, Service::Clipboard)));

}  // namespace
}  // namespace tavrix::test
