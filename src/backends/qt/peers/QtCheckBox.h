#pragma once

#include <QCheckBox>

#include "backends/qt/peers/TickWidget.h"

namespace tavrix::qt {

using CheckWidget = TickWidget<QCheckBox>;
using QtCheckBox = QtTick<forms::CheckPeer, CheckWidget>;

}  // namespace tavrix::qt
