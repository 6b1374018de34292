// Edits of a large file that end in the midst: the copy for the undo, which is made beside them, is that of the picture
// that was on show.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "editing/frame/EditFrame.h"
#include "platform/services/BesideCopy.h"
#include "platform/services/ForwardingFiles.h"
#include "support/WithFiles.h"
#include "system_faults/HostMachine.h"
#include "system_faults/MachineProgram.h"
#include "system_faults/SystemFaults.h"

namespace tavrix::test {
namespace {

constexpr const char* Small = "C:\\p\\small.bmp";
constexpr const char* Large = "C:\\p\\large.bmp";
constexpr const char* Undoing = "c/Temp/~undo.tmp";
constexpr const char* Working = "c/Temp/Untitled.BMP";

Surface Striped(int width, int height) {
    Surface surface(width, height);
    for (int y = 0; y < height; ++y)
        std::ranges::fill(surface.Row(y), OpaquePixel(static_cast<unsigned>(y) & 0xFFU, 0, 7));
    return surface;
}

/// A program whose user has turned a small picture, so that an undo is on offer, and has then opened one that is large
/// enough to be copied by a thread.
class EndedEdit : public ::testing::Test {
  protected:
    EndedEdit() {
        machine.folder.Put("c/Tavrix/tavrix.ini", "[Viewer]\r\nStartupDialog=0\r\nAutosizeWindow=False\r\n");
        machine.pictures.SaveBitmap(Striped(30, 20), Small);
        machine.pictures.SaveBitmap(Striped(2000, 1600), Large);
        small = machine.folder.Content("c/p/small.bmp");
        large = machine.folder.Content("c/p/large.bmp");
    }
    void SetUp() override {
        program.emplace(machine, TheServices());
        ASSERT_TRUE(program->Start(Small));
        Choose(Menus().mnu90CW);
        ASSERT_EQ(machine.folder.Content(Undoing), machine.folder.Content("c/p/small.bmp"));
        Open(Large);
    }

    virtual const Services& TheServices() { return machine.services; }

    MainMenu& Menus() { return program->View().menu; }
    static void Choose(forms::Menu& entry) { entry.Deliver(forms::ClickEvent{}); }
    void Open(const char* path) {
        program->module.CurrentImage.clear();
        program->View().Deliver(forms::DropEvent{{path}});
        ASSERT_EQ(program->module.CurrentImage, path);
    }
    /// An edit that has wiped the picture before it fails.
    void RunInto(const std::function<void()>& failure) {
        const EditFrame edit(program->View(), {.undo = "&Undo It"});
        program->app.LastResort([&] {
            edit.RunFromMenu([&] {
                return edit.Redraw([&] {
                    failure();
                    ADD_FAILURE() << "the edit went on";
                });
            });
        });
    }
    /// What the undo brings back is the large picture, and the user's files are as they were.
    void ExpectUndoOfLarge() {
        EXPECT_TRUE(machine.folder.Content(Undoing) == machine.folder.Content("c/p/large.bmp"));
        ASSERT_TRUE(Menus().mnuUndo.Enabled);
        Choose(Menus().mnuUndo);
        EXPECT_EQ(program->module.CurrentImage, "C:\\Temp\\Untitled.BMP");
        EXPECT_EQ(program->View().MainImage.PixelBounds().width, 2000);
        EXPECT_TRUE(machine.folder.Content(Working) == machine.folder.Content("c/p/large.bmp"));
        ExpectUsersFiles();
    }
    void ExpectUsersFiles() {
        EXPECT_TRUE(machine.folder.Content("c/p/large.bmp") == large);
        EXPECT_TRUE(machine.folder.Content("c/p/small.bmp") == small);
        EXPECT_FALSE(program->module.Busy());
    }

    HostMachine machine;
    std::optional<MachineProgram> program;
    std::string small;
    std::string large;
};

TEST_F(EndedEdit, ByAnErrorThatEscapesIt) {
    RunInto([] { throw RuntimeError(ErrorNumber::OutOfMemory); });
    EXPECT_EQ(program->toolkit.Failures().size(), 1U);
    EXPECT_EQ(Menus().mnuUndo.Caption.Get(), "&Undo It");
    ExpectUndoOfLarge();
}

TEST_F(EndedEdit, ForWantOfMemory) {
    RunInto([] { throw std::bad_alloc(); });
    EXPECT_EQ(program->toolkit.Failures().size(), 1U);
    EXPECT_EQ(Menus().mnuUndo.Caption.Get(), "&Undo It");
    ExpectUndoOfLarge();
}

TEST_F(EndedEdit, WithACopyThatFailedToo) {
    SystemFaults faults(machine.folder.At("c/Temp"));
    // The copy begins, and has nowhere to write.
    faults.LimitLength(0);
    RunInto([] { throw RuntimeError(ErrorNumber::OutOfMemory); });
    EXPECT_EQ(Menus().mnuUndo.Caption.Get(), "Can't Undo");
    ExpectUsersFiles();
}

/// Files of whose copies the last is begun, and then there is no memory for the rest.
class NoMemory final : public ForwardingFiles, public BesideCopies {
  public:
    using ForwardingFiles::ForwardingFiles;

    std::unique_ptr<BesideCopy> BeginCopy(const std::string& from, const std::string& to) override {
        class Begun final : public BesideCopy {
            void Finish() override { throw std::bad_alloc(); }
        };
        if (noMemory) return std::make_unique<Begun>();
        Copy(from, to, {});
        return StandingCopy();
    }

    bool noMemory = false;
};

class EditWithoutMemory : public EndedEdit {
  protected:
    void SetUp() override {
        EndedEdit::SetUp();
        files.noMemory = true;
    }
    const Services& TheServices() override { return services; }

    NoMemory files{machine.files};
    Services services = test::WithFiles(machine.services, files);
};

TEST_F(EditWithoutMemory, OffersNoUndoOfAnEarlierOne) {
    RunInto([] { throw std::bad_alloc(); });
    EXPECT_EQ(Menus().mnuUndo.Caption.Get(), "Can't Undo");
    EXPECT_FALSE(Menus().mnuUndo.Enabled);
    ExpectUsersFiles();
}

TEST_F(EditWithoutMemory, GoesOnWithoutAnUndo) {
    Choose(Menus().mnu90CW);
    EXPECT_EQ(program->toolkit.Failures(), std::vector<std::string>{});
    EXPECT_EQ(Menus().mnuUndo.Caption.Get(), "Can't Undo");
    EXPECT_FALSE(Menus().mnuUndo.Enabled);
    EXPECT_EQ(program->View().MainImage.PixelBounds().width, 1600);
    ExpectUsersFiles();
}

}  // namespace
}  // namespace tavrix::test
