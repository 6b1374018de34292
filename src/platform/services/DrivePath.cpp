#include "platform/services/DrivePath.h"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {
namespace {

RuntimeError Malformed() {
    return RuntimeError(ErrorNumber::BadFileNameOrNumber);
}

bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

/// Adds the components of `text` to a path.
void Append(DrivePathParts& parts, std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = std::min(text.find_first_of("\\/", at), text.size());
        const std::string_view name = text.substr(at, end - at);
        at = end + 1;
        if (name.empty() || name == ".") continue;
        if (name == "..") {
            if (!parts.names.empty()) parts.names.pop_back();
            continue;
        }
        const bool bad = std::ranges::any_of(name, [](char c) {
            return static_cast<unsigned char>(c) < 0x20U || c == ':' || c == '"' || c == '*' || c == '?';
        });
        if (bad) throw Malformed();
        parts.names.emplace_back(name);
    }
}

bool IsAsciiText(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80U; });
}

char UpperAscii(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

std::size_t CharacterLength(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]) < 0x80U ? 1 : Left(text.substr(at, 4), 1).size();
}

/// Letters beyond ASCII must be in upper case already.
bool MatchesUpper(std::string_view name, std::string_view pattern) {
    std::size_t n = 0;
    std::size_t p = 0;
    std::size_t star = std::string_view::npos;
    std::size_t resume = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = n;
        } else if (p < pattern.size() && pattern[p] == '?') {
            n += CharacterLength(name, n);
            ++p;
        } else if (p < pattern.size() && UpperAscii(pattern[p]) == UpperAscii(name[n])) {
            ++n;
            ++p;
        } else if (star != std::string_view::npos) {
            resume += CharacterLength(name, resume);
            n = resume;
            p = star + 1;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

}  // namespace

bool IsDriveLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::string DrivePathParts::Text() const {
    std::string text = {letter, ':', '\\'};
    for (const std::string& name : names) {
        if (text.size() > 3) text.push_back('\\');
        text += name;
    }
    return text;
}

DrivePathParts PartsOf(std::string_view path) {
    if (path.size() < 3 || !IsDriveLetter(path[0]) || path[1] != ':' || !IsSeparator(path[2]))
        throw Malformed();
    DrivePathParts parts;
    parts.letter = UpperCase(path.substr(0, 1))[0];
    Append(parts, path.substr(3));
    return parts;
}

std::string NormalPath(std::string_view path) {
    std::string normal(path);
    std::ranges::replace(normal, '/', '\\');
    const bool full = normal.size() > 2 && IsDriveLetter(normal[0]) && normal[1] == ':' && normal[2] == '\\';
    if (!full) return normal;
    SkipFailure([&] {
        std::string worked = PartsOf(normal).Text();
        if (normal.ends_with('\\') && !worked.ends_with('\\')) worked.push_back('\\');
        worked[0] = normal[0];
        normal = std::move(worked);
    });
    return normal;
}

// Lists and look-ups go through folders of hundreds of thousands of names: plain ones are compared as they stand.

bool ListsBefore(const std::string& a, const std::string& b) {
    if (IsAsciiText(a) && IsAsciiText(b)) {
        const auto [inA, inB] = std::ranges::mismatch(a, b, {}, UpperAscii, UpperAscii);
        if (inA == a.end() && inB == b.end()) return a < b;
        if (inA == a.end() || inB == b.end()) return inA == a.end();
        return UpperAscii(*inA) < UpperAscii(*inB);
    }
    const std::string upperA = UpperCase(a);
    const std::string upperB = UpperCase(b);
    return upperA != upperB ? upperA < upperB : a < b;
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
    if (pattern == "*.*" || pattern == "*") return true;
    std::string upperName;
    std::string upperPattern;
    if (!IsAsciiText(name) || !IsAsciiText(pattern)) {
        name = upperName = UpperCase(name);
        pattern = upperPattern = UpperCase(pattern);
    }
    if (MatchesUpper(name, pattern)) return true;
    return pattern.ends_with(".*") && name.find('.') == std::string_view::npos &&
           MatchesUpper(name, pattern.substr(0, pattern.size() - 2));
}

PatternPath SplitPattern(std::string_view path) {
    const std::size_t last = path.find_last_of("\\/:");
    const std::size_t start = last == std::string_view::npos ? 0 : last + 1;
    return {std::string(path.substr(0, start)), std::string(path.substr(start))};
}

DrivePathParts CurrentFolders::FolderOn(char letter) const {
    const auto found = folders_.find(letter);
    return found != folders_.end() ? found->second : DrivePathParts{letter, {}};
}

DrivePathParts CurrentFolders::Absolute(std::string_view path) const {
    if (path.empty()) throw Malformed();
    if (path.size() >= 2 && path[1] == ':') {
        if (!IsDriveLetter(path[0])) throw Malformed();
        if (path.size() >= 3 && IsSeparator(path[2])) return PartsOf(path);
        DrivePathParts parts = FolderOn(UpperCase(path.substr(0, 1))[0]);
        Append(parts, path.substr(2));
        return parts;
    }
    if (path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1]))
        throw Malformed();  // another machine
    DrivePathParts parts = IsSeparator(path[0]) ? DrivePathParts{drive_, {}} : FolderOn(drive_);
    Append(parts, path);
    return parts;
}

}  // namespace tavrix
