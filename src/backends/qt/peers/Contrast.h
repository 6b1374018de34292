#pragma once

#include <QColor>

namespace tavrix::qt {

/// What texts need of what is behind them, by WCAG 2.1, level AA.
inline constexpr double TextContrast = 4.5;
/// What large texts need, and the outlines by which a control is known.
inline constexpr double OutlineContrast = 3.0;

/// How well two opaque colours are told apart: 1, not at all, to 21, black on white (WCAG 2.1, contrast ratio).
[[nodiscard]] double ContrastOf(const QColor& one, const QColor& other);

/// Black or white, whichever is read better on a colour; at least 4.5 on each.
[[nodiscard]] QColor TextColourOn(const QColor& below);

/// `colour` as it is or, where its contrast to `below` is less than `least`, as far towards black or white as is needed.
[[nodiscard]] QColor ReadableOn(const QColor& below, const QColor& colour, double least);

}  // namespace tavrix::qt
