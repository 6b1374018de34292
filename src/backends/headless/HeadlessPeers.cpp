#include "backends/headless/HeadlessPeers.h"

#include <algorithm>
#include <cstdint>

#include "backends/headless/HeadlessToolkit.h"
#include "base/Text.h"
#include "platform/forms/RowWindow.h"

namespace tavrix::headless {

Pixel HeadlessCanvasPeer::ShownPixel(int x, int y) const {
    const forms::CanvasView view = content.View(y + 1);
    const Pixel background =
        view.background == ButtonFace ? HeadlessToolkit::ButtonFacePixel : ToPixel(view.background);
    if (view.pixels == nullptr) return background;
    const PixelRect& place = view.place;
    if (x < place.left || y < place.top || x >= place.left + place.width || y >= place.top + place.height) {
        return background;
    }
    const auto scaled = [](int at, int size, int shown) {
        return static_cast<int>(static_cast<std::int64_t>(at) * size / shown);
    };
    const int column = scaled(x - place.left, view.pixels->Width(), place.width);
    const int row = scaled(y - place.top, view.pixels->Height(), place.height);
    const Pixel pixel = view.pixels->Row(row)[static_cast<std::size_t>(column)];
    return (pixel >> 24U) == 0 ? background : pixel;
}

forms::PixelSize HeadlessListPeer::NaturalSize() const {
    constexpr int Characters = 24;
    constexpr int Rows = 8;
    if (!dropDown) return {Characters * font->width, Rows * font->height};
    int widest = 0;
    for (const std::string& text : Texts())
        widest = std::max(widest, font->width * static_cast<int>(CharacterCount(text)));
    return {widest + 40, font->height + 6};
}

std::vector<std::string> HeadlessListPeer::Texts() const {
    std::vector<std::string> texts;
    for (int row = 0; row < content.RowCount(); ++row)
        texts.push_back(content.Row(row).text);
    return texts;
}

void HeadlessListPeer::ScrollTo(int row) {
    top = forms::TopWithin(row, Page, content.RowCount());
}

void HeadlessListPeer::RowsInserted(int at, int count) {
    ScrollTo(forms::TopAfterInsertion(top, at, count));
}

void HeadlessListPeer::RowsRemoved(const forms::RowRanges& gone) {
    ScrollTo(forms::TopAfterRemoval(top, gone));
}

void HeadlessListPeer::RowsReset(bool keepPlace) {
    ++resets;
    // At the top nothing has to be known of the rows.
    if (keepPlace)
        ScrollTo(top);
    else
        top = 0;
}

void HeadlessListPeer::CurrentChanged() {
    ScrollTo(forms::TopShowing(content.CurrentRow(), top, Page));
}

void HeadlessTextPeer::UserTypes(const std::string& characters) {
    for (std::string rest = characters; !rest.empty(); rest = From(rest, 1)) {
        const std::string typed = Left(rest, 1);
        bool discarded = false;
        sink.Deliver(forms::CharacterEvent{typed, &discarded});
        if (!discarded) UserPastes(typed);
    }
}

void HeadlessTextPeer::UserPastes(const std::string& entered) {
    const std::string before = Left(text, static_cast<std::size_t>(selectionStart));
    const std::string behind = From(text, static_cast<std::size_t>(selectionStart + selectionLength));
    std::string kept = entered;
    if (maxLength != 0) {
        const std::size_t room =
            static_cast<std::size_t>(maxLength) - CharacterCount(before) - CharacterCount(behind);
        kept = Left(entered, room);
    }
    text = before + kept + behind;
    selectionStart += static_cast<int>(CharacterCount(kept));
    selectionLength = 0;
    sink.Deliver(forms::TextEvent{text, selectionStart, 0});
}

HeadlessWindowPeer::HeadlessWindowPeer(HeadlessToolkit& toolkit, forms::EventSink& events,
                                       const forms::WindowTraits& windowTraits)
    : HeadlessControlPeer(events), traits(windowTraits), toolkit_(toolkit) {
    toolkit_.windows_.push_back(this);
}

HeadlessWindowPeer::~HeadlessWindowPeer() {
    std::erase(toolkit_.windows_, this);
    toolkit_.driven_.erase(this);
}

void HeadlessWindowPeer::SetPlacement(const PixelRect& outer, forms::WindowState newState) {
    ++placementsAsked;
    state = newState;
    placement = outer;
    if (visible && toolkit_.windowManager) {
        const PixelRect granted = toolkit_.windowManager(outer, newState);
        if (granted != outer) {
            placement = granted;
            toolkit_.Post([this, granted, newState] {
                sink.Deliver(forms::PlacementEvent{granted, newState});
            });
        }
    }
}

void HeadlessWindowPeer::SetInnerSize(const forms::PixelSize& size, const forms::PixelSize& least) {
    using forms::SystemMetric;
    leastInner = least;
    PixelRect outer = placement;
    outer.width = size.width + 2 * toolkit_.Metric(SystemMetric::SizingBorderWidth);
    outer.height = size.height + 2 * toolkit_.Metric(SystemMetric::SizingBorderHeight) +
                   toolkit_.Metric(SystemMetric::CaptionHeight);
    if (traits.menuBar) outer.height += toolkit_.Metric(SystemMetric::MenuBarHeight);
    SetPlacement(outer, state);
}

void HeadlessWindowPeer::Show(bool asModal) {
    visible = true;
    modal = asModal;
    ++shows;
    shownAs = ++toolkit_.windowsShown_;
}

void HeadlessWindowPeer::Hide() {
    visible = false;
}

}  // namespace tavrix::headless
