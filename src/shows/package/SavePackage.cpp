#include "shows/package/SavePackage.h"

#include <optional>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/Folders.h"
#include "core/Settings.h"
#include "dialogs/CopyWindow.h"
#include "shows/files/LoadShowFile.h"
#include "shows/package/PackageLayout.h"
#include "shows/package/PackageTitle.h"
#include "shows/package/WritePackageFile.h"

namespace tavrix {
namespace {

const std::string Paragraph(NewLine2);

class SavingPackage {
  public:
    SavingPackage(MainModule& module, ProgramFiles& programFiles, const PackageValues& values,
                  const std::string& show)
        : module_(module),
          programFiles_(programFiles),
          values_(values),
          show_(show),
          source_(WithBackslash(values.PackageSource)),
          destination_(WithBackslash(values.PackageDestination)),
          slides_(destination_ + package::SlidesFolder + "\\"),
          failure_("An unexpected error occurred, unable to package " + values.PackageName +
                   ".  Check your source file(s) for problems and/or missing files...") {}

    void Run() {
        try {
            const End end = Work();
            window_.reset();
            if (end == End::Canceled) {
                Tell(
                    "Save Package was canceled before it could complete, files and/or settings in this "
                    "package may be missing...",
                    forms::BoxIcon::Exclamation);
            } else if (end == End::Done) {
                Tell("The " + KindOf(values_) + " package " + values_.PackageName +
                         " has been created in the directory:" + Paragraph + values_.PackageDestination,
                     forms::BoxIcon::Information);
            }
        } catch (const RuntimeError& error) {
            window_.reset();
            Tell(FailureText(failure_, error), forms::BoxIcon::Stop);
        }
    }

  private:
    enum class End : std::uint8_t { Done, Told, Canceled };

    End Work() {
        MakeSlidesFolder();
        window_.emplace(module_);
        window_->Tell("Tavrix is preparing to package " + values_.PackageName + ", please wait...");
        if (module_.CancelCopy) return End::Canceled;
        if (!LoadSource()) return End::Told;
        if (module_.CancelCopy) return End::Canceled;
        TestTarget();
        const PackageFileEnd written =
            WritePackageFile(module_, *window_, source_, slides_, show_, slidesAreNew_);
        if (written == PackageFileEnd::Failed) return End::Told;
        if (written == PackageFileEnd::Canceled || module_.CancelCopy) return End::Canceled;
        if (!CopyProgramFiles()) return End::Canceled;
        window_->Tell("Tavrix is creating .INI files in package directory, please wait...");
        if (module_.CancelCopy) return End::Canceled;
        WritePackageSettings(module_, destination_);
        WriteSetupIni(module_, values_, show_);
        module_.DoEvents();
        return module_.CancelCopy ? End::Canceled : End::Done;
    }

    /// Runs a stage whose failure has its own words.
    template <class Stage>
    void InWords(const std::string& failure, Stage&& stage) {
        const std::string former = std::exchange(failure_, failure);
        stage();
        failure_ = former;
    }

    void MakeSlidesFolder() {
        InWords("Could not create " + destination_ + package::SlidesFolder +
                    " directory, unable to package " + values_.PackageName + "...",
                [&] {
                    Files& files = module_.platform.files;
                    slidesAreNew_ = !files.FolderExists(slides_);
                    if (slidesAreNew_) files.MakeFolder(destination_ + package::SlidesFolder);
                });
    }

    /// False for a show that cannot be read, which is told.
    bool LoadSource() {
        const std::string failure =
            "Unable to package " + values_.PackageName +
            ", the source file that was selected could not be opened to read the data that it contains.";
        ReadShowResult result;
        InWords(failure, [&] {
            ChangeToFolderOf(module_, source_ + show_);
            static_cast<void>(module_.platform.files.Open(source_ + show_));
            result = LoadSharedShow(module_, source_ + show_);
            if (result.why) throw RuntimeError(*result.why);
        });
        if (result.end == ShowFileEnd::Complete) return true;
        window_.reset();
        Tell(failure, forms::BoxIcon::Stop);
        return false;
    }

    /// Nothing is changed by it.
    void TestTarget() {
        InWords("Unable to package " + values_.PackageName +
                    ", a slide show file (.TVS) could not be created in the destination location.",
                [&] { static_cast<void>(module_.platform.files.Create(slides_ + show_)); });
    }

    /// False when it was canceled.
    bool CopyProgramFiles() {
        bool goesOn = true;
        InWords(
            "Could not copy one of the Tavrix program files, unable to package " + values_.PackageName + ".",
            [&] {
                Files& files = module_.platform.files;
                if (files.FileExists(destination_ + package::ProgramName) && !UserCopiesOver()) return;
                for (const ProgramFile& file : programFiles_.List()) {
                    goesOn = goesOn && CopyProgramFile(file);
                }
            });
        return goesOn && !module_.CancelCopy;
    }

    bool CopyProgramFile(const ProgramFile& file) {
        window_->Progress("Tavrix is copying the file:" + Paragraph + file.source);
        if (module_.CancelCopy) return false;
        Files& files = module_.platform.files;
        const std::string target = destination_ + file.name;
        const std::string folder = FolderOf(target);
        if (!files.FolderExists(folder)) files.MakeFolder(folder.substr(0, folder.size() - 1));
        if (files.Same(file.source, target)) return true;
        return files.Copy(file.source, target, [this] {
            module_.DoEvents();
            return !module_.CancelCopy;
        });
    }

    [[nodiscard]] bool UserCopiesOver() {
        window_->Hide();
        const forms::Answer answer = module_.app.MessageBox(
            {.text = "It appears that the Tavrix program files are already in the package directory." +
                     Paragraph + "Do you want to copy over these files?",
             .title = PackageTitle,
             .icon = forms::BoxIcon::Question,
             .buttons = forms::BoxButtons::YesNo});
        window_->Show();
        return answer == forms::Answer::Yes;
    }

    void Tell(const std::string& text, forms::BoxIcon icon) {
        module_.app.MessageBox({.text = text, .title = PackageTitle, .icon = icon});
    }

    MainModule& module_;
    ProgramFiles& programFiles_;
    const PackageValues& values_;
    const std::string& show_;
    std::string source_;
    std::string destination_;
    std::string slides_;
    bool slidesAreNew_ = false;
    std::string failure_;  ///< what a failure now means
    std::optional<CopyWindow> window_;
};

}  // namespace

std::string KindOf(const PackageValues& values) {
    return values.PackageScreenSaver ? "screen saver" : "slide show";
}

void SavePackage(MainModule& module, ProgramFiles& programFiles, const PackageValues& values,
                 const std::string& show) {
    SavingPackage(module, programFiles, values, show).Run();
}

}  // namespace tavrix
