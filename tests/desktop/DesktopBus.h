#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <memory>
#include <string>

#include "backends/headless/HeadlessServices.h"
#include "backends/qt/desktop/DesktopRegistry.h"
#include "backends/qt/desktop/QtDesktop.h"
#include "base/RuntimeError.h"
#include "desktop/FakeServices.h"

namespace tavrix {

/// The bus of all tests, since a process joins its session bus but once.
extern QString DesktopBusAddress;

/// A desktop of a name, with the services that a test offers and a folder for files.
class DesktopBusTest : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_FALSE(DesktopBusAddress.isEmpty()) << "dbus-daemon does not start";
        services = std::make_unique<FakeServices>(DesktopBusAddress);
        UseDesktop("");
    }

    void UseDesktop(const char* name) {
        qputenv("XDG_CURRENT_DESKTOP", name);
        desktop = std::make_unique<qt::QtDesktop>(
            machine.registry, qt::QtDesktop::Paths{[this](const std::string& path) { return ToHost(path); },
                                                   [](const std::string& file) { return "C:" + file; }});
        registry = std::make_unique<qt::DesktopRegistry>(machine.registry, *desktop);
    }
    std::string ToHost(const std::string& path) const {
        const std::string file = path.substr(2);
        if (!QFile::exists(QString::fromStdString(file))) throw RuntimeError(ErrorNumber::FileNotFound);
        return file;
    }
    /// A file in the folder: its host path.
    std::string Put(const QString& name, const QByteArray& content) const {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName().toStdString();
    }
    void Tile(bool on) {
        machine.registry.Put("Control Panel\\desktop", "TileWallpaper", {1, on ? "1" : "0"});
    }
    std::string Stored() {
        const auto value = machine.registry.Read("Control Panel\\desktop", "Wallpaper");
        return value ? value->text : "(no value)";
    }
    std::string Told() const {
        const auto value = registry->Read("control panel\\DESKTOP", "WALLPAPER");
        return value && value->type == 1 ? value->text : "(no value)";
    }

    QTemporaryDir folder;
    headless::HeadlessServices machine;
    std::unique_ptr<FakeServices> services;
    std::unique_ptr<qt::QtDesktop> desktop;
    std::unique_ptr<qt::DesktopRegistry> registry;
};

}  // namespace tavrix
