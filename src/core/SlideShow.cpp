#include "core/SlideShow.h"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"

namespace tavrix {
namespace {

std::size_t SlotOf(int index) {
    if (index < 0 || index > SlideTexts::LastIndex) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(index);
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

void SlideTexts::Insert(int index, std::string text) {
    const std::size_t slot = SlotOf(index);
    if (slot >= texts_.size()) {
        Set(index, std::move(text));
        return;
    }
    if (texts_.size() == static_cast<std::size_t>(Slots)) texts_.pop_back();
    texts_.insert(texts_.begin() + index, std::move(text));
}

void SlideTexts::Remove(int index) {
    if (SlotOf(index) < texts_.size()) texts_.erase(texts_.begin() + index);
}

int SlideTexts::FirstEmpty() const {
    const auto found = std::ranges::find_if(texts_, &std::string::empty);
    return static_cast<int>(found - texts_.begin());
}

bool operator==(const SlideTexts& a, const SlideTexts& b) {
    const SlideTexts& longer = a.texts_.size() < b.texts_.size() ? b : a;
    const SlideTexts& shorter = &longer == &a ? b : a;
    const auto rest = longer.texts_.begin() + static_cast<std::ptrdiff_t>(shorter.texts_.size());
    return std::equal(shorter.texts_.begin(), shorter.texts_.end(), longer.texts_.begin()) &&
           std::all_of(rest, longer.texts_.end(), [](const std::string& text) { return text.empty(); });
}

}  // namespace tavrix
