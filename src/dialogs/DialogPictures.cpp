#include "dialogs/DialogPictures.h"

#include <algorithm>
#include <cmath>

namespace tavrix {
namespace {

constexpr double Side = 32;  ///< signs are designed in a square of so many units
constexpr int Samples = 4;   ///< of a pixel, across and down

struct Tone {
    double red, green, blue;
};
constexpr Tone Plate{0xE6, 0xE6, 0xE2};
constexpr Tone Edge{0x78, 0x78, 0x74};
constexpr Tone Ink{0x28, 0x28, 0x2C};

bool Between(double value, double low, double high) {
    return value >= low && value < high;
}

bool InSpeaker(double x, double y) {
    const double off = std::abs(y - 16);
    if (Between(x, 6, 11) && off < 4) return true;
    if (Between(x, 11, 17) && off < 4 + (x - 11)) return true;
    const double distance = std::hypot(x - 15, y - 16);
    return x - 15 > off && (Between(distance, 5, 6.5) || Between(distance, 8.5, 10));
}

bool InDisc(double x, double y) {
    const double right = x - 16;
    const double down = y - 16;
    const double distance = std::hypot(right, down);
    if (Between(distance, 10.5, 12) || Between(distance, 2.5, 4)) return true;
    // The glints lie opposite each other.
    const bool glint = right * down < 0 && std::abs(std::abs(right) - std::abs(down)) < distance / 3;
    return glint && Between(distance, 5.5, 9);
}

bool InBin(double x, double y) {
    const double aside = std::abs(x - 16);
    if (Between(y, 6, 8) && aside < 3) return true;
    if (Between(y, 8, 10) && aside < 9) return true;
    if (!Between(y, 11.5, 27)) return false;
    const double halfWidth = 7.5 - (y - 11.5) / 10;
    const bool slit = Between(y, 13.5, 25) && (aside < 0.8 || Between(aside, 3, 4.6));
    return aside < halfWidth && !slit;
}

bool InScreen(double x, double y) {
    const double aside = std::abs(x - 16);
    if (Between(y, 7, 21)) return aside < 10 && !(Between(y, 8.5, 19.5) && aside < 8.5);
    return (Between(y, 21, 24) && aside < 2) || (Between(y, 24, 25.5) && aside < 5);
}

bool InSign(DialogSign sign, double x, double y) {
    switch (sign) {
        case DialogSign::Speaker:
            return InSpeaker(x, y);
        case DialogSign::Disc:
            return InDisc(x, y);
        case DialogSign::Screen:
            return InScreen(x, y);
        case DialogSign::Bin:
            break;
    }
    return InBin(x, y);
}

Tone ToneAt(DialogSign sign, double x, double y) {
    if (!Between(x, 1, Side - 1) || !Between(y, 1, Side - 1)) return Edge;
    return InSign(sign, x, y) ? Ink : Plate;
}

}  // namespace

Picture DialogPicture(DialogSign sign, float twipsPerPixel) {
    const int side = std::max(static_cast<int>(std::lround(Side * 15 / twipsPerPixel)), 1);
    const double step = Side / (side * Samples);
    Surface surface(side, side);
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            Tone sum{};
            for (int sample = 0; sample < Samples * Samples; ++sample) {
                const Tone tone = ToneAt(sign, (column * Samples + sample % Samples + 0.5) * step,
                                         (row * Samples + sample / Samples + 0.5) * step);
                sum = {sum.red + tone.red, sum.green + tone.green, sum.blue + tone.blue};
            }
            const auto mean = [](double value) {
                return static_cast<unsigned>(std::lround(value / (Samples * Samples)));
            };
            surface.Row(row)[static_cast<std::size_t>(column)] =
                OpaquePixel(mean(sum.red), mean(sum.green), mean(sum.blue));
        }
    }
    return PictureOf(std::move(surface));
}

}  // namespace tavrix
