#include "forms_conformance/ConformanceTest.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

class WindowsTest : public ConformanceTest {
  protected:
    TestForm& form = app.Load<TestForm>(log);
};

TEST_F(WindowsTest, WhatWasPlacedComesBackUnchanged) {
    form.Show();
    driver->Settle();
    log.clear();
    form.Move(301, 463, 5011, 4807);
    EXPECT_EQ(Count(log, "TestForm resize"), 1);
    driver->Settle();
    EXPECT_EQ(Count(log, "TestForm resize"), 1);
    EXPECT_EQ(form.Left, 301);
    EXPECT_EQ(form.Top, 463);
    EXPECT_EQ(form.Width, 5011);
    EXPECT_EQ(form.Height, 4807);
}

TEST_F(WindowsTest, TheInnerSizeIsTheOuterLessTheMetrics) {
    form.Move(0, 0, 6000, 4500);
    form.Show();
    driver->Settle();
    const Toolkit& toolkit = driver->GetToolkit();
    const float twips = app.Screen().TwipsPerPixelX();
    const int width = 2 * toolkit.Metric(SystemMetric::SizingBorderWidth);
    const int height = 2 * toolkit.Metric(SystemMetric::SizingBorderHeight) +
                       toolkit.Metric(SystemMetric::CaptionHeight) +
                       toolkit.Metric(SystemMetric::MenuBarHeight);
    EXPECT_EQ(form.ScaleWidth(), 6000 - static_cast<float>(width) * twips);
    EXPECT_EQ(form.ScaleHeight(), 4500 - static_cast<float>(height) * twips);
}

TEST_F(WindowsTest, TheUserResizesWithOneResize) {
    form.Show();
    driver->Settle();
    log.clear();
    const float twips = app.Screen().TwipsPerPixelX();
    driver->UserResizes(form, 460, 380);
    driver->Settle();
    EXPECT_EQ(Count(log, "TestForm resize"), 1);
    EXPECT_EQ(form.Width, 460 * twips);
    EXPECT_EQ(form.Height, 380 * twips);
    EXPECT_EQ(form.Left, 300);
    EXPECT_EQ(form.Top, 450);
}

TEST_F(WindowsTest, MovesOfAHiddenFormAreKept) {
    form.Show();
    driver->Settle();
    form.Hide();
    driver->Settle();
    EXPECT_FALSE(driver->IsShown(form));
    form.Move(450, 600, 5250, 4650);
    form.Show();
    driver->Settle();
    EXPECT_TRUE(driver->IsShown(form));
    EXPECT_EQ(form.Left, 450);
    EXPECT_EQ(form.Top, 600);
    EXPECT_EQ(form.Width, 5250);
    EXPECT_EQ(form.Height, 4650);
}

TEST_F(WindowsTest, ALaterShowRaisesNoResize) {
    form.Show();
    driver->Settle();
    form.Hide();
    driver->Settle();
    log.clear();
    form.Show();
    driver->Settle();
    EXPECT_EQ(Count(log, "TestForm resize"), 0);
}

}  // namespace
}  // namespace tavrix::conformance
