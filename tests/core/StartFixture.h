#pragma once

#include <string>
#include <vector>

#include "core/Main.h"
#include "core/WaitFrm.h"
#include "support/ProgramFixture.h"

namespace tavrix::test {

/// A program whose four lives only note that they were chosen, and how the process stood then.
class StartFixture : public ProgramFixture {
  protected:
    StartFixture() {
        module.AppPath = "";  // the start finds it out
        lives.ShowMainView = [this] { Note("main view"); };
        lives.LoadShowFile = [this](const std::string& path) {
            loadedShow = path;
            Note("load show");
            return showHasSlides;
        };
        lives.ShowStage = [this] { Note("stage"); };
        lives.ShowSaverSetup = [this] { Note("saver setup"); };
        platform.disks.PutFile("C:\\shows\\x.tvs", "");
    }

    void Note(const std::string& life) {
        led.push_back(life);
        waitWindowStood = app.Loaded<WaitFrm>() != nullptr;
    }

    /// Starts the program; whether it ended at once.
    bool EndsStartedWith(const std::string& commandLine) {
        platform.process.commandLine = commandLine;
        return Ends([this] { Main(module, lives); });
    }

    void ExpectStartError(const std::string& description) {
        Expect({.text = "An error occurred while starting Tavrix, will try to continue anyway.\r\n\r\n" +
                        description + "...",
                .icon = forms::BoxIcon::Stop,
                .systemModal = true});
    }

    using Led = std::vector<std::string>;
    Led led;                 ///< the lives that were chosen
    std::string loadedShow;  ///< the path that LoadShowFile got last
    bool showHasSlides = true;
    bool waitWindowStood = false;  ///< when a life was chosen last
};

}  // namespace tavrix::test
