#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// Reads a show's file into the shared record, slides and options, and puts it on the list of recent shows. Failures are
/// told here and leave the slides that came before them. ShowChanged is true afterwards if and only if the file has an
/// older format, which saving would change. Whether the show holds a slide.
bool LoadShowFile(MainModule& module, std::string path);

}  // namespace tavrix
