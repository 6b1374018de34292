#include "platform/host/HostPictures.h"

#include "platform/codecs/BmpWriter.h"

namespace tavrix {

void HostPictures::SaveBitmap(const Surface& surface, const std::string& path) {
    const std::unique_ptr<FileWriter> file = files_.Create(path);
    WriteBmp(surface, [&file](std::span<const std::byte> bytes) { file->Write(bytes); });
    file->Close();
}

}  // namespace tavrix
