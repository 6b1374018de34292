// FolderReader on a system that sleeps, fails and has no threads on demand.

#include "backends/linux/FolderReader.h"

#include <dirent.h>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/stat.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <iterator>
#include <memory>
#include <mutex>
#include <new>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "backends/linux/HostFolder.h"
#include "linux/TestFolder.h"
#include "support/ErrorOfCall.h"

namespace {

// The functions of the system know of no object that could be handed to them.
std::mutex mutex;
std::condition_variable woken;
std::string sleeping;  ///< a folder that is not opened before it is woken
std::atomic<int> asleep{0};
std::atomic<bool> tellsNoKinds{false};
constexpr int Never = -1;
std::atomic<int> entriesToFailure{Never};
std::atomic<bool> noMemory{false};
std::atomic<bool> noThreads{false};
std::atomic<int> threadsMade{0};
bool threadsSleep = false;  ///< those that are made do not begin before they are woken

struct LateThread {
    void* (*start)(void*);
    void* argument;
};

template <class Function>
Function* System(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

// As they are, but for what is demanded above.
extern "C" {

DIR* opendir(const char* path) {
    {
        std::unique_lock lock(mutex);
        if (path == sleeping) {
            ++asleep;
            woken.wait(lock, [] { return sleeping.empty(); });
            --asleep;
        }
    }
    static auto* const system = System<DIR*(const char*)>("opendir");
    return system(path);
}

dirent* readdir(DIR* folder) {
    if (noMemory) throw std::bad_alloc();
    if (entriesToFailure != Never && entriesToFailure-- == 0) {
        errno = EIO;
        return nullptr;
    }
    static auto* const system = System<dirent*(DIR*)>("readdir");
    dirent* const entry = system(folder);
    if (entry != nullptr && tellsNoKinds) entry->d_type = DT_UNKNOWN;
    return entry;
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*start)(void*),
                   void* argument) noexcept {
    if (noThreads) return EAGAIN;
    ++threadsMade;
    static auto* const system =
        System<int(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*)>("pthread_create");
    {
        const std::lock_guard lock(mutex);
        if (!threadsSleep) return system(thread, attributes, start, argument);
    }
    const auto late = [](void* data) -> void* {
        const std::unique_ptr<LateThread> begins(static_cast<LateThread*>(data));
        {
            std::unique_lock lock(mutex);
            woken.wait(lock, [] { return !threadsSleep; });
        }
        return begins->start(begins->argument);
    };
    return system(thread, attributes, late, std::make_unique<LateThread>(start, argument).release());
}

}  // extern "C"

namespace tavrix {
namespace {

using Names = std::vector<std::string>;

/// Whether a condition comes true.
template <class Condition>
bool Comes(Condition condition) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

std::ptrdiff_t ThreadsNow() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

/// A folder with two files and two folders, and links to one of each.
class FolderReaderTest : public testing::Test {
  protected:
    FolderReaderTest() {
        for (const char* file : {"all/b.bmp", "all/A.bmp", "all/note.txt", "other/c.bmp", "slow/d.bmp"})
            folder_.Put(file, "");
        for (const char* path : {"all/Zoo", "all/attic", "all/.hidden"})
            folder_.PutFolder(path);
        std::filesystem::create_symlink("b.bmp", folder_.At("all/c.bmp"));
        std::filesystem::create_symlink("Zoo", folder_.At("all/link"));
        std::filesystem::create_symlink("attic", folder_.At("all/again"));
        std::filesystem::create_symlink("nothing", folder_.At("all/dangling.bmp"));
        ::mkfifo(folder_.At("all/pipe.bmp").c_str(), 0600);
        threadsMade = 0;
    }
    ~FolderReaderTest() override {
        Wake();
        tellsNoKinds = false;
        entriesToFailure = Never;
        noMemory = false;
        noThreads = false;
    }

    std::unique_ptr<FolderLook> Begin(const std::string& name) {
        return reader_->Begin(folder_.At(name), PatternList("*.bmp"), [this](FolderContent& content) {
            finishedIn_ = std::this_thread::get_id();
            content.folders.emplace_back("finished");
        });
    }
    Names FilesOf(const std::string& name) { return Begin(name)->Take().files; }
    /// A look that its disk does not let go on.
    std::unique_ptr<FolderLook> BeginStuck() {
        {
            const std::lock_guard lock(mutex);
            sleeping = folder_.At("slow");
        }
        auto look = Begin("slow");
        EXPECT_TRUE(Comes([] { return asleep == 1; }));
        return look;
    }
    static void LetThreadsSleep() {
        const std::lock_guard lock(mutex);
        threadsSleep = true;
    }
    static void Wake() {
        const std::lock_guard lock(mutex);
        sleeping.clear();
        threadsSleep = false;
        woken.notify_all();
    }
    void ExpectAll(const FolderContent& content) const {
        EXPECT_EQ(content.files, (Names{"A.bmp", "b.bmp", "c.bmp"}));
        EXPECT_EQ(content.folders, (Names{"attic", "Zoo", "finished"}));
        EXPECT_EQ(content.uncounted, (Names{"again", "link"}));
        ASSERT_EQ(content.numbers.size(), 3U);
        for (std::size_t i = 0; i < 3; ++i) {
            struct stat status {};
            ASSERT_EQ(::stat(folder_.At("all/" + content.files[i]).c_str(), &status), 0);
            EXPECT_EQ(content.numbers[i], status.st_ino) << content.files[i];
        }
    }

    static constexpr int Long = 20'000;  ///< milliseconds

    TestFolder folder_;
    std::ptrdiff_t before_ = ThreadsNow();
    std::optional<FolderReader> reader_{std::in_place};
    std::thread::id finishedIn_;
};

TEST_F(FolderReaderTest, TellsKindsAndNumbersInListOrder) {
    ExpectAll(Begin("all")->Take());
    EXPECT_EQ(finishedIn_, std::this_thread::get_id());
}

TEST_F(FolderReaderTest, EachKindIsInListOrder) {
    Names files;
    Names folders;
    Names links;
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        // Every second one in capital letters, which make no difference to the order.
        const std::string name(1, (letter - 'a') % 2 == 0 ? letter : static_cast<char>(letter - 'a' + 'A'));
        folder_.Put("many/f" + name + ".bmp", "");
        folder_.PutFolder("many/d" + name);
        std::filesystem::create_symlink("da", folder_.At("many/l" + name));
        files.push_back("f" + name + ".bmp");
        folders.push_back("d" + name);
        links.push_back("l" + name);
    }
    folders.emplace_back("finished");
    const FolderContent content = Begin("many")->Take();
    EXPECT_EQ(content.files, files);
    EXPECT_EQ(content.folders, folders);
    EXPECT_EQ(content.uncounted, links);
}

TEST_F(FolderReaderTest, ADiskThatDoesNotTellKindsIsAskedForThem) {
    tellsNoKinds = true;
    ExpectAll(Begin("all")->Take());
}

TEST_F(FolderReaderTest, OneThreadReadsAllFolders) {
    EXPECT_EQ(threadsMade, 0) << "none before it is needed";
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(FilesOf("other"), Names{"c.bmp"});
    EXPECT_EQ(threadsMade, 1);
}

TEST_F(FolderReaderTest, ALookThatIsStuckHoldsUpNoOther) {
    auto stuck = BeginStuck();
    EXPECT_FALSE(stuck->Wait(0));
    EXPECT_FALSE(stuck->Wait(1));
    EXPECT_EQ(FilesOf("other"), Names{"c.bmp"});
    EXPECT_EQ(FilesOf("other"), Names{"c.bmp"});
    EXPECT_EQ(threadsMade, 2);
    EXPECT_FALSE(stuck->Wait(0));
    Wake();
    EXPECT_TRUE(Comes([&] { return stuck->Wait(0); }));
    EXPECT_EQ(stuck->Take().files, Names{"d.bmp"});
    EXPECT_TRUE(Comes([this] { return ThreadsNow() == before_ + 1; })) << "the one that was stuck ends";
    EXPECT_EQ(FilesOf("other"), Names{"c.bmp"});
    EXPECT_EQ(threadsMade, 2);
}

TEST_F(FolderReaderTest, AStuckThreadIsLeftToItselfAndEndsWithItsCall) {
    BeginStuck().reset();
    reader_.reset();
    EXPECT_EQ(ThreadsNow(), before_ + 1);
    Wake();
    EXPECT_TRUE(Comes([this] { return ThreadsNow() == before_; }));
}

TEST_F(FolderReaderTest, ItsThreadEndsWithIt) {
    EXPECT_EQ(FilesOf("other"), Names{"c.bmp"});
    reader_.reset();
    EXPECT_TRUE(Comes([this] { return ThreadsNow() == before_; }));
}

TEST_F(FolderReaderTest, ALookWhoseThreadHasNotBegunComesBesideANewerOne) {
    LetThreadsSleep();
    auto former = Begin("all");
    auto newer = Begin("other");
    Wake();
    ASSERT_TRUE(newer->Wait(Long));
    EXPECT_EQ(newer->Take().files, Names{"c.bmp"});
    ASSERT_TRUE(former->Wait(Long));
    ExpectAll(former->Take());
    EXPECT_TRUE(Comes([this] { return ThreadsNow() == before_ + 1; }));
}

TEST_F(FolderReaderTest, ALookOutlivesItsReader) {
    LetThreadsSleep();
    auto look = Begin("other");
    reader_.reset();
    Wake();
    ASSERT_TRUE(look->Wait(Long));
    EXPECT_EQ(look->Take().files, Names{"c.bmp"});
    EXPECT_TRUE(Comes([this] { return ThreadsNow() == before_; }));
}

TEST_F(FolderReaderTest, WithoutAThreadWhoAsksWaits) {
    noThreads = true;
    auto look = Begin("all");
    EXPECT_TRUE(look->Wait(0));
    ExpectAll(look->Take());
    EXPECT_EQ(ErrorOfCall([this] { FilesOf("none"); }), 76);
    noThreads = false;
    EXPECT_EQ(FilesOf("other"), Names{"c.bmp"});
    EXPECT_EQ(threadsMade, 1);
}

TEST_F(FolderReaderTest, AFailureIsToldWhenItIsTaken) {
    auto look = Begin("none");
    EXPECT_TRUE(Comes([&] { return look->Wait(0); }));
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(look->Take()); }), 76);
    EXPECT_EQ(ErrorOfCall([&] { FilesOf("all/b.bmp"); }), 76);
    EXPECT_EQ(FilesOf("other"), Names{"c.bmp"});
    EXPECT_EQ(threadsMade, 1);
}

TEST_F(FolderReaderTest, AFolderThatMemoryCannotHoldIsAFailureToo) {
    for (const bool thread : {true, false}) {
        noThreads = !thread;
        noMemory = true;
        EXPECT_EQ(ErrorOfCall([this] { FilesOf("all"); }), 7) << thread;
        noMemory = false;
        EXPECT_EQ(FilesOf("other"), Names{"c.bmp"});
    }
}

TEST_F(FolderReaderTest, AFolderThatIsReadInPartIsAFailure) {
    entriesToFailure = 4;
    EXPECT_EQ(ErrorOfCall([this] { FilesOf("all"); }), 75);
    const auto any = [](const std::string&) { return true; };
    for (const EntryKind kind : {EntryKind::File, EntryKind::Folder}) {
        entriesToFailure = 4;
        EXPECT_EQ(ErrorOfCall([&] { ReadFolder(folder_.At("all"), kind, any, [](std::string&&) {}); }), 75);
    }
}

/// Whoever is asked about a name may leave any error of the system behind.
TEST_F(FolderReaderTest, AnErrorOfSomebodyElsesIsNoneOfTheFolders) {
    const auto any = [](const std::string&) {
        errno = EIO;
        return true;
    };
    Names names;
    const auto take = [&names](std::string&& name) { names.push_back(std::move(name)); };
    ReadFolder(folder_.At("other"), EntryKind::File, any, take);
    ReadBoth(folder_.At("other"), any, [&](std::string&& name, EntryKind, FileNumber) {
        names.push_back(std::move(name));
        errno = EIO;
    });
    EXPECT_EQ(names, (Names{"c.bmp", "c.bmp"}));
}

TEST_F(FolderReaderTest, OneKindIsReadByTheSameRules) {
    const auto any = [](const std::string&) { return true; };
    for (const bool silent : {false, true}) {
        tellsNoKinds = silent;
        for (const auto& [kind, expected] :
             {std::pair(EntryKind::File, Names{"A.bmp", "b.bmp", "c.bmp", "note.txt"}),
              {EntryKind::Folder, Names{"again", "attic", "link", "Zoo"}}}) {
            Names names;
            ReadFolder(folder_.At("all"), kind, any,
                       [&names](std::string&& name) { names.push_back(std::move(name)); });
            SortAsListed(names);
            EXPECT_EQ(names, expected) << silent;
        }
    }
}

}  // namespace
}  // namespace tavrix
