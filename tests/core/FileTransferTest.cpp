#include "dialogs/FileTransfer.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "dialogs/CopyWindow.h"
#include "dialogs/WaitCopyFrm.h"
#include "support/FaultSweep.h"
#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

using namespace std::chrono_literals;
using forms::Answer;
using headless::Service;

class FileTransferTest : public ProgramFixture {
  protected:
    FileTransferTest() {
        platform.disks.AddDrive('D', DriveType::Fixed);
        platform.disks.InsertDisk('D');
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
            platform.disks.PutFile("C:\\From\\" + std::string(name), name);
        platform.disks.PutFolder("D:\\To");
    }

    static TransferWords Words() {
        return {.doing = "Tavrix is copying the file:",
                .failure = "Aborting, unable to copy the file:",
                .replace = "Replace this file with the one in the source folder?"};
    }
    static std::vector<TransferItem> Items(const std::vector<std::string>& names) {
        std::vector<TransferItem> items;
        for (const std::string& name : names)
            items.push_back({"C:\\From\\" + name, "D:\\To\\" + name, name});
        return items;
    }

    TransferEnd Run(TransferAct act = TransferAct::Copy) { return Run(act, Words()); }
    TransferEnd Run(TransferAct act, const TransferWords& words) {
        CopyWindow window(module);
        FileTransfer transfer(module, window, act, words);
        if (prepare) prepare(transfer);
        transfer.OnDone = [this](const TransferItem& item) { done.push_back(item.name); };
        const TransferEnd end = transfer.Run(items);
        return end;
    }
    void ExpectReplace(const std::string& name, Answer reply) {
        Expect({.text = "The following file already exists in the destination folder:\r\n\r\n" + name +
                        "\r\n\r\nReplace this file with the one in the source folder?",
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNoCancel,
                .reply = reply});
    }
    std::optional<std::string> At(const std::string& path) { return platform.disks.Content(path); }

    std::vector<TransferItem> items = Items({"a.bmp", "b.bmp", "c.bmp"});
    std::function<void(FileTransfer&)> prepare;
    std::vector<std::string> done;
};

TEST_F(FileTransferTest, CopiesOneAfterTheOther) {
    EXPECT_EQ(Run(), TransferEnd::Done);
    EXPECT_EQ(At("D:\\To\\a.bmp"), "a.bmp");
    EXPECT_EQ(At("D:\\To\\c.bmp"), "c.bmp");
    EXPECT_EQ(At("C:\\From\\c.bmp"), "c.bmp");
    EXPECT_EQ(done, (std::vector<std::string>{"a.bmp", "b.bmp", "c.bmp"}));
    EXPECT_EQ(app.FormCount(), 0);
}

TEST_F(FileTransferTest, MovesInEitherWay) {
    EXPECT_EQ(Run(TransferAct::Move), TransferEnd::Done);
    EXPECT_EQ(At("D:\\To\\b.bmp"), "b.bmp");
    EXPECT_EQ(At("C:\\From\\b.bmp"), std::nullopt);
    for (TransferItem& item : items)
        std::swap(item.from, item.to);
    EXPECT_EQ(Run(TransferAct::CopyThenRemove), TransferEnd::Done);
    EXPECT_EQ(At("C:\\From\\b.bmp"), "b.bmp");
    EXPECT_EQ(At("D:\\To\\b.bmp"), std::nullopt);
}

TEST_F(FileTransferTest, EachFileIsTold) {
    std::vector<std::string> labels;
    for (int yield = 1; yield < 40; ++yield) {
        toolkit.AtYield(yield, [&] {
            if (auto* window = app.Loaded<WaitCopyFrm>()) labels.push_back(window->lblMsg.Caption);
        });
    }
    EXPECT_EQ(Run(), TransferEnd::Done);
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        EXPECT_NE(std::ranges::find(labels, "Tavrix is copying the file:\r\n\r\n" + std::string(name)),
                  labels.end());
}

TEST_F(FileTransferTest, TextsThatNobodyCouldReadAreLeftOut) {
    CopyWindow window(module);
    const auto label = [&] { return app.Loaded<WaitCopyFrm>()->lblMsg.Caption.Get(); };
    window.Progress("first");
    toolkit.Advance(39ms);
    window.Progress("second");
    EXPECT_EQ(label(), "first");
    toolkit.Advance(1ms);
    window.Progress("third");
    EXPECT_EQ(label(), "third");
    toolkit.Advance(1ms);
    window.Tell("always");
    EXPECT_EQ(label(), "always");
    const int yields = toolkit.Yields();
    window.Progress("fourth");
    EXPECT_EQ(toolkit.Yields(), yields + 1);  // Cancel is heard all the same
}

TEST_F(FileTransferTest, YesReplacesNoSkipsCancelStops) {
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        platform.disks.PutFile("D:\\To\\" + std::string(name), "old");
    ExpectReplace("a.bmp", Answer::Yes);
    ExpectReplace("b.bmp", Answer::No);
    ExpectReplace("c.bmp", Answer::Cancel);
    EXPECT_EQ(Run(), TransferEnd::Stopped);
    EXPECT_EQ(At("D:\\To\\a.bmp"), "a.bmp");
    EXPECT_EQ(At("D:\\To\\b.bmp"), "old");
    EXPECT_EQ(At("D:\\To\\c.bmp"), "old");
    EXPECT_EQ(done, std::vector<std::string>{"a.bmp"});
}

TEST_F(FileTransferTest, TheWindowIsAwayDuringTheQuestion) {
    platform.disks.PutFile("D:\\To\\b.bmp", "old");
    bool visible = true;
    Expect(
        {.text =
             "The following file already exists in the destination folder:\r\n\r\nb.bmp\r\n\r\nReplace this "
             "file with the one in the source folder?",
         .icon = forms::BoxIcon::Question,
         .buttons = forms::BoxButtons::YesNoCancel,
         .reply = Answer::Yes,
         .whileOpen = [&] { visible = toolkit.VisibleWindow("WaitCopyFrm") != nullptr; }});
    EXPECT_EQ(Run(), TransferEnd::Done);
    EXPECT_FALSE(visible);
}

TEST_F(FileTransferTest, WithoutAQuestionWhatStandsThereIsReplaced) {
    platform.disks.PutFile("D:\\To\\a.bmp", "old");
    TransferWords words = Words();
    words.replace.clear();
    EXPECT_EQ(Run(TransferAct::Copy, words), TransferEnd::Done);
    EXPECT_EQ(At("D:\\To\\a.bmp"), "a.bmp");
}

TEST_F(FileTransferTest, OneFileUnderTwoPathsIsLeftAlone) {
    platform.disks.PutLink("C:\\From\\a.bmp", "D:\\To\\a.bmp");
    for (const TransferAct act : {TransferAct::Copy, TransferAct::CopyThenRemove, TransferAct::Move}) {
        items = Items({"a.bmp"});
        done.clear();
        EXPECT_EQ(Run(act), TransferEnd::Done);
        EXPECT_EQ(At("C:\\From\\a.bmp"), "a.bmp");
        EXPECT_EQ(At("D:\\To\\a.bmp"), "a.bmp");
        EXPECT_TRUE(done.empty());
    }
}

TEST_F(FileTransferTest, ALookAlikeOfAVanishedFileIsAnotherFile) {
    platform.disks.Remove("C:\\From\\b.bmp");
    platform.disks.PutFile("C:\\From\\B.BMP", "other");
    Expect({.text = "Aborting, unable to copy the file:\r\n\r\nC:\\From\\b.bmp\r\n\r\nFile not found...",
            .icon = forms::BoxIcon::Stop});
    EXPECT_EQ(Run(), TransferEnd::Failed);
    EXPECT_EQ(done, std::vector<std::string>{"a.bmp"});
    EXPECT_EQ(At("C:\\From\\B.BMP"), "other");
    EXPECT_EQ(At("D:\\To\\b.bmp"), std::nullopt);
}

TEST_F(FileTransferTest, AFailureTellsThePathOrTheNameAndEndsIt) {
    platform.disks.PutFolder("D:\\To\\b.bmp");
    TransferWords words = Words();
    words.failureTellsPath = false;
    bool windowGone = false;
    Expect({.text = "Aborting, unable to copy the file:\r\n\r\nb.bmp\r\n\r\nPath/File access error...",
            .icon = forms::BoxIcon::Stop,
            .whileOpen = [&] { windowGone = app.Loaded<WaitCopyFrm>() == nullptr; }});
    EXPECT_EQ(Run(TransferAct::Copy, words), TransferEnd::Failed);
    EXPECT_TRUE(windowGone);
    EXPECT_EQ(At("D:\\To\\a.bmp"), "a.bmp");
    EXPECT_EQ(At("D:\\To\\c.bmp"), std::nullopt);
}

TEST_F(FileTransferTest, ARefusedFileIsPassedOverAfterItsQuestion) {
    platform.disks.PutFile("D:\\To\\b.bmp", "old");
    ExpectReplace("b.bmp", Answer::Yes);
    prepare = [](FileTransfer& transfer) {
        transfer.OnRefuse = [](const TransferItem& item) { return item.name == "b.bmp"; };
    };
    EXPECT_EQ(Run(TransferAct::Move), TransferEnd::Done);
    EXPECT_EQ(At("D:\\To\\b.bmp"), "old");
    EXPECT_EQ(At("C:\\From\\b.bmp"), "b.bmp");
    EXPECT_EQ(done, (std::vector<std::string>{"a.bmp", "c.bmp"}));
}

TEST_F(FileTransferTest, CancelIsHeardBeforeEachFile) {
    toolkit.AtYield(3, [&] { module.CancelCopy = true; });
    EXPECT_EQ(Run(), TransferEnd::Canceled);
    EXPECT_LT(done.size(), 3U);
    EXPECT_TRUE(module.CancelCopy);
}

TEST_F(FileTransferTest, CancelIsHeardInTheMiddleOfALargeFile) {
    platform.disks.PutFile("C:\\From\\a.bmp", std::string((std::size_t{8} << 20U) * 3, 'x'));
    platform.disks.PutFile("D:\\To\\a.bmp", "old");
    ExpectReplace("a.bmp", Answer::Yes);
    int before = 0;
    prepare = [&](FileTransfer& transfer) {
        transfer.OnRefuse = [&](const TransferItem&) {
            // From here on the copy is under way: its second piece is the last.
            before = toolkit.Yields();
            toolkit.AtYield(2, [&] { module.CancelCopy = true; });
            return false;
        };
    };
    EXPECT_EQ(Run(), TransferEnd::Canceled);
    EXPECT_EQ(toolkit.Yields(), before + 2);
    EXPECT_EQ(At("D:\\To\\a.bmp"), "old");
}

TEST_F(FileTransferTest, ADiskIsAskedForAndTheSameFileTriedAgain) {
    items = {{"C:\\From\\a.bmp", "A:\\a.bmp", "a.bmp"}, {"C:\\From\\b.bmp", "A:\\b.bmp", "b.bmp"}};
    int asked = 0;
    prepare = [&](FileTransfer& transfer) {
        transfer.OnNoDisk = [&] {
            if (++asked == 2) platform.disks.InsertDisk('A');
            return true;
        };
    };
    EXPECT_EQ(Run(), TransferEnd::Done);
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(At("A:\\a.bmp"), "a.bmp");
    EXPECT_EQ(At("A:\\b.bmp"), "b.bmp");
}

TEST_F(FileTransferTest, WithoutADiskItMayBeGivenUp) {
    items = {{"C:\\From\\a.bmp", "A:\\a.bmp", "a.bmp"}};
    prepare = [](FileTransfer& transfer) { transfer.OnNoDisk = [] { return false; }; };
    EXPECT_EQ(Run(), TransferEnd::Stopped);
    prepare = nullptr;
    Expect({.text = "Aborting, unable to copy the file:\r\n\r\nC:\\From\\a.bmp\r\n\r\nDisk not ready...",
            .icon = forms::BoxIcon::Stop});
    EXPECT_EQ(Run(), TransferEnd::Failed);
}

TEST_F(FileTransferTest, ASourceThatStaysIsNotDone) {
    platform.disks.SetReadOnly("C:\\From\\a.bmp", true);
    int asked = 0;
    bool goOn = true;
    prepare = [&](FileTransfer& transfer) {
        transfer.OnSourceStays = [&](const TransferItem& item, const RuntimeError& error) {
            ++asked;
            EXPECT_EQ(item.name, "a.bmp");
            EXPECT_EQ(error.Number(), ErrorNumber::PermissionDenied);
            return goOn;
        };
    };
    EXPECT_EQ(Run(TransferAct::CopyThenRemove), TransferEnd::Done);
    EXPECT_EQ(done, (std::vector<std::string>{"b.bmp", "c.bmp"}));
    EXPECT_EQ(At("C:\\From\\a.bmp"), "a.bmp");
    EXPECT_EQ(At("D:\\To\\a.bmp"), "a.bmp");
    goOn = false;
    platform.disks.Remove("D:\\To\\a.bmp");
    EXPECT_EQ(Run(TransferAct::CopyThenRemove), TransferEnd::Stopped);
    EXPECT_EQ(asked, 2);
}

constexpr std::array Names{"a.bmp", "b.bmp", "c.bmp"};

/// One run with a failing call, on a machine of its own; whether the failure came.
bool RunWithFault(TransferAct act, int call) {
    headless::HeadlessServices machine;
    headless::HeadlessToolkit toolkit;
    forms::Application app{toolkit};
    MainModule module{app, machine.services};
    machine.disks.AddDrive('D', DriveType::Fixed);
    machine.disks.InsertDisk('D');
    std::vector<TransferItem> items;
    for (const std::string name : Names) {
        machine.disks.PutFile("C:\\From\\" + name, name);
        machine.disks.PutFile("D:\\To\\" + name, "old");
        items.push_back({"C:\\From\\" + name, "D:\\To\\" + name, name});
    }
    machine.faults.FailNth(Service::Files, call, ErrorNumber::PathFileAccessError);
    CopyWindow window(module);
    FileTransfer transfer(module, window, act, {.doing = "Moving", .failure = "Failed", .replace = {}});
    const TransferEnd end = transfer.Run(items);
    const bool fired = machine.faults.Fired();
    machine.faults.Clear();
    EXPECT_TRUE(fired || end == TransferEnd::Done);
    // A failure is told in one box; one to remove the original is its caller's to tell.
    EXPECT_EQ(toolkit.BoxesShown(), end == TransferEnd::Failed ? 1 : 0);
    for (const std::string name : Names) {
        const auto from = machine.disks.Content("C:\\From\\" + name);
        const auto to = machine.disks.Content("D:\\To\\" + name);
        EXPECT_TRUE(from == name || to == name) << name;
        EXPECT_TRUE(to == name || to == "old") << name;
    }
    return fired;
}

TEST(FileTransferFaults, AfterAnyFailingCallEachFileStandsWholeSomewhere) {
    EXPECT_GT(SweepFaults([](int call) { return RunWithFault(TransferAct::Copy, call); }), 3);
    EXPECT_GT(SweepFaults([](int call) { return RunWithFault(TransferAct::Move, call); }), 3);
    EXPECT_GT(SweepFaults([](int call) { return RunWithFault(TransferAct::CopyThenRemove, call); }), 6);
}

TEST_F(FileTransferTest, ClosingTheWaitWindowCancels) {
    CopyWindow window(module);
    EXPECT_FALSE(module.CancelCopy);
    app.Unload(*app.Loaded<WaitCopyFrm>());
    EXPECT_TRUE(module.CancelCopy);
    window.Close();
    EXPECT_TRUE(module.CancelCopy);
    {
        CopyWindow another(module);
        EXPECT_FALSE(module.CancelCopy);
    }
    EXPECT_FALSE(module.CancelCopy);
}

}  // namespace
}  // namespace tavrix::test
