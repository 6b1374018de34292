#include <algorithm>
#include <utility>

#include "backends/headless/HeadlessToolkit.h"
#include "forms_conformance/Driver.h"

namespace tavrix::conformance {

namespace {

using namespace forms;
using headless::HeadlessButtonPeer;
using headless::HeadlessCanvasPeer;
using headless::HeadlessCheckPeer;
using headless::HeadlessControlPeer;
using headless::HeadlessFont;
using headless::HeadlessFramePeer;
using headless::HeadlessLabelPeer;
using headless::HeadlessListPeer;
using headless::HeadlessMenuItemPeer;
using headless::HeadlessOptionPeer;
using headless::HeadlessScrollBarPeer;
using headless::HeadlessTextPeer;
using headless::HeadlessWindowPeer;

template <class Peer>
Peer& PeerOf(const Control& control) {
    return dynamic_cast<Peer&>(*control.Peer());
}
HeadlessWindowPeer& PeerOf(const Form& form) {
    return dynamic_cast<HeadlessWindowPeer&>(*form.Peer());
}

/// Calls a function with the peer, whatever kind of control it is of.
template <class Function>
auto WithPeer(const Control& control, Function function) {
    ControlPeer* peer = control.Peer();
    if (auto* label = dynamic_cast<HeadlessLabelPeer*>(peer)) return function(*label);
    if (auto* frame = dynamic_cast<HeadlessFramePeer*>(peer)) return function(*frame);
    if (auto* button = dynamic_cast<HeadlessButtonPeer*>(peer)) return function(*button);
    if (auto* bar = dynamic_cast<HeadlessScrollBarPeer*>(peer)) return function(*bar);
    if (auto* check = dynamic_cast<HeadlessCheckPeer*>(peer)) return function(*check);
    if (auto* option = dynamic_cast<HeadlessOptionPeer*>(peer)) return function(*option);
    if (auto* field = dynamic_cast<HeadlessTextPeer*>(peer)) return function(*field);
    if (auto* list = dynamic_cast<HeadlessListPeer*>(peer)) return function(*list);
    return function(dynamic_cast<HeadlessCanvasPeer&>(*peer));
}

class HeadlessDriver final : public Driver {
  public:
    Toolkit& GetToolkit() override { return toolkit_; }

    void UserClicks(CommandButton& button) override {
        auto& peer = PeerOf<HeadlessButtonPeer>(button);
        if (!peer.enabled || !peer.visible) return;
        toolkit_.Post([&sink = peer.sink, &form = button.OwnerForm()] {
            const Form::HandlerScope scope(
                form);  // one press is several events; the first may unload the form
            sink.Deliver(MouseEvent{MouseAction::Down, MouseButton::Left, 0, 1, 1});
            sink.Deliver(ClickEvent{});
            sink.Deliver(MouseEvent{MouseAction::Up, MouseButton::Left, 0, 1, 1});
        });
    }
    void UserKey(Form& form, int keyCode, int shift) override {
        toolkit_.Post([&form, keyCode, shift] {
            bool handled = false;
            form.Deliver(KeyEvent{true, keyCode, shift, &handled});
            form.Deliver(KeyEvent{false, keyCode, shift, &handled});
        });
    }
    void UserResizes(Form& form, int width, int height) override {
        auto& peer = PeerOf(form);
        peer.placement.width = width;
        peer.placement.height = height;
        toolkit_.Post([&peer] { peer.sink.Deliver(PlacementEvent{peer.placement, peer.state}); });
    }
    void UserScrolls(ScrollBar& bar, int value) override {
        auto& peer = PeerOf<HeadlessScrollBarPeer>(bar);
        peer.value = value;
        toolkit_.Post([&peer, value] { peer.sink.Deliver(ScrollEvent{value, false}); });
    }
    void UserChooses(Menu& entry) override {
        toolkit_.Post([&entry] {
            auto& peer = dynamic_cast<HeadlessMenuItemPeer&>(*entry.Peer());
            if (peer.state.enabled && peer.state.visible) peer.sink.Deliver(ClickEvent{});
        });
    }
    void UserCloses(Form& form) override {
        toolkit_.Post([&form] { form.Deliver(CloseEvent{}); });
    }
    void UserDrags(PictureBox& box, int button, PixelRect fromTo) override {
        auto& peer = PeerOf<HeadlessCanvasPeer>(box);
        toolkit_.Post([&peer, button, fromTo] {
            peer.sink.Deliver(MouseEvent{MouseAction::Down, button, 0, fromTo.left, fromTo.top});
            peer.sink.Deliver(MouseEvent{MouseAction::Up, button, 0, fromTo.width, fromTo.height});
            if (button == MouseButton::Left) peer.sink.Deliver(ClickEvent{});
        });
    }
    void UserPoints(Control& control, int x, int y) override {
        toolkit_.Post([&control, x, y] { control.Deliver(MouseEvent{MouseAction::Move, 0, 0, x, y}); });
    }
    void UserPoints(Form& form, int x, int y) override {
        toolkit_.Post([&form, x, y] { form.Deliver(MouseEvent{MouseAction::Move, 0, 0, x, y}); });
    }
    void UserClicksOn(Image& image, int button) override {
        toolkit_.Post([&image, button] {
            image.Deliver(MouseEvent{MouseAction::Down, button, 0, 1, 1});
            image.Deliver(MouseEvent{MouseAction::Up, button, 0, 1, 1});
            if (button == MouseButton::Left) image.Deliver(ClickEvent{});
        });
    }
    void UserFocuses(Control& control) override {
        toolkit_.Post([&control] { control.Deliver(FocusEvent{}); });
    }
    void UserTicks(CheckBox& box) override {
        auto& peer = PeerOf<HeadlessCheckPeer>(box);
        if (!peer.enabled || !peer.visible) return;
        toolkit_.Post([&peer] {
            peer.sink.Deliver(FocusEvent{});
            peer.checked = !peer.checked;
            peer.sink.Deliver(CheckEvent{peer.checked});
            peer.sink.Deliver(MouseEvent{MouseAction::Up, MouseButton::Left, 0, 1, 1});
        });
    }
    void UserPicks(OptionButton& option) override {
        auto& peer = PeerOf<HeadlessOptionPeer>(option);
        if (!peer.enabled || !peer.visible) return;
        toolkit_.Post([&peer] {
            peer.sink.Deliver(FocusEvent{});
            peer.checked = true;
            peer.sink.Deliver(CheckEvent{true});
        });
    }
    void UserTypes(TextBox& field, const std::string& text) override {
        auto& peer = PeerOf<HeadlessTextPeer>(field);
        if (!peer.enabled) return;
        toolkit_.Post([&peer, text] { peer.UserTypes(text); });
    }
    void UserPastes(TextBox& field, const std::string& text) override {
        auto& peer = PeerOf<HeadlessTextPeer>(field);
        toolkit_.Post([&peer, text] { peer.UserPastes(text); });
    }
    void UserSelects(TextBox& field, Selection selection) override {
        auto& peer = PeerOf<HeadlessTextPeer>(field);
        toolkit_.Post([&peer, selection] {
            peer.selectionStart = selection.start;
            peer.selectionLength = selection.length;
            peer.sink.Deliver(TextEvent{peer.text, selection.start, selection.length});
        });
    }
    void UserChoosesRow(RowControl& list, int row, int button) override {
        auto& peer = PeerOf<HeadlessListPeer>(list);
        if (!peer.enabled) return;
        if (auto* rows = dynamic_cast<ListControl*>(&list)) {
            UserPressesRow(*rows, row, button, ShiftMask::None);
            UserReleasesRow(*rows, row, button, ShiftMask::None);
            return;
        }
        toolkit_.Post([&peer, row] {
            peer.sink.Deliver(FocusEvent{});
            peer.sink.Deliver(RowEvent{row});
        });
    }
    void UserDoubleClicks(RowControl& list, int row) override {
        UserChoosesRow(list, row, MouseButton::Left);
        auto& peer = PeerOf<HeadlessListPeer>(list);
        if (!peer.enabled) return;
        toolkit_.Post([this, &peer, row] {
            if (peer.content.CurrentRow() != row) return;
            peer.sink.Deliver(DoubleClickEvent{});
            peer.sink.Deliver(Mouse(MouseAction::Up, row, MouseButton::Left, ShiftMask::None));
        });
    }
    void UserPressesRow(ListControl& list, int row, int button, int shift) override {
        toolkit_.Post([this, &list, row, button, shift] {
            auto& peer = PeerOf<HeadlessListPeer>(list);
            if (!peer.enabled) return;
            mouseIn_ = &list;
            dragsBefore_ = Drags(list);
            list.Deliver(FocusEvent{});
            list.Deliver(Mouse(MouseAction::Down, RowOrNone(peer, row), button, shift, row));
        });
    }
    void UserMovesToRow(ListControl& list, int row, int shift) override {
        toolkit_.Post([this, &list, row, shift] {
            const auto& peer = PeerOf<HeadlessListPeer>(list);
            const int nearest = std::min(row, peer.content.RowCount() - 1);
            list.Deliver(Mouse(MouseAction::Move, nearest, MouseButton::Left, shift, row));
        });
    }
    void UserReleasesRow(ListControl& list, int row, int button, int shift) override {
        toolkit_.Post([this, &list, row, button, shift] {
            const auto& peer = PeerOf<HeadlessListPeer>(list);
            mouseIn_ = nullptr;
            list.Deliver(Mouse(MouseAction::Up, RowOrNone(peer, row), button, shift, row));
        });
    }
    void UserDragsOver(Control& target, int row) override {
        toolkit_.Post([this, &target, row] {
            auto* list = dynamic_cast<HeadlessListPeer*>(target.Peer());
            DragTo(target, &target, list != nullptr ? RowOrNone(*list, row) : -1);
        });
    }
    void UserDragsOver(Form& form) override {
        toolkit_.Post([this, &form] { DragTo(form, nullptr, -1); });
    }
    void UserLetsGo() override {
        toolkit_.Post([this] {
            Control* const source = std::exchange(mouseIn_, nullptr);
            EventSink* const target = std::exchange(over_, nullptr);
            if (source == nullptr) return;
            const Form::HandlerScope scope(source->OwnerForm());
            source->Deliver(Mouse(MouseAction::Up, -1, MouseButton::Left, ShiftMask::None));
            if (Drags(*source) == dragsBefore_) return;
            DragEvent drop = Dragged(DragAction::Drop);
            drop.row = overRow_;
            if (target != nullptr) target->Deliver(drop);
            source->Deliver(Dragged(DragAction::Ended));
        });
    }
    void UserGivesUpDrag() override {
        toolkit_.Post([this] {
            Control* const source = std::exchange(mouseIn_, nullptr);
            EventSink* const target = std::exchange(over_, nullptr);
            if (source == nullptr) return;
            if (target != nullptr) target->Deliver(Dragged(DragAction::Leave));
            source->Deliver(Dragged(DragAction::Ended));
            source->Deliver(Mouse(MouseAction::Up, -1, MouseButton::Left, ShiftMask::None));
        });
    }
    void UserTypesAhead(ListControl& list, const std::string& text) override {
        toolkit_.Post([&list, text] {
            for (const char c : text) {
                bool handled = false;
                list.OwnerForm().Deliver(
                    KeyEvent{true, c == ' ' ? int{KeyCode::Space} : int{c}, 0, &handled});
                if (!handled) list.Deliver(CharacterEvent{std::string(1, c), nullptr});
            }
        });
    }
    void UserScrollsTo(ListControl& list, int row) override { PeerOf<HeadlessListPeer>(list).ScrollTo(row); }
    bool UserDragsFilesOver(Control& control, int row) override {
        bool wanted = false;
        DragEvent drag = Dragged(DragAction::Over);
        drag.files = true;
        drag.row = row;
        drag.wanted = &wanted;
        control.Deliver(drag);
        return wanted;
    }
    void UserDragsFilesAway(Control& control) override { control.Deliver(Dragged(DragAction::Leave)); }
    void UserDrops(Control& control, const std::vector<std::string>& hostPaths) override {
        DropEvent drop;
        for (const std::string& path : hostPaths)
            drop.files.push_back("C:" + path);
        toolkit_.Post([this, &control, drop] {
            EventSink* const target =
                UserDragsFilesOver(control, -1) ? static_cast<EventSink*>(&control) : &control.OwnerForm();
            control.Deliver(Dragged(DragAction::Leave));
            target->Deliver(drop);
        });
    }
    void ScriptNextBox(const BoxScript& script) override {
        headless::ExpectedBox box;
        box.text = script.expected.text;
        box.title = script.expected.title;
        box.icon = script.expected.icon;
        box.buttons = script.expected.buttons;
        box.help = script.expected.help;
        box.systemModal = script.expected.systemModal;
        box.reply = script.reply;
        box.pressHelp = script.pressHelp;
        box.whileOpen = [this, time = script.openFor] { toolkit_.Advance(time); };
        toolkit_.Expect(std::move(box));
    }
    void ScriptNextInput(const InputScript& script) override {
        toolkit_.ExpectInput({script.expected.prompt, script.expected.title, script.expected.text,
                              script.byEscape ? std::nullopt : script.reply});
    }
    void ScriptNextPopup(Menu* entry) override {
        toolkit_.ChooseFromPopup(entry != nullptr ? entry->Caption.Get() : "");
    }
    void Soon(std::function<void()> action) override { toolkit_.Post(std::move(action)); }

    void Pass(Milliseconds time) override {
        Settle();
        toolkit_.Advance(time);
    }
    void Settle() override { toolkit_.ProcessEvents(); }

    std::string ShownTitle(Form& form) override { return PeerOf(form).title; }
    bool IsShown(Form& form) override { return PeerOf(form).visible; }
    PixelRect ShownPlace(Form& form) override { return PeerOf(form).placement; }
    bool HidesPointer(Form& form) override { return PeerOf(form).pointer == MousePointer::Hidden; }
    bool IsUsable(Form& form) override { return toolkit_.TakesInput(PeerOf(form)); }
    std::string ShownText(Control& control) override {
        if (dynamic_cast<HeadlessLabelPeer*>(control.Peer()) != nullptr) {
            return PeerOf<HeadlessLabelPeer>(control).text;
        }
        if (auto* frame = dynamic_cast<HeadlessFramePeer*>(control.Peer())) return frame->text;
        if (auto* check = dynamic_cast<HeadlessCheckPeer*>(control.Peer())) return check->text;
        if (auto* option = dynamic_cast<HeadlessOptionPeer*>(control.Peer())) return option->text;
        if (auto* field = dynamic_cast<HeadlessTextPeer*>(control.Peer())) return field->text;
        return PeerOf<HeadlessButtonPeer>(control).text;
    }
    std::string ShownName(Control& control) override {
        return WithPeer(control, [](const auto& peer) { return peer.accessibleName; });
    }
    std::string ShownToolTip(Control& control) override {
        return WithPeer(control, [](const auto& peer) { return peer.toolTip; });
    }
    bool ShownEnabled(Control& control) override {
        return WithPeer(control, [](const auto& peer) { return peer.enabled; });
    }
    bool ShownVisible(Control& control) override {
        return WithPeer(control, [](const auto& peer) { return peer.visible; });
    }
    int ShownValue(ScrollBar& bar) override { return PeerOf<HeadlessScrollBarPeer>(bar).value; }
    bool ShownChecked(CheckBox& box) override { return PeerOf<HeadlessCheckPeer>(box).checked; }
    bool ShownChosen(OptionButton& option) override { return PeerOf<HeadlessOptionPeer>(option).checked; }
    bool ShownTabStop(OptionButton& option) override { return PeerOf<HeadlessOptionPeer>(option).tabStop; }
    Selection ShownSelection(TextBox& field) override {
        const auto& peer = PeerOf<HeadlessTextPeer>(field);
        return {peer.selectionStart, peer.selectionLength};
    }
    std::vector<std::string> ShownRows(RowControl& list) override {
        return PeerOf<HeadlessListPeer>(list).Texts();
    }
    int ShownCurrent(RowControl& list) override {
        return PeerOf<HeadlessListPeer>(list).content.CurrentRow();
    }
    std::vector<int> ShownSelected(ListControl& list) override {
        const auto& content = PeerOf<HeadlessListPeer>(list).content;
        std::vector<int> selected;
        for (int row = 0; row < content.RowCount(); ++row) {
            if (content.RowSelected(row)) selected.push_back(row);
        }
        return selected;
    }
    int ShownTop(ListControl& list) override { return PeerOf<HeadlessListPeer>(list).top; }
    std::optional<int> ShownInsertionMark(ListControl& list) override {
        return PeerOf<HeadlessListPeer>(list).insertionMark;
    }
    MenuItemState Shown(Menu& entry) override {
        return dynamic_cast<HeadlessMenuItemPeer&>(*entry.Peer()).state;
    }
    Pixel ShownPixel(Control& canvas, int x, int y) override {
        return PeerOf<HeadlessCanvasPeer>(canvas).ShownPixel(x, y);
    }
    void UserChangesFont(bool larger) override {
        toolkit_.Post([this, larger] { toolkit_.UseFont(larger ? HeadlessFont{13, 30} : HeadlessFont{}); });
    }
    PixelRect ShownBounds(Control& control) override {
        PixelRect bounds = BoundsOf(control);
        for (const Control* outer = control.Parent(); outer != nullptr; outer = outer->Parent()) {
            bounds.left += BoundsOf(*outer).left;
            bounds.top += BoundsOf(*outer).top;
        }
        return bounds;
    }
    ShownPointer PointerOver(Control& control) override {
        return WithPeer(control, [](const auto& peer) -> ShownPointer {
            if (peer.pointer != MousePointer::Custom) return {peer.pointer};
            return {peer.pointer, peer.hotX, peer.hotY};
        });
    }
    std::string ShownPrinted(PictureBox& box) override {
        std::string text;
        for (const std::string& line : PeerOf<HeadlessCanvasPeer>(box).printed)
            text += (text.empty() ? "" : "\n") + line;
        return text;
    }
    Pixel ShownGround(Label& label, int, int) override {
        const auto& colour = PeerOf<HeadlessLabelPeer>(label).backColor;
        return colour ? ToPixel(*colour) : headless::HeadlessToolkit::ButtonFacePixel;
    }
    std::vector<std::string> Failures() override { return toolkit_.Failures(); }

  private:
    static constexpr int RowHeight = 16;

    static int RowOrNone(const HeadlessListPeer& peer, int row) {
        return row >= 0 && row < peer.content.RowCount() ? row : -1;
    }
    /// `line`: where on the list the mouse is, counted in rows.
    static MouseEvent Mouse(MouseAction action, int row, int button, int shift, int line = 0) {
        return {action, button, shift, 5, line * RowHeight + RowHeight / 2, row};
    }
    static DragEvent Dragged(DragAction action) {
        DragEvent drag;
        drag.action = action;
        return drag;
    }
    static int Drags(const Control& source) {
        return WithPeer(source, [](const auto& peer) { return peer.drags; });
    }
    /// The mouse goes on with its button held: over what it is dragged, if it is.
    void DragTo(EventSink& target, const Control* control, int row) {
        if (mouseIn_ == nullptr) return;
        mouseIn_->Deliver(Mouse(MouseAction::Move, mouseIn_ == control ? row : -1, MouseButton::Left,
                                ShiftMask::None, row + 100));
        if (Drags(*mouseIn_) == dragsBefore_) return;
        if (over_ != nullptr && over_ != &target) over_->Deliver(Dragged(DragAction::Leave));
        over_ = &target;
        overRow_ = row;
        bool wanted = false;
        DragEvent drag = Dragged(DragAction::Over);
        drag.row = row;
        drag.wanted = &wanted;
        target.Deliver(drag);
    }
    static PixelRect BoundsOf(const Control& control) {
        return WithPeer(control, [](const auto& peer) { return peer.bounds; });
    }

    headless::HeadlessToolkit toolkit_;
    Control* mouseIn_ = nullptr;  ///< where a button was pressed, and is held
    EventSink* over_ = nullptr;   ///< over what that control is dragged
    int overRow_ = -1;
    int dragsBefore_ = 0;  ///< of that control, until the button went down
};

}  // namespace

std::unique_ptr<Driver> MakeDriver() {
    return std::make_unique<HeadlessDriver>();
}

}  // namespace tavrix::conformance
