#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"

namespace tavrix::headless {

/// The services whose calls are counted.
enum class Service {
    Files,
    Drives,
    Profile,
    Registry,
    UserStore,
    Shell,
    Pictures,
    Clipboard,
    Sound,
    Help,
    System,
    Process,
    NViewLib,
    Wakefulness,
    Desktop,
    SaverPassword,
};

/// Faults on demand. Each call of a service counts, and so does each call of an open file's reader or writer; the one
/// that was chosen fails. Calls that report no errors (FileExists, Run, Get, ...) answer "no" or their fallback
/// then. A plan that fails the first, the second, the third call and so on until Fired() says no goes through
/// all that can fail in an operation.
class FaultPlan {
  public:
    /// Fails the nth call (from 1) of a service counted from now on, with the number's own text or another one.
    void FailNth(Service service, int nth, ErrorNumber number);
    void FailNth(Service service, int nth, ErrorNumber number, const std::string& description);
    /// Fails each call of one operation of a service ("Copy") that is made from now on.
    void FailAlways(Service service, const std::string& operation, ErrorNumber number);
    /// Runs an action in the nth call (from 1) of a service, before the call does its work: a disk is swapped.
    void AtNth(Service service, int nth, std::function<void()> action);
    /// No faults and no actions any more; the counts start again.
    void Clear();

    /// Whether a fault has come since the plan was made or cleared.
    [[nodiscard]] bool Fired() const { return fired_; }
    /// The calls of a service so far.
    [[nodiscard]] int Calls(Service service) const;
    /// What was called, in order: "Files.Copy C:\a.bmp".
    [[nodiscard]] const std::vector<std::string>& Log() const { return log_; }

    /// For the services: counts a call; throws when it is one that fails.
    void Enter(Service service, const std::string& operation, const std::string& argument = {});
    /// The same for calls that report no errors: false when it is one that fails.
    [[nodiscard]] bool EnterQuietly(Service service, const std::string& operation,
                                    const std::string& argument = {});

  private:
    struct Fault {
        Service service;
        int call = 0;           ///< 0: each call of the operation
        std::string operation;  ///< empty: whichever it is
        RuntimeError error;
    };
    struct Action {
        Service service;
        int call = 0;
        std::function<void()> run;
    };

    std::vector<Fault> faults_;
    std::vector<Action> actions_;
    std::map<Service, int> calls_;
    std::vector<std::string> log_;
    bool fired_ = false;
};

}  // namespace tavrix::headless
