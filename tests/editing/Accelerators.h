#pragma once

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "base/Text.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/OptionButton.h"
#include "support/AllControls.h"

namespace tavrix::test {

/// The letters that Alt goes with in a window, one for each control that has one.
inline std::vector<char> AcceleratorsOf(const forms::Form& form) {
    std::vector<char> letters;
    const auto add = [&letters](const std::string& caption) {
        const std::size_t at = caption.find('&');
        if (at != std::string::npos && at + 1 < caption.size())
            letters.push_back(UpperCase(caption.substr(at + 1, 1))[0]);
    };
    for (const forms::Control* control : AllControls(form)) {
        if (const auto* button = dynamic_cast<const forms::CommandButton*>(control)) add(button->Caption);
        if (const auto* check = dynamic_cast<const forms::CheckBox*>(control)) add(check->Caption);
        if (const auto* option = dynamic_cast<const forms::OptionButton*>(control)) add(option->Caption);
        if (const auto* label = dynamic_cast<const forms::Label*>(control); label && !label->Literal)
            add(label->Caption);
    }
    return letters;
}

/// No two controls share a letter.
inline void ExpectOwnLetters(const forms::Form& form, std::size_t count) {
    const std::vector<char> letters = AcceleratorsOf(form);
    EXPECT_EQ(std::set(letters.begin(), letters.end()).size(), letters.size());
    EXPECT_EQ(letters.size(), count);
}

}  // namespace tavrix::test
