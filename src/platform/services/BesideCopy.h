#pragma once

#include <memory>
#include <string>

#include "platform/services/Files.h"

namespace tavrix {

/// A copy of a file that is being made while this thread does something else. Dropped before its end it leaves what stood
/// at its target.
class BesideCopy {
  public:
    BesideCopy() = default;
    virtual ~BesideCopy() = default;
    BesideCopy(const BesideCopy&) = delete;
    BesideCopy& operator=(const BesideCopy&) = delete;

    /// Waits until the copy stands; once. Throws what Files::Copy throws.
    virtual void Finish() = 0;
};

/// What a service of files offers besides where it can copy while others work.
class BesideCopies {
  public:
    virtual ~BesideCopies() = default;
    /// Files::Copy, of which only the end is waited for. Throws at once what can be told at once.
    [[nodiscard]] virtual std::unique_ptr<BesideCopy> BeginCopy(const std::string& from,
                                                                const std::string& to) = 0;
};

/// One that stands already.
[[nodiscard]] std::unique_ptr<BesideCopy> StandingCopy();

/// The copy by whatever the service offers; where it offers nothing it is made here, and Finish has nothing to do.
[[nodiscard]] std::unique_ptr<BesideCopy> BeginCopy(Files& files, const std::string& from,
                                                    const std::string& to);

}  // namespace tavrix
