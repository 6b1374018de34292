#pragma once

#include <QDBusMessage>
#include <optional>

namespace tavrix::qt {

/// A method of a service on the session bus.
struct BusMethod {
    const char* service;
    const char* path;
    const char* interface;
    const char* name;
};

/// Calls a method and waits for its answer, five seconds at most. Nothing without a bus, without the service and for an
/// error. A service that does not run is started only where `start` says so.
[[nodiscard]] std::optional<QVariantList> CallOnBus(const BusMethod& method, const QVariantList& arguments,
                                                    bool start = true);

}  // namespace tavrix::qt
