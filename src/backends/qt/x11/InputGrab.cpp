#include "backends/qt/x11/InputGrab.h"

#include <QCoreApplication>
#include <thread>
#include <utility>

#include "backends/qt/x11/X11Connection.h"

namespace tavrix::qt::x11 {
namespace {

constexpr std::uint16_t PointerEvents = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                        XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_ENTER_WINDOW |
                                        XCB_EVENT_MASK_LEAVE_WINDOW;

bool GrabKeyboard(xcb_connection_t* connection, xcb_window_t window) {
    const auto cookie =
        xcb_grab_keyboard(connection, 1, window, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const Reply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(connection, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

bool GrabPointer(xcb_connection_t* connection, xcb_window_t window) {
    const auto cookie = xcb_grab_pointer(connection, 1, window, PointerEvents, XCB_GRAB_MODE_ASYNC,
                                         XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    const Reply<xcb_grab_pointer_reply_t> reply(xcb_grab_pointer_reply(connection, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

}  // namespace

InputGrab::InputGrab(Calls calls) : calls_(std::move(calls)) {
    xcb_connection_t* connection = QtConnection();
    if (connection == nullptr) return;
    window_ = xcb_generate_id(connection);
    const std::uint32_t unmanaged = 1;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window_, RootOf(connection), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                      &unmanaged);
    xcb_map_window(connection, window_);
    QCoreApplication::instance()->installNativeEventFilter(this);
}

InputGrab::~InputGrab() {
    Release();
    if (window_ == XCB_WINDOW_NONE) return;
    QCoreApplication::instance()->removeNativeEventFilter(this);
    xcb_destroy_window(QtConnection(), window_);
    xcb_flush(QtConnection());
}

bool InputGrab::Take(std::chrono::milliseconds within) {
    using namespace std::chrono_literals;
    if (window_ == XCB_WINDOW_NONE) return false;
    const auto limit = std::chrono::steady_clock::now() + within;
    while (!Renew()) {
        if (std::chrono::steady_clock::now() >= limit) {
            Release();
            return false;
        }
        std::this_thread::sleep_for(10ms);
    }
    return true;
}

bool InputGrab::Renew() {
    if (window_ == XCB_WINDOW_NONE) return false;
    const bool keyboard = GrabKeyboard(QtConnection(), window_);
    return GrabPointer(QtConnection(), window_) && keyboard;
}

void InputGrab::Release() {
    if (window_ == XCB_WINDOW_NONE) return;
    xcb_ungrab_pointer(QtConnection(), XCB_CURRENT_TIME);
    xcb_ungrab_keyboard(QtConnection(), XCB_CURRENT_TIME);
    xcb_flush(QtConnection());
}

bool InputGrab::nativeEventFilter(const QByteArray&, void* message, qintptr*) {
    const auto type = static_cast<xcb_generic_event_t*>(message)->response_type & 0x7FU;
    const bool press = type == XCB_KEY_PRESS || type == XCB_BUTTON_PRESS;
    if (!press && type != XCB_KEY_RELEASE && type != XCB_BUTTON_RELEASE && type != XCB_MOTION_NOTIFY)
        return false;
    // Events of the keys and of the pointer have one layout.
    auto& event = *static_cast<xcb_key_press_event_t*>(message);
    if (event.event != window_) return false;
    const std::uint32_t heir = calls_.heir();
    if (heir != XCB_WINDOW_NONE) {
        event.event = heir;
        return false;
    }
    if (press) calls_.unheard();
    return true;
}

}  // namespace tavrix::qt::x11
