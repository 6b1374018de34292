#pragma once

#include "imaging/metafile/DeviceContext.h"
#include "imaging/vector/Brush.h"
#include "imaging/vector/Pen.h"

namespace tavrix::metafile {

/// The selected brush as it is drawn with. May throw std::bad_alloc.
[[nodiscard]] vector::Brush SelectedBrush(DeviceContext& context);
/// A brush of the table; one that fills nothing where there is none.
[[nodiscard]] vector::Brush BrushOf(DeviceContext& context, const std::shared_ptr<const Object>& object);

/// The selected pen as it is drawn with.
struct DrawingPen {
    vector::Pen pen;
    vector::Affine toPicture;     ///< of its lengths
    bool insideFrame = false;     ///< boxes are drawn inside their borders
    bool endsBeforeLast = false;  ///< lines leave away the pixel that they end at
};
[[nodiscard]] DrawingPen SelectedPen(DeviceContext& context);

/// The colours that bitmaps of two colours take, and the selected palette.
[[nodiscard]] BitmapColours ColoursOf(DeviceContext& context, BitmapColours::Mono mono);

}  // namespace tavrix::metafile
