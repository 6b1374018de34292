#pragma once

#include <memory>
#include <string>

#include "imaging/vector/FontRequest.h"

namespace tavrix::vector {

/// A font as the system knows it.
struct FoundFont {
    std::string path;  ///< empty: there is none
    int index = 0;
    bool sameFamily = false;  ///< it is of the family that was asked for
    bool bold = false;
    bool slanted = false;
};

/// Asks the system's catalogue of fonts, which is read at the first question.
class FontFinder {
  public:
    FontFinder();
    ~FontFinder();
    FontFinder(const FontFinder&) = delete;
    FontFinder& operator=(const FontFinder&) = delete;
    FontFinder(FontFinder&&) = delete;
    FontFinder& operator=(FontFinder&&) = delete;

    /// The outline font that comes nearest. With a character: the nearest of those that have it. Takes a millisecond.
    [[nodiscard]] FoundFont Find(const FontRequest& request, char32_t character = 0);
    /// Whether any outline font has the character. Slow the first time alone.
    [[nodiscard]] bool Knows(char32_t character);

  private:
    class Catalogue;
    [[nodiscard]] Catalogue& Opened();

    std::unique_ptr<Catalogue> catalogue_;
};

}  // namespace tavrix::vector
