#include "forms_conformance/QtDriver.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <QWindow>
#include <deque>
#include <optional>
#include <utility>

#include "backends/qt/QtProcess.h"
#include "backends/qt/QtToolkit.h"
#include "backends/qt/peers/CanvasWidget.h"
#include "backends/qt/peers/CodePoints.h"
#include "backends/qt/peers/QtList.h"
#include "backends/qt/peers/QtMenuItem.h"

namespace tavrix::conformance {

namespace {

using namespace forms;

/// One process-wide side of the window system for all tests.
class ProcessEnvironment final : public testing::Environment {
  public:
    void SetUp() override { process_ = std::make_unique<qt::QtProcess>("forms_conformance_qt_tests"); }
    void TearDown() override { process_.reset(); }

  private:
    std::unique_ptr<qt::QtProcess> process_;
};

// GoogleTest owns it.
const testing::Environment* const Registered = testing::AddGlobalTestEnvironment(new ProcessEnvironment);

Qt::Key KeyOf(int keyCode) {
    switch (keyCode) {
        case KeyCode::Escape:
            return Qt::Key_Escape;
        case KeyCode::Return:
            return Qt::Key_Return;
        case KeyCode::F1:
            return Qt::Key_F1;
        case KeyCode::Tab:
            return Qt::Key_Tab;
        case KeyCode::Left:
            return Qt::Key_Left;
        case KeyCode::Up:
            return Qt::Key_Up;
        case KeyCode::Right:
            return Qt::Key_Right;
        case KeyCode::Down:
            return Qt::Key_Down;
        case KeyCode::Home:
            return Qt::Key_Home;
        case KeyCode::End:
            return Qt::Key_End;
        case KeyCode::PageUp:
            return Qt::Key_PageUp;
        case KeyCode::PageDown:
            return Qt::Key_PageDown;
        case KeyCode::Back:
            return Qt::Key_Backspace;
        case KeyCode::Delete:
            return Qt::Key_Delete;
        case KeyCode::Apps:
            return Qt::Key_Menu;
        case KeyCode::F10:
            return Qt::Key_F10;
        default:
            return static_cast<Qt::Key>(keyCode);
    }
}

Qt::KeyboardModifiers ModifiersOf(int shift) {
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, (shift & ShiftMask::Shift) != 0);
    modifiers.setFlag(Qt::ControlModifier, (shift & ShiftMask::Ctrl) != 0);
    modifiers.setFlag(Qt::AltModifier, (shift & ShiftMask::Alt) != 0);
    return modifiers;
}

QMessageBox::Icon IconOf(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::None:
            return QMessageBox::NoIcon;
        case BoxIcon::Information:
            return QMessageBox::Information;
        case BoxIcon::Exclamation:
            return QMessageBox::Warning;
        case BoxIcon::Question:
            return QMessageBox::Question;
        case BoxIcon::Stop:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

struct ButtonText {
    Answer answer;
    QMessageBox::StandardButton button;
    const char* text;
};

std::vector<ButtonText> ButtonsOf(BoxButtons buttons) {
    const ButtonText ok{Answer::Ok, QMessageBox::Ok, "OK"};
    const ButtonText cancel{Answer::Cancel, QMessageBox::Cancel, "Cancel"};
    const ButtonText yes{Answer::Yes, QMessageBox::Yes, "&Yes"};
    const ButtonText no{Answer::No, QMessageBox::No, "&No"};
    const ButtonText retry{Answer::Retry, QMessageBox::Retry, "&Retry"};
    switch (buttons) {
        case BoxButtons::Ok:
            return {ok};
        case BoxButtons::OkCancel:
            return {ok, cancel};
        case BoxButtons::YesNoCancel:
            return {yes, no, cancel};
        case BoxButtons::YesNo:
            return {yes, no};
        case BoxButtons::RetryCancel:
            return {retry, cancel};
    }
    return {};
}

class QtDriver final : public Driver {
  public:
    QtDriver() {
        QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { Watch(); });
        watch_.start(1);
    }
    ~QtDriver() override { QApplication::setFont(usualFont_); }

    Toolkit& GetToolkit() override { return toolkit_; }

    void UserClicks(CommandButton& button) override {
        QWidget& widget = WidgetOf(button);
        if (!widget.isVisible()) return;
        QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {},
                          widget.mapTo(widget.window(), widget.rect().center()));
    }
    void UserKey(Form& form, int keyCode, int shift) override {
        QTest::keyClick(WidgetOf(form).windowHandle(), KeyOf(keyCode), ModifiersOf(shift));
    }
    void UserResizes(Form& form, int width, int height) override {
        const int frameWidth = 2 * toolkit_.Metric(SystemMetric::SizingBorderWidth);
        const int frameHeight = 2 * toolkit_.Metric(SystemMetric::SizingBorderHeight) +
                                toolkit_.Metric(SystemMetric::CaptionHeight);
        const double ratio = qt::DeviceRatio();
        WidgetOf(form).windowHandle()->resize(qt::RoundToLogical(width - frameWidth, ratio),
                                              qt::RoundToLogical(height - frameHeight, ratio));
    }
    void UserScrolls(ScrollBar& bar, int value) override {
        dynamic_cast<QScrollBar&>(WidgetOf(bar)).setSliderPosition(value);
    }
    void UserChooses(Menu& entry) override {
        QAction& action = ActionOf(entry);
        if (action.isEnabled() && action.isVisible()) action.trigger();
    }
    void UserCloses(Form& form) override { WidgetOf(form).windowHandle()->close(); }
    void UserDrags(PictureBox& box, int button, PixelRect fromTo) override {
        const Qt::MouseButton pressed = button == MouseButton::Right ? Qt::RightButton : Qt::LeftButton;
        QWindow* window = WidgetOf(box).window()->windowHandle();
        QTest::mousePress(window, pressed, {}, PlaceOf(box, fromTo.left, fromTo.top));
        QTest::mouseRelease(window, pressed, {}, PlaceOf(box, fromTo.width, fromTo.height));
    }
    void UserPoints(Control& control, int x, int y) override {
        QWidget& widget = WidgetOf(control);
        Point(*widget.window(), widget.mapTo(widget.window(), Logical(x, y)));
    }
    void UserPoints(Form& form, int x, int y) override { Point(WidgetOf(form), Logical(x, y)); }
    void UserClicksOn(Image& image, int button) override {
        QWidget& widget = WidgetOf(image);
        const Qt::MouseButton pressed = button == MouseButton::Right ? Qt::RightButton : Qt::LeftButton;
        QTest::mouseClick(widget.window()->windowHandle(), pressed, {},
                          widget.mapTo(widget.window(), QPoint(1, 1)));
    }
    void UserFocuses(Control& control) override { WidgetOf(control).setFocus(Qt::TabFocusReason); }
    void UserTicks(CheckBox& box) override { PressMark(WidgetOf(box)); }
    void UserPicks(OptionButton& option) override { PressMark(WidgetOf(option)); }
    void UserTypes(TextBox& field, const std::string& text) override {
        QWidget& widget = WidgetOf(field);
        if (!widget.isEnabled()) return;
        if (std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; })) {
            for (const char c : text)
                QTest::keyClick(widget.window()->windowHandle(), c);
            return;
        }
        QInputMethodEvent event;
        event.setCommitString(QString::fromStdString(text));
        QCoreApplication::sendEvent(&widget, &event);
    }
    void UserPastes(TextBox& field, const std::string& text) override {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
        QTest::keyClick(WidgetOf(field).window()->windowHandle(), Qt::Key_V, Qt::ControlModifier);
    }
    void UserSelects(TextBox& field, Selection selection) override {
        QWindow* window = WidgetOf(field).window()->windowHandle();
        QTest::keyClick(window, Qt::Key_Home);
        for (int i = 0; i < selection.start; ++i)
            QTest::keyClick(window, Qt::Key_Right);
        for (int i = 0; i < selection.length; ++i)
            QTest::keyClick(window, Qt::Key_Right, Qt::ShiftModifier);
    }
    void UserChoosesRow(RowControl& list, int row, int button) override {
        if (auto* combo = qobject_cast<QComboBox*>(&WidgetOf(list))) {
            if (!combo->isEnabled()) return;
            combo->setFocus(Qt::MouseFocusReason);
            combo->showPopup();
            combo->view()->setCurrentIndex(combo->model()->index(row, 0));
            QTest::keyClick(combo->view(), Qt::Key_Return);
            return;
        }
        QTest::mouseClick(WidgetOf(list).window()->windowHandle(), QtButtonOf(button), {},
                          PlaceOfRow(list, row));
    }
    void UserDoubleClicks(RowControl& list, int row) override {
        QWindow* window = WidgetOf(list).window()->windowHandle();
        const QPoint place = PlaceOfRow(list, row);
        QTest::mouseDClick(window, Qt::LeftButton, {}, place);
    }
    void UserPressesRow(ListControl& list, int row, int button, int shift) override {
        mouseIn_ = WidgetOf(list).window();
        QTest::mousePress(mouseIn_->windowHandle(), QtButtonOf(button), ModifiersOf(shift),
                          PlaceOfRow(list, row));
    }
    void UserMovesToRow(ListControl& list, int row, int shift) override {
        MoveHeld(list, PlaceOfRow(list, row), shift);
    }
    void UserReleasesRow(ListControl& list, int row, int button, int shift) override {
        QTest::mouseRelease(WidgetOf(list).window()->windowHandle(), QtButtonOf(button), ModifiersOf(shift),
                            PlaceOfRow(list, row));
    }
    void UserDragsOver(Control& target, int row) override {
        QWidget& widget = WidgetOf(target);
        const auto* list = dynamic_cast<ListControl*>(&target);
        Held(widget, list != nullptr ? PlaceOfRow(*list, row)
                                     : widget.mapTo(widget.window(), widget.rect().center()));
    }
    void UserDragsOver(Form& form) override {
        QWidget& window = WidgetOf(form);
        Held(window, QPoint(window.width() - 3, window.height() - 3));
    }
    void UserLetsGo() override { QTest::mouseRelease(mouseIn_->windowHandle(), Qt::LeftButton, {}, heldAt_); }
    void UserGivesUpDrag() override {
        QTest::keyClick(mouseIn_->windowHandle(), Qt::Key_Escape);
        UserLetsGo();
    }
    void UserTypesAhead(ListControl& list, const std::string& text) override {
        for (const char c : text)
            QTest::keyClick(WidgetOf(list).window()->windowHandle(), c);
    }
    void UserScrollsTo(ListControl& list, int row) override {
        ListOf(list).verticalScrollBar()->setValue(row);
    }
    bool UserDragsFilesOver(Control& control, int row) override {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QStringLiteral("/a.bmp"))});
        return EnterWith(data, control, row);
    }
    void UserDragsFilesAway(Control& control) override {
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(WidgetOf(control).window()->windowHandle(), &leave);
    }
    void UserDrops(Control& control, const std::vector<std::string>& hostPaths) override {
        QMimeData data;
        QList<QUrl> urls;
        for (const std::string& path : hostPaths)
            urls.push_back(QUrl::fromLocalFile(QString::fromStdString(path)));
        data.setUrls(urls);
        if (!EnterWith(data, control, -1)) return;
        QWidget& window = *WidgetOf(control).window();
        QDropEvent drop(PlaceToDrop(control, -1), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window.windowHandle(), &drop);
        ASSERT_TRUE(drop.isAccepted());
    }
    void ScriptNextBox(const BoxScript& script) override { boxes_.push_back(script); }
    void ScriptNextInput(const InputScript& script) override { inputs_.push_back(script); }
    void ScriptNextPopup(Menu* entry) override { popups_.push_back(entry); }
    void Soon(std::function<void()> action) override { QTimer::singleShot(0, &watch_, std::move(action)); }

    void Pass(Milliseconds time) override {
        const Milliseconds until = toolkit_.Now() + time;
        toolkit_.RunUntil([&] { return toolkit_.Now() >= until; });  // the watch wakes it
        toolkit_
            .ProcessEvents();  // what was due meanwhile comes, however late this process was given its turn
    }
    void Settle() override {
        constexpr int Rounds = 8;  // what one round leads to comes with the next
        for (int i = 0; i < Rounds; ++i)
            toolkit_.ProcessEvents();
    }

    std::string ShownTitle(Form& form) override {
        return WidgetOf(form).windowHandle()->title().toStdString();
    }
    bool IsShown(Form& form) override { return WidgetOf(form).isVisible(); }
    PixelRect ShownPlace(Form& form) override {
        const QWindow& window = *WidgetOf(form).windowHandle();
        const double ratio = qt::DeviceRatio();
        return {qt::ToDevice(window.x(), ratio), qt::ToDevice(window.y(), ratio),
                qt::ToDevice(window.width(), ratio), qt::ToDevice(window.height(), ratio)};
    }
    bool HidesPointer(Form& form) override {
        const QCursor* everywhere = QGuiApplication::overrideCursor();
        return everywhere == nullptr && WidgetOf(form).cursor().shape() == Qt::BlankCursor;
    }
    bool IsUsable(Form& form) override {
        QWindow* modal = QGuiApplication::modalWindow();
        QWindow* window = WidgetOf(form).windowHandle();
        return modal == nullptr || modal == window || modal->isAncestorOf(window, QWindow::IncludeTransients);
    }
    std::string ShownText(Control& control) override {
        if (auto* label = dynamic_cast<QLabel*>(&WidgetOf(control))) return label->text().toStdString();
        if (auto* frame = dynamic_cast<QGroupBox*>(&WidgetOf(control))) return frame->title().toStdString();
        if (auto* field = dynamic_cast<QLineEdit*>(&WidgetOf(control))) return field->text().toStdString();
        return dynamic_cast<QAbstractButton&>(WidgetOf(control)).text().toStdString();
    }
    std::string ShownName(Control& control) override {
        return WidgetOf(control).accessibleName().toStdString();
    }
    std::string ShownToolTip(Control& control) override { return WidgetOf(control).toolTip().toStdString(); }
    bool ShownEnabled(Control& control) override { return WidgetOf(control).isEnabled(); }
    bool ShownVisible(Control& control) override { return WidgetOf(control).isVisible(); }
    int ShownValue(ScrollBar& bar) override { return dynamic_cast<QScrollBar&>(WidgetOf(bar)).value(); }
    bool ShownChecked(CheckBox& box) override { return dynamic_cast<QCheckBox&>(WidgetOf(box)).isChecked(); }
    bool ShownChosen(OptionButton& option) override {
        return dynamic_cast<QRadioButton&>(WidgetOf(option)).isChecked();
    }
    bool ShownTabStop(OptionButton& option) override {
        return (WidgetOf(option).focusPolicy() & Qt::TabFocus) != 0;
    }
    Selection ShownSelection(TextBox& field) override {
        const auto& widget = dynamic_cast<QLineEdit&>(WidgetOf(field));
        const QString text = widget.text();
        const int start = widget.hasSelectedText() ? widget.selectionStart() : widget.cursorPosition();
        const int end = start + static_cast<int>(widget.selectedText().size());
        return {qt::ToCharacters(text, start), qt::ToCharacters(text, end) - qt::ToCharacters(text, start)};
    }
    std::vector<std::string> ShownRows(RowControl& list) override {
        std::vector<std::string> rows;
        if (auto* combo = qobject_cast<QComboBox*>(&WidgetOf(list))) {
            for (int row = 0; row < combo->count(); ++row)
                rows.push_back(combo->itemText(row).toStdString());
            return rows;
        }
        const QAccessibleInterface& seen = Seen(list);
        for (int row = 0; row < seen.childCount(); ++row)
            rows.push_back(seen.child(row)->text(QAccessible::Name).toStdString());
        return rows;
    }
    int ShownCurrent(RowControl& list) override {
        if (auto* combo = qobject_cast<QComboBox*>(&WidgetOf(list))) return combo->currentIndex();
        const QAccessibleInterface& seen = Seen(list);
        const QAccessibleInterface* row = seen.focusChild();
        const int current = row != nullptr ? seen.indexOfChild(row) : -1;
        auto& rows = dynamic_cast<ListControl&>(list);
        if (rows.MultiSelect.Get() == MultiSelect::None &&
            ShownSelected(rows) != (current >= 0 ? std::vector<int>{current} : std::vector<int>())) {
            failures_.push_back("another row is highlighted than the current one");
        }
        return current;
    }
    std::vector<int> ShownSelected(ListControl& list) override {
        std::vector<int> selected;
        const QAccessibleInterface& seen = Seen(list);
        for (int row = 0; row < seen.childCount(); ++row) {
            const bool told = seen.child(row)->state().selected;
            if (told) selected.push_back(row);
        }
        return selected;
    }
    int ShownTop(ListControl& list) override { return ListOf(list).Top(); }
    std::optional<int> ShownInsertionMark(ListControl& list) override { return ListOf(list).InsertionMark(); }
    MenuItemState Shown(Menu& entry) override {
        const QAction& action = ActionOf(entry);
        MenuItemState state;
        state.kind = action.isSeparator()       ? MenuItemState::Kind::Separator
                     : action.menu() != nullptr ? MenuItemState::Kind::SubMenu
                                                : MenuItemState::Kind::Entry;
        state.literal = entry.Literal;
        QString text = action.text();
        if (state.literal) text.replace(QLatin1String("&&"), QLatin1String("&"));
        state.caption = text.toStdString();
        state.enabled = action.isEnabled();
        state.visible = action.isVisible();
        state.checkable = action.isCheckable();
        state.checked = action.isChecked();
        return state;
    }
    Pixel ShownPixel(Control& canvas, int x, int y) override {
        QWidget& widget = WidgetOf(canvas);
        QWidget& window = *widget.window();
        const QImage shown = window.screen()->grabWindow(window.winId()).toImage();
        const QPoint offset = dynamic_cast<qt::CanvasWidget&>(widget).DeviceOffset();
        const QPoint corner = widget.mapTo(&window, QPoint(0, 0));
        const double ratio = qt::DeviceRatio();
        return shown.pixel(qt::ToDevice(corner.x(), ratio) + offset.x() + x,
                           qt::ToDevice(corner.y(), ratio) + offset.y() + y);
    }
    void UserChangesFont(bool larger) override {
        QFont font = usualFont_;
        if (larger) font.setPointSize(2 * font.pointSize());
        QApplication::setFont(font);
    }
    PixelRect ShownBounds(Control& control) override {
        QWidget& widget = WidgetOf(control);
        const QWidget& inside = *qt::NativeOf(*control.OwnerForm().Peer()).ControlParent();
        const double ratio = qt::DeviceRatio();
        const QPoint corner = widget.mapTo(&inside, QPoint(0, 0));
        if (const auto* canvas = dynamic_cast<qt::CanvasWidget*>(&widget)) {
            const QPoint offset = canvas->DeviceOffset();
            return {qt::ToDevice(corner.x(), ratio) + offset.x(),
                    qt::ToDevice(corner.y(), ratio) + offset.y(), canvas->DeviceSize().width(),
                    canvas->DeviceSize().height()};
        }
        return {qt::ToDevice(corner.x(), ratio), qt::ToDevice(corner.y(), ratio),
                qt::ToDevice(widget.width(), ratio), qt::ToDevice(widget.height(), ratio)};
    }
    ShownPointer PointerOver(Control& control) override {
        const QWidget& widget = WidgetOf(control);
        if (!widget.testAttribute(Qt::WA_SetCursor)) return {};
        const QCursor cursor = widget.cursor();
        const double ratio = qt::DeviceRatio();
        switch (cursor.shape()) {
            case Qt::WaitCursor:
                return {MousePointer::Hourglass};
            case Qt::PointingHandCursor:
                return {MousePointer::Hand};
            case Qt::BitmapCursor:
                return {MousePointer::Custom, qt::ToDevice(cursor.hotSpot().x(), ratio),
                        qt::ToDevice(cursor.hotSpot().y(), ratio)};
            default:
                return {MousePointer::Arrow};
        }
    }
    std::string ShownPrinted(PictureBox& box) override {
        QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&WidgetOf(box));
        return seen->text(QAccessible::Description).toStdString();
    }
    Pixel ShownGround(Label& label, int x, int y) override {
        return WidgetOf(label).grab().toImage().pixel(x, y);
    }
    std::vector<std::string> Failures() override {
        std::vector<std::string> all = failures_;
        for (const BoxScript& script : boxes_)
            all.push_back("a box never came: " + script.expected.text);
        for (const InputScript& script : inputs_)
            all.push_back("an input box never came: " + script.expected.prompt);
        return all;
    }

  private:
    static QPoint Logical(int x, int y) {
        const double ratio = qt::DeviceRatio();
        return {qt::RoundToLogical(x, ratio), qt::RoundToLogical(y, ratio)};
    }
    /// Presses the box or the circle at the start of a widget.
    static void PressMark(QWidget& widget) {
        QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {},
                          widget.mapTo(widget.window(), QPoint(8, widget.height() / 2)));
    }
    static void Point(QWidget& window, QPoint place) { QTest::mouseMove(window.windowHandle(), place); }

    static QAction& ActionOf(const Menu& entry) {
        QAction* action = dynamic_cast<qt::QtMenuItem&>(*entry.Peer()).Action();
        if (action == nullptr) throw std::logic_error("the menu has not been filled: " + entry.Name());
        return *action;
    }
    static QAccessibleInterface& Seen(const Control& control) {
        return *QAccessible::queryAccessibleInterface(&WidgetOf(control));
    }
    static qt::ListWidget& ListOf(const Control& list) {
        return dynamic_cast<qt::ListWidget&>(WidgetOf(list));
    }
    static Qt::MouseButton QtButtonOf(int button) {
        return button == MouseButton::Right ? Qt::RightButton : Qt::LeftButton;
    }
    /// In the window. A row that is not there: below the last one.
    static QPoint PlaceOfRow(const RowControl& list, int row) {
        auto& view = ListOf(list);
        const bool there = row >= 0 && row < view.RowCount();
        const QPoint place = there ? view.PlaceOfRow(row).center()
                                   : QPoint(view.viewport()->width() / 2, view.viewport()->height() - 2);
        return view.viewport()->mapTo(view.window(), place);
    }
    static QPoint PlaceToDrop(const Control& control, int row) {
        if (const auto* list = dynamic_cast<const ListControl*>(&control)) return PlaceOfRow(*list, row);
        QWidget& widget = WidgetOf(control);
        return widget.mapTo(widget.window(), QPoint(3, 3));
    }
    void MoveHeld(const Control& control, QPoint place, int shift) { Held(WidgetOf(control), place, shift); }
    /// Moves the pointer with the left button held, as from outside.
    void Held(const QWidget& inWindow, QPoint place, int shift = ShiftMask::None) {
        heldAt_ = place;
        QWindow* window = inWindow.window()->windowHandle();
        for (const QPoint step : {place - QPoint(1, 0), place}) {  // no mouse comes in one jump
            qt_handleMouseEvent(window, step, window->mapToGlobal(step), Qt::LeftButton, Qt::NoButton,
                                QEvent::MouseMove, ModifiersOf(shift), QTest::lastMouseTimestamp);
            QCoreApplication::processEvents();
        }
    }
    /// A drag comes into a window from outside; whether it would be taken.
    static bool EnterWith(QMimeData& data, const Control& control, int row) {
        QWindow* window = WidgetOf(control).window()->windowHandle();
        const QPoint place = PlaceToDrop(control, row);
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window, &enter);
        QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window, &move);
        return move.isAccepted();
    }
    static QPoint PlaceOf(const PictureBox& box, int x, int y) {
        QWidget& widget = WidgetOf(box);
        const QPoint offset = dynamic_cast<qt::CanvasWidget&>(widget).DeviceOffset();
        const double ratio = qt::DeviceRatio();
        return widget.mapTo(widget.window(), QPoint(qt::RoundToLogical(x + offset.x(), ratio),
                                                    qt::RoundToLogical(y + offset.y(), ratio)));
    }

    void Watch() {
        if (QWidget* popup = QApplication::activePopupWidget()) {
            if (auto* menu = qobject_cast<QMenu*>(popup)) WatchPopup(*menu);
        } else if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            WatchBox(*box);
        } else if (auto* input = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            WatchInput(*input);
        }
    }

    void WatchPopup(QMenu& menu) {
        if (popups_.empty()) return;
        Menu* entry = popups_.front();
        popups_.pop_front();
        if (entry == nullptr) {
            QTest::keyClick(&menu, Qt::Key_Escape);
        } else {
            QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&ActionOf(*entry)).center());
        }
    }

    void WatchInput(QDialog& input) {
        const auto* field = input.findChild<QLineEdit*>();
        const QString prompt = input.findChild<QLabel*>()->text();
        if (inputs_.empty()) {
            failures_.push_back("unexpected input box: " + prompt.toStdString());
            input.reject();
            return;
        }
        const InputScript script = inputs_.front();
        inputs_.pop_front();
        const auto& [expected, reply, byEscape] = script;
        const QString text = QString::fromStdString(expected.text);
        if (prompt != QString::fromStdString(expected.prompt).remove(QLatin1Char('\r')) ||
            input.windowTitle().toStdString() != expected.title || field->text() != text ||
            field->selectedText() != text || field->accessibleName() != prompt) {
            failures_.push_back("input box <" + prompt.toStdString() + "> differs");
        }
        if (reply && !byEscape) {
            QTest::keyClick(input.windowHandle(), Qt::Key_Delete);
            for (const char c : *reply)
                QTest::keyClick(input.windowHandle(), c);
            QTest::keyClick(input.windowHandle(), Qt::Key_Return);
        } else if (byEscape) {
            QTest::keyClick(input.windowHandle(), Qt::Key_Escape);
        } else {
            for (QPushButton* button : input.findChildren<QPushButton*>()) {
                if (button->text() == QLatin1String("Cancel")) QTest::mouseClick(button, Qt::LeftButton);
            }
        }
    }

    void WatchBox(QMessageBox& box) {
        if (boxes_.empty()) {
            failures_.push_back("unexpected box: " + box.text().toStdString());
            box.reject();
            return;
        }
        if (!open_.isValid()) {
            open_.start();
            Compare(box, boxes_.front().expected);
            if (boxes_.front().pressHelp) QTest::mouseClick(box.button(QMessageBox::Help), Qt::LeftButton);
        }
        if (open_.elapsed() < boxes_.front().openFor.count()) return;
        open_.invalidate();
        const BoxScript script = boxes_.front();
        boxes_.pop_front();
        if (script.byEscape) {
            QTest::keyClick(box.windowHandle(), Qt::Key_Escape);
            return;
        }
        if (!script.keys.empty()) {
            const QPointer<QWindow> window = box.windowHandle();
            for (const auto& [key, shift] : script.keys) {
                if (window && window->isVisible()) QTest::keyClick(window, KeyOf(key), ModifiersOf(shift));
            }
            return;
        }
        for (const ButtonText& button : ButtonsOf(script.expected.buttons)) {
            if (button.answer == script.reply) {
                QTest::mouseClick(box.button(button.button), Qt::LeftButton);
                return;
            }
        }
    }

    void Compare(const QMessageBox& box, const BoxRequest& expected) {
        const auto check = [&](bool fine, const std::string& what) {
            if (!fine) failures_.push_back("box <" + box.text().toStdString() + "> differs in " + what);
        };
        QString text = QString::fromStdString(expected.text);
        check(box.text() == text.remove(QLatin1Char('\r')), "text");
        check(box.textFormat() == Qt::PlainText, "text format");
        check(box.windowTitle().toStdString() == expected.title, "title");
        check(box.icon() == IconOf(expected.icon), "icon");
        check(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint) == expected.systemModal, "band");
        const std::vector<ButtonText> buttons = ButtonsOf(expected.buttons);
        const auto count = static_cast<qsizetype>(buttons.size()) + (expected.help ? 1 : 0);
        check(box.buttons().size() == count, "number of buttons");
        for (const ButtonText& button : buttons) {
            const auto* found = box.button(button.button);
            check(found != nullptr && found->text() == QLatin1String(button.text), button.text);
        }
        const auto* chosen = box.defaultButton();
        check(chosen == box.button(buttons[static_cast<std::size_t>(expected.defaultButton - 1)].button),
              "default button");
    }

    QWidget* mouseIn_ = nullptr;  ///< the window in which a button is held
    QPoint heldAt_;               ///< where, in that window
    QFont usualFont_ = QApplication::font();
    qt::QtToolkit toolkit_{[](const std::string& path) { return "C:" + path; }};
    QTimer watch_;
    std::deque<BoxScript> boxes_;
    std::deque<InputScript> inputs_;
    std::deque<Menu*> popups_;
    QElapsedTimer open_;
    std::vector<std::string> failures_;
};

}  // namespace

std::unique_ptr<Driver> MakeDriver() {
    return std::make_unique<QtDriver>();
}

}  // namespace tavrix::conformance
