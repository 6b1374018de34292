#pragma once

#include <QMessageBox>
#include <QPointer>
#include <functional>

#include "backends/qt/peers/Pointers.h"
#include "backends/qt/peers/SinkPort.h"
#include "platform/forms/Boxes.h"
#include "platform/forms/Toolkit.h"

namespace tavrix::qt {

class QtBox final : public forms::BoxPeer {
  public:
    QtBox(const forms::BoxRequest& request, std::function<void(forms::Answer)> answered,
          const std::function<void()>& help, ScreenPointer& pointer, LogicCalls& calls);
    ~QtBox() override;
    QtBox(const QtBox&) = delete;
    QtBox& operator=(const QtBox&) = delete;

  private:
    void Tell(forms::Answer answer);

    std::function<void(forms::Answer)> answered_;
    ScreenPointer& pointer_;
    LogicCalls& calls_;
    QPointer<QMessageBox> box_;  ///< goes when no event handler of its own runs any more
};

}  // namespace tavrix::qt
