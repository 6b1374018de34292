#pragma once

#include <cstdint>
#include <string>

#include "core/MainModule.h"
#include "dialogs/CopyWindow.h"

namespace tavrix {

enum class PackageFileEnd : std::uint8_t {
    Written,   ///< whole, or as far as the user wanted; only a sound may be missing beside it, which was told
    Failed,    ///< which was told; the file may be the former one, or hold the slides before the failure
    Canceled,  ///< by CancelCopy
};

/// Writes the shared show as the file `folder` + `name` of a package, and copies its sound and its pictures into that
/// folder, where bare names lead to them. Both folders end in a backslash; paths without a drive are seen from `source`.
/// Different pictures that would get one name get numbers. The window tells the progress.
///
/// A folder that has just been made is not searched for each name before it is written (`isNew`), which in a long show costs
/// more than the copies.
///
/// SoundFile becomes what the file has. Once the file is written it is the last show, and a recent one.
PackageFileEnd WritePackageFile(MainModule& module, CopyWindow& window, const std::string& source,
                                const std::string& folder, const std::string& name, bool isNew = false);

}  // namespace tavrix
