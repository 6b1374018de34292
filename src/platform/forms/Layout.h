#pragma once

#include <cstdint>
#include <initializer_list>
#include <utility>
#include <vector>

#include "platform/forms/LayoutItem.h"

namespace tavrix::forms {

/// How the controls of a dialog are arranged. It is solved from the sizes that their texts need, so that none is
/// clipped at any scale or font. A control that is hidden keeps its place: nothing moves when it appears.
struct Layout {
    enum class Kind : std::uint8_t { Item, Row, Column, Grid, Group, Cells, Stretch };

    Kind kind = Kind::Stretch;
    LayoutItem* item = nullptr;   ///< of an Item; of a Group, its frame
    std::vector<Layout> content;  ///< of all others
    int columns = 1;              ///< of a Grid or Cells, which are filled row by row
    PixelSize cell;               ///< of Cells
    int gap = 0;                  ///< of Cells, between them, in device pixels
    float minWidth = 0;           ///< twips
    float minHeight = 0;          ///< twips
    int share = 0;                ///< of the space that is left in the row or column around it

    Layout() = default;
    Layout(LayoutItem& leaf) : kind(Kind::Item), item(&leaf) {}  // NOLINT(google-explicit-constructor)
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
/// A column in a frame. What is in it may be the frame's own or lie beside it in the same container.
[[nodiscard]] inline Layout Group(LayoutItem& frame, std::initializer_list<Layout> items) {
    Layout layout(Layout::Kind::Group, items);
    layout.item = &frame;
    return layout;
}
/// Cells that are all of one size in device pixels, whatever is in them: a page of thumbnails, say.
[[nodiscard]] inline Layout Cells(int columns, PixelSize cell, int gap, std::vector<Layout> items) {
    Layout layout;
    layout.kind = Layout::Kind::Cells;
    layout.content = std::move(items);
    layout.columns = columns;
    layout.cell = cell;
    layout.gap = gap;
    return layout;
}
/// At least so large, in twips. A label whose least width is told asks for no more, however long its text is: what does
/// not fit is shown with an ellipsis, or goes into further lines (Label::WordWrap).
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
