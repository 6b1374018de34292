#include "imaging/codecs/JpegEncoder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <csetjmp>
#include <cstdio>
#include <type_traits>

// It needs <cstdio>.
#include <jpeglib.h>

namespace tavrix {
namespace {

static_assert(BITS_IN_JSAMPLE == 8);

constexpr int FullColourFrom = 90;

using Write = std::function<bool(std::span<const std::byte>)>;

/// Reports failures by a jump, as the library asks for.
struct Errors : jpeg_error_mgr {
    std::jmp_buf escape;
};

struct Output : jpeg_destination_mgr {
    const Write* write = nullptr;
    std::array<JOCTET, 65536> buffer;
};

[[noreturn]] void Fail(j_common_ptr info) {
    std::longjmp(static_cast<Errors*>(info->err)->escape, 1);
}

void Silence(j_common_ptr) {}

void Refill(j_compress_ptr info) {
    auto& output = *static_cast<Output*>(info->dest);
    output.next_output_byte = output.buffer.data();
    output.free_in_buffer = output.buffer.size();
}

void Flush(j_compress_ptr info, std::size_t count) {
    const auto& output = *static_cast<Output*>(info->dest);
    if (!(*output.write)(std::as_bytes(std::span(output.buffer).first(count)))) {
        Fail(reinterpret_cast<j_common_ptr>(info));
    }
}

/// The library asks for the whole buffer to be written, whatever the counters say.
boolean WriteBuffer(j_compress_ptr info) {
    Flush(info, static_cast<Output*>(info->dest)->buffer.size());
    Refill(info);
    return TRUE;
}

void WriteRest(j_compress_ptr info) {
    const auto& output = *static_cast<Output*>(info->dest);
    if (output.free_in_buffer < output.buffer.size())
        Flush(info, output.buffer.size() - output.free_in_buffer);
}

class JpegWriter {
  public:
    explicit JpegWriter(const Write& write) {
        info_.err = jpeg_std_error(&errors_);
        errors_.error_exit = Fail;
        errors_.output_message = Silence;
        output_.write = &write;
        output_.init_destination = Refill;
        output_.empty_output_buffer = WriteBuffer;
        output_.term_destination = WriteRest;
    }
    ~JpegWriter() { jpeg_destroy_compress(&info_); }

    JpegWriter(const JpegWriter&) = delete;
    JpegWriter& operator=(const JpegWriter&) = delete;

    bool Run(const Surface& surface, int quality) {
        return Try([&] {
            jpeg_create_compress(&info_);
            info_.dest = &output_;
            Describe(surface, quality);
            jpeg_start_compress(&info_, TRUE);
            while (info_.next_scanline < info_.image_height)
                WriteRow(surface, static_cast<int>(info_.next_scanline));
            jpeg_finish_compress(&info_);
        });
    }

  private:
    /// Runs a step that may end by a jump out of the library; false then. A jump must not skip destructors, so the
    /// step's own variables have none.
    template <class Step>
    bool Try(Step step) {
        static_assert(std::is_trivially_destructible_v<Step>);
        if (setjmp(errors_.escape) != 0) return false;
        step();
        return true;
    }

    void Describe(const Surface& surface, int quality) {
        info_.image_width = static_cast<JDIMENSION>(surface.Width());
        info_.image_height = static_cast<JDIMENSION>(surface.Height());
        info_.input_components = 4;
        info_.in_color_space = std::endian::native == std::endian::little ? JCS_EXT_BGRX : JCS_EXT_XRGB;
        jpeg_set_defaults(&info_);
        jpeg_set_quality(&info_, std::clamp(quality, 1, 100), TRUE);
        const int lumaFactor = quality < FullColourFrom ? 2 : 1;
        info_.comp_info[0].h_samp_factor = lumaFactor;
        info_.comp_info[0].v_samp_factor = lumaFactor;
    }

    /// Pixels go to the library as they lie in memory; it reads them only, for all that its types say.
    void WriteRow(const Surface& surface, int y) {
        const auto* pixels = reinterpret_cast<const JSAMPLE*>(surface.Row(y).data());
        auto* row = const_cast<JSAMPLE*>(pixels);
        jpeg_write_scanlines(&info_, &row, 1);
    }

    Errors errors_{};
    Output output_{};
    jpeg_compress_struct info_{};
};

}  // namespace

bool EncodeJpeg(const Surface& surface, int quality, const Write& write) {
    if (surface.Empty() || std::max(surface.Width(), surface.Height()) > JPEG_MAX_DIMENSION) return false;
    return JpegWriter(write).Run(surface, quality);
}

}  // namespace tavrix
