#include "setup/Installation.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <system_error>

#include "backends/linux/HostFile.h"
#include "backends/linux/HostProfile.h"
#include "backends/linux/ProcessFolder.h"
#include "backends/shared/ProfileText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "setup/MenuEntry.h"
#include "setup/UserStoreFile.h"

namespace tavrix::setup {
namespace {

namespace fs = std::filesystem;

constexpr const char* Section = "Installed";
constexpr const char* FolderCount = "Folders";  ///< that were made; by this key it is known as installed
constexpr const char* SlideList = "SLIDES.LST";
constexpr const char* StoreFolder = "STORE";
constexpr const char* StoreFile = "STORE/settings";
constexpr const char* SaverValue = "CurrentSaver";
constexpr const char* TemporaryFolder = "TEMP";  // of the program where it is installed
constexpr const char* Settings = "tavrix.ini";
constexpr std::array Kinds{"", "-show", "-saver"};

void Check(const std::error_code& error) {
    if (error) throw ErrorOf(error.value());
}

/// Removes a file; one that is not there is as good.
void DropFile(const std::string& path) {
    if (::unlink(path.c_str()) != 0 && errno != ENOENT && errno != ENOTDIR) throw ErrorOf(errno);
}

/// Removes a folder that is empty; what is none stays.
void DropFolder(const std::string& path) {
    if (::rmdir(path.c_str()) != 0 && errno != ENOENT && errno != ENOTDIR && errno != ENOTEMPTY &&
        errno != EEXIST)
        throw ErrorOf(errno);
}

bool IsFolder(const std::string& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

/// Removes the folders in a folder that are empty, and it.
void DropEmpty(const std::string& path) {
    std::error_code error;
    for (fs::directory_iterator at(path, error), end; !error && at != end; at.increment(error)) {
        if (at->is_directory()) DropFolder(at->path().string());
    }
    DropFolder(path);
}

/// Makes a folder and those above it, and answers which of them were missing, the outermost first.
std::vector<std::string> MakeAll(const std::string& path) {
    std::vector<std::string> missing;
    for (std::string at = path; at != "/" && !IsFolder(at); at = HostFolderOf(at))
        missing.insert(missing.begin(), at);
    for (const std::string& folder : missing) {
        if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) throw ErrorOf(errno);
    }
    return missing;
}

void WriteText(const std::string& path, const std::string& text) {
    TargetFile::Options options;
    options.sync = false;  // it can be made again from the package
    TargetFile file(path, options);
    file.Write(text);
    file.Commit();
}

/// A package's name as that of a folder.
std::string FolderName(const std::string& name) {
    constexpr std::size_t Longest = 100;
    std::string folder;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        folder += c == '/' || byte < ' ' || byte == 0x7F ? '_' : c;
    }
    if (folder.size() > Longest) {
        folder.resize(Longest);
        while (!folder.empty() && (static_cast<unsigned char>(folder.back()) & 0xC0U) == 0x80U)
            folder.pop_back();
        if (!folder.empty() && static_cast<unsigned char>(folder.back()) >= 0xC0U) folder.pop_back();
    }
    if (folder.starts_with('.')) folder.front() = '_';
    return folder;
}

std::string PackagesFolder(const UserPlaces& places) {
    return places.data + "/tavrix-packages";
}

std::string MenuFolder(const UserPlaces& places) {
    return places.data + "/applications";
}

/// The file of a menu entry of what is installed in a folder; told apart by that folder.
std::string EntryFile(const UserPlaces& places, const std::string& folder, const char* kind) {
    std::uint64_t sum = 14695981039346656037U;
    for (const char c : folder)
        sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211U;
    std::string digits;
    for (; sum != 0; sum /= 16)
        digits += "0123456789abcdef"[sum % 16];
    return MenuFolder(places) + "/tavrix-package-" + digits + kind + ".desktop";
}

struct Notes {
    std::optional<std::string> formerSaver;
    std::vector<std::string> madeFolders;
};

std::string NotesText(const std::string& former, const Notes& notes) {
    std::vector<ProfileEntry> entries;
    if (notes.formerSaver) entries.emplace_back("FormerSaver", *notes.formerSaver);
    int number = 0;
    for (const std::string& folder : notes.madeFolders)
        entries.emplace_back("MadeFolder" + std::to_string(++number), folder);
    entries.emplace_back(FolderCount, std::to_string(number));
    return MergeProfileText(former, Section, entries);
}

class Installing {
  public:
    Installing(const std::string& package, const PackageNames& names, const UserPlaces& places,
               const Progress& progress)
        : package_(package),
          names_(names),
          places_(places),
          progress_(progress),
          notes_(ReadNotes(package, names)),
          target_(InstallFolder(places, notes_.name)),
          folder_(PackagesFolder(places), ".new-" + FolderName(notes_.name)),
          new_(folder_.Path()) {}

    bool Run() {
        std::error_code error;
        if (fs::exists(fs::symlink_status(target_, error)))
            throw RuntimeError(ErrorNumber::FileAlreadyExists);
        try {
            Make(PackagesFolder(places_));
            Make(MenuFolder(places_));
            if (takesSaver()) Make(HostFolderOf(places_.store));
            if (!CopyAll()) {
                Undo();
                return false;
            }
            WriteOwn();
            if (const int failure = RenameWithoutReplacing(new_, target_)) throw ErrorOf(failure);
            inPlace_ = true;
            WriteEntries();
            // The last step, so that there is nothing of it to undo.
            if (takesSaver()) WriteStored(places_.store, SaverValue, OwnSaver());
        } catch (...) {
            Undo();
            throw;
        }
        return true;
    }

  private:
    [[nodiscard]] bool takesSaver() const { return notes_.screenSaver && notes_.makeDefault; }
    [[nodiscard]] std::string OwnSaver() const { return places_.drivePath(ShowOf(target_, names_, notes_)); }

    void Make(const std::string& folder) {
        for (std::string& made : MakeAll(folder))
            own_.madeFolders.push_back(std::move(made));
    }

    bool CopyAll() {
        folder_.Make(0755);
        std::int64_t done = 0;
        for (const std::string& file : FilesOf(package_, names_)) {
            const std::string target = new_ + "/" + file;
            std::error_code error;
            fs::create_directories(HostFolderOf(target), error);
            Check(error);
            Copy(package_ + "/" + file, target);
            done += SizeOf(new_, std::span(&file, 1));
            if (progress_ && !progress_(done)) return false;
        }
        return true;
    }

    static void Copy(const std::string& from, const std::string& to) {
        const FileDescriptor source = OpenForReading(from);
        struct stat status {};
        if (::fstat(source.Number(), &status) != 0) throw ErrorOf(errno);
        const bool runs = to.ends_with(".EXE") || to.ends_with(".SCR");
        TargetFile::Options options;
        options.newMode = runs ? 0755 : 0644;
        options.exactMode = true;
        options.sync = false;
        TargetFile target(to, options);
        static_cast<void>(target.CopyFrom(source, status));
        target.Commit();
    }

    /// What the installed package has beside what it came with.
    void WriteOwn() {
        std::string slides;
        for (const std::string& file : FilesOf(package_, names_)) {
            if (file.starts_with(names_.slides + "/")) slides += file.substr(names_.slides.size() + 1) + "\n";
        }
        WriteText(new_ + "/" + SlideList, slides);
        std::error_code error;
        fs::create_directory(new_ + "/" + StoreFolder, error);
        Check(error);
        WriteText(new_ + "/" + StoreFile, "[Settings]\nProgramRun=1\nShow Tips at Startup=0\nEXEPath=" +
                                              places_.drivePath(target_) + "\\\n");
        // The desktop's list of documents would remember it after it is gone.
        const std::string settings = ReadIfThere(new_ + "/" + Settings).value_or("");
        WriteText(
            new_ + "/" + Settings,
            MergeProfileText(settings, "Viewer", std::array{ProfileEntry("UseRecentDocuments", "False")}));
        if (takesSaver()) own_.formerSaver = ReadStored(places_.store, SaverValue);
        const std::string notes = ReadIfThere(new_ + "/" + names_.notes).value_or("");
        WriteText(new_ + "/" + names_.notes, NotesText(notes, own_));
    }

    void WriteEntries() {
        const auto write = [this](const char* kind, const std::string& name, const std::string& comment,
                                  std::vector<std::string> arguments) {
            arguments.front().insert(0, target_ + "/");
            WriteText(EntryFile(places_, target_, kind), TextOf({.name = name,
                                                                 .comment = comment,
                                                                 .icon = target_ + "/TAVRIX.ICO",
                                                                 .arguments = std::move(arguments),
                                                                 .remover = target_ + "/UN-SETUP.EXE"}));
        };
        write(Kinds[0], "Tavrix (" + notes_.name + ")", "View images and slide shows",
              {"TAVRIX.EXE", "-viewer"});
        if (notes_.shortcut) write(Kinds[1], notes_.name, "A slide show", {"TAVRIX.EXE"});
        if (notes_.screenSaver)
            write(Kinds[2], notes_.name + " (Screen Saver)", "A slide show as the screen saver",
                  {"TavrixSCR.SCR"});
    }

    /// As far as it got.
    void Undo() {
        std::error_code error;
        fs::remove_all(new_, error);
        if (inPlace_) {
            for (const char* kind : Kinds)
                SkipFailure([&] { DropFile(EntryFile(places_, target_, kind)); });
            fs::remove_all(target_, error);
        }
        for (auto folder = own_.madeFolders.rbegin(); folder != own_.madeFolders.rend(); ++folder)
            SkipFailure([&] { DropFolder(*folder); });
    }

    const std::string& package_;
    const PackageNames& names_;
    const UserPlaces& places_;
    const Progress& progress_;
    PackageNotes notes_;
    std::string target_;
    ProcessFolder folder_;
    const std::string& new_;
    Notes own_;
    bool inPlace_ = false;  ///< what stands at target_ is this
};

class Removing {
  public:
    Removing(const std::string& folder, const PackageNames& names, const UserPlaces& places)
        : folder_(folder), names_(names), places_(places) {}

    bool Run() {
        const ProfileSection own = ReadOwn();
        // The last things first, and by the notes it is still known as installed.
        RestoreSaver(own);
        for (const char* kind : Kinds)
            DropFile(EntryFile(places_, folder_, kind));
        RemoveSlides();
        RemoveListed(names_.library, ReadIfThere(At(names_.list)).value_or(""));
        for (const std::string& file :
             {std::string(StoreFile), std::string(SlideList), std::string(Settings)})
            DropFile(At(file));
        DropFolder(At(StoreFolder));
        DropEmpty(At(TemporaryFolder));
        for (const std::string& file : names_.files) {
            if (file != names_.notes) DropFile(At(file));
        }
        DropFile(At(names_.notes));
        DropFolder(folder_);
        RemoveMade(own);
        return IsFolder(folder_);
    }

  private:
    [[nodiscard]] std::string At(const std::string& name) const { return folder_ + "/" + name; }

    [[nodiscard]] ProfileSection ReadOwn() const {
        ProfileSection own = ReadProfileSection(ReadIfThere(At(names_.notes)).value_or(""), Section);
        if (!own.Has(FolderCount)) throw RuntimeError(ErrorNumber::FileNotFound);
        return own;
    }

    void RestoreSaver(const ProfileSection& own) {
        const std::optional<std::string> saver = ReadStored(places_.store, SaverValue);
        const std::string slides = places_.drivePath(At(names_.slides)) + "\\";
        if (!saver || !UpperCase(*saver).starts_with(UpperCase(slides))) return;
        std::optional<std::string> former;
        if (own.Has("FormerSaver")) former = own.Read("FormerSaver", LargestProfile);
        WriteStored(places_.store, SaverValue, former);
    }

    void RemoveSlides() { RemoveListed(names_.slides, ReadIfThere(At(SlideList)).value_or("")); }

    void RemoveListed(const std::string& folder, const std::string& list) {
        std::set<std::string, std::greater<>> folders{At(folder)};
        for (const std::string& path : PathsIn(list)) {
            const std::string file = At(folder) + "/" + path;
            DropFile(file);
            for (std::string above = HostFolderOf(file); above.size() > At(folder).size();
                 above = HostFolderOf(above))
                folders.insert(above);
        }
        for (const std::string& emptied : folders)  // the deeper ones first
            DropFolder(emptied);
    }

    /// The folders above that were made for it, as far as they are empty now.
    void RemoveMade(const ProfileSection& own) {
        const std::array ours{PackagesFolder(places_), MenuFolder(places_), HostFolderOf(places_.store)};
        for (int number = std::atoi(own.Read(FolderCount).c_str()); number > 0; --number) {
            const std::string made = own.Read("MadeFolder" + std::to_string(number), LargestProfile);
            const bool above = std::ranges::any_of(ours, [&made](const std::string& path) {
                return path == made || path.starts_with(made + "/");
            });
            if (above && !made.empty()) SkipFailure([&made] { DropFolder(made); });
        }
    }

    const std::string& folder_;
    const PackageNames& names_;
    const UserPlaces& places_;
};

}  // namespace

std::string InstallFolder(const UserPlaces& places, const std::string& name) {
    return PackagesFolder(places) + "/" + FolderName(name);
}

bool IsInstalled(const std::string& folder, const PackageNames& names) {
    const std::optional<std::string> text = ReadWholeFile(folder + "/" + names.notes, LargestProfile);
    return text && ReadProfileSection(*text, Section).Has(FolderCount);
}

bool Install(const std::string& package, const PackageNames& names, const UserPlaces& places,
             const Progress& progress) {
    return Installing(package, names, places, progress).Run();
}

bool Remove(const std::string& folder, const PackageNames& names, const UserPlaces& places) {
    return Removing(folder, names, places).Run();
}

}  // namespace tavrix::setup
