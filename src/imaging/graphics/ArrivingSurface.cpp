#include "imaging/graphics/ArrivingSurface.h"

#include <utility>

namespace tavrix {

ArrivingSurface::ArrivingSurface(Surface whole) : surface_(std::move(whole)) {
    Finish(Outcome::Complete);
}

ArrivingSurface::ArrivingSurface(int width, int height) : surface_(width, height) {}

const Surface& ArrivingSurface::Rows(int count) const {
    for (int ready = RowsReady(); ready < count; ready = RowsReady()) {
        ready_.wait(ready, std::memory_order_acquire);
    }
    return surface_;
}

Outcome ArrivingSurface::Ending() const {
    finished_.wait(false, std::memory_order_acquire);
    return outcome_;
}

void ArrivingSurface::TellReady(int rows) {
    if (rows <= RowsReady()) return;
    ready_.store(rows, std::memory_order_release);
    ready_.notify_all();
}

void ArrivingSurface::Finish(Outcome outcome, bool blank) {
    outcome_ = outcome;
    blank_ = blank;
    finished_.store(true, std::memory_order_release);
    finished_.notify_all();
    TellReady(Height());
}

}  // namespace tavrix
