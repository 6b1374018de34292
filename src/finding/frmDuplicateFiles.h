#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "finding/LikeNames.h"
#include "platform/forms/Application.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"
#include "platform/forms/ListBox.h"
#include "platform/forms/PictureBox.h"
#include "viewer/OtherSubsystems.h"

namespace tavrix {

class MainViewFrm;
class FindWalk;
struct MainModule;

/// The dialog that searches drives for image files of like names, and opens, previews and deletes them one by one.
class frmDuplicateFiles final : public forms::Form {
  public:
    frmDuplicateFiles(forms::Application& application, MainViewFrm& view, OtherSubsystems others);

    forms::Label lblDrives{*this, "lblDrives"};
    forms::ListBox ListDrives{*this, "ListDrives"};
    forms::CommandButton CmdAll{*this, "CmdAll"};
    forms::CommandButton CmdNone{*this, "CmdNone"};
    forms::CommandButton CmdFixed{*this, "CmdFixed"};
    forms::CommandButton CmdRemovable{*this, "CmdRemovable"};
    forms::CommandButton CmdCDROM{*this, "CmdCDROM"};
    forms::CommandButton CmdNetwork{*this, "CmdNetwork"};
    forms::Label lblFiles{*this, "lblFiles"};
    forms::ListBox ListFiles{*this, "ListFiles"};
    forms::PictureBox picStatus{*this, "picStatus"};
    forms::CommandButton CmdFind{*this, "CmdFind"};
    forms::CommandButton CmdOpen{*this, "CmdOpen"};
    forms::CommandButton CmdPreview{*this, "CmdPreview"};
    forms::CommandButton CmdShowPath{*this, "CmdShowPath"};
    forms::CommandButton CmdDelete{*this, "CmdDelete"};
    forms::CommandButton CmdClose{*this, "CmdClose"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    bool DupCancelled = false;

    void Form_Load() override;
    void Form_Resize() override;
    void Form_QueryUnload(bool& cancel) override;
    void Form_Unload(bool& cancel) override;

  private:
    void BuildTexts();
    void BuildLayout();
    void SelectType(const char* label, const char* noneFound);
    void CmdFind_Click();
    void CmdOpen_Click();
    void CmdPreview_Click();
    void CmdShowPath_Click();
    void CmdDelete_Click();

    /// Tells why not.
    [[nodiscard]] bool MaySearch();
    void Search();
    /// Searches the drive of a line of ListDrives. False when it could not be read and the user has passed it over.
    bool SearchDrive(const std::string& line);
    [[nodiscard]] bool Retry(const std::string& line, const RuntimeError& error) const;
    void TellResult(bool allRead);
    void Cancel();
    /// The window while nothing is searched, or while something is.
    void ShowIdle(bool idle);

    void ShowStatus(const std::string& text);
    void ShowStart();
    void ShowSearching(const std::string& line);
    /// The path of the selected row. Nothing when there is none, which the user is told.
    [[nodiscard]] std::optional<std::string> Selected(const char* nothingSelected) const;
    forms::Answer Tell(const std::string& text, forms::BoxIcon icon = forms::BoxIcon::Information,
                       forms::BoxButtons buttons = forms::BoxButtons::Ok) const;
    /// What cannot be used during a search.
    [[nodiscard]] std::array<forms::CommandButton*, 11> IdleButtons();

    MainViewFrm& view_;
    MainModule& module_;
    OtherSubsystems others_;
    LikeNames names_;
    bool searching_ = false;  ///< a search is on the stack, cancelled or not
};

}  // namespace tavrix
