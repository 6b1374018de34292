#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "base/RuntimeError.h"
#include "core/MainModule.h"
#include "dialogs/CopyWindow.h"

namespace tavrix {

/// A file on its way to another place. Paths are spelled as lists show them.
struct TransferItem {
    std::string from;
    std::string to;
    std::string name;       ///< as progress and questions tell it
    std::string told = {};  ///< the source as a failure tells it; empty: as it is spelled
};

/// What is done to each file.
enum class TransferAct : std::uint8_t {
    Copy,
    Move,           ///< renamed, or across disks copied whole and removed then
    CopyThenRemove  ///< in two steps, of which the second may fail by itself
};

/// The texts in which transfers differ.
struct TransferWords {
    std::string doing;    ///< the line above the name: "Tavrix is copying the file:"
    std::string failure;  ///< the line above what a failure was about: "Aborting, unable to copy the file:"
    bool failureTellsPath = true;  ///< and not the name alone
    std::string exists = "The following file already exists in the destination folder:";
    std::string replace;  ///< the question below the name; empty: what stands there is replaced without one
};

enum class TransferEnd : std::uint8_t {
    Done,      ///< all files have had their turn
    Stopped,   ///< Cancel was the answer to a question
    Canceled,  ///< by the button of the wait window
    Failed     ///< the user has been told
};

/// Copies or moves files one after the other, with progress, questions and an end at any time. What stands at a target is
/// replaced only by a whole new file; a file that source and target share is left alone, and so is a look-alike of a source
/// that has vanished (53). Files that are done stay done.
class FileTransfer {
  public:
    /// The window tells the progress, and is closed before a failure is told.
    FileTransfer(MainModule& module, CopyWindow& window, TransferAct act, TransferWords words);
    FileTransfer(const FileTransfer&) = delete;
    FileTransfer& operator=(const FileTransfer&) = delete;

    /// Whether a file is not to be taken, which it tells the user. Asked after the question whether to replace.
    std::function<bool(const TransferItem&)> OnRefuse;
    /// A drive has no disk: asks for it. Whether to try once more; else the transfer is stopped. Whether to replace a file
    /// is asked only once, but also of one that came with that disk.
    std::function<bool()> OnNoDisk;
    /// The file is at its new place and, where it was to go, gone from the old one.
    std::function<void(const TransferItem&)> OnDone;
    /// The copy is complete and the source could not be removed. Whether to go on with the others.
    std::function<bool(const TransferItem&, const RuntimeError&)> OnSourceStays;

    TransferEnd Run(std::span<const TransferItem> items);

  private:
    enum class Turn : std::uint8_t { Next, Stop, Cancel };

    [[nodiscard]] Turn Take(const TransferItem& item);
    [[nodiscard]] forms::Answer AskToReplace(const TransferItem& item);
    /// Whether a drive of the two paths has no disk.
    [[nodiscard]] bool LacksDisk(const TransferItem& item) const;
    /// OnNoDisk, without the window on the screen.
    [[nodiscard]] bool AskForDisk();
    [[nodiscard]] Turn Act(const TransferItem& item);
    /// False when it was given up.
    [[nodiscard]] bool Bring(const TransferItem& item);

    MainModule& module_;
    CopyWindow& window_;
    TransferAct act_;
    TransferWords words_;
};

}  // namespace tavrix
