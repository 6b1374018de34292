#pragma once

#include "platform/forms/Events.h"

namespace tavrix::qt {

/// Counts the calls into the logic that are on the stack.
class LogicCalls {
  public:
    class Scope {
      public:
        explicit Scope(LogicCalls& calls) : calls_(calls) { ++calls_.running_; }
        ~Scope() { --calls_.running_; }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

      private:
        LogicCalls& calls_;
    };

    [[nodiscard]] bool None() const { return running_ == 0; }

  private:
    int running_ = 0;
};

/// A widget's way to the sink of its peer. A widget may outlive its peer by an event handler; then its events go
/// nowhere.
class SinkPort {
  public:
    SinkPort(forms::EventSink& sink, LogicCalls& calls) : sink_(&sink), calls_(&calls) {}

    void Detach() { sink_ = nullptr; }
    [[nodiscard]] bool Attached() const { return sink_ != nullptr; }

    void Deliver(const forms::Event& event) const {
        if (sink_ == nullptr) return;
        const LogicCalls::Scope scope(*calls_);
        sink_->Deliver(event);
    }

  private:
    forms::EventSink* sink_;
    LogicCalls* calls_;
};

}  // namespace tavrix::qt
