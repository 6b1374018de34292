#include "windows/EveryWindow.h"

#include "backends/headless/MemoryIdleStart.h"
#include "browsing/frmThumbFolder.h"
#include "browsing/frmThumbSelect.h"
#include "browsing/frmThumbnail.h"
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
#include "finding/FindImageFrm.h"
#include "finding/frmDuplicateFiles.h"
#include "lists/frmBrowseQuick.h"
#include "lists/frmFavFolder.h"
#include "lists/frmFavorites.h"
#include "lists/frmQuickFolders.h"
#include "program/WireProgram.h"
#include "settings/SysInfoFrm.h"
#include "settings/frmAbout.h"
#include "settings/frmAdvanced.h"
#include "settings/frmPreferences.h"
#include "settings/frmTip.h"
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
#include "shows/package/DelPackageFrm.h"
#include "shows/package/PackageFrm.h"
#include "shows/package/PackageLayout.h"
#include "shows/saver/SaverSetup.h"
#include "shows/stage/FullViewFrm.h"
#include "shows/stage/frmToolbar.h"
#include "support/QuietMachine.h"
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

forms::Form& LoadThumbnails(Program& program) {
    static ThumbnailList list;
    list = {std::vector<std::string>(12, "C:\\Pictures\\small.bmp"), "C:\\Pictures\\", false};
    return program.app.Load<frmThumbnail>(program.View(), list, [] {});
}

template <class Dialog>
forms::Form& MakesThumbnails(Program& program) {
    static ThumbnailList list;
    return program.app.Load<Dialog>(program.module, list);
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

forms::Form& LoadMoveCurrent(Program& program) {
    static std::string target;
    return program.app.Load<frmMoveCurrentImg>(program.module, target);
}

forms::Form& LoadDeleteImages(Program& program) {
    program.module.config.UseRecycleBin = false;  // the picture that says so is to be seen
    return program.app.Load<DeleteImgFrm>(program.module);
}

forms::Form& LoadTip(Program& program) {
    program.platform.disks.PutFile(
        "C:\\Tavrix\\TIPOFDAY.DAT",
        "That each button shows a short explanation when the pointer rests on it?\n");
    return program.app.Load<frmTip>(program.module);
}

forms::Form& LoadSaverSetup(Program& program) {
    constexpr const char* show = "C:\\Pictures\\Holidays & more\\the second of the shows of the beach.tvs";
    program.platform.disks.PutFile(
        show,
        "\"Tavrix Slide Show\"\r\n\"Version 1.5\"\r\n2\r\n\"\"\r\n0\r\n0\r\n60\r\n0\r\n0\r\n0\r\n0\r\n0\r\n");
    program.platform.store.Set("CurrentSaver", show);
    static headless::MemoryIdleStart idleStart;
    idleStart.minutes = 60;
    return program.app.Load<SaverSetup>(program.module, SaverSurroundings{.idleStart = &idleStart});
}

forms::Form& LoadPackage(Program& program) {
    static std::unique_ptr<package::InstalledFiles> files;
    files = std::make_unique<package::InstalledFiles>(program.module);
    program.platform.disks.PutFile("C:\\Tavrix\\SLIDES\\Holidays & more.tvs", "");
    return program.app.Load<PackageFrm>(program.module, *files);
}

template <class Form>
forms::Form& LoadFinder(Program& program) {
    return program.app.Load<Form>(program.View(), OtherSubsystems{});
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
        {"frmFavorites", OfView<frmFavorites>},
        {"FindImageFrm", LoadFinder<FindImageFrm>},
        {"frmDuplicateFiles", LoadFinder<frmDuplicateFiles>},
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
        {"frmMoveImages", OfModule<frmMoveImages>, "f"},
        {"frmCopyImages", OfModule<frmCopyImages>, "f"},
        {"frmMoveCurrentImg", LoadMoveCurrent},
        {"DeleteImgFrm", LoadDeleteImages},
        {"DeleteFolderFrm", OfModule<DeleteFolderFrm>},
        {"RenameImgFrm", OfView<RenameImgFrm>},
        {"frmThumbnail", LoadThumbnails},
        {"frmThumbFolder", MakesThumbnails<frmThumbFolder>},
        {"frmThumbSelect", MakesThumbnails<frmThumbSelect>},
        {"frmPreferences", OfView<frmPreferences>},
        {"frmAdvanced", OfModule<frmAdvanced>},
        {"frmTip", LoadTip},
        {"frmAbout", OfModule<frmAbout>},
        {"SysInfoFrm", OfModule<SysInfoFrm>},
        {"SaverSetup", LoadSaverSetup, "w"},
        {"PackageFrm", LoadPackage, "f"},
        {"DelPackageFrm", OfModule<DelPackageFrm>},
        {"FullViewFrm", LoadStage, "", true},
        {"frmToolbar", LoadNavigator, "", false, true},
    };
}

Program::Program(forms::Toolkit& toolkit) : app(toolkit), module(app, platform.services) {
    test::MakeQuiet(platform);
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
