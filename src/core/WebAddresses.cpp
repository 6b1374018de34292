#include "core/WebAddresses.h"

#include <algorithm>
#include <array>

#include "base/Text.h"

namespace tavrix {
namespace {

std::string_view HostOf(std::string_view address) {
    const std::size_t scheme = address.find("://");
    if (scheme != std::string_view::npos) address.remove_prefix(scheme + 3);
    return address.substr(0, address.find_first_of("/:?#"));
}

}  // namespace

std::string MakerAddress() {
    return "https://" TAVRIX_WEB_HOST "/";
}

std::string ProductAddress() {
    return MakerAddress() + "tavrix/";
}

std::string VersionAddress() {
    return ProductAddress() + "version.htm";
}

bool HasReservedHost(std::string_view address) {
    static constexpr std::array<std::string_view, 7> reserved{
        ".EXAMPLE", ".INVALID", ".TEST", ".LOCALHOST", ".EXAMPLE.COM", ".EXAMPLE.NET", ".EXAMPLE.ORG"};
    const std::string host = "." + UpperCase(HostOf(address));
    return host == "." ||
           std::ranges::any_of(reserved, [&](std::string_view end) { return host.ends_with(end); });
}

}  // namespace tavrix
