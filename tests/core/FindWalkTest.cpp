#include "dialogs/FindWalk.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "support/ProgramFixture.h"
#include "support/SleepingDisk.h"

namespace tavrix::test {
namespace {

using headless::Service;
using Texts = std::vector<std::string>;

/// Walks C:\w and notes what it comes to.
class FindWalkTest : public ProgramFixture {
  protected:
    void Put(const std::string& path) { platform.disks.PutFile("C:\\w\\" + path, ""); }

    Texts Walk(const std::string& patterns = "*.tvs", const std::string& folder = "C:\\w\\") {
        Texts found;
        FindWalk walk(module, patterns, cancelled);
        walk.OnFiles = [&](const std::string& at, const Texts& names, const auto&) {
            for (const std::string& name : names)
                found.push_back(at + name);
            if (onFiles) onFiles();
        };
        walk.OnBreath = [this] { ++breaths; };
        walk.Walk(folder);
        return found;
    }
    /// The user does something while the folder of this number is read, which takes a second.
    void WhileReading(
        int folder, std::function<void()> user = [] {}) {
        platform.faults.AtNth(Service::Files, folder, [this, user = std::move(user)] {
            toolkit.Advance(std::chrono::seconds(1));
            toolkit.Post(user);
        });
    }
    [[nodiscard]] int Looks() const {
        return static_cast<int>(std::ranges::count_if(
            platform.faults.Log(), [](const std::string& call) { return call.starts_with("Files.Look"); }));
    }

    bool cancelled = false;
    int breaths = 0;
    std::function<void()> onFiles;
};

TEST_F(FindWalkTest, SubfoldersComeBeforeTheFilesOfTheirFolder) {
    for (const char* path :
         {"z.tvs", "A.TVS", "b\\1.tvs", "b\\c\\2.tvs", "b\\a\\3.tvs", "B2\\4.tvs", "x.bmp", "empty\\x.txt"})
        Put(path);
    EXPECT_EQ(Walk(), (Texts{"C:\\w\\b\\a\\3.tvs", "C:\\w\\b\\c\\2.tvs", "C:\\w\\b\\1.tvs",
                             "C:\\w\\B2\\4.tvs", "C:\\w\\A.TVS", "C:\\w\\z.tvs"}));
    EXPECT_EQ(Looks(), 6) << "each folder once";
}

TEST_F(FindWalkTest, AWholeDriveIsWalkedFromItsRoot) {
    Put("a.tvs");
    platform.disks.PutFile("C:\\r.tvs", "");
    EXPECT_EQ(Walk("*.tvs", "C:\\"), (Texts{"C:\\w\\a.tvs", "C:\\r.tvs"}));
}

TEST_F(FindWalkTest, SeveralPatternsFindEachFileOnce) {
    Put("a.bmp");
    Put("b.jpg");
    Put("c.txt");
    EXPECT_EQ(Walk("*.bmp;*.jpg;*.b*"), (Texts{"C:\\w\\a.bmp", "C:\\w\\b.jpg"}));
}

TEST_F(FindWalkTest, LinksAreNotFollowed) {
    Put("real\\a.tvs");
    platform.disks.PutLink("C:\\w\\real", "C:\\w\\again");
    platform.disks.PutLink("C:\\w", "C:\\w\\real\\round");
    EXPECT_EQ(Walk(), (Texts{"C:\\w\\real\\a.tvs"}));
}

TEST_F(FindWalkTest, AFolderThatCannotBeReadHasNothingInIt) {
    Put("a\\1.tvs");
    Put("b\\2.tvs");
    Put("b\\in\\3.tvs");
    Put("c\\4.tvs");
    platform.disks.SetUnreadable("C:\\w\\b", true);
    EXPECT_EQ(Walk(), (Texts{"C:\\w\\a\\1.tvs", "C:\\w\\c\\4.tvs"}));
    EXPECT_EQ(Walk("*.tvs", "C:\\gone\\"), Texts{});
    EXPECT_EQ(Walk("*.tvs", "A:\\"), Texts{});
    EXPECT_EQ(Walk("*.tvs", "Q:\\"), Texts{});
}

TEST_F(FindWalkTest, HiddenFilesAndFoldersAreLeftOut) {
    Put("a\\1.tvs");
    Put("b\\2.tvs");
    Put("3.tvs");
    platform.disks.SetHidden("C:\\w\\a", true);
    platform.disks.SetHidden("C:\\w\\3.tvs", true);
    EXPECT_EQ(Walk(), (Texts{"C:\\w\\b\\2.tvs"}));
}

TEST_F(FindWalkTest, AnySingleFailureCostsOneFolderAtMost) {
    for (const char* path : {"a\\1.tvs", "b\\2.tvs", "3.tvs"})
        Put(path);
    const Texts all = Walk();
    for (int call = 1; call <= 3; ++call) {
        platform.faults.Clear();
        platform.faults.FailNth(Service::Files, call, ErrorNumber::PermissionDenied);
        const Texts found = Walk();
        EXPECT_TRUE(platform.faults.Fired());
        EXPECT_EQ(found.size(), call == 1 ? 0U : 2U) << call;
        for (const std::string& path : found)
            EXPECT_TRUE(std::ranges::count(all, path) == 1) << path << call;
    }
}

TEST_F(FindWalkTest, SubfoldersPastALimitAreIgnored) {
    const auto name = [](int number) {
        const std::string digits = std::to_string(10'000 + number);
        return "f" + digits;
    };
    for (int number = 0; number < 3001; ++number)
        Put(name(number) + "\\a.tvs");
    Texts found = Walk();
    EXPECT_EQ(found.size(), 3001U);
    EXPECT_EQ(found.back(), "C:\\w\\f13000\\a.tvs");
    Put(name(3001) + "\\a.tvs");
    Put("own.tvs");
    found = Walk();
    EXPECT_EQ(found.size(), 3002U);
    EXPECT_EQ(found[3000], "C:\\w\\f13000\\a.tvs");
    EXPECT_EQ(found[3001], "C:\\w\\own.tvs");
}

TEST_F(FindWalkTest, FoldersMayLieDeepInEachOther) {
    std::string path = "deep.tvs";
    for (int level = 0; level < 2000; ++level)
        path.insert(0, "d\\");
    Put(path);
    EXPECT_EQ(Walk(), (Texts{"C:\\w\\" + path}));
}

TEST_F(FindWalkTest, ACancelledWalkBeginsWithNothing) {
    Put("1.tvs");
    cancelled = true;
    EXPECT_EQ(Walk(), Texts{});
    EXPECT_EQ(Looks(), 0);
}

TEST_F(FindWalkTest, ACancelledWalkEndsSoonAndTellsNoMore) {
    for (const char* path : {"a\\1.tvs", "b\\2.tvs", "c\\3.tvs", "4.tvs"})
        Put(path);
    WhileReading(3, [this] { cancelled = true; });  // C:\w, a, b
    EXPECT_EQ(Walk(), (Texts{"C:\\w\\a\\1.tvs"}));
    EXPECT_EQ(Looks(), 3);
}

TEST_F(FindWalkTest, WhatStopsItWhileItTellsStopsItAtOnce) {
    for (const char* path : {"a\\1.tvs", "b\\2.tvs"})
        Put(path);
    onFiles = [this] { cancelled = true; };
    EXPECT_EQ(Walk(), (Texts{"C:\\w\\a\\1.tvs"}));
    EXPECT_EQ(Looks(), 2);
}

TEST_F(FindWalkTest, EventsRunAsTimePasses) {
    for (int number = 0; number < 50; ++number)
        Put("f" + std::to_string(number) + "\\a.tvs");
    const int before = toolkit.Yields();
    Walk();
    EXPECT_EQ(toolkit.Yields(), before) << "not at every file";
    platform.faults.Clear();
    bool answered = false;
    WhileReading(10, [&] { answered = true; });
    Walk();
    EXPECT_EQ(breaths, 1);
    EXPECT_EQ(toolkit.Yields(), before + 1);
    EXPECT_TRUE(answered);
}

class SleepingDiskTest : public FindWalkTest {
  protected:
    SleepingDiskTest() {
        for (const char* path : {"a\\1.tvs", "b\\2.tvs"})
            Put(path);
        disk.sleeping = "C:\\w\\a\\";
    }
    Texts WalkTheDisk() {
        const auto& s = platform.services;
        const Services services{disk,       s.drives,      s.profile, s.registry,     s.store,  s.shell,
                                s.pictures, s.clipboard,   s.sound,   s.help,         s.system, s.process,
                                s.viewLib,  s.wakefulness, s.desktop, s.saverPassword};
        MainModule sleeper(app, services);
        Texts found;
        FindWalk walk(sleeper, "*.tvs", cancelled);
        walk.OnFiles = [&](const std::string& at, const Texts& names, const auto&) {
            found.push_back(at + names.front());
        };
        walk.OnBreath = [this] { ++breaths; };
        walk.Walk("C:\\w\\");
        return found;
    }

    SleepingDisk disk{platform.files, toolkit};
};

TEST_F(SleepingDiskTest, EventsRunWhileItSleeps) {
    EXPECT_EQ(WalkTheDisk(), (Texts{"C:\\w\\a\\1.tvs", "C:\\w\\b\\2.tvs"}));
    EXPECT_EQ(breaths, 250);
    EXPECT_EQ(toolkit.Yields(), 250);
    EXPECT_EQ(toolkit.Now(), std::chrono::seconds(5));
}

TEST_F(SleepingDiskTest, TheUserIsHeardWhileItSleeps) {
    toolkit.AtYield(7, [this] { cancelled = true; });
    EXPECT_EQ(WalkTheDisk(), Texts{});
    EXPECT_EQ(toolkit.Now(), forms::Milliseconds(140));
}

}  // namespace
}  // namespace tavrix::test
