#include "editing/turning/QuarterTurn.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

#include "editing/turning/RotateArms.h"

namespace tavrix {
namespace {

constexpr auto Quarter = static_cast<float>(3.14159265359 / 2);
constexpr float Half = 3.1415927F;

/// The last row up to which the polar rotation is exact for the angles above.
///
/// The loop takes a point (O, I), whose distance from the centre is r, turns (O, I) * R / r by the angle and rounds
/// both coordinates; R is r rounded. It comes to the exact point if each coordinate c, one of O and I up to its sign,
/// is off by less than a half before it is rounded. Let d be the other coordinate, so that c * c + d * d = r * r.
///
/// - From R: r * r is whole, and so at least 1/4 away from the square of the nearest half number; r is at least
///   1 / (8 r + 4) away from that number, and |R - r| <= 1/2 - 1 / (8 r + 4). This moves c by |R - r| * c / r, where
///   c / r <= 1 - d * d / (2 r * r).
/// - From the angles: the arc tangent, stored in single precision, is off by 2^-24 at most, the angle itself by 8.8e-8
///   (Half) or 4.4e-8 (Quarter), together e < 1.48e-7. This moves c by e * d + e * e * r / 2, give or take a rounding
///   of R.
///
/// What is left to a half is at least 1 / (8 r + 4) + d * d / (4 r * r) - e * d, less terms that stay below a tenth of
/// the first up to the limit, the errors of double precision among them. Over d this is least at d = 2 e * r * r, where
/// it is 1 / (8 r + 4) - e * e * r * r; at r = 15600 the first is 8.0e-6, the second 5.4e-6. The largest r of the loop
/// is the square root of 2 times its last row. For O = 0 the angle of the point is Quarter itself, R is r, and
/// only the second kind of error is there.
constexpr int LastExactRow = 11000;

/// Rows of the loop that are drawn at a time: as wide as the blocks, since two of the arms grow sideways.
constexpr int BandRows = 128;
/// The blocks that are transposed: long runs of the destination, and a cache line of each row of the source. Taller
/// blocks fall over each other in the cache where a row of the source is a power of two long.
constexpr int BlockWidth = BandRows;
constexpr int BlockHeight = 16;

class Copier {
  public:
    Copier(const Surface& source, Surface& dest, const QuarterTurn& turn, int limit,
           const RotateGeometry& geometry)
        : source_(source), dest_(dest), turn_(turn), limit_(limit), centre_(geometry) {
        const Range across{-centre_.sourceCentreX, source.Width() - 1 - centre_.sourceCentreX};
        const Range down{-centre_.sourceCentreY, source.Height() - 1 - centre_.sourceCentreY};
        const Range columns{-centre_.destCentreX, dest.Width() - 1 - centre_.destCentreX};
        const Range rows{-centre_.destCentreY, dest.Height() - 1 - centre_.destCentreY};
        // The place (x, y) takes (cosine * x - sine * y, sine * x + cosine * y).
        if (turn.sine == 0) {
            columns_ = columns.Within(turn.cosine > 0 ? across : across.Negated());
            rows_ = rows.Within(turn.cosine > 0 ? down : down.Negated());
        } else {
            columns_ = columns.Within(turn.sine > 0 ? down : down.Negated());
            rows_ = rows.Within(turn.sine > 0 ? across.Negated() : across);
        }
    }

    void Draw(const Range& band) {
        const LoopPart part{band, {0, limit_}};
        DrawArm<Arm::Right>(part);
        DrawArm<Arm::Left>(part);
        DrawArm<Arm::Up>(part);
        DrawArm<Arm::Down>(part);
    }

  private:
    template <Arm arm>
    void DrawArm(const LoopPart& whole) {
        const LoopPart part = PartInside<arm>(whole, columns_, rows_);
        if (part.Empty()) return;
        const auto [x1, y1] = Turned<arm>(part.o.low, part.i.low);
        const auto [x2, y2] = Turned<arm>(part.o.high, part.i.high);
        const Range columns{std::min(x1, x2), std::max(x1, x2)};
        const Range rows{std::min(y1, y2), std::max(y1, y2)};
        if (turn_.sine == 0) {
            CopyRows(columns, rows);
        } else {
            Transpose(columns, rows);
        }
    }

    [[nodiscard]] Pixel* Place(int x, int y) {
        return &dest_.Row(centre_.destCentreY + y)[static_cast<std::size_t>(centre_.destCentreX + x)];
    }
    [[nodiscard]] const Pixel* Origin(int x, int y) const {
        const int sourceX = centre_.sourceCentreX + turn_.cosine * x - turn_.sine * y;
        const int sourceY = centre_.sourceCentreY + turn_.sine * x + turn_.cosine * y;
        return &source_.Row(sourceY)[static_cast<std::size_t>(sourceX)];
    }

    void CopyRows(const Range& columns, const Range& rows) {
        const int width = columns.high - columns.low + 1;
        for (int y = rows.low; y <= rows.high; ++y) {
            if (turn_.cosine > 0) {
                std::copy_n(Origin(columns.low, y), width, Place(columns.low, y));
            } else {
                const Pixel* last = Origin(columns.high, y);
                std::reverse_copy(last, last + width, Place(columns.low, y));
            }
        }
    }

    void Transpose(const Range& columns, const Range& rows) {
        for (int y = rows.low; y <= rows.high; y += BlockHeight) {
            for (int x = columns.low; x <= columns.high; x += BlockWidth) {
                TransposeBlock({x, std::min(x + BlockWidth - 1, columns.high)},
                               {y, std::min(y + BlockHeight - 1, rows.high)});
            }
        }
    }

    /// Along a row of the destination the source goes down or up a column.
    void TransposeBlock(const Range& columns, const Range& rows) {
        const std::ptrdiff_t step = std::ptrdiff_t{turn_.sine} * source_.Width();
        const std::ptrdiff_t count = columns.high - columns.low + 1;
        for (int y = rows.low; y <= rows.high; ++y) {
            Pixel* to = Place(columns.low, y);
            const Pixel* from = Origin(columns.low, y);
            for (std::ptrdiff_t k = 0; k < count; ++k)
                to[k] = from[k * step];
        }
    }

    const Surface& source_;
    Surface& dest_;
    QuarterTurn turn_;
    int limit_;
    RotateGeometry centre_;
    /// Where the destination and the source both have a pixel, from the centre of the destination.
    Range columns_;
    Range rows_;
};

}  // namespace

std::optional<QuarterTurn> QuarterTurnOf(float angle, int limit) {
    if (limit > LastExactRow) return std::nullopt;
    if (angle == Quarter) return QuarterTurn{0, 1};
    if (angle == -Quarter) return QuarterTurn{0, -1};
    if (angle == Half || angle == -Half) return QuarterTurn{-1, 0};
    return std::nullopt;
}

void RotateByQuarters(const Surface& source, Surface& dest, const QuarterTurn& turn, int limit,
                      const RotateGeometry& geometry, const std::function<void(int row)>& afterRow) {
    // A place on an axis lies in two arms, but both take the same pixel, so the order does not matter.
    Copier copier(source, dest, turn, limit, geometry);
    for (int row = 0; row <= limit; row += BandRows) {
        const Range band{row, std::min(row + BandRows - 1, limit)};
        copier.Draw(band);
        for (int o = band.low; o <= band.high; ++o)
            afterRow(o);
    }
}

}  // namespace tavrix
