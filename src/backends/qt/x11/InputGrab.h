#pragma once

#include <QAbstractNativeEventFilter>
#include <chrono>
#include <cstdint>
#include <functional>

namespace tavrix::qt::x11 {

/// The keyboard and the pointer of an X server, held so that no other program hears of them. The windows of the process
/// work as ever. Keys and buttons that come while none of them has the keyboard, or beside all of them, go to `heir`.
class InputGrab final : private QAbstractNativeEventFilter {
  public:
    struct Calls {
        std::function<std::uint32_t()>
            heir;  ///< the window that gets what no window of the process got; 0 for none
        std::function<void()> unheard;  ///< a key or a button went down that nobody got
    };

    explicit InputGrab(Calls calls);
    ~InputGrab();
    InputGrab(const InputGrab&) = delete;
    InputGrab& operator=(const InputGrab&) = delete;

    /// Takes both, or none: somebody may hold one of them for as long as that. Whether they are held.
    [[nodiscard]] bool Take(std::chrono::milliseconds within);
    /// Asks again for what may have been lost; harmless while it is held. Whether both are.
    bool Renew();
    void Release();

  private:
    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;

    Calls calls_;
    std::uint32_t window_ = 0;  ///< of no size to speak of and not to be seen, in whose name they are held
};

}  // namespace tavrix::qt::x11
