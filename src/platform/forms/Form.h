#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/forms/Control.h"
#include "platform/forms/Layout.h"
#include "platform/forms/Menu.h"
#include "platform/forms/PictureBox.h"

namespace tavrix::forms {

class Application;

/// A window. It is made by Application::Load, which then runs Form_Load; it goes when it is unloaded, but never while
/// a handler of its own is on the stack.
///
/// Left, Top, Width and Height are in twips of the screen and include the frame; ScaleWidth and ScaleHeight are the
/// inner size, which is the outer size less the system's metrics. A form that covers a display has no frame, and takes
/// its place when it is made.
class Form : public FormObject, public Container, public EventSink {
  public:
    Form(Application& app, const WindowTraits& traits);
    virtual ~Form();

    Property<std::string> Caption{this, &Form::AssignCaption};
    // Throw RuntimeError 380 for a negative size, and 384 while the window is minimised or maximised.
    Property<float> Left{this, &Form::AssignLeft};
    Property<float> Top{this, &Form::AssignTop};
    Property<float> Width{this, &Form::AssignWidth};
    Property<float> Height{this, &Form::AssignHeight};
    Property<forms::WindowState> WindowState{this, &Form::AssignWindowState};
    Property<Colour> BackColor{this, &Form::AssignBackColor, ButtonFace};
    /// The pointer over the form and those of its controls that have none of their own. Hidden hides it there whatever
    /// the screen's pointer is, and over boxes and other windows it is seen as ever.
    Property<forms::MousePointer> MousePointer{this, &Form::AssignMousePointer};

    /// Whether the form sees keys before its controls.
    bool KeyPreview = false;
    /// The page of the help file that F1 opens; 0: its contents.
    unsigned HelpContext = 0;

    [[nodiscard]] Application& App() const { return app_; }
    [[nodiscard]] const std::string& Name() const { return traits_.name; }
    [[nodiscard]] float ScaleWidth() const;
    [[nodiscard]] float ScaleHeight() const;
    [[nodiscard]] bool Visible() const { return visible_; }
    [[nodiscard]] bool Unloaded() const { return unloaded_; }

    /// Sets position and size at once. Failures as with the properties.
    void Move(float left, float top, float width, float height);
    /// The first show raises Form_Resize, then Form_Activate.
    void Show();
    /// The same, above the owner, and usable whenever the owner is, also while it is modal. The owner may be shown
    /// later; it is to stay loaded for as long as this form is.
    void ShowAbove(Form& owner);
    /// Shows the form and runs messages until it is hidden or unloaded. The form may be gone when this returns.
    void ShowModal();
    void Hide();
    /// Keeps the window above others, or no longer.
    void SetTopmost(bool topmost);
    /// Opens a menu at the pointer and runs messages until it is closed and the chosen entry's handler has run.
    void PopupMenu(Menu& menu, Menu* defaultEntry);

    [[nodiscard]] Control* ActiveControl() const { return activeControl_; }
    [[nodiscard]] const std::vector<Menu*>& MenuBar() const { return menuBar_; }

    // Handlers. The window classes override those that they need.
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Resize() {}
    virtual void Form_QueryUnload([[maybe_unused]] bool& cancel) {}
    virtual void Form_Unload([[maybe_unused]] bool& cancel) {}
    /// Setting the key code to 0 keeps the key from the control that has the focus.
    virtual void Form_KeyDown([[maybe_unused]] int& keyCode, [[maybe_unused]] int shift) {}
    virtual void Form_MouseMove([[maybe_unused]] const MouseArguments& mouse) {}
    virtual void Form_MouseUp([[maybe_unused]] const MouseArguments& mouse) {}
    virtual void Form_DragDrop([[maybe_unused]] const DragArguments& drag) {}
    virtual void Form_OLEDragDrop([[maybe_unused]] const std::vector<std::string>& files) {}

    void Deliver(const Event& event) final;

    [[nodiscard]] Form& OwnerForm() override { return *this; }
    /// For backends: null before the form was first shown.
    [[nodiscard]] WindowPeer* Peer() const { return peer_.get(); }

    /// Keeps a form alive while one of its handlers runs.
    class HandlerScope {
      public:
        explicit HandlerScope(Form& form) : app_(form.app_), form_(form) { ++form.handlersRunning_; }
        ~HandlerScope();
        HandlerScope(const HandlerScope&) = delete;
        HandlerScope& operator=(const HandlerScope&) = delete;

      private:
        Application& app_;
        Form& form_;
    };

  protected:
    /// For the constructor: these controls are arranged, at the first show and whenever what they need, the fonts or
    /// the size of the window change. A window with a dialog frame always has the size that they need; a resizable
    /// one has at least that.
    void SetLayout(const Layout& layout);

  private:
    friend class Application;
    friend class Control;
    friend class Menu;

    /// A size that the window manager did not grant, and what it gave instead.
    struct Refusal {
        PixelSize asked;
        PixelSize given;
    };

    void AssignCaption(const std::string& value);
    void AssignLeft(const float& value);
    void AssignTop(const float& value);
    void AssignWidth(const float& value);
    void AssignHeight(const float& value);
    void AssignWindowState(const forms::WindowState& value);
    void AssignBackColor(const Colour& value);
    void AssignMousePointer(const forms::MousePointer& value);

    void AddMenu(Menu& menu) { menuBar_.push_back(&menu); }
    void GiveFocus(Control& control);
    /// The window system moved the focus.
    void NoteFocus(Control& control);
    /// Raises what is to be told when the focus goes from one control to another.
    void TellFocus(Control* from, Control& to);
    void PushFocus();
    void Realize();
    /// Solves the layout, and gives a window that follows it the size that it needs.
    void Rearrange();
    void TakeNaturalSize();
    void PlaceControls();
    void PutOnScreen(bool modal);
    void TakeOffScreen();
    void RaiseResize();
    void Dispatch(const Event& event);
    void HandlePlacement(const PlacementEvent& placement);
    void HandleKey(const KeyEvent& key);
    void HandleDrag(const DragEvent& drag);
    [[nodiscard]] PixelRect OuterPixels() const;
    [[nodiscard]] PixelSize FramePixels() const;

    Application& app_;
    WindowTraits traits_;
    std::vector<Menu*> menuBar_;
    std::optional<Layout> layout_;
    std::unique_ptr<WindowPeer> peer_;
    Control* activeControl_ = nullptr;
    std::map<int, const Control*> pressedKeys_;  ///< by their codes, with the control that had the focus then
    bool visible_ = false;
    bool shownBefore_ = false;
    bool topmost_ = false;
    bool placedByProgram_ = false;
    bool arranging_ = false;
    bool arrangeAgain_ = false;  ///< something changed while the layout was being solved
    bool unloading_ = false;
    bool unloaded_ = false;
    int handlersRunning_ = 0;
    bool awaitingGrant_ = false;  ///< a size was asked for and the window manager has not answered yet
    PixelSize native_;            ///< the outer size that the window manager gave last
    std::optional<Refusal> refusal_;
};

}  // namespace tavrix::forms
