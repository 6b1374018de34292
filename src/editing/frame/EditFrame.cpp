#include "editing/frame/EditFrame.h"

#include <string>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "editing/frame/ScratchPicture.h"
#include "editing/frame/WorkingFile.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void EditFrame::Run(const Work& work) const {
    if (RefuseUnread()) return;
    view_.menu.mnuUndo.Caption = words_.undo;
    SaveUndoCopy();
    if (work() == EditResult::Refused) return;
    CommitWorkingFile(view_);
    if (WriteWorkingFile(view_, words_.notWritten)) view_.menu.mnuAnimatedGIF.Enabled = false;
}

void EditFrame::RunFromMenu(const Work& work) const {
    const MainModule& module = view_.Module();
    if (module.Busy() || module.CurrentImage.empty()) return;
    const forms::BusyGuard busy(module.Screen());
    module.DoEvents();
    Run([&] {
        SkipFailure([&] { view_.selection.Erase(); });
        view_.selection.SelectionShown = false;
        return work();
    });
}

EditResult EditFrame::Redraw(const std::function<void()>& transform,
                             const std::function<void()>& plan) const {
    CopyToPictureTemp(view_);
    plan();
    view_.MainImage.Picture = Picture();
    view_.Module().DoEvents();
    transform();
    ClearPictureTemp(view_);
    return EditResult::Made;
}

bool EditFrame::RefuseUnread() const {
    const Picture& picture = view_.MainImage.Picture;
    if (picture.Empty() || picture.pixels->Ending() != Outcome::Unread) return false;
    view_.App().MessageBox({.text = words_.notWritten + std::string(NewLine2) +
                                    DescriptionOf(ErrorNumber::PathFileAccessError) + "...",
                            .icon = forms::BoxIcon::Stop});
    return true;
}

void EditFrame::SaveUndoCopy() const {
    const MainModule& module = view_.Module();
    try {
        module.platform.files.Copy(module.CurrentImage, GetTempFolder(module) + UndoFile);
        view_.menu.mnuUndo.Enabled = true;
    } catch (const RuntimeError&) {
        // An entry that an earlier edit has enabled stays so.
        view_.menu.mnuUndo.Caption = "Can't Undo";
    }
}

void SizeMainImage(MainViewFrm& view, float width, float height) {
    view.MainImage.Move(view.MainImage.Left, view.MainImage.Top, width, height);
}

}  // namespace tavrix
