#include "base/RuntimeError.h"
#include "forms_conformance/FieldsForm.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

class FieldsTest : public FieldsFormTest {
  protected:
    FieldsTest() {
        form.Text1.OnChange = [this] { log.push_back("text " + form.Text1.Text.Get()); };
        form.Check1.OnClick = [this] { log.emplace_back(form.Check1.Value ? "ticked" : "cleared"); };
    }
};

TEST_F(FieldsTest, WhatWasSetBeforeTheFirstShowIsShown) {
    form.Check1.Caption = "&Aspect";
    form.Check1.Value = true;
    form.Text1.Text = "C:\\a & b";
    form.Text1.SelStart = 3;
    form.Text1.SelLength = 2;
    Open();
    EXPECT_EQ(driver->ShownText(form.Check1), "&Aspect");
    EXPECT_TRUE(driver->ShownChecked(form.Check1));
    EXPECT_EQ(driver->ShownText(form.Text1), "C:\\a & b");
    EXPECT_EQ(driver->ShownSelection(form.Text1), (Selection{3, 2}));
}

TEST_F(FieldsTest, TheUserTicksWithOneClick) {
    Open();
    driver->UserTicks(form.Check1);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"ticked"}));
    EXPECT_TRUE(form.Check1.Value);
    EXPECT_EQ(form.ActiveControl(), &form.Check1);
    driver->UserTicks(form.Check1);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"ticked", "cleared"}));
}

TEST_F(FieldsTest, TickingByTheProgramRaisesOneClickAndNoEcho) {
    Open();
    form.Check1.Value = true;
    form.Check1.Value = true;
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"ticked"}));
    EXPECT_TRUE(driver->ShownChecked(form.Check1));
}

TEST_F(FieldsTest, AHandlerMayTakeTheTickBack) {
    form.Check1.OnClick = [this] {
        log.emplace_back("click");
        form.Check1.Value = false;
    };
    Open();
    driver->UserTicks(form.Check1);
    driver->Settle();
    EXPECT_FALSE(driver->ShownChecked(form.Check1));
    EXPECT_FALSE(form.Check1.Value);
    EXPECT_EQ(Count(log, "click"), 2);
}

TEST_F(FieldsTest, DisabledFieldsAreDead) {
    form.Check1.Enabled = false;
    form.Text1.Enabled = false;
    form.File1.Enabled = false;
    form.File1.OnClick = [this] { log.emplace_back("row"); };
    platform.disks.PutFile("C:\\one.bmp", "");
    form.File1.Path = "C:\\";
    Open();
    driver->UserTicks(form.Check1);
    driver->UserTypes(form.Text1, "x");
    driver->UserChoosesRow(form.File1, 0);
    driver->Settle();
    EXPECT_EQ(log, std::vector<std::string>{});
}

TEST_F(FieldsTest, TypingRaisesAChangeForEachText) {
    Open();
    form.Text1.SetFocus();
    driver->UserTypes(form.Text1, "a");
    driver->UserTypes(form.Text1, "b");
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"text a", "text ab"}));
    EXPECT_EQ(form.Text1.SelStart, 2);
    EXPECT_EQ(form.Text1.SelLength, 0);
}

TEST_F(FieldsTest, AssigningATextRaisesOneChangeAndNoEcho) {
    Open();
    form.Text1.Text = "200";
    form.Text1.Text = "200";
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"text 200"}));
    EXPECT_EQ(driver->ShownText(form.Text1), "200");
    EXPECT_EQ(driver->ShownSelection(form.Text1), (Selection{0, 0}));
    EXPECT_EQ(form.Text1.SelStart, 0);
}

TEST_F(FieldsTest, AHandlerMayReplaceTheText) {
    form.Text1.OnChange = [this] {
        log.push_back(form.Text1.Text);
        if (form.Text1.Text != "0") form.Text1.Text = "0";
    };
    Open();
    form.Text1.SetFocus();
    driver->UserTypes(form.Text1, "x");
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"x", "0"}));
    EXPECT_EQ(driver->ShownText(form.Text1), "0");
    driver->UserTypes(form.Text1, "y");
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"x", "0", "y0", "0"}));
}

TEST_F(FieldsTest, AHandlerMayChangeWhatIsPastedAndSetTheCaret) {
    form.Text1.OnChange = [this] {
        const std::string text = form.Text1.Text;
        const int caret = form.Text1.SelStart;
        if (text.find('\"') == std::string::npos) return;
        std::string changed;
        for (const char c : text)
            changed += c == '"' ? "''" : std::string(1, c);
        form.Text1.Text = changed;
        form.Text1.SelStart = caret + 2;
    };
    form.Text1.Text = "<>";
    Open();
    form.Text1.SetFocus();
    driver->UserSelects(form.Text1, {1, 0});
    driver->UserPastes(form.Text1, "a\"b\"c");
    driver->Settle();
    EXPECT_EQ(form.Text1.Text.Get(), "<a''b''c>");
    EXPECT_EQ(driver->ShownText(form.Text1), "<a''b''c>");
    EXPECT_EQ(driver->ShownSelection(form.Text1), (Selection{8, 0}));
    driver->UserTypes(form.Text1, "d");
    driver->Settle();
    EXPECT_EQ(driver->ShownText(form.Text1), "<a''b''cd>");
}

TEST_F(FieldsTest, PositionsCountCharacters) {
    const std::string text = "a\U0001F600b\u00E4\U0001F601";
    form.Text1.Text = text;
    Open();
    form.Text1.SelStart = 1;
    form.Text1.SelLength = 2;
    EXPECT_EQ(driver->ShownSelection(form.Text1), (Selection{1, 2}));
    form.Text1.SetFocus();
    driver->UserSelects(form.Text1, {2, 3});
    driver->Settle();
    EXPECT_EQ(form.Text1.SelStart, 2);
    EXPECT_EQ(form.Text1.SelLength, 3);
    driver->UserTypes(form.Text1, "\U0001F602c");
    driver->Settle();
    EXPECT_EQ(form.Text1.Text, "a\U0001F600\U0001F602c");
    EXPECT_EQ(form.Text1.SelStart, 4);
}

TEST_F(FieldsTest, TheMostCharactersAreKept) {
    form.Text1.MaxLength = 3;
    Open();
    form.Text1.Text = "abcdef";
    EXPECT_EQ(form.Text1.Text, "abc");
    EXPECT_EQ(driver->ShownText(form.Text1), "abc");
    form.Text1.SetFocus();
    driver->UserSelects(form.Text1, {1, 1});
    driver->UserTypes(form.Text1, "\U0001F600\U0001F601x");
    driver->Settle();
    EXPECT_EQ(form.Text1.Text, "a\U0001F600c");
    EXPECT_EQ(driver->ShownText(form.Text1), "a\U0001F600c");
    EXPECT_EQ(form.Text1.SelStart, 2);
    log.clear();
    driver->UserTypes(form.Text1, "y");
    driver->Settle();
    EXPECT_EQ(log, std::vector<std::string>{});
    EXPECT_EQ(driver->ShownText(form.Text1), "a\U0001F600c");
    form.Text1.MaxLength = 1;
    EXPECT_EQ(log, (std::vector<std::string>{"text a"}));
    EXPECT_EQ(driver->ShownText(form.Text1), "a");
}

TEST_F(FieldsTest, SelectionsBeyondTheTextAreCut) {
    form.Text1.Text = "abc";
    form.Text1.SelStart = 2;
    form.Text1.SelLength = 9;
    EXPECT_EQ(form.Text1.SelLength, 1);
    form.Text1.SelStart = 9;
    EXPECT_EQ(form.Text1.SelStart, 3);
    EXPECT_EQ(form.Text1.SelLength, 0);
    EXPECT_THROW(form.Text1.SelStart = -1, RuntimeError);
    EXPECT_THROW(form.Text1.SelLength = -1, RuntimeError);
}

TEST_F(FieldsTest, AHandlerDiscardsTypedCharacters) {
    form.Text1.OnKeyPress = [this](std::string& character) {
        log.push_back("press " + character);
        if (character != "1" && character != "\U0001F600") character.clear();
    };
    Open();
    form.Text1.SetFocus();
    driver->UserTypes(form.Text1, "a1b");
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"press a", "press 1", "text 1", "press b"}));
    EXPECT_EQ(driver->ShownText(form.Text1), "1");
    driver->UserTypes(form.Text1, "\u00E4\U0001F600");
    driver->Settle();
    EXPECT_EQ(form.Text1.Text, "1\U0001F600");
    EXPECT_EQ(driver->ShownText(form.Text1), "1\U0001F600");
}

TEST_F(FieldsTest, WhatIsPastedIsNoTypedCharacter) {
    form.Text1.OnKeyPress = [this](std::string& character) {
        log.push_back("press " + character);
        character.clear();
    };
    Open();
    form.Text1.SetFocus();
    driver->UserPastes(form.Text1, "many");
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"text many"}));
    EXPECT_EQ(driver->ShownText(form.Text1), "many");
}

TEST_F(FieldsTest, TheMouseOverACheckBoxIsToldBehindTheClick) {
    form.Check1.OnMouseUp = [this](const MouseArguments& mouse) {
        log.push_back("up " + std::to_string(mouse.button));
    };
    Open();
    driver->UserTicks(form.Check1);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"ticked", "up 1"}));
    form.Check1.Value = false;
    EXPECT_EQ(Count(log, "up 1"), 1);
}

TEST_F(FieldsTest, KeysMoveAScrollBar) {
    form.Bar1.Min = 10;
    form.Bar1.SmallChange = 5;
    form.Bar1.LargeChange = 100;
    form.Bar1.OnChange = [this] { log.push_back(std::to_string(form.Bar1.Value)); };
    Open();
    driver->UserFocuses(form.Bar1);
    for (const int key : {KeyCode::Down, KeyCode::Right, KeyCode::Left, KeyCode::PageDown, KeyCode::Up,
                          KeyCode::PageUp, KeyCode::PageUp, KeyCode::End, KeyCode::Down, KeyCode::Home})
        driver->UserKey(form, key, ShiftMask::None);
    driver->UserKey(form, KeyCode::Down, ShiftMask::Shift);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"15", "20", "15", "115", "110", "10", "1000", "10"}));
    EXPECT_EQ(driver->ShownValue(form.Bar1), 10);
}

TEST_F(FieldsTest, ASelectionSetBeforeTheFocusSurvivesIt) {
    form.Text1.Text = "C:\\Pictures";
    Open();
    form.CmdOk.SetFocus();
    form.Text1.SelStart = 3;
    form.Text1.SelLength = 8;
    form.Text1.SetFocus();
    driver->Settle();
    EXPECT_EQ(driver->ShownSelection(form.Text1), (Selection{3, 8}));
    EXPECT_EQ(form.Text1.SelLength, 8);

    form.CmdOk.SetFocus();
    form.Text1.SelStart = 1;
    form.Text1.SelLength = 2;
    driver->UserFocuses(form.Text1);
    driver->Settle();
    EXPECT_EQ(driver->ShownSelection(form.Text1), (Selection{1, 2}));
    EXPECT_EQ(form.ActiveControl(), &form.Text1);
}

TEST_F(FieldsTest, FormsKnowTheSelectionThatIsShown) {
    form.Text1.Text = "abcdef";
    Open();
    form.Text1.SetFocus();
    driver->UserSelects(form.Text1, {1, 3});
    driver->Settle();
    driver->UserFocuses(form.Text2);
    driver->Settle();
    EXPECT_EQ(driver->ShownSelection(form.Text1), (Selection{form.Text1.SelStart, form.Text1.SelLength}));
}

TEST_F(FieldsTest, KeysGoToTheFormThenToTheControlAndBackUp) {
    form.KeyPreview = true;
    form.Text1.OnKeyDown = [this](int& code, int shift) {
        log.push_back("down " + std::to_string(code) + "/" + std::to_string(shift));
    };
    form.Text1.OnKeyUp = [this](int code, int shift) {
        log.push_back("up " + std::to_string(code) + "/" + std::to_string(shift));
    };
    Open();
    driver->UserFocuses(form.Text1);
    driver->UserKey(form, KeyCode::Delete, ShiftMask::None);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"form key 46/0", "down 46/0", "up 46/0"}));
    log.clear();
    form.onKey = [](int& code) { code = 0; };
    driver->UserKey(form, KeyCode::Delete, ShiftMask::None);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"form key 46/0", "up 46/0"}));
    log.clear();
    form.KeyPreview = false;
    driver->UserKey(form, KeyCode::Delete, ShiftMask::None);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"down 46/0", "up 46/0"}));
}

TEST_F(FieldsTest, KeysOfAnotherControlAreNotTold) {
    form.Check1.OnKeyDown = [this](int&, int) { log.emplace_back("check down"); };
    form.Check1.OnKeyUp = [this](int, int) { log.emplace_back("check up"); };
    Open();
    driver->UserFocuses(form.Text1);
    driver->UserKey(form, KeyCode::End, ShiftMask::None);
    driver->Settle();
    EXPECT_EQ(log, std::vector<std::string>{});
    driver->UserFocuses(form.Check1);
    driver->UserKey(form, KeyCode::End, ShiftMask::None);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"check down", "check up"}));
}

TEST_F(FieldsTest, AReleaseIsNotToldWhereTheFocusCameMeanwhile) {
    form.Text1.OnKeyDown = [this](int&, int) { form.Check1.SetFocus(); };
    form.Check1.OnKeyUp = [this](int code, int) { log.push_back("up " + std::to_string(code)); };
    Open();
    driver->UserFocuses(form.Text1);
    driver->UserKey(form, KeyCode::Delete, ShiftMask::None);
    driver->Settle();
    EXPECT_EQ(form.ActiveControl(), &form.Check1);
    EXPECT_EQ(log, std::vector<std::string>{});
    driver->UserKey(form, KeyCode::Delete, ShiftMask::None);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"up 46"}));
}

TEST_F(FieldsTest, APopupOfAWindowWithoutAMenuBarRunsTheChosenEntry) {
    form.mnuHere.Install([this] { log.emplace_back("here"); });
    Open();
    EXPECT_EQ(driver->Shown(form.mnuHere).caption, "&Here");
    EXPECT_EQ(driver->Shown(form.mnuLine).kind, MenuItemState::Kind::Separator);
    EXPECT_FALSE(driver->Shown(form.mnuGone).visible);
    driver->ScriptNextPopup(&form.mnuHere);
    form.PopupMenu(form.mnuPopup, nullptr);
    EXPECT_EQ(log, (std::vector<std::string>{"here"}));
    driver->ScriptNextPopup(nullptr);
    form.PopupMenu(form.mnuPopup, nullptr);
    EXPECT_EQ(Count(log, "here"), 1);
}

TEST_F(FieldsTest, AnImageTakesDrops) {
    form.Image1.OnOLEDragDrop = [this](const std::vector<std::string>& files) {
        log.insert(log.end(), files.begin(), files.end());
    };
    Open();
    driver->UserDrops(form.Image1, {"/pictures/a b.jpg"});
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"C:/pictures/a b.jpg"}));
}

}  // namespace
}  // namespace tavrix::conformance
