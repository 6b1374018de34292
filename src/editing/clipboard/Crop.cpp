#include "editing/clipboard/Crop.h"

#include <string>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/HelpContexts.h"
#include "editing/clipboard/SelectedArea.h"
#include "editing/frame/EditFrame.h"
#include "editing/frame/ScratchPicture.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

constexpr EditWords Words{.undo = "&Undo Crop",
                          .notWritten = "Unable to write new image data to a temporary file."};

void TellNothingSelected(const MainViewFrm& view) {
    view.App().MessageBox(
        {.text =
             "Nothing is selected, unable to crop image." + std::string(NewLine2) +
             "While holding the shift key and the left mouse button, select the area that you would like to "
             "crop and then try again...",
         .title = "Tavrix - [Crop Image]",
         .help = true,
         .helpContext = HelpContext::CropImage});
}

}  // namespace

void mnuCrop_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy() || module.CurrentImage.empty()) return;
    module.DoEvents();
    const forms::BusyGuard busy(module.Screen());
    module.DoEvents();
    if (!view.selection.SelectionShown) {
        TellNothingSelected(view);
        return;
    }
    EditFrame(view, Words).Run([&] {
        SkipFailure([&] { TakeWidthOfSelection(view); });
        SkipFailure([&] { TakeHeightOfSelection(view); });
        SkipFailure([&] { CopySelectionToPictureTemp(view, 0); });
        SkipFailure([&] { view.MainImage.Picture = ImageOfPictureTemp(view); });
        module.DoEvents();
        ClearPictureTemp(view);
        module.DoEvents();
        view.imageOnShow.LayOut();
        return EditResult::Made;
    });
}

}  // namespace tavrix
