#include <gtest/gtest.h>

#include <QGuiApplication>

#include "desktop/DesktopBus.h"
#include "wakefulness/PrivateBus.h"

namespace tavrix {
QString DesktopBusAddress;
}

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    const tavrix::PrivateBus bus;
    tavrix::DesktopBusAddress = bus.Address();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
