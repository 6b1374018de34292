#include "backends/linux/HostPictures.h"

#include <utility>

#include "backends/linux/FileSource.h"
#include "base/RuntimeError.h"
#include "imaging/codecs/BmpWriter.h"
#include "imaging/codecs/GifAnimation.h"

namespace tavrix {

HostPictures::HostPictures(HostFiles& files)
    : files_(files),
      loader_([&files](const std::string& path) { return OpenFileSource(files.HostPathOf(path)); }) {}

std::unique_ptr<Animation> HostPictures::OpenAnimation(const std::string& path) {
    OpenedAnimation opened = OpenGifAnimation(std::make_unique<FileSource>(files_.HostPathOf(path)));
    if (opened.error) throw RuntimeError(*opened.error);
    return std::move(opened.animation);
}

void HostPictures::SaveBitmap(const Surface& surface, const std::string& path) {
    const std::unique_ptr<FileWriter> file = files_.Create(path, BmpSize(surface));
    WriteBmp(surface, [&file](std::span<const std::byte> bytes) { file->Write(bytes); });
    file->Close();
}

}  // namespace tavrix
