#include <string>
#include <vector>

#include "Backend.h"
#include "base/RuntimeError.h"
#include "platform/services/DrivePath.h"

namespace tavrix::test {
namespace {

using Names = std::vector<std::string>;

void ExpectErrors(Files& files, const std::string& folder, int error) {
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.List(folder, "*.*")); }), error) << folder;
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.Folders(folder)); }), error) << folder;
}

TEST_P(FilesConformance, ListsWhatMatchesOneOfThePatterns) {
    for (const char* name : {"a.bmp", "b.JPG", "c.jpeg", "d.gif", "README", "e.bmp.txt"})
        backend->PutFile("C:\\p\\" + std::string(name), "");
    EXPECT_EQ(files.List("C:\\p", "*.bmp"), (Names{"a.bmp"}));
    EXPECT_EQ(files.List("C:\\p", "*.jpg;*.BMP"), (Names{"a.bmp", "b.JPG"}));
    EXPECT_EQ(files.List("C:\\p", "*.jp*"), (Names{"b.JPG", "c.jpeg"}));
    EXPECT_EQ(files.List("C:\\p", "*.tga;*.pcx"), Names{});
    EXPECT_EQ(files.List("C:\\p", "?.gif"), (Names{"d.gif"}));
    EXPECT_EQ(files.List("C:\\p", "readme"), (Names{"README"}));
}

TEST_P(FilesConformance, ListsANameOnceThoughSeveralPatternsMatch) {
    backend->PutFile("C:\\p\\a.bmp", "");
    EXPECT_EQ(files.List("C:\\p", "*.bmp;a.*;*.*;*.bmp"), (Names{"a.bmp"}));
}

TEST_P(FilesConformance, BlanksAroundPatternsDoNotCount) {
    backend->PutFile("C:\\p\\a.bmp", "");
    backend->PutFile("C:\\p\\b.jpg", "");
    backend->PutFile("C:\\p\\c d.gif", "");
    EXPECT_EQ(files.List("C:\\p", " *.bmp ;  *.jpg;"), (Names{"a.bmp", "b.jpg"}));
    EXPECT_EQ(files.List("C:\\p", "c d.gif"), (Names{"c d.gif"}));
    EXPECT_EQ(files.List("C:\\p", ";;*.jpg;;"), (Names{"b.jpg"}));
}

TEST_P(FilesConformance, NoPatternIsAllFiles) {
    backend->PutFile("C:\\p\\a.bmp", "");
    backend->PutFile("C:\\p\\README", "");
    const Names all{"a.bmp", "README"};
    for (const char* patterns : {"", "  ", ";", " ; ; ", "*.*", "*"})
        EXPECT_EQ(files.List("C:\\p", patterns), all) << '"' << patterns << '"';
}

TEST_P(FilesConformance, ListsInListOrder) {
    const Names order{"10.bmp", "2.bmp", "A.bmp",  "a.bmp",     "aa.bmp",
                      "B.bmp",  "b.bmp", "_x.bmp", "\u00c4.bmp"};
    for (auto name = order.rbegin(); name != order.rend(); ++name)
        backend->PutFile("C:\\p\\" + *name, "");
    EXPECT_EQ(files.List("C:\\p", "*.bmp"), order);
    EXPECT_EQ(files.First("C:\\p\\*.bmp"), order.front());
}

TEST_P(FilesConformance, LettersBeyondAsciiSortAndMatchWithoutRegardToCase) {
    for (const char* name : {"\u00f6.bmp", "\u00d6.bmp", "\u00e4.bmp", "z.bmp"})
        backend->PutFile("C:\\p\\" + std::string(name), "");
    EXPECT_EQ(files.List("C:\\p", "*.bmp"), (Names{"z.bmp", "\u00e4.bmp", "\u00d6.bmp", "\u00f6.bmp"}));
    EXPECT_EQ(files.List("C:\\p", "\u00c4.*;\u00f6.bmp"), (Names{"\u00e4.bmp", "\u00d6.bmp", "\u00f6.bmp"}));
}

TEST_P(FilesConformance, ListsNormalFilesAndFoldersApart) {
    backend->PutFile("C:\\p\\a.bmp", "");
    backend->PutFolder("C:\\p\\b.bmp");
    backend->PutFolder("C:\\p\\Sub");
    backend->PutFile("C:\\p\\Sub\\deep.bmp", "");
    backend->PutFolder("C:\\p\\Sub\\Deeper");
    EXPECT_EQ(files.List("C:\\p", "*.*"), (Names{"a.bmp"}));
    EXPECT_EQ(files.Folders("C:\\p"), (Names{"C:\\p\\b.bmp", "C:\\p\\Sub"}));
    EXPECT_EQ(files.List("C:\\p\\Sub", ""), (Names{"deep.bmp"}));
}

TEST_P(FilesConformance, HiddenOnesAreSkipped) {
    backend->PutFile("C:\\p\\.hidden.bmp", "");
    backend->PutFolder("C:\\p\\.folder");
    backend->PutFile("C:\\p\\seen.bmp", "");
    EXPECT_EQ(files.List("C:\\p", "*.*"), (Names{"seen.bmp"}));
    EXPECT_EQ(files.List("C:\\p", ".hidden.bmp"), Names{});
    EXPECT_EQ(files.Folders("C:\\p"), Names{});
}

TEST_P(FilesConformance, AnEmptyFolderHasNothing) {
    backend->PutFolder("C:\\p");
    EXPECT_EQ(files.List("C:\\p", ""), Names{});
    EXPECT_EQ(files.Folders("C:\\p"), Names{});
    EXPECT_EQ(files.List("D:\\", ""), Names{});
    EXPECT_EQ(files.Folders("D:\\"), Names{});
}

TEST_P(FilesConformance, FoldersAreFullPathsInTheSpellingOfTheDisk) {
    backend->PutFolder("C:\\Pictures\\b");
    backend->PutFolder("C:\\Pictures\\A");
    backend->PutFile("C:\\Pictures\\x.bmp", "");
    const Names folders{"C:\\Pictures\\A", "C:\\Pictures\\b"};
    files.ChangeDrive("C");
    for (const char* path : {"C:\\Pictures", "c:\\PICTURES\\", "C:/pictures/", "\\pictures", "C:pictures",
                             "Pictures", "C:\\x\\..\\Pictures"}) {
        EXPECT_EQ(files.Folders(path), folders) << path;
        EXPECT_EQ(files.List(path, "*.bmp"), (Names{"x.bmp"})) << path;
    }
    EXPECT_EQ(files.Folders("C:\\"), (Names{"C:\\Pictures"}));
    EXPECT_EQ(files.Folders("C:"), (Names{"C:\\Pictures"}));
    files.ChangeFolder("C:\\PICTURES");
    EXPECT_EQ(files.Folders("."), folders);
    EXPECT_EQ(files.Folders("C:"), folders);
}

TEST_P(FilesConformance, WhatIsListedIsFoundAgain) {
    for (const char* name :
         {"a.bmp", "A.bmp", "b c.bmp", "\u00e4.bmp", "x..bmp", "[1].bmp", "%41.bmp", "~$.bmp"})
        backend->PutFile("C:\\p\\Sub\\" + std::string(name), name);
    const Names folders = files.Folders("C:\\p");
    ASSERT_EQ(folders.size(), 1U);
    const Names names = files.List(folders[0], "*.bmp");
    EXPECT_EQ(names.size(), 8U);
    for (const std::string& name : names)
        EXPECT_EQ(Read(folders[0] + "\\" + name), name);
}

TEST_P(FilesConformance, ListingTellsFailuresApart) {
    backend->PutFile("C:\\p\\a.bmp", "");
    ExpectErrors(files, "C:\\none", 76);
    ExpectErrors(files, "C:\\none\\deeper", 76);
    ExpectErrors(files, "C:\\p\\a.bmp", 76);
    ExpectErrors(files, "C:\\p\\a.bmp\\deeper", 76);
    ExpectErrors(files, "C:\\" + std::string(300, 'x'), 76);
    ExpectErrors(files, "Q:\\", 68);
    ExpectErrors(files, "Q:\\p", 68);
    ExpectErrors(files, "A:\\", 71);
    ExpectErrors(files, "A:\\p", 71);
    ExpectErrors(files, "", 52);
    ExpectErrors(files, "C:\\p*", 52);
    ExpectErrors(files, "\\\\server\\share", 52);
}

TEST_P(FilesConformance, AFolderThatMayNotBeReadFails) {
    backend->PutFile("C:\\p\\closed\\a.bmp", "");
    backend->PutFolder("C:\\p\\closed\\Sub");
    backend->SetUnreadable("C:\\p\\closed", true);
    EXPECT_EQ(backend->ErrorForUser([&] { static_cast<void>(files.List("C:\\p\\closed", "*.*")); }), 70);
    EXPECT_EQ(backend->ErrorForUser([&] { static_cast<void>(files.Folders("C:\\p\\closed")); }), 70);
    // It stands in the list of the folder above, and a look-up finds nothing in it.
    EXPECT_EQ(files.Folders("C:\\p"), (Names{"C:\\p\\closed"}));
    EXPECT_EQ(backend->ErrorForUser([&] {
        if (!files.First("C:\\p\\closed\\*.*").empty()) throw RuntimeError(ErrorNumber::FileAlreadyExists);
    }),
              0);
    backend->SetUnreadable("C:\\p\\closed", false);
    EXPECT_EQ(files.List("C:\\p\\closed", "*.*"), (Names{"a.bmp"}));
    EXPECT_EQ(files.Folders("C:\\p\\closed"), (Names{"C:\\p\\closed\\Sub"}));
}

TEST_P(FilesConformance, AFolderMayVanishBetweenTwoCalls) {
    backend->PutFile("C:\\p\\Sub\\a.bmp", "");
    const Names folders = files.Folders("C:\\p");
    ASSERT_EQ(folders, (Names{"C:\\p\\Sub"}));
    EXPECT_EQ(files.List(folders[0], ""), (Names{"a.bmp"}));
    backend->Remove("C:\\p\\Sub");
    ExpectErrors(files, folders[0], 76);
    EXPECT_EQ(files.Folders("C:\\p"), Names{});
    backend->PutFile("C:\\p\\Sub", "a file by now");
    ExpectErrors(files, folders[0], 76);
    EXPECT_EQ(files.List("C:\\p", ""), (Names{"Sub"}));
}

TEST_P(FilesConformance, ADiskMayComeAndGoBetweenTwoCalls) {
    ExpectErrors(files, "A:\\", 71);
    backend->InsertDisk();
    EXPECT_EQ(files.List("A:\\", ""), Names{});
    backend->PutFile("A:\\Shows\\a.tvs", "");
    EXPECT_EQ(files.Folders("A:\\"), (Names{"A:\\Shows"}));
    EXPECT_EQ(files.List("A:\\Shows", "*.tvs"), (Names{"a.tvs"}));
    backend->PullDisk();
    ExpectErrors(files, "A:\\", 71);
    ExpectErrors(files, "A:\\Shows", 71);
}

TEST_P(FilesConformance, LinksCountAsWhatTheyLeadTo) {
    backend->PutFile("C:\\real\\a.bmp", "a");
    backend->PutFolder("C:\\real\\Sub");
    backend->PutFolder("C:\\p");
    backend->PutLink("C:\\real", "C:\\p\\folder.bmp");
    backend->PutLink("C:\\real\\a.bmp", "C:\\p\\file.bmp");
    EXPECT_EQ(files.List("C:\\p", "*.bmp"), (Names{"file.bmp"}));
    EXPECT_EQ(files.Folders("C:\\p"), (Names{"C:\\p\\folder.bmp"}));
    EXPECT_EQ(files.List("C:\\p\\folder.bmp", "*.bmp"), (Names{"a.bmp"}));
    EXPECT_EQ(files.Folders("C:\\p\\FOLDER.BMP"), (Names{"C:\\p\\folder.bmp\\Sub"}));
}

TEST_P(FilesConformance, AFolderInItselfIsListedAtEachLevel) {
    backend->PutFolder("C:\\p");
    backend->PutLink("C:\\p", "C:\\p\\again");
    EXPECT_EQ(files.Folders("C:\\p"), (Names{"C:\\p\\again"}));
    EXPECT_EQ(files.Folders("C:\\p\\again\\again"), (Names{"C:\\p\\again\\again\\again"}));
    backend->Remove("C:\\p\\again");  // memory would keep the ring
}

TEST_P(FilesConformance, ManyNamesComeInOrderAndWhole) {
    constexpr int Count = 500;
    for (int i = 0; i < Count; ++i)
        backend->PutFolder("C:\\many\\" + std::string(i % 2 == 0 ? "F" : "f") +
                           std::to_string(i * 7919 % Count));
    const Names folders = files.Folders("C:\\many");
    EXPECT_EQ(folders.size(), static_cast<std::size_t>(Count));
    for (std::size_t i = 1; i < folders.size(); ++i)
        ASSERT_TRUE(ListsBefore(folders[i - 1], folders[i])) << folders[i - 1] << ' ' << folders[i];
}

}  // namespace
}  // namespace tavrix::test
