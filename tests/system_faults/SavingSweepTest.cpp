// The user saves and exports while one call of the system after the other fails.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/Settings.h"
#include "core/UnsavedImage.h"
#include "editing/SavingTest.h"
#include "editing/saving/ExportBmpFrm.h"
#include "editing/saving/ExportJpgFrm.h"
#include "editing/saving/SaveCopyFrm.h"
#include "shows/files/WriteSlideFile.h"
#include "support/FaultSweep.h"
#include "system_faults/HostMachine.h"
#include "system_faults/MachineProgram.h"
#include "system_faults/SystemFaults.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::test {
namespace {

constexpr const char* Opened = "C:\\p\\a.gif";
constexpr Pixel Blue = OpaquePixel(20, 120, 220);

template <class Dialog>
void InDialog(MachineProgram& program, const char* name, forms::Menu& entry,
              const std::function<void(Dialog&)>& action) {
    bool asksAgain = false;
    // A window that asks again after a failure is closed: the user has had enough.
    program.toolkit.OnModal(name, [&program, &action, &asksAgain] {
        if (!std::exchange(asksAgain, true)) action(*program.app.Loaded<Dialog>());
        if (auto* dialog = program.app.Loaded<Dialog>()) program.app.Unload(*dialog);
    });
    entry.Deliver(forms::ClickEvent{});
    EXPECT_EQ(program.app.FormCount(), 1);
}

/// Saves over what has that name in the folder C:\q. Where that cannot be listed, the user gives up.
template <class Dialog>
void SaveAs(MachineProgram& program, Dialog& dialog, forms::CommandButton& button, const std::string& name) {
    SkipFailure([&] { dialog.Target.Lists.GoTo("C:\\q"); });
    dialog.Target.txtFilename.Text = name;
    const std::string path = dialog.Target.FullName();
    program.gaveUp = path != "C:\\q\\" + name;
    if (program.gaveUp) return;
    const bool exists = program.module.platform.files.FileExists(path);
    program.ExpectQuestion(exists ? "The following filename already exists:\r\n\r\n" + path +
                                        "\r\n\r\nReplace this file?"
                                  : (name.ends_with(".gif") ? "About to save the image as:\r\n\r\n"
                                                            : "About to export the image as:\r\n\r\n") +
                                        path + "\r\n\r\nIs this filename OK?");
    button.Deliver(forms::ClickEvent{});
}

void SaveCopy(MachineProgram& program) {
    InDialog<SaveCopyFrm>(program, "SaveCopyFrm", program.View().menu.mnuSaveCopy,
                          [&](SaveCopyFrm& dialog) { SaveAs(program, dialog, dialog.CmdSave, "old.gif"); });
}

void ExportBmp(MachineProgram& program) {
    InDialog<ExportBmpFrm>(
        program, "ExportBmpFrm", program.View().menu.mnuExportBMP,
        [&](ExportBmpFrm& dialog) { SaveAs(program, dialog, dialog.Buttons.CmdExport, "old.bmp"); });
}

void ExportJpg(MachineProgram& program) {
    InDialog<ExportJpgFrm>(
        program, "ExportJpgFrm", program.View().menu.mnuExportJPG,
        [&](ExportJpgFrm& dialog) { SaveAs(program, dialog, dialog.Buttons.CmdExport, "old.jpg"); });
}

void SaveShow(MachineProgram& program) {
    SlideShow& show = program.module.show;
    show.EraseSlides();
    show.SlideFiles.Set(0, "C:\\p\\a.gif");
    show.SlideFiles.Set(1, "C:\\q\\old.bmp");
    show.SlideCount = 2;
    show.SaveFromArrays = true;
    program.module.config.UseRecentDocuments = false;
    WriteSlideFile(program.module, "C:\\q\\", "old.tvs");
}

struct Doing {
    const char* name;
    void (*run)(MachineProgram&);
    const char* target;   ///< what it writes, below C:
    bool silent = false;  ///< tells no failure
};

void PrintTo(const Doing& doing, std::ostream* out) {
    *out << doing.name;
}

constexpr std::array<Doing, 7> Doings{{
    {"save_copy", SaveCopy, "q/old.gif"},
    {"export_bmp", ExportBmp, "q/old.bmp"},
    {"export_jpg", ExportJpg, "q/old.jpg", true},
    {"turn", [](MachineProgram& program) { program.View().menu.mnu90CW.Deliver(forms::ClickEvent{}); },
     "Temp/Untitled.BMP"},
    {"show", SaveShow, "q/old.tvs"},
    {"preferences", [](MachineProgram& program) { SavePreferenceSettings(program.module); },
     "Tavrix/tavrix.ini", true},
    {"slide_settings", [](MachineProgram& program) { SaveSlideSettings(program.module); },
     "Tavrix/tavrix.ini", true},
}};

void SetUpMachine(HostMachine& machine) {
    machine.folder.Put("c/Tavrix/tavrix.ini",
                       "[Viewer]\r\nStartupDialog=0\r\nAutosizeWindow=False\r\nForeign=kept\r\n");
    machine.folder.Put("c/p/a.gif", PlainGif(30, 20, Blue));
    for (const char* ending : {"gif", "bmp", "jpg", "tvs"})
        machine.folder.Put(std::string("c/q/old.") + ending, std::string("the user's own ") + ending);
}

bool HasLeftovers(const std::map<std::string, std::string>& files) {
    return std::ranges::any_of(
        files, [](const auto& file) { return file.first.find("/.tavrix-") != std::string::npos; });
}

bool TellsFailure(const MachineProgram& program) {
    return std::ranges::any_of(program.toolkit.Failures(), [](const std::string& failure) {
        return failure.find("Unable to") != std::string::npos ||
               failure.find("An error occurred") != std::string::npos;
    });
}

class SavingSweep : public ::testing::TestWithParam<Doing> {
  protected:
    /// What the target holds after a run without faults.
    static std::string Wanted(const Doing& doing) {
        HostMachine machine;
        SetUpMachine(machine);
        MachineProgram program(machine);
        EXPECT_TRUE(program.Start(Opened));
        doing.run(program);
        EXPECT_EQ(program.toolkit.Failures(), std::vector<std::string>{});
        return machine.AllFiles()[doing.target];
    }

    /// Whether a fault came.
    bool RunWithFault(int call, int error) const {
        const Doing& doing = GetParam();
        HostMachine machine;
        SetUpMachine(machine);
        MachineProgram program(machine);
        EXPECT_TRUE(program.Start(Opened));
        const auto before = machine.AllFiles();
        bool fired = false;
        std::string failed;
        {
            SystemFaults faults(machine.folder.At("c"));
            faults.FailNth(call, error);
            EXPECT_NO_THROW(doing.run(program));
            fired = faults.Fired();
            failed = faults.Failed();
        }
        EXPECT_FALSE(program.module.Busy());
        EXPECT_EQ(program.app.FormCount(), 1);
        Check(machine, before, failed, TellsFailure(program) || program.gaveUp);
        return fired;
    }

    void Check(const HostMachine& machine, const std::map<std::string, std::string>& before,
               const std::string& failed, bool told) const {
        auto after = machine.AllFiles();
        const std::string target = GetParam().target;
        EXPECT_TRUE(!HasLeftovers(after) || failed == "unlink") << failed;
        const bool isOld = before.contains(target) == after.contains(target) &&
                           (!after.contains(target) || after[target] == before.at(target));
        EXPECT_TRUE(isOld || after[target] == wanted)
            << failed << ": neither the former file nor the new one";
        if (told) {
            EXPECT_TRUE(isOld) << failed << ": put in place though its failure was told";
        } else if (!GetParam().silent) {
            EXPECT_EQ(after[target] == wanted, true) << failed << ": neither written nor told";
        }
        for (const auto& [path, content] : before) {
            const bool own = path.starts_with("Temp/") || path == target;
            EXPECT_TRUE(own || after[path] == content) << path << " after " << failed;
        }
    }

    std::string wanted = Wanted(GetParam());
};

TEST_P(SavingSweep, TheFormerFileOrTheNewOneStandsAsItWasTold) {
    for (const int error : {EIO, ENOSPC}) {
        EXPECT_GT(SweepFaults([&](int call) { return RunWithFault(call, error); }), 3);
    }
}

INSTANTIATE_TEST_SUITE_P(Doings, SavingSweep, ::testing::ValuesIn(Doings),
                         [](const auto& test) { return test.param.name; });

constexpr const char* Large = "C:\\p\\large.dib";

/// A bitmap that is read in several pieces.
Surface Stripes() {
    Surface surface(300, 400);
    for (int y = 0; y < surface.Height(); ++y)
        std::ranges::fill(surface.Row(y), OpaquePixel(static_cast<unsigned>(y) & 0xFFU, 0, 7));
    return surface;
}

/// What a user does with a picture that came with a read error.
class UnreadPicture : public ::testing::TestWithParam<Doing> {
  protected:
    static void SetUp(HostMachine& machine) {
        SetUpMachine(machine);
        machine.pictures.SaveBitmap(Stripes(), Large);
    }
    static std::string Wanted(const Doing& doing) {
        HostMachine machine;
        SetUp(machine);
        MachineProgram program(machine);
        EXPECT_TRUE(program.Start(Large));
        doing.run(program);
        EXPECT_EQ(program.toolkit.Failures(), std::vector<std::string>{});
        return machine.AllFiles()[doing.target];
    }

    /// Opens the picture while its nth reading fails; whether that came.
    bool RunWithFault(int call) {
        HostMachine machine;
        SetUp(machine);
        MachineProgram program(machine);
        bool fired = false;
        {
            SystemFaults faults(machine.folder.At("c/p"));
            faults.FailNth(call, EIO);
            EXPECT_TRUE(program.Start(Large));
            fired = faults.Fired();
        }
        if (program.module.CurrentImage != Large) return fired;
        const std::string before = machine.AllFiles()[GetParam().target];
        GetParam().run(program);
        const std::string after = machine.AllFiles()[GetParam().target];
        EXPECT_TRUE(after == before || after == wanted) << "a part of the picture was taken for all of it";
        EXPECT_EQ(after == wanted || GetParam().silent, !TellsFailure(program));
        EXPECT_FALSE(program.module.Busy());
        if (after == before) {
            ++refused;
            EXPECT_FALSE(program.View().MainImage.Picture.Get().Empty()) << "what was read is on show still";
        }
        return fired;
    }

    std::string wanted = Wanted(GetParam());
    int refused = 0;
};

TEST_P(UnreadPicture, IsNotTakenForAWholeOne) {
    EXPECT_GT(SweepFaults([&](int call) { return RunWithFault(call); }), 3);
    EXPECT_GT(refused, 0) << "no fault left a part of the picture on show";
}

void Push(MachineProgram& program, forms::Menu& entry) {
    program.View();
    entry.Deliver(forms::ClickEvent{});
}

constexpr std::array<Doing, 4> PictureDoings{{
    {"export_bmp", ExportBmp, "q/old.bmp"},
    {"turn", [](MachineProgram& program) { Push(program, program.View().menu.mnu90CW); },
     "Temp/Untitled.BMP"},
    {"flip", [](MachineProgram& program) { Push(program, program.View().menu.mnuFlipHorizontal); },
     "Temp/Untitled.BMP"},
    {"resize", [](MachineProgram& program) { Push(program, program.View().menu.mnu50Smaller); },
     "Temp/Untitled.BMP"},
}};

INSTANTIATE_TEST_SUITE_P(Doings, UnreadPicture, ::testing::ValuesIn(PictureDoings),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace tavrix::test
