#include "shows/files/ReadShowFile.h"

#include <memory>

#include "base/Text.h"
#include "shows/files/ShowFileFormat.h"
#include "shows/files/ShowFileReader.h"

namespace tavrix {
namespace {

void ReadOptions(ShowFileReader& file, bool older, ShowOptions& options) {
    const auto flag = [&file] { return file.Integer() == ShowFileFormat::True; };
    options.SoundMode = file.Integer();
    options.SoundFile = file.Text();
    options.CDTrack = file.Integer();
    options.SoundLoop = flag();
    options.SlideInterval = file.Integer();
    options.RandomSlides = flag();
    options.ShowFilenames = flag();
    if (older) {
        options.ShowDescription = false;
        options.LoopSlideShow = true;
        return;
    }
    options.ShowDescription = flag();
    options.LoopSlideShow = flag();
    options.AnimateGIF89 = flag();
}

void ReadSlides(ShowFileReader& file, ShowFileReading& reading, ShowSlides& slides) {
    bool ended = false;  // by an empty path
    for (int index = 0; !file.AtEnd(); ++index) {
        slides.SlideFiles.Set(index, file.Text());
        if (!reading.older)
            slides.SlideDescriptions.Set(index, Left(file.Text(), ShowFileFormat::LongestDescription));
        const bool noPath = slides.SlideFiles[index].empty();
        ended = ended || noPath;
        if (ended && !(noPath && slides.SlideDescriptions[index].empty())) reading.hidden = true;
        if (index == SlideTexts::LastIndex) {
            reading.tooLong = reading.cut = true;
            return;
        }
    }
}

}  // namespace

ShowFileReading ReadShowFile(Files& files, const std::string& path, ShowRecord& record) {
    ShowFileReading reading;
    ShowFileEnd stage = ShowFileEnd::NotOpened;
    try {
        ShowFileReader file(files.Open(path));
        stage = ShowFileEnd::HeaderFailed;
        if (file.Text() != ShowFileFormat::Signature) {
            reading.end = ShowFileEnd::NoShow;
            return reading;
        }
        reading.version = file.Text();
        reading.older = reading.version == ShowFileFormat::OldVersion;
        if (!reading.older && reading.version != ShowFileFormat::Version) {
            reading.end = ShowFileEnd::OtherRelease;
            return reading;
        }
        ReadOptions(file, reading.older, record.options);
        stage = ShowFileEnd::SlidesFailed;
        record.slides.EraseSlides();
        ReadSlides(file, reading, record.slides);
        if (reading.tooLong) SkipFailure([&] { reading.cut = !file.AtEnd(); });
    } catch (const RuntimeError& error) {
        reading.end = stage;
        reading.why = error;
    }
    return reading;
}

}  // namespace tavrix
