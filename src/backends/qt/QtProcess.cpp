#include "backends/qt/QtProcess.h"

#include <QApplication>
#include <utility>

#include "backends/qt/FirstPaint.h"
#include "backends/qt/ProgramIcon.h"
#include "backends/qt/desktop/DesktopLook.h"
#include "backends/qt/peers/Accessibility.h"
#include "backends/qt/peers/Style.h"

namespace tavrix::qt {

QtProcess::QtProcess(std::string program) : program_(std::move(program)) {
    arguments_[0] = program_.data();
    // Nothing here draws with OpenGL, and loading its libraries costs more than the rest of the start together.
    if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION")) qputenv("QT_XCB_GL_INTEGRATION", "none");
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    // Whole factors keep a picture's pixel on a pixel of the screen.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::Round);
    application_ = std::make_unique<QApplication>(argumentCount_, arguments_);
    auto* style = new Style;
    QApplication::setStyle(style);  // which owns it
    look_ = std::make_unique<DesktopLook>(*style);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    // Wayland takes the icon from the desktop's entry, X11 from the window.
    QGuiApplication::setDesktopFileName(QStringLiteral("tavrix"));
    AfterFirstPaint([] { QApplication::setWindowIcon(ProgramIcon()); });
    InstallAccessibility();
}

QtProcess::~QtProcess() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void QtProcess::Follow(const Look& look) {
    look_->Follow(look);
}

}  // namespace tavrix::qt
