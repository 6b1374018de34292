#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "backends/shared/help/HelpBook.h"

namespace tavrix {

/// A heading of the contents with the pages below it.
struct HelpChapter {
    std::string title;  ///< empty: the pages stand for themselves
    std::vector<const HelpPage*> pages;

    friend bool operator==(const HelpChapter&, const HelpChapter&) = default;
};

/// The chapters as the contents page has them: a line in bold is a heading, an entry of a list with a link a page. Pages that
/// it does not name come last, without a heading. Each page is in one chapter; the contents page is in none.
[[nodiscard]] std::vector<HelpChapter> ChaptersOf(const HelpBook& book);

/// The words of a text, in upper case: letters and digits, whatever is between them.
[[nodiscard]] std::vector<std::string> WordsOf(std::string_view text);

/// What a word that is searched for begins with in the text: the word without the ending that it has as a plural or a verb,
/// so that "rotating" finds "rotate".
[[nodiscard]] std::string StemOf(const std::string& word);

/// The words of all pages, to search them as somebody types.
class HelpIndex {
  public:
    /// The book must outlive this.
    explicit HelpIndex(const HelpBook& book);

    /// The pages that have the most of the words, the last of which may be incomplete; those that tell most about them come
    /// first. None without a word.
    [[nodiscard]] std::vector<const HelpPage*> Find(std::string_view text) const;

  private:
    struct Entry {
        const HelpPage* page;
        std::vector<std::string> title;
        std::vector<std::string> body;
    };

    /// How much a page tells about a word; 0: nothing.
    [[nodiscard]] static double Weight(const Entry& entry, const std::string& word);

    std::vector<Entry> entries_;
};

}  // namespace tavrix
