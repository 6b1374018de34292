#include "platform/forms/TextBox.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix::forms {

ControlPeer& TextBox::CreatePeer(Toolkit& toolkit, ControlPeer& container) {
    textPeer_ = toolkit.CreateTextBox(*this, container);
    if (MaxLength != 0) textPeer_->SetMaxLength(MaxLength);
    textPeer_->SetText(Text);
    textPeer_->SetSelection(SelStart, SelLength);
    return *textPeer_;
}

void TextBox::Handle(const Event& event) {
    if (!Enabled) return;
    if (const auto* typed = std::get_if<CharacterEvent>(&event)) {
        std::string character = typed->character;
        if (OnKeyPress) OnKeyPress(character);
        if (character.empty() && typed->discarded != nullptr) *typed->discarded = true;
        return;
    }
    const auto* edit = std::get_if<TextEvent>(&event);
    if (edit == nullptr) return;
    const bool news = Text.Store(edit->text);
    SelStart.Store(edit->selectionStart);
    SelLength.Store(edit->selectionLength);
    if (news && OnChange) OnChange();
}

void TextBox::AssignText(const std::string& value) {
    if (!Text.Store(Cut(value))) return;
    if (textPeer_) textPeer_->SetText(Text);
    Select(0, 0);
    if (OnChange) OnChange();
}

void TextBox::AssignSelStart(const int& value) {
    Select(value, 0);
}

void TextBox::AssignSelLength(const int& value) {
    Select(SelStart, value);
}

void TextBox::AssignMaxLength(const int& value) {
    if (!MaxLength.Store(value)) return;
    if (textPeer_) textPeer_->SetMaxLength(value);
    Text = Cut(Text);
}

void TextBox::SelectAll() {
    Select(0, TextLength());
}

void TextBox::Select(int start, int length) {
    if (start < 0 || length < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    const int end = TextLength();
    SelStart.Store(std::min(start, end));
    SelLength.Store(std::min(length, end - SelStart));
    if (textPeer_) textPeer_->SetSelection(SelStart, SelLength);
}

std::string TextBox::Cut(const std::string& text) const {
    return MaxLength == 0 ? text : tavrix::Left(text, static_cast<std::size_t>(MaxLength.Get()));
}

int TextBox::TextLength() const {
    return static_cast<int>(CharacterCount(Text.Get()));
}

}  // namespace tavrix::forms
