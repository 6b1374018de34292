#include "shows/files/WriteSlideFile.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/RecentLists.h"
#include "core/ShowFolder.h"
#include "dialogs/CopyWindow.h"
#include "platform/services/DrivePath.h"
#include "shows/SlideEditor.h"
#include "shows/files/ShowBackup.h"
#include "shows/files/ShowFileWriter.h"

namespace tavrix {
namespace {

const std::string Paragraph(NewLine2);

/// A file that a show refers to, and how the show stores it.
struct StoredFile {
    enum class Form : std::uint8_t {
        AsItIs,
        Relative,  ///< it lies in the show's folder or below
        Copied,    ///< it is copied there
    };
    std::string path;
    std::string stored;
    Form form = Form::AsItIs;
};

struct StoredSlide {
    StoredFile file;
    std::string description;
};

/// What a save writes. It has to be known before the first of it is written, for the sake of the encoding, and before the
/// target is touched.
struct SavePlan {
    ShowOptions options;  ///< with the sound as it is stored
    StoredFile sound;
    std::vector<StoredSlide> slides;
};

StoredFile Store(const ShowFolder& folder, const std::string& path, bool copies) {
    if (auto relative = folder.Relative(path))
        return {path, *std::move(relative), StoredFile::Form::Relative};
    const bool bareName = NormalPath(path).find('\\') == std::string::npos;
    if (!copies || bareName) return {path, path, StoredFile::Form::AsItIs};
    return {path, FileNameOf(path), StoredFile::Form::Copied};
}

StoredFile StoreSound(const ShowFolder& folder, const AppConfig& config) {
    const std::string& path = config.SoundFile;
    if (path.empty() || config.SoundMode != 1 || !config.SaveSlides) {
        return {path, path, StoredFile::Form::AsItIs};
    }
    if (auto relative = folder.Relative(path))
        return {path, *std::move(relative), StoredFile::Form::Relative};
    return {path, FileNameOf(path), StoredFile::Form::Copied};
}

SavePlan PlanOf(const MainModule& module, const ShowFolder& folder) {
    const SlideShow& show = module.show;
    SavePlan plan{.options = module.config, .sound = StoreSound(folder, module.config), .slides = {}};
    plan.options.SoundFile = plan.sound.stored;
    const int count = std::min<int>(show.SlideCount, SlideTexts::Slots);
    for (int i = 0; i < count; ++i) {
        plan.slides.push_back(
            {Store(folder, show.SlideFiles[i], module.config.SaveSlides), show.SlideDescriptions[i]});
    }
    return plan;
}

ShowFileEncoding EncodingOf(const SavePlan& plan) {
    ShowFileEncoding encoding;
    encoding.Add(plan.options.SoundFile);
    for (const StoredSlide& slide : plan.slides) {
        encoding.Add(slide.file.stored);
        encoding.Add(slide.description);
    }
    return encoding;
}

class SavingShow {
  public:
    SavingShow(MainModule& module, const std::string& folder, const std::string& name)
        : module_(module),
          show_(module.show),
          folder_(folder),
          path_(folder + name),
          count_(module.show.SlideCount),
          plan_(PlanOf(module, folder_)),
          window_(module) {}

    SaveEnd Run() {
        window_.Tell("Tavrix is saving the slide show file, please wait...");
        SaveSound();
        window_.Tell("Tavrix is creating the file:" + Paragraph + path_);
        const SaveEnd end = Write();
        if (end == SaveEnd::Canceled) {
            TellCanceled();
        } else {
            Finish();
        }
        return end;
    }

  private:
    void SaveSound() {
        module_.config.SoundFile = plan_.sound.stored;
        if (plan_.sound.form != StoredFile::Form::Copied) return;
        try {
            CopyIntoFolder(plan_.sound);
        } catch (const RuntimeError& error) {
            TellFailure(module_, "Unable to copy the sound file to the slide show directory...", error);
        }
    }

    /// A failure is told, and ends the file where it came.
    SaveEnd Write() {
        failure_ = "Unable to save slide show.";
        std::unique_ptr<ShowFileWriter> file;
        std::optional<ShowBackup> backup;
        try {
            file = std::make_unique<ShowFileWriter>(module_.platform.files.Create(path_), EncodingOf(plan_));
            backup.emplace(module_, path_);
            failure_ = "An error occurred while trying to write the slide show header.";
            if (module_.CancelCopy || !WriteAll(*file)) {
                PutInPlace(*file, *backup);
                return SaveEnd::Canceled;
            }
            file->Close();
            backup->Discard();
            return SaveEnd::Whole;
        } catch (const RuntimeError& error) {
            TellFailure(module_, failure_, error);
            if (backup) PutInPlace(*file, *backup);
            return SaveEnd::Partial;
        }
    }

    /// False when the user canceled.
    bool WriteAll(ShowFileWriter& file) {
        file.WriteHeader(plan_.options);
        failure_ = SlidesFailed;
        for (; written_ < plan_.slides.size(); ++written_) {
            module_.DoEvents();
            if (module_.CancelCopy) return false;
            WriteSlide(file, plan_.slides[written_]);
        }
        // More than there are slots run past the last one.
        if (count_ > SlideTexts::Slots) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return true;
    }

    void WriteSlide(ShowFileWriter& file, const StoredSlide& slide) {
        if (slide.file.form == StoredFile::Form::Copied) {
            failure_ = "Unable to copy all images to slide show directory...";
            CopyIntoFolder(slide.file);
            failure_ = SlidesFailed;
        }
        file.WriteSlide(slide.file.stored, slide.description);
    }

    /// Makes what was written the file, where the former one is not lost by it.
    static void PutInPlace(ShowFileWriter& file, const ShowBackup& backup) {
        if (backup.Safe()) SkipFailure([&] { file.Close(); });
    }

    void CopyIntoFolder(const StoredFile& file) {
        window_.Tell("Tavrix is copying the file:" + Paragraph + file.path);
        const std::string& name = file.stored;
        // These would be the folder itself, or the one that it lies in.
        if (name.empty() || name == "." || name == "..") throw RuntimeError(ErrorNumber::BadFileNameOrNumber);
        module_.platform.files.Copy(file.path, folder_.Path() + name);
    }

    void Finish() {
        window_.Tell("Tavrix has finished copying files...");
        if (SlideEditor* editor = EditorOfShow()) ShowIn(*editor);
        module_.config.LastSlideShow = path_;
        std::string listed = path_;
        AddRecentShow(module_, listed);
        show_.ShowChanged = false;
        module_.DoEvents();
        window_.Close();
    }

    /// Null where it is not its show that is saved.
    [[nodiscard]] SlideEditor* EditorOfShow() const {
        return show_.SaveFromArrays ? nullptr : LoadedEditor(module_.app);
    }

    void ShowIn(SlideEditor& editor) {
        for (std::size_t i = 0; i < written_; ++i) {
            const StoredFile& file = plan_.slides[i].file;
            const int row = static_cast<int>(i);
            if (show_.SlideFiles[row] == file.path) show_.SlideFiles.Set(row, file.stored);
        }
        editor.PathsChanged();
        editor.SetFilename(path_);
    }

    void TellCanceled() {
        module_.config.SoundFile = plan_.sound.path;
        module_.DoEvents();
        window_.Close();
        module_.app.MessageBox(
            {.text = "Save was canceled before it could complete, slide show file may be corrupt as a "
                     "result...",
             .icon = forms::BoxIcon::Exclamation});
    }

    static constexpr const char* SlidesFailed = "An error occurred while saving slide show data.";

    MainModule& module_;
    SlideShow& show_;
    ShowFolder folder_;
    std::string path_;
    int count_;  ///< slides that are to be written
    SavePlan plan_;
    CopyWindow window_;
    std::size_t written_ = 0;   ///< slides
    const char* failure_ = "";  ///< what a failure now means
};

}  // namespace

SaveEnd WriteSlideFile(MainModule& module, const std::string& folder, const std::string& name) {
    return SavingShow(module, folder, name).Run();
}

}  // namespace tavrix
