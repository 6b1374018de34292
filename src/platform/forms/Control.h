#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "imaging/graphics/Picture.h"
#include "platform/forms/Events.h"
#include "platform/forms/LayoutItem.h"
#include "platform/forms/Mouse.h"
#include "platform/forms/Peers.h"
#include "platform/forms/Property.h"
#include "platform/forms/Toolkit.h"

namespace tavrix::forms {

class Control;
class Form;

/// A pointer that the program draws, in device pixels. What it points with lies within the picture.
struct PointerPicture {
    Picture picture;
    int hotX = 0;
    int hotY = 0;
    friend bool operator==(const PointerPicture&, const PointerPicture&) = default;
};

/// What controls lie in: a form, a frame or a picture box.
class Container {
  public:
    [[nodiscard]] virtual Form& OwnerForm() = 0;
    [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }

  protected:
    Container() = default;
    ~Container() = default;

    /// Makes the peers of all controls in the container, in the order in which they were declared.
    void RealizeControls(Toolkit& toolkit, ControlPeer& self);

  private:
    friend class Control;
    std::vector<Control*> controls_;
};

/// A control of a form. Its state lives here; the peer is told. Positions and sizes are in twips of the container,
/// single precision. Where a layout arranges the control, they are the layout's doing from the first show on.
class Control : public FormObject, public EventSink, public LayoutItem {
  public:
    Control(Container& container, std::string name);
    virtual ~Control();

    Property<float> Left{this, &Control::AssignLeft};
    Property<float> Top{this, &Control::AssignTop};
    /// Throws RuntimeError 380 for a negative size.
    Property<float> Width{this, &Control::AssignWidth};
    Property<float> Height{this, &Control::AssignHeight};
    Property<bool> Visible{this, &Control::AssignVisible, true};
    Property<bool> Enabled{this, &Control::AssignEnabled, true};
    Property<std::string> ToolTip{this, &Control::AssignToolTip};
    Property<forms::MousePointer> MousePointer{this, &Control::AssignMousePointer};
    /// The pointer over the control while MousePointer is Custom.
    Property<PointerPicture> MouseIcon{this, &Control::AssignMouseIcon};
    /// What a screen reader and a test from outside call a control that shows no text of its own.
    Property<std::string> AccessibleName{this, &Control::AssignAccessibleName};

    [[nodiscard]] const std::string& Name() const { return name_; }
    [[nodiscard]] Form& OwnerForm() const { return form_; }

    /// Sets position and size at once; a change of size raises one resize.
    void Move(float left, float top, float width, float height);
    /// Makes this the control that gets the keys. It neither fails nor brings a window to the front: in a hidden or
    /// inactive window it is remembered. An invisible control can hold the focus too.
    void SetFocus();
    /// Puts the control behind all others that its container has by now, in the order in which Tab goes through them.
    /// Before the first show; until then the order is that of their declaration.
    void ComeLast();

    std::function<void()> OnGotFocus;
    /// Another control of the form has got the focus; that one's OnGotFocus comes next.
    std::function<void()> OnLostFocus;
    /// A key goes down, or up, while this control has the focus. A handler that sets the key code of KeyDown to 0
    /// keeps the key from the control. A release is not told where the focus came between: Tab goes up in the next
    /// control.
    std::function<void(int& keyCode, int shift)> OnKeyDown;
    std::function<void(int keyCode, int shift)> OnKeyUp;

    /// Drags this control over the program's windows, until the mouse button that is held goes up or Escape is
    /// pressed. For the handlers of a press or a move of its mouse; the control hears no more of that button.
    void Drag();
    /// What is seen at the pointer while this control is dragged; empty: the toolkit's own pointer.
    Picture DragIcon;
    /// A control that was dragged is let go here. Without a handler that only ends the drag.
    std::function<void(const DragArguments&)> OnDragDrop;
    /// Files of another program were dropped here, as drive paths. Without a handler they fall to what the control lies
    /// in, and to the form in the end.
    std::function<void(const std::vector<std::string>&)> OnOLEDragDrop;

    void Deliver(const Event& event) final;

    /// For the form, which sees the keys first.
    void TakeKeyDown(int& keyCode, int shift);
    /// For the form: makes the peer and tells it everything.
    void Realize(Toolkit& toolkit, ControlPeer& container);
    /// For the form and for backends: null before the form was first shown.
    [[nodiscard]] ControlPeer* Peer() const { return peer_; }
    /// The rectangle in device pixels of the container.
    [[nodiscard]] PixelRect PixelBounds() const;
    /// Likewise, of the inside of the window.
    [[nodiscard]] PixelRect PixelBoundsInWindow() const;
    /// What it lies in, where that is a control.
    [[nodiscard]] Control* Parent() const { return parent_; }
    /// Whether the form's layout arranges it.
    [[nodiscard]] bool Arranged() const { return arranged_; }

    void Join() final { arranged_ = true; }
    void Place(const PixelRect& place) final;
    /// For the form: what the control needs has to be asked for again.
    void ForgetNaturalSize() { natural_.reset(); }

  protected:
    /// Makes the peer of the kind and tells it what only this kind has.
    virtual ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) = 0;
    virtual void RealizeContent(Toolkit&) {}
    /// The peers of all controls in the container are there.
    virtual void RealizeLinks() {}
    virtual void Resized() {}
    /// The size that all of its content needs, as the peer says.
    [[nodiscard]] PixelSize NaturalSize() const;
    /// The size that the program gave it last, in device pixels.
    [[nodiscard]] PixelSize AssignedSize() const;
    /// The content is another, so that it may need another size. The layout is solved again where it does.
    void ContentChanged();
    /// A key that no handler took. Setting the code to 0 keeps it from the peer.
    virtual void KeyPressed(int& /*keyCode*/, int /*shift*/) {}
    /// An event that is not handled by all controls alike.
    virtual void Handle(const Event& event) = 0;
    /// Where something that is dragged would go if it was dropped now: before this row of a list. Nothing: it is not
    /// here, or would not be taken.
    virtual void ShowDropPlace(std::optional<int> /*row*/) {}
    /// Whether the control is being dragged, or was by the button that is held.
    [[nodiscard]] bool Dragged() const { return dragged_; }

  private:
    void Dispatch(const Event& event);
    void HandleDrag(const DragEvent& drag);
    void AssignLeft(const float& value);
    void AssignTop(const float& value);
    void AssignWidth(const float& value);
    void AssignHeight(const float& value);
    void AssignVisible(const bool& value);
    void AssignEnabled(const bool& value);
    void AssignToolTip(const std::string& value);
    void AssignMousePointer(const forms::MousePointer& value);
    void AssignMouseIcon(const PointerPicture& value);
    void AssignAccessibleName(const std::string& value);
    /// Position and size at once, whoever decides them.
    void SetBounds(float left, float top, float width, float height);
    void PushBounds();
    void PushPointer();

    friend class Container;

    Form& form_;
    Container& container_;
    Control* parent_;
    std::string name_;
    ControlPeer* peer_ = nullptr;
    bool dragged_ = false;
    bool arranged_ = false;
    bool placed_ = false;  ///< the layout has been solved once
    float assignedWidth_ = 0;
    float assignedHeight_ = 0;
    mutable std::optional<PixelSize> natural_;
};

}  // namespace tavrix::forms
