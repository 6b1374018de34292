#pragma once

#include <QStringView>

namespace tavrix::qt {

// Forms count characters, which are code points; Qt counts UTF-16 units.

/// How many characters the first `units` units of a text hold.
[[nodiscard]] inline int ToCharacters(QStringView text, qsizetype units) {
    int characters = 0;
    for (const QChar unit : text.first(units)) {
        if (!unit.isLowSurrogate()) ++characters;
    }
    return characters;
}

/// How many units the first `characters` characters of a text take, or all of it where it is shorter.
[[nodiscard]] inline int ToUnits(QStringView text, int characters) {
    int units = 0;
    for (; characters > 0 && units < text.size(); --characters) {
        const bool pair = text[units].isHighSurrogate() && units + 1 < text.size();
        units += pair ? 2 : 1;
    }
    return units;
}

}  // namespace tavrix::qt
