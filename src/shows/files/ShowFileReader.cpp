#include "shows/files/ShowFileReader.h"

#include <algorithm>
#include <charconv>
#include <span>
#include <string_view>
#include <system_error>

#include "base/Rounding.h"
#include "base/Text.h"

namespace tavrix {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";  // of UTF-8

bool IsAsciiText(std::string_view text) {
    return std::ranges::all_of(text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80U; });
}

std::int16_t IntegerOf(std::string_view text) {
    const std::string trimmed = Trim(text);
    std::string_view digits = trimmed;
    const bool negative = digits.starts_with('-');
    if (negative || digits.starts_with('+')) digits.remove_prefix(1);
    // A digit or a point comes first: no word that stands for a number, and no second sign.
    if (digits.find_first_of("0123456789.") != 0) throw RuntimeError(ErrorNumber::TypeMismatch);
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error == std::errc::invalid_argument || end != digits.data() + digits.size()) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    if (error == std::errc::result_out_of_range) throw RuntimeError(ErrorNumber::Overflow);
    return ToInteger16(negative ? -value : value);
}

}  // namespace

std::string ShowFileReader::Text() {
    SkipBlanks();
    if (!Has(at_)) throw RuntimeError(ErrorNumber::InputPastEnd);
    const bool quoted = text_[at_] == '"';
    const std::size_t start = quoted ? at_ + 1 : at_;
    const std::size_t end = Find(quoted ? "\"" : ",\r\n", start);
    if (quoted && !Has(end)) throw RuntimeError(ErrorNumber::InputPastEnd);
    std::string item = text_.substr(start, end - start);
    at_ = quoted ? end + 1 : end;
    SkipDelimiter();
    return item;
}

std::int16_t ShowFileReader::Integer() {
    return IntegerOf(Text());
}

void ShowFileReader::SkipBlanks() {
    while (Has(at_) && text_[at_] == ' ')
        ++at_;
}

void ShowFileReader::SkipDelimiter() {
    SkipBlanks();
    if (!Has(at_)) return;
    const char delimiter = text_[at_];
    if (delimiter != ',' && delimiter != '\r' && delimiter != '\n') return;
    ++at_;
    if (delimiter == '\r' && Has(at_) && text_[at_] == '\n') ++at_;
}

bool ShowFileReader::Has(std::size_t position) {
    while (position >= text_.size()) {
        if (!ReadMore()) return false;
    }
    return true;
}

std::size_t ShowFileReader::Find(const char* characters, std::size_t start) {
    for (;;) {
        const std::size_t found = text_.find_first_of(characters, start);
        if (found != std::string::npos) return found;
        start = std::max(start, text_.size());
        if (!ReadMore()) return text_.size();
    }
}

bool ShowFileReader::ReadMore() {
    if (failure_) throw RuntimeError(*failure_);
    const std::size_t before = text_.size();
    if (!ReadPart()) return false;
    if (IsAsciiText(std::string_view(text_).substr(before))) return true;

    // What has been read so far means the same in both; what this part means is told by the whole file.
    try {
        while (ReadPart()) {
        }
    } catch (const RuntimeError& error) {
        failure_ = error;
    }
    file_.reset();
    // A mark at the start tells the encoding, but is no part of the text.
    if (text_.starts_with(ByteOrderMark)) text_.erase(0, ByteOrderMark.size());
    text_ = DecodeTextFile(text_);
    return true;
}

bool ShowFileReader::ReadPart() {
    constexpr std::size_t PartSize = std::size_t{64} << 10U;
    if (!file_) return false;
    if (text_.size() >= LargestFile) throw RuntimeError(ErrorNumber::OutOfMemory);
    const std::size_t before = text_.size();
    text_.resize(before + PartSize);
    std::size_t count = 0;
    try {
        count = file_->Read(std::as_writable_bytes(std::span(text_).subspan(before)));
    } catch (const RuntimeError&) {
        text_.resize(before);
        throw;
    }
    text_.resize(before + count);
    if (count == 0) file_.reset();
    return count != 0;
}

}  // namespace tavrix
