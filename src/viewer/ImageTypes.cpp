#include "viewer/ImageTypes.h"

#include "base/Text.h"
#include "core/FileServices.h"
#include "core/ImageKinds.h"

namespace tavrix {
namespace {

/// The bytes as they can stand in a line of text.
std::string Printable(const std::string& bytes) {
    constexpr char firstPrintable = ' ';
    constexpr char deleteMark = 0x7F;
    std::string text = DecodeTextFile(bytes);
    for (char& c : text) {
        const bool control = (c >= 0 && c < firstPrintable) || c == deleteMark;
        if (control) c = '?';
    }
    return text;
}

}  // namespace

bool IsImportOnly(const std::string& path) {
    const ImageKind* const kind = ImageKindOf(path);
    return kind != nullptr && !kind->opens;
}

std::string ImportFirstText(const std::string& path) {
    return Right(path, 4) +
           " files must be imported into Tavrix and then saved as a supported format first, unable to open:" +
           std::string(NewLine2) + path;
}

std::string FileTypeText(const MainModule& module, const std::string& path) {
    if (EndsInIgnoringCase(path, ".GIF"))
        return "Graphics Interchange Format (" + Printable(GifSignature(module, path)) + ")";
    if (EndsInIgnoringCase(path, ".RLE")) return "RLE4 or RLE8 Compressed Bitmap (.RLE)";
    const ImageKind* const kind = ImageKindOf(path);
    return kind != nullptr ? std::string(kind->typeName) : std::string();
}

}  // namespace tavrix
