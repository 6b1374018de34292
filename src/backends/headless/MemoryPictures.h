#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "backends/headless/FaultPlan.h"
#include "backends/headless/MemoryDisks.h"
#include "base/RuntimeError.h"
#include "platform/services/Files.h"
#include "platform/services/Pictures.h"

namespace tavrix::headless {

/// Loads pictures from files in memory: those that a test has put there as they are, others through the decoders.
/// Pictures are whole when Load returns.
class MemoryPictures final : public Pictures {
  public:
    MemoryPictures(MemoryDisks& disks, Files& files, FaultPlan& faults)
        : disks_(disks), files_(files), faults_(faults) {}

    /// Puts a file there that loads as this picture, and so does each copy of it. Gives the file's content.
    std::string SetPicture(const std::string& path, const Picture& picture);
    /// Loading from this path fails from now on, whatever is there.
    void SetFailure(const std::string& path, const RuntimeError& error);

    /// `path` is a full drive path.
    Picture Load(const std::string& path) override;
    /// A picture of a test is an animation of one frame; others play from the bytes that the file has now.
    std::unique_ptr<Animation> OpenAnimation(const std::string& path) override;
    /// Writes through the files in memory, whose faults count too.
    void SaveBitmap(const Surface& surface, const std::string& path) override;
    Picture LoadInBackground(const std::string& path) override { return Load(path); }
    /// Done at once.
    std::unique_ptr<PictureToFit> LoadToFit(const std::string& path, const FitBox& box) override;
    void Expect(const std::string& path) override { expected.push_back(path); }

    std::vector<std::string> expected;  ///< each path that was told, in order

  private:
    /// Counts the call, and throws what is planned for it or what is wrong with the path.
    [[nodiscard]] const std::string& ContentFor(const std::string& operation, const std::string& path);

    MemoryDisks& disks_;
    Files& files_;
    FaultPlan& faults_;
    std::map<std::string, Picture> pictures_;       ///< by the content of their files
    std::map<std::string, RuntimeError> failures_;  ///< by upper-cased path
};

}  // namespace tavrix::headless
