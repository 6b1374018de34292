#include "backends/qt/x11/X11Screen.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <span>
#include <utility>

#include "backends/qt/desktop/Settling.h"
#include "base/RuntimeError.h"

namespace tavrix::qt::x11 {

namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

constexpr milliseconds UnmapLimit = 500ms;
constexpr milliseconds UnmapStep = 2ms;
// A compositor fades windows out, and programs below draw what was covered in their own time. The screen counts as
// settled when it stayed the same for a while; something that moves all the time must not hold the capture up.
constexpr milliseconds SettleStep = 50ms;
constexpr int StepsOfQuiet = 5;
constexpr milliseconds SettleLimit = 1500ms;

/// Whether a window and the frame around it are off the screen.
bool IsGone(xcb_connection_t* connection, xcb_window_t window) {
    const xcb_window_t root = RootOf(connection);
    xcb_window_t outermost = window;
    for (;;) {
        const Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(connection, xcb_query_tree(connection, outermost), nullptr));
        if (!tree) return true;
        if (tree->parent == root || tree->parent == XCB_WINDOW_NONE) break;
        outermost = tree->parent;
    }
    const Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection, xcb_get_window_attributes(connection, outermost), nullptr));
    return !attributes || attributes->map_state == XCB_MAP_STATE_UNMAPPED;
}

bool HiddenWindowsAreGone(xcb_connection_t* connection) {
    return std::ranges::all_of(QGuiApplication::topLevelWindows(), [&](const QWindow* window) {
        const bool hidden = !window->isVisible() && window->handle() != nullptr;
        return !hidden || IsGone(connection, static_cast<xcb_window_t>(window->winId()));
    });
}

/// An X server that is a guest of a Wayland desktop has a screen on which the desktop never draws.
bool IsGuestOfWayland(xcb_connection_t* connection) {
    constexpr std::string_view Name = "XWAYLAND";
    const Reply<xcb_query_extension_reply_t> extension(xcb_query_extension_reply(
        connection, xcb_query_extension(connection, static_cast<std::uint16_t>(Name.size()), Name.data()),
        nullptr));
    if (extension && extension->present != 0) return true;
    // Servers from before that extension name their displays so.
    return std::ranges::any_of(QGuiApplication::screens(),
                               [](const QScreen* screen) { return screen->name().startsWith("XWAYLAND"); });
}

using ImageReply = Reply<xcb_get_image_reply_t>;

std::span<const std::uint8_t> BytesOf(const ImageReply& image) {
    return {xcb_get_image_data(image.get()),
            static_cast<std::size_t>(xcb_get_image_data_length(image.get()))};
}

ImageReply Look(xcb_connection_t* connection, std::uint16_t width, std::uint16_t height) {
    constexpr std::uint32_t AllPlanes = ~0U;
    ImageReply image(xcb_get_image_reply(connection,
                                         xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP,
                                                       RootOf(connection), 0, 0, width, height, AllPlanes),
                                         nullptr));
    if (!image) throw RuntimeError(ErrorNumber::InvalidPicture);
    return image;
}

}  // namespace

ServerImageLayout LayoutOfScreen(xcb_connection_t* connection) {
    const xcb_setup_t* setup = xcb_get_setup(connection);
    const xcb_screen_t& screen = ScreenOf(connection);
    ServerImageLayout layout{.bitsPerPixel = 0, .red = 0, .green = 0, .blue = 0};
    layout.highByteFirst = setup->image_byte_order == XCB_IMAGE_ORDER_MSB_FIRST;
    const std::span formats(xcb_setup_pixmap_formats(setup),
                            static_cast<std::size_t>(xcb_setup_pixmap_formats_length(setup)));
    for (const xcb_format_t& format : formats) {
        if (format.depth != screen.root_depth) continue;
        layout.bitsPerPixel = format.bits_per_pixel;
        layout.rowBits = format.scanline_pad;
    }
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem != 0; xcb_depth_next(&depth)) {
        const std::span visuals(xcb_depth_visuals(depth.data),
                                static_cast<std::size_t>(xcb_depth_visuals_length(depth.data)));
        for (const xcb_visualtype_t& visual : visuals) {
            if (visual.visual_id != screen.root_visual) continue;
            layout.red = visual.red_mask;
            layout.green = visual.green_mask;
            layout.blue = visual.blue_mask;
        }
    }
    return layout;
}

bool ShowsDesktop() {
    xcb_connection_t* connection = QtConnection();
    return connection != nullptr && !IsGuestOfWayland(connection);
}

bool RootIsCovered(xcb_connection_t* connection) {
    const xcb_atom_t type = AtomOf(connection, "_NET_WM_WINDOW_TYPE");
    const xcb_atom_t desktop = AtomOf(connection, "_NET_WM_WINDOW_TYPE_DESKTOP");
    const auto covers = [&](xcb_window_t window) {
        const auto types = Words(PropertyOf(connection, window, type).get());
        if (std::ranges::find(types, desktop) == types.end()) return false;
        const Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
            connection, xcb_get_window_attributes(connection, window), nullptr));
        return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    };
    const xcb_window_t root = RootOf(connection);
    const auto managed = Words(PropertyOf(connection, root, AtomOf(connection, "_NET_CLIENT_LIST")).get());
    if (std::ranges::any_of(managed, covers)) return true;
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, root), nullptr));
    if (!tree) return false;
    const std::span children(xcb_query_tree_children(tree.get()),
                             static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
    return std::ranges::any_of(children, covers);
}

std::optional<Surface> CaptureScreen() {
    if (!ShowsDesktop()) return std::nullopt;
    xcb_connection_t* connection = QtConnection();
    const ServerImageLayout layout = LayoutOfScreen(connection);
    if (!layout.Known()) return std::nullopt;

    const auto unmapped = Clock::now() + UnmapLimit;
    while (!HiddenWindowsAreGone(connection) && Clock::now() < unmapped)
        LetMessagesRun(UnmapStep);

    // Asked each time: the connection's own figure is that of its first moment.
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, RootOf(connection)), nullptr));
    if (!size) throw RuntimeError(ErrorNumber::InvalidPicture);
    ImageReply image = Look(connection, size->width, size->height);
    const auto settled = Clock::now() + SettleLimit;
    for (int quiet = 0; quiet < StepsOfQuiet && Clock::now() < settled;) {
        LetMessagesRun(SettleStep);
        ImageReply later = Look(connection, size->width, size->height);
        quiet = std::ranges::equal(BytesOf(image), BytesOf(later)) ? quiet + 1 : 0;
        image = std::move(later);
    }
    return FromServerImage(layout, size->width, size->height, BytesOf(image));
}

}  // namespace tavrix::qt::x11
