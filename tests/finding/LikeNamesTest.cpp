#include "finding/LikeNames.h"

#include <algorithm>
#include <random>

#include "backends/headless/HeadlessServices.h"
#include "base/Text.h"
#include "platform/services/ForwardingFiles.h"

#include <gtest/gtest.h>

namespace tavrix::test {
namespace {

using headless::Service;
using Texts = std::vector<std::string>;

struct Met {
    std::string folder;
    std::string name;
};

/// The result as it is defined: by looking through all names that were met, and through the result, from the start.
Texts PlainScan(const std::vector<Met>& files) {
    Texts allPaths;
    Texts allNames;
    Texts paths;
    Texts names;
    for (const Met& file : files) {
        const std::string path = file.folder + file.name;
        const std::string name = UpperCase(file.name);
        const auto met = std::ranges::find(allNames, name);
        if (met != allNames.end()) {
            const std::string first = allPaths[static_cast<std::size_t>(met - allNames.begin())];
            if (std::ranges::find(paths, first) == paths.end()) {
                paths.push_back(first);
                names.push_back(name);
            }
            const auto at = std::ranges::find(names, name) - names.begin();
            paths.insert(paths.begin() + at, path);
            names.insert(names.begin() + at, name);
        }
        allPaths.push_back(path);
        allNames.push_back(name);
    }
    return paths;
}

class LikeNamesTest : public ::testing::Test {
  protected:
    void Put(const std::string& path, const std::string& content = "") {
        platform.disks.PutFile(path, content);
    }
    bool Add(const std::string& path) { return names.Add(FolderOf(path), FileNameOf(path)); }

    headless::HeadlessServices platform;
    LikeNames names{platform.files};
};

TEST_F(LikeNamesTest, TheLastOneMetComesFirst) {
    EXPECT_FALSE(Add("C:\\A\\X.BMP"));
    EXPECT_EQ(names.Count(), 0);
    EXPECT_TRUE(Add("C:\\B\\x.bmp"));
    EXPECT_TRUE(Add("C:\\C\\X.BMP"));
    EXPECT_EQ(names.Paths(), (Texts{"C:\\C\\X.BMP", "C:\\B\\x.bmp", "C:\\A\\X.BMP"}));
    EXPECT_EQ(names.Count(), 3);
    names.Clear();
    EXPECT_EQ(names.Count(), 0);
    EXPECT_EQ(names.Paths(), Texts{});
    EXPECT_FALSE(Add("C:\\A\\X.BMP"));
}

TEST_F(LikeNamesTest, TheOrderIsThatOfAPlainScan) {
    std::mt19937 random(7);
    for (int round = 0; round < 20; ++round) {
        std::vector<Met> files;
        for (int i = 0; i < 300; ++i) {
            std::string name = "n" + std::to_string(random() % (round < 10 ? 20 : 400)) + ".gif";
            if (random() % 2 == 0) name = UpperCase(name);
            files.push_back({"C:\\" + std::to_string(i) + "\\", name});
        }
        names.Clear();
        for (const Met& file : files)
            names.Add(file.folder, file.name);
        const Texts wanted = PlainScan(files);
        EXPECT_EQ(names.Paths(), wanted);
        EXPECT_EQ(names.Count(), static_cast<int>(wanted.size()));
    }
}

TEST_F(LikeNamesTest, AFileThatIsMetTwiceIsOne) {
    Put("C:\\a\\x.bmp", "one");
    platform.disks.PutLink("C:\\a\\x.bmp", "C:\\b\\X.bmp");
    Put("C:\\c\\x.bmp", "two");
    platform.disks.PutLink("C:\\c\\x.bmp", "C:\\d\\x.bmp");
    EXPECT_FALSE(Add("C:\\a\\x.bmp"));
    EXPECT_FALSE(Add("C:\\b\\X.bmp"));
    EXPECT_EQ(names.Count(), 0);
    EXPECT_TRUE(Add("C:\\c\\x.bmp"));
    EXPECT_FALSE(Add("C:\\d\\x.bmp"));
    EXPECT_FALSE(Add("C:\\b\\X.bmp"));
    EXPECT_EQ(names.Paths(), (Texts{"C:\\c\\x.bmp", "C:\\a\\x.bmp"}));
}

TEST_F(LikeNamesTest, FilesThatLookAlikeAreTwo) {
    Put("C:\\a\\x.bmp", "same");
    Put("C:\\b\\x.bmp", "same");
    Add("C:\\a\\x.bmp");
    EXPECT_TRUE(Add("C:\\b\\x.bmp"));
    EXPECT_EQ(names.Count(), 2);
}

/// A disk on which all names lead to one content, and asks how often it is asked.
class HardLinks final : public ForwardingFiles {
  public:
    using ForwardingFiles::ForwardingFiles;

    bool Same(const std::string&, const std::string&) override { return ++asked > 0; }
    bool SameEntry(const std::string&, const std::string&) override { return ++asked < 0; }

    int asked = 0;
};

TEST_F(LikeNamesTest, WhatDisksKnowByTheSameNumberIsLookedAtAndNothingElse) {
    Put("C:\\a\\x.bmp", "one");
    platform.disks.PutLink("C:\\a\\x.bmp", "C:\\b\\x.bmp");
    platform.disks.PutLink("C:\\a\\x.bmp", "C:\\c\\x.bmp");
    Put("C:\\d\\x.bmp", "two");
    EXPECT_FALSE(names.Add("C:\\a\\", "x.bmp", 7));
    EXPECT_TRUE(names.Add("C:\\d\\", "x.bmp", 8));
    EXPECT_EQ(platform.faults.Calls(Service::Files), 0);
    EXPECT_FALSE(names.Add("C:\\b\\", "x.bmp", 7));
    EXPECT_FALSE(names.Add("C:\\c\\", "X.BMP", 7));
    // Another disk has such a number, too.
    Put("C:\\e\\x.bmp", "three");
    EXPECT_TRUE(names.Add("C:\\e\\", "x.bmp", 8));
    platform.disks.PutLink("C:\\e\\x.bmp", "C:\\f\\x.bmp");
    EXPECT_FALSE(names.Add("C:\\f\\", "x.bmp", 8));
    EXPECT_EQ(names.Paths(), (Texts{"C:\\e\\x.bmp", "C:\\d\\x.bmp", "C:\\a\\x.bmp"}));
    // What has another name may have any number.
    EXPECT_FALSE(names.Add("C:\\a\\", "y.bmp", 7));
    EXPECT_TRUE(names.Add("C:\\d\\", "y.bmp", 8));
    EXPECT_EQ(names.Count(), 5);
}

TEST_F(LikeNamesTest, ThePairOfOneNumberIsLookedAt) {
    Put("C:\\a\\x.bmp", "one");
    platform.disks.PutLink("C:\\a\\x.bmp", "C:\\b\\x.bmp");
    EXPECT_FALSE(names.Add("C:\\a\\", "x.bmp", 7));
    EXPECT_FALSE(names.Add("C:\\b\\", "x.bmp", 7));
    EXPECT_EQ(names.Count(), 0);
}

TEST_F(LikeNamesTest, ManyNamesOfOneContentAreLookedAtOnceEach) {
    HardLinks disk(platform.files);
    LikeNames links(disk);
    constexpr int count = 1000;
    for (int i = 0; i < count; ++i)
        links.Add("C:\\" + std::to_string(i) + "\\", "x.bmp", 7);
    EXPECT_EQ(links.Count(), count);
    EXPECT_LE(disk.asked, 2 * count + 1);
}

TEST_F(LikeNamesTest, OnlyALikeNameIsLookedAt) {
    for (const char* path : {"C:\\a\\1.bmp", "C:\\b\\2.bmp", "C:\\c\\3.bmp"}) {
        Put(path);
        Add(path);
    }
    EXPECT_EQ(platform.faults.Calls(Service::Files), 0);
}

TEST_F(LikeNamesTest, WhatCannotBeLookedAtCounts) {
    Put("C:\\a\\x.bmp", "one");
    Put("C:\\b\\x.bmp", "one");
    platform.faults.FailAlways(Service::Files, "Info", ErrorNumber::PermissionDenied);
    platform.faults.FailAlways(Service::Files, "SameEntry", ErrorNumber::PermissionDenied);
    Add("C:\\a\\x.bmp");
    EXPECT_TRUE(Add("C:\\b\\x.bmp"));
}

TEST_F(LikeNamesTest, MoreThanTheUsualNumberOfFilesIsNoMatter) {
    constexpr int count = 200'005;
    for (int i = 0; i < count; ++i)
        names.Add("C:\\1\\", std::to_string(i) + ".bmp");
    EXPECT_EQ(names.Count(), 0);
    names.Add("C:\\2\\", std::to_string(count - 1) + ".BMP");
    names.Add("C:\\2\\", "0.BMP");
    EXPECT_EQ(names.Paths(),
              (Texts{"C:\\2\\200004.BMP", "C:\\1\\200004.bmp", "C:\\2\\0.BMP", "C:\\1\\0.bmp"}));
}

}  // namespace
}  // namespace tavrix::test
