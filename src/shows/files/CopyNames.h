#pragma once

#include <map>
#include <string>
#include <utility>

#include "core/ShowFolder.h"
#include "platform/services/Files.h"
#include "shows/files/SavePlan.h"

namespace tavrix {

/// The names in a show's folder, and whose they are once all copies are made.
class CopyNames {
  public:
    /// Files of one name are compared, which can take long: `goOn` is asked meanwhile. Once it has given up, names mean
    /// nothing.
    CopyNames(Files& files, const ShowFolder& folder, GoOn goOn = {})
        : files_(files), folder_(folder), goOn_(std::move(goOn)) {}

    /// What has this name directly in the folder keeps it.
    void Reserve(const std::string& name);
    /// Gives a file that is copied a name of its own, the same for each place that it has in the show. Another file that
    /// wanted a name first keeps it, and this one gets a number. A name that no file can have stays, to fail when the file
    /// is copied.
    void Name(StoredFile& file);

  private:
    [[nodiscard]] std::string NewName(const StoredFile& file);
    /// Whether one can stand for the other, such as the copy that a former save has made.
    [[nodiscard]] bool Equal(const StoredFile& file, const std::string& other) const;

    Files& files_;
    const ShowFolder& folder_;
    GoOn goOn_;
    std::map<std::string, std::string> owners_;  ///< by name, in upper case
    std::map<std::string, std::string> given_;   ///< names by source, as it is spelled
    std::map<std::string, int> numbers_;         ///< the last that was tried, by name
};

/// Whether the last component of a path can be the name of a file: "." and ".." would be the folder itself, or the one
/// that it lies in.
[[nodiscard]] bool CanName(const std::string& name);

}  // namespace tavrix
