#pragma once

#include <QWidget>

#include "backends/qt/peers/QtControl.h"
#include "forms_conformance/Driver.h"

namespace tavrix::conformance {

[[nodiscard]] inline QWidget& WidgetOf(const forms::Control& control) {
    return *qt::NativeOf(*control.Peer()).Native();
}
[[nodiscard]] inline QWidget& WidgetOf(const forms::Form& form) {
    return *qt::NativeOf(*form.Peer()).Native();
}

}  // namespace tavrix::conformance
