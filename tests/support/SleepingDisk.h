#pragma once

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "backends/headless/HeadlessToolkit.h"
#include "platform/services/ForwardingFiles.h"

namespace tavrix::test {

/// A look that comes to its end only after some waits.
class SlowLook final : public FolderLook {
  public:
    SlowLook(std::unique_ptr<FolderLook> look, headless::HeadlessToolkit& toolkit, int waits)
        : look_(std::move(look)), toolkit_(toolkit), waits_(waits) {}

    bool Wait(int milliseconds) override {
        if (waits_ == 0) return true;
        --waits_;
        toolkit_.Advance(forms::Milliseconds(milliseconds));
        return false;
    }
    FolderContent Take() override { return look_->Take(); }

  private:
    std::unique_ptr<FolderLook> look_;
    headless::HeadlessToolkit& toolkit_;
    int waits_;
};

/// The files of the tests, of which one folder, or some more, are on a disk that sleeps.
class SleepingDisk final : public ForwardingFiles {
  public:
    SleepingDisk(Files& files, headless::HeadlessToolkit& toolkit)
        : ForwardingFiles(files), toolkit_(toolkit) {}

    std::unique_ptr<FolderLook> Look(const std::string& folder, const std::string& patterns) override {
        auto look = ForwardingFiles::Look(folder, patterns);
        const bool sleeps = folder == sleeping || also.contains(folder);
        return std::make_unique<SlowLook>(std::move(look), toolkit_, sleeps ? waits : 0);
    }

    std::string sleeping;
    std::set<std::string> also;
    int waits = 250;

  private:
    headless::HeadlessToolkit& toolkit_;
};

}  // namespace tavrix::test
