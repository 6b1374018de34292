#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// The first 6 bytes of a file, or as many as it has. Throws RuntimeError when it cannot be read.
[[nodiscard]] std::string GifSignature(const MainModule& module, const std::string& path);

/// Whether a file is an animated GIF that should be played: its name ends in ".GIF", it begins with GIF89a, and
/// AnimateGIF89 is on. A file that cannot be read is none.
[[nodiscard]] bool IsGif89File(const MainModule& module, const std::string& path);

/// Throws RuntimeError 53 when no file stands at a path in exactly this spelling. For what is chosen from a list, before it
/// is changed: with another spelling it would be another file.
void RequireExactly(const MainModule& module, const std::string& path);

/// Whether any process has a window with exactly this title.
[[nodiscard]] bool WindowExists(const MainModule& module, const std::string& title);

/// The target of a shortcut file; empty when it has none.
[[nodiscard]] std::string ResolveLink(const MainModule& module, const std::string& path);

/// What became of a file that was to be deleted. A failure is none of these: it is raised.
enum class Deletion { Done, Declined };

/// Deletes a file by its full path: to the recycle bin with UseRecycleBin on, else for good. With `confirm` the user
/// is asked first. Declined only when the user said no; the file stands then.
///
/// Throws RuntimeError when the file could not be deleted; it stands as it was then, and what the recycle bin does
/// not take is never removed for good. Callers that have no words for a failure use DeleteAsUserAgrees.
Deletion DeleteToBin(const MainModule& module, const std::string& path, bool confirm);

/// DeleteToBin with the question, and a box about a failure, for a file that was chosen from a list (RequireExactly).
/// Whether the file was deleted.
bool DeleteAsUserAgrees(const MainModule& module, const std::string& path);

}  // namespace tavrix
