#pragma once

#include <QAbstractNativeEventFilter>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>

namespace tavrix::qt::x11 {

/// Tells the presses of a key that is held from those of a key that goes down. A held key repeats by a release and a
/// press of one moment, and the toolkit does not recognise each of them, least of all when a window goes between the two.
/// Of other window systems it knows nothing.
class KeyPresses final : private QAbstractNativeEventFilter {
  public:
    KeyPresses();

    /// Whether the press that came at this time of the server repeats an earlier one; nothing for an unknown press.
    [[nodiscard]] std::optional<bool> Repeats(std::uint32_t keyCode, std::uint64_t time) const;

  private:
    struct Press {
        std::uint32_t time = 0;
        bool repeats = false;
    };
    struct Key {
        bool down = false;
        std::optional<std::uint32_t> released{};  ///< when it went up last; nothing while it is down
        std::deque<Press> presses{};  ///< the latest, which may not have reached their windows yet
    };

    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;
    void ForgetReleased();

    bool running_;
    std::map<std::uint32_t, Key> keys_;
};

}  // namespace tavrix::qt::x11
