#pragma once

#include <QDBusVariant>
#include <QFont>
#include <QObject>

#include "backends/qt/desktop/Look.h"

namespace tavrix::qt {

class Style;

/// Has the program's colours, movements and texts follow the desktop's, as the portal's settings tell them, at the start and
/// when it changes. Nothing waits for the portal: what it answers is taken when it comes, and where it does not, all stays as
/// the toolkit has it.
class DesktopLook final : public QObject {
    Q_OBJECT

  public:
    /// `style` is the application's.
    explicit DesktopLook(Style& style);

    [[nodiscard]] const Look& Current() const { return look_; }
    /// What the desktop has told.
    void Follow(const Look& look);

  public slots:
    void OnSettingChanged(const QString& space, const QString& key, const QDBusVariant& value);

  private:
    void Ask();
    void ApplyTexts();

    Style& style_;
    Look look_;
    QFont plainFont_;
};

}  // namespace tavrix::qt
