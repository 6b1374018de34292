#pragma once

#include <memory>
#include <string>

#include "backends/linux/HostFiles.h"
#include "imaging/loading/PictureLoader.h"
#include "platform/services/Pictures.h"

namespace tavrix {

/// Pictures in the host's files: read by the loader, written through the file service.
class HostPictures final : public Pictures {
  public:
    explicit HostPictures(HostFiles& files);

    [[nodiscard]] Picture Load(const std::string& path) override { return loader_.Load(path); }
    [[nodiscard]] Picture LoadInBackground(const std::string& path) override {
        return loader_.LoadInBackground(path);
    }
    [[nodiscard]] std::unique_ptr<PictureToFit> LoadToFit(const std::string& path,
                                                          const FitBox& box) override {
        return loader_.LoadToFit(path, box);
    }
    void Expect(const std::string& path) override { loader_.Expect(path); }
    [[nodiscard]] std::unique_ptr<Animation> OpenAnimation(const std::string& path) override;
    void SaveBitmap(const Surface& surface, const std::string& path) override;

  private:
    HostFiles& files_;
    PictureLoader loader_;
};

}  // namespace tavrix
