// Files are copied and moved while one call of the system after the other fails.

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <string>
#include <tuple>
#include <vector>

#include "backends/headless/HeadlessToolkit.h"
#include "dialogs/CopyWindow.h"
#include "dialogs/FileTransfer.h"
#include "support/FaultSweep.h"
#include "system_faults/HostMachine.h"
#include "system_faults/SystemFaults.h"

namespace tavrix::test {
namespace {

constexpr std::array Names{"a.bmp", "b.bmp", "c.bmp"};
constexpr const char* Replaced = "b.bmp";

std::string ContentOf(const std::string& name) {
    return std::string(100'000, name.front()) + name;
}

class TransferSweep : public ::testing::TestWithParam<std::tuple<TransferAct, int>> {
  protected:
    /// Whether a fault came.
    static bool RunWithFault(int call) {
        const auto& [act, error] = GetParam();
        HostMachine machine;
        headless::HeadlessToolkit toolkit;
        forms::Application app{toolkit};
        MainModule module{app, machine.services};
        std::vector<TransferItem> items;
        for (const std::string name : Names) {
            machine.folder.Put("c/p/" + name, ContentOf(name));
            items.push_back({"C:\\p\\" + name, "C:\\q\\" + name, name});
        }
        machine.folder.Put(std::string("c/q/") + Replaced, "old");
        bool fired = false;
        TransferEnd end{};
        {
            SystemFaults faults(machine.folder.At("c"));
            faults.FailNth(call, error);
            CopyWindow window(module);
            FileTransfer transfer(module, window, act, {.doing = "", .failure = "Failed", .replace = {}});
            end = transfer.Run(items);
            fired = faults.Fired();
        }
        EXPECT_EQ(toolkit.BoxesShown(), end == TransferEnd::Failed ? 1 : 0);
        EXPECT_TRUE(fired || end == TransferEnd::Done);
        const auto files = machine.AllFiles();
        for (const std::string name : Names) {
            const auto from = files.find("p/" + name);
            const auto to = files.find("q/" + name);
            const bool stays = from != files.end();
            const bool came = to != files.end() && to->second == ContentOf(name);
            EXPECT_TRUE(stays || came) << name;
            EXPECT_TRUE(!stays || from->second == ContentOf(name)) << name;
            EXPECT_TRUE(to == files.end() || came || (name == Replaced && to->second == "old")) << name;
            EXPECT_TRUE(name != Replaced || to != files.end()) << name;
            EXPECT_TRUE(end != TransferEnd::Done || came) << name;
        }
        return fired;
    }
};

TEST_P(TransferSweep, EachFileIsWholeSomewhere) {
    EXPECT_GT(SweepFaults([](int call) { return RunWithFault(call); }), 2);
}

INSTANTIATE_TEST_SUITE_P(Acts, TransferSweep,
                         ::testing::Combine(::testing::Values(TransferAct::Copy, TransferAct::Move),
                                            ::testing::Values(EIO, ENOSPC, EACCES)));

}  // namespace
}  // namespace tavrix::test
