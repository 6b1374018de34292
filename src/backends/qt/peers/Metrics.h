#pragma once

#include <QString>
#include <memory>
#include <optional>
#include <string>

#include "backends/qt/peers/MenuBarNote.h"
#include "backends/qt/x11/X11.h"
#include "platform/forms/Toolkit.h"

namespace tavrix::qt {

/// The system's metrics in device pixels. They are found out once and then stand for the whole life of the process,
/// since the logic adds them to the sizes that it computes.
class Metrics {
  public:
    /// Asks the window manager, if it has not been asked before. That takes a moment to answer: it is waited for when
    /// somebody needs it.
    explicit Metrics(std::shared_ptr<x11::FrameQuestion> asked, MenuBarNote note = {});

    [[nodiscard]] int Of(forms::SystemMetric metric) const;
    /// The menu bar in logical pixels.
    [[nodiscard]] int MenuBarLogical() const { return TheMenuBar().logical; }

    /// Finds out how high a menu bar is now, and corrects the note for the next start; once. For when the first picture is
    /// on the screen.
    void CheckNote() const;

    /// What lies around the inner part of a window, its menu bar not counted.
    [[nodiscard]] int FrameWidth() const { return 2 * TheFrame().borderWidth; }
    [[nodiscard]] int FrameHeight() const { return 2 * TheFrame().borderHeight + TheFrame().caption; }

  private:
    struct Frame {
        int caption = 20;
        int borderWidth = 4;
        int borderHeight = 4;
    };

    struct MenuBar {
        int logical = 0;
        int device = 0;
    };

    [[nodiscard]] const Frame& TheFrame() const;
    [[nodiscard]] const MenuBar& TheMenuBar() const;

    mutable std::shared_ptr<x11::FrameQuestion> question_;  ///< null: nobody to ask, or answered
    mutable std::optional<Frame> frame_;
    mutable std::optional<MenuBar> menuBar_;
    MenuBarNote note_;
    mutable std::string noted_;  ///< as it was read
    mutable QString looks_;      ///< of the menu bar at that time, by which the next start looks for its note
    mutable bool checked_ = false;
};

}  // namespace tavrix::qt
