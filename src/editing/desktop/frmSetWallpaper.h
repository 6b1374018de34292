#pragma once

#include <string>

#include "platform/forms/Application.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/OptionButton.h"

namespace tavrix {

class MainViewFrm;
struct MainModule;

/// The dialog that makes the picture on show the desktop's wallpaper.
class frmSetWallpaper final : public forms::Form {
  public:
    frmSetWallpaper(forms::Application& application, MainViewFrm& view);

  private:
    MainViewFrm& view_;
    MainModule& module_;
    forms::OptionGroup options_;

  public:
    forms::Label lblCurrent{*this, "lblCurrent"};
    forms::Label lblLastFilename{*this, "lblLastFilename"};
    forms::Frame Frame1{*this, "Frame1"};
    forms::OptionButton OptionTile{Frame1, "OptionTile", options_};
    forms::OptionButton OptionCenter{Frame1, "OptionCenter", options_};
    forms::Frame Frame2{*this, "Frame2"};
    forms::CheckBox CheckStretch{Frame2, "CheckStretch"};
    forms::CheckBox CheckAspect{Frame2, "CheckAspect"};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    void Form_Load() override;

  private:
    void CmdOK_Click();
    /// Makes the picture on show the wallpaper, by this file.
    /// False where the desktop takes none.
    bool SetWallpaper(const std::string& path);
    /// Writes the picture on show, scaled as the user wishes.
    void WritePicture(const std::string& path);
    void ScaleIntoPictureTemp(const Picture& image);
};

/// Opens the dialog where there is a picture for it.
void mnuSetWallpaper_Click(MainViewFrm& view);

}  // namespace tavrix
