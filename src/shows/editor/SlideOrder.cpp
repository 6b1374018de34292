#include "shows/editor/SlideOrder.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <numeric>

namespace tavrix {
namespace {

std::vector<int> SameOrder(int count) {
    std::vector<int> order(static_cast<std::size_t>(count));
    std::iota(order.begin(), order.end(), 0);
    return order;
}

/// A sequence in blocks, so that taking a number out and putting it in elsewhere moves few others.
class Blocks {
  public:
    explicit Blocks(const std::vector<int>& numbers) {
        for (auto begin = numbers.begin(); begin != numbers.end();) {
            const auto length = std::min<std::ptrdiff_t>(BlockLength, numbers.end() - begin);
            blocks_.emplace_back(begin, begin + length);
            begin += length;
        }
    }

    int Take(int at) {
        std::vector<int>& block = BlockOf(at, false);
        const int taken = block[static_cast<std::size_t>(at)];
        block.erase(block.begin() + at);
        return taken;
    }
    void Put(int number, int at) {
        std::vector<int>& block = BlockOf(at, true);
        block.insert(block.begin() + at, number);
    }
    [[nodiscard]] std::vector<int> All() const {
        std::vector<int> all;
        for (const std::vector<int>& block : blocks_)
            all.insert(all.end(), block.begin(), block.end());
        return all;
    }

  private:
    static constexpr std::ptrdiff_t BlockLength = 2048;

    /// The block of a place, which is counted from the block's beginning afterwards.
    std::vector<int>& BlockOf(int& at, bool orBehind) {
        auto block = blocks_.begin();
        while (at >= static_cast<int>(block->size()) + (orBehind ? 1 : 0)) {
            at -= static_cast<int>(block->size());
            ++block;
        }
        return *block;
    }

    std::vector<std::vector<int>> blocks_;
};

}  // namespace

std::vector<int> ReverseOrder(int count) {
    std::vector<int> order = SameOrder(count);
    std::ranges::reverse(order);
    return order;
}

std::vector<int> MoveOrder(int count, int from, int to) {
    std::vector<int> order = SameOrder(count);
    order.erase(order.begin() + from);
    order.insert(order.begin() + to, from);
    return order;
}

std::vector<int> GatherOrder(int count, const std::vector<int>& slides, int before) {
    std::vector<int> order;
    order.reserve(static_cast<std::size_t>(count));
    const std::vector<int> all = SameOrder(count);
    const auto others = [&](int first, int end) {
        std::set_difference(all.begin() + first, all.begin() + end, slides.begin(), slides.end(),
                            std::back_inserter(order));
    };
    others(0, before);
    order.insert(order.end(), slides.begin(), slides.end());
    others(before, count);
    return order;
}

std::vector<int> RandomOrder(int count, Random& random) {
    Blocks slides(SameOrder(count));
    for (int i = 0; i < count; ++i) {
        const float r = random.Next();
        const int others = count - 1;
        const int target = static_cast<int>(std::floor(static_cast<float>(others - 2) * r));
        if (target < 0) continue;  // of two slides
        slides.Put(slides.Take(i), target);
    }
    return slides.All();
}

}  // namespace tavrix
