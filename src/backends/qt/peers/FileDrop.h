#pragma once

#include <functional>
#include <string>

#include "backends/qt/peers/SinkPort.h"

class QDropEvent;
class QObject;

namespace tavrix::qt {

/// Turns a path of the host into one that the logic knows.
using ToDrivePath = std::function<std::string(const std::string& hostPath)>;

/// Whether a drag carries addresses, of files or of something else.
[[nodiscard]] bool CarriesFiles(const QDropEvent& event);

/// Answers the drop and delivers its files (none where the addresses are those of something else) once the drag is over,
/// since handlers open windows. `drop` tells the place. `port` belongs to `receiver`; nothing is delivered when that has
/// gone by then.
void AcceptFiles(QDropEvent& event, QObject& receiver, const SinkPort& port, forms::DropEvent drop,
                 const ToDrivePath& toDrivePath);

}  // namespace tavrix::qt
