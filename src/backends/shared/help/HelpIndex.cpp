#include "backends/shared/help/HelpIndex.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

#include "base/Text.h"

namespace tavrix {
namespace {

constexpr std::string_view LinkStart = "](";

bool BelongsToWord(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// The page of the first link in a line; null for none.
const HelpPage* LinkedPage(const HelpBook& book, std::string_view line) {
    const std::size_t start = line.find(LinkStart);
    if (start == std::string_view::npos) return nullptr;
    line.remove_prefix(start + LinkStart.size());
    const auto number = HelpBook::PageOfLink(line.substr(0, line.find(')')));
    return number ? book.Find(*number) : nullptr;
}

/// A text without the addresses of its links.
std::string WithoutAddresses(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        const std::size_t link = std::min(text.find(LinkStart), text.size());
        plain += text.substr(0, link);
        text.remove_prefix(link);
        if (text.empty()) break;
        plain += ' ';
        const std::size_t end = text.find(')');
        text.remove_prefix(end == std::string_view::npos ? LinkStart.size() : end + 1);
    }
    return plain;
}

}  // namespace

std::vector<HelpChapter> ChaptersOf(const HelpBook& book) {
    constexpr std::string_view bold = "**";
    std::vector<HelpChapter> chapters;
    std::set<const HelpPage*> taken;
    const HelpPage* const contents = book.Find(0);
    taken.insert(contents);
    std::string_view text = contents != nullptr ? std::string_view(contents->body) : std::string_view();
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string line = Trim(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.size() > 2 * bold.size() && line.starts_with(bold) && line.ends_with(bold)) {
            chapters.push_back({line.substr(bold.size(), line.size() - 2 * bold.size()), {}});
        } else if (line.starts_with("- ")) {
            const HelpPage* const page = LinkedPage(book, line);
            if (page == nullptr || !taken.insert(page).second) continue;
            if (chapters.empty()) chapters.emplace_back();
            chapters.back().pages.push_back(page);
        }
    }
    std::erase_if(chapters, [](const HelpChapter& chapter) { return chapter.pages.empty(); });
    HelpChapter others;
    for (const HelpPage& page : book.Pages()) {
        if (!taken.contains(&page)) others.pages.push_back(&page);
    }
    if (!others.pages.empty()) chapters.push_back(std::move(others));
    return chapters;
}

std::vector<std::string> WordsOf(std::string_view text) {
    std::vector<std::string> words;
    const std::string upper = UpperCase(text);
    for (std::size_t at = 0; at < upper.size();) {
        std::size_t end = at;
        while (end < upper.size() && BelongsToWord(upper[end]))
            ++end;
        if (end > at) words.push_back(upper.substr(at, end - at));
        at = end + 1;
    }
    return words;
}

std::string StemOf(const std::string& word) {
    constexpr std::size_t shortest = 4;
    static constexpr std::array<std::string_view, 6> endings{"ING", "ION", "ED", "ES", "S", "E"};
    for (const std::string_view ending : endings) {
        if (!word.ends_with(ending) || word.size() < ending.size() + shortest) continue;
        std::string stem = word.substr(0, word.size() - ending.size());
        const bool doubled = stem[stem.size() - 1] == stem[stem.size() - 2];
        if (doubled && stem.size() > shortest) stem.pop_back();
        return stem;
    }
    return word;
}

HelpIndex::HelpIndex(const HelpBook& book) {
    for (const HelpPage& page : book.Pages()) {
        // The contents name every page, and would be found for everything.
        if (page.context == 0) continue;
        entries_.push_back({&page, WordsOf(page.title), WordsOf(WithoutAddresses(page.body))});
    }
}

double HelpIndex::Weight(const Entry& entry, const std::string& word) {
    const std::string stem = StemOf(word);
    const auto count = [&](const std::vector<std::string>& words) {
        double sum = 0;
        for (const std::string& other : words) {
            constexpr double same = 3;
            constexpr double begun = 2;
            if (other == word) {
                sum += same;
            } else if (other.starts_with(word)) {
                sum += begun;
            } else if (other.starts_with(stem)) {
                sum += 1;
            }
        }
        return sum;
    };
    constexpr double titleCounts = 4;
    return std::log2(1 + count(entry.body)) + titleCounts * count(entry.title);
}

std::vector<const HelpPage*> HelpIndex::Find(std::string_view text) const {
    struct Hit {
        const HelpPage* page;
        int words;
        double weight;
    };
    std::vector<Hit> hits;
    for (const Entry& entry : entries_)
        hits.push_back({entry.page, 0, 0});
    for (const std::string& word : WordsOf(text)) {
        std::vector<double> weights;
        for (const Entry& entry : entries_)
            weights.push_back(Weight(entry, word));
        const auto having = std::ranges::count_if(weights, [](double weight) { return weight > 0; });
        // A word that few pages have says more than one that is everywhere.
        const double rarity =
            std::log2(1 + static_cast<double>(entries_.size()) / (1 + static_cast<double>(having)));
        for (std::size_t i = 0; i < hits.size(); ++i) {
            hits[i].words += weights[i] > 0 ? 1 : 0;
            hits[i].weight += weights[i] * rarity;
        }
    }
    int most = 1;
    for (const Hit& hit : hits)
        most = std::max(most, hit.words);
    std::erase_if(hits, [most](const Hit& hit) { return hit.words < most; });
    std::ranges::stable_sort(hits, std::ranges::greater(), &Hit::weight);
    std::vector<const HelpPage*> pages;
    for (const Hit& hit : hits)
        pages.push_back(hit.page);
    return pages;
}

}  // namespace tavrix
