#include "backends/linux/PipedProgram.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <thread>

namespace tavrix {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// Above the standard ones, so that putting it in the place of one of them does what it says.
FileDescriptor AboveStandard(int number) {
    const FileDescriptor given(number);
    return FileDescriptor(::fcntl(number, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

int Remaining(Clock::time_point limit) {
    const auto left = std::chrono::ceil<milliseconds>(limit - Clock::now());
    return static_cast<int>(std::max(left, milliseconds(0)).count());
}

}  // namespace

std::optional<PipedProgram> PipedProgram::Start(const std::string& program,
                                                const std::vector<std::string>& arguments) {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return std::nullopt;
    FileDescriptor ours = AboveStandard(ends[0]);
    const FileDescriptor theirs = AboveStandard(ends[1]);
    if (!ours || !theirs) return std::nullopt;

    std::vector<std::string> texts{program};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> words;
    for (std::string& text : texts)
        words.push_back(text.data());
    words.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawnattr_init(&attributes);
    ::posix_spawn_file_actions_adddup2(&actions, theirs.Number(), STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, theirs.Number(), STDOUT_FILENO);
    sigset_t none;
    sigset_t all;
    ::sigemptyset(&none);
    ::sigfillset(&all);
    ::posix_spawnattr_setsigmask(&attributes, &none);
    ::posix_spawnattr_setsigdefault(&attributes, &all);
    ::posix_spawnattr_setflags(&attributes,
                               POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    pid_t child = 0;
    const int error = ::posix_spawnp(&child, program.c_str(), &actions, &attributes, words.data(), environ);
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0) return std::nullopt;
    return PipedProgram(child, std::move(ours));
}

PipedProgram::PipedProgram(PipedProgram&& other) noexcept
    : child_(std::exchange(other.child_, 0)), pipe_(std::move(other.pipe_)) {}

PipedProgram& PipedProgram::operator=(PipedProgram&& other) noexcept {
    if (this == &other) return *this;
    Leave();
    child_ = std::exchange(other.child_, 0);
    pipe_ = std::move(other.pipe_);
    return *this;
}

PipedProgram::~PipedProgram() {
    Leave();
}

void PipedProgram::Leave() {
    pipe_.Close();
    if (child_ == 0 || ::waitpid(child_, nullptr, WNOHANG) == child_) return;
    try {
        // Somebody has to take note of its end, or it stays in the table of processes.
        std::thread([child = child_] {
            while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
            }
        }).detach();
    } catch (const std::system_error&) {  // it ends all the same
    }
}

bool PipedProgram::Write(std::string_view text) const {
    const ssize_t sent = ::send(pipe_.Number(), text.data(), text.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    return sent == static_cast<ssize_t>(text.size());
}

void PipedProgram::EndInput() const {
    ::shutdown(pipe_.Number(), SHUT_WR);
}

std::optional<std::string> PipedProgram::ReadLine(milliseconds within, std::size_t most) const {
    const auto limit = Clock::now() + within;
    std::string line;
    while (line.size() < most) {
        pollfd waiting{pipe_.Number(), POLLIN, 0};
        const int ready = ::poll(&waiting, 1, Remaining(limit));
        if (ready < 0 && errno == EINTR) continue;
        if (ready <= 0) return std::nullopt;
        char character = 0;
        const ssize_t count = ::read(pipe_.Number(), &character, 1);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0 || character == '\n') break;
        line.push_back(character);
    }
    return line;
}

std::optional<int> PipedProgram::Status(milliseconds within) {
    const auto limit = Clock::now() + within;
    while (child_ != 0) {
        int status = 0;
        const pid_t ended = ::waitpid(child_, &status, WNOHANG);
        if (ended == child_) {
            child_ = 0;
            return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
        }
        if ((ended < 0 && errno != EINTR) || Clock::now() >= limit) return std::nullopt;
        std::this_thread::sleep_for(milliseconds(2));
    }
    return std::nullopt;
}

void PipedProgram::Kill() const {
    if (child_ != 0) ::kill(child_, SIGKILL);
}

}  // namespace tavrix
