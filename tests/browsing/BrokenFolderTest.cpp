#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include "BrowsingTest.h"

namespace tavrix::test {
namespace {

namespace fs = std::filesystem;

/// A folder with broken files, where there is one: broken/bmp, broken/jpg below TAVRIX_CORPORA.
fs::path Corpora() {
    if (const char* told = std::getenv("TAVRIX_CORPORA")) return told;
    return fs::path(TAVRIX_SOURCE_DIR).parent_path() / "shared" / "corpora";
}

class BrokenFolder : public BrowsingTest, public testing::WithParamInterface<const char*> {};

TEST_P(BrokenFolder, NeverStopsAPage) {
    const fs::path folder = Corpora() / "broken" / GetParam();
    if (!fs::is_directory(folder)) GTEST_SKIP() << "no " << folder;
    Browse(1);
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder))
        files.push_back(entry.path());
    std::ranges::sort(files);
    constexpr std::size_t Enough = 27;  // some of them take long, as drawings may
    const std::size_t every = files.size() / Enough + 1;
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < files.size(); i += every) {
        std::ifstream file(files[i], std::ios::binary);
        paths.push_back("C:\\b\\" + std::to_string(paths.size()) + "." + GetParam());
        platform.disks.PutFile(paths.back(), {std::istreambuf_iterator<char>(file), {}});
    }
    ASSERT_FALSE(paths.empty());
    for (std::size_t first = 0; first < paths.size(); first += frmThumbnail::Slots) {
        const std::vector<std::string> page(
            paths.begin() + static_cast<std::ptrdiff_t>(first),
            paths.begin() + static_cast<std::ptrdiff_t>(std::min(first + frmThumbnail::Slots, paths.size())));
        std::vector<bool> fails;
        for (const std::string& path : page) {
            std::optional<std::string> failure;
            try {
                static_cast<void>(platform.pictures.LoadToFit(path, {160, 120, 1})->Take());
            } catch (const RuntimeError& error) {
                failure = error.Description();
            }
            if (failure) ExpectFailedThumbnail(path, *failure, Answer::Ok);
            fails.push_back(failure.has_value());
        }
        Drop(page);
        ASSERT_EQ(Page().size(), page.size()) << page.front();
        for (std::size_t slot = 0; slot < page.size(); ++slot) {
            EXPECT_EQ(Browser().ThumbWidths[slot] == 0, fails[slot]) << page[slot];
            EXPECT_LE(Browser().picPreview[slot].Width, 160 * 15) << page[slot];
            EXPECT_LE(Browser().picPreview[slot].Height, 120 * 15) << page[slot];
        }
        ExpectReady();
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, BrokenFolder,
                         testing::Values("bmp", "jpg", "gif", "ico", "cur", "tga", "pcx", "wmf", "emf"));

}  // namespace
}  // namespace tavrix::test
