#include "backends/shared/help/HelpBook.h"

#include <algorithm>
#include <charconv>

#include "base/Text.h"

namespace tavrix {
namespace {

constexpr std::string_view Signature = "TAVRIX HELP 1";
constexpr std::string_view PageMark = "@page ";
constexpr std::string_view PictureMark = "@picture ";
constexpr std::string_view PictureLinkMark = "picture:";
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

/// Appends the bytes that a line tells; false when it tells none.
bool AppendHexadecimal(std::string& bytes, std::string_view line) {
    if (line.size() % 2 != 0) return false;
    for (; !line.empty(); line.remove_prefix(2)) {
        unsigned char byte = 0;
        const auto [end, error] = std::from_chars(line.data(), line.data() + 2, byte, 16);
        if (error != std::errc() || end != line.data() + 2) return false;
        bytes.push_back(static_cast<char>(byte));
    }
    return true;
}

/// The pages and pictures of a text, as its lines come.
class Reader {
  public:
    Reader(std::vector<HelpPage>& pages, std::map<std::string, std::string, std::less<>>& pictures)
        : pages_(pages), pictures_(pictures) {}

    void Take(std::string_view line) {
        if (line.starts_with(PageMark)) {
            BeginPage(line.substr(PageMark.size()));
        } else if (line.starts_with(PictureMark)) {
            BeginPicture(Trim(line.substr(PictureMark.size())));
        } else if (picture_ != pictures_.end()) {
            TakeBytes(line);
        } else if (inPage_) {
            TakeText(line);
        }
    }

  private:
    void BeginPage(std::string_view heading) {
        picture_ = pictures_.end();
        std::optional<HelpPage> page = PageOf(heading);
        inPage_ = page && pages_.size() < HelpBook::MostPages &&
                  std::ranges::find(pages_, page->context, &HelpPage::context) == pages_.end();
        if (inPage_) pages_.push_back(std::move(*page));
    }

    void BeginPicture(const std::string& name) {
        inPage_ = false;
        picture_ = pictures_.end();
        if (name.empty()) return;
        const auto [place, isNew] = pictures_.try_emplace(name);
        if (isNew) picture_ = place;
    }

    void TakeBytes(std::string_view line) {
        std::string& bytes = picture_->second;
        const bool fits = bytes.size() + line.size() / 2 <= HelpBook::LargestPicture;
        if (fits && AppendHexadecimal(bytes, line)) return;
        bytes.clear();
        picture_ = pictures_.end();
    }

    void TakeText(std::string_view line) {
        if (line.starts_with(EscapeMark)) line.remove_prefix(1);
        std::string& body = pages_.back().body;
        if (body.size() + line.size() < HelpBook::LongestBody) body += WithoutControls(line) + '\n';
    }

    std::vector<HelpPage>& pages_;
    std::map<std::string, std::string, std::less<>>& pictures_;
    bool inPage_ = false;
    std::map<std::string, std::string, std::less<>>::iterator picture_ =
        pictures_.end();  ///< whose bytes come
};

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
    Reader reader(book.pages_, book.pictures_);
    while (!text.empty())
        reader.Take(TakeLine(text));
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

std::string_view HelpBook::PictureAt(std::string_view address) const {
    if (!address.starts_with(PictureLinkMark)) return {};
    const auto found = pictures_.find(address.substr(PictureLinkMark.size()));
    return found == pictures_.end() ? std::string_view() : std::string_view(found->second);
}

}  // namespace tavrix
