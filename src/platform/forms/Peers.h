#pragma once

#include <optional>
#include <string>
#include <vector>

#include "imaging/graphics/Colour.h"
#include "imaging/graphics/Surface.h"
#include "platform/forms/Events.h"
#include "platform/forms/LayoutItem.h"
#include "platform/forms/RowRanges.h"

namespace tavrix::forms {

// What a backend has for each object of the forms layer. Objects push their state to peers; nothing is ever read
// back. A peer that is told a value raises no event for it. Rectangles are device pixels within the container.

class ControlPeer {
  public:
    virtual ~ControlPeer() = default;

    virtual void SetBounds(const PixelRect& bounds) = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual void SetEnabled(bool enabled) = 0;
    virtual void SetToolTip(const std::string& text) = 0;
    virtual void SetPointer(MousePointer pointer) = 0;
    /// Another pointer, a picture in device pixels. What it points with lies within the picture.
    virtual void SetPointerPicture(const Surface& pixels, int hotX, int hotY) = 0;
    /// What it needs to show all of its text, or as many rows as a list should, in device pixels. Controls that show
    /// pixels need what the program says.
    [[nodiscard]] virtual PixelSize NaturalSize() const = 0;
    /// What a screen reader calls the control; empty: its own text.
    virtual void SetAccessibleName(const std::string& name) = 0;
    /// Gives the control the keyboard. A window gives it to itself, for the hidden holders of the focus.
    virtual void TakeFocus() = 0;
    /// The control is dragged from here on, until the mouse button that is held goes up or Escape is pressed. What it
    /// comes over gets DragEvents, and in the end so does the control itself; without a button it ends at once.
    /// `icon`: what is seen at the pointer; null: the toolkit's own.
    virtual void BeginDrag(const Surface* icon) = 0;
};

class LabelPeer : public ControlPeer {
  public:
    /// The raw caption; an ampersand marks the mnemonic.
    virtual void SetText(const std::string& text) = 0;
    /// The control that the mnemonic gives the focus to, and that a screen reader calls by the label's text.
    virtual void SetBuddy(ControlPeer& buddy) = 0;
    /// Whether lines are broken where they do not fit. Else one that does not fit is cut with an ellipsis.
    virtual void SetWordWrap(bool wraps) = 0;
    /// How high all lines are at this width, in device pixels.
    [[nodiscard]] virtual int HeightAt(int width) const = 0;
    /// Nothing: what lies below shows. The text is drawn so that it can be read.
    virtual void SetBackColor(std::optional<Colour> colour) = 0;
};

/// A frame with a caption, around the controls in it.
class FramePeer : public ControlPeer {
  public:
    /// The raw caption; an ampersand marks the mnemonic.
    virtual void SetText(const std::string& text) = 0;
    /// What lies between its edges and its content, in device pixels.
    [[nodiscard]] virtual PixelInsets Border() const = 0;
};

/// A box to tick, with its text beside it.
class CheckPeer : public ControlPeer {
  public:
    /// The raw caption; an ampersand marks the mnemonic.
    virtual void SetText(const std::string& text) = 0;
    virtual void SetChecked(bool checked) = 0;
};

/// One of several choices. What the others of its group show is not its business.
class OptionPeer : public CheckPeer {
  public:
    /// Whether Tab stops at it.
    virtual void SetTabStop(bool stops) = 0;
};

/// One line of text that the user edits. Positions and lengths count characters.
class TextPeer : public ControlPeer {
  public:
    virtual void SetText(const std::string& text) = 0;
    virtual void SetSelection(int start, int length) = 0;
    /// The most characters that the user can enter; 0: any number.
    virtual void SetMaxLength(int characters) = 0;
};

enum class RowIcon : std::uint8_t {
    None,
    Folder,
    OpenFolder,
    FloppyDrive,
    FixedDrive,
    NetworkDrive,
    CdDrive,
    RamDrive
};

/// How a row of a list looks.
struct ListRow {
    std::string text;  ///< as it stands, ampersands and all
    RowIcon icon = RowIcon::None;
    int indent = 0;  ///< steps to the right
};

/// What a list shows. The peer reads the rows that it needs, when it needs them, and copies none.
class ListContent {
  public:
    [[nodiscard]] virtual int RowCount() const = 0;
    /// `row`: 0 to RowCount() - 1.
    [[nodiscard]] virtual ListRow Row(int row) const = 0;
    /// -1: none.
    [[nodiscard]] virtual int CurrentRow() const = 0;
    /// Whether the row is highlighted. `row`: as above.
    [[nodiscard]] virtual bool RowSelected(int row) const = 0;
    /// Whether several rows can be selected, apart from the current one.
    [[nodiscard]] virtual bool ManySelected() const = 0;

  protected:
    ~ListContent() = default;
};

/// A list, or a list that drops down. What is told has happened in the content already. The rows that can be seen stay
/// where they are on the screen as far as possible.
class ListPeer : public ControlPeer {
  public:
    /// Rows came before the row that was `at`.
    virtual void RowsInserted(int at, int count) = 0;
    /// These rows, as they were counted before, are gone.
    virtual void RowsRemoved(const RowRanges& gone) = 0;
    /// The rows from `first` on, `end` exclusive, look otherwise: their texts, or whether they are selected.
    virtual void RowsChanged(int first, int end) = 0;
    /// All rows are others now. `keepPlace`: the list goes on showing the same places; else it begins at the top.
    virtual void RowsReset(bool keepPlace) = 0;
    /// The current row is another one. A list scrolls so that it can be seen.
    virtual void CurrentChanged() = 0;
    /// Marks where something that is dragged would go: before this row (RowCount(): below the last one).
    virtual void SetInsertionMark(std::optional<int> row) = 0;
};

class ButtonPeer : public ControlPeer {
  public:
    /// The raw caption; an ampersand marks the mnemonic.
    virtual void SetText(const std::string& text) = 0;
    /// Shows a picture in the place of the text, which remains the button's name; null: the text again.
    virtual void SetPicture(const Surface* picture) = 0;
    /// Whether Enter, or Escape, presses the button from anywhere in its window.
    virtual void SetRole(bool isDefault, bool isCancel) = 0;
};

class ScrollBarPeer : public ControlPeer {
  public:
    virtual void SetRange(int min, int max, int smallChange, int largeChange) = 0;
    virtual void SetValue(int value) = 0;
};

/// What a canvas shows: a picture at its upper left corner over a plain background.
struct CanvasView {
    const Surface* pixels = nullptr;  ///< may be null; rows below those asked for may not be final
    bool transparent = false;         ///< the background shows through
    Colour background;
    PixelRect place;  ///< where the picture goes; another size than the picture's stretches it
};

/// What a canvas asks for when it has to be painted.
class CanvasContent {
  public:
    /// `bottom`: the lowest row of the canvas that will be painted, in device pixels, exclusive.
    [[nodiscard]] virtual CanvasView View(int bottom) const = 0;

  protected:
    ~CanvasContent() = default;
};

/// A picture box or an image: pixels that forms drew, the same on every backend. It is a container.
class CanvasPeer : public ControlPeer {
  public:
    /// What the canvas shows in this part of it has changed.
    virtual void Invalidate(const PixelRect& part) = 0;
    /// Paints at once what is invalid.
    virtual void PaintNow() = 0;
    /// Paints nothing, so that what lies below the canvas shows; the mouse still belongs to the canvas.
    virtual void SetSeeThrough(bool seeThrough) = 0;
    /// Lines of text over what the content shows, from the top, in the platform's font. Screen readers read them.
    virtual void SetPrinted(const std::vector<std::string>& lines) = 0;
};

/// How a menu entry stands.
struct MenuItemState {
    enum class Kind : std::uint8_t { Entry, SubMenu, Separator };

    Kind kind = Kind::Entry;
    std::string caption;   ///< raw; an ampersand marks the mnemonic
    bool literal = false;  ///< the caption is data (a path): ampersands are shown as they are
    bool enabled = true;
    bool visible = true;
    bool checkable = false;  ///< an entry that is checked and cleared, whether it is checked now or not
    bool checked = false;

    friend bool operator==(const MenuItemState&, const MenuItemState&) = default;
};

class MenuItemPeer {
  public:
    virtual ~MenuItemPeer() = default;
    virtual void Update(const MenuItemState& state) = 0;
};

/// What a window is, once and for all.
struct WindowTraits {
    std::string name;        ///< the name of its class, for the window system's own records
    bool resizable = false;  ///< sizable frame with minimise and maximise buttons; else a dialog frame
    bool menuBar = false;
    bool acceptsDrops = false;  ///< files of other programs may be dropped on the window itself
    float minimumWidth =
        0;  ///< outer, twips; the window manager is told, and the form insists where it does not obey
    float minimumHeight = 0;  ///< likewise
    bool waitWindow = false;  ///< need not be mapped when it goes again within 150 ms
    bool fullScreen = false;  ///< no frame, over the whole of the screen on which it is placed
};

class WindowPeer : public ControlPeer {
  public:
    /// The title as it stands, ampersands and all.
    virtual void SetTitle(const std::string& title) = 0;
    /// Outer rectangle on the screen and state. SetBounds is not used for windows.
    virtual void SetPlacement(const PixelRect& outer, WindowState state) = 0;
    /// The inside gets this size, in device pixels, wherever the window is. The user cannot make it smaller than
    /// `least`.
    virtual void SetInnerSize(const PixelSize& size, const PixelSize& least) = 0;
    /// The window belongs above this one from its next showing on, and takes input whenever that one does, also while
    /// it is modal. The owner outlives what is owned, or is told to it again.
    virtual void SetOwner(WindowPeer* owner) = 0;
    /// Shows the window; a modal one above its owner, which then takes no input, nor do other windows that were
    /// there before. A window that is shown while a modal one is up belongs above it and stays usable.
    virtual void Show(bool modal) = 0;
    virtual void Hide() = 0;
    virtual void SetTopmost(bool topmost) = 0;
    virtual void SetBackColor(Colour colour) = 0;
};

}  // namespace tavrix::forms
