#pragma once

#include "imaging/codecs/Decoder.h"

namespace tavrix {

/// Keeps a picture inside another one, so that a broken one need not be shown.
class SurfaceSink final : public PictureSink {
  public:
    /// Larger pictures are refused. Cancelled is as `outer` says, which is kept by reference.
    SurfaceSink(const Cancellation& outer, std::int64_t mostPixels)
        : outer_(outer), mostPixels_(mostPixels) {}

    Surface* Begin(const PictureInfo& told) override {
        if (std::int64_t{told.width} * told.height > mostPixels_) return nullptr;
        info = told;
        surface = Surface(told.width, told.height);
        return &surface;
    }
    void RowsReady(int) override {}
    [[nodiscard]] bool Cancelled() const override { return outer_.Cancelled(); }

    PictureInfo info;
    Surface surface;

  private:
    const Cancellation& outer_;
    std::int64_t mostPixels_;
};

}  // namespace tavrix
