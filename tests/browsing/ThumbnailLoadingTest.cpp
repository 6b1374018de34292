#include <map>
#include <memory>

#include "browsing/frmThumbFolder.h"
#include "browsing/frmThumbnail.h"
#include "program/WireProgram.h"
#include "support/ProgramFixture.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::test {
namespace {

/// Pictures that take their time, as the toolkit's clock tells it, and are dropped when nobody wants them.
class SlowPictures final : public Pictures {
  public:
    SlowPictures(Pictures& pictures, const forms::Toolkit& toolkit)
        : pictures_(pictures), toolkit_(toolkit) {}

    [[nodiscard]] Picture Load(const std::string& path) override { return pictures_.Load(path); }
    [[nodiscard]] Picture LoadInBackground(const std::string& path) override { return pictures_.Load(path); }
    [[nodiscard]] std::unique_ptr<PictureToFit> LoadToFit(const std::string& path,
                                                          const FitBox& box) override;
    void Expect(const std::string& path) override { pictures_.Expect(path); }
    [[nodiscard]] std::unique_ptr<Animation> OpenAnimation(const std::string& path) override {
        return pictures_.OpenAnimation(path);
    }
    void SaveBitmap(const Surface& surface, const std::string& path) override {
        pictures_.SaveBitmap(surface, path);
    }

    std::map<std::string, forms::Milliseconds> takes;  ///< by path; others are there at once
    int decoding = 0;                                  ///< pictures that are on their way now
    int mostDecoding = 0;
    int waitedInTake = 0;
    std::string noMemoryFor;  ///< a path

  private:
    class Arriving;

    Pictures& pictures_;
    const forms::Toolkit& toolkit_;
};

class SlowPictures::Arriving final : public PictureToFit {
  public:
    Arriving(SlowPictures& owner, std::unique_ptr<PictureToFit> picture, forms::Milliseconds at)
        : owner_(owner), picture_(std::move(picture)), at_(at) {
        owner_.mostDecoding = std::max(owner_.mostDecoding, ++owner_.decoding);
    }
    ~Arriving() override { --owner_.decoding; }
    Arriving(const Arriving&) = delete;
    Arriving& operator=(const Arriving&) = delete;

    [[nodiscard]] bool Ended() const override { return owner_.toolkit_.Now() >= at_; }
    [[nodiscard]] FittedPicture Take() override {
        if (!Ended()) ++owner_.waitedInTake;
        return picture_->Take();
    }

  private:
    SlowPictures& owner_;
    std::unique_ptr<PictureToFit> picture_;
    forms::Milliseconds at_;
};

std::unique_ptr<PictureToFit> SlowPictures::LoadToFit(const std::string& path, const FitBox& box) {
    if (path == noMemoryFor) throw std::bad_alloc();
    const auto time = takes.contains(path) ? takes.at(path) : forms::Milliseconds(0);
    return std::make_unique<Arriving>(*this, pictures_.LoadToFit(path, box), toolkit_.Now() + time);
}

class ThumbnailLoading : public ::testing::Test {
  protected:
    ThumbnailLoading() {
        machine.store.Set("EXEPath", "C:\\Tavrix\\");
        machine.store.Set("ProgramRun", "1");
        machine.store.Set("Show Tips at Startup", "0");
        for (int number = 1; number <= 9; ++number)
            machine.pictures.SetPicture(PathOf(number), PlainPicture(20, 10));
        machine.disks.PutFile("C:\\Tavrix\\tavrix.ini", "[Viewer]\r\nStartupDialog=0\r\n");
        WireProgram(module, lives);
        Main(module, lives);
        machine.files.ChangeFolder("C:\\p");
        toolkit.OnModal("frmThumbFolder",
                        [this] { app.Loaded<frmThumbFolder>()->CmdOK.Deliver(forms::ClickEvent{}); });
    }
    ~ThumbnailLoading() override { EXPECT_EQ(toolkit.Failures(), std::vector<std::string>()); }

    static std::string PathOf(int number) { return "C:\\p\\" + std::to_string(number) + ".bmp"; }
    void Browse() { app.Loaded<MainViewFrm>()->menu.mnuThumbnailBrowse.Deliver(forms::ClickEvent{}); }
    frmThumbnail& Browser() { return *app.Loaded<frmThumbnail>(); }
    /// Does something at a time of the clock.
    void After(forms::Milliseconds time, std::function<void()> action) {
        clock.push_back(std::make_unique<forms::Timer>(*app.Loaded<MainViewFrm>()));
        forms::Timer& timer = *clock.back();
        timer.OnTimer = [&timer, action = std::move(action)] {
            timer.Enabled = false;
            action();
        };
        timer.Interval = static_cast<int>(time.count());
    }
    int VisibleNow() {
        int visible = 0;
        for (std::size_t slot = 0; slot < frmThumbnail::Slots; ++slot)
            visible += Browser().picPreview[slot].Visible ? 1 : 0;
        return visible;
    }

    headless::HeadlessServices machine;
    headless::HeadlessToolkit toolkit;
    SlowPictures pictures{machine.pictures, toolkit};
    Services services{machine.files,   machine.drives,      machine.profile, machine.registry,
                      machine.store,   machine.shell,       pictures,        machine.clipboard,
                      machine.sound,   machine.help,        machine.system,  machine.process,
                      machine.viewLib, machine.wakefulness, machine.desktop, machine.saverPassword};
    forms::Application app{toolkit};
    MainModule module{app, services};
    Lives lives;
    std::vector<std::unique_ptr<forms::Timer>> clock;
};

TEST_F(ThumbnailLoading, OnePictureAtATimeIsOnItsWay) {
    for (int number = 1; number <= 9; ++number)
        pictures.takes[PathOf(number)] = forms::Milliseconds(100);
    std::vector<int> seen;
    for (int time = 50; time < 1'000; time += 100)
        After(forms::Milliseconds(time), [&] { seen.push_back(VisibleNow()); });
    Browse();
    EXPECT_EQ(VisibleNow(), 9);
    EXPECT_EQ(seen, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(pictures.mostDecoding, 1);
    EXPECT_EQ(pictures.decoding, 0);
    EXPECT_EQ(pictures.waitedInTake, 0);
    EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Default);
}

TEST_F(ThumbnailLoading, StopActsInTheMiddleOfAPicture) {
    pictures.takes[PathOf(3)] = std::chrono::hours(1);
    bool dropped = false;
    After(forms::Milliseconds(500), [&] {
        EXPECT_EQ(VisibleNow(), 2);
        EXPECT_EQ(pictures.decoding, 1);
        Browser().CmdStop.Deliver(forms::ClickEvent{});
    });
    After(forms::Milliseconds(600), [&] { dropped = pictures.decoding == 0; });
    Browse();
    EXPECT_LT(toolkit.Now(), forms::Milliseconds(510));
    EXPECT_EQ(pictures.decoding, 0);
    EXPECT_EQ(pictures.waitedInTake, 0);
    EXPECT_EQ(VisibleNow(), 2);
    EXPECT_EQ(Browser().lblShowing.Caption.Get(), "1 to 3");
    EXPECT_FALSE(module.Busy());
    toolkit.Advance(forms::Milliseconds(200));
    EXPECT_TRUE(dropped);
}

TEST_F(ThumbnailLoading, TheBrowserDoesNotCloseWhileAPageIsMade) {
    pictures.takes[PathOf(2)] = forms::Milliseconds(1'000);
    After(forms::Milliseconds(500), [&] {
        Browser().Deliver(forms::CloseEvent{});
        ASSERT_NE(app.Loaded<frmThumbnail>(), nullptr);
        Browser().CmdClose.Deliver(forms::ClickEvent{});
        ASSERT_NE(app.Loaded<frmThumbnail>(), nullptr);
        EXPECT_EQ(module.Screen().MousePointer.Get(), forms::MousePointer::ArrowHourglass);
    });
    Browse();
    EXPECT_EQ(VisibleNow(), 9);
    Browser().Deliver(forms::CloseEvent{});
    EXPECT_EQ(app.Loaded<frmThumbnail>(), nullptr);
    EXPECT_NE(toolkit.VisibleWindow("MainViewFrm"), nullptr);
}

TEST_F(ThumbnailLoading, NoMemoryLocksNothing) {
    Browse();
    pictures.noMemoryFor = PathOf(3);
    toolkit.Expect({.text = "Out of memory...", .icon = forms::BoxIcon::Stop});
    Browser().Deliver(forms::DropEvent{{PathOf(1), PathOf(3), PathOf(2)}, 1, 1});
    EXPECT_FALSE(module.Busy());
    EXPECT_TRUE(Browser().CmdClose.Enabled);
    EXPECT_FALSE(Browser().CmdStop.Visible);
    Browser().Deliver(forms::CloseEvent{});
    EXPECT_EQ(app.Loaded<frmThumbnail>(), nullptr);
}

TEST_F(ThumbnailLoading, APictureThatFailsLateIsToldOf) {
    machine.disks.PutFile(PathOf(1), "BM and nothing else");
    machine.pictures.SetFailure(PathOf(2), RuntimeError(ErrorNumber::PermissionDenied));
    pictures.takes[PathOf(1)] = forms::Milliseconds(100);
    for (const auto& [number, error] : {std::pair{1, "Invalid picture"}, {2, "Permission denied"}}) {
        toolkit.Expect({.text = "Unable to show preview of the following image:\r\n(" + std::string(error) +
                                "...)\r\n\r\n" + PathOf(number) +
                                "\r\n\r\nPress \"Cancel\" to stop loading thumbnails...",
                        .icon = forms::BoxIcon::Exclamation,
                        .buttons = forms::BoxButtons::OkCancel});
    }
    Browse();
    EXPECT_EQ(VisibleNow(), 9);
}

}  // namespace
}  // namespace tavrix::test
