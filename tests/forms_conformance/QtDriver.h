#pragma once

#include <QWidget>

#include "forms_conformance/Driver.h"
#include "platform/qt/QtControl.h"

namespace tavrix::conformance {

[[nodiscard]] inline QWidget& WidgetOf(const forms::Control& control) {
    return *qt::NativeOf(*control.Peer()).Native();
}
[[nodiscard]] inline QWidget& WidgetOf(const forms::Form& form) {
    return *qt::NativeOf(*form.Peer()).Native();
}

}  // namespace tavrix::conformance
