#pragma once

#include <string>
#include <string_view>

namespace tavrix {

// Names of files on this system may hold what a drive path cannot: a colon, a backslash, quotation marks, wildcards,
// control characters, blanks at their ends, and bytes that are no text at all. In a drive path such a character
// shows as another one that looks like it:
//
//   :  U+A789   \  U+29F5   "  U+02BA   *  U+2217   ?  U+FE56   blank at an end  U+2007
//   control characters 01 to 1F as U+2401 to U+241F, 7F as U+2421, bytes that are no UTF-8 as U+F780 to U+F7FF
//
// A name that holds one of these look-alikes itself gets U+2426 in front of it. So every name has a drive form of
// its own, and FromDriveName(ToDriveName(name)) is the name again.

/// One component of a host path, as a drive path shows it. `hostName` must not be empty nor hold a slash or NUL.
[[nodiscard]] std::string ToDriveName(std::string_view hostName);
/// The host name that a component of a drive path stands for.
[[nodiscard]] std::string FromDriveName(std::string_view driveName);

}  // namespace tavrix
