/// tavrix-setup install|remove|show FOLDER [-quiet]
///
/// Installs the package of a show in a folder for the user, removes one that was installed, or tells the path of its show.
/// It is started by the package's launchers, which have set up where libraries lie.

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "backends/linux/DriveMap.h"
#include "backends/linux/HostPaths.h"
#include "base/RuntimeError.h"
#include "setup/Installation.h"
#include "setup/Package.h"
#include "shows/package/PackageLayout.h"

namespace {

using namespace tavrix;

constexpr int Failed = 1;
constexpr int Misused = 2;
constexpr int GivenUp = 3;

setup::PackageNames Names() {
    setup::PackageNames names{.files = {},
                              .library = package::LibraryFolder,
                              .list = package::LibraryList,
                              .slides = package::SlidesFolder,
                              .notes = package::SetupIni};
    for (const package::LayoutEntry& entry : package::Layout)
        names.files.emplace_back(entry.name);
    names.files.insert(names.files.end(), {package::SetupIni, package::SettingsIni});
    return names;
}

std::string Megabytes(std::int64_t bytes) {
    constexpr std::int64_t tenth = 100'000;
    const std::int64_t tenths = (bytes + tenth / 2) / tenth;
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " megabytes";
}

/// What the user is asked and told; nothing of it where nobody wants to.
class Talk {
  public:
    explicit Talk(bool quiet) : quiet_(quiet) {
        if (quiet) return;
        // Where there is no display, Qt ends the process.
        application_ = std::make_unique<QApplication>(count_, arguments_);
    }

    [[nodiscard]] bool Agrees(const std::string& question) const {
        return quiet_ ||
               Show(QMessageBox::Question, question, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
    }
    void Tell(const std::string& text) const {
        if (!quiet_) Show(QMessageBox::Information, text, QMessageBox::Ok);
    }
    void Complain(const std::string& text) const {
        std::fprintf(stderr, "tavrix-setup: %s\n", text.c_str());
        if (!quiet_) Show(QMessageBox::Critical, text, QMessageBox::Ok);
    }
    /// Shown once it takes longer. Answers false when the user gives up.
    [[nodiscard]] setup::Progress Progress(const std::string& text, std::int64_t bytes) {
        if (quiet_) return {};
        constexpr int parts = 1000;
        bar_ = std::make_unique<QProgressDialog>(QString::fromStdString(text), "Cancel", 0, parts);
        bar_->setWindowTitle(Title);
        if (auto* label = bar_->findChild<QLabel*>()) label->setTextFormat(Qt::PlainText);
        bar_->setWindowModality(Qt::ApplicationModal);
        return [this, bytes](std::int64_t done) {
            bar_->setValue(static_cast<int>(done * parts / std::max<std::int64_t>(bytes, 1)));
            return !bar_->wasCanceled();
        };
    }
    void EndProgress() { bar_.reset(); }

  private:
    static constexpr const char* Title = "Tavrix - [Setup]";

    /// Names come from whoever has made the package, so nothing in them is markup.
    static int Show(QMessageBox::Icon icon, const std::string& text, QMessageBox::StandardButtons buttons) {
        QMessageBox box(icon, Title, {}, buttons);
        box.setTextFormat(Qt::PlainText);
        box.setText(QString::fromStdString(text));
        return box.exec();
    }

    bool quiet_;
    std::string name_ = "tavrix-setup";
    int count_ = 1;
    char* arguments_[2] = {name_.data(), nullptr};
    std::unique_ptr<QApplication> application_;
    std::unique_ptr<QProgressDialog> bar_;
};

int Install(const std::string& folder, const setup::PackageNames& names, const setup::UserPlaces& places,
            Talk& talk) {
    const setup::PackageNotes notes = setup::ReadNotes(folder, names);
    const std::string target = setup::InstallFolder(places, notes.name);
    if (setup::IsInstalled(target, names)) {
        talk.Complain(
            "A package called " + notes.name + " is installed already:\n\n" + target +
            "\n\nRemove it first, by UN-SETUP.EXE in that folder or from the menu, and then try again.");
        return Failed;
    }
    const std::int64_t bytes = setup::SizeOf(folder, setup::FilesOf(folder, names));
    const bool saver = notes.screenSaver && notes.makeDefault;
    if (!talk.Agrees("Install " + notes.name + " for you on this computer?\n\nSIZE:\n" + Megabytes(bytes) +
                     "\n\nFOLDER:\n" + target + (saver ? "\n\nIt becomes your screen saver." : ""))) {
        return GivenUp;
    }
    const bool done =
        setup::Install(folder, names, places, talk.Progress("Copying " + notes.name + "...", bytes));
    talk.EndProgress();
    if (!done) {
        talk.Tell(notes.name + " has not been installed.");
        return GivenUp;
    }
    std::printf("%s\n", target.c_str());
    talk.Tell(notes.name +
              " has been installed. It is in the menu now, and can be removed from there again.");
    return 0;
}

int Remove(const std::string& folder, const setup::PackageNames& names, const setup::UserPlaces& places,
           const Talk& talk) {
    if (!setup::IsInstalled(folder, names)) {
        talk.Complain("This package is not installed on this computer:\n\n" + folder);
        return Failed;
    }
    if (!talk.Agrees("Remove this package from this computer?\n\n" + folder)) return GivenUp;
    const bool stays = setup::Remove(folder, names, places);
    talk.Tell(stays ? "The package has been removed. Files that are not of it stay in:\n\n" + folder
                    : std::string("The package has been removed."));
    return 0;
}

int Run(const std::string& act, const std::string& folder, bool quiet) {
    const setup::PackageNames names = Names();
    if (act == "show") {
        std::printf("%s", setup::ShowOf(folder, names, setup::ReadNotes(folder, names)).c_str());
        return 0;
    }
    // The user's own places, whatever the launchers have told the program.
    for (const char* name :
         {"TAVRIX_HOME", "TAVRIX_CONFIG", "TAVRIX_TEMP", "TAVRIX_SHARED", "TAVRIX_EXECUTABLE"})
        ::unsetenv(name);
    const HostPaths paths = HostPaths::FromEnvironment();
    DriveMap drives(DriveMap::SourcesOf(paths));
    const setup::UserPlaces places{paths.data, paths.config + "/settings",
                                   [&drives](const std::string& path) { return drives.ToDrivePath(path); }};
    Talk talk(quiet);
    try {
        return act == "install" ? Install(folder, names, places, talk) : Remove(folder, names, places, talk);
    } catch (const RuntimeError& error) {
        talk.EndProgress();
        talk.Complain((act == "install" ? "The package could not be installed.\n\n"
                                        : "The package could not be removed.\n\n") +
                      error.Description() + "...");
        return Failed;
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    const bool quiet = !words.empty() && words.back() == "-quiet";
    const bool known = words.size() == (quiet ? 3U : 2U) &&
                       (words[0] == "install" || words[0] == "remove" || words[0] == "show");
    if (!known) {
        std::fputs("usage: tavrix-setup install|remove|show FOLDER [-quiet]\n", stderr);
        return Misused;
    }
    try {
        return Run(words[0], words[1], quiet);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tavrix-setup: %s\n", error.what());
    }
    return Failed;
}
