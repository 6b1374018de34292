#pragma once

#include "backends/headless/HeadlessServices.h"
#include "forms_conformance/ConformanceTest.h"
#include "platform/forms/DirListBox.h"
#include "platform/forms/DriveListBox.h"
#include "platform/forms/FileListBox.h"

namespace tavrix::conformance {

/// A dialog with fields and lists, without a menu bar. What happens to it goes into the log.
class FieldsForm : public forms::Form {
  public:
    FieldsForm(forms::Application& application, std::vector<std::string>& events,
               headless::HeadlessServices& platform)
        : Form(application, {.name = "FieldsForm", .acceptsDrops = true}),
          Drive1(*this, "Drive1", platform.files, platform.drives),
          Dir1(*this, "Dir1", platform.files),
          File1(*this, "File1", platform.files),
          log(events) {
        mnuPopup.Visible = false;
        mnuGone.Visible = false;
        lblText.SetBuddy(Text1);
    }

    forms::Menu mnuPopup{*this, "mnuPopup", ""};
    forms::Menu mnuHere{mnuPopup, "mnuHere", "&Here"};
    forms::Menu mnuLine{mnuPopup, "mnuLine", "-"};
    forms::Menu mnuGone{mnuPopup, "mnuGone", "Gone"};
    forms::Label lblText{*this, "lblText"};
    forms::TextBox Text1{*this, "Text1"};
    forms::TextBox Text2{*this, "Text2"};
    forms::CheckBox Check1{*this, "Check1"};
    forms::DriveListBox Drive1;
    forms::DirListBox Dir1;
    forms::FileListBox File1;
    forms::CommandButton CmdOk{*this, "CmdOk"};
    forms::Image Image1{*this, "Image1"};
    forms::ScrollBar Bar1{*this, "Bar1", true};

    std::vector<std::string>& log;
    std::function<void(int&)> onKey;

    void Form_Load() override {
        Move(300, 300, 9000, 7500);
        lblText.Move(0, 0, 1200, 375);
        Text1.Move(1200, 0, 2400, 375);
        Text2.Move(1200, 450, 2400, 375);
        Check1.Move(0, 900, 3000, 375);
        Drive1.Move(3900, 0, 2400, 375);
        Dir1.Move(3900, 450, 2400, 3000);
        File1.Move(6400, 450, 2400, 3000);
        Bar1.Move(2000, 3000, 225, 1500);
        Bar1.Max = 1000;
        CmdOk.Move(0, 3000, 1500, 450);
        Image1.Move(0, 3750, 600, 300);
    }
    void Form_KeyDown(int& keyCode, int shift) override {
        log.push_back("form key " + std::to_string(keyCode) + "/" + std::to_string(shift));
        if (onKey) onKey(keyCode);
    }
};

/// Drives A: (without a disk), C: and D:.
struct ThreeDrives : headless::HeadlessServices {
    ThreeDrives() {
        disks.AddDrive('D', DriveType::CdRom);
        disks.InsertDisk('D');
    }
};

/// Tests on such a dialog, with files in memory.
class FieldsFormTest : public ConformanceTest {
  protected:
    void Open() {
        form.Show();
        driver->Settle();
        log.clear();
    }

    ThreeDrives platform;
    FieldsForm& form = app.Load<FieldsForm>(log, platform);
};

}  // namespace tavrix::conformance
