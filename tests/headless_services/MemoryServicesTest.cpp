#include <gtest/gtest.h>

#include <array>
#include <string>

#include "backends/headless/HeadlessServices.h"
#include "support/ErrorOfCall.h"

namespace tavrix::headless {
namespace {

const std::string Ini = "C:\\Tavrix\\tavrix.ini";

TEST(MemoryProfile, MergesAsOnARealSystem) {
    HeadlessServices platform;
    platform.disks.PutFile(
        Ini, "; mine\r\n[Viewer]\r\nMouseSensitivity=7\r\nX=1\r\n\r\n[Package]\r\nPackageSize=3\r\n");
    platform.profile.Write("Viewer", std::array{ProfileEntry{"CDTrack", "2"}}, Ini);
    EXPECT_EQ(
        platform.disks.Content(Ini),
        "; mine\r\n[Viewer]\r\nMouseSensitivity=7\r\nX=1\r\nCDTrack=2\r\n\r\n[Package]\r\nPackageSize=3\r\n");
    EXPECT_EQ(platform.profile.Read("viewer", "c:\\TAVRIX\\Tavrix.ini").Read("CDTrack"), "2");
    ASSERT_EQ(platform.profile.Journal().size(), 1U);
    EXPECT_EQ(platform.profile.Journal()[0].key, "CDTrack");
}

TEST(MemoryProfile, MissingFilesAreEmptyAndComeIntoBeing) {
    HeadlessServices platform;
    EXPECT_FALSE(platform.profile.Read("Viewer", Ini).Has("X"));
    EXPECT_EQ(platform.profile.Read("Viewer", "A:\\setup.ini").Read("X"), "");
    platform.profile.Write("Viewer", std::array{ProfileEntry{"X", "1"}}, Ini);
    EXPECT_EQ(platform.disks.Content(Ini), "[Viewer]\r\nX=1\r\n");
}

TEST(MemoryProfile, AFailedWriteChangesNothing) {
    HeadlessServices platform;
    platform.disks.PutFile(Ini, "[Viewer]\r\nX=1\r\n");
    const auto write = [&] { platform.profile.Write("Viewer", std::array{ProfileEntry{"X", "2"}}, Ini); };
    platform.disks.SetReadOnly(Ini, true);
    EXPECT_EQ(ErrorOfCall(write), 70);
    platform.disks.SetReadOnly(Ini, false);
    platform.faults.FailNth(Service::Profile, 1, ErrorNumber::DiskFull);
    EXPECT_EQ(ErrorOfCall(write), 61);
    EXPECT_EQ(platform.disks.Content(Ini), "[Viewer]\r\nX=1\r\n");
    const auto elsewhere = [&](const std::string& file) {
        return ErrorOfCall([&] { platform.profile.Write("S", std::array{ProfileEntry{"X", "2"}}, file); });
    };
    EXPECT_EQ(elsewhere("A:\\setup.ini"), 71);
    EXPECT_EQ(elsewhere("C:\\none\\setup.ini"), 76);
}

TEST(MemoryDrives, TellsRootsTypesAndSpace) {
    HeadlessServices platform;
    platform.disks.AddDrive('E', DriveType::CdRom);
    EXPECT_EQ(platform.drives.Roots(), std::string("A:\\\0C:\\\0E:\\\0", 12));
    EXPECT_EQ(platform.drives.Type("A:\\"), DriveType::Removable);
    EXPECT_EQ(platform.drives.Type("e:\\"), DriveType::CdRom);
    EXPECT_EQ(platform.drives.Type("Q:\\"), DriveType::NoRoot);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(platform.drives.Space("A:\\")); }), 71);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(platform.drives.Space("Q:\\")); }), 68);

    const auto bytes = [&](const std::string& root) {
        const DiskSpace space = platform.drives.Space(root);
        return std::int64_t{space.sectorsPerCluster} * space.bytesPerSector * space.freeClusters;
    };
    EXPECT_EQ(bytes("C:\\"), 2'147'450'880);
    platform.disks.InsertDisk('A');
    EXPECT_EQ(bytes("A:\\"), 1'457'664);
    platform.disks.PutFile("A:\\a", std::string(1024, 'x'));
    EXPECT_EQ(bytes("A:\\"), 1'457'664 - 1024);
    // To the byte, though a sector is as long as it can be.
    for (const std::int64_t free : {100'000, 511, 1, 1'457'663, 2'147'450'879}) {
        platform.disks.SetCapacity('A', 1024 + free);
        EXPECT_EQ(bytes("A:\\"), free);
    }
    platform.disks.SetCapacity('A', 1024 + 512 * 3);
    EXPECT_EQ(platform.drives.Space("A:\\").bytesPerSector, 512);
    platform.disks.SetCapacity('A', 1024);
    EXPECT_EQ(bytes("A:\\"), 0);
}

TEST(MemoryPictures, LoadsWhatWasPutThereAndItsCopies) {
    HeadlessServices platform;
    const Picture picture = PictureOf(Surface(3, 2));
    platform.pictures.SetPicture("C:\\a.bmp", picture);
    platform.files.Copy("C:\\a.bmp", "C:\\Temp\\~undo.tmp");
    EXPECT_EQ(platform.pictures.Load("C:\\A.BMP"), picture);
    EXPECT_EQ(platform.pictures.Load("C:\\Temp\\~undo.tmp"), picture);
    platform.pictures.SetFailure("C:\\a.bmp", RuntimeError(ErrorNumber::OutOfMemory));
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(platform.pictures.Load("C:\\a.bmp")); }), 7);
    EXPECT_EQ(platform.pictures.Load("C:\\Temp\\~undo.tmp"), picture);
}

TEST(MemoryPictures, LoadsOtherFilesThroughTheDecoders) {
    HeadlessServices platform;
    // One blue pixel: the file's header, the 40 bytes of the bitmap's, one row of four bytes.
    std::string bitmap("BM\x3a\0\0\0\0\0\0\0\x36\0\0\0", 14);
    bitmap += std::string("\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0", 16) + std::string(24, '\0');
    bitmap += std::string("\xff\0\0\0", 4);
    platform.disks.PutFile("C:\\blue.jpg", bitmap);
    const Picture picture = platform.pictures.Load("C:\\blue.jpg");
    ASSERT_EQ(picture.Width(), 1);
    EXPECT_EQ(picture.pixels->Whole().Row(0)[0], 0xFF0000FFU);

    platform.disks.PutFile("C:\\text.bmp", "no picture");
    const auto load = [&](const std::string& path) {
        return ErrorOfCall([&] { static_cast<void>(platform.pictures.Load(path)); });
    };
    EXPECT_EQ(load("C:\\text.bmp"), 481);
    EXPECT_EQ(load("C:\\none.bmp"), 53);
    EXPECT_EQ(load("C:\\none\\a.bmp"), 76);
    EXPECT_EQ(load("A:\\a.bmp"), 71);
}

TEST(MemoryPictures, FitsPicturesIntoABox) {
    HeadlessServices platform;
    Surface large(400, 300);
    large.Fill(OpaquePixel(10, 20, 30));
    platform.pictures.SetPicture("C:\\large.bmp", PictureOf(std::move(large)));
    const auto coming = platform.pictures.LoadToFit("C:\\LARGE.BMP", {160, 120});
    EXPECT_TRUE(coming->Ended());
    const FittedPicture fitted = coming->Take();
    EXPECT_EQ(fitted.width, 400);
    EXPECT_EQ(fitted.height, 300);
    EXPECT_EQ(fitted.picture.Width(), 160);
    EXPECT_EQ(fitted.picture.Height(), 120);
    EXPECT_EQ(fitted.picture.pixels->Whole().Row(119)[159], OpaquePixel(10, 20, 30));

    platform.disks.PutFile("C:\\text.bmp", "no picture");
    const auto errorOf = [&](const std::string& path) {
        return ErrorOfCall([&] { static_cast<void>(platform.pictures.LoadToFit(path, {160, 120})->Take()); });
    };
    EXPECT_EQ(errorOf("C:\\text.bmp"), 481);
    EXPECT_EQ(errorOf("C:\\none.bmp"), 53);
    platform.faults.FailNth(Service::Pictures, 1, ErrorNumber::DiskNotReady);
    EXPECT_EQ(errorOf("C:\\large.bmp"), 71);
}

TEST(MemoryPictures, NoteWhatIsExpected) {
    HeadlessServices platform;
    platform.pictures.Expect("C:\\none.bmp");
    platform.pictures.Expect("");
    EXPECT_EQ(platform.pictures.expected, (std::vector<std::string>{"C:\\none.bmp", ""}));
}

TEST(MemoryPictures, OpensAnimationsFromTheirBytes) {
    HeadlessServices platform;
    // Two frames of one pixel, red and green: header, a table of two colours, each image with its control.
    std::string gif("GIF89a\1\0\1\0\x80\0\0\xFF\0\0\0\xFF\0", 19);
    gif += std::string("\x21\xF9\4\0\x05\0\0\0\x2C\0\0\0\0\1\0\1\0\0\2\2\x44\1\0", 23);
    gif += std::string("\x21\xF9\4\0\x0A\0\0\0\x2C\0\0\0\0\1\0\1\0\0\2\2\x4C\1\0\x3B", 24);
    platform.disks.PutFile("C:\\a.gif", gif);
    const auto animation = platform.pictures.OpenAnimation("C:\\A.GIF");
    platform.disks.Remove("C:\\a.gif");
    EXPECT_EQ(animation->Canvas().Row(0)[0], 0xFFFF0000U);
    EXPECT_EQ(animation->Stay(), std::chrono::milliseconds(50));
    EXPECT_TRUE(animation->Next());
    EXPECT_EQ(animation->Canvas().Row(0)[0], 0xFF00FF00U);
    EXPECT_FALSE(animation->Next());
}

TEST(MemoryPictures, AnAnimationThatDoesNotOpen) {
    HeadlessServices platform;
    const auto open = [&](const std::string& path) {
        return ErrorOfCall([&] { static_cast<void>(platform.pictures.OpenAnimation(path)); });
    };
    platform.disks.PutFile("C:\\text.gif", "no picture");
    EXPECT_EQ(open("C:\\text.gif"), 481);
    EXPECT_EQ(open("C:\\none.gif"), 53);
    EXPECT_EQ(open("C:\\none\\a.gif"), 76);
    EXPECT_EQ(open("C:\\Temp"), 75);
    EXPECT_EQ(open("A:\\a.gif"), 71);

    platform.pictures.SetPicture("C:\\a.gif", PictureOf(Surface(3, 2)));
    EXPECT_EQ(open("C:\\a.gif"), 0);
    const int calls = platform.faults.Calls(Service::Pictures);
    platform.faults.FailNth(Service::Pictures, 1, ErrorNumber::DiskNotReady);
    EXPECT_EQ(open("C:\\a.gif"), 71);
    EXPECT_EQ(platform.faults.Calls(Service::Pictures), calls + 1);
    platform.pictures.SetFailure("C:\\a.gif", RuntimeError(ErrorNumber::OutOfMemory));
    EXPECT_EQ(open("C:\\a.gif"), 7);
}

TEST(MemoryPictures, APictureOfATestIsAnAnimationOfOneFrame) {
    HeadlessServices platform;
    platform.pictures.SetPicture("C:\\a.gif", PictureOf(Surface(3, 2)));
    const auto animation = platform.pictures.OpenAnimation("C:\\a.gif");
    EXPECT_EQ(animation->Canvas().Width(), 3);
    EXPECT_FALSE(animation->Next());
}

TEST(MemoryRegistry, KeepsValuesOfAnyType) {
    HeadlessServices platform;
    EXPECT_FALSE(platform.registry.Read("Control Panel\\desktop", "Wallpaper"));
    platform.registry.Write("Control Panel\\desktop", "Wallpaper", "C:\\a.bmp");
    EXPECT_EQ(platform.registry.Read("control panel\\Desktop", "wallpaper")->text, "C:\\a.bmp");
    platform.registry.Put("Control Panel\\desktop", "ScreenSaveUsePassword", {4, "0"});
    EXPECT_EQ(platform.registry.Read("Control Panel\\desktop", "ScreenSaveUsePassword")->type, 4);
}

TEST(HeadlessServices, RecordsWhatIsAskedFor) {
    HeadlessServices platform;
    Services& services = platform.services;
    services.shell.AddRecent("C:\\a.bmp");
    EXPECT_TRUE(services.shell.Run("explorer.exe"));
    platform.shell.canRun = false;
    EXPECT_FALSE(services.shell.Run("explorer.exe"));
    platform.shell.links["C:\\a.lnk"] = "C:\\a.bmp";
    EXPECT_EQ(services.shell.ResolveLink("C:\\a.lnk"), "C:\\a.bmp");
    EXPECT_EQ(services.shell.ResolveLink("C:\\b.lnk"), "");
    EXPECT_EQ(platform.shell.recent, std::vector<std::string>{"C:\\a.bmp"});
    EXPECT_EQ(platform.shell.commands.size(), 2U);

    services.help.Show("C:\\Tavrix\\TAVRIX.HLP", HelpCommand::Context, 410);
    EXPECT_EQ(platform.help.calls.back(),
              (RecordingHelp::Call{"C:\\Tavrix\\TAVRIX.HLP", HelpCommand::Context, 410}));

    platform.clipboard.formats = {ClipboardFormat::Bitmap};
    EXPECT_TRUE(services.clipboard.Has(ClipboardFormat::Bitmap));
    EXPECT_FALSE(services.clipboard.Has(ClipboardFormat::Metafile));
    services.clipboard.Clear();
    EXPECT_FALSE(services.clipboard.Has(ClipboardFormat::Bitmap));

    platform.system.windows.insert("Screen Saver Main Form");
    EXPECT_TRUE(services.system.WindowExists("Screen Saver Main Form"));
    EXPECT_EQ(services.system.PlatformId(), 2);
    EXPECT_EQ(services.sound.WaveDevices(), 1);
    EXPECT_EQ(services.process.Path(), "C:\\Tavrix");
    services.store.Set("Show Tips at Startup", "0");
    EXPECT_EQ(services.store.Get("Show Tips at Startup", "1"), "0");
    EXPECT_EQ(services.store.Get("EXEPath", ""), "");
}

TEST(HeadlessServices, SoundIsNotedAndAnsweredAsTold) {
    HeadlessServices platform;
    Sound& sound = platform.services.sound;
    platform.sound.results["play MIDIFile"] = 0;
    sound.PlayWave("C:\\a.wav", WaveFlags::Repeated);
    EXPECT_EQ(sound.Mci("play MIDIFile"), 0);
    EXPECT_EQ(sound.Mci("stop MIDIFile"), 1);
    platform.faults.FailNth(Service::Sound, 2, ErrorNumber::DeviceUnavailable);
    sound.PlayWave("", WaveFlags::Once);
    EXPECT_THROW((void)sound.Mci("close MIDIFile"), RuntimeError);
    EXPECT_EQ(platform.sound.calls,
              (std::vector<std::string>{"PlayWave (C:\\a.wav, 11)", "Mci play MIDIFile", "Mci stop MIDIFile",
                                        "PlayWave (, 3)", "Mci close MIDIFile"}));
    EXPECT_EQ(platform.faults.Log().back(), "Sound.Mci close MIDIFile");
}

TEST(HeadlessServices, WishesForALitScreenAreNoted) {
    HeadlessServices platform;
    Wakefulness& wakefulness = platform.services.wakefulness;
    wakefulness.Inhibit(true);
    EXPECT_TRUE(platform.wakefulness.inhibited);
    platform.faults.FailNth(Service::Wakefulness, 1, ErrorNumber::DeviceUnavailable);
    wakefulness.Inhibit(false);
    EXPECT_TRUE(platform.wakefulness.inhibited);
    wakefulness.Inhibit(false);
    EXPECT_FALSE(platform.wakefulness.inhibited);
    EXPECT_EQ(platform.wakefulness.calls, (std::vector<bool>{true, false, false}));
}

TEST(HeadlessServices, TheDesktopShowsWhatItIsGivenAndNotesWallpapers) {
    HeadlessServices platform;
    Desktop& desktop = platform.services.desktop;
    EXPECT_FALSE(desktop.Capture());
    platform.desktop.screen = Surface(3, 2);
    platform.desktop.screen->Fill(OpaquePixel(1, 2, 3));
    for (int again = 0; again < 2; ++again) {
        const std::optional<Surface> seen = desktop.Capture();
        ASSERT_TRUE(seen);
        EXPECT_EQ(seen->Width(), 3);
        EXPECT_EQ(seen->Row(1)[2], OpaquePixel(1, 2, 3));
    }

    desktop.SetWallpaper("C:\\a.bmp");
    EXPECT_EQ(platform.registry.Read("Control Panel\\desktop", "Wallpaper")->text, "C:\\a.bmp");
    platform.faults.FailNth(Service::Desktop, 1, ErrorNumber::DeviceUnavailable);
    EXPECT_THROW(desktop.SetWallpaper(""), RuntimeError);
    EXPECT_EQ(platform.registry.Read("Control Panel\\desktop", "Wallpaper")->text, "C:\\a.bmp");
    EXPECT_EQ(platform.desktop.wallpapers, (std::vector<std::string>{"C:\\a.bmp", ""}));
    EXPECT_EQ(platform.faults.Log().back(), "Registry.Read Control Panel\\desktop Wallpaper");
}

}  // namespace
}  // namespace tavrix::headless
