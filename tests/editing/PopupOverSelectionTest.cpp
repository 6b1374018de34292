// What the menu of the right mouse button starts over a selection, whose outline the press has wiped.

#include "SelectionCommandTest.h"
#include "editing/resizing/frmImageSize.h"
#include "editing/turning/frmRotateImg.h"

namespace tavrix::test {
namespace {

using forms::BoxIcon;
using forms::MouseAction;
namespace MouseButton = forms::MouseButton;
namespace ShiftMask = forms::ShiftMask;

class PopupOverSelection : public SelectionCommandTest {
  protected:
    static constexpr Drag Selected{5, 6, 30, 20};

    /// A picture with a selection on it.
    void StartSelected() {
        StartWithImage();
        Select(Selected);
        ExpectShown(Outlined(Image(), Selected));
    }
    /// The user opens the menu by the right button on the picture, and chooses an entry.
    void ChooseByRightButton(const forms::Menu& entry) {
        toolkit.ChooseFromPopup(entry.Caption);
        RightClick();
    }
    void RightClick() {
        const std::size_t before = toolkit.Popups().size();
        EXPECT_FALSE(Mouse(View().MainImage, MouseAction::Down, MouseButton::Right, ShiftMask::None, 9, 9));
        EXPECT_FALSE(Mouse(View().MainImage, MouseAction::Up, MouseButton::Right, ShiftMask::None, 9, 9));
        EXPECT_EQ(toolkit.Popups().size(), before + 1);
        EXPECT_FALSE(View().selection.SelectionShown) << "a plain press drops the selection";
        ExpectIdle();
    }
    /// Nothing stands for an outline any more: neither a click nor an edit draws one.
    void ExpectNoneLeft(const Surface& shown) {
        Click();
        ExpectShown(shown);
        Choose(Menus().mnuFlipHorizontal);
        ExpectEdited(Mirrored(shown, true));
    }
};

class EachEditByPopup : public PopupOverSelection, public ::testing::WithParamInterface<FixedEdit> {};

INSTANTIATE_TEST_SUITE_P(Edits, EachEditByPopup, ::testing::ValuesIn(FixedEdits),
                         [](const auto& edit) { return edit.param.name; });

TEST_P(EachEditByPopup, DoesNotDrawTheOutlineAgain) {
    StartSelected();
    ChooseByRightButton(EntryOf(GetParam()));
    const Surface edited = GetParam().expected(Image());
    ExpectEdited(edited);
    ExpectUndo(GetParam().undoCaption, true);
    ExpectNoneLeft(edited);
}

TEST_F(PopupOverSelection, AnEditByADialogDoesNotEither) {
    StartSelected();
    toolkit.OnModal("frmImageSize", [this] {
        auto& dialog = *app.Loaded<frmImageSize>();
        ExpectShown(Image());
        dialog.CheckAspect.Value = false;
        dialog.txtWidth.Text = "80";
        dialog.txtHeight.Text = "60";
        dialog.CmdSize.Deliver(forms::ClickEvent{});
    });
    // Two entries have the caption but for their keys.
    ChooseByRightButton(Menus().mnuEditImageSize);
    ExpectEdited(Scaled(Image(), 80, 60));
}

TEST_F(PopupOverSelection, ADialogThatIsCanceledLeavesThePictureAsItWas) {
    StartSelected();
    toolkit.OnModal("frmRotateImg", [this] {
        auto& dialog = *app.Loaded<frmRotateImg>();
        dialog.CmdCancel.Deliver(forms::ClickEvent{});
    });
    ChooseByRightButton(Menus().mnuArbitrary);
    ExpectShown(Image());
    ExpectNoneLeft(Image());
}

TEST_F(PopupOverSelection, ClosedWithoutAChoiceItLeavesThePictureAsItWas) {
    StartSelected();
    RightClick();
    ExpectShown(Image());
    ExpectNoneLeft(Image());
}

TEST_F(PopupOverSelection, CropTakesTheSelectedArea) {
    StartSelected();
    ChooseByRightButton(Menus().mnuCrop);
    ExpectEdited(Part(Image(), 6, 7, 23, 12));
    ExpectNoneLeft(Part(Image(), 6, 7, 23, 12));
}

TEST_F(PopupOverSelection, CopyTakesTheSelectedArea) {
    StartSelected();
    ChooseByRightButton(Menus().mnuCopy);
    EXPECT_TRUE(SamePixels(Copied(), Scaled(Part(Image(), 6, 7, 22, 11), 23, 12)));
    ExpectShown(Image());
    ExpectNoneLeft(Image());
}

TEST_F(PopupOverSelection, PasteFillsTheSelectedArea) {
    StartSelected();
    const Surface white = Cleared(60, 60);
    PutOnClipboard(white);
    Expect({.text = "Stretch clipboard data to fit the selected area?",
            .icon = BoxIcon::Question,
            .buttons = forms::BoxButtons::YesNoCancel,
            .reply = forms::Answer::Yes});
    ChooseByRightButton(Menus().mnuPaste);
    const Surface filled = With(Image(), Part(white, 0, 0, 24, 13), 6, 7);
    ExpectEdited(filled);
    ExpectNoneLeft(filled);
}

TEST_F(PopupOverSelection, APasteThatIsCanceledLeavesThePictureAsItWas) {
    StartSelected();
    PutOnClipboard(Different(10, 10));
    Expect({.text = "Stretch clipboard data to fit the selected area?",
            .icon = BoxIcon::Question,
            .buttons = forms::BoxButtons::YesNoCancel,
            .reply = forms::Answer::Cancel});
    ChooseByRightButton(Menus().mnuPaste);
    ExpectShown(Image());
    ExpectNoneLeft(Image());
}

TEST_F(PopupOverSelection, UndoAndReloadDrawNothing) {
    StartWithImage();
    Choose(Menus().mnuFlipVertically);
    Select(Selected);
    ChooseByRightButton(Menus().mnuUndo);
    ExpectEdited(Image());
    Select(Selected);
    ChooseByRightButton(Menus().mnuReloadImage);
    ExpectShown(Image());
    ExpectNoneLeft(Image());
}

TEST_F(PopupOverSelection, ASelectionThatIsDrawnWhileTheCommandRunsGoesWithTheMenu) {
    StartSelected();
    PutOnClipboard(Different(10, 10));
    // Messages run in a copy, and the picture takes the mouse meanwhile.
    bool drawn = false;
    WhenMessagesRun([&] {
        if (drawn || !module.Busy()) return;
        drawn = true;
        Select({1, 2, 12, 14});
        ExpectShown(Outlined(Image(), {1, 2, 12, 14}));
    });
    ChooseByRightButton(Menus().mnuCopy);
    EXPECT_TRUE(drawn);
    ExpectShown(Image());
    ExpectNoneLeft(Image());
}

TEST_F(PopupOverSelection, TheNextSelectionIsDrawnAndWipedAsEver) {
    StartSelected();
    RightClick();
    Select({2, 3, 20, 15});
    ExpectShown(Outlined(Image(), {2, 3, 20, 15}));
    Choose(Menus().mnuFlipVertically);
    ExpectEdited(Mirrored(Image(), false));
}

}  // namespace
}  // namespace tavrix::test
