#include "filing/deleting/DeleteFolderFrm.h"
#include "filing/deleting/DeleteImgFrm.h"
#include "filing/deleting/RenameImgFrm.h"
#include "filing/floppies/frmCopyFloppy.h"
#include "filing/floppies/frmDeleteFloppy.h"
#include "filing/floppies/frmDiskcopy.h"
#include "filing/floppies/frmPutOnFloppy.h"
#include "filing/moving/frmCopyImages.h"
#include "filing/moving/frmMoveCurrentImg.h"
#include "filing/moving/frmMoveImages.h"
#include "scenes/WindowScenes.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::scenes {
namespace {

template <class Form>
forms::Form& IntoWork(Scenery& scenery) {
    scenery.module.config.LastCopyToPath = "C:\\Pictures\\Work";
    return OfModule<Form>(scenery);
}

forms::Form& MovingCurrent(Scenery& scenery) {
    return scenery.app.Load<frmMoveCurrentImg>(scenery.module, scenery.Keep<std::string>());
}

forms::Form& Deleting(Scenery& scenery) {
    scenery.module.config.UseRecycleBin = false;  // the picture that says so is to be seen
    return OfModule<DeleteImgFrm>(scenery);
}

template <class Form>
forms::Form& WithFloppy(Scenery& scenery) {
    scenery.platform.disks.InsertDisk('A');
    for (const char* name : {"BEACH.BMP", "GARDEN.JPG", "the second of the pictures of the beach.gif"})
        scenery.platform.disks.PutFile("A:\\" + std::string(name), "BM");
    return OfModule<Form>(scenery);
}

}  // namespace

std::vector<WindowScene> FilingWindows() {
    return {
        {"frmMoveImages", IntoWork<frmMoveImages>, "f"},
        {"frmCopyImages", IntoWork<frmCopyImages>, "f"},
        {"frmMoveCurrentImg", MovingCurrent},
        {"DeleteImgFrm", Deleting},
        {"DeleteFolderFrm", OfModule<DeleteFolderFrm>},
        {"RenameImgFrm", OfView<RenameImgFrm>},
        {"frmCopyFloppy", WithFloppy<frmCopyFloppy>},
        {"frmPutOnFloppy", WithFloppy<frmPutOnFloppy>},
        {"frmDeleteFloppy", WithFloppy<frmDeleteFloppy>},
        {"frmDiskcopy", WithFloppy<frmDiskcopy>},
    };
}

}  // namespace tavrix::scenes
