#include "filing/Commands.h"

#include "filing/floppies/FloppyCommands.h"
#include "filing/shell/ShellCommands.h"

namespace tavrix {

void InstallFilingCommands(MainViewFrm& view) {
    InstallFloppyCommands(view);
    InstallShellCommands(view);
}

}  // namespace tavrix
