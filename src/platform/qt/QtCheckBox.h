#pragma once

#include <QCheckBox>

#include "platform/qt/TickWidget.h"

namespace tavrix::qt {

using QtCheckBox = QtTick<forms::CheckPeer, TickWidget<QCheckBox>>;

}  // namespace tavrix::qt
