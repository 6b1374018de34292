#include "scenes/HelpScenes.h"

#include <array>
#include <utility>

#include "browsing/ThumbnailList.h"
#include "browsing/frmThumbnail.h"
#include "filing/moving/frmCopyImages.h"
#include "lists/frmQuickFolders.h"
#include "settings/AboutPicture.h"
#include "shows/editor/SlideLoadFrm.h"
#include "shows/stage/FullViewFrm.h"
#include "shows/stage/frmToolbar.h"
#include "viewer/MainViewFrm.h"
#include "viewer/OpenFrm.h"

namespace tavrix::scenes {
namespace {

const std::string Folder = "C:\\Pictures\\";
const std::string Harbour = Folder + "Harbour at noon.bmp";

/// The pictures of the folder: the hours of one day on the sea.
constexpr std::array<std::pair<const char*, double>, 10> Hours{{{"At anchor.bmp", 0.02},
                                                                {"Before sunrise.bmp", 0.24},
                                                                {"First light.bmp", 0.27},
                                                                {"Setting sail.bmp", 0.31},
                                                                {"Morning breeze.bmp", 0.38},
                                                                {"Harbour at noon.bmp", 0.5},
                                                                {"On the way home.bmp", 0.62},
                                                                {"Sunset.bmp", 0.73},
                                                                {"The last light.bmp", 0.765},
                                                                {"Under the stars.bmp", 0.9}}};

Picture Seascape(double day) {
    Surface surface(1200, 720);  // a window at 200 % is filled by it
    DrawAboutPicture(surface, {day, day, 10 * day});
    return PictureOf(std::move(surface));
}

forms::Form& MainView(Scenery& scenery) {
    return scenery.Start(Harbour);
}

forms::Form& Opening(Scenery& scenery) {
    MainViewFrm& view = scenery.Start();
    scenery.module.config.OpenShowPreview = true;
    scenery.module.config.OpenPreviewTimer = 1;
    auto& open = scenery.app.Load<OpenFrm>(view);
    open.Show();
    open.File1.ListIndex = 4;
    return open;
}

forms::Form& Copying(Scenery& scenery) {
    scenery.Start();
    scenery.module.config.LastCopyToPath = Folder + "Work";
    auto& copy = scenery.app.Load<frmCopyImages>(scenery.module);
    copy.Show();
    for (const int row : {1, 2, 5})
        copy.File1.Select(row);
    return copy;
}

forms::Form& QuickFolders(Scenery& scenery) {
    scenery.Start();
    auto& quick = scenery.app.Load<frmQuickFolders>(scenery.module);
    quick.Rows[0].txtName.Text = "Holidays";
    quick.Rows[0].lblPath.Caption = Folder + "Holidays\\";
    quick.Rows[1].txtName.Text = "For the office";
    quick.Rows[1].lblPath.Caption = Folder + "Work\\";
    return quick;
}

forms::Form& Editing(Scenery& scenery) {
    auto& editor = scenery.app.Load<SlideLoadFrm>(scenery.Start());
    editor.Lists.GoTo(Folder);
    std::vector<std::string> slides;
    for (const auto& hour : Hours)
        slides.push_back(Folder + hour.first);
    scenery.module.show.InsertSlides(0, slides);
    editor.ShowLoaded("C:\\Tavrix\\SLIDES\\A day on the sea.tvs");
    editor.Show();
    editor.File1.SelectAll();
    editor.ListView.ListIndex = 5;
    editor.ListView.Select(5);
    return editor;
}

forms::Form& Thumbnails(Scenery& scenery) {
    MainViewFrm& view = scenery.Start();
    auto& list = scenery.Keep<ThumbnailList>();
    list.ThumbnailFolder = Folder;
    for (const auto& hour : Hours)
        list.ThumbnailFiles.push_back(Folder + hour.first);
    return scenery.app.Load<frmThumbnail>(view, list, [] {});
}

forms::Form& Navigator(Scenery& scenery) {
    scenery.Start();
    MainModule& module = scenery.module;
    module.SlideShowActive = true;
    module.config.ShowToolbar = module.config.ShowFilenames = module.config.ShowDescription = true;
    module.show.SlideFiles.Set(0, Harbour);
    module.show.SlideDescriptions.Set(0, "Half past twelve, with a light wind from the west");
    auto& stage = scenery.app.Load<FullViewFrm>(module);
    auto& navigator = scenery.app.Load<frmToolbar>(module, stage);
    navigator.SizeToContents();
    navigator.ShowSlide(stage.CurrentPath(), stage.CurrentDescription());
    return navigator;
}

/// A day on the sea, and folders beside it.
void PutPictures(Scenery& scenery) {
    for (const auto& [name, day] : Hours)
        scenery.platform.pictures.SetPicture(Folder + name, Seascape(day));
    for (const char* folder : {"Holidays", "Work"})
        scenery.platform.files.MakeFolder(Folder + folder);
    scenery.platform.files.ChangeFolder(Folder);
}

HelpScene Scene(const std::string& name, forms::Form& (*load)(Scenery&)) {
    return {name, [load](Scenery& scenery) -> forms::Form& {
                PutPictures(scenery);
                return load(scenery);
            }};
}

}  // namespace

std::vector<HelpScene> HelpScenes() {
    return {Scene("main-view", MainView),  Scene("open-image", Opening),
            Scene("copy-images", Copying), Scene("quick-folders", QuickFolders),
            Scene("editor", Editing),      Scene("thumbnails", Thumbnails),
            Scene("navigator", Navigator)};
}

}  // namespace tavrix::scenes
