/// tavrix-gallery [--dark] [--accent=COLOUR] [--font-scale=FACTOR] [--contrast] DIR [PICTURE...]
/// tavrix-gallery --help-pictures DIR
///
/// With --dark the windows are drawn in dark colours, with --accent (such as #e01b24) what is selected in them is of that
/// colour, and with --font-scale their texts are larger. --contrast tells texts that are not read well enough on what is
/// behind them; the letters have no smooth edges then, but for fonts of a fixed width, of which it tells too much.
///
/// Draws every window of the program to a PNG file in DIR, or with pictures the main view with each of them, and all of
/// these on one sheet, pictures.png; or the pictures of the help, for which scripts/help-pictures calls it. The windows stand on services in memory, so that nothing of the user's is read or
/// written; set QT_SCALE_FACTOR=2 to see them at 200 %.

#include <QApplication>
#include <QFont>
#include <QPixmap>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/ContactSheet.h"
#include "app/FewColours.h"
#include "app/PaintedTexts.h"
#include "backends/headless/HeadlessServices.h"
#include "backends/headless/MemoryIdleStart.h"
#include "backends/linux/FileSource.h"
#include "backends/qt/QtProcess.h"
#include "backends/qt/QtToolkit.h"
#include "backends/qt/desktop/Look.h"
#include "backends/qt/help/HelpWindow.h"
#include "backends/shared/help/HelpBook.h"
#include "base/RuntimeError.h"
#include "browsing/frmThumbFolder.h"
#include "browsing/frmThumbSelect.h"
#include "browsing/frmThumbnail.h"
#include "core/Main.h"
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
#include "imaging/loading/DecodePicture.h"
#include "imaging/loading/Decoders.h"
#include "lists/frmBrowseQuick.h"
#include "lists/frmFavFolder.h"
#include "lists/frmFavorites.h"
#include "lists/frmQuickFolders.h"
#include "program/WireProgram.h"
#include "scenes/HelpScenes.h"
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
#include "viewer/ExitFrm.h"
#include "viewer/MainViewFrm.h"
#include "viewer/OpenFrm.h"

namespace {

using namespace tavrix;

/// A picture whose corners and middle can be told apart.
Picture TestCard(int width, int height) {
    Surface surface(width, height);
    for (int y = 0; y < height; ++y) {
        const auto row = surface.Row(y);
        for (int x = 0; x < width; ++x) {
            const bool line = x % 50 == 0 || y % 50 == 0 || x == width - 1 || y == height - 1;
            const auto across = static_cast<unsigned>(x * 255 / width);
            const auto down = static_cast<unsigned>(y * 255 / height);
            row[static_cast<std::size_t>(x)] =
                line ? OpaquePixel(255, 255, 255) : OpaquePixel(across, down, 128);
        }
    }
    return PictureOf(std::move(surface));
}

/// A target that no show reaches.
class NoTarget final : public ShowTarget {
  public:
    void Load(const std::string&) override {}
};

class Gallery {
  public:
    Gallery(std::filesystem::path folder, bool measuring)
        : folder_(std::move(folder)), measuring_(measuring) {
        platform_.store.Set("EXEPath", "C:\\Tavrix\\");
        platform_.store.Set("ProgramRun", "1");
        platform_.store.Set("Show Tips at Startup", "0");
        platform_.disks.PutFile("C:\\Tavrix\\tavrix.ini", "[Viewer]\r\nStartupDialog=0\r\n");
        platform_.pictures.SetPicture("C:\\Pictures\\small.bmp", TestCard(640, 480));
        platform_.pictures.SetPicture("C:\\Pictures\\large.bmp", TestCard(4000, 3000));
        WireProgram(module_, lives_);
    }

    void Draw() {
        DrawMainView("MainViewFrm", "");
        DrawMainView("MainViewFrm-image", "C:\\Pictures\\small.bmp");
        DrawMainView("MainViewFrm-large-image", "C:\\Pictures\\large.bmp");
        auto& wait = app_.Load<WaitFrm>();
        wait.lblMsg.Caption = "Loading Tavrix, please wait...";
        DrawForm(wait);
        DrawForm(app_.Load<WaitCopyFrm>(module_));
        ExitAnswer answer{};
        DrawForm(app_.Load<ExitFrm>(answer));
        DrawFolderDialogs();
        DrawFloppyDialogs();
        DrawEditingDialogs(*app_.Loaded<MainViewFrm>());
        DrawFilingDialogs(*app_.Loaded<MainViewFrm>());
        DrawShowDialogs();
        DrawEditor(*app_.Loaded<MainViewFrm>());
        DrawThumbnails(*app_.Loaded<MainViewFrm>());
        DrawSettingsDialogs(*app_.Loaded<MainViewFrm>());
        DrawSaverSetup();
        DrawStage();
        DrawBoxes();
        DrawHelp();
        Write(sheet_.Draw(), "every-window");
    }

    /// Each picture of the help, of a program of its own.
    void DrawHelpPictures() {
        for (const scenes::HelpScene& scene : scenes::HelpScenes()) {
            qt::QtToolkit toolkit([](const std::string& path) { return path; });
            scenes::Scenery scenery(toolkit);
            forms::Form& form = scene.load(scenery);
            auto& view = *scenery.app.Loaded<MainViewFrm>();
            if (&form != &view) view.Hide();
            form.Show();
            Settle();
            if (auto* focused = QApplication::focusWidget()) focused->clearFocus();  // no blinking caret
            Save(scene.name);
            const QString file = QString::fromStdString((folder_ / (scene.name + ".png")).string());
            WithFewColours(lastDrawn_.toImage()).save(file, "PNG", 0);
            if (&form != &view) scenery.app.Unload(form);
        }
    }

    void DrawPictures(std::span<char* const> files) {
        ContactSheet sheet;
        for (const std::filesystem::path file : files) {
            const Picture picture = LoadedFrom(file);
            // What is imported stands in the main view as a bitmap.
            const bool imported = DirectlyOpened(file) == nullptr;
            const std::string path =
                "C:\\Pictures\\" + (imported ? file.stem().string() + ".bmp" : file.filename().string());
            platform_.pictures.SetPicture(path, picture);
            DrawMainView("picture-" + file.filename().string(), path);
            sheet.Add(lastDrawn_, QString::fromStdString(file.filename().string() + "  " +
                                                         std::to_string(picture.Width()) + " x " +
                                                         std::to_string(picture.Height())));
        }
        Write(sheet.Draw(), "pictures");
    }

  private:
    static const DecoderEntry* DirectlyOpened(const std::filesystem::path& file) {
        FileSource source(file.string());
        return DecoderFor(source);
    }

    static Picture LoadedFrom(const std::filesystem::path& file) {
        FileSource source(file.string());
        DecodedPicture decoded = DecodePicture(source, ImportDecoderFor(source, file.string()));
        if (!decoded.error) return std::move(decoded.picture);
        std::fprintf(stderr, "tavrix-gallery: %s: %s\n", file.c_str(), RuntimeError(*decoded.error).what());
        std::exit(1);
    }

    void DrawMainView(const std::string& name, const std::string& commandLine) {
        platform_.process.commandLine = commandLine;
        Main(module_, lives_);
        Settle();
        Save(name);
        // Unloading a main view ends the process: it stays loaded, and the next one is another.
        app_.FormAt(app_.FormCount() - 1).Hide();
    }

    void DrawForm(forms::Form& form, const std::string& variant = "") {
        form.Show();
        Settle();
        Save(form.Name() + variant);
        app_.Unload(form);
    }

    void DrawFolderDialogs() {
        platform_.files.MakeFolder("C:\\Pictures\\Holidays & more");
        platform_.files.MakeFolder("C:\\Pictures\\Work");
        for (int number = 1; number <= 20; ++number)
            platform_.disks.PutFile("C:\\Pictures\\picture number " + std::to_string(number) + ".bmp", "");
        platform_.files.ChangeFolder("C:\\Pictures");
        module_.config.OpenShowPreview = true;
        DrawForm(app_.Load<OpenFrm>(*app_.Loaded<MainViewFrm>()));
        DrawForm(app_.Load<frmFavFolder>(module_));
        auto& quick = app_.Load<frmQuickFolders>(module_);
        quick.Rows.front().txtName.Text = "Holidays";
        quick.Rows.front().lblPath.Caption = "C:\\Pictures\\Holidays & more\\";
        DrawForm(app_.Load<frmBrowseQuick>(module_, quick));
        DrawForm(quick);
        DrawFinding(*app_.Loaded<MainViewFrm>());
        DrawSavingDialogs(*app_.Loaded<MainViewFrm>());
    }

    void DrawFilingDialogs(MainViewFrm& view) {
        module_.CurrentImage = "C:\\Pictures\\picture number 7.bmp";
        module_.config.LastCopyToPath = "C:\\Pictures\\Work";
        DrawForm(app_.Load<frmMoveImages>(module_));
        DrawForm(app_.Load<frmCopyImages>(module_));
        std::string target;
        DrawForm(app_.Load<frmMoveCurrentImg>(module_, target));
        module_.config.UseRecycleBin = false;
        DrawForm(app_.Load<DeleteImgFrm>(module_));
        DrawForm(app_.Load<DeleteFolderFrm>(module_));
        DrawForm(app_.Load<RenameImgFrm>(view));
        module_.CurrentImage.clear();
    }

    void DrawFinding(MainViewFrm& view) {
        for (int number = 0; number < 20; number += 2)
            platform_.disks.PutFile("C:\\Pictures\\Work\\Picture Number " + std::to_string(number) + ".BMP",
                                    "");
        module_.config.FavoriteFiles = {"C:\\Pictures\\Holidays & more\\beach.jpg", "",
                                        "C:\\Pictures\\Work\\Picture Number 2.BMP"};
        DrawForm(app_.Load<frmFavorites>(view));
        auto& find = app_.Load<FindImageFrm>(view, OtherSubsystems{});
        find.Show();
        find.Find.CmdFind.OnClick();
        DrawForm(find);
        auto& duplicates = app_.Load<frmDuplicateFiles>(view, OtherSubsystems{});
        duplicates.Show();
        QTimer answer;
        QObject::connect(&answer, &QTimer::timeout, [] {
            // The question whether to begin.
            const QWidget* box = QApplication::activeModalWidget();
            if (box == nullptr) return;
            for (QPushButton* button : box->findChildren<QPushButton*>()) {
                if (button->text().contains("OK")) button->click();
            }
        });
        answer.start(100);
        duplicates.CmdFind.OnClick();
        DrawForm(duplicates);
        module_.config.FavoriteFiles.fill("");
    }

    void DrawFloppyDialogs() {
        platform_.disks.InsertDisk('A');
        for (const char* name : {"BEACH.BMP", "GARDEN.JPG", "the last day at the harbour.gif"})
            platform_.disks.PutFile("A:\\" + std::string(name), "");
        DrawForm(app_.Load<frmCopyFloppy>(module_));
        DrawForm(app_.Load<frmPutOnFloppy>(module_));
        DrawForm(app_.Load<frmDeleteFloppy>(module_));
        DrawForm(app_.Load<frmDiskcopy>(module_));
    }

    void DrawSavingDialogs(MainViewFrm& view) {
        // A path that does not fit its label.
        module_.CurrentImage = "C:\\Pictures\\Holidays & more\\the second of the pictures of the beach.gif";
        DrawForm(app_.Load<SaveCopyFrm>(view));
        DrawForm(app_.Load<ExportBmpFrm>(view));
        DrawForm(app_.Load<ExportJpgFrm>(view));
        module_.CurrentImage.clear();
        std::string file;
        auto& import = app_.Load<frmImportImage>(module_, file);
        import.Chooser.File1.Pattern = "*.tga";
        import.Caption = "Import TGA Image File";
        DrawForm(import);
        DrawForm(app_.Load<OpenPaletteFrm>(module_));
        DrawForm(app_.Load<frmSetWallpaper>(view));
        platform_.desktop.SetWallpaper(
            "C:\\Pictures\\Holidays & more\\the second of the pictures of the beach.jpg");
        DrawForm(app_.Load<frmSetWallpaper>(view), "-long-path");
    }

    void DrawEditingDialogs(MainViewFrm& view) {
        module_.CurrentImage = "C:\\Pictures\\small.bmp";
        module_.config.BackColorR = 40;
        module_.config.BackColorG = 90;
        module_.config.BackColorB = 200;
        view.MainImage.Picture = TestCard(640, 480);
        auto& rotate = app_.Load<frmRotateImg>(view);
        DrawForm(app_.Load<BackColorFrm>(module_, rotate.Picture1));
        DrawForm(rotate);
        DrawForm(app_.Load<frmImageSize>(view));
        DrawForm(app_.Load<NewImageFrm>(view));
        module_.CurrentImage.clear();
    }

    void DrawShowDialogs() {
        for (const char* name :
             {"Garden.tvs", "Harbour.tvs", "Holidays & more.tvs", "The mountains in spring.tvs"})
            platform_.disks.PutFile("C:\\Tavrix\\SLIDES\\" + std::string(name), "");
        module_.config.RecentShows = {"C:\\Tavrix\\SLIDES\\Harbour.tvs",
                                      "C:\\Pictures\\Holidays & more\\beach.tvs"};
        NoTarget target;
        LoadEnd end{};
        DrawForm(app_.Load<LoadSlideFile>(module_, target, end));
        DrawForm(app_.Load<LoadRecentFile>(module_, target, end));
        std::optional<SaveEnd> saved;
        DrawForm(app_.Load<SaveSlideFile>(module_, "Untitled.tvs", saved));
        const std::vector<std::string> slides{"C:\\Pictures\\small.bmp", "Holidays & more\\beach.bmp"};
        module_.show.InsertSlides(0, slides);
        module_.show.SlideDescriptions.Set(1, "The beach on the last day, before the rain");
        DrawForm(app_.Load<frmDescription>(module_, "C:\\Pictures\\show.tvs", 1));
        module_.show.EraseSlides();
        DrawForm(app_.Load<frmSlideDup>(
            module_,
            std::vector<std::string>{"C:\\PICTURES\\HOLIDAYS & MORE\\BEACH.BMP", "C:\\PICTURES\\SMALL.BMP"},
            frmSlideDup::Editor{}));
        const frmSlideCopyImages::Sources sources{
            "C:\\Pictures\\Holidays & more\\", {"beach.bmp", "sea.bmp"}, true};
        DrawForm(app_.Load<frmSlideCopyImages>(*app_.Loaded<MainViewFrm>(), sources,
                                               frmSlideCopyImages::Editor{}));
        DrawShowOptions();
    }

    void DrawShowOptions() {
        const ShowFolder folder("C:\\Pictures");
        DrawForm(app_.Load<SlideOptionsFrm>(module_, folder), "-no-sound");
        module_.WaveDevicePresent = true;
        module_.config.SoundMode = 1;
        module_.config.SoundFile = "C:\\Pictures\\Holidays & more\\waves.wav";
        for (const char* name : {"waves.wav", "song.mid", "wind.wav"})
            platform_.disks.PutFile(std::string("C:\\Pictures\\Holidays & more\\") + name, "");
        auto& options = app_.Load<SlideOptionsFrm>(module_, folder);
        DrawForm(app_.Load<BrowseWavFrm>(module_, options));
        DrawForm(options);
        module_.config.SoundMode = 2;
        DrawForm(app_.Load<SlideOptionsFrm>(module_, folder), "-disc");
        module_.config.SoundMode = 0;
        DrawLibrary();
    }

    void DrawLibrary() {
        for (const char* name : {"spring.tvs", "summer.tvs", "the way to the sea and back again.tvs"})
            platform_.disks.PutFile(std::string("C:\\Pictures\\Holidays & more\\") + name, "");
        std::string answer;
        auto& find = app_.Load<FindSlideFrm>(module_, answer);
        find.Show();
        find.Find.CmdFind.OnClick();
        DrawForm(find);
        module_.config.LastSlideShow = "C:\\Pictures\\Holidays & more\\summer.tvs";
        module_.config.UseRecycleBin = false;
        DrawForm(app_.Load<DeleteSlideFrm>(module_));
        module_.config.UseRecycleBin = true;
        DrawForm(app_.Load<frmRenameShow>(module_));
        package::InstalledFiles programFiles(module_);
        DrawForm(app_.Load<PackageFrm>(module_, programFiles));
        DrawForm(app_.Load<DelPackageFrm>(module_));
        module_.config.LastSlideShow.clear();
    }

    void DrawEditor(MainViewFrm& view) {
        auto& editor = app_.Load<SlideLoadFrm>(view);
        editor.Lists.GoTo("C:\\Pictures");
        for (int number = 1; number <= 12; ++number)
            module_.show.SlideFiles.Set(number - 1,
                                        "C:\\Pictures\\picture number " + std::to_string(number) + ".bmp");
        editor.ShowLoaded("C:\\Pictures\\Holidays & more\\a show of all the pictures of the beach.tvs");
        editor.File1.SetSelection({2, 5});
        editor.ListView.ListIndex = 3;
        editor.ListView.SetSelection({3, 5});
        DrawForm(editor);
        view.Hide();  // it comes back with the end of the editor
    }

    void DrawThumbnails(MainViewFrm& view) {
        ThumbnailList list;
        auto& files = app_.Load<frmThumbSelect>(module_, list);
        files.Show();
        for (const int row : {1, 2, 5})
            files.Chooser.File1.Select(row);
        DrawForm(files);
        DrawForm(app_.Load<frmThumbFolder>(module_, list));
        constexpr std::array<std::pair<int, int>, 9> sizes{{{640, 480},
                                                            {480, 640},
                                                            {32, 32},
                                                            {1000, 100},
                                                            {100, 1000},
                                                            {160, 120},
                                                            {161, 121},
                                                            {90, 60},
                                                            {3000, 2000}}};
        list = {{}, "C:\\Pictures\\", false};
        for (const auto& [width, height] : sizes) {
            list.ThumbnailFiles.push_back("C:\\Pictures\\" + std::to_string(width) + "x" +
                                          std::to_string(height) + ".bmp");
            platform_.pictures.SetPicture(list.ThumbnailFiles.back(), TestCard(width, height));
        }
        list.ThumbnailFiles.push_back("C:\\Pictures\\small.bmp");
        DrawForm(app_.Load<frmThumbnail>(view, list, [] {}));
        view.Hide();
    }

    void DrawSettingsDialogs(MainViewFrm& view) {
        platform_.disks.AddDrive('D', DriveType::CdRom);
        platform_.system.memory = {17'179'869'184, 9'663'676'416, 19'327'352'832, 11'811'160'064};
        platform_.disks.PutFile(
            "C:\\Tavrix\\TIPOFDAY.DAT",
            "That F1 opens the help page of the window that you are in? The help window may stay "
            "open beside it while you work.\n");
        DrawForm(app_.Load<frmPreferences>(view));
        DrawForm(app_.Load<frmAdvanced>(module_));
        DrawForm(app_.Load<frmTip>(module_));
        DrawForm(app_.Load<SysInfoFrm>(module_));
        for (const double day : {0.05, 0.26, 0.5, 0.74}) {
            auto& about = app_.Load<frmAbout>(module_);
            about.ShowMoment({day, 0.3 + day / 2, 20 * day});
            DrawForm(about, "-" + std::to_string(static_cast<int>(day * 24)) + "h");
        }
    }

    void DrawSaverSetup() {
        DrawForm(app_.Load<SaverSetup>(module_), "-no-file");
        const std::string show = "C:\\Pictures\\Holidays & more\\the second of the shows of the beach.tvs";
        platform_.disks.PutFile(show,
                                "\"Tavrix Slide Show\"\r\n\"Version 1.5\"\r\n1\r\n\"C:\\waves.wav\"\r\n0\r\n"
                                "0\r\n60\r\n0\r\n0\r\n0\r\n0\r\n0\r\n");
        platform_.store.Set("CurrentSaver", show);
        module_.OsPlatformId = 1;
        DrawForm(app_.Load<SaverSetup>(module_), "-password");
        module_.OsPlatformId = 2;
        headless::MemoryIdleStart idleStart;
        idleStart.minutes = 10;
        DrawForm(app_.Load<SaverSetup>(module_, SaverSurroundings{.idleStart = &idleStart}));
    }

    void DrawStage() {
        module_.SlideShowActive = true;
        module_.config.ShowToolbar = module_.config.ShowFilenames = module_.config.ShowDescription = true;
        module_.show.SlideFiles.Set(0, "C:\\Pictures\\large.bmp");
        module_.show.SlideDescriptions.Set(
            0, "The test card in its full size, which is larger than any display here");
        auto& stage = app_.Load<FullViewFrm>(module_);
        app_.Loaded<frmToolbar>()->Hide();
        stage.Show();
        Settle();
        Save(stage.Name());
        stage.Hide();
        auto& toolbar = app_.Load<frmToolbar>(module_, stage);
        toolbar.SizeToContents();
        toolbar.ShowSlide(stage.CurrentPath(), stage.CurrentDescription());
        toolbar.Show();
        Settle();
        Save(toolbar.Name());
        app_.Unload(toolbar);
        app_.Unload(stage);
    }

    void DrawBoxes() {
        DrawBox("box-invalid-command", {.text = "An invalid command (P) was passed at the command prompt...",
                                        .icon = forms::BoxIcon::Exclamation});
        DrawBox("box-discard",
                {.text = "The current file has not been saved.\r\n\r\nDiscard changes and continue?",
                 .icon = forms::BoxIcon::Question,
                 .buttons = forms::BoxButtons::YesNo});
        DrawBox("box-moved", {.text = "Do you want to make this your default one?",
                              .icon = forms::BoxIcon::Question,
                              .buttons = forms::BoxButtons::YesNoCancel,
                              .help = true});
        DrawBox("box-open-failure", {.text = "Unable to open the selected file.\r\n\r\nInvalid picture...",
                                     .icon = forms::BoxIcon::Stop});
    }

    void DrawBox(const std::string& name, const forms::BoxRequest& request) {
        QTimer::singleShot(300, [this, name] {
            Save(name);
            if (QWidget* box = QApplication::activeModalWidget()) box->close();
        });
        app_.MessageBox(request);
    }

    /// The help file that the build puts beside the program.
    void DrawHelp() {
        const auto here = std::filesystem::read_symlink("/proc/self/exe").parent_path();
        std::ifstream file(here.parent_path() / "app" / "TAVRIX.HLP", std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        const auto book = HelpBook::Parse(bytes);
        if (!book) {
            std::fputs("tavrix-gallery: there is no help file to draw\n", stderr);
            return;
        }
        for (const HelpPage& page : book->Pages()) {
            qt::HelpWindow window([] { return false; });
            window.Open(*book, page.context);
            Settle();
            Save("help-" + std::to_string(page.context));
        }
    }

    /// Lets the window come to rest, wait windows that are shown late too.
    void Settle() {
        bool over = false;
        QTimer::singleShot(400, [&over] { over = true; });
        toolkit_.RunUntil([&over] { return over; });
    }

    void Save(const std::string& name) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (!window->isVisible() || window->windowType() == Qt::Popup) continue;
            lastDrawn_ = window->grab();
            Write(lastDrawn_, name);
            sheet_.Add(lastDrawn_, QString::fromStdString(name));
            if (measuring_) Measure(*window, name);
        }
    }

    void Measure(QWidget& window, const std::string& name) {
        for (const PaintedText& text : PaintedTextsOf(window)) {
            if (text.contrast >= text.least) continue;
            std::fprintf(stderr, "%s: \"%s\" has a contrast of %.2f\n", name.c_str(),
                         text.text.toStdString().c_str(), text.contrast);
        }
    }

    void Write(const QPixmap& pixmap, const std::string& name) const {
        const std::string file = (folder_ / (name + ".png")).string();
        if (!pixmap.save(QString::fromStdString(file))) {
            std::fprintf(stderr, "tavrix-gallery: cannot write %s\n", file.c_str());
            std::exit(1);
        }
        std::printf("%s\n", file.c_str());
    }

    std::filesystem::path folder_;
    bool measuring_;
    ContactSheet sheet_;
    QPixmap lastDrawn_;
    headless::HeadlessServices platform_;
    qt::QtToolkit toolkit_{[](const std::string& path) { return path; }};
    forms::Application app_{toolkit_};
    MainModule module_{app_, platform_.services};
    Lives lives_;
};

/// What is told before the folder.
struct Options {
    qt::Look look;
    bool helpPictures = false;
    bool contrast = false;
    std::vector<char*> rest;  ///< the folder, and pictures; empty: the options are none
};

Options OptionsOf(std::span<char*> arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view word = arguments[i];
        const std::string value(word.substr(std::min(word.find('=') + 1, word.size())));
        if (word == "--dark") {
            options.look.scheme = qt::Look::Scheme::Dark;
        } else if (word.starts_with("--accent=") && QColor::isValidColor(QString::fromStdString(value))) {
            options.look.accent = QColor(QString::fromStdString(value));
        } else if (word.starts_with("--font-scale=") && std::atof(value.c_str()) > 0) {
            options.look.textScale = std::atof(value.c_str());
        } else if (word == "--contrast") {
            options.contrast = true;
        } else if (word == "--help-pictures") {
            options.helpPictures = true;
        } else if (!word.starts_with("--")) {
            options.rest.assign(arguments.begin() + static_cast<std::ptrdiff_t>(i), arguments.end());
            return options;
        } else {
            return {};
        }
    }
    return options;
}

}  // namespace

int main(int argc, char** argv) {
    const Options options = OptionsOf(std::span(argv + 1, static_cast<std::size_t>(std::max(argc - 1, 0))));
    if (options.rest.empty() || (options.helpPictures && options.rest.size() > 1)) {
        std::fputs(
            "usage: tavrix-gallery [--dark] [--accent=COLOUR] [--font-scale=FACTOR] [--contrast] DIR "
            "[PICTURE...]\n"
            "       tavrix-gallery --help-pictures DIR\n",
            stderr);
        return 2;
    }
    if (std::getenv("QT_QPA_PLATFORM") == nullptr) ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    // Whatever the desktop wishes, the pictures are to be the same everywhere.
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
    ::unsetenv("XDG_RUNTIME_DIR");
    qt::QtProcess windowSystem(argv[0]);
    windowSystem.Follow(options.look);
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * options.look.textScale);
    if (options.contrast) font.setStyleStrategy(QFont::NoAntialias);
    QApplication::setFont(font);
    const char* const folder = options.rest.front();
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    Gallery gallery(folder, options.contrast);
    if (options.helpPictures)
        gallery.DrawHelpPictures();
    else if (options.rest.size() > 1)
        gallery.DrawPictures(std::span(options.rest).subspan(1));
    else
        gallery.Draw();
    std::fflush(stdout);
    std::_Exit(0);
}
