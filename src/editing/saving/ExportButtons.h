#pragma once

#include <functional>
#include <string>

#include "editing/saving/FileTarget.h"
#include "platform/forms/CommandButton.h"

namespace tavrix {

/// What the windows that export have besides the file: the two buttons, and what Export does.
class ExportButtons {
  public:
    /// To be a member of the form, behind the file. `extension`, e.g. ".BMP", is added to a name that lacks it.
    /// `write` writes the picture of MainImage to a full path; it throws RuntimeError.
    ExportButtons(forms::Form& form, MainViewFrm& view, FileTarget& target, std::string extension,
                  std::function<void(const std::string& path)> write);
    ExportButtons(const ExportButtons&) = delete;
    ExportButtons& operator=(const ExportButtons&) = delete;

    forms::CommandButton CmdExport;
    forms::CommandButton CmdCancel;

    /// What all exports say.
    static constexpr FileTargetWords Words{.nameLabel = "Enter a filena&me:",
                                           .noName = "A filename was not entered, unable to export image...",
                                           .newFile = "About to export the image as:",
                                           .failure = "Unable to export image:"};

    /// Proposes the name of the image on show with the extension in place of its last 3 characters.
    void Start();
    /// For the layout of the form.
    [[nodiscard]] forms::Layout Arrangement();

  private:
    void CmdExport_Click();
    void Export(const std::string& path);

    MainViewFrm& view_;
    MainModule& module_;
    FileTarget& target_;
    std::string extension_;
    std::function<void(const std::string& path)> write_;
};

}  // namespace tavrix
