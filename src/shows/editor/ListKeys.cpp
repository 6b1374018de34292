#include "shows/editor/ListKeys.h"

#include <algorithm>
#include <utility>

namespace tavrix {

ListKeys::ListKeys(forms::Control& list) {
    list.OnKeyDown = [this](int& keyCode, int shift) { Press(keyCode, shift); };
    list.OnKeyUp = [this](int keyCode, int) { Release(keyCode); };
    list.OnLostFocus = [this] { pressed_.clear(); };
}

void ListKeys::On(int keyCode, int shift, std::function<void()> command) {
    keys_.push_back({keyCode, shift, std::move(command)});
}

const ListKeys::Key* ListKeys::Find(int keyCode, int shift) const {
    const auto found = std::ranges::find_if(
        keys_, [&](const Key& key) { return key.keyCode == keyCode && key.shift == shift; });
    return found != keys_.end() ? &*found : nullptr;
}

void ListKeys::Press(int& keyCode, int shift) {
    if (pressed_.contains(keyCode)) {  // it is held
        keyCode = 0;
    } else if (Find(keyCode, shift) != nullptr) {
        pressed_.emplace(std::exchange(keyCode, 0), shift);
    }
}

void ListKeys::Release(int keyCode) {
    const auto press = pressed_.extract(keyCode);
    if (press.empty()) return;
    // What the command opens gets the other releases.
    pressed_.clear();
    if (const Key* key = Find(keyCode, press.mapped())) {
        const std::function<void()> command = key->command;
        command();
    }
}

}  // namespace tavrix
