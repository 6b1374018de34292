#pragma once

#include <optional>
#include <string>

#include "ShowsTest.h"
#include "shows/package/DelPackageFrm.h"
#include "shows/package/PackageFrm.h"
#include "shows/package/PackageLayout.h"

namespace tavrix::test {

/// An installed program with the show C:\Shows\s.tvs of two pictures, one beside it and one elsewhere, with a sound; and the
/// empty folder C:\Out.
class PackageTest : public ShowsTest {
  protected:
    static constexpr const char* Title = "Tavrix - [Package Slide Show]";
    static constexpr const char* TriesAgain =
        "\r\n\r\nCreate and/or select a slide show file and then try again...";

    PackageTest() {
        platform.disks.PutFolder("C:\\Tavrix\\SLIDES");
        platform.disks.PutFolder("C:\\Out");
        platform.disks.PutFile("C:\\Shows\\a.bmp", "picture a");
        platform.disks.PutFile("C:\\p\\b.bmp", "picture b");
        platform.disks.PutFile("C:\\m\\a.wav", "sound");
        PutShow(Header() + Slides({"a.bmp", "first", "C:\\p\\b.bmp", ""}));
        for (const package::LayoutEntry& entry : package::Layout) {
            const std::string_view source = entry.sourceName.empty() ? entry.name : entry.sourceName;
            const std::string folder = entry.ofSystem ? "C:\\Windows\\System\\" : "C:\\Tavrix\\";
            platform.disks.PutFile(folder + std::string(source), "bytes of " + std::string(entry.name));
        }
        module.config.LastSlideShow = ShowPath;
        PackageSetting("PackageDestination", "C:\\Out");
        PackageSetting("PackageName", "Trip");
        PackageSetting("PackageSize", "7.5");
    }

    void PackageSetting(const std::string& key, const std::string& value) {
        const ProfileEntry entry{key, value};
        platform.profile.Write("Package", {&entry, 1}, SettingsPath);
    }
    std::string SavedSetting(const std::string& key) {
        return platform.profile.Read("Package", SettingsPath).Read(key, 1000);
    }
    std::string InSetupIni(const std::string& key) {
        return platform.profile.Read("Tavrix Setup", "C:\\Out\\setup.ini").Read(key);
    }

    PackageFrm& Load() {
        auto& dialog = app.Load<PackageFrm>(module, programFiles);
        dialog.Show();
        return dialog;
    }
    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }

    void ExpectRefusal(const std::string& text) {
        Expect({.text = text, .icon = forms::BoxIcon::Exclamation, .title = Title});
    }
    void ExpectQuestion(const std::string& text, forms::Answer reply,
                        forms::BoxButtons buttons = forms::BoxButtons::YesNo) {
        Expect({.text = text,
                .icon = forms::BoxIcon::Question,
                .buttons = buttons,
                .reply = reply,
                .title = Title});
    }
    void ExpectSummary(forms::Answer reply = forms::Answer::Yes, const std::string& type = "Slide Show") {
        ExpectQuestion("NAME:\r\nTrip\r\n\r\nTYPE:\r\n" + type +
                           "\r\n\r\nSIZE:\r\n7.5 (megabytes)\r\n\r\nSOURCE:\r\nC:\\Shows\\s.tvs\r\n\r\n"
                           "PACKAGE:\r\nC:\\Out\r\n\r\nCreate the above package?",
                       reply);
    }
    void ExpectFilesThere() {
        ExpectQuestion(
            "The selected package directory already has files in it:\r\n\r\nC:\\Out\r\n\r\nUse this "
            "directory "
            "anyway?",
            forms::Answer::Yes);
    }
    void ExpectSlidesThere() {
        ExpectQuestion(
            "The selected package directory already has a SLIDES folder in it:\r\n\r\nC:\\Out\r\n\r\n"
            "Create a slide show package directory here anyway?",
            forms::Answer::Yes);
    }
    void ExpectOverwrite() {
        ExpectQuestion(
            "The destination slide show file (.TVS) already exists:\r\n\r\nC:\\Out\\SLIDES\\s.tvs\r\n\r\n"
            "Overwrite this file with new data?",
            forms::Answer::Yes);
    }
    void ExpectProgramThere(forms::Answer reply) {
        ExpectQuestion(
            "It appears that the Tavrix program files are already in the package directory.\r\n\r\nDo you "
            "want to copy over these files?",
            reply);
    }
    void ExpectReplace(const std::string& path, forms::Answer reply, std::function<void()> whileOpen = {}) {
        Expect(
            {.text = "This image already exists in the package directory:\r\n\r\n" + path +
                     "\r\n\r\nDo you want to replace this file?\r\n\r\n(Press the \"Yes\" button to replace "
                     "ALL image files, or press the \"No\" button to skip this file.)",
             .icon = forms::BoxIcon::Question,
             .buttons = forms::BoxButtons::YesNoCancel,
             .reply = reply,
             .title = Title,
             .whileOpen = std::move(whileOpen)});
    }
    void ExpectCreated(const std::string& kind = "slide show") {
        Expect({.text = "The " + kind + " package Trip has been created in the directory:\r\n\r\nC:\\Out",
                .title = Title});
    }
    void ExpectCanceled() {
        ExpectRefusal(
            "Save Package was canceled before it could complete, files and/or settings in this package may "
            "be missing...");
    }
    void ExpectFailure(const std::string& text) {
        Expect({.text = text, .icon = forms::BoxIcon::Stop, .title = Title});
    }

    /// The user makes the package that the settings tell.
    void Make() {
        ExpectSummary();
        ExpectCreated();
        Press(Load().CmdPackage);
        EXPECT_FALSE(module.Busy());
    }
    /// A package that is there already.
    void MakeFirst() {
        ExpectSummary();
        ExpectCreated();
        auto& dialog = Load();
        Press(dialog.CmdPackage);
        app.Unload(dialog);
        module.config.LastSlideShow = ShowPath;
    }

    [[nodiscard]] std::string At(const std::string& path) const {
        return platform.disks.Content(path).value_or("none");
    }
    /// The options of Header() with another sound, and slides.
    static std::string Packed(const std::string& mode, const std::string& sound, const Texts& slides) {
        return Lines({Quoted("Tavrix Slide Show"), Quoted("Version 1.5"), mode, Quoted(sound), "3", "-1", "7",
                      "-1", "-1", "-1", "0", "0"}) +
               Slides(slides);
    }

    package::InstalledFiles programFiles{module};
};

}  // namespace tavrix::test
