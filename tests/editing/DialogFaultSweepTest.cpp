// The dialogs of editing on a machine where each call of a service in turn fails.

#include <algorithm>
#include <array>
#include <string>
#include <tuple>

#include "EditingTest.h"
#include "editing/creating/NewImageFrm.h"
#include "editing/resizing/frmImageSize.h"
#include "editing/turning/frmRotateImg.h"
#include "support/FaultSweep.h"
#include "support/QuietMachine.h"
#include "viewer/OneProcess.h"

namespace tavrix::test {
namespace {

using headless::Service;

constexpr const char* Image = "C:\\p\\x.bmp";

void Push(forms::CommandButton& button) {
    button.Deliver(forms::ClickEvent{});
}

/// The user opens a dialog from the menu and does something there.
template <class Dialog>
void InDialog(OneProcess& program, const char* name, forms::Menu& entry,
              const std::function<void(Dialog&)>& action) {
    program.toolkit.OnModal(name, [&] {
        action(*program.app.Loaded<Dialog>());
        if (auto* dialog = program.app.Loaded<Dialog>()) program.app.Unload(*dialog);
    });
    ASSERT_FALSE(OneProcess::Ends([&] { entry.Deliver(forms::ClickEvent{}); }));
}

struct Doing {
    const char* name;
    const char* failure;  ///< how its box begins
    bool undoable;
    void (*run)(OneProcess&);
};

void PrintTo(const Doing& doing, std::ostream* out) {
    *out << doing.name;
}

constexpr const char* NotWritten = "Unable to write edited image to a temporary file.";
constexpr const char* NotMade = "Error, unable to create an image with the specified attributes.";

constexpr std::array<Doing, 3> Doings{{
    {"rotate", NotWritten, true,
     [](OneProcess& program) {
         InDialog<frmRotateImg>(program, "frmRotateImg", program.View().menu.mnuArbitrary,
                                [](frmRotateImg& dialog) {
                                    dialog.txtAngle.Text = "30";
                                    Push(dialog.CmdRotate);
                                });
     }},
    {"resize", NotWritten, true,
     [](OneProcess& program) {
         InDialog<frmImageSize>(
             program, "frmImageSize", program.View().menu.mnuEditImageSize, [](frmImageSize& dialog) {
                 dialog.txtWidth.Text = std::string(dialog.txtWidth.Text == "70" ? "80" : "70");
                 Push(dialog.CmdSize);
             });
     }},
    {"new image", NotMade, false,
     [](OneProcess& program) {
         InDialog<NewImageFrm>(program, "NewImageFrm", program.View().menu.mnuNewImage,
                               [](NewImageFrm& dialog) {
                                   dialog.txtWidth.Text = "70";
                                   dialog.txtHeight.Text = "50";
                                   if (dialog.CheckPaste.Enabled) dialog.CheckPaste.Value = true;
                                   Push(dialog.CmdOK);
                               });
     }},
}};

class DialogFaultSweep : public ::testing::TestWithParam<std::tuple<Doing, Service>> {
  protected:
    static void SetUpMachine(headless::HeadlessServices& machine) {
        MakeQuiet(machine);
        machine.disks.PutFile("C:\\Tavrix\\tavrix.ini", "[Viewer]\r\nStartupDialog=0\r\n");
        machine.disks.PutFile(Image, BitmapOf(Different(40, 30)));
        machine.clipboard.formats = {ClipboardFormat::Bitmap};
        machine.clipboard.picture = PictureOf(Different(20, 10));
    }

    static void ExpectConsistent(OneProcess& program) {
        MainViewFrm& view = program.View();
        EXPECT_EQ(program.app.FormCount(), 1);
        EXPECT_FALSE(program.module.Busy());
        EXPECT_EQ(program.toolkit.ScreenPointer(), forms::MousePointer::Default);
        EXPECT_TRUE(view.picFrame.Visible);
        EXPECT_TRUE(view.MainImage.AutoSize);
        EXPECT_EQ(view.PictureTemp.Visible.Get(), false);
        const std::string& current = program.module.CurrentImage;
        EXPECT_EQ(current.empty(), !view.menu.mnuEdit.Visible.Get());
        EXPECT_EQ(view.Caption.Get(), current.empty() ? std::string("Tavrix") : "Tavrix - [" + current + "]");
        EXPECT_EQ(view.MainImage.Picture.Get() == view.ImageDefault.Picture.Get(), current.empty());
    }

    /// Whether a fault came.
    static bool RunWithFault(const Doing& doing, Service service, int call) {
        headless::HeadlessServices machine;
        SetUpMachine(machine);
        const std::string before = machine.disks.Content(Image).value_or("");
        OneProcess program(machine);
        EXPECT_TRUE(program.Start(Image));
        machine.faults.FailNth(service, call, ErrorNumber::PermissionDenied);
        EXPECT_NO_THROW(doing.run(program));
        const bool fired = machine.faults.Fired();
        machine.faults.Clear();

        ExpectConsistent(program);
        const std::string known =
            std::string("unexpected box: [Tavrix] ") + doing.failure + "\r\n\r\nPermission denied...";
        for (const std::string& box : program.toolkit.Failures())
            EXPECT_EQ(box, known);
        EXPECT_LE(program.toolkit.BoxesShown(), 1);
        EXPECT_EQ(machine.disks.Content(Image), before);
        const bool told = program.toolkit.BoxesShown() > 0;
        const std::string& current = program.module.CurrentImage;
        EXPECT_EQ(current.empty(), told);
        if (!told) {
            const auto written = Decoded(machine.disks.Content(current).value_or(""));
            EXPECT_TRUE(written && SamePixels(*written, program.View().MainImage.Image().pixels->Whole()));
        }
        const auto& undo = program.View().menu.mnuUndo;
        EXPECT_TRUE(doing.undoable || !undo.Enabled);

        // The same thing goes well the next time.
        if (current.empty()) program.View().Deliver(forms::DropEvent{{Image}});
        if (!doing.undoable) {
            program.toolkit.Expect(
                {.text = "The current file has not been saved.\r\n\r\nDiscard changes and continue?",
                 .icon = forms::BoxIcon::Question,
                 .buttons = forms::BoxButtons::YesNo,
                 .reply = forms::Answer::Yes});
            if (current == Image) program.View().menu.mnuFlipVertically.Deliver(forms::ClickEvent{});
        }
        const int boxes = program.toolkit.BoxesShown();
        doing.run(program);
        EXPECT_EQ(program.toolkit.BoxesShown(), boxes + (doing.undoable ? 0 : 1));
        EXPECT_EQ(current, "C:\\Temp\\Untitled.BMP");
        ExpectConsistent(program);
        return fired;
    }
};

TEST_P(DialogFaultSweep, TheProgramGoesOnAndTheOpenedFileIsNeverTouched) {
    const auto& [doing, service] = GetParam();
    const int faults = SweepFaults(
        [&](int call) { return RunWithFault(std::get<0>(GetParam()), std::get<1>(GetParam()), call); });
    // Files: the folder, the copy, the test of the target, its creation, its bytes. Pictures: the write.
    if (service == Service::Files) {
        EXPECT_GT(faults, 3);
    } else if (service == Service::Pictures) {
        EXPECT_EQ(faults, 1);
    } else {
        EXPECT_EQ(faults, doing.undoable ? 0 : 2);
    }
}

INSTANTIATE_TEST_SUITE_P(Doings, DialogFaultSweep,
                         ::testing::Combine(::testing::ValuesIn(Doings),
                                            ::testing::Values(Service::Files, Service::Pictures,
                                                              Service::Clipboard)));

}  // namespace
}  // namespace tavrix::test
