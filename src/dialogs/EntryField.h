#pragma once

#include <string>

#include "platform/forms/TextBox.h"

namespace tavrix {

/// A KeyPress handler of fields for numbers: digits and Backspace are kept.
inline void KeepDigits(std::string& character) {
    const bool digit = character.size() == 1 && character[0] >= '0' && character[0] <= '9';
    if (!digit && character != forms::TextBox::BackspaceCharacter) character.clear();
}

/// Selects the whole of a field and gives it the focus, so that typing replaces it.
inline void SelectToReplace(forms::TextBox& field) {
    field.SelectAll();
    field.SetFocus();
}

}  // namespace tavrix
