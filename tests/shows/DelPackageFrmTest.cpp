#include "PackageTest.h"
#include "core/HelpContexts.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;

class DelPackageFrmTest : public PackageTest {
  protected:
    DelPackageFrmTest() {
        MakeFirst();
        platform.disks.PutFile("C:\\Out\\TAVRIX.GID", "index");
        platform.disks.PutFile("C:\\Out\\SETUPTMP.EXE", "temporary");
    }

    DelPackageFrm& LoadDelete(const std::string& folder = "C:\\Out") {
        auto& dialog = app.Load<DelPackageFrm>(module);
        dialog.Show();
        dialog.Dir1.Path = folder;
        return dialog;
    }
    void ExpectSure(Answer reply) {
        Expect({.text = "You are about to remove the slide show package Trip from the directory:\r\n\r\n"
                        "C:\\Out\\\r\n\r\nWARNING:\r\nALL files will be deleted from:\r\n\r\nC:\\Out\\\r\n"
                        "C:\\Out\\SLIDES\\\r\n\r\nAre you sure?",
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply,
                .defaultButton = 2});
    }
    void ExpectDeleted() { Expect({.text = "The slide show package Trip has been deleted..."}); }
    void ExpectStays(const std::string& what, const std::string& folder) {
        Expect({.text = "There are other " + what + " in " + folder +
                        " that could not be removed by this command, you may want to delete these later...",
                .icon = forms::BoxIcon::Exclamation});
    }
    void ExpectNo(const std::string& text) { Expect({.text = text, .icon = forms::BoxIcon::Exclamation}); }
    /// The user deletes the package.
    void Delete() {
        Press(LoadDelete().CmdDelete);
        EXPECT_FALSE(module.Busy());
    }
    std::map<std::string, std::string> FilesBelow(const std::string& folder) const {
        auto files = platform.disks.AllFiles();
        std::erase_if(files, [&](const auto& file) { return !file.first.starts_with(folder); });
        return files;
    }
};

TEST_F(DelPackageFrmTest, TellsWhetherAPackageIsThere) {
    PackageSetting("PackageDestination", "C:\\Out");
    auto& dialog = app.Load<DelPackageFrm>(module);
    dialog.Show();
    EXPECT_EQ(dialog.Caption.Get(), "Tavrix - [Delete Package]");
    EXPECT_EQ(dialog.HelpContext, HelpContext::DeletePackage);
    EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\Out");
    EXPECT_EQ(dialog.lblMsg.Caption.Get(), "Package directory located!");
    dialog.Dir1.Path = "C:\\Shows";
    EXPECT_EQ(dialog.lblMsg.Caption.Get(), "Select location of the package to delete...");
    platform.disks.PutFolder("C:\\Shows\\Slides");
    dialog.Dir1.Path = "C:\\";
    dialog.Dir1.Path = "C:\\Shows";
    EXPECT_EQ(dialog.lblMsg.Caption.Get(),
              "Unable to locate slide show file in selected package directory...");
}

TEST_F(DelPackageFrmTest, APackageGoesWithItsFolder) {
    for (const bool toBin : {true, false}) {
        module.config.UseRecycleBin = toBin;
        if (!toBin) {
            platform.disks.PutFolder("C:\\Out");
            MakeFirst();
        }
        const std::size_t trashed = platform.shell.trash.size();
        ExpectSure(Answer::Yes);
        ExpectDeleted();
        auto& dialog = LoadDelete();
        Press(dialog.CmdDelete);
        EXPECT_FALSE(platform.disks.Exists("C:\\Out"));
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\");
        EXPECT_EQ(platform.shell.trash.size() > trashed, toBin);
        EXPECT_EQ(At("C:\\Shows\\a.bmp"), "picture a");
        app.Unload(dialog);
    }
}

TEST_F(DelPackageFrmTest, NoLeavesAllAsItIs) {
    const auto before = platform.disks.AllFiles();
    ExpectSure(Answer::No);
    Delete();
    EXPECT_EQ(platform.disks.AllFiles(), before);
}

TEST_F(DelPackageFrmTest, SomeFoldersAreNoPackages) {
    platform.disks.PutFolder("C:\\Windows\\Fonts");
    platform.disks.PutLink("C:\\Tavrix", "C:\\Link");
    for (const char* folder : {"C:\\Tavrix", "C:\\Tavrix\\SLIDES", "C:\\Windows", "C:\\Windows\\System",
                               "C:\\Windows\\Fonts", "C:\\", "C:\\Link"}) {
        platform.disks.PutFile(std::string(folder) + "\\setup.ini", "[Tavrix Setup]\r\nSlideShowName=x\r\n");
        const auto before = platform.disks.AllFiles();
        ExpectNo(
            "You may not delete any packages from:\r\n\r\nC:\\Tavrix\\ or C:\\Windows\\ or "
            "C:\\Windows\\System\\ or C:\\\r\n\r\nUnable to continue...");
        auto& dialog = LoadDelete(folder);
        Press(dialog.CmdDelete);
        EXPECT_EQ(platform.disks.AllFiles(), before);
        app.Unload(dialog);
    }
}

TEST_F(DelPackageFrmTest, AFolderWithoutSetupIsNoPackage) {
    ExpectNo(
        "The selected folder is not a complete package directory, SETUP.INI could not be "
        "found.\r\n\r\nUnable "
        "to delete selected package...");
    Press(LoadDelete("C:\\Shows").CmdDelete);
    platform.disks.PutFile("C:\\Shows\\SETUP.INI", "[Tavrix Setup]\r\nSlideShowName=  \r\n");
    ExpectNo(
        "The selected folder is not a complete package directory, the package name could not be "
        "found.\r\n\r\nUnable to delete selected package...");
    Press(app.Loaded<DelPackageFrm>()->CmdDelete);
    EXPECT_EQ(At("C:\\Shows\\a.bmp"), "picture a");
}

TEST_F(DelPackageFrmTest, WhatIsNotOfThePackageStays) {
    platform.disks.PutFile("C:\\Out\\SLIDES\\notes", "mine");
    platform.disks.PutFile("C:\\Out\\SLIDES\\more\\x.bmp", "mine too");
    platform.disks.PutFile("C:\\Out\\letter", "mine as well");
    ExpectSure(Answer::Yes);
    ExpectStays("folders", "C:\\Out\\SLIDES\\");
    ExpectStays("folders", "C:\\Out\\");
    ExpectDeleted();
    Delete();
    const std::map<std::string, std::string> stay{{"C:\\Out\\SLIDES\\notes", "mine"},
                                                  {"C:\\Out\\SLIDES\\more\\x.bmp", "mine too"},
                                                  {"C:\\Out\\letter", "mine as well"}};
    EXPECT_EQ(FilesBelow("C:\\Out\\"), stay);
}

TEST_F(DelPackageFrmTest, FilesThatStayAreTold) {
    platform.disks.PutFile("C:\\Out\\letter", "mine");
    ExpectSure(Answer::Yes);
    ExpectStays("files", "C:\\Out\\");
    ExpectDeleted();
    Delete();
    EXPECT_EQ(At("C:\\Out\\letter"), "mine");
    EXPECT_FALSE(platform.disks.Exists("C:\\Out\\SLIDES"));
}

TEST_F(DelPackageFrmTest, AllKindsOfImagesAndSoundsGo) {
    for (const char* ending : {"BMP", "dib", "Gif", "JPG", "JIF", "JPE", "JPEG", "WMF", "EMF", "ICO", "RLE",
                               "CUR", "WAV", "MID", "TVS"})
        platform.disks.PutFile("C:\\Out\\SLIDES\\x." + std::string(ending), "");
    ExpectSure(Answer::Yes);
    ExpectDeleted();
    Delete();
    EXPECT_FALSE(platform.disks.Exists("C:\\Out"));
}

TEST_F(DelPackageFrmTest, AFolderOfSlidesThatIsALinkIsLeftAlone) {
    platform.disks.Remove("C:\\Out\\SLIDES");
    platform.disks.PutLink("C:\\Shows", "C:\\Out\\SLIDES");
    ExpectSure(Answer::Yes);
    ExpectStays("folders", "C:\\Out\\");
    ExpectDeleted();
    Delete();
    EXPECT_EQ(At("C:\\Shows\\a.bmp"), "picture a");
    EXPECT_NE(At(ShowPath), "none");
}

TEST_F(DelPackageFrmTest, LibrariesGoByTheirList) {
    platform.disks.PutFile("C:\\Out\\SETUP.LST",
                           "libx.so\r\n..\\letter\r\nC:\\Shows\\a.bmp\r\n..\r\nSLIDES/..\r\nliby.so\n");
    platform.disks.PutFile("C:\\Out\\TAVRIX.LIB\\libx.so", "x");
    platform.disks.PutFile("C:\\Out\\TAVRIX.LIB\\liby.so", "y");
    platform.disks.PutFile("C:\\Out\\letter", "mine");
    ExpectSure(Answer::Yes);
    ExpectStays("files", "C:\\Out\\");
    ExpectDeleted();
    Delete();
    EXPECT_FALSE(platform.disks.Exists("C:\\Out\\TAVRIX.LIB"));
    EXPECT_EQ(At("C:\\Out\\letter"), "mine");
    EXPECT_EQ(At("C:\\Shows\\a.bmp"), "picture a");
}

TEST_F(DelPackageFrmTest, ALibraryThatIsNotListedStays) {
    platform.disks.PutFile("C:\\Out\\TAVRIX.LIB\\mine", "x");
    ExpectSure(Answer::Yes);
    ExpectStays("files", "C:\\Out\\TAVRIX.LIB\\");
    ExpectStays("folders", "C:\\Out\\");
    ExpectDeleted();
    Delete();
    EXPECT_EQ(At("C:\\Out\\TAVRIX.LIB\\mine"), "x");
}

TEST_F(DelPackageFrmTest, WithoutATrashFilesGoForGood) {
    platform.faults.FailAlways(Service::Shell, "Trash", ErrorNumber::PathFileAccessError);
    ExpectSure(Answer::Yes);
    ExpectDeleted();
    Delete();
    EXPECT_FALSE(platform.disks.Exists("C:\\Out"));
}

TEST_F(DelPackageFrmTest, AFileThatCannotBeDeletedEndsIt) {
    module.config.UseRecycleBin = false;
    platform.disks.SetReadOnly("C:\\Out\\SLIDES\\b.bmp", true);
    ExpectSure(Answer::Yes);
    Expect({.text = "Unable to delete this file:\r\n\r\nC:\\Out\\SLIDES\\b.bmp\r\n\r\nPermission denied...",
            .icon = forms::BoxIcon::Stop});
    Delete();
    EXPECT_EQ(At("C:\\Out\\SLIDES\\b.bmp"), "picture b");
    EXPECT_EQ(At("C:\\Out\\TAVRIX.EXE"), "bytes of TAVRIX.EXE");
}

TEST_F(DelPackageFrmTest, AProgramFileThatCannotBeDeletedEndsItAndItCanBeTriedAgain) {
    module.config.UseRecycleBin = false;
    platform.disks.SetReadOnly("C:\\Out\\SETUPTMP.EXE", true);
    ExpectSure(Answer::Yes);
    Expect({.text = "Unable to delete program file:\r\n\r\nC:\\Out\\SETUPTMP.EXE\r\n\r\nPermission denied...",
            .icon = forms::BoxIcon::Stop});
    Delete();
    platform.disks.SetReadOnly("C:\\Out\\SETUPTMP.EXE", false);
    ExpectSure(Answer::Yes);
    ExpectDeleted();
    Press(app.Loaded<DelPackageFrm>()->CmdDelete);
    EXPECT_FALSE(platform.disks.Exists("C:\\Out"));
}

TEST_F(DelPackageFrmTest, AFolderThatCannotBeRemovedIsTold) {
    platform.disks.PutFile("C:\\Out\\SLIDES\\hidden", "");
    platform.disks.SetHidden("C:\\Out\\SLIDES\\hidden", true);
    ExpectSure(Answer::Yes);
    Expect({.text = "Unable to remove the folder C:\\Out\\SLIDES\\\r\n\r\nPath/File access error...",
            .icon = forms::BoxIcon::Stop});
    Delete();
    EXPECT_TRUE(platform.disks.Exists("C:\\Out\\SLIDES\\hidden"));
}

TEST_F(DelPackageFrmTest, APackageInTheRootOfADriveLeavesTheDrive) {
    platform.disks.AddDrive('D', DriveType::Removable);
    platform.disks.InsertDisk('D');
    platform.disks.PutFile("D:\\SETUP.INI", "[Tavrix Setup]\r\nSlideShowName=Trip\r\n");
    platform.disks.PutFile("D:\\SLIDES\\s.tvs", "");
    auto& dialog = LoadDelete();
    dialog.Drive1.Drive = "D:";
    Expect(
        {.text =
             "You are about to remove the slide show package Trip from the directory:\r\n\r\nD:\\\r\n\r\n"
             "WARNING:\r\nALL files will be deleted from:\r\n\r\nD:\\\r\nD:\\SLIDES\\\r\n\r\nAre you sure?",
         .icon = forms::BoxIcon::Question,
         .buttons = forms::BoxButtons::YesNo,
         .reply = Answer::Yes,
         .defaultButton = 2});
    ExpectDeleted();
    Press(dialog.CmdDelete);
    EXPECT_TRUE(FilesBelow("D:\\").empty());
    EXPECT_EQ(dialog.lblMsg.Caption.Get(), "Select location of the package to delete...");
}

TEST_F(DelPackageFrmTest, ASecondPressWhileItWorksDoesNothing) {
    auto& dialog = LoadDelete();
    ExpectSure(Answer::Yes);
    ExpectDeleted();
    toolkit.AtYield(3, [&] {
        Press(dialog.CmdDelete);
        EXPECT_FALSE(app.Unload(dialog));
    });
    Press(dialog.CmdDelete);
    EXPECT_TRUE(app.Unload(dialog));
}

}  // namespace
}  // namespace tavrix::test
