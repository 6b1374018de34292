#include "platform/forms/Menu.h"

#include <cctype>
#include <utility>

#include "platform/forms/Application.h"
#include "platform/forms/Form.h"

namespace tavrix::forms {

namespace {

/// Where the mark of the letter stands; npos without one. Two marks are the character itself.
std::size_t LetterMark(const std::string& caption) {
    for (std::size_t at = caption.find('&'); at != std::string::npos; at = caption.find('&', at + 2)) {
        if (at + 1 < caption.size() && caption[at + 1] != '&') return at;
    }
    return std::string::npos;
}

/// The letter of an entry, in upper case; 0 without one.
int LetterOf(const Menu& entry) {
    const std::string& caption = entry.Caption;
    const std::size_t mark = entry.Literal ? std::string::npos : LetterMark(caption);
    return mark != std::string::npos ? std::toupper(static_cast<unsigned char>(caption[mark + 1])) : 0;
}

}  // namespace

Menu::Menu(Form& form, std::string name, const std::string& caption) : form_(form), name_(std::move(name)) {
    Caption.Store(caption);
    form.AddMenu(*this);
}

Menu::Menu(Menu& parent, std::string name, const std::string& caption)
    : form_(parent.form_), parent_(&parent), name_(std::move(name)) {
    Caption.Store(caption);
    parent.entries_.push_back(this);
}

void Menu::Install(std::function<void()> handler) {
    handler_ = std::move(handler);
    Push();
}

void Menu::Click() {
    if (!handler_) return;
    const Form::HandlerScope scope(form_);
    handler_();
}

void Menu::Deliver(const Event& event) {
    if (!std::holds_alternative<ClickEvent>(event) || form_.Unloaded() || !State().enabled) return;
    const Form::HandlerScope scope(form_);
    form_.App().LastResort([this] { Click(); });
}

const std::vector<Menu*>& Menu::Siblings() const {
    return parent_ != nullptr ? parent_->entries_ : form_.MenuBar();
}

bool Menu::LetterIsTaken() const {
    const int letter = LetterOf(*this);
    if (letter == 0) return false;
    for (const Menu* sibling : Siblings()) {
        if (sibling == this) return false;
        if (LetterOf(*sibling) == letter) return true;
    }
    return false;
}

MenuItemState Menu::State() const {
    MenuItemState state;
    state.caption = Caption;
    if (LetterIsTaken()) state.caption.erase(LetterMark(state.caption), 1);
    state.literal = Literal;
    state.visible = Visible;
    state.checkable = Checkable || Checked;
    state.checked = Checked;
    if (IsSeparator()) {
        state.kind = MenuItemState::Kind::Separator;
        state.enabled = false;
    } else if (!entries_.empty()) {
        state.kind = MenuItemState::Kind::SubMenu;
        state.enabled = Enabled;
    } else {
        state.enabled = Enabled && Installed();
    }
    return state;
}

void Menu::Realize(Toolkit& toolkit, WindowPeer& window, MenuItemPeer* parent) {
    peer_ = toolkit.CreateMenuItem(*this, window, parent, State());
    for (Menu* entry : entries_)
        entry->Realize(toolkit, window, peer_.get());
}

void Menu::AssignCaption(const std::string& value) {
    if (Caption.Store(value)) Push();
}

void Menu::AssignEnabled(const bool& value) {
    if (Enabled.Store(value)) Push();
}

void Menu::AssignVisible(const bool& value) {
    if (Visible.Store(value)) Push();
}

void Menu::AssignChecked(const bool& value) {
    if (Checked.Store(value)) Push();
}

void Menu::AssignCheckable(const bool& value) {
    if (Checkable.Store(value)) Push();
}

void Menu::AssignLiteral(const bool& value) {
    if (Literal.Store(value)) Push();
}

void Menu::Push() {
    if (peer_) peer_->Update(State());
}

MenuArray::MenuArray(Menu& parent, const std::string& name, int count) {
    for (int i = 0; i < count; ++i) {
        Menu& member = members_.emplace_back(parent, name, "");
        member.Literal = true;
        member.Visible = false;
    }
}

void MenuArray::Install(const std::function<void(int)>& handler) {
    for (int i = 0; i < Count(); ++i)
        (*this)[i].Install([handler, i] { handler(i); });
}

}  // namespace tavrix::forms
