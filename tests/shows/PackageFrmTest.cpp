#include "PackageTest.h"
#include "core/HelpContexts.h"
#include "shows/package/PackageFolders.h"
#include "shows/package/PackageSize.h"

namespace tavrix::test {
namespace {

using forms::Answer;

class PackageFrmTest : public PackageTest {
  protected:
    void ExpectRefusedDestination(const std::string& folder, const std::string& text, bool isNamed = true) {
        auto& dialog = Load();
        dialog.Dir2.Path = folder;
        ExpectRefusal(text + (isNamed
                                  ? "\r\n\r\n" + folder +
                                        "\r\n\r\nSelect another destination location and then try again..."
                                  : ""));
        const auto before = platform.disks.AllFiles();
        Press(dialog.CmdPackage);
        EXPECT_EQ(platform.disks.AllFiles(), before);
        app.Unload(dialog);
    }
};

TEST_F(PackageFrmTest, SaysWhatItIs) {
    const auto& dialog = Load();
    EXPECT_EQ(dialog.Caption.Get(), Title);
    EXPECT_EQ(dialog.HelpContext, HelpContext::PackageShow);
    EXPECT_EQ(dialog.lblName.Caption.Get(), "Pac&kage Name:");
    EXPECT_EQ(dialog.lblSize.Caption.Get(), "Si&ze (Megabytes):");
    EXPECT_EQ(dialog.CheckScreenSaver.Caption.Get(), "Make this a \"&Screen Saver\" package.");
    EXPECT_EQ(dialog.CheckMakeDefault.Caption.Get(), "Set user's &default screen saver to this one.");
    EXPECT_EQ(dialog.CheckShortcut.Caption.Get(), "Create a shortcut in Start &Menu for the slide show.");
    EXPECT_EQ(dialog.File1.Pattern.Get(), "*.tvs");
}

TEST_F(PackageFrmTest, BeginsWithWhatTheSettingsSay) {
    platform.disks.PutFile("C:\\Source\\z.tvs", "");
    platform.disks.PutFile("C:\\Source\\s.tvs", "");
    PackageSetting("PackageSource", "  C:\\Source  ");
    PackageSetting("PackageScreenSaver", "tRuE");
    PackageSetting("PackageDefaultSaver", "false");
    PackageSetting("PackageShortcut", "true");
    const auto& dialog = Load();
    EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\Source");
    EXPECT_EQ(dialog.File1.FileName(), "s.tvs");
    EXPECT_EQ(dialog.Dir2.Path.Get(), "C:\\Out");
    EXPECT_EQ(dialog.txtName.Text.Get(), "Trip");
    EXPECT_EQ(dialog.txtSize.Text.Get(), "7.5");
    EXPECT_TRUE(dialog.CheckScreenSaver.Value);
    EXPECT_FALSE(dialog.CheckMakeDefault.Value);
    EXPECT_TRUE(dialog.CheckShortcut.Value);
    EXPECT_TRUE(dialog.CheckMakeDefault.Enabled);
}

TEST_F(PackageFrmTest, WithoutSettingsItHasItsOwn) {
    platform.disks.Remove(SettingsPath);
    module.config.LastSlideShow.clear();
    auto& dialog = Load();
    EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\Tavrix\\SLIDES");
    EXPECT_EQ(dialog.txtName.Text.Get(), "Untitled");
    EXPECT_EQ(dialog.txtSize.Text.Get(), "Unknown");
    EXPECT_FALSE(dialog.CheckScreenSaver.Value);
    EXPECT_TRUE(dialog.CheckMakeDefault.Value);
    EXPECT_FALSE(dialog.CheckMakeDefault.Enabled);
    EXPECT_FALSE(dialog.CheckShortcut.Value);
    app.Unload(dialog);
    EXPECT_EQ(SavedSetting("PackageName"), "Untitled");
    EXPECT_EQ(SavedSetting("PackageSize"), "Unknown");
    EXPECT_EQ(SavedSetting("PackageScreenSaver"), "False");
    EXPECT_EQ(SavedSetting("PackageDefaultSaver"), "True");
    EXPECT_EQ(SavedSetting("PackageShortcut"), "False");
}

TEST_F(PackageFrmTest, WordsThatAreNoFlagsHaveTheDefault) {
    PackageSetting("PackageScreenSaver", "yes");
    PackageSetting("PackageDefaultSaver", "no");
    PackageSetting("PackageShortcut", "1");
    const auto& dialog = Load();
    EXPECT_FALSE(dialog.CheckScreenSaver.Value);
    EXPECT_TRUE(dialog.CheckMakeDefault.Value);
    EXPECT_FALSE(dialog.CheckShortcut.Value);
}

TEST_F(PackageFrmTest, TheLastShowIsChosenInItsFolder) {
    platform.disks.PutFile("C:\\Shows\\a.tvs", "");
    const auto& dialog = Load();
    EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\Shows");
    EXPECT_EQ(dialog.File1.FileName(), "s.tvs");
}

TEST_F(PackageFrmTest, AShowOfTheSameNameElsewhereIsNotTheLastOne) {
    platform.disks.PutFile("C:\\Source\\a.tvs", "");
    platform.disks.PutFile("C:\\Source\\s.tvs", "");
    PackageSetting("PackageSource", "C:\\Source");
    EXPECT_EQ(Load().File1.FileName(), "a.tvs");
}

TEST_F(PackageFrmTest, APathThatWasCutStaysInTheSettings) {
    const std::string path = "C:\\" + std::string(200, 'x');
    PackageSetting("PackageSource", path);
    auto& dialog = Load();
    app.Unload(dialog);
    EXPECT_EQ(SavedSetting("PackageSource"), path);
}

TEST_F(PackageFrmTest, TheDefaultSaverGoesWithTheSaver) {
    auto& dialog = Load();
    dialog.CheckScreenSaver.Value = true;
    EXPECT_TRUE(dialog.CheckMakeDefault.Enabled);
    dialog.CheckScreenSaver.Value = false;
    EXPECT_FALSE(dialog.CheckMakeDefault.Enabled);
}

TEST_F(PackageFrmTest, NoShowIsNoPackageAndNoSize) {
    auto& dialog = Load();
    dialog.Dir1.Path = "C:\\p";
    ExpectRefusal(
        std::string("No slide show files could be found in the source directory, unable to estimate "
                    "size of package.") +
        TriesAgain);
    Press(dialog.CmdSize);
    ExpectRefusal(
        std::string("No slide show files could be found in the source directory, unable to create a "
                    "slide show package.") +
        TriesAgain);
    Press(dialog.CmdPackage);
    dialog.CheckScreenSaver.Value = true;
    ExpectRefusal(
        std::string("No slide show files could be found in the source directory, unable to create a "
                    "screen saver package.") +
        TriesAgain);
    Press(dialog.CmdPackage);
    EXPECT_EQ(dialog.txtSize.Text.Get(), "7.5");
}

TEST_F(PackageFrmTest, NothingSelectedIsTold) {
    auto& dialog = Load();
    dialog.File1.Refresh();
    ExpectRefusal(std::string("A slide show file has not be selected, unable to estimate size of package.") +
                  TriesAgain);
    Press(dialog.CmdSize);
    ExpectRefusal(
        std::string("A slide show file has not be selected, unable to create a slide show package.") +
        TriesAgain);
    Press(dialog.CmdPackage);
}

TEST_F(PackageFrmTest, TheSizeIsThatOfAllFilesAndTheProgram) {
    platform.disks.PutFile("C:\\Shows\\a.bmp", std::string(2'000'000, 'a'));
    platform.disks.PutFile("C:\\p\\b.bmp", std::string(100'000, 'b'));
    platform.disks.PutFile("C:\\m\\a.wav", std::string(49'999, 's'));
    auto& dialog = Load();
    Press(dialog.CmdSize);
    EXPECT_EQ(dialog.txtSize.Text.Get(), "8.1");
    platform.disks.PutFile("C:\\m\\a.wav", std::string(50'000, 's'));
    Press(dialog.CmdSize);
    EXPECT_EQ(dialog.txtSize.Text.Get(), "8.2");
    EXPECT_EQ(MegabytesText(1'234'567'890'000, {}), "1,234,567.9");
    EXPECT_EQ(MegabytesText(6'000'000, {.thousands = ".", .decimal = ","}), "6,0");
    EXPECT_FALSE(module.Busy());
}

TEST_F(PackageFrmTest, APictureThatMovedIsCountedBesideTheShow) {
    PutShow(Header() + Slides({"D:\\gone\\a.bmp", ""}));
    platform.disks.PutFile("C:\\Shows\\a.bmp", std::string(1'000'000, 'a'));
    auto& dialog = Load();
    Press(dialog.CmdSize);
    EXPECT_EQ(dialog.txtSize.Text.Get(), "7.0");
}

TEST_F(PackageFrmTest, AShowWithoutPicturesHasNoSize) {
    PutShow(Header());
    auto& dialog = Load();
    ExpectRefusal("The selected slide show does not contain any images, unable to calculate package size...");
    Press(dialog.CmdSize);
    EXPECT_EQ(dialog.txtSize.Text.Get(), "Unknown");
}

TEST_F(PackageFrmTest, AMissingPictureEndsTheCount) {
    PutShow(Header() + Slides({"a.bmp", "", "C:\\p\\gone.bmp", ""}));
    auto& dialog = Load();
    ExpectRefusal(
        "The selected slide show is missing an image, unable to calculate package size...\r\nFile not found: "
        "C:\\p\\gone.bmp");
    Press(dialog.CmdSize);
    EXPECT_EQ(dialog.txtSize.Text.Get(), "Unknown");
}

TEST_F(PackageFrmTest, SomeFoldersAreNoDestinations) {
    platform.disks.PutFolder("C:\\Windows\\Fonts\\More");
    platform.disks.PutFile("C:\\Base\\SLIDES\\s.tvs", "");
    ExpectRefusedDestination(
        "C:\\Tavrix", "You may not create a slide show package in your Tavrix installation directory:");
    ExpectRefusedDestination("C:\\Windows",
                             "You may not create a slide show package in your WINDOWS directory:");
    ExpectRefusedDestination("C:\\Windows\\System",
                             "You may not create a slide show package in your WINDOWS\\SYSTEM directory:");
    ExpectRefusedDestination("C:\\Windows\\Fonts\\More",
                             "You should not create a slide show package in a WINDOWS sub-directory:");
    ExpectRefusedDestination(
        "C:\\",
        "You should not create a slide show package in the root directory of your WINDOWS drive:\r\n\r\n"
        "Create and/or select a folder to create package in and then try again...",
        false);
    ExpectRefusedDestination("C:\\Tavrix\\SLIDES",
                             "You should not create a slide show package in your Tavrix \\SLIDES directory:");
    ExpectRefusedDestination(
        "C:\\Shows", "You may not create a slide show package in the same directory as the source files.");
    PackageSetting("PackageSource", "C:\\Base\\SLIDES");
    ExpectRefusedDestination("C:\\Base",
                             "You may not create a slide show package where the source file(s) are in the "
                             "destination's \\SLIDES directory.");
}

TEST_F(PackageFrmTest, TheKindStandsInTheRefusals) {
    PackageSetting("PackageScreenSaver", "True");
    ExpectRefusedDestination("C:\\Windows",
                             "You may not create a screen saver package in your WINDOWS directory:");
}

TEST_F(PackageFrmTest, AnotherPathToAFolderIsThatFolder) {
    platform.disks.PutLink("C:\\Tavrix", "C:\\Link");
    platform.disks.PutLink("C:\\Shows", "C:\\Linked shows");
    ExpectRefusedDestination(
        "C:\\Link", "You may not create a slide show package in your Tavrix installation directory:");
    ExpectRefusedDestination(
        "C:\\Linked shows",
        "You may not create a slide show package in the same directory as the source files.");
    platform.disks.PutLink("C:\\Shows", "C:\\Out\\SLIDES");
    ExpectRefusedDestination("C:\\Out",
                             "You may not create a slide show package where the source file(s) are in the "
                             "destination's \\SLIDES directory.");
}

TEST_F(PackageFrmTest, NoWindowsFolderRefusesNothing) {
    platform.files.SetFolder(KnownFolder::Windows, "");
    platform.files.SetFolder(KnownFolder::System, "");
    EXPECT_EQ(RefusedDestination(module, "C:\\Out", "C:\\Shows\\", "slide show"), std::nullopt);
    EXPECT_EQ(RefusedDestination(module, "C:\\Windows", "C:\\Shows\\", "slide show"), std::nullopt);
    EXPECT_EQ(RefusedDestination(module, "C:\\", "C:\\Shows\\", "slide show"), std::nullopt);
}

TEST_F(PackageFrmTest, ANameIsOffered) {
    const std::string question =
        "You need to give your slide show package a name first.\r\n\r\nDefault Name:\r\ns\r\n\r\nUse the "
        "default package name?";
    auto& dialog = Load();
    for (const char* name : {"Untitled", "", "  "}) {
        dialog.txtName.Text = name;
        ExpectQuestion(question, Answer::No);
        Press(dialog.CmdPackage);
    }
    EXPECT_EQ(dialog.txtName.Text.Get(), "  ");
    dialog.txtSize.Text = "";
    ExpectQuestion(question, Answer::Yes);
    ExpectRefusal(
        "You need to specify the total size of your package in megabytes, unable to create slide show "
        "package...");
    Press(dialog.CmdPackage);
    EXPECT_EQ(dialog.txtName.Text.Get(), "s");
    EXPECT_TRUE(platform.files.Folders("C:\\Out").empty());
}

TEST_F(PackageFrmTest, AnUnknownSizeIsAskedAbout) {
    PackageSetting("PackageSize", "Unknown");
    auto& dialog = Load();
    ExpectQuestion(
        "You should specify the total size of your slide show package in megabytes.\r\n\r\nDo you want to "
        "continue anyway?",
        Answer::No);
    Press(dialog.CmdPackage);
    EXPECT_TRUE(platform.files.Folders("C:\\Out").empty());
}

TEST_F(PackageFrmTest, NoToTheSummaryMakesNothing) {
    PackageSetting("PackageScreenSaver", "True");
    ExpectSummary(Answer::No, "Screen Saver");
    const auto before = platform.disks.AllFiles();
    Press(Load().CmdPackage);
    EXPECT_EQ(platform.disks.AllFiles(), before);
}

TEST_F(PackageFrmTest, WhatWasMadeIsSeenInTheDestination) {
    auto& dialog = Load();
    const int before = dialog.Dir2.ListCount();
    ExpectSummary();
    ExpectCreated();
    Press(dialog.CmdPackage);
    EXPECT_GT(dialog.Dir2.ListCount(), before);
}

TEST_F(PackageFrmTest, FilesInTheDestinationAreAskedAbout) {
    platform.disks.PutFile("C:\\Out\\notes", "mine");
    ExpectQuestion(
        "The selected package directory already has files in it:\r\n\r\nC:\\Out\r\n\r\nUse this directory "
        "anyway?",
        Answer::No);
    Press(Load().CmdPackage);
    EXPECT_TRUE(platform.files.Folders("C:\\Out").empty());
}

TEST_F(PackageFrmTest, FoldersInTheDestinationAreAskedAbout) {
    const std::string ending = "\r\n\r\nC:\\Out\r\n\r\nCreate a slide show package directory here anyway?";
    platform.disks.PutFolder("C:\\Out\\Tavrix.lib");
    EXPECT_EQ(FolderQuestion(platform.files.Folders("C:\\Out"), "C:\\Out", "slide show"), std::nullopt);
    platform.disks.PutFolder("C:\\Out\\Mine");
    EXPECT_EQ(FolderQuestion(platform.files.Folders("C:\\Out"), "C:\\Out", "slide show"),
              "The selected package directory contains folders that are not related to Tavrix:" + ending);
    platform.disks.PutFolder("C:\\Out\\Slides");
    EXPECT_EQ(FolderQuestion(platform.files.Folders("C:\\Out"), "C:\\Out", "slide show"),
              "The selected package directory already has a SLIDES folder.  Other directories not related to "
              "Tavrix also exist in this folder:" +
                  ending);
    platform.disks.Remove("C:\\Out\\Mine");
    const std::string slidesOnly =
        "The selected package directory already has a SLIDES folder in it:" + ending;
    EXPECT_EQ(FolderQuestion(platform.files.Folders("C:\\Out"), "C:\\Out", "slide show"), slidesOnly);
    ExpectSummary();
    ExpectQuestion(slidesOnly, Answer::No);
    Press(Load().CmdPackage);
    EXPECT_TRUE(platform.files.List("C:\\Out", "*.*").empty());
}

TEST_F(PackageFrmTest, AShowThatIsThereIsAskedAbout) {
    platform.disks.PutFile("C:\\Out\\SLIDES\\s.tvs", "former");
    ExpectSummary();
    ExpectSlidesThere();
    ExpectQuestion(
        "The destination slide show file (.TVS) already exists:\r\n\r\nC:\\Out\\SLIDES\\s.tvs\r\n\r\n"
        "Overwrite this file with new data?",
        Answer::No);
    Press(Load().CmdPackage);
    EXPECT_EQ(At("C:\\Out\\SLIDES\\s.tvs"), "former");
}

TEST_F(PackageFrmTest, ADestinationThatCannotBeReadIsTold) {
    auto& dialog = Load();
    platform.disks.SetUnreadable("C:\\Out", true);
    ExpectFailure(
        "An unexpected error occurred, unable to package Trip.  Check your source file(s) for problems "
        "and/or "
        "missing files...\r\n\r\nPermission denied...");
    Press(dialog.CmdPackage);
}

TEST_F(PackageFrmTest, AFolderIsMadeInTheDestination) {
    auto& dialog = Load();
    toolkit.ExpectInput({.prompt = "Enter the name of the folder to create:",
                         .title = Title,
                         .text = "New Folder",
                         .reply = "Package"});
    Press(dialog.CmdNewFolder);
    EXPECT_EQ(dialog.Dir2.Path.Get(), "C:\\Out\\Package");
    EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\Shows");
}

TEST_F(PackageFrmTest, ADroppedShowIsChosen) {
    platform.disks.PutFile("C:\\q\\a.tvs", "");
    platform.disks.PutFile("C:\\q\\z.tvs", "");
    platform.shell.links["C:\\desk\\z.lnk"] = "C:\\q\\z.tvs";
    auto& dialog = Load();
    dialog.File1.Deliver(forms::DropEvent{{"C:\\desk\\z.lnk"}});
    EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\q");
    EXPECT_EQ(dialog.File1.FileName(), "z.tvs");
    for (const char* other : {"C:\\p\\b.bmp", "C:\\q\\gone.tvs", "C:\\desk\\other.lnk"}) {
        ExpectRefusal("The file that was dropped here is not a valid Tavrix slide show (.TVS) file.");
        dialog.File1.Deliver(forms::DropEvent{{other}});
    }
    EXPECT_EQ(dialog.File1.FileName(), "z.tvs");
}

TEST_F(PackageFrmTest, BothFolderButtonsGoToTheFavoriteFolder) {
    module.config.FavoriteFolder = "C:\\p";
    auto& dialog = Load();
    Press(dialog.CmdFF2);
    EXPECT_EQ(dialog.Dir2.Path.Get(), "C:\\p");
    EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\Shows");
    Press(dialog.CmdFF);
    EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\p");
}

}  // namespace
}  // namespace tavrix::test
