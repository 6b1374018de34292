#pragma once

#include <string>
#include <vector>

#include "core/MainModule.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/FileListBox.h"

namespace tavrix {

/// In what the selection buttons differ from dialog to dialog.
struct SelectionWords {
    const char* allName = "CmdAll";
    const char* noneName = "CmdNone";
    const char* noneCaption = "Select &None";
    const char* allToolTip = "Select all files in list.";
    const char* noneToolTip = "Don't select any files.";
    const char* noFiles = "There are no files in the source directory to select...";
};

/// Several files of a list are selected, with the mouse and by three buttons.
class FileSelection {
  public:
    /// To be a member of the form, behind the list. The buttons lie in the container.
    FileSelection(forms::Container& container, const MainModule& module, forms::FileListBox& files,
                  const SelectionWords& words = {});
    FileSelection(const FileSelection&) = delete;
    FileSelection& operator=(const FileSelection&) = delete;

    forms::CommandButton CmdAll;
    forms::CommandButton CmdNone;
    forms::CommandButton CmdInverse;

    /// Nothing can be selected while the files have yet to come.
    void SetEnabled(bool enabled);
    /// The selected names, in the order of the list.
    [[nodiscard]] std::vector<std::string> Names() const;

  private:
    void CmdAll_Click();
    void File1_MouseMove(const forms::MouseArguments& mouse);

    const MainModule& module_;
    forms::FileListBox& files_;
    std::string noFiles_;
};

}  // namespace tavrix
