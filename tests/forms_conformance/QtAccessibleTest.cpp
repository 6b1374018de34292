// What a screen reader sees of the buttons that are ticked, and what it can do with them.

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QApplication>

#include "forms_conformance/ConformanceTest.h"
#include "forms_conformance/QtDriver.h"

namespace tavrix::conformance {
namespace {

using namespace forms;
using std::chrono_literals::operator""ms;

class TicksForm : public Form {
  public:
    explicit TicksForm(Application& application) : Form(application, {.name = "TicksForm"}) {
        frame.Caption = "Direction:";
        SetLayout(Column({CmdOk, Check1, Group(frame, {OptionLeft, OptionRight})}));
    }

    CommandButton CmdOk{*this, "CmdOk"};
    CheckBox Check1{*this, "Check1"};
    Frame frame{*this, "frame"};
    OptionGroup Direction;
    OptionButton OptionLeft{frame, "OptionLeft", Direction};
    OptionButton OptionRight{frame, "OptionRight", Direction};
};

class QtAccessibleTest : public ConformanceTest {
  protected:
    QtAccessibleTest() {
        form.Check1.Caption = "&Aspect";
        form.OptionLeft.Caption = "&Left && up";
        form.OptionRight.Caption = "&Right";
        form.Check1.OnClick = [this] { log.emplace_back(form.Check1.Value ? "ticked" : "cleared"); };
        form.OptionLeft.OnClick = [this] { log.emplace_back("left"); };
        form.OptionRight.OnClick = [this] { log.emplace_back("right"); };
        form.OptionLeft.Value = true;
        form.Show();
        form.CmdOk.SetFocus();
        driver->Settle();
        log.clear();
    }

    static QAccessibleInterface& Seen(const Control& control) {
        return *QAccessible::queryAccessibleInterface(&WidgetOf(control));
    }
    /// What a screen reader does with a control unless it is told what.
    void Act(const Control& control) {
        QAccessibleActionInterface& actions = *Seen(control).actionInterface();
        ASSERT_FALSE(actions.actionNames().isEmpty());
        actions.doAction(actions.actionNames().constFirst());
        driver->Settle();
    }

    TicksForm& form = app.Load<TicksForm>();
};

TEST_F(QtAccessibleTest, AnOptionIsARadioButton) {
    EXPECT_EQ(Seen(form.OptionLeft).role(), QAccessible::RadioButton);
    EXPECT_EQ(Seen(form.OptionLeft).text(QAccessible::Name), QStringLiteral("Left & up"));
    EXPECT_EQ(Seen(form.OptionLeft).text(QAccessible::Accelerator), QStringLiteral("Alt+L"));
    EXPECT_TRUE(Seen(form.OptionLeft).state().checkable);
    EXPECT_TRUE(Seen(form.OptionLeft).state().checked);
    EXPECT_FALSE(Seen(form.OptionRight).state().checked);
    EXPECT_TRUE(Seen(form.OptionLeft).state().focusable);
}

TEST_F(QtAccessibleTest, ACheckBoxIsOne) {
    EXPECT_EQ(Seen(form.Check1).role(), QAccessible::CheckBox);
    EXPECT_EQ(Seen(form.Check1).text(QAccessible::Name), QStringLiteral("Aspect"));
    EXPECT_TRUE(Seen(form.Check1).state().checkable);
    EXPECT_FALSE(Seen(form.Check1).state().checked);
    form.Check1.Value = true;
    EXPECT_TRUE(Seen(form.Check1).state().checked);
}

TEST_F(QtAccessibleTest, ANameOfItsOwnStandsForTheCaption) {
    form.OptionLeft.AccessibleName = "Counter-clockwise";
    EXPECT_EQ(Seen(form.OptionLeft).text(QAccessible::Name), QStringLiteral("Counter-clockwise"));
}

TEST_F(QtAccessibleTest, ActingOnAnOptionPicksIt) {
    Act(form.OptionRight);
    EXPECT_EQ(log, (std::vector<std::string>{"right"}));
    EXPECT_TRUE(form.OptionRight.Value);
    EXPECT_FALSE(form.OptionLeft.Value);
    EXPECT_TRUE(Seen(form.OptionRight).state().checked);
    EXPECT_FALSE(Seen(form.OptionLeft).state().checked);
    EXPECT_EQ(form.ActiveControl(), &form.OptionRight);
    Act(form.OptionRight);
    EXPECT_EQ(log, (std::vector<std::string>{"right"}));
    EXPECT_TRUE(Seen(form.OptionRight).state().checked);
}

TEST_F(QtAccessibleTest, ActingOnACheckBoxTicksItAndTakesTheTickAway) {
    Act(form.Check1);
    EXPECT_TRUE(form.Check1.Value);
    EXPECT_EQ(form.ActiveControl(), &form.Check1);
    Act(form.Check1);
    EXPECT_FALSE(form.Check1.Value);
    EXPECT_EQ(log, (std::vector<std::string>{"ticked", "cleared"}));
    EXPECT_FALSE(Seen(form.Check1).state().checked);
}

TEST_F(QtAccessibleTest, ADisabledOneCannotBeActedOn) {
    QAccessibleActionInterface& actions = *Seen(form.OptionRight).actionInterface();
    const QString action = actions.actionNames().constFirst();
    form.OptionRight.Enabled = false;
    EXPECT_EQ(actions.actionNames(), QStringList());
    actions.doAction(action);
    driver->Settle();
    EXPECT_EQ(log, std::vector<std::string>());
    EXPECT_TRUE(form.OptionLeft.Value);
    EXPECT_TRUE(Seen(form.OptionRight).state().disabled);
}

TEST_F(QtAccessibleTest, AnActionIsOverBeforeItsHandlerRuns) {
    // Else a handler that opens a box would hold up the screen reader that has to read it.
    form.OptionRight.OnClick = [this] {
        driver->ScriptNextBox({.expected = {.text = "Right?"}});
        app.MessageBox({.text = "Right?"});
        log.emplace_back("answered");
    };
    QAccessibleActionInterface& actions = *Seen(form.OptionRight).actionInterface();
    actions.doAction(actions.actionNames().constFirst());
    EXPECT_EQ(log, std::vector<std::string>());
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"answered"}));
}

TEST_F(QtAccessibleTest, BoxesThatAreGoneAreForgotten) {
    // Else the next one in the same place of the memory is taken for the one that is gone, and is not seen.
    std::vector<QAccessible::Id> seen;
    const auto look = [&seen] {
        QWidget* box = QApplication::activeModalWidget();
        seen.push_back(QAccessible::uniqueId(QAccessible::queryAccessibleInterface(box)));
    };
    driver->Soon(look);
    driver->ScriptNextBox({.expected = {.text = "Gone"}, .openFor = 50ms});
    app.MessageBox({.text = "Gone"});
    driver->Soon(look);
    driver->ScriptNextInput({.expected = {.prompt = "Gone"}, .reply = std::nullopt});
    app.InputBox({.prompt = "Gone"});
    driver->Settle();
    ASSERT_EQ(seen.size(), 2U);
    for (const QAccessible::Id id : seen)
        EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

}  // namespace
}  // namespace tavrix::conformance
