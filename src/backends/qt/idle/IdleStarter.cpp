#include "backends/qt/idle/IdleStarter.h"

#include <algorithm>

namespace tavrix::idle {
namespace {

Milliseconds Again(Milliseconds after) {
    return std::max(after, IdleStarter::Shortest);
}

}  // namespace

std::optional<Milliseconds> IdleStarter::Ask(Milliseconds now) {
    if (session_.SaverRuns()) return std::nullopt;
    const std::optional<Milliseconds> idle = session_.IdleTime();
    if (!idle) return std::max(wait_, Pause);
    // A saver that has ended by itself is not started again and again in front of nobody.
    if (started_ && *idle >= now - *started_) return Pause;
    if (*idle < wait_) return Again(wait_ - *idle);
    if (session_.Held()) held_ = now;
    // Who has watched a film to its end has not been away.
    if (held_ && now - *held_ < wait_) return Again(std::min(wait_ - (now - *held_), Pause));
    started_ = now;
    if (session_.StartSaver()) return std::nullopt;
    return Pause;
}

}  // namespace tavrix::idle
