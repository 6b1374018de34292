#pragma once

#include <string>
#include <vector>

#include "platform/forms/RowControl.h"

namespace tavrix::forms {

/// A list that drops down, to choose from; there is no typing.
class ComboBox final : public RowControl {
  public:
    ComboBox(Container& container, std::string name)
        : RowControl(container, std::move(name), Look::DropDown) {}

    /// Adds a row at the end; the current row stays.
    void AddItem(const std::string& text);
    /// Takes all rows away; none is current then.
    void Clear();
    [[nodiscard]] int ListCount() const { return RowCount(); }
    /// `index`: 0 to ListCount() - 1.
    [[nodiscard]] const std::string& List(int index) const {
        return items_.at(static_cast<std::size_t>(index));
    }

  private:
    [[nodiscard]] int RowCount() const override { return static_cast<int>(items_.size()); }
    [[nodiscard]] ListRow Row(int row) const override { return {List(row)}; }

    std::vector<std::string> items_;
};

}  // namespace tavrix::forms
