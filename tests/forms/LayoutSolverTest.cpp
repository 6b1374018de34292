#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "platform/forms/LayoutSolver.h"

namespace tavrix::forms {
namespace {

/// Something to arrange: it asks for a size and notes where it comes.
class Block final : public LayoutItem {
  public:
    explicit Block(PixelSize size, Slack across = Slack::Filled, Slack down = Slack::Centred)
        : needs{size, across, down, false} {}

    [[nodiscard]] LayoutNeeds Needs() const override { return needs; }
    [[nodiscard]] int HeightAt(int width) const override {
        return area > 0 ? (area + width - 1) / width : needs.natural.height;
    }
    [[nodiscard]] PixelInsets Border() const override { return border; }
    void Place(const PixelRect& value) override { place = value; }

    LayoutNeeds needs;
    PixelInsets border;
    int area = 0;  ///< of a text that goes into as many lines as it needs
    PixelRect place{-1, -1, -1, -1};
};

Block Button(int width = 80) {
    return Block({width, 22});
}
Block Field(int width = 100) {
    return Block({width, 20}, Slack::Wanted);
}
Block List(int width = 120, int height = 90) {
    return Block({width, height}, Slack::Wanted, Slack::Wanted);
}
Block Picture(int width, int height) {
    return Block({width, height}, Slack::Centred, Slack::Centred);
}
Block Text(int width) {
    Block text({width, 14});
    text.needs.yields = true;
    return text;
}

class LayoutSolverTest : public testing::Test {
  protected:
    [[nodiscard]] PixelSize Natural(const Layout& layout) const { return NaturalSizeOf(layout, metrics); }
    void Arrange(const Layout& layout, PixelSize inside) const {
        for (const PlacedItem& placed : Solve(layout, metrics, inside))
            placed.item->Place(placed.place);
    }
    /// In a window of the size that the layout needs.
    void Arrange(const Layout& layout) const { Arrange(layout, Natural(layout)); }

    LayoutMetrics metrics{{9, 8, 7, 6}, 5, 4, 15, 15};
};

TEST_F(LayoutSolverTest, ARowStandsSideBySide) {
    Block a = Button(), b = Button(50);
    const Layout layout = Row({a, b});
    EXPECT_EQ(Natural(layout), (PixelSize{9 + 80 + 5 + 50 + 7, 8 + 22 + 6}));
    Arrange(layout);
    EXPECT_EQ(a.place, (PixelRect{9, 8, 80, 22}));
    EXPECT_EQ(b.place, (PixelRect{94, 8, 50, 22}));
}

TEST_F(LayoutSolverTest, AColumnStandsOneBelowTheOther) {
    Block a = Button(), b = List();
    const Layout layout = Column({a, b});
    EXPECT_EQ(Natural(layout), (PixelSize{9 + 120 + 7, 8 + 22 + 4 + 90 + 6}));
    Arrange(layout);
    EXPECT_EQ(a.place, (PixelRect{9, 8, 120, 22}));  // it fills the width
    EXPECT_EQ(b.place, (PixelRect{9, 34, 120, 90}));
}

TEST_F(LayoutSolverTest, ALabelStandsInTheMiddleOfTheControlBesideIt) {
    Block label = Text(40), field = Field();
    Arrange(Row({label, field}));
    EXPECT_EQ(label.place, (PixelRect{9, 8 + 3, 40, 14}));
    EXPECT_EQ(field.place, (PixelRect{54, 8, 100, 20}));
}

TEST_F(LayoutSolverTest, WhatWantsSpaceGetsItBeforeWhatOnlyFillsIt) {
    Block a = Button(), field = Field();
    Arrange(Row({a, field}), {9 + 300 + 7, 60});
    EXPECT_EQ(a.place.width, 80);
    EXPECT_EQ(field.place, (PixelRect{94, 8 + (46 - 20) / 2, 215, 20}));
}

TEST_F(LayoutSolverTest, SharesAreOfTheWholeAndNotOfWhatIsLeft) {
    Block a = Button(80), b = Button(40), c = Button(40);
    Arrange(Row({Growing(a, 2), Growing(b), c}), {9 + 400 + 7, 36});
    EXPECT_EQ(c.place.width, 40);
    EXPECT_EQ(a.place.width, 233);  // two thirds of 350
    EXPECT_EQ(b.place.width, 117);
    EXPECT_EQ(c.place.left + c.place.width, 9 + 400);
}

TEST_F(LayoutSolverTest, NoShareIsLessThanWhatIsNeeded) {
    Block wide = Button(300), narrow = Button(20);
    Arrange(Row({Growing(wide), Growing(narrow)}), {9 + 405 + 7, 36});
    EXPECT_EQ(wide.place.width, 300);
    EXPECT_EQ(narrow.place.width, 100);
}

TEST_F(LayoutSolverTest, AStretchPushesWithoutAGapOfItsOwn) {
    Block ok = Button(), cancel = Button();
    const Layout layout = Row({Stretch(), ok, cancel});
    EXPECT_EQ(Natural(layout).width, 9 + 165 + 7);
    Arrange(layout, {9 + 400 + 7, 36});
    EXPECT_EQ(ok.place, (PixelRect{9 + 400 - 165, 8, 80, 22}));
    Arrange(Row({ok, Stretch(), cancel}), {9 + 400 + 7, 36});
    EXPECT_EQ(ok.place.left, 9);
    EXPECT_EQ(cancel.place.left, 9 + 400 - 80);
    Arrange(Row({ok, Stretch(), cancel}));
    EXPECT_EQ(cancel.place.left, 9 + 80 + 5);
}

TEST_F(LayoutSolverTest, PicturesKeepTheirSizeInTheMiddle) {
    Block picture = Picture(30, 40), list = List(101, 90);
    Arrange(Column({picture, list}));
    EXPECT_EQ(picture.place, (PixelRect{9 + 35, 8, 30, 40}));
    Arrange(Row({picture, list}));
    EXPECT_EQ(picture.place, (PixelRect{9, 8 + 25, 30, 40}));
}

TEST_F(LayoutSolverTest, WhereNothingCanGrowTheSpaceLiesBetween) {
    Block a = Button(), b = Button();
    Arrange(Column({a, b}), {9 + 80 + 7, 8 + 48 + 30 + 6});
    EXPECT_EQ(a.place, (PixelRect{9, 18, 80, 22}));
    EXPECT_EQ(b.place, (PixelRect{9, 18 + 22 + 4 + 10, 80, 22}));
}

TEST_F(LayoutSolverTest, AGridAlignsItsColumns) {
    Block l1 = Text(30), f1 = Field(), u1 = Text(10), l2 = Text(55), f2 = Field(60), u2 = Text(20);
    const Layout layout = Grid(3, {l1, f1, u1, l2, f2, u2});
    EXPECT_EQ(Natural(layout), (PixelSize{9 + 55 + 5 + 100 + 5 + 20 + 7, 8 + 20 + 4 + 20 + 6}));
    Arrange(layout);
    EXPECT_EQ(l1.place, (PixelRect{9, 11, 55, 14}));
    EXPECT_EQ(f1.place, (PixelRect{69, 8, 100, 20}));
    EXPECT_EQ(f2.place, (PixelRect{69, 32, 100, 20}));
    EXPECT_EQ(u2.place, (PixelRect{174, 35, 20, 14}));
    Arrange(layout, {Natural(layout).width + 50, Natural(layout).height});
    EXPECT_EQ(l1.place.width, 55);
    EXPECT_EQ(f1.place.width, 150);
    EXPECT_EQ(u1.place.left, 224);
}

TEST_F(LayoutSolverTest, AGrowingCellGrowsItsColumn) {
    Block l1 = Text(30), f1 = Field(), l2 = Text(55), f2 = Field();
    Arrange(Grid(2, {Growing(l1), f1, l2, f2}), {9 + 55 + 5 + 100 + 40 + 7, 60});
    EXPECT_EQ(l2.place.width, 95);
    EXPECT_EQ(f2.place.width, 100);
}

TEST_F(LayoutSolverTest, AFrameGoesAroundItsContent) {
    Block frame({50, 30}, Slack::Filled, Slack::Filled);
    frame.border = {10, 20, 11, 12};
    Block a = Button(), b = Button();
    const Layout layout = Group(frame, {a, b});
    EXPECT_EQ(Natural(layout), (PixelSize{9 + 10 + 80 + 11 + 7, 8 + 20 + 48 + 12 + 6}));
    Arrange(layout);
    EXPECT_EQ(frame.place, (PixelRect{9, 8, 101, 80}));
    EXPECT_EQ(a.place, (PixelRect{19, 28, 80, 22}));
    EXPECT_EQ(b.place, (PixelRect{19, 54, 80, 22}));
}

TEST_F(LayoutSolverTest, AFrameIsAsWideAsItsCaption) {
    Block frame({250, 30}, Slack::Filled, Slack::Filled);
    frame.border = {10, 20, 10, 10};
    Block a = Button();
    const Layout layout = Group(frame, {a});
    EXPECT_EQ(Natural(layout).width, 9 + 250 + 7);
    frame.needs.natural.width = 300;
    EXPECT_EQ(Natural(layout).width, 9 + 300 + 7);
}

TEST_F(LayoutSolverTest, FramesComeBeforeWhatIsInThem) {
    Block outer({1, 1}), inner({1, 1}), a = Button();
    const std::vector<PlacedItem> placed = Solve(Group(outer, {Group(inner, {a})}), metrics, {200, 200});
    ASSERT_EQ(placed.size(), 3U);
    EXPECT_EQ(placed[0].item, &outer);
    EXPECT_EQ(placed[1].item, &inner);
    EXPECT_EQ(placed[2].item, &a);
}

TEST_F(LayoutSolverTest, ALeastSizeIsInTwips) {
    Block list = List(50, 40);
    EXPECT_EQ(Natural(AtLeast(1500, 900, list)), (PixelSize{9 + 100 + 7, 8 + 60 + 6}));
    metrics.twipsPerPixelX = metrics.twipsPerPixelY = 7.5F;
    EXPECT_EQ(Natural(AtLeast(1500, 900, list)), (PixelSize{9 + 200 + 7, 8 + 120 + 6}));
    EXPECT_EQ(Natural(AtLeast(300, 150, list)), (PixelSize{9 + 50 + 7, 8 + 40 + 6}));
}

TEST_F(LayoutSolverTest, ALeastSizeOfARowIsTheRows) {
    Block a = Button();
    EXPECT_EQ(Natural(AtLeast(3000, 0, Row({a, Stretch()}))).width, 9 + 200 + 7);
}

TEST_F(LayoutSolverTest, ATextWithALeastWidthAsksForNoMore) {
    Block path = Text(2000), label = Text(40);
    const Layout layout = Row({label, Growing(AtLeast(3000, 0, path))});
    EXPECT_EQ(Natural(layout).width, 9 + 40 + 5 + 200 + 7);
    Arrange(layout, {400, 40});
    EXPECT_EQ(path.place.width, 400 - 9 - 7 - 45);
}

TEST_F(LayoutSolverTest, ATextInLinesIsAsHighAsItsWidthMakesIt) {
    Block text = Text(2000);
    text.area = 2000 * 14;
    Block below = Button();
    const Layout layout = Column({AtLeast(3000, 0, text), below});
    EXPECT_EQ(Natural(layout), (PixelSize{9 + 200 + 7, 8 + 140 + 4 + 22 + 6}));
    Arrange(layout, {9 + 400 + 7, 8 + 70 + 4 + 22 + 6});
    EXPECT_EQ(text.place, (PixelRect{9, 8, 400, 70}));
    EXPECT_EQ(below.place.top, 8 + 70 + 4);
}

TEST_F(LayoutSolverTest, WhereThereIsTooLittleListsGiveWay) {
    Block list = List(120, 90), button = Button();
    const Layout layout = Row({AtLeast(600, 300, list), Column({button, Stretch()})});
    EXPECT_EQ(Natural(layout).width, 9 + 120 + 5 + 80 + 7);
    Arrange(layout, {9 + 180 + 7, 8 + 60 + 6});
    EXPECT_EQ(list.place, (PixelRect{9, 8, 95, 60}));
    EXPECT_EQ(button.place, (PixelRect{109, 8, 80, 22}));
    Arrange(layout, {9 + 50 + 7, 8 + 60 + 6});  // then the window cuts
    EXPECT_EQ(list.place.width, 40);
    EXPECT_EQ(button.place.width, 80);
}

TEST_F(LayoutSolverTest, CellsAreOfOneSizeWhateverIsInThem) {
    std::vector<Block> blocks(9, Picture(20, 10));
    blocks[4] = Picture(400, 300);
    std::vector<Layout> items;
    for (Block& block : blocks)
        items.emplace_back(block);
    Block button = Button();
    const Layout layout = Row({Cells(3, {165, 125}, 3, items), Column({button, Stretch()})});
    EXPECT_EQ(Natural(layout), (PixelSize{9 + 501 + 5 + 80 + 7, 8 + 381 + 6}));
    for (const PixelSize& inside : {Natural(layout), PixelSize{800, 700}}) {
        Arrange(layout, inside);
        for (int i = 0; i < 9; ++i) {
            const PixelRect& first = blocks[0].place;
            EXPECT_EQ(blocks[static_cast<std::size_t>(i)].place,
                      (PixelRect{first.left + i % 3 * 168, first.top + i / 3 * 128, 165, 125}));
        }
    }
}

TEST_F(LayoutSolverTest, AColumnOfFixedThingsLeavesTheWidthToOthers) {
    Block picture = Picture(32, 32), text = Text(60), button = Button();
    Arrange(Row({Column({picture, Stretch()}), Column({text}), button}), {9 + 200 + 7, 100});
    EXPECT_EQ(picture.place, (PixelRect{9, 8, 32, 32}));
    EXPECT_EQ(text.place.left, 9 + 32 + 5);
    EXPECT_EQ(button.place.left + button.place.width, 209);
}

TEST_F(LayoutSolverTest, AnEmptyLayoutIsItsMargins) {
    EXPECT_EQ(Natural(Column({})), (PixelSize{16, 14}));
    EXPECT_EQ(Natural(Grid(2, {})), (PixelSize{16, 14}));
    EXPECT_TRUE(Solve(Row({Stretch()}), metrics, {0, 0}).empty());
}

}  // namespace
}  // namespace tavrix::forms
