#include "shows/EditorTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
namespace ShiftMask = forms::ShiftMask;

class SlideLoadDragsTest : public EditorTest {
  protected:
    /// The user drags a row of a list and lets it go before a row of the View List; -1: below the last one.
    void DragTo(forms::ListControl& list, int row, int before, int shift = 0) {
        Hold(list, row, shift);
        Editor().ListView.Deliver(Drag(forms::DragAction::Over, before));
        Editor().ListView.Deliver(Drag(forms::DragAction::Drop, before));
        list.Deliver(Drag(forms::DragAction::Ended, -1));
    }
    void Hold(forms::ListControl& list, int row, int shift = 0) {
        using forms::MouseAction;
        list.Deliver(forms::MouseEvent{MouseAction::Down, forms::MouseButton::Left, shift, 10, 10, row});
        list.Deliver(forms::MouseEvent{MouseAction::Move, forms::MouseButton::Left, shift, 40, 40, row});
    }
    static forms::DragEvent Drag(forms::DragAction action, int row, bool files = false) {
        forms::DragEvent drag;
        drag.action = action;
        drag.row = row;
        drag.files = files;
        return drag;
    }
    /// On the list or elsewhere in the window.
    void Drop(const Texts& files) { Editor().Deliver(forms::DropEvent{files, 5, 5, 0}); }
    std::optional<int> Mark() {
        return dynamic_cast<headless::HeadlessListPeer&>(*Editor().ListView.Peer()).insertionMark;
    }
    void PutShow(const std::string& path, const std::string& slide) {
        platform.disks.PutFile(
            path,
            "\"Tavrix Slide Show\"\r\n\"Version 1.5\"\r\n0\r\n\"\"\r\n0\r\n0\r\n7\r\n0\r\n0\r\n0\r\n0"
            "\r\n0\r\n\"" +
                slide + "\"\r\n\"about " + slide.substr(0, 1) + "\"\r\n");
    }
};

TEST_F(SlideLoadDragsTest, OneFileGoesInFrontOfTheRowBelowIt) {
    PutSlides("de");
    Editor().ListView.ListIndex = 0;
    DragTo(Editor().File1, 1, 1);
    EXPECT_EQ(Letters(), "dbe");
    EXPECT_EQ(Described(), "+-+");
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_EQ(CountText(), "3 slides (images) total...");
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), 0);
    DragTo(Editor().File1, 2, -1);
    EXPECT_EQ(Letters(), "dbec");
    DragTo(Editor().File1, 0, 0);
    EXPECT_EQ(Letters(), "adbec");
}

TEST_F(SlideLoadDragsTest, APlainDragFromASelectedRowTakesTheSelection) {
    PutSlides("e");
    SelectSources({0, 2});
    DragTo(Editor().File1, 2, 0);
    EXPECT_EQ(Letters(), "eac");
    EXPECT_EQ(Selected(Editor().File1), (Rows{0, 2}));
}

TEST_F(SlideLoadDragsTest, APlainDragFromAnotherRowTakesThatFile) {
    SelectSources({0, 2});
    DragTo(Editor().File1, 3, -1);
    EXPECT_EQ(Letters(), "d");
}

TEST_F(SlideLoadDragsTest, ShiftTakesOneCtrlTheSelectionAltAll) {
    SelectSources({0, 1, 2});
    DragTo(Editor().File1, 1, -1, ShiftMask::Shift);
    EXPECT_EQ(Letters(), "b");
    SelectSources({0, 2});
    DragTo(Editor().File1, 2, -1, ShiftMask::Ctrl);
    EXPECT_EQ(Letters(), "bac");
    DragTo(Editor().File1, 3, -1, ShiftMask::Alt);
    EXPECT_EQ(Letters(), "bacabcde");
}

TEST_F(SlideLoadDragsTest, AMarkShowsWhereOneFileGoes) {
    PutSlides("de");
    Hold(Editor().File1, 1);
    Editor().ListView.Deliver(Drag(forms::DragAction::Over, 1));
    EXPECT_EQ(Mark(), 1);
    Editor().ListView.Deliver(Drag(forms::DragAction::Leave, -1));
    EXPECT_EQ(Mark(), std::nullopt);
    Editor().File1.Deliver(Drag(forms::DragAction::Ended, -1));
    SelectSources({0, 2});
    Hold(Editor().File1, 2);
    Editor().ListView.Deliver(Drag(forms::DragAction::Over, 1));
    EXPECT_EQ(Mark(), std::nullopt) << "several go behind the current row";
}

TEST_F(SlideLoadDragsTest, FilesOfOtherProgramsGoToTheEndAndAreNotMarked) {
    PutSlides("abc");
    Hold(Editor().ListView, 1);
    Editor().ListView.Deliver(Drag(forms::DragAction::Over, 0));
    EXPECT_EQ(Mark(), 0);
    // Given up: the list hears no more of the drag.
    Editor().ListView.Deliver(Drag(forms::DragAction::Leave, -1));
    Editor().ListView.Deliver(Drag(forms::DragAction::Ended, -1));
    EXPECT_EQ(Mark(), std::nullopt);
    forms::DragEvent files = Drag(forms::DragAction::Over, 1, true);
    bool wanted = false;
    files.wanted = &wanted;
    Editor().ListView.Deliver(files);
    EXPECT_EQ(Mark(), std::nullopt);
    EXPECT_FALSE(wanted) << "the window takes them, not the list";
    Editor().Deliver(files);
    EXPECT_TRUE(wanted);
    EXPECT_EQ(Letters(), "abc");
}

TEST_F(SlideLoadDragsTest, ASlideIsDraggedToAnotherPlace) {
    PutSlides("abcde");
    DragTo(Editor().ListView, 3, 1);
    EXPECT_EQ(Letters(), "adbce");
    EXPECT_EQ(Described(), "+++++");
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), 1);
    EXPECT_EQ(Selected(Editor().ListView), Rows{1});
    EXPECT_TRUE(module.show.ShowChanged);
    DragTo(Editor().ListView, 0, -1);
    EXPECT_EQ(Letters(), "dbcea");
}

TEST_F(SlideLoadDragsTest, SelectedSlidesAreDraggedTogether) {
    PutSlides("abcde");
    SelectSlides({0, 3});
    DragTo(Editor().ListView, 3, 2);
    EXPECT_EQ(Letters(), "badce");
    EXPECT_EQ(Selected(Editor().ListView), (Rows{1, 2}));
    PutSlides("abcde");
    SelectSlides({0, 3});
    DragTo(Editor().ListView, 3, 0, ShiftMask::Shift);
    EXPECT_EQ(Letters(), "dabce");
    PutSlides("abcde");
    DragTo(Editor().ListView, 3, 0, ShiftMask::Alt);
    EXPECT_EQ(Letters(), "abcde");
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(SlideLoadDragsTest, ASlideThatIsDroppedOnItselfChangesNothing) {
    PutSlides("abc");
    DragTo(Editor().ListView, 1, 1);
    DragTo(Editor().ListView, 1, 2);
    EXPECT_EQ(Letters(), "abc");
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(SlideLoadDragsTest, OtherControlsTakeADropByDoingNothing) {
    PutSlides("ab");
    for (forms::Control* control : Editor().Controls()) {
        if (control == &Editor().ListView) continue;
        Hold(Editor().File1, 1);
        control->Deliver(Drag(forms::DragAction::Drop, 0));
        Editor().File1.Deliver(Drag(forms::DragAction::Ended, -1));
    }
    Hold(Editor().ListView, 1);
    Editor().Deliver(Drag(forms::DragAction::Drop, 0));
    EXPECT_EQ(Letters(), "ab");
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(SlideLoadDragsTest, NothingIsDraggedWhileAnotherOperationRuns) {
    PutSlides("ab");
    {
        const forms::BusyGuard busy(module.Screen());
        DragTo(Editor().File1, 1, 0);
        DragTo(Editor().ListView, 1, 0);
        Drop({Picture('c')});
    }
    EXPECT_EQ(Letters(), "ab");
}

TEST_F(SlideLoadDragsTest, DroppedImagesAreAppendedInTheirOrder) {
    PutSlides("ab");
    Editor().ListView.ListIndex = 0;
    Drop({Picture('e'), Picture('c')});
    EXPECT_EQ(Letters(), "abec");
    EXPECT_EQ(Described(), "++--");
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_EQ(CountText(), "4 slides (images) total...");
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), 0);
}

TEST_F(SlideLoadDragsTest, EachEndingOfAnImageIsTaken) {
    Texts files;
    for (const char* ending :
         {"gif", "CUR", "rle", "wmf", "jpeg", "ico", "emf", "JPG", "dib", "jpe", "jif", "bmp"})
        files.push_back("C:\\x." + std::string(ending));
    Drop(files);
    EXPECT_EQ(Editor().ListView.Texts(), files);
}

TEST_F(SlideLoadDragsTest, WhatHasToBeImportedIsRefusedByItsName) {
    ExpectTold(".PCX files must be imported into Tavrix before they can be used in Slide Shows...");
    Drop({"C:\\x.pcx"});
    EXPECT_EQ(Letters(), "");
    ExpectTold(".PCX files must be imported into Tavrix before they can be used in Slide Shows...");
    ExpectTold(".TGA files must be imported into Tavrix before they can be used in Slide Shows...");
    Drop({"C:\\x.tga", Picture('a'), "C:\\y.PCX", Picture('b'), "C:\\z.TGA"});
    EXPECT_EQ(Letters(), "ab");
}

TEST_F(SlideLoadDragsTest, WhereNothingIsAnImageThatIsTold) {
    const std::string text =
        "No valid image files were dropped, unable to add these items to the View List...";
    platform.disks.PutFolder("C:\\folder.bmp");
    ExpectTold(text);
    Drop({"C:\\x.txt", "C:\\folder.bmp", "C:\\dead.lnk"});
    ExpectTold(text);
    Drop({});
    EXPECT_FALSE(module.show.ShowChanged);
    Drop({"C:\\x.txt", Picture('a')});
    EXPECT_EQ(Letters(), "a");
}

TEST_F(SlideLoadDragsTest, ShortcutsAreFollowed) {
    platform.shell.links["C:\\to a.LNK"] = Picture('a');
    PutShow("C:\\Shows\\s.tvs", "b.bmp");
    platform.shell.links["C:\\to s.lnk"] = "C:\\Shows\\s.tvs";
    Drop({"C:\\to a.LNK"});
    EXPECT_EQ(Letters(), "a");
    module.show.ShowChanged = false;
    Drop({"C:\\to s.lnk"});
    EXPECT_EQ(Editor().ShowPath(), "C:\\Shows\\s.tvs");
    EXPECT_EQ(Letters(), "b");
}

TEST_F(SlideLoadDragsTest, ADroppedShowIsLoaded) {
    PutSlides("abc");
    PutShow("C:\\Shows\\s.tvs", "d.bmp");
    Editor().ListView.ListIndex = 1;
    Drop({"C:\\Shows\\s.tvs"});
    EXPECT_EQ(Letters(), "d");
    EXPECT_EQ(Described(), "+");
    EXPECT_EQ(Editor().ShowPath(), "C:\\Shows\\s.tvs");
    EXPECT_EQ(CountText(), "One slide (image) total...");
    EXPECT_EQ(module.config.SlideInterval, 7);
    EXPECT_EQ(module.config.RecentShows[0], "C:\\Shows\\s.tvs");
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), -1);
    EXPECT_FALSE(module.Busy());
}

TEST_F(SlideLoadDragsTest, ChangesAreAskedAboutOnce) {
    const std::string question = "The current slide show has changed.\r\n\r\nLoad slide show anyway?";
    PutSlides("abc");
    module.show.ShowChanged = true;
    PutShow("C:\\Shows\\s.tvs", "d.bmp");
    PutShow("C:\\Shows\\t.tvs", "e.bmp");
    ExpectQuestion(question, Answer::No);
    Drop({"C:\\Shows\\s.tvs", Picture('d'), "C:\\Shows\\t.tvs"});
    EXPECT_EQ(Letters(), "abcd");
    EXPECT_EQ(Editor().ShowPath(), "Untitled.tvs");
    ExpectQuestion(question, Answer::No);
    Drop({"C:\\Shows\\s.tvs"});
    EXPECT_EQ(Letters(), "abcd");
    ExpectQuestion(question, Answer::Yes);
    Drop({Picture('a'), "C:\\Shows\\s.tvs", Picture('b'), "C:\\Shows\\t.tvs", Picture('c')});
    EXPECT_EQ(Letters(), "ec");
    EXPECT_EQ(Editor().ShowPath(), "C:\\Shows\\t.tvs");
    EXPECT_TRUE(module.show.ShowChanged);
}

TEST_F(SlideLoadDragsTest, AShowThatCannotBeReadIsToldOf) {
    PutSlides("abc");
    platform.disks.PutFile("C:\\Shows\\bad.tvs", "nothing");
    Expect({.text = "The selected file is not a valid Tavrix Slide Show file...\r\n\r\nFilenames with .TVS "
                    "in the last "
                    "4 positions are normally associated with Tavrix files.",
            .icon = forms::BoxIcon::Exclamation,
            .systemModal = true});
    Drop({"C:\\Shows\\bad.tvs"});
    EXPECT_EQ(Letters(), "");
    EXPECT_FALSE(module.Busy());
}

TEST_F(SlideLoadDragsTest, ADropBesideTheListCountsToo) {
    Editor().Deliver(forms::DropEvent{{Picture('c')}, 5, 5});
    EXPECT_EQ(Letters(), "c");
}

}  // namespace
}  // namespace tavrix::test
