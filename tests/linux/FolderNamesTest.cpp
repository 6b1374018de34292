#include "backends/linux/FolderNames.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <ctime>

#include "linux/TestFolder.h"

namespace tavrix {
namespace {

class FolderNamesTest : public ::testing::Test {
  protected:
    FolderNamesTest() {
        for (const char* name : {"one.bmp", "Two.BMP", "\xC3\xA4.bmp"})
            folder.Put("f/" + std::string(name), "x");
        Date(-10);
    }
    /// The date of the folder, in seconds from now.
    void Date(time_t seconds, long nanoseconds = 123'456'789) const {
        const timespec moment{::time(nullptr) + seconds, nanoseconds};
        const std::array<timespec, 2> dates{moment, moment};
        ASSERT_EQ(::utimensat(AT_FDCWD, Path().c_str(), dates.data(), 0), 0);
    }
    [[nodiscard]] std::string Path() const { return folder.At("f"); }
    /// Makes a file as the program does.
    void Make(const std::string& name) {
        folder.Put("f/" + name, "x");
        names.Made(Path() + "/" + name);
    }
    /// Asks until the folder was read, which it is at the second question.
    bool Lacks(const std::string& name) {
        static_cast<void>(names.Lacks(Path(), name));
        return names.Lacks(Path(), name);
    }

    TestFolder folder;
    FolderNames names;
};

TEST_F(FolderNamesTest, TellsWhatIsThereInNoCaseOfLetters) {
    EXPECT_FALSE(names.Lacks(Path(), "none.bmp")) << "not yet read";
    EXPECT_TRUE(names.Lacks(Path(), "none.bmp"));
    for (const char* name : {"one.bmp", "ONE.BMP", "two.bmp", "\xC3\x84.BMP"})
        EXPECT_FALSE(names.Lacks(Path(), name)) << name;
}

TEST_F(FolderNamesTest, AnotherFolderIsReadByItself) {
    EXPECT_TRUE(Lacks("none.bmp"));
    folder.Put("g/none.bmp", "x");
    EXPECT_FALSE(names.Lacks(folder.At("g"), "none.bmp"));
    EXPECT_FALSE(names.Lacks(folder.At("g"), "none.bmp"));
    EXPECT_FALSE(names.Lacks(Path(), "other.bmp"));
}

TEST_F(FolderNamesTest, WhatSomebodyElseMakesIsSeen) {
    EXPECT_TRUE(Lacks("new.bmp"));
    folder.Put("f/NEW.BMP", "x");
    Date(-5);
    EXPECT_FALSE(names.Lacks(Path(), "new.bmp"));
    EXPECT_TRUE(names.Lacks(Path(), "none.bmp"));
}

TEST_F(FolderNamesTest, WhatSomebodyElseRemovesIsGone) {
    EXPECT_FALSE(Lacks("one.bmp"));
    std::filesystem::remove(Path() + "/one.bmp");
    Date(-5);
    EXPECT_TRUE(names.Lacks(Path(), "one.bmp"));
}

TEST_F(FolderNamesTest, AnotherFolderOfTheSameNameAndDateIsAnother) {
    const time_t date = ::time(nullptr) - 10;
    Date(date - ::time(nullptr));
    EXPECT_TRUE(Lacks("new.bmp"));
    std::filesystem::rename(Path(), folder.At("former"));
    folder.Put("f/new.bmp", "x");
    Date(date - ::time(nullptr));
    EXPECT_FALSE(names.Lacks(Path(), "new.bmp"));
}

TEST_F(FolderNamesTest, OfAFolderThatHasJustChangedNothingIsKnown) {
    Date(10);
    EXPECT_FALSE(Lacks("none.bmp"));
    EXPECT_FALSE(Lacks("none.bmp"));
}

TEST_F(FolderNamesTest, ADateThatCountsSecondsTellsNothing) {
    Date(-10, 0);
    EXPECT_FALSE(Lacks("none.bmp"));
}

TEST_F(FolderNamesTest, WhatThisProcessMakesIsKnownAndTheRestStaysSo) {
    EXPECT_TRUE(Lacks("mine.bmp"));
    Make("Mine.bmp");
    EXPECT_FALSE(names.Lacks(Path(), "mine.bmp"));
    EXPECT_TRUE(names.Lacks(Path(), "none.bmp"));
    // Also where nothing was known before.
    Date(10);
    EXPECT_FALSE(Lacks("none.bmp"));
    Make("More.bmp");
    EXPECT_TRUE(Lacks("none.bmp"));
    EXPECT_FALSE(names.Lacks(Path(), "MORE.BMP"));
}

TEST_F(FolderNamesTest, WhatIsMadeInAnotherFolderIsNoneOfThisOne) {
    EXPECT_TRUE(Lacks("mine.bmp"));
    folder.Put("g/mine.bmp", "x");
    names.Made(folder.At("g/mine.bmp"));
    EXPECT_TRUE(names.Lacks(Path(), "mine.bmp"));
}

TEST_F(FolderNamesTest, AChangeIsForgottenBefore) {
    EXPECT_TRUE(Lacks("new.bmp"));
    names.Forget();
    folder.Put("f/NEW.BMP", "x");
    Date(-10);  // whatever the date says
    EXPECT_FALSE(Lacks("new.bmp"));
}

TEST_F(FolderNamesTest, IsKnownForAMomentOnly) {
    const time_t now = ::time(nullptr);
    const auto date = [&] { Date(now - 10 - ::time(nullptr)); };  // the same whenever it is set
    date();
    EXPECT_TRUE(Lacks("new.bmp"));
    folder.Put("f/new.bmp", "x");
    date();
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (names.Lacks(Path(), "new.bmp") && std::chrono::steady_clock::now() < limit)
        ::usleep(5000);
    EXPECT_FALSE(names.Lacks(Path(), "new.bmp"));
}

TEST_F(FolderNamesTest, AQuestionOfLongAgoIsNone) {
    EXPECT_FALSE(names.Lacks(Path(), "none.bmp"));
    ::usleep(300'000);
    EXPECT_FALSE(names.Lacks(Path(), "none.bmp")) << "not read for one question";
}

TEST_F(FolderNamesTest, AFolderThatIsGoneLacksNothingForCertain) {
    EXPECT_FALSE(names.Lacks(folder.At("none"), "a"));
    EXPECT_FALSE(names.Lacks(folder.At("none"), "a"));
}

}  // namespace
}  // namespace tavrix
