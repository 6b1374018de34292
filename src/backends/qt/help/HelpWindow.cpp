#include "backends/qt/help/HelpWindow.h"

#include <utility>

#include "backends/qt/help/HelpWidget.h"

namespace tavrix::qt {

HelpWindow::HelpWindow(std::function<bool()> topmost) : topmost_(std::move(topmost)) {}

HelpWindow::~HelpWindow() = default;

void HelpWindow::Open(const HelpBook& book, unsigned context) {
    if (!widget_) widget_ = std::make_unique<HelpWidget>(book);
    widget_->ShowPage(context);
    widget_->ComeToFront(topmost_());
    if (context == HelpBook::SearchPage) widget_->BeginSearch();
}

void HelpWindow::Close() {
    widget_.reset();
}

}  // namespace tavrix::qt
