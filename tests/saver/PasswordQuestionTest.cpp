#include "backends/qt/saver/PasswordQuestion.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "linux/Script.h"

namespace {

// The functions of the system and of the toolkit know of no object that could be handed to them.
constexpr std::size_t All = std::numeric_limits<std::size_t>::max();
std::atomic<std::size_t> mostSent{All};
std::vector<std::string>* warnings = nullptr;

}  // namespace

/// As it is, but on demand a socket takes a part alone.
extern "C" ssize_t send(int socket, const void* from, size_t count, int flags) {
    using Function = ssize_t(int, const void*, size_t, int);
    static auto* const system = reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, "send"));
    return system(socket, from, std::min<std::size_t>(count, mostSent), flags);
}

namespace tavrix {
namespace {

using namespace std::chrono_literals;
using qt::PasswordQuestion;

class PasswordQuestionTest : public testing::Test {
  protected:
    /// Whether a question is answered right by whoever does this once it is open. What the user is told is in `told`.
    bool Ask(const std::function<void(PasswordQuestion&)>& user, PasswordQuestion::Limits limits = Patient) {
        PasswordQuestion question(checker_, limits);
        QTimer::singleShot(0, &question, [&] { user(question); });
        QTimer watch;
        watch.setInterval(1ms);
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            if (Text(question) != told.back()) told.push_back(Text(question));
        });
        told = {Text(question)};
        watch.start();
        QTimer late;
        late.setSingleShot(true);
        QObject::connect(&late, &QTimer::timeout, &late, [&] {
            ADD_FAILURE() << "the question stays";
            question.close();
        });
        late.start(60s);
        const bool right = question.Ask();
        left = Field(question).text().toStdString();
        return right;
    }
    static std::string Text(PasswordQuestion& question) {
        return question.findChild<QLabel*>()->text().toStdString();
    }
    static QLineEdit& Field(PasswordQuestion& question) { return *question.findChild<QLineEdit*>(); }
    static QPushButton& Button(PasswordQuestion& question, QDialogButtonBox::StandardButton kind) {
        return *question.findChild<QDialogButtonBox*>()->button(kind);
    }
    static void Press(QWidget& widget, int key, const QString& text = {}) {
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&widget, &down);
        QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
        QApplication::sendEvent(&widget, &up);
    }
    static void Enter(PasswordQuestion& question, const QString& password) {
        for (const QChar character : password)
            Press(Field(question), 0, QString(character));
        Press(Field(question), Qt::Key_Return);
    }
    void CheckBy(const std::string& lines) { checker_ = PutScript(folder_, "checker", lines); }

    /// Whether a process is gone from the table of processes within some time.
    static bool IsGone(pid_t id) {
        const auto limit = std::chrono::steady_clock::now() + 20s;
        while (::kill(id, 0) == 0) {
            if (std::chrono::steady_clock::now() > limit) return false;
            QApplication::processEvents(QEventLoop::AllEvents, 10);
        }
        return true;
    }
    /// Nothing ends by itself.
    static constexpr PasswordQuestion::Limits Patient{.entry = 1h, .check = 1h, .notice = 1h};

    std::vector<std::string> told;
    std::string left;  ///< what stands in the field at the end
    TestFolder folder_;
    std::string checker_ = PutScript(folder_, "checker", "[ \"$(cat)\" = secret ] || exit 1");
};

constexpr PasswordQuestion::Limits SoonRead{.entry = 1h, .check = 1h, .notice = 20ms};

TEST_F(PasswordQuestionTest, TheRightPasswordIsRight) {
    EXPECT_TRUE(Ask([](auto& question) { Enter(question, "secret"); }));
}

TEST_F(PasswordQuestionTest, AWrongOneIsToldAndAsksNoMore) {
    EXPECT_FALSE(Ask([](auto& question) { Enter(question, "secre"); }, SoonRead));
    EXPECT_EQ(told.back(), "The password is wrong.");
    EXPECT_FALSE(Ask([](auto& question) { Enter(question, ""); }, SoonRead));
    EXPECT_EQ(told.back(), "The password is wrong.");
}

TEST_F(PasswordQuestionTest, WhatIsToldGoesWithOk) {
    EXPECT_FALSE(Ask([](auto& question) {
        auto* watch = new QTimer(&question);
        QObject::connect(watch, &QTimer::timeout, watch, [&question] {
            if (Text(question) != "The password is wrong.") return;
            EXPECT_FALSE(Field(question).isVisible());
            EXPECT_FALSE(Button(question, QDialogButtonBox::Cancel).isVisible());
            Button(question, QDialogButtonBox::Ok).click();
        });
        watch->start(1ms);
        Enter(question, "wrong");
    }));
}

TEST_F(PasswordQuestionTest, TheCheckerGetsExactlyWhatWasEntered) {
    CheckBy("cat > '" + folder_.At("heard") + "'");
    const QString password = QString::fromUtf8(" pä€s \\w'\"$ord ");
    EXPECT_TRUE(Ask([&](auto& question) { Enter(question, password); }));
    EXPECT_EQ(folder_.Content("heard"), password.toStdString());
}

TEST_F(PasswordQuestionTest, ALongPasswordArrivesWhole) {
    CheckBy("cat > '" + folder_.At("heard") + "'");
    const QString password(500, QChar(0x20AC));
    EXPECT_TRUE(Ask([&](auto& question) {
        Field(question).setText(password);
        Press(Field(question), Qt::Key_Return);
    }));
    EXPECT_EQ(folder_.Content("heard"), password.toStdString());
}

TEST_F(PasswordQuestionTest, APartOfAPasswordIsNotChecked) {
    CheckBy("exec cat > /dev/null");  // takes anything for the right one
    mostSent = 6;
    EXPECT_FALSE(Ask([](auto& question) { Enter(question, "secret and more"); }, SoonRead));
    mostSent = All;
    EXPECT_EQ(told.back(), "The password could not be checked.");
}

TEST_F(PasswordQuestionTest, ACheckThatIsOverIsListenedToNoMore) {
    std::vector<std::string> said;
    warnings = &said;
    const QtMessageHandler former =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
            if (text.startsWith(QLatin1String("QSocketNotifier"))) warnings->push_back(text.toStdString());
        });
    EXPECT_FALSE(Ask([](auto& question) { Enter(question, "wrong"); }, SoonRead));
    qInstallMessageHandler(former);
    EXPECT_EQ(told.back(), "The password is wrong.");
    // Of a socket that is closed and still watched the toolkit says so.
    EXPECT_EQ(said, std::vector<std::string>());
}

TEST_F(PasswordQuestionTest, AClosedQuestionIsWrongAndKeepsNothing) {
    const auto typed = [](auto& question) { Field(question).setText("secret"); };
    EXPECT_FALSE(Ask([&](auto& question) {
        typed(question);
        Button(question, QDialogButtonBox::Cancel).click();
    }));
    EXPECT_EQ(left, "");
    EXPECT_FALSE(Ask([&](auto& question) {
        typed(question);
        Press(Field(question), Qt::Key_Escape);
    }));
    EXPECT_EQ(left, "");
    EXPECT_FALSE(Ask([&](auto& question) {
        typed(question);
        question.close();
    }));
    EXPECT_EQ(left, "");
}

TEST_F(PasswordQuestionTest, AQuestionClosedDuringItsCheckIsWrongAndTheCheckEnds) {
    CheckBy("echo $$ > '" + folder_.At("id") + "'; exec sleep 600");
    EXPECT_FALSE(Ask([&](auto& question) {
        auto* watch = new QTimer(&question);
        QObject::connect(watch, &QTimer::timeout, watch, [&] {
            if (!folder_.Content("id").ends_with('\n')) return;
            EXPECT_EQ(Text(question), "Checking the password...");
            EXPECT_FALSE(Field(question).isEnabled());
            EXPECT_FALSE(Button(question, QDialogButtonBox::Ok).isEnabled());
            EXPECT_EQ(Field(question).text(), QString());
            Button(question, QDialogButtonBox::Ok).click();  // not once more
            Button(question, QDialogButtonBox::Cancel).click();
        });
        watch->start(1ms);
        Enter(question, "secret");
    }));
    const auto id = static_cast<pid_t>(std::stoi(folder_.Content("id")));
    EXPECT_TRUE(IsGone(id));
}

TEST_F(PasswordQuestionTest, WhoTypesIsNotCutOff) {
    int typed = 0;
    EXPECT_FALSE(Ask(
        [&](auto& question) {
            auto* keys = new QTimer(&question);
            QObject::connect(keys, &QTimer::timeout, keys, [&question, &typed, keys] {
                Press(Field(question), 0, QStringLiteral("x"));
                if (++typed == 60) keys->stop();
            });
            // However late timers come on a busy machine, this one comes before that of the question.
            keys->start(10ms);
        },
        {.entry = 200ms, .check = 1h, .notice = 1h}));
    EXPECT_EQ(typed, 60);
}

TEST_F(PasswordQuestionTest, ACheckThatSaysNothingMoreAndDoesNotEndFailsAndIsEnded) {
    CheckBy("echo $$ > '" + folder_.At("id") + "'; exec < /dev/null > /dev/null; exec sleep 600");
    EXPECT_FALSE(Ask([](auto& question) { Enter(question, "secret"); }, SoonRead));
    EXPECT_EQ(told.back(), "The password could not be checked.");
    EXPECT_TRUE(IsGone(static_cast<pid_t>(std::stoi(folder_.Content("id")))));
}

TEST_F(PasswordQuestionTest, ItClosesItselfAsWrong) {
    EXPECT_FALSE(Ask([](auto& question) { Field(question).setText("secret"); },
                     {.entry = 30ms, .check = 1h, .notice = 1h}));
    EXPECT_EQ(PasswordQuestion::Limits().entry, 30s);
    EXPECT_EQ(left, "");
}

TEST_F(PasswordQuestionTest, ACheckThatTakesTooLongIsWrong) {
    CheckBy("exec sleep 600");
    EXPECT_FALSE(
        Ask([](auto& question) { Enter(question, "secret"); }, {.entry = 1h, .check = 30ms, .notice = 1h}));
}

TEST_F(PasswordQuestionTest, ACheckThatFailsIsWrong) {
    // It has heard the password by then; that it has not is another failure.
    for (const char* way : {"exit 2", "kill -9 $$", "echo 0; exit 3", "echo; exit 127"}) {
        CheckBy("cat > /dev/null; " + std::string(way));
        EXPECT_FALSE(Ask([](auto& question) { Enter(question, "secret"); }, SoonRead)) << way;
        EXPECT_EQ(told.back(), "The password could not be checked.") << way;
    }
    CheckBy("exit 2");
    EXPECT_FALSE(Ask([](auto& question) { Enter(question, "secret"); }, SoonRead));
    EXPECT_EQ(told.back(), "The password could not be checked.");
    checker_ = folder_.At("none");
    EXPECT_FALSE(Ask([](auto& question) { Enter(question, "secret"); }, SoonRead));
    EXPECT_EQ(told.back(), "The password could not be checked.");
}

TEST_F(PasswordQuestionTest, TheWindowStaysAliveDuringTheCheck) {
    CheckBy("cat > /dev/null; while [ ! -e '" + folder_.At("go") + "' ]; do sleep 0.01; done");
    int turns = 0;
    EXPECT_TRUE(Ask([&](auto& question) {
        auto* watch = new QTimer(&question);
        QObject::connect(watch, &QTimer::timeout, watch, [&] {
            if (++turns == 20) folder_.Put("go", "");
        });
        watch->start(1ms);
        Enter(question, "secret");
    }));
    EXPECT_GE(turns, 20);
}

TEST_F(PasswordQuestionTest, TheFieldShowsNothingAndGivesNothingAway) {
    EXPECT_FALSE(Ask([](auto& question) {
        QLineEdit& field = Field(question);
        field.setText("secret");
        EXPECT_EQ(field.echoMode(), QLineEdit::Password);
        EXPECT_EQ(field.contextMenuPolicy(), Qt::NoContextMenu);
        EXPECT_FALSE(field.dragEnabled());
        EXPECT_FALSE(field.acceptDrops());
        EXPECT_LE(field.maxLength(), 500);
        EXPECT_EQ(question.template findChild<QLabel*>()->textFormat(), Qt::PlainText);
        EXPECT_FALSE(field.displayText().contains("secret"));
        question.close();
    }));
}

}  // namespace
}  // namespace tavrix
