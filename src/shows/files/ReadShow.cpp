#include "shows/files/ReadShow.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/NumberText.h"
#include "core/Version.h"
#include "shows/files/ShowFileFormat.h"
#include "shows/files/ShowFileReader.h"

namespace tavrix {
namespace {

using forms::BoxIcon;

const std::string Paragraph(NewLine2);

class ReadingShow {
  public:
    ReadingShow(MainModule& module, const ReadShowWords& words, const std::function<void()>& forget)
        : module_(module), words_(words), forget_(forget) {}

    ReadShowResult Run(const std::string& path) {
        try {
            ShowFileReader file(module_.platform.files.Open(path));
            stage_ = Stage::Header;
            if (!ReadHeader(file)) return {ReadShowEnd::Refused, false};
            stage_ = Stage::Slides;
            module_.show.EraseSlides();
            ReadSlides(file);
        } catch (const RuntimeError& error) {
            Tell(FailureText(error.Description()), BoxIcon::Stop);
            forget_();
            return {ReadShowEnd::Failed, upgradeNoteShown_};
        }
        return {ReadShowEnd::Complete, upgradeNoteShown_};
    }

  private:
    enum class Stage : std::uint8_t { Open, Header, Slides };

    /// Whether it is a show that can be read.
    bool ReadHeader(ShowFileReader& file) {
        if (file.Text() != ShowFileFormat::Signature) {
            forget_();
            Tell("The selected file is not a valid Tavrix " + words_.kind + " file..." + Paragraph +
                     "Filenames with .TVS in the last 4 positions are normally associated with Tavrix files.",
                 BoxIcon::Exclamation);
            return false;
        }
        const std::string version = file.Text();
        old_ = version == ShowFileFormat::OldVersion;
        if (!old_ && version != ShowFileFormat::Version) {
            forget_();
            TellOtherRelease(version);
            return false;
        }
        if (old_ && !module_.ScreenSaverMode) TellUpgrade();
        ReadOptions(file);
        return true;
    }

    void ReadOptions(ShowFileReader& file) {
        AppConfig& options = module_.config;
        const auto flag = [&file] { return file.Integer() == ShowFileFormat::True; };
        options.SoundMode = file.Integer();
        options.SoundFile = file.Text();
        options.CDTrack = file.Integer();
        options.SoundLoop = flag();
        options.SlideInterval = file.Integer();
        options.RandomSlides = flag();
        options.ShowFilenames = flag();
        if (old_) {
            options.ShowDescription = false;
            options.LoopSlideShow = true;
            return;
        }
        options.ShowDescription = flag();
        options.LoopSlideShow = flag();
        options.AnimateGIF89 = flag();
    }

    void ReadSlides(ShowFileReader& file) {
        SlideShow& show = module_.show;
        for (int index = 0; !file.AtEnd(); ++index) {
            show.SlideFiles.Set(index, file.Text());
            if (!old_) {
                show.SlideDescriptions.Set(index, Left(file.Text(), ShowFileFormat::LongestDescription));
            }
            if (index == SlideTexts::LastIndex) {
                TellMaximum();
                return;
            }
        }
    }

    void TellOtherRelease(const std::string& version) {
        constexpr std::size_t asMuchAsABoxShows = 1000;  // of a damaged file's line
        Tell("The selected " + words_.kind + " file was created with a different release (" +
                 Left(version, asMuchAsABoxShows) + ") of Tavrix." + Paragraph +
                 "You are currently running:\tVersion: " + VersionText + Paragraph + "Unable to open this " +
                 words_.kind + "...",
             BoxIcon::Exclamation);
    }

    void TellUpgrade() {
        upgradeNoteShown_ = true;
        module_.app.MessageBox({.text = "This " + words_.kind +
                                        " file was created with an earlier version of Tavrix." + Paragraph +
                                        "NOTE:" + Paragraph + words_.whenIsSaved +
                                        ", it will be stored in the new format..."});
    }

    /// The number told is one less than the slides that are taken.
    void TellMaximum() {
        const std::string number =
            GroupedNumberOrEmpty(SlideTexts::LastIndex, module_.platform.system.Numbers());
        Tell("The maximum of " + number + " slides has been loaded. Any remaining images in the " +
                 words_.kind + " file will be ignored...",
             BoxIcon::Exclamation);
    }

    [[nodiscard]] std::string FailureText(const std::string& reason) const {
        switch (stage_) {
            case Stage::Open:
                return words_.openFailed + Paragraph + reason + "...";
            case Stage::Header:
                return "An error occurred while reading the " + words_.kind + " file header." + Paragraph +
                       reason + "...";
            case Stage::Slides:
                break;
        }
        return words_.dataFailed + Paragraph + (reason.empty() ? words_.notValid : reason + "...");
    }

    void Tell(const std::string& text, BoxIcon icon) {
        module_.app.MessageBox({.text = text, .icon = icon, .systemModal = true});
    }

    MainModule& module_;
    const ReadShowWords& words_;
    const std::function<void()>& forget_;
    Stage stage_ = Stage::Open;
    bool old_ = false;
    bool upgradeNoteShown_ = false;
};

}  // namespace

ReadShowResult ReadShow(MainModule& module, const std::string& path, const ReadShowWords& words,
                        const std::function<void()>& forget) {
    return ReadingShow(module, words, forget).Run(path);
}

}  // namespace tavrix
