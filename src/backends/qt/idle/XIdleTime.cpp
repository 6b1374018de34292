#include "backends/qt/idle/XIdleTime.h"

#include <X11/extensions/scrnsaver.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace tavrix::idle {
namespace {

[[noreturn]] int EndWithServer(Display*) {
    std::_Exit(EXIT_SUCCESS);
}

int Ignore(Display*, XErrorEvent*) {
    return 0;
}

}  // namespace

XIdleTime::XIdleTime() {
    Open();
}

void XIdleTime::Open() {
    decltype(&XOpenDisplay) open = nullptr;
    decltype(&XCloseDisplay) close = nullptr;
    decltype(&XSetErrorHandler) setErrorHandler = nullptr;
    decltype(&XSetIOErrorHandler) setEndHandler = nullptr;
    decltype(&XScreenSaverQueryExtension) query = nullptr;
    const bool all = x11_.Find("XOpenDisplay", open) && x11_.Find("XCloseDisplay", close) &&
                     x11_.Find("XSetErrorHandler", setErrorHandler) &&
                     x11_.Find("XSetIOErrorHandler", setEndHandler) &&
                     xss_.Find("XScreenSaverQueryExtension", query);
    if (!all) return;
    Display* display = open(nullptr);
    if (display == nullptr) return;
    int event = 0;
    int error = 0;
    if (query(display, &event, &error) == 0) {
        close(display);
        return;
    }
    setErrorHandler(Ignore);
    setEndHandler(EndWithServer);
    display_ = display;
}

XIdleTime::~XIdleTime() {
    decltype(&XCloseDisplay) close = nullptr;
    if (display_ != nullptr && x11_.Find("XCloseDisplay", close)) close(display_);
}

std::optional<Milliseconds> XIdleTime::IdleTime() const {
    decltype(&XDefaultRootWindow) root = nullptr;
    decltype(&XScreenSaverQueryInfo) query = nullptr;
    if (display_ == nullptr || !x11_.Find("XDefaultRootWindow", root) ||
        !xss_.Find("XScreenSaverQueryInfo", query)) {
        return std::nullopt;
    }
    XScreenSaverInfo info{};
    if (query(display_, root(display_), &info) == 0) return std::nullopt;
    return Milliseconds(info.idle);
}

int XIdleTime::Descriptor() const {
    decltype(&XConnectionNumber) number = nullptr;
    return display_ != nullptr && x11_.Find("XConnectionNumber", number) ? number(display_) : -1;
}

void XIdleTime::Read() const {
    decltype(&XPending) pending = nullptr;
    decltype(&XNextEvent) next = nullptr;
    if (display_ == nullptr || !x11_.Find("XPending", pending) || !x11_.Find("XNextEvent", next)) return;
    while (pending(display_) > 0) {
        XEvent event{};
        next(display_, &event);
    }
}

bool GuardedByXScreenSaver() {
    struct Free {
        void operator()(void* memory) const { std::free(memory); }
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    const std::unique_ptr<xcb_connection_t, Free> connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0) return false;
    constexpr std::string_view name = "_SCREENSAVER_VERSION";
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> mark(xcb_intern_atom_reply(
        connection.get(), xcb_intern_atom(connection.get(), 1, name.size(), name.data()), nullptr));
    if (!mark || mark->atom == XCB_ATOM_NONE) return false;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data->root;
    const std::unique_ptr<xcb_query_tree_reply_t, Free> tree(
        xcb_query_tree_reply(connection.get(), xcb_query_tree(connection.get(), root), nullptr));
    if (!tree) return false;
    const xcb_window_t* windows = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        const std::unique_ptr<xcb_get_property_reply_t, Free> property(xcb_get_property_reply(
            connection.get(),
            xcb_get_property(connection.get(), 0, windows[i], mark->atom, XCB_ATOM_ANY, 0, 0), nullptr));
        if (property && property->type != XCB_ATOM_NONE) return true;
    }
    return false;
}

}  // namespace tavrix::idle
