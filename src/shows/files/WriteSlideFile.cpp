#include "shows/files/WriteSlideFile.h"

#include <memory>
#include <optional>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/RecentLists.h"
#include "core/ShowFolder.h"
#include "dialogs/CopyWindow.h"
#include "shows/Breather.h"
#include "shows/SlideEditor.h"
#include "shows/files/CopyNames.h"
#include "core/PutAside.h"
#include "shows/files/SavePlan.h"
#include "shows/files/ShowBackup.h"
#include "shows/files/ShowFileWriter.h"

namespace tavrix {
namespace {

const std::string Paragraph(NewLine2);

/// The folder that the rows of the editor are seen from; none where it is not its show that is saved.
ShowFolder FormerFolder(const MainModule& module) {
    const SlideEditor* editor = LoadedEditor(module.app);
    if (module.show.SaveFromArrays || editor == nullptr) return ShowFolder("");
    return ShowFolder::Of(editor->Filename());
}

class SavingShow {
  public:
    SavingShow(MainModule& module, const std::string& folder, const std::string& name)
        : module_(module),
          show_(module.show),
          folder_(folder),
          path_(folder + name),
          name_(name),
          count_(module.show.SlideCount),
          former_(FormerFolder(module)),
          plan_(TakeShow(module)),
          window_(module),
          breather_(module) {}

    SaveEnd Run() {
        window_.Tell("Tavrix is saving the slide show file, please wait...");
        if (PlanFiles(plan_, module_, folder_, name_, former_, Breathing())) SaveSound();
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
    /// For the work between two steps.
    [[nodiscard]] GoOn Breathing() {
        return [this] {
            breather_.Breathe();
            return !module_.CancelCopy;
        };
    }
    /// For a copy, which is begun in any case.
    [[nodiscard]] GoOn WhileCopying() const {
        return [this, begun = false]() mutable {
            if (!std::exchange(begun, true)) return true;
            module_.DoEvents();
            return !module_.CancelCopy;
        };
    }

    /// A cancel in its middle is seen by what comes next.
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
            backup.emplace(module_, path_);
            file = std::make_unique<ShowFileWriter>(module_.platform.files.Create(path_), EncodingOf(plan_));
            backup->Keep();
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
            if (file) PutInPlace(*file, *backup);
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
            if (!WriteSlide(file, plan_.slides[written_])) return false;
        }
        // More than there are slots run past the last one.
        if (count_ > SlideTexts::Slots) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return true;
    }

    /// False when the user canceled.
    bool WriteSlide(ShowFileWriter& file, const StoredSlide& slide) {
        if (slide.file.form == StoredFile::Form::Copied) {
            failure_ = "Unable to copy all images to slide show directory...";
            if (!CopyIntoFolder(slide.file)) return false;
            failure_ = SlidesFailed;
        }
        file.WriteSlide(slide.file.stored, slide.description);
        return true;
    }

    /// Makes what was written the file, where the former one is not lost by it.
    static void PutInPlace(ShowFileWriter& file, const ShowBackup& backup) {
        if (backup.Safe()) SkipFailure([&] { file.Close(); });
    }

    /// A file with other content that has the name is put aside first. What is there already is not copied. False when
    /// the user canceled in the middle.
    bool CopyIntoFolder(const StoredFile& file) {
        window_.Tell("Tavrix is copying the file:" + Paragraph + file.path);
        if (!CanName(file.stored)) throw RuntimeError(ErrorNumber::BadFileNameOrNumber);
        Files& files = module_.platform.files;
        const std::string target = folder_.Path() + file.stored;
        if (files.Same(file.source, target)) return true;
        if (IsThere(files, target)) {
            if (SameContent(files, file.source, target, Breathing())) return true;
            if (module_.CancelCopy) return false;
            PutAside(module_, target);
        }
        return files.Copy(file.source, target, WhileCopying());
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
        for (std::size_t i = 0; i < plan_.slides.size(); ++i) {
            const StoredFile& file = plan_.slides[i].file;
            const int row = static_cast<int>(i);
            const std::string& now = i < written_ ? file.stored : file.kept;
            if (show_.SlideFiles[row] == file.path) show_.SlideFiles.Set(row, now);
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
    std::string name_;
    int count_;  ///< slides that are to be written
    ShowFolder former_;
    SavePlan plan_;
    CopyWindow window_;
    Breather breather_;
    std::size_t written_ = 0;   ///< slides
    const char* failure_ = "";  ///< what a failure now means
};

}  // namespace

SaveEnd WriteSlideFile(MainModule& module, const std::string& folder, const std::string& name) {
    return SavingShow(module, folder, name).Run();
}

}  // namespace tavrix
