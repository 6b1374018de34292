#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/MainModule.h"
#include "platform/services/Profile.h"

namespace tavrix {

inline constexpr const char* ViewerSection = "Viewer";

/// Reads values of the settings file by the rules that its keys share.
class SettingsReader {
  public:
    explicit SettingsReader(MainModule& module);

    /// The text, cut to 127 characters.
    [[nodiscard]] std::string Raw(const std::string& key) const { return section_.Read(key); }
    /// Raw, without blanks at the ends.
    [[nodiscard]] std::string Text(const std::string& key) const;
    /// Remembers what became of a text that may have been cut.
    void Keep(const std::string& key, const std::string& value);
    /// Remembers what became of a text that another process of ours may write meanwhile: the settings of the screen saver
    /// beside a main view. Like one that may have been cut, it is written only once it has changed here, or where it is missing.
    void KeepShared(const std::string& key, const std::string& value);

    /// False only for the text FALSE; missing gives true.
    [[nodiscard]] bool OnlyFalseClears(const std::string& key) const;
    /// True only for the text TRUE; `missing` is the value of a missing key.
    [[nodiscard]] bool OnlyTrueSets(const std::string& key, bool missing = false) const;
    /// 16 bits; `fallback` for a missing key, for what is no number, and for what does not fit.
    [[nodiscard]] std::int16_t Integer(const std::string& key, std::int16_t fallback) const;
    /// The same in 32 bits.
    [[nodiscard]] std::int32_t Long(const std::string& key, std::int32_t fallback) const;
    /// Integer, clamped.
    [[nodiscard]] std::int16_t Clamped(const std::string& key, std::int16_t fallback, std::int16_t low,
                                       std::int16_t high) const;
    /// Integer, or the fallback outside a range.
    [[nodiscard]] std::int16_t Within(const std::string& key, std::int16_t fallback, std::int16_t low,
                                      std::int16_t high) const;
    /// The number that a single digit from 0 to `highest` says; any other text gives `other`, none gives `missing`.
    [[nodiscard]] std::int16_t Digit(const std::string& key, std::int16_t highest, std::int16_t missing,
                                     std::int16_t other) const;

  private:
    MainModule& module_;
    ProfileSection section_;
};

/// Collects keys and values in the order in which they are written.
class SettingsWriter {
  public:
    explicit SettingsWriter(const MainModule& module) : module_(module) {}

    void Flag(const std::string& key, bool value) { entries_.emplace_back(key, value ? "True" : "False"); }
    void Number(const std::string& key, std::int32_t value) {
        entries_.emplace_back(key, std::to_string(value));
    }
    /// The decimal text of a single-precision number.
    void Single(const std::string& key, float value);
    /// A text. One that may have been cut when it was read, or that is shared, and has not changed since, is written only
    /// where the file has none.
    void Text(const std::string& key, const std::string& value);
    void EmptyText(const std::string& key) { entries_.emplace_back(key, ""); }
    template <std::size_t Count>
    void List(const std::string& key, const std::array<std::string, Count>& values) {
        for (std::size_t i = 0; i < Count; ++i)
            Text(key + std::to_string(i + 1), values[i]);
    }

    /// Writes to a settings file; failures are those of Profile::Write.
    void WriteTo(const std::string& file) const;

  private:
    const MainModule& module_;
    std::vector<ProfileEntry> entries_;
    std::vector<ProfileEntry> unchanged_;
};

}  // namespace tavrix
