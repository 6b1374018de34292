#pragma once

#include <cstdint>
#include <functional>

#include "platform/forms/DirListBox.h"
#include "platform/forms/FileListBox.h"

namespace tavrix {

/// Files of a list are dragged onto a folder list: with Shift the current one, with Ctrl the selected ones, with Alt all.
class FileDrag {
  public:
    /// To be a member of the form, behind the lists. `transfer` takes what is selected then; the form may be unloaded
    /// afterwards.
    FileDrag(forms::FileListBox& files, forms::DirListBox& target, std::function<void()> transfer);
    FileDrag(const FileDrag&) = delete;
    FileDrag& operator=(const FileDrag&) = delete;

  private:
    enum class Kind : std::uint8_t { Current, Selected, All };

    void File1_DragStart(const forms::MouseArguments& mouse);
    void Dir2_DragDrop(const forms::DragArguments& drag);

    forms::FileListBox& files_;
    std::function<void()> transfer_;
    Kind kind_ = Kind::Current;
};

}  // namespace tavrix
