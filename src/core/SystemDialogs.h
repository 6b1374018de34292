#pragma once

#include "core/MainModule.h"

namespace tavrix {

// The desktop's own dialogs. They are started and not waited for; where none could be started the user is told.

void OpenDisplayProperties(const MainModule& module);
void OpenMultimediaProperties(const MainModule& module);

}  // namespace tavrix
