#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms_conformance/Driver.h"

namespace tavrix::conformance {

class ConformanceTest : public testing::Test {
  protected:
    void TearDown() override { EXPECT_EQ(driver->Failures(), std::vector<std::string>{}); }

    std::unique_ptr<Driver> driver = MakeDriver();
    forms::Application app{driver->GetToolkit()};
    std::vector<std::string> log;
};

/// A window with one of everything. What happens to it goes into the log.
class TestForm : public forms::Form {
  public:
    TestForm(forms::Application& application, std::vector<std::string>& events,
             const std::string& name = "TestForm", bool resizable = true)
        : Form(application, {name, resizable, true, true}), log(events) {
        hidden.Visible = false;
    }

    forms::Menu mnuFile{*this, "mnuFile", "&File"};
    forms::Menu mnuOpen{mnuFile, "mnuOpen", "&Open Image"};
    forms::Menu mnuLine{mnuFile, "mnuLine", "-"};
    forms::Menu mnuMore{mnuFile, "mnuMore", "M&ore"};
    forms::Menu mnuDeep{mnuMore, "mnuDeep", "90\u00B0 CW          [Alt+Right Arrow]"};
    forms::Menu mnuBare{mnuFile, "mnuBare", "Nothing yet"};
    forms::MenuArray mnuLast{mnuFile, "mnuLast", 3};
    forms::PictureBox frame{*this, "frame"};
    forms::PictureBox picture{frame, "picture"};
    forms::PictureBox hidden{*this, "hidden"};
    forms::ScrollBar bar{*this, "bar", true};
    forms::CommandButton button{*this, "button"};
    forms::Label label{*this, "label"};
    forms::Timer timer{*this};

    std::vector<std::string>& log;
    std::function<void()> onActivate;
    std::function<void(bool&)> onQueryUnload;
    std::function<void(int&)> onKey;

    void Form_Load() override {
        Move(300, 450, 6000, 4500);
        frame.Move(0, 0, 3000, 1500);
        picture.Move(0, 0, 3000, 1500);
        button.Move(0, 1800, 1500, 450);
        label.Move(1800, 1800, 1500, 450);
        bar.Move(4500, 0, 225, 1500);
    }
    void Form_Activate() override {
        log.push_back(Name() + " activate");
        if (onActivate) onActivate();
    }
    void Form_Resize() override { log.push_back(Name() + " resize"); }
    void Form_QueryUnload(bool& cancel) override {
        if (onQueryUnload) onQueryUnload(cancel);
    }
    void Form_KeyDown(int& keyCode, int shift) override {
        log.push_back(Name() + " key " + std::to_string(keyCode) + "/" + std::to_string(shift));
        if (onKey) onKey(keyCode);
    }
};

/// How often something stands in the log.
[[nodiscard]] inline auto Count(const std::vector<std::string>& log, const std::string& what) {
    return std::count(log.begin(), log.end(), what);
}

}  // namespace tavrix::conformance
