#include "settings/frmAbout.h"

#include <chrono>
#include <set>

#include "platform/services/MotionKey.h"
#include "settings/SettingsTest.h"

namespace tavrix::test {
namespace {

class frmAboutTest : public SettingsTest {
  protected:
    void Open(std::function<void(frmAbout&)> user) {
        ASSERT_TRUE(Start());
        Show<frmAbout>(View().menu.mnuAbout, "frmAbout", std::move(user));
    }
    static std::vector<Pixel> PixelsOf(const AboutMoment& moment, int width = 420, int height = 200) {
        Surface surface(width, height);
        DrawAboutPicture(surface, moment);
        return {surface.Pixels().begin(), surface.Pixels().end()};
    }
};

TEST_F(frmAboutTest, TextsAreAsTold) {
    Open([](frmAbout& d) {
        EXPECT_EQ(d.Caption.Get(), "About Tavrix");
        EXPECT_EQ(d.lblVersion.Caption.Get(), "Version 1.0");
        EXPECT_EQ(d.cmdOK.Caption.Get(), "&OK");
        EXPECT_EQ(d.cmdOK.ToolTip.Get(), "Click here to continue.");
        EXPECT_TRUE(d.cmdOK.Default && d.cmdOK.Cancel);
        EXPECT_EQ(d.HelpContext, HelpContext::About);
        Press(d.cmdOK);
        EXPECT_TRUE(d.Unloaded());
    });
    ExpectDialogRules<frmAbout>(View().menu.mnuAbout, "frmAbout");
}

TEST_F(frmAboutTest, ThePictureMovesForADayAndRests) {
    Open([this](frmAbout& d) {
        const AboutMoment first = d.Moment();
        const unsigned wiped = d.picAbout.TimesWiped();
        const Picture before = d.picAbout.Image();
        toolkit.Advance(forms::Milliseconds(1000));
        EXPECT_GT(d.Moment().day, first.day);
        EXPECT_GT(d.Moment().trip, first.trip);
        EXPECT_GT(d.Moment().swell, first.swell);
        EXPECT_NE(d.picAbout.Image(), before);
        toolkit.Advance(forms::Milliseconds(60'000));
        EXPECT_FALSE(d.TimerSea.Enabled || d.TimerDay.Enabled);
        EXPECT_NEAR(d.Moment().day, first.day, 1e-6) << "a whole day";
        const AboutMoment last = d.Moment();
        toolkit.Advance(forms::Milliseconds(60'000));
        EXPECT_EQ(d.Moment().swell, last.swell) << "it costs nothing any more";
        d.picAbout.Deliver(forms::ClickEvent{});
        toolkit.Advance(forms::Milliseconds(1000));
        EXPECT_GT(d.Moment().swell, last.swell);
        EXPECT_EQ(d.picAbout.TimesWiped(), wiped);
    });
}

TEST_F(frmAboutTest, NothingMovesUnaskedWhereTheDesktopWishesSo) {
    platform.registry.Put(MotionKey, MotionName, {1, "0"});
    Open([this](frmAbout& d) {
        const AboutMoment first = d.Moment();
        EXPECT_FALSE(d.picAbout.Image().Empty()) << "the picture is drawn";
        toolkit.Advance(forms::Milliseconds(60'000));
        EXPECT_EQ(d.Moment().swell, first.swell);
        EXPECT_EQ(d.Moment().day, first.day);
        d.picAbout.Deliver(forms::ClickEvent{});
        toolkit.Advance(forms::Milliseconds(1000));
        EXPECT_GT(d.Moment().swell, first.swell) << "a click asks for it";
    });
}

TEST_F(frmAboutTest, AWishThatComesLaterIsFollowed) {
    Open([this](frmAbout& d) {
        toolkit.Advance(forms::Milliseconds(1000));
        const AboutMoment before = d.Moment();
        platform.registry.Put(MotionKey, MotionName, {1, "0"});
        toolkit.Advance(forms::Milliseconds(60'000));
        EXPECT_EQ(d.Moment().swell, before.swell);
        EXPECT_FALSE(d.TimerSea.Enabled || d.TimerDay.Enabled);
    });
}

TEST_F(frmAboutTest, EachMomentIsAWholePictureOfItsOwn) {
    std::set<std::vector<Pixel>> seen;
    for (int hour = 0; hour < 24; ++hour) {
        const std::vector<Pixel> pixels = PixelsOf({hour / 24.0, 0.4, 3.0});
        for (const Pixel pixel : pixels)
            ASSERT_EQ(pixel >> 24U, 0xFFU) << hour;
        seen.insert(pixels);
    }
    EXPECT_EQ(seen.size(), 24U);
    EXPECT_NE(PixelsOf({0.5, 0.4, 3}), PixelsOf({0.5, 0.41, 3})) << "the boat";
    EXPECT_NE(PixelsOf({0.5, 0.4, 3}), PixelsOf({0.5, 0.4, 3.5})) << "the sea";
}

TEST_F(frmAboutTest, NoonIsBrighterThanMidnight) {
    const auto light = [](double day) {
        double sum = 0;
        for (const Pixel pixel : PixelsOf({day, 0.4, 0}))
            sum += (pixel & 0xFFU) + ((pixel >> 8U) & 0xFFU) + ((pixel >> 16U) & 0xFFU);
        return sum;
    };
    EXPECT_GT(light(0.5), 3 * light(0.0));
}

TEST_F(frmAboutTest, AnySizeCanBeDrawn) {
    for (const auto& [width, height] :
         std::vector<std::pair<int, int>>{{0, 0}, {1, 1}, {1, 300}, {300, 1}, {840, 400}, {37, 19}}) {
        for (const double part : {0.0, 0.25, 0.5, 0.999, 1.0})
            EXPECT_EQ(PixelsOf({part, part, 1e4 * part}, width, height).size(),
                      static_cast<std::size_t>(width * height));
    }
}

}  // namespace
}  // namespace tavrix::test
