#include "shows/EditorTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;

class SlideLoadRowsTest : public EditorTest {};

TEST_F(SlideLoadRowsTest, AFolderIsAddedByOneButton) {
    Press(Editor().CmdAddAll);
    EXPECT_EQ(Letters(), "abcde");
    EXPECT_EQ(Editor().ListView.Texts(), Pictures("abcde"));
    EXPECT_EQ(CountText(), "5 slides (images) total...");
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), -1);
}

TEST_F(SlideLoadRowsTest, SelectedFilesAreAppendedWhereNoRowIsCurrent) {
    PutSlides("e");
    EXPECT_EQ(CountText(), "One slide (image) total...");
    SelectSources({0, 2});
    Press(Editor().CmdAdd);
    EXPECT_EQ(Letters(), "eac");
    EXPECT_EQ(Described(), "+--");
    EXPECT_EQ(CountText(), "3 slides (images) total...");
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), -1);
}

TEST_F(SlideLoadRowsTest, WithACurrentRowTheFilesComeBehindItAndTheDescriptionsMove) {
    PutSlides("de");
    Editor().ListView.ListIndex = 0;
    SelectSources({0, 1});
    Press(Editor().CmdAdd);
    EXPECT_EQ(Letters(), "dabe");
    EXPECT_EQ(Described(), "+--+");
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), 2);
    SelectSources({2});
    Press(Editor().CmdAdd);
    EXPECT_EQ(Letters(), "dabce");
    EXPECT_EQ(Described(), "+---+");
}

TEST_F(SlideLoadRowsTest, AllFilesComeBehindTheCurrentRowToo) {
    PutSlides("de");
    Editor().ListView.ListIndex = 0;
    Press(Editor().CmdAddAll);
    EXPECT_EQ(Letters(), "dabcdee");
    EXPECT_EQ(Described(), "+-----+");
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), 5);
}

TEST_F(SlideLoadRowsTest, WhereThereIsNothingToAddItIsTold) {
    ExpectTold("No files are selected, nothing to add...");
    Press(Editor().CmdAdd);
    platform.disks.PutFolder("C:\\Empty");
    Editor().Lists.GoTo("C:\\Empty");
    ExpectTold("There are no files in the selected directory to add...");
    Press(Editor().CmdAdd);
    ExpectTold("There are no files in the selected directory to add...");
    Press(Editor().CmdAddAll);
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_EQ(CountText(), "Zero slides (images) total...");
}

TEST_F(SlideLoadRowsTest, ARootNeedsNoSecondBackslash) {
    platform.disks.PutFile("C:\\z.bmp", "");
    Editor().Lists.GoTo("C:\\");
    Press(Editor().CmdAddAll);
    EXPECT_EQ(Editor().ListView.Texts(), (Texts{"C:\\z.bmp"}));
}

TEST_F(SlideLoadRowsTest, CursorsAndOtherFilesAreNotListed) {
    for (const char* name : {"f.cur", "g.tga", "h.txt", "i.tvs", "j.jpeg", "k.RLE"})
        platform.disks.PutFile("C:\\Other\\" + std::string(name), "");
    Editor().Lists.GoTo("C:\\Other");
    Press(Editor().CmdAddAll);
    EXPECT_EQ(Letters(), "jk");
}

TEST_F(SlideLoadRowsTest, TheShowTakesNoMoreThanItHasSlots) {
    std::vector<std::string> many(SlideTexts::Slots - 3, "C:\\Pictures\\x.bmp");
    module.show.InsertSlides(0, many);
    Editor().ShowLoaded(SlideLoadFrm::Untitled);
    Editor().ListView.ListIndex = 0;
    const headless::ExpectedBox maximum{
        .text =
            "The maximum of 30,000 slides has been loaded. Any remaining images in the Slide Show file "
            "will be ignored...",
        .icon = forms::BoxIcon::Exclamation,
        .systemModal = true};
    Expect(maximum);
    Press(Editor().CmdAddAll);
    EXPECT_EQ(CountText(), "30,001 slides (images) total...");
    EXPECT_EQ(Editor().ListView.List(3), Picture('c'));
    EXPECT_EQ(Editor().ListView.List(4), "C:\\Pictures\\x.bmp");
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), 3);
    module.show.ShowChanged = false;
    Expect(maximum);
    Press(Editor().CmdAddAll);
    EXPECT_EQ(Editor().ListView.ListCount(), SlideTexts::Slots);
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), 3);
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(SlideLoadRowsTest, RemovingSeveralRowsKeepsTheDescriptionsOfTheRest) {
    PutSlides("abcde");
    SelectSlides({0, 2, 3});
    Press(Editor().CmdRemove);
    EXPECT_EQ(Letters(), "be");
    EXPECT_EQ(Described(), "++");
    EXPECT_EQ(CountText(), "2 slides (images) total...");
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_EQ(Selected(Editor().ListView), Rows{});
}

TEST_F(SlideLoadRowsTest, TheCurrentRowStaysUnlessItIsRemoved) {
    PutSlides("abcde");
    Editor().ListView.ListIndex = 3;
    SelectSlides({0});
    Press(Editor().CmdRemove);
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), 2);
    SelectSlides({2});
    Press(Editor().CmdRemove);
    EXPECT_EQ(Letters(), "bce");
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), -1);
    SelectSources({0});
    Press(Editor().CmdAdd);
    EXPECT_EQ(Letters(), "bcea");
}

TEST_F(SlideLoadRowsTest, WhereThereIsNothingToRemoveItIsTold) {
    ExpectTold("There are no files in the View List to remove...");
    Press(Editor().CmdRemove);
    ExpectTold("There are no files in the View List to remove...");
    Press(Editor().CmdRemoveAll);
    PutSlides("ab");
    Editor().ListView.ListIndex = 1;
    ExpectTold("No files are selected, nothing to remove...");
    Press(Editor().CmdRemove);
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_EQ(Letters(), "ab");
}

TEST_F(SlideLoadRowsTest, AllRowsAreRemovedOnYes) {
    PutSlides("abc", "C:\\Shows\\s.tvs");
    Editor().ListView.ListIndex = 1;
    ExpectQuestion("Remove all of the images from the current slide show?", Answer::No);
    Press(Editor().CmdRemoveAll);
    EXPECT_EQ(Letters(), "abc");
    EXPECT_FALSE(module.show.ShowChanged);
    ExpectQuestion("Remove all of the images from the current slide show?", Answer::Yes);
    Press(Editor().CmdRemoveAll);
    EXPECT_EQ(Letters(), "");
    EXPECT_EQ(module.show.SlideDescriptions[0], "");
    EXPECT_EQ(CountText(), "Zero slides (images) total...");
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), -1);
    EXPECT_EQ(Editor().ShowPath(), "C:\\Shows\\s.tvs");
}

TEST_F(SlideLoadRowsTest, DescriptionsAreClearedOnYes) {
    const std::string question =
        "You are about to clear ALL of the image descriptions for this slide show.\r\n\r\nAre you sure?";
    ExpectTold("There are no slides in the View List, nothing to clear...");
    Run(Editor().Menu2.mnuClearDescriptions);
    Press(Editor().CmdAddAll);
    module.show.ShowChanged = false;
    ExpectTold("There are no descriptions to clear...");
    Run(Editor().Menu2.mnuClearDescriptions);
    module.show.SlideDescriptions.Set(4, "about e");
    ExpectQuestion(question, Answer::No);
    Run(Editor().Menu2.mnuClearDescriptions);
    EXPECT_EQ(Described(), "----+");
    EXPECT_FALSE(module.show.ShowChanged);
    ExpectQuestion(question, Answer::Yes);
    Run(Editor().Menu2.mnuClearDescriptions);
    EXPECT_EQ(Described(), "-----");
    EXPECT_EQ(Letters(), "abcde");
    EXPECT_TRUE(module.show.ShowChanged);
}

TEST_F(SlideLoadRowsTest, SelectingByCommandLeavesTheCurrentRow) {
    PutSlides("abc");
    Editor().ListView.ListIndex = 1;
    Run(Editor().Menu2.mnuListSelectAll);
    EXPECT_EQ(Selected(Editor().ListView), (Rows{0, 1, 2}));
    Run(Editor().Menu2.mnuListSelectNone);
    EXPECT_EQ(Selected(Editor().ListView), Rows{});
    SelectSlides({0});
    Run(Editor().Menu2.mnuInverse2);
    EXPECT_EQ(Selected(Editor().ListView), (Rows{1, 2}));
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), 1);
    Press(Editor().CmdAll);
    EXPECT_EQ(Selected(Editor().File1), (Rows{0, 1, 2, 3, 4}));
    Press(Editor().CmdNone);
    EXPECT_EQ(Selected(Editor().File1), Rows{});
    SelectSources({1, 4});
    Run(Editor().Menu1.mnuInverse1);
    EXPECT_EQ(Selected(Editor().File1), (Rows{0, 2, 3}));
    EXPECT_EQ(Editor().File1.ListIndex.Get(), -1);
    Run(Editor().Menu1.mnuSelectAll);
    EXPECT_EQ(Editor().File1.SelectedCount(), 5);
    Run(Editor().Menu1.mnuSelectNone);
    EXPECT_EQ(Editor().File1.SelectedCount(), 0);
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(SlideLoadRowsTest, WhatTheStageRemovesLeavesTheList) {
    PutSlides("abcde");
    Editor().ListView.ListIndex = 4;
    SelectSlides({1, 3});
    const std::vector<int> gone{0, 3};
    module.show.RemoveSlides(gone);
    Editor().SlidesRemoved(gone);
    EXPECT_EQ(Letters(), "bce");
    EXPECT_EQ(CountText(), "3 slides (images) total...");
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), 2);
    EXPECT_EQ(Selected(Editor().ListView), Rows{0});
}

TEST_F(SlideLoadRowsTest, OtherPathsKeepCurrentRowAndSelection) {
    PutSlides("abc");
    Editor().ListView.ListIndex = 2;
    SelectSlides({0, 1});
    module.show.SlideFiles.Set(1, "b.bmp");
    Editor().PathsChanged();
    EXPECT_EQ(Editor().ListView.List(1), "b.bmp");
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), 2);
    EXPECT_EQ(Selected(Editor().ListView), (Rows{0, 1}));
}

TEST_F(SlideLoadRowsTest, ALoadedShowHasNoCurrentRow) {
    PutSlides("abc");
    Editor().ListView.ListIndex = 2;
    SelectSlides({0, 1});
    PutSlides("de", "C:\\Shows\\s.tvs");
    EXPECT_EQ(Letters(), "de");
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), -1);
    EXPECT_EQ(Selected(Editor().ListView), Rows{});
    EXPECT_EQ(Editor().lblFilename.Caption.Get(), "C:\\Shows\\s.tvs");
    EXPECT_EQ(CountText(), "2 slides (images) total...");
}

TEST_F(SlideLoadRowsTest, ARelativeSlideIsInTheFolderOfTheShow) {
    PutSlides("ab", "C:\\Shows\\Sub\\s.tvs");
    module.show.SlideFiles.Set(0, "x\\y.bmp");
    Editor().PathsChanged();
    EXPECT_EQ(Editor().SlidePath(0), "C:\\Shows\\Sub\\x\\y.bmp");
    EXPECT_EQ(Editor().SlidePath(1), Picture('b'));
}

TEST_F(SlideLoadRowsTest, NothingHappensWhileAnotherOperationRuns) {
    PutSlides("abc");
    SelectSlides({0});
    SelectSources({0});
    const forms::BusyGuard busy(module.Screen());
    for (forms::Control* control : Editor().Controls()) {
        if (auto* button = dynamic_cast<forms::CommandButton*>(control)) {
            if (button->Name() != "CmdFF") Press(*button);
        }
    }
    for (forms::Menu* menu : {&Editor().Menu1.mnuMenu1, &Editor().Menu2.mnuMenu2}) {
        for (forms::Menu* entry : menu->Entries())
            Run(*entry);
    }
    EXPECT_EQ(Letters(), "abc");
    EXPECT_EQ(Selected(Editor().ListView), Rows{0});
    EXPECT_EQ(Selected(Editor().File1), Rows{0});
    EXPECT_TRUE(toolkit.Popups().empty());
    EXPECT_TRUE(IsOpen());
}

}  // namespace
}  // namespace tavrix::test
