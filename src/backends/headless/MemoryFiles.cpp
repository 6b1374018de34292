#include "backends/headless/MemoryFiles.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>

#include "backends/shared/NameList.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix::headless {
namespace {

/// The names of files or of folders in list order, the hidden ones left out.
template <class Wanted>
std::vector<std::string> NamesIn(const MemoryNode& parent, bool folders, Wanted&& wanted) {
    std::vector<std::string> names;
    for (const auto& [name, child] : parent.children) {
        if (child->folder == folders && !child->hidden && !name.starts_with('.') && wanted(name)) {
            names.push_back(name);
        }
    }
    SortAsListed(names);
    return names;
}

bool IsInPlace(const MemoryPlace& place) {
    return place.letter == 'A' || place.letter == 'B';
}

void TestForWriting(const MemoryPlace& place) {
    if (!place.parent) {
        throw RuntimeError(place.node ? ErrorNumber::PathFileAccessError : ErrorNumber::PathNotFound);
    }
    if (place.IsFolder()) throw RuntimeError(ErrorNumber::PathFileAccessError);
    if (place.node && place.node->readOnly) throw RuntimeError(ErrorNumber::PermissionDenied);
}

/// The file at a place, made when it is missing.
std::shared_ptr<MemoryNode> FileAt(const MemoryPlace& place, const DateTime& modified) {
    auto& node = place.parent->children[place.name];
    if (!node) node = std::make_shared<MemoryNode>(MemoryNode{.modified = modified});
    return node;
}

/// Asks before a copy and after every 8 MiB of it, as a real one does.
bool Goes(const GoOn& goOn, std::size_t bytes) {
    constexpr std::size_t Piece = std::size_t{8} << 20U;
    if (!goOn) return true;
    for (std::size_t at = 0; at == 0 || at < bytes; at += Piece) {
        if (!goOn()) return false;
    }
    return true;
}

/// A look that is over before it begins. What it fails with comes in Take.
class MemoryLook final : public FolderLook {
  public:
    explicit MemoryLook(FolderContent content) : content_(std::move(content)) {}
    explicit MemoryLook(const RuntimeError& failure) : failure_(failure) {}

    bool Wait(int /*milliseconds*/) override { return true; }
    FolderContent Take() override {
        if (failure_) throw RuntimeError(*failure_);
        return std::move(content_);
    }

  private:
    FolderContent content_;
    std::optional<RuntimeError> failure_;
};

class MemoryReader final : public FileReader {
  public:
    MemoryReader(std::shared_ptr<MemoryNode> file, FaultPlan& faults)
        : file_(std::move(file)), faults_(faults) {}

    std::size_t Read(std::span<std::byte> into) override {
        faults_.Enter(Service::Files, "Read");
        const std::size_t count =
            std::min(into.size(), file_->content.size() - std::min(at_, file_->content.size()));
        if (count != 0) std::memcpy(into.data(), file_->content.data() + at_, count);
        at_ += count;
        return count;
    }

  private:
    std::shared_ptr<MemoryNode> file_;
    FaultPlan& faults_;
    std::size_t at_ = 0;
};

class MemoryWriter final : public FileWriter {
  public:
    MemoryWriter(MemoryPlace place, const MemoryDisks& disks, FaultPlan& faults)
        : place_(std::move(place)), disks_(disks), faults_(faults) {}

    void Write(std::span<const std::byte> bytes) override {
        Try("Write", [&] {
            content_.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
            if (static_cast<std::int64_t>(content_.size()) > Room())
                throw RuntimeError(ErrorNumber::DiskFull);
        });
    }

    void Close() override {
        if (done_) return;
        Try("Close", [this] {
            const auto file = FileAt(place_, disks_.Now());
            file->content = content_;
            file->modified = disks_.Now();
        });
        done_ = true;
    }

  private:
    /// Runs a step; a failure of it is one of the whole.
    template <class Step>
    void Try(const std::string& operation, Step&& step) {
        if (failure_) throw RuntimeError(*failure_);
        try {
            faults_.Enter(Service::Files, operation);
            const auto drive = disks_.Drives().find(place_.letter);
            if (drive == disks_.Drives().end() || drive->second.disk != place_.disk) {
                throw RuntimeError(ErrorNumber::DiskNotReady);
            }
            step();
        } catch (const RuntimeError& error) {
            failure_ = error;
            throw;
        }
    }

    /// Bytes that the content may have.
    [[nodiscard]] std::int64_t Room() const {
        const bool former = IsInPlace(place_) && place_.node;
        return place_.disk->FreeBytes() +
               (former ? static_cast<std::int64_t>(place_.node->content.size()) : 0);
    }

    MemoryPlace place_;
    const MemoryDisks& disks_;
    FaultPlan& faults_;
    std::string content_;
    std::optional<RuntimeError> failure_;
    bool done_ = false;
};

}  // namespace

void ReplaceContent(const MemoryPlace& place, const std::string& content, const DateTime& modified) {
    TestForWriting(place);
    const auto size = static_cast<std::int64_t>(content.size());
    const std::int64_t former = place.node ? static_cast<std::int64_t>(place.node->content.size()) : 0;
    if (size > place.disk->FreeBytes() + (IsInPlace(place) ? former : 0)) {
        throw RuntimeError(ErrorNumber::DiskFull);
    }
    const auto file = FileAt(place, modified);
    file->content = content;
    file->modified = modified;
}

MemoryPlace MemoryFiles::Locate(const std::string& path) const {
    return disks_.Locate(current_.Absolute(path));
}

MemoryPlace MemoryFiles::LocateNode(const std::string& path) const {
    MemoryPlace place = Locate(path);
    if (!place.node) {
        throw RuntimeError(place.parent ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound);
    }
    return place;
}

bool MemoryFiles::FileExists(const std::string& path) {
    if (!faults_.EnterQuietly(Service::Files, "FileExists", path) || path.ends_with('\\')) return false;
    try {
        return Locate(path).IsFile();
    } catch (const RuntimeError&) {
        return false;
    }
}

bool MemoryFiles::FolderExists(const std::string& path) {
    if (!faults_.EnterQuietly(Service::Files, "FolderExists", path)) return false;
    try {
        return Locate(path).IsFolder();
    } catch (const RuntimeError&) {
        return false;
    }
}

std::string MemoryFiles::First(const std::string& pattern) {
    faults_.Enter(Service::Files, "First", pattern);
    const PatternPath split = SplitPattern(pattern);
    if (split.pattern.empty()) return {};
    MemoryPlace folder;
    try {
        folder = Locate(split.folder.empty() ? "." : split.folder);
    } catch (const RuntimeError&) {
        throw RuntimeError(ErrorNumber::BadFileNameOrNumber);
    }
    if (!folder.IsFolder() || folder.node->unreadable) return {};
    const std::vector<std::string> names = NamesIn(
        *folder.node, false, [&](const std::string& name) { return MatchesPattern(name, split.pattern); });
    return names.empty() ? std::string() : names.front();
}

MemoryPlace MemoryFiles::LocateToList(const std::string& folder) const {
    MemoryPlace place = Locate(folder);
    if (!place.IsFolder()) throw RuntimeError(ErrorNumber::PathNotFound);
    if (place.node->unreadable) throw RuntimeError(ErrorNumber::PermissionDenied);
    return place;
}

std::vector<std::string> MemoryFiles::List(const std::string& folder, const std::string& patterns) {
    faults_.Enter(Service::Files, "List", folder + " " + patterns);
    const PatternList wanted(patterns);
    return NamesIn(*LocateToList(folder).node, false,
                   [&](const std::string& name) { return wanted.Matches(name); });
}

std::vector<std::string> MemoryFiles::Folders(const std::string& folder) {
    faults_.Enter(Service::Files, "Folders", folder);
    const MemoryPlace place = LocateToList(folder);
    std::vector<std::string> paths = NamesIn(*place.node, true, [](const std::string&) { return true; });
    for (std::string& path : paths)
        path.insert(0, WithBackslash(place.path));
    return paths;
}

FolderContent MemoryFiles::ContentOf(const std::string& folder, const std::string& patterns) const {
    const PatternList wanted(patterns);
    const MemoryPlace place = LocateToList(folder);
    FolderContent content;
    content.files =
        NamesIn(*place.node, false, [&](const std::string& name) { return wanted.Matches(name); });
    content.folders = NamesIn(*place.node, true,
                              [&](const std::string& name) { return !place.node->links.contains(name); });
    for (std::string& path : content.folders)
        path.insert(0, WithBackslash(place.path));
    return content;
}

std::unique_ptr<FolderLook> MemoryFiles::Look(const std::string& folder, const std::string& patterns) {
    try {
        faults_.Enter(Service::Files, "Look", folder + " " + patterns);
        FolderContent content = ContentOf(folder, patterns);
        const MemoryPlace place = LocateToList(folder);
        for (const std::string& name : content.files)
            content.numbers.push_back(reinterpret_cast<std::uintptr_t>(place.node->children.at(name).get()));
        content.uncounted = NamesIn(
            *place.node, true, [&](const std::string& name) { return place.node->links.contains(name); });
        for (std::string& path : content.uncounted)
            path.insert(0, WithBackslash(place.path));
        return std::make_unique<MemoryLook>(std::move(content));
    } catch (const RuntimeError& failure) {
        return std::make_unique<MemoryLook>(failure);
    }
}

bool MemoryFiles::Copy(const std::string& from, const std::string& to, const GoOn& goOn) {
    faults_.Enter(Service::Files, "Copy", from + " " + to);
    const MemoryPlace source = LocateNode(from);
    const MemoryPlace target = disks_.LocateForWriting(current_.Absolute(to));
    if (source.IsFolder()) throw RuntimeError(ErrorNumber::PathFileAccessError);
    if (source.node == target.node) throw RuntimeError(ErrorNumber::PermissionDenied);
    TestForWriting(target);
    if (!Goes(goOn, source.node->content.size())) return false;
    ReplaceContent(target, source.node->content, source.node->modified);
    return true;
}

void MemoryFiles::Relocate(const Relocation& move) {
    const auto node = move.source.node;
    const MemoryPlace& target = move.target;
    if (move.source.disk != target.disk) {
        const std::int64_t freed =
            IsInPlace(target) && target.node ? static_cast<std::int64_t>(target.node->content.size()) : 0;
        if (static_cast<std::int64_t>(node->content.size()) > target.disk->FreeBytes() + freed) {
            throw RuntimeError(ErrorNumber::DiskFull);
        }
    }
    move.source.parent->children.erase(move.source.name);
    if (target.node) target.parent->children.erase(target.name);
    target.parent->children[move.newName] = node;
}

MemoryFiles::Relocation MemoryFiles::LocateMove(const std::string& from, const std::string& to) const {
    Relocation move;
    move.source = disks_.LocateForWriting(current_.Absolute(from));
    if (!move.source.node) {
        throw RuntimeError(move.source.parent ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound);
    }
    if (move.source.IsFolder()) throw RuntimeError(ErrorNumber::PathFileAccessError);
    const DrivePathParts wanted = current_.Absolute(to);
    move.target = disks_.LocateForWriting(wanted);
    if (wanted.names.empty()) throw RuntimeError(ErrorNumber::FileAlreadyExists);
    if (!move.target.parent) throw RuntimeError(ErrorNumber::PathNotFound);
    move.newName = wanted.names.back();
    move.ontoItself = move.target.parent == move.source.parent && move.target.name == move.source.name;
    return move;
}

void MemoryFiles::Rename(const std::string& from, const std::string& to) {
    faults_.Enter(Service::Files, "Rename", from + " " + to);
    const Relocation move = LocateMove(from, to);
    if (move.target.node && !move.ontoItself) throw RuntimeError(ErrorNumber::FileAlreadyExists);
    Relocate(move);
}

bool MemoryFiles::Move(const std::string& from, const std::string& to, const GoOn& goOn) {
    faults_.Enter(Service::Files, "Move", from + " " + to);
    const Relocation move = LocateMove(from, to);
    const MemoryPlace& target = move.target;
    const bool same = target.node == move.source.node && (!move.ontoItself || move.newName == target.name);
    if (same) throw RuntimeError(ErrorNumber::PermissionDenied);
    if (!move.ontoItself && target.node && (target.node->folder || target.node->readOnly)) {
        throw RuntimeError(ErrorNumber::FileAlreadyExists);
    }
    if (move.source.disk != target.disk && !Goes(goOn, move.source.node->content.size())) return false;
    Relocate(move);
    return true;
}

void MemoryFiles::ClearAttributes(const std::string& path) {
    faults_.Enter(Service::Files, "ClearAttributes", path);
    const MemoryPlace place = disks_.LocateForWriting(current_.Absolute(path));
    if (!place.IsFile()) throw RuntimeError(ErrorNumber::FileNotFound);
    place.node->readOnly = false;
}

void MemoryFiles::Delete(const std::string& path) {
    faults_.Enter(Service::Files, "Delete", path);
    const MemoryPlace place = disks_.LocateForWriting(current_.Absolute(path));
    if (!place.IsFile()) throw RuntimeError(ErrorNumber::FileNotFound);
    if (place.node->readOnly) throw RuntimeError(ErrorNumber::PermissionDenied);
    place.parent->children.erase(place.name);
}

FileInfo MemoryFiles::Info(const std::string& path) {
    faults_.Enter(Service::Files, "Info", path);
    const MemoryPlace place = LocateNode(path);
    return {static_cast<std::int64_t>(place.node->content.size()), place.node->modified,
            place.node->readOnly || place.disk->writeProtected, place.node->folder};
}

void MemoryFiles::MakeFolder(const std::string& path) {
    faults_.Enter(Service::Files, "MakeFolder", path);
    const MemoryPlace place = disks_.LocateForWriting(current_.Absolute(path));
    if (place.node) throw RuntimeError(ErrorNumber::PathFileAccessError);
    if (!place.parent) throw RuntimeError(ErrorNumber::PathNotFound);
    place.parent->children[place.name] =
        std::make_shared<MemoryNode>(MemoryNode{.folder = true, .modified = disks_.Now()});
}

void MemoryFiles::RemoveFolder(const std::string& path) {
    faults_.Enter(Service::Files, "RemoveFolder", path);
    const MemoryPlace place = disks_.LocateForWriting(current_.Absolute(path));
    if (!place.IsFolder()) throw RuntimeError(ErrorNumber::PathNotFound);
    if (!place.parent || place.parent->links.contains(place.name) || !place.node->children.empty()) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    place.parent->children.erase(place.name);
}

void MemoryFiles::ChangeDrive(const std::string& drive) {
    faults_.Enter(Service::Files, "ChangeDrive", drive);
    if (drive.empty()) return;
    const char letter = UpperCase(drive)[0];
    const auto found = disks_.Drives().find(letter);
    const bool wellFormed = IsDriveLetter(letter) && (drive.size() < 2 || drive[1] == ':');
    if (!wellFormed || found == disks_.Drives().end() || !found->second.disk) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    current_.SetDrive(letter);
}

void MemoryFiles::ChangeFolder(const std::string& folder) {
    faults_.Enter(Service::Files, "ChangeFolder", folder);
    const MemoryPlace place = Locate(folder);
    if (!place.IsFolder()) throw RuntimeError(ErrorNumber::PathNotFound);
    current_.SetFolder(PartsOf(place.path));
}

std::string MemoryFiles::CurrentFolder() {
    faults_.Enter(Service::Files, "CurrentFolder");
    return current_.Folder();
}

std::string MemoryFiles::ShortPath(const std::string& folder) {
    if (!faults_.EnterQuietly(Service::Files, "ShortPath", folder)) return {};
    try {
        const MemoryPlace place = Locate(folder);
        return place.IsFolder() ? WithBackslash(place.path) : std::string();
    } catch (const RuntimeError&) {
        return {};
    }
}

std::string MemoryFiles::Folder(KnownFolder folder) {
    if (!faults_.EnterQuietly(Service::Files, "Folder")) return {};
    const auto found = folders_.find(folder);
    return found == folders_.end() ? std::string() : found->second;
}

std::unique_ptr<FileReader> MemoryFiles::Open(const std::string& path) {
    faults_.Enter(Service::Files, "Open", path);
    const MemoryPlace place = LocateNode(path);
    if (place.IsFolder()) throw RuntimeError(ErrorNumber::PathFileAccessError);
    return std::make_unique<MemoryReader>(place.node, faults_);
}

std::unique_ptr<FileWriter> MemoryFiles::Create(const std::string& path) {
    faults_.Enter(Service::Files, "Create", path);
    const MemoryPlace place = disks_.LocateForWriting(current_.Absolute(path));
    TestForWriting(place);
    return std::make_unique<MemoryWriter>(place, disks_, faults_);
}

bool MemoryFiles::Same(const std::string& a, const std::string& b) {
    if (!faults_.EnterQuietly(Service::Files, "Same", a + " " + b)) return false;
    try {
        const MemoryPlace first = Locate(a);
        return first.node != nullptr && first.node == Locate(b).node;
    } catch (const RuntimeError&) {
        return false;
    }
}

bool MemoryFiles::SameEntry(const std::string& a, const std::string& b) {
    return Same(a, b);
}

bool MemoryFiles::HasExactly(const std::string& path) {
    if (!faults_.EnterQuietly(Service::Files, "HasExactly", path)) return false;
    try {
        const DrivePathParts wanted = current_.Absolute(path);
        const MemoryPlace place = disks_.Locate(wanted);
        return place.IsFile() && place.path == wanted.Text();
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace tavrix::headless
