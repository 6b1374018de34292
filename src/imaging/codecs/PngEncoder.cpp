#include "imaging/codecs/PngEncoder.h"

#include <png.h>

#include <csetjmp>
#include <type_traits>

namespace tavrix {
namespace {

/// The largest piece of packed data.
constexpr std::size_t PieceBytes = 1U << 18U;

using Write = std::function<bool(std::span<const std::byte>)>;

[[noreturn]] void Fail(png_structp png, png_const_charp) {
    std::longjmp(*static_cast<std::jmp_buf*>(png_get_error_ptr(png)), 1);
}

void Silence(png_structp, png_const_charp) {}

void Flush(png_structp) {}

class PngWriter {
  public:
    explicit PngWriter(const Write& write) : write_(write) {}
    ~PngWriter() { png_destroy_write_struct(&png_, &info_); }

    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;

    bool Run(const Surface& surface, PngPacking packing) {
        return Try([&] {
            Describe(surface, packing);
            for (int y = 0; y < surface.Height(); ++y)
                png_write_row(png_, reinterpret_cast<png_const_bytep>(surface.Row(y).data()));
            png_write_end(png_, nullptr);
        });
    }

  private:
    /// Runs a step that may end by a jump out of the library; false then. A jump must not skip destructors, so the
    /// step's own variables have none.
    template <class Step>
    bool Try(Step step) {
        static_assert(std::is_trivially_destructible_v<Step>);
        if (setjmp(escape_) != 0) return false;
        step();
        return true;
    }

    static void WriteOutput(png_structp png, png_bytep bytes, std::size_t count) {
        const auto& writer = *static_cast<const PngWriter*>(png_get_io_ptr(png));
        if (!writer.write_(std::as_bytes(std::span(bytes, count)))) png_error(png, "write refused");
    }

    void Describe(const Surface& surface, PngPacking packing) {
        png_ = png_create_write_struct(PNG_LIBPNG_VER_STRING, &escape_, Fail, Silence);
        if (png_ == nullptr) std::longjmp(escape_, 1);
        info_ = png_create_info_struct(png_);
        if (info_ == nullptr) std::longjmp(escape_, 1);
        png_set_write_fn(png_, this, WriteOutput, Flush);
        png_set_user_limits(png_, MaxPictureSide, MaxPictureSide);
        png_set_compression_buffer_size(png_, PieceBytes);
        png_set_compression_level(png_, packing == PngPacking::Packed ? 1 : 0);
        // Trying out the filters for each row would cost more than packing.
        png_set_filter(png_, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
        png_set_IHDR(png_, info_, static_cast<png_uint_32>(surface.Width()),
                     static_cast<png_uint_32>(surface.Height()), 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                     PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        png_write_info(png_, info_);
        png_set_filler(png_, 0, PNG_FILLER_AFTER);
        png_set_bgr(png_);
    }

    const Write& write_;
    std::jmp_buf escape_{};
    png_structp png_ = nullptr;
    png_infop info_ = nullptr;
};

}  // namespace

bool EncodePng(const Surface& surface, PngPacking packing, const Write& write) {
    return !surface.Empty() && PngWriter(write).Run(surface, packing);
}

}  // namespace tavrix
