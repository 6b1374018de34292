// The boxes with information about the show, a folder, an image.

#include <optional>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "shows/Breather.h"
#include "shows/editor/SlideLoadFrm.h"
#include "viewer/ImageTypes.h"

namespace tavrix {
namespace {

const std::string Line(NewLine);
const std::string Paragraph(NewLine2);
const std::string Rule = Line + "_____________________" + Paragraph;

std::optional<FileInfo> InfoOf(const MainModule& module, const std::string& path) {
    std::optional<FileInfo> info;
    SkipFailure([&] { info = module.platform.files.Info(path); });
    if (info && info->folder) info.reset();
    return info;
}

std::string DateOf(const MainModule& module, const std::optional<FileInfo>& info,
                   const std::string& unknown) {
    std::string date = unknown;
    SkipFailure([&] {
        if (info) date = module.platform.system.ShortDateTime(info->modified);
    });
    return date;
}

std::string TypeOf(const MainModule& module, const std::string& path) {
    std::string type;
    SkipFailure([&] { type = FileTypeText(module, path); });
    return type.empty() ? "Unknown" : type;
}

}  // namespace

void SlideLoadFrm::mnuSlideShowInfo_Click() {
    std::string text = ShowPath() + Rule;
    if (HasFile()) {
        const std::optional<FileInfo> file = InfoOf(module_, ShowPath());
        text +=
            "Slide show file size = " + (file ? Count(file->length) + " bytes" : "(File size is unknown.)") +
            Line + "File date and time = " + DateOf(module_, file, "(Unable to get file date and time.)");
    } else {
        text += "Slide show file size = (File has not been saved yet.)" + Line +
                "File date and time = (No file date and time.)";
    }
    text += Rule + "Sound file = ";
    const AppConfig& options = module_.config;
    if (options.SoundMode == 2) {
        text += "(CD Audio has been specified.)";
    } else if (options.SoundMode != 1 || options.SoundFile.empty()) {
        text += "(Sound file has not been specified.)";
    } else {
        const std::optional<FileInfo> sound = InfoOf(module_, folder_.SlidePath(options.SoundFile));
        text += options.SoundFile + Line + "Sound file size = " +
                (sound ? Count(sound->length) + " bytes" : "(Size of sound file is unknown.)");
    }

    std::int64_t total = 0;
    int missing = 0;
    {
        const forms::BusyGuard busy(module_.Screen());
        Breather breather(module_);
        for (int row = 0; row < ListView.ListCount(); ++row) {
            breather.Breathe();
            const std::optional<FileInfo> slide = InfoOf(module_, SlidePath(row));
            if (slide)
                total += slide->length;
            else
                ++missing;
        }
    }
    text +=
        Rule + lblNumSlides.Caption.Get() + Line + "Total size of slide show = " + Count(total) + " bytes";
    if (missing == 1) text += Line + "(One slide is missing.)";
    if (missing > 1) text += Line + "(" + Count(missing) + " slides are missing.)";
    Tell(text, "Tavrix - [Slide Show Information]");
}

void SlideLoadFrm::mnuSourceInfo_Click() {
    std::int64_t total = 0;
    {
        const forms::BusyGuard busy(module_.Screen());
        Breather breather(module_);
        const int count = File1.ListCount();
        for (int row = 0; row < count; ++row) {
            breather.Breathe();
            if (const std::optional<FileInfo> file = InfoOf(module_, SourcePath(row))) total += file->length;
        }
    }
    Tell("Current source file folder:" + Paragraph + SourceFolder() + Rule + "Number of valid files = " +
             Count(File1.ListCount()) + Line + "Total file size = " + Count(total) + " bytes",
         "Tavrix - [Source Folder Information]");
}

void SlideLoadFrm::mnuShowFileInfo_Click() {
    const int row = FirstSelectedSource();
    TellImageInformation(row < 0 ? std::nullopt : std::optional(SourcePath(row)));
}

void SlideLoadFrm::mnuShowImagePath_Click() {
    const int row = ListView.ListIndex;
    TellImageInformation(row < 0 ? std::nullopt : std::optional(SlidePath(row)));
}

void SlideLoadFrm::TellImageInformation(const std::optional<std::string>& path) const {
    const std::string title = "Tavrix - [Image Information]";
    if (!path) {
        Tell("An image has not been selected, unable to view image information...", title);
        return;
    }
    const std::optional<FileInfo> file = InfoOf(module_, *path);
    Tell("Complete path to image file:" + Paragraph + *path + Rule +
             "File size = " + (file ? Count(file->length) + " bytes" : "(File size is unknown.)") + Line +
             "File date and time = " + DateOf(module_, file, "(Unable to get file date and time.)") + Line +
             "File type = " + TypeOf(module_, *path),
         title);
}

}  // namespace tavrix
