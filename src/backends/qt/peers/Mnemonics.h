#pragma once

#include <QString>

namespace tavrix::qt {

/// A caption without its marks for mnemonics.
[[nodiscard]] inline QString WithoutMarks(const QString& caption) {
    QString shown;
    shown.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == QLatin1Char('&') && i + 1 < caption.size()) ++i;
        shown += caption[i];
    }
    return shown;
}

}  // namespace tavrix::qt
