#include "shows/Commands.h"

#include <utility>

#include "shows/files/LoadShowFile.h"
#include "shows/saver/SaverCommands.h"
#include "shows/stage/StageCommands.h"

namespace tavrix {

void InstallShowCommands(MainModule& module, Lives& lives, SaverSurroundings ofSaver) {
    lives.LoadShowFile = [&module](const std::string& path) { return LoadShowFile(module, path); };
    InstallStage(module, lives);
    InstallSaver(module, lives, std::move(ofSaver));
}

}  // namespace tavrix
