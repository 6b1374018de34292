#include "backends/linux/FolderReader.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <new>
#include <optional>
#include <system_error>
#include <thread>

#include "backends/linux/HostFolder.h"

namespace tavrix {

/// What the thread is asked for, and what it answers. Both sides hold it.
class FolderReader::Job {
  public:
    Job(std::string path, PatternList patterns) : path_(std::move(path)), patterns_(std::move(patterns)) {}

    /// Nobody looks at what is read before Tell.
    void Read() {
        try {
            ReadBoth(
                path_, [this](const std::string& name) { return patterns_.Matches(name); },
                [this](std::string&& name, EntryKind kind, FileNumber number) {
                    if (kind == EntryKind::Folder) {
                        content_.folders.push_back(std::move(name));
                    } else if (kind == EntryKind::LinkedFolder) {
                        content_.uncounted.push_back(std::move(name));
                    } else {
                        content_.files.push_back(std::move(name));
                        content_.numbers.push_back(number);
                    }
                });
            SortAsListed(content_.files, content_.numbers);
            SortAsListed(content_.folders);
            SortAsListed(content_.uncounted);
        } catch (const RuntimeError& error) {
            failure_ = error;
        } catch (const std::bad_alloc&) {  // which no thread may be left with
            failure_ = RuntimeError(ErrorNumber::OutOfMemory);
        }
    }
    void Tell() {
        const std::lock_guard lock(mutex_);
        done_ = true;
        changed_.notify_all();
    }

    bool Wait(std::chrono::milliseconds time) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, time, [this] { return done_; });
    }
    FolderContent Take() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return done_; });
        if (failure_) throw RuntimeError(*failure_);
        return std::move(content_);
    }

  private:
    std::string path_;
    PatternList patterns_;
    std::mutex mutex_;
    std::condition_variable changed_;
    bool done_ = false;
    FolderContent content_;
    std::optional<RuntimeError> failure_;
};

/// What the thread runs. It outlives the reader where a call does not come back.
class FolderReader::Worker {
  public:
    void Run() {
        for (;;) {
            std::shared_ptr<Job> job;
            {
                std::unique_lock lock(mutex_);
                changed_.wait(lock, [this] { return next_ || ended_; });
                job = std::move(next_);
            }
            if (!job) return;
            job->Read();
            {
                // Before it is told: whoever hears of it may have the next one at once.
                const std::lock_guard lock(mutex_);
                --jobs_;
            }
            job->Tell();
        }
    }
    /// Whether it took the job: it takes one while it has none.
    bool Give(const std::shared_ptr<Job>& job) {
        const std::lock_guard lock(mutex_);
        if (jobs_ != 0) return false;
        ++jobs_;
        next_ = job;
        changed_.notify_all();
        return true;
    }
    void End() {
        const std::lock_guard lock(mutex_);
        ended_ = true;
        changed_.notify_all();
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::shared_ptr<Job> next_;
    int jobs_ = 0;
    bool ended_ = false;
};

class FolderReader::WorkersLook final : public FolderLook {
  public:
    WorkersLook(std::shared_ptr<Job> job, FinishLook finish)
        : job_(std::move(job)), finish_(std::move(finish)) {}

    bool Wait(int milliseconds) override { return job_->Wait(std::chrono::milliseconds(milliseconds)); }
    FolderContent Take() override {
        FolderContent content = job_->Take();
        finish_(content);
        return content;
    }

  private:
    std::shared_ptr<Job> job_;
    FinishLook finish_;
};

FolderReader::~FolderReader() {
    if (worker_) worker_->End();
}

std::unique_ptr<FolderLook> FolderReader::Begin(const std::string& hostPath, PatternList patterns,
                                                FinishLook finish) {
    auto job = std::make_shared<Job>(hostPath, std::move(patterns));
    if (!worker_ || !worker_->Give(job)) {
        // One that is still at a look that nobody waits for is left to itself.
        if (worker_) worker_->End();
        worker_ = std::make_shared<Worker>();
        static_cast<void>(worker_->Give(job));
        try {
            std::thread([worker = worker_] { worker->Run(); }).detach();
        } catch (const std::system_error&) {
            // Without a thread the caller waits.
            worker_.reset();
            job->Read();
            job->Tell();
        }
    }
    return std::make_unique<WorkersLook>(std::move(job), std::move(finish));
}

}  // namespace tavrix
