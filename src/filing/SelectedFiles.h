#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/MainModule.h"
#include "dialogs/LookedFiles.h"
#include "filing/FileSelection.h"
#include "platform/forms/FileListBox.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/Layout.h"

namespace tavrix {

/// The part of a window in which image files are selected: their list under its label, what selects them, and the Delete
/// key.
class SelectedFiles {
  public:
    /// To be a member of the form; its controls lie in the container. `folder` is where the listed files lie, with a
    /// backslash at the end. `looked` are the files of the list; where it is null, the disk is read at once.
    SelectedFiles(forms::Container& container, MainModule& module, std::function<std::string()> folder,
                  LookedFiles* looked = nullptr);
    SelectedFiles(const SelectedFiles&) = delete;
    SelectedFiles& operator=(const SelectedFiles&) = delete;

  private:
    MainModule& module_;
    LookedFiles* looked_;

  public:
    forms::Label lblFiles;
    forms::FileListBox File1;
    FileSelection Selection;

    /// Shows the root of a disk, read afresh; nothing is selected then. Throws what the list throws without a disk.
    void ReadFrom(const std::string& root);
    /// The names that are selected, in the order of the list.
    [[nodiscard]] std::vector<std::string> Names() const { return Selection.Names(); }
    /// The list below its label.
    [[nodiscard]] forms::Layout List();

  private:
    void File1_KeyUp(int keyCode);

    std::function<std::string()> folder_;
};

}  // namespace tavrix
