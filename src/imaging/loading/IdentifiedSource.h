#pragma once

#include <memory>
#include <string>

#include "imaging/codecs/ByteSource.h"

namespace tavrix {

/// Bytes that can be recognised.
struct IdentifiedSource {
    std::unique_ptr<ByteSource> bytes;
    std::string identity;  ///< the same only for the same state of the same data
};

}  // namespace tavrix
