#include "app/FewColours.h"

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tavrix {
namespace {

constexpr std::size_t MostColours = 256;
constexpr QRgb FamilyMask = 0xFFF8F8F8;

/// Colours that hardly differ.
struct Family {
    int pixels = 0;
    std::pair<int, QRgb> best;  ///< the most frequent one, and how often it comes
};

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
    // Colours that hardly differ share a place: otherwise a large area of slowly changing ones took all places.
    std::unordered_map<QRgb, Family> families;
    for (const auto& [colour, count] : counts) {
        Family& family = families[colour & FamilyMask];
        family.pixels += count;
        family.best = std::max(family.best, std::pair(count, colour));
    }
    std::vector<std::pair<int, QRgb>> order;
    for (const auto& [mask, family] : families)
        order.emplace_back(-family.pixels, family.best.second);
    std::ranges::sort(order);
    if (order.size() > MostColours) order.resize(MostColours);
    QList<QRgb> palette;
    for (const auto& [pixels, colour] : order)
        palette.append(colour);
    std::unordered_map<QRgb, uchar> places;
    for (const auto& [colour, count] : counts) {
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
