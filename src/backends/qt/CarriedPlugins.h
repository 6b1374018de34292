#pragma once

#include <string>
#include <vector>

namespace tavrix::qt {

/// What Qt loads by looking into its folders.
struct CarriedPlugin {
    std::string name;  ///< below the folder of plugins, such as platforms/libqxcb.so
    std::string path;  ///< host path
};

/// The plugins that the program needs in order to run on any display where nothing is installed; those that are
/// installed here.
[[nodiscard]] std::vector<CarriedPlugin> CarriedPlugins();

}  // namespace tavrix::qt
