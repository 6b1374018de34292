#include "imaging/metafile/StockObjects.h"

namespace tavrix::metafile {
namespace {

std::shared_ptr<const Object> SolidBrush(ColourValue colour) {
    Brush brush;
    brush.colour = colour;
    return std::make_shared<const Object>(brush);
}

std::shared_ptr<const Object> NullBrush() {
    Brush brush;
    brush.style = brush::Null;
    return std::make_shared<const Object>(brush);
}

std::shared_ptr<const Object> SolidPen(std::uint32_t style, ColourValue colour) {
    Pen pen;
    pen.style = style;
    pen.brush.colour = colour;
    return std::make_shared<const Object>(pen);
}

std::shared_ptr<const Object> NamedFont(const char16_t* face, std::int32_t height, std::int32_t weight) {
    Font font;
    font.wideFace = face;
    font.height = height;
    font.weight = weight;
    return std::make_shared<const Object>(font);
}

/// The twenty colours that every palette device keeps for the system.
std::shared_ptr<const Object> SystemPalette() {
    return std::make_shared<const Object>(
        Palette{{0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000,
                 0xC0C0C0, 0xC0DCC0, 0xF0CAA6, 0xF0FBFF, 0xA4A0A0, 0x808080, 0x0000FF,
                 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF}});
}

}  // namespace

std::shared_ptr<const Object> StockObjectOf(std::uint32_t number) {
    switch (number) {
        case StockWhiteBrush:
        case 18:  // the brush whose colour a program sets; white until then
            return SolidBrush(0xFFFFFF);
        case 1:
            return SolidBrush(0xC0C0C0);
        case 2:
            return SolidBrush(0x808080);
        case 3:
            return SolidBrush(0x404040);
        case 4:
            return SolidBrush(0x000000);
        case 5:
            return NullBrush();
        case 6:
            return SolidPen(pen::Solid, 0xFFFFFF);
        case StockBlackPen:
        case 19:  // its pen, black until then
            return SolidPen(pen::Solid, 0x000000);
        case 8:
            return SolidPen(pen::Null, 0x000000);
        case 10:
        case 11:
        case 16:
            return NamedFont(u"Courier New", 12, 400);
        case 12:
            return NamedFont(u"MS Sans Serif", 12, 400);
        case StockSystemFont:
        case 14:
            return NamedFont(u"System", 16, 700);
        case StockPalette:
            return SystemPalette();
        case 17:
            return NamedFont(u"MS Shell Dlg", -11, 400);
        default:
            return nullptr;
    }
}

}  // namespace tavrix::metafile
