#pragma once

#include "core/Main.h"

namespace tavrix {

class MainViewFrm;

/// Gives the lives of the process the stage. Both must outlive its use.
void InstallStage(MainModule& module, Lives& lives);

/// Ends the stage that is loaded, with its sound, so that another one can be opened. Nothing without one.
void EndStage(MainModule& module);

/// Gives the main view's menu what shows its image on the stage.
void InstallStageCommands(MainViewFrm& view);

/// Shows StageImage on the stage until the user closes it.
void ViewStageImage(MainModule& module);

/// Shows the image on show on the stage, above the main view, until the user closes it.
void ViewFullScreen(MainViewFrm& view);

void mnuFullScreen_Click(MainViewFrm& view);

}  // namespace tavrix
