#include "platform/forms/Label.h"

namespace tavrix::forms {

ControlPeer& Label::CreatePeer(Toolkit& toolkit, ControlPeer& container) {
    labelPeer_ = toolkit.CreateLabel(*this, container);
    labelPeer_->SetText(PeerText());
    return *labelPeer_;
}

void Label::RealizeLinks() {
    if (buddy_ != nullptr && buddy_->Peer() != nullptr) labelPeer_->SetBuddy(*buddy_->Peer());
}

void Label::Handle(const Event& event) {
    if (std::holds_alternative<ClickEvent>(event) && OnClick) OnClick();
}

void Label::AssignCaption(const std::string& value) {
    if (Caption.Store(value) && labelPeer_) labelPeer_->SetText(PeerText());
}

void Label::AssignLiteral(const bool& value) {
    if (Literal.Store(value) && labelPeer_) labelPeer_->SetText(PeerText());
}

std::string Label::PeerText() const {
    if (!Literal) return Caption;
    std::string text;
    for (const char c : Caption.Get())
        text.append(c == '&' ? 2U : 1U, c);
    return text;
}

}  // namespace tavrix::forms
