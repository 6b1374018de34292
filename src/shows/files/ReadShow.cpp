#include "shows/files/ReadShow.h"

#include "base/Text.h"
#include "core/FailureText.h"
#include "core/NumberText.h"
#include "core/Version.h"

namespace tavrix {
namespace {

using forms::BoxIcon;

const std::string Paragraph(NewLine2);

/// What came of reading a show, in boxes.
class Telling {
  public:
    Telling(const MainModule& module, const ReadShowWords& words) : module_(module), words_(words) {}

    void NoShow() const {
        Tell("The selected file is not a valid Tavrix " + words_.kind + " file..." + Paragraph +
                 "Filenames with .TVS in the last 4 positions are normally associated with Tavrix files.",
             BoxIcon::Exclamation);
    }

    void OtherRelease(const std::string& version) const {
        constexpr std::size_t asMuchAsABoxShows = 1000;  // of a damaged file's line
        Tell("The selected " + words_.kind + " file was created with a different release (" +
                 Left(version, asMuchAsABoxShows) + ") of Tavrix." + Paragraph +
                 "You are currently running:\tVersion: " + VersionText + Paragraph + "Unable to open this " +
                 words_.kind + "...",
             BoxIcon::Exclamation);
    }

    void Upgrade() const {
        module_.app.MessageBox({.text = "This " + words_.kind +
                                        " file was created with an earlier version of Tavrix." + Paragraph +
                                        "NOTE:" + Paragraph + words_.whenIsSaved +
                                        ", it will be stored in the new format..."});
    }

    /// The number told is one less than the slides that are taken.
    void Maximum() const {
        const std::string number =
            GroupedNumberOrEmpty(SlideTexts::LastIndex, module_.platform.system.Numbers());
        Tell("The maximum of " + number + " slides has been loaded. Any remaining images in the " +
                 words_.kind + " file will be ignored...",
             BoxIcon::Exclamation);
    }

    void Failure(ShowFileEnd end, const RuntimeError& why) const {
        Tell(FailureWords(end, why), BoxIcon::Stop);
    }

  private:
    [[nodiscard]] std::string FailureWords(ShowFileEnd end, const RuntimeError& why) const {
        if (end == ShowFileEnd::NotOpened) return FailureText(words_.openFailed, why);
        if (end == ShowFileEnd::HeaderFailed) {
            return FailureText("An error occurred while reading the " + words_.kind + " file header.", why);
        }
        if (why.Description().empty()) return words_.dataFailed + Paragraph + words_.notValid;
        return FailureText(words_.dataFailed, why);
    }

    void Tell(const std::string& text, BoxIcon icon) const {
        module_.app.MessageBox({.text = text, .icon = icon, .systemModal = true});
    }

    const MainModule& module_;
    const ReadShowWords& words_;
};

}  // namespace

ReadShowResult ReadShow(const MainModule& module, const std::string& path, const ReadShowWords& words,
                        ShowRecord& record, const std::function<void()>& forget) {
    const ShowFileReading reading = ReadShowFile(module.platform.files, path, record);
    ReadShowResult result{.end = reading.end,
                          .upgradeNoteShown = reading.older && !module.ScreenSaverMode,
                          .toTheEnd = reading.ToTheEnd(),
                          .whole = reading.Whole(),
                          .why = reading.why};
    const Telling telling(module, words);
    if (result.Refused()) {
        forget();
        if (reading.end == ShowFileEnd::NoShow) {
            telling.NoShow();
        } else {
            telling.OtherRelease(reading.version);
        }
        return result;
    }
    if (result.upgradeNoteShown) telling.Upgrade();
    if (reading.tooLong) telling.Maximum();
    if (reading.why) {
        telling.Failure(reading.end, *reading.why);
        forget();
    }
    return result;
}

}  // namespace tavrix
