#pragma once

#include <set>

#include "platform/headless/FaultPlan.h"
#include "platform/services/Clipboard.h"

namespace tavrix::headless {

class MemoryClipboard final : public Clipboard {
  public:
    explicit MemoryClipboard(FaultPlan& faults) : faults_(faults) {}

    bool Has(ClipboardFormat format) override {
        return faults_.EnterQuietly(Service::Clipboard, "Has") && formats.contains(format);
    }
    void Clear() override {
        faults_.Enter(Service::Clipboard, "Clear");
        formats.clear();
        ++timesCleared;
    }
    void Persist() override {
        faults_.Enter(Service::Clipboard, "Persist");
        ++timesPersisted;
    }

    std::set<ClipboardFormat> formats;  ///< of what is on it
    int timesCleared = 0;
    int timesPersisted = 0;

  private:
    FaultPlan& faults_;
};

}  // namespace tavrix::headless
