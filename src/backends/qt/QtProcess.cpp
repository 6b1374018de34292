#include "backends/qt/QtProcess.h"

#include <dlfcn.h>

#include <QApplication>
#include <QFontMetrics>
#include <system_error>
#include <utility>

#include "backends/qt/ProgramIcon.h"
#include "backends/qt/desktop/DesktopLook.h"
#include "backends/qt/peers/Accessibility.h"
#include "backends/qt/peers/Style.h"

namespace tavrix::qt {

namespace {

/// Has the font library read its configuration before Qt asks for the first font. Qt brings the library along.
void ReadFontConfiguration() {
    if (void* init = dlsym(RTLD_DEFAULT, "FcInit")) reinterpret_cast<int (*)()>(init)();
}

/// The work by a thread of its own; where there is none it is left to whoever needs its result.
template <class Work>
std::jthread Beside(Work work) {
    try {
        return std::jthread(std::move(work));
    } catch (const std::system_error&) {
        return {};
    }
}

}  // namespace

QtProcess::QtProcess(std::string program)
    : program_(std::move(program)), fonts_(Beside(ReadFontConfiguration)) {
    arguments_[0] = program_.data();
    // Nothing here draws with OpenGL, and loading its libraries costs more than the rest of the start together.
    if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION")) qputenv("QT_XCB_GL_INTEGRATION", "none");
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    // Whole factors keep a picture's pixel on a pixel of the screen.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::Round);
    application_ = std::make_unique<QApplication>(argumentCount_, arguments_);
    const ProgramIcon icon;
    // A font of its own, since engines that are made in one thread are of no use to another.
    const QFont plain = QApplication::font();
    preparation_ =
        Beside([icon, font = QFont(plain.family(), plain.pointSize(), plain.weight(), plain.italic())] {
            // The toolkit keeps for all threads which fonts there are, and which of them a name means.
            static_cast<void>(QFontMetrics(font).height());
            icon.Decode();
        });
    auto* style = new Style;
    QApplication::setStyle(style);  // which owns it
    look_ = std::make_unique<DesktopLook>(*style);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    // Wayland takes the icon from the desktop's entry, X11 from the window.
    QGuiApplication::setDesktopFileName(QStringLiteral("tavrix"));
    QApplication::setWindowIcon(icon.Icon());
    InstallAccessibility();
}

QtProcess::~QtProcess() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void QtProcess::Follow(const Look& look) {
    look_->Follow(look);
}

}  // namespace tavrix::qt
