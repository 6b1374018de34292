#include "platform/forms/SameRows.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace tavrix::forms {

SameRows::SameRows(const std::vector<std::string>& before, const std::vector<std::string>& now)
    : nowAt_(before.size(), -1) {
    // For each text its first row; each row leads to the next one of the same text.
    std::unordered_map<std::string_view, int> first;
    std::vector<int> next(now.size(), -1);
    first.reserve(now.size());
    for (int row = static_cast<int>(now.size()) - 1; row >= 0; --row) {
        const auto at = static_cast<std::size_t>(row);
        const auto [place, fresh] = first.try_emplace(now[at], row);
        if (fresh) continue;
        next[at] = place->second;
        place->second = row;
    }
    for (std::size_t row = 0; row < before.size(); ++row) {
        const auto found = first.find(before[row]);
        if (found == first.end() || found->second < 0) continue;
        nowAt_[row] = found->second;
        found->second = next[static_cast<std::size_t>(found->second)];
    }
}

int SameRows::Of(int row) const {
    return row < 0 ? -1 : nowAt_.at(static_cast<std::size_t>(row));
}

RowRanges SameRows::Of(const RowRanges& rows) const {
    std::vector<int> found;
    for (const RowRange& range : rows.Ranges()) {
        for (int row = range.first; row < range.end; ++row) {
            if (const int now = Of(row); now >= 0) found.push_back(now);
        }
    }
    std::ranges::sort(found);
    RowRanges same;
    for (const int row : found)
        same.Add(row);
    return same;
}

}  // namespace tavrix::forms
