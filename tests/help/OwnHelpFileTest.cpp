#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>

#include "backends/shared/help/HelpBook.h"
#include "backends/shared/help/HelpIndex.h"
#include "core/CommandWords.h"
#include "core/HelpContexts.h"

namespace tavrix::test {
namespace {

HelpBook OwnBook() {
    std::ifstream file(HELP_FILE, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    auto book = HelpBook::Parse(bytes);
    if (!book) throw std::runtime_error("no help file");
    return *book;
}

/// The pages that a body links to; links of other kinds are failures.
std::set<unsigned> LinksOf(const std::string& body) {
    static const std::regex link(R"(\]\(([^)]*)\))");
    std::set<unsigned> pages;
    for (std::sregex_iterator i(body.begin(), body.end(), link), end; i != end; ++i) {
        if ((*i)[1].str().starts_with("picture:")) continue;  // HelpPicturesTest
        const auto page = HelpBook::PageOfLink((*i)[1].str());
        EXPECT_TRUE(page) << (*i)[1];
        if (page) pages.insert(*page);
    }
    return pages;
}

/// The numbers that windows and boxes name, by their names, as the header lists them.
std::map<std::string, unsigned> ContextsOfSources() {
    std::ifstream file(CONTEXTS_HEADER, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    static const std::regex line(R"(constexpr unsigned (\w+) = (\d+);)");
    std::map<std::string, unsigned> contexts;
    for (std::sregex_iterator i(text.begin(), text.end(), line), end; i != end; ++i)
        contexts[(*i)[1].str()] = static_cast<unsigned>(std::stoul((*i)[2].str()));
    return contexts;
}

TEST(OwnHelpFileTest, EveryContextHasAPage) {
    const HelpBook book = OwnBook();
    const auto contexts = ContextsOfSources();
    ASSERT_EQ(contexts.at("MainView"), HelpContext::MainView);
    std::set<unsigned> numbers;
    for (const auto& [name, number] : contexts) {
        EXPECT_TRUE(numbers.insert(number).second) << name << " has the number of another one";
        const HelpPage* const page = book.Find(number);
        ASSERT_NE(page, nullptr) << name;
        EXPECT_GT(page->body.size(), 200U) << name;
    }
}

TEST(OwnHelpFileTest, TheSearchHasItsPage) {
    EXPECT_EQ(HelpContext::Search, HelpBook::SearchPage);
}

/// What people would type, and the page that they want.
TEST(OwnHelpFileTest, ASearchFindsThePageThatTells) {
    const HelpBook book = OwnBook();
    const HelpIndex index(book);
    for (const auto& [words, page] : std::map<std::string, unsigned>{{"rotate", 1190},
                                                                     {"rotating", 1190},
                                                                     {"resize image", 1240},
                                                                     {"crop", 1310},
                                                                     {"wallpaper", 210},
                                                                     {"jpeg export", 190},
                                                                     {"recent files", 150},
                                                                     {"create slide show", 20},
                                                                     {"quick folder", 130},
                                                                     {"tip startup", 280},
                                                                     {"recycle bin", 270},
                                                                     {"floppy drive", 270},
                                                                     {"memory", 310},
                                                                     {"backup", 1350},
                                                                     {"version", 290},
                                                                     {"undo", 30},
                                                                     {"descriptions", 1380},
                                                                     {"duplicate", 1390},
                                                                     {"command line", 160}}) {
        const auto found = index.Find(words);
        const auto place = std::ranges::find(found, page, &HelpPage::context) - found.begin();
        EXPECT_LT(place, 3) << words << ": " << (found.empty() ? "nothing" : found.front()->title);
    }
}

TEST(OwnHelpFileTest, ThePageOfTheStartTellsEveryWordOfTheCommandLine) {
    std::string body = OwnBook().Find(HelpContext::StartingTavrix)->body;
    body = std::regex_replace(body, std::regex(R"(\[([^\]]*)\]\([^)]*\))"), "$1");
    for (const CommandWord& command : CommandWords) {
        const auto words = command.Words();
        std::string cell(words.front());
        for (std::size_t i = 1; i < words.size(); ++i)
            cell += (i + 1 == words.size() ? " or " : ", ") + std::string(words[i]);
        if (!command.argument.empty()) cell += " and " + std::string(command.argument);
        EXPECT_NE(body.find("| " + cell + " | " + std::string(command.does) + " |"), std::string::npos)
            << cell;
    }
    for (const DesktopOption& option : DesktopOptions)
        EXPECT_NE(body.find(option.option), std::string::npos) << option.option;
}

/// What stands in a window as long as something has not come.
TEST(OwnHelpFileTest, ThePagesOfThumbnailsTellWhatWaitingLooksLike) {
    const HelpBook book = OwnBook();
    for (const unsigned page : {HelpContext::Thumbnails, HelpContext::ThumbFolder})
        EXPECT_NE(book.Find(page)->body.find("*Please wait...*"), std::string::npos) << page;
    for (const unsigned page : {HelpContext::ThumbFolder, HelpContext::ThumbSelect})
        EXPECT_NE(book.Find(page)->body.find("*OK* waits"), std::string::npos) << page;
}

TEST(OwnHelpFileTest, EveryLinkLeadsToAPage) {
    const HelpBook book = OwnBook();
    for (const HelpPage& page : book.Pages()) {
        for (const unsigned target : LinksOf(page.body)) {
            EXPECT_NE(book.Find(target), nullptr) << page.title << " to " << target;
            EXPECT_NE(target, page.context) << page.title << " to itself";
        }
    }
}

TEST(OwnHelpFileTest, TheContentsLeadToEveryOtherPage) {
    const HelpBook book = OwnBook();
    std::set<unsigned> others;
    for (const HelpPage& page : book.Pages()) {
        if (page.context != 0) others.insert(page.context);
    }
    EXPECT_EQ(LinksOf(book.Find(0)->body), others);
    EXPECT_EQ(book.Pages().front().context, 0U);
}

}  // namespace
}  // namespace tavrix::test
