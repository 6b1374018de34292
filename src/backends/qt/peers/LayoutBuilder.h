#pragma once

#include <QLayout>
#include <memory>

#include "platform/forms/Layout.h"

namespace tavrix::qt {

/// Makes Qt's layout of the controls, whose peers must have been made.
[[nodiscard]] std::unique_ptr<QLayout> BuildLayout(const forms::Layout& layout);

}  // namespace tavrix::qt
