#pragma once

#include <cstdint>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <thread>

namespace tavrix::qt::x11 {

/// Whether the process shows its windows on an X server.
[[nodiscard]] bool Running();

/// What a window manager puts around a window, in device pixels.
struct FrameExtents {
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;
};

/// The question to the window manager how wide its frames are. It is asked at once, by a thread with a connection of its
/// own, and answered within some milliseconds, on a busy machine within 100 ms, so that there is something else to do
/// meanwhile.
class FrameQuestion {
  public:
    FrameQuestion();
    FrameQuestion(const FrameQuestion&) = delete;
    FrameQuestion& operator=(const FrameQuestion&) = delete;

    /// Waits for the answer, 100 ms at most; empty without a window manager or an answer. Once.
    [[nodiscard]] std::optional<FrameExtents> Answer();

  private:
    std::future<std::optional<FrameExtents>> answer_;
    std::jthread thread_;
};

/// The question before the toolkit runs, where the environment says that it will run on an X server; else null.
[[nodiscard]] std::shared_ptr<FrameQuestion> AskForFramesEarly();

/// Asks the window manager to leave the keyboard where it is when it maps this window.
void LeaveKeyboard(std::uint32_t window);

/// Puts a mapped window above others, or back, without unmapping it.
void SetAbove(std::uint32_t window, bool above);

/// Whether a window of any process has exactly this title.
[[nodiscard]] bool TitleExists(const std::string& title);

/// Whether the clipboard belongs to this process by now. The server refuses it to one whose last event is older than
/// the clipboard's present owner.
[[nodiscard]] bool OwnsClipboard();

/// Asks the desktop's clipboard manager to keep what this process has on the clipboard, and answers its questions
/// until it has it. Gives up when it does not begin within a second, asks nothing for five, or takes half a minute.
/// Nothing happens on a desktop without such a manager.
void SaveClipboard();

}  // namespace tavrix::qt::x11
