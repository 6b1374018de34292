#include "editing/Commands.h"

#include "editing/clipboard/Copy.h"
#include "editing/clipboard/Crop.h"
#include "editing/clipboard/Paste.h"
#include "editing/creating/NewImageFrm.h"
#include "editing/desktop/DesktopCommands.h"
#include "editing/frame/Undo.h"
#include "editing/resizing/frmImageSize.h"
#include "editing/saving/SavingCommands.h"
#include "editing/turning/FixedTransforms.h"
#include "editing/turning/frmRotateImg.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void InstallEditingCommands(MainViewFrm& view) {
    InstallSavingCommands(view);
    InstallDesktopCommands(view);
    view.menu.mnuUndo.Install([&view] { mnuUndo_Click(view); });
    view.menu.mnuCopy.Install([&view] { mnuCopy_Click(view); });
    view.menu.mnuPaste.Install([&view] { mnuPaste_Click(view); });
    view.menu.mnuCrop.Install([&view] { mnuCrop_Click(view); });
    view.menu.mnuFlipHorizontal.Install([&view] { mnuFlipHorizontal_Click(view); });
    view.menu.mnuFlipVertically.Install([&view] { mnuFlipVertically_Click(view); });
    view.menu.mnu90CW.Install([&view] { mnu90CW_Click(view); });
    view.menu.mnu90CCW.Install([&view] { mnu90CCW_Click(view); });
    view.menu.mnu180Degrees.Install([&view] { mnu180Degrees_Click(view); });
    view.menu.mnuArbitrary.Install([&view] { mnuArbitrary_Click(view); });
    view.menu.mnu25Smaller.Install([&view] { mnu25Smaller_Click(view); });
    view.menu.mnu25Larger.Install([&view] { mnu25Larger_Click(view); });
    view.menu.mnu50Smaller.Install([&view] { mnu50Smaller_Click(view); });
    view.menu.mnu50Larger.Install([&view] { mnu50Larger_Click(view); });
    view.menu.mnuEditImageSize.Install([&view] { mnuEditImageSize_Click(view); });
    view.menu.mnuNewImage.Install([&view] { mnuNewImage_Click(view); });
}

}  // namespace tavrix
