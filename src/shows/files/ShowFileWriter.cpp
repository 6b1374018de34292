#include "shows/files/ShowFileWriter.h"

#include <span>
#include <utility>

#include "base/Text.h"
#include "shows/files/ShowFileFormat.h"

namespace tavrix {

void ShowFileEncoding::Add(std::string_view item) {
    const bool ascii = CharacterCount(item) == item.size();
    if (!ascii && EncodeTextFile(item) == item) windows1252_ = false;
}

std::string ShowFileEncoding::Encode(std::string_view item) const {
    return windows1252_ ? EncodeTextFile(item) : std::string(item);
}

void ShowFileWriter::WriteHeader(const ShowOptions& options) {
    Text(ShowFileFormat::Signature);
    Text(ShowFileFormat::Version);
    Integer(options.SoundMode);
    Text(options.SoundFile);
    Integer(options.CDTrack);
    Flag(options.SoundLoop);
    Integer(options.SlideInterval);
    Flag(options.RandomSlides);
    Flag(options.ShowFilenames);
    Flag(options.ShowDescription);
    Flag(options.LoopSlideShow);
    Flag(options.AnimateGIF89);
    Flush();
}

void ShowFileWriter::WriteSlide(std::string_view path, std::string_view description) {
    constexpr std::size_t FewBytes = std::size_t{64} << 10U;
    Text(path);
    Text(description);
    if (waiting_.size() >= FewBytes) Flush();
}

void ShowFileWriter::Close() {
    Flush();
    file_->Close();
}

void ShowFileWriter::Text(std::string_view item) {
    waiting_.append("\"").append(encoding_.Encode(item)).append("\"").append(NewLine);
}

void ShowFileWriter::Integer(int value) {
    waiting_.append(std::to_string(value)).append(NewLine);
}

void ShowFileWriter::Flag(bool value) {
    Integer(value ? ShowFileFormat::True : 0);
}

void ShowFileWriter::Flush() {
    if (waiting_.empty()) return;
    const std::string bytes = std::exchange(waiting_, {});  // not a second time after a failure
    file_->Write(std::as_bytes(std::span(bytes)));
}

}  // namespace tavrix
