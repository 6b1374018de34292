#include "viewer/MainViewFrm.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "core/SystemDialogs.h"
#include "core/UnsavedImage.h"
#include "core/WaitFrm.h"
#include "viewer/AutomaticSize.h"
#include "viewer/BackgroundColours.h"
#include "viewer/DefaultPicture.h"
#include "viewer/DropFiles.h"
#include "viewer/MenuState.h"
#include "viewer/StartArguments.h"

namespace tavrix {

namespace {

/// Runs messages until no other window of the program is on the screen: a dialog that is not modal is still there when its
/// command has ended.
void WaitUntilAlone(const forms::Form& form) {
    const auto alone = [&form] {
        for (int i = 0; i < form.App().FormCount(); ++i) {
            const forms::Form& other = form.App().FormAt(i);
            if (&other != &form && other.Visible()) return false;
        }
        return true;
    };
    if (!alone()) form.App().GetToolkit().RunUntil(alone);
}

}  // namespace

namespace MouseButton = forms::MouseButton;
using forms::MousePointer;
namespace ShiftMask = forms::ShiftMask;
using forms::WindowState;

MainViewFrm::MainViewFrm(forms::Application& application, MainModule& module, const Lives& lives)
    : Form(application, {.name = "MainViewFrm",
                         .resizable = true,
                         .menuBar = true,
                         .acceptsDrops = true,
                         .minimumWidth = MinWidth,
                         .minimumHeight = MinHeight}),
      module_(module),
      lives_(lives) {
    KeyPreview = true;
    HelpContext = HelpContext::MainView;
    menu.mnuUndo.Enabled = false;

    MainImage.AutoSize = true;
    MainImage.AccessibleName = "Image";
    picFrame.AccessibleName = "Image area";
    hsbPict.AccessibleName = "Horizontal scroll bar";
    vsbPict.AccessibleName = "Vertical scroll bar";
    PictureTemp.AutoSize = true;
    PictureTemp.Visible = false;
    ImageDefault.Visible = false;
    ImageDefault.Picture = DefaultPicture();
    for (forms::ScrollBar* bar : {&hsbPict, &vsbPict}) {
        bar->Visible = false;
        bar->SmallChange = BarSmallChange;
        bar->OnGotFocus = [this] { PictureTemp.SetFocus(); };
    }
    for (forms::Menu* recent : menu.mnuLast)
        recent->Literal = true;
    CmdFullScreen.Caption = "Full Screen View";
    CmdFullScreen.Picture = FullScreenPicture(module_.Screen().TwipsPerPixelX());
    CmdFullScreen.ToolTip = "Full Screen View";

    MainImage.OnResize = [this] { MainImage_Resize(); };
    MainImage.OnMouseDown = [this](const forms::MouseArguments& mouse) { MainImage_MouseDown(mouse); };
    MainImage.OnMouseMove = [this](const forms::MouseArguments& mouse) { MainImage_MouseMove(mouse); };
    MainImage.OnMouseUp = [this](const forms::MouseArguments& mouse) { MainImage_MouseUp(mouse); };
    picFrame.OnMouseMove = [this](const forms::MouseArguments& mouse) { fullScreenCorner.PointAt(mouse); };
    picFrame.OnMouseUp = [this](const forms::MouseArguments& mouse) { Form_MouseUp(mouse); };
    const auto dropped = [this](const std::vector<std::string>& files) {
        MainImage_OLEDragDrop(*this, files);
    };
    MainImage.OnOLEDragDrop = dropped;
    picFrame.OnOLEDragDrop = dropped;
    hsbPict.OnChange = hsbPict.OnScroll = [this] { hsbPict_Change(); };
    vsbPict.OnChange = vsbPict.OnScroll = [this] { vsbPict_Change(); };
    CmdFullScreen.OnClick = [this] { CmdFullScreen_Click(); };
    CmdFullScreen.OnMouseUp = [this](const forms::MouseArguments&) { PictureTemp.SetFocus(); };
    menu.mnuTopmost.Checkable = true;
    menu.mnuTopmost.Install([this] { mnuTopmost_Click(); });
    menu.mnuExit.Install([this] { mnuExit_Click(); });
    module_.RefreshRecentMenu = [this] { RefreshRecentMenu(menu, module_.config); };
}

MainViewFrm::~MainViewFrm() {
    module_.RefreshRecentMenu = [] {};
}

void MainViewFrm::Form_Load() {
    FirstActivation = true;
    Caption = ProductName;
    MainImage.Picture = ImageDefault.Picture;
    InitHelp(module_);
    module_.DoEvents();
    if (!module_.config.KeepRecent) module_.config.Recent.fill("");
    RefreshRecentMenu(menu, module_.config);
    module_.DoEvents();
    RefreshFavoritesMenu(menu, module_.config);
    module_.DoEvents();
    PlaceWindow();
    if (module_.config.WindowMaximized) WindowState = WindowState::Maximized;
    module_.DoEvents();
    ShowBackgroundColor();
    ReadCommandText(*this);
    menu.mnuTopmost.Checked = module_.config.TopMostWindow;
    if (module_.config.TopMostWindow) SetTopmost(true);
    PictureTemp.SetFocus();
    module_.Screen().MousePointer = MousePointer::Default;
}

void MainViewFrm::PlaceWindow() {
    const AppConfig& c = module_.config;
    const auto posX = static_cast<float>(c.MainPosX);
    const auto posY = static_cast<float>(c.MainPosY);
    const auto sizeX = static_cast<float>(c.MainSizeX);
    const auto sizeY = static_cast<float>(c.MainSizeY);
    const bool saved = c.SaveWindowSize && posX >= 0 && posY >= 0 && sizeX >= MinWidth &&
                       sizeY >= MinHeight && posX + sizeX <= module_.Screen().Width() &&
                       posY + sizeY <= module_.Screen().Height();
    const forms::TwipRect area = module_.Screen().UsableArea();
    const forms::TwipRect place = KeptInside(
        saved ? forms::TwipRect{posX, posY, sizeX, sizeY} : forms::TwipRect{0, 0, StartWidth, StartHeight},
        area);
    Move(place.left, place.top, place.width, place.height);
}

void MainViewFrm::ShowBackgroundColor() {
    picFrame.BackColor = BackgroundColours[static_cast<std::size_t>(module_.config.BackgroundColor)];
}

void MainViewFrm::Form_Activate() {
    if (!FirstActivation) return;
    FirstActivation = false;
    UnloadWaitWindow(App());
    module_.DoEvents();
    if (module_.ShowDisplayDialog) OpenDisplayProperties();
    if (OpenFromDesktop(*this)) WaitUntilAlone(*this);  // it may play a show

    std::string tips = "1";
    SkipFailure([&] { tips = module_.platform.store.Get("Show Tips at Startup", "1"); });
    if (ParseLong(tips).value_or(1) != 0) menu.mnuTipOfDay.Click();
    OpenStartDialogs();
}

void MainViewFrm::OpenDisplayProperties() {
    WindowState = WindowState::Minimized;
    module_.DoEvents();
    tavrix::OpenDisplayProperties(module_);
    module_.DoEvents();
    WindowState = WindowState::Normal;
}

void MainViewFrm::OpenStartDialogs() {
    const std::int16_t always = module_.config.StartupDialog;
    const auto open = [&](StartDialog dialog, forms::Menu& entry, bool also = false) {
        if (StartAction != dialog && always != static_cast<std::int16_t>(dialog) && !also) return;
        WaitUntilAlone(*this);
        entry.Click();
    };
    open(StartDialog::About, menu.mnuAbout, module_.FirstRun);
    open(StartDialog::SlideShowEditor, menu.mnuSlideShow);
    open(StartDialog::Open, menu.mnuOpen);
    open(StartDialog::ThumbnailBrowser, menu.mnuThumbnailBrowse);
}

void MainViewFrm::Form_QueryUnload(bool& cancel) {
    if (!IsUnsavedImage(module_)) return;
    const forms::Answer answer = App().MessageBox(
        {.text = "The current file has not been saved." + std::string(NewLine2) + "Discard changes and exit?",
         .icon = forms::BoxIcon::Question,
         .buttons = forms::BoxButtons::YesNo});
    cancel = answer == forms::Answer::No;
}

void MainViewFrm::Form_Unload(bool&) {
    module_.Screen().MousePointer = MousePointer::Hourglass;
    module_.DoEvents();
    CloseHelp(module_);
    SaveAllSettings(module_, Placement());
    module_.platform.process.End();
}

std::optional<MainViewPlacement> MainViewFrm::Placement() const {
    if (WindowState.Get() != WindowState::Normal) return std::nullopt;
    return MainViewPlacement{Left, Top, Width, Height};
}

void MainViewFrm::mnuTopmost_Click() {
    if (module_.Busy()) return;
    const bool topmost = !menu.mnuTopmost.Checked;
    menu.mnuTopmost.Checked = topmost;
    module_.config.TopMostWindow = topmost;
    SetTopmost(topmost);
}

void MainViewFrm::mnuExit_Click() {
    if (!module_.Busy()) App().Unload(*this);
}

void MainViewFrm::CmdFullScreen_Click() {
    PictureTemp.SetFocus();
    module_.DoEvents();
    if (menu.mnuAnimatedGIF.Enabled) {
        menu.mnuAnimatedGIF.Click();
    } else {
        menu.mnuFullScreen.Click();
    }
}

void MainViewFrm::MainImage_MouseDown(const forms::MouseArguments& mouse) {
    selection.Press(mouse, !module_.CurrentImage.empty());
}

void MainViewFrm::MainImage_MouseMove(const forms::MouseArguments& mouse) {
    selection.Drag(mouse);
    fullScreenCorner.PointAt(mouse);
}

void MainViewFrm::MainImage_MouseUp(const forms::MouseArguments& mouse) {
    if (mouse.button == MouseButton::Left && selection.SelectionDragging) {
        selection.SelectionShown = true;
        return;
    }
    selection.WipeForMenu();
    Form_MouseUp(mouse);
    selection.Drop();
}

void MainViewFrm::Form_MouseUp(const forms::MouseArguments& mouse) {
    if (module_.Busy()) return;
    if (mouse.button == MouseButton::Left) {
        const bool plain = mouse.shift == ShiftMask::None && !selection.SelectionShown;
        if (plain && module_.config.ClickScreenOpen) menu.mnuOpen.Click();
    } else if (mouse.button == MouseButton::Right) {
        if (menu.mnuEdit.Visible) {
            PopupMenu(menu.mnuEdit, &menu.mnuCopy);
        } else {
            PopupMenu(menu.mnuFile, &menu.mnuExit);
        }
    }
}

void MainViewFrm::Form_OLEDragDrop(const std::vector<std::string>& files) {
    MainImage_OLEDragDrop(*this, files);
}

}  // namespace tavrix
