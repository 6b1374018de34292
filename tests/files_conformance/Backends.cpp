#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>

#include "Backend.h"
#include "backends/headless/HeadlessServices.h"
#include "backends/linux/HostFiles.h"
#include "base/Text.h"
#include "linux/TestFolder.h"
#include "platform/services/DrivePath.h"

namespace tavrix::test {
namespace {

class HostBackend final : public Backend {
  public:
    HostBackend() {
        for (const char* name : {"a", "c", "d"})
            folder_.PutFolder(name);
        // Another user passes through it.
        ::chmod(folder_.Path().c_str(), 0755);
    }

    Files& Service() override { return files_; }
    void PutFile(const std::string& path, const std::string& content) override {
        folder_.Put(NameOf(path), content);
    }
    void PutFolder(const std::string& path) override { folder_.PutFolder(NameOf(path)); }
    void PutLink(const std::string& existing, const std::string& path) override {
        std::filesystem::create_symlink(HostPath(existing), HostPath(path));
    }
    void Remove(const std::string& path) override { std::filesystem::remove_all(HostPath(path)); }
    std::optional<std::string> Content(const std::string& path) override {
        if (!folder_.Has(NameOf(path))) return std::nullopt;
        return folder_.Content(NameOf(path));
    }
    void InsertDisk() override { folder_.Put("a/.disk", ""); }
    void PullDisk() override {
        std::filesystem::remove_all(folder_.At("a"));
        folder_.PutFolder("a");
    }
    void SetReadOnly(const std::string& path, bool readOnly) override {
        ASSERT_EQ(::chmod(HostPath(path).c_str(), readOnly ? 0444 : 0644), 0);
    }
    void SetUnreadable(const std::string& folder, bool unreadable) override {
        ASSERT_EQ(::chmod(HostPath(folder).c_str(), unreadable ? 0311 : 0755), 0);
    }
    int ErrorForUser(const std::function<void()>& call) override {
        // The superuser is kept out by no mode.
        const pid_t child = ::fork();
        if (child == 0) {
            constexpr uid_t Nobody = 65534;
            if (::geteuid() == 0 && ::seteuid(Nobody) != 0) ::_exit(255);
            ::_exit(ErrorOfCall(call));
        }
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status));
        return WEXITSTATUS(status);
    }

  private:
    static std::string NameOf(const std::string& path) {
        std::string name = path;
        name[0] = static_cast<char>(name[0] - 'A' + 'a');
        name.erase(1, 1);
        std::ranges::replace(name, '\\', '/');
        return name;
    }
    [[nodiscard]] std::string HostPath(const std::string& path) const { return folder_.At(NameOf(path)); }
    [[nodiscard]] DriveMap::Sources Sources() const {
        DriveMap::Sources sources;
        sources.drives = "A=" + folder_.At("a") + ",floppy;C=" + folder_.At("c") + ";D=" + folder_.At("d");
        return sources;
    }

    TestFolder folder_;
    DriveMap drives_{Sources()};
    HostFiles files_{drives_, HostPaths{}};
};

class MemoryBackend final : public Backend {
  public:
    MemoryBackend() {
        disks_.AddDrive('A', DriveType::Removable);
        for (const char letter : {'C', 'D'}) {
            disks_.AddDrive(letter, DriveType::Fixed);
            disks_.InsertDisk(letter);
        }
    }

    Files& Service() override { return files_; }
    void PutFile(const std::string& path, const std::string& content) override {
        disks_.PutFolder(FolderOf(path));
        const auto folder = disks_.Locate(PartsOf(FolderOf(path))).node;
        folder->children[FileNameOf(path)] =
            std::make_shared<headless::MemoryNode>(headless::MemoryNode{.content = content});
    }
    void PutFolder(const std::string& path) override { disks_.PutFolder(path); }
    void PutLink(const std::string& existing, const std::string& path) override {
        disks_.PutLink(existing, path);
    }
    void Remove(const std::string& path) override { disks_.Remove(path); }
    std::optional<std::string> Content(const std::string& path) override {
        const auto files = disks_.AllFiles();
        const auto found = files.find(path);
        return found == files.end() ? std::nullopt : std::optional(found->second);
    }
    void InsertDisk() override { disks_.InsertDisk('A'); }
    void PullDisk() override { disks_.PullDisk('A'); }
    void SetReadOnly(const std::string& path, bool readOnly) override { disks_.SetReadOnly(path, readOnly); }
    void SetUnreadable(const std::string& folder, bool unreadable) override {
        disks_.SetUnreadable(folder, unreadable);
    }
    int ErrorForUser(const std::function<void()>& call) override { return ErrorOfCall(call); }

  private:
    headless::FaultPlan faults_;
    headless::MemoryDisks disks_;
    headless::MemoryFiles files_{disks_, faults_};
};

template <class Kind>
std::unique_ptr<Backend> Make() {
    return std::make_unique<Kind>();
}

INSTANTIATE_TEST_SUITE_P(Backends, FilesConformance,
                         testing::Values(BackendKind{"Host", &Make<HostBackend>},
                                         BackendKind{"Memory", &Make<MemoryBackend>}),
                         [](const auto& kind) { return std::string(kind.param.name); });

}  // namespace

std::string FilesConformance::Read(const std::string& path) {
    const auto reader = files.Open(path);
    std::string content;
    std::array<std::byte, 3> part{};
    while (const std::size_t count = reader->Read(part)) {
        content.append(reinterpret_cast<const char*>(part.data()), count);
    }
    return content;
}

}  // namespace tavrix::test
