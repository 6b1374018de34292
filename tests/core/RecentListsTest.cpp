#include "core/RecentLists.h"

#include <array>

#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

using headless::Service;
using Recent = std::array<std::string, 7>;

class RecentListsTest : public ProgramFixture {
  protected:
    RecentListsTest() {
        module.RefreshRecentMenu = [this] { ++refreshes; };
    }
    std::string Add(std::string path) {
        AddRecentFile(module, path);
        return path;
    }
    int refreshes = 0;
};

class AddRecentFileTest : public RecentListsTest {};

TEST_F(AddRecentFileTest, ANewPathComesFirstWithItsFirstLetterRaised) {
    EXPECT_EQ(Add("c:\\a.bmp"), "C:\\a.bmp");
    EXPECT_EQ(Add("D:\\b.bmp"), "D:\\b.bmp");
    EXPECT_EQ(module.config.Recent, (Recent{"D:\\b.bmp", "C:\\a.bmp"}));
    EXPECT_EQ(refreshes, 2);
}

TEST_F(AddRecentFileTest, FirstLettersBeyondAsciiAreRaisedToo) {
    EXPECT_EQ(Add("\xC3\xA4.bmp"), "\xC3\x84.bmp");
}

TEST_F(AddRecentFileTest, TheEighthPushesTheOldestOut) {
    for (const char* path : {"C:\\1", "C:\\2", "C:\\3", "C:\\4", "C:\\5", "C:\\6", "C:\\7", "C:\\8"})
        Add(path);
    EXPECT_EQ(module.config.Recent, (Recent{"C:\\8", "C:\\7", "C:\\6", "C:\\5", "C:\\4", "C:\\3", "C:\\2"}));
}

TEST_F(AddRecentFileTest, AListedPathKeepsItsPlaceAndItsSpelling) {
    const Recent before{"C:\\a.bmp", "C:\\B.bmp", "", "", "", "", "C:\\c.bmp"};
    module.config.Recent = before;
    EXPECT_EQ(Add("c:\\b.BMP"), "c:\\b.BMP");
    EXPECT_EQ(Add("c:\\C.bmp"), "c:\\C.bmp");
    EXPECT_EQ(module.config.Recent, before);
    EXPECT_EQ(refreshes, 0);
    EXPECT_EQ(platform.shell.recent, (std::vector<std::string>{"c:\\b.BMP", "c:\\C.bmp"}));
}

TEST_F(AddRecentFileTest, TheDesktopIsToldOnlyWhenItShallBe) {
    module.config.UseRecentDocuments = false;
    Add("C:\\a.bmp");
    EXPECT_TRUE(platform.shell.recent.empty());
    EXPECT_EQ(toolkit.Yields(), 0);
    module.config.UseRecentDocuments = true;
    Add("c:\\b.bmp");
    EXPECT_EQ(platform.shell.recent, std::vector<std::string>{"c:\\b.bmp"});
    EXPECT_EQ(toolkit.Yields(), 1);
}

TEST_F(AddRecentFileTest, WithoutKeepRecentOnlyTheDesktopIsTold) {
    module.config.KeepRecent = false;
    EXPECT_EQ(Add("c:\\a.bmp"), "c:\\a.bmp");
    EXPECT_EQ(module.config.Recent, Recent{});
    EXPECT_EQ(platform.shell.recent, std::vector<std::string>{"c:\\a.bmp"});
    EXPECT_EQ(refreshes, 0);
}

TEST_F(AddRecentFileTest, AnEmptyPathIsNotListed) {
    EXPECT_EQ(Add(""), "");
    EXPECT_EQ(module.config.Recent, Recent{});
    EXPECT_EQ(refreshes, 0);
}

TEST_F(AddRecentFileTest, TheListWorksWithoutADesktop) {
    platform.faults.FailAlways(Service::Shell, "AddRecent", ErrorNumber::PermissionDenied);
    EXPECT_NO_THROW(Add("C:\\a.bmp"));
    EXPECT_EQ(module.config.Recent[0], "C:\\a.bmp");
}

class AddRecentShowTest : public RecentListsTest {
  protected:
    std::string AddShow(std::string path) {
        AddRecentShow(module, path);
        return path;
    }
    std::array<std::string, 20>& shows = module.config.RecentShows;
};

TEST_F(AddRecentShowTest, ANewPathComesFirstWithItsFirstLetterRaised) {
    EXPECT_EQ(AddShow("c:\\one.tvs"), "C:\\one.tvs");
    EXPECT_EQ(AddShow("d:\\two.tvs"), "D:\\two.tvs");
    EXPECT_EQ(shows[0], "D:\\two.tvs");
    EXPECT_EQ(shows[1], "C:\\one.tvs");
    EXPECT_EQ(shows[2], "");
    EXPECT_EQ(refreshes, 0) << "the menu shows images only";
    EXPECT_EQ(module.config.Recent, Recent{});
}

TEST_F(AddRecentShowTest, TheTwentyFirstPushesTheOldestOut) {
    for (int i = 1; i <= 21; ++i)
        AddShow("C:\\" + std::to_string(i) + "-show.tvs");
    EXPECT_EQ(shows.front(), "C:\\21-show.tvs");
    EXPECT_EQ(shows.back(), "C:\\2-show.tvs");
}

TEST_F(AddRecentShowTest, AListedPathKeepsItsPlaceAndItsSpelling) {
    shows[0] = "C:\\A-show.tvs";
    shows[19] = "C:\\B-show.tvs";
    const auto before = shows;
    EXPECT_EQ(AddShow("c:\\b-SHOW.tvs"), "c:\\b-SHOW.tvs");
    EXPECT_EQ(shows, before);
    EXPECT_EQ(platform.shell.recent, std::vector<std::string>{"c:\\b-SHOW.tvs"});
}

TEST_F(AddRecentShowTest, WhatIsNoFileIsNotListedButTold) {
    for (const char* path : {"", "show.tvs.without.drive", "C:\\.tvs", "C:\\\xC3\xA4.tv"}) {
        EXPECT_EQ(AddShow(path), path);
        EXPECT_EQ(shows[0], "") << path;
    }
    EXPECT_EQ(platform.shell.recent.size(), 4U);
    AddShow("C:\\a.tvs");
    EXPECT_EQ(shows[0], "C:\\a.tvs") << "eight characters";
}

TEST_F(AddRecentShowTest, WithoutKeepRecentOnlyTheDesktopIsTold) {
    module.config.KeepRecent = false;
    EXPECT_EQ(AddShow("c:\\one.tvs"), "c:\\one.tvs");
    EXPECT_EQ(shows[0], "");
    EXPECT_EQ(platform.shell.recent, std::vector<std::string>{"c:\\one.tvs"});
    EXPECT_EQ(toolkit.Yields(), 1);
}

TEST_F(AddRecentShowTest, TheDesktopIsToldOnlyWhenItShallBeAndMayFail) {
    module.config.UseRecentDocuments = false;
    AddShow("C:\\one.tvs");
    EXPECT_TRUE(platform.shell.recent.empty());
    EXPECT_EQ(toolkit.Yields(), 0);
    module.config.UseRecentDocuments = true;
    platform.faults.FailAlways(Service::Shell, "AddRecent", ErrorNumber::PermissionDenied);
    EXPECT_NO_THROW(AddShow("C:\\two.tvs"));
    EXPECT_EQ(shows[0], "C:\\two.tvs");
}

class RemoveRecentFileTest : public RecentListsTest {
  protected:
    RemoveRecentFileTest() { module.config.Recent = full; }
    /// A file in C:\, where names may differ in case alone.
    void PutLookAlike(const std::string& name) {
        platform.disks.Drives().at('C').disk->root->children[name] =
            std::make_shared<headless::MemoryNode>(headless::MemoryNode{.content = name});
    }
    const Recent full{"C:\\1", "C:\\2", "C:\\3", "C:\\4", "C:\\5", "C:\\6", "C:\\7"};
};

TEST_F(RemoveRecentFileTest, TheEntriesBelowMoveUp) {
    RemoveRecentFile(module, "c:\\3");
    EXPECT_EQ(module.config.Recent, (Recent{"C:\\1", "C:\\2", "C:\\4", "C:\\5", "C:\\6", "C:\\7", ""}));
    EXPECT_EQ(refreshes, 1);
    RemoveRecentFile(module, "C:\\7");
    EXPECT_EQ(module.config.Recent, (Recent{"C:\\1", "C:\\2", "C:\\4", "C:\\5", "C:\\6", "", ""}));
    EXPECT_EQ(refreshes, 2);
}

TEST_F(RemoveRecentFileTest, TheLastOfAFullListLeavesItsPlaceEmpty) {
    RemoveRecentFile(module, "C:\\7");
    EXPECT_EQ(module.config.Recent, (Recent{"C:\\1", "C:\\2", "C:\\3", "C:\\4", "C:\\5", "C:\\6", ""}));
}

TEST_F(RemoveRecentFileTest, AFileThatStillExistsStays) {
    platform.disks.PutFile("C:\\3", "x");
    RemoveRecentFile(module, "C:\\3");
    EXPECT_EQ(module.config.Recent, full);
    EXPECT_EQ(refreshes, 0);
}

TEST_F(RemoveRecentFileTest, AFileOfAnotherSpellingBesideItIsAnotherFile) {
    PutLookAlike("A.BMP");
    module.config.Recent = {"C:\\1", "C:\\a.bmp"};
    RemoveRecentFile(module, "c:\\a.bmp");
    EXPECT_EQ(module.config.Recent, (Recent{"C:\\1"}));
    EXPECT_EQ(refreshes, 1);
    // The entry of the other one stays when this one goes.
    module.config.Recent = {"C:\\1", "C:\\A.BMP"};
    RemoveRecentFile(module, "C:\\a.bmp");
    EXPECT_EQ(module.config.Recent, (Recent{"C:\\1", "C:\\A.BMP"}));
    PutLookAlike("a.bmp");
    module.config.Recent = {"C:\\a.bmp"};
    RemoveRecentFile(module, "C:\\a.bmp");
    EXPECT_EQ(module.config.Recent, (Recent{"C:\\a.bmp"}));
    EXPECT_EQ(refreshes, 1);
}

TEST_F(RemoveRecentFileTest, MessagesRunBeforeTheFileIsLookedFor) {
    platform.disks.PutFile("C:\\3", "x");
    toolkit.AtYield(1, [this] { platform.disks.Remove("C:\\3"); });
    RemoveRecentFile(module, "C:\\3");
    EXPECT_EQ(module.config.Recent[2], "C:\\4");
}

TEST_F(RemoveRecentFileTest, WhatIsNotListedOrEmptyChangesNothing) {
    module.config.Recent[6] = "";
    const Recent before = module.config.Recent;
    RemoveRecentFile(module, "C:\\none");
    RemoveRecentFile(module, "");
    EXPECT_EQ(module.config.Recent, before);
    EXPECT_EQ(refreshes, 0);
}

TEST_F(RemoveRecentFileTest, WithoutKeepRecentTheListStays) {
    module.config.KeepRecent = false;
    RemoveRecentFile(module, "C:\\3");
    EXPECT_EQ(module.config.Recent, full);
    EXPECT_EQ(refreshes, 0);
}

class RemoveRecentShowTest : public RecentListsTest {
  protected:
    RemoveRecentShowTest() {
        for (std::size_t i = 0; i < shows.size(); ++i)
            shows[i] = "C:\\" + std::to_string(i + 1) + ".tvs";
        module.config.RecentShows = shows;
    }
    std::array<std::string, 20> shows;
};

TEST_F(RemoveRecentShowTest, TheEntriesBelowMoveUpAndTheLastBecomesEmpty) {
    RemoveRecentShow(module, "c:\\2.TVS");
    EXPECT_EQ(module.config.RecentShows[0], "C:\\1.tvs");
    EXPECT_EQ(module.config.RecentShows[1], "C:\\3.tvs");
    EXPECT_EQ(module.config.RecentShows[18], "C:\\20.tvs");
    EXPECT_EQ(module.config.RecentShows[19], "");
    EXPECT_EQ(refreshes, 0);
}

TEST_F(RemoveRecentShowTest, AFileThatIsThereButNoShowGoesToo) {
    platform.disks.PutFile("C:\\20.tvs", "no show");
    RemoveRecentShow(module, "C:\\20.tvs");
    EXPECT_EQ(module.config.RecentShows[18], "C:\\19.tvs");
    EXPECT_EQ(module.config.RecentShows[19], "");
}

TEST_F(RemoveRecentShowTest, NothingChangesForAnEmptyOrUnknownPathOrWithoutKeepRecent) {
    RemoveRecentShow(module, "");
    RemoveRecentShow(module, "C:\\none.tvs");
    module.config.KeepRecent = false;
    RemoveRecentShow(module, "C:\\1.tvs");
    EXPECT_EQ(module.config.RecentShows, shows);
}

}  // namespace
}  // namespace tavrix::test
