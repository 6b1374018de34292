#pragma once

namespace tavrix {

/// The password that guards a running screen saver. Where System::PlatformId is 2 the desktop guards its own saver: then
/// nothing of this is asked.
class SaverPassword {
  public:
    virtual ~SaverPassword() = default;

    /// Asks the user for the password, above the program's active window, and tells of a wrong one. Messages run
    /// meanwhile. Whether it was right: a question that was closed, or that failed, is a wrong password.
    [[nodiscard]] virtual bool Verify() = 0;
    /// Shows the user where the password is changed, and returns at once or when that is done.
    virtual void Change() = 0;
    /// Tells the system that a guarded saver runs, or has ended: meanwhile it lets nobody get around the saver. False
    /// when it cannot be kept from that; the saver is not to run then. The end always succeeds, and so does the end of one
    /// that was never told to run.
    [[nodiscard]] virtual bool SetRunning(bool running) = 0;
};

}  // namespace tavrix
