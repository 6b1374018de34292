#include "viewer/ExitFrm.h"

#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

class ExitFrmTest : public ProgramFixture {
  protected:
    /// Shows the question; the user does this.
    ExitAnswer Ask(std::function<void(ExitFrm&)> user) {
        toolkit.OnModal("ExitFrm", [this, user] { user(*app.Loaded<ExitFrm>()); });
        ExitAnswer answer = ExitAnswer::Discard;
        app.Load<ExitFrm>(answer).ShowModal();
        EXPECT_EQ(app.Loaded<ExitFrm>(), nullptr);
        return answer;
    }
    ExitAnswer Press(forms::CommandButton ExitFrm::*button) {
        return Ask([button](ExitFrm& form) { (form.*button).Deliver(forms::ClickEvent{}); });
    }
};

TEST_F(ExitFrmTest, EachButtonLeavesItsAnswer) {
    EXPECT_EQ(Press(&ExitFrm::CmdCancel), ExitAnswer{1});
    EXPECT_EQ(Press(&ExitFrm::CmdDiscard), ExitAnswer{0});
    EXPECT_EQ(Press(&ExitFrm::CmdExit), ExitAnswer{2});
    EXPECT_EQ(Press(&ExitFrm::CmdSave), ExitAnswer{3});
}

TEST_F(ExitFrmTest, TheFrameLeavesTheAnswerOfCancel) {
    EXPECT_EQ(Ask([](ExitFrm& form) { form.Deliver(forms::CloseEvent{}); }), ExitAnswer::Cancel);
}

TEST_F(ExitFrmTest, LoadingSetsCancelAndTheDefaultPointer) {
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    ExitAnswer answer = ExitAnswer::Save;
    app.Load<ExitFrm>(answer);
    EXPECT_EQ(answer, ExitAnswer::Cancel);
    EXPECT_FALSE(module.Busy());
}

TEST_F(ExitFrmTest, TextsAreAsTold) {
    ExitAnswer answer{};
    auto& form = app.Load<ExitFrm>(answer);
    EXPECT_EQ(form.Caption.Get(), "Tavrix - [Changes Made]");
    EXPECT_EQ(form.lblMsg.Caption.Get(), "The current slide show has changed.");
    EXPECT_EQ(form.lblQuestion.Caption.Get(), "Close without saving changes?");
    const std::vector<std::vector<std::string>> texts{{form.CmdCancel.Caption, form.CmdCancel.ToolTip},
                                                      {form.CmdDiscard.Caption, form.CmdDiscard.ToolTip},
                                                      {form.CmdExit.Caption, form.CmdExit.ToolTip},
                                                      {form.CmdSave.Caption, form.CmdSave.ToolTip}};
    const std::vector<std::vector<std::string>> expected{
        {"&Cancel", "Don't close the Slide Show Editor yet."},
        {"&Discard", "Discard all changes and return to main viewing window."},
        {"&Exit", "Exit Tavrix and discard changes."},
        {"&Save", "Save changes to the current slide show first."}};
    EXPECT_EQ(texts, expected);
}

}  // namespace
}  // namespace tavrix::test
