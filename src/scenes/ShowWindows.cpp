#include <cstdint>
#include <optional>

#include "scenes/WindowScenes.h"
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
#include "viewer/MainViewFrm.h"

namespace tavrix::scenes {
namespace {

/// A target that no show reaches.
class NoTarget final : public ShowTarget {
  public:
    void Load(const std::string&) override {}
};

void PutShows(Scenery& scenery) {
    for (const char* name :
         {"Garden.tvs", "Harbour.tvs", "Holidays & more.tvs", "The mountains in spring.tvs"})
        scenery.platform.disks.PutFile("C:\\Tavrix\\SLIDES\\" + std::string(name), "");
    for (const char* name : {"spring.tvs", "summer.tvs", "the way to the sea and back again.tvs"})
        scenery.platform.disks.PutFile("C:\\Pictures\\Holidays & more\\" + std::string(name), "");
    scenery.module.config.LastSlideShow = "C:\\Pictures\\Holidays & more\\summer.tvs";
    scenery.module.config.RecentShows = {"C:\\Tavrix\\SLIDES\\Harbour.tvs",
                                         "C:\\Pictures\\Holidays & more\\summer.tvs"};
}

template <class Form>
forms::Form& AmongShows(Scenery& scenery) {
    PutShows(scenery);
    return OfModule<Form>(scenery);
}

template <class Form>
forms::Form& Loading(Scenery& scenery) {
    PutShows(scenery);
    return scenery.app.Load<Form>(scenery.module, scenery.Keep<NoTarget>(), scenery.Keep<LoadEnd>());
}

forms::Form& Saving(Scenery& scenery) {
    PutShows(scenery);
    return scenery.app.Load<SaveSlideFile>(scenery.module, "C:\\Pictures\\Holidays & more.tvs",
                                           scenery.Keep<std::optional<SaveEnd>>());
}

forms::Form& FoundShows(Scenery& scenery) {
    PutShows(scenery);
    auto& find = scenery.app.Load<FindSlideFrm>(scenery.module, scenery.Keep<std::string>());
    find.Show();
    find.Find.CmdFind.OnClick();
    return find;
}

forms::Form& DeletingShow(Scenery& scenery) {
    scenery.module.config.UseRecycleBin = false;  // the picture that says so is to be seen
    return AmongShows<DeleteSlideFrm>(scenery);
}

forms::Form& Packing(Scenery& scenery) {
    PutShows(scenery);
    return scenery.app.Load<PackageFrm>(scenery.module,
                                        scenery.Keep<package::InstalledFiles>(scenery.module));
}

forms::Form& Describing(Scenery& scenery) {
    const std::vector<std::string> slides{"C:\\Pictures\\small.bmp", "Holidays & more\\beach.bmp"};
    scenery.module.show.EraseSlides();
    scenery.module.show.InsertSlides(0, slides);
    scenery.module.show.SlideDescriptions.Set(1, "The beach on the last day, before the rain");
    return scenery.app.Load<frmDescription>(scenery.module, "C:\\Pictures\\show.tvs", 1);
}

forms::Form& Duplicates(Scenery& scenery) {
    return scenery.app.Load<frmSlideDup>(
        scenery.module,
        std::vector<std::string>{"C:\\PICTURES\\HOLIDAYS & MORE\\BEACH.BMP", "C:\\PICTURES\\SMALL.BMP"},
        frmSlideDup::Editor{});
}

forms::Form& CopyingSlides(Scenery& scenery) {
    return scenery.app.Load<frmSlideCopyImages>(
        scenery.View(),
        frmSlideCopyImages::Sources{"C:\\Pictures\\Holidays & more\\", {"beach.bmp", "sea.bmp"}, true},
        frmSlideCopyImages::Editor{});
}

SlideOptionsFrm& Options(Scenery& scenery, std::int16_t soundMode) {
    scenery.module.WaveDevicePresent = true;
    scenery.module.config.SoundMode = soundMode;
    scenery.module.config.SoundFile = "C:\\Pictures\\Holidays & more\\waves.wav";
    for (const char* name : {"waves.wav", "song.mid", "wind.wav"})
        scenery.platform.disks.PutFile("C:\\Pictures\\Holidays & more\\" + std::string(name), "");
    return scenery.app.Load<SlideOptionsFrm>(scenery.module, ShowFolder("C:\\Pictures"));
}

forms::Form& WithoutSound(Scenery& scenery) {
    scenery.module.WaveDevicePresent = false;
    return scenery.app.Load<SlideOptionsFrm>(scenery.module, ShowFolder("C:\\Pictures"));
}

forms::Form& WithSound(Scenery& scenery) {
    return Options(scenery, 1);
}

forms::Form& WithDisc(Scenery& scenery) {
    return Options(scenery, 2);
}

forms::Form& ChoosingSound(Scenery& scenery) {
    return scenery.app.Load<BrowseWavFrm>(scenery.module, Options(scenery, 1));
}

forms::Form& Editing(Scenery& scenery) {
    auto& editor = scenery.app.Load<SlideLoadFrm>(scenery.View());
    editor.Lists.GoTo("C:\\Pictures");
    std::vector<std::string> slides;
    for (int number = 1; number <= 12; ++number)
        slides.push_back("C:\\Pictures\\picture number " + std::to_string(number) + ".bmp");
    scenery.module.show.EraseSlides();
    scenery.module.show.InsertSlides(0, slides);
    editor.ShowLoaded("C:\\Pictures\\Holidays & more\\a show of all the pictures of the beach.tvs");
    editor.File1.SetSelection({2, 5});
    editor.ListView.ListIndex = 3;
    editor.ListView.SetSelection({3, 5});
    return editor;
}

}  // namespace

std::vector<WindowScene> ShowWindows() {
    return {
        {"LoadSlideFile", Loading<LoadSlideFile>},
        {"LoadRecentFile", Loading<LoadRecentFile>},
        {"SaveSlideFile", Saving},
        {"frmDescription", Describing},
        {"frmSlideDup", Duplicates},
        {"frmSlideCopyImages", CopyingSlides},
        {"SlideOptionsFrm", WithSound},
        {"SlideOptionsFrm-no-sound", WithoutSound},
        {"SlideOptionsFrm-disc", WithDisc},
        {"BrowseWavFrm", ChoosingSound},
        {"FindSlideFrm", FoundShows},
        {"DeleteSlideFrm", DeletingShow},
        {"frmRenameShow", AmongShows<frmRenameShow>},
        {"SlideLoadFrm", Editing},
        {"PackageFrm", Packing, "f"},
        {"DelPackageFrm", AmongShows<DelPackageFrm>},
    };
}

}  // namespace tavrix::scenes
