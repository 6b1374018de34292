#pragma once

#include <string>

#include "core/MainModule.h"
#include "shows/SlideEditor.h"

namespace tavrix {

/// What a show that the user chooses is loaded into.
class ShowTarget {
  public:
    virtual ~ShowTarget() = default;

    /// Loads the show of this file, by its full path, and shows it. Failures are told. The dialog is still open, and the
    /// pointer is the hourglass.
    virtual void Load(const std::string& path) = 0;
};

/// The editor of shows: the show that the windows share, and the rows of its list. The editor shows what could be read.
class EditorTarget final : public ShowTarget {
  public:
    EditorTarget(MainModule& module, SlideEditor& editor) : module_(module), editor_(editor) {}
    void Load(const std::string& path) override;

  private:
    MainModule& module_;
    SlideEditor& editor_;
};

/// The settings of the screen saver, as far as another show changes them.
class SaverSettings {
  public:
    virtual ~SaverSettings() = default;

    virtual void SetCurrentFile(const std::string& path) = 0;
    /// Reads that file into the show that the windows share, and shows its options. Failures are told.
    virtual void ReadCurrentFile() = 0;
};

/// The settings of the screen saver. An editor's rows, the recent shows and LastSlideShow are left alone; the saver begins
/// with the first image again.
class SaverTarget final : public ShowTarget {
  public:
    SaverTarget(MainModule& module, SaverSettings& settings) : module_(module), settings_(settings) {}
    void Load(const std::string& path) override;

  private:
    MainModule& module_;
    SaverSettings& settings_;
};

}  // namespace tavrix
