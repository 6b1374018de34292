#include "backends/qt/x11/HostWindow.h"

#include <QSocketNotifier>
#include <utility>

namespace tavrix::qt::x11 {

HostWindow::HostWindow(std::uint32_t window) : window_(window) {
    if (QtConnection() == nullptr) return;
    connection_.reset(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection_.get()) != 0) return;
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_.get(), window, XCB_CW_EVENT_MASK, &events);
    const Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection_.get(), xcb_get_geometry(connection_.get(), window), nullptr));
    if (!geometry) return;
    size_ = {geometry->width, geometry->height};
    gone_ = false;
    Watch();
}

HostWindow::~HostWindow() = default;

bool HostWindow::IsRoot() const {
    return connection_ && window_ == RootOf(connection_.get());
}

void HostWindow::Watch() {
    const int descriptor = xcb_get_file_descriptor(connection_.get());
    notifier_ = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { Read(); });
    // What came with the answer is in the connection's queue already, and wakes nobody.
    QMetaObject::invokeMethod(
        notifier_.get(), [this] { Read(); }, Qt::QueuedConnection);
}

void HostWindow::Read() {
    bool gone = false;
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        const int type = event->response_type & 0x7F;
        if (type == XCB_DESTROY_NOTIFY) gone = true;
        if (type != XCB_CONFIGURE_NOTIFY) continue;
        const auto& configured = reinterpret_cast<const xcb_configure_notify_event_t&>(*event);
        TakeSize(configured.width, configured.height);
    }
    gone = gone || xcb_connection_has_error(connection_.get()) != 0;
    if (!gone || std::exchange(gone_, true)) return;
    notifier_->setEnabled(false);
    onGone();
}

void HostWindow::TakeSize(int width, int height) {
    if (size_.width == width && size_.height == height) return;
    size_ = {width, height};
    onResized();
}

std::uint32_t WindowOfRoot() {
    xcb_connection_t* connection = QtConnection();
    if (connection == nullptr) return XCB_WINDOW_NONE;
    const xcb_window_t root = RootOf(connection);
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, root), nullptr));
    if (!tree) return root;
    const xcb_atom_t mark = AtomOf(connection, "__SWM_VROOT");
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        const auto words = Words(PropertyOf(connection, children[i], mark).get());
        if (!words.empty()) return words.front();
    }
    return root;
}

bool TakeMark(const char* name) {
    xcb_connection_t* connection = QtConnection();
    if (connection == nullptr) return true;
    const xcb_atom_t mark = AtomOf(connection, name);
    const xcb_window_t holder = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, holder, RootOf(connection), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    // Nobody else may come between the question and the answer.
    xcb_grab_server(connection);
    const Reply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, mark), nullptr));
    const bool first = !owner || owner->owner == XCB_WINDOW_NONE;
    if (first) xcb_set_selection_owner(connection, holder, mark, XCB_CURRENT_TIME);
    xcb_ungrab_server(connection);
    xcb_flush(connection);
    return first;
}

}  // namespace tavrix::qt::x11
