#pragma once

#include <QDialog>
#include <QPointer>
#include <functional>
#include <optional>
#include <string>

#include "backends/qt/peers/Pointers.h"
#include "backends/qt/peers/SinkPort.h"
#include "platform/forms/Boxes.h"
#include "platform/forms/Toolkit.h"

namespace tavrix::qt {

class QtInputBox final : public forms::BoxPeer {
  public:
    using Answered = std::function<void(const std::optional<std::string>&)>;

    QtInputBox(const forms::InputRequest& request, Answered answered, ScreenPointer& pointer,
               LogicCalls& calls);
    ~QtInputBox() override;
    QtInputBox(const QtInputBox&) = delete;
    QtInputBox& operator=(const QtInputBox&) = delete;

  private:
    void Tell(const std::optional<std::string>& text);

    Answered answered_;
    ScreenPointer& pointer_;
    LogicCalls& calls_;
    QPointer<QDialog> box_;  ///< goes when no event handler of its own runs any more
};

}  // namespace tavrix::qt
