#include "dialogs/NewFolder.h"

#include <optional>

#include "core/FolderDialog.h"

namespace tavrix::test {
namespace {

using headless::Service;

class NewFolderTest : public FolderDialogTest {
  protected:
    void Answer(std::optional<std::string> reply) {
        toolkit.ExpectInput({.prompt = "Enter the name of the folder to create:",
                             .title = "New Folder",
                             .reply = std::move(reply)});
    }
    void ExpectRefusal(const std::string& text) {
        Expect({.text = text, .icon = forms::BoxIcon::Exclamation});
    }
    /// The user answers the prompt once and gives up when it comes again.
    void Refused(const std::string& answer, const std::string& text) {
        Answer(answer);
        ExpectRefusal(text);
        Answer(std::nullopt);
        Press(dialog.CmdNew);
        EXPECT_EQ(Now(), At("C:\\Pictures"));
        EXPECT_FALSE(module.Busy());
    }
    /// The user makes a folder by this answer; whether it is there and the lists are in it.
    bool Makes(const std::string& answer, const std::string& folder) {
        Answer(answer);
        Press(dialog.CmdNew);
        EXPECT_FALSE(module.Busy());
        return platform.disks.Exists(folder) && Now() == At(folder);
    }

    static constexpr const char* NoName = "A folder name was not entered, try again...";
    static constexpr const char* Backslash =
        "You may not use the \\ character in a folder name, enter folder name again...";
    static constexpr const char* Slash =
        "You may not use the / character in a folder name, enter folder name again...";
    static constexpr const char* Colon =
        "You may not use the : character in a folder name, enter folder name again...";
};

TEST_F(NewFolderTest, MakesTheFolderAndGoesThere) {
    EXPECT_TRUE(Makes("New", "C:\\Pictures\\New"));
    EXPECT_TRUE(Makes("Below", "C:\\Pictures\\New\\Below"));
}

TEST_F(NewFolderTest, InARootTheBackslashIsNotDoubled) {
    dialog.Lists.GoTo("D:\\");
    EXPECT_TRUE(Makes("New", "D:\\New"));
}

TEST_F(NewFolderTest, CancelAndAnEmptyAnswerEndIt) {
    const int calls = platform.faults.Calls(Service::Files);
    Answer(std::nullopt);
    Press(dialog.CmdNew);
    Answer("");
    Press(dialog.CmdNew);
    EXPECT_EQ(Now(), At("C:\\Pictures"));
    EXPECT_EQ(platform.faults.Calls(Service::Files), calls);
}

TEST_F(NewFolderTest, BlanksAndABackslashAtEachEndAreTakenAway) {
    EXPECT_TRUE(Makes("  one ", "C:\\Pictures\\one"));
    dialog.Lists.GoTo("C:\\Pictures");
    EXPECT_TRUE(Makes("\\two", "C:\\Pictures\\two"));
    dialog.Lists.GoTo("C:\\Pictures");
    EXPECT_TRUE(Makes("three\\", "C:\\Pictures\\three"));
    dialog.Lists.GoTo("C:\\Pictures");
    EXPECT_TRUE(Makes(" \\four five\\ ", "C:\\Pictures\\four five"));
}

TEST_F(NewFolderTest, ANameOfNothingElseIsNone) {
    for (const char* answer : {" ", "   ", "\\", " \\ ", "\\\\"})
        Refused(answer, NoName);
}

TEST_F(NewFolderTest, ABackslashWithinTheNameIsRefused) {
    for (const char* answer : {"a\\b", "\\\\a", "a\\\\", "\\\\\\", "a\\b:c"})
        Refused(answer, Backslash);
}

TEST_F(NewFolderTest, ASlashIsRefused) {
    for (const char* answer : {"a/b", "/a", "a/", "/", "..//a", "\\a/\\", "a/b:c"})
        Refused(answer, Slash);
    EXPECT_FALSE(platform.disks.Exists("C:\\Pictures\\a"));
}

TEST_F(NewFolderTest, AColonIsRefused) {
    for (const char* answer : {"a:b", "C:", ":", "\\a:\\"})
        Refused(answer, Colon);
}

TEST_F(NewFolderTest, ThePromptComesUntilTheNameIsOne) {
    Answer("\\");
    ExpectRefusal(NoName);
    Answer("a\\b");
    ExpectRefusal(Backslash);
    Answer("a:b");
    ExpectRefusal(Colon);
    EXPECT_TRUE(Makes("ab", "C:\\Pictures\\ab"));
}

TEST_F(NewFolderTest, AFolderThatIsThereIsAFailure) {
    Answer("old");
    ExpectError("Unable to create folder.", ErrorNumber::PathFileAccessError);
    Press(dialog.CmdNew);
    EXPECT_EQ(Now(), At("C:\\Pictures"));
    EXPECT_FALSE(module.Busy());
}

TEST_F(NewFolderTest, AProtectedDiskAndAMissingOneAreFailures) {
    dialog.Lists.GoTo("D:\\");
    platform.disks.SetWriteProtected('D', true);
    Answer("New");
    ExpectError("Unable to create folder.", ErrorNumber::PermissionDenied);
    Press(dialog.CmdNew);
    platform.disks.PullDisk('D');
    Answer("New");
    ExpectError("Unable to create folder.", ErrorNumber::DiskNotReady);
    Press(dialog.CmdNew);
    EXPECT_EQ(Now(), At("D:\\"));
}

TEST_F(NewFolderTest, AFolderThatVanishedCannotTakeAnother) {
    platform.disks.Remove("C:\\Pictures");
    Answer("New");
    ExpectError("Unable to create folder.", ErrorNumber::PathNotFound);
    Press(dialog.CmdNew);
    EXPECT_FALSE(platform.disks.Exists("C:\\Pictures"));
    EXPECT_EQ(Now(), At("C:\\Pictures"));
}

TEST_F(NewFolderTest, AnImpossibleNameIsAFailure) {
    Answer("what?");
    ExpectError("Unable to create folder.", ErrorNumber::BadFileNameOrNumber);
    Press(dialog.CmdNew);
    EXPECT_EQ(Now(), At("C:\\Pictures"));
}

TEST_F(NewFolderTest, AFolderThatIsMadeButCannotBeReadIsAFailureToo) {
    platform.faults.FailAlways(Service::Files, "Look", ErrorNumber::PermissionDenied);
    Answer("New");
    ExpectError("Unable to create folder.", ErrorNumber::PermissionDenied);
    Press(dialog.CmdNew);
    EXPECT_TRUE(platform.disks.Exists("C:\\Pictures\\New"));
    EXPECT_EQ(Now(), At("C:\\Pictures"));
}

TEST_F(NewFolderTest, TheHourglassShowsWhileTheFolderIsMadeAndIsGoneBeforeTheBox) {
    forms::MousePointer whileMade{};
    platform.faults.AtNth(Service::Files, 1, [&] { whileMade = toolkit.ScreenPointer(); });
    Answer("Old");
    Expect({.text = "Unable to create folder.\r\n\r\nPath/File access error...",
            .icon = forms::BoxIcon::Stop,
            .whileOpen = [this] { EXPECT_FALSE(module.Busy()); }});
    Press(dialog.CmdNew);
    EXPECT_EQ(whileMade, forms::MousePointer::Hourglass);
}

TEST_F(NewFolderTest, ASecondPressWhileMessagesRunIsIgnored) {
    toolkit.AtYield(1, [this] { Press(dialog.CmdNew); });
    EXPECT_TRUE(Makes("New", "C:\\Pictures\\New"));
    EXPECT_EQ(toolkit.BoxesShown(), 1);
}

TEST_F(NewFolderTest, TheDialogMayBeClosedWhileMessagesRun) {
    toolkit.AtYield(1, [this] { app.Unload(dialog); });
    Answer("New");
    EXPECT_NO_THROW(Press(dialog.CmdNew));
    EXPECT_TRUE(platform.disks.Exists("C:\\Pictures\\New"));
    EXPECT_FALSE(module.Busy());
}

TEST_F(NewFolderTest, ADialogMayOfferANameAndTheRefusedOneAgain) {
    dialog.Lists2.GoTo("D:\\");
    const auto answer = [this](const std::string& offered, std::optional<std::string> reply) {
        toolkit.ExpectInput({.prompt = "Enter the name of the folder to create:",
                             .title = "Tavrix",
                             .text = offered,
                             .reply = std::move(reply)});
    };
    answer("New Folder", "a\\b");
    ExpectRefusal(Backslash);
    answer("a\\b", "  \\  ");
    ExpectRefusal(NoName);
    answer("  \\  ", "c:d");
    ExpectRefusal(Colon);
    answer("c:d", "\\Plain\\");
    Press(dialog.CmdNew2);
    EXPECT_TRUE(platform.disks.Exists("D:\\Plain"));
    EXPECT_EQ(dialog.Dir2.Path.Get(), "D:\\Plain");
}

}  // namespace
}  // namespace tavrix::test
