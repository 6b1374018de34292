#pragma once

#include <string>

#include "base/RuntimeError.h"

namespace tavrix {

class MainViewFrm;
struct MainModule;

/// The file in GetTempFolder that an image without a file of its own lies in.
inline constexpr const char* WorkingFile = "Untitled.BMP";

/// The path of the working file: the one in the program's folder when that in the temporary folder is read-only.
[[nodiscard]] std::string WorkingFileToWrite(const MainModule& module);

/// Makes the working file the image on show, with the title. Nothing is written yet.
void CommitWorkingFile(MainViewFrm& view);

/// Writes what MainImage shows to the file CurrentImage, as a bitmap. Failures are those of the file service, and
/// 380 without any pixels.
void WriteMainImage(MainViewFrm& view);
/// The same to a working file that is not the image on show yet.
void WriteMainImageTo(MainViewFrm& view, const std::string& workingFile);

/// WriteMainImage for commands; a failure ends by EndWithoutImage. Whether the file was written.
bool WriteWorkingFile(MainViewFrm& view, const std::string& failure);

/// Tells a failure that leaves the view without an image, and leaves it so, with the default pointer from the box on.
void EndWithoutImage(MainViewFrm& view, const std::string& text);
/// The same; the text is this one, the error's own, three points.
void EndWithoutImage(MainViewFrm& view, const std::string& failure, const RuntimeError& error);

}  // namespace tavrix
