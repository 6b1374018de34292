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

/// Virtual key codes. Letters and the digits of the top row are their ASCII codes.
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
inline constexpr int Numpad0 = 96;
inline constexpr int Add = 107;
inline constexpr int Subtract = 109;
inline constexpr int F1 = 112;
inline constexpr int F12 = 123;
inline constexpr int Equals = 187;
inline constexpr int Minus = 189;
inline constexpr int Tilde = 192;
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
};

/// The user moved a scroll bar: while the thumb is dragged, or for good.
struct ScrollEvent {
    int value = 0;
    bool tracking = false;
};

/// The user made a row of a list the current one, or pressed the one that is current already.
struct RowEvent {
    int row = -1;
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
};

using Event = std::variant<ClickEvent, KeyEvent, MouseEvent, ScrollEvent, RowEvent, DoubleClickEvent,
                           TextEvent, CheckEvent, CharacterEvent, FocusEvent, PlacementEvent, ActivateEvent,
                           CloseEvent, DropEvent, FontEvent>;

/// The one door through which the user's doings arrive.
class EventSink {
  public:
    virtual void Deliver(const Event& event) = 0;

  protected:
    ~EventSink() = default;
};

}  // namespace tavrix::forms
