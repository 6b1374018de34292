#include "editing/desktop/frmSetWallpaper.h"

#include "base/RuntimeError.h"
#include "core/DesktopSettings.h"
#include "core/Folders.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "dialogs/DialogWork.h"
#include "editing/desktop/ChangeWallpaper.h"
#include "editing/desktop/WallpaperFit.h"
#include "editing/frame/EditingDialog.h"
#include "editing/frame/ScratchPicture.h"
#include "editing/frame/SurfaceFile.h"
#include "editing/resizing/StretchCopy.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

constexpr const char* WallpaperFile = "Tavrix Wallpaper.BMP";
constexpr const char* TileWallpaper = "TileWallpaper";

}  // namespace

frmSetWallpaper::frmSetWallpaper(forms::Application& application, MainViewFrm& view)
    : Form(application, {.name = "frmSetWallpaper"}), view_(view), module_(view.Module()) {
    Caption = "Set Desktop Wallpaper";
    HelpContext = HelpContext::Wallpaper;
    lblCurrent.Caption = "Current wallpaper:";
    lblLastFilename.Literal = true;
    OptionTile.Caption = "&Tile Image";
    OptionCenter.Caption = "C&enter Image";
    CheckStretch.Caption = "&Strech Image";
    CheckAspect.Caption = "Preserve &Aspect";
    CmdOK.Caption = "&OK";
    CmdOK.ToolTip = "Click here to change your current wallpaper.";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Don't change wallpaper.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::Wallpaper); };
    SetLayout(
        forms::Column({forms::Row({lblCurrent, forms::Growing(forms::AtLeast(4500, 0, lblLastFilename))}),
                       forms::Row({forms::Growing(forms::Group(Frame1, {OptionTile, OptionCenter})),
                                   forms::Growing(forms::Group(Frame2, {CheckStretch, CheckAspect}))}),
                       forms::Row({forms::Stretch(), CmdOK, CmdCancel, CmdHelp})}));
}

void frmSetWallpaper::Form_Load() {
    const std::string path = GetWallpaperPath(module_);
    lblLastFilename.Caption = path.empty() ? "(None)" : path;
    std::string tile;
    SkipFailure([&] {
        const auto value = module_.platform.registry.Read(DesktopKey, TileWallpaper);
        if (value) tile = value->text.substr(0, value->text.find('\0'));
    });
    (tile == "0" ? OptionCenter : OptionTile).Value = true;
    CheckStretch.Value = module_.config.WallpaperStretch;
    CheckAspect.Value = module_.config.WallpaperAspect;
    module_.DoEvents();
    module_.Screen().MousePointer = forms::MousePointer::Default;
}

void frmSetWallpaper::CmdOK_Click() {
    DialogWork work(*this, module_, DialogWork::Dialog::Stays);
    if (!work) return;
    module_.config.WallpaperStretch = CheckStretch.Value;
    module_.config.WallpaperAspect = CheckAspect.Value;
    SkipFailure(
        [&] { module_.platform.registry.Write(DesktopKey, TileWallpaper, OptionTile.Value ? "1" : "0"); });
    const std::string folder = GetWindowsFolder(module_);
    const bool taken = folder.empty() || SetWallpaper(folder + WallpaperFile);
    work.Release();
    if (!taken) TellNoWallpaper(module_);
    App().Unload(*this);
}

bool frmSetWallpaper::SetWallpaper(const std::string& path) {
    SkipFailure([&] { WritePicture(path); });
    ClearPictureTemp(view_);
    return ChangeWallpaper(module_, path);
}

void frmSetWallpaper::WritePicture(const std::string& path) {
    // The outline of a selection is no part of the picture: it is wiped for the moment of taking it.
    view_.selection.EraseWhereSeen();
    const Picture image = view_.MainImage.Image();
    view_.selection.EraseWhereSeen();
    if (image.Empty()) throw RuntimeError(ErrorNumber::InvalidPicture);
    if (!module_.config.WallpaperStretch) {
        module_.platform.pictures.SaveBitmap(image.pixels->Whole(), path);
        return;
    }
    ScaleIntoPictureTemp(image);
    WriteSurface(module_, view_.PictureTemp, path);
}

void frmSetWallpaper::ScaleIntoPictureTemp(const Picture& image) {
    const forms::Screen& screen = module_.Screen();
    const WallpaperSize whole{screen.Width(), screen.Height()};
    const WallpaperSize own{view_.MainImage.Width, view_.MainImage.Height};
    const WallpaperSize size =
        module_.config.WallpaperAspect
            ? FitWallpaper(own, whole, {screen.TwipsPerPixelX(), screen.TwipsPerPixelY()})
            : whole;
    forms::PictureBox& scaled = view_.PictureTemp;
    scaled.Move(scaled.Left, scaled.Top, size.width, size.height);
    StretchCopy(scaled.Bitmap(), 0, 0, size.width, size.height, image.pixels->Whole(), 0, 0, own.width,
                own.height, App().Screen().Info());
}

void mnuSetWallpaper_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    if (module.CurrentImage.empty()) {
        module.app.MessageBox({.text = "Unable to set wallpaper, open an image and then try again..."});
        return;
    }
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    ShowDialog<frmSetWallpaper>(module, view);
}

}  // namespace tavrix
