// tavrix-guard CHECKER   Started by a guarded screen saver, see ScreenGuard. CHECKER is the program that checks passwords.

#include <QApplication>

#include "backends/qt/QtProcess.h"
#include "backends/qt/saver/ScreenGuard.h"
#include "backends/qt/x11/X11.h"

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const tavrix::qt::QtProcess windowSystem(argv[0]);
    if (!tavrix::qt::x11::Running()) return 1;
    const tavrix::qt::ScreenGuard guard(argv[1]);
    return QApplication::exec();
}
