#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/forms/Application.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"
#include "platform/forms/ListControl.h"
#include "platform/forms/Menu.h"
#include "platform/forms/OptionButton.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/ScrollBar.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/Timer.h"

namespace tavrix::conformance {

/// What the user does with the next message box.
struct BoxScript {
    forms::BoxRequest expected;
    forms::Answer reply = forms::Answer::Ok;
    bool byEscape = false;  ///< with the Escape key; `reply` is what that has to give
    bool pressHelp = false;
    forms::Milliseconds openFor{0};
    /// Keys with their modifiers that are pressed one right after the other, as long as the box is there; `reply` is what
    /// they have to give. For window systems.
    std::vector<std::pair<int, int>> keys{};
};

/// What the user does with the next input box.
struct InputScript {
    forms::InputRequest expected;
    std::optional<std::string> reply;  ///< nothing: Cancel
    bool byEscape = false;             ///< with the Escape key; `reply` is nothing then
};

/// What of a text field is selected, in characters.
struct Selection {
    int start = 0;
    int length = 0;
    friend bool operator==(const Selection&, const Selection&) = default;
};

/// A pointer, and for one that the program draws what it points with, in device pixels.
struct ShownPointer {
    forms::MousePointer kind = forms::MousePointer::Default;
    int hotX = 0;
    int hotY = 0;
    friend bool operator==(const ShownPointer&, const ShownPointer&) = default;
};

/// The user of one backend: does things from outside and sees what is shown.
class Driver {
  public:
    virtual ~Driver() = default;

    virtual forms::Toolkit& GetToolkit() = 0;

    // The user's doings reach the logic at the latest with the next Settle().
    virtual void UserClicks(forms::CommandButton& button) = 0;
    /// A key goes down and up in the window. Codes: Escape, Return, Space, arrows, digits, letters.
    virtual void UserKey(forms::Form& form, int keyCode, int shift) = 0;
    /// Gives the window this outer size in device pixels.
    virtual void UserResizes(forms::Form& form, int width, int height) = 0;
    virtual void UserScrolls(forms::ScrollBar& bar, int value) = 0;
    virtual void UserChooses(forms::Menu& entry) = 0;
    virtual void UserCloses(forms::Form& form) = 0;
    /// Presses a mouse button at a place of the box and releases it at another, in device pixels.
    virtual void UserDrags(forms::PictureBox& box, int button, PixelRect fromTo) = 0;
    /// Moves the pointer, without a button, to a place of a control or of the form's background, in device pixels.
    virtual void UserPoints(forms::Control& control, int x, int y) = 0;
    virtual void UserPoints(forms::Form& form, int x, int y) = 0;
    virtual void UserClicksOn(forms::Image& image, int button) = 0;
    /// Moves the keyboard to a control, as by Tab.
    virtual void UserFocuses(forms::Control& control) = 0;
    virtual void UserTicks(forms::CheckBox& box) = 0;
    virtual void UserPicks(forms::OptionButton& option) = 0;
    /// Enters characters in the place of what is selected. The field has the focus.
    virtual void UserTypes(forms::TextBox& field, const std::string& text) = 0;
    /// Puts a text from elsewhere in the place of what is selected. The field has the focus.
    virtual void UserPastes(forms::TextBox& field, const std::string& text) = 0;
    /// Selects by keys. The field has the focus.
    virtual void UserSelects(forms::TextBox& field, Selection selection) = 0;
    virtual void UserChoosesRow(forms::RowControl& list, int row, int button = forms::MouseButton::Left) = 0;
    virtual void UserDoubleClicks(forms::RowControl& list, int row) = 0;
    // The mouse over a list, in its single moves; `shift` is held meanwhile. A row that is not there is a place below the
    // last one. Between a press and its release the left button is held.
    virtual void UserPressesRow(forms::ListControl& list, int row, int button, int shift) = 0;
    virtual void UserMovesToRow(forms::ListControl& list, int row, int shift) = 0;
    virtual void UserReleasesRow(forms::ListControl& list, int row, int button, int shift) = 0;
    /// While a control is dragged: moves the pointer, with the button held, over the middle of a control or of the row
    /// of a list, or over the form's background; or lets go there.
    virtual void UserDragsOver(forms::Control& target, int row = -1) = 0;
    virtual void UserDragsOver(forms::Form& form) = 0;
    virtual void UserLetsGo() = 0;
    /// Escape, with the button held, and then the release.
    virtual void UserGivesUpDrag() = 0;
    /// Enters characters over a list. It has the focus.
    virtual void UserTypesAhead(forms::ListControl& list, const std::string& text) = 0;
    virtual void UserScrollsTo(forms::ListControl& list, int row) = 0;
    /// Whether the control takes the files that are dragged over it; -1: not over a row.
    virtual bool UserDragsFilesOver(forms::Control& control, int row = -1) = 0;
    /// The files leave the control again.
    virtual void UserDragsFilesAway(forms::Control& control) = 0;
    virtual void UserDrops(forms::Control& control, const std::vector<std::string>& hostPaths) = 0;
    virtual void ScriptNextBox(const BoxScript& script) = 0;
    virtual void ScriptNextInput(const InputScript& script) = 0;
    /// Chooses an entry of the next popup menu, or closes it by Escape (null).
    virtual void ScriptNextPopup(forms::Menu* entry) = 0;
    /// Does something while a loop runs messages.
    virtual void Soon(std::function<void()> action) = 0;

    /// Lets this much time pass while messages run.
    virtual void Pass(forms::Milliseconds time) = 0;
    /// Runs all messages that are under way.
    virtual void Settle() = 0;

    [[nodiscard]] virtual std::string ShownTitle(forms::Form& form) = 0;
    [[nodiscard]] virtual bool IsShown(forms::Form& form) = 0;
    /// The inside of a window on the screen, in device pixels.
    [[nodiscard]] virtual PixelRect ShownPlace(forms::Form& form) = 0;
    /// Whether the pointer is hidden over the window.
    [[nodiscard]] virtual bool HidesPointer(forms::Form& form) = 0;
    /// Whether the window takes what the user does there.
    [[nodiscard]] virtual bool IsUsable(forms::Form& form) = 0;
    [[nodiscard]] virtual std::string ShownText(forms::Control& control) = 0;
    [[nodiscard]] virtual std::string ShownName(forms::Control& control) = 0;
    [[nodiscard]] virtual std::string ShownToolTip(forms::Control& control) = 0;
    [[nodiscard]] virtual bool ShownEnabled(forms::Control& control) = 0;
    [[nodiscard]] virtual bool ShownVisible(forms::Control& control) = 0;
    [[nodiscard]] virtual int ShownValue(forms::ScrollBar& bar) = 0;
    [[nodiscard]] virtual bool ShownChecked(forms::CheckBox& box) = 0;
    [[nodiscard]] virtual bool ShownChosen(forms::OptionButton& option) = 0;
    /// Whether Tab stops at it.
    [[nodiscard]] virtual bool ShownTabStop(forms::OptionButton& option) = 0;
    [[nodiscard]] virtual Selection ShownSelection(forms::TextBox& field) = 0;
    [[nodiscard]] virtual std::vector<std::string> ShownRows(forms::RowControl& list) = 0;
    /// The current row; -1 for none.
    [[nodiscard]] virtual int ShownCurrent(forms::RowControl& list) = 0;
    [[nodiscard]] virtual std::vector<int> ShownSelected(forms::ListControl& list) = 0;
    /// The first row that can be seen.
    [[nodiscard]] virtual int ShownTop(forms::ListControl& list) = 0;
    /// The row before which a mark stands.
    [[nodiscard]] virtual std::optional<int> ShownInsertionMark(forms::ListControl& list) = 0;
    [[nodiscard]] virtual forms::MenuItemState Shown(forms::Menu& entry) = 0;
    /// A pixel of the visible part of a picture box or an image, in device pixels, without its alpha.
    [[nodiscard]] virtual Pixel ShownPixel(forms::Control& canvas, int x, int y) = 0;
    /// Makes all texts larger, or as they were, in the desktop's settings.
    virtual void UserChangesFont(bool larger) = 0;
    /// Where a control is in the inside of its window, in device pixels.
    [[nodiscard]] virtual PixelRect ShownBounds(forms::Control& control) = 0;
    /// The pointer over a control, as far as that says so itself.
    [[nodiscard]] virtual ShownPointer PointerOver(forms::Control& control) = 0;
    /// The text over the picture of a box, as a screen reader reads it; its lines are parted by line feeds.
    [[nodiscard]] virtual std::string ShownPrinted(forms::PictureBox& box) = 0;
    /// A pixel of a label beside its text, in device pixels, without its alpha.
    [[nodiscard]] virtual Pixel ShownGround(forms::Label& label, int x, int y) = 0;
    /// Everything that did not go as scripted.
    [[nodiscard]] virtual std::vector<std::string> Failures() = 0;
};

/// The driver of the backend that this program is linked for.
[[nodiscard]] std::unique_ptr<Driver> MakeDriver();

}  // namespace tavrix::conformance
