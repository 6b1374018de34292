#include "imaging/loading/FitPicture.h"

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

#include "base/Rounding.h"
#include "base/RuntimeError.h"
#include "imaging/graphics/StretchCopy.h"

namespace tavrix {
namespace {

bool UpToTwice(int width, int height, const FittedSize& size) {
    return width <= 2 * size.width && height <= 2 * size.height;
}

Surface StretchedInto(const FittedSize& size, const Surface& whole, int trimmed) {
    Surface fitted(size.width, size.height);
    StretchCopy(fitted, {0, 0, size.width, size.height}, whole,
                {0, 0, whole.Width() - trimmed, whole.Height() - trimmed});
    return fitted;
}

/// A surface that is whole, whatever became of the picture that it was made from.
std::shared_ptr<const ArrivingSurface> Ended(Surface fitted, Outcome outcome) {
    auto pixels = std::make_shared<ArrivingSurface>(std::move(fitted));
    pixels->Finish(outcome);
    return pixels;
}

}  // namespace

FittedSize SizeInBox(int width, int height, const FitBox& box) {
    const double ratio = double(width) / double(height);
    FittedSize size{width, height};
    if (size.width > box.width) size = {box.width, RoundToLong(box.width / ratio)};
    if (size.height > box.height) size = {RoundToLong(box.height * ratio), box.height};
    return {std::max(size.width, 1), std::max(size.height, 1)};
}

void FittingSink::Note(const PictureInfo& whole) {
    if (whole_) return;
    whole_ = whole;
    size_ = SizeInBox(whole.width, whole.height, box_);
    exact_ = UpToTwice(whole.width, whole.height, size_);
}

int FittingSink::Reduction(const PictureInfo& whole) {
    Note(whole);
    constexpr int Most = 8;
    int reduction = 1;
    // What is decoded has twice the fitted sides at least, so that each pixel stays a mean of several.
    while (!exact_ && reduction < Most && whole.width / (2 * reduction) >= 2 * size_.width &&
           whole.height / (2 * reduction) >= 2 * size_.height)
        reduction *= 2;
    return reduction;
}

Surface* FittingSink::Begin(const PictureInfo& info) {
    Note(info);
    info_ = info;
    try {
        surface_ = Surface(info.width, info.height);
        if (!exact_) means_.emplace(info.width, info.height, size_.width, size_.height);
    } catch (const RuntimeError&) {
        refused_ = true;
    } catch (const std::bad_alloc&) {
        refused_ = true;
    }
    return refused_ ? nullptr : &surface_;
}

void FittingSink::RowsReady(int count) {
    if (means_) means_->Take(surface_, count);
}

FittedPicture FittingSink::Take(const DecoderEntry& decoder, Outcome outcome) {
    if (refused_ || surface_.Empty()) return {};
    Surface fitted;
    if (means_) {
        means_->Take(surface_, surface_.Height());
        surface_ = Surface();
        fitted = means_->Copy().Clone();
    } else if (size_ == FittedSize{surface_.Width(), surface_.Height()} && box_.trimmed == 0) {
        fitted = std::move(surface_);
    } else {
        fitted = StretchedInto(size_, surface_, box_.trimmed);
        surface_ = Surface();
    }
    return {MakePicture(decoder, info_, Ended(std::move(fitted), outcome)), whole_->width, whole_->height};
}

DecodedFit DecodeToFit(ByteSource& source, const DecoderEntry& decoder, const FitBox& box,
                       std::function<bool()> cancelled) noexcept {
    try {
        FittingSink sink(box, std::move(cancelled));
        const DecodeStatus status = decoder.Decode(source, sink);
        if (sink.Refused()) return {{}, ErrorNumber::OutOfMemory};
        if (!status.someRows || sink.Cancelled())
            return {{}, source.Error().value_or(ErrorNumber::InvalidPicture)};
        return {sink.Take(decoder, EndingOf(source, status)), std::nullopt};
    } catch (const RuntimeError& error) {
        return {{}, error.Number()};
    } catch (const std::bad_alloc&) {
        return {{}, ErrorNumber::OutOfMemory};
    }
}

FittedPicture FitPicture(const Picture& whole, const FitBox& box) {
    const Surface& pixels = whole.pixels->Whole();
    const FittedSize size = SizeInBox(pixels.Width(), pixels.Height(), box);
    FittedPicture fitted{whole, pixels.Width(), pixels.Height()};
    if (UpToTwice(pixels.Width(), pixels.Height(), size)) {
        fitted.picture.pixels = Ended(StretchedInto(size, pixels, box.trimmed), whole.pixels->Ending());
    } else {
        AreaMeans means(pixels.Width(), pixels.Height(), size.width, size.height);
        means.Take(pixels, pixels.Height());
        fitted.picture.pixels = Ended(means.Copy().Clone(), whole.pixels->Ending());
    }
    return fitted;
}

}  // namespace tavrix
