#pragma once

#include <exception>

#include "imaging/graphics/Surface.h"
#include "imaging/vector/Blit.h"
#include "imaging/vector/Brush.h"
#include "imaging/vector/Gradient.h"
#include "imaging/vector/Path.h"
#include "imaging/vector/Pen.h"
#include "imaging/vector/RasterOperation.h"
#include "imaging/vector/Region.h"
#include "imaging/vector/TextRun.h"
#include "imaging/vector/Work.h"

namespace tavrix::vector {

struct FlatPath;
struct PenShape;
struct GradientPlane;

/// Draws onto a surface, in device pixels, inside a clip. The surface is taken for opaque: pixels that are drawn are
/// opaque afterwards, whatever they were.
///
/// Shapes are antialiased where an operation sets pixels whatever was there (CopyPen, NotCopyPen, Black, White);
/// under all other operations a pixel is drawn when its centre lies inside, the left and top borders included,
/// since half an inversion is no colour at all. Lines of a path that are parallel to an axis are moved to the next
/// border between pixels (for pens: so that their line covers whole pixels), so that boxes and rulings are crisp.
///
/// Any number may come as a coordinate. The work is paid from the budget: while there is some left, an operation
/// begins, and it stops where the budget is used up. No operation throws; where memory is refused, it draws nothing
/// or a part, and Failed tells it.
class Painter {
  public:
    /// Both are kept by reference. The clip is the whole surface at first.
    Painter(Surface& target, WorkBudget& budget);

    [[nodiscard]] const Surface& Target() const { return target_; }
    [[nodiscard]] WorkBudget& Budget() const { return budget_; }
    /// Whether memory was refused to an operation.
    [[nodiscard]] bool Failed() const { return failed_; }

    [[nodiscard]] const Region& Clip() const { return clip_; }
    /// The part of the region that lies on the surface.
    void SetClip(Region clip) noexcept;
    /// The whole surface again.
    void ClearClip() noexcept;
    [[nodiscard]] PixelRect Bounds() const { return {0, 0, target_.Width(), target_.Height()}; }

    /// True at first. False draws all shapes by the centres of pixels.
    void SetAntialias(bool on) { antialias_ = on; }

    /// Fills the path; all figures count as closed.
    void Fill(const Path& path, FillRule rule, const Brush& brush,
              BinaryOperation operation = BinaryOperation::CopyPen) noexcept;
    /// Draws along the path. A coordinate names a pixel by its left and top border here and the pen runs through
    /// the middle of that pixel, so that a line from (2, 3) to (8, 3) covers the pixels of row 3. A cosmetic line
    /// covers both end points' pixels; a caller that draws lines without their last pixel shortens them.
    /// `penToDevice`: maps lengths of the pen to device pixels; its shift is not looked at. A line is one pixel
    /// wide at least; where the map is the same in both directions, the width is rounded to whole pixels.
    void Stroke(const Path& path, const Pen& pen, const Affine& penToDevice = {},
                BinaryOperation operation = BinaryOperation::CopyPen) noexcept;
    /// Fills the path and draws along it. Where a solid pen covers the border, the filling reaches below its middle,
    /// so that no gap shows between them.
    void FillAndStroke(const Path& path, FillRule rule, const Brush& brush, const Pen& pen,
                       const Affine& penToDevice = {},
                       BinaryOperation operation = BinaryOperation::CopyPen) noexcept;
    void FillRegion(const Region& region, const Brush& brush,
                    BinaryOperation operation = BinaryOperation::CopyPen) noexcept;
    void SetPixel(int x, int y, Pixel pixel, BinaryOperation operation = BinaryOperation::CopyPen) noexcept;
    /// Fills from a pixel on, over all pixels that are joined to it by their sides: `stopAt`: up to pixels of that
    /// colour; otherwise over pixels of the colour `over`. Inside the clip.
    void FloodFillUpTo(int x, int y, Pixel stopAt, const Brush& brush) noexcept;
    void FloodFillOver(int x, int y, Pixel over, const Brush& brush) noexcept;

    /// A box without a source: the operation combines brush and destination; its bits for the source are those for
    /// black. Sides are rounded to whole pixels.
    void PatternBlit(const Box& box, const Brush& brush, TernaryOperation operation = PatternCopy) noexcept;
    /// The same over a parallelogram: `box` under a map.
    void PatternBlit(const Box& box, const Affine& map, const Brush& brush,
                     TernaryOperation operation = PatternCopy) noexcept;
    /// A bitmap; its alpha is not looked at.
    void Blit(const PlacedBitmap& source, TernaryOperation operation = SourceCopy, const Brush& brush = {},
              const BlitMask& mask = {}) noexcept;
    /// A bitmap mixed with what is there. `constantAlpha`: 0 (nothing is seen of it) to 255. `perPixel`: its pixels
    /// have an alpha, which their colours are multiplied with already.
    void AlphaBlit(const PlacedBitmap& source, unsigned constantAlpha, bool perPixel) noexcept;
    /// A bitmap without the pixels of one colour (alpha aside).
    void TransparentBlit(const PlacedBitmap& source, Pixel transparent) noexcept;

    /// A box whose colour goes from that of the first corner to that of the second, along x or along y. The corners
    /// are those of the box in the units of the map, in any order.
    void GradientBox(const GradientVertex& first, const GradientVertex& second, bool vertical,
                     const Affine& map = {}) noexcept;
    /// A triangle whose colour is mixed from those of its corners.
    void Gradient(const GradientTriangle& corners) noexcept;

    /// Fills the outlines of a run. See OutlineOf for the map.
    void DrawText(const TextRun& run, const Affine& textToDevice, const Brush& brush,
                  BinaryOperation operation = BinaryOperation::CopyPen) noexcept;

  private:
    static constexpr std::int64_t OperationCost = 1000;

    /// Does the work of an operation, if it may begin.
    template <class Work>
    void Guarded(Work work) noexcept {
        if (!budget_.Spend(OperationCost)) return;
        try {
            work();
        } catch (const std::exception&) {
            failed_ = true;
        }
    }
    [[nodiscard]] Box ClipBox() const;
    void FillFlat(const FlatPath& shape, FillRule rule, const Brush& brush, BinaryOperation operation);
    void FillSnapped(const Path& path, FillRule rule, const Brush& brush, BinaryOperation operation,
                     double line);
    void StrokeShape(const Path& path, const PenShape& shape, const Brush& brush, BinaryOperation operation);
    void FillGradient(const Path& path, const GradientPlane& colours);
    void Flood(int x, int y, Pixel colour, bool over, const Brush& brush);

    Surface& target_;
    WorkBudget& budget_;
    Region clip_;
    bool antialias_ = true;
    bool failed_ = false;
};

}  // namespace tavrix::vector
