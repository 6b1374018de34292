#pragma once

#include <concepts>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"
#include "platform/forms/TimerQueue.h"
#include "platform/forms/Toolkit.h"

namespace tavrix::forms {

/// The loaded windows, the message loops, the timers and the screen of one process.
class Application final : private ToolkitEvents {
  public:
    explicit Application(Toolkit& toolkit);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    [[nodiscard]] forms::Screen& Screen() { return screen_; }
    [[nodiscard]] Toolkit& GetToolkit() const { return toolkit_; }
    [[nodiscard]] TimerQueue& Timers() { return timers_; }

    /// Makes a window and runs its Form_Load. It stays loaded, hidden or not, until it is unloaded.
    template <std::derived_from<Form> Window, class... Arguments>
    Window& Load(Arguments&&... arguments) {
        auto form = std::make_unique<Window>(*this, std::forward<Arguments>(arguments)...);
        Window& window = *form;
        const Form::HandlerScope scope(window);
        forms_.push_back(std::move(form));
        window.Form_Load();
        return window;
    }

    /// The loaded windows, in the order in which they were loaded.
    [[nodiscard]] int FormCount() const { return static_cast<int>(forms_.size()); }
    [[nodiscard]] Form& FormAt(int index) const { return *forms_[static_cast<std::size_t>(index)]; }
    /// The loaded window of a class, or null; reaching for a window never loads it.
    template <std::derived_from<Form> Window>
    [[nodiscard]] Window* Loaded() const {
        for (const auto& form : forms_) {
            if (auto* window = dynamic_cast<Window*>(form.get())) return window;
        }
        return nullptr;
    }

    /// Asks the window's handlers, then takes it away for good. False when a handler refused.
    bool Unload(Form& form);

    /// Lets pending messages run.
    void DoEvents();
    /// Opens a message box and gives the button that was pressed.
    Answer MessageBox(const BoxRequest& request);
    /// Opens an input box and gives what was entered; nothing after Cancel.
    std::optional<std::string> InputBox(const InputRequest& request);
    /// How many windows, boxes and menus by the mouse have opened so far, but for windows that only ask for patience. What the
    /// user wished before the last of them, and has not got yet, need not be what he wishes now.
    [[nodiscard]] int Opened() const { return opened_; }
    /// Runs messages until no window is loaded.
    void Run();

    /// Runs what an event raises. Procedures tell their own failures; one that escapes them all ends here: the lock is
    /// released, the user is told, and the process goes on.
    template <class Handler>
    void LastResort(Handler&& handler) {
        try {
            handler();
        } catch (const RuntimeError& error) {
            TellEscaped(error.Description());
        } catch (const std::bad_alloc&) {
            TellEscaped(DescriptionOf(ErrorNumber::OutOfMemory));
        }
    }

    /// Called by the Help button of a message box.
    std::function<void(const BoxRequest&)> OnHelp;
    /// Called with a window's HelpContext when F1 is pressed in it and Form_KeyDown leaves the key alone.
    std::function<void(unsigned context)> OnHelpKey;

  private:
    friend class Control;
    friend class Form;
    friend class Form::HandlerScope;

    void WakeUp() override { timers_.RunDue(); }
    void TellEscaped(const std::string& text);
    /// Makes the form the active one and raises its Form_Activate, unless it is that already.
    void MakeActive(Form& form);
    /// The window system activated a window of ours.
    void NoteActivated(Form& form);
    /// The form has gone from the screen: the one that was active before it becomes so again.
    void ReturnFrom(Form& form);
    void DestroyUnloaded();
    void BeginDrag(Control& control) { dragged_ = &control; }
    /// The control that is dragged, which from now on none is; null where none was.
    [[nodiscard]] Control* TakeDragged() { return std::exchange(dragged_, nullptr); }
    void ForgetDragged(const Control& control) {
        if (dragged_ == &control) dragged_ = nullptr;
    }

    Toolkit& toolkit_;
    forms::Screen screen_;
    TimerQueue timers_;
    std::vector<std::unique_ptr<Form>> forms_;
    std::vector<std::unique_ptr<Form>> unloaded_;  ///< waiting until no handler of theirs runs
    std::vector<Form*> activated_;                 ///< the active form last, before it those active earlier
    int openBoxes_ = 0;
    int opened_ = 0;
    Control* dragged_ = nullptr;
};

/// Takes a window out of the topmost band while a dialog is open, where it is in it.
class TopmostBracket {
  public:
    TopmostBracket(Form& form, bool topmost) : form_(form), topmost_(topmost) {
        if (topmost_) form_.SetTopmost(false);
    }
    ~TopmostBracket() {
        if (topmost_) form_.SetTopmost(true);
    }
    TopmostBracket(const TopmostBracket&) = delete;
    TopmostBracket& operator=(const TopmostBracket&) = delete;

  private:
    Form& form_;
    bool topmost_;
};

}  // namespace tavrix::forms
