// The mouse over controls, the focus that leaves them, and what lies below and upon their texts.

#include <cmath>

#include "forms_conformance/ConformanceTest.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

class PointerTest : public ConformanceTest {
  protected:
    void Open() {
        form.button.Caption = "&Stop";
        form.label.Caption = "Text";
        form.Show();
        driver->Settle();
        log.clear();
    }
    /// A handler that notes what happened and where, in pixels of whole twips.
    auto Note(const std::string& what) {
        return [this, what](const MouseArguments& mouse) {
            const float twips = app.Screen().TwipsPerPixelX();
            log.push_back(what + " " + std::to_string(mouse.button) + " " + std::to_string(mouse.x / twips) +
                          "," + std::to_string(mouse.y / twips));
        };
    }
    static std::string At(const std::string& what, int button, int x, int y) {
        return what + " " + std::to_string(button) + " " + std::to_string(static_cast<float>(x)) + "," +
               std::to_string(static_cast<float>(y));
    }

    static PointerPicture Cross() {
        Surface surface(32, 32);
        surface.Fill(OpaquePixel(200, 30, 30));
        return {PictureOf(std::move(surface)), 12, 8};
    }

    TestForm& form = app.Load<TestForm>(log);
};

TEST_F(PointerTest, AButtonTellsMovesInTwips) {
    form.button.OnMouseMove = Note("move");
    Open();
    driver->UserPoints(form.button, 20, 10);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{At("move", 0, 20, 10)}));
}

TEST_F(PointerTest, ALabelTellsMovesInTwips) {
    form.label.OnMouseMove = Note("move");
    Open();
    driver->UserPoints(form.label, 20, 10);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{At("move", 0, 20, 10)}));
}

TEST_F(PointerTest, AButtonTellsItsPressInTwips) {
    form.button.OnMouseDown = [this](const MouseArguments& mouse) {
        log.push_back(mouse.x > 0 && mouse.x < form.button.Width ? "down inside" : "down outside");
        log.push_back(std::to_string(mouse.x / app.Screen().TwipsPerPixelX() ==
                                     std::floor(mouse.x / app.Screen().TwipsPerPixelX())));
    };
    Open();
    driver->UserClicks(form.button);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"down inside", "1"}));
}

TEST_F(PointerTest, ADisabledControlTellsNothing) {
    form.label.OnMouseMove = Note("move");
    form.label.Enabled = false;
    Open();
    driver->UserPoints(form.label, 20, 10);
    driver->Settle();
    EXPECT_EQ(log, std::vector<std::string>{});
}

TEST_F(PointerTest, ThePointerOfAControlIsAPictureThatPointsSomewhere) {
    form.picture.MouseIcon = Cross();
    form.label.MousePointer = MousePointer::Hand;
    Open();
    EXPECT_EQ(driver->PointerOver(form.picture), ShownPointer{});
    form.picture.MousePointer = MousePointer::Custom;
    EXPECT_EQ(driver->PointerOver(form.picture), (ShownPointer{MousePointer::Custom, 12, 8}));
    PointerPicture other = Cross();
    other.hotX = 4;
    form.picture.MouseIcon = other;
    EXPECT_EQ(driver->PointerOver(form.picture), (ShownPointer{MousePointer::Custom, 4, 8}));
    EXPECT_EQ(driver->PointerOver(form.label), ShownPointer{MousePointer::Hand});
    form.picture.MousePointer = MousePointer::Default;
    EXPECT_EQ(driver->PointerOver(form.picture), ShownPointer{});
}

TEST_F(PointerTest, APointerThatWasSetBeforeTheFirstShowIsShown) {
    form.button.MouseIcon = Cross();
    form.button.MousePointer = MousePointer::Custom;
    form.label.MousePointer = MousePointer::Custom;  // without a picture
    Open();
    EXPECT_EQ(driver->PointerOver(form.button), (ShownPointer{MousePointer::Custom, 12, 8}));
    EXPECT_EQ(driver->PointerOver(form.label), ShownPointer{});
}

TEST_F(PointerTest, TheFocusIsLostBeforeAnotherControlGetsIt) {
    form.button.OnLostFocus = [this] { log.emplace_back("button lost"); };
    form.button.OnGotFocus = [this] { log.emplace_back("button got"); };
    form.bar.OnLostFocus = [this] { log.emplace_back("bar lost"); };
    form.bar.OnGotFocus = [this] { log.emplace_back("bar got"); };
    Open();
    form.button.SetFocus();
    form.button.SetFocus();
    driver->Settle();
    log.clear();
    driver->UserFocuses(form.bar);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"button lost", "bar got"}));
    log.clear();
    form.button.SetFocus();
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"bar lost", "button got"}));
}

TEST_F(PointerTest, WhoLosesTheFocusMayTakeItBack) {
    form.button.OnLostFocus = [this] {
        log.emplace_back("lost");
        form.button.OnLostFocus = nullptr;
        form.button.SetFocus();
    };
    form.bar.OnGotFocus = [this] { log.emplace_back("bar"); };
    Open();
    form.button.SetFocus();
    driver->Settle();
    log.clear();
    driver->UserFocuses(form.bar);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"lost"}));
    EXPECT_EQ(form.ActiveControl(), &form.button);
}

TEST_F(PointerTest, ALabelHasAColourBelowItsText) {
    form.label.Caption = "";
    form.label.BackColor = Colour{0x400000};
    form.Show();
    driver->Settle();
    EXPECT_EQ(driver->ShownGround(form.label, 40, 12) & 0xFFFFFFU, 0x000040U);
    form.label.BackColor = White;
    driver->Settle();
    EXPECT_EQ(driver->ShownGround(form.label, 40, 12) & 0xFFFFFFU, 0xFFFFFFU);
    form.label.BackColor = std::nullopt;
    driver->Settle();
    EXPECT_NE(driver->ShownGround(form.label, 40, 12) & 0xFFFFFFU, 0xFFFFFFU);
}

TEST_F(PointerTest, WhatIsPrintedIntoABoxIsText) {
    form.picture.AccessibleName = "Status";
    form.picture.Print("Searching...");
    Open();
    EXPECT_EQ(driver->ShownPrinted(form.picture), "Searching...");
    EXPECT_EQ(driver->ShownName(form.picture), "Status");
    form.picture.Print("Found: 3 images...");
    EXPECT_EQ(driver->ShownPrinted(form.picture), "Searching...\nFound: 3 images...");
    form.picture.Cls();
    EXPECT_EQ(driver->ShownPrinted(form.picture), "");
    form.picture.Print("Done");
    form.picture.Picture = Picture();
    EXPECT_EQ(driver->ShownPrinted(form.picture), "");
    EXPECT_TRUE(form.picture.Printed().empty());
}

}  // namespace
}  // namespace tavrix::conformance
