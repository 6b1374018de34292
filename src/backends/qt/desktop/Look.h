#pragma once

#include <QColor>
#include <QPalette>
#include <QStringList>
#include <QVariant>
#include <optional>

namespace tavrix::qt {

/// What the user has told the desktop about the looks of all programs.
struct Look {
    enum class Scheme { Any, Dark, Light };

    Scheme scheme = Scheme::Any;
    std::optional<QColor> accent;  ///< of what is selected
    bool moves = true;             ///< whether what only pleases may move
    double textScale = 1;          ///< of all texts; 1: as the toolkit has them

    friend bool operator==(const Look&, const Look&) = default;
};

/// The namespaces of the portal's settings that TakeSetting knows.
[[nodiscard]] QStringList LookNamespaces();

/// Takes one of the portal's settings into a look. What is not known, or of another type than it should be, changes
/// nothing.
void TakeSetting(Look& look, const QString& space, const QString& key, const QVariant& value);

/// The colours by which the toolkit's own, `base`, follow a look, and whose texts are read well on what is selected. Roles
/// that stay are not set, so that they go on following the toolkit's.
[[nodiscard]] QPalette PaletteOf(const Look& look, const QPalette& base);

}  // namespace tavrix::qt
