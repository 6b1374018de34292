#include "editing/frame/WorkingImage.h"

#include "base/RuntimeError.h"
#include "editing/frame/WorkingFile.h"
#include "viewer/MainViewFrm.h"
#include "viewer/MenuState.h"

namespace tavrix {

void TakeWorkingImage(MainViewFrm& view, const WorkingImageWords& words, const std::function<void()>& take) {
    const MainModule& module = view.Module();
    const forms::BusyGuard busy(module.Screen());
    try {
        view.picFrame.Visible = false;
        take();
        view.imageOnShow.LayOut();
        view.picFrame.Visible = true;
        module.DoEvents();
    } catch (const RuntimeError& error) {
        EndWithoutImage(view, words.notRead, error);
        return;
    }
    KeepWorkingImage(view, words);
}

void KeepWorkingImage(MainViewFrm& view, const WorkingImageWords& words) {
    CommitWorkingFile(view);
    if (WriteWorkingFile(view, words.notWritten)) SetImageLoadedMenus(view);
}

}  // namespace tavrix
