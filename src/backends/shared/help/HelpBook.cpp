#include "backends/shared/help/HelpBook.h"

#include <algorithm>
#include <charconv>

#include "base/Text.h"

namespace tavrix {
namespace {

constexpr std::string_view Signature = "TAVRIX HELP 1";
constexpr std::string_view PageMark = "@page ";
constexpr std::string_view EscapeMark = "@@";
constexpr std::string_view LinkMark = "page:";

/// Takes the first line from a text, without its end.
std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

std::string WithoutControls(std::string_view line) {
    std::string clean(line);
    std::erase_if(clean, [](char c) {
        const auto code = static_cast<unsigned char>(c);
        return (code < ' ' && c != '\t') || code == 0x7F;
    });
    return clean;
}

std::optional<unsigned> Number(std::string_view text) {
    unsigned number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

/// The number and the title of "170 Settings".
std::optional<HelpPage> PageOf(std::string_view heading) {
    const std::size_t blank = heading.find(' ');
    if (blank == std::string_view::npos) return std::nullopt;
    const std::optional<unsigned> number = Number(heading.substr(0, blank));
    std::string title = Trim(WithoutControls(heading.substr(blank)));
    if (!number || title.empty()) return std::nullopt;
    return HelpPage{*number, std::move(title), {}};
}

}  // namespace

std::optional<HelpBook> HelpBook::Parse(std::string_view bytes) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.size() > LargestFile) return std::nullopt;
    if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
    if (!bytes.starts_with(Signature)) return std::nullopt;
    const std::string decoded = DecodeTextFile(bytes);
    std::string_view text = decoded;
    if (TakeLine(text) != Signature) return std::nullopt;

    HelpBook book;
    bool inPage = false;
    while (!text.empty()) {
        std::string_view line = TakeLine(text);
        if (line.starts_with(PageMark)) {
            std::optional<HelpPage> page = PageOf(line.substr(PageMark.size()));
            inPage = page && book.pages_.size() < MostPages && book.Find(page->context) == nullptr;
            if (inPage) book.pages_.push_back(std::move(*page));
            continue;
        }
        if (!inPage) continue;
        if (line.starts_with(EscapeMark)) line.remove_prefix(1);
        std::string& body = book.pages_.back().body;
        if (body.size() + line.size() < LongestBody) body += WithoutControls(line) + '\n';
    }
    if (book.pages_.empty()) return std::nullopt;
    return book;
}

const HelpPage* HelpBook::Find(unsigned context) const {
    const auto found = std::ranges::find(pages_, context, &HelpPage::context);
    return found == pages_.end() ? nullptr : &*found;
}

const HelpPage& HelpBook::PageOrContents(unsigned context) const {
    if (const HelpPage* page = Find(context)) return *page;
    if (const HelpPage* contents = Find(0)) return *contents;
    return pages_.front();
}

std::optional<unsigned> HelpBook::PageOfLink(std::string_view address) {
    if (!address.starts_with(LinkMark)) return std::nullopt;
    return Number(address.substr(LinkMark.size()));
}

}  // namespace tavrix
