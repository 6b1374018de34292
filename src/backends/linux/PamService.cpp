#include "backends/linux/PamService.h"

#include <algorithm>
#include <array>
#include <optional>
#include <sstream>
#include <string_view>

#include "backends/linux/HostFile.h"

namespace tavrix {
namespace {

constexpr int DeepestInclude = 8;

/// Modules that know a password by themselves.
constexpr std::array<std::string_view, 9> PasswordModules{
    "pam_unix.so",         "pam_sss.so",   "pam_ldap.so", "pam_krb5.so",   "pam_winbind.so",
    "pam_systemd_home.so", "pam_unix2.so", "pam_tcb.so",  "pam_pwdfile.so"};

std::optional<std::string> RulesOf(const std::string& service, const std::vector<std::string>& folders) {
    if (service.empty() || service.find("..") != std::string::npos) return std::nullopt;
    for (const std::string& folder : folders) {
        const bool whole = service.starts_with('/');
        if (auto rules = ReadWholeFile(whole ? service : folder + "/" + service)) return rules;
    }
    return std::nullopt;
}

enum class Verdict { Silent, Checks, Refuses };

Verdict VerdictOf(const std::string& rules, const std::vector<std::string>& folders, int depth) {
    if (depth > DeepestInclude) return Verdict::Refuses;
    const auto included = [&](const std::string& service) {
        const auto more = RulesOf(service, folders);
        return more ? VerdictOf(*more, folders, depth + 1) : Verdict::Refuses;
    };
    std::istringstream lines(rules);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line.substr(0, line.find('#')));
        std::string kind;
        std::string control;
        std::string module;
        words >> kind >> control;
        if (kind == "@include") {
            if (const Verdict verdict = included(control); verdict != Verdict::Silent) return verdict;
            continue;
        }
        if (kind != "auth" && kind != "-auth") continue;
        if (control.starts_with('[')) {
            while (!control.ends_with(']') && words >> control) {
            }
        }
        words >> module;
        if (control == "include" || control == "substack") {
            if (const Verdict verdict = included(module); verdict != Verdict::Silent) return verdict;
            continue;
        }
        const auto slash = module.rfind('/');
        const std::string name = slash == std::string::npos ? module : module.substr(slash + 1);
        if (name == "pam_deny.so" && (control == "required" || control == "requisite"))
            return Verdict::Refuses;
        if (std::ranges::find(PasswordModules, name) != PasswordModules.end()) return Verdict::Checks;
    }
    return Verdict::Silent;
}

}  // namespace

bool PamChecksPasswords(const std::string& service, const std::vector<std::string>& folders) {
    for (const std::string& name : {service, std::string("other")}) {
        if (const auto rules = RulesOf(name, folders))
            return VerdictOf(*rules, folders, 0) == Verdict::Checks;
    }
    return false;
}

}  // namespace tavrix
