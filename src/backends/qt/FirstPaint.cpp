#include "backends/qt/FirstPaint.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <utility>

namespace tavrix::qt {
namespace {

/// Sees all events of the application until one of them paints.
class FirstPaint final : public QObject {
  public:
    FirstPaint(QObject& application, std::function<void()> work)
        : QObject(&application), work_(std::move(work)) {
        application.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Paint) return false;
        parent()->removeEventFilter(this);
        QMetaObject::invokeMethod(
            this,
            [this] {
                work_();
                deleteLater();
            },
            Qt::QueuedConnection);
        return false;
    }

  private:
    std::function<void()> work_;
};

}  // namespace

void AfterFirstPaint(std::function<void()> work) {
    new FirstPaint(*QCoreApplication::instance(), std::move(work));  // which owns it
}

}  // namespace tavrix::qt
