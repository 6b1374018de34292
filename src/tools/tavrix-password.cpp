// tavrix-password   Reads a password from the standard input and checks it with PAM for the account that runs the program.
// Status 0: it is right. 1: it is wrong. 2: it could not be checked. It says nothing and writes nothing.
//
// A program of its own, so that the modules of PAM and their delays stay out of the process that asks.

#include <pwd.h>
#include <security/pam_appl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

constexpr int Right = 0;
constexpr int Wrong = 1;
constexpr int Unchecked = 2;
constexpr unsigned LongestCheck = 120;  ///< seconds; whoever asks gives up long before
constexpr const char* Service = "tavrix";

/// What was entered, in memory that is never written to a disk.
class Password {
  public:
    Password() { ::mlock(text_.data(), text_.size()); }
    ~Password() { Wipe(); }
    Password(const Password&) = delete;
    Password& operator=(const Password&) = delete;

    /// All of the standard input. False for more than a password may have, for a NUL in it, and for a failure.
    [[nodiscard]] bool Read() {
        std::size_t length = 0;
        for (;;) {
            const ssize_t count = ::read(STDIN_FILENO, text_.data() + length, text_.size() - length);
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) return false;
            if (count == 0) break;
            length += static_cast<std::size_t>(count);
            if (length == text_.size()) return false;
        }
        return std::memchr(text_.data(), 0, length) == nullptr;
    }
    [[nodiscard]] const char* Text() const { return text_.data(); }
    void Wipe() { ::explicit_bzero(text_.data(), text_.size()); }

  private:
    std::array<char, 1024> text_{};
};

/// One prompt is answered with the password. Whoever wants more than that cannot be satisfied here.
struct Conversation {
    Password password;
    bool answered = false;
};

void Drop(pam_response* answers, int count) {
    for (int i = 0; i < count; ++i) {
        if (answers[i].resp == nullptr) continue;
        ::explicit_bzero(answers[i].resp, std::strlen(answers[i].resp));
        std::free(answers[i].resp);
    }
    std::free(answers);
}

/// What is given here, PAM frees.
int Answer(int count, const pam_message** messages, pam_response** given, void* data) {
    if (count <= 0 || count > PAM_MAX_NUM_MSG) return PAM_CONV_ERR;
    auto& conversation = *static_cast<Conversation*>(data);
    auto* answers =
        static_cast<pam_response*>(std::calloc(static_cast<std::size_t>(count), sizeof(pam_response)));
    if (answers == nullptr) return PAM_BUF_ERR;
    for (int i = 0; i < count; ++i) {
        const int style = messages[i]->msg_style;
        if (style == PAM_TEXT_INFO || style == PAM_ERROR_MSG) continue;
        if (style == PAM_PROMPT_ECHO_OFF && !conversation.answered) {
            conversation.answered = true;
            answers[i].resp = ::strdup(conversation.password.Text());
            conversation.password.Wipe();
            if (answers[i].resp != nullptr) continue;
        }
        Drop(answers, count);
        return PAM_CONV_ERR;
    }
    *given = answers;
    return PAM_SUCCESS;
}

/// What the check has no need of.
void GiveUpTheRest() {
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
    ::prctl(PR_SET_DUMPABLE, 0);
    ::close_range(STDERR_FILENO + 1, ~0U, 0);
    ::umask(077);
    if (::chdir("/") != 0) std::_Exit(Unchecked);
    ::alarm(LongestCheck);
}

std::string AccountName() {
    const passwd* account = ::getpwuid(::getuid());
    return account != nullptr && account->pw_name != nullptr ? account->pw_name : "";
}

int StatusOf(int answer) {
    switch (answer) {
        case PAM_SUCCESS:
            return Right;
        case PAM_AUTH_ERR:
        case PAM_MAXTRIES:
        case PAM_PERM_DENIED:
        case PAM_USER_UNKNOWN:
            return Wrong;
        default:
            return Unchecked;
    }
}

}  // namespace

int main() {
    // It lends nobody the rights of another.
    if (::geteuid() != ::getuid() || ::getegid() != ::getgid()) return Unchecked;
    GiveUpTheRest();
    const std::string name = AccountName();
    Conversation conversation;
    if (name.empty() || !conversation.password.Read()) return Unchecked;

    const pam_conv answers{Answer, &conversation};
    pam_handle_t* handle = nullptr;
    if (::pam_start(Service, name.c_str(), &answers, &handle) != PAM_SUCCESS) return Unchecked;
    if (const char* display = std::getenv("DISPLAY")) ::pam_set_item(handle, PAM_TTY, display);
    const int answer = ::pam_authenticate(handle, PAM_SILENT);
    // A module may have changed whom the check is about.
    const void* checked = nullptr;
    const bool same = ::pam_get_item(handle, PAM_USER, &checked) == PAM_SUCCESS && checked != nullptr &&
                      name == static_cast<const char*>(checked);
    ::pam_end(handle, answer | PAM_DATA_SILENT);
    return answer == PAM_SUCCESS && !same ? Unchecked : StatusOf(answer);
}
