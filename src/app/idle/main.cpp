// Starts the screen saver when nobody has worked for a while, on desktops that start none themselves. It runs from the
// beginning of a session to its end, and follows the entry by which the desktop starts it.

#include <QCoreApplication>
#include <QFileSystemWatcher>
#include <QSocketNotifier>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

#include "backends/linux/HostFile.h"
#include "backends/linux/HostIdleStart.h"
#include "backends/linux/HostUserStore.h"
#include "backends/linux/Neighbour.h"
#include "backends/qt/idle/DesktopSession.h"
#include "backends/qt/idle/IdleStarter.h"
#include "backends/qt/idle/SessionLock.h"
#include "base/RuntimeError.h"

namespace tavrix::idle {
namespace {

constexpr const char* Usage =
    "Usage: tavrix-idle [--seconds NUMBER]\n"
    "Starts the screen saver of Tavrix when nobody has worked for as long as its settings say, or for so "
    "many seconds.\n";

constexpr int WrongUse = 2;

/// The loop of the program: it asks the starter when that wants to be asked, and follows the entry.
class IdleProgram {
  public:
    IdleProgram(const HostPaths& paths, const std::string& viewer, std::optional<Milliseconds> fixed)
        : entry_(paths),
          store_(paths),
          minutes_(fixed ? std::nullopt : entry_.Minutes()),
          fixed_(fixed),
          session_(viewer,
                   [this] {
                       std::string show;
                       SkipFailure([&] { show = store_.Get("CurrentSaver", ""); });
                       return show;
                   }),
          starter_(session_, Wait().value_or(Milliseconds(0))) {
        timer_.setSingleShot(true);
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Ask(); });
        session_.onSaverEnded = [this] { Ask(); };
        WatchDisplay();
        if (!fixed_) WatchEntry();
        // The desktop's own saver is given the time to be there first.
        constexpr Milliseconds longest{60'000};
        const Milliseconds offer = std::min(Wait().value_or(longest) / 2, longest);
        QTimer::singleShot(offer, &timer_, [this] { session_.OfferService(); });
    }

    [[nodiscard]] std::optional<Milliseconds> Wait() const {
        if (fixed_) return fixed_;
        if (!minutes_) return std::nullopt;
        return std::chrono::minutes(*minutes_);
    }

    void Ask() {
        if (!session_.BusStands()) End();
        timer_.stop();
        if (const auto again = starter_.Ask(Now())) timer_.start(*again);
    }

  private:
    /// What is playing is left to its user.
    [[noreturn]] static void End() { std::_Exit(EXIT_SUCCESS); }

    void WatchDisplay() {
        if (session_.Display() < 0) return;
        notifier_ = std::make_unique<QSocketNotifier>(session_.Display(), QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
            if (session_.ReadDisplay()) return;
            End();
        });
    }
    void WatchEntry() {
        // Whoever changes the entry may write it piece by piece.
        constexpr Milliseconds settling{500};
        settled_.setSingleShot(true);
        settled_.setInterval(settling);
        QObject::connect(&settled_, &QTimer::timeout, &settled_, [this] { Follow(); });
        const auto changed = [this] {
            AddEntry();
            settled_.start();
        };
        QObject::connect(&watcher_, &QFileSystemWatcher::fileChanged, &watcher_, changed);
        QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &watcher_, changed);
        watcher_.addPath(QString::fromStdString(HostFolderOf(entry_.File())));
        AddEntry();
        Follow();  // what changed before it was watched
    }
    void Follow() {
        minutes_ = entry_.Minutes(minutes_);
        const std::optional<Milliseconds> wait = Wait();
        if (!wait) End();
        AddEntry();
        starter_.SetWait(*wait);
        Ask();
    }
    /// A file that was replaced is another one to the watcher.
    void AddEntry() {
        const QString file = QString::fromStdString(entry_.File());
        if (!watcher_.files().contains(file)) watcher_.addPath(file);
    }

    IdleEntry entry_;
    HostUserStore store_;
    std::optional<int> minutes_;  ///< what the entry has said, where the time is not fixed
    std::optional<Milliseconds> fixed_;
    DesktopSession session_;
    IdleStarter starter_;
    QTimer timer_;
    QTimer settled_;
    QFileSystemWatcher watcher_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

/// The seconds of the command line; nothing for a call that is wrong.
std::optional<Milliseconds> SecondsOf(int argc, char** argv) {
    if (argc != 3 || std::string(argv[1]) != "--seconds") return std::nullopt;
    const int seconds = std::atoi(argv[2]);
    if (seconds < 1) return std::nullopt;
    return std::chrono::seconds(seconds);
}

}  // namespace
}  // namespace tavrix::idle

int main(int argc, char** argv) {
    using namespace tavrix;
    const auto fixed = idle::SecondsOf(argc, argv);
    if (argc > 1 && !fixed) {
        std::fputs(idle::Usage, stderr);
        return idle::WrongUse;
    }
    const HostPaths own = HostPaths::FromEnvironment();
    const std::string viewer = NeighbourOf(own.executable, "tavrix");
    if (viewer.empty()) {
        std::fputs("tavrix-idle: the program tavrix is not beside it\n", stderr);
        return EXIT_FAILURE;
    }
    const HostPaths paths = HostPaths::FromEnvironment(viewer);
    const idle::SessionLock lock(paths);
    if (!lock.Held()) return EXIT_SUCCESS;
    const QCoreApplication application(argc, argv);
    idle::IdleProgram program(paths, viewer, fixed);
    QTimer::singleShot(0, [&program] { program.Ask(); });
    return QCoreApplication::exec();
}
