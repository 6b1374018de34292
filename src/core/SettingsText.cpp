#include "core/SettingsText.h"

#include <algorithm>
#include <limits>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/NumberText.h"
#include "core/Settings.h"

namespace tavrix {

SettingsReader::SettingsReader(MainModule& module) : module_(module) {
    module_.PerhapsCut.clear();
    SkipFailure([&] { section_ = module_.platform.profile.Read(ViewerSection, SettingsFile(module_)); });
}

std::string SettingsReader::Text(const std::string& key) const {
    return Trim(Raw(key));
}

void SettingsReader::Keep(const std::string& key, const std::string& value) {
    constexpr std::size_t longestRead = 127;
    if (CharacterCount(Raw(key)) == longestRead) module_.PerhapsCut[key] = value;
}

void SettingsReader::KeepShared(const std::string& key, const std::string& value) {
    module_.PerhapsCut[key] = value;
}

bool SettingsReader::OnlyFalseClears(const std::string& key) const {
    return UpperCase(Text(key)) != "FALSE";
}

bool SettingsReader::OnlyTrueSets(const std::string& key, bool missing) const {
    const std::string text = Text(key);
    return Raw(key).empty() ? missing : UpperCase(text) == "TRUE";
}

std::int32_t SettingsReader::Long(const std::string& key, std::int32_t fallback) const {
    return ParseLong(Raw(key)).value_or(fallback);
}

std::int16_t SettingsReader::Integer(const std::string& key, std::int16_t fallback) const {
    const std::int32_t value = Long(key, fallback);
    using Limits = std::numeric_limits<std::int16_t>;
    return value < Limits::min() || value > Limits::max() ? fallback : static_cast<std::int16_t>(value);
}

std::int16_t SettingsReader::Clamped(const std::string& key, std::int16_t fallback, std::int16_t low,
                                     std::int16_t high) const {
    return std::clamp(Integer(key, fallback), low, high);
}

std::int16_t SettingsReader::Within(const std::string& key, std::int16_t fallback, std::int16_t low,
                                    std::int16_t high) const {
    const std::int16_t value = Integer(key, fallback);
    return value < low || value > high ? fallback : value;
}

std::int16_t SettingsReader::Digit(const std::string& key, std::int16_t highest, std::int16_t missing,
                                   std::int16_t other) const {
    const std::string text = Text(key);
    if (Raw(key).empty()) return missing;
    for (std::int16_t digit = 0; digit <= highest; ++digit) {
        if (text == std::to_string(digit)) return digit;
    }
    return other;
}

void SettingsWriter::Single(const std::string& key, float value) {
    entries_.emplace_back(key, SingleText(value));
}

void SettingsWriter::Text(const std::string& key, const std::string& value) {
    const auto cut = module_.PerhapsCut.find(key);
    if (cut != module_.PerhapsCut.end() && cut->second == value) {
        unchanged_.emplace_back(key, value);
    } else {
        entries_.emplace_back(key, value);
    }
}

void SettingsWriter::WriteTo(const std::string& file) const {
    std::vector<ProfileEntry> entries = entries_;
    if (!unchanged_.empty()) {
        const ProfileSection present = module_.platform.profile.Read(ViewerSection, file);
        for (const ProfileEntry& entry : unchanged_) {
            if (!present.Has(entry.first)) entries.push_back(entry);
        }
    }
    module_.platform.profile.Write(ViewerSection, entries, file);
}

}  // namespace tavrix
