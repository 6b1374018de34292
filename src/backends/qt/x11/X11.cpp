#include "backends/qt/x11/X11.h"

#include <poll.h>

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <stop_token>
#include <string_view>
#include <system_error>
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

bool TellsOf(const xcb_generic_event_t& event, xcb_atom_t property) {
    return (event.response_type & 0x7FU) == XCB_PROPERTY_NOTIFY &&
           reinterpret_cast<const xcb_property_notify_event_t&>(event).atom == property;
}

/// Asks for the frame of a window that is never mapped, and waits for it; empty without a window manager, or when it is
/// to stop.
std::optional<FrameExtents> AskForFrames(const std::stop_token& stop) {
    using namespace std::chrono_literals;
    const OwnConnection own(xcb_connect(nullptr, nullptr));
    xcb_connection_t* const connection = own.get();
    if (xcb_connection_has_error(connection) != 0) return std::nullopt;
    const auto [check, extents, request] =
        AtomsOf(connection, {"_NET_SUPPORTING_WM_CHECK", "_NET_FRAME_EXTENTS", "_NET_REQUEST_FRAME_EXTENTS"});
    const auto manager = PropertyOf(connection, RootOf(connection), check);
    if (Words(manager.get()).empty()) return std::nullopt;

    const xcb_window_t probe = xcb_generate_id(connection);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, probe, RootOf(connection), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    TellRoot(connection, probe, request, {});
    xcb_flush(connection);
    const auto end = std::chrono::steady_clock::now() + 2s;
    while (!stop.stop_requested() && std::chrono::steady_clock::now() < end &&
           xcb_connection_has_error(connection) == 0) {
        const Reply<xcb_generic_event_t> event(xcb_poll_for_event(connection));
        if (!event) {
            constexpr int MillisecondsToStop = 5;
            pollfd server{xcb_get_file_descriptor(connection), POLLIN, 0};
            ::poll(&server, 1, MillisecondsToStop);
        } else if (TellsOf(*event, extents)) {
            const auto words = Words(PropertyOf(connection, probe, extents).get());
            if (words.size() < 4) continue;
            return FrameExtents{static_cast<int>(words[0]), static_cast<int>(words[1]),
                                static_cast<int>(words[2]), static_cast<int>(words[3])};
        }
    }
    return std::nullopt;
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
    std::promise<std::optional<FrameExtents>> promise;
    answer_ = promise.get_future();
    try {
        thread_ = std::jthread([promise = std::move(promise)](const std::stop_token& stop) mutable {
            promise.set_value(AskForFrames(stop));
        });
    } catch (const std::system_error&) {  // no more threads: no answer
        answer_ = {};
    }
}

std::optional<FrameExtents> FrameQuestion::Answer() {
    using namespace std::chrono_literals;
    if (!answer_.valid() || answer_.wait_for(100ms) != std::future_status::ready) return std::nullopt;
    return answer_.get();
}

std::shared_ptr<FrameQuestion> AskForFramesEarly() {
    const auto valueOf = [](const char* name) {
        const char* value = std::getenv(name);
        return std::string_view(value != nullptr ? value : "");
    };
    // A Wayland desktop may have a server for others, which a question would start.
    const bool wayland = !valueOf("WAYLAND_DISPLAY").empty() || valueOf("XDG_SESSION_TYPE") == "wayland";
    const std::string_view platform = valueOf("QT_QPA_PLATFORM");
    const bool onServer = platform.empty() ? !wayland : platform.starts_with("xcb");
    if (!onServer || valueOf("DISPLAY").empty()) return nullptr;
    return std::make_shared<FrameQuestion>();
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
