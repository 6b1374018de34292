#include "editing/frame/EditFrame.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "editing/frame/SurfaceFile.h"
#include "viewer/MainViewFrm.h"
#include "viewer/Opening.h"

namespace tavrix {

using forms::MousePointer;

void SaveUndoCopy(MainViewFrm& view) {
    const MainModule& module = view.Module();
    try {
        module.platform.files.Copy(module.CurrentImage, GetTempFolder(module) + UndoFile);
        view.menu.mnuUndo.Enabled = true;
    } catch (const RuntimeError&) {
        // An entry that an earlier edit has enabled stays so.
        view.menu.mnuUndo.Caption = "Can't Undo";
    }
}

std::string WorkingFileToWrite(const MainModule& module) {
    Files& files = module.platform.files;
    std::string path = GetTempFolder(module) + WorkingFile;
    SkipFailure([&] {
        if (files.FileExists(path) && files.Info(path).readOnly)
            path = module.AppPath + "Untitled." + Right(path, 3);
    });
    return path;
}

void CommitWorkingFile(MainViewFrm& view) {
    MainModule& module = view.Module();
    module.CurrentImage = WorkingFileToWrite(module);
    view.ShowTitleOf(module.CurrentImage);
}

void WriteMainImage(MainViewFrm& view) {
    WriteMainImageTo(view, view.Module().CurrentImage);
}

void WriteMainImageTo(MainViewFrm& view, const std::string& workingFile) {
    MainModule& module = view.Module();
    WriteSurface(module, view.MainImage, workingFile);
    if (module.KeptWorkingFile == workingFile) module.KeptWorkingFile.clear();
}

bool WriteWorkingFile(MainViewFrm& view, const std::string& failure) {
    try {
        WriteMainImage(view);
        return true;
    } catch (const RuntimeError& error) {
        EndWithoutImage(view, failure, error);
        return false;
    }
}

void EndWithoutImage(MainViewFrm& view, const std::string& text) {
    MainModule& module = view.Module();
    module.Screen().MousePointer = MousePointer::Default;
    view.App().MessageBox({.text = text, .icon = forms::BoxIcon::Stop});
    module.CurrentImage.clear();
    mnuClear_Click(view);
    module.Screen().MousePointer = MousePointer::Default;
}

void EndWithoutImage(MainViewFrm& view, const std::string& failure, const RuntimeError& error) {
    EndWithoutImage(view, failure + std::string(NewLine2) + error.Description() + "...");
}

bool RefuseUnread(MainViewFrm& view, const std::string& failure) {
    const Picture& picture = view.MainImage.Picture;
    if (picture.Empty() || picture.pixels->Ending() != Outcome::Unread) return false;
    view.App().MessageBox(
        {.text = failure + std::string(NewLine2) + DescriptionOf(ErrorNumber::PathFileAccessError) + "...",
         .icon = forms::BoxIcon::Stop});
    return true;
}

void CommitEdit(MainViewFrm& view, const std::string& failure) {
    CommitWorkingFile(view);
    if (WriteWorkingFile(view, failure)) view.menu.mnuAnimatedGIF.Enabled = false;
}

void SizeMainImage(MainViewFrm& view, float width, float height) {
    view.MainImage.Move(view.MainImage.Left, view.MainImage.Top, width, height);
}

void CopyToPictureTemp(MainViewFrm& view) {
    SkipFailure([&] { view.PictureTemp.Picture = view.MainImage.Image(); });
    view.Module().DoEvents();
}

void TakeToPictureTemp(MainViewFrm& view) {
    CopyToPictureTemp(view);
    view.MainImage.Picture = Picture();
    view.Module().DoEvents();
}

const Surface& PixelsOfPictureTemp(MainViewFrm& view) {
    const Picture& picture = view.PictureTemp.Picture;
    if (picture.Empty()) throw RuntimeError(ErrorNumber::InvalidPicture);
    return picture.pixels->Whole();
}

Picture ImageOfPictureTemp(MainViewFrm& view) {
    Picture image = view.PictureTemp.Image();
    if (image.Empty()) throw RuntimeError(ErrorNumber::InvalidPicture);
    return image;
}

void ClearPictureTemp(MainViewFrm& view) {
    view.PictureTemp.Picture = Picture();
    view.PictureTemp.Move(view.PictureTemp.Left, view.PictureTemp.Top, 0, 0);
}

void RunEditCommand(MainViewFrm& view, const std::string& undoCaption, const std::function<void()>& work) {
    MainModule& module = view.Module();
    if (module.Busy() || module.CurrentImage.empty()) return;
    const forms::BusyGuard busy(module.Screen());
    module.DoEvents();
    if (RefuseUnread(view)) return;
    view.menu.mnuUndo.Caption = undoCaption;
    SaveUndoCopy(view);
    SkipFailure([&] { view.selection.Erase(); });
    view.selection.SelectionShown = false;
    work();
}

void RunEdit(MainViewFrm& view, const std::string& undoCaption, const std::function<void()>& transform) {
    RunEditCommand(view, undoCaption, [&] {
        TakeToPictureTemp(view);
        transform();
        ClearPictureTemp(view);
        CommitEdit(view);
    });
}

}  // namespace tavrix
