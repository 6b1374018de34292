#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrix {

struct HelpPage {
    unsigned context = 0;
    std::string title;
    std::string body;  ///< Markdown, with links such as [Settings](page:170)
};

/// The pages of a help file, in its order, and their pictures.
///
/// A help file is text, UTF-8 or Windows-1252. Its first line is "TAVRIX HELP 1". A line "@page NUMBER TITLE" starts a
/// page, and what follows up to the next such line is its body. A line that starts with "@@" stands for the same line
/// with one "@". Page 0 holds the contents. What stands before the first page, pages without a number of their own or
/// without a title, and control characters are left out.
///
/// A line "@picture NAME" starts a picture, and what follows are the bytes of a PNG file in hexadecimal, in lines of any
/// length. A page shows it by ![what is to be seen](picture:NAME).
class HelpBook {
  public:
    static constexpr unsigned SearchPage = 40;  ///< tells how to search; who turns to it wants to
    static constexpr std::size_t MostPages = 1000;
    static constexpr std::size_t LongestBody = 64 * 1024;  ///< bytes; what is longer is cut
    static constexpr std::size_t LargestFile = 4 * 1024 * 1024;
    static constexpr std::size_t LargestPicture =
        512 * 1024;  ///< bytes of a PNG file; a larger one is left out

    /// Empty when the bytes are no help file, or when it holds no page.
    [[nodiscard]] static std::optional<HelpBook> Parse(std::string_view bytes);

    [[nodiscard]] const std::vector<HelpPage>& Pages() const { return pages_; }
    /// Null when there is no such page.
    [[nodiscard]] const HelpPage* Find(unsigned context) const;
    /// The page of a number, else the contents, else the first page.
    [[nodiscard]] const HelpPage& PageOrContents(unsigned context) const;

    /// The page that a link leads to; empty when it is no link to a page ("page:170").
    [[nodiscard]] static std::optional<unsigned> PageOfLink(std::string_view address);

    /// The bytes of the picture of an address ("picture:editor"); empty when there is none, or its bytes are none.
    [[nodiscard]] std::string_view PictureAt(std::string_view address) const;

  private:
    HelpBook() = default;

    std::vector<HelpPage> pages_;
    std::map<std::string, std::string, std::less<>> pictures_;
};

}  // namespace tavrix
