#pragma once

#include "imaging/graphics/Picture.h"

class QMimeData;

namespace tavrix::qt {

/// Whether other programs' data name a picture of pixels among their kinds. Nothing is fetched.
[[nodiscard]] bool NamesPicture(const QMimeData& data);
/// Whether they hold a metafile that a decoder recognises.
[[nodiscard]] bool HoldsMetafile(const QMimeData& data);

/// The picture in the data, from the kind that keeps most of it; whole and opaque.
/// Throws RuntimeError 481 for data that are no picture, 7 above the limits, and 521 when nothing comes.
[[nodiscard]] Picture PictureIn(const QMimeData& data);

}  // namespace tavrix::qt
