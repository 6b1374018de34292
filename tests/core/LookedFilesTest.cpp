#include "dialogs/LookedFiles.h"

#include <algorithm>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "support/ErrorOfCall.h"
#include "support/ProgramFixture.h"
#include "support/SleepingDisk.h"

namespace tavrix::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* Bitmaps = "*.bmp";
constexpr const char* Quick = "C:\\quick";
constexpr const char* Slow = "C:\\slow";

class LookForm final : public forms::Form {
  public:
    LookForm(forms::Application& application, Files& files)
        : Form(application, {.name = "LookForm"}), Looked(*this, files, Bitmaps) {}
    LookedFiles Looked;
};

/// Both folders hold a.bmp, b.gif, the folders A and c, and a link b to a folder. C:\slow sleeps for a moment and four ticks.
class LookedFilesTest : public ProgramFixture {
  protected:
    LookedFilesTest() {
        platform.disks.PutFolder("C:\\elsewhere");
        for (const std::string folder : {Quick, Slow}) {
            platform.disks.PutFile(folder + "\\a.bmp", "x");
            platform.disks.PutFile(folder + "\\b.gif", "x");
            platform.disks.PutFolder(folder + "\\A");
            platform.disks.PutFolder(folder + "\\c");
            platform.disks.PutLink("C:\\elsewhere", folder + "\\b");
        }
        disk.sleeping = Slow;
        disk.waits = 5;
        files.OnPending = [this] { pending.push_back(files.Pending()); };
        files.OnCome = [this] { ++came; };
        files.OnFailure = [this](const std::string& folder, const RuntimeError& error) {
            failures.emplace_back(folder, static_cast<int>(error.Number()));
        };
        platform.faults.Clear();
    }
    ~LookedFilesTest() override { app.Unload(form); }

    static Texts FoldersIn(const std::string& folder) {
        return {folder + "\\A", folder + "\\b", folder + "\\c"};
    }
    void Tick(int count) {
        for (int i = 0; i < count; ++i) {
            toolkit.Advance(forms::Milliseconds(20));
            module.DoEvents();
        }
    }
    [[nodiscard]] long Looks() const {
        return std::ranges::count_if(platform.faults.Log(),
                                     [](const std::string& call) { return call.starts_with("Files.Look"); });
    }

    SleepingDisk disk{platform.files, toolkit};
    LookForm& form = app.Load<LookForm>(disk);
    LookedFiles& files = form.Looked;
    std::vector<bool> pending;
    int came = 0;
    std::vector<std::pair<std::string, int>> failures;
};

TEST_F(LookedFilesTest, BeforeAFolderNothingIsWaitedFor) {
    EXPECT_FALSE(files.Pending());
    EXPECT_FALSE(files.TimerLook.Enabled);
}

TEST_F(LookedFilesTest, AQuickFolderIsReadOnceForBothLists) {
    EXPECT_EQ(files.List(Quick, Bitmaps), Texts{"a.bmp"});
    EXPECT_EQ(files.Folders(Quick), FoldersIn(Quick));
    EXPECT_EQ(Looks(), 1);
    EXPECT_FALSE(files.Pending());
    EXPECT_FALSE(files.TimerLook.Enabled);
    Tick(3);
    EXPECT_EQ(came, 0);
    EXPECT_EQ(pending, std::vector<bool>());
}

TEST_F(LookedFilesTest, WhatIsAskedForAgainIsReadAgain) {
    static_cast<void>(files.List(Quick, Bitmaps));
    platform.disks.PutFile("C:\\quick\\z.bmp", "x");
    EXPECT_EQ(files.List(Quick, Bitmaps), (Texts{"a.bmp", "z.bmp"}));
    EXPECT_EQ(Looks(), 2);
    static_cast<void>(files.Folders(Quick));
    platform.disks.PutFolder("C:\\quick\\d");
    EXPECT_EQ(files.Folders(Quick).size(), 4U);
    EXPECT_EQ(Looks(), 3);
}

TEST_F(LookedFilesTest, OtherPatternsAreAnotherLook) {
    EXPECT_EQ(files.List(Quick, Bitmaps), Texts{"a.bmp"});
    EXPECT_EQ(files.List(Quick, "*.gif"), Texts{"b.gif"});
    EXPECT_EQ(files.Folders(Quick), FoldersIn(Quick));
    EXPECT_EQ(Looks(), 2);
}

TEST_F(LookedFilesTest, WhatHasComeOrIsOnItsWayByFormerPatternsIsNotTaken) {
    EXPECT_EQ(files.Folders(Quick), FoldersIn(Quick));
    EXPECT_EQ(files.List(Quick, "*.gif"), Texts{"b.gif"});
    static_cast<void>(files.Folders(Slow));
    EXPECT_EQ(files.List(Slow, Bitmaps), Texts{});
    Tick(5);
    EXPECT_EQ(files.List(Slow, Bitmaps), Texts{"a.bmp"});
}

TEST_F(LookedFilesTest, ASlowFolderIsEmptyUntilItHasCome) {
    const forms::Milliseconds start = toolkit.Now();
    EXPECT_EQ(files.List(Slow, Bitmaps), Texts{});
    EXPECT_EQ(toolkit.Now() - start, forms::Milliseconds(LookedFiles::Moment));
    EXPECT_TRUE(files.Pending());
    EXPECT_EQ(files.Folders(Slow), Texts{});
    EXPECT_EQ(files.List(Slow, Bitmaps), Texts{});
    EXPECT_EQ(pending, std::vector{true});
    Tick(4);
    EXPECT_EQ(toolkit.Now() - start, forms::Milliseconds(LookedFiles::Moment + 80)) << "no tick waits";
    EXPECT_EQ(came, 0);
    EXPECT_TRUE(files.Pending());
    Tick(1);
    EXPECT_EQ(came, 1);
    EXPECT_EQ(pending, (std::vector{true, false}));
    EXPECT_FALSE(files.TimerLook.Enabled);
    EXPECT_EQ(files.List(Slow, Bitmaps), Texts{"a.bmp"});
    EXPECT_EQ(files.Folders(Slow), FoldersIn(Slow));
    EXPECT_EQ(Looks(), 1);
    Tick(5);
    EXPECT_EQ(came, 1);
    EXPECT_EQ(files.List(Slow, Bitmaps), Texts{}) << "asked for again";
    EXPECT_EQ(pending, (std::vector{true, false, true}));
    EXPECT_EQ(Looks(), 2);
}

TEST_F(LookedFilesTest, OneThatIsAskedForByItsFoldersComesWithItsFiles) {
    EXPECT_EQ(files.Folders(Slow), Texts{});
    EXPECT_EQ(files.Folders(Slow), Texts{});
    Tick(5);
    EXPECT_EQ(files.Folders(Slow), FoldersIn(Slow));
    EXPECT_EQ(files.List(Slow, Bitmaps), Texts{"a.bmp"});
    EXPECT_EQ(Looks(), 1);
}

TEST_F(LookedFilesTest, NothingOfTheFormerFolderIsTakenForTheNext) {
    static_cast<void>(files.List(Quick, Bitmaps));
    EXPECT_EQ(files.List(Slow, Bitmaps), Texts{});
    EXPECT_EQ(files.Folders(Slow), Texts{});
    static_cast<void>(files.Folders(Quick));
    EXPECT_EQ(files.Folders(Slow), Texts{});
    EXPECT_EQ(files.List(Slow, Bitmaps), Texts{});
}

TEST_F(LookedFilesTest, AnotherFolderGivesTheSlowOneUp) {
    static_cast<void>(files.List(Slow, Bitmaps));
    EXPECT_EQ(files.List(Quick, Bitmaps), Texts{"a.bmp"});
    EXPECT_FALSE(files.Pending());
    EXPECT_FALSE(files.TimerLook.Enabled);
    EXPECT_EQ(pending, (std::vector{true, false}));
    Tick(10);
    EXPECT_EQ(came, 0);
    EXPECT_EQ(files.Folders(Quick), FoldersIn(Quick));
}

TEST_F(LookedFilesTest, OneThatFailsAtOnceLeavesTheAwaitedOne) {
    static_cast<void>(files.List(Slow, Bitmaps));
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.List("C:\\none", Bitmaps)); }), 76);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.Folders("C:\\none")); }), 76);
    EXPECT_TRUE(files.Pending());
    Tick(5);
    EXPECT_EQ(came, 1);
    EXPECT_EQ(files.List(Slow, Bitmaps), Texts{"a.bmp"});
    EXPECT_TRUE(failures.empty());
}

TEST_F(LookedFilesTest, OneThatFailsLateIsToldOnceAndThrownOnce) {
    platform.disks.SetUnreadable(Slow, true);
    EXPECT_EQ(files.List(Slow, Bitmaps), Texts{});
    Tick(5);
    EXPECT_EQ(failures, (std::vector<std::pair<std::string, int>>{{Slow, 70}}));
    EXPECT_EQ(came, 0);
    EXPECT_EQ(pending, (std::vector{true, false}));
    EXPECT_FALSE(files.TimerLook.Enabled);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.Folders(Slow)); }), 70);
    EXPECT_EQ(Looks(), 1);
    EXPECT_EQ(files.Folders(Slow), Texts{}) << "another look";
    EXPECT_EQ(Looks(), 2);
    Tick(10);
    EXPECT_EQ(failures.size(), 2U);
}

TEST_F(LookedFilesTest, ALateFailureIsThatOfItsFolderAlone) {
    platform.disks.SetUnreadable(Slow, true);
    static_cast<void>(files.List(Slow, Bitmaps));
    Tick(5);
    ASSERT_EQ(failures.size(), 1U);
    EXPECT_EQ(files.Folders(Quick), FoldersIn(Quick));
    platform.disks.SetUnreadable(Slow, false);
    EXPECT_EQ(files.Folders(Slow), Texts{}) << "on its way again";
    Tick(5);
    EXPECT_EQ(files.Folders(Slow), FoldersIn(Slow));
}

TEST_F(LookedFilesTest, WhatNoListAskedForInTimeIsReadAgain) {
    static_cast<void>(files.List(Quick, Bitmaps));
    toolkit.Advance(forms::Milliseconds(LookedFiles::Moment + 1));
    platform.disks.PutFolder("C:\\quick\\d");
    EXPECT_EQ(files.Folders(Quick).size(), 4U);
    toolkit.Advance(forms::Milliseconds(LookedFiles::Moment + 1));
    platform.disks.PutFile("C:\\quick\\z.bmp", "x");
    EXPECT_EQ(files.List(Quick, Bitmaps), (Texts{"a.bmp", "z.bmp"}));
}

// What waits for a folder

class WaitingTest : public LookedFilesTest {
  protected:
    void Await(const std::string& name) { awaited = files.Awaits(Noting(name)); }
    void WhenRead(const std::string& name) { files.WhenRead(Noting(name)); }
    std::function<void()> Noting(const std::string& name) {
        return [this, name] { done.push_back(name); };
    }

    Texts done;
    bool awaited = false;
};

TEST_F(WaitingTest, NothingWaitsForAFolderThatHasCome) {
    static_cast<void>(files.List(Quick, Bitmaps));
    Await("wish");
    EXPECT_FALSE(awaited);
    WhenRead("then");
    EXPECT_EQ(done, Texts{"then"});
    Tick(5);
    EXPECT_EQ(done, Texts{"then"});
}

TEST_F(WaitingTest, AWishIsDoneOnceAndAfterAllElse) {
    static_cast<void>(files.List(Slow, Bitmaps));
    Await("first wish");
    EXPECT_TRUE(awaited);
    WhenRead("a");
    Await("last wish");
    WhenRead("b");
    files.OnCome = Noting("come");
    EXPECT_EQ(done, Texts{});
    Tick(10);
    EXPECT_EQ(done, (Texts{"come", "a", "b", "last wish"}));
    EXPECT_FALSE(form.Unloaded());
}

TEST_F(WaitingTest, AnotherFolderEndsTheWait) {
    static_cast<void>(files.List(Slow, Bitmaps));
    Await("wish");
    WhenRead("then");
    static_cast<void>(files.List(Quick, Bitmaps));
    static_cast<void>(files.List(Slow, Bitmaps));
    Tick(10);
    EXPECT_EQ(came, 1);
    EXPECT_EQ(done, Texts{});
}

TEST_F(WaitingTest, TheSameFolderAskedForAgainDoesNot) {
    static_cast<void>(files.List(Slow, Bitmaps));
    Await("wish");
    WhenRead("then");
    files.LookAgain();
    static_cast<void>(files.Folders(Slow));
    Tick(10);
    EXPECT_EQ(done, (Texts{"then", "wish"}));
}

TEST_F(WaitingTest, AFailureEndsTheWait) {
    platform.disks.SetUnreadable(Slow, true);
    static_cast<void>(files.List(Slow, Bitmaps));
    Await("wish");
    WhenRead("then");
    Tick(10);
    EXPECT_EQ(failures.size(), 1U);
    platform.disks.SetUnreadable(Slow, false);
    static_cast<void>(files.List(Slow, Bitmaps));
    Tick(10);
    EXPECT_EQ(done, Texts{});
}

TEST_F(WaitingTest, WhatTheUserForgetsIsNotDone) {
    static_cast<void>(files.List(Slow, Bitmaps));
    Await("wish");
    files.Forget();
    Tick(10);
    EXPECT_EQ(done, Texts{});
    static_cast<void>(files.List(Slow, Bitmaps));
    Await("wish");
    Tick(5);
    Await("wish");  // it has come: the caller does it
    EXPECT_FALSE(awaited);
    Tick(10);
    EXPECT_EQ(done, Texts{});
}

TEST_F(WaitingTest, AWishMayWaitForTheNextFolder) {
    disk.waits = 3;
    static_cast<void>(files.List(Slow, Bitmaps));
    static_cast<void>(files.Awaits([this] {
        files.LookAgain();
        EXPECT_TRUE(files.Pending());
        Await("inner");
        files.Wait();
        EXPECT_FALSE(files.Pending());
        Tick(2);  // a window of the wish's own
        done.emplace_back("outer");
    }));
    Tick(20);
    EXPECT_EQ(done, (Texts{"inner", "outer"}));
}

TEST_F(WaitingTest, WhatComesMayAskForAnotherFolder) {
    static_cast<void>(files.List(Slow, Bitmaps));
    files.WhenRead([this] { files.LookAgain(); });
    WhenRead("second");
    Await("wish");
    Tick(5);
    EXPECT_EQ(done, Texts{}) << "it is on its way again";
    Tick(10);
    EXPECT_EQ(done, (Texts{"second", "wish"}));
}

TEST_F(WaitingTest, AWorkWaitsWhileMessagesRun) {
    static_cast<void>(files.List(Slow, Bitmaps));
    int messages = 0;
    toolkit.Post([&messages] { ++messages; });
    files.Wait();
    EXPECT_EQ(messages, 1);
    EXPECT_FALSE(files.Pending());
    EXPECT_EQ(came, 1);
    EXPECT_EQ(files.List(Slow, Bitmaps), Texts{"a.bmp"});
    EXPECT_FALSE(files.TimerLook.Enabled);
    files.Wait();  // for nothing
    EXPECT_EQ(came, 1);
}

TEST_F(WaitingTest, NobodyWaitsForAnUnloadedForm) {
    auto& closed = app.Load<LookForm>(disk);
    LookedFiles& its = closed.Looked;
    const forms::Form::HandlerScope scope(closed);  // one of its handlers runs
    its.OnCome = Noting("come");
    static_cast<void>(its.List(Slow, Bitmaps));
    static_cast<void>(its.Awaits(Noting("wish")));
    its.WhenRead(Noting("then"));
    toolkit.Post([this, &closed] { app.Unload(closed); });
    its.Wait();
    EXPECT_TRUE(its.Pending());
    Tick(10);
    EXPECT_EQ(done, Texts{});
}

TEST_F(WaitingTest, TwoOfOneFormKnowOfEachOther) {
    LookedFiles other(form, disk, Bitmaps, &files);
    EXPECT_FALSE(files.AnyPending());
    static_cast<void>(other.List(Slow, Bitmaps));
    EXPECT_FALSE(files.Pending());
    EXPECT_TRUE(files.AnyPending());
    EXPECT_TRUE(other.AnyPending());
    static_cast<void>(files.List(Quick, Bitmaps));
    EXPECT_TRUE(files.AnyPending());
    Tick(5);
    EXPECT_FALSE(files.AnyPending());
    EXPECT_FALSE(other.AnyPending());
}

TEST_F(WaitingTest, AFormHasOneWishWhicheverFolderItWaitsFor) {
    LookedFiles other(form, disk, Bitmaps, &files);
    static_cast<void>(files.List(Slow, Bitmaps));
    static_cast<void>(other.List(Slow, Bitmaps));
    Await("first");
    EXPECT_TRUE(other.Awaits(Noting("last")));
    Tick(20);
    EXPECT_EQ(done, Texts{"last"});
    const auto look = [&] {
        static_cast<void>(files.List(Quick, Bitmaps));
        static_cast<void>(files.List(Slow, Bitmaps));
        Await("lost");
        EXPECT_TRUE(awaited);
    };
    look();
    other.Forget();
    Tick(20);
    look();
    static_cast<void>(other.List(Quick, Bitmaps));  // the user goes to another folder there
    Tick(20);
    look();
    EXPECT_FALSE(other.Awaits(Noting("never")));  // which the caller does itself
    Tick(20);
    EXPECT_EQ(done, Texts{"last"});
}

/// A folder of which memory has room for nothing.
class EndlessLook final : public FolderLook {
  public:
    bool Wait(int milliseconds) override { return milliseconds < LookedFiles::Moment; }
    FolderContent Take() override { throw std::bad_alloc(); }
};

class EndlessFiles final : public ForwardingFiles {
  public:
    using ForwardingFiles::ForwardingFiles;
    std::unique_ptr<FolderLook> Look(const std::string&, const std::string&) override {
        return std::make_unique<EndlessLook>();
    }
};

TEST_F(WaitingTest, AFolderThatMemoryCannotHoldIsAFailure) {
    EndlessFiles endless(platform.files);
    auto& full = app.Load<LookForm>(endless);
    std::vector<bool> told;
    std::vector<ErrorNumber> errors;
    full.Looked.OnPending = [&] { told.push_back(full.Looked.Pending()); };
    full.Looked.OnFailure = [&](const std::string&, const RuntimeError& error) {
        errors.push_back(error.Number());
    };
    static_cast<void>(full.Looked.List(Slow, Bitmaps));
    Tick(2);
    EXPECT_EQ(told, (std::vector{true, false}));
    EXPECT_EQ(errors, std::vector{ErrorNumber::OutOfMemory});
    app.Unload(full);
}

}  // namespace
}  // namespace tavrix::test
