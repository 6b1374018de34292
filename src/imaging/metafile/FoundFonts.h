#pragma once

#include <map>
#include <memory>
#include <string>

#include "imaging/vector/FontBook.h"
#include "imaging/vector/Work.h"

namespace tavrix::metafile {

/// Keeps the fonts of a drawing that were found already. Looking for another one is paid from the budget, since a file
/// may name thousands.
class FoundFonts {
  public:
    /// Null where no font is installed, or the budget is used up. May throw std::bad_alloc.
    [[nodiscard]] std::shared_ptr<vector::Font> Find(const vector::FontRequest& request,
                                                     vector::WorkBudget& budget);

  private:
    vector::FontBook book_;
    std::map<std::string, std::shared_ptr<vector::Font>> found_;
};

}  // namespace tavrix::metafile
