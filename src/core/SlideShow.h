#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tavrix {

/// The texts of a show's slides, one for each slot from 0 to 30000. All are empty until they are set, and a slot costs
/// memory only once it or one behind it has been set.
class SlideTexts {
  public:
    static constexpr int LastIndex = 30000;
    static constexpr int Slots = LastIndex + 1;

    // The index of a slot must be from 0 to LastIndex; outside, each of these throws RuntimeError 9 (Subscript out of
    // range) and changes nothing.

    /// The reference lasts until the next change.
    [[nodiscard]] const std::string& operator[](int index) const;
    void Set(int index, std::string text);
    /// Moves the texts from `index` on up by one and puts `text` there; what was in the last slot is lost.
    void Insert(int index, std::string text);
    /// Moves the texts behind `index` down by one; the last slot becomes empty.
    void Remove(int index);

    /// Empties all slots and gives their memory back.
    void Erase() { texts_ = {}; }
    /// The first slot without a text, where a list of slides ends; Slots when there is none.
    [[nodiscard]] int FirstEmpty() const;

    friend bool operator==(const SlideTexts& a, const SlideTexts& b);

  private:
    std::vector<std::string> texts_;  ///< the slots up to the last one that was set
};

/// The show that the windows share. Its options are the fields of AppConfig from SoundMode to AnimateGIF89, and only
/// these: the settings give them their values at the start, a show's file replaces them, and the options dialog saves
/// whatever they are then, so a second copy of them here could only go stale.
struct SlideShow {
    /// The path of each slide as the show's file has it: full, relative to the show's folder, or a bare name. The list
    /// ends at the first empty one.
    SlideTexts SlideFiles;
    /// What the slide of the same index is about; empty for nothing.
    SlideTexts SlideDescriptions;
    /// How many slides a save or the stage works on, set by the window that starts it. Loading does not set it.
    std::int16_t SlideCount = 0;
    bool ShowChanged = false;  ///< there is something to save
    /// Whether a save takes the paths from SlideFiles, and not from the list of the editor.
    bool SaveFromArrays = false;

    [[nodiscard]] bool Empty() const { return SlideFiles[0].empty(); }
    /// Takes all slides out; the options and flags stay.
    void EraseSlides() {
        SlideFiles.Erase();
        SlideDescriptions.Erase();
    }
};

}  // namespace tavrix
