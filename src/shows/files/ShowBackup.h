#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// Keeps the former content of a show's file while another is written over it, since a save that is canceled, or that
/// fails at a picture, leaves an incomplete show in its place. The copy is named "Backup of ..." and stays until Discard.
///
/// It lies in the program's folder: the show's own may be on a disk that is full, or be meant for others, and the
/// temporary folder is emptied when the user logs out. Never replaces an earlier backup. A backup that cannot be made does
/// not keep a show from being saved.
class ShowBackup {
  public:
    ShowBackup(const MainModule& module, const std::string& path);

    /// The file has been written as a whole: the backup goes.
    void Discard();

  private:
    const MainModule& module_;
    std::string copy_;  ///< empty: there was nothing to keep
};

}  // namespace tavrix
