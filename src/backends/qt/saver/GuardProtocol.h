#pragma once

namespace tavrix::qt::GuardProtocol {

/// A guarded saver and its guard are joined by the guard's standard input and output. When its cover is on the screen, the
/// guard writes the number of that window and a line's end. The saver writes this character before it ends, if it was
/// allowed to.
inline constexpr char Released = 'R';

}  // namespace tavrix::qt::GuardProtocol
