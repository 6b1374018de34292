// Saving, exporting and importing on a machine where each call of a service in turn fails.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <tuple>

#include "core/UnsavedImage.h"
#include "editing/SavingTest.h"
#include "editing/importing/OpenPaletteFrm.h"
#include "editing/importing/frmImportImage.h"
#include "editing/saving/ExportBmpFrm.h"
#include "editing/saving/ExportJpgFrm.h"
#include "editing/saving/SaveCopyFrm.h"
#include "support/FaultSweep.h"
#include "support/QuietMachine.h"
#include "viewer/OneProcess.h"

namespace tavrix::test {
namespace {

using headless::Service;

constexpr const char* Opened = "C:\\p\\a.gif";
constexpr Pixel Blue = OpaquePixel(20, 120, 220);

void Push(forms::CommandButton& button) {
    button.Deliver(forms::ClickEvent{});
}

void AgreeTo(OneProcess& program, const std::string& question, const std::string& path) {
    const bool exists = program.module.platform.files.FileExists(path);
    program.toolkit.Expect({.text = exists ? "The following filename already exists:\r\n\r\n" + path +
                                                 "\r\n\r\nReplace this file?"
                                           : question + "\r\n\r\n" + path + "\r\n\r\nIs this filename OK?",
                            .icon = forms::BoxIcon::Question,
                            .buttons = forms::BoxButtons::YesNo,
                            .reply = forms::Answer::Yes});
}

/// The user opens a window from the menu, does something there and cancels what is open then.
template <class Dialog>
void InDialog(OneProcess& program, const char* name, forms::Menu& entry,
              const std::function<void(Dialog&)>& action) {
    program.toolkit.OnModal(name, [&] {
        action(*program.app.Loaded<Dialog>());
        if (auto* dialog = program.app.Loaded<Dialog>()) program.app.Unload(*dialog);
    });
    entry.Deliver(forms::ClickEvent{});
    EXPECT_EQ(program.app.FormCount(), 1);
}

void SaveCopy(OneProcess& program, const std::string& name) {
    InDialog<SaveCopyFrm>(program, "SaveCopyFrm", program.View().menu.mnuSaveCopy, [&](SaveCopyFrm& dialog) {
        SkipFailure([&] { dialog.Target.Lists.GoTo("C:\\q"); });
        dialog.Target.txtFilename.Text = name;
        AgreeTo(program, "About to save the image as:", dialog.Target.FullName());
        Push(dialog.CmdSave);
    });
}

template <class Dialog>
void Export(OneProcess& program, const char* name, forms::Menu& entry, const std::string& file = {}) {
    InDialog<Dialog>(program, name, entry, [&](Dialog& dialog) {
        SkipFailure([&] { dialog.Target.Lists.GoTo("C:\\q"); });
        if (!file.empty()) dialog.Target.txtFilename.Text = file;
        AgreeTo(program, "About to export the image as:", dialog.Target.FullName());
        Push(dialog.Buttons.CmdExport);
    });
}

void Import(OneProcess& program, forms::Menu& entry) {
    InDialog<frmImportImage>(program, "frmImportImage", entry, [](frmImportImage& dialog) {
        if (dialog.Chooser.File1.ListCount() > 0) dialog.Chooser.File1.Deliver(forms::RowEvent{0});
        Push(dialog.CmdImport);
    });
}

struct Doing {
    const char* name;
    void (*run)(OneProcess&);
    bool asksPictures = false;
    bool asksLibrary = false;
    const char* over = "";  ///< a file of the user's that is replaced
};

void PrintTo(const Doing& doing, std::ostream* out) {
    *out << doing.name;
}

constexpr std::array<Doing, 11> Doings{{
    {"save copy", [](OneProcess& program) { SaveCopy(program, "copy.gif"); }},
    {"export bmp",
     [](OneProcess& program) {
         Export<ExportBmpFrm>(program, "ExportBmpFrm", program.View().menu.mnuExportBMP);
     },
     true},
    {"export jpg",
     [](OneProcess& program) {
         Export<ExportJpgFrm>(program, "ExportJpgFrm", program.View().menu.mnuExportJPG);
     },
     false, true},
    {"export jpg by a bitmap",
     [](OneProcess& program) {
         program.View().imageOnShow.Become("C:\\p\\other.dib");
         Export<ExportJpgFrm>(program, "ExportJpgFrm", program.View().menu.mnuExportJPG);
     },
     true, true},
    {"save copy over a file", [](OneProcess& program) { SaveCopy(program, "old.gif"); }, false, false,
     "C:\\q\\old.gif"},
    {"export bmp over a file",
     [](OneProcess& program) {
         Export<ExportBmpFrm>(program, "ExportBmpFrm", program.View().menu.mnuExportBMP, "old.bmp");
     },
     true, false, "C:\\q\\old.bmp"},
    {"export jpg over a file",
     [](OneProcess& program) {
         Export<ExportJpgFrm>(program, "ExportJpgFrm", program.View().menu.mnuExportJPG, "old.jpg");
     },
     false, true, "C:\\q\\old.jpg"},
    {"import tga", [](OneProcess& program) { Import(program, program.View().menu.mnuImportTGA); }, true,
     true},
    {"import pcx", [](OneProcess& program) { Import(program, program.View().menu.mnuImportPCX); }, true,
     true},
    {"temporary file",
     [](OneProcess& program) { program.View().menu.mnuTempFile.Deliver(forms::ClickEvent{}); }, true},
    {"palette",
     [](OneProcess& program) {
         InDialog<OpenPaletteFrm>(program, "OpenPaletteFrm", program.View().menu.mnuImportPalette,
                                  [](OpenPaletteFrm& dialog) {
                                      if (dialog.Chooser.File1.ListCount() > 0)
                                          dialog.Chooser.File1.Deliver(forms::RowEvent{0});
                                      Push(dialog.CmdOpen);
                                  });
     }},
}};

/// How the boxes begin that may come, as the headless toolkit notes them.
constexpr std::array<std::string_view, 17> KnownBoxes{
    "[Tavrix] Unable to save a copy of the image:\r\n\r\n",
    "[Tavrix] Unable to export image:\r\n\r\n",
    "[Tavrix] Unable to import selected file.",
    "[Tavrix] Unable to write imported image to a temporary file.\r\n\r\n",
    "[Tavrix] Unable to open the temporary image file.\r\n\r\n",
    "[Tavrix] Unable to get color palette from the selected file.",
    "[Tavrix] Feature has not been finished...",
    "[Tavrix] The selected drive is currently not available...",
    "[Tavrix] There are no .TGA image files in the selected directory...",
    "[Tavrix] There are no .PCX image files in the selected directory...",
    "[Tavrix] There are no files in the selected directory to get a color palette from...",
    "[Tavrix] The current image is already in the JPEG (.JPG) format",
    "[Tavrix] The current image is already in the bitmap (.BMP) format",
    "[Tavrix] The filename and selected path are the same as the original image file",
    // Whether a file is there may be what cannot be told, or the window asks again after a failure.
    "[Tavrix] The following filename already exists:\r\n\r\n",
    "[Tavrix] About to save the image as:\r\n\r\n",
    "[Tavrix] About to export the image as:\r\n\r\n",
};

class SavingFault : public ::testing::TestWithParam<std::tuple<Doing, Service>> {
  protected:
    static void SetUpMachine(headless::HeadlessServices& machine) {
        MakeQuiet(machine);
        machine.disks.PutFile("C:\\Tavrix\\tavrix.ini",
                              "[Viewer]\r\nStartupDialog=0\r\nAutosizeWindow=False\r\n");
        for (const char* name : {"old.gif", "old.bmp", "old.jpg"})
            machine.disks.PutFile(std::string("C:\\q\\") + name, std::string("the user's ") + name);
        machine.disks.PutFile(Opened, PlainGif(30, 20, Blue));
        machine.disks.PutFile("C:\\p\\t.tga", PlainTga(5, 4, 0xFFFFFFFFU, 0xFF000000U));
        machine.disks.PutFile("C:\\p\\x.pcx", PlainPcx(Blue));
        machine.disks.PutFile("C:\\p\\other.dib", "of the user");
        machine.pictures.SaveBitmap(PlainPicture(9, 6).pixels->Whole(), "C:\\Temp\\Untitled.BMP");
        machine.files.ChangeFolder("C:\\p");
    }

    static void ExpectConsistent(OneProcess& program) {
        EXPECT_EQ(program.app.FormCount(), 1);
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

    /// Every file of the user's is there as it was, or wholly replaced where that was wished; the program may have made
    /// others.
    static void ExpectIntact(const headless::HeadlessServices& machine,
                             const std::map<std::string, std::string>& before, const Doing& doing,
                             const std::string& wanted) {
        for (const auto& [path, content] : before) {
            const bool own = path.starts_with("C:\\Temp\\") || path.starts_with("C:\\Tavrix\\");
            const bool replaced = path == doing.over && machine.disks.Content(path) == wanted;
            EXPECT_TRUE(own || replaced || machine.disks.Content(path) == content) << path;
        }
    }

    /// What stands in the file that is replaced when nothing fails.
    static std::string Replacement(const Doing& doing) {
        if (*doing.over == '\0') return {};
        headless::HeadlessServices machine;
        SetUpMachine(machine);
        OneProcess program(machine);
        EXPECT_TRUE(program.Start(Opened));
        const auto before = machine.disks.Content(doing.over);
        doing.run(program);
        EXPECT_NE(machine.disks.Content(doing.over), before);
        return machine.disks.Content(doing.over).value_or(std::string());
    }

    static bool StillExpectsBoxes(const headless::HeadlessToolkit& toolkit) {
        return std::ranges::any_of(toolkit.Failures(), [](const std::string& failure) {
            return failure.starts_with("a box never came");
        });
    }

    /// Boxes that nobody has heard of.
    static std::vector<std::string> StrangeBoxes(const headless::HeadlessToolkit& toolkit) {
        std::vector<std::string> strange;
        for (const std::string& failure : toolkit.Failures()) {
            const std::size_t from = failure.find('[');
            const std::string_view box = std::string_view(failure).substr(std::min(from, failure.size()));
            const bool known = std::ranges::any_of(
                KnownBoxes, [box](std::string_view beginning) { return box.starts_with(beginning); });
            if (!known && !failure.starts_with("a box never came")) strange.push_back(failure);
        }
        return strange;
    }

    /// The GIF file is opened and copied as if nothing had happened.
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
        SaveCopy(program, "again.gif");
        EXPECT_EQ(program.module.CurrentImage, "C:\\q\\again.gif");
        EXPECT_EQ(machine.disks.Content("C:\\q\\again.gif"), machine.disks.Content(Opened));
        ExpectConsistent(program);
    }

    /// Whether a fault came.
    static bool RunWithFault(const Doing& doing, const std::string& wanted, Service service, int call) {
        headless::HeadlessServices machine;
        SetUpMachine(machine);
        const auto before = machine.disks.AllFiles();
        OneProcess program(machine);
        EXPECT_TRUE(program.Start(Opened));
        machine.faults.Clear();
        machine.faults.FailNth(service, call, ErrorNumber::DiskFull);
        EXPECT_NO_THROW(doing.run(program));
        const bool fired = machine.faults.Fired();
        machine.faults.Clear();

        ExpectConsistent(program);
        ExpectIntact(machine, before, doing, wanted);
        EXPECT_TRUE(service == Service::Files || !machine.disks.Exists("C:\\Temp\\~temp.BMP"));
        EXPECT_EQ(StrangeBoxes(program.toolkit), std::vector<std::string>{});

        // A question that never came must not be taken for the next one.
        while (StillExpectsBoxes(program.toolkit))
            program.app.MessageBox({.text = "left"});
        ExpectUsable(machine, program);
        ExpectIntact(machine, before, doing, wanted);
        return fired;
    }
};

TEST_P(SavingFault, TheUsersFilesStayAndTheNextCommandWorks) {
    const auto& [doing, service] = GetParam();
    const std::string wanted = Replacement(doing);
    const int faults = SweepFaults([&](int call) {
        return RunWithFault(std::get<0>(GetParam()), wanted, std::get<1>(GetParam()), call);
    });
    const bool asks = service == Service::Files || (service == Service::Pictures && doing.asksPictures) ||
                      (service == Service::NViewLib && doing.asksLibrary);
    if (asks) {
        EXPECT_GT(faults, 0) << "the service was never asked";
    }
}

INSTANTIATE_TEST_SUITE_P(Doings, SavingFault,
                         ::testing::Combine(::testing::ValuesIn(Doings),
                                            ::testing::Values(Service::Files, Service::Drives,
                                                              Service::Pictures, Service::NViewLib)));

}  // namespace
}  // namespace tavrix::test
