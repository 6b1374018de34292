#include "backends/headless/MemoryDisks.h"

#include <stdexcept>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix::headless {
namespace {

std::int64_t BytesIn(const MemoryNode& node) {
    auto bytes = static_cast<std::int64_t>(node.content.size());
    for (const auto& [name, child] : node.children)
        bytes += BytesIn(*child);
    return bytes;
}

void Collect(const MemoryNode& node, const std::string& path, std::map<std::string, std::string>& files) {
    for (const auto& [name, child] : node.children) {
        const std::string childPath = WithBackslash(path) + name;
        if (child->folder) {
            Collect(*child, childPath, files);
        } else {
            files[childPath] = child->content;
        }
    }
}

void Empty(MemoryNode& folder) {
    for (const auto& [name, child] : std::exchange(folder.children, {}))
        Empty(*child);
}

/// The child of that name: the exact spelling first, then the first in list order.
std::map<std::string, std::shared_ptr<MemoryNode>>::const_iterator FindChild(const MemoryNode& folder,
                                                                             const std::string& name) {
    const auto exact = folder.children.find(name);
    if (exact != folder.children.end()) return exact;
    auto best = folder.children.end();
    for (auto child = folder.children.begin(); child != folder.children.end(); ++child) {
        if (!EqualIgnoringCase(child->first, name)) continue;
        if (best == folder.children.end() || ListsBefore(child->first, best->first)) best = child;
    }
    return best;
}

}  // namespace

MemoryDisk::~MemoryDisk() {
    Empty(*root);
}

std::int64_t MemoryDisk::FreeBytes() const {
    const std::int64_t used = BytesIn(*root);
    return capacity > used ? capacity - used : 0;
}

void MemoryDisks::AddDrive(char letter, DriveType type) {
    drives_[letter] = {type, nullptr};
}

void MemoryDisks::RemoveDrive(char letter) {
    drives_.erase(letter);
}

void MemoryDisks::SetDevice(char letter, const std::string& device) {
    drives_[letter].device = device;
}

std::shared_ptr<MemoryDisk> MemoryDisks::InsertDisk(char letter, std::shared_ptr<MemoryDisk> disk) {
    if (!disk) {
        disk = std::make_shared<MemoryDisk>();
        if (letter == 'A' || letter == 'B') disk->capacity = FloppyCapacity;
    }
    drives_.at(letter).disk = disk;
    return disk;
}

std::shared_ptr<MemoryDisk> MemoryDisks::PullDisk(char letter) {
    return std::exchange(drives_.at(letter).disk, nullptr);
}

MemoryDisk& MemoryDisks::DiskOf(char letter) {
    MemoryDisk* const disk = drives_.at(letter).disk.get();
    if (disk == nullptr) throw std::logic_error("the test puts something on a drive without a disk");
    return *disk;
}

void MemoryDisks::SetWriteProtected(char letter, bool isProtected) {
    DiskOf(letter).writeProtected = isProtected;
}

void MemoryDisks::SetCapacity(char letter, std::int64_t bytes) {
    DiskOf(letter).capacity = bytes;
}

void MemoryDisks::PutFile(const std::string& path, const std::string& content) {
    PutFile(path, content, now_);
}

void MemoryDisks::PutFile(const std::string& path, const std::string& content, const DateTime& modified) {
    PutFolder(FolderOf(path));
    const MemoryPlace place = Locate(PartsOf(path));
    if (place.IsFolder()) throw std::logic_error("the test puts a file over the folder " + path);
    if (place.node) {
        place.node->content = content;
        place.node->modified = modified;
    } else {
        place.parent->children[place.name] =
            std::make_shared<MemoryNode>(MemoryNode{.content = content, .modified = modified});
    }
}

void MemoryDisks::PutFolder(const std::string& path) {
    DrivePathParts parts = PartsOf(path);
    const std::vector<std::string> names = std::exchange(parts.names, {});
    static_cast<void>(DiskOf(parts.letter));
    for (const std::string& name : names) {
        parts.names.push_back(name);
        const MemoryPlace place = Locate(parts);
        if (place.IsFolder()) continue;
        if (place.node) throw std::logic_error("the test puts a folder over the file " + path);
        place.parent->children[place.name] =
            std::make_shared<MemoryNode>(MemoryNode{.folder = true, .modified = now_});
    }
}

void MemoryDisks::PutLink(const std::string& existing, const std::string& path) {
    PutFolder(FolderOf(path));
    const MemoryPlace source = Locate(PartsOf(existing));
    if (!source.node) throw std::logic_error("the test links to nothing at " + existing);
    const MemoryPlace place = Locate(PartsOf(path));
    place.parent->children[place.name] = source.node;
    place.parent->links.insert(place.name);
}

void MemoryDisks::Remove(const std::string& path) const {
    const MemoryPlace place = Locate(PartsOf(path));
    if (!place.parent) return;
    place.parent->children.erase(place.name);
    place.parent->links.erase(place.name);
}

MemoryNode& MemoryDisks::NodeOf(const std::string& path) const {
    const MemoryPlace place = Locate(PartsOf(path));
    if (!place.node) throw std::logic_error("the test speaks of nothing at " + path);
    return *place.node;
}

void MemoryDisks::SetReadOnly(const std::string& path, bool readOnly) {
    NodeOf(path).readOnly = readOnly;
}

void MemoryDisks::SetHidden(const std::string& path, bool hidden) {
    NodeOf(path).hidden = hidden;
}

void MemoryDisks::SetUnreadable(const std::string& path, bool unreadable) {
    NodeOf(path).unreadable = unreadable;
}

std::optional<std::string> MemoryDisks::Content(const std::string& path) const {
    try {
        const MemoryPlace place = Locate(PartsOf(path));
        if (place.IsFile()) return place.node->content;
    } catch (const RuntimeError&) {  // no drive or no disk: no file
    }
    return std::nullopt;
}

bool MemoryDisks::Exists(const std::string& path) const {
    try {
        return Locate(PartsOf(path)).node != nullptr;
    } catch (const RuntimeError&) {
        return false;
    }
}

std::map<std::string, std::string> MemoryDisks::AllFiles() const {
    std::map<std::string, std::string> files;
    for (const auto& [letter, drive] : drives_) {
        if (drive.disk) Collect(*drive.disk->root, {letter, ':', '\\'}, files);
    }
    return files;
}

MemoryPlace MemoryDisks::Locate(const DrivePathParts& path) const {
    const auto drive = drives_.find(path.letter);
    if (drive == drives_.end()) throw RuntimeError(ErrorNumber::DeviceUnavailable);
    if (!drive->second.disk) throw RuntimeError(ErrorNumber::DiskNotReady);

    MemoryPlace place;
    place.disk = drive->second.disk;
    place.letter = path.letter;
    place.node = place.disk->root;
    DrivePathParts spelled{path.letter, {}};
    for (const std::string& name : path.names) {
        spelled.names.push_back(name);
        place.parent = place.node && place.node->folder ? place.node : nullptr;
        place.node = nullptr;
        place.name = name;
        if (!place.parent) continue;
        const auto child = FindChild(*place.parent, name);
        if (child == place.parent->children.end()) continue;
        place.name = child->first;
        place.node = child->second;
        spelled.names.back() = child->first;
    }
    place.path = spelled.Text();
    return place;
}

MemoryPlace MemoryDisks::LocateForWriting(const DrivePathParts& path) const {
    MemoryPlace place = Locate(path);
    if (place.disk->writeProtected) throw RuntimeError(ErrorNumber::PermissionDenied);
    return place;
}

}  // namespace tavrix::headless
