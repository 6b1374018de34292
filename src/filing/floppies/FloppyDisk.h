#pragma once

#include <functional>
#include <optional>
#include <string>

#include "core/MainModule.h"
#include "platform/forms/Form.h"

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

    /// Reads the disk while messages run under the hourglass, since a floppy takes its time; whoever lists it then finds it
    /// read. No disk is no failure here. False where the form was closed meanwhile.
    [[nodiscard]] bool Wake(const forms::Form& form) const;

    // What the user is asked when there is no disk. False: to give up.
    [[nodiscard]] bool AsksToInsert() const;
    [[nodiscard]] bool AsksAgain() const;

    /// Looks until there is a disk; false when the user gave up.
    [[nodiscard]] bool WaitsForDisk(const std::function<bool()>& ask) const;
    /// The same, by a disk that is woken for the form; whether there is any file on it. Nothing when the user gave up, or
    /// closed the form.
    [[nodiscard]] std::optional<bool> HasFiles(const forms::Form& form,
                                               const std::function<bool()>& ask) const;

  private:
    [[nodiscard]] bool Asks(const std::string& text) const;

    const MainModule& module_;
};

}  // namespace tavrix
