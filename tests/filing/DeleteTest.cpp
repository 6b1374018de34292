// Images and empty folders are deleted, and the image on show.

#include "FilingTest.h"
#include "filing/deleting/DeleteFolderFrm.h"
#include "filing/deleting/DeleteImgFrm.h"

namespace tavrix::test {
namespace {

using forms::Answer;

class DeleteImgFrmTest : public FilingTest {
  protected:
    void InDialog(const std::function<void(DeleteImgFrm&)>& user) {
        In<DeleteImgFrm>(View().menu.mnuDeleteImages, "DeleteImgFrm", user);
    }
    void ExpectEmpty(const std::string& path, Answer reply) {
        ExpectQuestion("This directory is empty:\r\n\r\n" + path + "\r\n\r\nWould you like to delete it?",
                       reply);
    }
    void ExpectSeveral(int count, Answer reply) {
        ExpectQuestion("You are about to delete " + std::to_string(count) +
                           " files from the directory:\r\n\r\nC:\\p\\\r\n\r\nAre you sure?",
                       reply);
    }
    void ExpectTrash(const Names& paths) {
        Names trashed;
        for (const auto& file : platform.shell.trash)
            trashed.push_back(file.path);
        EXPECT_EQ(trashed, paths);
    }
};

TEST_F(DeleteImgFrmTest, SaysWhatItIs) {
    Begin();
    InDialog([this](DeleteImgFrm& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Delete Image(s)");
        EXPECT_EQ(dialog.HelpContext, 690U);
        EXPECT_EQ(dialog.CmdDelete.Caption.Get(), "&Delete");
        EXPECT_EQ(dialog.CmdDelete.ToolTip.Get(), "Delete the selected file(s).");
        EXPECT_EQ(dialog.Selection.CmdAll.Name(), "CmdSelectAll");
        EXPECT_EQ(dialog.Selection.CmdAll.Caption.Get(), "Select &All");
        EXPECT_EQ(dialog.Selection.CmdAll.ToolTip.Get(), "Select all of the files in the file list.");
        EXPECT_EQ(dialog.Selection.CmdNone.Name(), "CmdSelectNone");
        EXPECT_EQ(dialog.Selection.CmdNone.Caption.Get(), "&Select &None");
        EXPECT_EQ(dialog.Selection.CmdNone.ToolTip.Get(), "Deselect all files in the file list.");
        EXPECT_EQ(dialog.Selection.CmdInverse.Caption.Get(), "&Inverse");
        EXPECT_EQ(dialog.Selection.CmdInverse.ToolTip.Get(), "Inverse selections.");
        EXPECT_EQ(dialog.Image1.ToolTip.Get(), "Deleted files will NOT be stored in recycle bin!");
        EXPECT_FALSE(dialog.Image1.Visible);
        EXPECT_TRUE(dialog.CmdDelete.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\p");
        EXPECT_EQ(dialog.Chooser.File1.SelectedCount(), 0);
        Press(dialog.CmdHelp);
        EXPECT_EQ(platform.help.calls.back().data, 690U);
        ExpectWarning("The selected drive is currently not available...");
        dialog.Chooser.Drive1.Deliver(forms::RowEvent{0});
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\Tavrix");
        Press(dialog.CmdCancel);
    });
    module.config.UseRecycleBin = false;
    InDialog([](DeleteImgFrm& dialog) { EXPECT_TRUE(dialog.Image1.Visible); });
}

TEST_F(DeleteImgFrmTest, AnUnsavedImageLeavesTheListsWhereTheyAre) {
    Begin();
    module.CurrentImage = "C:\\Temp\\Untitled.BMP";
    InDialog([](DeleteImgFrm& dialog) { EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\p"); });
}

TEST_F(DeleteImgFrmTest, TheButtonsSelect) {
    Begin();
    InDialog([this](DeleteImgFrm& dialog) {
        Press(dialog.Selection.CmdAll);
        EXPECT_EQ(dialog.Chooser.File1.SelectedCount(), 4);
        Press(dialog.Selection.CmdNone);
        EXPECT_EQ(dialog.Chooser.File1.SelectedCount(), 0);
        dialog.Chooser.File1.Select(0);
        Press(dialog.Selection.CmdInverse);
        EXPECT_EQ(dialog.Selection.Names(), (Names{"b.bmp", "c.bmp", "x.jpg"}));
        dialog.Chooser.Dir1.Path = "C:\\q";
        ExpectTold("There are no image files in the current directory to select...");
        Press(dialog.Selection.CmdAll);
    });
}

TEST_F(DeleteImgFrmTest, OneFileIsAskedAboutByItsPath) {
    Setting("Recent2", "C:\\p\\a.bmp");
    Begin();
    InDialog([this](DeleteImgFrm& dialog) {
        Select(dialog.Chooser.File1, {"a.bmp"});
        ExpectDelete("C:\\p\\a.bmp", Answer::No);
        Press(dialog.CmdDelete);
        EXPECT_EQ(At("C:\\p\\a.bmp"), "a.bmp");
        EXPECT_EQ(std::ranges::count(Recent(), "C:\\p\\a.bmp"), 1);
        Select(dialog.Chooser.File1, {"a.bmp"});
        ExpectDelete("C:\\p\\a.bmp", Answer::Yes);
        Press(dialog.CmdDelete);
        EXPECT_EQ(Listed(dialog.Chooser.File1), (Names{"b.bmp", "c.bmp", "x.jpg"}));
        EXPECT_FALSE(dialog.Unloaded());
    });
    ExpectTrash({"C:\\p\\a.bmp"});
    EXPECT_EQ(std::ranges::count(Recent(), "C:\\p\\a.bmp"), 0);
}

TEST_F(DeleteImgFrmTest, SeveralAreAskedAboutOnce) {
    Setting("Recent2", "C:\\p\\c.bmp");
    platform.disks.PutFile("C:\\p\\z.bmp", "z.bmp");  // behind the image that stays
    Begin();
    InDialog([this](DeleteImgFrm& dialog) {
        Press(dialog.Selection.CmdAll);
        ExpectSeveral(5, Answer::No);
        Press(dialog.CmdDelete);
        EXPECT_EQ(dialog.Chooser.File1.SelectedCount(), 5);
        ExpectTrash({});
        ExpectSeveral(5, Answer::Yes);
        ExpectTold("Unable to delete:\r\n\r\nC:\\p\\x.jpg\r\n\r\nImage is currently open...");
        Press(dialog.CmdDelete);
        EXPECT_EQ(Listed(dialog.Chooser.File1), (Names{"x.jpg"}));
        EXPECT_FALSE(module.Busy());
    });
    ExpectTrash({"C:\\p\\a.bmp", "C:\\p\\b.bmp", "C:\\p\\c.bmp", "C:\\p\\z.bmp"});
    EXPECT_EQ(At(ImagePath), image);
    EXPECT_EQ(std::ranges::count(Recent(), "C:\\p\\c.bmp"), 0);
}

TEST_F(DeleteImgFrmTest, WithoutTheBinItIsForGood) {
    Begin();
    module.config.UseRecycleBin = false;
    InDialog([this](DeleteImgFrm& dialog) {
        Select(dialog.Chooser.File1, {"a.bmp"});
        ExpectQuestion("Are you sure you want to delete the following file?\r\n\r\nC:\\p\\a.bmp",
                       Answer::Yes);
        Press(dialog.CmdDelete);
        Select(dialog.Chooser.File1, {"b.bmp", "c.bmp"});
        ExpectSeveral(2, Answer::Yes);
        Press(dialog.CmdDelete);
    });
    ExpectTrash({});
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        EXPECT_FALSE(platform.disks.Exists("C:\\p\\" + std::string(name)));
}

TEST_F(DeleteImgFrmTest, TheImageOnShowStays) {
    Begin();
    InDialog([this](DeleteImgFrm& dialog) {
        Select(dialog.Chooser.File1, {"x.jpg"});
        module.CurrentImage = "C:\\P\\X.JPG";
        ExpectTold("Unable to delete this file, image is currently open...");
        Press(dialog.CmdDelete);
        EXPECT_FALSE(module.Busy());
        module.CurrentImage = ImagePath;
    });
    EXPECT_EQ(At(ImagePath), image);
}

TEST_F(DeleteImgFrmTest, SaysWhatIsMissing) {
    Begin();
    platform.disks.PutFile("C:\\q\\readme.txt", "text");
    InDialog([this](DeleteImgFrm& dialog) {
        ExpectTold(
            "Nothing was selected to delete.\r\n\r\nSelect the file(s) that you want to delete and then try "
            "again...");
        Press(dialog.CmdDelete);
        dialog.Chooser.Dir1.Path = "C:\\q";
        ExpectTold("There are no files in the selected directory to delete.");
        Press(dialog.CmdDelete);
    });
}

TEST_F(DeleteImgFrmTest, AFailureIsTold) {
    Begin();
    InDialog([this](DeleteImgFrm& dialog) {
        platform.shell.trashRefusal = ErrorNumber::PermissionDenied;
        Select(dialog.Chooser.File1, {"a.bmp"});
        ExpectDelete("C:\\p\\a.bmp", Answer::Yes);
        ExpectStop("Unable to delete the selected file.\r\n\r\nPermission denied...");
        Press(dialog.CmdDelete);
        Select(dialog.Chooser.File1, {"a.bmp", "b.bmp"});
        ExpectSeveral(2, Answer::Yes);
        ExpectStop("Unable to delete all of the selected files.\r\n\r\nPermission denied...");
        Press(dialog.CmdDelete);
        EXPECT_FALSE(module.Busy());
        platform.shell.trashRefusal.reset();
        // A look-alike of what has vanished is another file.
        Select(dialog.Chooser.File1, {"a.bmp", "b.bmp"});
        platform.disks.Remove("C:\\p\\a.bmp");
        platform.disks.PutFile("C:\\p\\A.BMP", "other");
        ExpectSeveral(2, Answer::Yes);
        ExpectStop("Unable to delete all of the selected files.\r\n\r\nFile not found...");
        Press(dialog.CmdDelete);
    });
    ExpectTrash({});
    EXPECT_EQ(At("C:\\p\\A.BMP"), "other");
    EXPECT_EQ(At("C:\\p\\b.bmp"), "b.bmp");
}

TEST_F(DeleteImgFrmTest, TheDeleteKeyDeletesTheCurrentFile) {
    Begin();
    InDialog([this](DeleteImgFrm& dialog) {
        ExpectTold(
            "Unable to delete file by pressing the delete key, nothing is selected in the file list...");
        ReleaseKey(dialog.Chooser.File1, forms::KeyCode::Delete);
        dialog.Chooser.File1.ListIndex = 1;
        ReleaseKey(dialog.Chooser.File1, forms::KeyCode::Return);
        ExpectDelete("C:\\p\\b.bmp", Answer::Yes);
        ReleaseKey(dialog.Chooser.File1, forms::KeyCode::Delete);
        EXPECT_EQ(Listed(dialog.Chooser.File1), (Names{"a.bmp", "c.bmp", "x.jpg"}));
        dialog.Chooser.File1.ListIndex = 0;
        platform.shell.trashRefusal = ErrorNumber::PermissionDenied;
        ExpectDelete("C:\\p\\a.bmp", Answer::Yes);
        ExpectStop("Unable to delete the selected file.\r\n\r\nPermission denied...");
        ReleaseKey(dialog.Chooser.File1, forms::KeyCode::Delete);
    });
    ExpectTrash({"C:\\p\\b.bmp"});
}

TEST_F(DeleteImgFrmTest, TheLastImageOffersToDeleteTheFolder) {
    platform.disks.PutFile("C:\\q\\last.bmp", "last");
    platform.disks.PutFile("C:\\r\\sub\\last.bmp", "last");
    Begin();
    InDialog([this](DeleteImgFrm& dialog) {
        dialog.Chooser.Dir1.Path = "C:\\q";
        dialog.Chooser.File1.Select(0);
        ExpectDelete("C:\\q\\last.bmp", Answer::Yes);
        ExpectEmpty("C:\\q", Answer::Yes);
        Press(dialog.CmdDelete);
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\");
        EXPECT_FALSE(platform.disks.Exists("C:\\q"));
        // So does its key.
        dialog.Chooser.Dir1.Path = "C:\\r\\sub";
        dialog.Chooser.File1.ListIndex = 0;
        ExpectDelete("C:\\r\\sub\\last.bmp", Answer::Yes);
        ExpectEmpty("C:\\r\\sub", Answer::No);
        ReleaseKey(dialog.Chooser.File1, forms::KeyCode::Delete);
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\r\\sub");
        EXPECT_TRUE(platform.disks.Exists("C:\\r\\sub"));
    });
}

TEST_F(DeleteImgFrmTest, AnEmptyFolderIsOfferedAtOnce) {
    Begin();
    platform.disks.PutFolder("C:\\q\\sub");
    InDialog([this](DeleteImgFrm& dialog) {
        dialog.Chooser.Dir1.Path = "C:\\q\\sub";
        ExpectEmpty("C:\\q\\sub", Answer::No);
        Press(dialog.CmdDelete);
        ExpectEmpty("C:\\q\\sub", Answer::Yes);
        ReleaseKey(dialog.Chooser.Dir1, forms::KeyCode::Delete);
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\q");
        EXPECT_FALSE(platform.disks.Exists("C:\\q\\sub"));
        for (const char* path : {"C:\\p", "C:\\"}) {
            dialog.Chooser.Dir1.Path = path;
            ReleaseKey(dialog.Chooser.Dir1, forms::KeyCode::Space);
            ExpectTold("Unable to delete the directory:\r\n\r\n" + std::string(path) +
                       "\r\n\r\nThe selected path is not empty...");
            ReleaseKey(dialog.Chooser.Dir1, forms::KeyCode::Delete);
        }
    });
    EXPECT_TRUE(platform.disks.Exists("C:\\p"));
}

TEST_F(DeleteImgFrmTest, AFolderThatCannotBeRemovedIsTold) {
    platform.disks.PutFile("C:\\q\\hidden.txt", "mine");
    platform.disks.SetHidden("C:\\q\\hidden.txt", true);
    Begin();
    InDialog([this](DeleteImgFrm& dialog) {
        dialog.Chooser.Dir1.Path = "C:\\q";
        ExpectEmpty("C:\\q", Answer::Yes);
        ExpectStop("Path/File access error");
        Press(dialog.CmdDelete);
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\");
    });
    EXPECT_EQ(At("C:\\q\\hidden.txt"), "mine");
}

TEST_F(DeleteImgFrmTest, ALookAlikeFolderIsAnotherOne) {
    platform.disks.PutFolder("C:\\Pics");
    Begin();
    InDialog([this](DeleteImgFrm& dialog) {
        dialog.Chooser.Dir1.Path = "C:\\Pics";
        platform.disks.Remove("C:\\Pics");
        platform.disks.PutFolder("C:\\PICS");
        ExpectEmpty("C:\\Pics", Answer::Yes);
        ExpectStop("Path not found");
        Press(dialog.CmdDelete);
    });
    EXPECT_TRUE(platform.disks.Exists("C:\\PICS"));
}

TEST_F(DeleteImgFrmTest, OpensOnce) {
    Begin();
    ExpectGuarded<DeleteImgFrm>(View().menu.mnuDeleteImages, "DeleteImgFrm");
}

class DeleteFolderFrmTest : public FilingTest {
  protected:
    void InDialog(const std::function<void(DeleteFolderFrm&)>& user) {
        In<DeleteFolderFrm>(View().menu.mnuDelEmptyFolder, "DeleteFolderFrm", user);
    }
    void ExpectSure(const std::string& path, Answer reply) {
        ExpectQuestion("You are about to delete the folder:\r\n\r\n" + path + "\r\n\r\nAre you sure?", reply);
    }
};

TEST_F(DeleteFolderFrmTest, SaysWhatItIs) {
    Begin();
    InDialog([this](DeleteFolderFrm& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Delete Empty Folder");
        EXPECT_EQ(dialog.HelpContext, 710U);
        EXPECT_EQ(dialog.CmdDelete.Caption.Get(), "&Delete");
        EXPECT_EQ(dialog.CmdDelete.ToolTip.Get(), "Delete the selected folder.");
        EXPECT_TRUE(dialog.CmdDelete.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        EXPECT_FALSE(dialog.File1.Visible);
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\p");
        Press(dialog.CmdHelp);
        EXPECT_EQ(platform.help.calls.back().data, 710U);
        ExpectWarning("The selected drive is currently not available...");
        dialog.Drive1.Deliver(forms::RowEvent{0});
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\Tavrix");
        Press(dialog.CmdCancel);
        EXPECT_TRUE(dialog.Unloaded());
    });
}

TEST_F(DeleteFolderFrmTest, RemovesAnEmptyFolder) {
    Begin();
    InDialog([this](DeleteFolderFrm& dialog) {
        dialog.Dir1.Path = "C:\\q";
        ExpectSure("C:\\q", Answer::No);
        Press(dialog.CmdDelete);
        EXPECT_FALSE(dialog.Unloaded());
        EXPECT_TRUE(platform.disks.Exists("C:\\q"));
        ReleaseKey(dialog.Dir1, forms::KeyCode::Space);
        ExpectSure("C:\\q", Answer::Yes);
        ReleaseKey(dialog.Dir1, forms::KeyCode::Delete);
        EXPECT_TRUE(dialog.Unloaded());
    });
    EXPECT_FALSE(platform.disks.Exists("C:\\q"));
}

TEST_F(DeleteFolderFrmTest, RefusesWhatIsNotEmpty) {
    platform.disks.PutFile("C:\\q\\readme.txt", "text");
    platform.disks.PutFolder("C:\\r\\sub");
    Begin();
    InDialog([this](DeleteFolderFrm& dialog) {
        dialog.Dir1.Path = "C:\\q";
        ExpectTold("The selected folder is not empty, unable to delete...");
        Press(dialog.CmdDelete);
        // Folders alone are seen by the removal.
        dialog.Dir1.Path = "C:\\r";
        ExpectSure("C:\\r", Answer::Yes);
        ExpectStop("Path/File access error...");
        Press(dialog.CmdDelete);
        EXPECT_FALSE(dialog.Unloaded());
        // A file that came after the folder was shown.
        dialog.Dir1.Path = "C:\\r\\sub";
        platform.disks.PutFile("C:\\r\\sub\\new.txt", "text");
        ExpectTold("The selected folder is not empty, unable to delete...");
        Press(dialog.CmdDelete);
    });
    EXPECT_TRUE(platform.disks.Exists("C:\\r\\sub\\new.txt"));
}

TEST_F(DeleteFolderFrmTest, ARootFailsInTheRemoval) {
    platform.disks.AddDrive('D', DriveType::Fixed);
    platform.disks.InsertDisk('D');
    Begin();
    InDialog([this](DeleteFolderFrm& dialog) {
        dialog.Lists.GoTo("D:\\");
        ExpectSure("D:\\", Answer::Yes);
        ExpectStop("Path/File access error...");
        Press(dialog.CmdDelete);
        EXPECT_FALSE(dialog.Unloaded());
    });
}

TEST_F(DeleteFolderFrmTest, AFolderThatHasGoneGivesWayToTheOneAbove) {
    platform.disks.PutFolder("C:\\q\\sub");
    Begin();
    InDialog([this](DeleteFolderFrm& dialog) {
        dialog.Dir1.Path = "C:\\q\\sub";
        platform.disks.Remove("C:\\q\\sub");
        ExpectSure("C:\\q", Answer::No);
        Press(dialog.CmdDelete);
    });
    EXPECT_TRUE(platform.disks.Exists("C:\\q"));
}

TEST_F(DeleteFolderFrmTest, OpensOnce) {
    Begin();
    ExpectGuarded<DeleteFolderFrm>(View().menu.mnuDelEmptyFolder, "DeleteFolderFrm");
}

class DeleteCurrentImageTest : public FilingTest {
  protected:
    void Delete() {
        EXPECT_FALSE(Choose(View().menu.mnuDeleteCurrentImage));
        ExpectIdle();
    }
};

TEST_F(DeleteCurrentImageTest, EmptiesTheView) {
    Begin();
    View().vsbPict.Value = 3;
    ExpectDelete(ImagePath, Answer::Yes);
    Delete();
    ExpectEmptyView();
    ASSERT_EQ(platform.shell.trash.size(), 1U);
    EXPECT_EQ(platform.shell.trash[0].path, ImagePath);
}

TEST_F(DeleteCurrentImageTest, NoLeavesAllAsItIs) {
    Begin();
    ExpectDelete(ImagePath, Answer::No);
    Delete();
    EXPECT_EQ(module.CurrentImage, ImagePath);
    EXPECT_FALSE(ShowsDefaultPicture());
    EXPECT_EQ(At(ImagePath), image);
}

TEST_F(DeleteCurrentImageTest, AFailureIsTold) {
    Begin();
    platform.shell.trashRefusal = ErrorNumber::PermissionDenied;
    ExpectDelete(ImagePath, Answer::Yes);
    ExpectStop("Unable to delete image file.\r\n\r\nPermission denied...");
    Delete();
    EXPECT_EQ(module.CurrentImage, ImagePath);
    EXPECT_FALSE(ShowsDefaultPicture());
    // A look-alike is another file.
    platform.shell.trashRefusal.reset();
    platform.disks.Remove(ImagePath);
    platform.disks.PutFile("C:\\p\\X.JPG", "other");
    ExpectStop("Unable to delete image file.\r\n\r\nFile not found...");
    Delete();
    EXPECT_EQ(At("C:\\p\\X.JPG"), "other");
    EXPECT_EQ(module.CurrentImage, ImagePath);
}

TEST_F(DeleteCurrentImageTest, WithoutAnImageThereIsNothingToDelete) {
    ASSERT_TRUE(Start());
    ExpectTold("A file has not been opened, nothing to delete...");
    View().menu.mnuDeleteCurrentImage.Click();
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    View().menu.mnuDeleteCurrentImage.Click();
    module.Screen().MousePointer = forms::MousePointer::Default;
}

}  // namespace
}  // namespace tavrix::test
