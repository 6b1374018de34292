#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

#include "imaging/codecs/GifAnimation.h"

namespace tavrix::fuzz {
namespace {

/// Larger canvases cost too much time for an input.
constexpr int MostPixels = 1 << 18;
constexpr int MostFrames = 60;

class KeptBytes final : public ByteSource {
  public:
    KeptBytes(const std::uint8_t* data, std::size_t size)
        : bytes_(reinterpret_cast<const std::byte*>(data), reinterpret_cast<const std::byte*>(data) + size) {}

    [[nodiscard]] std::uint64_t Size() const override { return bytes_.size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> into) override {
        return MemorySource(bytes_).ReadAt(offset, into);
    }

  private:
    std::vector<std::byte> bytes_;
};

bool SmallScreen(const std::uint8_t* data, std::size_t size) {
    if (size < 10) return true;
    const int width = data[6] | data[7] << 8U;
    const int height = data[8] | data[9] << 8U;
    return width != 0 && height != 0 && width <= MostPixels / height;
}

void Play(Animation& animation) {
    const int width = animation.Canvas().Width();
    const int height = animation.Canvas().Height();
    for (int frame = 0; frame < MostFrames; ++frame) {
        if (animation.Stay().count() <= 0) std::abort();
        if (animation.Canvas().Width() != width || animation.Canvas().Height() != height) std::abort();
        bool opaque = true;
        for (const Pixel pixel : animation.Canvas().Pixels())
            opaque = opaque && (pixel >> 24U) == 0xFFU;
        if (!opaque && !animation.Transparent()) std::abort();
        if (!animation.Next()) {
            if (animation.Next()) std::abort();
            return;
        }
    }
}

}  // namespace
}  // namespace tavrix::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tavrix;
    if (!fuzz::SmallScreen(data, size)) return 0;
    const OpenedAnimation opened = OpenGifAnimation(std::make_unique<fuzz::KeptBytes>(data, size));
    if (opened.error.has_value() == (opened.animation != nullptr)) std::abort();
    if (opened.animation) fuzz::Play(*opened.animation);
    return 0;
}
