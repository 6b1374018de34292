#pragma once

#include <QString>
#include <QTextDocument>

namespace tavrix::qt {

/// A text as a tool tip that shows it letter by letter: a path or a description may look like markup to the toolkit.
[[nodiscard]] inline QString PlainToolTip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

}  // namespace tavrix::qt
