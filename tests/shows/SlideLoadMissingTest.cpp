#include "shows/EditorTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;

class SlideLoadMissingTest : public EditorTest {
  protected:
    static constexpr const char* Select = "Tavrix - [Select Missing Slides]";
    static constexpr const char* Remove = "Tavrix - [Remove Missing Slides]";
    static constexpr const char* Question = "Check current slide show to see if all files still exist?";
    using Milliseconds = forms::Milliseconds;
    int answered = 0;
    void Lose(const std::string& letters) {
        for (const char letter : letters)
            platform.disks.Remove(Picture(letter));
    }
};

TEST_F(SlideLoadMissingTest, AnEmptyListHasNothingToCheck) {
    const std::string text =
        "There are no images in the current slide show, unable to check for missing files...";
    ExpectTold(text, Select);
    Run(Editor().Menu2.mnuSelectMissing);
    ExpectTold(text, Remove);
    Run(Editor().Menu2.mnuRemoveMissing);
}

TEST_F(SlideLoadMissingTest, NoChecksNothing) {
    PutSlides("abc");
    Lose("b");
    ExpectQuestion(Question, Answer::No, Select);
    Run(Editor().Menu2.mnuSelectMissing);
    ExpectQuestion(Question, Answer::No, Remove);
    Run(Editor().Menu2.mnuRemoveMissing);
    EXPECT_EQ(Letters(), "abc");
    EXPECT_EQ(Selected(Editor().ListView), Rows{});
}

TEST_F(SlideLoadMissingTest, WhereNoneIsMissingThatIsTold) {
    PutSlides("abc");
    SelectSlides({1});
    for (const char* title : {Select, Remove}) {
        ExpectQuestion(Question, Answer::Yes, title);
        ExpectTold("No missing slide show files were found...", title);
        Run(title == Select ? Editor().Menu2.mnuSelectMissing : Editor().Menu2.mnuRemoveMissing);
    }
    EXPECT_EQ(Selected(Editor().ListView), Rows{1});
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_FALSE(module.Busy());
}

TEST_F(SlideLoadMissingTest, MissingSlidesAreSelected) {
    PutSlides("abcde");
    Editor().ListView.ListIndex = 0;
    SelectSlides({0});
    Lose("b");
    ExpectQuestion(Question, Answer::Yes, Select);
    ExpectTold("One missing slide show file was found in the View List...", Select);
    Run(Editor().Menu2.mnuSelectMissing);
    EXPECT_EQ(Selected(Editor().ListView), Rows{1});
    Lose("e");
    ExpectQuestion(Question, Answer::Yes, Select);
    ExpectTold("2 missing slide show files were found in the View List...", Select);
    Run(Editor().Menu2.mnuSelectMissing);
    EXPECT_EQ(Selected(Editor().ListView), (Rows{1, 4}));
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), 0);
    EXPECT_EQ(Letters(), "abcde");
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(SlideLoadMissingTest, MissingSlidesAreRemovedWithTheirDescriptions) {
    PutSlides("abcde");
    Lose("a");
    ExpectQuestion(Question, Answer::Yes, Remove);
    ExpectTold("One missing slide show file was removed from the View List...", Remove);
    Run(Editor().Menu2.mnuRemoveMissing);
    EXPECT_EQ(Letters(), "bcde");
    Lose("ce");
    ExpectQuestion(Question, Answer::Yes, Remove);
    ExpectTold("2 missing slide show files were removed from the View List...", Remove);
    Run(Editor().Menu2.mnuRemoveMissing);
    EXPECT_EQ(Letters(), "bd");
    EXPECT_EQ(Described(), "++");
    EXPECT_EQ(CountText(), "2 slides (images) total...");
    EXPECT_TRUE(module.show.ShowChanged);
}

TEST_F(SlideLoadMissingTest, ARelativeSlideIsLookedForInTheFolderOfTheShow) {
    PutSlides("ab", "C:\\Pictures\\s.tvs");
    module.show.SlideFiles.Set(0, "a.bmp");
    module.show.SlideFiles.Set(1, "gone.bmp");
    module.show.SlideDescriptions.Set(1, "");
    Editor().PathsChanged();
    platform.files.ChangeFolder("C:\\Temp");
    ExpectQuestion(Question, Answer::Yes, Select);
    ExpectTold("One missing slide show file was found in the View List...", Select);
    Run(Editor().Menu2.mnuSelectMissing);
    EXPECT_EQ(Selected(Editor().ListView), Rows{1});
}

TEST_F(SlideLoadMissingTest, TheWindowAnswersWhileSlidesAreLookedFor) {
    PutSlides("abcde");
    const auto slowly = [this] {
        platform.faults.Clear();
        platform.faults.AtNth(headless::Service::Files, 2, [this] {
            toolkit.Advance(Milliseconds(60));
            // Nothing that the user does then changes the list.
            toolkit.AtYield(1, [this] {
                ++answered;
                EXPECT_TRUE(module.Busy());
                SelectSlides({0});
                Press(Editor().CmdRemove);
                Press(Editor().CmdCancel);
                Editor().Deliver(forms::CloseEvent{});
            });
        });
    };
    ExpectQuestion(Question, Answer::Yes, Select);
    ExpectTold("No missing slide show files were found...", Select);
    slowly();
    Run(Editor().Menu2.mnuSelectMissing);
    EXPECT_EQ(answered, 1);
    EXPECT_EQ(Letters(), "abcde");
    EXPECT_TRUE(IsOpen());
}

TEST_F(SlideLoadMissingTest, ManyAreCountedInGroups) {
    std::vector<std::string> many(1234, "C:\\Gone\\x.bmp");
    module.show.InsertSlides(0, many);
    Editor().ShowLoaded(SlideLoadFrm::Untitled);
    ExpectQuestion(Question, Answer::Yes, Select);
    ExpectTold("1,234 missing slide show files were found in the View List...", Select);
    Run(Editor().Menu2.mnuSelectMissing);
    EXPECT_EQ(Editor().ListView.SelectedCount(), 1234);
}

}  // namespace
}  // namespace tavrix::test
