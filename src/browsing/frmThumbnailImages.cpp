#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "browsing/frmThumbnail.h"
#include "core/FailureText.h"
#include "core/FileServices.h"
#include "core/HelpContexts.h"
#include "core/ImageKinds.h"
#include "core/NumberText.h"
#include "core/UnsavedImage.h"
#include "viewer/ImageInformation.h"
#include "viewer/MainViewFrm.h"
#include "viewer/Opening.h"

namespace tavrix {
namespace {

const std::string Paragraph(NewLine2);

/// What a user is told who clicks on a file that is no image of a kind that is opened; empty for one that is. The type is
/// what the last four characters are, so that a longer ending is none.
std::string RefusalOf(const MainModule& module, const std::string& path) {
    const std::string type = UpperCase(Right(path, 4));
    const ImageKind* const kind = ImageKindOf(type);
    if (kind != nullptr && kind->opens) return "";
    if (module.platform.files.FolderExists(path + "\\"))
        return "A folder was selected instead of an image file, unable to show information and/or view the "
               "folder:";
    if (kind != nullptr)
        return type +
               " files must be imported into Tavrix and then saved as a supported format first, unable to "
               "show information and/or open:";
    if (type == ".TVS")
        return "The Tavrix slide show file type (.TVS) is not an image file, unable to show information "
               "and/or open:";
    return "The selected file type (" + type +
           ") is not supported by Tavrix, unable to show information and/or open:";
}

/// A text as part of a menu's caption.
std::string InCaption(const std::string& text) {
    std::string caption;
    for (const char c : text)
        caption += c == '&' ? std::string("&&") : std::string(1, c);
    return caption;
}

}  // namespace

std::optional<std::string> frmThumbnail::PathIn(int slot) const {
    const int index = Pages.IndexOf(slot, VisibleThumbnails());
    if (index < 0 || index >= list_.ThumbnailCount()) return std::nullopt;
    return list_.ThumbnailFiles[static_cast<std::size_t>(index)];
}

void frmThumbnail::picPreview_MouseDown(int index, int button) {
    if (module_.Busy()) return;
    forms::BusyGuard busy(module_.Screen());
    const std::optional<std::string> path = PathIn(index);
    if (!path) return;
    const std::string refusal = RefusalOf(module_, *path);
    if (!refusal.empty()) {
        Tell(refusal + Paragraph + *path);
        return;
    }
    busy.Release();
    if (button == forms::MouseButton::Right) {
        OpenPopup(index, *path);
    } else {
        OpenImage(*path);
    }
}

void frmThumbnail::OpenPopup(int slot, const std::string& path) {
    constexpr std::size_t mostCharacters = 50;
    ThumbPopupSlot = slot;
    const std::string name = Right(FileNameOf(path), mostCharacters);
    mnuOpenImage.Caption = "&Open Image \"" + InCaption(name) + "\"...";
    mnuViewAnimatedGIF.Visible = EndsInIgnoringCase(name, ".GIF");
    PopupMenu(mnuPopup, &mnuCloseMenu);
}

void frmThumbnail::OpenImage(const std::string& path) {
    if (!ConfirmDiscard(module_)) return;
    forms::BusyGuard busy(module_.Screen());
    view_.picFrame.Visible = false;
    Hide();
    module_.DoEvents();
    view_.Show();
    module_.DoEvents();
    busy.Release();
    LoadIntoMainView(view_, path, {"Unable to open the selected image file."});
    App().Unload(*this);
}

void frmThumbnail::picPreview_MouseMove(int index) {
    const std::optional<std::string> path = PathIn(index);
    if (!path) return;
    SkipFailure([&] {
        const std::int64_t length = module_.platform.files.Info(*path).length;
        Hint(From(*path, CharacterCount(list_.ThumbnailFolder)) + " (" +
             GroupedNumberOrEmpty(length, module_.platform.system.Numbers()) + " bytes)");
    });
}

void frmThumbnail::picHoldPreview_MouseDown(int index, int button) {
    if (picPreview[static_cast<std::size_t>(index)].Visible) picPreview_MouseDown(index, button);
}

void frmThumbnail::picHoldPreview_OLEDragDrop(const std::vector<std::string>& files) {
    if (module_.Busy() || files.empty() || files.front().empty()) return;
    std::vector<std::string> list;
    for (const std::string& file : files) {
        if (file.empty()) break;
        if (static_cast<int>(list.size()) == ThumbnailList::Most) {
            App().MessageBox({.text =
                                  "You may not select any more than 5,000 thumbnails at one time, maximum "
                                  "has been reached...",
                              .icon = forms::BoxIcon::Exclamation});
            break;
        }
        const std::string target = EndsInIgnoringCase(file, ".LNK") ? ResolveLink(module_, file) : file;
        list.push_back(target.empty() ? file : target);
    }
    list_.ThumbnailFiles = std::move(list);
    list_.ThumbnailFolder.clear();
    list_.ThumbnailsShown = false;
    Form_Activate();
}

void frmThumbnail::mnuOpenImage_Click() {
    picPreview_MouseDown(ThumbPopupSlot, forms::MouseButton::Left);
}

void frmThumbnail::mnuPreviewImg_Click() {
    if (module_.Busy()) return;
    const std::optional<std::string> path = PathIn(ThumbPopupSlot);
    if (!path) return;
    module_.StageImage = *path;
    list_.ThumbnailsShown = true;
    module_.SlideShowActive = false;
    viewStageImage_();
}

void frmThumbnail::mnuViewAnimatedGIF_Click() {
    if (module_.Busy()) return;
    forms::BusyGuard busy(module_.Screen());
    const std::optional<std::string> path = PathIn(ThumbPopupSlot);
    if (!path) return;
    module_.StageImage = *path;
    list_.ThumbnailsShown = true;
    if (!IsAnimated(*path, busy)) return;
    busy.Release();
    module_.StageImageAnimated = true;
    module_.SlideShowActive = false;
    viewStageImage_();
    module_.StageImageAnimated = false;
}

bool frmThumbnail::IsAnimated(const std::string& path, forms::BusyGuard& busy) {
    if (!EndsInIgnoringCase(path, ".GIF")) {
        Tell("The current image is not a .GIF file, unable to animate...");
        return false;
    }
    try {
        if (UpperCase(GifSignature(module_, path)) == "GIF89A") return true;
    } catch (const RuntimeError& error) {
        Tell(FailureText("Unable to determine format of this GIF file, will attempt to animate anyway.",
                         error));
        return true;
    }
    busy.Release();
    App().MessageBox({.text = "The current file is not in the GIF89a format, unable to animate...",
                      .help = true,
                      .helpContext = HelpContext::AnimatedGif});
    return false;
}

void frmThumbnail::mnuShowInfo_Click() {
    if (module_.Busy()) return;
    const forms::BusyGuard busy(module_.Screen());
    const std::optional<std::string> path = PathIn(ThumbPopupSlot);
    if (!path) return;
    const auto slot = static_cast<std::size_t>(ThumbPopupSlot);
    App().MessageBox({.text = ImageReport(module_, {.heading = "Image Information:",
                                                    .path = *path,
                                                    .width = ThumbWidths.at(slot),
                                                    .height = ThumbHeights.at(slot),
                                                    .unreadGifType = "Graphics Interchange Format (.GIF)"}),
                      .title = "Tavrix - [Image Information]"});
}

}  // namespace tavrix
