#include "forms_conformance/FieldsForm.h"

namespace tavrix::conformance {
namespace {

using namespace forms;
using std::chrono_literals::operator""ms;

class ImageTest : public FieldsFormTest {
  protected:
    static constexpr int Columns = 40;
    static constexpr int Rows = 200;

    ImageTest() {
        const float twips = app.Screen().TwipsPerPixelX();
        form.Image1.Stretch = true;
        form.Image1.Move(0, 1350, Columns / 2 * twips, Rows / 2 * twips);
        form.Image1.OnArrived = [this] { log.emplace_back("arrived"); };
        picture_.pixels = pixels;
    }
    void Decode(int from, int to) const {
        for (int y = from; y < to; ++y) {
            for (Pixel& pixel : pixels->Canvas().Row(y))
                pixel = OpaquePixel(200, 100, static_cast<unsigned>(y) & 0xFFU);
        }
        pixels->TellReady(to);
    }
    Pixel Shown(int y) { return driver->ShownPixel(form.Image1, 5, y) & 0xFFFFFFU; }
    /// The colour of two rows that fall on one.
    static Pixel Colour(int y) { return OpaquePixel(200, 100, static_cast<unsigned>(2 * y + 1)) & 0xFFFFFFU; }

    std::shared_ptr<ArrivingSurface> pixels = std::make_shared<ArrivingSurface>(Columns, Rows);
    tavrix::Picture picture_;
};

TEST_F(ImageTest, APictureAppearsWhileItArrivesAndNothingWaits) {
    form.Image1.Picture = picture_;
    Open();
    const Pixel background = Shown(3);
    Decode(0, 100);
    driver->Pass(100ms);
    EXPECT_EQ(Shown(3), Colour(3));
    EXPECT_EQ(Shown(80), background);
    EXPECT_EQ(Count(log, "arrived"), 0);
    Decode(100, Rows);
    pixels->Finish(Outcome::Complete);
    driver->Pass(100ms);
    EXPECT_EQ(Shown(80), Colour(80));
    EXPECT_EQ(Count(log, "arrived"), 1);
    driver->Pass(200ms);
    EXPECT_EQ(Count(log, "arrived"), 1);
}

TEST_F(ImageTest, APictureThatIsThereDoesNotArrive) {
    Decode(0, Rows);
    pixels->Finish(Outcome::Complete);
    form.Image1.Picture = picture_;
    Open();
    driver->Pass(100ms);
    EXPECT_EQ(Shown(3), Colour(3));
    EXPECT_EQ(log, std::vector<std::string>{});
}

TEST_F(ImageTest, AnotherPictureEndsTheWaitForTheFirst) {
    form.Image1.Picture = picture_;
    Open();
    form.Image1.Picture = {};
    pixels->Finish(Outcome::Truncated);
    driver->Pass(100ms);
    EXPECT_EQ(log, std::vector<std::string>{});
}

}  // namespace
}  // namespace tavrix::conformance
