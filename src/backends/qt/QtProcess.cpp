#include "backends/qt/QtProcess.h"

#include <sys/resource.h>

#include <QApplication>
#include <QFontMetrics>
#include <system_error>
#include <utility>

#include "backends/qt/FirstWindow.h"
#include "backends/qt/ProgramIcon.h"
#include "backends/qt/desktop/DesktopLook.h"
#include "backends/qt/peers/Accessibility.h"
#include "backends/qt/peers/Style.h"

namespace tavrix::qt {

namespace {

/// Loads a font in a thread of its own; where there is none that is left to whoever needs one. The toolkit keeps for all
/// threads which fonts there are, and which of them a name means.
std::jthread LoadFontBeside() {
    // One of its own, since engines that are made in one thread are of no use to another.
    const QFont plain = QApplication::font();
    try {
        return std::jthread(
            [font = QFont(plain.family(), plain.pointSize(), plain.weight(), plain.italic())] {
                constexpr int GivesWay = 10;  // of 19, and this thread alone
                ::setpriority(PRIO_PROCESS, 0, GivesWay);
                static_cast<void>(QFontMetrics(font).height());
            });
    } catch (const std::system_error&) {
        return {};
    }
}

}  // namespace

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
    // A picture needs no font. While libraries are loaded a second thread would cost more than it gains.
    AfterFirst(QEvent::Paint, [this] { fonts_ = LoadFontBeside(); });
    AfterFirst(QEvent::Paint, [] { QApplication::setWindowIcon(ProgramIcon()); });
    InstallAccessibility();
}

QtProcess::~QtProcess() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void QtProcess::Follow(const Look& look) {
    look_->Follow(look);
}

}  // namespace tavrix::qt
