#include "app/FewColours.h"

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tavrix {
namespace {

constexpr std::size_t MostColours = 256;

int Distance(QRgb a, QRgb b) {
    const int red = qRed(a) - qRed(b);
    const int green = qGreen(a) - qGreen(b);
    const int blue = qBlue(a) - qBlue(b);
    return red * red + green * green + blue * blue;
}

}  // namespace

QImage WithFewColours(const QImage& picture) {
    const QImage source = picture.convertToFormat(QImage::Format_RGB32);
    std::unordered_map<QRgb, int> counts;
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x)
            ++counts[source.pixel(x, y)];
    }
    std::vector<std::pair<int, QRgb>> order;
    for (const auto& [colour, count] : counts)
        order.emplace_back(-count, colour);
    std::ranges::sort(order);
    QList<QRgb> palette;
    std::unordered_map<QRgb, uchar> places;
    for (const auto& [count, colour] : order) {
        if (static_cast<std::size_t>(palette.size()) < MostColours) palette.append(colour);
        const auto nearest = std::ranges::min_element(
            palette, {}, [colour = colour](QRgb other) { return Distance(colour, other); });
        places[colour] = static_cast<uchar>(nearest - palette.begin());
    }
    QImage few(source.size(), QImage::Format_Indexed8);
    few.setColorTable(palette);
    for (int y = 0; y < source.height(); ++y) {
        uchar* row = few.scanLine(y);
        for (int x = 0; x < source.width(); ++x)
            row[x] = places.at(source.pixel(x, y));
    }
    return few;
}

}  // namespace tavrix
