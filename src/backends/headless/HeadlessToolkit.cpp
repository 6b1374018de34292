#include "backends/headless/HeadlessToolkit.h"

#include <algorithm>
#include <utility>

namespace tavrix::headless {

using namespace forms;

namespace {

std::string Described(const BoxRequest& request) {
    return "[" + request.title + "] " + request.text;
}

/// What of a box differs from what was expected; empty when nothing does.
std::string Difference(const ExpectedBox& expected, const BoxRequest& request) {
    std::string difference;
    if (expected.title != request.title) difference += " title, expected [" + expected.title + "];";
    if (expected.text != request.text) difference += " text, expected <" + expected.text + ">;";
    if (expected.icon != request.icon) difference += " icon;";
    if (expected.buttons != request.buttons) difference += " buttons;";
    if (expected.defaultButton != request.defaultButton) difference += " default button;";
    if (expected.help != request.help) difference += " Help button;";
    if (expected.systemModal != request.systemModal) difference += " system modality;";
    if (expected.helpContext && *expected.helpContext != request.helpContext) difference += " help context;";
    return difference;
}

/// The entry of a caption in a menu or the menus below it that open from there; null where there is none to choose.
const HeadlessMenuItemPeer* EntryToChoose(const HeadlessMenuItemPeer& menu, const std::string& caption) {
    for (const HeadlessMenuItemPeer* entry : menu.entries) {
        if (!entry->state.enabled || !entry->state.visible) continue;
        if (entry->entries.empty() && entry->state.caption == caption) return entry;
        if (const auto* below = EntryToChoose(*entry, caption)) return below;
    }
    return nullptr;
}

}  // namespace

std::vector<std::string> HeadlessToolkit::Failures() const {
    std::vector<std::string> failures = failures_;
    for (const auto& expected : expectedBoxes_) {
        const auto* box = std::get_if<ExpectedBox>(&expected);
        failures.push_back("a box never came: " +
                           (box != nullptr ? box->text : std::get<ExpectedInput>(expected).prompt));
    }
    return failures;
}

HeadlessWindowPeer* HeadlessToolkit::VisibleWindow(const std::string& name) const {
    const auto found = std::ranges::find_if(windows_, [&name](const HeadlessWindowPeer* window) {
        return window->visible && window->traits.name == name;
    });
    return found == windows_.end() ? nullptr : *found;
}

bool HeadlessToolkit::TakesInput(const HeadlessWindowPeer& window) const {
    const HeadlessWindowPeer* modal = nullptr;
    for (const HeadlessWindowPeer* other : windows_) {
        if (other->visible && other->modal && (modal == nullptr || other->shownAs > modal->shownAs))
            modal = other;
    }
    if (!window.visible) return false;
    if (modal == nullptr || window.shownAs >= modal->shownAs) return true;
    const forms::WindowPeer* owner = window.owner;
    while (owner != nullptr && owner != modal)
        owner = static_cast<const HeadlessWindowPeer*>(owner)->owner;
    return owner == modal;
}

std::unique_ptr<WindowPeer> HeadlessToolkit::CreateWindowPeer(EventSink& sink, const WindowTraits& traits) {
    return std::make_unique<HeadlessWindowPeer>(*this, sink, traits);
}

std::unique_ptr<LabelPeer> HeadlessToolkit::CreateLabel(EventSink& sink, ControlPeer&) {
    return Dressed(std::make_unique<HeadlessLabelPeer>(sink));
}

std::unique_ptr<FramePeer> HeadlessToolkit::CreateFrame(EventSink& sink, ControlPeer&) {
    return Dressed(std::make_unique<HeadlessFramePeer>(sink));
}

std::unique_ptr<ButtonPeer> HeadlessToolkit::CreateButton(EventSink& sink, ControlPeer&) {
    return Dressed(std::make_unique<HeadlessButtonPeer>(sink));
}

std::unique_ptr<CheckPeer> HeadlessToolkit::CreateCheckBox(EventSink& sink, ControlPeer&) {
    return Dressed(std::make_unique<HeadlessCheckPeer>(sink));
}

std::unique_ptr<OptionPeer> HeadlessToolkit::CreateOptionButton(EventSink& sink, ControlPeer&) {
    return Dressed(std::make_unique<HeadlessOptionPeer>(sink));
}

std::unique_ptr<TextPeer> HeadlessToolkit::CreateTextBox(EventSink& sink, ControlPeer&) {
    return Dressed(std::make_unique<HeadlessTextPeer>(sink));
}

std::unique_ptr<ListPeer> HeadlessToolkit::CreateList(EventSink& sink, ControlPeer&,
                                                      const ListContent& content) {
    return Dressed(std::make_unique<HeadlessListPeer>(sink, content));
}

std::unique_ptr<ListPeer> HeadlessToolkit::CreateDropDownList(EventSink& sink, ControlPeer&,
                                                              const ListContent& content) {
    return Dressed(std::make_unique<HeadlessListPeer>(sink, content, true));
}

std::unique_ptr<ScrollBarPeer> HeadlessToolkit::CreateScrollBar(EventSink& sink, ControlPeer&,
                                                                bool vertical) {
    return Dressed(std::make_unique<HeadlessScrollBarPeer>(sink, vertical));
}

std::unique_ptr<CanvasPeer> HeadlessToolkit::CreateCanvas(EventSink& sink, ControlPeer&,
                                                          const CanvasContent& content) {
    return Dressed(std::make_unique<HeadlessCanvasPeer>(sink, content));
}

std::unique_ptr<MenuItemPeer> HeadlessToolkit::CreateMenuItem(EventSink& sink, WindowPeer& window,
                                                              MenuItemPeer* parent,
                                                              const MenuItemState& state) {
    auto peer = std::make_unique<HeadlessMenuItemPeer>(sink, state);
    auto& siblings = parent != nullptr ? static_cast<HeadlessMenuItemPeer*>(parent)->entries
                                       : static_cast<HeadlessWindowPeer&>(window).menuBar;
    siblings.push_back(peer.get());
    return peer;
}

void HeadlessToolkit::OpenPopup(MenuItemPeer& subMenu, MenuItemPeer* defaultEntry,
                                std::function<void()> closed) {
    auto* menu = static_cast<HeadlessMenuItemPeer*>(&subMenu);
    popups_.push_back({menu, static_cast<HeadlessMenuItemPeer*>(defaultEntry)});
    const std::string choice = std::exchange(popupChoice_, "");
    Post([this, menu, choice, closed = std::move(closed)] {
        closed();
        if (choice.empty()) return;
        const HeadlessMenuItemPeer* const entry = EntryToChoose(*menu, choice);
        if (entry == nullptr) {
            failures_.push_back("the popup offers no entry " + choice);
            return;
        }
        Post([&sink = entry->sink] { sink.Deliver(ClickEvent{}); });
    });
}

std::unique_ptr<BoxPeer> HeadlessToolkit::OpenBox(const BoxRequest& request,
                                                  std::function<void(Answer)> answered,
                                                  std::function<void()> help) {
    ++boxesShown_;
    if (expectedBoxes_.empty() || !std::holds_alternative<ExpectedBox>(expectedBoxes_.front())) {
        failures_.push_back("unexpected box: " + Described(request));
        answered(EscapeAnswer(request.buttons));
        return nullptr;
    }
    const ExpectedBox expected = std::get<ExpectedBox>(std::move(expectedBoxes_.front()));
    expectedBoxes_.pop_front();
    const std::string difference = Difference(expected, request);
    if (!difference.empty()) failures_.push_back("box " + Described(request) + " differs in" + difference);
    if (expected.whileOpen) expected.whileOpen();
    if (expected.pressHelp) help();
    answered(expected.reply);
    return nullptr;
}

std::unique_ptr<BoxPeer> HeadlessToolkit::OpenInputBox(
    const InputRequest& request, std::function<void(const std::optional<std::string>&)> answered) {
    ++boxesShown_;
    const std::string described = "[" + request.title + "] " + request.prompt + " <" + request.text + ">";
    if (expectedBoxes_.empty() || !std::holds_alternative<ExpectedInput>(expectedBoxes_.front())) {
        failures_.push_back("unexpected input box: " + described);
        answered(std::nullopt);
        return nullptr;
    }
    const ExpectedInput expected = std::get<ExpectedInput>(std::move(expectedBoxes_.front()));
    expectedBoxes_.pop_front();
    if (expected.prompt != request.prompt || expected.title != request.title ||
        expected.text != request.text) {
        failures_.push_back("input box " + described + " differs, expected [" + expected.title + "] " +
                            expected.prompt + " <" + expected.text + ">");
    }
    answered(expected.reply);
    return nullptr;
}

void HeadlessToolkit::RunPosted() {
    while (!posted_.empty()) {
        const auto action = std::move(posted_.front());
        posted_.pop_front();
        action();
    }
}

void HeadlessToolkit::WakeUpIfDue() {
    while (wakeUp_ && *wakeUp_ <= now_) {
        wakeUp_.reset();
        events_->WakeUp();
    }
}

void HeadlessToolkit::ProcessEvents() {
    ++yields_;
    for (auto due = atYield_.find(yields_); due != atYield_.end(); due = atYield_.find(yields_)) {
        const auto action = std::move(due->second);
        atYield_.erase(due);
        action();
    }
    RunPosted();
    WakeUpIfDue();
}

void HeadlessToolkit::RunUntil(const std::function<bool()>& done) {
    constexpr int tooManyTicks = 1'000'000;
    for (int ticks = 0; !done();) {
        if (!posted_.empty()) {
            const auto action = std::move(posted_.front());
            posted_.pop_front();
            action();
            continue;
        }
        // The user works on the modal window that was shown last.
        const auto modal =
            std::find_if(windows_.rbegin(), windows_.rend(), [this](const HeadlessWindowPeer* window) {
                return window->visible && window->modal && modalDrivers_.contains(window->traits.name) &&
                       driven_[window] != window->shows;
            });
        if (modal != windows_.rend()) {
            driven_[*modal] = (*modal)->shows;
            const auto drive = modalDrivers_.at((*modal)->traits.name);
            drive();
            continue;
        }
        if (!wakeUp_ || ++ticks > tooManyTicks) {
            std::string where;
            for (const HeadlessWindowPeer* window : windows_) {
                if (window->visible) where += window->traits.name + " ";
            }
            throw LoopStuck{where};
        }
        now_ = std::max(now_, *wakeUp_);
        WakeUpIfDue();
    }
}

void HeadlessToolkit::UseFont(const HeadlessFont& value) {
    font = value;
    const std::vector<HeadlessWindowPeer*> windows = windows_;
    for (HeadlessWindowPeer* window : windows)
        window->sink.Deliver(FontEvent{});
}

void HeadlessToolkit::Advance(Milliseconds time) {
    const Milliseconds until = now_ + time;
    while (wakeUp_ && *wakeUp_ <= until) {
        now_ = std::max(now_, *wakeUp_);
        WakeUpIfDue();
    }
    now_ = until;
}

void HeadlessToolkit::SetWakeUp(std::optional<Milliseconds> after) {
    wakeUp_ = after ? std::optional(now_ + *after) : std::nullopt;
}

}  // namespace tavrix::headless
