#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/Main.h"
#include "core/MainModule.h"
#include "core/Settings.h"
#include "platform/forms/Application.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Image.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/ScrollBar.h"
#include "viewer/FullScreenCorner.h"
#include "viewer/ImageOnShow.h"
#include "viewer/MainMenu.h"
#include "viewer/Selection.h"

namespace tavrix {

/// The dialog that a word on the command line asks for.
enum class StartDialog : std::int16_t {
    None = 0,
    About = 1,
    SlideShowEditor = 2,
    Open = 3,
    ThumbnailBrowser = 4
};

/// The program's main window: a menu bar over one scrolling area that shows the image at its own size. It owns the
/// menu tree and nothing of what the entries do. Its unload ends the process.
class MainViewFrm final : public forms::Form {
  public:
    // Layout, in twips.
    static constexpr float MinWidth = 4565;
    static constexpr float MinHeight = 4645;
    static constexpr float StartWidth = 9510;
    static constexpr float StartHeight = 7110;
    static constexpr float BarThickness = 228;
    static constexpr int BarSmallChange = 300;  ///< 20 pixels at 100 %: quick, yet the eye can follow

    MainViewFrm(forms::Application& application, MainModule& module, const Lives& lives);
    ~MainViewFrm() override;

    MainMenu menu{*this};

    forms::PictureBox picFrame{*this, "picFrame"};
    forms::PictureBox MainImage{picFrame, "MainImage"};
    forms::PictureBox PictureTemp{*this, "PictureTemp"};
    forms::Image ImageDefault{*this, "ImageDefault"};
    forms::ScrollBar hsbPict{*this, "hsbPict", false};
    forms::ScrollBar vsbPict{*this, "vsbPict", true};
    // Above all the others, since its corner may be theirs too.
    forms::CommandButton CmdFullScreen{*this, "CmdFullScreen"};
    FullScreenCorner fullScreenCorner{*this};

    Selection selection{MainImage};
    ImageOnShow imageOnShow{*this};
    StartDialog StartAction = StartDialog::None;
    bool FirstActivation = false;

    [[nodiscard]] MainModule& Module() const { return module_; }
    [[nodiscard]] const Lives& TheLives() const { return lives_; }

    void Form_Load() override;
    void Form_Activate() override;
    /// Where the window stands; nothing while it is minimised or maximised.
    [[nodiscard]] std::optional<MainViewPlacement> Placement() const;
    /// Lays the window out. Everything that changes the picture calls it.
    void Form_Resize() override;
    void Form_QueryUnload(bool& cancel) override;
    void Form_Unload(bool& cancel) override;
    void Form_KeyDown(int& keyCode, int shift) override;
    void Form_MouseMove(const forms::MouseArguments& mouse) override { fullScreenCorner.PointAt(mouse); }
    void Form_MouseUp(const forms::MouseArguments& mouse) override;
    void Form_OLEDragDrop(const std::vector<std::string>& files) override;

    /// Whether the window takes its size from the image.
    [[nodiscard]] bool SizesItself() const;
    /// Fits the window to the image and lays it out, where it sizes itself.
    void MainImage_Resize();
    void MainImage_MouseDown(const forms::MouseArguments& mouse);
    void MainImage_MouseMove(const forms::MouseArguments& mouse);
    void MainImage_MouseUp(const forms::MouseArguments& mouse);
    void CmdFullScreen_Click();

    void mnuTopmost_Click();
    void mnuExit_Click();

    /// Shows the colour that BackgroundColor names.
    void ShowBackgroundColor();
    /// Scrolls to the upper left corner.
    void ScrollHome();

  private:
    void hsbPict_Change();
    void vsbPict_Change();
    /// Adds to a bar's value, within its range.
    static void ScrollBarStep(forms::ScrollBar& bar, int delta);
    void ScrollByArrow(forms::ScrollBar& bar, int direction, int shift);
    void PlaceWindow();
    void OpenDisplayProperties();
    void OpenStartDialogs();
    void TakePlacesOfBars();
    void PlaceFullScreenButton();

    MainModule& module_;
    const Lives& lives_;
};

}  // namespace tavrix
