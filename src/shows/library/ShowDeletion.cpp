#include "shows/library/ShowDeletion.h"

#include <set>
#include <utility>

#include "base/Text.h"
#include "core/FailureText.h"
#include "core/FileServices.h"
#include "core/Folders.h"
#include "core/ImageKinds.h"
#include "core/NumberText.h"
#include "core/RecentLists.h"
#include "shows/files/LoadShowFile.h"
#include "shows/stage/MediaControl.h"

namespace tavrix {
namespace {

constexpr int SoundFromFile = 1;
const std::string Paragraph(NewLine2);

}  // namespace

ShowDeletion::ShowDeletion(MainModule& module, std::string path)
    : module_(module), path_(std::move(path)), folder_(ShowFolder::Of(path_)) {}

bool ShowDeletion::Run() {
    ShowRecord record;
    const ShowFileEnd end = LoadShowRecord(module_, path_, record);
    if (end == ShowFileEnd::Complete || end == ShowFileEnd::SlidesFailed) {
        OfferImages(record.slides);
        OfferSound(record.options);
    }
    DeleteShow();
    return !failed_;
}

bool ShowDeletion::Ask(const std::string& text) const {
    return module_.app.MessageBox(
               {.text = text, .icon = forms::BoxIcon::Question, .buttons = forms::BoxButtons::YesNo}) ==
           forms::Answer::Yes;
}

std::vector<std::string> ShowDeletion::PathsOf(const ShowSlides& slides) const {
    std::vector<std::string> paths;
    std::set<std::string> seen;
    const int count = slides.Count();
    for (int i = 0; i < count; ++i) {
        std::string path = folder_.SlidePath(slides.SlideFiles[i]);
        if (seen.insert(path).second) paths.push_back(std::move(path));
    }
    return paths;
}

void ShowDeletion::OfferImages(const ShowSlides& slides) {
    if (slides.Empty() ||
        !Ask("Delete ALL of the images referenced in this slide show file?" + Paragraph +
             "(You may want to open the slide show to check the images that it contains first.)"))
        return;
    for (const std::string& path : PathsOf(slides)) {
        if (!DeleteImage(path)) break;
    }
    module_.app.MessageBox({.text = "A total of " +
                                    GroupedNumberOrEmpty(deleted_, module_.platform.system.Numbers()) +
                                    " images were deleted..."});
}

bool ShowDeletion::IsOpenImage(const std::string& path) const {
    const std::string& open = module_.CurrentImage;
    if (open.empty()) return false;
    return EqualIgnoringCase(path, FullPath(module_, open)) || module_.platform.files.Same(path, open);
}

bool ShowDeletion::DeleteImage(const std::string& path) {
    if (IsOpenImage(path)) {
        module_.app.MessageBox(
            {.text = "Unable to delete file:" + Paragraph + path + Paragraph + "Image is currently open..."});
        return true;
    }
    const ImageKind* kind = ImageKindOf(path);
    if (kind == nullptr || !kind->opens) {
        failed_ = true;
        return true;
    }
    try {
        if (!Delete(path)) return true;
        ++deleted_;
        RemoveRecentFile(module_, path);
        return true;
    } catch (const RuntimeError& error) {
        failed_ = true;
        return Ask(FailureText("The following image could not be deleted:", path, error) + Paragraph +
                   "Attempt to delete the remaining images?");
    }
}

bool ShowDeletion::Delete(const std::string& path) {
    Files& files = module_.platform.files;
    if (!files.FileExists(path)) {
        (void)files.Info(path);  // which says why, where nothing is there
        failed_ = true;
        return false;
    }
    RequireExactly(module_, path);
    DeleteToBin(module_, path, false);
    return true;
}

void ShowDeletion::OfferSound(const ShowOptions& options) {
    if (options.SoundMode != SoundFromFile || options.SoundFile.empty()) return;
    const std::string file = folder_.SlidePath(options.SoundFile);
    if (!Ask("Delete the slide show sound file also?" + Paragraph + file)) return;
    if (KindOfSoundFile(file) == SoundFileKind::None) {
        failed_ = true;
        return;
    }
    try {
        Delete(file);
    } catch (const RuntimeError& error) {
        failed_ = true;
        TellFailure(module_, "The slide show sound file could not be deleted:", file, error);
    }
}

void ShowDeletion::DeleteShow() {
    try {
        RequireExactly(module_, path_);
        DeleteToBin(module_, path_, false);
        RemoveRecentShow(module_, path_);
    } catch (const RuntimeError& error) {
        failed_ = true;
        TellFailure(module_, "The slide show file (.TVS) could not be deleted:", path_, error);
    }
}

}  // namespace tavrix
