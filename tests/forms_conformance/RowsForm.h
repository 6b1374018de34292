#pragma once

#include "forms_conformance/ConformanceTest.h"
#include "platform/forms/Frame.h"
#include "platform/forms/ListBox.h"

namespace tavrix::conformance {

/// A window with two lists and one control of the other kinds that things can be dragged over. What happens to the first
/// list goes into the log.
class RowsForm : public forms::Form {
  public:
    RowsForm(forms::Application& application, std::vector<std::string>& events)
        : Form(application, {.name = "RowsForm", .acceptsDrops = true}), log(events) {
        list.OnClick = [this] { log.push_back("click " + std::to_string(list.ListIndex)); };
        list.OnDblClick = [this] { log.push_back("double " + std::to_string(list.ListIndex)); };
        list.OnMouseDown = [this](const forms::MouseArguments& mouse) { Note("down", mouse); };
        list.OnMouseUp = [this](const forms::MouseArguments& mouse) { Note("up", mouse); };
    }

    forms::ListBox list{*this, "list"};
    forms::ListBox target{*this, "target"};
    forms::CommandButton button{*this, "button"};
    forms::Label label{*this, "label"};
    forms::TextBox field{*this, "field"};
    forms::PictureBox picture{*this, "picture"};
    forms::Frame frame{*this, "frame"};

    std::vector<std::string>& log;

    // All of it fits on a display of 400 x 400, and the lower right corner is free.
    void Form_Load() override {
        Move(0, 0, 5700, 5700);
        list.Move(0, 0, 2400, 3000);
        target.Move(2550, 0, 2400, 3000);
        button.Move(0, 3150, 1500, 450);
        label.Move(1650, 3150, 1500, 450);
        field.Move(3300, 3150, 1500, 450);
        picture.Move(0, 3750, 1500, 750);
        frame.Move(1650, 3750, 1500, 750);
    }
    void Form_DragDrop(const forms::DragArguments& drag) override {
        log.push_back("form got " + drag.source.Name());
    }
    void Form_OLEDragDrop(const std::vector<std::string>& files) override {
        log.push_back("form got " + std::to_string(files.size()) + " files");
    }

  private:
    void Note(const std::string& what, const forms::MouseArguments& mouse) {
        log.push_back(what + " " + std::to_string(mouse.button) + " on " + std::to_string(mouse.row));
    }
};

class RowsTest : public ConformanceTest {
  protected:
    /// Shows the window with so many rows, "row 0" and so on.
    void Open(int rows, forms::MultiSelect mode = forms::MultiSelect::None) {
        form.list.MultiSelect = mode;
        form.list.SetItems(Numbered(rows));
        form.Show();
        form.list.SetFocus();
        driver->Settle();
        log.clear();
    }
    static std::vector<std::string> Numbered(int rows) {
        std::vector<std::string> texts;
        for (int row = 0; row < rows; ++row)
            texts.push_back("row " + std::to_string(row));
        return texts;
    }
    void Key(int keyCode, int shift = forms::ShiftMask::None) {
        driver->UserKey(form, keyCode, shift);
        driver->Settle();
    }
    void Press(int row, int shift = forms::ShiftMask::None, int button = forms::MouseButton::Left) {
        driver->UserPressesRow(form.list, row, button, shift);
        driver->Settle();
    }
    void MoveTo(int row, int shift = forms::ShiftMask::None) {
        driver->UserMovesToRow(form.list, row, shift);
        driver->Settle();
    }
    void Release(int row, int shift = forms::ShiftMask::None, int button = forms::MouseButton::Left) {
        driver->UserReleasesRow(form.list, row, button, shift);
        driver->Settle();
    }
    void Click(int row, int shift = forms::ShiftMask::None) {
        Press(row, shift);
        Release(row, shift);
    }
    [[nodiscard]] std::vector<int> Selected() { return driver->ShownSelected(form.list); }

    using Rows = std::vector<int>;
    RowsForm& form = app.Load<RowsForm>(log);
};

}  // namespace tavrix::conformance
