#include "backends/qt/FirstWindow.h"

#include <QCoreApplication>
#include <QObject>
#include <utility>

namespace tavrix::qt {
namespace {

/// Sees all events of the application until one is of its kind.
class FirstEvent final : public QObject {
  public:
    FirstEvent(QObject& application, QEvent::Type kind, std::function<void()> work)
        : QObject(&application), kind_(kind), work_(std::move(work)) {
        application.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != kind_) return false;
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
    QEvent::Type kind_;
    std::function<void()> work_;
};

}  // namespace

void AfterFirst(QEvent::Type kind, std::function<void()> work) {
    new FirstEvent(*QCoreApplication::instance(), kind, std::move(work));  // which owns it
}

}  // namespace tavrix::qt
