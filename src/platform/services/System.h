#pragma once

#include <cstdint>
#include <string>

#include "platform/services/Files.h"

namespace tavrix {

/// How the user's locale writes numbers.
struct NumberFormat {
    std::string thousands = ",";  ///< between groups of three digits; may be empty
    std::string decimal = ".";

    friend bool operator==(const NumberFormat&, const NumberFormat&) = default;
};

/// Bytes of memory.
struct MemoryFigures {
    std::int64_t total = 0;             ///< of the machine
    std::int64_t available = 0;         ///< that programs can have without any swapping
    std::int64_t virtualTotal = 0;      ///< memory and swap
    std::int64_t virtualAvailable = 0;  ///< of memory and swap
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
    /// All zero where the system does not tell.
    [[nodiscard]] virtual MemoryFigures Memory() = 0;
};

}  // namespace tavrix
