#include "backends/qt/peers/InputMap.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "backends/qt/x11/LatinKeys.h"

namespace tavrix::qt {

using namespace forms;

namespace {

/// Keys whose code does not depend on the keypad.
constexpr std::array<std::pair<int, int>, 54> Keys{{
    {Qt::Key_Backspace, KeyCode::Back},
    {Qt::Key_Tab, KeyCode::Tab},
    {Qt::Key_Backtab, KeyCode::Tab},
    {Qt::Key_Clear, 12},
    {Qt::Key_Return, KeyCode::Return},
    {Qt::Key_Enter, KeyCode::Return},
    {Qt::Key_Shift, KeyCode::Shift},
    {Qt::Key_Control, KeyCode::Control},
    {Qt::Key_Alt, KeyCode::Menu},
    {Qt::Key_AltGr, KeyCode::Menu},
    {Qt::Key_Super_L, KeyCode::LeftSuper},
    {Qt::Key_Super_R, KeyCode::RightSuper},
    {Qt::Key_Meta, KeyCode::LeftSuper},
    {Qt::Key_Pause, KeyCode::Pause},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, KeyCode::Escape},
    {Qt::Key_Space, KeyCode::Space},
    {Qt::Key_PageUp, KeyCode::PageUp},
    {Qt::Key_PageDown, KeyCode::PageDown},
    {Qt::Key_End, KeyCode::End},
    {Qt::Key_Home, KeyCode::Home},
    {Qt::Key_Left, KeyCode::Left},
    {Qt::Key_Up, KeyCode::Up},
    {Qt::Key_Right, KeyCode::Right},
    {Qt::Key_Down, KeyCode::Down},
    {Qt::Key_Print, 44},
    {Qt::Key_SysReq, 44},
    {Qt::Key_Insert, KeyCode::Insert},
    {Qt::Key_Delete, KeyCode::Delete},
    {Qt::Key_Menu, 93},
    {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
    {Qt::Key_Semicolon, 186},
    {Qt::Key_Colon, 186},
    {Qt::Key_Equal, KeyCode::Equals},
    {Qt::Key_Plus, KeyCode::Equals},
    {Qt::Key_Comma, 188},
    {Qt::Key_Less, 188},
    {Qt::Key_Minus, KeyCode::Minus},
    {Qt::Key_Underscore, KeyCode::Minus},
    {Qt::Key_Period, 190},
    {Qt::Key_Greater, 190},
    {Qt::Key_Slash, 191},
    {Qt::Key_Question, 191},
    {Qt::Key_QuoteLeft, KeyCode::Tilde},
    {Qt::Key_AsciiTilde, KeyCode::Tilde},
    {Qt::Key_BracketLeft, KeyCode::LeftBracket},
    {Qt::Key_BraceLeft, KeyCode::LeftBracket},
    {Qt::Key_Backslash, 220},
    {Qt::Key_Bar, 220},
    {Qt::Key_BracketRight, KeyCode::RightBracket},
    {Qt::Key_BraceRight, KeyCode::RightBracket},
    {Qt::Key_Apostrophe, 222},
    {Qt::Key_QuoteDbl, 222},
}};

/// What the top row gives with Shift, from the key 1 on, where nothing tells which key it was.
constexpr std::array<int, 10> ShiftedDigits{
    Qt::Key_Exclam,      Qt::Key_At,        Qt::Key_NumberSign, Qt::Key_Dollar,    Qt::Key_Percent,
    Qt::Key_AsciiCircum, Qt::Key_Ampersand, Qt::Key_Asterisk,   Qt::Key_ParenLeft, Qt::Key_ParenRight};

int KeypadCode(int key) {
    if (key >= Qt::Key_0 && key <= Qt::Key_9) return KeyCode::Numpad0 + key - Qt::Key_0;
    switch (key) {
        case Qt::Key_Asterisk:
            return 106;
        case Qt::Key_Plus:
            return KeyCode::Add;
        case Qt::Key_Minus:
            return KeyCode::Subtract;
        case Qt::Key_Period:
        case Qt::Key_Comma:
            return 110;
        case Qt::Key_Slash:
            return 111;
        default:
            return 0;
    }
}

/// The digit of the top row on this place of the keyboard (1 to 10 for 1 to 0), or 0. These codes are the
/// same under X11 and Wayland, whatever the layout prints on the keys.
int TopRowPlace(const QKeyEvent& event) {
    constexpr quint32 First = 10;
    const quint32 code = event.nativeScanCode();
    return code >= First && code < First + 10 ? static_cast<int>(code - First) + 1 : 0;
}

int TableCode(int key) {
    const auto* const found = std::ranges::find(Keys, key, &std::pair<int, int>::first);
    return found != Keys.end() ? found->second : 0;
}

/// What the keys of the typewriter rows print on a common Latin keyboard, by their places: those of a row follow each
/// other. A blank: another kind of key.
char LatinAtPlace(quint32 scanCode) {
    constexpr quint32 First = 24;
    constexpr std::string_view Printed = "QWERTYUIOP[]  ASDFGHJKL;'` \\ZXCVBNM,./";
    if (scanCode < First || scanCode - First >= Printed.size()) return 0;
    const char printed = Printed[scanCode - First];
    return printed != ' ' ? printed : '\0';
}

/// Whether a key writes another script than Latin.
bool IsForeign(int key) {
    if (key <= 0x7F || key >= Qt::Key_Escape) return false;
    const QChar::Script script = QChar::script(static_cast<char32_t>(key));
    return script != QChar::Script_Latin && script != QChar::Script_Common &&
           script != QChar::Script_Inherited && script != QChar::Script_Unknown;
}

/// The code that a key of another script has where the same keyboard is used with a Latin layout.
int LatinCode(const QKeyEvent& event) {
    if (!IsForeign(event.key())) return 0;
    char latin = x11::LatinOfKey(event.nativeScanCode());
    if (latin == 0) latin = LatinAtPlace(event.nativeScanCode());
    if (latin >= 'a' && latin <= 'z') return latin - 'a' + 'A';
    if ((latin >= 'A' && latin <= 'Z') || (latin >= '0' && latin <= '9')) return latin;
    return TableCode(latin);
}

}  // namespace

int VirtualKeyCode(const QKeyEvent& event) {
    const int key = event.key();
    if (event.modifiers().testFlag(Qt::KeypadModifier)) {
        if (const int code = KeypadCode(key); code != 0) return code;
    }
    if (key >= Qt::Key_0 && key <= Qt::Key_9) return key;
    if (key >= Qt::Key_A && key <= Qt::Key_Z) return key;
    if (const int place = TopRowPlace(event); place != 0) return KeyCode::Digit0 + place % 10;
    if (event.nativeScanCode() == 0) {
        const auto* const shifted = std::ranges::find(ShiftedDigits, key);
        if (shifted != ShiftedDigits.end()) {
            return KeyCode::Digit0 + static_cast<int>(shifted - ShiftedDigits.begin() + 1) % 10;
        }
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return KeyCode::F1 + key - Qt::Key_F1;
    if (const int code = TableCode(key); code != 0) return code;
    const int code = LatinCode(event);
    return code != 0 ? code : KeyCode::Other;
}

int ShiftMaskOf(Qt::KeyboardModifiers modifiers) {
    int mask = ShiftMask::None;
    if (modifiers.testFlag(Qt::ShiftModifier)) mask |= ShiftMask::Shift;
    if (modifiers.testFlag(Qt::ControlModifier)) mask |= ShiftMask::Ctrl;
    if (modifiers.testFlag(Qt::AltModifier)) mask |= ShiftMask::Alt;
    return mask;
}

int ShiftMaskOf(const QKeyEvent& event) {
    const int mask = ShiftMaskOf(event.modifiers());
    const int self = event.key() == Qt::Key_Shift     ? ShiftMask::Shift
                     : event.key() == Qt::Key_Control ? ShiftMask::Ctrl
                     : event.key() == Qt::Key_Alt     ? ShiftMask::Alt
                                                      : 0;
    return event.type() == QEvent::KeyRelease ? mask & ~self : mask | self;
}

int ButtonOf(Qt::MouseButton button) {
    switch (button) {
        case Qt::LeftButton:
            return MouseButton::Left;
        case Qt::RightButton:
            return MouseButton::Right;
        case Qt::MiddleButton:
            return MouseButton::Middle;
        default:
            return 0;
    }
}

int ButtonMaskOf(Qt::MouseButtons buttons) {
    int mask = 0;
    if (buttons.testFlag(Qt::LeftButton)) mask |= MouseButton::Left;
    if (buttons.testFlag(Qt::RightButton)) mask |= MouseButton::Right;
    if (buttons.testFlag(Qt::MiddleButton)) mask |= MouseButton::Middle;
    return mask;
}

}  // namespace tavrix::qt
