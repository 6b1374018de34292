#include "shows/editor/ListKeys.h"

#include <algorithm>
#include <utility>

namespace tavrix {

ListKeys::ListKeys(forms::ListControl& list) {
    list.OnKeyDown = [this](int& keyCode, int shift) { Press(keyCode, shift); };
    list.OnCharacter = [this](const std::string& character) { return Type(character); };
    list.OnKeyUp = [this](int keyCode, int) { Release(keyCode); };
    list.OnLostFocus = [this] { Forget(); };
}

void ListKeys::On(int keyCode, int shift, std::function<void()> command) {
    keys_.push_back({keyCode, shift, std::move(command)});
}

void ListKeys::On(const std::string& character, std::function<void()> command) {
    characters_[character] = std::move(command);
}

void ListKeys::Press(int& keyCode, int shift) {
    last_ = keyCode;
    if (pressed_.contains(keyCode)) {  // it is held
        keyCode = 0;
        return;
    }
    const auto key = std::ranges::find_if(
        keys_, [&](const Key& known) { return known.keyCode == keyCode && known.shift == shift; });
    if (key != keys_.end()) pressed_.emplace(std::exchange(keyCode, 0), key->command);
}

bool ListKeys::Type(const std::string& character) {
    const auto found = characters_.find(character);
    if (found == characters_.end()) return false;
    pressed_.emplace(last_, found->second);
    return true;
}

void ListKeys::Release(int keyCode) {
    const auto press = pressed_.extract(keyCode);
    if (press.empty()) return;
    // What the command opens gets the other releases.
    Forget();
    press.mapped()();
}

void ListKeys::Forget() {
    pressed_.clear();
    last_ = 0;
}

}  // namespace tavrix
