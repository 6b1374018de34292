#pragma once

#include <QDBusConnection>
#include <QVariantList>
#include <optional>

namespace tavrix::qt {

/// A method of a service on a bus.
struct BusMethod {
    const char* service;
    const char* path;
    const char* interface;
    const char* name;
};

/// How much is done for an answer.
struct BusPatience {
    bool start = true;        ///< a service that does not run is started
    int milliseconds = 5000;  ///< that are waited
};

/// Calls a method and waits for its answer. Nothing without a bus, without the service and for an error.
[[nodiscard]] std::optional<QVariantList> CallOnBus(const QDBusConnection& bus, const BusMethod& method,
                                                    const QVariantList& arguments, BusPatience patience);

/// The same on the session bus.
[[nodiscard]] std::optional<QVariantList> CallOnBus(const BusMethod& method, const QVariantList& arguments,
                                                    bool start = true);

}  // namespace tavrix::qt
