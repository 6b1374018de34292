#include "core/NumberText.h"

#include <charconv>
#include <iterator>

namespace tavrix {

std::string GroupedNumber(std::int64_t number, const NumberFormat& format) {
    std::string digits = std::to_string(number);
    const std::size_t first = number < 0 ? 1 : 0;
    std::string grouped = digits.substr(0, first);
    for (std::size_t i = first; i < digits.size(); ++i) {
        if (i > first && (digits.size() - i) % 3 == 0) grouped += format.thousands;
        grouped += digits[i];
    }
    return grouped;
}

std::string SingleText(float number) {
    constexpr int Digits = 7;
    char text[32];
    const auto end =
        std::to_chars(std::begin(text), std::end(text), number, std::chars_format::general, Digits);
    return {std::begin(text), end.ptr};
}

std::string GroupedNumberOrEmpty(std::int64_t number, const NumberFormat& format) {
    return number == 0 ? std::string() : GroupedNumber(number, format);
}

}  // namespace tavrix
