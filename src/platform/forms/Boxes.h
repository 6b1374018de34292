#pragma once

#include <cstdint>
#include <string>

namespace tavrix::forms {

enum class BoxButtons : std::uint8_t { Ok, OkCancel, YesNoCancel, YesNo, RetryCancel };
enum class BoxIcon : std::uint8_t { None, Information, Exclamation, Question, Stop };
enum class Answer : std::uint8_t { Ok = 1, Cancel = 2, Retry = 4, Yes = 6, No = 7 };

/// A message box.
struct BoxRequest {
    std::string text;
    std::string title = "Tavrix";
    BoxIcon icon = BoxIcon::Information;
    BoxButtons buttons = BoxButtons::Ok;
    int defaultButton = 1;      ///< counted from 1
    bool systemModal = false;   ///< above everything on the screen
    bool help = false;          ///< a Help button, which does not close the box
    unsigned helpContext = 0;   ///< for the Help button
    std::string helpFile = {};  ///< empty: the application's help file
};

/// A box that asks for one line of text.
struct InputRequest {
    std::string prompt;
    std::string title = "Tavrix";
    std::string text = {};  ///< what stands in the field at first, all selected
};

/// The answer that closing a box by its frame or by Escape gives.
[[nodiscard]] constexpr Answer EscapeAnswer(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::Ok:
            return Answer::Ok;
        case BoxButtons::YesNo:
            return Answer::No;
        case BoxButtons::OkCancel:
        case BoxButtons::YesNoCancel:
        case BoxButtons::RetryCancel:
            break;
    }
    return Answer::Cancel;
}

}  // namespace tavrix::forms
