#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Twips.h"
#include "viewer/MainViewFrm.h"
#include "windows/ControlFacts.h"
#include "windows/EveryWindow.h"

namespace tavrix::windows {
namespace {

using namespace forms;

bool Intersect(const PixelRect& a, const PixelRect& b) {
    return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
           b.top < a.top + a.height;
}

std::string Described(const Control& control) {
    const PixelRect place = control.PixelBoundsInWindow();
    return control.Name() + " at " + std::to_string(place.left) + "," + std::to_string(place.top) + " of " +
           std::to_string(place.width) + "x" + std::to_string(place.height);
}

/// Whether `next` stands where a reader has been before he comes to `before`.
bool RunsBack(const PixelRect& before, const PixelRect& next) {
    const bool above = next.top + next.height <= before.top;
    const bool left = next.left + next.width <= before.left;
    const bool sameColumn = next.left < before.left + before.width && before.left < next.left + next.width;
    const bool sameRow = next.top < before.top + before.height && before.top < next.top + next.height;
    return (above && sameColumn) || (left && sameRow) || (above && left);
}

class EveryWindowTest : public testing::TestWithParam<Window> {
  protected:
    EveryWindowTest() {
        form.Show();
        for (int rounds = 0; rounds < 5; ++rounds)
            app.DoEvents();
        all = ControlsOf(form);
    }
    ~EveryWindowTest() override {
        if (&form != &program.View()) app.Unload(form);
    }

    std::unique_ptr<Toolkit> toolkit = MakeToolkit();
    Program program{*toolkit};
    Application& app = program.app;
    Form& form = GetParam().load(program);
    std::vector<Control*> all;
};

TEST_P(EveryWindowTest, NoControlIsClipped) {
    if (GetParam().placedInTwips && HasLargeFont()) GTEST_SKIP() << "its places are for one font";
    const ScreenInfo screen = app.Screen().Info();
    for (const Control* control : all) {
        if (!HasItsPlace(*control)) continue;
        EXPECT_EQ(ClippedPartOf(*control), "") << Described(*control);
        if (dynamic_cast<PictureBox*>(control->Parent()) != nullptr) continue;  // what is in it scrolls
        const PixelRect place = control->PixelBounds();
        const PixelRect around = control->Parent() != nullptr
                                     ? control->Parent()->PixelBounds()
                                     : ToPixels(0, 0, form.ScaleWidth(), form.ScaleHeight(), screen);
        EXPECT_GE(place.left, 0) << Described(*control);
        EXPECT_GE(place.top, 0) << Described(*control);
        EXPECT_LE(place.left + place.width, around.width) << Described(*control);
        EXPECT_LE(place.top + place.height, around.height) << Described(*control);
        const bool empty = dynamic_cast<const Label*>(control) != nullptr && CaptionOf(*control).empty();
        const bool shows = !empty && (control->Arranged() || !CaptionOf(*control).empty());
        EXPECT_TRUE(!shows || (place.width > 0 && place.height > 0)) << Described(*control);
    }
}

TEST_P(EveryWindowTest, NoControlsOverlap) {
    if (GetParam().layered) GTEST_SKIP() << "they are meant to";
    for (const Control* a : all) {
        for (const Control* b : all) {
            if (a == b || a->Parent() != b->Parent()) continue;
            const bool together = (a->Visible && b->Visible) || (a->Arranged() && b->Arranged());
            if (!together) continue;
            EXPECT_FALSE(Intersect(a->PixelBounds(), b->PixelBounds()))
                << Described(*a) << ", " << Described(*b);
        }
    }
}

TEST_P(EveryWindowTest, TabGoesFromTheTopLeftToTheBottomRight) {
    if (GetParam().layered) GTEST_SKIP() << "there is no order in a pile";
    std::vector<const Control*> order;
    for (const Control* control : all) {
        if (TakesFocus(*control) && HasItsPlace(*control)) order.push_back(control);
    }
    for (std::size_t i = 0; i < order.size(); ++i) {
        for (std::size_t k = i + 1; k < order.size(); ++k) {
            EXPECT_FALSE(RunsBack(order[i]->PixelBoundsInWindow(), order[k]->PixelBoundsInWindow()))
                << Described(*order[i]) << " comes before " << Described(*order[k]);
        }
    }
}

TEST_P(EveryWindowTest, NoAcceleratorComesTwice) {
    std::map<char, std::string> taken;
    const auto take = [&](const std::string& caption) {
        const char letter = AcceleratorOf(caption);
        if (letter == 0) return;
        const auto [found, isNew] = taken.try_emplace(letter, caption);
        const bool meant = GetParam().repeated.find(letter) != std::string::npos;
        EXPECT_TRUE(isNew || meant) << caption << " and " << found->second;
    };
    for (const Menu* menu : form.MenuBar()) {
        if (menu->Visible) take(menu->Caption);
    }
    for (const Control* control : all) {
        const auto* label = dynamic_cast<const Label*>(control);
        if (label == nullptr || label->Buddy() != nullptr) take(CaptionOf(*control));
    }
}

TEST_P(EveryWindowTest, EachControlHasANameForAScreenReader) {
    for (const Control* control : all) {
        const bool describes =
            dynamic_cast<const Label*>(control) != nullptr || dynamic_cast<const Frame*>(control) != nullptr;
        if (describes || !HasItsPlace(*control)) continue;
        EXPECT_NE(SpokenNameOf(*control, all), "") << control->Name();
    }
}

INSTANTIATE_TEST_SUITE_P(Windows, EveryWindowTest, testing::ValuesIn(EveryWindow()),
                         [](const auto& instance) { return NameOf(instance); });

}  // namespace
}  // namespace tavrix::windows
