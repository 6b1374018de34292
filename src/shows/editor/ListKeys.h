#pragma once

#include <functional>
#include <map>
#include <vector>

#include "platform/forms/Control.h"

namespace tavrix {

/// The keys of a list that are commands. Such a key does nothing else; its command runs when it goes up, once however long
/// it was held, with the shift keys of its press, and only where it was pressed in this list too.
class ListKeys {
  public:
    /// Takes the key events of the list, which outlives this object.
    explicit ListKeys(forms::Control& list);
    ListKeys(const ListKeys&) = delete;
    ListKeys& operator=(const ListKeys&) = delete;

    /// The shift keys are compared exactly.
    void On(int keyCode, int shift, std::function<void()> command);

  private:
    struct Key {
        int keyCode = 0;
        int shift = 0;
        std::function<void()> command;
    };

    [[nodiscard]] const Key* Find(int keyCode, int shift) const;
    void Press(int& keyCode, int shift);
    void Release(int keyCode);

    std::vector<Key> keys_;
    std::map<int, int> pressed_;  ///< the shift keys of the press, by the code of the key
};

}  // namespace tavrix
