#pragma once

#include <cstdint>
#include <ctime>
#include <string>

#include "imaging/codecs/ByteSource.h"
#include "imaging/loading/IdentifiedSource.h"

namespace tavrix {

/// What tells one state of a file from another.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;
    std::int64_t modifiedSeconds = 0;
    std::int64_t modifiedNanoseconds = 0;

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// The bytes of an ordinary file of the host. Never waits for a device or the other end of a pipe.
class FileSource final : public ByteSource {
  public:
    /// Throws RuntimeError 53 (no file), 76 (no folder), 70 (protected), 71 (no medium) or 75 (a folder, a device,
    /// a pipe and the like).
    explicit FileSource(const std::string& hostPath);
    ~FileSource() override;

    FileSource(const FileSource&) = delete;
    FileSource& operator=(const FileSource&) = delete;

    [[nodiscard]] const FileIdentity& Identity() const { return identity_; }

    [[nodiscard]] std::uint64_t Size() const override { return identity_.size; }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> into) override;
    [[nodiscard]] std::optional<ErrorNumber> Error() const override { return error_; }

  private:
    int descriptor_ = -1;
    FileIdentity identity_;
    std::optional<ErrorNumber> error_;
};

/// The same with what tells this state of the file from another.
[[nodiscard]] IdentifiedSource OpenFileSource(const std::string& hostPath);

}  // namespace tavrix
