#pragma once

#include "platform/forms/Control.h"

namespace tavrix::forms {

/// A field for one line of text. Positions and lengths count characters.
class TextBox final : public Control {
  public:
    using Control::Control;

    /// A new text raises OnChange, whoever sets it, and puts the caret at its start. Text that the program sets may be
    /// longer than MaxLength; it is cut.
    Property<std::string> Text{this, &TextBox::AssignText};
    /// Where the selection starts; the caret when nothing is selected. Values beyond the text are cut to its end.
    /// Setting it selects nothing.
    Property<int> SelStart{this, &TextBox::AssignSelStart};
    /// How much is selected; values beyond the text are cut.
    Property<int> SelLength{this, &TextBox::AssignSelLength};
    /// The most characters; 0: any number.
    Property<int> MaxLength{this, &TextBox::AssignMaxLength};

    void SelectAll();

    std::function<void()> OnChange;
    /// A character is typed, before it reaches the text; the Backspace key is one too. A handler that empties it
    /// discards it. What is pasted does not come here.
    std::function<void(std::string& character)> OnKeyPress;
    static constexpr const char* BackspaceCharacter = "\b";

    [[nodiscard]] LayoutNeeds Needs() const override { return {NaturalSize(), Slack::Wanted}; }

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void Handle(const Event& event) override;
    void AssignText(const std::string& value);
    void AssignSelStart(const int& value);
    void AssignSelLength(const int& value);
    void AssignMaxLength(const int& value);
    void Select(int start, int length);
    [[nodiscard]] std::string Cut(const std::string& text) const;
    [[nodiscard]] int TextLength() const;

    std::unique_ptr<TextPeer> textPeer_;
};

}  // namespace tavrix::forms
