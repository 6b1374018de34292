#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "core/MainModule.h"
#include "platform/services/Files.h"

namespace tavrix {

/// Goes through a folder and all that is below it, depth first: the subfolders of a folder, in list order, come before
/// its own files.
///
/// Links to folders are not followed, nor are the folders in which the system shows itself. A folder that cannot be read
/// has nothing in it. Events run on the way, so that the window answers; whoever starts a walk sees to it that nothing
/// else is started meanwhile.
class FindWalk {
  public:
    static constexpr std::size_t MostSubfolders = 3001;  ///< of one folder; further ones are ignored
    static constexpr forms::Milliseconds Breath{20};     ///< events run as often as that

    /// `patterns` are those of Files::List. The walk ends soon after `cancelled` has become true.
    FindWalk(const MainModule& module, std::string patterns, const bool& cancelled);

    /// The files of a folder that match, in list order, with the numbers by which their disk knows them, one for each; the
    /// folder has a backslash at the end. Folders without such files are not told.
    std::function<void(const std::string& folder, const std::vector<std::string>& names,
                       const std::vector<FileNumber>& numbers)>
        OnFiles;
    /// Events are about to run: a moment to show how far the walk has come.
    std::function<void()> OnBreath = [] {};

    /// Walks a folder, which has a backslash at the end.
    void Walk(const std::string& folder);
    /// Reads a folder without its subfolders, and throws what Files::List does where it cannot be read. Nothing is told of
    /// what is in it.
    void Require(const std::string& folder);
    /// Runs events, if it is time to: for handlers that have much to do.
    void Breathe();

  private:
    struct Level {
        std::string folder{};
        std::vector<std::string> subfolders{};
        std::size_t next = 0;  ///< of the subfolders
        std::vector<std::string> files{};
        std::vector<FileNumber> numbers{};
    };

    /// Nothing when it was cancelled. Throws where the folder cannot be read.
    [[nodiscard]] Level Look(const std::string& folder);
    [[nodiscard]] Level Read(const std::string& folder);

    const MainModule& module_;
    std::string patterns_;
    const bool& cancelled_;
    forms::Milliseconds lastBreath_{0};
};

}  // namespace tavrix
