#include "shows/files/SaverFile.h"

#include <memory>
#include <utility>

#include "base/RuntimeError.h"
#include "core/FailureText.h"
#include "core/PutAside.h"
#include "shows/files/ShowFileWriter.h"

namespace tavrix {
namespace {

ShowFileEncoding EncodingOf(const MainModule& module) {
    ShowFileEncoding encoding;
    encoding.Add(module.config.SoundFile);
    const SlideShow& show = module.show;
    const int count = show.SlideFiles.FirstEmpty();
    for (int index = 0; index < count; ++index) {
        encoding.Add(show.SlideFiles[index]);
        encoding.Add(show.SlideDescriptions[index]);
    }
    return encoding;
}

/// The settings change no slides: where the file has others, they are all that there is of them.
void PutAsideUnseen(const MainModule& module, const std::string& path) {
    Files& files = module.platform.files;
    if (!IsThere(files, path)) return;
    ShowRecord record;
    const bool whole = ReadShowFile(files, path, record).Whole();
    const ShowSlides& slides = module.show;
    if (!whole || record.slides != slides) PutAside(module, path);
}

}  // namespace

ReadShowResult ReadSaverFile(MainModule& module, const std::string& path) {
    const ReadShowWords words{
        .kind = "Screen Saver",
        .openFailed = "Unable to open the current Screen Saver data file.",
        .dataFailed = "An error occurred while reading the Screen Saver data.",
        .notValid = "This may not be a valid screen saver file...",
        .whenIsSaved = "If the file is saved",
    };
    ShowRecord record{.slides = {}, .options = module.config};
    const ReadShowResult result = ReadShow(module, path, words, record, [] {});
    module.config.SetShowOptions(record.options);
    const bool slidesRead = result.end == ShowFileEnd::Complete || result.end == ShowFileEnd::SlidesFailed;
    if (slidesRead) module.show.TakeSlides(std::move(record.slides));
    return result;
}

void WriteSaverFile(const MainModule& module, const std::string& path) {
    const char* failure = "Unable to save Screen Saver.";
    std::unique_ptr<ShowFileWriter> file;
    try {
        PutAsideUnseen(module, path);
        file = std::make_unique<ShowFileWriter>(module.platform.files.Create(path), EncodingOf(module));
        failure = "An error occurred while trying to write the Screen Saver header.";
        file->WriteHeader(module.config);
        failure = "An error occurred while saving Screen Saver data.";
        const SlideShow& show = module.show;
        // With all slots full this runs past the last one, which fails.
        for (int index = 0; !show.SlideFiles[index].empty(); ++index)
            file->WriteSlide(show.SlideFiles[index], show.SlideDescriptions[index]);
        file->Close();
    } catch (const RuntimeError& error) {
        TellFailure(module, failure, error);
        if (file) SkipFailure([&] { file->Close(); });
    }
}

}  // namespace tavrix
