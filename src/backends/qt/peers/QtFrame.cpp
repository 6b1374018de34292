#include "backends/qt/peers/QtFrame.h"

#include "backends/qt/peers/DialogSpace.h"

namespace tavrix::qt {

forms::PixelInsets QtFrame::Border() const {
    Get().ensurePolished();
    return ToDevice(Get().contentsMargins() + DialogMargins(*Get().style()));
}

forms::PixelSize QtFrame::NaturalSize() const {
    Get().ensurePolished();
    return NaturalInDevice(Get().minimumSizeHint());
}

}  // namespace tavrix::qt
