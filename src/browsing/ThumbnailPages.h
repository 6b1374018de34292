#pragma once

namespace tavrix {

/// Which images of a list a page of nine thumbnails shows, and which come before and after it. Indices of the list are
/// counted from 0; `count` is its length, and `visible` the number of thumbnails on the page.
class ThumbnailPages {
  public:
    static constexpr int Slots = 9;

    /// The number in the list, counted from 1, of the last image of the page.
    int ThumbLastShown = 0;

    // The index at which another page begins. One that wraps forgets the page that stands.

    /// Wraps also where just the last image has not been shown.
    [[nodiscard]] int Next(int count);
    [[nodiscard]] int Previous(int count, int visible) const;
    [[nodiscard]] int Forward1(int count);
    /// Perhaps negative, or beyond the list: then there is no such page.
    [[nodiscard]] int Back1(int count);

    /// A page was made, and came to its end at this index: that of the last image, or where it was stopped, or `count`.
    void Made(int reached, int count);
    /// The image in a slot (0 to 8), perhaps outside the list.
    [[nodiscard]] int IndexOf(int slot, int visible) const;
};

}  // namespace tavrix
