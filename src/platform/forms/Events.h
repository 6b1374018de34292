#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "imaging/graphics/Surface.h"

namespace tavrix::forms {

/// The shift keys, as a mask. Handlers compare it exactly.
namespace ShiftMask {
inline constexpr int None = 0;
inline constexpr int Shift = 1;
inline constexpr int Ctrl = 2;
inline constexpr int Alt = 4;
}  // namespace ShiftMask

namespace MouseButton {
inline constexpr int Left = 1;
inline constexpr int Right = 2;
inline constexpr int Middle = 4;
}  // namespace MouseButton

/// Virtual key codes. Letters and the digits of the top row are their ASCII codes. A key of another script has the code
/// that the same key has on a Latin layout of the keyboard.
namespace KeyCode {
inline constexpr int Back = 8;
inline constexpr int Tab = 9;
inline constexpr int Return = 13;
inline constexpr int Shift = 16;
inline constexpr int Control = 17;
inline constexpr int Menu = 18;
inline constexpr int Pause = 19;
inline constexpr int Escape = 27;
inline constexpr int Space = 32;
inline constexpr int PageUp = 33;
inline constexpr int PageDown = 34;
inline constexpr int End = 35;
inline constexpr int Home = 36;
inline constexpr int Left = 37;
inline constexpr int Up = 38;
inline constexpr int Right = 39;
inline constexpr int Down = 40;
inline constexpr int Insert = 45;
inline constexpr int Delete = 46;
inline constexpr int Digit0 = 48;
inline constexpr int LeftSuper = 91;
inline constexpr int RightSuper = 92;
inline constexpr int Apps = 93;  ///< the menu key
inline constexpr int Numpad0 = 96;
inline constexpr int Add = 107;
inline constexpr int Subtract = 109;
inline constexpr int F1 = 112;
inline constexpr int F10 = 121;
inline constexpr int F12 = 123;
inline constexpr int Equals = 187;
inline constexpr int Minus = 189;
inline constexpr int Tilde = 192;
inline constexpr int LeftBracket = 219;
inline constexpr int RightBracket = 221;
inline constexpr int Other = 255;  ///< a key that has no code of its own; every press reaches the form
}  // namespace KeyCode

enum class MousePointer : std::uint8_t {
    Default,
    Arrow,
    Hourglass,
    ArrowHourglass,
    Hand,
    Hidden,
    Custom  ///< the picture of MouseIcon; without one as Default
};
enum class WindowState : std::uint8_t { Normal, Minimized, Maximized };

/// A press of a button, a menu entry, a picture.
struct ClickEvent {};

/// A key goes down or up. A handler that sets `handled` keeps it from the control and from the toolkit.
struct KeyEvent {
    bool down = true;
    int keyCode = 0;
    int shift = 0;
    bool* handled = nullptr;
};

enum class MouseAction : std::uint8_t { Down, Move, Up };

/// X and Y in device pixels of the control, also negative and beyond its size while a button is held.
struct MouseEvent {
    MouseAction action = MouseAction::Down;
    int button = 0;  ///< the button of Down and Up; the mask of held buttons of Move
    int shift = 0;
    int x = 0;
    int y = 0;
    int row =
        -1;  ///< of a list: the row under the point; while the left button is held, the nearest one. -1: none
};

/// The user moved a scroll bar: while the thumb is dragged, or for good.
struct ScrollEvent {
    int value = 0;
    bool tracking = false;
};

/// The user chose a row, of a list by a click or what amounts to one. Screen readers also select rows of lists with
/// several selected ones, and take them out again, without making them the current one.
struct RowEvent {
    enum class How : std::uint8_t { Click, Select, Deselect };

    int row = -1;
    How how = How::Click;
};

/// A list has room for this many rows.
struct PageEvent {
    int rows = 1;
};

/// Two quick clicks on the current row.
struct DoubleClickEvent {};

/// The user changed a text, or what of it is selected. Positions count characters.
struct TextEvent {
    std::string text;
    int selectionStart = 0;
    int selectionLength = 0;
};

/// The user ticked a box, or cleared it.
struct CheckEvent {
    bool checked = true;
};

/// The user is about to enter a character into a text by the keyboard, or to take one away (Backspace). What is pasted
/// comes without. A handler that sets `discarded` keeps it from the text.
struct CharacterEvent {
    std::string character;
    bool* discarded = nullptr;
};

struct FocusEvent {
    bool gained = true;
};

/// The window system moved, resized, minimised or maximised a window. Outer rectangle in device pixels: the inner
/// size plus the toolkit's metrics.
struct PlacementEvent {
    PixelRect outer;
    WindowState state = WindowState::Normal;
};

/// Fonts or the desktop's style have changed: texts may need other sizes.
struct FontEvent {};

/// The window became the active one.
struct ActivateEvent {};

/// The user wants the window to close.
struct CloseEvent {};

/// Files were dropped, as drive paths. It is delivered after the drag was answered.
struct DropEvent {
    std::vector<std::string> files;
    int x = 0;
    int y = 0;
    int row = -1;  ///< of a list: the row under the pointer; -1: below the last one
};

enum class DragAction : std::uint8_t {
    Over,   ///< it is here now
    Leave,  ///< it is here no longer
    Drop,   ///< it is let go here; files come as a DropEvent instead
    Ended   ///< for the control that was dragged: it is over, dropped or not
};

/// Something is dragged over a control: another control, or files of another program.
struct DragEvent {
    DragAction action = DragAction::Over;
    bool files = false;
    int x = 0;  ///< device pixels of the control
    int y = 0;
    int row = -1;            ///< as in a DropEvent
    bool* wanted = nullptr;  ///< Over: set where a drop here would be taken
};

using Event = std::variant<ClickEvent, KeyEvent, MouseEvent, ScrollEvent, RowEvent, DoubleClickEvent,
                           TextEvent, CheckEvent, CharacterEvent, FocusEvent, PlacementEvent, ActivateEvent,
                           CloseEvent, DropEvent, DragEvent, PageEvent, FontEvent>;

/// The one door through which the user's doings arrive.
class EventSink {
  public:
    virtual void Deliver(const Event& event) = 0;

  protected:
    ~EventSink() = default;
};

}  // namespace tavrix::forms
