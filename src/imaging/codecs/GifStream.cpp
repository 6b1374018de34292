#include "imaging/codecs/GifStream.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace tavrix {
namespace {

static_assert(std::numeric_limits<GifPixelType>::max() == 255);

/// Bytes of 0 between blocks, in all.
constexpr int MostPadding = 1 << 16;
constexpr int RowsBetweenReports = 32;

struct Pass {
    int first;
    int step;
};
constexpr std::array<Pass, 1> RowByRow{{{0, 1}}};
constexpr std::array<Pass, 4> Interlaced{{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};

/// The text of a block, which tells its length first.
std::string_view TextOf(const GifByteType* block) {
    return {reinterpret_cast<const char*>(block) + 1, block[0]};
}

GifControl::Disposal DisposalOf(unsigned flags) {
    switch ((flags >> 2U) & 7U) {
        case 2:
            return GifControl::Disposal::Background;
        case 3:
        case 4:  // some writers take the third bit for the number 3
            return GifControl::Disposal::Previous;
        default:
            return GifControl::Disposal::Keep;
    }
}

}  // namespace

int GifStream::Input::Read(std::span<std::byte> into) {
    if (cancelled_()) return 0;
    const std::size_t got = inPixels_ ? ReadPixelData(into) : reader_.Read(into);
    if (got != 0) last_ = into[got - 1];
    return static_cast<int>(got);
}

void GifStream::Input::StartPixels() {
    inPixels_ = true;
    pixelsEnded_ = false;
    blockLeft_ = 0;
}

void GifStream::Input::EndPixels() {
    if (!inPixels_) return;
    reader_.Skip(blockLeft_);
    while (!pixelsEnded_ && !cancelled_()) {
        const auto length = reader_.Next();
        pixelsEnded_ = length.value_or(0) == 0;
        reader_.Skip(length.value_or(0));
    }
    inPixels_ = false;
}

/// The library refuses a block that is cut off. It is told a block as long as there are bytes, and an end behind
/// it, so that no pixel is lost.
std::size_t GifStream::Input::ReadPixelData(std::span<std::byte> into) {
    if (blockLeft_ != 0) {
        const std::size_t got = reader_.Read(into.first(std::min(into.size(), blockLeft_)));
        blockLeft_ = got < into.size() ? 0 : blockLeft_ - got;
        return got;
    }
    if (into.empty()) return 0;
    const auto length = reader_.Next();
    const std::uint64_t there = AtEnd() ? 0 : source_.Size() - Offset();
    blockLeft_ = static_cast<std::size_t>(std::min<std::uint64_t>(length.value_or(0), there));
    pixelsEnded_ = blockLeft_ == 0;
    into[0] = static_cast<std::byte>(blockLeft_);
    return 1;
}

void GifStream::Close::operator()(GifFileType* file) const {
    int ignored = 0;
    DGifCloseFile(file, &ignored);
}

int GifStream::ReadInput(GifFileType* file, GifByteType* into, int count) {
    if (count <= 0) return 0;
    const std::span bytes(into, static_cast<std::size_t>(count));
    return static_cast<Input*>(file->UserData)->Read(std::as_writable_bytes(bytes));
}

GifStream::GifStream(ByteSource& source, std::function<bool()> cancelled)
    : input_(source, std::move(cancelled)) {}

GifStream::~GifStream() = default;

bool GifStream::Open() {
    int error = 0;
    file_.reset(DGifOpen(&input_, ReadInput, &error));
    return file_ != nullptr;
}

GifStream::Found GifStream::NextImage() {
    input_.EndPixels();
    control_.reset();
    // The library remembers the header and the colours of each image.
    GifFreeSavedImages(file_.get());
    file_->ImageCount = 0;
    for (;;) {
        GifRecordType type = UNDEFINED_RECORD_TYPE;
        if (DGifGetRecordType(file_.get(), &type) == GIF_ERROR) {
            const bool padding = file_->Error == D_GIF_ERR_WRONG_RECORD && input_.Last() == std::byte{0};
            if (padding && ++padding_ <= MostPadding && !input_.AtEnd()) continue;
            return Found::Nothing;
        }
        if (type == TERMINATE_RECORD_TYPE) return Found::Trailer;
        if (type == EXTENSION_RECORD_TYPE) {
            if (!ReadExtension()) return Found::Nothing;
            continue;
        }
        if (DGifGetImageDesc(file_.get()) == GIF_ERROR) return Found::Nothing;
        input_.StartPixels();
        return Found::Image;
    }
}

bool GifStream::ReadExtension() {
    int kind = 0;
    GifByteType* block = nullptr;
    if (DGifGetExtension(file_.get(), &kind, &block) == GIF_ERROR) return false;
    // A text takes what was told before it for itself.
    if (kind == PLAINTEXT_EXT_FUNC_CODE) control_.reset();
    if (kind == GRAPHICS_EXT_FUNC_CODE && block != nullptr && block[0] >= 4) TakeControl(block);
    const bool repeats = kind == APPLICATION_EXT_FUNC_CODE && block != nullptr &&
                         (TextOf(block) == "NETSCAPE2.0" || TextOf(block) == "ANIMEXTS1.0");
    while (block != nullptr) {
        if (DGifGetExtensionNext(file_.get(), &block) == GIF_ERROR) return false;
        if (repeats && block != nullptr && block[0] >= 3 && (block[1] & 7U) == 1)
            repetitions_ = block[2] | block[3] << 8U;
    }
    return true;
}

void GifStream::TakeControl(const GifByteType* block) {
    const unsigned flags = block[1];
    control_ = GifControl{.disposal = DisposalOf(flags), .delay = block[2] | block[3] << 8U};
    if ((flags & 1U) != 0) control_->transparent = block[4];
}

DecodeStatus GifStream::Broken(std::string_view reason) const {
    if (input_.Cancelled()) return {Outcome::Truncated, Offset(), "cancelled", somePixels_};
    return {input_.AtEnd() ? Outcome::Truncated : Outcome::Corrupt, Offset(), reason, somePixels_};
}

void GifStream::TakeColours() {
    const ColorMapObject* table = file_->Image.ColorMap != nullptr ? file_->Image.ColorMap : file_->SColorMap;
    palette_.fill(OpaquePixel(0, 0, 0));
    if (table != nullptr) {
        const auto count = std::min(palette_.size(), static_cast<std::size_t>(table->ColorCount));
        for (std::size_t i = 0; i < count; ++i) {
            const GifColorType& colour = table->Colors[i];
            palette_[i] = OpaquePixel(colour.Red, colour.Green, colour.Blue);
        }
    } else {
        for (unsigned i = 2; i < palette_.size(); ++i)
            palette_[i] = OpaquePixel(i, i, i);
        palette_[1] = OpaquePixel(255, 255, 255);
    }
}

DecodeStatus GifStream::ReadImage(const Reading& reading) {
    const GifImageDesc& image = file_->Image;
    const int rowsShown = reading.into.Height() - reading.top;
    const auto room = static_cast<std::size_t>(std::max(reading.into.Width() - reading.left, 0));
    somePixels_ = false;
    TakeColours();
    line_.resize(static_cast<std::size_t>(image.Width));
    const std::span<const Pass> passes =
        image.Interlace ? std::span<const Pass>(Interlaced) : std::span<const Pass>(RowByRow);
    for (const Pass& pass : passes) {
        for (int row = pass.first; row < image.Height; row += pass.step) {
            // The rows below the surface need not be looked at.
            if (!image.Interlace && row >= rowsShown) return {Outcome::Complete, 0, {}, somePixels_};
            reading.pixelsLeft -= image.Width;
            if (reading.pixelsLeft < 0)
                return {Outcome::Corrupt, Offset(), "image over the limits", somePixels_};
            bool whole = false;
            const std::span<const GifPixelType> pixels = ReadRow(whole);
            if (row < rowsShown && room != 0) {
                Draw(pixels.first(std::min(room, pixels.size())),
                     reading.into.Row(reading.top + row).subspan(static_cast<std::size_t>(reading.left)));
            }
            if (!whole) return RowsFailed();
            if (reading.rowsReady && !image.Interlace && row % RowsBetweenReports == 0)
                reading.rowsReady(reading.top + row + 1);
        }
    }
    return {Outcome::Complete, 0, {}, somePixels_};
}

DecodeStatus GifStream::RowsFailed() const {
    if (input_.Cancelled()) return Broken({});
    if (input_.PixelsEnded() || file_->Error == D_GIF_ERR_EOF_TOO_SOON)
        return {Outcome::Truncated, Offset(), "pixels end early", somePixels_};
    return {Outcome::Corrupt, Offset(), "pixel data make no sense", somePixels_};
}

std::span<const GifPixelType> GifStream::ReadRow(bool& whole) {
    // The library does not say how far it came. Only pixels that have the value of the filling, at the end of the
    // last row, are lost by that.
    constexpr GifPixelType Filling = 0xFF;
    std::ranges::fill(line_, Filling);
    whole = DGifGetLine(file_.get(), line_.data(), file_->Image.Width) == GIF_OK;
    std::span<const GifPixelType> pixels = line_;
    while (!whole && !pixels.empty() && pixels.back() == Filling)
        pixels = pixels.first(pixels.size() - 1);
    somePixels_ = somePixels_ || !pixels.empty();
    return pixels;
}

void GifStream::Draw(std::span<const GifPixelType> from, std::span<Pixel> into) const {
    if (!control_ || !control_->transparent) {
        std::ranges::transform(from, into.begin(), [&](GifPixelType index) { return palette_[index]; });
        return;
    }
    const GifPixelType transparent = *control_->transparent;
    for (std::size_t i = 0; i < from.size(); ++i) {
        if (from[i] != transparent) into[i] = palette_[from[i]];
    }
}

}  // namespace tavrix
