#include "browsing/frmThumbnail.h"

#include <cmath>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "browsing/frmThumbFolder.h"
#include "browsing/frmThumbSelect.h"
#include "core/HelpContexts.h"
#include "core/NumberText.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

constexpr const char* WaitText = "Please wait...";

/// A flag that is set as long as this lives.
class Choosing {
  public:
    explicit Choosing(bool& flag) : flag_(flag) { flag_ = true; }
    ~Choosing() { flag_ = false; }
    Choosing(const Choosing&) = delete;
    Choosing& operator=(const Choosing&) = delete;

  private:
    bool& flag_;
};

}  // namespace

frmThumbnail::frmThumbnail(forms::Application& application, MainViewFrm& view, ThumbnailList& list,
                           std::function<void()> viewStageImage)
    : Form(application, {.name = "frmThumbnail", .acceptsDrops = true}),
      view_(view),
      module_(view.Module()),
      list_(list),
      viewStageImage_(std::move(viewStageImage)) {
    Caption = std::string(ProductName) + " - [Thumbnail Browser]";
    HelpContext = HelpContext::Thumbnails;
    CmdNext.Caption = "&Next 9";
    CmdNext.ToolTip = "Show the next 9 images.";
    CmdPrevious.Caption = "&Previous 9";
    CmdPrevious.ToolTip = "Show the previous 9 images.";
    CmdBack1.Caption = "<-";
    CmdBack1.ToolTip = "Go back one image.";
    CmdBack1.AccessibleName = "Back one image";
    CmdFwd1.Caption = "->";
    CmdFwd1.ToolTip = "Go forward one image.";
    CmdFwd1.AccessibleName = "Forward one image";
    CmdStop.Caption = "&Stop";
    CmdStop.ToolTip = "Stop loading thumbnail images.";
    CmdStop.Visible = false;
    CmdSelect.Caption = "S&elect";
    CmdSelect.ToolTip = "Click here to select the files to show.";
    CmdBrowse.Caption = "&Browse";
    CmdBrowse.ToolTip = "Click here to select another folder to browse.";
    CmdClose.Caption = "&Close";
    CmdClose.ToolTip = "Click here to close the Thumbnail Browser.";
    CmdClose.Cancel = true;
    lblShow.Caption = "Showing Images:";
    lblShowing.Caption = WaitText;
    lblNumMsg.Caption = "Number of files:";
    lblNumFiles.Caption = WaitText;
    lblSizeMsg.Caption = "Total size (Bytes)";
    lblTotalSize.Caption = WaitText;
    lblInfo.Literal = true;
    lblHotspotMsg.Literal = true;
    lblHotspotMsg.ToolTip =
        "Right-click an image and select \"Show Image Information\" for a detailed file description.";
    lblHotspotMsg.Visible = false;
    mnuPopup.Visible = false;
    ShowPagingButtons(false);
    for (std::size_t slot = 0; slot < Slots; ++slot) {
        picHoldPreview[slot].AccessibleName = "Cell " + std::to_string(slot + 1);
        picPreview[slot].MousePointer = forms::MousePointer::Hand;
        picPreview[slot].Visible = false;
    }
    InstallHandlers();
    ShowHints();
    BuildLayout();
}

void frmThumbnail::InstallHandlers() {
    CmdNext.OnClick = [this] { CmdNext_Click(); };
    CmdPrevious.OnClick = [this] { CmdPrevious_Click(); };
    CmdFwd1.OnClick = [this] { CmdFwd1_Click(); };
    CmdBack1.OnClick = [this] { CmdBack1_Click(); };
    CmdStop.OnClick = [this] { CmdStop_Click(); };
    CmdSelect.OnClick = [this] { CmdSelect_Click(); };
    CmdBrowse.OnClick = [this] { CmdBrowse_Click(); };
    CmdClose.OnClick = [this] { App().Unload(*this); };
    lblHotspotMsg.OnClick = [this] { lblHotspotMsg_Click(); };
    lblInfo.OnClick = [this] { lblInfo_Click(); };
    using forms::MouseArguments;
    picPreview.On(&forms::Image::OnMouseDown, [this](int index, const MouseArguments& mouse) {
        picPreview_MouseDown(index, mouse.button);
    });
    picPreview.On(&forms::Image::OnMouseMove,
                  [this](int index, const MouseArguments&) { picPreview_MouseMove(index); });
    picHoldPreview.On(&forms::PictureBox::OnMouseDown, [this](int index, const MouseArguments& mouse) {
        picHoldPreview_MouseDown(index, mouse.button);
    });
    picHoldPreview.On(&forms::PictureBox::OnMouseMove,
                      [this](int, const MouseArguments&) { lblHotspotMsg_MouseMove(); });
    using Dropped = std::vector<std::string>;
    picPreview.On(&forms::Image::OnOLEDragDrop,
                  [this](int, const Dropped& files) { picHoldPreview_OLEDragDrop(files); });
    picHoldPreview.On(&forms::PictureBox::OnOLEDragDrop,
                      [this](int, const Dropped& files) { picHoldPreview_OLEDragDrop(files); });
    mnuCloseMenu.Install([] {});  // a popup closes by itself
    mnuOpenImage.Install([this] { mnuOpenImage_Click(); });
    mnuSelectFiles.Install([this] { CmdSelect_Click(); });
    mnuBrowseFolder.Install([this] { CmdBrowse_Click(); });
    mnuShowInfo.Install([this] { mnuShowInfo_Click(); });
    mnuViewAnimatedGIF.Install([this] { mnuViewAnimatedGIF_Click(); });
    mnuPreviewImg.Install([this] { mnuPreviewImg_Click(); });
    TimerLoad.Enabled = false;
    TimerLoad.Interval = 2;
    TimerLoad.OnTimer = [] {};  // that it came is enough
}

void frmThumbnail::ShowHints() {
    const auto hint = [this](forms::CommandButton& button, const char* text) {
        button.OnMouseMove = [this, text](const forms::MouseArguments&) { Hint(text); };
    };
    hint(CmdBrowse, "Select a folder to browse...");
    hint(CmdClose, "Close the Thumbnail Browser...");
    hint(CmdNext, "Show the next image thumbnails...");
    hint(CmdPrevious, "Show the previous image thumbnails...");
    hint(CmdSelect, "Show thumbnails of the selected files...");
    hint(CmdStop, "Stop showing thumbnails...");
    for (forms::Label* label : {&lblInfo, &lblNumFiles, &lblNumMsg, &lblShow, &lblShowing, &lblSizeMsg,
                                &lblTotalSize, &lblHotspotMsg})
        label->OnMouseMove = [this](const forms::MouseArguments&) { lblHotspotMsg_MouseMove(); };
}

void frmThumbnail::BuildLayout() {
    using namespace forms;
    const auto pixels = [](int units, float twipsPerPixel) {
        return static_cast<int>(std::lround(static_cast<float>(units) * TwipsPerUnit / twipsPerPixel));
    };
    const Screen& screen = module_.Screen();
    const PixelSize cell{pixels(CellWidth, screen.TwipsPerPixelX()),
                         pixels(CellHeight, screen.TwipsPerPixelY())};
    std::vector<Layout> cells;
    for (std::size_t slot = 0; slot < Slots; ++slot)
        cells.emplace_back(picHoldPreview[slot]);
    constexpr int columns = 3;
    constexpr float leastText = 1500;  // their texts may be long, and are shown as far as there is room
    SetLayout(AtLeast(
        LeastWidth * TwipsPerUnit, LeastHeight * TwipsPerUnit,
        Column({Growing(Row({Cells(columns, cell, pixels(CellGap, screen.TwipsPerPixelX()), std::move(cells)),
                             Growing(Column({CmdNext, CmdPrevious, Row({CmdBack1, CmdFwd1}), CmdStop,
                                             Stretch(), CmdSelect, CmdBrowse, CmdClose}))})),
                Row({lblShow, Growing(lblShowing), lblNumMsg, Growing(lblNumFiles), lblSizeMsg,
                     Growing(lblTotalSize)}),
                AtLeast(leastText, 0, lblInfo), AtLeast(leastText, 0, lblHotspotMsg)})));
}

void frmThumbnail::Form_Activate() {
    if (choosing_ || loading_) return;
    if (list_.ThumbnailsShown) {
        module_.Screen().MousePointer = forms::MousePointer::Default;
        return;
    }
    ShowList();
}

void frmThumbnail::ShowList() {
    forms::BusyGuard busy(module_.Screen());
    loading_ = true;
    module_.Screen().MousePointer = forms::MousePointer::ArrowHourglass;
    module_.DoEvents();
    ShowPagingButtons(list_.ThumbnailCount() > static_cast<int>(Slots));
    ShowListInfo();
    lblHotspotMsg_MouseMove();
    lblNumFiles.Caption = std::to_string(list_.ThumbnailCount());
    ShowTotalSize();
    Pages.ThumbLastShown = Slots;
    ShowThumbnails(0);
    lblHotspotMsg.Visible = true;
}

void frmThumbnail::ShowListInfo() {
    const bool folder = !list_.ThumbnailFolder.empty();
    lblInfo.Caption = folder ? list_.ThumbnailFolder : "Tavrix is showing thumbnails of selected files...";
    lblInfo.ToolTip = folder ? "Click here to show full path." : "";
    lblInfo.MousePointer = folder ? forms::MousePointer::Hand : forms::MousePointer::Default;
}

void frmThumbnail::ShowTotalSize() {
    constexpr int yieldEvery = 64;  // a drive may be slow
    std::int64_t total = 0;
    int asked = 0;
    for (const std::string& path : list_.ThumbnailFiles) {
        SkipFailure([&] { total += module_.platform.files.Info(path).length; });
        if (++asked % yieldEvery == 0) module_.DoEvents();
    }
    lblTotalSize.Caption = GroupedNumberOrEmpty(total, module_.platform.system.Numbers());
}

void frmThumbnail::Form_QueryUnload(bool& cancel) {
    cancel = loading_ || !CmdClose.Enabled;
}

void frmThumbnail::Form_Unload(bool&) {
    CmdStop.Enabled = false;
    module_.DoEvents();
    const forms::BusyGuard busy(module_.Screen());
    Hide();
    view_.Show();
    if (module_.config.TopMostWindow) view_.SetTopmost(true);
}

void frmThumbnail::Tell(const std::string& text) {
    App().MessageBox({.text = text});
}

void frmThumbnail::Hint(const std::string& text) {
    lblHotspotMsg.Caption = text;
}

void frmThumbnail::lblHotspotMsg_MouseMove() {
    Hint("Left-click an image to open file, right-click an image for popup menu...");
}

void frmThumbnail::lblHotspotMsg_Click() {
    if (picPreview[0].Visible) {
        Tell("NOTE:" + std::string(NewLine2) +
             "You can right-click an image to show information about the file, if all of it does not fit "
             "here.");
    } else {
        Tell("Nothing is shown, click the Select or Browse button to choose thumbnail images...");
    }
}

void frmThumbnail::lblInfo_Click() {
    if (list_.ThumbnailFolder.empty()) return;
    Tell("Tavrix is browsing thumbnails in the folder:" + std::string(NewLine2) + list_.ThumbnailFolder);
}

void frmThumbnail::TurnPage(const std::function<int()>& start) {
    if (module_.Busy()) return;
    if (list_.ThumbnailCount() <= static_cast<int>(Slots)) {
        Tell("There are no more thumbnail files to show...");
        return;
    }
    const forms::BusyGuard busy(module_.Screen());
    module_.Screen().MousePointer = forms::MousePointer::ArrowHourglass;
    module_.DoEvents();
    if (!Unloaded()) ShowThumbnails(start());
}

void frmThumbnail::CmdNext_Click() {
    TurnPage([this] { return Pages.Next(list_.ThumbnailCount()); });
}

void frmThumbnail::CmdPrevious_Click() {
    TurnPage([this] { return Pages.Previous(list_.ThumbnailCount(), VisibleThumbnails()); });
}

void frmThumbnail::CmdFwd1_Click() {
    TurnPage([this] { return Pages.Forward1(list_.ThumbnailCount()); });
}

void frmThumbnail::CmdBack1_Click() {
    TurnPage([this] { return Pages.Back1(list_.ThumbnailCount()); });
}

void frmThumbnail::CmdStop_Click() {
    CmdStop.Enabled = false;
}

void frmThumbnail::ShowNoList() {
    HideThumbnails();
    ShowPagingButtons(false);
    lblNumFiles.Caption = "0";
    lblShowing.Caption = "None";
    lblTotalSize.Caption = "0";
    lblHotspotMsg.Visible = false;
    lblInfo.Caption = "No images are selected...";
    lblInfo.MousePointer = forms::MousePointer::Default;
    lblInfo.ToolTip = "";
}

template <class Dialog>
void frmThumbnail::ChooseList() {
    if (module_.Busy()) return;
    {
        const forms::BusyGuard busy(module_.Screen());
        ShowNoList();
        list_.ThumbnailFolder.clear();
        list_.ThumbnailsShown = true;
        // The return from the dialog is no return to a list: what the dialog has left is to be read first.
        const Choosing choosing(choosing_);
        App().Load<Dialog>(module_, list_).ShowModal();
        if (list_.ThumbnailFolder == ThumbnailList::Selected) list_.ThumbnailFolder.clear();
    }
    if (!list_.ThumbnailsShown) ShowList();
}

void frmThumbnail::CmdBrowse_Click() {
    ChooseList<frmThumbFolder>();
}

void frmThumbnail::CmdSelect_Click() {
    ChooseList<frmThumbSelect>();
}

}  // namespace tavrix
