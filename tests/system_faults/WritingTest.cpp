// Files that are written while one call of the system after the other fails.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <functional>
#include <span>
#include <string>

#include "imaging/graphics/Surface.h"
#include "support/ErrorOfCall.h"
#include "support/FaultSweep.h"
#include "system_faults/HostMachine.h"
#include "system_faults/SystemFaults.h"

namespace tavrix::test {
namespace {

const std::string NewPart(2000, 'n');
constexpr const char* Target = "C:\\q\\target";

std::string OldContent() {
    return std::string(3000, 'o');
}

Surface Grey() {
    Surface surface(50, 40);
    surface.Fill(OpaquePixel(90, 90, 90));
    return surface;
}

/// A way to write the target. The call throws or gives false when it fails.
struct Writing {
    const char* name;
    std::function<bool(HostMachine&)> write;
};

void PrintTo(const Writing& writing, std::ostream* out) {
    *out << writing.name;
}

const std::array<Writing, 5> Writings{{
    {"writer",
     [](HostMachine& machine) {
         const auto writer = machine.files.Create(Target);
         for (int i = 0; i < 3; ++i)
             writer->Write(std::as_bytes(std::span(NewPart)));
         writer->Close();
         return true;
     }},
    {"copy",
     [](HostMachine& machine) {
         machine.files.Copy("C:\\p\\source", Target);
         return true;
     }},
    {"bitmap",
     [](HostMachine& machine) {
         machine.pictures.SaveBitmap(Grey(), Target);
         return true;
     }},
    {"jpeg",
     [](HostMachine& machine) {
         return machine.viewLib.Load("C:\\p\\grey.bmp", 0) != 0 && machine.viewLib.SaveAsJPG(80, Target) != 0;
     }},
    {"profile",
     [](HostMachine& machine) {
         machine.profile.Write("Viewer", std::array{ProfileEntry{"Key", "value"}}, Target);
         return true;
     }},
}};

void SetUpMachine(HostMachine& machine) {
    machine.folder.Put("c/p/source", std::string(5000, 'n'));
    machine.pictures.SaveBitmap(Grey(), "C:\\p\\grey.bmp");
    machine.folder.Put("c/q/target", OldContent());
}

bool Succeeds(HostMachine& machine, const Writing& writing) {
    try {
        return writing.write(machine);
    } catch (const RuntimeError&) {
        return false;
    }
}

std::string NewContent(const Writing& writing) {
    HostMachine machine;
    SetUpMachine(machine);
    EXPECT_TRUE(Succeeds(machine, writing));
    return machine.folder.Content("c/q/target");
}

class WritingTest : public ::testing::TestWithParam<Writing> {
  protected:
    /// Whether a fault came.
    bool RunWithFault(int call, int error, bool ownFolder) const {
        HostMachine machine;
        SetUpMachine(machine);
        bool done = false;
        bool fired = false;
        std::string failed;
        {
            SystemFaults faults(machine.folder.At("c"));
            if (!ownFolder) faults.ForbidNewFiles();
            faults.FailNth(call, error);
            done = Succeeds(machine, GetParam());
            fired = faults.Fired();
            failed = faults.Failed();
        }
        const std::string content = machine.folder.Content("c/q/target");
        EXPECT_EQ(content == newContent, done) << failed << " failed";
        EXPECT_EQ(content == OldContent(), !done) << failed << " failed";
        const auto left = std::distance(std::filesystem::directory_iterator(machine.folder.At("c/q")), {});
        EXPECT_TRUE(left == 1 || failed == "unlink") << failed << " failed and left something behind";
        return fired;
    }

    std::string newContent = NewContent(GetParam());
};

TEST_P(WritingTest, WhatWasToldAsFailedIsNotPutInPlace) {
    for (const int error : {EIO, ENOSPC}) {
        EXPECT_GT(SweepFaults([&](int call) { return RunWithFault(call, error, true); }), 3);
    }
}

TEST_P(WritingTest, InAFolderThatTakesNoNewFilesTheFormerContentComesBack) {
    for (const int error : {EIO, ENOSPC}) {
        EXPECT_GT(SweepFaults([&](int call) { return RunWithFault(call, error, false); }), 3);
    }
}

TEST_P(WritingTest, AFullDiskKeepsTheFormerFileWhereTheFolderTakesNoNewOne) {
    HostMachine machine;
    SetUpMachine(machine);
    const bool fits = newContent.size() <= OldContent().size();
    {
        SystemFaults faults(machine.folder.At("c/q"));
        faults.ForbidNewFiles();
        faults.LimitLength(OldContent().size());
        EXPECT_EQ(Succeeds(machine, GetParam()), fits);
    }
    EXPECT_EQ(machine.folder.Content("c/q/target") == OldContent(), !fits);
}

INSTANTIATE_TEST_SUITE_P(Ways, WritingTest, ::testing::ValuesIn(Writings),
                         [](const auto& test) { return test.param.name; });

/// A working file is kept under another name and written anew, while one call after the other fails.
TEST(CopyInTheTemporaryFolder, StaysWhatItWasMadeOf) {
    for (const int error : {EIO, ENOSPC}) {
        for (const bool ownFolder : {true, false}) {
            const int faults = SweepFaults([&](int call) {
                HostMachine machine;
                const std::string temporary = machine.files.Folder(KnownFolder::Temporary) + "\\";
                const auto write = [&](const std::string& content) {
                    const auto writer = machine.files.Create(temporary + "working");
                    writer->Write(std::as_bytes(std::span(content)));
                    writer->Close();
                };
                write("first");
                machine.files.Copy(temporary + "working", temporary + "undo");
                write(OldContent());
                bool copied = false;
                bool written = false;
                std::string failed;
                {
                    SystemFaults fault(machine.folder.At("c"));
                    if (!ownFolder) fault.ForbidNewFiles();
                    fault.FailNth(call, error);
                    copied = ErrorOfCall(
                                 [&] { machine.files.Copy(temporary + "working", temporary + "undo"); }) == 0;
                    written = ErrorOfCall([&] { write(NewPart); }) == 0;
                    failed = fault.Failed();
                }
                EXPECT_EQ(machine.folder.Content("c/Temp/undo"), copied ? OldContent() : "first") << failed;
                EXPECT_EQ(machine.folder.Content("c/Temp/working"), written ? NewPart : OldContent())
                    << failed;
                EXPECT_TRUE(copied || !failed.empty());
                return !failed.empty();
            });
            EXPECT_GT(faults, 3);
        }
    }
}

TEST(DroppedWriter, PutsNothingInPlace) {
    for (const bool ownFolder : {true, false}) {
        HostMachine machine;
        SetUpMachine(machine);
        {
            SystemFaults faults(machine.folder.At("c"));
            if (!ownFolder) faults.ForbidNewFiles();
            machine.files.Create(Target)->Write(std::as_bytes(std::span("dropped")));
        }
        EXPECT_EQ(machine.folder.Content("c/q/target"), OldContent());
    }
}

}  // namespace
}  // namespace tavrix::test
