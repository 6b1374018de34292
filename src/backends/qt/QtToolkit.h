#pragma once

#include <memory>

#include "backends/qt/peers/FileDrop.h"
#include "backends/qt/peers/MenuBarNote.h"
#include "platform/forms/Toolkit.h"

namespace tavrix::qt {

namespace x11 {
class FrameQuestion;
class HostWindow;
}  // namespace x11

/// The Qt backend of the forms layer. A QtProcess must live as long as it does.
class QtToolkit final : public forms::Toolkit {
  public:
    /// `toDrivePath` turns the host path of a dropped file into a drive path. `frames` is the question to the window
    /// manager, where it has been asked before.
    explicit QtToolkit(ToDrivePath toDrivePath, std::shared_ptr<x11::FrameQuestion> frames = {},
                       MenuBarNote note = {});
    ~QtToolkit() override;
    QtToolkit(const QtToolkit&) = delete;
    QtToolkit& operator=(const QtToolkit&) = delete;

    /// From now on a window that covers a display fills this window of another program instead, takes no input and no
    /// keyboard, and boxes, which nobody could see, go to the standard error. Before any window is made; the host must
    /// outlive all of them.
    void Embed(x11::HostWindow& host);

    void Attach(forms::ToolkitEvents& events) override;

    std::unique_ptr<forms::WindowPeer> CreateWindowPeer(forms::EventSink& sink,
                                                        const forms::WindowTraits& traits) override;
    std::unique_ptr<forms::LabelPeer> CreateLabel(forms::EventSink& sink,
                                                  forms::ControlPeer& container) override;
    std::unique_ptr<forms::FramePeer> CreateFrame(forms::EventSink& sink,
                                                  forms::ControlPeer& container) override;
    std::unique_ptr<forms::ButtonPeer> CreateButton(forms::EventSink& sink,
                                                    forms::ControlPeer& container) override;
    std::unique_ptr<forms::CheckPeer> CreateCheckBox(forms::EventSink& sink,
                                                     forms::ControlPeer& container) override;
    std::unique_ptr<forms::OptionPeer> CreateOptionButton(forms::EventSink& sink,
                                                          forms::ControlPeer& container) override;
    std::unique_ptr<forms::TextPeer> CreateTextBox(forms::EventSink& sink,
                                                   forms::ControlPeer& container) override;
    std::unique_ptr<forms::ListPeer> CreateList(forms::EventSink& sink, forms::ControlPeer& container,
                                                const forms::ListContent& content) override;
    std::unique_ptr<forms::ListPeer> CreateDropDownList(forms::EventSink& sink, forms::ControlPeer& container,
                                                        const forms::ListContent& content) override;
    std::unique_ptr<forms::ScrollBarPeer> CreateScrollBar(forms::EventSink& sink,
                                                          forms::ControlPeer& container,
                                                          bool vertical) override;
    std::unique_ptr<forms::CanvasPeer> CreateCanvas(forms::EventSink& sink, forms::ControlPeer& container,
                                                    const forms::CanvasContent& content) override;
    std::unique_ptr<forms::MenuItemPeer> CreateMenuItem(forms::EventSink& sink, forms::WindowPeer& window,
                                                        forms::MenuItemPeer* parent,
                                                        const forms::MenuItemState& state) override;

    void OpenPopup(forms::MenuItemPeer& subMenu, forms::MenuItemPeer* defaultEntry,
                   std::function<void()> closed) override;
    std::unique_ptr<forms::BoxPeer> OpenBox(const forms::BoxRequest& request,
                                            std::function<void(forms::Answer)> answered,
                                            std::function<void()> help) override;
    std::unique_ptr<forms::BoxPeer> OpenInputBox(
        const forms::InputRequest& request,
        std::function<void(const std::optional<std::string>&)> answered) override;

    void ProcessEvents() override;
    void RunUntil(const std::function<bool()>& done) override;
    void SetWakeUp(std::optional<forms::Milliseconds> after) override;
    [[nodiscard]] forms::Milliseconds Now() const override;

    [[nodiscard]] forms::ScreenInfo Screen() const override;
    [[nodiscard]] PixelRect UsableArea() const override;
    [[nodiscard]] PixelRect FullScreenPlace() const override;
    [[nodiscard]] forms::ScreenPoint PointerPlace() const override;
    [[nodiscard]] int Metric(forms::SystemMetric metric) const override;
    [[nodiscard]] forms::LayoutMetrics DialogMetrics() const override;
    void SetScreenPointer(forms::MousePointer pointer) override;
    void Beep() override;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace tavrix::qt
