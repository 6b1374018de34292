#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <random>

#include "BrowsingTest.h"
#include "viewer/ImageTypes.h"

namespace tavrix::test {
namespace {

namespace fs = std::filesystem;

/// A folder with broken files, where there is one: broken/bmp, broken/jpg below TAVRIX_CORPORA.
fs::path Corpora() {
    if (const char* told = std::getenv("TAVRIX_CORPORA")) return told;
    return fs::path(TAVRIX_SOURCE_DIR).parent_path() / "shared" / "corpora";
}

std::string ContentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What copies, disks and bad writers make of a whole file: it is cut off, goes on, has holes, or tells wrong lengths.
std::vector<std::string> BrokenOf(const std::string& whole) {
    std::vector<std::string> broken;
    const std::size_t size = whole.size();
    for (const std::size_t left : {std::size_t{0}, std::size_t{1}, std::size_t{2}, std::size_t{13},
                                   std::size_t{30}, size / 8, size / 4, size / 2, size - 1})
        broken.push_back(whole.substr(0, std::min(left, size)));
    broken.push_back(whole + std::string(1000, '\0'));
    broken.emplace_back(size, '\0');
    broken.push_back(whole.substr(0, 64) + std::string(size - std::min<std::size_t>(64, size), '\0'));
    // Lengths, sizes and offsets lie at the start in all of these formats, in two or four bytes.
    for (std::size_t at = 0; at + 4 <= std::min<std::size_t>(size, 60); at += 4) {
        for (const char* value : {"\xFF\xFF\xFF\xFF", "\xFF\xFF\xFF\x7F", "\0\0\0\0"}) {
            broken.push_back(whole);
            broken.back().replace(at, 4, std::string(value, 4));
        }
    }
    std::mt19937 random(11);
    for (int i = 0; i < 20; ++i) {
        broken.push_back(whole);
        for (int change = 0; change < 1 + i % 8; ++change)
            broken.back()[random() % size] = static_cast<char>(random());
    }
    return broken;
}

class BrokenFolder : public BrowsingTest, public testing::WithParamInterface<const char*> {
  protected:
    /// Pages of these files come to their end, whatever the user is told of them. Gives how many of them failed.
    int BrowseThrough(const std::vector<std::string>& contents) {
        Browse(1);
        std::vector<std::string> paths;
        for (const std::string& content : contents) {
            paths.push_back("C:\\b\\" + std::to_string(paths.size()) + "." + GetParam());
            platform.disks.PutFile(paths.back(), content);
        }
        int failed = 0;
        for (std::size_t first = 0; first < paths.size(); first += frmThumbnail::Slots) {
            const std::size_t end = std::min(first + frmThumbnail::Slots, paths.size());
            failed += ShowPage({paths.begin() + static_cast<std::ptrdiff_t>(first),
                                paths.begin() + static_cast<std::ptrdiff_t>(end)});
        }
        return failed;
    }

  private:
    int ShowPage(const std::vector<std::string>& page) {
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
        EXPECT_EQ(Page().size(), page.size()) << page.front();
        for (std::size_t slot = 0; slot < page.size(); ++slot) {
            EXPECT_EQ(Browser().ThumbWidths[slot] == 0, fails[slot]) << page[slot];
            EXPECT_LE(Browser().picPreview[slot].Width, 160 * 15) << page[slot];
            EXPECT_LE(Browser().picPreview[slot].Height, 120 * 15) << page[slot];
        }
        ExpectReady();
        return static_cast<int>(std::ranges::count(fails, true));
    }
};

TEST_P(BrokenFolder, OfOurSamplesNeverStopsAPage) {
    std::vector<std::string> contents;
    std::vector<fs::path> samples;
    for (const auto& entry : fs::directory_iterator(fs::path(TAVRIX_SOURCE_DIR) / "samples")) {
        if (entry.path().extension() == std::string(".") + GetParam()) samples.push_back(entry.path());
    }
    ASSERT_FALSE(samples.empty()) << "no sample of this kind";
    // The smallest, since broken ones take as long as whole ones.
    const std::string whole = ContentOf(
        *std::ranges::min_element(samples, {}, [](const fs::path& path) { return fs::file_size(path); }));
    ASSERT_GT(whole.size(), 64U);
    contents = BrokenOf(whole);
    contents.push_back(whole);
    const int failed = BrowseThrough(contents);
    if (IsImportOnly("." + std::string(GetParam()))) {
        EXPECT_EQ(failed, static_cast<int>(contents.size())) << "these have no thumbnails";
        return;
    }
    EXPECT_GE(failed, 5) << "some of these are broken beyond recognition";
    EXPECT_LT(failed, static_cast<int>(contents.size())) << "the whole one is not";
    EXPECT_GT(Browser().ThumbWidths[(contents.size() - 1) % frmThumbnail::Slots], 0);
}

TEST_P(BrokenFolder, OfTheCorporaNeverStopsAPage) {
    const fs::path folder = Corpora() / "broken" / GetParam();
    if (!fs::is_directory(folder)) GTEST_SKIP() << "no " << folder;
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder))
        files.push_back(entry.path());
    std::ranges::sort(files);
    constexpr std::size_t Enough = 27;  // some of them take long, as drawings may
    const std::size_t every = files.size() / Enough + 1;
    std::vector<std::string> contents;
    for (std::size_t i = 0; i < files.size(); i += every)
        contents.push_back(ContentOf(files[i]));
    ASSERT_FALSE(contents.empty());
    BrowseThrough(contents);
}

INSTANTIATE_TEST_SUITE_P(Formats, BrokenFolder,
                         testing::Values("bmp", "dib", "rle", "jpg", "gif", "ico", "cur", "tga", "pcx", "wmf",
                                         "emf"));

}  // namespace
}  // namespace tavrix::test
