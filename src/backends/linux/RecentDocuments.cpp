#include "backends/linux/RecentDocuments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "base/Text.h"

namespace tavrix {
namespace {

constexpr std::string_view ApplicationName = "Tavrix";
constexpr std::string_view ApplicationCommand = "&apos;tavrix --open %f&apos;";
constexpr std::string_view BookmarkNames = "http://www.freedesktop.org/standards/desktop-bookmarks";
constexpr std::string_view MimeNames = "http://www.freedesktop.org/standards/shared-mime-info";

/// A tag of a document, as a range of its bytes.
struct Tag {
    std::size_t begin = 0;
    std::size_t end = 0;  ///< behind the closing bracket
    std::string_view name;
    bool closing = false;  ///< </name>
    bool empty = false;    ///< <name/>
};

/// Goes through the tags of a document, over comments, character data and declarations.
class Tags {
  public:
    explicit Tags(std::string_view text) : text_(text) {}

    /// The next tag; nothing at the end or where the document makes no sense.
    std::optional<Tag> Next() {
        for (;;) {
            const std::size_t begin = text_.find('<', at_);
            if (begin == std::string_view::npos) return std::nullopt;
            const std::string_view rest = text_.substr(begin);
            if (rest.starts_with("<!--")) {
                if (!Skip(begin, "-->")) return std::nullopt;
            } else if (rest.starts_with("<![CDATA[")) {
                if (!Skip(begin, "]]>")) return std::nullopt;
            } else if (rest.starts_with("<?")) {
                if (!Skip(begin, "?>")) return std::nullopt;
            } else if (rest.starts_with("<!")) {
                if (!Skip(begin, ">")) return std::nullopt;
            } else {
                return TagAt(begin);
            }
        }
    }

  private:
    bool Skip(std::size_t begin, std::string_view ending) {
        const std::size_t end = text_.find(ending, begin);
        if (end == std::string_view::npos) {
            at_ = text_.size();
            return false;
        }
        at_ = end + ending.size();
        return true;
    }

    std::optional<Tag> TagAt(std::size_t begin) {
        std::size_t end = begin + 1;
        for (char quote = '\0'; end < text_.size(); ++end) {
            const char c = text_[end];
            if (quote != '\0') {
                if (c == quote) quote = '\0';
            } else if (c == '"' || c == '\'') {
                quote = c;
            } else if (c == '>') {
                break;
            }
        }
        at_ = text_.size();
        if (end >= text_.size()) return std::nullopt;
        at_ = end + 1;
        Tag tag{.begin = begin, .end = end + 1, .name = {}};
        tag.closing = text_[begin + 1] == '/';
        tag.empty = text_[end - 1] == '/';
        const std::size_t name = begin + (tag.closing ? 2 : 1);
        tag.name = text_.substr(name, text_.find_first_of(" \t\r\n/>", name) - name);
        return tag;
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

/// The raw value of an attribute, as a part of the tag's text.
std::optional<std::string_view> AttributeOf(std::string_view tag, std::string_view name) {
    for (std::size_t at = tag.find(name); at != std::string_view::npos; at = tag.find(name, at + 1)) {
        const char before = tag[at - 1];
        if (before != ' ' && before != '\t' && before != '\n' && before != '\r') continue;
        const std::size_t equals = tag.find_first_not_of(" \t\r\n", at + name.size());
        if (equals == std::string_view::npos || tag[equals] != '=') continue;
        const std::size_t quote = tag.find_first_not_of(" \t\r\n", equals + 1);
        if (quote == std::string_view::npos || (tag[quote] != '"' && tag[quote] != '\'')) continue;
        const std::size_t end = tag.find(tag[quote], quote + 1);
        if (end == std::string_view::npos) return std::nullopt;
        return tag.substr(quote + 1, end - quote - 1);
    }
    return std::nullopt;
}

struct Entity {
    char character;
    std::string_view text;
};
constexpr std::array<Entity, 5> Entities{
    {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&apos;"}}};

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        const auto* const entity = std::ranges::find(Entities, c, &Entity::character);
        if (entity == Entities.end()) {
            escaped.push_back(c);
        } else {
            escaped += entity->text;
        }
    }
    return escaped;
}

std::string Unescaped(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        const auto* const entity =
            std::ranges::find_if(Entities, [&](const Entity& known) { return text.starts_with(known.text); });
        if (entity == Entities.end()) {
            // Quotation marks may come as numbers.
            if (text.starts_with("&#39;") || text.starts_with("&#34;")) {
                plain.push_back(text[3] == '9' ? '\'' : '"');
                text.remove_prefix(5);
                continue;
            }
            plain.push_back(text.front());
            text.remove_prefix(1);
        } else {
            plain.push_back(entity->character);
            text.remove_prefix(entity->text.size());
        }
    }
    return plain;
}

std::string Moment(std::time_t time) {
    std::tm utc{};
    ::gmtime_r(&time, &utc);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &utc)};
}

/// Puts a raw value into a tag, in the place of the one that is there.
void SetAttribute(std::string& tag, std::string_view name, const std::string& value) {
    if (const auto old = AttributeOf(tag, name)) {
        tag.replace(static_cast<std::size_t>(old->data() - tag.data()), old->size(), value);
        return;
    }
    std::size_t end = tag.size() - 1;
    if (tag[end - 1] == '/') --end;
    tag.insert(end, std::string(" ").append(name).append("=\"").append(value).append("\""));
}

/// The parts of an entry that stand inside each other, each with all that has to be around it.
struct EntryText {
    std::string application;
    std::string applications;
    std::string metadata;
    std::string info;
};

EntryText TextOf(const RecentDocument& document, bool namesDeclared) {
    const std::string bookmarkNames =
        namesDeclared ? std::string() : " xmlns:bookmark=\"" + std::string(BookmarkNames) + "\"";
    const std::string mimeNames =
        namesDeclared ? std::string() : " xmlns:mime=\"" + std::string(MimeNames) + "\"";
    EntryText text;
    text.application = "          <bookmark:application" + bookmarkNames + " name=\"" +
                       std::string(ApplicationName) + "\" exec=\"" + std::string(ApplicationCommand) +
                       "\" modified=\"" + Moment(document.used) + "\" count=\"1\"/>\n        ";
    text.applications = "        <bookmark:applications" + bookmarkNames + ">\n" + text.application +
                        "</bookmark:applications>\n      ";
    text.metadata = "      <metadata owner=\"http://freedesktop.org\">\n        <mime:mime-type" + mimeNames +
                    " type=\"" + Escaped(document.mimeType) + "\"/>\n" + text.applications +
                    "</metadata>\n    ";
    text.info = "    <info>\n" + text.metadata + "</info>\n  ";
    return text;
}

/// The entry of a document that is in the list already, brought up to date.
std::string UpdatedEntry(std::string_view entry, const RecentDocument& document, bool namesDeclared) {
    const EntryText text = TextOf(document, namesDeclared);
    const std::string moment = Moment(document.used);
    Tags tags(entry);
    const std::optional<Tag> first = tags.Next();
    std::string start(entry.substr(0, first->end));
    SetAttribute(start, "modified", moment);
    SetAttribute(start, "visited", moment);
    if (first->empty) {
        start.replace(start.size() - 2, 2, ">\n");
        return start + text.info + "</bookmark>";
    }

    // The innermost of the ends that are there takes what is missing.
    std::size_t place = std::string_view::npos;
    int rank = 0;
    const std::string* missing = nullptr;
    bool inMetadata = false;
    const auto offer = [&](const Tag& tag, int offeredRank, const std::string& content) {
        if (offeredRank <= rank) return;
        rank = offeredRank;
        place = tag.begin;
        missing = &content;
    };
    while (const auto tag = tags.Next()) {
        if (tag->name == "metadata" && !tag->closing) {
            const auto owner = AttributeOf(entry.substr(tag->begin, tag->end - tag->begin), "owner");
            inMetadata = !tag->empty && owner && *owner == "http://freedesktop.org";
        }
        if (tag->name == "bookmark:application" && !tag->closing) {
            std::string application(entry.substr(tag->begin, tag->end - tag->begin));
            const auto name = AttributeOf(application, "name");
            if (!name || Unescaped(*name) != ApplicationName) continue;
            const std::optional<std::string_view> count = AttributeOf(application, "count");
            int uses = 0;
            if (count) std::from_chars(count->data(), count->data() + count->size(), uses);
            SetAttribute(application, "count", std::to_string(std::clamp(uses, 0, 1'000'000) + 1));
            SetAttribute(application, "modified", moment);
            return start.append(entry.substr(first->end, tag->begin - first->end))
                .append(application)
                .append(entry.substr(tag->end));
        }
        if (!tag->closing) continue;
        if (tag->name == "bookmark:applications") offer(*tag, 4, text.application);
        if (tag->name == "metadata" && inMetadata) offer(*tag, 3, text.applications);
        if (tag->name == "info") offer(*tag, 2, text.metadata);
        if (tag->name == "bookmark") offer(*tag, 1, text.info);
    }
    if (missing == nullptr) return std::string(entry);
    return start.append(entry.substr(first->end, place - first->end))
        .append(*missing)
        .append(entry.substr(place));
}

std::string NewList() {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xbel version=\"1.0\"\n      xmlns:bookmark=\"" +
           std::string(BookmarkNames) + "\"\n      xmlns:mime=\"" + std::string(MimeNames) +
           "\"\n>\n</xbel>\n";
}

}  // namespace

std::optional<std::string> AddRecentDocument(std::string_view list, const RecentDocument& document) {
    if (list.empty()) return AddRecentDocument(NewList(), document);

    Tags tags(list);
    const std::optional<Tag> root = tags.Next();
    if (!root || root->name != "xbel" || root->closing || root->empty) return std::nullopt;
    const std::string_view rootTag = list.substr(root->begin, root->end - root->begin);
    const bool namesDeclared =
        AttributeOf(rootTag, "xmlns:bookmark").has_value() && AttributeOf(rootTag, "xmlns:mime").has_value();

    std::vector<std::string_view> open{root->name};
    std::optional<Tag> entry;  // that of the document
    std::size_t entryEnd = 0;
    std::size_t rootEnd = 0;
    while (const auto tag = tags.Next()) {
        if (open.empty()) return std::nullopt;
        if (!tag->closing) {
            if (!entry && tag->name == "bookmark") {
                const auto address = AttributeOf(list.substr(tag->begin, tag->end - tag->begin), "href");
                if (address && Unescaped(*address) == document.address) {
                    entry = tag;
                    if (tag->empty) entryEnd = tag->end;
                }
            }
            if (!tag->empty) open.push_back(tag->name);
            continue;
        }
        if (open.back() != tag->name) return std::nullopt;
        open.pop_back();
        if (entry && entryEnd == 0 && tag->name == "bookmark") entryEnd = tag->end;
        if (open.empty()) rootEnd = tag->begin;
    }
    if (!open.empty() || rootEnd == 0) return std::nullopt;

    if (entry) {
        const std::string_view old = list.substr(entry->begin, entryEnd - entry->begin);
        return std::string(list.substr(0, entry->begin))
            .append(UpdatedEntry(old, document, namesDeclared))
            .append(list.substr(entryEnd));
    }
    const std::string moment = Moment(document.used);
    const std::string added = "  <bookmark href=\"" + Escaped(document.address) + "\" added=\"" + moment +
                              "\" modified=\"" + moment + "\" visited=\"" + moment + "\">\n" +
                              TextOf(document, namesDeclared).info + "</bookmark>\n";
    return std::string(list.substr(0, rootEnd)).append(added).append(list.substr(rootEnd));
}

std::optional<std::string> ClearedRecentDocuments(std::string_view list) {
    if (list.empty()) return NewList();
    Tags tags(list);
    const std::optional<Tag> root = tags.Next();
    if (!root || root->name != "xbel" || root->closing) return std::nullopt;
    if (root->empty) return std::string(list);
    // Its end has to stand: what was cut off somewhere is not ours to throw away.
    int depth = 1;
    std::size_t end = 0;
    while (const auto tag = tags.Next()) {
        if (depth == 0) return std::nullopt;
        if (!tag->empty) depth += tag->closing ? -1 : 1;
        if (depth == 0) end = tag->begin;
    }
    if (depth != 0) return std::nullopt;
    return std::string(list.substr(0, root->end)).append("\n").append(list.substr(end));
}

std::string MimeTypeOf(std::string_view fileName) {
    struct Ending {
        std::string_view ending;
        std::string_view type;
    };
    static constexpr std::array<Ending, 19> Endings{{{".BMP", "image/bmp"},
                                                     {".DIB", "image/bmp"},
                                                     {".RLE", "image/rle"},
                                                     {".GIF", "image/gif"},
                                                     {".JPG", "image/jpeg"},
                                                     {".JPEG", "image/jpeg"},
                                                     {".JPE", "image/jpeg"},
                                                     {".JIF", "image/jpeg"},
                                                     {".JFIF", "image/jpeg"},
                                                     {".PNG", "image/png"},
                                                     {".ICO", "image/vnd.microsoft.icon"},
                                                     {".CUR", "image/x-win-bitmap"},
                                                     {".WMF", "image/wmf"},
                                                     {".EMF", "image/emf"},
                                                     {".TGA", "image/x-tga"},
                                                     {".PCX", "image/vnd.zbrush.pcx"},
                                                     {".WAV", "audio/x-wav"},
                                                     {".MID", "audio/midi"},
                                                     {".TVS", "application/x-tavrix-show"}}};
    for (const Ending& known : Endings) {
        if (EndsInIgnoringCase(fileName, known.ending)) return std::string(known.type);
    }
    return "application/octet-stream";
}

}  // namespace tavrix
