#include "editing/frame/WorkingFile.h"

#include "base/Text.h"
#include "core/Folders.h"
#include "core/KeptWorkingFiles.h"
#include "editing/frame/SurfaceFile.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

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
    view.imageOnShow.Become(WorkingFileToWrite(view.Module()));
}

void WriteMainImage(MainViewFrm& view) {
    WriteMainImageTo(view, view.Module().CurrentImage);
}

void WriteMainImageTo(MainViewFrm& view, const std::string& workingFile) {
    MainModule& module = view.Module();
    GiveWayToEdit(module, workingFile);
    WriteSurface(module, view.MainImage, workingFile);
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
    view.Module().Screen().MousePointer = forms::MousePointer::Default;
    view.App().MessageBox({.text = text, .icon = forms::BoxIcon::Stop});
    view.imageOnShow.Clear();
}

void EndWithoutImage(MainViewFrm& view, const std::string& failure, const RuntimeError& error) {
    EndWithoutImage(view, failure + std::string(NewLine2) + error.Description() + "...");
}

}  // namespace tavrix
