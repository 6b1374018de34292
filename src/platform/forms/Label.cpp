#include "platform/forms/Label.h"

#include "platform/forms/Application.h"
#include "platform/forms/Form.h"

namespace tavrix::forms {

ControlPeer& Label::CreatePeer(Toolkit& toolkit, ControlPeer& container) {
    labelPeer_ = toolkit.CreateLabel(*this, container);
    labelPeer_->SetText(PeerText());
    if (Wraps()) labelPeer_->SetWordWrap(true);
    if (BackColor.Get()) labelPeer_->SetBackColor(BackColor);
    return *labelPeer_;
}

void Label::RealizeLinks() {
    if (buddy_ != nullptr && buddy_->Peer() != nullptr) labelPeer_->SetBuddy(*buddy_->Peer());
}

void Label::Handle(const Event& event) {
    if (!Enabled) return;
    if (const auto* mouse = std::get_if<MouseEvent>(&event)) {
        Raise(*mouse, OwnerForm().App().Screen().Info());
    } else if (std::holds_alternative<ClickEvent>(event)) {
        if (OnClick) OnClick();
    }
}

void Label::AssignCaption(const std::string& value) {
    if (Caption.Store(value)) PushText();
}

void Label::AssignLiteral(const bool& value) {
    if (Literal.Store(value)) PushText();
}

void Label::PushText() {
    if (!labelPeer_) return;
    labelPeer_->SetText(PeerText());
    ContentChanged();
}

void Label::AssignWordWrap(const bool& value) {
    if (!WordWrap.Store(value) || !labelPeer_) return;
    labelPeer_->SetWordWrap(Wraps());
    ContentChanged();
}

void Label::AssignBackColor(const std::optional<Colour>& value) {
    if (BackColor.Store(value) && labelPeer_) labelPeer_->SetBackColor(value);
}

int Label::HeightAt(int width) const {
    if (!Wraps() || !labelPeer_) return NaturalSize().height;
    return labelPeer_->HeightAt(width);
}

std::string Label::PeerText() const {
    if (!Literal) return Caption;
    std::string text;
    for (const char c : Caption.Get())
        text.append(c == '&' ? 2U : 1U, c);
    return text;
}

}  // namespace tavrix::forms
