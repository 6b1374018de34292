#pragma once

#include <functional>
#include <optional>
#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// The disk in the drive that the setting DefaultFloppy names. Only its root is ever used.
class FloppyDisk {
  public:
    explicit FloppyDisk(const MainModule& module) : module_(module) {}

    /// "A:\" or "B:\".
    [[nodiscard]] const std::string& Root() const { return module_.config.DefaultFloppy; }
    [[nodiscard]] std::string PathOf(const std::string& name) const { return Root() + name; }

    /// Throws what the file service throws for a drive without a disk that can be read.
    void Require() const;

    // What the user is asked when there is no disk. False: to give up.
    [[nodiscard]] bool AsksToInsert() const;
    [[nodiscard]] bool AsksAgain() const;

    /// Looks until there is a disk; false when the user gave up.
    [[nodiscard]] bool WaitsForDisk(const std::function<bool()>& ask) const;
    /// The same; whether there is any file on the disk. Nothing when the user gave up.
    [[nodiscard]] std::optional<bool> HasFiles(const std::function<bool()>& ask) const;

  private:
    [[nodiscard]] bool Asks(const std::string& text) const;

    const MainModule& module_;
};

}  // namespace tavrix
