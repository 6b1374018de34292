#include "backends/linux/HostProgramFiles.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <set>
#include <span>
#include <sstream>
#include <system_error>
#include <utility>

#include "backends/linux/CarriedFonts.h"
#include "backends/linux/HostFile.h"
#include "backends/linux/HostSound.h"
#include "backends/linux/LateLibraryNames.h"
#include "backends/linux/LibraryClosure.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {
namespace {

namespace fs = std::filesystem;
using Data = HostProgramFiles::Data;

constexpr const char* StandIn = "OPAQUE.DLL";
constexpr const char* OwnLicence = "LICENCE.TXT";

/// What of the keyboard data a display needs that has none of its own: all but the layouts of languages.
constexpr std::array KeyboardFolders{"types", "compat"};
constexpr std::array KeyboardFiles{
    "rules/base",        "rules/evdev",      "keycodes/evdev",  "keycodes/aliases", "symbols/us",
    "symbols/pc",        "symbols/inet",     "symbols/keypad",  "symbols/latin",    "symbols/srvr_ctrl",
    "symbols/altwin",    "symbols/capslock", "symbols/compose", "symbols/ctrl",     "symbols/group",
    "symbols/level3",    "symbols/level5",   "symbols/shift",   "symbols/nbsp",     "symbols/eurosign",
    "symbols/terminate", "symbols/kpdl",     "symbols/typo"};
constexpr std::array AudioFolders{"cards", "pcm", "ctl"};

bool IsFile(const std::string& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

std::string NameOf(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

/// The files directly in a folder, in the order of their names; none where there is no such folder.
std::vector<std::string> FilesIn(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        std::error_code none;
        if (at->is_regular_file(none)) names.push_back(at->path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

/// What lies in the folder of libraries. Each name once, whatever its case, since a package may lie on any disk.
class Library {
  public:
    /// What the program cannot do without. Throws 53 where it is not there, 58 where its name is taken by another.
    void Add(const std::string& name, const std::string& path) {
        if (!IsFile(path)) throw RuntimeError(ErrorNumber::FileNotFound);
        if (Put(name, path)) return;
        const auto same = std::ranges::find(files_, Flat(name), &Data::name);
        if (same == files_.end() || same->path != path) throw RuntimeError(ErrorNumber::FileAlreadyExists);
    }
    void AddIfThere(const std::string& name, const std::string& path) {
        if (IsFile(path)) static_cast<void>(Put(name, path));
    }
    void AddFolder(const std::string& name, const std::string& folder) {
        for (const std::string& file : FilesIn(folder))
            AddIfThere(name + "/" + file, folder + "/" + file);
    }
    [[nodiscard]] std::vector<std::string> Paths() const {
        std::vector<std::string> paths;
        for (const Data& file : files_)
            paths.push_back(file.path);
        return paths;
    }
    std::vector<Data> Take() { return std::move(files_); }

  private:
    static std::string Flat(std::string name) {
        std::ranges::replace(name, '/', '=');
        return name;
    }
    [[nodiscard]] bool Put(const std::string& given, const std::string& path) {
        std::string name = Flat(given);
        // A name that no disk of another system takes is none for a package.
        if (name.find_first_of("\\:*?\"<>|") != std::string::npos) return true;
        if (!names_.insert(UpperCase(name)).second) return false;
        files_.push_back({std::move(name), path});
        return true;
    }

    std::vector<Data> files_;
    std::set<std::string> names_;
};

void AddProgram(Library& library, const std::string& name, const std::string& path,
                std::span<const std::string> plugins, std::span<const char* const> late) {
    library.Add(name, path);
    const LibraryClosure closure = ClosureOf(path, plugins, late);
    library.Add("ld.so", closure.loader);
    for (const SharedLibrary& needed : closure.libraries)
        library.Add(needed.name, needed.path);
}

void AddData(Library& library, const HostProgramFiles::Places& places) {
    for (const std::string& font : CarriedFonts())
        library.AddIfThere("fonts/" + NameOf(font), font);
    if (const std::string font = SoundFontIn(places.soundFonts); !font.empty()) {
        std::error_code error;
        const std::string file = fs::canonical(font, error).string();
        library.AddIfThere("sounds/" + NameOf(file), file);
    }
    for (const char* folder : KeyboardFolders)
        library.AddFolder(std::string("xkb/") + folder, places.keyboards + "/" + folder);
    for (const char* file : KeyboardFiles)
        library.AddIfThere(std::string("xkb/") + file, places.keyboards + "/" + file);
    library.AddIfThere("alsa/alsa.conf", places.audio + "/alsa.conf");
    for (const char* folder : AudioFolders)
        library.AddFolder(std::string("alsa/") + folder, places.audio + "/" + folder);
}

}  // namespace

std::string HostProgramFiles::OwnPackage() const {
    std::string folder = HostFolderOf(places_.executable);
    return IsFile(folder + "/" + places_.list) ? folder : std::string();
}

bool HostProgramFiles::Available() const {
    return !places_.launchers.empty() || !OwnPackage().empty();
}

std::vector<ProgramFile> HostProgramFiles::List() {
    const std::string folder = OwnPackage();
    return folder.empty() ? OfSystem() : OfPackage(folder);
}

std::vector<ProgramFile> HostProgramFiles::OfPackage(const std::string& folder) {
    std::vector<ProgramFile> files;
    for (const Entry& entry : places_.layout)
        files.push_back({entry.name, drives_.ToDrivePath(folder + "/" + entry.name)});
    const std::optional<std::string> list = ReadWholeFile(folder + "/" + places_.list);
    if (!list) throw RuntimeError(ErrorNumber::FileNotFound);
    std::istringstream lines(*list);
    for (std::string name; std::getline(lines, name);) {
        if (name.ends_with('\r')) name.pop_back();
        const bool bare =
            !name.empty() && name != "." && name != ".." && name.find_first_of("/\\") == std::string::npos;
        if (!bare) continue;
        files.push_back({places_.library + "\\" + name,
                         drives_.ToDrivePath(folder + "/" + places_.library + "/" + name)});
    }
    return files;
}

std::string HostProgramFiles::PathOf(const Entry& entry) const {
    std::vector<std::string> folders{places_.launchers};
    folders.insert(folders.end(), places_.folders.begin(), places_.folders.end());
    for (const std::string& folder : folders) {
        std::string path = folder + "/" + entry.name;
        if (!folder.empty() && IsFile(path)) return path;
    }
    if (!entry.opaque) throw RuntimeError(ErrorNumber::FileNotFound);
    return places_.launchers + "/" + StandIn;
}

std::vector<ProgramFile> HostProgramFiles::OfSystem() {
    Library library;
    std::vector<std::string> plugins;
    const std::vector<Data> ofToolkit = places_.plugins();
    for (const Data& plugin : ofToolkit)
        plugins.push_back(plugin.path);
    AddProgram(library, "tavrix", places_.executable, plugins, LateLibraryNames);
    AddProgram(library, "tavrix-setup", places_.setup, {}, {});
    for (const Data& plugin : ofToolkit)
        library.Add("qt/" + plugin.name, plugin.path);
    AddData(library, places_);
    library.Add(OwnLicence, places_.launchers + "/" + OwnLicence);
    for (const auto& [package, text] : LicenceTextsOf(library.Paths(), places_.licences))
        library.AddIfThere("licences/" + package, text);

    const std::vector<Data> inLibrary = library.Take();
    std::vector<ProgramFile> files;
    for (const Entry& entry : places_.layout) {
        const bool isList = entry.name == places_.list;
        files.push_back({entry.name, isList ? WriteList(inLibrary) : drives_.ToDrivePath(PathOf(entry))});
    }
    for (const Data& file : inLibrary)
        files.push_back({places_.library + "\\" + file.name, drives_.ToDrivePath(file.path)});
    return files;
}

std::string HostProgramFiles::WriteList(const std::vector<Data>& library) {
    std::string path = WithBackslash(files_.Folder(KnownFolder::Temporary)) + places_.list;
    std::string text;
    for (const Data& file : library)
        text += file.name + "\r\n";
    const auto writer = files_.Create(path);
    writer->Write(std::as_bytes(std::span(text)));
    writer->Close();
    return path;
}

}  // namespace tavrix
