#pragma once

#include <set>
#include <span>
#include <string>

#include "platform/forms/Application.h"

namespace tavrix {

/// The editor of the show, as far as others work on it. The editor's window is one.
///
/// The rows of its list are the slides of MainModule::show, row by row. Who changes these tells the editor what it did,
/// when it is done, so that the list can follow without losing its place.
class SlideEditor {
  public:
    virtual ~SlideEditor() = default;

    /// Slides have been taken out; these are their former indices, which rise.
    virtual void SlidesRemoved(std::span<const int> indices) = 0;
    /// All slides are others: a show has been loaded. No row is current then. Shows the path of its file.
    virtual void ShowLoaded(const std::string& path) = 0;
    /// Any number of slides have other paths now. All slides are where they were.
    virtual void PathsChanged() = 0;
    /// Shows the path of the show that is being edited.
    virtual void SetFilename(const std::string& path) = 0;
    /// That path; a name without a folder for a show that has not been saved yet.
    [[nodiscard]] virtual std::string Filename() const = 0;
    /// Makes the first row the current one and lets the user edit descriptions, until that is done.
    virtual void EditDescriptions() = 0;

    /// Notes whether a show's file has been read whole. Of one that was not, this editor has a part at most, which must not
    /// take the place of the file unseen.
    void NoteReading(const std::string& path, bool whole);
    /// Whether the last reading of the file was not whole.
    [[nodiscard]] bool HasReadInPart(const std::string& path) const;

  private:
    std::set<std::string> readInPart_;  ///< paths, in upper case
};

/// The editor, or null while it is not loaded: looking for it never loads it.
[[nodiscard]] SlideEditor* LoadedEditor(const forms::Application& app);

}  // namespace tavrix
