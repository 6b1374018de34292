#include "shows/library/FindSlideFrm.h"

#include "core/HelpContexts.h"
#include "editing/Accelerators.h"
#include "shows/stage/FullViewFrm.h"
#include "viewer/ViewerTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;
using Texts = std::vector<std::string>;

constexpr const char* Title = "Tavrix - [Find Slide Show(s)]";
constexpr const char* Hint = "Enter part of a filename and press the \"Find\" button...";
constexpr const char* None = "Unable to find filenames matching the specified file pattern...";
constexpr const char* NothingToShow = "This slide show file does not contain any images, nothing to show...";

/// A main view with A: without a disk, C: and D: with shows.
class FindSlideFrmTest : public ViewerTest {
  protected:
    FindSlideFrmTest() {
        platform.disks.AddDrive('D', DriveType::Fixed);
        platform.disks.InsertDisk('D');
        PutPicture("C:\\s\\1.bmp", 20, 10);
        PutShow("C:\\s\\cats.tvs", {"1.bmp"});
        PutShow("C:\\s\\old\\CATS 2.TVS", {"C:\\s\\1.bmp"});
        PutShow("C:\\s\\dogs.tvs", {});
        platform.disks.PutFile("C:\\s\\cats.txt", "");
    }

    void PutShow(const std::string& path, const Texts& slides) {
        std::string lines =
            "\"Tavrix Slide Show\"\r\n\"Version "
            "1.5\"\r\n0\r\n\"\"\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n-1\r\n0\r\n";
        for (const std::string& slide : slides)
            lines += "\"" + slide + "\"\r\n\"\"\r\n";
        platform.disks.PutFile(path, lines);
    }
    /// Chooses the command; the user does this in the dialog, which is closed then where it is open still.
    void Show(std::function<void(FindFiles&)> user, bool start = true) {
        if (start) {
            ASSERT_TRUE(Start());
        }
        int shown = 0;
        toolkit.OnModal("FindSlideFrm", [&, this] {
            ++shown;
            EXPECT_FALSE(module.Busy());
            user(app.Loaded<FindSlideFrm>()->Find);
            if (auto* dialog = app.Loaded<FindSlideFrm>()) app.Unload(*dialog);
        });
        EXPECT_FALSE(Choose(View().menu.mnuFindSlideShow));
        EXPECT_EQ(shown, 1);
        EXPECT_EQ(app.Loaded<FindSlideFrm>(), nullptr);
        ExpectIdle();
    }
    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void Find(FindFiles& find, const std::string& text) {
        find.txtSearch.Deliver(forms::TextEvent{text});
        Press(find.CmdFind);
    }
    static Texts Listed(const FindFiles& find) { return find.ListFiles.Texts(); }
    static std::string Status(const FindFiles& find) {
        return find.PicFound.Printed().size() == 1 ? find.PicFound.Printed().front() : "(other)";
    }
    void ExpectTold(const std::string& text) { Expect({.text = text, .title = Title}); }
    void ExpectQuestion(const std::string& text, Answer reply, const char* title = Title) {
        Expect({.text = text,
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply,
                .title = title});
    }
    void ExpectRecycle(const std::string& path, Answer reply) {
        ExpectQuestion("Are you sure you want to send the following file to the Recycle Bin?\r\n\r\n" + path,
                       reply, "Tavrix");
    }
    /// The user does something while the folder of this number is read, which takes a second.
    void WhileReading(int folder, std::function<void()> user) {
        platform.faults.Clear();
        platform.faults.AtNth(Service::Files, folder, [this, user = std::move(user)] {
            toolkit.Advance(std::chrono::seconds(1));
            toolkit.Post(user);
        });
    }
    static void PressDelete(FindFiles& find) {
        find.ListFiles.SetFocus();
        find.ListFiles.OwnerForm().Deliver(forms::KeyEvent{true, forms::KeyCode::Delete, 0, nullptr});
    }
    static void ExpectEnabled(const FindFiles& find, bool enabled) {
        for (const forms::Control* control : std::initializer_list<const forms::Control*>{
                 &find.CmdFind, &find.CmdOpen, &find.ListFiles, &find.Drive1, &find.txtSearch})
            EXPECT_EQ(control->Enabled.Get(), enabled) << control->Name();
    }
};

TEST_F(FindSlideFrmTest, TextsAreAsTold) {
    Show([](FindFiles& find) {
        const forms::Form& form = find.CmdFind.OwnerForm();
        EXPECT_EQ(form.Caption.Get(), "Find Slide Show(s)");
        EXPECT_EQ(form.HelpContext, HelpContext::FindSlideShow);
        const Texts texts{find.lblDrives.Caption, find.Drive1.ToolTip,    find.lblSearch.Caption,
                          find.txtSearch.ToolTip, find.lblFound.Caption,  find.CmdFind.Caption,
                          find.CmdFind.ToolTip,   find.CmdOpen.Caption,   find.CmdOpen.ToolTip,
                          find.CmdCancel.Caption, find.CmdCancel.ToolTip, find.CmdHelp.Caption};
        EXPECT_EQ(
            texts,
            (Texts{"Select drive to search:", "Click to select drive.",
                   "Enter filename pattern to search for or enter * to find ALL slide show files:",
                   "Enter * or part of a filename and press the \"Find\" button to search for slide shows...",
                   "File(s) Found:", "&Find File(s)",
                   "Click here to find slide shows matching the specified pattern.", "&Open",
                   "Click here to open the selected file.", "&Cancel", "Don't open file.", "Help"}));
        EXPECT_TRUE(find.CmdFind.Default);
        EXPECT_TRUE(find.CmdCancel.Cancel);
        ExpectOwnLetters(form, 3);
        EXPECT_EQ(Status(find), Hint);
    });
}

TEST_F(FindSlideFrmTest, BeginsOnTheDriveOfTheImage) {
    PutPicture("D:\\p\\x.bmp", 4, 4);
    ASSERT_TRUE(Start("D:\\p\\x.bmp"));
    platform.files.ChangeDrive("C");
    Show(
        [this](FindFiles& find) {
            EXPECT_EQ(find.Drive1.Drive.Get(), "D:");
            EXPECT_EQ(platform.files.CurrentFolder().substr(0, 2), "D:");
            EXPECT_EQ(find.txtSearch.Text.Get(), "*");
            EXPECT_EQ(find.txtSearch.SelLength.Get(), 1);
            EXPECT_EQ(Status(find), Hint);
        },
        false);
    platform.files.ChangeDrive("C");
    platform.disks.RemoveDrive('D');
    Show([](FindFiles& find) { EXPECT_EQ(find.Drive1.Drive.Get(), "C:"); }, false);
}

TEST_F(FindSlideFrmTest, FindsByAPieceOfTheNameAndItsCase) {
    Show([this](FindFiles& find) {
        Find(find, "cats");
        EXPECT_EQ(Listed(find), (Texts{"C:\\s\\cats.tvs"}));
        EXPECT_EQ(find.FoundCount, 1);
        EXPECT_EQ(Status(find), "Found a total of: 1 slide shows on C:");
        EXPECT_EQ(find.ListFiles.ListIndex.Get(), 0);
        EXPECT_EQ(find.ListFiles.ToolTip.Get(), "C:\\s\\cats.tvs");
        EXPECT_EQ(find.txtSearch.Text.Get(), "cats");
        EXPECT_EQ(find.txtSearch.SelLength.Get(), 4);
        EXPECT_EQ(find.txtSearch.OwnerForm().ActiveControl(), &find.txtSearch);
        Find(find, "  CATS ");
        EXPECT_EQ(Listed(find), (Texts{"C:\\s\\old\\CATS 2.TVS"}));
        EXPECT_EQ(find.txtSearch.Text.Get(), "CATS");
        Find(find, ".tvs");
        EXPECT_EQ(Listed(find), (Texts{"C:\\s\\cats.tvs", "C:\\s\\dogs.tvs"}));
    });
}

TEST_F(FindSlideFrmTest, WildcardsMeanNothing) {
    const Texts all{"C:\\s\\old\\CATS 2.TVS", "C:\\s\\cats.tvs", "C:\\s\\dogs.tvs"};
    Show([&](FindFiles& find) {
        for (const char* text : {"*", "?", "*?*"}) {
            Find(find, text);
            EXPECT_EQ(Listed(find), all) << text;
            EXPECT_EQ(find.txtSearch.Text.Get(), "*") << text;
            EXPECT_EQ(Status(find), "Found a total of: 3 slide shows on C:");
        }
        Find(find, "c*at?s.");
        EXPECT_EQ(find.txtSearch.Text.Get(), "cats.");
        EXPECT_EQ(Listed(find), (Texts{"C:\\s\\cats.tvs"}));
    });
}

TEST_F(FindSlideFrmTest, NothingEnteredIsAskedAbout) {
    Show([this](FindFiles& find) {
        const std::string question = "Nothing was entered...\r\n\r\nFind ALL slide show files on C:?";
        ExpectQuestion(question, Answer::No);
        Find(find, "   ");
        EXPECT_EQ(Listed(find), Texts{});
        EXPECT_EQ(find.txtSearch.OwnerForm().ActiveControl(), &find.txtSearch);
        EXPECT_EQ(Status(find), Hint);
        ExpectQuestion(question, Answer::Yes);
        Find(find, "");
        EXPECT_EQ(Listed(find).size(), 3U);
        EXPECT_EQ(find.txtSearch.Text.Get(), "*");
    });
}

TEST_F(FindSlideFrmTest, PathsAreNotSearchedFor) {
    Show([this](FindFiles& find) {
        Find(find, "cats");
        const auto refused = [&](const std::string& text, const std::string& refusal, int at) {
            ExpectTold(refusal);
            Find(find, text);
            EXPECT_EQ(Listed(find), Texts{}) << "of the search before";
            EXPECT_EQ(find.txtSearch.Text.Get(), text);
            EXPECT_EQ(find.txtSearch.SelStart.Get(), at);
            EXPECT_EQ(find.txtSearch.SelLength.Get(), 1);
            ExpectEnabled(find, true);
        };
        refused(
            "\xC3\xA4"
            "b:c\\",
            "You may not use a colon (:) in the file pattern to find...", 2);
        refused("a\\b", "You may not use a backslash (\\) in the file pattern to find...", 1);
    });
}

TEST_F(FindSlideFrmTest, NothingFoundIsToldTwice) {
    Show([this](FindFiles& find) {
        ExpectTold(None);
        Find(find, "zebra");
        EXPECT_EQ(Status(find), None);
        EXPECT_EQ(find.ListFiles.ListIndex.Get(), -1);
        ExpectEnabled(find, true);
        EXPECT_FALSE(find.FindRunning);
    });
}

TEST_F(FindSlideFrmTest, TheDriveThatWasSelectedIsWalked) {
    PutShow("D:\\d.tvs", {});
    Show([this](FindFiles& find) {
        find.Drive1.Drive = "D:";
        EXPECT_EQ(Status(find), Hint);
        Press(find.CmdFind);
        EXPECT_EQ(Listed(find), (Texts{"D:\\d.tvs"}));
        EXPECT_EQ(Status(find), "Found a total of: 1 slide shows on D:");
    });
}

TEST_F(FindSlideFrmTest, WhileItSearchesOnlyCancelCanBeUsed) {
    Show([this](FindFiles& find) {
        bool seen = false;
        WhileReading(3, [&, this] {
            seen = true;
            ExpectEnabled(find, false);
            EXPECT_TRUE(find.CmdCancel.Enabled);
            EXPECT_TRUE(find.FindRunning);
            EXPECT_EQ(find.CmdFind.OwnerForm().MousePointer.Get(), forms::MousePointer::ArrowHourglass);
            EXPECT_EQ(Status(find), "Searching for slide shows...");
            find.CmdFind.OnClick();  // even so
            find.OnOpen();
            PressDelete(find);
        });
        Press(find.CmdFind);
        EXPECT_TRUE(seen);
        ExpectEnabled(find, true);
        EXPECT_EQ(Listed(find).size(), 3U);
        EXPECT_EQ(find.CmdFind.OwnerForm().MousePointer.Get(), forms::MousePointer::Default);
    });
}

TEST_F(FindSlideFrmTest, TheStatusCountsOnTheWay) {
    // Behind C:\s comes C:\z, so that all shows have been found when it is read.
    platform.disks.PutFile("C:\\z\\x.txt", "");
    Show([this](FindFiles& find) {
        bool seen = false;
        platform.faults.Clear();
        for (int call = 1; call < 20; ++call) {
            platform.faults.AtNth(Service::Files, call, [&, this, call] {
                if (platform.faults.Log().back() != "Files.Look C:\\z\\ *.tvs") return;
                toolkit.Advance(std::chrono::seconds(1));
                toolkit.Post([&] {
                    seen = true;
                    EXPECT_EQ(Status(find), "Found: 3 slide shows...");
                });
            });
        }
        Press(find.CmdFind);
        EXPECT_TRUE(seen);
    });
}

TEST_F(FindSlideFrmTest, CancelStopsTheSearchAndKeepsWhatWasFound) {
    platform.disks.PutFile("C:\\z\\x.txt", "");
    PutShow("C:\\a.tvs", {});
    Show([this](FindFiles& find) {
        for (const bool byFrame : {false, true}) {
            bool pressed = false;
            platform.faults.Clear();
            for (int call = 1; call < 20; ++call) {
                platform.faults.AtNth(Service::Files, call, [&, this] {
                    if (platform.faults.Log().back() != "Files.Look C:\\z\\ *.tvs") return;
                    toolkit.Advance(std::chrono::seconds(1));
                    toolkit.Post([&] {
                        pressed = true;
                        if (byFrame) {
                            find.CmdCancel.OwnerForm().Deliver(forms::CloseEvent{});
                        } else {
                            Press(find.CmdCancel);
                            EXPECT_FALSE(find.CmdCancel.Enabled);
                        }
                        EXPECT_TRUE(find.FindCancelled);
                    });
                });
            }
            Press(find.CmdFind);
            ASSERT_TRUE(pressed);
            EXPECT_EQ(Listed(find).size(), 3U) << "and not C:\\a.tvs";
            EXPECT_EQ(Status(find), "Find Slide Show(s) was canceled...");
            EXPECT_FALSE(find.FindRunning);
            EXPECT_FALSE(find.FindCancelled);
            EXPECT_TRUE(find.CmdCancel.Enabled);
            EXPECT_FALSE(find.CmdCancel.OwnerForm().Unloaded());
        }
        platform.faults.Clear();
        Press(find.CmdFind);
        EXPECT_EQ(Listed(find).size(), 4U);
    });
}

TEST_F(FindSlideFrmTest, CancelWithNothingFoundIsToldAsNothingFound) {
    Show([this](FindFiles& find) {
        WhileReading(2, [&] { Press(find.CmdCancel); });
        ExpectTold(None);
        Press(find.CmdFind);
        EXPECT_EQ(Status(find), None);
    });
}

TEST_F(FindSlideFrmTest, CancelClosesAnIdleWindow) {
    Show([this](FindFiles& find) {
        Press(find.CmdCancel);
        EXPECT_EQ(app.Loaded<FindSlideFrm>(), nullptr);
    });
}

TEST_F(FindSlideFrmTest, AWindowThatIsClosedAsTheSearchBeginsSearchesNothing) {
    Show([this](FindFiles& find) {
        toolkit.AtYield(1, [&] { Press(find.CmdCancel); });
        platform.faults.Clear();
        Press(find.CmdFind);
        EXPECT_EQ(app.Loaded<FindSlideFrm>(), nullptr);
        EXPECT_EQ(platform.faults.Calls(Service::Files), 0);
    });
    Show(
        [this](FindFiles& find) {
            toolkit.AtYield(2, [&] { Press(find.CmdCancel); });
            platform.faults.Clear();
            Press(find.CmdFind);
            EXPECT_EQ(app.Loaded<FindSlideFrm>(), nullptr);
            EXPECT_EQ(platform.faults.Calls(Service::Files), 0);
        },
        false);
}

TEST_F(FindSlideFrmTest, TheListHoldsSomeThousandsAndTheCountAll) {
    auto disk = std::make_shared<headless::MemoryDisk>();
    for (int number = 0; number < 32770; ++number) {
        disk->root->children[std::to_string(100'000 + number) + ".tvs"] =
            std::make_shared<headless::MemoryNode>();
    }
    platform.disks.InsertDisk('D', disk);
    Show([this](FindFiles& find) {
        find.Drive1.Drive = "D:";
        Press(find.CmdFind);
        EXPECT_EQ(find.ListFiles.ListCount(), 32767);
        EXPECT_EQ(find.ListFiles.List(32766), "D:\\132766.tvs");
        EXPECT_EQ(find.FoundCount, 32770);
        EXPECT_EQ(Status(find), "Found a total of: 32,770 slide shows on D:");
    });
}

TEST_F(FindSlideFrmTest, ADriveThatIsNotAvailableLeadsToTheProgramsDrive) {
    Show([this](FindFiles& find) {
        Expect({.text = "The selected drive is currently not available...",
                .icon = forms::BoxIcon::Exclamation});
        find.Drive1.Drive = "D:";
        platform.files.ChangeDrive("D");
        EXPECT_EQ(find.Drive1.Drive.Get(), "D:");
        find.Drive1.Drive = "A:";
        EXPECT_EQ(find.Drive1.Drive.Get(), "C:");
        EXPECT_EQ(platform.files.CurrentFolder().substr(0, 2), "C:");
        EXPECT_EQ(Status(find), Hint);
        EXPECT_FALSE(module.Busy());
        EXPECT_EQ(find.txtSearch.OwnerForm().ActiveControl(), &find.txtSearch);
    });
}

TEST_F(FindSlideFrmTest, TypingShowsTheHintUnlessTheProgramIsBusy) {
    Show([this](FindFiles& find) {
        Press(find.CmdFind);
        module.Screen().MousePointer = forms::MousePointer::Hourglass;
        find.txtSearch.Deliver(forms::TextEvent{"a"});
        EXPECT_EQ(Status(find), "Found a total of: 3 slide shows on C:");
        Press(find.CmdFind);
        EXPECT_EQ(Listed(find).size(), 3U) << "no search by a busy program";
        module.Screen().MousePointer = forms::MousePointer::Default;
        find.txtSearch.Deliver(forms::TextEvent{"ab"});
        EXPECT_EQ(Status(find), Hint);
    });
}

TEST_F(FindSlideFrmTest, TheDeleteKeyDeletesAShow) {
    ASSERT_TRUE(Start());
    module.config.RecentShows[0] = "C:\\s\\old\\CATS 2.TVS";
    module.config.RecentShows[1] = "C:\\s\\cats.tvs";
    Show(
        [this](FindFiles& find) {
            Expect({.text = "Unable to delete file by pressing the delete key, nothing is selected in the "
                            "file list..."});
            PressDelete(find);
            Press(find.CmdFind);
            ExpectRecycle("C:\\s\\old\\CATS 2.TVS", Answer::Yes);
            PressDelete(find);
            EXPECT_FALSE(platform.disks.Exists("C:\\s\\old\\CATS 2.TVS"));
            EXPECT_EQ(module.config.RecentShows[0], "C:\\s\\cats.tvs");
            EXPECT_EQ(Listed(find), (Texts{"C:\\s\\cats.tvs", "C:\\s\\dogs.tvs"}));
            EXPECT_EQ(find.ListFiles.ListIndex.Get(), 0);
            EXPECT_EQ(find.ListFiles.ToolTip.Get(), "C:\\s\\cats.tvs");
            EXPECT_EQ(Status(find), "Found a total of: 2 slide shows on C:");
            // The last row: the one before it is selected. What the user declines stays on the disk.
            find.ListFiles.Deliver(forms::RowEvent{1});
            EXPECT_EQ(find.ListFiles.ToolTip.Get(), "C:\\s\\dogs.tvs");
            ExpectRecycle("C:\\s\\dogs.tvs", Answer::No);
            PressDelete(find);
            EXPECT_TRUE(platform.disks.Exists("C:\\s\\dogs.tvs"));
            EXPECT_EQ(find.ListFiles.ListIndex.Get(), 0);
            ExpectRecycle("C:\\s\\cats.tvs", Answer::No);
            PressDelete(find);
            EXPECT_EQ(module.config.RecentShows[0], "C:\\s\\cats.tvs") << "it is there still";
            EXPECT_EQ(Listed(find), Texts{});
            EXPECT_EQ(find.ListFiles.ToolTip.Get(), "");
            EXPECT_EQ(Status(find), "Found a total of:  slide shows on C:");
            ExpectTold(
                "No valid slide show files were found, select a drive and press the \"Find\" button to "
                "search for files...");
            Press(find.CmdOpen);
        },
        false);
    EXPECT_EQ(platform.shell.trash.size(), 1U);
}

TEST_F(FindSlideFrmTest, WhatCannotBeDeletedStaysListed) {
    Show([this](FindFiles& find) {
        Press(find.CmdFind);
        platform.shell.trashRefusal = ErrorNumber::PermissionDenied;
        ExpectRecycle("C:\\s\\old\\CATS 2.TVS", Answer::Yes);
        Expect({.text = "Unable to delete the selected file.\r\n\r\nPermission denied...",
                .icon = forms::BoxIcon::Exclamation,
                .title = Title});
        PressDelete(find);
        EXPECT_EQ(find.ListFiles.ListCount(), 3);
        EXPECT_EQ(find.FoundCount, 3);
        // One that has gone, beside which a look-alike stands.
        platform.shell.trashRefusal.reset();
        platform.disks.Remove("C:\\s\\cats.tvs");
        platform.disks.PutFile("C:\\s\\Cats.tvs", "another");
        find.ListFiles.Deliver(forms::RowEvent{1});
        Expect({.text = "Unable to delete the selected file.\r\n\r\nFile not found...",
                .icon = forms::BoxIcon::Exclamation,
                .title = Title});
        PressDelete(find);
        EXPECT_TRUE(platform.disks.Exists("C:\\s\\Cats.tvs"));
        EXPECT_EQ(platform.shell.trash.size(), 0U);
    });
}

TEST_F(FindSlideFrmTest, WhatMayNotBeDeletedStaysListed) {
    Show([](FindFiles& find) {
        Press(find.CmdFind);
        std::string asked;
        find.MayDelete = [&asked](const std::string& path) {
            asked = path;
            return false;
        };
        PressDelete(find);
        EXPECT_EQ(asked, "C:\\s\\old\\CATS 2.TVS");
        EXPECT_EQ(find.ListFiles.ListCount(), 3);
        EXPECT_EQ(find.FoundCount, 3);
    });
}

TEST_F(FindSlideFrmTest, AShowWithoutImagesIsNotPlayed) {
    Show([this](FindFiles& find) {
        ExpectTold(
            "No valid slide show files were found, select a drive and press the \"Find\" button to search "
            "for "
            "files...");
        Press(find.CmdOpen);
        Find(find, "dogs");
        find.ListFiles.ListIndex = -1;
        ExpectTold("Select a file to open and then try again...");
        Press(find.CmdOpen);
        find.ListFiles.ListIndex = 0;
        ExpectTold(NothingToShow);
        Press(find.CmdOpen);
        EXPECT_FALSE(find.CmdOpen.OwnerForm().Unloaded());
        platform.disks.PutFile("C:\\s\\dogs.tvs", "no show");
        Expect(
            {.text =
                 "The selected file is not a valid Tavrix Slide Show file...\r\n\r\nFilenames with .TVS in "
                 "the last 4 positions are normally associated with Tavrix files.",
             .icon = forms::BoxIcon::Exclamation,
             .systemModal = true});
        ExpectTold(NothingToShow);
        Press(find.CmdOpen);
    });
    EXPECT_EQ(app.Loaded<FullViewFrm>(), nullptr);
    EXPECT_FALSE(module.StartedAsShow);
}

TEST_F(FindSlideFrmTest, AShowThatWasFoundIsPlayed) {
    for (const bool byDoubleClick : {false, true}) {
        int played = 0;
        toolkit.OnModal("FullViewFrm", [&, this] {
            ++played;
            EXPECT_TRUE(module.SlideShowActive);
            EXPECT_TRUE(module.StartedAsShow);
            EXPECT_EQ(module.show.SlideCount, 1);
            EXPECT_EQ(app.Loaded<FullViewFrm>()->CurrentPath(), "1.bmp");
            EXPECT_EQ(platform.files.CurrentFolder(), "C:\\s");
            app.Unload(*app.Loaded<FullViewFrm>());
        });
        Show(
            [&](FindFiles& find) {
                Find(find, "cats");
                if (byDoubleClick) {
                    find.ListFiles.Deliver(forms::DoubleClickEvent{});
                } else {
                    Press(find.CmdOpen);
                }
                EXPECT_EQ(app.Loaded<FindSlideFrm>(), nullptr);
                EXPECT_EQ(played, 0) << "once the dialog has gone";
            },
            app.Loaded<MainViewFrm>() == nullptr);
        EXPECT_EQ(played, 1);
        EXPECT_FALSE(module.StartedAsShow);
        EXPECT_EQ(module.config.RecentShows[0], "C:\\s\\cats.tvs");
    }
}

TEST_F(FindSlideFrmTest, AFoundShowTakesThePlaceOfADroppedOne) {
    ASSERT_TRUE(Start());
    View().Deliver(forms::DropEvent{{"C:\\s\\cats.tvs"}, 1, 1});
    ASSERT_NE(app.Loaded<FullViewFrm>(), nullptr);
    int stages = 0;
    toolkit.OnModal("FullViewFrm", [&, this] {
        for (int i = 0; i < app.FormCount(); ++i)
            stages += app.FormAt(i).Name() == "FullViewFrm" ? 1 : 0;
        app.Unload(*app.Loaded<FullViewFrm>());
    });
    Show(
        [this](FindFiles& find) {
            Find(find, "cats");
            Press(find.CmdOpen);
        },
        false);
    EXPECT_EQ(stages, 1);
    EXPECT_EQ(app.Loaded<FullViewFrm>(), nullptr);
}

TEST_F(FindSlideFrmTest, TheMainViewLeavesTheTopmostBandMeanwhile) {
    ASSERT_TRUE(Start());
    module.config.TopMostWindow = true;
    View().SetTopmost(true);
    int played = 0;
    toolkit.OnModal("FullViewFrm", [&, this] {
        ++played;
        EXPECT_FALSE(Window().topmost);
        app.Unload(*app.Loaded<FullViewFrm>());
    });
    Show(
        [this](FindFiles& find) {
            EXPECT_FALSE(Window().topmost);
            Find(find, "cats");
            Press(find.CmdOpen);
        },
        false);
    EXPECT_EQ(played, 1);
    EXPECT_TRUE(Window().topmost);
}

TEST_F(FindSlideFrmTest, DoesNotOpenWhileTheProgramIsBusy) {
    ASSERT_TRUE(Start());
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    EXPECT_FALSE(Choose(View().menu.mnuFindSlideShow));
    EXPECT_EQ(app.Loaded<FindSlideFrm>(), nullptr);
    EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
}

}  // namespace
}  // namespace tavrix::test
