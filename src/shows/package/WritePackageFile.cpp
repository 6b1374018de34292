#include "shows/package/WritePackageFile.h"

#include <memory>
#include <optional>
#include <set>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/RecentLists.h"
#include "core/ShowFolder.h"
#include "shows/files/CopyNames.h"
#include "core/PutAside.h"
#include "shows/files/SavePlan.h"
#include "shows/files/ShowBackup.h"
#include "shows/files/ShowFileWriter.h"
#include "shows/package/PackageTitle.h"

namespace tavrix {
namespace {

using Form = StoredFile::Form;

const std::string Paragraph(NewLine2);

/// Where a file of a show is: at its path, or else under its bare name beside the show.
std::string PlaceOf(Files& files, const ShowFolder& source, const std::string& path) {
    std::string place = source.SlidePath(path);
    if (files.FileExists(place)) return place;
    std::string beside = source.Path() + FileNameOf(place);
    return files.FileExists(beside) ? beside : place;
}

SavePlan PlanPackage(const MainModule& module, const ShowFolder& source, const ShowFolder& folder,
                     const std::string& name) {
    const SlideShow& show = module.show;
    Files& files = module.platform.files;
    SavePlan plan{.options = module.config, .sound = {}, .slides = {}};
    for (int i = 0; i < show.Count(); ++i) {
        const std::string& path = show.SlideFiles[i];
        StoredFile file{.path = path, .source = PlaceOf(files, source, path), .stored = {}, .kept = path};
        if (auto relative = folder.Relative(file.source)) {
            file.stored = *std::move(relative);
            file.form = Form::Relative;
        } else {
            file.stored = FileNameOf(file.source);
            file.form = Form::Copied;
        }
        plan.slides.push_back({std::move(file), show.SlideDescriptions[i]});
    }
    CopyNames names(files, folder);
    names.Reserve(name);
    for (const StoredSlide& slide : plan.slides) {
        if (slide.file.form == Form::Relative) names.Reserve(slide.file.stored);
    }
    const std::string& sound = module.config.SoundFile;
    if (!sound.empty() && module.config.SoundMode == 1) {
        plan.sound.path = sound;
        plan.sound.source = PlaceOf(files, source, sound);
        plan.sound.stored = FileNameOf(plan.sound.source);
        plan.sound.form = Form::Copied;
        names.Name(plan.sound);
    }
    for (StoredSlide& slide : plan.slides) {
        if (slide.file.form == Form::Copied) names.Name(slide.file);
    }
    plan.options.SoundFile = plan.sound.stored;
    return plan;
}

class PackingShow {
  public:
    PackingShow(MainModule& module, CopyWindow& window, const std::string& source, const std::string& folder,
                const std::string& name, bool isNew)
        : module_(module),
          window_(window),
          folder_(folder),
          path_(folder + name),
          isNew_(isNew),
          plan_(PlanPackage(module, ShowFolder(source), folder_, name)) {}

    PackageFileEnd Run() {
        module_.config.SoundFile = plan_.sound.stored;
        SaveSound();
        const PackageFileEnd end = module_.CancelCopy ? PackageFileEnd::Canceled : Write();
        if (end == PackageFileEnd::Written) {
            module_.config.LastSlideShow = path_;
            std::string listed = path_;
            AddRecentShow(module_, listed);
        }
        return end;
    }

  private:
    /// What came of a copy.
    enum class Turn : std::uint8_t {
        Next,
        Stop,   ///< the user wanted no more slides
        Cancel  ///< nor anything else
    };

    void SaveSound() {
        if (plan_.sound.form != Form::Copied) return;
        try {
            if (!CanName(plan_.sound.stored)) throw RuntimeError(ErrorNumber::BadFileNameOrNumber);
            Files& files = module_.platform.files;
            const std::string target = folder_.Path() + plan_.sound.stored;
            if (IsThere(files, target)) {
                if (files.Same(plan_.sound.source, target)) return;
                const std::string question =
                    "This sound file already exists in the package directory:" + Paragraph + target +
                    Paragraph + "Do you want to replace it?";
                if (Ask(question, forms::BoxButtons::YesNo) != forms::Answer::Yes) return;
            }
            Copy(plan_.sound.source, target);
        } catch (const RuntimeError& error) {
            Tell("Unable to copy the sound file to the slide show directory...", error);
        }
    }

    /// A failure is told, and ends the file where it came.
    PackageFileEnd Write() {
        failure_ = "Unable to save slide show.";
        std::unique_ptr<ShowFileWriter> file;
        std::optional<ShowBackup> backup;
        try {
            backup.emplace(module_, path_);
            file = std::make_unique<ShowFileWriter>(module_.platform.files.Create(path_), EncodingOf(plan_));
            backup->Keep();
            failure_ = "An error occurred while trying to write the slide show header.";
            file->WriteHeader(plan_.options);
            const Turn turn = WriteSlides(*file);
            if (turn != Turn::Next) {
                PutInPlace(*file, *backup);
                return turn == Turn::Stop ? PackageFileEnd::Written : PackageFileEnd::Canceled;
            }
            file->Close();
            backup->Discard();
            return PackageFileEnd::Written;
        } catch (const RuntimeError& error) {
            Tell(failure_, error);
            if (file) PutInPlace(*file, *backup);
            return PackageFileEnd::Failed;
        }
    }

    Turn WriteSlides(ShowFileWriter& file) {
        failure_ = SlidesFailed;
        for (const StoredSlide& slide : plan_.slides) {
            module_.DoEvents();
            if (module_.CancelCopy) return Turn::Cancel;
            if (slide.file.form == Form::Copied) {
                failure_ = "Unable to copy all images to slide show directory...";
                const Turn turn = CopySlide(slide.file);
                if (turn != Turn::Next) return turn;
                failure_ = SlidesFailed;
            }
            file.WriteSlide(slide.file.stored, slide.description);
        }
        return Turn::Next;
    }

    /// A picture that stands more than once in the show has one turn.
    Turn CopySlide(const StoredFile& file) {
        if (!CanName(file.stored)) throw RuntimeError(ErrorNumber::BadFileNameOrNumber);
        if (!taken_.insert(UpperCase(file.stored)).second) return Turn::Next;
        Files& files = module_.platform.files;
        const std::string target = folder_.Path() + file.stored;
        if (!isNew_ && IsThere(files, target)) {
            if (files.Same(file.source, target)) return Turn::Next;
            if (replacesAll_) return Copy(file.source, target) ? Turn::Next : Turn::Cancel;
            const forms::Answer answer = AskToReplace(target);
            if (answer == forms::Answer::Cancel) return Turn::Stop;
            if (answer == forms::Answer::No) return Turn::Next;
            replacesAll_ = true;
        }
        return Copy(file.source, target) ? Turn::Next : Turn::Cancel;
    }

    [[nodiscard]] forms::Answer AskToReplace(const std::string& target) {
        return Ask("This image already exists in the package directory:" + Paragraph + target + Paragraph +
                       "Do you want to replace this file?" + Paragraph +
                       "(Press the \"Yes\" button to replace ALL image files, or press the \"No\" button to "
                       "skip this file.)",
                   forms::BoxButtons::YesNoCancel);
    }

    /// False when it was canceled.
    bool Copy(const std::string& from, const std::string& to) {
        window_.Progress("Tavrix is copying the file:" + Paragraph + from);
        return !module_.CancelCopy && module_.platform.files.Copy(from, to, [this] {
            module_.DoEvents();
            return !module_.CancelCopy;
        });
    }

    /// Makes what was written the file, where the former one is not lost by it.
    static void PutInPlace(ShowFileWriter& file, const ShowBackup& backup) {
        if (backup.Safe()) SkipFailure([&] { file.Close(); });
    }

    [[nodiscard]] forms::Answer Ask(const std::string& text, forms::BoxButtons buttons) {
        window_.Hide();
        const forms::Answer answer = module_.app.MessageBox(
            {.text = text, .title = PackageTitle, .icon = forms::BoxIcon::Question, .buttons = buttons});
        window_.Show();
        module_.DoEvents();
        return answer;
    }

    void Tell(const char* what, const RuntimeError& error) {
        window_.Hide();
        TellFailure(module_, what, error);
        window_.Show();
    }

    static constexpr const char* SlidesFailed = "An error occurred while saving slide show data.";

    MainModule& module_;
    CopyWindow& window_;
    ShowFolder folder_;
    std::string path_;
    bool isNew_;  ///< nothing was in the folder
    SavePlan plan_;
    std::set<std::string> taken_;  ///< names of pictures that have had their turn, in upper case
    bool replacesAll_ = false;
    const char* failure_ = "";  ///< what a failure now means
};

}  // namespace

PackageFileEnd WritePackageFile(MainModule& module, CopyWindow& window, const std::string& source,
                                const std::string& folder, const std::string& name, bool isNew) {
    return PackingShow(module, window, source, folder, name, isNew).Run();
}

}  // namespace tavrix
