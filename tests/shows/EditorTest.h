#pragma once

#include <optional>
#include <string>
#include <vector>

#include "shows/editor/SlideLoadFrm.h"
#include "shows/stage/FullViewFrm.h"
#include "viewer/ViewerTest.h"

namespace tavrix::test {

/// The editor of shows above a program that started with it. C:\Pictures holds a.bmp to e.bmp, and is the source folder.
class EditorTest : public ViewerTest {
  protected:
    using Texts = std::vector<std::string>;
    using Rows = std::vector<int>;

    EditorTest() {
        for (const char letter : std::string("abcde"))
            PutPicture(Picture(letter), 40, 30);
    }

    void SetUp() override { Open(); }

    static std::string Picture(char letter) { return "C:\\Pictures\\" + std::string(1, letter) + ".bmp"; }
    static Texts Pictures(const std::string& letters) {
        Texts paths;
        for (const char letter : letters)
            paths.push_back(Picture(letter));
        return paths;
    }

    void Open() {
        ASSERT_TRUE(Start("SHOW"));
        ASSERT_NE(app.Loaded<SlideLoadFrm>(), nullptr);
        Editor().Lists.GoTo("C:\\Pictures");
    }
    SlideLoadFrm& Editor() { return *app.Loaded<SlideLoadFrm>(); }
    [[nodiscard]] bool IsOpen() const { return app.Loaded<SlideLoadFrm>() != nullptr; }

    /// Slides with these letters, each with a description of its own, as if they had been read from a file.
    void PutSlides(const std::string& letters, const std::string& path = SlideLoadFrm::Untitled) {
        module.show.EraseSlides();
        for (int i = 0; i < static_cast<int>(letters.size()); ++i) {
            const char letter = letters[static_cast<std::size_t>(i)];
            module.show.SlideFiles.Set(i, Picture(letter));
            module.show.SlideDescriptions.Set(i, "about " + std::string(1, letter));
        }
        module.show.ShowChanged = false;
        Editor().ShowLoaded(path);
    }

    /// The letters of the rows. A row whose text is not that of its slide, and a description that is not empty and not that
    /// of its slide, fail the test.
    std::string Letters() {
        std::string letters;
        const Texts& rows = Editor().ListView.Texts();
        EXPECT_EQ(module.show.Count(), static_cast<int>(rows.size()));
        for (int i = 0; i < static_cast<int>(rows.size()); ++i) {
            const std::string& row = rows[static_cast<std::size_t>(i)];
            EXPECT_EQ(row, module.show.SlideFiles[i]);
            const char letter = FileNameOf(row).front();
            const std::string& description = module.show.SlideDescriptions[i];
            EXPECT_TRUE(description.empty() || description == "about " + std::string(1, letter))
                << description;
            letters.push_back(letter);
        }
        EXPECT_EQ(module.show.SlideDescriptions[static_cast<int>(rows.size())], "");
        return letters;
    }
    /// For each row whether it has a description: "+" or "-".
    std::string Described() {
        std::string marks;
        for (int i = 0; i < module.show.Count(); ++i)
            marks.push_back(module.show.SlideDescriptions[i].empty() ? '-' : '+');
        return marks;
    }
    static Rows Selected(const forms::ListControl& list) {
        Rows rows;
        const forms::RowRanges selected = list.Selection();
        for (const forms::RowRange& range : selected.Ranges()) {
            for (int row = range.first; row < range.end; ++row)
                rows.push_back(row);
        }
        return rows;
    }
    static forms::RowRanges Ranges(const Rows& rows) {
        forms::RowRanges ranges;
        for (const int row : rows)
            ranges.Add(row);
        return ranges;
    }
    void SelectSlides(const Rows& rows) { Editor().ListView.SetSelection(Ranges(rows)); }
    void SelectSources(const Rows& rows) { Editor().File1.SetSelection(Ranges(rows)); }
    std::string CountText() { return Editor().lblNumSlides.Caption; }

    bool Press(forms::CommandButton& button) {
        return Ends([&] { button.Deliver(forms::ClickEvent{}); });
    }
    using MainViewFixture::Press;
    void Run(forms::Menu& entry) { entry.Deliver(forms::ClickEvent{}); }
    void Key(forms::Control& control, bool down, int keyCode, int shift = 0) {
        control.OwnerForm().Deliver(forms::KeyEvent{down, keyCode, shift, nullptr});
    }
    /// The user presses a key in a list and lets it go.
    void Type(forms::Control& list, int keyCode, int shift = 0) {
        list.SetFocus();
        Key(list, true, keyCode, shift);
        Key(list, false, keyCode, shift);
    }

    void ExpectTold(const std::string& text, const std::string& title = "Tavrix") {
        Expect({.text = text, .title = title});
    }
    void ExpectQuestion(const std::string& text, forms::Answer reply, const std::string& title = "Tavrix",
                        int defaultButton = 1) {
        Expect({.text = text,
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply,
                .title = title,
                .defaultButton = defaultButton});
    }
    /// Closing with changes: the user presses this button of the question.
    void AnswerExit(const std::string& button) {
        toolkit.OnModal("ExitFrm", [this, button] {
            ++exitQuestions;
            forms::Form* question = nullptr;
            for (int i = 0; i < app.FormCount(); ++i) {
                if (app.FormAt(i).Name() == "ExitFrm") question = &app.FormAt(i);
            }
            ASSERT_NE(question, nullptr);
            for (forms::Control* control : question->Controls()) {
                if (control->Name() == button) control->Deliver(forms::ClickEvent{});
            }
        });
    }
    /// The stage is looked at and closed each time that it opens.
    void OnStage(std::function<void(FullViewFrm&)> look = {}) {
        toolkit.OnModal("FullViewFrm", [this, look] {
            ++stages;
            auto& stage = *app.Loaded<FullViewFrm>();
            if (look) look(stage);
            stage.FormUnload();
        });
    }

    int exitQuestions = 0;
    int stages = 0;
};

}  // namespace tavrix::test
