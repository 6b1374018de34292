#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "imaging/vector/FontBook.h"

namespace tavrix::vector {

enum class TextHorizontal { Left, Centre, Right };
enum class TextVertical { Top, Baseline, Bottom };

/// Characters of one font, each with its place, in the font's units. The reference point of the text is (0, 0), the
/// line runs to the right; escapement and orientation are not in here yet.
struct TextRun {
    struct Glyph {
        char32_t character = 0;
        Point origin;  ///< start of the character on the baseline
    };

    std::shared_ptr<Font> font;  ///< null: there is nothing to draw
    std::vector<Glyph> glyphs;
    /// From the start of the first character to the end of the last.
    double width = 0;
    /// The cells of all characters, for an opaque background: the width by the height of a line.
    Box cells;
    /// Where the reference point would be moved by text that updates the current position, along the line.
    double advance = 0;
};

/// Places characters side by side. `steps`: the distance from each character to the next, instead of the font's own
/// where there is one; empty or shorter than the text as it may be. `extra`: added to each character's own width;
/// `breakExtra`: added to each blank's.
/// A null font gives an empty run. Throws nothing but std::bad_alloc.
[[nodiscard]] TextRun LayOutText(std::shared_ptr<Font> font, std::u32string_view text,
                                 std::span<const double> steps = {}, double extra = 0, double breakExtra = 0);

/// The same, with steps in both directions (x to the right, y downwards).
[[nodiscard]] TextRun LayOutText(std::shared_ptr<Font> font, std::u32string_view text,
                                 std::span<const Point> steps);

/// Moves the run so that its reference point is where the alignment says.
void Align(TextRun& run, TextHorizontal horizontal, TextVertical vertical);

/// About what it costs to lay a text out and to make its outlines, in units of work. Both pay nothing themselves.
[[nodiscard]] std::int64_t LayOutCost(std::size_t characters);
[[nodiscard]] std::int64_t OutlineCost(const TextRun& run);

/// The outlines with underline and strike-out, to be filled nonzero. `textToDevice` maps the font's units to device
/// pixels, with the reference point at its origin; escapement and orientation of the font come before it.
[[nodiscard]] Path OutlineOf(const TextRun& run, const Affine& textToDevice);
/// The cells' parallelogram on the device, for an opaque background or a clip.
[[nodiscard]] Path CellsOf(const TextRun& run, const Affine& textToDevice);
/// The vector on the device by which the text moves the current position.
[[nodiscard]] Point AdvanceOf(const TextRun& run, const Affine& textToDevice);

}  // namespace tavrix::vector
