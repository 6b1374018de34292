#include "backends/qt/saver/LockSetting.h"

#include <gtest/gtest.h>

#include <QByteArray>

#include "backends/headless/HeadlessServices.h"
#include "linux/Script.h"

namespace tavrix {
namespace {

class LockSettingTest : public testing::Test {
  protected:
    void SetUp() override {
        qputenv("PATH", (folder_.Path() + ":" + path_.toStdString()).c_str());
        qputenv("XDG_CONFIG_HOME", folder_.At("config").c_str());
        qputenv("XDG_CONFIG_DIRS", folder_.At("none").c_str());
    }
    void TearDown() override {
        qputenv("PATH", path_);
        for (const char* name : {"XDG_CURRENT_DESKTOP", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"})
            qunsetenv(name);
    }
    static void Use(const char* desktop) { qputenv("XDG_CURRENT_DESKTOP", desktop); }
    void Store(const RegistryValue& value) {
        machine_.registry.Put(qt::LockRegistry::Key, qt::LockRegistry::Name, value);
    }
    std::string Told() {
        const auto value = registry_.Read("control panel\\DESKTOP", "screensaveusepassword");
        return value && value->type == 1 ? value->text : "(no value)";
    }

    const QByteArray path_ = qgetenv("PATH");
    TestFolder folder_;
    headless::HeadlessServices machine_;
    qt::LockRegistry registry_{machine_.registry};
};

TEST_F(LockSettingTest, WithoutASwitchNoPasswordIsAsked) {
    EXPECT_EQ(Told(), "0");
    Store({4, "1"});  // no text
    EXPECT_EQ(Told(), "0");
}

TEST_F(LockSettingTest, OurSwitchCountsWhereTheDesktopTellsNothing) {
    registry_.Write(qt::LockRegistry::Key, qt::LockRegistry::Name, "1");
    EXPECT_EQ(Told(), "1");
    Use("openbox");
    EXPECT_EQ(Told(), "1");
    Use("GNOME");
    PutScript(folder_, "gsettings", "exit 1");
    EXPECT_EQ(Told(), "1");
    registry_.Write(qt::LockRegistry::Key, qt::LockRegistry::Name, "0");
    EXPECT_EQ(Told(), "0");
}

TEST_F(LockSettingTest, TheDesktopsOwnSettingComesFirst) {
    const std::string tool =
        "[ \"$*\" = \"$(cat '" + folder_.At("asked") + "')\" ] && cat '" + folder_.At("answer") + "'";
    PutScript(folder_, "gsettings", tool);
    PutScript(folder_, "xfconf-query", tool);
    for (const auto& [desktop, asked] :
         {std::pair("ubuntu:GNOME", "get org.gnome.desktop.screensaver lock-enabled"),
          {"Unity:Unity7", "get org.gnome.desktop.screensaver lock-enabled"},
          {"X-Cinnamon", "get org.cinnamon.desktop.screensaver lock-enabled"},
          {"mate", "get org.mate.screensaver lock-enabled"},
          {"XFCE", "--channel=xfce4-screensaver --property=/lock/enabled"}}) {
        Use(desktop);
        folder_.Put("asked", asked);
        folder_.Put("answer", "true\n");
        Store({1, "0"});
        EXPECT_EQ(Told(), "1") << desktop;
        folder_.Put("answer", "false\n");
        Store({1, "1"});
        EXPECT_EQ(Told(), "0") << desktop;
        folder_.Put("answer", "No such schema\n");
        EXPECT_EQ(Told(), "1") << desktop;
    }
}

TEST_F(LockSettingTest, PlasmaTellsInAFile) {
    Use("KDE");
    Store({1, "0"});
    EXPECT_EQ(Told(), "0");
    folder_.Put("config/kscreenlockerrc", "[Daemon]\nTimeout=5\n");
    EXPECT_EQ(Told(), "1");
    folder_.Put("config/kscreenlockerrc", "[Daemon]\nAutolock=false\n");
    Store({1, "1"});
    EXPECT_EQ(Told(), "0");
    Use("openbox");
    EXPECT_EQ(Told(), "1") << "another desktop's file";
}

TEST_F(LockSettingTest, OtherValuesAreTheStoredOnes) {
    machine_.registry.Put(qt::LockRegistry::Key, "Wallpaper", {1, "C:\\a.bmp"});
    EXPECT_EQ(registry_.Read(qt::LockRegistry::Key, "Wallpaper")->text, "C:\\a.bmp");
    EXPECT_FALSE(registry_.Read("Other", qt::LockRegistry::Name).has_value());
    EXPECT_FALSE(registry_.Read(qt::LockRegistry::Key, "Other").has_value());
}

}  // namespace
}  // namespace tavrix
