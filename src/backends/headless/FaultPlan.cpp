#include "backends/headless/FaultPlan.h"

#include <array>
#include <utility>

namespace tavrix::headless {
namespace {

constexpr std::array<const char*, 16> ServiceNames{
    "Files", "Drives", "Profile", "Registry", "UserStore", "Shell",       "Pictures", "Clipboard",
    "Sound", "Help",   "System",  "Process",  "NViewLib",  "Wakefulness", "Desktop",  "SaverPassword"};

}  // namespace

void FaultPlan::FailNth(Service service, int nth, ErrorNumber number) {
    FailNth(service, nth, number, DescriptionOf(number));
}

void FaultPlan::FailNth(Service service, int nth, ErrorNumber number, const std::string& description) {
    faults_.push_back({service, Calls(service) + nth, {}, RuntimeError(number, description)});
}

void FaultPlan::FailAlways(Service service, const std::string& operation, ErrorNumber number) {
    faults_.push_back({service, 0, operation, RuntimeError(number)});
}

void FaultPlan::AtNth(Service service, int nth, std::function<void()> action) {
    actions_.push_back({service, Calls(service) + nth, std::move(action)});
}

void FaultPlan::Clear() {
    *this = FaultPlan();
}

int FaultPlan::Calls(Service service) const {
    const auto found = calls_.find(service);
    return found == calls_.end() ? 0 : found->second;
}

void FaultPlan::Enter(Service service, const std::string& operation, const std::string& argument) {
    const int call = ++calls_[service];
    log_.push_back(std::string(ServiceNames.at(static_cast<std::size_t>(service))) + "." + operation +
                   (argument.empty() ? "" : " " + argument));
    // A copy, since an action may add to the plan.
    for (const Action& action : std::vector<Action>(actions_)) {
        if (action.service == service && action.call == call) action.run();
    }
    for (const Fault& fault : faults_) {
        const bool hit = fault.call == 0 ? fault.operation == operation : fault.call == call;
        if (fault.service != service || !hit) continue;
        fired_ = true;
        throw RuntimeError(fault.error);
    }
}

bool FaultPlan::EnterQuietly(Service service, const std::string& operation, const std::string& argument) {
    try {
        Enter(service, operation, argument);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace tavrix::headless
