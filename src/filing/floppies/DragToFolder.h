#pragma once

#include <functional>

#include "platform/forms/DirListBox.h"
#include "platform/forms/FileListBox.h"

namespace tavrix {

/// Dragging rows of a file list to a folder list: with Shift the current file, with Ctrl what is selected, with Alt all
/// files. A drop anywhere else only ends the drag.
class DragToFolder {
  public:
    /// `act` does to the selected files what the button of the dialog does.
    DragToFolder(forms::FileListBox& files, forms::DirListBox& target, std::function<void()> act);
    DragToFolder(const DragToFolder&) = delete;
    DragToFolder& operator=(const DragToFolder&) = delete;

  private:
    enum class Kind : std::uint8_t { Current, Selected, All };

    void File1_DragStart(const forms::MouseArguments& mouse);
    void Dir2_DragDrop(const forms::DragArguments& drag);

    forms::FileListBox& files_;
    std::function<void()> act_;
    Kind kind_ = Kind::Selected;
};

}  // namespace tavrix
