#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace tavrix {

/// The folder of a show, which the paths of its slides may be relative to.
class ShowFolder {
  public:
    /// Where there is no folder yet, the text is empty.
    explicit ShowFolder(const std::string& folder);
    /// The folder that the file of a show lies in; none for the name of a show that has not been saved yet.
    [[nodiscard]] static ShowFolder Of(const std::string& showFile);

    /// With a backslash at the end; empty for none.
    [[nodiscard]] const std::string& Path() const { return folder_; }
    /// A file in the folder or below as it is seen from there, whatever the case of its path; nothing for others.
    [[nodiscard]] std::optional<std::string> Relative(const std::string& path) const;
    /// Where a slide is, by its path as the show has it: one without a drive is seen from the folder. In its normal form.
    [[nodiscard]] std::string SlidePath(const std::string& stored) const;

  private:
    std::string folder_;
    std::string upper_;
    std::size_t length_;  ///< characters
};

}  // namespace tavrix
