#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/ImageKinds.h"
#include "dialogs/FolderButton.h"
#include "dialogs/FolderLists.h"
#include "dialogs/LookedFiles.h"
#include "filing/SelectedFiles.h"
#include "filing/floppies/FloppyDisk.h"
#include "platform/forms/Application.h"
#include "platform/forms/Frame.h"

namespace tavrix {

/// Copies selected images from a folder to the floppy, as many as fit on one.
class frmPutOnFloppy final : public forms::Form {
  public:
    frmPutOnFloppy(forms::Application& application, MainModule& module);

  private:
    MainModule& module_;
    FloppyDisk disk_{module_};

  public:
    LookedFiles Looked{*this, module_.platform.files, PatternOf(ImagesShown::All)};
    forms::Frame Frame1{*this, "Frame1"};
    forms::Label lblDrives{Frame1, "lblDrives"};
    forms::DriveListBox Drive1{Frame1, "Drive1", module_.platform.files, module_.platform.drives};
    forms::Label lblFolders{Frame1, "lblFolders"};
    forms::DirListBox Dir1{Frame1, "Dir1", Looked};
    SelectedFiles Files{Frame1, module_, [this] { return Lists.Folder(); }, &Looked};
    forms::CommandButton CmdFF{Frame1, "CmdFF"};
    forms::CommandButton CmdCopy{*this, "CmdCopy"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    FolderLists Lists{module_, Looked, Drive1, Dir1, &Files.File1, BadDrive::Program};
    FolderButton FavoriteButton{*this,
                                module_,
                                CmdFF,
                                Lists,
                                [this] { return QuickFoldersOf(module_); },
                                {.closeEntryIsDefault = true}};

    void Form_Load() override;

  private:
    void CmdCopy_Click();
    /// The bytes of all files; nothing where one is not there any more, which has been told.
    [[nodiscard]] std::optional<std::int64_t> TotalOf(const std::string& source,
                                                      const std::vector<std::string>& names) const;
    /// Whether so many bytes go on the disk that is in the drive; else the user has been told.
    [[nodiscard]] bool Fits(std::int64_t total, bool one) const;
    [[nodiscard]] bool UserAgrees(const std::vector<std::string>& names) const;
    void Transfer(const std::string& source, const std::vector<std::string>& names);
    void Tell(const std::string& text) const;
};

}  // namespace tavrix
