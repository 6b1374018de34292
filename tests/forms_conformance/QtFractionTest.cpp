// A program of its own, since a process has the scale that it starts with: one at which a logical pixel is no whole
// number of the device's.

#include <cmath>

#include "forms_conformance/ConformanceTest.h"
#include "forms_conformance/QtDriver.h"
#include "platform/forms/Twips.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

class QtFractionTest : public ConformanceTest {
  protected:
    QtFractionTest() { EXPECT_NE(qt::DeviceRatio(), std::floor(qt::DeviceRatio())); }

    float Twips(int pixels) { return ToTwips(pixels, app.Screen().TwipsPerPixelX()); }
    int Pixels(float twips) { return ToPixels(twips, app.Screen().TwipsPerPixelX()); }
};

TEST_F(QtFractionTest, AWindowHoldsWhatItWasMadeFor) {
    auto& form = app.Load<TestForm>(log);
    form.Show();
    driver->Settle();
    const int frame = Pixels(form.Width - form.ScaleWidth());
    const int frameAndMenu = Pixels(form.Height - form.ScaleHeight());
    for (int i = 0; i < 40; ++i) {
        SCOPED_TRACE(i);
        const int width = 400 + i;
        const int height = 380 + i;
        form.Move(Twips(i % 9), Twips(i % 7), Twips(width + frame), Twips(height + frameAndMenu));
        driver->Settle();
        EXPECT_EQ(Pixels(form.ScaleWidth()), width);
        EXPECT_EQ(Pixels(form.ScaleHeight()), height);
        const QWidget& inside = *qt::NativeOf(*form.Peer()).ControlParent();
        EXPECT_GE(inside.width() * qt::DeviceRatio(), width);
        EXPECT_GE(inside.height() * qt::DeviceRatio(), height);
    }
}

}  // namespace
}  // namespace tavrix::conformance
