#include "app/PaintedTexts.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFontInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <algorithm>

#include "backends/qt/peers/Contrast.h"

namespace tavrix {
namespace {

constexpr int DotsAnInch = 96;

/// Notes texts, and draws nothing.
class TextEngine final : public QPaintEngine {
  public:
    TextEngine() : QPaintEngine(QPaintEngine::AllFeatures) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawTextItem(const QPointF& at, const QTextItem& item) override {
        if (item.text().trimmed().isEmpty()) return;
        const QRectF within(at.x(), at.y() - item.ascent(), item.width(), item.ascent() + item.descent());
        QRect place = painter()->deviceTransform().mapRect(NotClipped(within)).toAlignedRect();
        if (!systemClip().isEmpty()) place &= systemClip().boundingRect();
        if (place.isEmpty()) return;
        const QFontInfo font(item.font());
        constexpr double Large = 18;
        constexpr double LargeBold = 14;
        const double points = font.pixelSize() * 72.0 / DotsAnInch;
        const bool large = points >= (font.bold() ? LargeBold : Large);
        texts.push_back({item.text(), place, painter()->pen().color(), 1,
                         large ? qt::OutlineContrast : qt::TextContrast});
    }
    /// The part of a text that is drawn: what is selected in a line is drawn by itself.
    [[nodiscard]] QRectF NotClipped(const QRectF& within) const {
        if (!painter()->hasClipping()) return within;
        const QPainterPath clip = painter()->clipPath();
        constexpr int Samples = 32;
        QRectF seen;
        for (int i = 0; i < Samples; ++i) {
            const QRectF strip(within.left() + within.width() * i / Samples, within.top(),
                               within.width() / Samples, within.height());
            if (clip.contains(strip.center())) seen |= strip;
        }
        return seen;
    }
    [[nodiscard]] Type type() const override { return User; }

    std::vector<PaintedText> texts;
};

class TextDevice final : public QPaintDevice {
  public:
    explicit TextDevice(const QSize& size) : size_(size) {}

    [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine_; }
    [[nodiscard]] std::vector<PaintedText>& Texts() { return engine_.texts; }

  protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
        constexpr int Depth = 32;
        switch (metric) {
            case PdmWidth:
                return size_.width();
            case PdmHeight:
                return size_.height();
            case PdmDpiX:
            case PdmDpiY:
            case PdmPhysicalDpiX:
            case PdmPhysicalDpiY:
                return DotsAnInch;
            case PdmDepth:
                return Depth;
            case PdmDevicePixelRatio:
                return 1;
            case PdmDevicePixelRatioScaled:
                return static_cast<int>(devicePixelRatioFScale());
            default:
                return QPaintDevice::metric(metric);
        }
    }

  private:
    QSize size_;
    mutable TextEngine engine_;
};

bool IsOfDisabled(QWidget& window, const QPoint& place) {
    QWidget* widget = window.childAt(place);
    if (widget == nullptr) widget = &window;
    if (!widget->isEnabled()) return true;
    const QAction* action = nullptr;
    if (const auto* menu = qobject_cast<QMenu*>(widget))
        action = menu->actionAt(menu->mapFrom(&window, place));
    if (const auto* bar = qobject_cast<QMenuBar*>(widget))
        action = bar->actionAt(bar->mapFrom(&window, place));
    return action != nullptr && !action->isEnabled();
}

/// In logical pixels of the image.
QColor PixelAt(const QImage& image, const QPoint& place) {
    const double ratio = image.devicePixelRatio();
    return image.pixelColor(std::clamp(static_cast<int>(place.x() * ratio), 0, image.width() - 1),
                            std::clamp(static_cast<int>(place.y() * ratio), 0, image.height() - 1));
}

double ContrastBehind(const QImage& image, const QRect& place, const QColor& colour) {
    std::vector<double> contrasts;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            const QColor pixel = PixelAt(image, {x, y});
            if (pixel.rgb() != colour.rgb()) contrasts.push_back(qt::ContrastOf(pixel, colour));
        }
    }
    if (contrasts.empty()) return 1;  // a text in the colour of what is behind it
    const auto tenth = contrasts.begin() + static_cast<std::ptrdiff_t>(contrasts.size() / 10);
    std::nth_element(contrasts.begin(), tenth, contrasts.end());
    return *tenth;
}

/// As seen on what is behind.
QColor Opaque(const QColor& colour, const QColor& behind) {
    const auto mix = [&](int over, int below) { return below + (over - below) * colour.alpha() / 255; };
    return {mix(colour.red(), behind.red()), mix(colour.green(), behind.green()),
            mix(colour.blue(), behind.blue())};
}

/// The part of a control that has the outline, in its own pixels; empty: it has none.
QRect OutlinedPartOf(const QWidget& widget) {
    const bool check = qobject_cast<const QCheckBox*>(&widget) != nullptr;
    if (check || qobject_cast<const QRadioButton*>(&widget) != nullptr) {
        QStyleOptionButton option;
        option.initFrom(&widget);
        return widget.style()->subElementRect(
            check ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator, &option, &widget);
    }
    const auto* line = qobject_cast<const QLineEdit*>(&widget);
    const auto* area = qobject_cast<const QAbstractScrollArea*>(&widget);
    const bool framed = (line != nullptr && line->hasFrame()) ||
                        (area != nullptr && area->frameShape() == QFrame::StyledPanel) ||
                        qobject_cast<const QComboBox*>(&widget) != nullptr;
    return framed ? widget.rect() : QRect();
}

}  // namespace

std::vector<PaintedText> PaintedTextsOf(QWidget& window) {
    const QImage image = window.grab().toImage();
    TextDevice device(window.size());
    window.render(&device);
    std::vector<PaintedText> texts = std::move(device.Texts());
    std::erase_if(texts, [&](const PaintedText& text) { return IsOfDisabled(window, text.place.center()); });
    // Of the last row of a list there may be no more than an edge.
    constexpr int Least = 3;
    std::erase_if(texts, [&](PaintedText& text) {
        text.place &= window.rect();
        return text.place.height() < Least;
    });
    for (PaintedText& text : texts) {
        text.colour = Opaque(text.colour, PixelAt(image, text.place.topLeft()));
        // The mark of what has the focus goes along the edge.
        text.contrast = ContrastBehind(image, text.place.adjusted(0, 1, 0, -1), text.colour);
    }
    return texts;
}

std::vector<PaintedOutline> PaintedOutlinesOf(QWidget& window) {
    const QImage image = window.grab().toImage();
    std::vector<PaintedOutline> outlines;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const QRect part = OutlinedPartOf(*widget);
        // Fields that have the focus have the toolkit's outline for that.
        const bool field = qobject_cast<const QLineEdit*>(widget) != nullptr ||
                           qobject_cast<const QComboBox*>(widget) != nullptr;
        const bool marked = widget->hasFocus() && field;
        if (part.isEmpty() || !widget->isEnabled() || !widget->isVisibleTo(&window) || marked) continue;
        const QRect place = part.translated(widget->mapTo(&window, QPoint()));
        constexpr int Around = 2;
        constexpr int Band = 4;  // some begin a little within their places
        const int y = place.center().y();
        const QColor outside = PixelAt(image, {place.left() - Around, y});
        double best = 1;
        for (int x = place.left(); x < place.left() + Band; ++x)
            best = std::max(best, qt::ContrastOf(PixelAt(image, {x, y}), outside));
        outlines.push_back({widget, best});
    }
    return outlines;
}

}  // namespace tavrix
