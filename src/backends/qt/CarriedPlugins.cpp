#include "backends/qt/CarriedPlugins.h"

#include <QFileInfo>
#include <QLibraryInfo>
#include <array>

namespace tavrix::qt {
namespace {

// No image formats, since all pictures are read by our own decoders, and nothing that draws with a graphics library.
constexpr std::array Names{"platforms/libqxcb.so",
                           "platforms/libqwayland-generic.so",
                           "wayland-shell-integration/libxdg-shell.so",
                           "wayland-decoration-client/libbradient.so",
                           "platforminputcontexts/libcomposeplatforminputcontextplugin.so",
                           "platforminputcontexts/libibusplatforminputcontextplugin.so"};

}  // namespace

std::vector<CarriedPlugin> CarriedPlugins() {
    const QString folder = QLibraryInfo::path(QLibraryInfo::PluginsPath);
    std::vector<CarriedPlugin> plugins;
    for (const char* name : Names) {
        const QString path = QFileInfo(folder + '/' + name).canonicalFilePath();
        if (!path.isEmpty()) plugins.push_back({name, path.toStdString()});
    }
    return plugins;
}

}  // namespace tavrix::qt
