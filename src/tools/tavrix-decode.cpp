// tavrix-decode FILE [OUT.bmp]: what the picture loader makes of a file, or the import of a .tga or .pcx. Prints
// "format width height frames outcome" and writes the picture as a 24-bit bitmap; failures go to standard error, with
// status 1, and so does why and where a picture ends early, with status 0.

#include <cstdio>
#include <exception>
#include <fstream>
#include <string>
#include <string_view>

#include "backends/linux/FileSource.h"
#include "base/RuntimeError.h"
#include "imaging/codecs/BmpWriter.h"
#include "imaging/loading/DecodePicture.h"
#include "imaging/loading/Decoders.h"

namespace tavrix {
namespace {

std::string_view NameOf(Outcome outcome) {
    switch (outcome) {
        case Outcome::Complete:
            return "complete";
        case Outcome::Truncated:
            return "truncated";
        case Outcome::Corrupt:
            return "corrupt";
        case Outcome::Unread:
            return "unread";
    }
    return "";
}

void Write(const Surface& surface, const std::string& hostPath) {
    std::ofstream file(hostPath, std::ios::binary | std::ios::trunc);
    if (!file) throw RuntimeError(ErrorNumber::PathFileAccessError, hostPath + ": cannot be written");
    WriteBmp(surface, [&](std::span<const std::byte> bytes) {
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    });
    file.close();
    if (!file) throw RuntimeError(ErrorNumber::DiskFull, hostPath + ": not written whole");
}

/// C:\Pictures\a.bmp is /Pictures/a.bmp here; everything else is a host path already.
std::string ToHostPath(const std::string& path) {
    const bool drivePath =
        path.size() > 2 && (path[0] == 'C' || path[0] == 'c') && path[1] == ':' && path[2] == '\\';
    if (!drivePath) return path;
    std::string hostPath = path.substr(2);
    for (char& character : hostPath) {
        if (character == '\\') character = '/';
    }
    return hostPath;
}

int Decode(const std::string& path, const std::string& out) {
    FileSource source(ToHostPath(path));
    const DecodedPicture decoded = DecodePicture(source, ImportDecoderFor(source, path));
    if (decoded.error) throw RuntimeError(*decoded.error);
    const Picture& picture = decoded.picture;
    if (!out.empty()) Write(picture.pixels->Whole(), out);
    std::printf("%s %d %d %d %s\n", picture.format.c_str(), picture.Width(), picture.Height(), picture.frames,
                std::string(NameOf(decoded.status.outcome)).c_str());
    if (decoded.status.outcome != Outcome::Complete) {
        std::fprintf(stderr, "ends early: %s, at byte %llu\n", std::string(decoded.status.reason).c_str(),
                     static_cast<unsigned long long>(decoded.status.offset));
    }
    return 0;
}

}  // namespace
}  // namespace tavrix

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3) {
        std::fputs("usage: tavrix-decode FILE [OUT.bmp]\n", stderr);
        return 2;
    }
    try {
        return tavrix::Decode(argv[1], argc == 3 ? argv[2] : "");
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
