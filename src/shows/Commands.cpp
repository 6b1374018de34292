#include "shows/Commands.h"

#include "shows/files/LoadShowFile.h"
#include "shows/saver/SaverCommands.h"
#include "shows/stage/StageCommands.h"

namespace tavrix {

void InstallShowCommands(MainModule& module, Lives& lives) {
    lives.LoadShowFile = [&module](const std::string& path) { return LoadShowFile(module, path); };
    InstallStage(module, lives);
    InstallSaver(module, lives);
}

}  // namespace tavrix
