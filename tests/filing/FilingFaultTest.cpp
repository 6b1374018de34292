// Each of the filing commands with the first, the second, the third call of a service failing.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <string>

#include "filing/deleting/DeleteFolderFrm.h"
#include "filing/deleting/DeleteImgFrm.h"
#include "filing/deleting/RenameImgFrm.h"
#include "filing/moving/frmCopyImages.h"
#include "filing/moving/frmMoveCurrentImg.h"
#include "filing/moving/frmMoveImages.h"
#include "support/FaultSweep.h"
#include "support/ProgramFixture.h"
#include "viewer/OneProcess.h"

namespace tavrix::test {
namespace {

using headless::Service;

void Press(forms::CommandButton& button) {
    button.Deliver(forms::ClickEvent{});
}

/// The user agrees to all questions, and there are never more than these.
void Agree(OneProcess& program) {
    for (int box = 0; box < 8; ++box)
        program.toolkit.Expect({.text = "", .reply = forms::Answer::Yes});
}

/// What the user does in the dialog of an entry, which is closed then.
template <class Dialog>
void In(OneProcess& program, forms::Menu& entry, const char* name, const std::function<void(Dialog&)>& user) {
    program.toolkit.OnModal(name, [&program, user] {
        user(*program.app.Loaded<Dialog>());
        if (auto* dialog = program.app.Loaded<Dialog>()) program.app.Unload(*dialog);
    });
    entry.Deliver(forms::ClickEvent{});
}

template <class Dialog>
void Carry(OneProcess& program, forms::Menu& entry, const char* name) {
    In<Dialog>(program, entry, name, [&](Dialog& dialog) {
        SkipFailure([&] { dialog.Source.GoTo("C:\\p"); });
        SkipFailure([&] { dialog.Destination.GoTo("D:\\q"); });
        Press(dialog.Selection.CmdAll);
        Agree(program);
        Press(dialog.CmdCopy);
    });
}

void CopyImages(OneProcess& program) {
    Carry<frmCopyImages>(program, program.View().menu.mnuFileCopyImages, "frmCopyImages");
}
void MoveImages(OneProcess& program) {
    Carry<frmMoveImages>(program, program.View().menu.mnuMoveImages, "frmMoveImages");
}
void MoveCurrent(OneProcess& program) {
    In<frmMoveCurrentImg>(program, program.View().menu.mnuMoveCurrentImg, "frmMoveCurrentImg",
                          [](frmMoveCurrentImg& dialog) {
                              SkipFailure([&] { dialog.Lists.GoTo("D:\\"); });
                              Press(dialog.CmdMove);
                          });
}
void CancelMoveCurrent(OneProcess& program) {
    In<frmMoveCurrentImg>(program, program.View().menu.mnuMoveCurrentImg, "frmMoveCurrentImg",
                          [](frmMoveCurrentImg& dialog) { Press(dialog.CmdCancel); });
}
void RenameCurrent(OneProcess& program) {
    program.toolkit.ExpectInput({.prompt = "", .reply = "new"});
    program.View().menu.mnuRenameCurrentImg.Deliver(forms::ClickEvent{});
}
void RenameImage(OneProcess& program) {
    In<RenameImgFrm>(program, program.View().menu.mnuRenameImg, "RenameImgFrm", [&](RenameImgFrm& dialog) {
        if (dialog.Chooser.File1.ListCount() > 0) dialog.Chooser.File1.ListIndex = 0;
        program.toolkit.ExpectInput({.prompt = "", .reply = "new"});
        Press(dialog.CmdRename);
    });
}
void DeleteImages(OneProcess& program) {
    In<DeleteImgFrm>(program, program.View().menu.mnuDeleteImages, "DeleteImgFrm", [&](DeleteImgFrm& dialog) {
        Press(dialog.Selection.CmdAll);
        Agree(program);
        Press(dialog.CmdDelete);
    });
}
void DeleteFolder(OneProcess& program) {
    In<DeleteFolderFrm>(program, program.View().menu.mnuDelEmptyFolder, "DeleteFolderFrm",
                        [&](DeleteFolderFrm& dialog) {
                            SkipFailure([&] { dialog.Lists.GoTo("C:\\empty"); });
                            Agree(program);
                            Press(dialog.CmdDelete);
                        });
}
void DeleteCurrent(OneProcess& program) {
    Agree(program);
    program.View().menu.mnuDeleteCurrentImage.Deliver(forms::ClickEvent{});
}

struct Doing {
    const char* name;
    void (*run)(OneProcess&);
    const char* sacrificed = "";  ///< the user's file that the command replaces when all goes well
    int leastFaults = 5;
};

void PrintTo(const Doing& doing, std::ostream* out) {
    *out << doing.name;
}

constexpr std::array<Doing, 9> Doings{{
    {"copy", CopyImages, "D:\\q\\b.bmp", 20},
    {"move", MoveImages, "D:\\q\\b.bmp", 20},
    {"move_current", MoveCurrent},
    {"cancel_move_current", CancelMoveCurrent},
    {"rename_current", RenameCurrent, "", 3},
    {"rename", RenameImage},
    {"delete", DeleteImages},
    {"delete_folder", DeleteFolder},
    {"delete_current", DeleteCurrent, "", 1},
}};

class FilingFault : public ::testing::TestWithParam<std::tuple<Doing, Service>> {
  protected:
    static bool RunWithFault(const Doing& doing, Service service, int call) {
        headless::HeadlessServices machine;
        machine.store.Set("EXEPath", "C:\\Tavrix\\");
        machine.store.Set("ProgramRun", "1");
        machine.store.Set("Show Tips at Startup", "0");
        machine.disks.AddDrive('D', DriveType::Fixed);
        machine.disks.InsertDisk('D');
        machine.disks.PutFile("C:\\Tavrix\\tavrix.ini", "[Viewer]\r\nStartupDialog=0\r\n");
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
            machine.disks.PutFile("C:\\p\\" + std::string(name), std::string("mine: ") + name);
        machine.disks.PutFile("D:\\q\\b.bmp", "mine: old");
        machine.disks.PutFile("C:\\root.bat", "mine: root");
        machine.disks.PutFolder("C:\\empty");
        machine.pictures.SetPicture("C:\\p\\x.jpg", PlainPicture(8, 8));
        OneProcess program(machine);
        EXPECT_TRUE(program.Start("C:\\p\\x.jpg"));
        auto before = machine.disks.AllFiles();
        machine.faults.Clear();
        machine.faults.FailNth(service, call, ErrorNumber::PathFileAccessError);
        EXPECT_NO_THROW(doing.run(program));
        const bool fired = machine.faults.Fired();
        machine.faults.Clear();

        EXPECT_EQ(program.app.FormCount(), 1);
        EXPECT_FALSE(program.module.Busy());
        // Each file's content is somewhere: at its place, at another one, or in the trash.
        auto after = machine.disks.AllFiles();
        for (const auto& [path, content] : before) {
            const bool stands =
                std::ranges::any_of(after, [&](const auto& file) { return file.second == content; });
            const bool trashed = std::ranges::any_of(
                machine.shell.trash, [&](const auto& file) { return file.content == content; });
            EXPECT_TRUE(stands || trashed || path == doing.sacrificed) << path;
        }
        // None is there that is not whole.
        for (const auto& [path, content] : after) {
            const bool known =
                std::ranges::any_of(before, [&](const auto& file) { return file.second == content; });
            EXPECT_TRUE(known) << path;
        }
        // The image on show has its file, unless that was deleted.
        const std::string& current = program.module.CurrentImage;
        EXPECT_TRUE(current.empty() || machine.disks.Exists(current)) << current;
        return fired;
    }
};

TEST_P(FilingFault, NothingIsLostAndTheProgramStaysUsable) {
    const auto& [doing, service] = GetParam();
    const int faults = SweepFaults([&](int call) { return RunWithFault(doing, service, call); });
    EXPECT_GE(faults, service == Service::Files ? doing.leastFaults : 0);
}

INSTANTIATE_TEST_SUITE_P(Commands, FilingFault,
                         ::testing::Combine(::testing::ValuesIn(Doings),
                                            ::testing::Values(Service::Files, Service::Drives, Service::Shell,
                                                              Service::System)),
                         [](const auto& instance) {
                             return std::string(std::get<0>(instance.param).name) + "_" +
                                    std::to_string(static_cast<int>(std::get<1>(instance.param)));
                         });

}  // namespace
}  // namespace tavrix::test
