#pragma once

#include <set>

#include "backends/headless/FaultPlan.h"
#include "base/RuntimeError.h"
#include "imaging/graphics/Flatten.h"
#include "platform/services/Clipboard.h"

namespace tavrix::headless {

/// A clipboard that a test fills as other programs do.
class MemoryClipboard final : public Clipboard {
  public:
    explicit MemoryClipboard(FaultPlan& faults) : faults_(faults) {}

    bool Has(ClipboardFormat format) override {
        return faults_.EnterQuietly(Service::Clipboard, "Has") && formats.contains(format);
    }
    Picture Get() override {
        faults_.Enter(Service::Clipboard, "Get");
        if (formats.empty() || picture.Empty()) throw RuntimeError(ErrorNumber::InvalidPicture);
        return Flattened(picture);
    }
    void Clear() override {
        faults_.Enter(Service::Clipboard, "Clear");
        formats.clear();
        picture = {};
        ++timesCleared;
    }
    void Set(const Picture& value) override {
        faults_.Enter(Service::Clipboard, "Set");
        if (value.Empty()) throw RuntimeError(ErrorNumber::InvalidPicture);
        formats = {ClipboardFormat::Bitmap, ClipboardFormat::DeviceIndependentBitmap};
        picture = Flattened(value);
        ++timesSet;
    }
    void Persist() override {
        faults_.Enter(Service::Clipboard, "Persist");
        ++timesPersisted;
    }

    std::set<ClipboardFormat> formats;  ///< of what is on it
    Picture picture;                    ///< what is on it; without one, what is there cannot be decoded
    int timesCleared = 0;
    int timesSet = 0;
    int timesPersisted = 0;

  private:
    FaultPlan& faults_;
};

}  // namespace tavrix::headless
