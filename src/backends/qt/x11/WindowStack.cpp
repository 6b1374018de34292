#include "backends/qt/x11/WindowStack.h"

#include <QGuiApplication>
#include <QSocketNotifier>
#include <ranges>

namespace tavrix::qt::x11 {

StackWatch::StackWatch(std::function<void()> changed) : connection_(xcb_connect(nullptr, nullptr)) {
    constexpr int Moment = 10;  // milliseconds: several changes are one
    soon_.setSingleShot(true);
    soon_.setInterval(Moment);
    QObject::connect(&soon_, &QTimer::timeout, &soon_, std::move(changed));
    if (xcb_connection_has_error(connection_.get()) != 0) return;
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_.get(), RootOf(connection_.get()), XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection_.get());
    notifier_ =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection_.get()), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { Drain(); });
}

StackWatch::~StackWatch() = default;

void StackWatch::Drain() {
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        if (!soon_.isActive()) soon_.start();
    }
    if (xcb_connection_has_error(connection_.get()) != 0) notifier_->setEnabled(false);
}

void PutOnTop(std::span<const std::uint32_t> windows) {
    xcb_connection_t* connection = QtConnection();
    if (connection == nullptr) return;
    std::uint32_t above = XCB_WINDOW_NONE;
    for (const std::uint32_t window : windows | std::views::reverse) {
        if (above == XCB_WINDOW_NONE) {
            const std::uint32_t top = XCB_STACK_MODE_ABOVE;
            xcb_configure_window(connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &top);
        } else {
            const std::uint32_t place[] = {above, XCB_STACK_MODE_BELOW};
            xcb_configure_window(connection, window, XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE,
                                 place);
        }
        above = window;
    }
    xcb_flush(connection);
}

void FocusOn(std::uint32_t window) {
    xcb_connection_t* connection = QtConnection();
    if (connection == nullptr) return;
    xcb_set_input_focus(connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    xcb_flush(connection);
}

std::uint32_t Focused() {
    xcb_connection_t* connection = QtConnection();
    if (connection == nullptr) return XCB_WINDOW_NONE;
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    return reply ? reply->focus : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

BlackCover::BlackCover() {
    xcb_connection_t* connection = QtConnection();
    if (connection == nullptr) return;
    window_ = xcb_generate_id(connection);
    const std::uint32_t values[] = {ScreenOf(connection).black_pixel, 1};
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window_, RootOf(connection), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    Fit();
    xcb_map_window(connection, window_);
    PutOnTop({&window_, 1});
    // An answer tells that all before it was done.
    static_cast<void>(Focused());
}

BlackCover::~BlackCover() {
    if (window_ == XCB_WINDOW_NONE || QtConnection() == nullptr) return;
    xcb_destroy_window(QtConnection(), window_);
    xcb_flush(QtConnection());
}

void BlackCover::Fit() const {
    xcb_connection_t* connection = QtConnection();
    if (connection == nullptr) return;
    const Reply<xcb_get_geometry_reply_t> screen(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, RootOf(connection)), nullptr));
    if (!screen) return;
    const std::uint32_t size[] = {screen->width, screen->height};
    xcb_configure_window(connection, window_, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
    xcb_flush(connection);
}

}  // namespace tavrix::qt::x11
