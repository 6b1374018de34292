#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "browsing/ThumbnailList.h"
#include "browsing/ThumbnailPages.h"
#include "core/MainModule.h"
#include "platform/forms/Application.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/ControlArray.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Timer.h"

namespace tavrix {

class MainViewFrm;

/// The thumbnail browser: the images of a list nine at a time as small pictures, from which they are opened, viewed, played
/// and described. The main view is hidden while it is open, and comes back when it closes.
class frmThumbnail final : public forms::Form {
  public:
    static constexpr std::size_t Slots = ThumbnailPages::Slots;
    // The grid is measured in pixels of 15 twips, so that it is as large at every scale.
    static constexpr float TwipsPerUnit = 15;
    static constexpr int CellWidth = 165;
    static constexpr int CellHeight = 125;
    static constexpr int CellGap = 3;
    static constexpr int MostWidth = 160;   ///< of a thumbnail
    static constexpr int MostHeight = 120;  ///< likewise
    static constexpr int LeastWidth = 625;  ///< of the window's inside
    static constexpr int LeastHeight = 449;

    /// `viewStageImage` shows MainModule::StageImage on the stage until the user closes it. All must outlive the window.
    frmThumbnail(forms::Application& application, MainViewFrm& view, ThumbnailList& list,
                 std::function<void()> viewStageImage);

  private:
    MainViewFrm& view_;
    MainModule& module_;
    ThumbnailList& list_;

  public:
    forms::ControlArray<forms::PictureBox, Slots> picHoldPreview{*this, "picHoldPreview"};
    forms::ControlArray<forms::Image, Slots> picPreview{picHoldPreview, "picPreview"};
    forms::CommandButton CmdNext{*this, "CmdNext"};
    forms::CommandButton CmdPrevious{*this, "CmdPrevious"};
    forms::CommandButton CmdBack1{*this, "CmdBack1"};
    forms::CommandButton CmdFwd1{*this, "CmdFwd1"};
    forms::CommandButton CmdStop{*this, "CmdStop"};
    forms::CommandButton CmdSelect{*this, "CmdSelect"};
    forms::CommandButton CmdBrowse{*this, "CmdBrowse"};
    forms::CommandButton CmdClose{*this, "CmdClose"};
    forms::Label lblShow{*this, "lblShow"};
    forms::Label lblShowing{*this, "lblShowing"};
    forms::Label lblNumMsg{*this, "lblNumMsg"};
    forms::Label lblNumFiles{*this, "lblNumFiles"};
    forms::Label lblSizeMsg{*this, "lblSizeMsg"};
    forms::Label lblTotalSize{*this, "lblTotalSize"};
    forms::Label lblInfo{*this, "lblInfo"};
    forms::Label lblHotspotMsg{*this, "lblHotspotMsg"};

    forms::Menu mnuPopup{*this, "mnuPopup", ""};
    forms::Menu mnuCloseMenu{mnuPopup, "mnuCloseMenu", ">>  Close Menu  <<          [Esc]"};
    forms::Menu mnuLine1{mnuPopup, "mnuLine1", "-"};
    forms::Menu mnuOpenImage{mnuPopup, "mnuOpenImage", "&Open Image"};
    forms::Menu mnuSelectFiles{mnuPopup, "mnuSelectFiles", "S&elect Files          [Alt+E]"};
    forms::Menu mnuBrowseFolder{mnuPopup, "mnuBrowseFolder", "&Browse Folder          [Alt+B]"};
    forms::Menu mnuShowInfo{mnuPopup, "mnuShowInfo", "Show &Image Information"};
    forms::Menu mnuLine2{mnuPopup, "mnuLine2", "-"};
    forms::Menu mnuViewAnimatedGIF{mnuPopup, "mnuViewAnimatedGIF", "»»  &View Animated GIF  ««"};
    forms::Menu mnuPreviewImg{mnuPopup, "mnuPreviewImg", "»»  Vie&w Image  ««"};

    ThumbnailPages Pages;
    std::array<int, Slots> ThumbWidths{};   ///< natural, in pixels; 0 where there is no picture
    std::array<int, Slots> ThumbHeights{};  ///< likewise
    int ThumbPopupSlot = 0;                 ///< where the popup was opened

    void Form_Activate() override;
    void Form_QueryUnload(bool& cancel) override;
    void Form_Unload(bool& cancel) override;
    void Form_MouseMove(const forms::MouseArguments&) override { lblHotspotMsg_MouseMove(); }
    void Form_OLEDragDrop(const std::vector<std::string>& files) override {
        picHoldPreview_OLEDragDrop(files);
    }

    /// Makes the page that begins at an index of the list; nothing for one below 0 or above ThumbnailList::Most.
    void ShowThumbnails(int start);
    /// The number of thumbnails on the page, the first of which counts always.
    [[nodiscard]] int VisibleThumbnails() const;

  private:
    /// Where a page of pictures came to its end.
    struct PageEnd {
        int reached = 0;
        bool canceled = false;  ///< in a box about a picture that could not be loaded
    };

    // frmThumbnail.cpp
    void BuildLayout();
    void InstallHandlers();
    void ShowHints();
    void CmdNext_Click();
    void CmdPrevious_Click();
    void CmdFwd1_Click();
    void CmdBack1_Click();
    void CmdStop_Click();
    void CmdBrowse_Click();
    void CmdSelect_Click();
    void lblHotspotMsg_MouseMove();
    void lblHotspotMsg_Click();
    void lblInfo_Click();
    void Tell(const std::string& text);
    void Hint(const std::string& text);
    /// Makes another page, of which `start` says where it begins.
    void TurnPage(const std::function<int()>& start);
    template <class Dialog>
    void ChooseList();
    void ShowNoList();
    void ShowListInfo();
    void ShowTotalSize();
    /// The list is a new one: tells of it and makes its first page.
    void ShowList();

    // frmThumbnailPage.cpp
    void BeginPage();
    [[nodiscard]] PageEnd FillPage(int start);
    /// False: the user wants no more.
    [[nodiscard]] bool FillSlot(std::size_t slot, const std::string& path);
    void EndPage(forms::Control* focus);
    /// Whether the page that is being made is still wanted.
    [[nodiscard]] bool Wanted() const { return CmdStop.Enabled && !Unloaded(); }
    void WaitFor(const PictureToFit& picture);
    void ShowThumbnail(std::size_t slot, const std::string& path, const FittedPicture& fitted);
    void ShowPageNumbers(int start);
    [[nodiscard]] bool GoesOnAfter(const std::string& path, const RuntimeError& error);
    void HideThumbnails();
    void EnableChoices(bool enabled);
    void ShowPagingButtons(bool visible);

    // frmThumbnailImages.cpp
    void picPreview_MouseDown(int index, int button);
    void picPreview_MouseMove(int index);
    void picHoldPreview_MouseDown(int index, int button);
    void picHoldPreview_OLEDragDrop(const std::vector<std::string>& files);
    void mnuOpenImage_Click();
    void mnuShowInfo_Click();
    void mnuViewAnimatedGIF_Click();
    void mnuPreviewImg_Click();
    /// The path of the image in a slot; nothing where the slot leads out of the list.
    [[nodiscard]] std::optional<std::string> PathIn(int slot) const;
    void OpenPopup(int slot, const std::string& path);
    void OpenImage(const std::string& path);
    [[nodiscard]] bool IsAnimated(const std::string& path, forms::BusyGuard& busy);

    std::function<void()> viewStageImage_;
    forms::Timer TimerLoad{*this};  ///< has the loop that waits for a picture look whether it has come
    bool loading_ = false;          ///< a list or a page is being made
    bool choosing_ = false;         ///< a dialog for another list is open
};

}  // namespace tavrix
