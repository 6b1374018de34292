#include "backends/shared/FileAddress.h"

namespace tavrix {
namespace {

constexpr std::string_view Scheme = "file://";
constexpr std::string_view Digits = "0123456789ABCDEF";

bool StandsInPath(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-._~!$&'()*+,;=:@/").find(c) != std::string_view::npos;
}

std::optional<unsigned> DigitOf(char c) {
    const char upper = c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c;
    const std::size_t digit = Digits.find(upper);
    if (digit == std::string_view::npos) return std::nullopt;
    return static_cast<unsigned>(digit);
}

}  // namespace

std::string EscapedPath(std::string_view hostPath) {
    std::string escaped;
    for (const char c : hostPath) {
        if (StandsInPath(c)) {
            escaped.push_back(c);
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        escaped.push_back('%');
        escaped.push_back(Digits[byte >> 4U]);
        escaped.push_back(Digits[byte & 0x0FU]);
    }
    return escaped;
}

std::string FileAddressOf(std::string_view hostPath) {
    return std::string(Scheme) + EscapedPath(hostPath);
}

std::optional<std::string> PathOfFileAddress(std::string_view address) {
    if (!address.starts_with(Scheme)) return std::nullopt;
    address.remove_prefix(Scheme.size());
    if (address.starts_with("localhost/")) address.remove_prefix(9);
    if (!address.starts_with('/')) return std::nullopt;
    std::string path;
    for (std::size_t at = 0; at < address.size(); ++at) {
        if (address[at] != '%') {
            path.push_back(address[at]);
            continue;
        }
        if (at + 2 >= address.size()) return std::nullopt;
        const auto high = DigitOf(address[at + 1]);
        const auto low = DigitOf(address[at + 2]);
        if (!high || !low || *high * 16 + *low == 0) return std::nullopt;
        path.push_back(static_cast<char>(*high * 16 + *low));
        at += 2;
    }
    return path;
}

}  // namespace tavrix
