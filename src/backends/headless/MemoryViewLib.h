#pragma once

#include <string>

#include "backends/headless/FaultPlan.h"
#include "backends/headless/MemoryDisks.h"
#include "imaging/loading/ImportedImage.h"
#include "platform/services/NViewLib.h"

namespace tavrix::headless {

/// The import library over files in memory, with the real decoders and the real encoder. A fault makes its call give
/// 0. Pictures that a test gave to MemoryPictures are no files of a known format here, so they cannot be loaded.
class MemoryViewLib final : public NViewLib {
  public:
    MemoryViewLib(MemoryDisks& disks, FaultPlan& faults) : disks_(disks), faults_(faults) {}

    /// `path` is a full drive path, here and below.
    int Load(const std::string& path, std::int16_t flag) override;
    std::int16_t SaveAsJPG(std::int32_t quality, const std::string& path) override;
    [[nodiscard]] const Surface& Image() const override { return image_.Pixels(); }

  private:
    MemoryDisks& disks_;
    FaultPlan& faults_;
    ImportedImage image_;
    int loads_ = 0;
};

}  // namespace tavrix::headless
