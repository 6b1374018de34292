// What the editor shows on the stage.

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FileServices.h"
#include "core/Folders.h"
#include "shows/editor/SlideLoadFrm.h"
#include "shows/stage/FullViewFrm.h"
#include "shows/stage/StageCommands.h"

namespace tavrix {

void SlideLoadFrm::CmdOK_Click() {
    if (ListView.ListCount() == 0) {
        Tell("There are no slides in the View List to show." + std::string(NewLine2) +
             "Add files to the list and then try again...");
        return;
    }
    const forms::BusyGuard busy(module_.Screen());
    module_.DoEvents();
    CmdOK.Enabled = false;
    module_.DoEvents();
    // A show without a file leaves the current folder.
    if (HasFile()) SkipFailure([this] { ChangeToFolderOf(module_, ShowPath()); });
    module_.SlideShowActive = true;
    module_.StartedAsShow = false;
    module_.show.SlideCount = static_cast<std::int16_t>(ListView.ListCount());
    ShowStage();
    module_.DoEvents();
    CmdOK.Enabled = true;
}

void SlideLoadFrm::ShowStage() {
    EndStage(module_);
    module_.app.Load<FullViewFrm>(module_).ShowModal();
}

void SlideLoadFrm::ViewImage(const std::string& path, bool animated) {
    module_.StageImage = path;
    module_.SlideShowActive = false;
    module_.StageImageAnimated = animated;
    ShowStage();
    module_.StageImageAnimated = false;
}

void SlideLoadFrm::CmdPreview_Click() {
    if (File1.ListCount() == 0) {
        Tell("There are no files in the selected directory to preview...");
    } else if (const int row = FirstSelectedSource(); row < 0) {
        Tell("Select an image file to preview and then try again...");
    } else {
        ViewImage(SourcePath(row));
    }
}

void SlideLoadFrm::mnuViewImage2_Click() {
    if (ListView.ListCount() == 0) {
        Tell("There are no files in the current slide show to preview...");
    } else if (ListView.ListIndex < 0) {
        Tell("Select an image in the slide show to preview and then try again...");
    } else {
        ViewImage(SlidePath(ListView.ListIndex));
    }
}

void SlideLoadFrm::mnuViewAnimatedGIF1_Click() {
    const int row = FirstSelectedSource();
    ViewAnimated(row < 0 ? std::nullopt : std::optional(SourcePath(row)));
}

void SlideLoadFrm::mnuViewAnimatedGIF2_Click() {
    const int row = ListView.ListIndex;
    ViewAnimated(row < 0 ? std::nullopt : std::optional(SlidePath(row)));
}

void SlideLoadFrm::ViewAnimated(const std::optional<std::string>& path) {
    if (!path) {
        Tell("An image has not been selected, unable to view animated gif...");
        return;
    }
    if (!EndsInIgnoringCase(*path, ".GIF")) {
        Tell("The selected image is not a .GIF file, unable to animate...");
        return;
    }
    std::string signature;  // a file that cannot be read has none
    SkipFailure([&] { signature = GifSignature(module_, *path); });
    if (UpperCase(signature) != "GIF89A") {
        Tell("The selected file is not in the GIF89a format, unable to animate...");
        return;
    }
    ViewImage(*path, true);
}

}  // namespace tavrix
