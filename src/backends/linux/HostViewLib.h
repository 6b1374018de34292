#pragma once

#include <string>

#include "backends/linux/HostFiles.h"
#include "imaging/loading/ImportedImage.h"
#include "platform/services/NViewLib.h"

namespace tavrix {

/// The import library over the files of this system.
class HostViewLib final : public NViewLib {
  public:
    explicit HostViewLib(HostFiles& files) : files_(files) {}

    int Load(const std::string& path, std::int16_t flag) override;
    std::int16_t SaveAsJPG(std::int32_t quality, const std::string& path) override;
    [[nodiscard]] const Surface& Image() const override { return image_.Pixels(); }

  private:
    HostFiles& files_;
    ImportedImage image_;
    int loads_ = 0;
};

}  // namespace tavrix
