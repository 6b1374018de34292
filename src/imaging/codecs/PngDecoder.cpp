#include "imaging/codecs/PngDecoder.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <csetjmp>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>

#include "imaging/codecs/ByteReader.h"

namespace tavrix {
namespace {

/// What one chunk may make the library allocate. Nothing but a palette needs any.
constexpr png_alloc_size_t MostChunkMemory = 1U << 20U;
constexpr int RowsBetweenReports = 32;

struct Input {
    explicit Input(ByteSource& source) : reader(source, 0) {}

    ByteReader reader;
    bool ended = false;
};

[[noreturn]] void Fail(png_structp png, png_const_charp) {
    std::longjmp(*static_cast<std::jmp_buf*>(png_get_error_ptr(png)), 1);
}

void Silence(png_structp, png_const_charp) {}

void ReadInput(png_structp png, png_bytep into, std::size_t count) {
    auto& input = *static_cast<Input*>(png_get_io_ptr(png));
    if (input.reader.Read(std::as_writable_bytes(std::span(into, count))) == count) return;
    input.ended = true;
    png_error(png, "data end");
}

class PngReader {
  public:
    PngReader(ByteSource& source, PictureSink& sink) : sink_(sink), input_(source) {}
    ~PngReader() { png_destroy_read_struct(&png_, &info_, nullptr); }

    PngReader(const PngReader&) = delete;
    PngReader& operator=(const PngReader&) = delete;

    DecodeStatus Run() {
        if (!Try([&] { ReadHeader(); })) return Broken("headers refused by the library");
        const bool transparent = (png_get_color_type(png_, info_) & PNG_COLOR_MASK_ALPHA) != 0;
        const auto width = static_cast<std::int64_t>(png_get_image_width(png_, info_));
        const auto height = static_cast<std::int64_t>(png_get_image_height(png_, info_));
        if (width > MaxPictureSide || height > MaxPictureSide) return Broken("over the limits");
        surface_ = sink_.Begin({.width = static_cast<int>(width),
                                .height = static_cast<int>(height),
                                .transparent = transparent || seeThrough_});
        if (surface_ == nullptr) return Broken("surface refused");
        if (!Try([&] { ReadRows(); })) return Broken("picture data refused by the library");
        sink_.RowsReady(surface_->Height());
        return {Outcome::Complete, 0, {}, true};
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

    [[nodiscard]] DecodeStatus Broken(std::string_view reason) const {
        if (sink_.Cancelled()) return {Outcome::Truncated, input_.reader.Offset(), "cancelled", someRows_};
        return {input_.ended ? Outcome::Truncated : Outcome::Corrupt, input_.reader.Offset(), reason,
                someRows_};
    }

    void ReadHeader() {
        png_ = png_create_read_struct(PNG_LIBPNG_VER_STRING, &escape_, Fail, Silence);
        if (png_ == nullptr) std::longjmp(escape_, 1);
        info_ = png_create_info_struct(png_);
        if (info_ == nullptr) std::longjmp(escape_, 1);
        png_set_read_fn(png_, &input_, ReadInput);
        png_set_user_limits(png_, MaxPictureSide, MaxPictureSide);
        png_set_chunk_malloc_max(png_, MostChunkMemory);
        png_set_keep_unknown_chunks(png_, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
        png_read_info(png_, info_);

        seeThrough_ = png_get_valid(png_, info_, PNG_INFO_tRNS) != 0;
        png_set_expand(png_);
        png_set_strip_16(png_);
        png_set_gray_to_rgb(png_);
        png_set_bgr(png_);
        png_set_add_alpha(png_, 0xFF, PNG_FILLER_AFTER);
    }

    /// Jumped out of: no destructors here.
    void ReadRows() {
        const int passes = png_set_interlace_handling(png_);
        png_read_update_info(png_, info_);
        const auto width = static_cast<std::size_t>(surface_->Width());
        if (png_get_rowbytes(png_, info_) != width * sizeof(Pixel)) png_error(png_, "row length");
        for (int pass = 0; pass < passes; ++pass) {
            for (int y = 0; y < surface_->Height(); ++y) {
                if (sink_.Cancelled()) png_error(png_, "cancelled");
                png_read_row(png_, reinterpret_cast<png_bytep>(surface_->Row(y).data()), nullptr);
                someRows_ = true;
                if (passes == 1 && y % RowsBetweenReports == 0) sink_.RowsReady(y + 1);
            }
        }
    }

    PictureSink& sink_;
    Input input_;
    std::jmp_buf escape_{};
    png_structp png_ = nullptr;
    png_infop info_ = nullptr;
    Surface* surface_ = nullptr;
    bool seeThrough_ = false;  ///< some colours are
    bool someRows_ = false;
};

unsigned BitsPerPixel(unsigned depth, unsigned colourType) {
    switch (colourType) {
        case PNG_COLOR_TYPE_RGB:
            return 3 * depth;
        case PNG_COLOR_TYPE_GRAY_ALPHA:
            return 2 * depth;
        case PNG_COLOR_TYPE_RGB_ALPHA:
            return 4 * depth;
        default:
            return depth;
    }
}

}  // namespace

bool RecognisesPng(std::span<const std::byte> start) {
    constexpr std::array<unsigned char, 8> Mark{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    return start.size() >= Mark.size() &&
           std::ranges::equal(start.first<Mark.size()>(), std::as_bytes(std::span(Mark)));
}

std::optional<PngHeader> ReadPngHeader(ByteSource& source) {
    constexpr std::array<unsigned char, 16> Start{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n',
                                                  0,    0,   0,   13,  'I',  'H',  'D',  'R'};
    std::array<std::byte, 26> bytes{};
    if (source.ReadAt(0, bytes) != bytes.size()) return std::nullopt;
    if (!std::ranges::equal(std::span(bytes).first<Start.size()>(), std::as_bytes(std::span(Start)))) {
        return std::nullopt;
    }
    const auto side = [&](std::size_t at) {
        std::uint32_t value = 0;
        for (std::size_t i = at; i < at + 4; ++i)
            value = (value << 8U) | std::to_integer<std::uint32_t>(bytes[i]);
        return value;
    };
    constexpr auto Most = static_cast<std::uint32_t>(std::numeric_limits<int>::max());
    const std::uint32_t width = side(16);
    const std::uint32_t height = side(20);
    if (width == 0 || height == 0 || width > Most || height > Most) return std::nullopt;
    return PngHeader{
        static_cast<int>(width), static_cast<int>(height),
        BitsPerPixel(std::to_integer<unsigned>(bytes[24]), std::to_integer<unsigned>(bytes[25]))};
}

PictureHeader ReadPngSize(ByteSource& source, const Cancellation&) {
    const auto header = ReadPngHeader(source);
    if (!header) return {.reason = "no header"};
    return {.info = {.width = header->width, .height = header->height}, .known = true};
}

DecodeStatus DecodePng(ByteSource& source, PictureSink& sink) {
    try {
        return std::make_unique<PngReader>(source, sink)->Run();
    } catch (const std::bad_alloc&) {
        return {Outcome::Corrupt, 0, "memory refused", false};
    }
}

}  // namespace tavrix
