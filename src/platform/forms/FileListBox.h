#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/forms/ListControl.h"
#include "platform/services/Files.h"

namespace tavrix::forms {

/// The files of a folder that match a pattern. At first it shows the current folder.
///
/// The folder is read when a row is first asked for, so that a folder of many thousand files that is passed on the way
/// costs nothing.
class FileListBox final : public ListControl {
  public:
    FileListBox(Container& container, std::string name, Files& files, const std::string& pattern = "*.*");

    /// The folder, without a backslash at the end unless it is a root. Another folder raises OnPathChange, and no row
    /// is current then. Throws what Files::Info throws, and RuntimeError 76 for what is no folder; the list stays then.
    Property<std::string> Path{this, &FileListBox::AssignPath};
    /// Several patterns are separated by semicolons.
    Property<std::string> Pattern{this, &FileListBox::AssignPattern, "*.*"};

    /// Reads the folder again; no row is current or selected then. A folder that cannot be read any more has no files.
    void Refresh();
    /// The same, but the current file and the selected ones stay so where they are still there, told by their exact
    /// names, and the list stays where it is.
    void RefreshKeepingRows();

    [[nodiscard]] int ListCount() const { return RowCount(); }
    /// A name; `index`: 0 to ListCount() - 1.
    [[nodiscard]] const std::string& List(int index) const;
    /// The row of a name, whatever its case; -1 when there is none.
    [[nodiscard]] int IndexOf(const std::string& fileName) const;
    /// The name in the current row; empty when there is none.
    [[nodiscard]] std::string FileName() const;

    std::function<void()> OnPathChange;

  private:
    [[nodiscard]] int RowCount() const override;
    [[nodiscard]] ListRow Row(int row) const override;
    [[nodiscard]] const std::vector<std::string>& Names() const;
    void AssignPath(const std::string& value);
    void AssignPattern(const std::string& value);

    Files& files_;
    mutable std::optional<std::vector<std::string>> names_;  ///< nothing: not read yet
};

}  // namespace tavrix::forms
