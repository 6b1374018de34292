#include "shows/options/BrowseWavFrm.h"

#include "core/HelpContexts.h"
#include "editing/Accelerators.h"
#include "shows/ShowsTest.h"
#include "shows/options/SlideOptionsFrm.h"

namespace tavrix::test {
namespace {

using Calls = std::vector<std::string>;

/// The dialog in C:\m with a.wav, b.MID and c.wav, on a machine that plays both.
class BrowseWavFrmTest : public ShowsTest {
  protected:
    BrowseWavFrmTest() {
        module.WaveDevicePresent = module.MidiDevicePresent = true;
        for (const char* name : {"a.wav", "b.MID", "c.wav", "d.txt", "e.mp3"})
            platform.disks.PutFile(std::string("C:\\m\\") + name, name);
        platform.disks.PutFolder("C:\\empty");
        platform.files.ChangeFolder("C:\\m");
        module.config.SoundMode = 1;
    }

    BrowseWavFrm& Open(const std::string& file = "") {
        module.config.SoundFile = file;
        auto& options = app.Load<SlideOptionsFrm>(module, ShowFolder(""));
        auto& dialog = app.Load<BrowseWavFrm>(module, options);
        dialog.Show();
        return dialog;
    }
    SlideOptionsFrm& Options() { return *app.Loaded<SlideOptionsFrm>(); }
    void Select(const std::string& name) {
        auto& files = app.Loaded<BrowseWavFrm>()->Chooser.File1;
        files.Deliver(forms::RowEvent{files.IndexOf(name)});
    }
    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    Calls Sent() { return std::exchange(platform.sound.calls, {}); }
    void ExpectTold(const std::string& text) { Expect({.text = text}); }
    void ExpectRecycle(const std::string& path, forms::Answer reply) {
        Expect({.text = "Are you sure you want to send the following file to the Recycle Bin?\r\n\r\n" + path,
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply});
    }
};

TEST_F(BrowseWavFrmTest, TextsAreAsTold) {
    BrowseWavFrm& dialog = Open();
    EXPECT_EQ(dialog.Chooser.File1.Pattern.Get(), "*.wav;*.mid");
    EXPECT_EQ(dialog.Chooser.File1.ListCount(), 3);
    EXPECT_EQ(dialog.CmdPlay.Caption.Get(), "&Play...");
    EXPECT_EQ(dialog.CmdOK.Caption.Get(), "&OK");
    EXPECT_EQ(dialog.CmdCancel.Caption.Get(), "&Cancel");
    EXPECT_EQ(dialog.HelpContext, HelpContext::SlideOptions);
    EXPECT_TRUE(dialog.CmdOK.Default);
    EXPECT_TRUE(dialog.CmdCancel.Cancel);
    ExpectOwnLetters(dialog, 7);
}

TEST_F(BrowseWavFrmTest, StartsInTheFolderOfTheSoundWhereThatExists) {
    platform.disks.PutFile("C:\\other\\x.wav", "");
    {
        BrowseWavFrm& dialog = Open("C:\\other\\x.wav");
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\other");
        EXPECT_EQ(dialog.Chooser.File1.FileName(), "x.wav");
        app.Unload(dialog);
        app.Unload(Options());
    }
    for (const char* file : {"", "C:\\gone\\x.wav", "A:\\x.wav", "Q:\\x.wav"}) {
        BrowseWavFrm& dialog = Open(file);
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\m") << file;
        EXPECT_EQ(dialog.Chooser.File1.ListIndex.Get(), -1) << file;
        app.Unload(dialog);
        app.Unload(Options());
    }
    EXPECT_EQ(Open("C:\\other\\y.wav").Chooser.File1.ListIndex.Get(), -1);
}

TEST_F(BrowseWavFrmTest, OkPutsThePathIntoTheOptions) {
    BrowseWavFrm& dialog = Open("C:\\x.wav");
    dialog.Chooser.Lists.GoTo("C:\\m");
    ExpectTold("Select a Wave (.wav) file or a MIDI (.mid) file from the list or press the Cancel button...");
    Press(dialog.CmdOK);
    EXPECT_FALSE(dialog.Unloaded());
    Select("b.MID");
    Press(dialog.CmdOK);
    EXPECT_EQ(Options().txtWavFile.Text.Get(), "C:\\m\\b.MID");
    EXPECT_EQ(app.Loaded<BrowseWavFrm>(), nullptr);
}

TEST_F(BrowseWavFrmTest, ADoubleClickIsOk) {
    BrowseWavFrm& dialog = Open();
    Select("a.wav");
    dialog.Chooser.File1.Deliver(forms::DoubleClickEvent{});
    EXPECT_EQ(Options().txtWavFile.Text.Get(), "C:\\m\\a.wav");
    EXPECT_EQ(app.Loaded<BrowseWavFrm>(), nullptr);
}

TEST_F(BrowseWavFrmTest, CancelLeavesTheOptionsAlone) {
    BrowseWavFrm& dialog = Open("C:\\x.wav");
    Press(dialog.CmdCancel);
    EXPECT_EQ(Options().txtWavFile.Text.Get(), "C:\\x.wav");
}

TEST_F(BrowseWavFrmTest, AnEmptyListHasNothingToPlayOrToTake) {
    BrowseWavFrm& dialog = Open();
    dialog.Chooser.Lists.GoTo("C:\\empty");
    ExpectTold(
        "There are no Wave (.wav) files or MIDI (.mid) files in the selected directory, nothing to play...");
    Press(dialog.CmdPlay);
    ExpectTold(
        "There are no Wave (.wav) files or MIDI (.mid) files in the selected directory, select another "
        "location and try again...");
    Press(dialog.CmdOK);
    EXPECT_FALSE(dialog.Unloaded());
    EXPECT_EQ(Sent(), Calls{});
}

TEST_F(BrowseWavFrmTest, AWavePlaysUntilItIsStopped) {
    BrowseWavFrm& dialog = Open();
    ExpectTold("Select a Wave (.wav) file or a MIDI (.mid) file to play first...");
    Press(dialog.CmdPlay);
    EXPECT_EQ(dialog.CmdPlay.Caption.Get(), "&Play...");
    Select("a.wav");
    Press(dialog.CmdPlay);
    EXPECT_EQ(Sent(), (Calls{"PlayWave (C:\\m\\a.wav, 3)"}));
    EXPECT_EQ(dialog.CmdPlay.Caption.Get(), "&Stop...");
    // What plays is stopped, not what is selected.
    Select("b.MID");
    Press(dialog.CmdPlay);
    EXPECT_EQ(Sent(), (Calls{"PlayWave (, 3)"}));
    EXPECT_EQ(dialog.CmdPlay.Caption.Get(), "&Play...");
    app.Unload(dialog);
    EXPECT_EQ(Sent(), Calls{});
}

TEST_F(BrowseWavFrmTest, AMidiFilePlaysUntilItIsStopped) {
    BrowseWavFrm& dialog = Open();
    Select("b.MID");
    Press(dialog.CmdPlay);
    EXPECT_EQ(Sent(),
              (Calls{"Mci open \"C:\\m\\b.MID\" type sequencer alias MIDIFile", "Mci play MIDIFile"}));
    EXPECT_EQ(dialog.CmdPlay.Caption.Get(), "&Stop...");
    Select("a.wav");
    Press(dialog.CmdPlay);
    EXPECT_EQ(Sent(), (Calls{"Mci stop MIDIFile", "Mci close MIDIFile"}));
    EXPECT_EQ(dialog.CmdPlay.Caption.Get(), "&Play...");
    Select("b.MID");
    Press(dialog.CmdPlay);
    Sent();
    platform.sound.results["stop MIDIFile"] = 0;
    Press(dialog.CmdPlay);
    EXPECT_EQ(Sent(), (Calls{"Mci stop MIDIFile"}));
}

TEST_F(BrowseWavFrmTest, AMidiFileThatDoesNotPlayLeavesThePlayButton) {
    BrowseWavFrm& dialog = Open();
    Select("b.MID");
    const std::string open = "open \"C:\\m\\b.MID\" type sequencer alias MIDIFile";
    platform.sound.results[open] = 0;
    Press(dialog.CmdPlay);
    EXPECT_EQ(Sent(), (Calls{"Mci " + open}));
    EXPECT_EQ(dialog.CmdPlay.Caption.Get(), "&Play...");
    platform.sound.results = {{"play MIDIFile", 0}};
    Press(dialog.CmdPlay);
    EXPECT_EQ(Sent(), (Calls{"Mci " + open, "Mci play MIDIFile", "Mci close MIDIFile"}));
    EXPECT_EQ(dialog.CmdPlay.Caption.Get(), "&Play...");
    module.MidiDevicePresent = false;
    ExpectTold("This computer does not have a MIDI (.MID) capable sound card, unable to play file.");
    Press(dialog.CmdPlay);
    EXPECT_EQ(Sent(), Calls{});
    EXPECT_EQ(dialog.CmdPlay.Caption.Get(), "&Play...");
}

TEST_F(BrowseWavFrmTest, ASoundStopsWithTheDialog) {
    for (int way = 0; way < 3; ++way) {
        BrowseWavFrm& dialog = Open();
        Select("c.wav");
        Press(dialog.CmdPlay);
        Sent();
        if (way == 0) Press(dialog.CmdOK);
        if (way == 1) Press(dialog.CmdCancel);
        if (way == 2) dialog.Deliver(forms::CloseEvent{});
        EXPECT_EQ(app.Loaded<BrowseWavFrm>(), nullptr);
        EXPECT_EQ(Sent(), (Calls{"PlayWave (, 3)"})) << way;
        app.Unload(Options());
    }
}

TEST_F(BrowseWavFrmTest, TheDeleteKeyDeletesTheSelectedFile) {
    BrowseWavFrm& dialog = Open();
    const auto press = [&](int keyCode) {
        dialog.Chooser.File1.SetFocus();
        dialog.Deliver(forms::KeyEvent{true, keyCode, 0, nullptr});
        dialog.Deliver(forms::KeyEvent{false, keyCode, 0, nullptr});
    };
    ExpectTold("Unable to delete file by pressing the delete key, nothing is selected in the file list...");
    press(forms::KeyCode::Delete);
    Select("a.wav");
    ExpectRecycle("C:\\m\\a.wav", forms::Answer::No);
    press(forms::KeyCode::Delete);
    EXPECT_EQ(dialog.Chooser.File1.FileName(), "a.wav");
    EXPECT_TRUE(platform.disks.Exists("C:\\m\\a.wav"));
    press(forms::KeyCode::Insert);
    ExpectRecycle("C:\\m\\a.wav", forms::Answer::Yes);
    press(forms::KeyCode::Delete);
    EXPECT_FALSE(platform.disks.Exists("C:\\m\\a.wav"));
    EXPECT_EQ(platform.shell.trash.size(), 1U);
    EXPECT_EQ(dialog.Chooser.File1.ListCount(), 2);
    EXPECT_EQ(dialog.Chooser.File1.ListIndex.Get(), -1);
}

TEST_F(BrowseWavFrmTest, ADriveWithoutADiskIsTold) {
    BrowseWavFrm& dialog = Open();
    ExpectTold("The selected drive is currently not available...");
    dialog.Chooser.Drive1.Drive = "A:";
    EXPECT_EQ(dialog.Chooser.Drive1.Drive.Get(), "C:");
}

}  // namespace
}  // namespace tavrix::test
