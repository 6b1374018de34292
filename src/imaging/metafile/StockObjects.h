#pragma once

#include <memory>

#include "imaging/metafile/Objects.h"

namespace tavrix::metafile {

/// The objects that every device has, by the numbers of the Windows GDI (0 the white brush, 7 the black pen, ...). Null
/// for a number that is none.
[[nodiscard]] std::shared_ptr<const Object> StockObjectOf(std::uint32_t number);

inline constexpr std::uint32_t StockWhiteBrush = 0;
inline constexpr std::uint32_t StockBlackPen = 7;
inline constexpr std::uint32_t StockSystemFont = 13;
inline constexpr std::uint32_t StockPalette = 15;

}  // namespace tavrix::metafile
