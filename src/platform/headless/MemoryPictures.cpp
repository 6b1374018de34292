#include "platform/headless/MemoryPictures.h"

#include <span>
#include <utility>

#include "platform/base/Text.h"
#include "platform/codecs/BmpWriter.h"
#include "platform/codecs/DecodePicture.h"
#include "platform/services/DrivePath.h"

namespace tavrix::headless {

std::string MemoryPictures::SetPicture(const std::string& path, const Picture& picture) {
    std::string content = "a picture of a test, number " + std::to_string(pictures_.size() + 1);
    pictures_[content] = picture;
    disks_.PutFile(path, content);
    failures_.erase(UpperCase(path));
    return content;
}

void MemoryPictures::SetFailure(const std::string& path, const RuntimeError& error) {
    failures_.insert_or_assign(UpperCase(path), error);
}

Picture MemoryPictures::Load(const std::string& path) {
    faults_.Enter(Service::Pictures, "Load", path);
    if (const auto failure = failures_.find(UpperCase(path)); failure != failures_.end()) {
        throw RuntimeError(failure->second);
    }
    const MemoryPlace place = disks_.Locate(PartsOf(path));
    if (!place.node) throw RuntimeError(place.parent ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound);
    if (place.IsFolder()) throw RuntimeError(ErrorNumber::PathFileAccessError);
    const auto known = pictures_.find(place.node->content);
    if (known != pictures_.end()) return known->second;

    MemorySource source(std::as_bytes(std::span(place.node->content)));
    DecodedPicture decoded = DecodePicture(source);
    if (decoded.error) throw RuntimeError(*decoded.error);
    return std::move(decoded.picture);
}

void MemoryPictures::SaveBitmap(const Surface& surface, const std::string& path) {
    faults_.Enter(Service::Pictures, "SaveBitmap", path);
    const std::unique_ptr<FileWriter> file = files_.Create(path);
    WriteBmp(surface, [&file](std::span<const std::byte> bytes) { file->Write(bytes); });
    file->Close();
}

}  // namespace tavrix::headless
