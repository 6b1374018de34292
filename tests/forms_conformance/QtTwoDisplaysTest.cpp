// A program of its own, since a process has the displays that it starts with: two_displays.json.

#include <QCursor>

#include "forms_conformance/ConformanceTest.h"
#include "platform/forms/Twips.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

constexpr PixelRect Left{0, 0, 640, 480};
constexpr PixelRect Right{640, 0, 800, 600};

class StageForm final : public Form {
  public:
    explicit StageForm(Application& application)
        : Form(application, {.name = "StageForm", .fullScreen = true}) {}
};

class QtTwoDisplaysTest : public ConformanceTest {
  protected:
    float Twips(int pixels) { return ToTwips(pixels, app.Screen().TwipsPerPixelX()); }

    PixelRect PlaceOfANewStage() {
        auto& stage = app.Load<StageForm>();
        stage.Show();
        driver->Settle();
        const PixelRect place = driver->ShownPlace(stage);
        EXPECT_EQ(stage.ScaleWidth(), Twips(place.width));
        EXPECT_EQ(stage.ScaleHeight(), Twips(place.height));
        app.Unload(stage);
        driver->Settle();
        return place;
    }
};

TEST_F(QtTwoDisplaysTest, TheStageCoversTheDisplayWithTheMainWindow) {
    QCursor::setPos(10, 10);
    auto& main = app.Load<TestForm>(log, "Main");
    main.Move(Twips(900), Twips(100), Twips(200), Twips(150));
    main.Show();
    driver->Settle();
    EXPECT_EQ(PlaceOfANewStage(), Right);

    QCursor::setPos(900, 300);
    main.Move(Twips(50), Twips(100), Twips(200), Twips(150));
    driver->Settle();
    EXPECT_EQ(PlaceOfANewStage(), Left);
}

TEST_F(QtTwoDisplaysTest, WithoutAWindowItCoversTheDisplayWithThePointer) {
    QCursor::setPos(900, 300);
    EXPECT_EQ(PlaceOfANewStage(), Right);
    QCursor::setPos(10, 10);
    EXPECT_EQ(PlaceOfANewStage(), Left);
}

}  // namespace
}  // namespace tavrix::conformance
