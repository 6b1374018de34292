#include "core/SlideShow.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

#include "base/RuntimeError.h"

namespace tavrix {
namespace {

std::size_t SlotOf(int index) {
    if (index < 0 || index > SlideTexts::LastIndex) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(index);
}

void Require(bool condition) {
    if (!condition) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
}

}  // namespace

const std::string& SlideTexts::operator[](int index) const {
    static const std::string none;
    const std::size_t slot = SlotOf(index);
    return slot < texts_.size() ? texts_[slot] : none;
}

void SlideTexts::Set(int index, std::string text) {
    const std::size_t slot = SlotOf(index);
    if (slot >= texts_.size()) {
        if (text.empty()) return;
        texts_.resize(slot + 1);
    }
    texts_[slot] = std::move(text);
}

int SlideTexts::FirstEmpty() const {
    const auto found = std::ranges::find_if(texts_, &std::string::empty);
    return static_cast<int>(found - texts_.begin());
}

void SlideTexts::Insert(int count, int index, std::span<const std::string> texts) {
    texts_.resize(static_cast<std::size_t>(count));
    texts_.insert(texts_.begin() + index, texts.begin(), texts.end());
}

void SlideTexts::Remove(int count, std::span<const int> indices) {
    texts_.resize(static_cast<std::size_t>(count));
    std::size_t kept = 0;
    std::size_t next = 0;
    for (std::size_t i = 0; i < texts_.size(); ++i) {
        if (next < indices.size() && static_cast<std::size_t>(indices[next]) == i) {
            ++next;
        } else {
            if (kept != i) texts_[kept] = std::move(texts_[i]);
            ++kept;
        }
    }
    texts_.resize(kept);
}

void SlideTexts::Arrange(int count, std::span<const int> order) {
    texts_.resize(static_cast<std::size_t>(count));
    std::vector<std::string> arranged;
    arranged.reserve(order.size());
    for (const int former : order)
        arranged.push_back(std::move(texts_[static_cast<std::size_t>(former)]));
    texts_ = std::move(arranged);
}

bool operator==(const SlideTexts& a, const SlideTexts& b) {
    const SlideTexts& longer = a.texts_.size() < b.texts_.size() ? b : a;
    const SlideTexts& shorter = &longer == &a ? b : a;
    const auto rest = longer.texts_.begin() + static_cast<std::ptrdiff_t>(shorter.texts_.size());
    return std::equal(shorter.texts_.begin(), shorter.texts_.end(), longer.texts_.begin()) &&
           std::all_of(rest, longer.texts_.end(), [](const std::string& text) { return text.empty(); });
}

void ShowSlides::EraseSlides() {
    SlideFiles.Erase();
    SlideDescriptions.Erase();
}

void ShowSlides::InsertSlides(int index, std::span<const std::string> paths) {
    const int count = Count();
    Require(index >= 0 && index <= count);
    Require(paths.size() <= static_cast<std::size_t>(SlideTexts::Slots - count));
    SlideFiles.Insert(count, index, paths);
    SlideDescriptions.Insert(count, index, std::vector<std::string>(paths.size()));
}

void ShowSlides::RemoveSlides(std::span<const int> indices) {
    const int count = Count();
    Require(std::ranges::adjacent_find(indices, std::ranges::greater_equal()) == indices.end());
    Require(indices.empty() || (indices.front() >= 0 && indices.back() < count));
    SlideFiles.Remove(count, indices);
    SlideDescriptions.Remove(count, indices);
}

void ShowSlides::ArrangeSlides(std::span<const int> order) {
    const int count = Count();
    Require(order.size() == static_cast<std::size_t>(count));
    std::vector<bool> named(order.size());
    for (const int former : order) {
        Require(former >= 0 && former < count && !named[static_cast<std::size_t>(former)]);
        named[static_cast<std::size_t>(former)] = true;
    }
    SlideFiles.Arrange(count, order);
    SlideDescriptions.Arrange(count, order);
}

}  // namespace tavrix
