#include "setup/Installation.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <functional>
#include <utility>

#include "SetupTest.h"
#include "base/Text.h"
#include "linux/KilledChild.h"
#include "setup/UserStoreFile.h"
#include "support/ErrorOfCall.h"
#include "support/FaultSweep.h"
#include "system_faults/SystemFaults.h"

namespace tavrix::setup {
namespace {

namespace fs = std::filesystem;

mode_t ModeOf(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 0777U : 0;
}

TEST_F(SetupTest, WhatIsOfThePackageIsInstalledAndNothingElse) {
    const auto before = All();
    ASSERT_TRUE(Install());
    EXPECT_EQ(InTarget("TAVRIX.EXE"), "launcher");
    EXPECT_EQ(InTarget("TAVRIX.LIB/libx.so"), "library");
    EXPECT_EQ(InTarget("TAVRIX.LIB/qt=platforms=libq.so"), "plugin");
    EXPECT_EQ(InTarget("SLIDES/Größe.tvs"), "show");
    EXPECT_EQ(InTarget("SLIDES/deep/er/b.bmp"), "picture below");
    EXPECT_FALSE(fs::exists(Target() + "/letter"));
    EXPECT_NE(InTarget("setup.ini").find("InstallSize=7.5"), std::string::npos);
    EXPECT_TRUE(IsInstalled(Target(), names));
    EXPECT_FALSE(IsInstalled(Stick(), names));
    const auto after = All();
    for (const auto& [path, content] : before)
        EXPECT_EQ(after.at(path), content) << path;
}

TEST_F(SetupTest, ModesAreThoseOfProgramsAndFilesWhateverTheMask) {
    folder.Put("stick/TavrixSCR.SCR", "launcher");
    names.files.emplace_back("TavrixSCR.SCR");
    const mode_t former = ::umask(0077);
    EXPECT_TRUE(Install());
    ::umask(former);
    EXPECT_EQ(ModeOf(Target() + "/TAVRIX.EXE"), 0755U);
    EXPECT_EQ(ModeOf(Target() + "/TavrixSCR.SCR"), 0755U);
    EXPECT_EQ(ModeOf(Target() + "/README.TXT"), 0644U);
}

TEST_F(SetupTest, WhatIsMadeBesideItIsTheUsersAlone) {
    ASSERT_TRUE(Install());
    EXPECT_EQ(ModeOf(folder.At("user/data/tavrix-packages")), 0700U);
    EXPECT_EQ(ModeOf(folder.At("user/config/tavrix")), 0700U);
    EXPECT_EQ(ModeOf(places.store), 0600U);
}

TEST_F(SetupTest, LinksAreNoneOfThePackages) {
    fs::create_symlink(folder.At("user/letter"), folder.At("stick/SLIDES/link.bmp"));
    fs::create_directory_symlink(folder.At("user"), folder.At("stick/SLIDES/user"));
    fs::create_symlink(folder.At("user/letter"), folder.At("stick/TVS.ICO"));
    ASSERT_TRUE(Install());
    for (const char* link : {"/SLIDES/link.bmp", "/SLIDES/user", "/TVS.ICO"})
        EXPECT_FALSE(fs::exists(fs::symlink_status(Target() + link))) << link;
    Remove();
    fs::remove(folder.At("stick/TAVRIX.LIB/libx.so"));
    fs::create_symlink(folder.At("user/letter"), folder.At("stick/TAVRIX.LIB/libx.so"));
    EXPECT_EQ(ErrorOfCall([this] { Install(); }), 53);
}

TEST_F(SetupTest, TheProgramFindsItselfInstalledAndLeavesNoMarkElsewhere) {
    ASSERT_TRUE(Install());
    const std::string store = InTarget("STORE/settings");
    EXPECT_NE(store.find("EXEPath=" + places.drivePath(Target()) + "\\\n"), std::string::npos) << store;
    EXPECT_NE(store.find("ProgramRun=1\n"), std::string::npos);
    EXPECT_NE(store.find("Show Tips at Startup=0\n"), std::string::npos);
    EXPECT_NE(InTarget("tavrix.ini").find("StretchImages=True"), std::string::npos);
    EXPECT_NE(InTarget("tavrix.ini").find("UseRecentDocuments=False"), std::string::npos);
}

TEST_F(SetupTest, TheMenuGetsWhatTheNotesSay) {
    ASSERT_TRUE(Install());
    const auto texts = Entries();
    ASSERT_EQ(texts.size(), 3U);
    EXPECT_NE(texts[0].find("Name=Tavrix (Trip)\n"), std::string::npos) << texts[0];
    EXPECT_NE(texts[0].find("Exec=sh \"" + Target() + "/TAVRIX.EXE\" \"-viewer\"\n"), std::string::npos)
        << texts[0];
    EXPECT_NE(texts[0].find("Exec=sh \"" + Target() + "/UN-SETUP.EXE\"\n"), std::string::npos);
    for (const std::string& text : texts)
        EXPECT_NE(text.find("Icon=" + Target() + "/TAVRIX.ICO\n"), std::string::npos) << text;
    EXPECT_NE(texts[1].find("Name=Trip\n"), std::string::npos) << texts[1];
    EXPECT_NE(texts[1].find("Exec=sh \"" + Target() + "/TAVRIX.EXE\"\n"), std::string::npos);
    EXPECT_NE(texts[2].find("Name=Trip (Screen Saver)\n"), std::string::npos) << texts[2];
    EXPECT_NE(texts[2].find("Exec=sh \"" + Target() + "/TavrixSCR.SCR\"\n"), std::string::npos);
    Remove();
    PutNotes("False", "True", "False");
    ASSERT_TRUE(Install());
    EXPECT_EQ(Entries().size(), 1U);
    EXPECT_FALSE(folder.Has("user/config"));
}

TEST_F(SetupTest, OnlyADefaultSaverBecomesTheUsers) {
    for (const bool saver : {true, false}) {
        for (const bool isDefault : {true, false}) {
            PutNotes(saver ? "True" : "False", isDefault ? "true" : "False", "False");
            ASSERT_TRUE(Install());
            EXPECT_EQ(ReadStored(places.store, "CurrentSaver").has_value(), saver && isDefault);
            EXPECT_FALSE(Remove());
        }
    }
}

TEST_F(SetupTest, RemovalLeavesNoTrace) {
    const auto before = All();
    ASSERT_TRUE(Install());
    EXPECT_EQ(ReadStored(places.store, "CurrentSaver"), places.drivePath(Target() + "/SLIDES/Größe.tvs"));
    folder.Put("user/data/tavrix-packages/Trip/tavrix.ini", "settings that have changed");
    folder.PutFolder("user/data/tavrix-packages/Trip/TEMP/2");
    EXPECT_FALSE(Remove());
    EXPECT_EQ(All(), before);
}

TEST_F(SetupTest, TheFormerSaverComesBack) {
    folder.Put("user/config/tavrix/settings", "[Settings]\nOther=kept\nCurrentSaver=C:\\former.tvs\n");
    const auto before = All();
    ASSERT_TRUE(Install());
    EXPECT_NE(ReadStored(places.store, "CurrentSaver"), "C:\\former.tvs");
    Remove();
    EXPECT_EQ(All(), before);
}

TEST_F(SetupTest, AStoreWithoutASaverHasNoneAgain) {
    folder.Put("user/config/tavrix/settings", "[Settings]\nEXEPath=C:\\Tavrix\\\n");
    const auto before = All();
    ASSERT_TRUE(Install());
    Remove();
    EXPECT_EQ(All(), before);
}

TEST_F(SetupTest, ASaverThatWasChosenSinceStays) {
    WriteFormer("C:\\former.tvs");
    ASSERT_TRUE(Install());
    WriteStored(places.store, "CurrentSaver", "C:\\later.tvs");
    Remove();
    EXPECT_EQ(ReadStored(places.store, "CurrentSaver"), "C:\\later.tvs");
}

TEST_F(SetupTest, OfWhomASaverIsIsToldByItsFolderInAnyCase) {
    WriteFormer("C:\\former.tvs");
    ASSERT_TRUE(Install());
    WriteStored(places.store, "CurrentSaver", UpperCase(places.drivePath(Target() + "/SLIDES/other.tvs")));
    Remove();
    EXPECT_EQ(ReadStored(places.store, "CurrentSaver"), "C:\\former.tvs");
    ASSERT_TRUE(Install());
    const std::string beside = places.drivePath(Target() + "/SLIDES.OLD/other.tvs");
    WriteStored(places.store, "CurrentSaver", beside);
    Remove();
    EXPECT_EQ(ReadStored(places.store, "CurrentSaver"), beside);
}

TEST_F(SetupTest, LongNamesAndPathsAreKeptWhole) {
    const std::string former = "C:\\" + std::string(400, 'f') + ".tvs";
    WriteFormer(former);
    name = std::string(300, 'n');
    PutNotes("True", "True", "True");
    ASSERT_TRUE(Install());
    EXPECT_NE(Entries()[1].find("Name=" + name + "\n"), std::string::npos);
    Remove();
    EXPECT_EQ(ReadStored(places.store, "CurrentSaver"), former);
}

TEST_F(SetupTest, PackagesStandSideBySide) {
    ASSERT_TRUE(Install());
    const auto withOne = All();
    name = "Another";
    PutNotes("True", "False", "True");
    const auto stick = folder.Content("stick/setup.ini");
    ASSERT_TRUE(Install());
    EXPECT_EQ(Entries().size(), 6U);
    Remove();
    auto after = All();
    EXPECT_EQ(after["stick/setup.ini"], stick);
    after["stick/setup.ini"] = withOne.at("stick/setup.ini");
    EXPECT_EQ(after, withOne);
}

TEST_F(SetupTest, APackageWithoutANameIsUntitled) {
    name = "";
    PutNotes("False", "False", "True");
    ASSERT_TRUE(Install());
    name = "Untitled";
    EXPECT_TRUE(IsInstalled(Target(), names));
}

TEST_F(SetupTest, ItsSettingsGoWhateverThePackageHas) {
    std::erase(names.files, "tavrix.ini");
    const auto before = All();
    ASSERT_TRUE(Install());
    EXPECT_NE(InTarget("tavrix.ini").find("UseRecentDocuments=False"), std::string::npos);
    EXPECT_FALSE(Remove());
    EXPECT_EQ(All(), before);
}

TEST_F(SetupTest, AFileOrALinkOfTheUsersInPlaceOfAFolderStays) {
    ASSERT_TRUE(Install());
    fs::remove_all(Target() + "/SLIDES/deep");
    folder.Put("user/data/tavrix-packages/Trip/SLIDES/deep", "own");
    folder.PutFolder("user/data/tavrix-packages/Trip/TEMP");
    fs::create_directory_symlink(folder.At("user"), Target() + "/TEMP/link");
    EXPECT_TRUE(Remove());
    EXPECT_EQ(InTarget("SLIDES/deep"), "own");
    EXPECT_TRUE(fs::is_symlink(Target() + "/TEMP/link"));
    EXPECT_EQ(folder.Content("user/letter"), "own");
    EXPECT_FALSE(IsInstalled(Target(), names));
}

TEST_F(SetupTest, NoFolderGoesThatIsNotAboveWhatWasInstalled) {
    ASSERT_TRUE(Install());
    folder.PutFolder("user/own");
    folder.PutFolder("user/data/app");
    folder.Put("user/data/tavrix-packages/Trip/setup.ini",
               "[Installed]\nMadeFolder1=" + folder.At("user/own") +
                   "\nMadeFolder2=" + folder.At("user/data/app") + "\nFolders=2\n");
    Remove();
    EXPECT_TRUE(folder.Has("user/own"));
    EXPECT_TRUE(folder.Has("user/data/app"));
}

TEST_F(SetupTest, FilesOfTheUserStay) {
    ASSERT_TRUE(Install());
    folder.Put("user/data/tavrix-packages/Trip/SLIDES/mine.tvs", "mine");
    folder.Put("user/data/tavrix-packages/Trip/TEMP/Untitled.BMP", "not saved yet");
    EXPECT_TRUE(Remove());
    EXPECT_EQ(InTarget("SLIDES/mine.tvs"), "mine");
    EXPECT_EQ(InTarget("TEMP/Untitled.BMP"), "not saved yet");
    EXPECT_FALSE(fs::exists(Target() + "/SLIDES/a.bmp"));
    EXPECT_FALSE(fs::exists(Target() + "/TAVRIX.LIB"));
    EXPECT_TRUE(Entries().empty());
}

TEST_F(SetupTest, AListCannotLeadOutOfTheFolder) {
    ASSERT_TRUE(Install());
    folder.Put("user/data/tavrix-packages/Trip/SLIDES.LST",
               "../../../../letter\n" + folder.At("user/letter") + "\n");
    folder.Put("user/data/tavrix-packages/Trip/SETUP.LST", "../../../../letter\r\n");
    Remove();
    EXPECT_EQ(folder.Content("user/letter"), "own");
}

TEST_F(SetupTest, WhatStandsAtTheTargetIsNotTouched) {
    folder.Put("user/data/tavrix-packages/Trip/letter", "own");
    const auto before = All();
    EXPECT_EQ(ErrorOfCall([this] {
                  Install([](std::int64_t) {
                      ADD_FAILURE() << "copied before it is refused";
                      return true;
                  });
              }),
              58);
    EXPECT_EQ(ErrorOfCall([this] { Remove(); }), 53);
    EXPECT_EQ(All(), before);
}

TEST_F(SetupTest, GivingUpLeavesNothing) {
    const auto before = All();
    int told = 0;
    std::int64_t done = 0;
    EXPECT_FALSE(Install([&](std::int64_t bytes) {
        EXPECT_GE(bytes, done);
        done = bytes;
        return ++told < 4;
    }));
    EXPECT_EQ(All(), before);
}

/// Installs in a process that is killed once it has copied something. Its number.
pid_t KillInstallation(const std::function<void(const Progress&)>& install) {
    const pid_t child =
        InChild([&install] { install([](std::int64_t) { return ::kill(::getpid(), SIGKILL) == 0; }); });
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status));
    return child;
}

TEST_F(SetupTest, WhatAKilledInstallationHasLeftGoesWithTheNextOneOfTheSamePackage) {
    // Folders above are made by the first, which tells nobody; here they are the user's.
    fs::create_directories(folder.At("user/config/tavrix"));
    folder.Put("user/data/tavrix-packages/Trip 2/letter", "own");
    const auto before = All();
    const std::string left =
        "user/data/tavrix-packages/.new-Trip." +
        std::to_string(KillInstallation([this](const Progress& progress) { Install(progress); }));
    ASSERT_TRUE(fs::is_directory(folder.At(left)));
    ASSERT_FALSE(fs::is_empty(folder.At(left)));
    // Of other packages, of nobody who installs, and led to by a link.
    for (const char* other : {".new-Trip 2.12", ".new-Trip.2.12", ".new-Trip.", ".new-Trip.12x", ".new-12"})
        folder.Put("user/data/tavrix-packages/" + std::string(other) + "/a", "other");
    folder.Put("user/data/tavrix-packages/.new-Trip.13", "a file");
    folder.Put("user/pictures/a", "own");
    fs::create_directory_symlink(folder.At("user/pictures"),
                                 folder.At("user/data/tavrix-packages/.new-Trip.14"));
    auto rest = All();
    std::erase_if(rest, [&left](const auto& file) { return file.first.starts_with(left); });

    bool grew = false;
    ASSERT_FALSE(Install([&](std::int64_t) {
        grew = true;
        EXPECT_FALSE(fs::exists(folder.At(left)));
        return false;
    }));
    EXPECT_TRUE(grew);
    EXPECT_EQ(All(), rest);
    ASSERT_TRUE(Install());
    Remove();
    EXPECT_EQ(All(), rest);
    EXPECT_TRUE(std::ranges::includes(rest, before));
}

TEST_F(SetupTest, OneThatGrowsIsNotTakenForLeft) {
    bool second = false;
    ASSERT_TRUE(Install([&](std::int64_t) {
        if (std::exchange(second, true)) return true;
        const pid_t child = InChild([this] {
            // The same package, given up at its first file.
            ::_exit(Install([](std::int64_t) { return false; }) ? 1 : 0);
        });
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
        return true;
    }));
    EXPECT_EQ(InTarget("TAVRIX.EXE"), "launcher");
    EXPECT_EQ(InTarget("SLIDES/a.bmp"), "picture");
}

TEST_F(SetupTest, TheProgressEndsWithTheSize) {
    std::int64_t done = 0;
    ASSERT_TRUE(Install([&done](std::int64_t bytes) { return (done = bytes) > 0; }));
    EXPECT_EQ(done, SizeOf(Stick(), FilesOf(Stick(), names)));
}

TEST_F(SetupTest, AnyNameIsAFolder) {
    name = "../a/b\n\x7F";
    EXPECT_EQ(Target(), folder.At("user/data") + "/tavrix-packages/_._a_b__");
    name = std::string(99, 'x') + "\xC3\xA4";
    EXPECT_EQ(Target(), folder.At("user/data") + "/tavrix-packages/" + std::string(99, 'x'));
    name = std::string(101, 'x');
    EXPECT_EQ(Target(), folder.At("user/data") + "/tavrix-packages/" + std::string(100, 'x'));
}

TEST_F(SetupTest, APackageThatIsNotWholeIsNotInstalled) {
    const auto refused = [this](const std::string& file) {
        const std::string content = folder.Content("stick/" + file);
        fs::remove(folder.At("stick/" + file));
        const auto before = All();
        EXPECT_EQ(ErrorOfCall([this] { Install(); }), 53) << file;
        EXPECT_EQ(All(), before) << file;
        folder.Put("stick/" + file, content);
    };
    for (const char* file : {"setup.ini", "SETUP.LST", "SLIDES/Größe.tvs", "TAVRIX.LIB/libx.so"})
        refused(file);
    folder.Put("stick/setup.ini", "[Tavrix Setup]\r\nSlideShowFile=../letter\r\n");
    EXPECT_EQ(ErrorOfCall([this] { Install(); }), 53);
}

/// A machine of its own for each run of a sweep.
struct Machine final : SetupTest {
    void TestBody() override {}
    using SetupTest::All;
    using SetupTest::folder;
    using SetupTest::Install;
    using SetupTest::Remove;
};

TEST(SetupSweep, AFailureLeavesEverythingAsItWas) {
    const int came = test::SweepFaults([](int call) {
        Machine machine;
        machine.folder.Put("user/config/tavrix/settings", "[Settings]\nCurrentSaver=C:\\former.tvs\n");
        const auto before = machine.All();
        bool fired = false;
        bool undone = true;
        int failure = 0;
        {
            test::SystemFaults faults(machine.folder.Path());
            faults.FailNth(call, EIO);
            failure = ErrorOfCall([&] { EXPECT_TRUE(machine.Install()); });
            fired = faults.Fired();
            undone = faults.Failed() != "unlink";
        }
        if (failure != 0 && undone) {
            EXPECT_EQ(machine.All(), before);
        }
        if (failure == 0) {
            machine.Remove();
            EXPECT_EQ(machine.All(), before);
        }
        return fired;
    });
    EXPECT_GT(came, 40);
}

TEST(SetupSweep, AFailedRemovalCanBeTriedAgain) {
    const int came = test::SweepFaults([](int call) {
        Machine machine;
        machine.folder.Put("user/config/tavrix/settings", "[Settings]\nCurrentSaver=C:\\former.tvs\n");
        const auto before = machine.All();
        EXPECT_TRUE(machine.Install());
        bool fired = false;
        int failure = 0;
        {
            test::SystemFaults faults(machine.folder.Path());
            faults.FailNth(call, EIO);
            failure = ErrorOfCall([&] { machine.Remove(); });
            fired = faults.Fired();
        }
        if (failure != 0) machine.Remove();
        EXPECT_EQ(machine.All(), before);
        return fired;
    });
    EXPECT_GT(came, 15);
}

}  // namespace
}  // namespace tavrix::setup
