#include "windows/EveryWindow.h"

#include "core/WaitFrm.h"
#include "dialogs/WaitCopyFrm.h"
#include "editing/creating/BackColorFrm.h"
#include "editing/creating/NewImageFrm.h"
#include "editing/desktop/frmSetWallpaper.h"
#include "editing/importing/OpenPaletteFrm.h"
#include "editing/importing/frmImportImage.h"
#include "editing/resizing/frmImageSize.h"
#include "editing/saving/ExportBmpFrm.h"
#include "editing/saving/ExportJpgFrm.h"
#include "editing/saving/SaveCopyFrm.h"
#include "editing/turning/frmRotateImg.h"
#include "filing/floppies/frmCopyFloppy.h"
#include "filing/floppies/frmDeleteFloppy.h"
#include "filing/floppies/frmDiskcopy.h"
#include "filing/floppies/frmPutOnFloppy.h"
#include "lists/frmBrowseQuick.h"
#include "lists/frmFavFolder.h"
#include "lists/frmQuickFolders.h"
#include "program/WireProgram.h"
#include "shows/editor/SlideLoadFrm.h"
#include "shows/editor/frmDescription.h"
#include "shows/editor/frmSlideCopyImages.h"
#include "shows/editor/frmSlideDup.h"
#include "shows/library/DeleteSlideFrm.h"
#include "shows/library/FindSlideFrm.h"
#include "shows/library/LoadRecentFile.h"
#include "shows/library/LoadSlideFile.h"
#include "shows/library/SaveSlideFile.h"
#include "shows/library/frmRenameShow.h"
#include "shows/options/BrowseWavFrm.h"
#include "shows/options/SlideOptionsFrm.h"
#include "shows/stage/FullViewFrm.h"
#include "shows/stage/frmToolbar.h"
#include "viewer/ExitFrm.h"
#include "viewer/MainViewFrm.h"
#include "viewer/OpenFrm.h"

namespace tavrix::windows {

namespace {

Picture PlainPicture(int width, int height) {
    Surface surface(width, height);
    surface.Fill(OpaquePixel(40, 90, 200));
    return PictureOf(std::move(surface));
}

forms::Form& LoadWaitWindow(Program& program) {
    auto& wait = program.app.Load<WaitFrm>();
    wait.lblMsg.Caption = "Loading Tavrix, please wait...";
    return wait;
}

forms::Form& LoadExitQuestion(Program& program) {
    static ExitAnswer answer{};
    return program.app.Load<ExitFrm>(answer);
}

forms::Form& LoadImport(Program& program) {
    static std::string file;
    return program.app.Load<frmImportImage>(program.module, file);
}

forms::Form& LoadBackColor(Program& program) {
    return program.app.Load<BackColorFrm>(program.module, program.View().picFrame);
}

forms::Form& LoadBrowseQuick(Program& program) {
    return program.app.Load<frmBrowseQuick>(program.module,
                                            program.app.Load<frmQuickFolders>(program.module));
}

forms::Form& LoadStage(Program& program) {
    program.module.SlideShowActive = true;
    program.module.config.ShowToolbar = true;
    program.module.config.ShowFilenames = program.module.config.ShowDescription = true;
    program.module.show.SlideFiles.Set(0, "C:\\Pictures\\small.bmp");
    program.module.show.SlideDescriptions.Set(0,
                                              "A plain picture, which nobody would want to look at for long");
    return program.app.Load<FullViewFrm>(program.module);
}

forms::Form& LoadNavigator(Program& program) {
    LoadStage(program);
    return *program.app.Loaded<frmToolbar>();
}

/// A target that no show reaches.
class NoTarget final : public ShowTarget {
  public:
    void Load(const std::string&) override {}
};

template <class Form>
forms::Form& LoadsShows(Program& program) {
    static NoTarget target;
    static LoadEnd end{};
    program.platform.disks.PutFile("C:\\Tavrix\\SLIDES\\Holidays & more.tvs", "");
    program.module.config.RecentShows[0] = "C:\\Tavrix\\SLIDES\\Holidays & more.tvs";
    return program.app.Load<Form>(program.module, target, end);
}

forms::Form& LoadSaveShow(Program& program) {
    static std::optional<SaveEnd> end;
    return program.app.Load<SaveSlideFile>(program.module, "C:\\Pictures\\Holidays & more.tvs", end);
}

forms::Form& LoadDescriptions(Program& program) {
    const std::vector<std::string> slides{"C:\\Pictures\\small.bmp", "Holidays & more\\beach.bmp"};
    program.module.show.InsertSlides(0, slides);
    return program.app.Load<frmDescription>(program.module, "C:\\Pictures\\show.tvs", 1);
}

forms::Form& LoadDuplicates(Program& program) {
    return program.app.Load<frmSlideDup>(program.module,
                                         std::vector<std::string>{"C:\\PICTURES\\HOLIDAYS & MORE\\BEACH.BMP"},
                                         frmSlideDup::Editor{});
}

forms::Form& LoadSlideCopy(Program& program) {
    return program.app.Load<frmSlideCopyImages>(
        program.View(),
        frmSlideCopyImages::Sources{"C:\\Pictures\\Holidays & more\\", {"beach.bmp", "sea.bmp"}, true},
        frmSlideCopyImages::Editor{});
}

forms::Form& LoadSlideOptions(Program& program) {
    return program.app.Load<SlideOptionsFrm>(program.module, ShowFolder("C:\\Pictures"));
}

forms::Form& LoadBrowseWav(Program& program) {
    return program.app.Load<BrowseWavFrm>(
        program.module, program.app.Load<SlideOptionsFrm>(program.module, ShowFolder("C:\\Pictures")));
}

forms::Form& LoadFindSlide(Program& program) {
    static std::string answer;
    return program.app.Load<FindSlideFrm>(program.module, answer);
}

forms::Form& LoadEditor(Program& program) {
    auto& editor = program.app.Load<SlideLoadFrm>(program.View());
    editor.Lists.GoTo("C:\\Pictures");
    program.module.show.SlideFiles.Set(0, "C:\\Pictures\\Holidays & more\\the second of the pictures.bmp");
    editor.ShowLoaded("C:\\Pictures\\Holidays & more\\a show of all the pictures of the beach.tvs");
    return editor;
}

template <class Form>
forms::Form& WithFloppy(Program& program) {
    program.platform.disks.InsertDisk('A');
    program.platform.disks.PutFile("A:\\the second of the pictures of the beach.bmp", "BM");
    return program.app.Load<Form>(program.module);
}

template <class Form>
forms::Form& OfView(Program& program) {
    return program.app.Load<Form>(program.View());
}
template <class Form>
forms::Form& OfModule(Program& program) {
    return program.app.Load<Form>(program.module);
}

}  // namespace

std::vector<Window> EveryWindow() {
    return {
        {"MainViewFrm", [](Program& program) -> forms::Form& { return program.View(); }, "f"},
        {"WaitFrm", LoadWaitWindow},
        {"WaitCopyFrm", OfModule<WaitCopyFrm>},
        {"ExitFrm", LoadExitQuestion},
        {"OpenFrm", OfView<OpenFrm>},
        {"frmFavFolder", OfModule<frmFavFolder>},
        {"frmQuickFolders", OfModule<frmQuickFolders>, "es"},
        {"frmBrowseQuick", LoadBrowseQuick},
        {"frmCopyFloppy", WithFloppy<frmCopyFloppy>},
        {"frmPutOnFloppy", WithFloppy<frmPutOnFloppy>},
        {"frmDeleteFloppy", WithFloppy<frmDeleteFloppy>},
        {"frmDiskcopy", WithFloppy<frmDiskcopy>},
        {"SaveCopyFrm", OfView<SaveCopyFrm>},
        {"ExportBmpFrm", OfView<ExportBmpFrm>},
        {"ExportJpgFrm", OfView<ExportJpgFrm>},
        {"frmImportImage", LoadImport},
        {"OpenPaletteFrm", OfModule<OpenPaletteFrm>},
        {"frmSetWallpaper", OfView<frmSetWallpaper>},
        {"BackColorFrm", LoadBackColor},
        {"frmRotateImg", OfView<frmRotateImg>},
        {"frmImageSize", OfView<frmImageSize>},
        {"NewImageFrm", OfView<NewImageFrm>},
        {"LoadSlideFile", LoadsShows<LoadSlideFile>},
        {"LoadRecentFile", LoadsShows<LoadRecentFile>},
        {"SaveSlideFile", LoadSaveShow},
        {"frmDescription", LoadDescriptions},
        {"frmSlideDup", LoadDuplicates},
        {"frmSlideCopyImages", LoadSlideCopy},
        {"SlideOptionsFrm", LoadSlideOptions},
        {"BrowseWavFrm", LoadBrowseWav},
        {"FindSlideFrm", LoadFindSlide},
        {"DeleteSlideFrm", OfModule<DeleteSlideFrm>},
        {"frmRenameShow", OfModule<frmRenameShow>},
        {"SlideLoadFrm", LoadEditor},
        {"FullViewFrm", LoadStage, "", true},
        {"frmToolbar", LoadNavigator, "", false, true},
    };
}

Program::Program(forms::Toolkit& toolkit) : app(toolkit), module(app, platform.services) {
    platform.store.Set("EXEPath", "C:\\Tavrix\\");
    platform.store.Set("ProgramRun", "1");
    platform.pictures.SetPicture("C:\\Pictures\\small.bmp", PlainPicture(640, 480));
    platform.files.MakeFolder("C:\\Pictures\\Holidays & more");
    for (int number = 1; number <= 20; ++number)
        platform.disks.PutFile("C:\\Pictures\\picture number " + std::to_string(number) + ".bmp", "");
    platform.files.ChangeFolder("C:\\Pictures");
    WireProgram(module, lives);
    Main(module, lives);
    View().MainImage.Picture = PlainPicture(64, 48);
    platform.disks.PutFile("C:\\Pictures\\Holidays & more\\the second of the pictures of the beach.bmp",
                           "BM");
    module.CurrentImage = "C:\\Pictures\\Holidays & more\\the second of the pictures of the beach.bmp";
}

MainViewFrm& Program::View() {
    return *app.Loaded<MainViewFrm>();
}

}  // namespace tavrix::windows
