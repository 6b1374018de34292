#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <tuple>

#include "EditingTest.h"
#include "editing/resizing/frmImageSize.h"
#include "editing/turning/frmRotateImg.h"
#include "support/FaultSweep.h"
#include "support/QuietMachine.h"
#include "viewer/OneProcess.h"

namespace tavrix::test {
namespace {

using headless::Service;

constexpr const char* Image = "C:\\p\\x.bmp";
constexpr const char* Copy = "C:\\p\\copy.bmp";

/// Something that the user does with an image, repeated with the first, the second, the third call of a service
/// failing.
struct Operation {
    const char* name;
    forms::Menu MainMenu::*entry;
    bool undone = false;  ///< the edit goes well, and its undo is what meets the fault
    void (*prepare)(headless::HeadlessServices&, OneProcess&) = nullptr;
    bool copied = false;  ///< between edit and undo the image is saved under another name
};

void PrintTo(const Operation& operation, std::ostream* out) {
    *out << operation.name;
}

/// The user selects a part of the image.
void Select(headless::HeadlessServices&, OneProcess& program) {
    const auto mouse = [&program](forms::MouseAction action, int x, int y) {
        program.View().MainImage.Deliver(
            forms::MouseEvent{action, forms::MouseButton::Left, forms::ShiftMask::Shift, x, y});
    };
    mouse(forms::MouseAction::Down, 5, 6);
    mouse(forms::MouseAction::Move, 30, 20);
    mouse(forms::MouseAction::Up, 30, 20);
}

void FillClipboard(headless::HeadlessServices& machine, OneProcess&) {
    machine.clipboard.formats = {ClipboardFormat::Bitmap};
    machine.clipboard.picture = PictureOf(Different(50, 20));
}

void RotateWhenAsked(headless::HeadlessServices&, OneProcess& program) {
    program.toolkit.OnModal("frmRotateImg", [&program] {
        auto& dialog = *program.app.Loaded<frmRotateImg>();
        dialog.txtAngle.Text = "30";
        dialog.CmdRotate.Deliver(forms::ClickEvent{});
    });
}

void ResizeWhenAsked(headless::HeadlessServices&, OneProcess& program) {
    program.toolkit.OnModal("frmImageSize", [&program] {
        auto& dialog = *program.app.Loaded<frmImageSize>();
        dialog.txtWidth.Text = "70";
        dialog.CmdSize.Deliver(forms::ClickEvent{});
    });
}

class EditingFaultSweep : public ::testing::TestWithParam<std::tuple<Operation, Service>> {
  protected:
    static void Choose(forms::Menu& entry) {
        ASSERT_FALSE(OneProcess::Ends([&] { entry.Deliver(forms::ClickEvent{}); }));
    }
    /// Each box that came is one of those that an edit or an undo may bring; there is one at most.
    static void ExpectKnownBoxes(const OneProcess& program, bool undone) {
        const std::string start =
            std::string("unexpected box: [Tavrix] ") +
            (undone ? "Unable to undo changes." : "Unable to write edited image to a temporary file.");
        for (const std::string& box : program.toolkit.Failures()) {
            // Without the temporary folder there is no undo file.
            const bool known = box == start + "\r\n\r\nPermission denied..." ||
                               (undone && box == start + "\r\n\r\nFile not found...");
            EXPECT_TRUE(known) << box;
        }
        EXPECT_LE(program.toolkit.BoxesShown(), 1);
    }

    /// Whether a fault came.
    static bool RunWithFault(const Operation& operation, Service service, int call) {
        headless::HeadlessServices machine;
        MakeQuiet(machine);
        machine.disks.PutFile("C:\\Tavrix\\tavrix.ini", "[Viewer]\r\nStartupDialog=0\r\n");
        const std::string before = BitmapOf(Different(40, 30));
        machine.disks.PutFile(Image, before);
        OneProcess program(machine);
        EXPECT_TRUE(program.Start(Image));
        MainMenu& menu = program.View().menu;
        if (operation.prepare != nullptr) operation.prepare(machine, program);
        if (operation.undone) {
            Choose(menu.*operation.entry);
            EXPECT_EQ(program.module.CurrentImage, "C:\\Temp\\Untitled.BMP");
            program.View().selection.SelectionShown = false;  // or the next edit would draw the one of a crop
        }
        const std::string copy = machine.disks.Content(program.module.CurrentImage).value_or("");
        if (operation.copied) {
            machine.disks.PutFile(Copy, copy);
            program.View().imageOnShow.Become(Copy);
        }

        machine.faults.FailNth(service, call, ErrorNumber::PermissionDenied);
        EXPECT_NO_THROW(Choose(operation.undone ? menu.mnuUndo : menu.*operation.entry));
        const bool fired = machine.faults.Fired();
        machine.faults.Clear();

        ExpectKnownBoxes(program, operation.undone);
        EXPECT_FALSE(program.module.Busy());
        EXPECT_EQ(program.toolkit.ScreenPointer(), forms::MousePointer::Default);
        EXPECT_TRUE(program.View().picFrame.Visible);
        EXPECT_EQ(machine.disks.Content(Image), before);
        if (operation.copied) {
            EXPECT_EQ(machine.disks.Content(Copy), copy);
        }
        const std::string& current = program.module.CurrentImage;
        EXPECT_EQ(current.empty(), !menu.mnuEdit.Visible.Get());
        EXPECT_EQ(program.View().Caption.Get(),
                  current.empty() ? std::string("Tavrix") : "Tavrix - [" + current + "]");
        if (!current.empty()) {
            // What is on show is what was written, unless it is the undo that could not be written.
            const bool told = program.toolkit.BoxesShown() > 0;
            const auto written = Decoded(machine.disks.Content(current).value_or(""));
            EXPECT_TRUE(written);
            const Picture shown = program.View().MainImage.Image();
            if (written && !told) {
                EXPECT_TRUE(SamePixels(*written, shown.pixels->Whole()));
            }
            EXPECT_TRUE(!told || menu.mnuUndo.Enabled);
        }

        // The next edit works, on the picture that was opened where this one is lost.
        if (current.empty()) program.View().Deliver(forms::DropEvent{{Image}});
        const Picture shown = program.View().MainImage.Image();
        Choose(menu.mnuFlipVertically);
        EXPECT_LE(program.toolkit.BoxesShown(), 1);
        EXPECT_EQ(current, "C:\\Temp\\Untitled.BMP");
        const auto flipped = Decoded(machine.disks.Content(current).value_or(""));
        EXPECT_TRUE(flipped && SamePixels(*flipped, Mirrored(shown.pixels->Whole(), false)));
        EXPECT_EQ(menu.mnuUndo.Caption.Get(), "&Undo Flip Vertically");
        EXPECT_TRUE(menu.mnuUndo.Enabled);
        EXPECT_EQ(machine.disks.Content(Image), before);
        if (operation.copied) {
            EXPECT_EQ(machine.disks.Content(Copy), copy);
        }
        return fired;
    }
};

TEST_P(EditingFaultSweep, TheOpenedFileIsNeverTouchedAndTheNextEditWorks) {
    const auto& [operation, service] = GetParam();
    const int faults = SweepFaults(
        [&](int call) { return RunWithFault(std::get<0>(GetParam()), std::get<1>(GetParam()), call); });
    // Files: the folder, the copy, the test of the target, its creation, its bytes. Pictures: the load of an undo, the
    // write.
    if (service == Service::Files) {
        EXPECT_GT(faults, 3);
    } else {
        EXPECT_EQ(faults, operation.undone ? 2 : 1);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Operations, EditingFaultSweep,
    ::testing::Combine(
        ::testing::Values(
            Operation{"90 CW", &MainMenu::mnu90CW}, Operation{"90 CCW", &MainMenu::mnu90CCW},
            Operation{"180", &MainMenu::mnu180Degrees},
            Operation{"flip across", &MainMenu::mnuFlipHorizontal},
            Operation{"flip down", &MainMenu::mnuFlipVertically},
            Operation{"25 smaller", &MainMenu::mnu25Smaller}, Operation{"25 larger", &MainMenu::mnu25Larger},
            Operation{"50 smaller", &MainMenu::mnu50Smaller}, Operation{"50 larger", &MainMenu::mnu50Larger},
            Operation{"undo of a turn", &MainMenu::mnu90CW, true},
            Operation{"undo of a flip", &MainMenu::mnuFlipVertically, true},
            Operation{"undo of a resize", &MainMenu::mnu25Larger, true},
            Operation{"undo of a turn by any angle", &MainMenu::mnuArbitrary, true, RotateWhenAsked},
            Operation{"undo of a resize to any size", &MainMenu::mnuEditImageSize, true, ResizeWhenAsked},
            Operation{"undo of a crop", &MainMenu::mnuCrop, true, Select},
            Operation{"undo of a paste", &MainMenu::mnuPaste, true, FillClipboard},
            Operation{"undo after a saved copy", &MainMenu::mnuFlipVertically, true, nullptr, true}),
        ::testing::Values(Service::Files, Service::Pictures)));

}  // namespace
}  // namespace tavrix::test
