#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "platform/services/Files.h"

namespace tavrix {

/// The items of a show's file, one after the other. An item ends at a comma or the end of its line, blanks before it are
/// skipped, and one that begins with a quote goes on to the next quote, over commas and line ends.
///
/// The file is taken as UTF-8 if all of it is that, else as Windows-1252; a byte order mark before it is skipped. It is read as far as the items need, and to
/// its end only when a character turns up that tells the two apart.
class ShowFileReader {
  public:
    /// Far more than the longest show takes; what lies behind it is not read.
    static constexpr std::size_t LargestFile = std::size_t{64} << 20U;

    explicit ShowFileReader(std::unique_ptr<FileReader> file) : file_(std::move(file)) {}

    // Failures are those of the file's reader, in the item at which the reading stopped, and 7 (Out of memory) at
    // LargestFile.

    /// Whether nothing is left, not even blanks or an empty line.
    [[nodiscard]] bool AtEnd() { return !Has(at_); }
    /// The next item as text. Throws 62 (Input past end of file) when there is none, and for a quote that is never
    /// closed.
    [[nodiscard]] std::string Text();
    /// The next item as a whole number, decimals rounded to the even neighbour. Throws 62 as above, 13 (Type mismatch)
    /// for what is no number, 6 (Overflow) for one that does not fit.
    [[nodiscard]] std::int16_t Integer();

  private:
    /// Whether there is a byte at this position.
    bool Has(std::size_t position);
    /// The position of the first of some characters from `start` on; the end of the file when there is none.
    std::size_t Find(const char* characters, std::size_t start);
    /// Reads on; false at the end.
    bool ReadMore();
    /// Appends a part of the file; false at its end.
    bool ReadPart();
    void SkipBlanks();
    void SkipDelimiter();

    std::unique_ptr<FileReader> file_;     ///< null once the end has been seen
    std::string text_;                     ///< what has been read
    std::size_t at_ = 0;                   ///< where the next item begins
    std::optional<RuntimeError> failure_;  ///< why nothing follows text_
};

}  // namespace tavrix
