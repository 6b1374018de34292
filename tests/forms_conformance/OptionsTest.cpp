#include "forms_conformance/ConformanceTest.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

/// Two groups of options in one window.
class OptionsForm : public Form {
  public:
    explicit OptionsForm(Application& application) : Form(application, {.name = "OptionsForm"}) {}

    TextBox Text1{*this, "Text1"};
    OptionGroup Direction;
    OptionButton OptionLeft{*this, "OptionLeft", Direction};
    OptionButton OptionRight{*this, "OptionRight", Direction};
    OptionButton OptionUp{*this, "OptionUp", Direction};
    OptionGroup Size;
    OptionButton OptionSmall{*this, "OptionSmall", Size};
    OptionButton OptionLarge{*this, "OptionLarge", Size};

    void Form_Load() override {
        Move(300, 300, 6000, 4500);
        Text1.Move(0, 0, 3000, 375);
        float top = 0;
        for (OptionButton* option : {&OptionLeft, &OptionRight, &OptionUp, &OptionSmall, &OptionLarge})
            option->Move(0, top += 450, 3000, 375);
    }
};

class OptionsTest : public ConformanceTest {
  protected:
    OptionsTest() {
        for (OptionButton* option :
             {&form.OptionLeft, &form.OptionRight, &form.OptionUp, &form.OptionSmall, &form.OptionLarge})
            option->OnClick = [this, option] { log.push_back(option->Name()); };
    }
    void Open() {
        form.Show();
        driver->Settle();
        log.clear();
    }
    void Pick(OptionButton& option) {
        driver->UserPicks(option);
        driver->Settle();
    }
    void Key(int keyCode) {
        driver->UserKey(form, keyCode, ShiftMask::None);
        driver->Settle();
    }

    OptionsForm& form = app.Load<OptionsForm>();
};

TEST_F(OptionsTest, WhatWasChosenBeforeTheFirstShowIsShown) {
    form.OptionRight.Caption = "Cloc&kwise";
    form.OptionRight.Value = true;
    form.OptionRight.Enabled = false;
    Open();
    EXPECT_EQ(driver->ShownText(form.OptionRight), "Cloc&kwise");
    EXPECT_TRUE(driver->ShownChosen(form.OptionRight));
    EXPECT_FALSE(driver->ShownChosen(form.OptionLeft));
    EXPECT_FALSE(driver->ShownEnabled(form.OptionRight));
}

TEST_F(OptionsTest, ThereIsOneChoiceInAGroup) {
    Open();
    Pick(form.OptionLeft);
    Pick(form.OptionLarge);
    Pick(form.OptionRight);
    EXPECT_EQ(log, (std::vector<std::string>{"OptionLeft", "OptionLarge", "OptionRight"}));
    EXPECT_FALSE(form.OptionLeft.Value);
    EXPECT_TRUE(form.OptionRight.Value);
    EXPECT_TRUE(form.OptionLarge.Value);
    EXPECT_FALSE(driver->ShownChosen(form.OptionLeft));
    EXPECT_TRUE(driver->ShownChosen(form.OptionRight));
    EXPECT_TRUE(driver->ShownChosen(form.OptionLarge));
    EXPECT_EQ(form.ActiveControl(), &form.OptionRight);
}

TEST_F(OptionsTest, TheChosenOneStaysSoWhenItIsPressedAgain) {
    Open();
    Pick(form.OptionLeft);
    Pick(form.OptionLeft);
    EXPECT_EQ(log, (std::vector<std::string>{"OptionLeft"}));
    EXPECT_TRUE(form.OptionLeft.Value);
    EXPECT_TRUE(driver->ShownChosen(form.OptionLeft));
}

TEST_F(OptionsTest, AChoiceByTheProgramRaisesOneClick) {
    Open();
    form.OptionLeft.Value = true;
    form.OptionLeft.Value = true;
    form.OptionUp.Value = true;
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"OptionLeft", "OptionUp"}));
    EXPECT_FALSE(form.OptionLeft.Value);
    EXPECT_FALSE(driver->ShownChosen(form.OptionLeft));
    form.OptionUp.Value = false;
    driver->Settle();
    EXPECT_EQ(log.size(), 2U);
    EXPECT_FALSE(driver->ShownChosen(form.OptionUp));
}

TEST_F(OptionsTest, TheOthersHaveLostTheChoiceWhenTheClickComes) {
    form.OptionLeft.Value = true;
    form.OptionRight.OnClick = [this] { log.emplace_back(form.OptionLeft.Value ? "both" : "one"); };
    Open();
    Pick(form.OptionRight);
    EXPECT_EQ(log, (std::vector<std::string>{"one"}));
}

TEST_F(OptionsTest, ADisabledOptionIsDead) {
    form.OptionLeft.Value = true;
    form.OptionRight.Enabled = false;
    Open();
    Pick(form.OptionRight);
    EXPECT_EQ(log, std::vector<std::string>{});
    EXPECT_TRUE(form.OptionLeft.Value);
}

TEST_F(OptionsTest, TheArrowKeysGoAroundTheGroup) {
    form.OptionLeft.Value = true;
    Open();
    driver->UserFocuses(form.OptionLeft);
    driver->Settle();
    Key(KeyCode::Down);
    Key(KeyCode::Right);
    Key(KeyCode::Down);
    EXPECT_EQ(log, (std::vector<std::string>{"OptionRight", "OptionUp", "OptionLeft"}));
    EXPECT_EQ(form.ActiveControl(), &form.OptionLeft);
    log.clear();
    Key(KeyCode::Up);
    Key(KeyCode::Left);
    EXPECT_EQ(log, (std::vector<std::string>{"OptionUp", "OptionRight"}));
    EXPECT_TRUE(driver->ShownChosen(form.OptionRight));
    EXPECT_FALSE(driver->ShownChosen(form.OptionUp));
    EXPECT_FALSE(form.OptionSmall.Value);
}

TEST_F(OptionsTest, TheArrowKeysPassWhatCannotBeChosen) {
    form.OptionLeft.Value = true;
    form.OptionRight.Enabled = false;
    Open();
    driver->UserFocuses(form.OptionLeft);
    driver->Settle();
    Key(KeyCode::Down);
    EXPECT_EQ(log, (std::vector<std::string>{"OptionUp"}));
    form.OptionLeft.Visible = false;
    Key(KeyCode::Down);
    EXPECT_EQ(log, (std::vector<std::string>{"OptionUp"}));
    EXPECT_TRUE(form.OptionUp.Value);
}

TEST_F(OptionsTest, AClickMayGiveTheFocusAway) {
    form.OptionLeft.Value = true;
    form.OptionRight.OnClick = [this] { form.Text1.SetFocus(); };
    Open();
    driver->UserFocuses(form.OptionLeft);
    driver->Settle();
    Key(KeyCode::Down);
    EXPECT_EQ(form.ActiveControl(), &form.Text1);
    EXPECT_TRUE(driver->ShownChosen(form.OptionRight));
    Pick(form.OptionLeft);
    Pick(form.OptionRight);
    EXPECT_EQ(form.ActiveControl(), &form.Text1);
}

TEST_F(OptionsTest, TabStopsAtTheChosenOneElseAtTheFirst) {
    Open();
    EXPECT_TRUE(driver->ShownTabStop(form.OptionLeft));
    EXPECT_FALSE(driver->ShownTabStop(form.OptionUp));
    Pick(form.OptionUp);
    EXPECT_FALSE(driver->ShownTabStop(form.OptionLeft));
    EXPECT_TRUE(driver->ShownTabStop(form.OptionUp));
    EXPECT_TRUE(driver->ShownTabStop(form.OptionSmall));
    form.OptionUp.Value = false;
    EXPECT_TRUE(driver->ShownTabStop(form.OptionLeft));
}

}  // namespace
}  // namespace tavrix::conformance
