#include "editing/frame/EditFrame.h"

#include <memory>
#include <new>
#include <string>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "editing/frame/ScratchPicture.h"
#include "editing/frame/WorkingFile.h"
#include "platform/services/BesideCopy.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

/// The copy for the undo, which is made while the edit works.
class UndoCopy {
  public:
    explicit UndoCopy(MainViewFrm& view) : undo_(view.menu.mnuUndo), enabledBefore_(undo_.Enabled) {
        const MainModule& module = view.Module();
        Try([&] {
            copy_ = BeginCopy(module.platform.files, module.CurrentImage, GetTempFolder(module) + UndoFile);
        });
    }

    void Finish() {
        if (copy_) Try([&] { copy_->Finish(); });
    }

  private:
    template <class Step>
    void Try(Step step) {
        try {
            step();
            undo_.Enabled = true;
            return;
        } catch (const RuntimeError&) {  // the edit goes on
        } catch (const std::bad_alloc&) {
        }
        undo_.Caption = "Can't Undo";
        // An entry that an earlier edit has enabled stays so.
        undo_.Enabled = enabledBefore_;
    }

    forms::Menu& undo_;
    bool enabledBefore_;
    std::unique_ptr<BesideCopy> copy_;
};

}  // namespace

void EditFrame::Run(const Work& work) const {
    if (RefuseUnread()) return;
    view_.menu.mnuUndo.Caption = words_.undo;
    if (SaveUndoCopy(work) == EditResult::Refused) return;
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

EditResult EditFrame::SaveUndoCopy(const Work& work) const {
    UndoCopy copy(view_);
    try {
        const EditResult result = work();
        copy.Finish();
        return result;
    } catch (...) {
        copy.Finish();  // or the entry would bring back the picture of an earlier edit
        throw;
    }
}

void SizeMainImage(MainViewFrm& view, float width, float height) {
    view.MainImage.Move(view.MainImage.Left, view.MainImage.Top, width, height);
}

}  // namespace tavrix
