#include "backends/linux/DriveMap.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "TestFolder.h"
#include "backends/linux/HostDrives.h"
#include "backends/linux/HostPaths.h"
#include "backends/linux/MountTable.h"
#include "support/IoCount.h"

namespace tavrix {
namespace {

std::string Letters(DriveMap& map) {
    std::string letters;
    for (const HostDrive& drive : map.ListedDrives())
        letters.push_back(drive.letter);
    return letters;
}

class DriveMapTest : public testing::Test {
  protected:
    [[nodiscard]] DriveMap Map(const std::string& drives) const {
        DriveMap::Sources sources;
        sources.drives = drives;
        return DriveMap(sources);
    }
    /// A system with media below this test's folder.
    [[nodiscard]] DriveMap::Sources System() const {
        DriveMap::Sources sources;
        sources.file = folder.At("drives");
        sources.mounts = folder.At("mounts");
        sources.devices = folder.At("dev");
        sources.mediaFolders = {folder.At("media")};
        return sources;
    }

    TestFolder folder;
};

TEST_F(DriveMapTest, WithoutConfigurationTheWholeSystemIsC) {
    DriveMap map{System()};
    EXPECT_EQ(Letters(map), "ABC");
    EXPECT_EQ(map.ToDrivePath("/"), "C:\\");
    EXPECT_EQ(map.ToDrivePath("/home/me/a.jpg"), "C:\\home\\me\\a.jpg");
    EXPECT_EQ(map.ToDrivePath("/home//me/./x/../a.jpg/"), "C:\\home\\me\\a.jpg");
    EXPECT_EQ(map.Find('A')->type, DriveType::Removable);
    EXPECT_FALSE(DriveMap::HasDisk(*map.Find('A')));
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(map.Locate("A:\\x")); }), 71);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(map.Locate("Q:\\x")); }), 68);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(map.Locate("x")); }), 52);
}

TEST_F(DriveMapTest, SystemFoldersAreHidden) {
    DriveMap map{System()};
    EXPECT_FALSE(map.Locate("C:\\proc").exists);
    EXPECT_FALSE(map.Locate("C:\\PROC\\self\\status").exists);
    EXPECT_FALSE(map.Locate("C:\\dev\\null").exists);
    EXPECT_FALSE(map.Locate("C:\\sys").exists);
    EXPECT_TRUE(map.Locate("C:\\tmp").exists);
    EXPECT_TRUE(map.Locate("C:\\").IsFolder());
}

TEST_F(DriveMapTest, TheVariableIsAllThatThereIs) {
    folder.PutFolder("fl");
    folder.PutFolder("pics, old");
    folder.PutFolder("cd");
    DriveMap map =
        Map("a=" + folder.At("fl") + ",floppy; C=" + folder.Path() + "/ ;D=" + folder.At("pics, old") +
            ", fixed;E=" + folder.At("cd") + ",cdrom,disk;F=/mnt,network;G=/run,ram;H=;=/x;nonsense");
    EXPECT_EQ(Letters(map), "ACDEFG");
    EXPECT_EQ(map.Find('D')->root, folder.At("pics, old"));
    EXPECT_EQ(map.Find('e')->type, DriveType::CdRom);
    EXPECT_EQ(map.Find('F')->type, DriveType::Network);
    EXPECT_EQ(map.Find('G')->type, DriveType::RamDisk);
    EXPECT_EQ(map.ToDrivePath(folder.At("pics, old/a.bmp")), "D:\\a.bmp");
    EXPECT_EQ(map.ToDrivePath(folder.At("pics")), "C:\\pics");
    EXPECT_EQ(map.ToDrivePath(folder.Path()), "C:\\");
    // What no drive reaches has an unlisted letter.
    EXPECT_EQ(map.ToDrivePath("/etc/passwd"), "Z:\\etc\\passwd");
    EXPECT_TRUE(map.Locate("Z:\\etc\\passwd").IsFile());
}

TEST_F(DriveMapTest, ItsSourcesAreTheVariableTheFileAndTheProgramsFolders) {
    HostPaths paths;
    paths.config = folder.At("config");
    paths.program = folder.At("program");
    paths.shared = folder.At("shared");
    {
        const ScopedVariable variable("TAVRIX_DRIVES", "C=/;D=/srv");
        EXPECT_EQ(DriveMap::SourcesOf(paths).drives, "C=/;D=/srv");
    }
    const ScopedVariable variable("TAVRIX_DRIVES", "");
    const DriveMap::Sources sources = DriveMap::SourcesOf(paths);
    EXPECT_FALSE(sources.drives);  // empty is not set
    EXPECT_EQ(sources.file, folder.At("config/drives"));
    EXPECT_EQ(sources.program, folder.At("program"));
    EXPECT_EQ(sources.shared, folder.At("shared"));
    EXPECT_EQ(sources.mounts, "/proc/self/mounts");
}

TEST_F(DriveMapTest, TheFileChangesTheDefaults) {
    folder.PutFolder("shows");
    folder.PutFolder("floppy");
    folder.Put("drives",
               "# mine\r\nD=" + folder.At("shows") + ",fixed\r\nA = " + folder.At("floppy") + "\nB=\n\n");
    folder.Put("floppy/a.tvs", "");
    DriveMap map{System()};
    EXPECT_EQ(Letters(map), "ACD");
    EXPECT_TRUE(map.Find('A')->floppy);
    EXPECT_TRUE(map.Locate("A:\\a.tvs").exists);
    EXPECT_FALSE(map.Locate("C:" +
                            [&] {
                                std::string path = folder.At("shows");
                                std::ranges::replace(path, '/', '\\');
                                return path;
                            }())
                     .exists);
}

TEST_F(DriveMapTest, MountedMediaGetLetters) {
    folder.PutFolder("media/me/STICK ONE");
    folder.PutFolder("media/me/disc");
    folder.Put("dev/sr0", "");
    folder.Put("mounts", "proc /proc proc rw 0 0\n/dev/nosuch1 " + folder.At("media/me/STICK\\040ONE") +
                             " vfat rw 0 0\n/dev/sdz9 /home ext4 rw 0 0\n");
    DriveMap map{System()};
    EXPECT_EQ(Letters(map), "ABCDE");
    EXPECT_EQ(map.Find('D')->type, DriveType::CdRom);
    EXPECT_FALSE(DriveMap::HasDisk(*map.Find('D')));
    EXPECT_EQ(map.Find('E')->root, folder.At("media/me/STICK ONE"));
    EXPECT_EQ(map.Find('E')->type, DriveType::Removable);
    EXPECT_EQ(map.ToDrivePath(folder.At("media/me/STICK ONE/a.jpg")), "E:\\a.jpg");

    // A disc comes, the stick goes; letters stay what they were.
    folder.Put("mounts", folder.At("dev/sr0") + " " + folder.At("media/me/disc") + " iso9660 ro 0 0\n");
    EXPECT_EQ(Letters(map), "ABCD");
    EXPECT_EQ(map.Find('D')->root, folder.At("media/me/disc"));
    folder.Put("media/me/disc/a.bmp", "");
    EXPECT_TRUE(map.Locate("D:\\A.BMP").IsFile());
    folder.Put("mounts", "/dev/nosuch1 " + folder.At("media/me/STICK\\040ONE") + " vfat rw 0 0\n");
    EXPECT_EQ(Letters(map), "ABCDE");
    EXPECT_EQ(map.Find('E')->root, folder.At("media/me/STICK ONE"));
}

TEST_F(DriveMapTest, MediaAreHiddenBelowOtherLetters) {
    folder.Put("media/stick/a.jpg", "");
    folder.Put("mounts", "/dev/nosuch1 " + folder.At("media/stick") + " vfat rw 0 0\n");
    DriveMap map{System()};
    std::string below = "C:" + folder.At("media/stick/a.jpg");
    std::ranges::replace(below, '/', '\\');
    EXPECT_FALSE(map.Locate(below).exists);  // noticed without a list of drives being asked for
    EXPECT_TRUE(map.Locate("D:\\a.jpg").exists);
}

TEST_F(DriveMapTest, APathOnAMediumThatJustCameHasItsLetter) {
    folder.PutFolder("media/stick");
    folder.Put("mounts", "");
    DriveMap map{System()};
    EXPECT_EQ(Letters(map), "ABC");
    folder.Put("mounts", "/dev/nosuch1 " + folder.At("media/stick") + " vfat rw 0 0\n");
    EXPECT_EQ(map.ToDrivePath(folder.At("media/stick/a.jpg")), "D:\\a.jpg");
}

/// Media below this test's folder, and what the system says of their devices.
class FloppyLetterTest : public DriveMapTest {
  protected:
    FloppyLetterTest() {
        sources = System();
        sources.blocks = folder.At("blocks");
        sources.program = folder.At("home/me/tavrix");
        for (const char* name : {"one", "two", "three"})
            folder.PutFolder("media/" + std::string(name));
        for (const char* disk : {"sdq", "sdr", "sds"}) {
            for (const char* part : {"1", "2"}) {
                const std::string name = std::string(disk) + part;
                folder.Put("devices/" + std::string(disk) + "/" + name + "/partition", part);
                folder.PutFolder("blocks");
                std::filesystem::create_symlink(folder.At("devices/" + std::string(disk) + "/" + name),
                                                folder.At("blocks/" + name));
            }
            folder.Put("devices/" + std::string(disk) + "/removable",
                       disk == std::string("sds") ? "0\n" : "1\n");
        }
    }

    [[nodiscard]] std::string Medium(const std::string& device, const std::string& name,
                                     const std::string& options = "rw,nosuid") const {
        return "/dev/" + device + " " + folder.At("media/" + name) + " vfat " + options + " 0 0\n";
    }
    void Mounts(const std::string& text) { folder.Put("mounts", text); }
    [[nodiscard]] static bool HasFloppy(DriveMap& map) { return DriveMap::HasDisk(*map.Find('A')); }

    DriveMap::Sources sources;
};

TEST_F(FloppyLetterTest, AMediumThatCanBeWrittenAndTakenOutIsTheFloppy) {
    Mounts(Medium("sdq1", "one"));
    folder.Put("media/one/a.jpg", "");
    DriveMap map{sources};
    EXPECT_EQ(Letters(map), "ABC");
    EXPECT_TRUE(HasFloppy(map));
    EXPECT_EQ(map.Find('A')->root, folder.At("media/one"));
    EXPECT_EQ(map.Find('A')->type, DriveType::Removable);
    EXPECT_TRUE(map.Locate("A:\\A.JPG").IsFile());
    EXPECT_EQ(map.ToDrivePath(folder.At("media/one/a.jpg")), "A:\\a.jpg");
    EXPECT_FALSE(DriveMap::HasDisk(*map.Find('B')));
    // An empty one is a disk too.
    std::filesystem::remove(folder.At("media/one/a.jpg"));
    EXPECT_TRUE(HasFloppy(map));
}

TEST_F(FloppyLetterTest, OthersKeepTheLettersOfMedia) {
    Mounts(Medium("sds1", "three") + Medium("sdq1", "two", "ro") + Medium("nosuch1", "one"));
    DriveMap map{sources};
    EXPECT_FALSE(HasFloppy(map));
    EXPECT_EQ(Letters(map), "ABCDEF");
}

TEST_F(FloppyLetterTest, TheDisksInUseAreNone) {
    for (const std::string& used : {std::string("/"), std::string("/home"), folder.At("home/me/tavrix")}) {
        Mounts("/dev/sdq2 " + used + " ext4 rw 0 0\n" + Medium("sdq1", "one"));
        DriveMap map{sources};
        EXPECT_FALSE(HasFloppy(map)) << used;
        EXPECT_EQ(Letters(map), "ABCD") << used;
    }
    // What is covered by another mount is not in use.
    Mounts("/dev/sdq2 /home ext4 rw 0 0\n/dev/sds2 /home ext4 rw 0 0\n" + Medium("sdq1", "one"));
    DriveMap map{sources};
    EXPECT_TRUE(HasFloppy(map));
}

TEST_F(FloppyLetterTest, ItStaysUntilItIsGone) {
    Mounts(Medium("sdq1", "two"));
    DriveMap map{sources};
    EXPECT_EQ(map.Find('A')->root, folder.At("media/two"));
    // Another one has a letter of its own, and keeps that.
    Mounts(Medium("sdr1", "one") + Medium("sdq1", "two"));
    EXPECT_EQ(map.Find('A')->root, folder.At("media/two"));
    EXPECT_EQ(map.Find('D')->root, folder.At("media/one"));
    Mounts(Medium("sdr1", "one"));
    EXPECT_FALSE(HasFloppy(map));
    EXPECT_EQ(map.Find('D')->root, folder.At("media/one"));
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(map.Locate("A:\\x")); }), 71);
    Mounts(Medium("sdr1", "one") + Medium("sdq1", "three"));
    EXPECT_EQ(map.Find('A')->root, folder.At("media/three"));
    Mounts(Medium("sdq1", "three"));
    EXPECT_FALSE(map.Find('D'));
}

TEST_F(FloppyLetterTest, AMediumThatComesBackMayBeTheFloppyThen) {
    Mounts(Medium("sdq1", "two") + Medium("sdr1", "one"));
    DriveMap map{sources};
    EXPECT_EQ(map.Find('A')->root, folder.At("media/two"));
    Mounts("");
    EXPECT_FALSE(HasFloppy(map));
    Mounts(Medium("sdr1", "one"));
    EXPECT_EQ(map.Find('A')->root, folder.At("media/one"));
}

TEST_F(FloppyLetterTest, AnotherMediumInTheSameFolderIsAnother) {
    Mounts(Medium("sdq1", "one"));
    DriveMap map{sources};
    EXPECT_TRUE(HasFloppy(map));
    Mounts(Medium("sds1", "one"));
    EXPECT_FALSE(HasFloppy(map));
}

TEST_F(FloppyLetterTest, WhatTheUserNamedCounts) {
    Mounts(Medium("sdq1", "one"));
    folder.Put("mine/a.jpg", "");
    folder.Put("drives", "A=" + folder.At("mine") + "\n");
    DriveMap named{sources};
    EXPECT_EQ(named.Find('A')->root, folder.At("mine"));
    EXPECT_EQ(named.Find('D')->root, folder.At("media/one"));
    folder.Put("drives", "A=\n");
    DriveMap none{sources};
    EXPECT_FALSE(none.Find('A'));
    folder.Put("drives", "B=" + folder.At("mine") + "\n");
    DriveMap other{sources};
    EXPECT_TRUE(HasFloppy(other));
    sources.drives = "C=/";
    DriveMap variable{sources};
    EXPECT_FALSE(variable.Find('A'));
}

TEST_F(FloppyLetterTest, NoDeviceIsToldOfAFolder) {
    Mounts(Medium("sdq1", "one"));
    DriveMap map{sources};
    EXPECT_EQ(map.MountedDevice(*map.Find('A')), "");  // there is no such block device
    EXPECT_EQ(map.MountedDevice(*map.Find('C')), "");
}

TEST_F(DriveMapTest, APathOnAKnownDriveReadsNoTable) {
    folder.Put("a.jpg", "");
    std::string mounts;
    for (int i = 0; i < 2000; ++i)
        mounts += "server:/export/" + std::to_string(i) + " /net/" + std::to_string(i) + " nfs rw 0 0\n";
    folder.Put("mounts", mounts);
    DriveMap map{System()};
    static_cast<void>(map.Find('A'));
    const IoCount before = IoCount::Now();
    if (!before.Known()) GTEST_SKIP() << "the system does not count what is read";
    for (int i = 0; i < 100; ++i)
        EXPECT_FALSE(DriveMap::HasDisk(*map.Find('A')));
    const IoCount took = IoCount::Now() - before;
    EXPECT_LT(took.read, mounts.size());
}

TEST(MountTable, TellsAChangeOfTheSystemsTableOnce) {
    MountTable table("/proc/self/mounts", "/sys/class/block");
    EXPECT_TRUE(table.Changed());
    EXPECT_FALSE(table.Changed());
    EXPECT_FALSE(table.Read().empty());
    EXPECT_EQ(table.Removable("tmpfs"), std::nullopt);
}

TEST_F(DriveMapTest, TwoLettersForOneFolderBothLeadThere) {
    folder.Put("x/a.jpg", "");
    DriveMap map = Map("C=/;D=" + folder.At("x") + ";E=" + folder.At("x"));
    EXPECT_TRUE(map.Locate("D:\\a.jpg").exists);
    EXPECT_TRUE(map.Locate("E:\\a.jpg").exists);
    EXPECT_EQ(map.ToDrivePath(folder.At("x/a.jpg")), "D:\\a.jpg");
}

TEST_F(DriveMapTest, LookUpIgnoresCaseTheExactSpellingFirst) {
    folder.Put("Pictures/b.BMP", "");
    folder.Put("Pictures/B.bmp", "");
    folder.Put("Pictures/\u00c4rger.gif", "");
    DriveMap map = Map("C=" + folder.Path());
    EXPECT_EQ(map.Locate("C:\\Pictures\\b.BMP").path, folder.At("Pictures/b.BMP"));
    EXPECT_EQ(map.Locate("C:\\Pictures\\B.bmp").path, folder.At("Pictures/B.bmp"));
    EXPECT_EQ(map.Locate("c:\\pictures\\B.BMP").path, folder.At("Pictures/B.bmp"));
    EXPECT_EQ(map.Locate("C:\\PICTURES\\\u00e4RGER.GIF").path, folder.At("Pictures/\u00c4rger.gif"));
    const HostLocation missing = map.Locate("C:\\PICTURES\\New.bmp");
    EXPECT_FALSE(missing.exists);
    EXPECT_TRUE(missing.parentExists);
    EXPECT_EQ(missing.path, folder.At("Pictures/New.bmp"));
    EXPECT_FALSE(map.Locate("C:\\none\\New.bmp").parentExists);
    EXPECT_FALSE(map.Locate("C:\\Pictures\\b.BMP\\x").parentExists);
}

TEST_F(DriveMapTest, NamesThatADrivePathCannotHoldAreFound) {
    folder.Put("10:20 \"x\".png", "");
    folder.Put("raw\xff", "");
    DriveMap map = Map("C=" + folder.Path());
    for (const std::string name : {"10:20 \"x\".png", "raw\xff"}) {
        const std::string drivePath = map.ToDrivePath(folder.At(name));
        EXPECT_TRUE(map.Locate(drivePath).exists) << drivePath;
        EXPECT_EQ(map.Locate(drivePath).path, folder.At(name));
    }
}

TEST_F(DriveMapTest, AWayUpNeverLeavesTheDrive) {
    folder.Put("secret", "");
    folder.PutFolder("c");
    DriveMap map = Map("C=" + folder.At("c"));
    EXPECT_FALSE(map.Locate("C:\\..\\secret").exists);
    EXPECT_FALSE(map.Locate("C:\\x/../../secret").exists);
}

TEST_F(DriveMapTest, AnEmptyFolderIsNoDiskUnlessMarked) {
    folder.PutFolder("a");
    folder.PutFolder("b");
    folder.PutFolder("cd");
    folder.PutFolder("e");
    DriveMap map = Map("A=" + folder.At("a") + ";B=" + folder.At("b") + ",floppy,disk;D=" + folder.At("cd") +
                       ",cdrom;E=" + folder.At("e") + ";F=" + folder.At("none"));
    EXPECT_FALSE(DriveMap::HasDisk(*map.Find('A')));
    EXPECT_TRUE(DriveMap::HasDisk(*map.Find('B')));
    EXPECT_FALSE(DriveMap::HasDisk(*map.Find('D')));
    EXPECT_TRUE(DriveMap::HasDisk(*map.Find('E')));
    EXPECT_FALSE(DriveMap::HasDisk(*map.Find('F')));
    folder.Put("a/.disk", "");
    folder.Put("cd/a.bmp", "");
    EXPECT_TRUE(DriveMap::HasDisk(*map.Find('A')));
    EXPECT_TRUE(DriveMap::HasDisk(*map.Find('D')));
}

TEST_F(DriveMapTest, ADiscImageIsADiskWithoutFiles) {
    folder.Put("album.cue", "");
    folder.PutFolder("cd");
    DriveMap map = Map("C=" + folder.Path() + ";D=" + folder.At("cd") + ",cdrom;E=" + folder.At("album.cue") +
                       ",cdrom;F=" + folder.At("none.cue") + ",cdrom");
    EXPECT_TRUE(DriveMap::HasDisk(*map.Find('E')));
    EXPECT_EQ(map.Find('E')->type, DriveType::CdRom);
    EXPECT_EQ(map.CdDevice(), folder.At("album.cue"));  // the folder before it has no audio
    EXPECT_EQ(DriveMap::FreeBytes(*map.Find('E')), 0);
    EXPECT_FALSE(map.Locate("E:\\").IsFolder());
    EXPECT_FALSE(map.Locate("E:\\a.jpg").exists);
    EXPECT_FALSE(map.LocateForWriting("E:\\a.jpg").parentExists);
    EXPECT_FALSE(DriveMap::HasDisk(*map.Find('F')));

    DriveMap none = Map("C=" + folder.Path() + ";D=" + folder.At("cd") + ",cdrom");
    EXPECT_EQ(none.CdDevice(), "");
}

TEST_F(DriveMapTest, AnOpticalDriveWithoutADiscHasNoFiles) {
    folder.Put("dev/sr0", "");
    DriveMap map{System()};
    EXPECT_EQ(map.CdDevice(), folder.At("dev/sr0"));
    EXPECT_FALSE(DriveMap::HasDisk(*map.Find('D')));
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(map.Locate("D:\\home")); }), 71);
}

TEST_F(DriveMapTest, TellsFreeSpace) {
    folder.PutFolder("a");
    folder.Put("a/x", std::string(1000, 'x'));
    folder.PutFolder("cd");
    folder.Put("cd/x", "x");
    DriveMap map = Map("A=" + folder.At("a") + ";C=" + folder.Path() + ";D=" + folder.At("cd") +
                       ",cdrom;E=" + folder.At("none"));
    HostDrives drives(map);
    const auto bytes = [&](const std::string& root) {
        const DiskSpace space = drives.Space(root);
        return std::int64_t{space.sectorsPerCluster} * space.bytesPerSector * space.freeClusters;
    };
    EXPECT_EQ(bytes("A:\\"), 1'457'664 - 1024);
    EXPECT_GT(bytes("C:\\"), 0);
    EXPECT_LE(bytes("C:\\"), 2'147'450'880);
    EXPECT_EQ(bytes("D:\\"), 0);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(drives.Space("E:\\")); }), 71);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(drives.Space("Q:\\")); }), 68);
    EXPECT_EQ(drives.Type("Q:\\"), DriveType::NoRoot);
    EXPECT_EQ(drives.Roots(), std::string("A:\\\0C:\\\0D:\\\0E:\\\0", 16));
}

TEST(DriveMap, FindsTheDrivesOfThisMachine) {
    DriveMap map{DriveMap::Sources{}};
    EXPECT_GE(map.ListedDrives().size(), 3U);
}

TEST_F(DriveMapTest, LooksOnceAtTheMountsAndAtNoneButMedia) {
    folder.PutFolder("media/stick");
    std::string mounts = "/dev/sdq1 " + folder.At("media/stick") + " vfat rw 0 0\n";
    for (int i = 0; i < 2000; ++i)
        mounts += "server:/export/" + std::to_string(i) + " /net/" + std::to_string(i) + " nfs rw 0 0\n";
    folder.Put("mounts", mounts);
    DriveMap map{System()};
    const IoCount before = IoCount::Now();
    if (!before.Known()) GTEST_SKIP() << "the system does not count what is read";
    EXPECT_EQ(Letters(map), "ABCD");
    const IoCount took = IoCount::Now() - before;
    EXPECT_GE(took.read, mounts.size());
    EXPECT_LT(took.read, mounts.size() + mounts.size() / 10);
}

}  // namespace
}  // namespace tavrix
