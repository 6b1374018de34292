#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "core/ShowOptions.h"

namespace tavrix {

/// One text for each slide of a show, in slots from 0 to 30000. All are empty until they are set, and a slot costs memory
/// only once it or one behind it has been set.
class SlideTexts {
  public:
    static constexpr int LastIndex = 30000;
    static constexpr int Slots = LastIndex + 1;

    // The index of a slot must be from 0 to LastIndex; outside, each of these throws RuntimeError 9 (Subscript out of
    // range) and changes nothing.

    /// The reference lasts until the next change.
    [[nodiscard]] const std::string& operator[](int index) const;
    void Set(int index, std::string text);

    /// Empties all slots and gives their memory back.
    void Erase() { texts_ = {}; }
    /// The first slot without a text, where a list of slides ends; Slots when there is none.
    [[nodiscard]] int FirstEmpty() const;

    friend bool operator==(const SlideTexts& a, const SlideTexts& b);

  private:
    friend struct ShowSlides;

    // These are for lists that end at `count`; what lies behind it goes.
    void Insert(int count, int index, std::span<const std::string> texts);
    void Remove(int count, std::span<const int> indices);
    void Arrange(int count, std::span<const int> order);

    std::vector<std::string> texts_;  ///< the slots up to the last one that was set
};

/// The slides of a show: a path and a description for each. This is what knows that the two belong together; slides come,
/// go and move as a whole, in a time that grows with the number of slides and not with its square.
struct ShowSlides {
    /// The path of each slide as the show's file has it: full, relative to the show's folder, or a bare name. The list
    /// ends at the first empty one.
    SlideTexts SlideFiles;
    /// What the slide of the same index is about; empty for nothing.
    SlideTexts SlideDescriptions;

    [[nodiscard]] bool Empty() const { return SlideFiles[0].empty(); }
    /// How many slides there are, up to the first empty path.
    [[nodiscard]] int Count() const { return SlideFiles.FirstEmpty(); }
    /// Takes all slides out and gives their memory back.
    void EraseSlides();

    // Each of these empties the slots behind the last slide. For indices outside of the list, and for more slides than there
    // are slots, they throw RuntimeError 9 (Subscript out of range) and change nothing.

    /// Puts slides without descriptions in front of the one at `index`, or behind the last one for Count().
    void InsertSlides(int index, std::span<const std::string> paths);
    /// Takes slides out, by indices that rise.
    void RemoveSlides(std::span<const int> indices);
    /// Puts the slides into another order: at each place comes the one whose former index stands there. The order names
    /// each slide once.
    void ArrangeSlides(std::span<const int> order);

    friend bool operator==(const ShowSlides&, const ShowSlides&) = default;
};

/// A show as its file stores it: a value, apart from the one that is loaded.
struct ShowRecord {
    ShowSlides slides;
    ShowOptions options;

    friend bool operator==(const ShowRecord&, const ShowRecord&) = default;
};

/// The show that the windows share. Its options are those of AppConfig. While an editor of shows is loaded, the rows of its
/// list are these slides.
struct SlideShow : ShowSlides {
    /// How many slides a save or the stage works on, set by the window that starts it. Loading does not set it.
    std::int16_t SlideCount = 0;
    bool ShowChanged = false;  ///< there is something to save
    /// Whether a save leaves slides and editor as they are, since it is none of what is being edited.
    bool SaveFromArrays = false;

    void TakeSlides(ShowSlides slides) { static_cast<ShowSlides&>(*this) = std::move(slides); }
};

}  // namespace tavrix
