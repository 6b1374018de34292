#include "editing/turning/QuarterTurn.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "editing/turning/RotateArms.h"
#include "imaging/graphics/Bands.h"

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

/// What is transposed in one go, in pixels a side. Each row of a block lies on a page of its own, here and there, and so
/// many pages the processor keeps in mind.
constexpr int BlockSide = 512;
/// The strips of a block: as high as a cache line of the source is long.
constexpr int StripHeight = 16;
/// How far ahead the source is asked for: each column of a strip is another row of it, which no processor foresees.
constexpr int Ahead = 48;
/// The pieces that a strip consists of, as many pixels a side as fit a vector.
constexpr int Side = 4;
using Four = Pixel __attribute__((vector_size(Side * sizeof(Pixel))));

/// The part of a destination that a turn by quarters draws: a rectangle, since its loop goes as far on all sides.
class Copier {
  public:
    Copier(const Surface& source, Surface& dest, const QuarterTurn& turn, int limit,
           const RotateGeometry& geometry)
        : source_(source), dest_(dest), turn_(turn), centre_(geometry) {
        const Range across{-centre_.sourceCentreX, source.Width() - 1 - centre_.sourceCentreX};
        const Range down{-centre_.sourceCentreY, source.Height() - 1 - centre_.sourceCentreY};
        const Range loop{-limit, limit};
        const Range columns = loop.Within({-centre_.destCentreX, dest.Width() - 1 - centre_.destCentreX});
        const Range rows = loop.Within({-centre_.destCentreY, dest.Height() - 1 - centre_.destCentreY});
        // The place (x, y) takes (cosine * x - sine * y, sine * x + cosine * y).
        if (turn.sine == 0) {
            columns_ = columns.Within(turn.cosine > 0 ? across : across.Negated());
            rows_ = rows.Within(turn.cosine > 0 ? down : down.Negated());
        } else {
            columns_ = columns.Within(turn.sine > 0 ? down : down.Negated());
            rows_ = rows.Within(turn.sine > 0 ? across.Negated() : across);
        }
    }

    void Draw() {
        if (columns_.Empty() || rows_.Empty()) return;
        const int height = rows_.high - rows_.low + 1;
        const std::int64_t width = columns_.high - columns_.low + 1;
        InBands(height, width * height, [&](int first, int end) {
            const Range rows{rows_.low + first, rows_.low + end - 1};
            if (turn_.sine == 0) {
                CopyRows(rows);
            } else {
                Transpose(rows);
            }
        });
    }

  private:
    [[nodiscard]] Pixel* Place(int x, int y) {
        return &dest_.Row(centre_.destCentreY + y)[static_cast<std::size_t>(centre_.destCentreX + x)];
    }
    [[nodiscard]] const Pixel* Origin(int x, int y) const {
        const int sourceX = centre_.sourceCentreX + turn_.cosine * x - turn_.sine * y;
        const int sourceY = centre_.sourceCentreY + turn_.sine * x + turn_.cosine * y;
        return &source_.Row(sourceY)[static_cast<std::size_t>(sourceX)];
    }

    void CopyRows(const Range& rows) {
        const int width = columns_.high - columns_.low + 1;
        for (int y = rows.low; y <= rows.high; ++y) {
            if (turn_.cosine > 0) {
                std::copy_n(Origin(columns_.low, y), width, Place(columns_.low, y));
            } else {
                const Pixel* last = Origin(columns_.high, y);
                std::reverse_copy(last, last + width, Place(columns_.low, y));
            }
        }
    }

    void Transpose(const Range& rows) {
        for (int y = rows.low; y <= rows.high; y += BlockSide) {
            for (int x = columns_.low; x <= columns_.high; x += BlockSide) {
                TransposeBlock({x, std::min(x + BlockSide - 1, columns_.high)},
                               {y, std::min(y + BlockSide - 1, rows.high)});
            }
        }
    }

    void TransposeBlock(const Range& columns, const Range& rows) {
        for (int y = rows.low; y <= rows.high; y += StripHeight)
            TransposeStrip(columns, {y, std::min(y + StripHeight - 1, rows.high)});
    }

    void TransposeStrip(const Range& columns, const Range& rows) {
        for (int x = columns.low; x <= columns.high; x += Side) {
            for (int ahead = x + Ahead; ahead < x + Ahead + Side && ahead <= columns.high; ++ahead) {
                __builtin_prefetch(Origin(ahead, rows.low));
                __builtin_prefetch(Origin(ahead, rows.high));
            }
            for (int y = rows.low; y <= rows.high; y += Side) {
                if (y + Side - 1 <= rows.high && x + Side - 1 <= columns.high) {
                    TransposePiece(x, y);
                } else {
                    CopyPiece({x, std::min(x + Side - 1, columns.high)},
                              {y, std::min(y + Side - 1, rows.high)});
                }
            }
        }
    }

    /// A whole piece at this place: a column of it is a part of a row of the source.
    void TransposePiece(int x, int y) {
        // Down the destination the source goes to the left or to the right.
        const int leftmost = turn_.sine > 0 ? y + Side - 1 : y;
        const auto column = [&](int k) {
            Four pixels;
            std::memcpy(&pixels, Origin(x + k, leftmost), sizeof pixels);
            return pixels;
        };
        const auto row = [&](int k, const Four& pixels) {
            std::memcpy(Place(x, turn_.sine > 0 ? y + Side - 1 - k : y + k), &pixels, sizeof pixels);
        };
        const Four a = column(0);
        const Four b = column(1);
        const Four c = column(2);
        const Four d = column(3);
        const Four abLow = __builtin_shufflevector(a, b, 0, 4, 1, 5);
        const Four cdLow = __builtin_shufflevector(c, d, 0, 4, 1, 5);
        const Four abHigh = __builtin_shufflevector(a, b, 2, 6, 3, 7);
        const Four cdHigh = __builtin_shufflevector(c, d, 2, 6, 3, 7);
        row(0, __builtin_shufflevector(abLow, cdLow, 0, 1, 4, 5));
        row(1, __builtin_shufflevector(abLow, cdLow, 2, 3, 6, 7));
        row(2, __builtin_shufflevector(abHigh, cdHigh, 0, 1, 4, 5));
        row(3, __builtin_shufflevector(abHigh, cdHigh, 2, 3, 6, 7));
    }

    void CopyPiece(const Range& columns, const Range& rows) {
        for (int y = rows.low; y <= rows.high; ++y) {
            for (int x = columns.low; x <= columns.high; ++x)
                *Place(x, y) = *Origin(x, y);
        }
    }

    const Surface& source_;
    Surface& dest_;
    QuarterTurn turn_;
    RotateGeometry centre_;
    /// Where the loop comes and the source has a pixel, from the centre of the destination.
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
                      const RotateGeometry& geometry) {
    // The order of the loop makes no difference: no place of it takes two pixels.
    Copier(source, dest, turn, limit, geometry).Draw();
}

}  // namespace tavrix
