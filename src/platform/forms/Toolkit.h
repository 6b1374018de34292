#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include "platform/forms/Boxes.h"
#include "platform/forms/Events.h"
#include "platform/forms/LayoutSolver.h"
#include "platform/forms/Peers.h"

namespace tavrix::forms {

using Milliseconds = std::chrono::milliseconds;

/// The screen as it is now.
struct ScreenInfo {
    int width = 0;   ///< device pixels
    int height = 0;  ///< device pixels
    float twipsPerPixelX = 15;
    float twipsPerPixelY = 15;
    int bitsPerPixel = 24;
};

/// A place on the screen in device pixels.
struct ScreenPoint {
    int x = 0;
    int y = 0;
};

/// Indices of the system's metrics, which are device pixels and the same for the whole life of the process.
enum class SystemMetric : int {
    CaptionHeight = 4,
    MenuBarHeight = 15,
    SizingBorderWidth = 32,
    SizingBorderHeight = 33
};

/// What the toolkit tells outside any one control.
class ToolkitEvents {
  public:
    /// The wake-up that was asked for has come.
    virtual void WakeUp() = 0;

  protected:
    ~ToolkitEvents() = default;
};

/// A message box on the screen. Destroying it takes it away.
class BoxPeer {
  public:
    virtual ~BoxPeer() = default;
};

/// One backend of the forms layer: it makes peers, runs the window system's messages and knows the screen.
class Toolkit {
  public:
    virtual ~Toolkit() = default;

    virtual void Attach(ToolkitEvents& events) = 0;

    // Sinks outlive the peers that tell them. The container of a control is a window, a canvas or a frame.
    virtual std::unique_ptr<WindowPeer> CreateWindowPeer(EventSink& sink, const WindowTraits& traits) = 0;
    virtual std::unique_ptr<LabelPeer> CreateLabel(EventSink& sink, ControlPeer& container) = 0;
    virtual std::unique_ptr<FramePeer> CreateFrame(EventSink& sink, ControlPeer& container) = 0;
    virtual std::unique_ptr<ButtonPeer> CreateButton(EventSink& sink, ControlPeer& container) = 0;
    virtual std::unique_ptr<CheckPeer> CreateCheckBox(EventSink& sink, ControlPeer& container) = 0;
    virtual std::unique_ptr<OptionPeer> CreateOptionButton(EventSink& sink, ControlPeer& container) = 0;
    virtual std::unique_ptr<TextPeer> CreateTextBox(EventSink& sink, ControlPeer& container) = 0;
    virtual std::unique_ptr<ListPeer> CreateList(EventSink& sink, ControlPeer& container,
                                                 const ListContent& content) = 0;
    virtual std::unique_ptr<ListPeer> CreateDropDownList(EventSink& sink, ControlPeer& container,
                                                         const ListContent& content) = 0;
    virtual std::unique_ptr<ScrollBarPeer> CreateScrollBar(EventSink& sink, ControlPeer& container,
                                                           bool vertical) = 0;
    virtual std::unique_ptr<CanvasPeer> CreateCanvas(EventSink& sink, ControlPeer& container,
                                                     const CanvasContent& content) = 0;
    /// An entry of the window's menu bar (no parent), or of the submenu `parent`, behind the entries made before.
    virtual std::unique_ptr<MenuItemPeer> CreateMenuItem(EventSink& sink, WindowPeer& window,
                                                         MenuItemPeer* parent,
                                                         const MenuItemState& state) = 0;

    /// Opens a submenu as a popup at the pointer. `closed` is called once it is gone, after the chosen entry's click
    /// was noted but before it is delivered.
    virtual void OpenPopup(MenuItemPeer& subMenu, MenuItemPeer* defaultEntry,
                           std::function<void()> closed) = 0;

    /// Opens a message box; `answered` is called once, with the button that was pressed.
    virtual std::unique_ptr<BoxPeer> OpenBox(const BoxRequest& request, std::function<void(Answer)> answered,
                                             std::function<void()> help) = 0;
    /// Opens an input box; `answered` is called once, with the text that was entered, or nothing after Cancel.
    virtual std::unique_ptr<BoxPeer> OpenInputBox(
        const InputRequest& request, std::function<void(const std::optional<std::string>&)> answered) = 0;

    /// Runs all messages that are pending now.
    virtual void ProcessEvents() = 0;
    /// Runs messages as they come until `done` says so; it is asked after each.
    virtual void RunUntil(const std::function<bool()>& done) = 0;
    /// Calls ToolkitEvents::WakeUp after this time, also within a nested loop; nothing cancels the wish.
    virtual void SetWakeUp(std::optional<Milliseconds> after) = 0;
    /// Time since some fixed moment.
    [[nodiscard]] virtual Milliseconds Now() const = 0;

    [[nodiscard]] virtual ScreenInfo Screen() const = 0;
    /// The part of the screen that is for windows: without the desktop's panels. Device pixels.
    [[nodiscard]] virtual PixelRect UsableArea() const = 0;
    /// The whole of the display for a window that covers one: where the program's active window is, else a visible one
    /// of its windows, else the pointer. Device pixels.
    [[nodiscard]] virtual PixelRect FullScreenPlace() const = 0;
    /// Where the pointer is; on desktops that keep that to themselves, where the program's windows saw it last.
    [[nodiscard]] virtual ScreenPoint PointerPlace() const = 0;
    [[nodiscard]] virtual int Metric(SystemMetric metric) const = 0;
    /// What dialogs leave free.
    [[nodiscard]] virtual LayoutMetrics DialogMetrics() const = 0;
    /// The pointer over all windows; Default lets each control show its own.
    virtual void SetScreenPointer(MousePointer pointer) = 0;
    virtual void Beep() = 0;
};

}  // namespace tavrix::forms
