// What a held key repeats, and presses that come late.

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QTest>
#include <QWindow>
#include <algorithm>
#include <string>

#include "forms_conformance/ConformanceTest.h"
#include "forms_conformance/QtDriver.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

/// A key of the keyboard.
struct Key {
    int gives = 0;
    quint32 place = 0;  ///< 0: nothing tells
    quint64 time = 0;   ///< milliseconds; 0: nothing tells
    QEvent::Type type = QEvent::KeyPress;
    bool repeated = false;
};

constexpr Key Escape{.gives = Qt::Key_Escape, .place = 9};

class QtHeldKeysTest : public ConformanceTest {
  protected:
    TestForm& Show(const std::string& name = "TestForm") {
        auto& form = app.Load<TestForm>(log, name);
        form.KeyPreview = true;
        form.Show();
        driver->Settle();
        log.clear();
        return form;
    }
    static void Send(Form& to, const Key& key) {
        QKeyEvent event(key.type, key.gives, Qt::NoModifier, key.place, 0, 0, {}, key.repeated);
        event.setTimestamp(key.time);
        QCoreApplication::sendEvent(WidgetOf(to).windowHandle(), &event);
    }
    static void Press(Form& to, Key key) { Send(to, key); }
    static void Repeat(Form& to, Key key) {
        key.repeated = true;
        Send(to, key);
    }
    /// How often the form heard of a key, whatever else the toolkit takes for held.
    [[nodiscard]] auto Heard(int keyCode) const {
        const std::string start = "TestForm key " + std::to_string(keyCode) + "/";
        return std::ranges::count_if(log, [&](const std::string& line) { return line.starts_with(start); });
    }
    static void OpenMenu(Form& form) {
        QTest::keyClick(WidgetOf(form).windowHandle(), Qt::Key_F, Qt::AltModifier);
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    }
};

TEST_F(QtHeldKeysTest, ARepeatDoesNothingWhereItsPressDidNotBegin) {
    auto& form = Show();
    auto& other = Show("Other");
    Press(form, Escape);
    Repeat(form, Escape);
    EXPECT_EQ(Count(log, "TestForm key 27/0"), 2) << "a held key repeats where it is";
    Repeat(other, Escape);
    Repeat(other, Escape);
    EXPECT_EQ(Count(log, "Other key 27/0"), 0);
    Press(other, Escape);
    Repeat(other, Escape);
    EXPECT_EQ(Count(log, "Other key 27/0"), 2);
}

TEST_F(QtHeldKeysTest, KeysAreToldByTheirPlacesOnTheKeyboard) {
    auto& form = Show();
    auto& other = Show("Other");
    Press(form, {.gives = Qt::Key_A, .place = 38});
    Press(other, {.gives = Qt::Key_A, .place = 24});
    Repeat(form, {.gives = Qt::Key_A, .place = 38});
    Repeat(other, {.gives = Qt::Key_A, .place = 38});
    EXPECT_EQ(Count(log, "TestForm key 65/0"), 2);
    EXPECT_EQ(Count(log, "Other key 65/0"), 1);
}

TEST_F(QtHeldKeysTest, WithoutPlacesTheyAreToldByWhatTheyGive) {
    auto& form = Show();
    auto& other = Show("Other");
    Press(other, {.gives = Qt::Key_A});
    Press(form, {.gives = Qt::Key_B});
    Repeat(other, {.gives = Qt::Key_A});
    Repeat(other, {.gives = Qt::Key_B});
    EXPECT_EQ(Count(log, "Other key 65/0"), 2);
    EXPECT_EQ(Count(log, "Other key 66/0"), 0);
}

TEST_F(QtHeldKeysTest, ARepeatDoesNothingInAWindowThatCameInPlaceOfAnother) {
    auto& form = Show();
    auto& gone = Show("Gone");
    Press(gone, Escape);
    app.Unload(gone);
    driver->Settle();
    log.clear();
    Repeat(form, Escape);
    EXPECT_EQ(Heard(KeyCode::Escape), 0);
}

TEST_F(QtHeldKeysTest, APressThatClosedAPopupDoesNothingBelowIt) {
    auto& form = Show();
    driver->Soon([&] {
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        Press(form, Escape);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        Repeat(form, Escape);
        Repeat(form, Escape);
    });
    form.PopupMenu(form.mnuFile, nullptr);
    Repeat(form, Escape);
    EXPECT_EQ(Heard(KeyCode::Escape), 0);
    Press(form, Escape);
    EXPECT_EQ(Heard(KeyCode::Escape), 1);
}

TEST_F(QtHeldKeysTest, OneThatLeftTheMenuBarDoesNothingBelowIt) {
    auto& form = Show();
    form.button.SetFocus();
    OpenMenu(form);
    Press(form, Escape);
    ASSERT_EQ(QApplication::activePopupWidget(), nullptr);
    ASSERT_NE(qobject_cast<QMenuBar*>(QApplication::focusWidget()), nullptr)
        << "the bar has the keyboard now";
    Press(form, Escape);
    ASSERT_EQ(qobject_cast<QMenuBar*>(QApplication::focusWidget()), nullptr);
    log.clear();
    Repeat(form, Escape);
    EXPECT_EQ(Heard(KeyCode::Escape), 0);
    Press(form, Escape);
    EXPECT_EQ(Heard(KeyCode::Escape), 1);
}

TEST_F(QtHeldKeysTest, MenusAreOnePlaceWhicheverIsOpen) {
    auto& form = Show();
    OpenMenu(form);
    const QWidget* first = QApplication::activePopupWidget();
    for (int rows = 0; rows < 2; ++rows)
        Press(form, {.gives = Qt::Key_Down, .place = 116});
    Repeat(form, {.gives = Qt::Key_Down, .place = 116});
    EXPECT_EQ(QApplication::activePopupWidget(), first);
    Press(form, {.gives = Qt::Key_Right, .place = 114});
    for (int i = 0; i < 2; ++i)
        Press(form, Escape);
    driver->Settle();
    EXPECT_EQ(Heard(KeyCode::Down), 0);
}

TEST_F(QtHeldKeysTest, APressIsSeenTwiceAndDecidedOnce) {
    auto& form = Show();
    auto& other = Show("Other");
    Key press = Escape;
    press.time = 5;
    press.type = QEvent::ShortcutOverride;
    Send(form, press);
    press.type = QEvent::KeyPress;
    press.repeated = true;  // the toolkit takes the second for a repeat
    Send(form, press);
    EXPECT_EQ(Heard(KeyCode::Escape), 1);
    press.time = 6;
    press.type = QEvent::ShortcutOverride;
    Send(other, press);
    press.type = QEvent::KeyPress;
    press.repeated = false;
    Send(other, press);
    EXPECT_EQ(Count(log, "Other key 27/0"), 0) << "the repeat of a key that went down elsewhere";
    press.time = 7;
    Send(other, press);
    EXPECT_EQ(Count(log, "Other key 27/0"), 1) << "the next press is another one";
}

TEST_F(QtHeldKeysTest, APressThatWasHeldUpUntilAMenuWasOpenDoesNotReachIt) {
    auto& form = Show();
    Key alt{.gives = Qt::Key_Alt, .place = 64, .time = 5, .type = QEvent::ShortcutOverride};
    Send(form, alt);
    OpenMenu(form);
    alt.type = QEvent::KeyPress;
    Send(form, alt);
    driver->Settle();
    EXPECT_NE(QApplication::activePopupWidget(), nullptr);
    alt.time = 6;
    Send(form, alt);
    driver->Settle();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

}  // namespace
}  // namespace tavrix::conformance
