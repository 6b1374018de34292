#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// Keeps the former content of a show's file while another is written over it, since a save that is canceled, or that
/// fails at a picture, leaves an incomplete show in its place. The copy is named "Backup of ..." and stays until a later
/// save of that show has written it as a whole.
///
/// It lies in the program's folder: the show's own may be on a disk that is full, or be meant for others, and the
/// temporary folder is emptied when the user logs out. It does not have the ending of shows, so that it is not listed
/// among them. A show has one at most: what a save finds after one that was not completed is no better than what that one
/// found. Only what reads back as a show is kept so.
///
/// A show that cannot be read whole, or could not be when it was loaded into the editor, is not what anybody has seen before
/// saving: it is put aside (PutAside), for a save that succeeds too.
class ShowBackup {
  public:
    /// Before the file is opened for writing. Puts aside what could not be read whole; throws RuntimeError where that is not
    /// possible, or the file cannot be written anyway.
    ShowBackup(const MainModule& module, const std::string& path);
    /// Makes the backup, once it is sure that the file can be written. Without one it is not Safe.
    void Keep();

    /// Whether the file may be replaced by less than a whole show: its former content is kept, or there was nothing to keep.
    [[nodiscard]] bool Safe() const { return safe_; }
    /// The file has been written as a whole: the backup goes.
    void Discard();

  private:
    const MainModule& module_;
    std::string path_;
    std::string copy_;
    bool safe_ = false;
};

}  // namespace tavrix
