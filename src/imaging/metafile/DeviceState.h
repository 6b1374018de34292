#pragma once

#include <memory>
#include <optional>

#include "imaging/metafile/Mapping.h"
#include "imaging/metafile/Objects.h"
#include "imaging/vector/Region.h"

namespace tavrix::metafile {

/// What records set, and SaveDC and RestoreDC keep and bring back.
struct DeviceState {
    static constexpr std::uint32_t AlignUpdatesPosition = 1;

    explicit DeviceState(const Placement& placement) : mapping(placement) {}

    Mapping mapping;
    bool opaqueBackground = true;
    vector::FillRule fillRule = vector::FillRule::EvenOdd;
    std::uint32_t rasterOperation = 13;
    std::uint32_t stretchMode = 1;
    std::uint32_t textAlign = 0;
    ColourValue textColour = 0;
    ColourValue backgroundColour = 0xFFFFFFU;
    std::int32_t characterExtra = 0;  ///< logical units
    double breakExtra = 0;            ///< logical units for each blank
    bool clockwiseArcs = false;
    double miterLimit = 10;
    Point brushOrigin;  ///< pixels of the device
    std::shared_ptr<const Object> pen;
    std::shared_ptr<const Object> brush;
    std::shared_ptr<const Object> font;
    std::shared_ptr<const Palette> palette;
    std::optional<vector::Region> clip;      ///< pixels of the picture; none: clips nothing
    std::optional<vector::Region> metaClip;  ///< clips as well
    vector::Point position;                  ///< logical units
};

}  // namespace tavrix::metafile
