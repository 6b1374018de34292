#include "shows/files/CopyNames.h"

#include <cstddef>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/services/DrivePath.h"
#include "core/PutAside.h"

namespace tavrix {
namespace {

/// "a.bmp" with a number: "a (2).bmp".
std::string Numbered(const std::string& name, int number) {
    const std::size_t dot = name.rfind('.');
    const std::size_t end = dot == std::string::npos || dot == 0 ? name.size() : dot;
    return name.substr(0, end) + " (" + std::to_string(number) + ")" + name.substr(end);
}

}  // namespace

void CopyNames::Reserve(const std::string& name) {
    if (name.find('\\') == std::string::npos) owners_.try_emplace(UpperCase(name), folder_.Path() + name);
}

void CopyNames::Name(StoredFile& file) {
    if (!CanName(file.stored)) return;  // to fail when it is copied
    const std::string source = NormalPath(file.source);
    const auto known = given_.find(source);
    file.stored = known == given_.end() ? NewName(file) : known->second;
    given_.try_emplace(source, file.stored);
}

std::string CopyNames::NewName(const StoredFile& file) {
    const std::string& wanted = file.stored;
    const auto [owner, isFree] = owners_.try_emplace(UpperCase(wanted), file.source);
    if (isFree || files_.Same(owner->second, file.source) || Equal(file, owner->second)) return wanted;
    int& number = numbers_.try_emplace(UpperCase(wanted), 1).first->second;
    for (;;) {
        std::string name = Numbered(wanted, ++number);
        const std::string place = folder_.Path() + name;
        const auto taken = owners_.find(UpperCase(name));
        if (taken != owners_.end() && files_.Same(taken->second, file.source)) return name;
        const bool used = taken != owners_.end() || (files_.FileExists(place) && !Equal(file, place));
        if (used) continue;
        owners_.try_emplace(UpperCase(name), file.source);
        return name;
    }
}

bool CopyNames::Equal(const StoredFile& file, const std::string& other) const {
    bool equal = false;
    SkipFailure([&] { equal = SameContent(files_, file.source, other, goOn_); });
    return equal;
}

bool CanName(const std::string& name) {
    return !name.empty() && name != "." && name != "..";
}

}  // namespace tavrix
