#include "backends/qt/x11/X11.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "backends/qt/x11/X11Connection.h"

namespace tavrix::qt::x11 {

namespace {

/// Several atoms for the time of one question.
template <std::size_t Count>
std::array<xcb_atom_t, Count> AtomsOf(xcb_connection_t* connection, const std::string_view (&names)[Count]) {
    std::array<xcb_intern_atom_cookie_t, Count> cookies{};
    for (std::size_t i = 0; i < Count; ++i) {
        cookies[i] =
            xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(names[i].size()), names[i].data());
    }
    std::array<xcb_atom_t, Count> atoms{};
    for (std::size_t i = 0; i < Count; ++i) {
        const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookies[i], nullptr));
        if (reply) atoms[i] = reply->atom;
    }
    return atoms;
}

bool HasTitle(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t netName,
              const std::string& title) {
    for (const xcb_atom_t property : {netName, static_cast<xcb_atom_t>(XCB_ATOM_WM_NAME)}) {
        const auto reply = PropertyOf(connection, window, property);
        if (!reply || reply->format != 8) continue;
        const std::string_view found(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                     static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
        if (found == title) return true;
    }
    return false;
}

/// The windows that may bear titles: those that the window manager lists, and those that it has put no frame around.
std::vector<xcb_window_t> TitledWindows(xcb_connection_t* connection, xcb_window_t root) {
    const auto list = PropertyOf(connection, root, AtomOf(connection, "_NET_CLIENT_LIST"));
    std::vector<xcb_window_t> windows = Words(list.get());
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, root), nullptr));
    if (!tree) return windows;
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    windows.insert(windows.end(), children, children + xcb_query_tree_children_length(tree.get()));
    return windows;
}

xcb_window_t SelectionOwner(xcb_connection_t* connection, xcb_atom_t selection) {
    const Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection), nullptr));
    return reply ? reply->owner : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

void TellRoot(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t type,
              const std::array<std::uint32_t, 5>& data) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = type;
    std::memcpy(message.data.data32, data.data(), sizeof message.data.data32);
    xcb_send_event(connection, 0, RootOf(connection),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
}

/// Waits for the answer to one request for a selection.
class SelectionAnswer final : public QAbstractNativeEventFilter {
  public:
    explicit SelectionAnswer(xcb_window_t requestor) : requestor_(requestor) {
        QCoreApplication::instance()->installNativeEventFilter(this);
    }

    bool come = false;
    /// Somebody has asked for a part of a selection of ours, since this was last cleared.
    bool asked = false;

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        const auto* event = static_cast<const xcb_generic_event_t*>(message);
        const auto type = event->response_type & 0x7FU;
        // A large selection is fetched in pieces, each asked for by a change of a property.
        asked = asked || type == XCB_SELECTION_REQUEST || type == XCB_PROPERTY_NOTIFY;
        if (type != XCB_SELECTION_NOTIFY) return false;
        const auto* notify = reinterpret_cast<const xcb_selection_notify_event_t*>(event);
        if (notify->requestor != requestor_) return false;
        come = true;
        return true;
    }

  private:
    xcb_window_t requestor_;
};

}  // namespace

bool Running() {
    return QtConnection() != nullptr;
}

FrameQuestion::FrameQuestion() {
    xcb_connection_t* connection = QtConnection();
    if (connection == nullptr) return;
    const auto [check, extents, request] =
        AtomsOf(connection, {"_NET_SUPPORTING_WM_CHECK", "_NET_FRAME_EXTENTS", "_NET_REQUEST_FRAME_EXTENTS"});
    const auto manager = PropertyOf(connection, RootOf(connection), check);
    if (Words(manager.get()).empty()) return;

    extents_ = extents;
    probe_ = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, probe_, RootOf(connection), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    TellRoot(connection, probe_, request, {});
    xcb_flush(connection);
}

FrameQuestion::~FrameQuestion() {
    if (probe_ == XCB_WINDOW_NONE) return;
    xcb_destroy_window(QtConnection(), probe_);
    xcb_flush(QtConnection());
}

std::optional<FrameExtents> FrameQuestion::Answer() const {
    using namespace std::chrono_literals;
    if (probe_ == XCB_WINDOW_NONE) return std::nullopt;
    const auto deadline = std::chrono::steady_clock::now() + 100ms;
    do {
        const auto words = Words(PropertyOf(QtConnection(), probe_, extents_).get());
        if (words.size() >= 4) {
            return FrameExtents{static_cast<int>(words[0]), static_cast<int>(words[1]),
                                static_cast<int>(words[2]), static_cast<int>(words[3])};
        }
        std::this_thread::sleep_for(200us);
    } while (std::chrono::steady_clock::now() < deadline);
    return std::nullopt;
}

void LeaveKeyboard(std::uint32_t window) {
    xcb_connection_t* connection = QtConnection();
    if (connection == nullptr) return;
    const std::uint32_t never = 0;  // no user has had to do with it
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, AtomOf(connection, "_NET_WM_USER_TIME"),
                        XCB_ATOM_CARDINAL, 32, 1, &never);
}

void SetAbove(std::uint32_t window, bool above) {
    xcb_connection_t* connection = QtConnection();
    if (connection == nullptr) return;
    TellRoot(connection, window, AtomOf(connection, "_NET_WM_STATE"),
             {above ? 1U : 0U, AtomOf(connection, "_NET_WM_STATE_ABOVE"), 0, 1, 0});
    xcb_flush(connection);
}

bool TitleExists(const std::string& title) {
    // A connection of its own: the question may come before the window system has been started.
    const OwnConnection connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0) return false;
    const xcb_window_t root = RootOf(connection.get());
    const xcb_atom_t netName = AtomOf(connection.get(), "_NET_WM_NAME");
    for (const xcb_window_t window : TitledWindows(connection.get(), root)) {
        if (HasTitle(connection.get(), window, netName, title)) return true;
    }
    return false;
}

bool OwnsClipboard() {
    xcb_connection_t* connection = QtConnection();
    if (connection == nullptr) return false;
    const xcb_window_t owner = SelectionOwner(connection, AtomOf(connection, "CLIPBOARD"));
    const xcb_setup_t* setup = xcb_get_setup(connection);
    return owner != XCB_WINDOW_NONE && (owner & ~setup->resource_id_mask) == setup->resource_id_base;
}

void SaveClipboard() {
    using namespace std::chrono_literals;
    xcb_connection_t* connection = QtConnection();
    if (connection == nullptr) return;
    const xcb_atom_t manager = AtomOf(connection, "CLIPBOARD_MANAGER");
    if (SelectionOwner(connection, manager) == XCB_WINDOW_NONE) return;

    const xcb_window_t requestor = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, requestor, RootOf(connection), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    SelectionAnswer answer(requestor);
    xcb_convert_selection(connection, requestor, manager, AtomOf(connection, "SAVE_TARGETS"), XCB_ATOM_NONE,
                          XCB_CURRENT_TIME);
    xcb_flush(connection);
    using std::chrono::steady_clock;
    const auto end = steady_clock::now() + 30s;
    auto deadline = steady_clock::now() + 1s;
    while (!answer.come && steady_clock::now() < std::min(deadline, end)) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
        // A manager at work may take seconds for a piece of a large picture.
        if (std::exchange(answer.asked, false)) deadline = steady_clock::now() + 5s;
    }
    xcb_destroy_window(connection, requestor);
    xcb_flush(connection);
}

}  // namespace tavrix::qt::x11
