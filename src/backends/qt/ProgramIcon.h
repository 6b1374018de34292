#pragma once

#include <QIcon>

namespace tavrix::qt {

/// The program's icon, in the sizes that window managers and task bars show; its pictures are decoded by the call.
[[nodiscard]] QIcon ProgramIcon();

}  // namespace tavrix::qt
