#include "finding/FindImageFrm.h"

#include <utility>

#include "core/HelpContexts.h"
#include "core/ImageKinds.h"
#include "core/RecentLists.h"
#include "finding/OpenFound.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

constexpr const char* Title = "Tavrix - [Find Image(s)]";

FindWords Words() {
    return {.title = Title,
            .patterns = PatternOf(ImagesShown::All),
            .kind = "images",
            .label = "Enter filename pattern to search for or enter * to find ALL image files:",
            .searching = "Searching for images...",
            .findAll = "Find ALL image files on ",
            .canceled = "Find Image(s) was canceled...",
            .noFiles =
                "No valid image files were found, select a drive and press the \"Find\" button to search for "
                "files...",
            .deletion = ProductName};
}

}  // namespace

FindImageFrm::FindImageFrm(forms::Application& application, MainViewFrm& view, OtherSubsystems others)
    : Form(application, {.name = "FindImageFrm"}),
      view_(view),
      others_(std::move(others)),
      Find(*this, view.Module(), Words(), HelpContext::FindImages) {
    Caption = "Find Image(s)";
    HelpContext = HelpContext::FindImages;
    Find.OnOpen = [this] { CmdOpen_Click(); };
    Find.MayDelete = [this](const std::string& path) { return !IsOpen(view_, path); };
    Find.OnDeleted = [this](const std::string& path) { RemoveRecentFile(view_.Module(), path); };
    SetLayout(Find.Arrangement());
}

void FindImageFrm::CmdOpen_Click() {
    if (view_.Module().Busy() || Find.FindRunning) return;
    if (const auto path = Find.Selected()) OpenFound(*this, view_, others_, *path, Title);
}

}  // namespace tavrix
