#include "filing/moving/frmMoveImages.h"

namespace tavrix {

frmMoveImages::frmMoveImages(forms::Application& application, MainModule& module)
    : ImagesTransferFrm(application, module,
                        {.window = "frmMoveImages",
                         .caption = "Move Image(s)",
                         .act = TransferAct::Move,
                         .verb = "move",
                         .verbFirst = "Move",
                         .participle = "moving",
                         .button = "&Move",
                         .cancelToolTip = "Click here to cancel file move.",
                         .canceled = "Move was canceled, all files were not moved...",
                         .sourceFF = "CmdFF2",
                         .destinationFF = "CmdFF"}) {}

}  // namespace tavrix
