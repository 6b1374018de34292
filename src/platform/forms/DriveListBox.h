#pragma once

#include <string>
#include <vector>

#include "platform/forms/RowControl.h"
#include "platform/services/Drives.h"
#include "platform/services/Files.h"

namespace tavrix::forms {

/// The drives, in a list that drops down. At first it shows the current one.
class DriveListBox final : public RowControl {
  public:
    DriveListBox(Container& container, std::string name, Files& files, Drives& drives);

    /// A letter and a colon. Assigning takes the first letter of "C", "C:" or "C:\...", and raises OnChange when it is
    /// another drive. Throws RuntimeError 68 for a drive that is not in the list.
    Property<std::string> Drive{this, &DriveListBox::AssignDrive};

    std::function<void()> OnChange;

  private:
    struct Entry {
        std::string drive;
        RowIcon icon;
    };

    [[nodiscard]] int RowCount() const override { return static_cast<int>(entries_.size()); }
    [[nodiscard]] ListRow Row(int row) const override;
    void RowChosen() override;
    void AssignDrive(const std::string& value);
    [[nodiscard]] int RowOf(const std::string& drive) const;

    std::vector<Entry> entries_;
};

}  // namespace tavrix::forms
