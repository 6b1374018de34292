#pragma once

namespace tavrix {

/// The part of a saver that plays in a window of somebody else's. There input, grace, password and the end are that
/// program's: nothing that comes to the stage ends it, and what fails is told and left out.
struct HostedSaver {
    /// Of several that play at a time one alone is heard and remembers its slide. Nobody's preview is the first.
    bool first = true;
};

}  // namespace tavrix
