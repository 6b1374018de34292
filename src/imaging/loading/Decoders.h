#pragma once

#include <span>
#include <string_view>

#include "imaging/codecs/Decoder.h"

namespace tavrix {

/// All decoders, in the order in which they are asked.
[[nodiscard]] std::span<const DecoderEntry> Decoders();
/// The decoder that recognises the data; null when none does.
[[nodiscard]] const DecoderEntry* DecoderFor(ByteSource& source);

/// Decoders of formats that cannot be told by their first bytes for sure, so that a damaged file of another kind would
/// pass for one of them. They are asked only when the name of a file says so: it ends in a point and the format.
[[nodiscard]] std::span<const DecoderEntry> ImportDecoders();
/// The import decoder that goes with the name (a path, whatever its case) and recognises the data; otherwise the
/// one of Decoders() that does; null when none does.
[[nodiscard]] const DecoderEntry* ImportDecoderFor(ByteSource& source, std::string_view name);

}  // namespace tavrix
