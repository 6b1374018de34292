// What only a window system has of fields and lists: keys that move, the wheel, mnemonics, layouts.

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include "backends/qt/peers/QtList.h"
#include "forms_conformance/FieldsForm.h"
#include "forms_conformance/QtDriver.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

class QtFieldsTest : public FieldsFormTest {
  protected:
    QtFieldsTest() {
        for (int i = 0; i < 100; ++i)
            platform.disks.PutFile("C:\\Many\\" + std::to_string(100 + i) + ".bmp", "");
        form.File1.OnClick = [this] { log.push_back("row " + std::to_string(form.File1.ListIndex)); };
        form.File1.Path = "C:\\Many";
        form.CmdOk.Default = true;
        form.CmdOk.Cancel = true;
        form.CmdOk.OnClick = [this] { log.emplace_back("ok"); };
    }
    void Key(int keyCode, int shift = ShiftMask::None) {
        driver->UserKey(form, keyCode, shift);
        driver->Settle();
    }
    void TurnWheel(QWidget& widget, int angle) {
        const QPoint place = widget.mapTo(widget.window(), widget.rect().center());
        QWheelEvent wheel(place, widget.mapToGlobal(widget.rect().center()), QPoint(), QPoint(0, angle),
                          Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(widget.window()->windowHandle(), &wheel);
        driver->Settle();
    }
    qt::ListWidget& View() { return dynamic_cast<qt::ListWidget&>(WidgetOf(form.File1)); }
};

TEST_F(QtFieldsTest, KeysMoveTheCurrentRow) {
    Open();
    driver->UserFocuses(form.File1);
    driver->Settle();
    EXPECT_EQ(form.File1.ListIndex, -1);
    EXPECT_EQ(driver->ShownCurrent(form.File1), -1);
    Key(KeyCode::Down);
    Key(KeyCode::Down);
    Key(KeyCode::End);
    Key(KeyCode::End);
    Key(KeyCode::Home);
    EXPECT_EQ(log, (std::vector<std::string>{"row 0", "row 1", "row 99", "row 0"}));
    log.clear();
    Key(KeyCode::PageDown);
    ASSERT_EQ(log.size(), 1U);
    EXPECT_GT(form.File1.ListIndex, 3);
    log.clear();
    for (const char c : {'1', '5', '2'})
        QTest::keyClick(WidgetOf(form).windowHandle(), c);
    driver->Settle();
    EXPECT_EQ(log.back(), "row 52");
    EXPECT_EQ(driver->ShownCurrent(form.File1), 52);
}

TEST_F(QtFieldsTest, CtrlDoesNotTakeTheHighlightAway) {
    Open();
    driver->UserChoosesRow(form.File1, 2);
    Key(KeyCode::Space, ShiftMask::Ctrl);
    EXPECT_EQ(driver->ShownCurrent(form.File1), 2);
    Key(KeyCode::Down, ShiftMask::Ctrl);
    EXPECT_EQ(driver->ShownCurrent(form.File1), form.File1.ListIndex);
}

TEST_F(QtFieldsTest, EnterAndEscapeInAFieldAreTheWindows) {
    Open();
    for (Control* control :
         std::initializer_list<Control*>{&form.Text1, &form.Check1, &form.File1, &form.Drive1}) {
        driver->UserFocuses(*control);
        log.clear();
        Key(KeyCode::Return);
        EXPECT_EQ(log, (std::vector<std::string>{"ok"})) << control->Name();
        Key(KeyCode::Escape);
        EXPECT_EQ(log, (std::vector<std::string>{"ok", "ok"})) << control->Name();
    }
}

TEST_F(QtFieldsTest, ThePressBelowTheLastRowChangesNothing) {
    form.File1.Pattern = "100*";
    Open();
    driver->UserChoosesRow(form.File1, 0);
    driver->Settle();
    log.clear();
    const QPoint below =
        View().viewport()->mapTo(View().window(), QPoint(10, View().viewport()->height() - 5));
    QTest::mouseClick(View().window()->windowHandle(), Qt::LeftButton, {}, below);
    driver->Settle();
    EXPECT_EQ(log, std::vector<std::string>{});
    EXPECT_EQ(driver->ShownCurrent(form.File1), 0);
}

TEST_F(QtFieldsTest, TheCurrentRowIsScrolledIntoViewAndNewRowsStartAtTheTop) {
    Open();
    form.File1.ListIndex = 90;
    driver->Settle();
    EXPECT_TRUE(View().viewport()->rect().contains(View().PlaceOfRow(90)));
    EXPECT_GT(View().verticalScrollBar()->value(), 0);
    form.File1.Refresh();
    driver->Settle();
    EXPECT_EQ(View().verticalScrollBar()->value(), 0);
    EXPECT_EQ(driver->ShownCurrent(form.File1), -1);
}

TEST_F(QtFieldsTest, TheWheelScrollsTheListUnderThePointer) {
    Open();
    TurnWheel(*View().viewport(), -120);
    EXPECT_GT(View().verticalScrollBar()->value(), 0);
    EXPECT_EQ(log, std::vector<std::string>{});
    EXPECT_EQ(form.Bar1.Value, 0);
    TurnWheel(WidgetOf(form.Text2), -120);
    TurnWheel(WidgetOf(form.Drive1), -120);
    EXPECT_EQ(form.Bar1.Value, 0);
    TurnWheel(WidgetOf(form.CmdOk), -120);
    EXPECT_EQ(form.Bar1.Value, 3);
}

TEST_F(QtFieldsTest, TheWheelLeavesADropDownListAloneThatHasNoFocus) {
    form.Drive1.OnChange = [this] { log.emplace_back("drive"); };
    Open();
    form.Text1.SetFocus();
    TurnWheel(WidgetOf(form.Drive1), 120);
    EXPECT_EQ(form.Drive1.Drive, "C:");
    EXPECT_EQ(driver->ShownCurrent(form.Drive1), 1);
    EXPECT_EQ(form.ActiveControl(), &form.Text1);
    driver->UserFocuses(form.Drive1);
    TurnWheel(WidgetOf(form.Drive1), 120);
    EXPECT_EQ(form.Drive1.Drive, "A:");
    Key(KeyCode::Down);
    EXPECT_EQ(form.Drive1.Drive, "C:");
    EXPECT_EQ(Count(log, "drive"), 2);
}

TEST_F(QtFieldsTest, TheLabelNamesItsBuddyAndGivesItTheFocus) {
    form.lblText.Caption = "&Width & Height:";
    Open();
    EXPECT_EQ(driver->ShownText(form.lblText), "&Width & Height:");
    EXPECT_EQ(driver->ShownName(form.Text1), "Width  Height:");
    form.lblText.Caption = "&Width:";
    EXPECT_EQ(driver->ShownName(form.Text1), "Width:");
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&WidgetOf(form.Text1));
    EXPECT_EQ(seen->text(QAccessible::Name), QStringLiteral("Width:"));
    form.CmdOk.SetFocus();
    Key('W', ShiftMask::Alt);
    EXPECT_TRUE(WidgetOf(form.Text1).hasFocus());
    EXPECT_EQ(form.ActiveControl(), &form.Text1);
}

TEST_F(QtFieldsTest, ANameOfItsOwnStays) {
    form.lblText.Caption = "&Width:";
    form.Text1.AccessibleName = "Width in pixels";
    Open();
    EXPECT_EQ(driver->ShownName(form.Text1), "Width in pixels");
    form.lblText.Caption = "&Height:";
    EXPECT_EQ(driver->ShownName(form.Text1), "Width in pixels");
}

TEST_F(QtFieldsTest, TheMnemonicOfACheckBoxTicksAndGivesTheFocus) {
    form.Check1.Caption = "A&spect";
    form.Check1.OnClick = [this] { log.emplace_back("tick"); };
    Open();
    form.CmdOk.SetFocus();
    Key('S', ShiftMask::Alt);
    EXPECT_EQ(log, (std::vector<std::string>{"tick"}));
    EXPECT_EQ(form.ActiveControl(), &form.Check1);
}

TEST_F(QtFieldsTest, BackspaceIsATypedCharacterAndShortcutsAreNot) {
    form.Text1.Text = "abc";
    form.Text1.OnKeyPress = [this](std::string& character) {
        log.push_back("press " + character);
        character.clear();
    };
    Open();
    form.Text1.SetFocus();
    Key(KeyCode::End);
    Key(KeyCode::Back);
    EXPECT_EQ(log, (std::vector<std::string>{"press \b"}));
    EXPECT_EQ(form.Text1.Text, "abc");
    form.Text1.OnKeyPress = [](std::string&) {};
    Key(KeyCode::Back);
    EXPECT_EQ(form.Text1.Text, "ab");
    form.Text1.OnKeyPress = [this](std::string& character) { log.push_back("press " + character); };
    log.clear();
    for (const int key : {int{'A'}, int{'C'}, int{'X'}, int{'V'}})
        Key(key, ShiftMask::Ctrl);
    Key(KeyCode::Delete);
    Key(KeyCode::Return);
    Key(KeyCode::Tab);
    EXPECT_EQ(log, (std::vector<std::string>{"ok"}));
    EXPECT_EQ(form.Text1.Text, "ab");
}

TEST_F(QtFieldsTest, TheFirstControlOfAWindowHasTheFocus) {
    form.Text1.OnKeyUp = [this](int code, int) { log.push_back("up " + std::to_string(code)); };
    Open();
    EXPECT_EQ(form.ActiveControl(), &form.Text1);
    Key(KeyCode::End);
    EXPECT_EQ(log, (std::vector<std::string>{"up 35"}));
    Key(KeyCode::Tab);
    EXPECT_EQ(form.ActiveControl(), &form.Text2);
}

TEST_F(QtFieldsTest, TheMenuKeyIsARightPressOfAButton) {
    form.CmdOk.OnMouseDown = [this](const MouseArguments& mouse) {
        log.push_back("down " + std::to_string(mouse.button));
    };
    form.CmdOk.OnMouseUp = [this](const MouseArguments& mouse) {
        log.push_back("up " + std::to_string(mouse.button));
    };
    Open();
    form.CmdOk.SetFocus();
    QTest::keyClick(WidgetOf(form).windowHandle(), Qt::Key_Menu);
    EXPECT_EQ(log, (std::vector<std::string>{"down 2", "up 2"}));
    QTest::keyClick(WidgetOf(form).windowHandle(), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(log.size(), 4U);
}

TEST_F(QtFieldsTest, AScreenReaderChoosesARow) {
    Open();
    QAccessible::queryAccessibleInterface(&View())->tableInterface()->selectRow(7);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"row 7"}));
    EXPECT_EQ(driver->ShownCurrent(form.File1), 7);
}

/// Very many rows, and how many of them were asked for.
class ManyRows final : public ListControl {
  public:
    ManyRows(Container& container, std::string name) : ListControl(container, std::move(name)) {}
    void Renew() { RowsReset(-1); }
    mutable int asked = 0;

  private:
    [[nodiscard]] int RowCount() const override { return 200'000; }
    [[nodiscard]] ListRow Row(int row) const override {
        ++asked;
        return {"Row " + std::to_string(row)};
    }
};

class ManyRowsForm : public Form {
  public:
    explicit ManyRowsForm(Application& application) : Form(application, {.name = "ManyRowsForm"}) {}
    ManyRows list{*this, "list"};
    void Form_Load() override {
        Move(0, 0, 6000, 6000);
        list.Move(0, 0, 3000, 4500);
    }
};

TEST_F(QtFieldsTest, ManyRowsCostNothing) {
    auto& many = app.Load<ManyRowsForm>();
    QElapsedTimer clock;
    clock.start();
    many.Show();
    driver->Settle();
    const auto shown = clock.restart();
    many.list.ListIndex = 199'999;
    driver->Settle();
    many.list.Renew();
    driver->Settle();
    RecordProperty("show_ms", static_cast<int>(shown));
    RecordProperty("move_and_renew_ms", static_cast<int>(clock.elapsed()));
    EXPECT_LT(many.list.asked, 2000);
}

TEST_F(QtFieldsTest, NewRowsOfADropDownListLeaveNoneCurrent) {
    class DropDown final : public RowControl {
      public:
        explicit DropDown(Container& container) : RowControl(container, "drop", Look::DropDown) {}
        void Renew() { RowsReset(-1); }

      private:
        [[nodiscard]] int RowCount() const override { return 3; }
        [[nodiscard]] ListRow Row(int row) const override { return {std::to_string(row)}; }
    };
    class DropDownForm : public Form {
      public:
        explicit DropDownForm(Application& application) : Form(application, {.name = "DropDownForm"}) {}
        DropDown drop{*this};
    };
    auto& other = app.Load<DropDownForm>();
    other.drop.OnClick = [this] { log.emplace_back("drop"); };
    other.Show();
    driver->Settle();
    EXPECT_EQ(driver->ShownCurrent(other.drop), -1);
    other.drop.ListIndex = 2;
    EXPECT_EQ(driver->ShownCurrent(other.drop), 2);
    other.drop.Renew();
    EXPECT_EQ(driver->ShownCurrent(other.drop), -1);
    driver->Settle();
    EXPECT_EQ(Count(log, "drop"), 1);
}

class LayoutForm : public Form {
  public:
    explicit LayoutForm(Application& application) : Form(application, {.name = "LayoutForm"}) {
        picture.Move(0, 0, 1500, 750);
        inside.Move(300, 150, 600, 300);
        name.Caption = "&Name:";
        name.SetBuddy(field);
        options.Caption = "Options";
        SetLayout(
            Column({Grid(2, {name, field, hint, field2}), Group(options, {check, AtLeast(4500, 3000, list)}),
                    picture, Row({Growing(left, 2), Growing(right)})}));
    }
    Label name{*this, "name"};
    TextBox field{*this, "field"};
    Label hint{*this, "hint"};
    TextBox field2{*this, "field2"};
    Frame options{*this, "options"};
    CheckBox check{options, "check"};
    ManyRows list{options, "list"};
    PictureBox picture{*this, "picture"};
    Image inside{picture, "inside"};
    CommandButton left{*this, "left"};
    CommandButton right{*this, "right"};
};

TEST_F(QtFieldsTest, LayoutsHaveGridsFramesSizesAndShares) {
    auto& dialog = app.Load<LayoutForm>();
    dialog.Show();
    driver->Settle();
    const auto place = [](const Control& control) {
        QWidget& widget = WidgetOf(control);
        return QRect(widget.mapTo(widget.window(), QPoint(0, 0)), widget.size());
    };
    EXPECT_EQ(place(dialog.field).left(), place(dialog.field2).left());
    EXPECT_LT(place(dialog.name).left(), place(dialog.field).left());
    EXPECT_GE(WidgetOf(dialog.list).width(), 300);
    EXPECT_GE(WidgetOf(dialog.list).height(), 200);
    EXPECT_LT(WidgetOf(dialog.list).height(), 260);
    auto* group = qobject_cast<QGroupBox*>(WidgetOf(dialog.check).parentWidget());
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->title(), QStringLiteral("Options"));
    EXPECT_EQ(WidgetOf(dialog.list).parentWidget(), group);
    EXPECT_TRUE(driver->ShownVisible(dialog.check));
    EXPECT_EQ(place(dialog.picture).size(), QSize(100, 50));
    EXPECT_EQ(WidgetOf(dialog.inside).geometry(), QRect(20, 10, 40, 20));
    EXPECT_NEAR(place(dialog.left).width(), 2 * place(dialog.right).width(), 3);
    EXPECT_EQ(driver->ShownName(dialog.field), "Name:");
}

TEST_F(QtFieldsTest, TabGoesThroughALayoutInTheOrderOfTheControls) {
    auto& dialog = app.Load<LayoutForm>();
    dialog.Show();
    driver->Settle();
    const std::initializer_list<Control*> order{&dialog.field, &dialog.field2, &dialog.check,
                                                &dialog.list,  &dialog.left,   &dialog.right};
    for (Control* control : order) {
        EXPECT_EQ(dialog.ActiveControl(), control) << control->Name();
        driver->UserKey(dialog, KeyCode::Tab, ShiftMask::None);
        driver->Settle();
    }
    EXPECT_EQ(dialog.ActiveControl(), &dialog.field);
}

class FrameFirstForm : public Form {
  public:
    explicit FrameFirstForm(Application& application) : Form(application, {.name = "FrameFirstForm"}) {
        SetLayout(Row({Column({Group(one, {label, field}), Group(two, {hint, check})}), button}));
    }
    Frame one{*this, "one"};
    Label label{one, "label"};
    TextBox field{one, "field"};
    Frame two{*this, "two"};
    Label hint{two, "hint"};
    CheckBox check{two, "check"};
    CommandButton button{*this, "button"};
};

TEST_F(QtFieldsTest, TabBeginsInTheFirstFrame) {
    auto& dialog = app.Load<FrameFirstForm>();
    dialog.Show();
    driver->Settle();
    for (Control* control : std::initializer_list<Control*>{&dialog.field, &dialog.check, &dialog.button}) {
        EXPECT_EQ(dialog.ActiveControl(), control) << control->Name();
        driver->UserKey(dialog, KeyCode::Tab, ShiftMask::None);
        driver->Settle();
    }
}

class PathForm : public Form {
  public:
    explicit PathForm(Application& application) : Form(application, {.name = "PathForm"}) {
        path.Literal = true;
        SetLayout(Row({title, Growing(AtLeast(3000, 0, path))}));
    }
    Label title{*this, "title"};
    Label path{*this, "path"};
};

TEST_F(QtFieldsTest, ALabelWithALeastWidthDoesNotWidenTheWindow) {
    const std::string end = "\\the end";
    const auto shownWith = [&](const std::string& path) {
        auto& dialog = app.Load<PathForm>();
        dialog.title.Caption = "Path:";
        dialog.path.Caption = path;
        dialog.Show();
        driver->Settle();
        QWidget& label = WidgetOf(dialog.path);
        EXPECT_GE(label.width(), 200);
        EXPECT_GE(label.height(), label.fontMetrics().height());
        std::pair<int, QImage> shown(label.window()->width(), label.grab().toImage());
        app.Unload(dialog);
        return shown;
    };
    const auto [shortWidth, shortImage] = shownWith("C:\\a");
    const auto [longWidth, longImage] = shownWith("C:\\" + std::string(300, 'm') + end);
    EXPECT_EQ(longWidth, shortWidth);
    // The text is cut in its middle: what lies there does not show, its end does.
    const auto [sameWidth, sameImage] = shownWith("C:\\" + std::string(299, 'm') + "i" + end);
    const auto [otherWidth, otherImage] = shownWith("C:\\" + std::string(300, 'm') + "\\the eni");
    const auto [middleWidth, middleImage] =
        shownWith("C:\\" + std::string(150, 'm') + "iii" + std::string(147, 'm') + end);
    EXPECT_NE(longImage, otherImage);
    EXPECT_EQ(longImage, middleImage);
    EXPECT_NE(longImage, sameImage);
}

}  // namespace
}  // namespace tavrix::conformance
