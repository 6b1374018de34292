// F1 opens the help page of the window that has the keys.

#include "forms_conformance/ConformanceTest.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

class HelpKeyTest : public ConformanceTest {
  protected:
    HelpKeyTest() {
        app.OnHelpKey = [this](unsigned context) { contexts.push_back(context); };
    }
    TestForm& ShowForm(unsigned context) {
        auto& form = app.Load<TestForm>(log);
        form.HelpContext = context;
        form.Show();
        driver->Settle();
        return form;
    }
    void Press(Form& form, int keyCode, int shift = ShiftMask::None) {
        driver->UserKey(form, keyCode, shift);
        driver->Settle();
    }

    using Contexts = std::vector<unsigned>;
    Contexts contexts;
};

TEST_F(HelpKeyTest, F1AsksOnceForTheContextOfItsWindow) {
    auto& form = ShowForm(570);
    Press(form, KeyCode::F1);
    EXPECT_EQ(contexts, Contexts{570});
    form.KeyPreview = true;
    Press(form, KeyCode::F1);
    EXPECT_EQ(contexts, (Contexts{570, 570}));
}

TEST_F(HelpKeyTest, AWindowWithoutAPageAsksForTheContents) {
    Press(ShowForm(0), KeyCode::F1);
    EXPECT_EQ(contexts, Contexts{0});
}

TEST_F(HelpKeyTest, OtherKeysAndF1WithShiftKeysAskForNothing) {
    auto& form = ShowForm(570);
    for (const int shift : {ShiftMask::Shift, ShiftMask::Ctrl})
        Press(form, KeyCode::F1, shift);
    Press(form, KeyCode::Down);
    EXPECT_EQ(contexts, Contexts{});
}

TEST_F(HelpKeyTest, AFormMayTakeTheKeyForItself) {
    auto& form = ShowForm(570);
    form.KeyPreview = true;
    form.onKey = [](int& keyCode) { keyCode = 0; };
    Press(form, KeyCode::F1);
    EXPECT_EQ(contexts, Contexts{});
}

TEST_F(HelpKeyTest, WithoutHelpTheKeyDoesNothing) {
    app.OnHelpKey = nullptr;
    auto& form = ShowForm(570);
    bool handled = false;
    form.Deliver(KeyEvent{true, KeyCode::F1, ShiftMask::None, &handled});
    EXPECT_FALSE(handled);
    app.OnHelpKey = [](unsigned) {};
    form.Deliver(KeyEvent{true, KeyCode::F1, ShiftMask::None, &handled});
    EXPECT_TRUE(handled);
}

}  // namespace
}  // namespace tavrix::conformance
