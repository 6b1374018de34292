#include "platform/forms/Control.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/RuntimeError.h"
#include "platform/forms/Application.h"
#include "platform/forms/Form.h"
#include "platform/forms/Twips.h"

namespace tavrix::forms {

void Container::RealizeControls(Toolkit& toolkit, ControlPeer& self) {
    for (Control* control : controls_)
        control->Realize(toolkit, self);
    for (Control* control : controls_)
        control->RealizeLinks();
}

Control::Control(Container& container, std::string name)
    : form_(container.OwnerForm()),
      container_(container),
      parent_(dynamic_cast<Control*>(&container)),
      name_(std::move(name)) {
    container.controls_.push_back(this);
}

Control::~Control() {
    form_.App().ForgetDragged(*this);
}

void Control::Realize(Toolkit& toolkit, ControlPeer& container) {
    peer_ = &CreatePeer(toolkit, container);
    PushBounds();
    if (!Enabled) peer_->SetEnabled(false);
    if (!ToolTip.Get().empty()) peer_->SetToolTip(ToolTip);
    if (MousePointer.Get() != MousePointer::Default) PushPointer();
    if (!AccessibleName.Get().empty()) peer_->SetAccessibleName(AccessibleName);
    RealizeContent(toolkit);
    peer_->SetVisible(Visible);
}

PixelRect Control::PixelBounds() const {
    return ToPixels(Left, Top, Width, Height, form_.App().Screen().Info());
}

PixelRect Control::PixelBoundsInWindow() const {
    PixelRect bounds = PixelBounds();
    for (const Control* outer = parent_; outer != nullptr; outer = outer->parent_) {
        const PixelRect around = outer->PixelBounds();
        bounds.left += around.left;
        bounds.top += around.top;
    }
    return bounds;
}

void Control::Move(float left, float top, float width, float height) {
    if (width < 0 || height < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    bool news = std::exchange(assignedWidth_, width) != width;
    news = std::exchange(assignedHeight_, height) != height || news;
    news = news || Left.Get() != left || Top.Get() != top;
    SetBounds(left, top, width, height);
    if (placed_ && news) form_.Rearrange();
}

void Control::Place(const PixelRect& place) {
    placed_ = true;
    const ScreenInfo screen = form_.App().Screen().Info();
    const PixelRect around = parent_ != nullptr ? parent_->PixelBoundsInWindow() : PixelRect{};
    const PixelRect within{place.left - around.left, place.top - around.top, place.width, place.height};
    if (within == PixelBounds()) {
        PushBounds();
        return;
    }
    SetBounds(ToTwips(within.left, screen.twipsPerPixelX), ToTwips(within.top, screen.twipsPerPixelY),
              ToTwips(within.width, screen.twipsPerPixelX), ToTwips(within.height, screen.twipsPerPixelY));
}

void Control::SetBounds(float left, float top, float width, float height) {
    bool moved = Left.Store(left);
    moved = Top.Store(top) || moved;
    bool sized = Width.Store(width);
    sized = Height.Store(height) || sized;
    if (moved || sized) PushBounds();
    if (sized) Resized();
}

PixelSize Control::AssignedSize() const {
    const PixelRect bounds = ToPixels(0, 0, assignedWidth_, assignedHeight_, form_.App().Screen().Info());
    return {bounds.width, bounds.height};
}

PixelSize Control::NaturalSize() const {
    if (!natural_ && peer_ != nullptr) natural_ = peer_->NaturalSize();
    return natural_.value_or(PixelSize{});
}

void Control::ContentChanged() {
    if (!placed_) {
        natural_.reset();
        return;
    }
    const std::optional<PixelSize> before = std::exchange(natural_, std::nullopt);
    if (before != NaturalSize()) form_.Rearrange();
}

void Control::SetFocus() {
    form_.GiveFocus(*this);
}

void Control::ComeLast() {
    std::vector<Control*>& siblings = container_.controls_;
    const auto self = std::ranges::find(siblings, this);
    std::rotate(self, std::next(self), siblings.end());
}

void Control::TakeKeyDown(int& keyCode, int shift) {
    if (OnKeyDown) OnKeyDown(keyCode, shift);
    if (keyCode != 0 && !form_.Unloaded()) KeyPressed(keyCode, shift);
}

void Control::Deliver(const Event& event) {
    const Form::HandlerScope scope(form_);
    form_.App().LastResort([&] { Dispatch(event); });
}

void Control::Dispatch(const Event& event) {
    if (form_.Unloaded()) return;
    if (const auto* focus = std::get_if<FocusEvent>(&event)) {
        if (focus->gained) form_.NoteFocus(*this);
        return;
    }
    if (std::holds_alternative<KeyEvent>(event)) {
        form_.Deliver(event);
        return;
    }
    if (const auto* drag = std::get_if<DragEvent>(&event)) {
        HandleDrag(*drag);
        return;
    }
    if (const auto* drop = std::get_if<DropEvent>(&event)) {
        if (Enabled && OnOLEDragDrop) OnOLEDragDrop(drop->files);
        return;
    }
    if (const auto* mouse = std::get_if<MouseEvent>(&event)) {
        if (mouse->action == MouseAction::Down) dragged_ = false;
        if (dragged_) return;
    }
    if (dragged_ && std::holds_alternative<ClickEvent>(event)) return;
    Handle(event);
}

void Control::Drag() {
    if (peer_ == nullptr) return;
    dragged_ = true;
    form_.App().BeginDrag(*this);
    peer_->BeginDrag(DragIcon.Empty() ? nullptr : &DragIcon.pixels->Whole());
}

void Control::HandleDrag(const DragEvent& drag) {
    const bool wanted = Enabled && (drag.files ? OnOLEDragDrop != nullptr : OnDragDrop != nullptr);
    switch (drag.action) {
        case DragAction::Over:
            ShowDropPlace(wanted ? std::optional(drag.row) : std::nullopt);
            if (wanted && drag.wanted != nullptr) *drag.wanted = true;
            break;
        case DragAction::Leave:
            ShowDropPlace(std::nullopt);
            break;
        case DragAction::Drop: {
            ShowDropPlace(std::nullopt);
            Control* const source = form_.App().TakeDragged();
            const ScreenInfo screen = form_.App().Screen().Info();
            if (source != nullptr && wanted)
                OnDragDrop({*source, ToTwips(drag.x, screen.twipsPerPixelX),
                            ToTwips(drag.y, screen.twipsPerPixelY), drag.row});
            break;
        }
        case DragAction::Ended:
            form_.App().ForgetDragged(*this);
            break;
    }
}

void Control::AssignLeft(const float& value) {
    Move(value, Top, Width, Height);
}
void Control::AssignTop(const float& value) {
    Move(Left, value, Width, Height);
}
void Control::AssignWidth(const float& value) {
    Move(Left, Top, value, Height);
}
void Control::AssignHeight(const float& value) {
    Move(Left, Top, Width, value);
}

void Control::AssignVisible(const bool& value) {
    if (Visible.Store(value) && peer_ != nullptr) peer_->SetVisible(value);
}

void Control::AssignEnabled(const bool& value) {
    if (Enabled.Store(value) && peer_ != nullptr) peer_->SetEnabled(value);
}

void Control::AssignToolTip(const std::string& value) {
    if (ToolTip.Store(value) && peer_ != nullptr) peer_->SetToolTip(value);
}

void Control::AssignMousePointer(const forms::MousePointer& value) {
    if (MousePointer.Store(value)) PushPointer();
}

void Control::AssignMouseIcon(const PointerPicture& value) {
    if (MouseIcon.Store(value) && MousePointer.Get() == MousePointer::Custom) PushPointer();
}

void Control::PushPointer() {
    if (peer_ == nullptr) return;
    const PointerPicture& icon = MouseIcon;
    const bool custom = MousePointer.Get() == MousePointer::Custom;
    if (custom && !icon.picture.Empty()) {
        peer_->SetPointerPicture(icon.picture.pixels->Whole(), icon.hotX, icon.hotY);
    } else {
        peer_->SetPointer(custom ? MousePointer::Default : MousePointer.Get());
    }
}

void Control::AssignAccessibleName(const std::string& value) {
    if (AccessibleName.Store(value) && peer_ != nullptr) peer_->SetAccessibleName(value);
}

void Control::PushBounds() {
    if (peer_ != nullptr && (placed_ || !arranged_)) peer_->SetBounds(PixelBounds());
}

}  // namespace tavrix::forms
