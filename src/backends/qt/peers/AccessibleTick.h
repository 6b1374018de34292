#pragma once

#include <QAbstractButton>
#include <QAccessibleWidget>

namespace tavrix::qt {

/// A check box or an option button on the accessibility bus. Qt's own interface takes an option for a check box, since
/// Qt does not know its group, and ticks a button without telling anybody that the user did it.
class AccessibleTick final : public QAccessibleWidget {
  public:
    AccessibleTick(QAbstractButton& button, QAccessible::Role role);

    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& actionName) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& actionName) const override;

  private:
    [[nodiscard]] QAbstractButton& Button() const;
};

}  // namespace tavrix::qt
