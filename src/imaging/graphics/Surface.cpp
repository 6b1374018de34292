#include "imaging/graphics/Surface.h"

#include <algorithm>
#include <cstdlib>

#include "base/RuntimeError.h"
#include "imaging/graphics/Bands.h"

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace tavrix {
namespace {

// From here on a buffer gets a mapping of its own: it comes zeroed, goes back to the system when released, and
// huge pages make the first touch of a large picture several times cheaper.
constexpr std::size_t MappedFrom = std::size_t{8} << 20U;

}  // namespace

void PixelRelease::operator()(Pixel* pixels) const {
#ifdef __linux__
    if (mappedBytes != 0) {
        munmap(pixels, mappedBytes);
        return;
    }
#endif
    std::free(pixels);
}

Surface::Surface(int width, int height) : width_(width), height_(height) {
    if (width < 0 || height < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    if (Empty()) return;
    if (!WithinPictureLimits(width, height)) throw RuntimeError(ErrorNumber::OutOfMemory);
    const std::size_t bytes = Count() * sizeof(Pixel);
#ifdef __linux__
    if (bytes >= MappedFrom) {
        void* memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED) throw RuntimeError(ErrorNumber::OutOfMemory);
        madvise(memory, bytes, MADV_HUGEPAGE);
        pixels_ = std::unique_ptr<Pixel[], PixelRelease>(static_cast<Pixel*>(memory), PixelRelease{bytes});
        return;
    }
#endif
    pixels_.reset(static_cast<Pixel*>(std::calloc(Count(), sizeof(Pixel))));
    if (!pixels_) throw RuntimeError(ErrorNumber::OutOfMemory);
}

Surface Surface::Clone() const {
    Surface copy(width_, height_);
    std::ranges::copy(Pixels(), copy.Pixels().begin());
    return copy;
}

void Surface::Fill(Pixel pixel) {
    // Most of it is the system's work: the pages of a new surface.
    InBands(height_, static_cast<std::int64_t>(Count()), [&](int first, int end) {
        for (int y = first; y < end; ++y)
            std::ranges::fill(Row(y), pixel);
    });
}

}  // namespace tavrix
