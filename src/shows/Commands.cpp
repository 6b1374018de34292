#include "shows/Commands.h"

#include "shows/LoadShowFile.h"

namespace tavrix {

void InstallShowCommands(MainModule& module, Lives& lives) {
    lives.LoadShowFile = [&module](const std::string& path) { return LoadShowFile(module, path); };
}

}  // namespace tavrix
