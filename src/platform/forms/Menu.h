#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/forms/Events.h"
#include "platform/forms/Peers.h"
#include "platform/forms/Property.h"
#include "platform/forms/Toolkit.h"

namespace tavrix::forms {

class Form;

/// An entry of a menu: a command, a submenu with entries of its own, or a separator (caption "-").
///
/// A command without a handler is shown disabled, whatever its Enabled property holds.
class Menu final : public FormObject, public EventSink {
  public:
    /// A menu of the form's menu bar.
    Menu(Form& form, std::string name, const std::string& caption);
    /// An entry of another menu, behind the entries that were made before.
    Menu(Menu& parent, std::string name, const std::string& caption);

    Property<std::string> Caption{this, &Menu::AssignCaption};
    Property<bool> Enabled{this, &Menu::AssignEnabled, true};
    Property<bool> Visible{this, &Menu::AssignVisible, true};
    Property<bool> Checked{this, &Menu::AssignChecked};
    /// The entry stands for something that is on or off, also while it is off.
    Property<bool> Checkable{this, &Menu::AssignCheckable};
    /// The caption is data, such as a path: its ampersands are shown as they are.
    Property<bool> Literal{this, &Menu::AssignLiteral};

    [[nodiscard]] const std::string& Name() const { return name_; }
    [[nodiscard]] const std::vector<Menu*>& Entries() const { return entries_; }
    [[nodiscard]] bool IsSeparator() const { return Caption == "-"; }

    /// Gives the command its handler.
    void Install(std::function<void()> handler);
    [[nodiscard]] bool Installed() const { return handler_ != nullptr; }
    /// Runs the handler, enabled or not, as keys and other handlers do. Without a handler nothing happens.
    void Click();

    void Deliver(const Event& event) override;

    /// How the entry is shown. Of several entries of one menu with the same letter the first one has it; the others are
    /// shown without, so that the letter always leads to the same entry.
    [[nodiscard]] MenuItemState State() const;
    /// For the form: makes the peers of the entry and of those below it.
    void Realize(Toolkit& toolkit, WindowPeer& window, MenuItemPeer* parent);
    [[nodiscard]] MenuItemPeer* Peer() const { return peer_.get(); }

  private:
    void AssignCaption(const std::string& value);
    void AssignEnabled(const bool& value);
    void AssignVisible(const bool& value);
    void AssignChecked(const bool& value);
    void AssignCheckable(const bool& value);
    void AssignLiteral(const bool& value);
    void Push();
    [[nodiscard]] const std::vector<Menu*>& Siblings() const;
    [[nodiscard]] bool LetterIsTaken() const;

    Form& form_;
    Menu* parent_ = nullptr;
    std::string name_;
    std::vector<Menu*> entries_;
    std::function<void()> handler_;
    std::unique_ptr<MenuItemPeer> peer_;
};

/// Entries of one name, told apart by their index. Captions are data; all are hidden at first.
class MenuArray {
  public:
    MenuArray(Menu& parent, const std::string& name, int count);

    [[nodiscard]] int Count() const { return static_cast<int>(members_.size()); }
    [[nodiscard]] Menu& operator[](int index) { return members_[static_cast<std::size_t>(index)]; }

    /// The handler gets the index of the member, counted from 0.
    void Install(const std::function<void(int)>& handler);

  private:
    std::deque<Menu> members_;
};

}  // namespace tavrix::forms
