#include "backends/qt/desktop/Look.h"

#include <QDBusArgument>
#include <array>
#include <utility>

#include "backends/qt/peers/Contrast.h"

namespace tavrix::qt {
namespace {

constexpr QLatin1String Appearance("org.freedesktop.appearance");
constexpr QLatin1String GnomeInterface("org.gnome.desktop.interface");
constexpr QLatin1String PlasmaGlobals("org.kde.kdeglobals.KDE");

// Where a factor for all texts is a mistake rather than a wish.
constexpr double LeastTextScale = 0.5;
constexpr double LargestTextScale = 4;

/// Nothing for a colour out of range, by which the portal says that there is none.
std::optional<QColor> AccentOf(const QVariant& value) {
    if (!value.canConvert<QDBusArgument>()) return std::nullopt;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentType() != QDBusArgument::StructureType) return std::nullopt;
    std::array<double, 3> parts{};
    argument.beginStructure();
    for (double& part : parts) {
        if (argument.atEnd()) return std::nullopt;
        argument >> part;
        if (!(part >= 0 && part <= 1)) return std::nullopt;
    }
    argument.endStructure();
    return QColor::fromRgbF(static_cast<float>(parts[0]), static_cast<float>(parts[1]),
                            static_cast<float>(parts[2]));
}

void SetDark(QPalette& palette) {
    constexpr QRgb text = 0xFFF0F0F0;
    constexpr QRgb faint = 0xFF828282;
    const auto set = [&palette](QPalette::ColorRole role, QRgb colour) {
        palette.setColor(role, QColor::fromRgb(colour));
    };
    set(QPalette::Window, 0xFF2D2D2D);
    set(QPalette::WindowText, text);
    set(QPalette::Base, 0xFF1E1E1E);
    set(QPalette::AlternateBase, 0xFF262626);
    set(QPalette::Text, text);
    set(QPalette::Button, 0xFF3A3A3A);
    set(QPalette::ButtonText, text);
    set(QPalette::BrightText, 0xFFFFFFFF);
    set(QPalette::ToolTipBase, 0xFF404040);
    set(QPalette::ToolTipText, text);
    set(QPalette::Light, 0xFF5A5A5A);
    set(QPalette::Midlight, 0xFF4A4A4A);
    set(QPalette::Mid, 0xFF262626);
    set(QPalette::Dark, 0xFF1A1A1A);
    set(QPalette::Shadow, 0xFF000000);
    set(QPalette::Link, 0xFF6EB4FF);
    set(QPalette::LinkVisited, 0xFFC39BFF);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor::fromRgb(faint));
}

/// White texts on the colour, which is made darker for that; black ones on colours too light for it.
std::pair<QColor, QColor> SelectionOf(const QColor& colour) {
    const QColor white(Qt::white);
    if (ContrastOf(white, colour) < OutlineContrast) return {colour, QColor(Qt::black)};
    return {ReadableOn(white, colour, TextContrast), white};
}

}  // namespace

QStringList LookNamespaces() {
    return {Appearance, GnomeInterface, PlasmaGlobals};
}

void TakeSetting(Look& look, const QString& space, const QString& key, const QVariant& value) {
    const auto is = [&](QLatin1String wantedSpace, const char* wantedKey) {
        return space == wantedSpace && key == QLatin1String(wantedKey);
    };
    const auto type = value.typeId();
    if (is(Appearance, "color-scheme") && type == QMetaType::UInt) {
        const unsigned scheme = value.toUInt();
        look.scheme = scheme == 1   ? Look::Scheme::Dark
                      : scheme == 2 ? Look::Scheme::Light
                                    : Look::Scheme::Any;
    } else if (is(Appearance, "accent-color")) {
        look.accent = AccentOf(value);
    } else if (is(Appearance, "reduced-motion") && type == QMetaType::UInt) {
        look.moves = value.toUInt() != 1;
    } else if (is(GnomeInterface, "enable-animations") && type == QMetaType::Bool) {
        look.moves = value.toBool();
    } else if (is(PlasmaGlobals, "AnimationDurationFactor") && type == QMetaType::QString) {
        bool number = false;
        const double factor = value.toString().toDouble(&number);
        if (number) look.moves = factor > 0;
    } else if (is(GnomeInterface, "text-scaling-factor") && type == QMetaType::Double) {
        const double scale = value.toDouble();
        if (scale >= LeastTextScale && scale <= LargestTextScale) look.textScale = scale;
    }
}

QPalette PaletteOf(const Look& look, const QPalette& base) {
    QPalette own;
    const bool isDark =
        base.color(QPalette::Window).lightness() < base.color(QPalette::WindowText).lightness();
    if (look.scheme == Look::Scheme::Dark && !isDark) SetDark(own);
    const QPalette now = own.resolve(base);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const auto [below, text] = SelectionOf(look.accent.value_or(now.color(group, QPalette::Highlight)));
        own.setColor(group, QPalette::Highlight, below);
        own.setColor(group, QPalette::HighlightedText, text);
        const QColor field = now.color(group, QPalette::Base);
        QColor hint = now.color(group, QPalette::Text);
        hint.setRgb((hint.red() + field.red()) / 2, (hint.green() + field.green()) / 2,
                    (hint.blue() + field.blue()) / 2);
        own.setColor(group, QPalette::PlaceholderText, ReadableOn(field, hint, TextContrast));
    }
    return own;
}

}  // namespace tavrix::qt
