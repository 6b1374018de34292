#pragma once

#include <optional>
#include <string>

#include "backends/linux/HostPaths.h"
#include "platform/services/IdleStart.h"

namespace tavrix {

/// The note by which the desktop starts tavrix-idle with each session, and which tells that program how long to wait: an
/// entry in the user's autostart folder. Lines of it that are not ours stay.
class IdleEntry {
  public:
    static constexpr int UsualMinutes = 10;

    explicit IdleEntry(const HostPaths& paths);

    [[nodiscard]] const std::string& File() const { return file_; }
    /// What the entry says; none where there is no entry, or it is hidden or disabled, as desktops do to switch one off.
    /// UsualMinutes for one without a sensible number. `known`, where there is such, for a file that is empty or half there,
    /// because somebody is writing it: it names no program or no number, or its last line has no end.
    [[nodiscard]] std::optional<int> Minutes(std::optional<int> known = std::nullopt) const;
    /// Writes the entry for a program, in one step for whoever reads it, or removes it. Throws RuntimeError.
    void Set(std::optional<int> minutes, const std::string& program) const;

  private:
    std::string file_;
};

/// The idle start by tavrix-idle, which follows its entry while it runs.
class HostIdleStart final : public IdleStart {
  public:
    /// `program` is the host path of tavrix-idle.
    HostIdleStart(const HostPaths& paths, std::string program);

    [[nodiscard]] std::optional<int> Minutes() override { return entry_.Minutes(); }
    void Set(std::optional<int> minutes) override;

  private:
    IdleEntry entry_;
    std::string program_;
};

}  // namespace tavrix
