#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/forms/ListControl.h"

namespace tavrix::forms {

/// A list of texts. Rows that stay keep being current or selected, wherever they go.
///
/// One row more or less costs time that grows with the rows behind it; the functions for many rows take one pass over
/// all of them, however many come or go.
class ListBox final : public ListControl {
  public:
    ListBox(Container& container, std::string name) : ListControl(container, std::move(name)) {}

    [[nodiscard]] int ListCount() const { return RowCount(); }
    /// `row`: 0 to ListCount() - 1.
    [[nodiscard]] const std::string& List(int row) const { return texts_.at(static_cast<std::size_t>(row)); }
    /// All texts, in their order.
    [[nodiscard]] const std::vector<std::string>& Texts() const { return texts_; }

    // All throw RuntimeError 380 for a row that is not there, and nothing has changed then.
    /// Gives a row another text; the list does not scroll.
    void SetList(int row, std::string text);
    /// Adds a row before the row `at`; at the end if that is not told, or ListCount().
    void AddItem(std::string text, std::optional<int> at = {});
    void AddItems(std::vector<std::string> texts, std::optional<int> at = {});
    void RemoveItem(int row);
    void RemoveItems(const RowRanges& rows);
    /// No row is current then.
    void Clear();
    /// Other texts in the place of all; no row is current or selected then.
    void SetItems(std::vector<std::string> texts);
    /// The same, but the current row and the selected ones are those of the same texts as before, where these are still
    /// there, and the list stays where it is. Of several equal texts the first stays the first, and so on.
    void RenewItems(std::vector<std::string> texts);
    /// Moves a row so that it is the row `to` afterwards.
    void MoveItem(int row, int to);
    /// Puts the rows in another order: order[i] is the row that becomes row i. Each row is there once.
    void Reorder(std::span<const int> order);

  private:
    [[nodiscard]] int RowCount() const override { return static_cast<int>(texts_.size()); }
    [[nodiscard]] ListRow Row(int row) const override { return {List(row)}; }

    std::vector<std::string> texts_;
};

}  // namespace tavrix::forms
