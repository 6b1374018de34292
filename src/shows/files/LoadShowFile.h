#pragma once

#include <string>

#include "core/MainModule.h"
#include "shows/files/ReadShow.h"

namespace tavrix {

/// Reads a show's file into the shared record, slides and options, and puts it on the list of recent shows. Failures are
/// told here and leave the slides that came before them. ShowChanged is true afterwards if and only if the file has an
/// older format, which saving would change. Whether the show holds a slide.
bool LoadShowFile(MainModule& module, const std::string& path);

/// The same; how the reading ended.
ReadShowResult LoadSharedShow(MainModule& module, const std::string& path);

/// Reads a show's file as a value, in the words of LoadShowFile, and leaves the loaded show, ShowChanged, LastSlideShow and
/// the options alone; a file that cannot be read leaves the list of recent shows all the same. How far it came.
///
/// The record gets what the file has up to there. What an older file does not say keeps its value in the record.
ShowFileEnd LoadShowRecord(MainModule& module, const std::string& path, ShowRecord& record);

}  // namespace tavrix
