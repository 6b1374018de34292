#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include "imaging/graphics/Surface.h"

namespace tavrix {

/// How the decoding of a picture ended.
enum class Outcome : std::uint8_t {
    Complete,
    Truncated,  ///< the data ended early; the pixels up to there are right
    Corrupt,    ///< the data make no sense from some point on
    Unread,     ///< some of the data could not be read: nobody knows what they hold
};

/// A surface whose rows may still be arriving from a worker. The reader says how far down it needs them and
/// waits no longer than that, so that the top of a large photo can be on the screen while the rest is decoded.
/// One writer, any number of readers; nothing else is shared with a worker.
class ArrivingSurface {
  public:
    /// A surface that is whole from the start.
    explicit ArrivingSurface(Surface whole);
    /// A surface to be filled; sizes in pixels, failures as with Surface.
    ArrivingSurface(int width, int height);

    ArrivingSurface(const ArrivingSurface&) = delete;
    ArrivingSurface& operator=(const ArrivingSurface&) = delete;

    [[nodiscard]] int Width() const { return surface_.Width(); }
    [[nodiscard]] int Height() const { return surface_.Height(); }

    /// The surface, once its first `count` rows are final. Rows further down must not be looked at.
    [[nodiscard]] const Surface& Rows(int count) const;
    /// The surface, once all of it is final.
    [[nodiscard]] const Surface& Whole() const { return Rows(Height()); }
    /// How many rows from the top are final by now.
    [[nodiscard]] int RowsReady() const { return ready_.load(std::memory_order_acquire); }
    /// Whether decoding has ended by now and left pixels away. They are transparent black, so that those of a huge
    /// picture in a tiny file cost nothing.
    [[nodiscard]] bool Damaged() const {
        return finished_.load(std::memory_order_acquire) && outcome_ != Outcome::Complete;
    }
    /// Whether decoding has ended by now.
    [[nodiscard]] bool Ended() const { return finished_.load(std::memory_order_acquire); }
    /// Whether decoding has ended by now without a single row.
    [[nodiscard]] bool Blank() const { return Ended() && blank_; }
    /// How decoding ended, once it has.
    [[nodiscard]] Outcome Ending() const;

    /// The writer's side. Rows that were told as ready are not written again.
    [[nodiscard]] Surface& Canvas() { return surface_; }
    void TellReady(int rows);
    /// Ends the filling; all rows count as ready from here on, whatever they hold. `blank`: none of them was decoded.
    void Finish(Outcome outcome, bool blank = false);

    /// A reader's request to stop early, since nobody looks at the picture any more.
    void Abandon() { abandoned_.store(true, std::memory_order_relaxed); }
    [[nodiscard]] bool Abandoned() const { return abandoned_.load(std::memory_order_relaxed); }

  private:
    Surface surface_;
    std::atomic<int> ready_{0};
    std::atomic<bool> finished_{false};
    std::atomic<bool> abandoned_{false};
    Outcome outcome_ = Outcome::Complete;
    bool blank_ = false;
};

}  // namespace tavrix
