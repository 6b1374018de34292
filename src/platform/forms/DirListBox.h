#pragma once

#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "platform/forms/ListControl.h"
#include "platform/services/Files.h"

namespace tavrix::forms {

/// A folder with the folders above it, from the root of its drive down, and its subfolders. At first it shows the
/// current folder. A double click or Enter opens the folder of the current row.
class DirListBox final : public ListControl {
  public:
    DirListBox(Container& container, std::string name, Files& files);

    /// The folder, without a backslash at the end unless it is a root. Assigning a drive alone ("D:") goes to the
    /// current folder of that drive, and changes nothing when the list is on that drive already. Another folder raises
    /// OnChange. Throws what Files::Folders throws; the list stays then.
    Property<std::string> Path{this, &DirListBox::AssignPath};

    /// Reads the subfolders again. Where the folder itself has gone, the nearest one above it that can be read takes
    /// its place, which raises OnChange.
    void Refresh();

    /// How many subfolders the folder has.
    [[nodiscard]] int ListCount() const { return static_cast<int>(folders_.size()); }
    /// The full path of a subfolder; `index`: 0 to ListCount() - 1.
    [[nodiscard]] const std::string& List(int index) const {
        return folders_.at(static_cast<std::size_t>(index));
    }

    std::function<void()> OnChange;
    /// A folder that the user opens cannot be read.
    std::function<void(const std::string& path, const RuntimeError& error)> OnOpenFailure;

  private:
    [[nodiscard]] int RowCount() const override;
    [[nodiscard]] ListRow Row(int row) const override;
    void RowDoubleClicked() override;
    void KeyPressed(int& keyCode, int shift) override;

    void AssignPath(const std::string& value);
    /// Shows a folder. Throws what Files::Folders throws; nothing has changed then.
    void Show(const std::string& path);
    void OpenRow(int row);
    [[nodiscard]] std::string PathOfRow(int row) const;
    [[nodiscard]] std::string CurrentFolderOf(char drive) const;

    Files& files_;
    std::vector<std::string> above_;    ///< from the root to the folder itself
    std::vector<std::string> folders_;  ///< below it
};

}  // namespace tavrix::forms
