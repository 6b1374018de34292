#pragma once

#include <string>

#include "platform/services/Files.h"

namespace tavrix {

/// How the user's locale writes numbers.
struct NumberFormat {
    std::string thousands = ",";  ///< between groups of three digits; may be empty
    std::string decimal = ".";

    friend bool operator==(const NumberFormat&, const NumberFormat&) = default;
};

class System {
  public:
    virtual ~System() = default;
    /// The platform id of the operating system; 2 knows no screen saver passwords.
    [[nodiscard]] virtual int PlatformId() = 0;
    /// Whether any process of this desktop has a window with exactly this title.
    [[nodiscard]] virtual bool WindowExists(const std::string& title) = 0;
    [[nodiscard]] virtual NumberFormat Numbers() = 0;
    /// A date and a time in the short form of the user's locale.
    [[nodiscard]] virtual std::string ShortDateTime(const DateTime& moment) = 0;
};

}  // namespace tavrix
