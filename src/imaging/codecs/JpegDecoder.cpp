#include "imaging/codecs/JpegDecoder.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio>
#include <memory>
#include <new>
#include <optional>
#include <type_traits>
#include <vector>

// These two need <cstdio>, and this order.
#include <jpeglib.h>

#include <jerror.h>

#include "imaging/codecs/CoefficientRelease.h"
#include "imaging/codecs/Exif.h"
#include "imaging/codecs/Orient.h"

namespace tavrix {
namespace {

static_assert(BITS_IN_JSAMPLE == 8);

/// What the library may hold of a progressive picture: its coefficients stay in memory until the last scan.
constexpr long MostLibraryMemory = 1L << 30U;

/// Scans times pixels that are worked through; real files have about ten scans.
constexpr std::int64_t MostScannedPixels = 4LL << 30U;
constexpr std::int64_t FewestScansAllowed = 40;
constexpr std::int64_t MostScansAllowed = 500;

/// From here on the memory and the time that many scans take are worth some care.
constexpr std::int64_t LargePixels = 4LL << 20U;

constexpr int RowsBetweenReports = 32;
/// Transposed pictures are turned in bands of this many stored rows: a cache line's worth of pixels.
constexpr int BandRows = 64;

/// Reports failures by a jump, as the library asks for, and keeps account of its warnings.
struct Errors : jpeg_error_mgr {
    std::jmp_buf escape;
    int failure = 0;         ///< the library's number of the failure
    bool truncated = false;  ///< data ran out
    bool corrupt = false;
    JDIMENSION stopRow = JPEG_MAX_DIMENSION;  ///< one-scan files: the first row that has no data
    JDIMENSION reduction = 1;                 ///< by which part of their sides blocks come out smaller
};

struct Input : jpeg_source_mgr {
    ByteSource* bytes = nullptr;
    std::uint64_t offset = 0;  ///< behind what the buffer holds
    bool ended = false;
    std::array<JOCTET, 65536> buffer;
};

struct Progress : jpeg_progress_mgr {
    const Cancellation* waiting = nullptr;
    int scansAllowed = 0;
};

/// Lets the library find the end of the picture instead of more data.
void PretendEnd(jpeg_decompress_struct& info) {
    auto& input = *static_cast<Input*>(info.src);
    input.ended = true;
    input.offset -= input.bytes_in_buffer;
    input.bytes_in_buffer = 0;
}

[[noreturn]] void Fail(j_common_ptr info) {
    auto& errors = *static_cast<Errors*>(info->err);
    errors.failure = errors.msg_code;
    std::longjmp(errors.escape, 1);
}

void Note(j_common_ptr common, int level) {
    if (level >= 0) return;  // only traces
    auto& errors = *static_cast<Errors*>(common->err);
    const auto& info = *reinterpret_cast<const jpeg_decompress_struct*>(common);
    const bool atEnd = info.unread_marker == JPEG_EOI;
    switch (errors.msg_code) {
        case JWRN_EXTRANEOUS_DATA:
        case JWRN_ADOBE_XFORM:
        case JWRN_JFIF_MAJOR:
        case JWRN_NOT_SEQUENTIAL:
        case JWRN_TOO_MUCH_DATA:
        case JWRN_BOGUS_PROGRESSION:
        case JWRN_JPEG_EOF:
            break;  // harmless, or judged elsewhere
        case JWRN_HIT_MARKER:
            // The entropy decoder lacks data. At the end of the file what follows would be grey.
            if (atEnd) {
                const auto rowsOfBlocks =
                    static_cast<JDIMENSION>(info.max_v_samp_factor) * DCTSIZE / errors.reduction;
                errors.stopRow = std::min(errors.stopRow, (info.input_iMCU_row + 1) * rowsOfBlocks);
            }
            [[fallthrough]];
        default:
            // Once the end is reached, all that is wrong follows from that.
            (atEnd ? errors.truncated : errors.corrupt) = true;
    }
}

void Silence(j_common_ptr) {}

void StartInput(j_decompress_ptr) {}

boolean FillInput(j_decompress_ptr info) {
    auto& input = *static_cast<Input*>(info->src);
    std::size_t got = 0;
    if (!input.ended)
        got = input.bytes->ReadAt(input.offset, std::as_writable_bytes(std::span(input.buffer)));
    if (got == 0) {
        input.ended = true;
        input.buffer[0] = 0xFF;
        input.buffer[1] = JPEG_EOI;
        got = 2;
    } else {
        input.offset += got;
    }
    input.next_input_byte = input.buffer.data();
    input.bytes_in_buffer = got;
    return TRUE;
}

void SkipInput(j_decompress_ptr info, long count) {
    if (count <= 0) return;
    auto& input = *static_cast<Input*>(info->src);
    const auto skip = static_cast<std::size_t>(count);
    if (skip <= input.bytes_in_buffer) {
        input.next_input_byte += skip;
        input.bytes_in_buffer -= skip;
        return;
    }
    input.offset += skip - input.bytes_in_buffer;
    input.bytes_in_buffer = 0;
}

void EndInput(j_decompress_ptr) {}

void Watch(j_common_ptr common) {
    auto& info = *reinterpret_cast<jpeg_decompress_struct*>(common);
    const auto& progress = *static_cast<Progress*>(info.progress);
    if (progress.waiting->Cancelled()) Fail(common);
    auto& errors = *static_cast<Errors*>(info.err);
    if (info.input_scan_number > progress.scansAllowed && !static_cast<Input*>(info.src)->ended) {
        errors.corrupt = true;
        PretendEnd(info);
    }
}

/// Ink shares to light. Files by Adobe's writers hold the ink inverted.
void PixelsFromCmyk(std::span<const JSAMPLE> from, bool inverted, std::span<Pixel> into) {
    const unsigned flip = inverted ? 0U : 0xFFU;
    for (std::size_t i = 0; i < into.size(); ++i) {
        const JSAMPLE* ink = &from[4 * i];
        const unsigned black = ink[3] ^ flip;
        const auto light = [&](std::size_t part) { return ((ink[part] ^ flip) * black + 127U) / 255U; };
        into[i] = OpaquePixel(light(0), light(1), light(2));
    }
}

class JpegReader {
  public:
    JpegReader(ByteSource& source, const Cancellation& waiting) : source_(source), waiting_(waiting) {
        info_.err = jpeg_std_error(&errors_);
        errors_.error_exit = Fail;
        errors_.emit_message = Note;
        errors_.output_message = Silence;

        input_.bytes = &source;
        input_.init_source = StartInput;
        input_.fill_input_buffer = FillInput;
        input_.skip_input_data = SkipInput;
        input_.resync_to_restart = jpeg_resync_to_restart;
        input_.term_source = EndInput;

        progress_.progress_monitor = Watch;
        progress_.waiting = &waiting;
        progress_.scansAllowed = static_cast<int>(MostScansAllowed);
    }
    ~JpegReader() { jpeg_destroy_decompress(&info_); }

    JpegReader(const JpegReader&) = delete;
    JpegReader& operator=(const JpegReader&) = delete;

    PictureHeader ReadHeader() {
        if (const auto refused = ReadHeaders()) return {.reason = refused->reason};
        return {.info = Told(), .known = true};
    }

    DecodeStatus Run(PictureSink& sink) {
        if (const auto refused = ReadHeaders()) return *refused;
        if (const auto refused = Prepare(sink)) return *refused;

        if (!Try([&] { jpeg_start_decompress(&info_); })) return Broken("first scan refused by the library");
        if (static_cast<int>(info_.output_width) != storedWidth_ ||
            static_cast<int>(info_.output_height) != storedHeight_) {
            return Ended(Outcome::Corrupt, "size changed under way");
        }
        if (!manyScans_) return ReadRows(sink);

        // All scans are in, so what is missing is missing everywhere.
        errors_.stopRow = JPEG_MAX_DIMENSION;
        if (input_.ended) errors_.truncated = true;
        return ReadRows(sink);
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

    [[nodiscard]] DecodeStatus Ended(Outcome outcome, std::string_view reason) const {
        const std::uint64_t ahead =
            input_.ended ? 0 : std::min<std::uint64_t>(input_.offset, input_.bytes_in_buffer);
        const std::uint64_t offset = std::min(input_.offset - ahead, source_.Size());
        return {outcome, outcome == Outcome::Complete ? 0 : offset, reason, rowsRead_ > 0};
    }

    [[nodiscard]] DecodeStatus Broken(std::string_view reason) const {
        if (waiting_.Cancelled()) return Ended(Outcome::Truncated, "cancelled");
        return Ended(Outcome::Corrupt, reason);
    }

    [[nodiscard]] std::int64_t Pixels() const { return std::int64_t{storedWidth_} * storedHeight_; }

    /// Reads the headers and judges them.
    std::optional<DecodeStatus> ReadHeaders() {
        if (!Try([&] {
                jpeg_create_decompress(&info_);
                info_.src = &input_;
                info_.progress = &progress_;
                info_.mem->max_memory_to_use = MostLibraryMemory;
                jpeg_read_header(&info_, TRUE);
            })) {
            return Ended(Outcome::Corrupt, "headers refused by the library");
        }
        cmyk_ = info_.jpeg_color_space == JCS_CMYK || info_.jpeg_color_space == JCS_YCCK;
        if (!cmyk_ && info_.num_components != 1 && info_.num_components != 3) {
            return Ended(Outcome::Corrupt, "unknown colour space");
        }
        info_.out_color_space = cmyk_ ? JCS_CMYK : JCS_EXT_BGRA;
        storedWidth_ = static_cast<int>(info_.image_width);
        storedHeight_ = static_cast<int>(info_.image_height);
        orientation_ = JpegOrientation(source_);
        manyScans_ = jpeg_has_multiple_scans(&info_) == TRUE;

        const std::int64_t pixels = Pixels();
        progress_.scansAllowed = static_cast<int>(std::clamp(
            MostScannedPixels / std::max<std::int64_t>(pixels, 1), FewestScansAllowed, MostScansAllowed));
        if (input_.ended || (input_.offset >= source_.Size() && input_.bytes_in_buffer == 0)) {
            return Ended(Outcome::Truncated, "no picture data");
        }
        if (manyScans_ && TooEmpty()) return Ended(Outcome::Corrupt, "hardly any data for its size");
        return std::nullopt;
    }

    /// The picture as it is to be decoded.
    [[nodiscard]] PictureInfo Told() const {
        PictureInfo told;
        told.width = Transposes(orientation_) ? storedHeight_ : storedWidth_;
        told.height = Transposes(orientation_) ? storedWidth_ : storedHeight_;
        return told;
    }

    /// Decides how large to decode, and asks for the surface.
    std::optional<DecodeStatus> Prepare(PictureSink& sink) {
        if (manyScans_ && Pixels() >= LargePixels) release_.Attach(info_);
        errors_.reduction = static_cast<JDIMENSION>(sink.Reduction(Told()));
        if (errors_.reduction != 1) {
            info_.scale_num = 1;
            info_.scale_denom = errors_.reduction;
            if (!Try([&] { jpeg_calc_output_dimensions(&info_); }))
                return Ended(Outcome::Corrupt, "size refused by the library");
            storedWidth_ = static_cast<int>(info_.output_width);
            storedHeight_ = static_cast<int>(info_.output_height);
        }
        surface_ = sink.Begin(Told());
        if (surface_ == nullptr) return Ended(Outcome::Corrupt, "surface refused");
        return std::nullopt;
    }

    /// All scans of a large picture must be worked through before its first row, whatever the file holds. Its first
    /// scan has at least a bit a block; a file with less than an eighth of that shows nothing worth the time.
    [[nodiscard]] bool TooEmpty() const {
        if (Pixels() < LargePixels || info_.arith_code == TRUE) return false;
        return static_cast<std::uint64_t>(Pixels() / DCTSIZE2) > source_.Size() * 8 * 8;
    }

    DecodeStatus ReadRows(PictureSink& sink) {
        const auto width = static_cast<std::size_t>(storedWidth_);
        if (cmyk_) ink_.resize(4 * width);
        if (Transposes(orientation_)) band_.resize(width * BandRows);

        const bool whole = Try([&] {
            while (info_.output_scanline < std::min(info_.output_height, errors_.stopRow))
                ReadRow(sink);
        });
        if (Transposes(orientation_)) FlushBand();
        if (Upright()) sink.RowsReady(rowsRead_);
        if (!whole) return Broken("picture data refused by the library");
        if (errors_.corrupt) return Ended(Outcome::Corrupt, "picture data make no sense");
        if (errors_.truncated) return Ended(Outcome::Truncated, "picture data end early");
        return Ended(Outcome::Complete, {});
    }

    /// Whether stored rows come in the order of the picture's rows.
    [[nodiscard]] bool Upright() const {
        return orientation_ == Orientation::TopLeft || orientation_ == Orientation::TopRight;
    }

    /// Where the next stored row goes.
    [[nodiscard]] std::span<Pixel> Target() {
        if (Transposes(orientation_)) {
            const auto width = static_cast<std::size_t>(storedWidth_);
            return std::span(band_).subspan(static_cast<std::size_t>(rowsRead_ % BandRows) * width, width);
        }
        return surface_->Row(Upright() ? rowsRead_ : storedHeight_ - 1 - rowsRead_);
    }

    /// Jumped out of: no destructors here.
    void ReadRow(PictureSink& sink) {
        const std::span<Pixel> target = Target();
        JSAMPROW row = cmyk_ ? ink_.data() : reinterpret_cast<JSAMPROW>(target.data());
        if (jpeg_read_scanlines(&info_, &row, 1) != 1) Fail(reinterpret_cast<j_common_ptr>(&info_));
        if (cmyk_) PixelsFromCmyk(ink_, info_.saw_Adobe_marker == TRUE, target);
        if (orientation_ == Orientation::TopRight || orientation_ == Orientation::BottomRight) {
            std::ranges::reverse(target);
        }
        ++rowsRead_;
        if (Transposes(orientation_)) {
            if (rowsRead_ % BandRows == 0) FlushBand();
        } else if (Upright() && rowsRead_ % RowsBetweenReports == 0) {
            sink.RowsReady(rowsRead_);
        }
    }

    void FlushBand() {
        if (rowsFlushed_ == rowsRead_) return;
        PutTransposed(std::span<const Pixel>(band_), rowsFlushed_, rowsRead_ - rowsFlushed_, orientation_,
                      *surface_);
        rowsFlushed_ = rowsRead_;
    }

    ByteSource& source_;
    const Cancellation& waiting_;
    jpeg_decompress_struct info_{};
    Errors errors_{};
    Input input_{};
    Progress progress_{};
    CoefficientRelease release_;

    Orientation orientation_ = Orientation::TopLeft;
    bool cmyk_ = false;
    bool manyScans_ = false;
    int storedWidth_ = 0;
    int storedHeight_ = 0;
    Surface* surface_ = nullptr;
    int rowsRead_ = 0;
    int rowsFlushed_ = 0;
    std::vector<JSAMPLE> ink_;  ///< one row of CMYK
    std::vector<Pixel> band_;   ///< stored rows on their way to a transposed picture
};

}  // namespace

bool RecognisesJpeg(std::span<const std::byte> start) {
    return start.size() >= 3 && start[0] == std::byte{0xFF} && start[1] == std::byte{0xD8} &&
           start[2] == std::byte{0xFF};
}

PictureHeader ReadJpegSize(ByteSource& source, const Cancellation& waiting) {
    try {
        return std::make_unique<JpegReader>(source, waiting)->ReadHeader();
    } catch (const std::bad_alloc&) {
        return {.reason = "memory refused"};
    }
}

DecodeStatus DecodeJpeg(ByteSource& source, PictureSink& sink) {
    try {
        return std::make_unique<JpegReader>(source, sink)->Run(sink);
    } catch (const std::bad_alloc&) {
        return {Outcome::Corrupt, 0, "memory refused", false};
    }
}

}  // namespace tavrix
