#include <algorithm>

#include "editing/SavingTest.h"
#include "finding/FindingTest.h"
#include "finding/frmDuplicateFiles.h"
#include "shows/stage/FullViewFrm.h"
#include "viewer/EndOfSession.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::BoxButtons;
using forms::BoxIcon;
using headless::Service;

constexpr const char* StartText = " Select drive(s) to examine and then press the Search button...";
constexpr const char* NoFiles =
    "No valid image files were found.\r\n\r\n"
    "Select drive(s) and press the \"Search\" button to find duplicate files...";
constexpr const char* NoDuplicates = "No duplicate files were found on the selected drive(s)...";

/// A machine with A: (no disk), C:, D:, a CD-ROM drive E: and a network drive F:.
class DuplicateFilesTest : public FindingTest<frmDuplicateFiles> {
  protected:
    DuplicateFilesTest() : FindingTest("frmDuplicateFiles", &MainMenu::mnuSearchDuplicate) {
        platform.disks.AddDrive('E', DriveType::CdRom);
        platform.disks.AddDrive('F', DriveType::Network);
        platform.disks.InsertDisk('F');
    }

    void ExpectBegin(Answer reply = Answer::Ok) {
        Expect({.text = "You are about to search the selected drive(s) for duplicate files...\r\n\r\n"
                        "This could take several minutes to complete.",
                .buttons = BoxButtons::OkCancel,
                .reply = reply});
    }
    void Search(frmDuplicateFiles& form) {
        ExpectBegin();
        Press(form.CmdFind);
    }
    static Texts Listed(const frmDuplicateFiles& form) { return form.ListFiles.Texts(); }
    static Texts SelectedDrives(const frmDuplicateFiles& form) {
        Texts lines;
        for (int row = 0; row < form.ListDrives.ListCount(); ++row) {
            if (form.ListDrives.Selected(row)) lines.push_back(form.ListDrives.List(row).substr(0, 2));
        }
        return lines;
    }
    static void SelectDrives(frmDuplicateFiles& form, std::initializer_list<int> rows) {
        form.ListDrives.SelectNone();
        for (const int row : rows)
            form.ListDrives.Select(row);
    }
    static std::string Status(const frmDuplicateFiles& form) { return Printed(form.picStatus); }
    static std::vector<forms::CommandButton*> IdleButtons(frmDuplicateFiles& form) {
        return {&form.CmdClose,   &form.CmdOpen,   &form.CmdPreview,   &form.CmdAll,
                &form.CmdNone,    &form.CmdFixed,  &form.CmdRemovable, &form.CmdCDROM,
                &form.CmdNetwork, &form.CmdDelete, &form.CmdShowPath};
    }
    static void ExpectEnabled(frmDuplicateFiles& form, bool enabled) {
        for (const forms::CommandButton* button : IdleButtons(form))
            EXPECT_EQ(button->Enabled.Get(), enabled) << button->Name();
        EXPECT_TRUE(form.CmdFind.Enabled);
        EXPECT_EQ(form.CmdFind.Caption.Get(), enabled ? "&Search" : "&Cancel");
    }
    void ExpectOpenQuestion(const std::string& path, Answer reply) {
        Expect({.text = path + "\r\n\r\nOpen this image?",
                .icon = BoxIcon::Question,
                .buttons = BoxButtons::YesNo,
                .reply = reply});
    }
    void ExpectUnable(const std::string& line, const std::string& reason, Answer reply,
                      std::function<void()> whileOpen = {}) {
        Expect({.text = "Unable to search " + line + " for duplicate files.\r\n\r\n" + reason,
                .buttons = BoxButtons::RetryCancel,
                .reply = reply,
                .whileOpen = std::move(whileOpen)});
    }
    /// Three files of one name on C:.
    void PutThree() {
        for (const char* path : {"C:\\A\\X.BMP", "C:\\B\\x.bmp", "C:\\C\\X.BMP"})
            PutPicture(path, 10, 10);
    }
};

TEST_F(DuplicateFilesTest, TextsAreAsTold) {
    Show([](frmDuplicateFiles& form) {
        EXPECT_EQ(form.Caption.Get(), "Search For Duplicate Files");
        EXPECT_EQ(form.HelpContext, 1060U);
        Texts texts{form.lblDrives.Caption, form.lblFiles.Caption};
        for (const forms::CommandButton* button :
             {&form.CmdAll, &form.CmdNone, &form.CmdFixed, &form.CmdRemovable, &form.CmdCDROM,
              &form.CmdNetwork, &form.CmdFind, &form.CmdOpen, &form.CmdPreview, &form.CmdShowPath,
              &form.CmdDelete, &form.CmdClose}) {
            texts.push_back(button->Caption);
            texts.push_back(button->ToolTip);
        }
        EXPECT_EQ(texts, (Texts{"Select Drive(s):",
                                "File(s) Found:",
                                "Select &ALL",
                                "Select all drives in list.",
                                "Select &NONE",
                                "De-select all drives in list.",
                                "&Fixed Disk(s)",
                                "Only select fixed disks.",
                                "&Removable",
                                "Only select removable drives.",
                                "C&D-ROM",
                                "Only select CD-ROMs.",
                                "Networ&k",
                                "Only select network drives.",
                                "&Search",
                                "Click here to search for duplicate image files.",
                                "Op&en",
                                "Click here to open the selected file.",
                                "&Preview",
                                "Click here to preview the selected file.",
                                "Sho&w Info",
                                "Show more information on the selected file.",
                                "Dele&te",
                                "Delete the selected file.",
                                "Cl&ose",
                                "Click here when finished searching for files."}));
        ExpectOwnLetters(form, 12);
        EXPECT_EQ(form.CmdHelp.Caption.Get(), "Help");
        EXPECT_EQ(Status(form), StartText);
        EXPECT_EQ(SelectedDrives(form), (Texts{"C:", "D:"}));
        ExpectEnabled(form, true);
    });
}

TEST_F(DuplicateFilesTest, TheButtonsSelectDrives) {
    Show([this](frmDuplicateFiles& form) {
        Press(form.CmdAll);
        EXPECT_EQ(SelectedDrives(form), (Texts{"A:", "C:", "D:", "E:", "F:"}));
        Press(form.CmdNone);
        EXPECT_EQ(SelectedDrives(form), Texts{});
        Press(form.CmdCDROM);
        EXPECT_EQ(SelectedDrives(form), Texts{"E:"});
        Press(form.CmdNetwork);
        EXPECT_EQ(SelectedDrives(form), Texts{"F:"});
        Press(form.CmdRemovable);
        EXPECT_EQ(SelectedDrives(form), Texts{"A:"});
        Press(form.CmdFixed);
        EXPECT_EQ(SelectedDrives(form), (Texts{"C:", "D:"}));
        EXPECT_FALSE(module.Busy());
    });
}

TEST_F(DuplicateFilesTest, ATypeThatThereIsNotIsTold) {
    ASSERT_TRUE(Start());
    platform.faults.FailAlways(Service::Drives, "Roots", ErrorNumber::DeviceUnavailable);
    Expect({.text = "A fixed disk could not be found on your system..."});
    Show([this](frmDuplicateFiles& form) {
        EXPECT_EQ(form.ListDrives.Texts(), (Texts{"A:\\ [Removable]", "C:\\ [Fixed Disk]"}));
        const std::pair<forms::CommandButton*, const char*> buttons[] = {
            {&form.CmdFixed, "A fixed disk could not be found on your system..."},
            {&form.CmdRemovable, "A removable disk could not be found on your system..."},
            {&form.CmdCDROM, "A CD-ROM drive could not be found on your system..."},
            {&form.CmdNetwork, "A network drive could not be found on your system..."}};
        for (const auto& [button, text] : buttons) {
            form.ListDrives.SelectAll();
            Expect({.text = text});
            Press(*button);
            EXPECT_EQ(SelectedDrives(form), Texts{});
            EXPECT_FALSE(module.Busy());
        }
        // They can be searched all the same.
        form.ListDrives.Select(1);
        PutThree();
        Search(form);
        EXPECT_EQ(form.ListFiles.ListCount(), 3);
    });
}

TEST_F(DuplicateFilesTest, MovingWithTheButtonHeldSelects) {
    Show([](frmDuplicateFiles& form) {
        form.ListDrives.SelectNone();
        const auto mouse = [&](forms::MouseAction action, int row) {
            form.ListDrives.Deliver(
                forms::MouseEvent{action, forms::MouseButton::Left, 0, 5, 5 + 20 * row, row});
        };
        mouse(forms::MouseAction::Down, 1);
        mouse(forms::MouseAction::Move, 2);
        mouse(forms::MouseAction::Move, 3);
        mouse(forms::MouseAction::Up, 3);
        EXPECT_EQ(SelectedDrives(form), (Texts{"C:", "D:", "E:"}));
    });
}

TEST_F(DuplicateFilesTest, WithoutADriveThereIsNoSearch) {
    Show([this](frmDuplicateFiles& form) {
        Press(form.CmdNone);
        Expect({.text = "Select the drive(s) to search and then try again..."});
        Press(form.CmdFind);
        EXPECT_EQ(form.MousePointer.Get(), forms::MousePointer::Default);
        form.ListDrives.Clear();
        Expect({.text = "Error, unable to search for duplicate files.\r\n\r\n"
                        "The current drive letters could not be aquired from system...",
                .icon = BoxIcon::Stop});
        Press(form.CmdFind);
        ExpectEnabled(form, true);
        EXPECT_EQ(Status(form), StartText);
    });
}

TEST_F(DuplicateFilesTest, TheUserMayThinkBetterOfIt) {
    PutThree();
    Show([this](frmDuplicateFiles& form) {
        Search(form);
        const Texts found = Listed(form);
        platform.faults.Clear();
        ExpectBegin(Answer::Cancel);
        Press(form.CmdFind);
        EXPECT_EQ(Listed(form), found) << "the former result";
        EXPECT_EQ(platform.faults.Calls(Service::Files), 0);
        ExpectEnabled(form, true);
    });
}

TEST_F(DuplicateFilesTest, FilesOfOneNameAreListedTheLastFirst) {
    PutThree();
    Put("C:\\D\\only.bmp");
    Put("C:\\D\\x.txt");
    Show([this](frmDuplicateFiles& form) {
        Search(form);
        EXPECT_EQ(Listed(form), (Texts{"C:\\C\\X.BMP", "C:\\B\\x.bmp", "C:\\A\\X.BMP"}));
        EXPECT_EQ(Status(form), " Selected drive(s) have been searched, 3 duplicate files were found...");
        EXPECT_EQ(form.MousePointer.Get(), forms::MousePointer::Default);
        EXPECT_EQ(form.ListFiles.ListIndex.Get(), -1);
        ExpectEnabled(form, true);
    });
}

TEST_F(DuplicateFilesTest, TheNamesOfSeveralDrivesAreCompared) {
    Put("C:\\p\\x.jpg", "this");
    Put("D:\\X.JPG", "that");
    Put("F:\\x.jpg", "not searched");
    Show([this](frmDuplicateFiles& form) {
        Search(form);
        EXPECT_EQ(Listed(form), (Texts{"D:\\X.JPG", "C:\\p\\x.jpg"}));
    });
}

TEST_F(DuplicateFilesTest, ADiskThatStandsOnTwoDrivesIsOne) {
    const auto disk = platform.disks.InsertDisk('F');
    platform.disks.InsertDisk('D', disk);
    Put("D:\\x.bmp");
    Show([this](frmDuplicateFiles& form) {
        SelectDrives(form, {2, 4});
        ExpectBegin();
        Expect({.text = NoDuplicates});
        Press(form.CmdFind);
        EXPECT_EQ(Listed(form), Texts{});
    });
}

TEST_F(DuplicateFilesTest, WithoutDuplicatesThisIsTold) {
    Put("C:\\p\\x.jpg");
    Show([this](frmDuplicateFiles& form) {
        ExpectBegin();
        Expect({.text = NoDuplicates, .whileOpen = [&] { ExpectEnabled(form, false); }});
        Press(form.CmdFind);
        EXPECT_EQ(Status(form), " Selected drive(s) have been searched, no duplicate files were found...");
    });
}

TEST_F(DuplicateFilesTest, ADriveWithoutADiskCanBePassedOver) {
    PutThree();
    Show([this](frmDuplicateFiles& form) {
        SelectDrives(form, {0, 1});
        ExpectBegin();
        ExpectUnable("A:\\  [Removable]", "Insert a disk in the selected drive and then try again...",
                     Answer::Cancel);
        Press(form.CmdFind);
        EXPECT_EQ(form.ListFiles.ListCount(), 3);
        // With no duplicates on the others, nothing is said of them.
        SelectDrives(form, {0, 2});
        ExpectBegin();
        ExpectUnable("A:\\  [Removable]", "Insert a disk in the selected drive and then try again...",
                     Answer::Cancel);
        Press(form.CmdFind);
        EXPECT_EQ(Listed(form), Texts{});
        EXPECT_EQ(Status(form), " Selected drive(s) have been searched, no duplicate files were found...");
    });
}

TEST_F(DuplicateFilesTest, ADiskThatIsPutInIsSearched) {
    Put("C:\\p\\x.jpg");
    Show([this](frmDuplicateFiles& form) {
        SelectDrives(form, {0, 1});
        ExpectBegin();
        ExpectUnable("A:\\  [Removable]", "Insert a disk in the selected drive and then try again...",
                     Answer::Retry, [this] {
                         platform.disks.InsertDisk('A');
                         Put("A:\\X.jpg");
                     });
        Press(form.CmdFind);
        EXPECT_EQ(Listed(form), (Texts{"C:\\p\\x.jpg", "A:\\X.jpg"}));
    });
}

TEST_F(DuplicateFilesTest, AnotherFailureIsTold) {
    Show([this](frmDuplicateFiles& form) {
        SelectDrives(form, {2});
        platform.disks.SetUnreadable("D:\\", true);
        ExpectBegin();
        ExpectUnable("D:\\  [Fixed Disk]", "Error: Permission denied...", Answer::Cancel);
        Press(form.CmdFind);
        platform.disks.RemoveDrive('D');
        ExpectBegin();
        ExpectUnable("D:\\  [Fixed Disk]", "Error: Device unavailable...", Answer::Cancel);
        Press(form.CmdFind);
    });
}

TEST_F(DuplicateFilesTest, AFolderThatCannotBeReadIsPassedOver) {
    PutThree();
    platform.disks.SetUnreadable("C:\\B", true);
    Show([this](frmDuplicateFiles& form) {
        Search(form);
        EXPECT_EQ(Listed(form), (Texts{"C:\\C\\X.BMP", "C:\\A\\X.BMP"}));
    });
}

TEST_F(DuplicateFilesTest, DuringASearchOnlyCancelCanBePressed) {
    PutThree();
    Show([this](frmDuplicateFiles& form) {
        bool seen = false;
        WhileReading("C:\\C\\", [&, this] {
            seen = true;
            ExpectEnabled(form, false);
            EXPECT_EQ(form.MousePointer.Get(), forms::MousePointer::ArrowHourglass);
            EXPECT_EQ(Status(form),
                      " Searching drive C:\\  [Fixed Disk] for duplicate image files, please wait...   "
                      "FOUND: 2");
            Expect({.text = "Press the Cancel button to stop searching for files..."});
            form.Deliver(forms::CloseEvent{});
            EXPECT_FALSE(form.Unloaded());
            // The list is empty.
            Expect({.text = NoFiles});
            PressDelete(form.ListFiles);
            Expect({.text = NoFiles});
            form.ListFiles.OnDblClick();
        });
        Search(form);
        EXPECT_TRUE(seen);
        EXPECT_EQ(form.ListFiles.ListCount(), 3);
    });
}

TEST_F(DuplicateFilesTest, PreparingIsToldUntilTheDriveHasAnswered) {
    Show([this](frmDuplicateFiles& form) {
        Texts seen;
        platform.faults.Clear();
        for (const int call : {1, 2})
            platform.faults.AtNth(Service::Files, call, [&] { seen.push_back(Status(form)); });
        SelectDrives(form, {1});
        ExpectBegin();
        Expect({.text = NoDuplicates});
        Press(form.CmdFind);
        EXPECT_EQ(seen,
                  (Texts{" Preparing to search selected drive(s) for duplicate image files, please wait...",
                         " Searching drive C:\\  [Fixed Disk] for duplicate image files, please wait...   "
                         "FOUND: 0"}));
    });
}

TEST_F(DuplicateFilesTest, CancelShowsWhatWasFound) {
    PutThree();
    Put("D:\\x.bmp");
    Show([this](frmDuplicateFiles& form) {
        bool cancelled = false;
        WhileReading("C:\\C\\", [&, this] {
            Press(form.CmdFind);
            cancelled = true;
            EXPECT_TRUE(form.DupCancelled);
            ExpectEnabled(form, true);
            EXPECT_EQ(Status(form), StartText);
            Press(form.CmdFind);  // it has not unwound yet
            EXPECT_EQ(form.CmdFind.Caption.Get(), "&Search");
            Expect({.text = NoFiles});
            Press(form.CmdOpen);
        });
        Search(form);
        EXPECT_TRUE(cancelled);
        EXPECT_EQ(Listed(form), (Texts{"C:\\B\\x.bmp", "C:\\A\\X.BMP"}));
        EXPECT_EQ(Status(form), StartText);
        platform.faults.Clear();
        Search(form);
        EXPECT_EQ(form.ListFiles.ListCount(), 4) << "the next search is whole";
    });
}

TEST_F(DuplicateFilesTest, CancelIsHeardBetweenTwoDrives) {
    PutThree();
    Put("D:\\x.bmp");
    Show([this](frmDuplicateFiles& form) {
        platform.faults.Clear();
        // The drive is read so fast that no events run on the way.
        platform.faults.AtNth(headless::Service::Files, 2,
                              [&, this] { toolkit.Post([&form] { Press(form.CmdFind); }); });
        Search(form);
        EXPECT_EQ(Listed(form), (Texts{"C:\\C\\X.BMP", "C:\\B\\x.bmp", "C:\\A\\X.BMP"}));
        EXPECT_TRUE(std::ranges::none_of(platform.faults.Log(), [](const std::string& call) {
            return call.starts_with("Files.Look D:");
        }));
    });
}

TEST_F(DuplicateFilesTest, CancelWithNothingFoundIsToldAsNothingFound) {
    PutThree();
    Show([this](frmDuplicateFiles& form) {
        WhileReading("C:\\B\\", [&] { Press(form.CmdFind); });
        ExpectBegin();
        Expect({.text = NoDuplicates});
        Press(form.CmdFind);
        EXPECT_EQ(Status(form), StartText);
    });
}

TEST_F(DuplicateFilesTest, AWindowThatIsClosedWhileItUnwindsListsNothing) {
    PutThree();
    Show([this](frmDuplicateFiles& form) {
        platform.faults.Clear();
        WhileReading("C:\\C\\", [&] {
            Press(form.CmdFind);
            Press(form.CmdClose);
            EXPECT_TRUE(form.Unloaded());
        });
        Search(form);
        EXPECT_EQ(Listed(form), Texts{});
        const auto& log = platform.faults.Log();
        EXPECT_EQ(
            std::ranges::count_if(log, [](const auto& call) { return call.starts_with("Files.Look D"); }), 0);
    });
}

TEST_F(DuplicateFilesTest, AWindowThatIsClosedAsTheSearchBeginsSearchesNothing) {
    Show([this](frmDuplicateFiles& form) {
        toolkit.AtYield(1, [&] { Press(form.CmdClose); });
        platform.faults.Clear();
        Press(form.CmdFind);
        EXPECT_EQ(platform.faults.Calls(Service::Files), 0);
    });
}

TEST_F(DuplicateFilesTest, TheDrivesAreThoseOfTheStart) {
    PutThree();
    Put("D:\\x.bmp");
    Show([this](frmDuplicateFiles& form) {
        WhileReading("C:\\C\\", [&] { form.ListDrives.SelectNone(); });
        Search(form);
        EXPECT_EQ(form.ListFiles.ListCount(), 4);
    });
}

TEST_F(DuplicateFilesTest, WithoutAFileTheButtonsTellWhy) {
    PutThree();
    Show([this](frmDuplicateFiles& form) {
        const std::pair<forms::CommandButton*, const char*> buttons[] = {
            {&form.CmdOpen, "Select a file to open and then try again..."},
            {&form.CmdPreview, "Select a file to preview and then try again..."},
            {&form.CmdShowPath, "Select a file first, if you need to see more information..."},
            {&form.CmdDelete, "Select a file to delete and then try again..."}};
        for (const auto& [button, text] : buttons) {
            Expect({.text = NoFiles});
            Press(*button);
        }
        Search(form);
        for (const auto& [button, text] : buttons) {
            Expect({.text = text});
            Press(*button);
        }
    });
}

TEST_F(DuplicateFilesTest, OpensAFileIfTheUserAgrees) {
    PutThree();
    Show([this](frmDuplicateFiles& form) {
        Search(form);
        form.ListFiles.ListIndex = 1;
        EXPECT_EQ(form.ListFiles.ToolTip.Get(), "C:\\B\\x.bmp");
        ExpectOpenQuestion("C:\\B\\x.bmp", Answer::No);
        Press(form.CmdOpen);
        EXPECT_EQ(module.CurrentImage, "");
        ExpectOpenQuestion("C:\\B\\x.bmp", Answer::Yes);
        form.ListFiles.Deliver(forms::DoubleClickEvent{});
        EXPECT_EQ(app.Loaded<frmDuplicateFiles>(), nullptr);
    });
    EXPECT_EQ(module.CurrentImage, "C:\\B\\x.bmp");
    EXPECT_EQ(module.config.Recent[0], "C:\\B\\x.bmp");
}

TEST_F(DuplicateFilesTest, ImportsAndTellsFailuresUnderItsOwnTitle) {
    Put("C:\\A\\t.tga", PlainTga(5, 4, 0, 0));
    Put("C:\\B\\t.tga", "broken");
    Show([this](frmDuplicateFiles& form) {
        Search(form);
        form.ListFiles.ListIndex = 0;
        ExpectOpenQuestion("C:\\B\\t.tga", Answer::Yes);
        Expect(
            {.text = "Unable to open the selected file.\r\n\r\nInvalid picture...", .icon = BoxIcon::Stop});
        Press(form.CmdOpen);
    });
    ExpectEmptyView();
    EXPECT_FALSE(platform.disks.Exists(WorkingPath));
    Show([this](frmDuplicateFiles& form) {
        Search(form);
        form.ListFiles.ListIndex = 1;
        ExpectOpenQuestion("C:\\A\\t.tga", Answer::Yes);
        Press(form.CmdOpen);
    });
    EXPECT_EQ(module.CurrentImage, WorkingPath);
}

TEST_F(DuplicateFilesTest, PreviewsOnTheStage) {
    PutThree();
    int staged = 0;
    Show([&, this](frmDuplicateFiles& form) {
        Search(form);
        form.ListFiles.ListIndex = 2;
        toolkit.OnModal("FullViewFrm", [&, this] {
            ++staged;
            EXPECT_EQ(module.StageImage, "C:\\A\\X.BMP");
            EXPECT_FALSE(module.SlideShowActive);
            EXPECT_FALSE(module.Busy());
            app.Unload(*app.Loaded<FullViewFrm>());
        });
        module.SlideShowActive = true;
        Press(form.CmdPreview);
        EXPECT_EQ(staged, 1);
        EXPECT_FALSE(module.Busy());
        EXPECT_FALSE(form.Unloaded());
    });
    EXPECT_EQ(module.CurrentImage, "");
}

TEST_F(DuplicateFilesTest, WhatMustBeImportedHasNoPreview) {
    Put("C:\\A\\t.tga");
    Put("C:\\B\\t.tga");
    Put("D:\\x.Pcx");
    Put("D:\\y\\x.pcx");
    Show([this](frmDuplicateFiles& form) {
        Search(form);
        const auto refused = [&](int row, const std::string& ending) {
            form.ListFiles.ListIndex = row;
            Expect({.text = "Unable to show a preview of a \"" + ending +
                            "\" file, it needs to be imported first.\r\n\r\n"
                            "Click the \"Open\" button to import this file..."});
            Press(form.CmdPreview);
        };
        refused(0, ".TGA");
        refused(2, ".PCX");
        EXPECT_EQ(app.Loaded<FullViewFrm>(), nullptr);
    });
}

TEST_F(DuplicateFilesTest, TellsAboutAFile) {
    platform.disks.PutFile("C:\\A\\x.bmp", std::string(1234567, 'x'), {1999, 12, 31, 23, 58, 59});
    Put("C:\\B\\x.bmp");
    Show([this](frmDuplicateFiles& form) {
        Search(form);
        form.ListFiles.ListIndex = 1;
        Expect({.text = "Complete path to selected image file:\r\n\r\nC:\\A\\x.bmp\r\n\r\n"
                        "File date and time = " +
                        platform.system.ShortDateTime({1999, 12, 31, 23, 58, 59}) +
                        "\r\nFile size = 1,234,567 bytes"});
        Press(form.CmdShowPath);
        form.ListFiles.ListIndex = 0;
        platform.disks.Remove("C:\\B\\x.bmp");
        Expect({.text = "Complete path to selected image file:\r\n\r\nC:\\B\\x.bmp\r\n\r\n"
                        "File date and time = Unknown\r\nFile size = Unknown"});
        Press(form.CmdShowPath);
    });
}

TEST_F(DuplicateFilesTest, DeletesAFileAndLeavesALoneOne) {
    PutThree();
    ASSERT_TRUE(Start());
    for (const char* path : {"C:\\C\\X.BMP", "C:\\A\\X.BMP"})
        View().Deliver(forms::DropEvent{{path}});
    Show([this](frmDuplicateFiles& form) {
        Search(form);
        form.ListFiles.ListIndex = 2;
        Expect({.text = "Unable to delete this file, image is currently open..."});
        Press(form.CmdDelete);
        form.ListFiles.ListIndex = 0;
        ExpectRecycle("C:\\C\\X.BMP", Answer::Yes);
        PressDelete(form.ListFiles);
        EXPECT_EQ(Listed(form), (Texts{"C:\\B\\x.bmp", "C:\\A\\X.BMP"}));
        EXPECT_EQ(form.ListFiles.ListIndex.Get(), 0);
        EXPECT_EQ(form.ListFiles.ToolTip.Get(), "C:\\B\\x.bmp");
        EXPECT_EQ(Status(form), StartText);
        EXPECT_EQ(module.config.Recent[1], "");
        ExpectRecycle("C:\\B\\x.bmp", Answer::No);
        Press(form.CmdDelete);
        EXPECT_EQ(Listed(form), Texts{"C:\\A\\X.BMP"}) << "a lone one stays until the next search";
    });
    EXPECT_FALSE(platform.disks.Exists("C:\\C\\X.BMP"));
    EXPECT_TRUE(platform.disks.Exists("C:\\B\\x.bmp"));
}

TEST_F(DuplicateFilesTest, TheOpenImageIsMeantByWhateverPath) {
    const auto disk = platform.disks.InsertDisk('F');
    platform.disks.InsertDisk('D', disk);
    PutPicture("D:\\p\\x.bmp", 10, 10);
    Put("C:\\x.bmp");
    ASSERT_TRUE(Start("F:\\p\\x.bmp"));
    Show([this](frmDuplicateFiles& form) {
        Search(form);
        EXPECT_EQ(Listed(form), (Texts{"D:\\p\\x.bmp", "C:\\x.bmp"}));
        form.ListFiles.ListIndex = 0;
        Expect({.text = "Unable to delete this file, image is currently open..."});
        Press(form.CmdDelete);
        EXPECT_EQ(form.ListFiles.ListCount(), 2);
    });
    EXPECT_TRUE(platform.disks.Exists("D:\\p\\x.bmp"));
}

TEST_F(DuplicateFilesTest, AVanishedFileIsNotTheOneBesideIt) {
    Put("C:\\p\\X.BMP", "the one");
    Put("C:\\q\\x.bmp");
    Show([this](frmDuplicateFiles& form) {
        Search(form);
        ASSERT_EQ(form.ListFiles.ListCount(), 2);
        form.ListFiles.ListIndex = 1;
        platform.disks.Remove("C:\\p\\X.BMP");
        Put("C:\\p\\x.bmp", "the other");
        Expect({.text = "Unable to delete the selected file.\r\n\r\nFile not found...",
                .icon = BoxIcon::Exclamation});
        Press(form.CmdDelete);
        EXPECT_EQ(form.ListFiles.ListCount(), 2);
    });
    EXPECT_EQ(platform.disks.Content("C:\\p\\x.bmp"), "the other");
}

TEST_F(DuplicateFilesTest, AnUnsavedImageIsAskedAboutFirst) {
    ASSERT_TRUE(Start());
    PutPicture(WorkingPath, 60, 50);
    module.CurrentImage = WorkingPath;
    ExpectDiscard(Answer::No);
    ExpectNotShown();
    {
        const forms::BusyGuard busy(module.Screen());
        ExpectNotShown();
    }
    ExpectDiscard(Answer::Yes);
    Show([](frmDuplicateFiles&) {});
}

TEST_F(DuplicateFilesTest, TheEndOfTheSessionInASearchSaves) {
    PutThree();
    Show([this](frmDuplicateFiles& form) {
        WhileReading("C:\\C\\", [this] {
            module.config.QualityJPG = 3;
            SaveForEndOfSession(module);
            EXPECT_EQ(Saved("QualityJPG"), "3");
        });
        Search(form);
        EXPECT_EQ(form.ListFiles.ListCount(), 3);
    });
}

}  // namespace
}  // namespace tavrix::test
