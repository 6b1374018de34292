#pragma once

#include <functional>
#include <string>

#include "base/RuntimeError.h"
#include "imaging/graphics/Picture.h"
#include "imaging/graphics/Surface.h"

namespace tavrix {

class MainViewFrm;
struct MainModule;

/// What an edit says that cannot write its result.
inline constexpr const char* EditNotWritten = "Unable to write edited image to a temporary file.";

/// The names of the files in GetTempFolder that edits use.
inline constexpr const char* UndoFile = "~undo.tmp";
inline constexpr const char* WorkingFile = "Untitled.BMP";

/// Copies the file of the image on show to the undo file and offers the undo. The caller has set the caption of
/// mnuUndo; where the copy fails it becomes "Can't Undo", and whether the entry is enabled stays as it was.
void SaveUndoCopy(MainViewFrm& view);

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
bool WriteWorkingFile(MainViewFrm& view, const std::string& failure = EditNotWritten);

/// Tells a failure that leaves the view without an image, and leaves it so, with the default pointer.
void EndWithoutImage(MainViewFrm& view, const std::string& text);
/// The same; the text is this one, the error's own, three points.
void EndWithoutImage(MainViewFrm& view, const std::string& failure, const RuntimeError& error);

/// Whether the picture on show came without a part of its file that could not be read; that is told then, and the picture
/// stays on show. No edit takes it for the whole.
[[nodiscard]] bool RefuseUnread(MainViewFrm& view, const std::string& failure = EditNotWritten);

/// The end of an edit: CommitWorkingFile, WriteWorkingFile, and mnuAnimatedGIF disabled.
void CommitEdit(MainViewFrm& view, const std::string& failure = EditNotWritten);

/// Gives MainImage a size in twips. Both sides at once, so that the window is laid out for no size between.
void SizeMainImage(MainViewFrm& view, float width, float height);

/// Lets the picture of PictureTemp be what MainImage shows; it takes its size.
void CopyToPictureTemp(MainViewFrm& view);
/// CopyToPictureTemp, and the picture of MainImage cleared; MainImage keeps its size.
void TakeToPictureTemp(MainViewFrm& view);
/// The pixels of PictureTemp. Throws RuntimeError 481 when it has no picture.
[[nodiscard]] const Surface& PixelsOfPictureTemp(MainViewFrm& view);
/// What PictureTemp shows, with what was drawn on it. Throws RuntimeError 481 while it has no size.
[[nodiscard]] Picture ImageOfPictureTemp(MainViewFrm& view);
/// Takes the picture of PictureTemp away, and its size.
void ClearPictureTemp(MainViewFrm& view);

/// What all commands of the Edit menu do around their work: nothing while another operation runs or without an image;
/// else the hourglass, the caption for mnuUndo with the undo copy, the selection wiped, the work, the default pointer.
/// The work skips its own failures.
void RunEditCommand(MainViewFrm& view, const std::string& undoCaption, const std::function<void()>& work);

/// RunEditCommand with a transform that draws into MainImage from PictureTemp, and with CommitEdit after it.
void RunEdit(MainViewFrm& view, const std::string& undoCaption, const std::function<void()>& transform);

}  // namespace tavrix
