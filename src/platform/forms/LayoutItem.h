#pragma once

#include <cstdint>

#include "imaging/graphics/Surface.h"

namespace tavrix::forms {

/// A size in device pixels.
struct PixelSize {
    int width = 0;
    int height = 0;
    friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

/// What lies around the content of something, in device pixels.
struct PixelInsets {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    friend bool operator==(const PixelInsets&, const PixelInsets&) = default;
};

/// What an item does with more space than it needs, in one direction.
enum class Slack : std::uint8_t {
    Centred,  ///< it keeps its size, in the middle of the space
    Filled,   ///< it takes the space
    Wanted    ///< likewise, before those that only fill it
};

/// What an item asks of the layout that arranges it.
struct LayoutNeeds {
    PixelSize natural;  ///< for all that it shows
    Slack across = Slack::Filled;
    Slack down = Slack::Centred;
    bool yields =
        false;  ///< shows less of its text where it must: a least width takes the place of the natural one
};

/// What a layout arranges: a control, as a rule.
class LayoutItem {
  public:
    [[nodiscard]] virtual LayoutNeeds Needs() const = 0;
    /// How high it has to be at this width, in device pixels.
    [[nodiscard]] virtual int HeightAt(int /*width*/) const { return Needs().natural.height; }
    /// Of a frame: what lies between its edges and its content.
    [[nodiscard]] virtual PixelInsets Border() const { return {}; }
    /// It belongs to a layout from here on.
    virtual void Join() {}
    /// It goes here, in device pixels of the inside of the window.
    virtual void Place(const PixelRect& place) = 0;

  protected:
    ~LayoutItem() = default;
};

}  // namespace tavrix::forms
