#include "backends/linux/HostViewLib.h"

#include <memory>

#include "backends/linux/FileSource.h"
#include "base/RuntimeError.h"
#include "imaging/codecs/JpegEncoder.h"

namespace tavrix {

int HostViewLib::Load(const std::string& path, std::int16_t) {
    image_.Clear();
    try {
        FileSource source(files_.HostPathOf(path));
        return image_.Load(source, path) ? ++loads_ : 0;
    } catch (const RuntimeError&) {
        return 0;
    }
}

std::int16_t HostViewLib::SaveAsJPG(std::int32_t quality, const std::string& path) {
    // The file is opened with the first bytes: an image that cannot be encoded must not empty it.
    std::unique_ptr<FileWriter> writer;
    const auto write = [&](std::span<const std::byte> bytes) {
        try {
            if (!writer) writer = files_.Create(path);
            writer->Write(bytes);
            return true;
        } catch (const RuntimeError&) {
            return false;
        }
    };
    if (!EncodeJpeg(Image(), quality, write)) return 0;
    try {
        writer->Close();
        return 1;
    } catch (const RuntimeError&) {
        return 0;
    }
}

}  // namespace tavrix
