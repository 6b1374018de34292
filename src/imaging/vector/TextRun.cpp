#include "imaging/vector/TextRun.h"

#include <algorithm>
#include <cmath>

namespace tavrix::vector {
namespace {

constexpr char32_t Blank = U' ';

/// `stepAfter(i, own width)`: from character i to the next.
template <class Steps>
TextRun LayOut(std::shared_ptr<Font> font, std::u32string_view text, Steps stepAfter) {
    TextRun run;
    if (!font) return run;
    run.glyphs.reserve(text.size());
    Point at;
    for (std::size_t i = 0; i < text.size(); ++i) {
        run.glyphs.push_back({text[i], at});
        at = Tamed(at + stepAfter(i, font->Advance(text[i])));
    }
    run.width = run.advance = at.x;
    run.cells = {0, -font->Ascent(), at.x, font->Descent()};
    run.font = std::move(font);
    return run;
}

double Baseline(const TextRun& run) {
    return run.cells.top + run.font->Ascent();
}

/// From the text's units, without its turns, to the device. A baseline along an axis of the device comes to lie on a
/// border between pixels, so that the feet of the characters are crisp.
Affine LineToDevice(const TextRun& run, const Affine& textToDevice) {
    Affine map = Affine::Turn(run.font->Request().escapement).Then(textToDevice);
    if (!map.KeepsBoxes()) return map;
    const Point at = map.Apply({0, Baseline(run)});
    if (std::abs(map.m11) > std::abs(map.m12))
        map.dy += std::floor(at.y + 0.5) - at.y;
    else
        map.dx += std::floor(at.x + 0.5) - at.x;
    return map;
}

/// A line along the text, at least a pixel thick; where it lies along an axis of the device, on whole pixels.
void AddLine(Path& path, const TextRun& run, double middle, const Affine& lineToDevice) {
    const Font& font = *run.font;
    const Point across = lineToDevice.ApplyToVector({0, 1});
    const double scale = std::hypot(across.x, across.y);
    if (!(scale > 0)) return;
    const bool upright = lineToDevice.KeepsBoxes();
    double thickness = std::max(font.LineThickness(), 1 / scale);
    if (upright) thickness = std::max(std::floor(thickness * scale + 0.5), 1.0) / scale;
    const Box box{run.cells.left, middle - thickness / 2, run.cells.right, middle + thickness / 2};
    Path line;
    line.AddBox(box);
    line = line.Transformed(lineToDevice);
    if (upright) {
        const Box at = line.Bounds();
        const bool horizontal = at.Width() >= at.Height();
        const double x = horizontal ? 0 : std::floor(at.left + 0.5) - at.left;
        const double y = horizontal ? std::floor(at.top + 0.5) - at.top : 0;
        line = line.Transformed(Affine::Shift(x, y));
    }
    path.Append(line);
}

}  // namespace

TextRun LayOutText(std::shared_ptr<Font> font, std::u32string_view text, std::span<const double> steps,
                   double extra, double breakExtra) {
    return LayOut(std::move(font), text, [&](std::size_t i, double own) {
        if (i < steps.size()) return Point{steps[i], 0};
        return Point{own + extra + (text[i] == Blank ? breakExtra : 0), 0};
    });
}

TextRun LayOutText(std::shared_ptr<Font> font, std::u32string_view text, std::span<const Point> steps) {
    return LayOut(std::move(font), text, [&](std::size_t i, double own) {
        return i < steps.size() ? steps[i] : Point{own, 0};
    });
}

void Align(TextRun& run, TextHorizontal horizontal, TextVertical vertical) {
    if (!run.font) return;
    Point by;
    switch (horizontal) {
        case TextHorizontal::Left:
            run.advance = run.width;
            break;
        case TextHorizontal::Centre:
            by.x = -run.width / 2;
            run.advance = 0;
            break;
        case TextHorizontal::Right:
            by.x = -run.width;
            run.advance = -run.width;
            break;
    }
    if (vertical == TextVertical::Top) by.y = run.font->Ascent();
    if (vertical == TextVertical::Bottom) by.y = -run.font->Descent();
    for (TextRun::Glyph& glyph : run.glyphs)
        glyph.origin = glyph.origin + by;
    run.cells = {run.cells.left + by.x, run.cells.top + by.y, run.cells.right + by.x,
                 run.cells.bottom + by.y};
}

std::int64_t LayOutCost(std::size_t characters) {
    constexpr std::int64_t CharacterCost = 100;
    return CharacterCost * static_cast<std::int64_t>(characters);
}

std::int64_t OutlineCost(const TextRun& run) {
    constexpr std::int64_t GlyphCost = 600;
    return GlyphCost * std::ssize(run.glyphs);
}

Path OutlineOf(const TextRun& run, const Affine& textToDevice) {
    Path path;
    if (!run.font) return path;
    const FontRequest& request = run.font->Request();
    const Affine lineToDevice = LineToDevice(run, textToDevice);
    // The line's turn is in the places already.
    const Affine turned = Affine::Turn(request.orientation).Then(textToDevice);
    for (const TextRun::Glyph& glyph : run.glyphs) {
        Affine map = turned;
        const Point at = lineToDevice.Apply(glyph.origin);
        map.dx = at.x;
        map.dy = at.y;
        run.font->AddOutline(path, glyph.character, map);
    }
    const double baseline = Baseline(run);
    if (request.underline) AddLine(path, run, baseline + run.font->UnderlinePosition(), lineToDevice);
    if (request.strikeOut) AddLine(path, run, baseline + run.font->StrikeOutPosition(), lineToDevice);
    return path;
}

Path CellsOf(const TextRun& run, const Affine& textToDevice) {
    Path path;
    if (!run.font) return path;
    path.AddBox(run.cells);
    return path.Transformed(LineToDevice(run, textToDevice));
}

Point AdvanceOf(const TextRun& run, const Affine& textToDevice) {
    if (!run.font) return {};
    return LineToDevice(run, textToDevice).ApplyToVector({run.advance, 0});
}

}  // namespace tavrix::vector
