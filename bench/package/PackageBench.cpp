/// bench_package SHOW TO LIBRARY
///
/// Makes the package of a show in the folder TO, with the files of the folder LIBRARY for those of the program, and prints
/// the milliseconds that it took. The windows are in memory.

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "backends/headless/HeadlessServices.h"
#include "backends/headless/HeadlessToolkit.h"
#include "backends/linux/HostFiles.h"
#include "backends/linux/HostProfile.h"
#include "core/MainModule.h"
#include "platform/services/ProgramFiles.h"
#include "shows/package/SavePackage.h"

using namespace tavrix;

namespace {

class FilesOfFolder final : public ProgramFiles {
  public:
    explicit FilesOfFolder(Files& files) : files_(files) {}
    std::vector<ProgramFile> List() override {
        std::vector<ProgramFile> list;
        for (const std::string& name : files_.List("E:\\", "*.*"))
            list.push_back({"TAVRIX.LIB\\" + name, "E:\\" + name});
        return list;
    }

  private:
    Files& files_;
};

}  // namespace

int main(int count, char** arguments) {
    if (count != 4) {
        std::fprintf(stderr, "bench_package SHOW TO LIBRARY\n");
        return 1;
    }
    namespace fs = std::filesystem;
    const fs::path show = fs::canonical(arguments[1]);
    DriveMap::Sources sources;
    sources.drives = "C=" + show.parent_path().string() + ";D=" + fs::canonical(arguments[2]).string() +
                     ";E=" + fs::canonical(arguments[3]).string();
    DriveMap map(sources);
    HostFiles files(map, HostPaths{});
    HostProfile profile(map);
    headless::HeadlessServices rest;
    const Services services{files,        rest.drives,      profile,       rest.registry,
                            rest.store,   rest.shell,       rest.pictures, rest.clipboard,
                            rest.sound,   rest.help,        rest.system,   rest.process,
                            rest.viewLib, rest.wakefulness, rest.desktop,  rest.saverPassword};
    headless::HeadlessToolkit toolkit;
    forms::Application app(toolkit);
    MainModule module(app, services);
    module.AppPath = "C:\\";
    module.config.UseRecentDocuments = false;
    FilesOfFolder programFiles(files);

    const auto start = std::chrono::steady_clock::now();
    SavePackage(module, programFiles,
                {.PackageName = "Trip", .PackageSource = "C:\\", .PackageDestination = "D:\\"},
                show.filename().string());
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    const std::vector<std::string> said = toolkit.Failures();
    if (said.size() != 1 || said.front().find("has been created") == std::string::npos) {
        std::fprintf(stderr, "bench_package: no package was made: %s\n",
                     said.empty() ? "" : said.front().c_str());
        return 1;
    }
    std::printf("%.1f\n", took.count());
    return 0;
}
