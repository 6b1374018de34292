// A module of PAM for tests. It lets in whoever asks, but under the name of its option user=NAME, and writes into the
// file of its option told=PATH how it finds the process. With asks=LETTERS it says (i), complains (e), asks for a
// secret (s) or for a name (n) for each letter, all at once, and lets in who answers each with "secret". With
// result=NUMBER that is how it ends.

#include <fcntl.h>
#include <security/pam_appl.h>
#include <security/pam_modules.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int HandedOn = 9;  ///< a file that whoever starts the process leaves open

std::string ItemOf(pam_handle_t* handle, int item) {
    const void* value = nullptr;
    const bool had = ::pam_get_item(handle, item, &value) == PAM_SUCCESS && value != nullptr;
    return had ? static_cast<const char*>(value) : "";
}

void Tell(pam_handle_t* handle, const std::string& path) {
    rlimit core{};
    ::getrlimit(RLIMIT_CORE, &core);
    std::array<char, PATH_MAX> folder{};
    const char* const current = ::getcwd(folder.data(), folder.size());
    const mode_t mask = ::umask(0);
    const unsigned left = ::alarm(0);
    ::alarm(left);
    std::ofstream(path) << "core " << core.rlim_cur << " " << core.rlim_max << "\ndumpable "
                        << ::prctl(PR_GET_DUMPABLE) << "\nfolder " << (current != nullptr ? current : "")
                        << "\nmask " << std::oct << mask << std::dec << "\nends "
                        << (left > 60 && left <= 120) << "\nhanded on " << (::fcntl(HandedOn, F_GETFD) >= 0)
                        << "\ndisplay " << ItemOf(handle, PAM_TTY) << "\nservice "
                        << ItemOf(handle, PAM_SERVICE) << "\n";
    ::umask(mask);
}

int Ask(pam_handle_t* handle, std::string_view letters) {
    const std::map<char, int> styles{
        {'i', PAM_TEXT_INFO}, {'e', PAM_ERROR_MSG}, {'s', PAM_PROMPT_ECHO_OFF}, {'n', PAM_PROMPT_ECHO_ON}};
    const void* item = nullptr;
    if (::pam_get_item(handle, PAM_CONV, &item) != PAM_SUCCESS) return PAM_SYSTEM_ERR;
    const auto* const conversation = static_cast<const pam_conv*>(item);
    std::vector<pam_message> messages;
    for (const char letter : letters)
        messages.push_back({styles.at(letter), "Well?"});
    std::vector<const pam_message*> pointers;
    for (const pam_message& message : messages)
        pointers.push_back(&message);
    pam_response* answers = nullptr;
    const int status = conversation->conv(static_cast<int>(messages.size()), pointers.data(), &answers,
                                          conversation->appdata_ptr);
    if (status != PAM_SUCCESS) return status;
    bool right = true;
    for (std::size_t i = 0; i < messages.size(); ++i) {
        const bool asked = letters[i] == 's' || letters[i] == 'n';
        const char* const answer = answers[i].resp;
        right =
            right && (asked ? answer != nullptr && std::strcmp(answer, "secret") == 0 : answer == nullptr);
        std::free(answers[i].resp);
    }
    std::free(answers);
    return right ? PAM_SUCCESS : PAM_AUTH_ERR;
}

}  // namespace

extern "C" int pam_sm_authenticate(pam_handle_t* handle, int /*flags*/, int count, const char** options) {
    for (int i = 0; i < count; ++i) {
        const std::string_view option = options[i];
        constexpr std::string_view user = "user=";
        constexpr std::string_view told = "told=";
        constexpr std::string_view asks = "asks=";
        if (option.starts_with(told)) Tell(handle, std::string(option.substr(told.size())));
        if (option.starts_with(user) &&
            ::pam_set_item(handle, PAM_USER, std::string(option.substr(user.size())).c_str()) != PAM_SUCCESS)
            return PAM_SYSTEM_ERR;
        constexpr std::string_view result = "result=";
        if (option.starts_with(result)) return std::atoi(option.substr(result.size()).data());
        if (!option.starts_with(asks)) continue;
        if (const int status = Ask(handle, option.substr(asks.size())); status != PAM_SUCCESS) return status;
    }
    return PAM_SUCCESS;
}

extern "C" int pam_sm_setcred(pam_handle_t* /*handle*/, int /*flags*/, int /*count*/,
                              const char** /*options*/) {
    return PAM_SUCCESS;
}
