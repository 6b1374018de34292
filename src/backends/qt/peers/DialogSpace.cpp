#include "backends/qt/peers/DialogSpace.h"

#include <QStyle>

#include "backends/qt/peers/Scale.h"

namespace tavrix::qt {

namespace {

/// Some styles have one distance for all kinds of controls, others only one for each two kinds.
int SpacingOf(const QStyle& style, QStyle::PixelMetric metric, Qt::Orientation orientation) {
    constexpr int Otherwise = 6;
    int spacing = style.pixelMetric(metric);
    if (spacing < 0)
        spacing = style.layoutSpacing(QSizePolicy::PushButton, QSizePolicy::PushButton, orientation);
    return spacing < 0 ? Otherwise : spacing;
}

}  // namespace

QMargins DialogMargins(const QStyle& style) {
    return {style.pixelMetric(QStyle::PM_LayoutLeftMargin), style.pixelMetric(QStyle::PM_LayoutTopMargin),
            style.pixelMetric(QStyle::PM_LayoutRightMargin),
            style.pixelMetric(QStyle::PM_LayoutBottomMargin)};
}

forms::PixelInsets ToDevice(const QMargins& margins) {
    const double ratio = DeviceRatio();
    return {CeilToDevice(margins.left(), ratio), CeilToDevice(margins.top(), ratio),
            CeilToDevice(margins.right(), ratio), CeilToDevice(margins.bottom(), ratio)};
}

forms::LayoutMetrics MetricsOf(const QStyle& style) {
    constexpr float TwipsPerLogicalPixel = 15;
    const double ratio = DeviceRatio();
    const auto twips = static_cast<float>(TwipsPerLogicalPixel / ratio);
    return {ToDevice(DialogMargins(style)),
            CeilToDevice(SpacingOf(style, QStyle::PM_LayoutHorizontalSpacing, Qt::Horizontal), ratio),
            CeilToDevice(SpacingOf(style, QStyle::PM_LayoutVerticalSpacing, Qt::Vertical), ratio), twips,
            twips};
}

}  // namespace tavrix::qt
