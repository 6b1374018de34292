#include "backends/qt/peers/HeldKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QWidget>
#include <QWindow>

#include "backends/qt/x11/X11.h"

namespace tavrix::qt {
namespace {

/// Which key of the keyboard it is, or where nothing tells that, what it gives.
quint64 KeyOf(const QKeyEvent& key) {
    constexpr int Shift = 32;
    return key.nativeScanCode() != 0 ? quint64{key.nativeScanCode()} << Shift
                                     : static_cast<quint64>(key.key());
}

}  // namespace

HeldKeys::HeldKeys() {
    QCoreApplication::instance()->installEventFilter(this);
}

HeldKeys::Place HeldKeys::PlaceOf(QObject& window) {
    const bool menus = QApplication::activePopupWidget() != nullptr ||
                       qobject_cast<QMenuBar*>(QApplication::focusWidget()) != nullptr;
    return menus ? Place{true, nullptr} : Place{false, &window};
}

bool HeldKeys::Keeps(const QKeyEvent& press, QObject& window) {
    const quint64 time = press.timestamp();
    const auto [found, added] = keys_.try_emplace(KeyOf(press));
    Key& key = found->second;
    const Place place = PlaceOf(window);
    // A press is seen twice, first as a shortcut that might be. With a screen reader it comes without its time then, and only
    // when that has answered: by now the shortcut of a later key may have opened a menu, which the Alt of that would close.
    const bool again = !added && (time != 0 ? key.time == time : x11::Running());
    if (again) return key.kept || (place.menus && !key.inMenus);
    const bool repeats = presses_.Repeats(press.nativeScanCode(), time).value_or(press.isAutoRepeat());
    key.inMenus = place.menus;
    if (!repeats) key.began = place;
    key.time = time;
    key.kept = !key.began.Is(place);
    return key.kept;
}

bool HeldKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress) return false;
    if (!watched->isWindowType() || !Keeps(static_cast<const QKeyEvent&>(*event), *watched)) return false;
    event->accept();  // and so no shortcut is looked up
    return true;
}

}  // namespace tavrix::qt
