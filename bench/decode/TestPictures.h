#pragma once

#include <filesystem>
#include <string>

namespace tavrix::bench {

/// A folder of its own with pictures of 24 megapixels that look like photographs to a codec; removed at the end.
class TestPictures {
  public:
    static constexpr int Width = 6000;
    static constexpr int Height = 4000;

    TestPictures();
    ~TestPictures();
    TestPictures(const TestPictures&) = delete;
    TestPictures& operator=(const TestPictures&) = delete;

    [[nodiscard]] std::string Jpeg() const { return folder_ / "photo.jpg"; }
    [[nodiscard]] std::string Progressive() const { return folder_ / "progressive.jpg"; }
    [[nodiscard]] std::string Turned() const { return folder_ / "turned.jpg"; }
    [[nodiscard]] std::string Bitmap() const { return folder_ / "photo.bmp"; }

  private:
    std::filesystem::path folder_;
};

}  // namespace tavrix::bench
