#include "shows/EditorTest.h"
#include "shows/editor/SlideOrder.h"

namespace tavrix::test {
namespace {

class SlideLoadOrderTest : public EditorTest {
  protected:
    /// A command moves the current slide to another place, and what was current and selected stays so.
    void ExpectMove(forms::Menu& entry, int from, const std::string& letters, int to) {
        PutSlides("abcde");
        Editor().ListView.ListIndex = from;
        SelectSlides({from});
        Run(entry);
        EXPECT_EQ(Letters(), letters);
        EXPECT_EQ(Described(), "+++++");
        EXPECT_EQ(Editor().ListView.ListIndex.Get(), to);
        EXPECT_EQ(Selected(Editor().ListView), Rows{to});
        EXPECT_TRUE(module.show.ShowChanged);
        EXPECT_EQ(CountText(), "5 slides (images) total...");
    }
    /// The four refusals of a command; `end` is the row from which it cannot move.
    void ExpectRefusals(forms::Menu& entry, const Texts& texts, int end) {
        PutSlides("");
        ExpectTold(texts[0]);
        Run(entry);
        PutSlides("a");
        Editor().ListView.ListIndex = 0;
        ExpectTold(texts[1]);
        Run(entry);
        PutSlides("abc");
        SelectSlides({1});
        ExpectTold(texts[2]);
        Run(entry);
        Editor().ListView.ListIndex = end;
        ExpectTold(texts[3]);
        Run(entry);
        EXPECT_EQ(Letters(), "abc");
        EXPECT_FALSE(module.show.ShowChanged);
    }
};

TEST_F(SlideLoadOrderTest, ASlideMovesWithItsDescription) {
    ExpectMove(Editor().Menu2.mnuMoveFileUp, 2, "acbde", 1);
    ExpectMove(Editor().Menu2.mnuMoveFileDown, 2, "abdce", 3);
    ExpectMove(Editor().Menu2.mnuMoveToTop, 3, "dabce", 0);
    ExpectMove(Editor().Menu2.mnuMoveToBottom, 1, "acdeb", 4);
}

TEST_F(SlideLoadOrderTest, UpIsRefusedInItsWords) {
    ExpectRefusals(Editor().Menu2.mnuMoveFileUp,
                   {"There is nothing in the View List, unable to move file up...",
                    "There is only one item in the View List, unable to move file up...",
                    "Select the image to move up and try again...",
                    "The selected file is already at top of View List, unable to move file up..."},
                   0);
}

TEST_F(SlideLoadOrderTest, DownIsRefusedInItsWords) {
    ExpectRefusals(Editor().Menu2.mnuMoveFileDown,
                   {"There is nothing in the View List, unable to move file down...",
                    "There is only one item in the View List, unable to move file down...",
                    "Select the image to move down and try again...",
                    "The selected file is already at bottom of View List, unable to move file down..."},
                   2);
}

TEST_F(SlideLoadOrderTest, TheTopIsRefusedInItsWords) {
    ExpectRefusals(Editor().Menu2.mnuMoveToTop,
                   {"There is nothing in the View List, unable to move file to the top...",
                    "There is only one item in the View List, file is already at the top...",
                    "Select the image to move to the top and try again...",
                    "The selected file is already at top of View List, unable to move file..."},
                   0);
}

TEST_F(SlideLoadOrderTest, TheBottomIsRefusedInItsWords) {
    ExpectRefusals(Editor().Menu2.mnuMoveToBottom,
                   {"There is nothing in the View List, unable to move file to the bottom...",
                    "There is only one item in the View List, file is already at the bottom...",
                    "Select the image to move to the bottom and try again...",
                    "The selected file is already at bottom of View List, unable to move file..."},
                   2);
}

TEST_F(SlideLoadOrderTest, AMovedSlideIsScrolledTo) {
    std::string many;
    for (int i = 0; i < 60; ++i)
        many.push_back(static_cast<char>('a' + i % 26));
    PutSlides(many);
    auto& peer = dynamic_cast<headless::HeadlessListPeer&>(*Editor().ListView.Peer());
    Editor().ListView.ListIndex = 50;
    Run(Editor().Menu2.mnuMoveToTop);
    EXPECT_EQ(peer.top, 0);
    Run(Editor().Menu2.mnuMoveToBottom);
    EXPECT_GT(peer.top, 40);
}

TEST_F(SlideLoadOrderTest, TheOrderIsReversed) {
    PutSlides("abcde");
    Editor().ListView.ListIndex = 1;
    SelectSlides({0, 1});
    Run(Editor().Menu2.mnuReverseOrder);
    EXPECT_EQ(Letters(), "edcba");
    EXPECT_EQ(Described(), "+++++");
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), 3);
    EXPECT_EQ(Selected(Editor().ListView), (Rows{3, 4}));
    EXPECT_TRUE(module.show.ShowChanged);
}

TEST_F(SlideLoadOrderTest, ReversingIsRefusedInItsWords) {
    ExpectTold("There is nothing in the View List, unable to reverse the order of images...");
    Run(Editor().Menu2.mnuReverseOrder);
    PutSlides("a");
    ExpectTold("There is only one item in the View List, no need to reverse the order of images...");
    Run(Editor().Menu2.mnuReverseOrder);
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(SlideLoadOrderTest, TheOrderIsMixedFromTheOneSourceOfChance) {
    static_cast<void>(module.random.Next());
    Random random = module.random;
    std::string expected;
    for (const int former : RandomOrder(12, random))
        expected.push_back(static_cast<char>('a' + former));
    PutSlides("abcdefghijkl");
    Editor().ListView.ListIndex = 2;
    SelectSlides({0, 2});
    Run(Editor().Menu2.mnuRandomizeOrder);
    EXPECT_EQ(Letters(), expected);
    EXPECT_EQ(Described(), "++++++++++++");
    EXPECT_NE(expected, "abcdefghijkl");
    EXPECT_EQ(module.random.Next(), random.Next());
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), static_cast<int>(expected.find('c')));
    EXPECT_TRUE(Editor().ListView.Selected(static_cast<int>(expected.find('a'))));
    EXPECT_TRUE(Editor().ListView.Selected(static_cast<int>(expected.find('c'))));
    EXPECT_EQ(Editor().ListView.SelectedCount(), 2);
    EXPECT_TRUE(module.show.ShowChanged);
}

TEST_F(SlideLoadOrderTest, MixingIsRefusedInItsWordsAndLeavesTwoSlides) {
    ExpectTold("There is nothing in the View List, unable to randomize files...");
    Run(Editor().Menu2.mnuRandomizeOrder);
    PutSlides("a");
    ExpectTold("There is only one item in the View List, unable to randomize files...");
    Run(Editor().Menu2.mnuRandomizeOrder);
    PutSlides("ab");
    Run(Editor().Menu2.mnuRandomizeOrder);
    EXPECT_EQ(Letters(), "ab");
    EXPECT_FALSE(module.show.ShowChanged);
}

}  // namespace
}  // namespace tavrix::test
