#pragma once

#include <cstdint>
#include <string>

#include "core/MainModule.h"

namespace tavrix {

// Folders come with a backslash at the end, unless it is told otherwise. None of these shows a message; a failure gives what is told here.

/// The temporary folder of this process; the program's folder when there is none.
[[nodiscard]] std::string GetTempFolder(const MainModule& module);
/// Empty when there is none.
[[nodiscard]] std::string GetWindowsFolder(const MainModule& module);
/// Empty when there is none.
[[nodiscard]] std::string GetSystemFolder(const MainModule& module);
/// The user's "My Documents" folder, without a backslash at the end; it may have yet to be made.
[[nodiscard]] std::string GetMyDocumentsFolder(const MainModule& module);
/// The canonical spelling of a folder; empty when it is absent.
[[nodiscard]] std::string GetShortPath(const MainModule& module, const std::string& folder);
/// The root of the first CD drive, e.g. "D:\"; empty when there is none.
[[nodiscard]] std::string FindCdRomDrive(const MainModule& module);
/// Free bytes of a drive; 0 when they do not fit 32 bits or cannot be told.
[[nodiscard]] std::int32_t GetDiskFreeBytes(const MainModule& module, const std::string& root);

/// The normal form of a path (NormalPath), from its drive on: one without a drive or a folder is taken from the current
/// drive and folder. An empty one stays so, and one that begins with the name of another drive without its root is left to
/// the file service.
[[nodiscard]] std::string FullPath(const MainModule& module, const std::string& path);

/// Makes a file's drive and folder the current ones. Failures are those of the file service.
void ChangeToFolderOf(const MainModule& module, const std::string& path);

}  // namespace tavrix
