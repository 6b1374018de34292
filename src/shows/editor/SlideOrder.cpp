#include "shows/editor/SlideOrder.h"

#include <algorithm>
#include <bit>
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

/// A sequence in blocks, so that taking a number out and putting it in elsewhere moves few others. A tree of counts finds
/// the block of a place.
class Blocks {
  public:
    explicit Blocks(const std::vector<int>& numbers) {
        const std::size_t count = numbers.size() / BlockLength + 1;
        leaves_ = std::bit_ceil(count);
        counts_.resize(2 * leaves_);
        blocks_.resize(leaves_);
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t begin = i * BlockLength;
            const std::size_t end = std::min(begin + BlockLength, numbers.size());
            blocks_[i].reserve(2 * BlockLength);
            blocks_[i].assign(numbers.begin() + static_cast<std::ptrdiff_t>(begin),
                              numbers.begin() + static_cast<std::ptrdiff_t>(end));
            Grow(i, static_cast<int>(end - begin));
        }
    }

    int Take(int at) {
        const std::size_t number = BlockOf(at, 0);
        std::vector<int>& block = blocks_[number];
        const int taken = block[static_cast<std::size_t>(at)];
        block.erase(block.begin() + at);
        Grow(number, -1);
        return taken;
    }
    void Put(int value, int at) {
        const std::size_t number = BlockOf(at, 1);
        blocks_[number].insert(blocks_[number].begin() + at, value);
        Grow(number, 1);
    }
    [[nodiscard]] std::vector<int> All() const {
        std::vector<int> all;
        for (const std::vector<int>& block : blocks_)
            all.insert(all.end(), block.begin(), block.end());
        return all;
    }

  private:
    static constexpr std::size_t BlockLength = 128;

    /// The block of a place, which is counted from the block's beginning afterwards; `behind` is 1 where the place behind
    /// the last number of a block belongs to it too.
    std::size_t BlockOf(int& at, int behind) const {
        std::size_t node = 1;
        while (node < leaves_) {
            node *= 2;
            if (at < counts_[node] + behind) continue;
            at -= counts_[node];
            ++node;
        }
        return node - leaves_;
    }
    void Grow(std::size_t block, int by) {
        for (std::size_t node = block + leaves_; node > 0; node /= 2)
            counts_[node] += by;
    }

    std::vector<std::vector<int>> blocks_;
    std::size_t leaves_ = 1;
    std::vector<int> counts_;  ///< of the numbers below a node; those of node n are 2 n and 2 n + 1
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
