#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "imaging/vector/FontRequest.h"

namespace tavrix::vector {

/// Which family of pictures a name stands for, whose codes are translated where the family is not installed.
enum class SymbolSet { None, Symbol, Dingbats };

/// Families of the same look, and of the same widths as far as there are such, that stand in for one; the best
/// first. By its name (whatever its case), otherwise by its kind.
[[nodiscard]] std::span<const std::string_view> StandInsFor(const FontRequest& request);
[[nodiscard]] SymbolSet SymbolSetOf(std::string_view family);
/// The character of other fonts that shows the picture with a code of 0x20 to 0xFF; 0 where there is none.
[[nodiscard]] char32_t SymbolCharacter(SymbolSet set, unsigned code);

/// The character that a glyph of an unknown font most likely shows; a blank where nothing is known.
[[nodiscard]] char32_t CharacterOfGlyph(std::uint32_t glyph);

}  // namespace tavrix::vector
