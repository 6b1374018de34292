#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/forms/ListControl.h"

namespace tavrix {

/// The keys of a list that are commands, by their code or by the character that they type on whatever layout. Such a key does
/// nothing else; its command runs when it goes up, once however long it was held, with the shift keys of its press, and
/// only where it was pressed in this list too.
class ListKeys {
  public:
    /// Takes the key events of the list, which outlives this object.
    explicit ListKeys(forms::ListControl& list);
    ListKeys(const ListKeys&) = delete;
    ListKeys& operator=(const ListKeys&) = delete;

    /// The shift keys are compared exactly.
    void On(int keyCode, int shift, std::function<void()> command);
    void On(const std::string& character, std::function<void()> command);

  private:
    struct Key {
        int keyCode = 0;
        int shift = 0;
        std::function<void()> command;
    };

    void Press(int& keyCode, int shift);
    [[nodiscard]] bool Type(const std::string& character);
    void Release(int keyCode);
    void Forget();

    std::vector<Key> keys_;
    std::map<std::string, std::function<void()>> characters_;
    std::map<int, std::function<void()>> pressed_;  ///< what runs when the key of this code goes up
    int last_ = 0;                                  ///< the code of the key that went down last
};

}  // namespace tavrix
