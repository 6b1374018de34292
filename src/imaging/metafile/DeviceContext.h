#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "imaging/codecs/ByteSource.h"
#include "imaging/metafile/CodePages.h"
#include "imaging/metafile/Colours.h"
#include "imaging/metafile/DeviceState.h"
#include "imaging/metafile/FoundFonts.h"
#include "imaging/metafile/PathBracket.h"
#include "imaging/metafile/Recording.h"
#include "imaging/metafile/TileCache.h"
#include "imaging/vector/Painter.h"

namespace tavrix::metafile {

/// Where records are replayed: the picture, the table of objects, the state and what was saved of it, the path under
/// way. May throw std::bad_alloc.
class DeviceContext {
  public:
    /// All are kept by reference.
    DeviceContext(vector::Painter& painter, const Placement& placement, ByteSource& file,
                  const Cancellation& sink);

    [[nodiscard]] DeviceState& State() { return state_; }
    [[nodiscard]] const DeviceState& State() const { return state_; }
    [[nodiscard]] vector::Painter& Painter() { return painter_; }
    [[nodiscard]] const Placement& Place() const { return placement_; }
    [[nodiscard]] ByteSource& File() { return file_; }
    [[nodiscard]] const Cancellation& Sink() const { return sink_; }
    [[nodiscard]] PathBracket& Bracket() { return bracket_; }
    [[nodiscard]] FoundFonts& Fonts() { return fonts_; }
    [[nodiscard]] TileCache& Tiles() { return tiles_; }
    [[nodiscard]] CodePages& Pages() { return pages_; }

    /// From logical units to pixels of the picture.
    [[nodiscard]] vector::Affine ToPicture() const;
    [[nodiscard]] vector::Point ToPicture(Point point) const {
        return ToPicture().Apply({double(point.x), double(point.y)});
    }
    /// A colour of the file, by the selected palette where it is one of its entries.
    [[nodiscard]] Pixel Colour(ColourValue value) const { return ToPixel(value, *state_.palette); }
    [[nodiscard]] vector::BinaryOperation Operation() const {
        return vector::ToBinaryOperation(state_.rasterOperation);
    }

    void Save();
    /// Below 0: so many back; above: the which-th that was saved. Of a state that there is not, nothing comes.
    void Restore(std::int32_t which);

    void Create(Handle handle, std::shared_ptr<const Object> object);
    void Delete(Handle handle);
    /// Null where there is none.
    [[nodiscard]] std::shared_ptr<const Object> Find(Handle handle) const;
    /// The object as one of its kind; null where it is none of it or there is none.
    template <class Kind>
    [[nodiscard]] std::shared_ptr<const Kind> FindAs(Handle handle) const {
        const std::shared_ptr<const Object> object = Find(handle);
        const Kind* kind = object ? std::get_if<Kind>(object.get()) : nullptr;
        return kind == nullptr ? nullptr : std::shared_ptr<const Kind>(object, kind);
    }
    void Select(Handle handle);
    void SelectPalette(Handle handle);
    /// Puts another palette in the place of one; of MostHandles, of the selected one.
    void ReplacePalette(Handle handle, Palette palette);

    /// After a change to the state's clips.
    void ApplyClip();

  private:
    vector::Painter& painter_;
    const Placement& placement_;
    ByteSource& file_;
    const Cancellation& sink_;
    FoundFonts fonts_;
    TileCache tiles_;
    CodePages pages_;
    DeviceState state_;
    std::vector<DeviceState> saved_;
    std::vector<std::shared_ptr<const Object>> objects_;
    PathBracket bracket_;
};

}  // namespace tavrix::metafile
