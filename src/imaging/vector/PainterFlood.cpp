// Filling over joined pixels.
#include <vector>

#include "imaging/vector/BrushInk.h"
#include "imaging/vector/ClipRows.h"
#include "imaging/vector/Painter.h"

namespace tavrix::vector {
namespace {

constexpr Pixel Colours = 0x00FFFFFFU;

/// Finds the pixels that are joined to one by their sides.
class FloodFinder {
  public:
    FloodFinder(const Surface& surface, const Region& clip, Pixel colour, bool over)
        : surface_(surface),
          clip_(clip),
          bounds_(clip.Bounds()),
          colour_(colour),
          over_(over),
          seen_(static_cast<std::size_t>(bounds_.width) * static_cast<std::size_t>(bounds_.height)) {}

    /// Calls visit(y, from, to) for each run of them.
    template <class Visitor>
    void Run(int startX, int startY, WorkBudget& budget, Visitor visit) {
        waiting_.push_back({startX, startY});
        while (!waiting_.empty()) {
            const auto [x, y] = waiting_.back();
            waiting_.pop_back();
            if (!Joins(x, y)) continue;
            int from = x;
            int to = x + 1;
            while (Joins(from - 1, y))
                --from;
            while (Joins(to, y))
                ++to;
            for (int at = from; at < to; ++at)
                seen_[IndexOf(at, y)] = true;
            if (!budget.Spend(std::int64_t{32} * (to - from + 2))) return;
            visit(y, from, to);
            Wait(from, to, y - 1);
            Wait(from, to, y + 1);
        }
    }

  private:
    struct Place {
        int x = 0;
        int y = 0;
    };

    [[nodiscard]] std::size_t IndexOf(int x, int y) const {
        return static_cast<std::size_t>(y - bounds_.top) * static_cast<std::size_t>(bounds_.width) +
               static_cast<std::size_t>(x - bounds_.left);
    }

    [[nodiscard]] bool Joins(int x, int y) const {
        if (!clip_.Contains(x, y) || seen_[IndexOf(x, y)]) return false;
        const bool same = ((surface_.Row(y)[static_cast<std::size_t>(x)] ^ colour_) & Colours) == 0;
        return same == over_;
    }

    /// Notes where runs begin in a row beside one that was found.
    void Wait(int from, int to, int y) {
        bool before = false;
        for (int x = from; x < to; ++x) {
            const bool joins = Joins(x, y);
            if (joins && !before) waiting_.push_back({x, y});
            before = joins;
        }
    }

    const Surface& surface_;
    const Region& clip_;
    PixelRect bounds_;
    Pixel colour_;
    bool over_;
    std::vector<bool> seen_;
    std::vector<Place> waiting_;
};

}  // namespace

void Painter::Flood(int x, int y, Pixel colour, bool over, const Brush& brush) {
    if (brush.Null() || !clip_.Contains(x, y)) return;
    const PixelRect bounds = clip_.Bounds();
    if (!budget_.Spend(std::int64_t{bounds.width} * bounds.height / 32)) return;
    const BrushInk ink(brush, BinaryOperation::CopyPen);
    FloodFinder finder(target_, clip_, colour, over);
    finder.Run(x, y, budget_, [&](int row, int from, int to) {
        const auto pixels = target_.Row(row);
        for (int at = from; at < to; ++at) {
            Pixel& pixel = pixels[static_cast<std::size_t>(at)];
            pixel = ink(at, row, pixel, 255);
        }
    });
}

void Painter::FloodFillUpTo(int x, int y, Pixel stopAt, const Brush& brush) noexcept {
    Guarded([&] { Flood(x, y, stopAt, false, brush); });
}

void Painter::FloodFillOver(int x, int y, Pixel over, const Brush& brush) noexcept {
    Guarded([&] { Flood(x, y, over, true, brush); });
}

}  // namespace tavrix::vector
