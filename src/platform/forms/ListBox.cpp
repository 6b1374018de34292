#include "platform/forms/ListBox.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include "base/RuntimeError.h"
#include "platform/forms/SameRows.h"

namespace tavrix::forms {

void ListBox::SetList(int row, std::string text) {
    RequireRow(row);
    texts_[static_cast<std::size_t>(row)] = std::move(text);
    RowsChanged(row, row + 1);
}

void ListBox::AddItem(std::string text, std::optional<int> at) {
    const int row = at.value_or(ListCount());
    if (row != ListCount()) RequireRow(row);
    texts_.insert(texts_.begin() + row, std::move(text));
    RowsInserted(row, 1);
}

void ListBox::AddItems(std::vector<std::string> texts, std::optional<int> at) {
    const int row = at.value_or(ListCount());
    if (row != ListCount()) RequireRow(row);
    if (texts.empty()) return;
    const int count = static_cast<int>(texts.size());
    texts_.insert(texts_.begin() + row, std::make_move_iterator(texts.begin()),
                  std::make_move_iterator(texts.end()));
    RowsInserted(row, count);
}

void ListBox::RemoveItem(int row) {
    RemoveItems({row, row + 1});
}

void ListBox::RemoveItems(const RowRanges& rows) {
    if (rows.Empty()) return;
    RequireRow(rows.Ranges().front().first);
    RequireRow(rows.Ranges().back().end - 1);
    auto kept = texts_.begin() + rows.Ranges().front().first;
    for (std::size_t i = 0; i < rows.Ranges().size(); ++i) {
        const auto from = texts_.begin() + rows.Ranges()[i].end;
        const auto until =
            i + 1 < rows.Ranges().size() ? texts_.begin() + rows.Ranges()[i + 1].first : texts_.end();
        kept = std::move(from, until, kept);
    }
    texts_.erase(kept, texts_.end());
    RowsRemoved(RowRanges(rows));  // which may be our own selection
}

void ListBox::Clear() {
    SetItems({});
}

void ListBox::SetItems(std::vector<std::string> texts) {
    texts_ = std::move(texts);
    RowsReset(-1);
}

void ListBox::RenewItems(std::vector<std::string> texts) {
    const SameRows same(texts_, texts);
    RowRanges selected = same.Of(Selection());
    const int current = same.Of(ListIndex);
    texts_ = std::move(texts);
    RowsRenewed(current, std::move(selected));
}

void ListBox::MoveItem(int row, int to) {
    RequireRow(row);
    RequireRow(to);
    std::vector<int> order(texts_.size());
    std::iota(order.begin(), order.end(), 0);
    const auto from = order.begin() + row;
    if (row < to) std::rotate(from, from + 1, order.begin() + to + 1);
    if (to < row) std::rotate(order.begin() + to, from, from + 1);
    Reorder(order);
}

void ListBox::Reorder(std::span<const int> order) {
    std::vector<bool> seen(texts_.size());
    for (const int row : order) {
        RequireRow(row);
        if (seen[static_cast<std::size_t>(row)]) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
        seen[static_cast<std::size_t>(row)] = true;
    }
    if (order.size() != texts_.size()) throw RuntimeError(ErrorNumber::InvalidPropertyValue);

    std::vector<bool> wasSelected(texts_.size());
    const RowRanges selection = Selection();
    for (const RowRange& range : selection.Ranges())
        std::fill(wasSelected.begin() + range.first, wasSelected.begin() + range.end, true);
    std::vector<std::string> texts;
    texts.reserve(texts_.size());
    RowRanges selected;
    int current = -1;
    for (const int row : order) {
        const int now = static_cast<int>(texts.size());
        if (wasSelected[static_cast<std::size_t>(row)]) selected.Add(now);
        if (row == ListIndex) current = now;
        texts.push_back(std::move(texts_[static_cast<std::size_t>(row)]));
    }
    texts_ = std::move(texts);
    RowsRenewed(current, std::move(selected));
}

}  // namespace tavrix::forms
