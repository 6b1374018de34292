#include "app/Composition.h"
#include "app/HostPlatform.h"
#include "backends/qt/QtProcess.h"

int main(int argc, char** argv) {
    tavrix::HostPlatform host({argv + 1, argv + argc});
    host.PrefetchPicture();
    const tavrix::qt::QtProcess windowSystem(argv[0]);
    tavrix::Composition program(host);
    program.Run();
    return 0;
}
