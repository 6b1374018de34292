#pragma once

#include <string>
#include <vector>

#include "dialogs/CopyWindow.h"
#include "dialogs/FileTransfer.h"
#include "filing/SelectedFiles.h"
#include "filing/floppies/FloppyDisk.h"
#include "filing/floppies/Staging.h"
#include "platform/forms/Application.h"

namespace tavrix {

/// Copies selected images from one floppy to another through the one drive, by way of the temporary folder.
class frmDiskcopy final : public forms::Form {
  public:
    frmDiskcopy(forms::Application& application, MainModule& module);

  private:
    MainModule& module_;
    FloppyDisk disk_{module_};

  public:
    SelectedFiles Files{*this, module_, [this] { return disk_.Root(); }};
    forms::CommandButton CmdNewDisk{*this, "CmdNewDisk"};
    forms::CommandButton CmdCopy{*this, "CmdCopy"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    void Form_Load() override;
    void Form_Activate() override;

  private:
    void CmdCopy_Click();
    [[nodiscard]] bool UserAgrees(const std::vector<std::string>& names) const;
    void Transfer(const std::vector<std::string>& names);
    /// Both passes, up to where nothing more is to be written.
    [[nodiscard]] TransferEnd CopyBetween(const std::vector<std::string>& names, CopyWindow& window,
                                          Staging& staging);
    [[nodiscard]] bool AsksForDestination(CopyWindow& window) const;
    void Tell(const std::string& text) const;
};

}  // namespace tavrix
