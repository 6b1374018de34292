#include "backends/linux/HostFiles.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <ctime>
#include <filesystem>
#include <future>
#include <system_error>
#include <utility>

#include "backends/linux/HostNames.h"
#include "backends/linux/OwnCopy.h"
#include "backends/shared/NameList.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/services/DrivePath.h"

namespace tavrix {
namespace {

class HostReader final : public FileReader {
  public:
    explicit HostReader(FileDescriptor file) : file_(std::move(file)) {}

    std::size_t Read(std::span<std::byte> into) override {
        for (;;) {
            const ssize_t count = ::read(file_.Number(), into.data(), into.size());
            if (count >= 0) return static_cast<std::size_t>(count);
            if (errno != EINTR) throw ErrorOf(errno);
        }
    }

  private:
    FileDescriptor file_;
};

class HostWriter final : public FileWriter {
  public:
    HostWriter(const std::string& path, TargetFile::Options options, std::uint64_t bytes)
        : target_(path, options) {
        target_.Expect(bytes);
    }

    void Write(std::span<const std::byte> bytes) override { target_.Write(bytes); }
    void Close() override { target_.Commit(); }

  private:
    TargetFile target_;
};

DateTime LocalTime(const timespec& moment) {
    std::tm local{};
    ::localtime_r(&moment.tv_sec, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     std::min(local.tm_sec, 59)};
}

RuntimeError MissingFile(const HostLocation& location) {
    return RuntimeError(location.parentExists ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound);
}

std::string WithSlash(const std::string& folder) {
    return folder.ends_with('/') ? folder : folder + "/";
}

bool IsLink(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

bool IsSameFile(const HostLocation& a, const HostLocation& b) {
    return a.exists && b.exists && a.status.st_dev == b.status.st_dev && a.status.st_ino == b.status.st_ino;
}

}  // namespace

HostFiles::HostFiles(DriveMap& drives, HostPaths paths) : drives_(drives), paths_(std::move(paths)) {}

CurrentFolders& HostFiles::Current() {
    if (!current_) {
        current_.emplace();
        std::error_code error;
        const std::string start = std::filesystem::current_path(error).string();
        const DrivePathParts folder = PartsOf(drives_.ToDrivePath(error ? "/" : start));
        current_->SetDrive(folder.letter);
        current_->SetFolder(folder);
    }
    return *current_;
}

HostLocation HostFiles::Locate(const std::string& path) {
    return drives_.Locate(Current().Absolute(path).Text());
}

HostLocation HostFiles::LocateForWriting(const std::string& path) {
    return drives_.LocateForWriting(Current().Absolute(path).Text());
}

HostLocation HostFiles::LocateFile(const std::string& path) {
    HostLocation location = Locate(path);
    if (!location.exists) throw MissingFile(location);
    return location;
}

std::string HostFiles::HostPathOf(const std::string& path) {
    return LocateFile(path).path;
}

bool HostFiles::FileExists(const std::string& path) {
    try {
        return !path.ends_with('\\') && Locate(path).IsFile();
    } catch (const RuntimeError&) {
        return false;
    }
}

bool HostFiles::FolderExists(const std::string& path) {
    try {
        return Locate(path).IsFolder();
    } catch (const RuntimeError&) {
        return false;
    }
}

HostLocation HostFiles::LocateToList(const std::string& folder) {
    HostLocation location = Locate(folder);
    if (!location.IsFolder()) throw RuntimeError(ErrorNumber::PathNotFound);
    return location;
}

void HostFiles::ReadAll(const HostLocation& folder, EntryKind kind,
                        const std::function<bool(const std::string&)>& wanted,
                        const std::function<void(std::string&&)>& take) {
    ReadFolder(folder.path, kind, wanted, take);
    const std::string shared = folder.shared ? std::string() : drives_.SharedPathOf(folder.path);
    if (shared.empty()) return;
    const std::string here = WithBackslash(drives_.ToDrivePath(folder.path));
    // A path leads to a shared file only where nothing of the program's own folder has its name.
    const auto seen = [&](const std::string& name) {
        return wanted(name) && drives_.Locate(here + name).shared;
    };
    SkipFailure([&] { ReadFolder(shared, kind, seen, take); });
}

std::string HostFiles::First(const std::string& pattern) {
    const PatternPath split = SplitPattern(pattern);
    if (split.pattern.empty()) return {};
    HostLocation folder;
    try {
        folder = Locate(split.folder.empty() ? "." : split.folder);
    } catch (const RuntimeError&) {
        throw RuntimeError(ErrorNumber::BadFileNameOrNumber);
    }
    if (!folder.IsFolder()) return {};
    std::string first;
    const auto better = [&](const std::string& name) {
        return MatchesPattern(name, split.pattern) && (first.empty() || ListsBefore(name, first));
    };
    SkipFailure([&] {
        ReadAll(folder, EntryKind::File, better, [&](std::string&& name) { first = std::move(name); });
    });
    return first;
}

std::vector<std::string> HostFiles::List(const std::string& folder, const std::string& patterns) {
    const PatternList wanted(patterns);
    std::vector<std::string> names;
    ReadAll(
        LocateToList(folder), EntryKind::File, [&](const std::string& name) { return wanted.Matches(name); },
        [&](std::string&& name) { names.push_back(std::move(name)); });
    SortAsListed(names);
    return names;
}

std::vector<std::string> HostFiles::Folders(const std::string& folder) {
    const HostLocation location = LocateToList(folder);
    const std::string host = WithSlash(location.path);
    std::vector<std::string> paths;
    ReadAll(
        location, EntryKind::Folder,
        [&](const std::string& name) {
            return !drives_.IsHidden(location.drive, host + FromDriveName(name));
        },
        [&](std::string&& name) { paths.push_back(std::move(name)); });
    SortAsListed(paths);
    const std::string here = WithBackslash(Spelled(location, folder));
    for (std::string& path : paths)
        path.insert(0, here);
    return paths;
}

TargetFile::Options HostFiles::OptionsFor(const HostLocation& location) {
    TargetFile::Options options;
    // Large folders are not gone through for each file that is written there.
    options.cleanFolder = cleaned_.insert(HostFolderOf(location.path)).second;
    if (temporary_ && !temporary_->Path().empty()) {
        options.sync = !location.path.starts_with(temporary_->Path() + "/");
        options.keepsOtherNames = IsOwn(location);
    }
    if (location.drive.floppy) {
        options.limit = static_cast<std::uint64_t>(DriveMap::FreeBytes(location.drive)) +
                        (location.exists ? static_cast<std::uint64_t>(location.status.st_size) : 0);
    }
    return options;
}

bool HostFiles::IsOwn(const HostLocation& location) const {
    return temporary_ && !temporary_->Path().empty() && HostFolderOf(location.path) == temporary_->Path() &&
           !IsLink(location.path);
}

struct HostFiles::CopyPlan {
    HostLocation source;
    HostLocation target;
    TargetFile::Options options;
    bool own = false;     ///< both are in the temporary folder
    bool stands = false;  ///< one was linked to the other, and neither has been written since
};

HostFiles::CopyPlan HostFiles::PlanCopy(const std::string& from, const std::string& to) {
    CopyPlan plan;
    plan.source = LocateFile(from);
    plan.target = LocateForWriting(to);
    const HostLocation& source = plan.source;
    const HostLocation& target = plan.target;
    if (source.IsFolder() || target.IsFolder()) throw RuntimeError(ErrorNumber::PathFileAccessError);
    if (!target.exists && !target.parentExists) throw RuntimeError(ErrorNumber::PathNotFound);
    plan.own = source.IsFile() && IsOwn(source) && IsOwn(target);
    if (IsSameFile(source, target)) {
        plan.stands = plan.own && source.path != target.path;
        if (!plan.stands) throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    plan.options = OptionsFor(target);
    plan.options.newMode = (source.status.st_mode & 0777U) | S_IWUSR;
    plan.options.keepMode = false;
    // A copy that replaces nothing can be made again from what it was made from.
    if (!target.exists) plan.options.sync = false;
    return plan;
}

void HostFiles::NoteCopied(const CopyPlan& plan) {
    if (!plan.target.exists) drives_.NoteMade(plan.target.path);
}

bool HostFiles::Copy(const std::string& from, const std::string& to, const GoOn& goOn) {
    const CopyPlan plan = PlanCopy(from, to);
    if (plan.stands) return true;
    const bool protectedTarget = plan.target.exists && IsReadOnly(plan.target.path, plan.target.status);
    if (plan.own && !protectedTarget) {
        if (goOn && !goOn()) return false;
        if (LinkAsCopy(plan.source.path, plan.source.status, plan.target.path)) {
            NoteCopied(plan);
            return true;
        }
    }
    const FileDescriptor content = OpenForReading(plan.source.path);
    TargetFile copy(plan.target.path, plan.options);
    if (!copy.CopyFrom(content, plan.source.status, goOn)) return false;
    copy.Commit();
    NoteCopied(plan);
    return true;
}

class HostFiles::ThreadedCopy final : public BesideCopy {
  public:
    ThreadedCopy(HostFiles& files, CopyPlan plan)
        : files_(files),
          plan_(std::move(plan)),
          content_(OpenForReading(plan_.source.path)),
          copy_(plan_.target.path, plan_.options),
          // Where there are no more threads it is made in Finish.
          whole_(std::async(std::launch::async | std::launch::deferred, [this] {
              return copy_.CopyFrom(content_, plan_.source.status, [this] { return !dropped_; });
          })) {}
    ~ThreadedCopy() override { dropped_ = true; }

    void Finish() override {
        if (!whole_.get()) return;
        copy_.Commit();
        files_.NoteCopied(plan_);
    }

  private:
    HostFiles& files_;
    CopyPlan plan_;
    FileDescriptor content_;
    TargetFile copy_;
    std::atomic<bool> dropped_{false};
    std::future<bool> whole_;  ///< whose end waits for the thread
};

std::unique_ptr<BesideCopy> HostFiles::BeginCopy(const std::string& from, const std::string& to) {
    constexpr off_t WorthAThread = 8 << 20;
    CopyPlan plan = PlanCopy(from, to);
    if (!plan.own && plan.source.status.st_size >= WorthAThread)
        return std::make_unique<ThreadedCopy>(*this, std::move(plan));
    Copy(from, to);
    return StandingCopy();
}

FileMove HostFiles::PrepareMove(const std::string& from, const std::string& to) {
    FileMove move;
    move.source = LocateForWriting(from);
    if (!move.source.exists) throw MissingFile(move.source);
    if (!move.source.IsFile()) throw RuntimeError(ErrorNumber::PathFileAccessError);
    move.target = LocateForWriting(to);
    if (!move.target.exists && !move.target.parentExists) throw RuntimeError(ErrorNumber::PathNotFound);
    const std::vector<std::string> names = Current().Absolute(to).names;
    if (names.empty()) throw RuntimeError(ErrorNumber::FileAlreadyExists);
    move.newPath = WithSlash(HostFolderOf(move.target.path)) + FromDriveName(names.back());
    move.options = OptionsFor(move.target);
    return move;
}

void HostFiles::Rename(const std::string& from, const std::string& to) {
    const FileMove move = PrepareMove(from, to);
    drives_.NoteChange();
    move.Rename();
}

bool HostFiles::Move(const std::string& from, const std::string& to, const GoOn& goOn) {
    const FileMove move = PrepareMove(from, to);
    if (!move.Replace(goOn)) return false;
    if (!move.target.exists) drives_.NoteMade(move.newPath);
    return true;
}

std::unique_ptr<FolderLook> HostFiles::Look(const std::string& folder, const std::string& patterns) {
    HostLocation location;
    try {
        location = LocateToList(folder);
    } catch (const RuntimeError& failure) {
        return std::make_unique<FailedLook>(failure);
    }
    const std::string host = WithSlash(location.path);
    const HostDrive drive = location.drive;
    const std::string here = WithBackslash(Spelled(location, folder));
    const std::string shared = location.shared ? std::string() : drives_.SharedPathOf(location.path);
    if (!shared.empty()) {
        FolderContent content;
        content.files = List(folder, patterns);
        content.folders = Folders(folder);
        for (const std::string& name : content.files)
            content.numbers.push_back(drives_.Locate(here + name).status.st_ino);
        return std::make_unique<ReadyLook>(std::move(content));
    }
    return reader_.Begin(location.path, PatternList(patterns),
                         [this, host, drive, here](FolderContent& content) {
                             const auto hidden = [&](const std::string& name) {
                                 return drives_.IsHidden(drive, host + FromDriveName(name));
                             };
                             std::erase_if(content.folders, hidden);
                             std::erase_if(content.uncounted, hidden);
                             // What runs keeps its sockets and pipes there, and mounts what users see under letters of its own.
                             if (host == "/" && std::erase(content.folders, "run") != 0)
                                 content.uncounted.emplace_back("run");
                             for (auto* names : {&content.folders, &content.uncounted}) {
                                 for (std::string& path : *names)
                                     path.insert(0, here);
                             }
                             std::ranges::sort(content.uncounted, ListsBefore);
                         });
}

void HostFiles::Delete(const std::string& path) {
    const HostLocation location = LocateForWriting(path);
    if (!location.exists || location.IsFolder()) throw RuntimeError(ErrorNumber::FileNotFound);
    if (IsReadOnly(location.path, location.status)) throw RuntimeError(ErrorNumber::PermissionDenied);
    if (::unlink(location.path.c_str()) != 0) throw ErrorOf(errno);
    DriveMap::KeepDisk(location.drive);
}

FileInfo HostFiles::Info(const std::string& path) {
    const HostLocation location = LocateFile(path);
    FileInfo info;
    info.folder = location.IsFolder();
    info.length = info.folder ? 0 : location.status.st_size;
    info.modified = LocalTime(location.status.st_mtim);
    info.readOnly = location.shared || IsReadOnly(location.path, location.status);
    return info;
}

void HostFiles::ClearAttributes(const std::string& path) {
    const HostLocation location = LocateForWriting(path);
    if (!location.exists) throw MissingFile(location);
    if (location.IsFolder()) throw RuntimeError(ErrorNumber::PathFileAccessError);
    if ((location.status.st_mode & S_IWUSR) != 0) return;
    if (::chmod(location.path.c_str(), (location.status.st_mode & 07777U) | S_IWUSR) != 0)
        throw ErrorOf(errno);
}

void HostFiles::MakeFolder(const std::string& path) {
    const HostLocation location = LocateForWriting(path);
    if (location.exists) throw RuntimeError(ErrorNumber::PathFileAccessError);
    if (!location.parentExists) throw RuntimeError(ErrorNumber::PathNotFound);
    drives_.NoteChange();
    if (::mkdir(location.path.c_str(), 0777) != 0) {
        throw errno == EEXIST ? RuntimeError(ErrorNumber::PathFileAccessError) : ErrorOf(errno);
    }
}

void HostFiles::RemoveFolder(const std::string& path) {
    const HostLocation location = LocateForWriting(path);
    if (!location.IsFolder()) throw RuntimeError(ErrorNumber::PathNotFound);
    // All that the system may answer besides (it is not empty, a link, in use) is one answer here.
    if (Current().Absolute(path).names.empty() || ::rmdir(location.path.c_str()) != 0) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
}

void HostFiles::ChangeDrive(const std::string& drive) {
    if (drive.empty()) return;
    if (!IsDriveLetter(drive[0]) || (drive.size() > 1 && drive[1] != ':')) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    const std::optional<HostDrive> found = drives_.Find(drive[0]);
    if (!found || !DriveMap::HasDisk(*found)) throw RuntimeError(ErrorNumber::DeviceUnavailable);
    Current().SetDrive(found->letter);
}

void HostFiles::ChangeFolder(const std::string& folder) {
    const HostLocation location = Locate(folder);
    if (!location.IsFolder()) throw RuntimeError(ErrorNumber::PathNotFound);
    Current().SetFolder(PartsOf(Spelled(location, folder)));
}

std::string HostFiles::CurrentFolder() {
    return Current().Folder();
}

std::string HostFiles::Spelled(const HostLocation& location, const std::string& folder) {
    if (!location.shared) {
        std::string path = drives_.ToDrivePath(location.path);
        // Of two letters for one folder the one that was asked for is kept.
        if (path[0] == location.drive.letter) return path;
    }
    return Current().Absolute(folder).Text();
}

std::string HostFiles::ShortPath(const std::string& folder) {
    try {
        const HostLocation location = Locate(folder);
        return location.IsFolder() ? WithBackslash(Spelled(location, folder)) : std::string();
    } catch (const RuntimeError&) {
        return {};
    }
}

const std::string& HostFiles::TemporaryPath() {
    if (!temporary_) {
        // It stays locked, and the settings' folder is locked for each write.
        const bool settings = paths_.temporary == paths_.program || paths_.temporary == paths_.config;
        temporary_.emplace(paths_.temporary + (settings && !paths_.temporary.empty() ? "/temp" : ""));
    }
    return temporary_->Path();
}

std::string HostFiles::Folder(KnownFolder folder) {
    const auto ifThere = [this](const std::string& path) {
        struct stat status {};
        const bool there = !path.empty() && ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
        return there ? drives_.ToDrivePath(path) : std::string();
    };
    switch (folder) {
        case KnownFolder::Temporary:
            return ifThere(TemporaryPath());
        case KnownFolder::Windows:
            // There is none on this system, so it is made when it is asked for.
            if (!paths_.data.empty()) MakeFolders(paths_.data + "/tavrix/windows");
            return ifThere(paths_.data + "/tavrix/windows");
        case KnownFolder::System:
            return ifThere(paths_.data + "/tavrix/windows/system");
        case KnownFolder::Program:
            MakeFolders(paths_.program);
            return ifThere(paths_.program);
        case KnownFolder::Documents:
            return paths_.documents.empty() ? std::string() : drives_.ToDrivePath(paths_.documents);
    }
    return {};
}

std::unique_ptr<FileReader> HostFiles::Open(const std::string& path) {
    return std::make_unique<HostReader>(OpenForReading(LocateFile(path).path));
}

std::unique_ptr<FileWriter> HostFiles::Create(const std::string& path, std::uint64_t bytes) {
    const HostLocation location = LocateForWriting(path);
    if (!location.exists && !location.parentExists) throw RuntimeError(ErrorNumber::PathNotFound);
    if (location.IsFolder()) throw RuntimeError(ErrorNumber::PathFileAccessError);
    drives_.NoteChange();
    return std::make_unique<HostWriter>(location.path, OptionsFor(location), bytes);
}

bool HostFiles::Same(const std::string& a, const std::string& b) {
    try {
        return IsSameFile(Locate(a), Locate(b));
    } catch (const RuntimeError&) {
        return false;
    }
}

bool HostFiles::SameEntry(const std::string& a, const std::string& b) {
    try {
        const HostLocation first = Locate(a);
        const HostLocation second = Locate(b);
        if (!IsSameFile(first, second)) return false;
        return first.status.st_nlink == 1 || first.path == second.path || IsLink(first.path) ||
               IsLink(second.path);
    } catch (const RuntimeError&) {
        return false;
    }
}

bool HostFiles::HasExactly(const std::string& path) {
    try {
        const HostLocation location = Locate(path);
        if (!location.IsFile()) return false;
        std::string exact = location.drive.root;
        for (const std::string& name : Current().Absolute(path).names)
            exact.append("/").append(FromDriveName(name));
        return location.shared || location.path == exact;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace tavrix
