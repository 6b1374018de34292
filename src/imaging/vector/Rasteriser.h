#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "imaging/graphics/Surface.h"
#include "imaging/vector/Flatten.h"
#include "imaging/vector/Region.h"
#include "imaging/vector/Work.h"

namespace tavrix::vector {

/// What a shape covers, told run by run: rows from the top, and in each row from the left.
class CoverageSink {
  public:
    CoverageSink() = default;
    virtual ~CoverageSink() = default;
    CoverageSink(const CoverageSink&) = delete;
    CoverageSink& operator=(const CoverageSink&) = delete;
    CoverageSink(CoverageSink&&) = delete;
    CoverageSink& operator=(CoverageSink&&) = delete;

    /// `coverage`: 1 to 255 for all of the pixel.
    virtual void Run(int y, int x, int count, std::uint8_t coverage) = 0;
};

/// Finds the pixels that polygons cover. All of them count together: they are one shape.
class Rasteriser {
  public:
    /// Nothing outside the bounds (pixels, at most MaxCoordinate away from 0) is told.
    Rasteriser(const PixelRect& bounds, WorkBudget& budget);

    /// Figures that are open are closed.
    void Add(const FlatPath& path);

    /// Coverage by the area of the pixel that lies inside. Where the borders of several figures meet in one pixel,
    /// their areas count as if they lay side by side.
    void ScanAreas(FillRule rule, CoverageSink& sink);
    /// A pixel is covered wholly when its centre lies inside; a border belongs to what is right of it or below it.
    void ScanCentres(FillRule rule, CoverageSink& sink);

  private:
    /// Within the bounds and relative to their corner; y grows from the top end to the bottom end.
    struct Edge {
        double x = 0;  ///< at the top end
        double top = 0;
        double bottom = 0;
        double slope = 0;  ///< x for each y
        int winding = 0;   ///< 1: the border went downwards, -1: upwards

        [[nodiscard]] double At(double y) const { return x + (y - top) * slope; }
    };

    void AddEdge(Point from, Point to);
    void AddClipped(Point top, Point bottom, int winding);
    template <class RowScanner>
    void ScanRows(RowScanner scanRow);

    PixelRect bounds_;
    WorkBudget& budget_;
    std::vector<Edge> edges_;
};

}  // namespace tavrix::vector
