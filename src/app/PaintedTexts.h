#pragma once

#include <QColor>
#include <QRect>
#include <QString>
#include <QWidget>
#include <vector>

namespace tavrix {

/// A text as a window shows it.
struct PaintedText {
    QString text;
    QRect place;  ///< logical pixels, in the window
    QColor colour;
    double contrast =
        1;  ///< to what is behind it: that of the tenth of the pixels there that are the nearest to it
    double least = 1;  ///< what it needs of that by WCAG 2.1, level AA
};

/// Every text that a widget and those in it paint, but for those of what is disabled. Fonts are to have no smooth edges
/// (QFont::NoAntialias), whose pixels would be taken for what is behind.
[[nodiscard]] std::vector<PaintedText> PaintedTextsOf(QWidget& window);

/// The outline of a control by which it is known.
struct PaintedOutline {
    const QWidget* widget = nullptr;
    double contrast = 1;  ///< the best that its pixels have to what is around it
};

/// Those of the fields, lists, check boxes and option buttons in a window that can be used and have not the focus, which has
/// its own mark.
[[nodiscard]] std::vector<PaintedOutline> PaintedOutlinesOf(QWidget& window);

}  // namespace tavrix
