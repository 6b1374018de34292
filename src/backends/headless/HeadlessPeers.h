#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "backends/headless/HeadlessFont.h"
#include "platform/forms/Peers.h"

namespace tavrix::headless {

class HeadlessToolkit;

// Peers that keep what they were told, for tests to look at.

/// The part that all peers of controls share.
template <class Interface>
class HeadlessControlPeer : public Interface {
  public:
    explicit HeadlessControlPeer(forms::EventSink& events) : sink(events) {}
    HeadlessControlPeer(const HeadlessControlPeer&) = delete;
    HeadlessControlPeer& operator=(const HeadlessControlPeer&) = delete;

    void SetBounds(const PixelRect& value) override { bounds = value; }
    void SetVisible(bool value) override { visible = value; }
    void SetEnabled(bool value) override { enabled = value; }
    void SetToolTip(const std::string& text) override { toolTip = text; }
    void SetPointer(forms::MousePointer value) override { pointer = value; }
    void SetPointerPicture(const Surface& pixels, int x, int y) override {
        pointer = forms::MousePointer::Custom;
        pointerPicture = &pixels;
        hotX = x;
        hotY = y;
    }
    [[nodiscard]] forms::PixelSize NaturalSize() const override { return {}; }
    void SetAccessibleName(const std::string& name) override { accessibleName = name; }
    void TakeFocus() override { ++focusRequests; }
    void BeginDrag(const Surface* icon) override {
        ++drags;
        dragIcon = icon;
    }

    forms::EventSink& sink;
    PixelRect bounds;
    bool visible = false;
    bool enabled = true;
    std::string toolTip;
    forms::MousePointer pointer = forms::MousePointer::Default;
    const Surface* pointerPicture = nullptr;  ///< of the pointer Custom
    int hotX = 0;
    int hotY = 0;
    std::string accessibleName;
    const HeadlessFont* font = nullptr;  ///< the toolkit's, from the start on
    int focusRequests = 0;
    int drags = 0;                      ///< how many the user has begun
    const Surface* dragIcon = nullptr;  ///< of the last one
};

class HeadlessLabelPeer final : public HeadlessControlPeer<forms::LabelPeer> {
  public:
    using HeadlessControlPeer::HeadlessControlPeer;
    void SetText(const std::string& value) override { text = value; }
    void SetBuddy(forms::ControlPeer& control) override { buddy = &control; }
    void SetWordWrap(bool value) override { wraps = value; }
    void SetBackColor(std::optional<Colour> value) override { backColor = value; }
    [[nodiscard]] forms::PixelSize NaturalSize() const override { return font->SizeOf(text); }
    [[nodiscard]] int HeightAt(int width) const override { return font->HeightAt(text, width); }

    std::string text;
    forms::ControlPeer* buddy = nullptr;
    bool wraps = false;
    std::optional<Colour> backColor;
};

class HeadlessFramePeer final : public HeadlessControlPeer<forms::FramePeer> {
  public:
    using HeadlessControlPeer::HeadlessControlPeer;
    void SetText(const std::string& value) override { text = value; }
    [[nodiscard]] forms::PixelInsets Border() const override { return {10, font->height + 4, 10, 10}; }
    [[nodiscard]] forms::PixelSize NaturalSize() const override {
        return {font->SizeOf(text).width + 20, font->height + 14};
    }

    std::string text;
};

/// What check boxes and option buttons share.
template <class Interface>
class HeadlessTickPeer : public HeadlessControlPeer<Interface> {
  public:
    using HeadlessControlPeer<Interface>::HeadlessControlPeer;
    void SetText(const std::string& value) override { text = value; }
    void SetChecked(bool value) override { checked = value; }
    [[nodiscard]] forms::PixelSize NaturalSize() const override {
        const forms::PixelSize size = this->font->SizeOf(text);
        return {size.width + 20, size.height + 2};
    }

    std::string text;
    bool checked = false;
};

using HeadlessCheckPeer = HeadlessTickPeer<forms::CheckPeer>;

class HeadlessOptionPeer final : public HeadlessTickPeer<forms::OptionPeer> {
  public:
    using HeadlessTickPeer::HeadlessTickPeer;
    void SetTabStop(bool stops) override { tabStop = stops; }

    bool tabStop = false;
};

class HeadlessTextPeer final : public HeadlessControlPeer<forms::TextPeer> {
  public:
    using HeadlessControlPeer::HeadlessControlPeer;
    void SetText(const std::string& value) override { text = value; }
    void SetSelection(int start, int length) override {
        selectionStart = start;
        selectionLength = length;
    }
    void SetMaxLength(int characters) override { maxLength = characters; }
    [[nodiscard]] forms::PixelSize NaturalSize() const override {
        return {17 * font->width + 6, font->height + 6};
    }

    /// The user enters characters in the place of what is selected, one by one.
    void UserTypes(const std::string& characters);
    /// The user puts a text from elsewhere in the place of what is selected.
    void UserPastes(const std::string& entered);

    std::string text;
    int selectionStart = 0;
    int selectionLength = 0;
    int maxLength = 0;
};

class HeadlessListPeer final : public HeadlessControlPeer<forms::ListPeer> {
  public:
    HeadlessListPeer(forms::EventSink& events, const forms::ListContent& listContent, bool asDropDown = false)
        : HeadlessControlPeer(events), content(listContent), dropDown(asDropDown) {}
    void RowsInserted(int at, int count) override;
    void RowsRemoved(const forms::RowRanges& gone) override;
    void RowsChanged(int, int) override { ++changes; }
    void RowsReset(bool keepPlace) override;
    void CurrentChanged() override;
    void SetInsertionMark(std::optional<int> row) override { insertionMark = row; }
    /// The texts of all rows.
    [[nodiscard]] std::vector<std::string> Texts() const;
    /// The user scrolls.
    void ScrollTo(int row);

    static constexpr int Page = 10;  ///< rows that can be seen

    [[nodiscard]] forms::PixelSize NaturalSize() const override;

    const forms::ListContent& content;
    bool dropDown;
    int top = 0;
    int resets = 0;
    int changes = 0;
    std::optional<int> insertionMark;
};

class HeadlessButtonPeer final : public HeadlessControlPeer<forms::ButtonPeer> {
  public:
    using HeadlessControlPeer::HeadlessControlPeer;
    void SetText(const std::string& value) override { text = value; }
    void SetPicture(const Surface* value) override { picture = value; }
    void SetRole(bool asDefault, bool asCancel) override {
        isDefault = asDefault;
        isCancel = asCancel;
    }
    [[nodiscard]] forms::PixelSize NaturalSize() const override {
        const forms::PixelSize size = font->SizeOf(text);
        return {std::max(size.width + 20, 80), size.height + 6};
    }

    std::string text;
    const Surface* picture = nullptr;
    bool isDefault = false;
    bool isCancel = false;
};

class HeadlessScrollBarPeer final : public HeadlessControlPeer<forms::ScrollBarPeer> {
  public:
    HeadlessScrollBarPeer(forms::EventSink& events, bool isVertical)
        : HeadlessControlPeer(events), vertical(isVertical) {}
    void SetRange(int newMin, int newMax, int newSmall, int newLarge) override {
        min = newMin;
        max = newMax;
        smallChange = newSmall;
        largeChange = newLarge;
    }
    void SetValue(int newValue) override { value = newValue; }
    [[nodiscard]] forms::PixelSize NaturalSize() const override {
        return vertical ? forms::PixelSize{16, 64} : forms::PixelSize{64, 16};
    }

    bool vertical;
    int min = 0;
    int max = 0;
    int smallChange = 1;
    int largeChange = 1;
    int value = 0;
};

class HeadlessCanvasPeer final : public HeadlessControlPeer<forms::CanvasPeer> {
  public:
    HeadlessCanvasPeer(forms::EventSink& events, const forms::CanvasContent& canvasContent)
        : HeadlessControlPeer(events), content(canvasContent) {}
    void Invalidate(const PixelRect& part) override { invalid.push_back(part); }
    void PaintNow() override {
        invalid.clear();
        ++paintings;
    }
    void SetSeeThrough(bool value) override { seeThrough = value; }
    void SetPrinted(const std::vector<std::string>& lines) override { printed = lines; }
    /// The pixel that a screen would show at a place of the canvas.
    [[nodiscard]] Pixel ShownPixel(int x, int y) const;

    const forms::CanvasContent& content;
    std::vector<PixelRect> invalid;
    std::vector<std::string> printed;
    int paintings = 0;
    bool seeThrough = false;
};

class HeadlessMenuItemPeer final : public forms::MenuItemPeer {
  public:
    HeadlessMenuItemPeer(forms::EventSink& events, forms::MenuItemState start)
        : sink(events), state(std::move(start)) {}
    void Update(const forms::MenuItemState& value) override { state = value; }

    forms::EventSink& sink;
    forms::MenuItemState state;
    std::vector<HeadlessMenuItemPeer*> entries;
};

class HeadlessWindowPeer final : public HeadlessControlPeer<forms::WindowPeer> {
  public:
    HeadlessWindowPeer(HeadlessToolkit& toolkit, forms::EventSink& events,
                       const forms::WindowTraits& windowTraits);
    ~HeadlessWindowPeer() override;

    void SetTitle(const std::string& value) override { title = value; }
    void SetPlacement(const PixelRect& outer, forms::WindowState newState) override;
    void SetInnerSize(const forms::PixelSize& size, const forms::PixelSize& least) override;
    void SetOwner(forms::WindowPeer* value) override { owner = value; }
    void Show(bool asModal) override;
    void Hide() override;
    void SetTopmost(bool value) override { topmost = value; }
    void SetBackColor(Colour colour) override { backColor = colour; }

    forms::WindowTraits traits;
    std::string title;
    PixelRect placement;
    forms::WindowState state = forms::WindowState::Normal;
    forms::PixelSize leastInner;  ///< the user cannot make the inside smaller
    bool modal = false;
    bool topmost = false;
    forms::WindowPeer* owner = nullptr;
    int shows = 0;
    int shownAs = 0;  ///< the how-maniest showing of any window was this one's latest
    int placementsAsked = 0;
    Colour backColor;
    std::vector<HeadlessMenuItemPeer*> menuBar;

  private:
    HeadlessToolkit& toolkit_;
};

}  // namespace tavrix::headless
