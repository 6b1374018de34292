#include "backends/linux/PipedProgram.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

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

    std::vector<std::string> call{program};
    call.insert(call.end(), arguments.begin(), arguments.end());
    std::optional<ChildProgram> child = ChildProgram::Start(program, std::move(call), theirs.Number());
    if (!child) return std::nullopt;
    return PipedProgram(std::move(*child), std::move(ours));
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
    const std::optional<int> end = child_.End(within);
    return end && WIFEXITED(*end) ? std::optional(WEXITSTATUS(*end)) : std::nullopt;
}

}  // namespace tavrix
