#include "backends/qt/desktop/RootWallpaper.h"

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QScreen>
#include <algorithm>

#include "backends/qt/Displays.h"
#include "backends/qt/clipboard/SurfaceOfImage.h"
#include "backends/qt/x11/X11Screen.h"
#include "base/RuntimeError.h"
#include "imaging/graphics/StretchCopy.h"

namespace tavrix::qt {

namespace {

using namespace x11;

/// The names under which other programs look for the root's picture.
constexpr const char* Names[] = {"_XROOTPMAP_ID", "ESETROOT_PMAP_ID"};

void Put(Surface& screen, const Surface& picture, int left, int top) {
    StretchCopy(screen, {left, top, picture.Width(), picture.Height()}, picture,
                {0, 0, picture.Width(), picture.Height()});
}

Surface Compose(const Surface& picture, bool tiled, int width, int height) {
    Surface screen(width, height);
    if (tiled) {
        for (int top = 0; top < height; top += picture.Height()) {
            for (int left = 0; left < width; left += picture.Width())
                Put(screen, picture, left, top);
        }
        return screen;
    }
    for (const QScreen* display : QGuiApplication::screens()) {
        const PixelRect place = PlaceOfDisplay(*display);
        // By way of a surface of the display's size, so that a large picture does not reach into the next display.
        Surface part(place.width, place.height);
        Put(part, picture, (place.width - picture.Width()) / 2, (place.height - picture.Height()) / 2);
        Put(screen, part, place.left, place.top);
    }
    return screen;
}

void Send(xcb_connection_t* connection, xcb_pixmap_t pixmap, const Surface& pixels) {
    const xcb_screen_t& screen = ScreenOf(connection);
    const ServerImageLayout layout = LayoutOfScreen(connection);
    const xcb_gcontext_t context = xcb_generate_id(connection);
    xcb_create_gc(connection, context, pixmap, 0, nullptr);
    const std::size_t mostBytes =
        std::size_t{xcb_get_maximum_request_length(connection)} * 4 - sizeof(xcb_put_image_request_t) - 4;
    const int rowsAtOnce = std::max(1, static_cast<int>(mostBytes / layout.BytesPerRow(pixels.Width())));
    for (int y = 0; y < pixels.Height(); y += rowsAtOnce) {
        const int rows = std::min(rowsAtOnce, pixels.Height() - y);
        const std::vector<std::uint8_t> bytes = ToServerImage(layout, pixels, y, rows);
        xcb_put_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context,
                      static_cast<std::uint16_t>(pixels.Width()), static_cast<std::uint16_t>(rows), 0,
                      static_cast<std::int16_t>(y), 0, screen.root_depth,
                      static_cast<std::uint32_t>(bytes.size()), bytes.data());
    }
    xcb_free_gc(connection, context);
}

/// Ends the life of the pixmap that was the root's picture before. By the second name, a program says that it has left
/// a pixmap behind and nothing else.
void ReleaseFormer(xcb_connection_t* connection, xcb_window_t root) {
    std::uint32_t former[2] = {0, 0};
    for (std::size_t i = 0; i < 2; ++i) {
        const auto words = Words(PropertyOf(connection, root, AtomOf(connection, Names[i])).get());
        if (words.size() == 1) former[i] = words[0];
    }
    if (former[0] != 0 && former[0] == former[1]) xcb_kill_client(connection, former[0]);
}

/// Makes a pixmap, or none, the root's picture, and lets go of the one before.
bool Hang(xcb_connection_t* connection, xcb_pixmap_t pixmap) {
    const xcb_screen_t& screen = ScreenOf(connection);
    ReleaseFormer(connection, screen.root);
    for (const char* name : Names) {
        const xcb_atom_t property = AtomOf(connection, name);
        if (pixmap == XCB_PIXMAP_NONE) {
            xcb_delete_property(connection, screen.root, property);
        } else {
            xcb_change_property(connection, XCB_PROP_MODE_REPLACE, screen.root, property, XCB_ATOM_PIXMAP, 32,
                                1, &pixmap);
        }
    }
    if (pixmap == XCB_PIXMAP_NONE) {
        xcb_change_window_attributes(connection, screen.root, XCB_CW_BACK_PIXEL, &screen.black_pixel);
    } else {
        xcb_change_window_attributes(connection, screen.root, XCB_CW_BACK_PIXMAP, &pixmap);
    }
    xcb_clear_area(connection, 0, screen.root, 0, 0, 0, 0);
    // An answer says that the server has done all of it, before the connection ends.
    const Reply<xcb_get_input_focus_reply_t> answer(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    return answer != nullptr;
}

OwnConnection Connect() {
    if (QtConnection() == nullptr) return nullptr;
    OwnConnection connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0) return nullptr;
    return connection;
}

}  // namespace

bool RootWallpaper::Show(const std::string& file, bool tiled) {
    // The pixmap belongs to a connection that leaves it behind.
    const OwnConnection connection = Connect();
    if (!connection || !LayoutOfScreen(connection.get()).Known() || RootIsCovered(connection.get()))
        return false;
    const QImage image(QFile::decodeName(file.c_str()));
    if (image.isNull()) return false;

    const xcb_screen_t& screen = ScreenOf(connection.get());
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(connection.get(), xcb_get_geometry(connection.get(), screen.root), nullptr));
    if (!size) return false;
    const xcb_pixmap_t pixmap = xcb_generate_id(connection.get());
    xcb_create_pixmap(connection.get(), screen.root_depth, pixmap, screen.root, size->width, size->height);
    Send(connection.get(), pixmap, Compose(SurfaceOfImage(image), tiled, size->width, size->height));
    xcb_set_close_down_mode(connection.get(), XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    return Hang(connection.get(), pixmap);
}

bool RootWallpaper::Clear() {
    const OwnConnection connection = Connect();
    return connection && !RootIsCovered(connection.get()) && Hang(connection.get(), XCB_PIXMAP_NONE);
}

}  // namespace tavrix::qt
