#include "filing/moving/frmCopyImages.h"

namespace tavrix {

frmCopyImages::frmCopyImages(forms::Application& application, MainModule& module)
    : ImagesTransferFrm(application, module,
                        {.window = "frmCopyImages",
                         .caption = "Copy Image(s)",
                         .act = TransferAct::Copy,
                         .verb = "copy",
                         .verbFirst = "Copy",
                         .participle = "copying",
                         .button = "C&opy",
                         .cancelToolTip = "Click here to cancel file copy.",
                         .canceled = "Filecopy was canceled, all files were not copied...",
                         .sourceFF = "CmdFF",
                         .destinationFF = "CmdFF2"}) {}

}  // namespace tavrix
