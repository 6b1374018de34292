#pragma once

#include <QApplication>
#include <QWidget>
#include <QWindow>

namespace tavrix::qt {

/// The window that a modal one belongs above: the topmost modal one, else the active one, else any that is visible.
/// Windows that are AlwaysUsable are none.
[[nodiscard]] QWidget* OwnerOfModal(const QWidget& modal);

/// Keeps a window above its owner, and usable while the owner is modal. Null: no owner.
void SetOwner(QWidget& window, QWidget* owner);

}  // namespace tavrix::qt
