#include "finding/FindImageFrm.h"
#include "finding/frmDuplicateFiles.h"
#include "scenes/WindowScenes.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::scenes {
namespace {

forms::Form& Found(Scenery& scenery) {
    auto& find = scenery.app.Load<FindImageFrm>(scenery.View(), OtherSubsystems{});
    find.Show();
    find.Find.CmdFind.OnClick();
    return find;
}

forms::Form& FoundDuplicates(Scenery& scenery) {
    auto& duplicates = scenery.app.Load<frmDuplicateFiles>(scenery.View(), OtherSubsystems{});
    for (int number = 2; number <= 20; number += 2) {
        const std::string digits = std::to_string(number);
        duplicates.ListFiles.AddItem("C:\\Pictures\\picture number " + digits + ".bmp");
        duplicates.ListFiles.AddItem("C:\\Pictures\\Work\\Picture Number " + digits + ".BMP");
    }
    return duplicates;
}

}  // namespace

std::vector<WindowScene> FindingWindows() {
    return {
        {"FindImageFrm", Found},
        {"frmDuplicateFiles", FoundDuplicates},
    };
}

}  // namespace tavrix::scenes
