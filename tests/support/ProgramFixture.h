#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "backends/headless/HeadlessServices.h"
#include "backends/headless/HeadlessToolkit.h"
#include "base/Text.h"
#include "core/Main.h"
#include "core/MainModule.h"
#include "platform/forms/Application.h"

namespace tavrix::test {

/// A picture of one colour; sizes in pixels.
inline Picture PlainPicture(int width, int height, Pixel pixel = OpaquePixel(200, 30, 30)) {
    Surface surface(width, height);
    surface.Fill(pixel);
    return PictureOf(std::move(surface));
}

/// A program on the headless platform: it is installed, its display and sound are fine, and nothing is open. Boxes
/// that a test does not expect, and expected boxes that never come, fail the test.
class ProgramFixture : public ::testing::Test {
  protected:
    ProgramFixture() {
        platform.store.Set("EXEPath", "C:\\Tavrix\\");
        platform.store.Set("ProgramRun", "1");
        module.AppPath = "C:\\Tavrix\\";
    }

    ~ProgramFixture() override {
        for (const std::string& failure : toolkit.Failures())
            ADD_FAILURE() << failure;
    }

    /// Runs something that may end the process; whether it did.
    bool Ends(const std::function<void()>& action) {
        try {
            action();
        } catch (const headless::ProcessEnded&) {
            return true;
        }
        return false;
    }

    /// Sets a key of the settings file.
    void Setting(const std::string& key, const std::string& value) {
        const ProfileEntry entry{key, value};
        platform.profile.Write("Viewer", {&entry, 1}, SettingsPath);
    }
    /// A key of the settings file as it stands on the disk.
    std::string Saved(const std::string& key) {
        return platform.profile.Read("Viewer", SettingsPath).Read(key, 1000);
    }

    void Expect(headless::ExpectedBox box) { toolkit.Expect(std::move(box)); }

    static constexpr const char* SettingsPath = "C:\\Tavrix\\tavrix.ini";

    headless::HeadlessServices platform;
    headless::HeadlessToolkit toolkit;
    forms::Application app{toolkit};
    MainModule module{app, platform.services};
    Lives lives;
};

}  // namespace tavrix::test
