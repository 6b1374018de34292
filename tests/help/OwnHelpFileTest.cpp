#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "backends/shared/help/HelpBook.h"
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
        const auto page = HelpBook::PageOfLink((*i)[1].str());
        EXPECT_TRUE(page) << (*i)[1];
        if (page) pages.insert(*page);
    }
    return pages;
}

TEST(OwnHelpFileTest, EveryContextHasAPage) {
    namespace Context = HelpContext;
    const HelpBook book = OwnBook();
    for (const unsigned context :
         {Context::Contents,     Context::MainView,         Context::OpenImage,   Context::FavoriteFolder,
          Context::QuickFolders, Context::ImageInformation, Context::RecentFiles, Context::StartingTavrix,
          Context::Settings,     Context::SaveCopy,         Context::Export,      Context::Import,
          Context::MovedProgram, Context::CropImage,        Context::NewImage,    Context::BackgroundColor,
          Context::RotateImage,  Context::ResizeImage,      Context::Wallpaper,   Context::DisplayColours,
          Context::AnimatedGif,  Context::Thumbnails,       Context::ThumbFolder, Context::ThumbSelect}) {
        ASSERT_NE(book.Find(context), nullptr) << context;
        EXPECT_GT(book.Find(context)->body.size(), 200U) << context;
    }
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
