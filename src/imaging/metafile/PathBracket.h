#pragma once

#include <utility>

#include "imaging/vector/Path.h"

namespace tavrix::metafile {

/// The path that records between BeginPath and EndPath make, in pixels of the picture, and that is used afterwards.
class PathBracket {
  public:
    [[nodiscard]] bool Open() const { return open_; }
    [[nodiscard]] const vector::Path& Path() const { return path_; }

    void Begin() {
        path_.Clear();
        open_ = true;
        continues_ = false;
    }
    void End() { open_ = false; }
    void Abort() {
        path_.Clear();
        open_ = false;
    }
    /// A path in the place of the one that was made.
    void Replace(vector::Path path) { path_ = std::move(path); }
    /// Hands the path over; there is none afterwards.
    [[nodiscard]] vector::Path Take() {
        open_ = false;
        return std::exchange(path_, {});
    }

    /// The current position was set: the next line starts a figure.
    void Interrupt() { continues_ = false; }
    void CloseFigure() {
        path_.Close();
        continues_ = false;
    }
    /// Figures of their own.
    void Add(const vector::Path& figures) {
        path_.Append(figures);
        continues_ = false;
    }
    /// A figure that starts at the current position, and goes on with the one before if that came to there.
    void Continue(const vector::Path& figure);

  private:
    vector::Path path_;
    bool open_ = false;
    bool continues_ = false;
};

}  // namespace tavrix::metafile
