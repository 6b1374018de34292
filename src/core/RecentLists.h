#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

// The lists of recent images and recent shows. Paths are compared without regard to case. With KeepRecent off the
// lists do not change.

/// Tells the desktop of an opened file, where UseRecentDocuments is on. Messages run.
void TellDesktop(const MainModule& module, const std::string& path);

/// Tells the desktop of an opened image and puts it first among the recent ones. An image that is listed already stays
/// where it is; a new one gets its first letter in upper case, in the caller's variable too.
void AddRecentFile(MainModule& module, std::string& path);

/// The same for a show. What has no colon or not more than 7 characters is no file, and is not listed.
void AddRecentShow(MainModule& module, std::string& path);

/// The same without a word to the desktop: nothing was opened.
void ListRecentShow(MainModule& module, std::string& path);

/// Takes an image that no longer exists from the list. One of another spelling that is left there does not count for an
/// entry of the path's own.
void RemoveRecentFile(MainModule& module, const std::string& path);

/// Takes a show from the list: one that has gone, or that turned out to be none.
void RemoveRecentShow(MainModule& module, const std::string& path);

}  // namespace tavrix
