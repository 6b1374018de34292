#pragma once

#include "platform/services/Clipboard.h"

namespace tavrix::qt {

/// The desktop's clipboard.
class QtClipboard final : public Clipboard {
  public:
    [[nodiscard]] bool Has(ClipboardFormat format) override;
    /// What this process itself has copied comes back as it was, without being encoded.
    [[nodiscard]] Picture Get() override;
    void Clear() override;
    void Set(const Picture& picture) override;
    void Persist() override;
};

}  // namespace tavrix::qt
