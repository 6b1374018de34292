#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace tavrix::forms {

class Control;

/// How the controls of a dialog are arranged. The backend carries it out with the platform's fonts, so that no text
/// is clipped at any scale.
struct Layout {
    enum class Kind : std::uint8_t { Item, Row, Column, Grid, Group, Stretch };

    Kind kind = Kind::Stretch;
    Control* control = nullptr;   ///< of an Item
    std::vector<Layout> content;  ///< of a Row, Column, Grid or Group
    int columns = 1;              ///< of a Grid, which is filled row by row
    std::string caption;          ///< of a Group, which has a frame; empty for a frame alone
    float minWidth = 0;           ///< twips
    float minHeight = 0;          ///< twips
    int share = 0;                ///< of the space that is left in the row or column around it

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
/// Rows whose columns are aligned: labels and the fields beside them, say.
[[nodiscard]] inline Layout Grid(int columns, std::initializer_list<Layout> items) {
    Layout layout(Layout::Kind::Grid, items);
    layout.columns = columns;
    return layout;
}
/// A column in a frame that may have a caption.
[[nodiscard]] inline Layout Group(std::string caption, std::initializer_list<Layout> items) {
    Layout layout(Layout::Kind::Group, items);
    layout.caption = std::move(caption);
    return layout;
}
/// At least so large, in twips. A label whose least width is told asks for no more, however long its text is: what does
/// not fit is shown with an ellipsis.
[[nodiscard]] inline Layout AtLeast(float width, float height, Layout item) {
    item.minWidth = width;
    item.minHeight = height;
    return item;
}
/// Takes this share of the space that is left.
[[nodiscard]] inline Layout Growing(Layout item, int share = 1) {
    item.share = share;
    return item;
}
/// Takes the space that is left.
[[nodiscard]] inline Layout Stretch() {
    return {};
}

}  // namespace tavrix::forms
