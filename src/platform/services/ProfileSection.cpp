#include "base/Text.h"
#include "platform/services/Profile.h"

namespace tavrix {

void ProfileSection::Add(const std::string& key, const std::string& value) {
    values_.try_emplace(UpperCase(key), value);
}

bool ProfileSection::Has(const std::string& key) const {
    return values_.contains(UpperCase(key));
}

std::string ProfileSection::Read(const std::string& key, std::size_t bufferSize) const {
    const auto found = values_.find(UpperCase(key));
    return found == values_.end() ? std::string() : Left(found->second, bufferSize - 1);
}

}  // namespace tavrix
