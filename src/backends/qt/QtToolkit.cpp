#include "backends/qt/QtToolkit.h"

#include <QApplication>
#include <QEventLoop>
#include <QScreen>
#include <QTimer>
#include <chrono>
#include <optional>
#include <utility>

#include "backends/qt/Displays.h"
#include "backends/qt/peers/DialogSpace.h"
#include "backends/qt/peers/HeldKeys.h"
#include "backends/qt/peers/Metrics.h"
#include "backends/qt/peers/Popups.h"
#include "backends/qt/peers/QtBox.h"
#include "backends/qt/peers/QtButton.h"
#include "backends/qt/peers/QtCanvas.h"
#include "backends/qt/peers/QtCheckBox.h"
#include "backends/qt/peers/QtDropDownList.h"
#include "backends/qt/peers/QtFrame.h"
#include "backends/qt/peers/QtInputBox.h"
#include "backends/qt/peers/QtLabel.h"
#include "backends/qt/peers/QtList.h"
#include "backends/qt/peers/QtMenuItem.h"
#include "backends/qt/peers/QtOptionButton.h"
#include "backends/qt/peers/QtScrollBar.h"
#include "backends/qt/peers/QtTextBox.h"
#include "backends/qt/peers/QtWindow.h"
#include "backends/qt/peers/SilentBox.h"
#include "backends/qt/x11/HostWindow.h"

namespace tavrix::qt {

using namespace forms;

struct QtToolkit::State {
    State(ToDrivePath function, std::shared_ptr<x11::FrameQuestion> frames, MenuBarNote note)
        : toDrivePath(std::move(function)), metrics(std::move(frames), std::move(note)) {
        wakeUp.setSingleShot(true);
        wakeUp.setTimerType(Qt::PreciseTimer);
        QObject::connect(&wakeUp, &QTimer::timeout, &wakeUp, [this] {
            const LogicCalls::Scope scope(calls);
            if (events != nullptr) events->WakeUp();
        });
    }

    /// Widgets that were given up outside any loop wait for one; inside a handler they have to.
    void DeleteWhatIsGone() const {
        if (calls.None()) QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// Makes a peer that hears of what is dragged over it.
    template <class Peer, class... Arguments>
    std::unique_ptr<Peer> Make(EventSink& sink, Arguments&&... arguments) {
        const SinkPort port(sink, calls);
        auto peer = std::make_unique<Peer>(port, std::forward<Arguments>(arguments)...);
        peer->OpenDoor(port, toDrivePath);
        return peer;
    }

    ToDrivePath toDrivePath;
    LogicCalls calls;
    ToolkitEvents* events = nullptr;
    QTimer wakeUp;
    Popups popups{calls};
    ScreenPointer pointer;
    Metrics metrics;
    HeldKeys heldKeys;
    x11::HostWindow* host = nullptr;
};

QtToolkit::QtToolkit(ToDrivePath toDrivePath, std::shared_ptr<x11::FrameQuestion> frames, MenuBarNote note)
    : state_(std::make_unique<State>(std::move(toDrivePath), std::move(frames), std::move(note))) {}

QtToolkit::~QtToolkit() {
    SetScreenPointer(MousePointer::Default);
    // Widgets that are still to go know parts of the toolkit.
    state_->DeleteWhatIsGone();
}

void QtToolkit::Embed(x11::HostWindow& host) {
    state_->host = &host;
}

void QtToolkit::Attach(ToolkitEvents& events) {
    state_->events = &events;
}

std::unique_ptr<WindowPeer> QtToolkit::CreateWindowPeer(EventSink& sink, const WindowTraits& traits) {
    return state_->Make<QtWindow>(sink, traits, state_->metrics, state_->pointer,
                                  traits.fullScreen ? state_->host : nullptr);
}

std::unique_ptr<LabelPeer> QtToolkit::CreateLabel(EventSink& sink, ControlPeer& container) {
    return state_->Make<QtLabel>(sink, NativeOf(container));
}

std::unique_ptr<FramePeer> QtToolkit::CreateFrame(EventSink& sink, ControlPeer& container) {
    return state_->Make<QtFrame>(sink, NativeOf(container));
}

std::unique_ptr<ButtonPeer> QtToolkit::CreateButton(EventSink& sink, ControlPeer& container) {
    return state_->Make<QtButton>(sink, NativeOf(container));
}

std::unique_ptr<CheckPeer> QtToolkit::CreateCheckBox(EventSink& sink, ControlPeer& container) {
    return state_->Make<QtCheckBox>(sink, NativeOf(container));
}

std::unique_ptr<OptionPeer> QtToolkit::CreateOptionButton(EventSink& sink, ControlPeer& container) {
    return state_->Make<QtOptionButton>(sink, NativeOf(container));
}

std::unique_ptr<TextPeer> QtToolkit::CreateTextBox(EventSink& sink, ControlPeer& container) {
    return state_->Make<QtTextBox>(sink, NativeOf(container));
}

std::unique_ptr<ListPeer> QtToolkit::CreateList(EventSink& sink, ControlPeer& container,
                                                const ListContent& content) {
    return state_->Make<QtList>(sink, NativeOf(container), content);
}

std::unique_ptr<ListPeer> QtToolkit::CreateDropDownList(EventSink& sink, ControlPeer& container,
                                                        const ListContent& content) {
    return state_->Make<QtDropDownList>(sink, NativeOf(container), content);
}

std::unique_ptr<ScrollBarPeer> QtToolkit::CreateScrollBar(EventSink& sink, ControlPeer& container,
                                                          bool vertical) {
    return state_->Make<QtScrollBar>(sink, NativeOf(container), vertical);
}

std::unique_ptr<CanvasPeer> QtToolkit::CreateCanvas(EventSink& sink, ControlPeer& container,
                                                    const CanvasContent& content) {
    return state_->Make<QtCanvas>(sink, NativeOf(container), content);
}

std::unique_ptr<MenuItemPeer> QtToolkit::CreateMenuItem(EventSink& sink, WindowPeer& window,
                                                        MenuItemPeer* parent, const MenuItemState& state) {
    return std::make_unique<QtMenuItem>(SinkPort(sink, state_->calls), dynamic_cast<QtWindow&>(window),
                                        dynamic_cast<QtMenuItem*>(parent), state, state_->popups);
}

void QtToolkit::OpenPopup(MenuItemPeer& subMenu, MenuItemPeer* defaultEntry, std::function<void()> closed) {
    state_->popups.Open(dynamic_cast<QtMenuItem&>(subMenu), dynamic_cast<QtMenuItem*>(defaultEntry),
                        std::move(closed));
}

std::unique_ptr<BoxPeer> QtToolkit::OpenBox(const BoxRequest& request, std::function<void(Answer)> answered,
                                            std::function<void()> help) {
    if (state_->host != nullptr) return std::make_unique<SilentBox>(request, answered, state_->calls);
    return std::make_unique<QtBox>(request, std::move(answered), help, state_->pointer, state_->calls);
}

std::unique_ptr<BoxPeer> QtToolkit::OpenInputBox(
    const InputRequest& request, std::function<void(const std::optional<std::string>&)> answered) {
    return std::make_unique<QtInputBox>(request, std::move(answered), state_->pointer, state_->calls);
}

void QtToolkit::ProcessEvents() {
    // An upper bound, for handlers that post to themselves without end.
    constexpr int LongestMilliseconds = 1000;
    state_->DeleteWhatIsGone();
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents(QEventLoop::AllEvents, LongestMilliseconds);
}

void QtToolkit::RunUntil(const std::function<bool()>& done) {
    QEventLoop loop;
    while (!done()) {
        state_->DeleteWhatIsGone();
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void QtToolkit::SetWakeUp(std::optional<Milliseconds> after) {
    if (after) {
        state_->wakeUp.start(std::max(*after, Milliseconds(0)));
    } else {
        state_->wakeUp.stop();
    }
}

Milliseconds QtToolkit::Now() const {
    return std::chrono::duration_cast<Milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

ScreenInfo QtToolkit::Screen() const {
    constexpr float TwipsPerLogicalPixel = 15;
    ScreenInfo info;
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) return info;
    const double ratio = screen->devicePixelRatio();
    info.width = ToDevice(screen->size().width(), ratio);
    info.height = ToDevice(screen->size().height(), ratio);
    info.twipsPerPixelX = info.twipsPerPixelY = static_cast<float>(TwipsPerLogicalPixel / ratio);
    info.bitsPerPixel = screen->depth();
    return info;
}

PixelRect QtToolkit::UsableArea() const {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) return {};
    const double ratio = screen->devicePixelRatio();
    const QRect area = screen->availableGeometry();
    return {ToDevice(area.x(), ratio), ToDevice(area.y(), ratio), ToDevice(area.width(), ratio),
            ToDevice(area.height(), ratio)};
}

PixelRect QtToolkit::FullScreenPlace() const {
    if (state_->host != nullptr) return {0, 0, state_->host->Size().width, state_->host->Size().height};
    const QScreen* display = FullScreenDisplay();
    return display != nullptr ? PlaceOfDisplay(*display) : PixelRect{};
}

ScreenPoint QtToolkit::PointerPlace() const {
    const double ratio = DeviceRatio();
    const QPoint place = QCursor::pos();
    return {ToDevice(place.x(), ratio), ToDevice(place.y(), ratio)};
}

int QtToolkit::Metric(SystemMetric metric) const {
    return state_->metrics.Of(metric);
}

LayoutMetrics QtToolkit::DialogMetrics() const {
    return MetricsOf(*QApplication::style());
}

void QtToolkit::SetScreenPointer(MousePointer pointer) {
    state_->pointer.Set(pointer);
}

void QtToolkit::Beep() {
    QApplication::beep();
}

}  // namespace tavrix::qt
