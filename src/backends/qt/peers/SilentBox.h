#pragma once

#include <QObject>
#include <functional>

#include "backends/qt/peers/SinkPort.h"
#include "platform/forms/Boxes.h"
#include "platform/forms/Toolkit.h"

namespace tavrix::qt {

/// A message box where nobody can see one: its text goes to the standard error, and it is answered as if it were closed.
class SilentBox final : public forms::BoxPeer {
  public:
    SilentBox(const forms::BoxRequest& request, const std::function<void(forms::Answer)>& answered,
              LogicCalls& calls);

  private:
    QObject context_;  ///< nothing is answered any more when the box is gone
};

}  // namespace tavrix::qt
