#include "shows/files/WriteSlideFile.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/RecentLists.h"
#include "dialogs/CopyWindow.h"
#include "shows/files/ShowBackup.h"
#include "shows/files/ShowFileWriter.h"

namespace tavrix {
namespace {

const std::string Paragraph(NewLine2);

/// How a slide is stored.
struct StoredSlide {
    enum class Form : std::uint8_t {
        AsItIs,
        Relative,  ///< it lies in the show's folder or below
        Copied,    ///< its picture is copied there
    };
    std::string path;
    std::string stored;
    Form form = Form::AsItIs;
};

/// The folder that a show is saved in.
class ShowFolder {
  public:
    explicit ShowFolder(const std::string& folder)
        : folder_(folder), upper_(UpperCase(folder)), length_(CharacterCount(folder)) {}

    [[nodiscard]] const std::string& Path() const { return folder_; }
    /// The path of a file in the folder as it is seen from there.
    [[nodiscard]] std::optional<std::string> Relative(const std::string& path) const {
        if (!UpperCase(path).starts_with(upper_)) return std::nullopt;
        return From(path, length_);
    }
    [[nodiscard]] StoredSlide Store(const std::string& path, bool copies) const {
        if (const auto relative = Relative(path)) return {path, *relative, StoredSlide::Form::Relative};
        if (!copies || path.find('\\') == std::string::npos) return {path, path, StoredSlide::Form::AsItIs};
        return {path, FileNameOf(path), StoredSlide::Form::Copied};
    }

  private:
    std::string folder_;
    std::string upper_;
    std::size_t length_;
};

class SavingShow {
  public:
    SavingShow(MainModule& module, const std::string& folder, const std::string& name, SlideRows* editor)
        : module_(module),
          show_(module.show),
          folder_(folder),
          path_(folder + name),
          editor_(module.show.SaveFromArrays ? nullptr : editor),
          window_(module) {}

    void Run() {
        window_.Tell("Tavrix is saving the slide show file, please wait...");
        SaveSound();
        window_.Tell("Tavrix is creating the file:" + Paragraph + path_);
        if (Write()) {
            Finish();
        } else {
            TellCanceled();
        }
    }

  private:
    void SaveSound() {
        std::string& sound = module_.config.SoundFile;
        if (sound.empty() || module_.config.SoundMode != 1 || !module_.config.SaveSlides) return;
        if (auto relative = folder_.Relative(sound)) {
            sound = *std::move(relative);
            return;
        }
        const std::string source = std::exchange(sound, FileNameOf(sound));
        try {
            CopyIntoFolder(source);
        } catch (const RuntimeError& error) {
            Tell("Unable to copy the sound file to the slide show directory...", error);
        }
    }

    /// False when the user canceled. A failure is told, and ends the file where it came.
    bool Write() {
        failure_ = "Unable to save slide show.";
        std::unique_ptr<ShowFileWriter> file;
        try {
            auto writer = module_.platform.files.Create(path_);
            ShowBackup backup(module_, path_);
            PlanSlides();
            file = std::make_unique<ShowFileWriter>(std::move(writer), EncodingOfPlan());
            failure_ = "An error occurred while trying to write the slide show header.";
            if (module_.CancelCopy || !WriteAll(*file)) {
                SkipFailure([&] { file->Close(); });
                return false;
            }
            file->Close();
            backup.Discard();
        } catch (const RuntimeError& error) {
            Tell(failure_, error);
            if (file) SkipFailure([&] { file->Close(); });
        }
        return true;
    }

    /// False when the user canceled.
    bool WriteAll(ShowFileWriter& file) {
        file.WriteHeader(module_.config);
        failure_ = SlidesFailed;
        for (int index = 0; index < show_.SlideCount; ++index) {
            module_.DoEvents();
            if (module_.CancelCopy) return false;
            WriteSlide(file, index);
        }
        return true;
    }

    void WriteSlide(ShowFileWriter& file, int index) {
        const std::string description = show_.SlideDescriptions[index];
        const StoredSlide& slide = slides_[static_cast<std::size_t>(index)];
        if (slide.form == StoredSlide::Form::Copied) {
            failure_ = "Unable to copy all images to slide show directory...";
            CopyIntoFolder(slide.path);
            failure_ = SlidesFailed;
        }
        file.WriteSlide(slide.stored, description);
        if (editor_ != nullptr && slide.form != StoredSlide::Form::AsItIs) {
            editor_->SetRow(index, slide.stored);
        }
    }

    /// What will be stored has to be known before the first of it is written.
    void PlanSlides() {
        const int count = std::min<int>(show_.SlideCount, SlideTexts::Slots);
        for (int index = 0; index < count; ++index) {
            const std::string path = editor_ != nullptr ? editor_->Row(index) : show_.SlideFiles[index];
            slides_.push_back(folder_.Store(path, module_.config.SaveSlides));
        }
    }

    [[nodiscard]] ShowFileEncoding EncodingOfPlan() const {
        ShowFileEncoding encoding;
        encoding.Add(module_.config.SoundFile);
        for (std::size_t i = 0; i < slides_.size(); ++i) {
            encoding.Add(slides_[i].stored);
            encoding.Add(show_.SlideDescriptions[static_cast<int>(i)]);
        }
        return encoding;
    }

    void CopyIntoFolder(const std::string& source) {
        window_.Tell("Tavrix is copying the file:" + Paragraph + source);
        module_.platform.files.Copy(source, folder_.Path() + FileNameOf(source));
    }

    void Finish() {
        window_.Tell("Tavrix has finished copying files...");
        if (editor_ != nullptr) editor_->SetFilename(path_);
        module_.config.LastSlideShow = path_;
        std::string listed = path_;
        AddRecentShow(module_, listed);
        show_.ShowChanged = false;
        module_.DoEvents();
        window_.Close();
    }

    void TellCanceled() {
        module_.DoEvents();
        window_.Close();
        module_.app.MessageBox(
            {.text = "Save was canceled before it could complete, slide show file may be corrupt as a "
                     "result...",
             .icon = forms::BoxIcon::Exclamation});
    }

    void Tell(const std::string& text, const RuntimeError& error) {
        module_.app.MessageBox(
            {.text = text + Paragraph + error.Description() + "...", .icon = forms::BoxIcon::Stop});
    }

    static constexpr const char* SlidesFailed = "An error occurred while saving slide show data.";

    MainModule& module_;
    SlideShow& show_;
    ShowFolder folder_;
    std::string path_;
    SlideRows* editor_;  ///< null: the paths come from the arrays
    CopyWindow window_;
    std::vector<StoredSlide> slides_;
    const char* failure_ = "";  ///< what a failure now means
};

}  // namespace

void WriteSlideFile(MainModule& module, const std::string& folder, const std::string& name,
                    SlideRows* editor) {
    SavingShow(module, folder, name, editor).Run();
}

}  // namespace tavrix
