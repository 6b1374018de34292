/// bench_filing copy|move FROM TO
///
/// Carries all files of a folder to another one as the dialogs do, what stands there being replaced without a question,
/// and prints the milliseconds that it took. The windows are in memory.

#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "backends/headless/HeadlessServices.h"
#include "backends/headless/HeadlessToolkit.h"
#include "backends/linux/HostFiles.h"
#include "dialogs/CopyWindow.h"
#include "dialogs/FileTransfer.h"

using namespace tavrix;

int main(int count, char** arguments) {
    if (count != 4) {
        std::fprintf(stderr, "bench_filing copy|move FROM TO\n");
        return 1;
    }
    const TransferAct act = std::strcmp(arguments[1], "move") == 0 ? TransferAct::Move : TransferAct::Copy;
    DriveMap::Sources sources;
    sources.drives = "C=" + std::filesystem::canonical(arguments[2]).string() +
                     ";D=" + std::filesystem::canonical(arguments[3]).string();
    DriveMap map(sources);
    HostFiles files(map, HostPaths{});
    headless::HeadlessServices rest;
    const Services services{files,        rest.drives,      rest.profile,  rest.registry,
                            rest.store,   rest.shell,       rest.pictures, rest.clipboard,
                            rest.sound,   rest.help,        rest.system,   rest.process,
                            rest.viewLib, rest.wakefulness, rest.desktop,  rest.saverPassword};
    headless::HeadlessToolkit toolkit;
    forms::Application app(toolkit);
    MainModule module(app, services);

    const auto start = std::chrono::steady_clock::now();
    std::vector<TransferItem> items;
    for (const std::string& name : files.List("C:\\", "*.*"))
        items.push_back({"C:\\" + name, "D:\\" + name, name});
    CopyWindow window(module);
    FileTransfer transfer(module, window, act, {.doing = "Carrying", .failure = "Failed", .replace = {}});
    const TransferEnd end = transfer.Run(items);
    window.Close();
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    if (end != TransferEnd::Done) {
        std::fprintf(stderr, "bench_filing: it did not come to its end\n");
        return 1;
    }
    std::printf("%.1f\n", took.count());
    return 0;
}
