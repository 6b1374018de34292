#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavrix {

/// The patterns of a file list, with ';' between them ("*.bmp; *.jpg"). Blanks around a pattern do not count; where
/// no pattern stands the list is "*.*".
class PatternList {
  public:
    explicit PatternList(std::string_view patterns);

    /// Whether a name matches one of the patterns, by the rules of MatchesPattern.
    [[nodiscard]] bool Matches(std::string_view name) const;

  private:
    std::vector<std::string> patterns_;
};

/// Puts names into the order of lists, that of ListsBefore. Fast for tens of thousands of them.
void SortAsListed(std::vector<std::string>& names);
/// The same; `numbers` holds one for each name, which goes where its name goes.
void SortAsListed(std::vector<std::string>& names, std::vector<std::uint64_t>& numbers);

}  // namespace tavrix
