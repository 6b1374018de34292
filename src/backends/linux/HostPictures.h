#pragma once

#include <memory>
#include <string>

#include "backends/linux/HostFiles.h"
#include "backends/linux/PictureLoader.h"
#include "platform/services/Pictures.h"

namespace tavrix {

/// Pictures in the host's files: read by the loader, written through the file service.
class HostPictures final : public Pictures {
  public:
    explicit HostPictures(HostFiles& files) : files_(files) {}

    [[nodiscard]] Picture Load(const std::string& path) override { return loader_.Load(path); }
    [[nodiscard]] Picture LoadInBackground(const std::string& path) override {
        return loader_.LoadInBackground(path);
    }
    [[nodiscard]] std::unique_ptr<Animation> OpenAnimation(const std::string& path) override;
    void SaveBitmap(const Surface& surface, const std::string& path) override;

    /// PictureLoader::Prefetch.
    void Prefetch(const std::string& hostPath) { loader_.Prefetch(hostPath); }

  private:
    HostFiles& files_;
    PictureLoader loader_{[this](const std::string& path) { return files_.HostPathOf(path); }};
};

}  // namespace tavrix
