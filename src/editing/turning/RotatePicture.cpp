#include "editing/turning/RotatePicture.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "base/Rounding.h"
#include "base/RuntimeError.h"
#include "editing/turning/PolarOffset.h"
#include "editing/turning/QuarterTurn.h"
#include "editing/turning/RotateArms.h"

namespace tavrix {
namespace {

/// The loop is drawn in tiles, so that the columns of two of the arms and the slanting reads stay in the cache.
constexpr int TileRows = 16;
constexpr int TileRun = PolarOffset::MaxRun;

enum class Sources : std::uint8_t { None, Some, All };

class Painter {
  public:
    Painter(const Surface& source, Surface& dest, float angle, const RotateGeometry& geometry)
        : source_(source),
          dest_(dest),
          offsets_(angle),
          centre_(geometry),
          columns_{-geometry.destCentreX, dest.Width() - 1 - geometry.destCentreX},
          rows_{-geometry.destCentreY, dest.Height() - 1 - geometry.destCentreY} {}

    /// The points of row 0, one by one: their places are drawn by later rows again, from other sources.
    void DrawFirstRow(int limit) {
        for (int i = 0; i <= limit; ++i) {
            const Offset from = offsets_.At(0, i);
            DrawPoint<Arm::Right>(i, from);
            DrawPoint<Arm::Left>(i, from);
            DrawPoint<Arm::Up>(i, from);
            DrawPoint<Arm::Down>(i, from);
        }
    }

    /// Rows above 0. No two of their points share a place, so that they may be drawn in any order.
    void Draw(const LoopPart& rows) {
        for (int first = rows.i.low; first <= rows.i.high; first += TileRun)
            DrawTile({rows.o, {first, std::min(first + TileRun - 1, rows.i.high)}});
    }

  private:
    struct Job {
        LoopPart part;
        Sources sources = Sources::None;

        [[nodiscard]] bool Idle() const { return sources == Sources::None; }
    };

    template <Arm arm>
    void DrawPoint(int i, const Offset& from) {
        if (PartInside<arm>({{0, 0}, {i, i}}, columns_, rows_).Empty()) return;
        const Offset origin = Turned<arm>(from.x, from.y);
        const int x = centre_.sourceCentreX + origin.x;
        const int y = centre_.sourceCentreY + origin.y;
        if (x < 0 || x >= source_.Width() || y < 0 || y >= source_.Height()) return;
        const Offset place = Turned<arm>(0, i);
        dest_.Row(centre_.destCentreY + place.y)[static_cast<std::size_t>(centre_.destCentreX + place.x)] =
            source_.Row(y)[static_cast<std::size_t>(x)];
    }

    void DrawTile(const LoopPart& tile) {
        const Job right = JobOf<Arm::Right>(tile);
        const Job left = JobOf<Arm::Left>(tile);
        const Job up = JobOf<Arm::Up>(tile);
        const Job down = JobOf<Arm::Down>(tile);
        if (right.Idle() && left.Idle() && up.Idle() && down.Idle()) return;

        tile_ = tile;
        const auto count = static_cast<std::size_t>(tile.i.high - tile.i.low + 1);
        for (int o = tile.o.low; o <= tile.o.high; ++o) {
            const auto row = static_cast<std::size_t>(o - tile.o.low);
            offsets_.Run(o, tile.i.low, std::span(x_[row]).first(count), std::span(y_[row]).first(count));
        }
        Draw<Arm::Right>(right);
        Draw<Arm::Left>(left);
        Draw<Arm::Up>(up);
        Draw<Arm::Down>(down);
    }

    /// What an arm has to draw of a tile, told by the tile's middle and half its diagonal.
    template <Arm arm>
    [[nodiscard]] Job JobOf(const LoopPart& tile) const {
        const LoopPart part = PartInside<arm>(tile, columns_, rows_);
        if (part.Empty()) return {};
        const double halfO = (part.o.high - part.o.low) / 2.0;
        const double halfI = (part.i.high - part.i.low) / 2.0;
        const double reach = halfO + halfI + PolarOffset::Slack;
        const double aboutX = offsets_.AboutX(part.o.low + halfO, part.i.low + halfI);
        const double aboutY = offsets_.AboutY(part.o.low + halfO, part.i.low + halfI);
        const auto lowest = [&](double about) { return static_cast<int>(about - reach) - 1; };
        const auto highest = [&](double about) { return static_cast<int>(about + reach) + 1; };
        const Offset one = Turned<arm>(lowest(aboutX), lowest(aboutY));
        const Offset other = Turned<arm>(highest(aboutX), highest(aboutY));
        const Range across{centre_.sourceCentreX + std::min(one.x, other.x),
                           centre_.sourceCentreX + std::max(one.x, other.x)};
        const Range along{centre_.sourceCentreY + std::min(one.y, other.y),
                          centre_.sourceCentreY + std::max(one.y, other.y)};
        const int lastX = source_.Width() - 1;
        const int lastY = source_.Height() - 1;
        if (across.high < 0 || across.low > lastX || along.high < 0 || along.low > lastY) return {};
        const bool all = across.low >= 0 && across.high <= lastX && along.low >= 0 && along.high <= lastY;
        return {part, all ? Sources::All : Sources::Some};
    }

    template <Arm arm>
    void Draw(const Job& job) {
        if (job.sources == Sources::All) {
            DrawPart<arm, false>(job.part);
        } else if (job.sources == Sources::Some) {
            DrawPart<arm, true>(job.part);
        }
    }

    /// Runs along the rows of the destination: over O in the arms at the sides, over I in the two others.
    template <Arm arm, bool Checked>
    void DrawPart(const LoopPart& part) {
        if constexpr (arm == Arm::Right || arm == Arm::Left) {
            for (int i = part.i.low; i <= part.i.high; ++i)
                DrawRow<arm, Checked>(part.o.low, i, part.o.high - part.o.low + 1);
        } else {
            for (int o = part.o.low; o <= part.o.high; ++o)
                DrawRow<arm, Checked>(o, part.i.low, part.i.high - part.i.low + 1);
        }
    }

    template <Arm arm, bool Checked>
    void DrawRow(int o, int i, int count) {
        constexpr bool Sideways = arm == Arm::Right || arm == Arm::Left;
        constexpr std::ptrdiff_t Forward = arm == Arm::Right || arm == Arm::Up ? 1 : -1;
        constexpr std::ptrdiff_t Next = Sideways ? TileRun : 1;
        const auto row = static_cast<std::size_t>(o - tile_.o.low);
        const auto column = static_cast<std::size_t>(i - tile_.i.low);
        const int* offsetX = &x_[row][column];
        const int* offsetY = &y_[row][column];
        const Offset start = Turned<arm>(o, i);
        Pixel* to = &dest_.Row(centre_.destCentreY +
                               start.y)[static_cast<std::size_t>(centre_.destCentreX + start.x)];
        const Pixel* from = source_.Pixels().data();
        const std::ptrdiff_t width = source_.Width();
        for (std::ptrdiff_t k = 0; k < count; ++k) {
            const Offset origin = Turned<arm>(offsetX[k * Next], offsetY[k * Next]);
            const int x = centre_.sourceCentreX + origin.x;
            const int y = centre_.sourceCentreY + origin.y;
            if constexpr (Checked) {
                if (x < 0 || x >= source_.Width() || y < 0 || y >= source_.Height()) continue;
            }
            to[k * Forward] = from[y * width + x];
        }
    }

    const Surface& source_;
    Surface& dest_;
    PolarOffset offsets_;
    RotateGeometry centre_;
    /// The pixels of the destination, from its centre.
    Range columns_;
    Range rows_;
    LoopPart tile_;
    /// Of the tile: one row for each O.
    std::array<std::array<int, TileRun>, TileRows> x_{};
    std::array<std::array<int, TileRun>, TileRows> y_{};
};

/// The first point of the loop, counted row by row, whose radius does not fit 16 bits.
struct Overflow {
    int row = 0;
    int column = 0;
};

std::optional<Overflow> FirstOverflow(int limit) {
    const auto overflows = [](std::int64_t o, std::int64_t i) {
        return o * o + i * i >= RadiusOverflowsFrom;
    };
    if (!overflows(limit, limit)) return std::nullopt;
    int row = 0;
    while (!overflows(row, limit))
        ++row;
    int column = 0;
    while (!overflows(row, column))
        ++column;
    return Overflow{row, column};
}

}  // namespace

void RotatePicture(const Surface& source, Surface& dest, float angle, const RotateGeometry& geometry,
                   const std::function<void(int row)>& afterRow) {
    const int limit = ToInteger16(std::max(geometry.destCentreX, geometry.destCentreY) - 1);
    if (limit < 0) return;
    if (const auto turn = QuarterTurnOf(angle, limit)) {
        RotateByQuarters(source, dest, *turn, limit, geometry);
        return;
    }

    Painter painter(source, dest, angle, geometry);
    painter.DrawFirstRow(limit);
    afterRow(0);
    const auto overflow = FirstOverflow(limit);
    const int lastRow = overflow ? overflow->row - 1 : limit;
    for (int row = 1; row <= lastRow; row += TileRows) {
        const Range band{row, std::min(row + TileRows - 1, lastRow)};
        painter.Draw({band, {0, limit}});
        for (int o = band.low; o <= band.high; ++o)
            afterRow(o);
    }
    if (overflow) {
        painter.Draw({{overflow->row, overflow->row}, {0, overflow->column - 1}});
        throw RuntimeError(ErrorNumber::Overflow);
    }
}

}  // namespace tavrix
