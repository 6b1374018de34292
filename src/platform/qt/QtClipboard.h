#pragma once

#include "platform/services/Clipboard.h"

namespace tavrix::qt {

/// The desktop's clipboard.
class QtClipboard final : public Clipboard {
  public:
    [[nodiscard]] bool Has(ClipboardFormat format) override;
    void Clear() override;
    void Persist() override;
};

}  // namespace tavrix::qt
