#include "platform/forms/Form.h"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"
#include "platform/forms/Application.h"
#include "platform/forms/Twips.h"

namespace tavrix::forms {

namespace {

void ForgetNaturalSizes(const Container& container) {
    for (Control* control : container.Controls()) {
        control->ForgetNaturalSize();
        if (const auto* inner = dynamic_cast<const Container*>(control)) ForgetNaturalSizes(*inner);
    }
}

}  // namespace

Form::HandlerScope::~HandlerScope() {
    if (--form_.handlersRunning_ == 0 && form_.unloaded_) app_.DestroyUnloaded();
}

Form::Form(Application& app, const WindowTraits& traits) : app_(app), traits_(traits) {
    if (!traits_.fullScreen) return;
    const ScreenInfo screen = app_.Screen().Info();
    const PixelRect place = app_.GetToolkit().FullScreenPlace();
    Left.Store(ToTwips(place.left, screen.twipsPerPixelX));
    Top.Store(ToTwips(place.top, screen.twipsPerPixelY));
    Width.Store(ToTwips(place.width, screen.twipsPerPixelX));
    Height.Store(ToTwips(place.height, screen.twipsPerPixelY));
}

Form::~Form() = default;

PixelSize Form::FramePixels() const {
    if (traits_.fullScreen) return {};
    const Toolkit& toolkit = app_.GetToolkit();
    int height =
        2 * toolkit.Metric(SystemMetric::SizingBorderHeight) + toolkit.Metric(SystemMetric::CaptionHeight);
    if (traits_.menuBar) height += toolkit.Metric(SystemMetric::MenuBarHeight);
    return {2 * toolkit.Metric(SystemMetric::SizingBorderWidth), height};
}

PixelRect Form::OuterPixels() const {
    return ToPixels(Left, Top, Width, Height, app_.Screen().Info());
}

float Form::ScaleWidth() const {
    const ScreenInfo screen = app_.Screen().Info();
    return ToTwips(std::max(OuterPixels().width - FramePixels().width, 0), screen.twipsPerPixelX);
}

float Form::ScaleHeight() const {
    const ScreenInfo screen = app_.Screen().Info();
    return ToTwips(std::max(OuterPixels().height - FramePixels().height, 0), screen.twipsPerPixelY);
}

void Form::Move(float left, float top, float width, float height) {
    if (width < 0 || height < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    if (WindowState.Get() != WindowState::Normal) throw RuntimeError(ErrorNumber::FormCannotBeMoved);

    const PixelRect wanted = ToPixels(left, top, width, height, app_.Screen().Info());
    const PixelSize asked{wanted.width, wanted.height};
    if (refusal_ && refusal_->asked == asked && refusal_->given == native_) {
        // The window manager has just refused this size. Asking again on its answer would never end.
        width = Width;
        height = Height;
    }
    const PixelRect before = OuterPixels();
    bool sized = Width.Store(width);
    sized = Height.Store(height) || sized;
    bool moved = Left.Store(left);
    moved = Top.Store(top) || moved;
    if (moved) placedByProgram_ = true;
    if (!sized && !moved) return;
    const PixelRect outer = OuterPixels();
    if (peer_ && outer != before) {
        awaitingGrant_ = visible_ && (outer.width != before.width || outer.height != before.height);
        peer_->SetPlacement(outer, WindowState::Normal);
    }
    if (!sized) return;
    PlaceControls();
    RaiseResize();
}

void Form::Show() {
    const HandlerScope scope(*this);
    PutOnScreen(false);
    app_.MakeActive(*this);
}

void Form::ShowAbove(Form& owner) {
    const HandlerScope scope(*this);
    Realize();
    owner.Realize();
    peer_->SetOwner(owner.peer_.get());
    Show();
}

void Form::ShowModal() {
    const HandlerScope scope(*this);
    PutOnScreen(true);
    app_.MakeActive(*this);
    app_.GetToolkit().RunUntil([this] { return !visible_; });
    app_.ReturnFrom(*this);
}

void Form::Hide() {
    const HandlerScope scope(*this);
    TakeOffScreen();
}

void Form::PutOnScreen(bool modal) {
    Realize();
    const bool first = !shownBefore_;
    shownBefore_ = true;
    if (visible_) return;
    visible_ = true;
    if (!traits_.waitWindow) ++app_.opened_;
    if (first) RaiseResize();
    if (!visible_ || unloaded_) return;  // the handler has hidden it again
    peer_->Show(modal);
    PushFocus();
    if (topmost_) peer_->SetTopmost(true);
}

void Form::TakeOffScreen() {
    if (!visible_) return;
    visible_ = false;
    peer_->Hide();
}

void Form::SetTopmost(bool topmost) {
    topmost_ = topmost;
    if (peer_) peer_->SetTopmost(topmost);
}

void Form::PopupMenu(Menu& menu, Menu* defaultEntry) {
    if (menu.Peer() == nullptr) return;
    const HandlerScope scope(*this);
    ++app_.opened_;
    bool closed = false;
    app_.GetToolkit().OpenPopup(*menu.Peer(), defaultEntry != nullptr ? defaultEntry->Peer() : nullptr,
                                [&closed] { closed = true; });
    app_.GetToolkit().RunUntil([&closed] { return closed; });
    app_.DoEvents();  // the chosen entry's click comes behind the closing
}

void Form::Realize() {
    if (peer_) return;
    Toolkit& toolkit = app_.GetToolkit();
    peer_ = toolkit.CreateWindowPeer(*this, traits_);
    peer_->SetTitle(Caption);
    if (BackColor.Get() != ButtonFace) peer_->SetBackColor(BackColor);
    if (MousePointer.Get() != MousePointer::Default) peer_->SetPointer(MousePointer);
    for (Menu* menu : menuBar_)
        menu->Realize(toolkit, *peer_, nullptr);
    if (!layout_) peer_->SetPlacement(OuterPixels(), WindowState);
    RealizeControls(toolkit, *peer_);
    if (!layout_) return;
    TakeNaturalSize();
    if (placedByProgram_) peer_->SetPlacement(OuterPixels(), WindowState);
    PlaceControls();
}

void Form::SetLayout(const Layout& layout) {
    layout_ = layout;
    const auto join = [](const auto& self, const Layout& part) -> void {
        if (part.item != nullptr) part.item->Join();
        for (const Layout& inner : part.content)
            self(self, inner);
    };
    join(join, *layout_);
}

void Form::TakeNaturalSize() {
    const ScreenInfo screen = app_.Screen().Info();
    const PixelSize natural = NaturalSizeOf(*layout_, app_.GetToolkit().DialogMetrics());
    const PixelSize frame = FramePixels();
    PixelSize inner = natural;
    if (traits_.resizable) {
        const PixelRect outer = OuterPixels();
        inner.width = std::max(inner.width, outer.width - frame.width);
        inner.height = std::max(inner.height, outer.height - frame.height);
    }
    Width.Store(ToTwips(inner.width + frame.width, screen.twipsPerPixelX));
    Height.Store(ToTwips(inner.height + frame.height, screen.twipsPerPixelY));
    if (WindowState.Get() == WindowState::Normal) peer_->SetInnerSize(inner, natural);
}

void Form::PlaceControls() {
    if (!layout_ || !peer_) return;
    const PixelRect outer = OuterPixels();
    const PixelSize frame = FramePixels();
    const PixelSize inside{std::max(outer.width - frame.width, 0), std::max(outer.height - frame.height, 0)};
    for (const PlacedItem& placed : Solve(*layout_, app_.GetToolkit().DialogMetrics(), inside))
        placed.item->Place(placed.place);
}

void Form::Rearrange() {
    if (!layout_ || !peer_) return;
    if (arranging_) {
        arrangeAgain_ = true;
        return;
    }
    const HandlerScope scope(*this);
    const PixelRect before = OuterPixels();
    arranging_ = true;
    // What changes its needs whenever it is placed must not keep this busy for ever.
    for (int rounds = 3; rounds > 0; --rounds) {
        arrangeAgain_ = false;
        TakeNaturalSize();
        PlaceControls();
        if (!arrangeAgain_) break;
    }
    arranging_ = false;
    if (OuterPixels() != before) RaiseResize();
}

void Form::RaiseResize() {
    const HandlerScope scope(*this);
    Form_Resize();
}

void Form::GiveFocus(Control& control) {
    Control* const before = std::exchange(activeControl_, &control);
    PushFocus();
    TellFocus(before, control);
}

void Form::NoteFocus(Control& control) {
    TellFocus(std::exchange(activeControl_, &control), control);
}

void Form::TellFocus(Control* from, Control& to) {
    if (from == &to) return;
    const HandlerScope scope(*this);
    if (from != nullptr && from->OnLostFocus) from->OnLostFocus();
    if (activeControl_ == &to && !unloaded_ && to.OnGotFocus) to.OnGotFocus();
}

void Form::PushFocus() {
    if (!visible_ || !peer_ || activeControl_ == nullptr) return;
    if (activeControl_->Visible && activeControl_->Enabled && activeControl_->Peer() != nullptr) {
        activeControl_->Peer()->TakeFocus();
    } else {
        peer_->TakeFocus();  // the window passes the keys on to the holder
    }
}

void Form::Deliver(const Event& event) {
    const HandlerScope scope(*this);
    app_.LastResort([&] { Dispatch(event); });
}

void Form::Dispatch(const Event& event) {
    if (unloaded_) return;
    if (const auto* placement = std::get_if<PlacementEvent>(&event)) {
        HandlePlacement(*placement);
    } else if (const auto* key = std::get_if<KeyEvent>(&event)) {
        HandleKey(*key);
    } else if (std::holds_alternative<ActivateEvent>(event)) {
        app_.NoteActivated(*this);
    } else if (std::holds_alternative<CloseEvent>(event)) {
        app_.Unload(*this);
    } else if (const auto* mouse = std::get_if<MouseEvent>(&event)) {
        const MouseArguments arguments = InTwips(*mouse, app_.Screen().Info());
        if (mouse->action == MouseAction::Move) Form_MouseMove(arguments);
        if (mouse->action == MouseAction::Up) Form_MouseUp(arguments);
    } else if (const auto* drop = std::get_if<DropEvent>(&event)) {
        Form_OLEDragDrop(drop->files);
    } else if (const auto* drag = std::get_if<DragEvent>(&event)) {
        HandleDrag(*drag);
    } else if (std::holds_alternative<FontEvent>(event)) {
        ForgetNaturalSizes(*this);
        Rearrange();
    }
}

void Form::HandleDrag(const DragEvent& drag) {
    if (drag.action == DragAction::Over && drag.files && traits_.acceptsDrops && drag.wanted != nullptr)
        *drag.wanted = true;
    if (drag.action != DragAction::Drop) return;
    Control* const source = app_.TakeDragged();
    const ScreenInfo screen = app_.Screen().Info();
    if (source != nullptr)
        Form_DragDrop({*source, ToTwips(drag.x, screen.twipsPerPixelX),
                       ToTwips(drag.y, screen.twipsPerPixelY), drag.row});
}

void Form::HandlePlacement(const PlacementEvent& placement) {
    const ScreenInfo screen = app_.Screen().Info();
    const bool stateChanged = WindowState.Store(placement.state);
    if (placement.state == WindowState::Minimized) {
        if (stateChanged) Form_Resize();
        return;
    }
    const PixelRect before = OuterPixels();
    const PixelSize given{placement.outer.width, placement.outer.height};
    native_ = given;
    // A twip position that is the same pixel as before stays what it was, so that saved values do not drift.
    if (placement.outer.left != before.left) Left.Store(ToTwips(placement.outer.left, screen.twipsPerPixelX));
    if (placement.outer.top != before.top) Top.Store(ToTwips(placement.outer.top, screen.twipsPerPixelY));
    const PixelSize held{before.width, before.height};
    if (given == held) {
        awaitingGrant_ = false;
        if (stateChanged) Form_Resize();
        return;
    }
    refusal_.reset();
    if (awaitingGrant_) refusal_ = Refusal{held, given};
    awaitingGrant_ = false;
    if (given.width != held.width) Width.Store(ToTwips(given.width, screen.twipsPerPixelX));
    if (given.height != held.height) Height.Store(ToTwips(given.height, screen.twipsPerPixelY));
    PlaceControls();
    Form_Resize();
}

void Form::HandleKey(const KeyEvent& key) {
    Control* const focused = activeControl_;
    if (!key.down) {
        const auto press = pressedKeys_.extract(key.keyCode);
        const bool pressedElsewhere = !press.empty() && press.mapped() != focused;
        if (focused != nullptr && focused->OnKeyUp && !pressedElsewhere)
            focused->OnKeyUp(key.keyCode, key.shift);
        return;
    }
    pressedKeys_[key.keyCode] = focused;
    int keyCode = key.keyCode;
    if (KeyPreview) Form_KeyDown(keyCode, key.shift);
    if (keyCode != 0 && focused != nullptr && !unloaded_) focused->TakeKeyDown(keyCode, key.shift);
    if (keyCode == KeyCode::F1 && key.shift == ShiftMask::None && app_.OnHelpKey) {
        keyCode = 0;
        app_.OnHelpKey(HelpContext);
    }
    if (keyCode == 0 && key.handled != nullptr) *key.handled = true;
}

void Form::AssignCaption(const std::string& value) {
    if (Caption.Store(value) && peer_) peer_->SetTitle(value);
}

void Form::AssignLeft(const float& value) {
    Move(value, Top, Width, Height);
}
void Form::AssignTop(const float& value) {
    Move(Left, value, Width, Height);
}
void Form::AssignWidth(const float& value) {
    Move(Left, Top, value, Height);
}
void Form::AssignHeight(const float& value) {
    Move(Left, Top, Width, value);
}

void Form::AssignWindowState(const forms::WindowState& value) {
    if (!WindowState.Store(value)) return;
    if (peer_) peer_->SetPlacement(OuterPixels(), value);
    RaiseResize();
}

void Form::AssignBackColor(const Colour& value) {
    if (BackColor.Store(value) && peer_) peer_->SetBackColor(value);
}

void Form::AssignMousePointer(const forms::MousePointer& value) {
    if (MousePointer.Store(value) && peer_) peer_->SetPointer(value);
}

}  // namespace tavrix::forms
