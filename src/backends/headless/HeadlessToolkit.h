#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "backends/headless/HeadlessPeers.h"
#include "platform/forms/Toolkit.h"

namespace tavrix::headless {

/// Thrown out of a loop that nothing can end any more. No trap of the logic catches it.
struct LoopStuck {
    std::string where;
};

/// A message box that a test expects next, and what the user does with it.
struct ExpectedBox {
    std::string text;
    forms::BoxIcon icon = forms::BoxIcon::Information;
    forms::BoxButtons buttons = forms::BoxButtons::Ok;
    forms::Answer reply = forms::Answer::Ok;
    std::string title = "Tavrix";
    bool help = false;
    bool systemModal = false;
    std::optional<unsigned> helpContext = {};
    std::function<void()> whileOpen = {};  ///< runs before the reply is given
    bool pressHelp = false;                ///< the user presses Help before the reply
    int defaultButton = 1;                 ///< counted from 1
};

/// An input box that a test expects next, and what the user enters.
struct ExpectedInput {
    std::string prompt;
    std::string title = "Tavrix";
    std::string text = {};             ///< what stands in the field at first
    std::optional<std::string> reply;  ///< nothing: Cancel
};

/// A backend without a window system: a screen that tests set, a scripted user, a virtual clock.
class HeadlessToolkit final : public forms::Toolkit {
  public:
    static constexpr Pixel ButtonFacePixel = OpaquePixel(0xC0, 0xC0, 0xC0);

    // The machine that the tests make.
    forms::ScreenInfo screen{1280, 1024, 15, 15, 24};
    /// The part of the screen without panels; unset: the whole screen.
    std::optional<PixelRect> usableArea;
    /// The font of all windows, until the first is shown; then UseFont() tells them of another.
    HeadlessFont font;
    /// Where a window that covers a display goes; unset: the whole screen.
    std::optional<PixelRect> fullScreenPlace;
    forms::ScreenPoint pointerPlace;
    std::map<forms::SystemMetric, int> metrics{{forms::SystemMetric::CaptionHeight, 19},
                                               {forms::SystemMetric::MenuBarHeight, 20},
                                               {forms::SystemMetric::SizingBorderWidth, 4},
                                               {forms::SystemMetric::SizingBorderHeight, 4}};
    /// What the window manager makes of a placement that a visible window asks for; unset: it grants all.
    std::function<PixelRect(const PixelRect& asked, forms::WindowState state)> windowManager;

    // The scripted user.
    /// Expects a message box or an input box; they must come in the order in which they are expected.
    void Expect(ExpectedBox box) { expectedBoxes_.emplace_back(std::move(box)); }
    void ExpectInput(ExpectedInput box) { expectedBoxes_.emplace_back(std::move(box)); }
    /// Does something the next time messages run.
    void Post(std::function<void()> action) { posted_.push_back(std::move(action)); }
    /// Does something at the n-th time from now that messages run (1: the next).
    void AtYield(int n, std::function<void()> action) { atYield_.emplace(yields_ + n, std::move(action)); }
    /// What the user does with a window of this name each time it becomes modal.
    void OnModal(const std::string& name, std::function<void()> action) {
        modalDrivers_[name] = std::move(action);
    }
    /// What the user chooses, by caption, from the next popup menu or a menu below it; empty: nothing.
    void ChooseFromPopup(const std::string& caption) { popupChoice_ = caption; }
    /// Gives all windows another font.
    void UseFont(const HeadlessFont& value);
    /// Lets virtual time pass; timers tick on the way.
    void Advance(forms::Milliseconds time);

    // What happened.
    /// Everything that did not go as scripted: unexpected boxes, expectations never met.
    [[nodiscard]] std::vector<std::string> Failures() const;
    [[nodiscard]] int BoxesShown() const { return boxesShown_; }
    [[nodiscard]] int Yields() const { return yields_; }
    [[nodiscard]] int Beeps() const { return beeps_; }
    [[nodiscard]] forms::MousePointer ScreenPointer() const { return screenPointer_; }
    [[nodiscard]] const std::vector<HeadlessWindowPeer*>& Windows() const { return windows_; }
    /// The visible window of a name, or null.
    [[nodiscard]] HeadlessWindowPeer* VisibleWindow(const std::string& name) const;
    /// Whether a window takes what the user does: it is visible, and no modal one that was shown later is in its way.
    [[nodiscard]] bool TakesInput(const HeadlessWindowPeer& window) const;
    struct Popup {
        HeadlessMenuItemPeer* menu = nullptr;
        HeadlessMenuItemPeer* defaultEntry = nullptr;
    };
    [[nodiscard]] const std::vector<Popup>& Popups() const { return popups_; }

    void Attach(forms::ToolkitEvents& events) override { events_ = &events; }
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
    [[nodiscard]] forms::Milliseconds Now() const override { return now_; }
    [[nodiscard]] forms::ScreenInfo Screen() const override { return screen; }
    [[nodiscard]] PixelRect UsableArea() const override {
        return usableArea.value_or(PixelRect{0, 0, screen.width, screen.height});
    }
    [[nodiscard]] PixelRect FullScreenPlace() const override {
        return fullScreenPlace.value_or(PixelRect{0, 0, screen.width, screen.height});
    }
    [[nodiscard]] forms::ScreenPoint PointerPlace() const override { return pointerPlace; }
    [[nodiscard]] int Metric(forms::SystemMetric metric) const override { return metrics.at(metric); }
    [[nodiscard]] forms::LayoutMetrics DialogMetrics() const override {
        return {{9, 9, 9, 9}, 6, 6, screen.twipsPerPixelX, screen.twipsPerPixelY};
    }
    void SetScreenPointer(forms::MousePointer pointer) override { screenPointer_ = pointer; }
    void Beep() override { ++beeps_; }

  private:
    friend class HeadlessWindowPeer;

    /// Gives a peer the font.
    template <class Peer>
    std::unique_ptr<Peer> Dressed(std::unique_ptr<Peer> peer) const {
        peer->font = &font;
        return peer;
    }
    void RunPosted();
    void WakeUpIfDue();

    forms::ToolkitEvents* events_ = nullptr;
    std::vector<HeadlessWindowPeer*> windows_;
    std::deque<std::variant<ExpectedBox, ExpectedInput>> expectedBoxes_;
    std::deque<std::function<void()>> posted_;
    std::multimap<int, std::function<void()>> atYield_;
    std::map<std::string, std::function<void()>> modalDrivers_;
    std::map<const HeadlessWindowPeer*, int> driven_;  ///< the show of a modal window that was driven last
    std::string popupChoice_;
    std::vector<Popup> popups_;
    std::vector<std::string> failures_;
    forms::Milliseconds now_{0};
    std::optional<forms::Milliseconds> wakeUp_;
    int windowsShown_ = 0;
    forms::MousePointer screenPointer_ = forms::MousePointer::Default;
    int boxesShown_ = 0;
    int yields_ = 0;
    int beeps_ = 0;
};

}  // namespace tavrix::headless
