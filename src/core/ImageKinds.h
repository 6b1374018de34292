#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tavrix {

/// A kind of image files, known by how their names end.
struct ImageKind {
    std::string_view ending;    ///< with its point, in upper case
    std::string_view typeName;  ///< as an information box says it; empty where it says nothing of its own
    bool opens;                 ///< on the main view; else it has to be imported
    bool isSlide;               ///< the editor of shows lists it
};

/// All kinds, in the order in which the patterns of file lists name them.
inline constexpr std::array<ImageKind, 14> ImageKinds{
    {{".DIB", "Device Independent Bitmap (.DIB)", true, true},
     {".BMP", "Windows Bitmap (.BMP)", true, true},
     {".GIF", "", true, true},
     {".JPG", "JPEG (.JPG, .JIF, .JPE or .JPEG)", true, true},
     {".JIF", "JPEG (.JPG, .JIF, .JPE or .JPEG)", true, true},
     {".JPE", "JPEG (.JPG, .JIF, .JPE or .JPEG)", true, true},
     {".JPEG", "JPEG (.JPG, .JIF, .JPE or .JPEG)", true, true},
     {".ICO", "Windows Icon (.ICO)", true, true},
     {".WMF", "Windows Meta File (.WMF)", true, true},
     {".EMF", "Enhanced Metafile (.EMF)", true, true},
     {".RLE", "", true, true},
     {".PCX", "", false, false},
     {".TGA", "", false, false},
     {".CUR", "Mouse Cursor (.CUR)", true, false}}};

/// The kind of a file; null for a name that ends like none of them.
[[nodiscard]] const ImageKind* ImageKindOf(std::string_view path);

/// Which kinds a list of files shows.
enum class ImagesShown : std::uint8_t {
    Opening,  ///< what the main view opens
    Slides,   ///< what the editor of shows takes from its list
    All       ///< what is copied, moved or looked for
};

/// The pattern of such a list, as FileListBox takes it.
[[nodiscard]] std::string PatternOf(ImagesShown shown);

}  // namespace tavrix
