#include "core/ShowFolder.h"

#include <gtest/gtest.h>

namespace tavrix::test {
namespace {

using Relative = std::optional<std::string>;

TEST(ShowFolderTest, FilesInItOrBelowAreRelative) {
    for (const char* path : {"C:\\Shows\\", "C:\\Shows", "C:/Shows/", "c:\\x\\..\\SHOWS"}) {
        const ShowFolder folder(path);
        EXPECT_EQ(folder.Relative("C:\\Shows\\a.bmp"), Relative("a.bmp")) << path;
        EXPECT_EQ(folder.Relative("c:\\shows\\Sub\\a.bmp"), Relative("Sub\\a.bmp")) << path;
        EXPECT_EQ(folder.Relative("C:/Shows//a.bmp"), Relative("a.bmp")) << path;
        EXPECT_EQ(folder.Relative("C:\\p\\..\\Shows\\a.bmp"), Relative("a.bmp")) << path;
        for (const char* other :
             {"C:\\ShowsToo\\a.bmp", "C:\\Shows\\..\\a.bmp", "D:\\Shows\\a.bmp", "a.bmp", ""})
            EXPECT_EQ(folder.Relative(other), std::nullopt) << other;
    }
}

TEST(ShowFolderTest, SlidesWithoutADriveAreSeenFromIt) {
    const ShowFolder folder = ShowFolder::Of("C:\\Shows\\s.tvs");
    EXPECT_EQ(folder.Path(), "C:\\Shows\\");
    EXPECT_EQ(folder.SlidePath("a.bmp"), "C:\\Shows\\a.bmp");
    EXPECT_EQ(folder.SlidePath("sub/../b.bmp"), "C:\\Shows\\b.bmp");
    EXPECT_EQ(folder.SlidePath("D:/p/c.bmp"), "D:\\p\\c.bmp");
    EXPECT_EQ(ShowFolder::Of("C:\\s.tvs").SlidePath("a.bmp"), "C:\\a.bmp");
}

TEST(ShowFolderTest, AShowThatHasNotBeenSavedHasNone) {
    const ShowFolder none = ShowFolder::Of("Untitled.tvs");
    EXPECT_EQ(none.Path(), "");
    EXPECT_EQ(none.Relative("C:\\Shows\\a.bmp"), std::nullopt);
    EXPECT_EQ(none.Relative("a.bmp"), std::nullopt);
    EXPECT_EQ(none.SlidePath("sub\\a.bmp"), "sub\\a.bmp");
}

}  // namespace
}  // namespace tavrix::test
