#include "shows/library/SaveSlideFile.h"

#include "LibraryTest.h"
#include "dialogs/WaitCopyFrm.h"

namespace tavrix::test {
namespace {

using forms::Answer;

class SaveSlideFileTest : public LibraryTest {
  protected:
    SaveSlideFileTest() {
        const Texts slides{"C:\\p\\a.bmp", "C:\\p\\b.bmp"};
        module.show.InsertSlides(0, slides);
        editor.ReadRows();
        platform.disks.PutFile("C:\\p\\a.bmp", "picture a");
        platform.disks.PutFile("C:\\p\\b.bmp", "picture b");
        module.config.UseRecentDocuments = false;
    }

    std::optional<SaveEnd> InDialog(const std::string& current,
                                    const std::function<void(SaveSlideFile&)>& action) {
        toolkit.OnModal("SaveSlideFile", [this, action] {
            EXPECT_FALSE(module.Busy());
            action(*app.Loaded<SaveSlideFile>());
            if (auto* dialog = app.Loaded<SaveSlideFile>()) app.Unload(*dialog);
        });
        const std::optional<SaveEnd> end = SaveShowAs(module, current);
        EXPECT_FALSE(module.Busy());
        EXPECT_EQ(app.Loaded<SaveSlideFile>(), nullptr);
        return end;
    }
    void ExpectNew(const std::string& path, Answer reply) {
        ExpectQuestion("About to save the slide show as:\r\n\r\n" + path + "\r\n\r\nIs this filename OK?",
                       reply);
    }
    void ExpectReplace(const std::string& path, Answer reply) {
        ExpectQuestion("The following filename already exists:\r\n\r\n" + path + "\r\n\r\nReplace this file?",
                       reply);
    }
};

TEST_F(SaveSlideFileTest, BeginsWithTheShowsOwnPlace) {
    EXPECT_EQ(InDialog(ShowPath,
                       [](SaveSlideFile& dialog) {
                           EXPECT_EQ(dialog.Caption.Get(), "Save - Tavrix Slide Show  (.tvs)");
                           EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\Shows");
                           EXPECT_EQ(dialog.txtFilename.Text.Get(), "s.tvs");
                           EXPECT_EQ(dialog.txtFilename.SelLength.Get(), 5);
                           EXPECT_EQ(dialog.ActiveControl(), &dialog.txtFilename);
                           EXPECT_TRUE(dialog.CmdOK.Default);
                           EXPECT_TRUE(dialog.CmdCancel.Cancel);
                           EXPECT_EQ(dialog.HelpContext, HelpContext::SaveShow);
                           Press(dialog.CmdCancel);
                           EXPECT_TRUE(dialog.Unloaded());
                       }),
              std::nullopt);
}

TEST_F(SaveSlideFileTest, ANewShowBeginsInTheFolderOfShows) {
    for (const char* current : {"Untitled.tvs", "D:\\gone\\Untitled.tvs", "A:\\Untitled.tvs"}) {
        InDialog(current, [](SaveSlideFile& dialog) {
            EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\Tavrix\\SLIDES");
            EXPECT_EQ(dialog.Chooser.Drive1.Drive.Get(), "C:");
            EXPECT_EQ(dialog.txtFilename.Text.Get(), "Untitled.tvs");
        });
    }
    for (const char* file : {A, B, "C:\\Tavrix\\SLIDES\\none.txt", "C:\\Tavrix\\SLIDES"})
        platform.disks.Remove(file);
    InDialog("Untitled.tvs",
             [](SaveSlideFile& dialog) { EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\Tavrix"); });
}

TEST_F(SaveSlideFileTest, AClickOnAShowTakesItsName) {
    InDialog("Untitled.tvs", [](SaveSlideFile& dialog) {
        EXPECT_EQ(dialog.Chooser.File1.ListCount(), 2);
        dialog.Chooser.File1.Deliver(forms::RowEvent{1});
        EXPECT_EQ(dialog.txtFilename.Text.Get(), "b.tvs");
        dialog.Chooser.Dir1.Path = "C:\\Shows";
        EXPECT_EQ(dialog.txtFilename.Text.Get(), "b.tvs");
    });
}

TEST_F(SaveSlideFileTest, SavesAllSlidesUnderTheName) {
    module.show.ShowChanged = true;
    const auto end = InDialog("Untitled.tvs", [this](SaveSlideFile& dialog) {
        dialog.Chooser.Dir1.Path = "C:\\Shows";
        Enter(dialog.txtFilename, "  s ");
        ExpectNew(ShowPath, Answer::Yes);
        toolkit.AtYield(1, [&dialog] {
            EXPECT_TRUE(dialog.Visible());
            Press(dialog.CmdOK);  // once more
        });
        toolkit.AtYield(2, [this, &dialog] {
            EXPECT_FALSE(dialog.Visible());
            EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
        });
        Press(dialog.CmdOK);
        EXPECT_TRUE(dialog.Unloaded());
    });
    EXPECT_EQ(end, SaveEnd::Whole);
    EXPECT_TRUE(Content(ShowPath).ends_with(Slides({"C:\\p\\a.bmp", "", "C:\\p\\b.bmp", ""})));
    EXPECT_EQ(editor.filename, ShowPath);
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(SaveSlideFileTest, WorksWithoutAnEditor) {
    app.Unload(editor);
    module.show.SaveFromArrays = true;
    const auto end = InDialog("Untitled.tvs", [this](SaveSlideFile& dialog) {
        ExpectNew("C:\\Tavrix\\SLIDES\\Untitled.tvs", Answer::Yes);
        Press(dialog.CmdOK);
    });
    EXPECT_EQ(end, SaveEnd::Whole);
    EXPECT_TRUE(Content("C:\\Tavrix\\SLIDES\\Untitled.tvs")
                    .ends_with(Slides({"C:\\p\\a.bmp", "", "C:\\p\\b.bmp", ""})));
}

TEST_F(SaveSlideFileTest, TheEndingIsAddedWhereItIsMissing) {
    const std::vector<std::pair<const char*, const char*>> names{{"show.TVS", "show.TVS"},
                                                                 {"show.tvs.bak", "show.tvs.bak.tvs"},
                                                                 {"show.tv", "show.tv.tvs"},
                                                                 {"tvs", "tvs.tvs"},
                                                                 {"b", "b.tvs"}};
    for (const auto& [entered, name] : names) {
        const std::string path = std::string("C:\\Shows\\") + name;
        InDialog(ShowPath, [&, this](SaveSlideFile& dialog) {
            Enter(dialog.txtFilename, entered);
            ExpectNew(path, Answer::Yes);
            Press(dialog.CmdOK);
        });
        EXPECT_NE(Content(path), "none") << entered;
    }
}

TEST_F(SaveSlideFileTest, ANameIsNeeded) {
    InDialog(ShowPath, [this](SaveSlideFile& dialog) {
        for (const char* name : {"", "   "}) {
            Enter(dialog.txtFilename, name);
            dialog.Chooser.Dir1.SetFocus();
            ExpectTold("You forgot to enter a filename...");
            Press(dialog.CmdOK);
            EXPECT_EQ(dialog.ActiveControl(), &dialog.txtFilename);
            EXPECT_FALSE(dialog.Unloaded());
            EXPECT_FALSE(module.Busy());
        }
    });
}

TEST_F(SaveSlideFileTest, ANameThatLeadsOutOfTheFolderIsRefused) {
    InDialog(ShowPath, [this](SaveSlideFile& dialog) {
        for (const auto& [name, text, caret] : std::vector<std::tuple<const char*, const char*, int>>{
                 {"a:b", "A filename may not contain a colon (:), unable to export image...", 1},
                 {"..\\b", "A filename may not contain a backslash (\\), unable to export image...", 2},
                 {"sub/b", "A filename may not contain a slash (/), unable to export image...", 3}}) {
            Enter(dialog.txtFilename, name);
            dialog.Chooser.Dir1.SetFocus();
            ExpectTold(text);
            Press(dialog.CmdOK);
            EXPECT_EQ(dialog.txtFilename.SelStart.Get(), caret);
            EXPECT_EQ(dialog.ActiveControl(), &dialog.txtFilename);
            EXPECT_FALSE(dialog.Unloaded());
            EXPECT_FALSE(module.Busy());
        }
    });
}

TEST_F(SaveSlideFileTest, NoStays) {
    const auto end = InDialog("Untitled.tvs", [this](SaveSlideFile& dialog) {
        Enter(dialog.txtFilename, "A");
        ExpectReplace("C:\\Tavrix\\SLIDES\\A.tvs", Answer::No);
        Press(dialog.CmdOK);
        Enter(dialog.txtFilename, "new");
        ExpectNew("C:\\Tavrix\\SLIDES\\new.tvs", Answer::No);
        Press(dialog.CmdOK);
        EXPECT_FALSE(dialog.Unloaded());
        EXPECT_TRUE(dialog.Visible());
        EXPECT_FALSE(module.Busy());
    });
    EXPECT_EQ(end, std::nullopt);
    EXPECT_EQ(Content(A), ShowOf("a"));
}

TEST_F(SaveSlideFileTest, AnExistingShowIsReplacedAsTheUserAgrees) {
    EXPECT_EQ(InDialog("Untitled.tvs",
                       [this](SaveSlideFile& dialog) {
                           dialog.Chooser.File1.Deliver(forms::RowEvent{0});
                           ExpectReplace(A, Answer::Yes);
                           Press(dialog.CmdOK);
                       }),
              SaveEnd::Whole);
    EXPECT_TRUE(Content(A).ends_with(Slides({"C:\\p\\a.bmp", "", "C:\\p\\b.bmp", ""})));
}

TEST_F(SaveSlideFileTest, CopiesAreAskedForWhereTheOptionIsOn) {
    module.config.SaveSlides = true;
    InDialog(ShowPath, [this](SaveSlideFile& dialog) {
        ExpectNew(ShowPath, Answer::Yes);
        ExpectQuestion("Save a copy of all images in the slide show directory?", Answer::Yes);
        Press(dialog.CmdOK);
    });
    EXPECT_TRUE(module.config.SaveSlides);
    EXPECT_EQ(Content("C:\\Shows\\a.bmp"), "picture a");
    EXPECT_EQ(editor.rows, (Texts{"a.bmp", "b.bmp"}));
    InDialog(ShowPath, [this](SaveSlideFile& dialog) {
        Enter(dialog.txtFilename, "t");
        ExpectNew("C:\\Shows\\t.tvs", Answer::Yes);
        ExpectQuestion("Save a copy of all images in the slide show directory?", Answer::No);
        Press(dialog.CmdOK);
    });
    EXPECT_FALSE(module.config.SaveSlides);
}

TEST_F(SaveSlideFileTest, ItTellsWhatBecameOfTheSave) {
    module.config.SaveSlides = true;
    const auto save = [this] {
        return InDialog(ShowPath, [this](SaveSlideFile& dialog) {
            ExpectQuestion("Save a copy of all images in the slide show directory?", Answer::Yes);
            Press(dialog.CmdOK);
        });
    };
    ExpectNew(ShowPath, Answer::Yes);
    platform.disks.Remove("C:\\p\\b.bmp");
    toolkit.AtYield(5, [this] {
        EXPECT_NE(app.Loaded<WaitCopyFrm>(), nullptr);
        ExpectStop("Unable to copy all images to slide show directory...\r\n\r\nFile not found...");
    });
    EXPECT_EQ(save(), SaveEnd::Partial);

    ExpectReplace(ShowPath, Answer::Yes);
    toolkit.AtYield(5, [this] {
        app.Loaded<WaitCopyFrm>()->CmdCancel.Deliver(forms::ClickEvent{});
        Expect({.text = "Save was canceled before it could complete, slide show file may be corrupt as a "
                        "result...",
                .icon = forms::BoxIcon::Exclamation});
    });
    EXPECT_EQ(save(), SaveEnd::Canceled);
}

TEST_F(SaveSlideFileTest, AFolderCanBeMade) {
    InDialog(ShowPath, [this](SaveSlideFile& dialog) {
        const auto answer = [this](const char* reply) {
            toolkit.ExpectInput(
                {.prompt = "Enter the name of the folder to create:", .text = "New Folder", .reply = reply});
        };
        const auto refuse = [this](const char* text) {
            Expect({.text = text, .icon = forms::BoxIcon::Exclamation});
        };
        answer("  ");
        refuse("A folder name was not entered, try again...");
        answer("a:b");
        refuse("You may not use the : character in a folder name, enter folder name again...");
        answer("a\\b");
        refuse("You may not use the \\ character in a folder name, enter folder name again...");
        answer("New Folder");
        Press(dialog.CmdNew);
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\Shows\\New Folder");
        EXPECT_EQ(dialog.txtFilename.Text.Get(), "s.tvs");
        ExpectNew("C:\\Shows\\New Folder\\s.tvs", Answer::Yes);
        Press(dialog.CmdOK);
    });
    EXPECT_EQ(editor.filename, "C:\\Shows\\New Folder\\s.tvs");
}

TEST_F(SaveSlideFileTest, AWindowThatIsClosedInThatMomentSavesNothing) {
    EXPECT_EQ(InDialog(ShowPath,
                       [this](SaveSlideFile& dialog) {
                           toolkit.AtYield(1, [&dialog] { Press(dialog.CmdCancel); });
                           Press(dialog.CmdOK);
                       }),
              std::nullopt);
    EXPECT_EQ(Content(ShowPath), "none");
}

TEST_F(SaveSlideFileTest, WhicheverCallFailsTheFormerShowIsKept) {
    int call = 1;
    for (bool fired = true; fired; ++call) {
        headless::HeadlessServices machine;
        machine.disks.PutFile(ShowPath, ShowOf("former"));
        headless::HeadlessToolkit silent;
        forms::Application application{silent};
        MainModule other{application, machine.services};
        other.AppPath = "C:\\Tavrix\\";
        other.config.UseRecentDocuments = false;
        const Texts slides{"C:\\p\\a.bmp"};
        other.show.InsertSlides(0, slides);
        application.Load<FakeEditor>(other).filename = ShowPath;
        silent.Expect({.text = "The following filename already exists:\r\n\r\nC:\\Shows\\s.tvs\r\n\r\n"
                               "Replace this file?",
                       .icon = forms::BoxIcon::Question,
                       .buttons = forms::BoxButtons::YesNo,
                       .reply = Answer::Yes});
        silent.OnModal("SaveSlideFile", [&application] {
            auto& dialog = *application.Loaded<SaveSlideFile>();
            Press(dialog.CmdOK);
            if (!dialog.Unloaded()) Press(dialog.CmdCancel);
        });
        machine.faults.FailNth(headless::Service::Files, call, ErrorNumber::DiskFull);
        std::optional<SaveEnd> end;
        EXPECT_NO_THROW(end = SaveShowAs(other, ShowPath));
        fired = machine.faults.Fired();
        machine.faults.Clear();
        EXPECT_FALSE(other.Busy()) << call;
        EXPECT_EQ(application.FormCount(), 1) << call;
        const std::string now = machine.disks.Content(ShowPath).value_or("none");
        const bool trashed = machine.shell.trash.size() == 1;
        EXPECT_TRUE(end == SaveEnd::Whole || trashed || now == ShowOf("former")) << call << ": " << now;
        // Lists that cannot be brought there stay elsewhere, as the question tells.
        const bool there = other.config.LastSlideShow == ShowPath;
        EXPECT_FALSE(there && end == SaveEnd::Whole && now == ShowOf("former")) << call;
        EXPECT_EQ(other.show.Count(), 1);
    }
    EXPECT_GE(call, 8);
}

}  // namespace
}  // namespace tavrix::test
