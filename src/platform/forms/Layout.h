#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

namespace tavrix::forms {

class Control;

/// How the controls of a dialog are arranged. The backend carries it out with the platform's fonts, so that no text
/// is clipped at any scale.
struct Layout {
    enum class Kind : std::uint8_t { Item, Row, Column, Stretch };

    Kind kind = Kind::Stretch;
    Control* control = nullptr;   ///< of an Item
    std::vector<Layout> content;  ///< of a Row or Column

    Layout() = default;
    Layout(Control& item) : kind(Kind::Item), control(&item) {}  // NOLINT(google-explicit-constructor)
    Layout(Kind boxKind, std::initializer_list<Layout> items) : kind(boxKind), content(items) {}
};

/// Side by side.
[[nodiscard]] inline Layout Row(std::initializer_list<Layout> items) {
    return {Layout::Kind::Row, items};
}
/// One below the other.
[[nodiscard]] inline Layout Column(std::initializer_list<Layout> items) {
    return {Layout::Kind::Column, items};
}
/// Takes the space that is left.
[[nodiscard]] inline Layout Stretch() {
    return {};
}

}  // namespace tavrix::forms
