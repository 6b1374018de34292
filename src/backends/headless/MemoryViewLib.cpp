#include "backends/headless/MemoryViewLib.h"

#include <span>

#include "backends/headless/MemoryFiles.h"
#include "base/RuntimeError.h"
#include "imaging/codecs/ByteSource.h"
#include "imaging/codecs/JpegEncoder.h"
#include "platform/services/DrivePath.h"

namespace tavrix::headless {

int MemoryViewLib::Load(const std::string& path, std::int16_t) {
    image_.Clear();
    try {
        faults_.Enter(Service::NViewLib, "Load", path);
        const MemoryPlace place = disks_.Locate(PartsOf(path));
        if (!place.IsFile()) return 0;
        MemorySource source(std::as_bytes(std::span(place.node->content)));
        return image_.Load(source, path) ? ++loads_ : 0;
    } catch (const RuntimeError&) {
        return 0;
    }
}

std::int16_t MemoryViewLib::SaveAsJPG(std::int32_t quality, const std::string& path) {
    std::string content;
    const auto write = [&](std::span<const std::byte> bytes) {
        content.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        return true;
    };
    try {
        faults_.Enter(Service::NViewLib, "SaveAsJPG", path);
        if (!EncodeJpeg(Image(), quality, write)) return 0;
        ReplaceContent(disks_.LocateForWriting(PartsOf(path)), content, disks_.Now());
        return 1;
    } catch (const RuntimeError&) {
        return 0;
    }
}

}  // namespace tavrix::headless
