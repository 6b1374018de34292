/// tavrix-install PROGRAM
///
/// Does what an installer does: notes the folder of a program's executable on this account, so that its first start
/// finds itself installed.

#include <unistd.h>

#include <cstdio>
#include <exception>
#include <string>

#include "backends/linux/DriveMap.h"
#include "backends/linux/HostPaths.h"
#include "backends/linux/HostProcess.h"
#include "backends/linux/HostUserStore.h"
#include "backends/linux/Installation.h"
#include "base/RuntimeError.h"

namespace {

int Install(const std::string& program) {
    const tavrix::HostPaths paths = tavrix::HostPaths::FromEnvironment(program);
    tavrix::DriveMap drives(tavrix::DriveMap::SourcesOf(paths));
    tavrix::HostProcess process(drives, paths, {});
    tavrix::HostUserStore store(paths);
    if (!tavrix::NoteInstallation(process, store)) {
        std::fprintf(stderr, "tavrix-install: the folder could not be noted in %s\n", paths.config.c_str());
        return 1;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 || ::access(argv[1], X_OK) != 0) {
        std::fputs("usage: tavrix-install PROGRAM\n", stderr);
        return 2;
    }
    try {
        return Install(argv[1]);
    } catch (const tavrix::RuntimeError& error) {
        std::fprintf(stderr, "tavrix-install: %s\n", error.Description().c_str());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tavrix-install: %s\n", error.what());
    }
    return 1;
}
