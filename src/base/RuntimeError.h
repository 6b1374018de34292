#pragma once

#include <stdexcept>
#include <string>

namespace tavrix {

/// The numbers of the run-time errors that callers tell apart.
enum class ErrorNumber : int {
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    BadFileNameOrNumber = 52,
    FileNotFound = 53,
    FileAlreadyExists = 58,
    DiskFull = 61,
    InputPastEnd = 62,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    PathFileAccessError = 75,
    PathNotFound = 76,
    InvalidPropertyValue = 380,
    FormCannotBeMoved = 384,
    InvalidPicture = 481,
    CantOpenClipboard = 521,
};

/// The text that the system gives for a run-time error, e.g. "File not found".
[[nodiscard]] std::string DescriptionOf(ErrorNumber number);

/// The one failure that the platform throws. It never crosses a procedure of the logic.
class RuntimeError : public std::runtime_error {
  public:
    explicit RuntimeError(ErrorNumber number) : RuntimeError(number, DescriptionOf(number)) {}
    RuntimeError(ErrorNumber number, const std::string& description)
        : std::runtime_error(description), number_(number) {}

    [[nodiscard]] ErrorNumber Number() const { return number_; }
    /// The text shown to the user; it may be empty.
    [[nodiscard]] std::string Description() const { return what(); }

  private:
    ErrorNumber number_;
};

/// Runs one statement of a procedure that skips failing statements and goes on with the next.
template <class Statement>
void SkipFailure(Statement&& statement) {
    try {
        statement();
    } catch (const RuntimeError&) {  // skipped on purpose: the caller's procedure goes on regardless
    }
}

}  // namespace tavrix
