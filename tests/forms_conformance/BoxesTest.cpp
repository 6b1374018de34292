#include <algorithm>

#include "base/Text.h"
#include "forms_conformance/ConformanceTest.h"
#include "platform/forms/BoxText.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

class BoxesTest : public ConformanceTest {
  protected:
    Answer Ask(const BoxRequest& request, Answer reply, bool byEscape = false) {
        driver->ScriptNextBox({.expected = request, .reply = reply, .byEscape = byEscape});
        return app.MessageBox(request);
    }
};

TEST_F(BoxesTest, EveryButtonGivesItsAnswer) {
    const std::vector<std::pair<BoxButtons, std::vector<Answer>>> sets{
        {BoxButtons::Ok, {Answer::Ok}},
        {BoxButtons::OkCancel, {Answer::Ok, Answer::Cancel}},
        {BoxButtons::YesNo, {Answer::Yes, Answer::No}},
        {BoxButtons::YesNoCancel, {Answer::Yes, Answer::No, Answer::Cancel}},
        {BoxButtons::RetryCancel, {Answer::Retry, Answer::Cancel}}};
    for (const auto& [buttons, answers] : sets) {
        for (const Answer answer : answers) {
            EXPECT_EQ(Ask({.text = "Question?", .icon = BoxIcon::Question, .buttons = buttons}, answer),
                      answer);
        }
    }
}

TEST_F(BoxesTest, EscapeGivesTheAnswerOfTheSet) {
    for (const BoxButtons buttons : {BoxButtons::Ok, BoxButtons::OkCancel, BoxButtons::YesNo,
                                     BoxButtons::YesNoCancel, BoxButtons::RetryCancel}) {
        EXPECT_EQ(Ask({.text = "Question?", .buttons = buttons}, EscapeAnswer(buttons), true),
                  EscapeAnswer(buttons));
    }
}

TEST_F(BoxesTest, TextAndTitleAreShownAsTheyAre) {
    EXPECT_EQ(Ask({.text = "C:\\a & b\r\n\r\n<b>90\u00B0</b>",
                   .title = "Tavrix - [A & B]",
                   .icon = BoxIcon::Stop,
                   .systemModal = true},
                  Answer::Ok),
              Answer::Ok);
}

TEST_F(BoxesTest, ATextThatAFileMadeLongIsShortened) {
    const std::string told = "Unable to find the file:\r\n\r\n";
    const auto shown = [&](const std::string& brought, const std::string& expected) {
        driver->ScriptNextBox({.expected = {.text = told + expected}, .reply = Answer::Ok});
        EXPECT_EQ(app.MessageBox({.text = told + brought}), Answer::Ok);
    };
    const std::string path = "C:\\" + std::string(256, 'p');
    shown(path, path);
    const std::string sentence(30, 'w');
    shown(sentence + " " + sentence, sentence + " " + sentence);
    shown("C:\\" + std::string(397, 'p'), "C:\\" + std::string(146, 'p') + "..." + std::string(148, 'p'));
    for (const char* piece : {"C:\\p\\", "ab cd ", "\u00e4 ", "\n", "line\r\n", " "}) {
        std::string endless;
        while (endless.size() < 1'000'000)
            endless += piece;
        const std::string fitting = FittingInABox(told + endless);
        EXPECT_LE(CharacterCount(fitting), 4000U) << piece;
        EXPECT_LE(std::ranges::count(fitting, '\n'), 41) << piece;
        EXPECT_TRUE(fitting.starts_with(told)) << piece;
    }
}

TEST_F(BoxesTest, HelpDoesNotCloseTheBox) {
    int helped = 0;
    app.OnHelp = [&](const BoxRequest& request) {
        ++helped;
        EXPECT_EQ(request.helpContext, 410U);
    };
    const BoxRequest request{
        .text = "Help?", .buttons = BoxButtons::YesNoCancel, .help = true, .helpContext = 410};
    driver->ScriptNextBox({.expected = request, .reply = Answer::No, .pressHelp = true});
    EXPECT_EQ(app.MessageBox(request), Answer::No);
    EXPECT_EQ(helped, 1);
}

TEST_F(BoxesTest, ABoxFromAHandlerBlocksUntilAnswered) {
    auto& form = app.Load<TestForm>(log);
    form.Show();
    driver->Settle();
    form.button.OnClick = [&] {
        log.emplace_back("before");
        if (Ask({.text = "Sure?", .buttons = BoxButtons::YesNo}, Answer::Yes) == Answer::Yes) {
            log.emplace_back("yes");
        }
    };
    driver->UserClicks(form.button);
    driver->Settle();
    EXPECT_EQ(Count(log, "before"), 1);
    EXPECT_EQ(Count(log, "yes"), 1);
}

TEST_F(BoxesTest, ABoxLeavesTheScreenPointerAlone) {
    app.Screen().MousePointer = MousePointer::Hourglass;
    Ask({.text = "Busy"}, Answer::Ok);
    EXPECT_EQ(app.Screen().MousePointer, MousePointer::Hourglass);
    app.Screen().MousePointer = MousePointer::Default;
}

TEST_F(BoxesTest, AnInputBoxGivesTheTextThatWasEntered) {
    const InputRequest request{"Enter the name of the new folder:\r\n(A & B)", "Tavrix - [Rename Image]",
                               "New Folder"};
    driver->ScriptNextInput({.expected = request, .reply = "My Pictures"});
    EXPECT_EQ(app.InputBox(request), "My Pictures");
}

TEST_F(BoxesTest, AnEmptyAnswerIsNotCancel) {
    const InputRequest request{.prompt = "Name?", .text = "old"};
    driver->ScriptNextInput({.expected = request, .reply = ""});
    EXPECT_EQ(app.InputBox(request), "");
    driver->ScriptNextInput({.expected = request, .reply = std::nullopt});
    EXPECT_EQ(app.InputBox(request), std::nullopt);
    driver->ScriptNextInput({.expected = request, .reply = std::nullopt, .byEscape = true});
    EXPECT_EQ(app.InputBox(request), std::nullopt);
}

TEST_F(BoxesTest, AnInputBoxLeavesTheScreenPointerAlone) {
    app.Screen().MousePointer = MousePointer::Hourglass;
    driver->ScriptNextInput({.expected = {.prompt = "Busy"}, .reply = "x"});
    EXPECT_EQ(app.InputBox({.prompt = "Busy"}), "x");
    EXPECT_EQ(app.Screen().MousePointer, MousePointer::Hourglass);
    app.Screen().MousePointer = MousePointer::Default;
}

TEST_F(BoxesTest, WhatOpensIsCountedButForAPleaToWait) {
    class WaitForm final : public Form {
      public:
        explicit WaitForm(Application& application)
            : Form(application, {.name = "WaitForm", .waitWindow = true}) {}
    };
    EXPECT_EQ(app.Opened(), 0);
    Ask({.text = "Question?"}, Answer::Ok);
    EXPECT_EQ(app.Opened(), 1);
    driver->ScriptNextInput({.expected = {.prompt = "Name?"}, .reply = "x"});
    app.InputBox({.prompt = "Name?"});
    EXPECT_EQ(app.Opened(), 2);
    auto& form = app.Load<TestForm>(log);
    EXPECT_EQ(app.Opened(), 2);
    form.Show();
    form.Show();
    EXPECT_EQ(app.Opened(), 3);
    form.Hide();
    form.Show();
    EXPECT_EQ(app.Opened(), 4);
    app.Load<WaitForm>().Show();
    EXPECT_EQ(app.Opened(), 4);
}

TEST_F(BoxesTest, AnInputBoxIsNoReturnFromAnotherForm) {
    auto& form = app.Load<TestForm>(log);
    form.Show();
    driver->Settle();
    log.clear();
    driver->ScriptNextInput({.expected = {.prompt = "Name?"}, .reply = "x"});
    EXPECT_EQ(app.InputBox({.prompt = "Name?"}), "x");
    driver->Settle();
    EXPECT_EQ(Count(log, "TestForm activate"), 0);
}

}  // namespace
}  // namespace tavrix::conformance
