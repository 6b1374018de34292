#include <gtest/gtest.h>

#include "OneProcess.h"
#include "support/FaultSweep.h"
#include "support/ProgramFixture.h"
#include "support/QuietMachine.h"

namespace tavrix::test {
namespace {

using headless::Service;

constexpr const char* Image = "C:\\p\\x.bmp";
constexpr const char* Other = "C:\\q\\y.bmp";
constexpr const char* SettingsFile = "C:\\Tavrix\\tavrix.ini";
constexpr const char* SettingsBefore = "[Viewer]\r\nStartupDialog=0\r\nRecent1=C:\\p\\before.bmp\r\n";

/// An operation of the user, repeated with the first, the second, the third call of a service failing.
struct Operation {
    const char* name;
    bool isStart;
    std::function<void(OneProcess&)> run;
};

void PrintTo(const Operation& operation, std::ostream* out) {
    *out << operation.name;
}

class FaultSweep : public ::testing::TestWithParam<std::tuple<Operation, Service>> {
  protected:
    static void SetUpMachine(headless::HeadlessServices& machine) {
        MakeQuiet(machine);
        machine.disks.PutFile(SettingsFile, SettingsBefore);
        machine.pictures.SetPicture(Image, PlainPicture(640, 480));
        machine.pictures.SetPicture(Other, PlainPicture(30, 20));
        machine.shell.links["C:\\q\\y.lnk"] = Other;
    }
    /// The user's own files: all but the program's and the temporary ones.
    static std::map<std::string, std::string> UsersFiles(const headless::HeadlessServices& machine) {
        std::map<std::string, std::string> files = machine.disks.AllFiles();
        std::erase_if(files, [](const auto& file) {
            return !file.first.starts_with("C:\\p\\") && !file.first.starts_with("C:\\q\\");
        });
        return files;
    }
    static void Do(const Operation& operation, OneProcess& program) {
        if (operation.isStart) {
            ASSERT_TRUE(program.Start(Image));
        } else {
            ASSERT_FALSE(OneProcess::Ends([&] { operation.run(program); }));
        }
    }
    /// Whether a fault came.
    static bool RunWithFault(const Operation& operation, Service service, int call) {
        headless::HeadlessServices machine;
        SetUpMachine(machine);
        const auto before = UsersFiles(machine);
        EXPECT_EQ(before.size(), 2U);
        OneProcess program(machine);
        if (!operation.isStart) {
            EXPECT_TRUE(program.Start(Image));
        }
        machine.faults.FailNth(service, call, ErrorNumber::PermissionDenied);

        EXPECT_NO_THROW(Do(operation, program));
        const bool fired = machine.faults.Fired();
        machine.faults.Clear();

        EXPECT_FALSE(program.module.Busy());
        EXPECT_EQ(program.toolkit.ScreenPointer(), forms::MousePointer::Default);
        EXPECT_TRUE(program.View().picFrame.Visible);
        EXPECT_EQ(UsersFiles(machine), before);
        const std::string& current = program.module.CurrentImage;
        EXPECT_EQ(program.View().menu.mnuEdit.Visible.Get(), !current.empty());
        EXPECT_EQ(program.View().Caption.Get(),
                  current.empty() ? std::string("Tavrix") : "Tavrix - [" + current + "]");

        // The program can be used, and left.
        program.View().Deliver(forms::DropEvent{{Other}});
        EXPECT_EQ(program.module.CurrentImage, Other);
        EXPECT_TRUE(program.Close());
        // The first call of a start reads the settings; those that could not be read are not replaced by defaults.
        if (operation.isStart && service == Service::Profile && call == 1) {
            EXPECT_EQ(machine.disks.Content(SettingsFile), SettingsBefore);
        } else {
            EXPECT_EQ(machine.profile.Read("Viewer", SettingsFile).Read("LastOpenedFile"), Other);
        }
        EXPECT_EQ(UsersFiles(machine), before);
        return fired;
    }
};

TEST_P(FaultSweep, NothingCrossesAndTheProgramStaysUsable) {
    const auto& [operation, service] = GetParam();
    const int faults = SweepFaults(
        [&](int call) { return RunWithFault(std::get<0>(GetParam()), std::get<1>(GetParam()), call); });
    // A start and each opening load a picture, so that the sweep has met at least that.
    const std::string name = operation.name;
    const bool loads = service == Service::Pictures && name != "clear" && name != "image information";
    if (loads) {
        EXPECT_GT(faults, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Operations, FaultSweep,
    ::testing::Combine(
        ::testing::Values(
            Operation{"start", true, {}},
            Operation{
                "reload", false,
                [](OneProcess& program) { program.View().menu.mnuReloadImage.Deliver(forms::ClickEvent{}); }},
            Operation{"clear", false,
                      [](OneProcess& program) { program.View().menu.mnuClear.Deliver(forms::ClickEvent{}); }},
            Operation{"recent file", false,
                      [](OneProcess& program) { program.View().menu.mnuLast1.Deliver(forms::ClickEvent{}); }},
            Operation{
                "image information", false,
                [](OneProcess& program) { program.View().menu.mnuImageSize.Deliver(forms::ClickEvent{}); }},
            Operation{"drop", false,
                      [](OneProcess& program) {
                          program.View().MainImage.Deliver(forms::DropEvent{{"C:\\q\\y.lnk"}});
                      }}),
        ::testing::Values(Service::Files, Service::Pictures, Service::Profile, Service::Shell,
                          Service::UserStore)));

}  // namespace
}  // namespace tavrix::test
