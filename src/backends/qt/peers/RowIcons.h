#pragma once

#include <QIcon>
#include <array>

#include "platform/forms/Peers.h"

namespace tavrix::qt {

/// The icons of rows, each made when a row first shows it.
class RowIcons {
  public:
    [[nodiscard]] const QIcon& Of(forms::RowIcon icon) const;

  private:
    mutable std::array<QIcon, 8> icons_;
};

}  // namespace tavrix::qt
