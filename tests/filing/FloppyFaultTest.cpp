// The floppy dialogs on a machine where each call of the file service in turn fails.

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "filing/floppies/frmCopyFloppy.h"
#include "filing/floppies/frmDeleteFloppy.h"
#include "filing/floppies/frmDiskcopy.h"
#include "filing/floppies/frmPutOnFloppy.h"
#include "support/FaultSweep.h"
#include "support/QuietMachine.h"
#include "viewer/OneProcess.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;

template <class Dialog>
void CopyAll(OneProcess& program) {
    auto& dialog = *program.app.Loaded<Dialog>();
    dialog.Files.File1.SelectAll();
    dialog.CmdCopy.Deliver(forms::ClickEvent{});
}

struct Doing {
    const char* name;
    forms::Menu MainMenu::*entry;
    const char* window;
    void (*press)(OneProcess&);
    std::vector<Answer> replies;             ///< to what a run without a fault asks
    std::map<std::string, std::string> may;  ///< what files may hold afterwards instead; empty: gone
    int least;                               ///< calls that can fail
};

void PrintTo(const Doing& doing, std::ostream* out) {
    *out << doing.name;
}

const Doing Doings[] = {{"from",
                         &MainMenu::mnuCopyFromFloppy,
                         "frmCopyFloppy",
                         CopyAll<frmCopyFloppy>,
                         {Answer::Yes, Answer::Yes},
                         {{"C:\\Pics\\a.bmp", "disk a"}},
                         8},
                        {"to",
                         &MainMenu::mnuCopyImgToFloppy,
                         "frmPutOnFloppy",
                         CopyAll<frmPutOnFloppy>,
                         {Answer::Yes, Answer::Yes},
                         {{"A:\\a.bmp", "pics a"}},
                         8},
                        {"between",
                         &MainMenu::mnuDiskcopyFloppy,
                         "frmDiskcopy",
                         CopyAll<frmDiskcopy>,
                         {Answer::Ok, Answer::Yes, Answer::Ok, Answer::Yes, Answer::Yes},
                         {},
                         16},
                        {"delete",
                         &MainMenu::mnuDelImgOnFloppy,
                         "frmDeleteFloppy",
                         CopyAll<frmDeleteFloppy>,
                         {Answer::Yes},
                         {{"A:\\a.bmp", ""}, {"A:\\UNTITLED.BMP", ""}},
                         6}};

class FloppyFaultTest : public ::testing::TestWithParam<std::tuple<Doing, ErrorNumber>> {
  protected:
    static bool RunWithFault(const Doing& doing, int call, ErrorNumber number) {
        headless::HeadlessServices machine;
        MakeQuiet(machine);
        machine.disks.InsertDisk('A');
        machine.disks.PutFile("A:\\a.bmp", "disk a");
        machine.disks.PutFile("A:\\UNTITLED.BMP", "disk untitled");
        machine.disks.PutFile("C:\\Pics\\a.bmp", "pics a");
        machine.disks.PutFile("C:\\Pics\\b.bmp", "pics b");
        machine.files.ChangeFolder("C:\\Pics");
        OneProcess program(machine);
        EXPECT_TRUE(program.Start());
        machine.disks.PutFile("C:\\Temp\\Untitled.BMP", "the edit");
        machine.disks.PutFile("C:\\Temp\\~undo.tmp", "before");
        program.module.CurrentImage = "C:\\Temp\\Untitled.BMP";
        const auto before = machine.disks.AllFiles();

        for (const Answer reply : doing.replies)
            program.toolkit.Expect({.text = "", .reply = reply});
        program.toolkit.OnModal(doing.window, [&] {
            machine.faults.Clear();
            machine.faults.FailNth(Service::Files, call, number);
            doing.press(program);
            if (program.app.FormCount() > 1)
                program.app.Unload(program.app.FormAt(program.app.FormCount() - 1));
        });
        EXPECT_FALSE(
            OneProcess::Ends([&] { (program.View().menu.*doing.entry).Deliver(forms::ClickEvent{}); }));
        const bool fired = machine.faults.Fired();
        machine.faults.Clear();

        EXPECT_EQ(program.app.FormCount(), 1);
        EXPECT_FALSE(program.module.Busy());
        for (const auto& [path, content] : before) {
            const auto now = machine.disks.Content(path);
            const auto other = doing.may.find(path);
            const bool may = other != doing.may.end() && now.value_or("") == other->second;
            EXPECT_TRUE(now == content || may) << path << ": " << now.value_or("(gone)");
        }
        for (const auto& [path, content] : machine.disks.AllFiles())
            EXPECT_EQ(path.find(".aside"), std::string::npos) << path;
        return fired;
    }
};

TEST_P(FloppyFaultTest, NoFileIsLostAndTheProgramGoesOn) {
    const auto& [doing, number] = GetParam();
    const Doing& what = doing;
    const ErrorNumber error = number;
    EXPECT_GE(SweepFaults([&](int call) { return RunWithFault(what, call, error); }), what.least);
}

INSTANTIATE_TEST_SUITE_P(All, FloppyFaultTest,
                         ::testing::Combine(::testing::ValuesIn(Doings),
                                            ::testing::Values(ErrorNumber::PermissionDenied,
                                                              ErrorNumber::DiskNotReady,
                                                              ErrorNumber::DiskFull)));

}  // namespace
}  // namespace tavrix::test
