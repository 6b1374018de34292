// The two dialogs that copy and move images to another folder.

#include "FilingTest.h"
#include "filing/moving/frmCopyImages.h"
#include "filing/moving/frmMoveImages.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::MouseAction;
namespace ShiftMask = forms::ShiftMask;

/// Moving with `true`.
class TransferWindowsTest : public FilingTest, public ::testing::WithParamInterface<bool> {
  protected:
    TransferWindowsTest() { Setting("LastCopyToPath", "C:\\q\\"); }

    [[nodiscard]] static bool Moves() { return GetParam(); }
    [[nodiscard]] static std::string Verb() { return Moves() ? "move" : "copy"; }
    [[nodiscard]] static std::string VerbFirst() { return Moves() ? "Move" : "Copy"; }
    [[nodiscard]] static std::string Doing() { return Moves() ? "moving" : "copying"; }
    [[nodiscard]] static std::string CanceledText() {
        return Moves() ? "Move was canceled, all files were not moved..."
                       : "Filecopy was canceled, all files were not copied...";
    }
    forms::Menu& Entry() { return Moves() ? View().menu.mnuMoveImages : View().menu.mnuFileCopyImages; }

    void InWindow(const std::function<void(ImagesTransferFrm&)>& user) {
        if (Moves()) {
            In<frmMoveImages>(Entry(), "frmMoveImages", user);
        } else {
            In<frmCopyImages>(Entry(), "frmCopyImages", user);
        }
    }
    /// The user has the window carry these.
    void Carry(const Names& names, const std::function<void(ImagesTransferFrm&)>& before = {}) {
        InWindow([&](ImagesTransferFrm& window) {
            if (before) before(window);
            FilingTest::Select(window.File1, names);
            Press(window.CmdCopy);
        });
    }
    void ExpectOne(const std::string& name, Answer reply = Answer::Yes,
                   const std::string& destination = "C:\\Q\\") {
        ExpectQuestion(VerbFirst() + " the file:\r\n\r\n" + name +
                           "\r\n\r\n...to the following directory?\r\n\r\n" + destination,
                       reply);
    }
    void ExpectSeveral(const std::string& count, Answer reply = Answer::Yes) {
        ExpectQuestion(VerbFirst() + " " + count + " files to the following directory?\r\n\r\nC:\\Q\\",
                       reply);
    }
    void ExpectReplace(const std::string& name, Answer reply) {
        Expect({.text = "The following file already exists in the destination folder:\r\n\r\n" + name +
                        "\r\n\r\nReplace this file with the one in the source folder?",
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNoCancel,
                .reply = reply});
    }
    void ExpectAborted(const std::string& path, const std::string& error) {
        ExpectStop("Aborting, unable to " + Verb() + " the file:\r\n\r\n" + path + "\r\n\r\n" + error +
                   "...");
    }
    /// The files stand at their new place; at the old one only if they were copied.
    void ExpectCarried(const Names& names, const std::string& from = "C:\\p\\",
                       const std::string& to = "C:\\q\\") {
        for (const std::string& name : names) {
            EXPECT_EQ(At(to + name), name);
            EXPECT_EQ(At(from + name), Moves() ? std::nullopt : std::optional(name));
        }
    }
    void ExpectLeft(const Names& names) {
        for (const std::string& name : names) {
            EXPECT_EQ(At("C:\\p\\" + name), name);
            EXPECT_EQ(At("C:\\q\\" + name), std::nullopt);
        }
    }
    /// A press on a row, and a move with the button held that is far enough for a drag.
    static void Drag(forms::FileListBox& list, int row, int shift) {
        constexpr int Far = 40;
        list.Deliver(forms::MouseEvent{MouseAction::Down, forms::MouseButton::Left, shift, 5, 5, row});
        list.Deliver(forms::MouseEvent{MouseAction::Move, forms::MouseButton::Left, shift, 5, 5 + Far, row});
    }
    static int Drags(forms::FileListBox& list) {
        return dynamic_cast<headless::HeadlessListPeer&>(*list.Peer()).drags;
    }
    static void DropOn(forms::Control& target, forms::FileListBox& list) {
        forms::DragEvent drag;
        drag.action = forms::DragAction::Drop;
        target.Deliver(drag);
        drag.action = forms::DragAction::Ended;
        list.Deliver(drag);
    }
};

TEST_P(TransferWindowsTest, SaysWhatItIs) {
    Begin();
    InWindow([](ImagesTransferFrm& window) {
        EXPECT_EQ(window.Caption.Get(), VerbFirst() + " Image(s)");
        EXPECT_EQ(window.HelpContext, 640U);
        EXPECT_EQ(window.Frame1.Caption.Get(), "Select Source File(s):");
        EXPECT_EQ(window.Frame2.Caption.Get(), "Select Destination Folder:");
        EXPECT_EQ(window.Label3.Caption.Get(), "Select File(s):");
        EXPECT_EQ(window.Drive1.ToolTip.Get(), "Click here to select the \"source\" drive.");
        EXPECT_EQ(window.Drive2.ToolTip.Get(), "Click here to select the \"destination\" drive.");
        EXPECT_EQ(window.CmdCopy.Caption.Get(), Moves() ? "&Move" : "C&opy");
        EXPECT_EQ(window.CmdCopy.ToolTip.Get(),
                  VerbFirst() + " the selected files to the selected destination.");
        EXPECT_EQ(window.CmdCancel.Caption.Get(), "&Cancel");
        EXPECT_EQ(window.CmdCancel.ToolTip.Get(), "Click here to cancel file " + Verb() + ".");
        EXPECT_EQ(window.Selection.CmdAll.Caption.Get(), "Select &All");
        EXPECT_EQ(window.Selection.CmdAll.ToolTip.Get(), "Select all files in list.");
        EXPECT_EQ(window.Selection.CmdNone.Caption.Get(), "Select &None");
        EXPECT_EQ(window.Selection.CmdNone.ToolTip.Get(), "Don't select any files.");
        EXPECT_EQ(window.Selection.CmdInverse.Caption.Get(), "&Inverse");
        EXPECT_EQ(window.Selection.CmdInverse.ToolTip.Get(), "Inverse selections.");
        EXPECT_EQ(window.CmdNewFolder.Caption.Get(), "Ne&w Folder");
        EXPECT_EQ(window.CmdNewFolder.ToolTip.Get(),
                  "Create a new folder in the currently selected \"destination\" directory.");
        EXPECT_EQ(window.File1.Pattern.Get(),
                  "*.dib;*.bmp;*.gif;*.jpg;*.jif;*.jpe;*.jpeg;*.ico;*.wmf;*.emf;*.rle;*.pcx;*.tga;*.cur");
        EXPECT_TRUE(window.CmdCopy.Default);
        EXPECT_TRUE(window.CmdCancel.Cancel);
        Press(window.CmdCancel);
    });
}

TEST_P(TransferWindowsTest, TheFolderButtonsChangeSides) {
    Setting("FavoriteFolder", "C:\\q");
    Setting("QuickFolder1", "Quick");
    Setting("QuickFolderPath1", "C:\\Windows");
    Begin();
    InWindow([this](ImagesTransferFrm& window) {
        EXPECT_EQ(window.SourceFF.Name(), Moves() ? "CmdFF2" : "CmdFF");
        EXPECT_EQ(window.DestinationFF.Name(), Moves() ? "CmdFF" : "CmdFF2");
        EXPECT_EQ(window.SourceFF.Caption.Get(), "&FF");
        EXPECT_EQ(window.DestinationFF.ToolTip.Get(), "Change directory to your Favorite Folder.");
        EXPECT_EQ(window.SourceButton.mnuFolder1.Name(), Moves() ? "mnuFolder12" : "mnuFolder1");
        EXPECT_EQ(window.DestinationButton.mnuPopup.Name(), Moves() ? "mnuPopup" : "mnuPopup2");
        Press(window.SourceFF);
        EXPECT_EQ(window.Dir1.Path.Get(), "C:\\q");
        toolkit.ChooseFromPopup("Quick");
        window.DestinationFF.Deliver(
            forms::MouseEvent{MouseAction::Down, forms::MouseButton::Right, 0, 1, 1});
        EXPECT_EQ(window.Dir2.Path.Get(), "C:\\Windows");
        ASSERT_EQ(toolkit.Popups().size(), 1U);
        EXPECT_EQ(toolkit.Popups()[0].defaultEntry, window.DestinationButton.mnuCloseMenu.Peer());
        EXPECT_EQ(window.Dir1.Path.Get(), "C:\\q");
    });
}

TEST_P(TransferWindowsTest, BeginsAtTheImageAndAtTheLastDestination) {
    Begin();
    InWindow([](ImagesTransferFrm& window) {
        EXPECT_EQ(window.Dir1.Path.Get(), "C:\\p");
        EXPECT_EQ(window.File1.FileName(), "x.jpg");
        EXPECT_TRUE(window.File1.Selected(window.File1.ListIndex));
        EXPECT_EQ(window.File1.SelectedCount(), 1);
        EXPECT_EQ(window.Dir2.Path.Get(), "C:\\q");
    });
    module.config.LastCopyToPath.clear();
    module.CurrentImage = "C:\\p\\gone.jpg";
    InWindow([](ImagesTransferFrm& window) {
        EXPECT_EQ(window.Dir2.Path.Get(), "C:\\p");
        EXPECT_EQ(window.File1.ListIndex.Get(), 0);
        EXPECT_EQ(window.File1.SelectedCount(), 0);
    });
    module.config.LastCopyToPath = "C:\\gone\\";
    InWindow([](ImagesTransferFrm& window) { EXPECT_EQ(window.Dir1.Path.Get(), "C:\\p"); });
}

TEST_P(TransferWindowsTest, OfLookAlikesTheImageItselfIsSelected) {
    Begin();
    PutLookAlike("C:\\p\\X.JPG", "other");
    InWindow([](ImagesTransferFrm& window) { EXPECT_EQ(window.File1.FileName(), "x.jpg"); });
}

TEST_P(TransferWindowsTest, AnUnsavedImageLeavesTheListsInTheCurrentFolder) {
    Begin();
    platform.disks.PutFile("C:\\Temp\\Untitled.BMP", "edit");
    module.CurrentImage = "C:\\Temp\\Untitled.BMP";
    InWindow([](ImagesTransferFrm& window) {
        EXPECT_EQ(window.Dir1.Path.Get(), "C:\\p");
        EXPECT_EQ(window.Dir2.Path.Get(), "C:\\p");
        EXPECT_EQ(window.File1.ListIndex.Get(), 0);
    });
    platform.files.ChangeFolder("C:\\Temp");
    InWindow([](ImagesTransferFrm& window) { EXPECT_EQ(window.Dir2.Path.Get(), "C:\\Tavrix"); });
    module.config.LastCopyToPath = "C:\\TEMP\\";
    module.CurrentImage = ImagePath;
    InWindow([](ImagesTransferFrm& window) { EXPECT_EQ(window.Dir2.Path.Get(), "C:\\Tavrix"); });
    module.CurrentImage.clear();
    module.config.LastCopyToPath = "C:\\Q\\";
    InWindow([](ImagesTransferFrm& window) { EXPECT_EQ(window.Dir2.Path.Get(), "C:\\q"); });
}

TEST_P(TransferWindowsTest, AnotherFolderMakesItsFirstFileCurrent) {
    Begin();
    platform.disks.PutFile("C:\\q\\z.gif", "z");
    InWindow([](ImagesTransferFrm& window) {
        window.Dir1.Path = "C:\\q";
        EXPECT_EQ(window.File1.FileName(), "z.gif");
        EXPECT_EQ(window.File1.SelectedCount(), 0);
        window.Dir1.Path = "C:\\Windows";
        EXPECT_EQ(window.File1.ListIndex.Get(), -1);
    });
}

TEST_P(TransferWindowsTest, ADriveThatCannotBeReadLeadsToTheProgram) {
    Begin();
    InWindow([this](ImagesTransferFrm& window) {
        for (auto [drives, folders] :
             {std::pair{&window.Drive1, &window.Dir1}, std::pair{&window.Drive2, &window.Dir2}}) {
            ExpectWarning("The selected drive is currently not available...");
            drives->Deliver(forms::RowEvent{0});
            EXPECT_EQ(folders->Path.Get(), "C:\\Tavrix");
            EXPECT_FALSE(module.Busy());
        }
    });
}

TEST_P(TransferWindowsTest, TheButtonsSelect) {
    Begin();
    InWindow([this](ImagesTransferFrm& window) {
        Press(window.Selection.CmdAll);
        EXPECT_EQ(window.File1.SelectedCount(), 4);
        Press(window.Selection.CmdNone);
        EXPECT_EQ(window.File1.SelectedCount(), 0);
        window.File1.Select(1);
        Press(window.Selection.CmdInverse);
        EXPECT_EQ(window.Selection.Names(), (Names{"a.bmp", "c.bmp", "x.jpg"}));
        window.Dir1.Path = "C:\\q";
        ExpectTold("There are no files in the source directory to select...");
        Press(window.Selection.CmdAll);
        Press(window.Selection.CmdNone);
        Press(window.Selection.CmdInverse);
    });
}

TEST_P(TransferWindowsTest, MovingWithTheLeftButtonHeldSelectsTheCurrentRow) {
    Begin();
    InWindow([](ImagesTransferFrm& window) {
        window.File1.SelectNone();
        const int row = window.File1.ListIndex;
        window.File1.Deliver(forms::MouseEvent{MouseAction::Move, 0, 0, 5, 5, -1});
        EXPECT_FALSE(window.File1.Selected(row));
        window.File1.Deliver(forms::MouseEvent{MouseAction::Move, forms::MouseButton::Left, 0, 5, 5, -1});
        EXPECT_TRUE(window.File1.Selected(row));
    });
}

TEST_P(TransferWindowsTest, RefusesWhatCannotBeDone) {
    Begin();
    InWindow([this](ImagesTransferFrm& window) {
        ExpectTold("No files are selected, nothing to " + Verb() + "...");
        window.File1.SelectNone();
        Press(window.CmdCopy);
        Press(window.Selection.CmdAll);
        ExpectTold("The source and destination paths are the same, no need to " + Verb() +
                   " images to selected destination...");
        window.Dir2.Path = "C:\\P";
        Press(window.CmdCopy);
        window.Dir1.Path = "C:\\q";
        ExpectTold("There are no files in the selected source directory, nothing to " + Verb() + "...");
        Press(window.CmdCopy);
        EXPECT_FALSE(window.Unloaded());
    });
    EXPECT_EQ(module.config.LastCopyToPath, "C:\\q\\");
}

TEST_P(TransferWindowsTest, NoChangesNothing) {
    Begin();
    const auto before = platform.disks.AllFiles();
    ExpectOne("a.bmp", Answer::No);
    InWindow([this](ImagesTransferFrm& window) {
        FilingTest::Select(window.File1, {"a.bmp"});
        Press(window.CmdCopy);
        EXPECT_FALSE(window.Unloaded());
        EXPECT_TRUE(window.Visible());
        EXPECT_FALSE(module.Busy());
    });
    EXPECT_EQ(platform.disks.AllFiles(), before);
    EXPECT_EQ(module.config.LastCopyToPath, "C:\\q\\");
}

TEST_P(TransferWindowsTest, CarriesOneFile) {
    Begin();
    ExpectOne("b.bmp");
    WatchLabels();
    bool hidden = false;
    toolkit.AtYield(
        4, [&] { hidden = toolkit.VisibleWindow(Moves() ? "frmMoveImages" : "frmCopyImages") == nullptr; });
    Carry({"b.bmp"});
    ExpectCarried({"b.bmp"});
    ExpectLeft({"a.bmp", "c.bmp"});
    EXPECT_TRUE(hidden);
    EXPECT_EQ(module.config.LastCopyToPath, "C:\\Q\\");
    EXPECT_NE(std::ranges::find(labels, "Tavrix is preparing to " + Verb() + " files..."), labels.end());
    EXPECT_NE(std::ranges::find(labels, "Tavrix is " + Doing() + " the file:\r\n\r\nb.bmp"), labels.end());
}

TEST_P(TransferWindowsTest, CarriesManyFiles) {
    Begin();
    Names names;
    for (int number = 1000; number < 2234; ++number) {
        names.push_back("n" + std::to_string(number) + ".gif");
        platform.disks.PutFile("C:\\p\\" + names.back(), names.back());
    }
    ExpectSeveral("1,234");
    Carry(names);
    ExpectCarried(names);
    ExpectLeft({"a.bmp"});
}

TEST_P(TransferWindowsTest, TheDestinationIsNotedBeforeTheFirstFile) {
    Begin();
    platform.disks.PutFolder("C:\\q\\a.bmp");
    ExpectOne("a.bmp");
    Expect({.text = "Aborting, unable to " + Verb() + " the file:\r\n\r\nC:\\P\\a.bmp\r\n\r\n" +
                    (Moves() ? "File already exists..." : "Path/File access error..."),
            .icon = forms::BoxIcon::Stop,
            .whileOpen = [this] { EXPECT_EQ(app.Loaded<WaitCopyFrm>(), nullptr); }});
    module.config.LastCopyToPath = "C:\\q";
    Carry({"a.bmp"});
    EXPECT_EQ(module.config.LastCopyToPath, "C:\\Q\\");
    EXPECT_EQ(At("C:\\p\\a.bmp"), "a.bmp");
}

TEST_P(TransferWindowsTest, YesReplacesNoSkipsAndCancelEndsQuietly) {
    Begin();
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        platform.disks.PutFile("C:\\q\\" + std::string(name), "old");
    ExpectSeveral("3");
    ExpectReplace("a.bmp", Answer::No);
    ExpectReplace("b.bmp", Answer::Yes);
    ExpectReplace("c.bmp", Answer::Cancel);
    Carry({"a.bmp", "b.bmp", "c.bmp"});
    EXPECT_EQ(At("C:\\q\\a.bmp"), "old");
    EXPECT_EQ(At("C:\\p\\a.bmp"), "a.bmp");
    ExpectCarried({"b.bmp"});
    EXPECT_EQ(At("C:\\q\\c.bmp"), "old");
    EXPECT_EQ(At("C:\\p\\c.bmp"), "c.bmp");
}

TEST_P(TransferWindowsTest, TheImageOnShowIsCopiedAndNotMoved) {
    Begin();
    ExpectSeveral("3");
    if (Moves()) {
        Expect({.text = "Unable to move the file:\r\n\r\nC:\\P\\x.jpg\r\n\r\n...image is currently open.",
                .icon = forms::BoxIcon::Exclamation,
                .whileOpen = [this] { EXPECT_EQ(toolkit.VisibleWindow("WaitCopyFrm"), nullptr); }});
    }
    module.CurrentImage = "c:\\P\\X.jpg";
    Carry({"c.bmp", "x.jpg", "a.bmp"}, [](ImagesTransferFrm& window) { window.Dir1.Path = "C:\\p"; });
    EXPECT_EQ(At(ImagePath), image);
    EXPECT_EQ(At("C:\\q\\x.jpg"), Moves() ? std::nullopt : std::optional(image));
    ExpectCarried({"a.bmp", "c.bmp"});
    EXPECT_EQ(module.CurrentImage, "c:\\P\\X.jpg");
}

TEST_P(TransferWindowsTest, TheWaitWindowCancels) {
    for (const bool closed : {false, true}) {
        for (const char* name : {"a.bmp", "b.bmp"}) {
            platform.disks.PutFile("C:\\p\\" + std::string(name), name);
            platform.disks.Remove("C:\\q\\" + std::string(name));
        }
        if (!closed) Begin();
        ExpectSeveral("3");
        int file = 0;
        for (int yield = 1; yield < 40; ++yield) {
            toolkit.AtYield(yield, [&, closed] {
                auto* window = app.Loaded<WaitCopyFrm>();
                if (window == nullptr || window->lblMsg.Caption.Get().find("b.bmp") == std::string::npos)
                    return;
                if (file++ > 0) return;
                if (closed) {
                    app.Unload(*window);
                } else {
                    Press(window->CmdCancel);
                }
            });
        }
        ExpectWarning(CanceledText());
        Carry({"a.bmp", "b.bmp", "c.bmp"});
        ExpectLeft({"c.bmp"});
        EXPECT_GT(file, 0);
        ExpectCarried({"a.bmp"});
    }
}

TEST_P(TransferWindowsTest, AFailureEndsItAndWhatIsDoneStaysDone) {
    Begin();
    ExpectSeveral("3");
    platform.disks.PutFolder("C:\\q\\b.bmp");
    ExpectAborted("C:\\P\\b.bmp", Moves() ? "File already exists" : "Path/File access error");
    Carry({"a.bmp", "b.bmp", "c.bmp"});
    ExpectCarried({"a.bmp"});
    EXPECT_EQ(At("C:\\p\\b.bmp"), "b.bmp");
    ExpectLeft({"c.bmp"});
}

TEST_P(TransferWindowsTest, LookAlikeFoldersStayApart) {
    Begin();
    for (const std::string folder : {"C:\\Pics\\", "C:\\PICS\\"}) {
        PutLookAlikeFolder(folder.substr(0, folder.size() - 1));
        platform.disks.PutFile(folder + "a.bmp", folder);
    }
    // To and from one of them; the other stays as it was.
    for (const std::string mine : {"C:\\Pics\\", "C:\\PICS\\"}) {
        const std::string other = mine == "C:\\Pics\\" ? "C:\\PICS\\" : "C:\\Pics\\";
        ExpectOne("b.bmp", Answer::Yes, "C:\\PICS\\");
        Carry({"b.bmp"}, [&](ImagesTransferFrm& window) {
            window.Dir1.Path = "C:\\p";
            window.Dir2.Path = mine;
        });
        EXPECT_EQ(At(mine + "b.bmp"), "b.bmp");
        EXPECT_FALSE(platform.disks.Exists(other + "b.bmp"));
        platform.disks.PutFile("C:\\p\\b.bmp", "b.bmp");
        ExpectOne("a.bmp");
        Carry({"a.bmp"}, [&](ImagesTransferFrm& window) {
            window.Dir1.Path = mine;
            window.Dir2.Path = "C:\\q";
        });
        EXPECT_EQ(At("C:\\q\\a.bmp"), mine);
        EXPECT_EQ(At(mine + "a.bmp"), Moves() ? std::nullopt : std::optional(mine));
        EXPECT_EQ(At(other + "a.bmp"), other);
        platform.disks.PutFile(mine + "a.bmp", mine);
        platform.disks.Remove("C:\\q\\a.bmp");
        platform.disks.Remove(mine + "b.bmp");
    }
    // One into the other is no transfer, as the paths are told in upper case.
    InWindow([this](ImagesTransferFrm& window) {
        window.Dir1.Path = "C:\\Pics";
        window.Dir2.Path = "C:\\PICS";
        Press(window.Selection.CmdAll);
        ExpectTold("The source and destination paths are the same, no need to " + Verb() +
                   " images to selected destination...");
        Press(window.CmdCopy);
    });
}

TEST_P(TransferWindowsTest, ALookAlikeOfAVanishedFileIsAnotherFile) {
    Begin();
    ExpectOne("a.bmp");
    ExpectAborted("C:\\P\\a.bmp", "File not found");
    Carry({"a.bmp"}, [this](ImagesTransferFrm& window) {
        static_cast<void>(window.File1.ListCount());
        platform.disks.Remove("C:\\p\\a.bmp");
        platform.disks.PutFile("C:\\p\\A.BMP", "other");
    });
    EXPECT_EQ(At("C:\\p\\A.BMP"), "other");
    EXPECT_FALSE(platform.disks.Exists("C:\\q\\a.bmp"));
}

TEST_P(TransferWindowsTest, AFolderThatIsSpelledOtherwiseInTheSettingsIsMeant) {
    Setting("FavoriteFolder", "c:\\P");
    Begin();
    ExpectOne("a.bmp");
    Carry({"a.bmp"}, [](ImagesTransferFrm& window) {
        window.Dir1.Path = "C:\\q";
        Press(window.SourceFF);
        EXPECT_EQ(window.Dir1.Path.Get(), "C:\\p");
    });
    ExpectCarried({"a.bmp"});
}

TEST_P(TransferWindowsTest, OneFileUnderTwoPathsIsLeftAlone) {
    Begin();
    platform.disks.PutLink("C:\\p\\a.bmp", "C:\\q\\a.bmp");
    ExpectSeveral("2");
    Carry({"a.bmp", "b.bmp"});
    EXPECT_EQ(At("C:\\p\\a.bmp"), "a.bmp");
    EXPECT_EQ(At("C:\\q\\a.bmp"), "a.bmp");
    ExpectCarried({"b.bmp"});
}

TEST_P(TransferWindowsTest, AReadOnlyTargetIsNotReplaced) {
    Begin();
    platform.disks.PutFile("C:\\q\\a.bmp", "old");
    platform.disks.SetReadOnly("C:\\q\\a.bmp", true);
    ExpectOne("a.bmp");
    ExpectReplace("a.bmp", Answer::Yes);
    ExpectAborted("C:\\P\\a.bmp", Moves() ? "File already exists" : "Permission denied");
    Carry({"a.bmp"});
    EXPECT_EQ(At("C:\\q\\a.bmp"), "old");
    EXPECT_EQ(At("C:\\p\\a.bmp"), "a.bmp");
}

TEST_P(TransferWindowsTest, ASecondPressWhileItWorksDoesNothing) {
    Begin();
    ExpectOne("a.bmp");
    InWindow([this](ImagesTransferFrm& window) {
        FilingTest::Select(window.File1, {"a.bmp"});
        toolkit.AtYield(1, [&] { Press(window.CmdCopy); });
        toolkit.AtYield(2, [&] { ReleaseKey(window.File1, forms::KeyCode::Delete); });
        Press(window.CmdCopy);
    });
    ExpectCarried({"a.bmp"});
}

TEST_P(TransferWindowsTest, DragsWithShiftCtrlAndAlt) {
    Begin();
    struct Case {
        int shift;
        Names selected;
        Names carried;
    };
    // The row of b.bmp is dragged each time.
    for (const Case& one :
         {Case{ShiftMask::Shift, {"c.bmp"}, {"b.bmp"}}, Case{ShiftMask::Ctrl, {"a.bmp"}, {"a.bmp", "b.bmp"}},
          Case{ShiftMask::Ctrl, {"a.bmp", "b.bmp"}, {"a.bmp", "b.bmp"}},
          Case{ShiftMask::Alt, {}, {"a.bmp", "b.bmp", "c.bmp"}}}) {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"}) {
            platform.disks.PutFile("C:\\r\\" + std::string(name), name);
            platform.disks.Remove("C:\\q\\" + std::string(name));
        }
        InWindow([&](ImagesTransferFrm& window) {
            window.Dir1.Path = "C:\\r";
            FilingTest::Select(window.File1, one.selected);
            Drag(window.File1, 1, one.shift);
            EXPECT_EQ(Drags(window.File1), 1);
            EXPECT_EQ(window.File1.DragIcon.Empty(), one.shift == ShiftMask::Alt);
            EXPECT_TRUE(window.File1.Selected(1));
            if (one.carried.size() == 1) {
                ExpectOne(one.carried[0]);
            } else {
                ExpectSeveral(std::to_string(one.carried.size()));
            }
            DropOn(window.Dir2, window.File1);
        });
        ExpectCarried(one.carried, "C:\\r\\");
        for (const std::string name : {"a.bmp", "b.bmp", "c.bmp"}) {
            const bool carried = std::ranges::find(one.carried, name) != one.carried.end();
            EXPECT_EQ(platform.disks.Exists("C:\\q\\" + name), carried) << name;
        }
    }
}

TEST_P(TransferWindowsTest, OnlyOneOfTheThreeKeysDrags) {
    Begin();
    InWindow([](ImagesTransferFrm& window) {
        for (const int shift : {0, ShiftMask::Shift | ShiftMask::Ctrl, ShiftMask::Ctrl | ShiftMask::Alt}) {
            Drag(window.File1, 1, shift);
            window.File1.Deliver(
                forms::MouseEvent{MouseAction::Up, forms::MouseButton::Left, shift, 5, 5, 1});
            EXPECT_EQ(Drags(window.File1), 0) << shift;
        }
    });
}

TEST_P(TransferWindowsTest, ADropElsewhereOnlyEndsTheDrag) {
    Begin();
    const auto before = platform.disks.AllFiles();
    InWindow([](ImagesTransferFrm& window) {
        for (forms::Control* target : std::initializer_list<forms::Control*>{
                 &window.Dir1, &window.CmdCopy, &window.CmdCancel, &window.File1, &window.Drive2,
                 &window.Frame2, &window.Label5}) {
            Drag(window.File1, 0, ShiftMask::Ctrl);
            DropOn(*target, window.File1);
        }
        EXPECT_EQ(Drags(window.File1), 7);
    });
    EXPECT_EQ(platform.disks.AllFiles(), before);
}

TEST_P(TransferWindowsTest, WhatElseIsDroppedThereCarriesNothing) {
    Begin();
    const auto before = platform.disks.AllFiles();
    InWindow([](ImagesTransferFrm& window) {
        window.File1.SelectAll();
        window.Dir1.Drag();
        DropOn(window.Dir2, window.File1);
    });
    EXPECT_EQ(platform.disks.AllFiles(), before);
}

TEST_P(TransferWindowsTest, TheFolderIsRememberedBeforeTheFirstFileAndTheWaitWindowIsBackAfterAQuestion) {
    Begin();
    platform.disks.PutFile("C:\\q\\a.bmp", "old");
    const auto shown = [this] { return toolkit.VisibleWindow("WaitCopyFrm") != nullptr; };
    int shownWith = 0;
    InWindow([&](ImagesTransferFrm& window) {
        FilingTest::Select(window.File1, {"a.bmp"});
        ExpectOne("a.bmp");
        Expect(
            {.text =
                 "The following file already exists in the destination folder:\r\n\r\na.bmp\r\n\r\nReplace "
                 "this file with the one in the source folder?",
             .icon = forms::BoxIcon::Question,
             .buttons = forms::BoxButtons::YesNoCancel,
             .reply = Answer::No,
             .whileOpen = [&] {
                 EXPECT_EQ(module.config.LastCopyToPath, "C:\\Q\\");
                 EXPECT_EQ(At("C:\\q\\a.bmp"), "old");
                 EXPECT_FALSE(shown());
                 toolkit.AtYield(1, [&] { shownWith += shown() ? 1 : 0; });
             }});
        Press(window.CmdCopy);
    });
    EXPECT_EQ(shownWith, 1);
    EXPECT_FALSE(module.CancelCopy);
}

TEST_P(TransferWindowsTest, TheDeleteKeyDeletesTheCurrentFile) {
    Setting("Recent3", "C:\\p\\b.bmp");
    Begin();
    InWindow([this](ImagesTransferFrm& window) {
        window.File1.ListIndex = window.File1.IndexOf("b.bmp");
        ReleaseKey(window.File1, forms::KeyCode::Space);
        ExpectDelete("C:\\p\\b.bmp", Answer::No);
        ReleaseKey(window.File1, forms::KeyCode::Delete);
        EXPECT_EQ(At("C:\\p\\b.bmp"), "b.bmp");
        EXPECT_EQ(window.File1.FileName(), "a.bmp");
        window.File1.ListIndex = window.File1.IndexOf("b.bmp");
        ExpectDelete("C:\\p\\b.bmp", Answer::Yes);
        ReleaseKey(window.File1, forms::KeyCode::Delete);
        EXPECT_EQ(Listed(window.File1), (Names{"a.bmp", "c.bmp", "x.jpg"}));
        EXPECT_EQ(window.File1.FileName(), "a.bmp");
        EXPECT_FALSE(module.Busy());
    });
    ASSERT_EQ(platform.shell.trash.size(), 1U);
    EXPECT_EQ(platform.shell.trash[0].path, "C:\\p\\b.bmp");
    EXPECT_EQ(std::ranges::count(Recent(), "C:\\p\\b.bmp"), 0);
}

TEST_P(TransferWindowsTest, TheDeleteKeySaysWhyNot) {
    Begin();
    InWindow([this](ImagesTransferFrm& window) {
        ExpectTold("Unable to delete this file, image is currently open...");
        ReleaseKey(window.File1, forms::KeyCode::Delete);
        window.File1.ListIndex = 0;
        ExpectDelete("C:\\p\\a.bmp", Answer::Yes);
        ExpectWarning("Unable to delete the selected file.\r\n\r\nPermission denied...");
        platform.shell.trashRefusal = ErrorNumber::PermissionDenied;
        ReleaseKey(window.File1, forms::KeyCode::Delete);
        window.Dir1.Path = "C:\\q";
        ExpectTold(
            "Unable to delete file by pressing the delete key, nothing is selected in the file list...");
        ReleaseKey(window.File1, forms::KeyCode::Delete);
    });
    EXPECT_EQ(At(ImagePath), image);
    EXPECT_EQ(At("C:\\p\\a.bmp"), "a.bmp");
}

TEST_P(TransferWindowsTest, TheDeleteKeySparesALookAlike) {
    Begin();
    InWindow([this](ImagesTransferFrm& window) {
        window.File1.ListIndex = 0;
        platform.disks.Remove("C:\\p\\a.bmp");
        platform.disks.PutFile("C:\\p\\A.BMP", "other");
        ExpectWarning("Unable to delete the selected file.\r\n\r\nFile not found...");
        ReleaseKey(window.File1, forms::KeyCode::Delete);
    });
    EXPECT_EQ(At("C:\\p\\A.BMP"), "other");
}

TEST_P(TransferWindowsTest, ANewFolderIsMadeInTheDestination) {
    Begin();
    InWindow([this](ImagesTransferFrm& window) {
        toolkit.ExpectInput({.prompt = "Enter the name of the folder to create:",
                             .title = "Tavrix",
                             .text = "New Folder",
                             .reply = "a:b"});
        ExpectWarning("You may not use the : character in a folder name, enter folder name again...");
        toolkit.ExpectInput({.prompt = "Enter the name of the folder to create:",
                             .title = "Tavrix",
                             .text = "a:b",
                             .reply = " \\Mine\\ "});
        Press(window.CmdNewFolder);
        EXPECT_EQ(window.Dir2.Path.Get(), "C:\\q\\Mine");
        EXPECT_EQ(window.Dir1.Path.Get(), "C:\\p");
        toolkit.ExpectInput({.prompt = "Enter the name of the folder to create:",
                             .title = "Tavrix",
                             .text = "New Folder",
                             .reply = "Mine"});
        window.Dir2.Path = "C:\\q";
        ExpectStop("Unable to create folder.\r\n\r\nPath/File access error...");
        Press(window.CmdNewFolder);
        EXPECT_EQ(window.Dir2.Path.Get(), "C:\\q");
    });
    EXPECT_TRUE(platform.disks.Exists("C:\\q\\Mine"));
}

TEST_P(TransferWindowsTest, OpensOnceAndBelowNoWindowThatIsKeptAbove) {
    Begin();
    if (Moves()) {
        ExpectGuarded<frmMoveImages>(Entry(), "frmMoveImages");
    } else {
        ExpectGuarded<frmCopyImages>(Entry(), "frmCopyImages");
    }
}

TEST_P(TransferWindowsTest, ADriveThatSleepsIsLookedAtFirst) {
    Begin();
    platform.faults.Clear();
    InWindow([](ImagesTransferFrm&) {});
    const auto& log = platform.faults.Log();
    EXPECT_NE(std::ranges::find(log, "Files.Look C:\\ *"), log.end());
}

INSTANTIATE_TEST_SUITE_P(Both, TransferWindowsTest, ::testing::Bool(),
                         [](const auto& instance) { return instance.param ? "Move" : "Copy"; });

}  // namespace
}  // namespace tavrix::test
