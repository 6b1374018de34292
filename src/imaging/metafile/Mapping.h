#pragma once

#include <cstdint>

#include "imaging/metafile/Recording.h"

namespace tavrix::metafile {

/// How logical units fall on the device: the world's transform, then the window, which falls on the viewport.
class Mapping {
  public:
    explicit Mapping(const Placement& placement);

    /// By the numbers of MM_; others change nothing.
    void SetMode(std::uint32_t mode);
    void Set(const SetFrame& change);
    void Scale(const ScaleExtent& change);

    void SetWorld(const Transform& transform);
    void ModifyWorld(const ModifyTransform& change);

    /// From logical units to pixels of the device that the records are meant for.
    [[nodiscard]] vector::Affine ToDevice() const;
    /// The same without the world's transform.
    [[nodiscard]] vector::Affine PageToDevice() const;

  private:
    enum Mode : std::uint32_t {
        Text = 1,
        LowMetric = 2,
        HighMetric = 3,
        LowEnglish = 4,
        HighEnglish = 5,
        Twips = 6,
        Isotropic = 7,
        Anisotropic = 8,
    };

    void UseMillimetres(double unit);
    [[nodiscard]] bool ExtentsCount() const { return mode_ == Isotropic || mode_ == Anisotropic; }

    double pixelsPerMillimetreX_;
    double pixelsPerMillimetreY_;
    vector::Point windowExtentOfText_;
    vector::Point viewportExtentOfText_;
    std::uint32_t mode_;
    vector::Point windowOrigin_;
    vector::Point windowExtent_;
    vector::Point viewportOrigin_;
    vector::Point viewportExtent_;
    vector::Affine world_;
};

}  // namespace tavrix::metafile
