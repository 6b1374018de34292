#include "backends/linux/LicenceTexts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "TestFolder.h"

namespace tavrix {
namespace {

TEST(LicenceTexts, EachPackageWithOneOfTheFilesHasItsText) {
    const TestFolder folder;
    folder.Put("info/liba:amd64.list", "/.\n/usr/lib/x/liba.so.1\n");
    folder.Put("info/libb.list", "/lib/x/libb.so.1.2");  // by the place from before /lib was merged
    folder.Put("info/libc.list", "/usr/lib/x/libb.so.1\n/usr/lib/x/liba.so\n");
    folder.Put("info/libd.list", "/usr/lib/x/libd.so\n");
    folder.Put("info/liba:amd64.md5sums", "/usr/lib/x/libe.so\n");
    for (const char* package : {"liba", "libb", "libc"})
        folder.Put(std::string("doc/") + package + "/copyright", package);
    std::filesystem::create_directory_symlink(folder.At("doc/liba"), folder.At("doc/libd"));
    const std::vector<std::string> paths{"/usr/lib/x/liba.so.1", "/usr/lib/x/libb.so.1.2",
                                         "/usr/lib/x/libd.so", "/usr/lib/x/libe.so"};
    const std::map<std::string, std::string> wanted{{"liba", folder.At("doc/liba/copyright")},
                                                    {"libb", folder.At("doc/libb/copyright")},
                                                    {"libd", folder.At("doc/liba/copyright")}};
    EXPECT_EQ(LicenceTextsOf(paths, {folder.At("info"), folder.At("doc")}), wanted);
    EXPECT_TRUE(LicenceTextsOf(paths, {folder.At("none"), folder.At("doc")}).empty());
}

}  // namespace
}  // namespace tavrix
